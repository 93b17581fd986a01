#include "desktop/canvas_image.h"

#include "tests/support/testing.h"

#include <QPainter>

namespace tarvex {

namespace {

constexpr Color ground{255, 255, 255}, blue{0, 0, 255}, ink{0, 0, 0};

int pixelsOf(const QImage& image, Color c) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == qRgb(c.r, c.g, c.b);
    return count;
}

}  // namespace

TEST(ImageCanvas, OverdrawingInTheBackgroundColourErases) {
    ImageCanvas canvas(100, 60);
    canvas.clear(ground);
    const auto draw = [&](Color c) {
        canvas.line(3.3, 2.1, 97.7, 51.9, c);
        canvas.line(50, 30, 50, 30, c);  // a point
        canvas.circle(40.2, 30.7, 21.4, c, false);
        canvas.circle(70, 20, 0.4, c, true);
    };
    draw(blue);
    EXPECT_GT(pixelsOf(canvas.image(), blue), 300);
    draw(ground);
    EXPECT_EQ(pixelsOf(canvas.image(), ground), canvas.image().width() * canvas.image().height());
}

TEST(ImageCanvas, DrawsWhereItIsTold) {
    ImageCanvas canvas(100, 60);
    EXPECT_TRUE(canvas.image().isNull());  // nothing drawn, nothing allocated
    canvas.clear(ink);
    canvas.circle(20, 30, 5, blue, true);
    canvas.line(80, 10, 80, 10, ground);
    const QImage& image = canvas.image();
    EXPECT_EQ(image.pixel(40, 60), qRgb(0, 0, 255));
    EXPECT_EQ(image.pixel(46, 60), qRgb(0, 0, 255));
    EXPECT_EQ(image.pixel(60, 60), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(160, 20), qRgb(255, 255, 255));
    // Text goes right and down from its corner, Cyrillic too; widths differ, so no box glyphs.
    const auto inkOf = [](const char* letter) {
        ImageCanvas one(40, 40);
        one.text(10, 10, letter, ink, 15);
        int outside = 0;
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 80; ++x)
                outside += (x < 19 || y < 19) && one.image().pixel(x, y) != qRgb(255, 255, 255);
        EXPECT_EQ(outside, 0) << letter;
        return pixelsOf(one.image(), ground);
    };
    EXPECT_NE(inkOf("Ж"), inkOf("г"));
}

TEST(ImageCanvas, TextsStandClearOfTheGridAndHidePointsOfNothing) {
    ImageCanvas canvas(100, 60);
    canvas.clear(ground);
    for (int x = 0; x <= 100; x += 10) canvas.line(x, 0, x, 60, blue);
    canvas.circle(35, 26, 2, ink, true);
    canvas.text(20, 20, "iiiiiiiiii", ink, 12);
    QImage look(200, 120, QImage::Format_RGB32);
    QPainter painter(&look);
    canvas.paintPart(painter, {0, 0, 100, 60}, {0, 0, 200, 120}, 2);
    painter.end();
    int grid = 0;
    for (int y = 42; y < 60; ++y)
        for (int x = 42; x < 80; ++x) grid += look.pixel(x, y) == qRgb(0, 0, 255);
    EXPECT_EQ(grid, 0);
    EXPECT_EQ(look.pixel(70, 52), qRgb(0, 0, 0));
    EXPECT_EQ(look.pixel(60, 90), qRgb(0, 0, 255));  // below the text it goes on
}

TEST(ImageCanvas, SavesWholeOrNotAtAll) {
    const test::TempFolder folder;
    ImageCanvas canvas(50, 40);
    canvas.clear(ground);
    canvas.save(folder.path() / "empty.png");
    EXPECT_EQ(QImage(QString::fromStdString((folder.path() / "empty.png").string())).width(), 100);
    canvas.line(10, 10, 20, 10, blue);
    for (const char* name : {"a.bmp", "a.PNG"}) {
        canvas.save(folder.path() / name);
        const QImage back(QString::fromStdString((folder.path() / name).string()));
        EXPECT_EQ(back.pixel(30, 20), qRgb(0, 0, 255)) << name;
    }
    EXPECT_THROW(canvas.save(folder.path() / "nowhere" / "a.png"), FileFailure);
    EXPECT_THROW(canvas.save(folder.path() / "a.txt"), FileFailure);
    EXPECT_THROW(canvas.save(folder.path() / "a"), FileFailure);
    int files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.path())) ++files;
    EXPECT_EQ(files, 3);  // nothing temporary left
}

}  // namespace tarvex
