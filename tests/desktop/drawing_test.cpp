#include "desktop/drawing.h"

#include <gtest/gtest.h>

#include <QImage>

#include "desktop/picture_files.h"

namespace tarvex {

namespace {

constexpr Color black{0, 0, 0}, red{255, 0, 0}, white{255, 255, 255};

int count(const Drawing& drawing) {
    int marks = 0;
    drawing.each([&](const Mark&) { ++marks; });
    return marks;
}

Mark disc(double x, double y, Color color) { return {Mark::Kind::Disc, x, y, 3, 0, color}; }

}  // namespace

TEST(Drawing, AMovingBodyLeavesNothingBehindAndMemoryIsBounded) {
    Drawing drawing(100, 100, 1000);
    drawing.clear(black);
    drawing.add({Mark::Kind::Line, 0, 50, 100, 50, red});
    for (int step = 0; step < 100000; ++step) {
        drawing.add(disc(step % 977 * 0.1, 50, white));
        drawing.add(disc(step % 977 * 0.1, 50, black));  // the form erases it
    }
    EXPECT_EQ(count(drawing), 1);
    EXPECT_TRUE(drawing.complete());
    for (int i = 0; i < 5; ++i)
        drawing.add({Mark::Kind::Line, 0, 50, 100, 50, white});  // the same line again
    EXPECT_EQ(count(drawing), 1);

    drawing.setScale({-5, 1, 5, -1});
    drawing.add({Mark::Kind::Text, 20, 1, 15, 0, white, "подпись"});
    drawing.setScale({1900, 1, 2000, -1});
    for (int step = 0; step < 5000; ++step) drawing.add(disc(step, 50, white));
    EXPECT_FALSE(drawing.complete());
    EXPECT_LE(count(drawing), 1000);
    std::string seen;
    drawing.each([&](const Mark& mark) {
        const bool end = mark.kind == Mark::Kind::Text || mark.x == 4999;
        if (end) seen += std::to_string(std::lround(drawing.userX(mark, mark.x))) + " ";
    });
    EXPECT_EQ(seen, "-3 6899 ");  // the oldest have gone, but no text, and each keeps its scale
    drawing.clear(white);
    EXPECT_TRUE(drawing.complete());
    EXPECT_EQ(count(drawing), 0);
}

TEST(Drawing, NumbersAreInTheScaleInWhichTheyWereDrawn) {
    Drawing drawing(200, 100);
    drawing.setScale({-10, 10, 10, -10});
    drawing.add(disc(150, 25, red));
    drawing.add({Mark::Kind::Line, 0, 0, 200, 100, white});  // background: covers, is no line to see
    drawing.setScale({1900, 0.5, 2000, -0.5});
    drawing.add({Mark::Kind::Line, 20, 50, 100, 100, {0, 0, 250}});
    drawing.add({Mark::Kind::Line, 20, 50, 20, 50, black});
    drawing.add({Mark::Kind::Text, 1, 1, 15, 0, black, "подпись"});
    EXPECT_EQ(csvOf(drawing).toStdString(),
              "\xEF\xBB\xBFвид;x;y;x2;y2;цвет\r\n"
              "точка;5;5;;;#ff0000\r\n"
              "точка;1910;0;;;#000000\r\n"
              "отрезок;1910;0;1950;-0,5;#0000fa\r\n");
}

TEST(Drawing, SvgHoldsEveryMarkOrElseTheImage) {
    Drawing drawing(200, 100, 8);
    drawing.clear(black);
    drawing.add({Mark::Kind::Circle, 50, 60, 4.5, 0, red});
    drawing.add({Mark::Kind::Text, 10, 20, 10, 0, white, "e < 1 & \"R\""});
    const QImage image(4, 2, QImage::Format_RGB32);
    const std::string svg = svgOf(drawing, image).toStdString();
    EXPECT_NE(svg.find("viewBox=\"0 0 200 100\""), std::string::npos);
    EXPECT_NE(svg.find("<rect width=\"200\" height=\"100\" fill=\"#000000\"/>"), std::string::npos);
    EXPECT_NE(svg.find("<circle cx=\"50\" cy=\"60\" r=\"4.5\" stroke=\"#ff0000\" fill=\"none\"/>"),
              std::string::npos);
    EXPECT_NE(svg.find("y=\"27.44\" font-size=\"8\" fill=\"#ffffff\">e &lt; 1 &amp; &quot;R&quot;</text>"),
              std::string::npos);
    EXPECT_EQ(svg.find("<image"), std::string::npos);

    for (int i = 0; i < 20; ++i) drawing.add(disc(i, i, white));
    const QByteArray overfull = svgOf(drawing, image);
    EXPECT_EQ(overfull.indexOf("<circle"), -1);
    const qsizetype from = overfull.indexOf("base64,") + 7;
    const QByteArray png = QByteArray::fromBase64(overfull.mid(from, overfull.indexOf('"', from) - from));
    EXPECT_EQ(QImage::fromData(png, "png").size(), QSize(4, 2));
}

}  // namespace tarvex
