// Reports: what of a form is told, and how it lies on paper.

#include "runtime/report.h"

#include <QPaintEngine>
#include <QPdfWriter>

#include "desktop/report_file.h"
#include "desktop/report_paper.h"
#include "tests/desktop/window_fixture.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

/// Keeps the texts that are painted, with their places, and the places of images and drawings.
struct Ink final : QPaintEngine {
    Ink() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF& place, const QPixmap&, const QRectF&) override { marks |= place; }
    void drawPath(const QPainterPath& path) override { marks |= path.boundingRect(); }
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
        words << item.text().trimmed();
        right = std::max(right, at.x() + item.width());
    }
    Type type() const override { return User; }

    QStringList words;
    double right = 0;
    QRectF marks;
};
struct Sheets final : QPdfWriter {
    explicit Sheets(QIODevice& file) : QPdfWriter(&file) {}
    QPaintEngine* paintEngine() const override { return &ink; }
    bool newPage() override { return ++pages > 0; }

    mutable Ink ink;
    int pages = 1;
};

struct WideForm final : Form {
    static constexpr int rows = 40, columns = 16;
    explicit WideForm(Desk& d) : Form(d, "Wide", "Широкая") {
        std::vector<Layout> cells(columns, "длинное название");
        for (int i = 0; i < rows * columns; ++i)
            cells.emplace_back(
                i % columns > 0 || i / columns == 7
                    ? Layout(*fields.emplace_back(std::make_unique<TextField>(
                          this, TextField::Spec{.name = "f" + std::to_string(i),
                                                .text = std::to_string(100000 + i) + ",123456"})))
                    : Layout("тело " + std::to_string(i / columns)));
        layout_ = column({frame("Пусто", column({Empty, Blank})), row({"план №", Plan, "лучший"}),
                          table(columns, cells), Wide});
        Wide.setScale(0, 1, 1, 0);
        Wide.disc(0.5, 0.5, 0.01, {255, 0, 0});
        Blank.clear();
    }
    TextField Empty{this, {.name = "Text1", .label = "нет"}}, Plan{this, {.name = "Text2", .text = "3"}};
    Picture Blank{this, {.name = "Blank"}}, Wide{this, {.name = "Wide", .width = 3000, .height = 300}};
    std::vector<std::unique_ptr<TextField>> fields;
};

}  // namespace

TEST(Report, KeepsNumbersWholeAndWithinThePage) {
    DesktopScreen screen;
    Desk desk(screen);
    desk.add("Wide", [&] { return std::make_unique<WideForm>(desk); });
    desk.show("Wide");
    const auto blocks = drawnBlocks({&desk.form("Wide")});
    std::string kinds;
    for (const ReportBlock& block : blocks) kinds += std::to_string(static_cast<int>(block.kind));
    EXPECT_EQ(kinds, "0456");  // title, field, table, picture: nothing of what is empty
    EXPECT_EQ(blocks[1].rows[0], (std::vector<std::string>{"план №", "3 лучший"}));

    QBuffer file;
    file.open(QIODevice::WriteOnly);
    Sheets sheets(file);
    paintReport(sheets, {"Отчет", "сегодня", "1", "задано"}, blocks);
    const double page = sheets.width();
    EXPECT_LE(sheets.ink.right, page);
    EXPECT_LE(sheets.ink.marks.right(), page + 1);
    EXPECT_GT(sheets.pages, 1);
    for (const auto& field : static_cast<WideForm&>(desk.form("Wide")).fields)
        EXPECT_EQ(sheets.ink.words.count(QString::fromStdString(field->text())),
                  field->name() == "f112" ? 2 : 1)
            << field->name();
    EXPECT_EQ(sheets.ink.words.count("тело 5"), 2);  // the first column stands before each part

    const test::TempFolder folder;
    for (const char* name : {"a.html", "a.pdf"}) writeReport(folder.path() / name, {}, {&desk.form("Wide")});
    EXPECT_NE(test::readBytes(folder.path() / "a.html").find("<td class=\"figure\">100001,123456</td>"),
              std::string::npos);
    EXPECT_EQ(test::readBytes(folder.path() / "a.pdf").substr(0, 5), "%PDF-");
    EXPECT_THROW(writeReport(folder.path() / "a.png", {}, {}), FileFailure);
}

}  // namespace tarvex
