#include "script/player.h"

#include "core/name_table.h"
#include "desktop/canvas_image.h"
#include "runtime/desk.h"
#include "runtime/form.h"
#include "runtime/picture.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

class OtherForm final : public Form {
public:
    static constexpr const char* formName = "Other";
    explicit OtherForm(Desk& desk) : Form(desk, formName, "Другая") {}
    void activate() override { Text1.setText("включена"); }

    TextField Text1{this, {.name = "Text1"}};
};

/// Every kind of control, a calculation that gives way, questions, posted work.
class BenchForm final : public Form {
public:
    static constexpr const char* formName = "Bench";
    explicit BenchForm(Desk& home) : Form(home, formName, "Стенд") {
        Text1.onChange([this] { ++changes; });
        Command1.onPress([this] { Text1.number(); }, orShow("Введите правильно\r\nданные", "Tarvex7"));
        Command2.onPress([this] {  // a calculation of ten steps
            stop = false;
            for (steps = 0; steps < 10 && !stop; ++steps) desk().yield();
            Text2.show(steps);
        });
        Command3.onPress([this] { stop = true; });
        Command4.onPress([this] {
            Text2.setText(desk().screen().ask("Заменить файл?", "Tarvex7m") ? "заменен" : "оставлен");
        });
        Command5.onPress([this] { plan(3); });
        Command6.onPress([this] { desk().unloadAll("Bench"); });
        Command7.setEnabled(false);
        Picture1.onRelease([this](double x, double y, Picture::Button b) {
            Text2.setText(toText(x) + ";" + toText(y) + (b == Picture::Button::Left ? ";left" : ";right"));
            Picture1.disc(x, y, 0.5, {255, 0, 0});
        });
        Picture1.setScale(-10, 12, 10, -10);
    }
    void activate() override { ++activations; }

    void plan(int left) {
        Text1.setText(std::to_string(left));
        if (left > 0)
            desk().screen().post([this, left] { plan(left - 1); });
        else
            desk().screen().notify("План закончен");
    }

    TextField Text1{this, {.name = "Text1", .text = "1,5"}};
    TextField Text2{this, {.name = "Text2", .readOnly = true}};
    TextField Text3{this, {.name = "Text3", .hidden = true}};
    TextFields Text5{this, 0, 10,
                     [](int i) { return TextField::Spec{.name = "Text5", .text = std::to_string(i)}; }};
    CheckBox Check1{this, {.name = "Check1", .caption = "отметка"}};
    OptionButton Option1{this, {.name = "Option1", .on = true}};
    OptionButton Option2{this, {.name = "Option2"}};
    CommandButton Command1{this, {.name = "Command1", .caption = "Проверить"}};
    CommandButton Command2{this, {.name = "Command2"}};
    CommandButton Command3{this, {.name = "Command3"}};
    CommandButton Command4{this, {.name = "Command4"}};
    CommandButton Command5{this, {.name = "Command5"}};
    CommandButton Command6{this, {.name = "Command6"}};
    CommandButton Command7{this, {.name = "Command7"}};
    ScrollBar HScroll1{this, {.name = "HScroll1", .min = 1, .max = 10000, .value = 3000}};
    Picture Picture1{this, {.name = "Picture1", .width = 60, .height = 40}};
    Picture Picture2{this, {.name = "Picture2"}};

    int changes = 0, steps = 0, activations = 0;
    bool stop = false;
};

struct Outcome {
    std::string out, failure;  ///< failure: "LINE: what", empty when every line was done
};

class PlayerTest : public ::testing::Test {
protected:
    PlayerTest() : screen(out), desk(screen) {
        desk.add("Bench", [this] { return std::make_unique<BenchForm>(desk); });
        desk.add("Other", [this] { return std::make_unique<OtherForm>(desk); });
        names.add("JD", JD);
        names.add("AlfaL", AlfaL);
        names.add("NameData", source);
    }

    Outcome play(const std::string& script, bool trusted = false) {
        std::istringstream in(script);
        out.str("");
        Outcome outcome;
        try {
            const auto lines = readScript(in);
            screen.draw(savedPictures(lines), makeImageCanvas);
            Player player(screen, desk, names);
            if (trusted) player.trust();
            player.play(lines, "Bench");
        } catch (const LineFailure& failure) {
            outcome.failure = std::to_string(failure.line) + ": " + failure.text;
        }
        outcome.out = out.str();
        return outcome;
    }
    BenchForm& bench() { return desk.get<BenchForm>(); }

    test::TempFolder folder;
    double JD = 2378862.1;
    std::array<double, 3> AlfaL{0, 0.1, 0.2};
    std::string source = "GREN";
    std::ostringstream out;
    ScriptScreen screen;
    NameTable names;
    Desk desk;
};

}  // namespace

TEST_F(PlayerTest, SetsAndPrintsEveryKindOfControl) {
    const Outcome played = play(
        "\xEF\xBB\xBF# метка порядка байтов, CR LF и пустые строки не мешают\r\n"
        "\r\n"
        "Bench.Text1 =  два  слова # не пометка \r\n"
        "print Bench.Text1\r\n"
        "Bench.Text1 =\r\n"
        "  print Bench.Text1  \r\n"
        "Bench.Text5(3) = 100,46\n"
        "print Bench.Text5(3)\n"
        "Bench.Check1 = on\n"
        "print Bench.Check1\n"
        "Bench.Option2 = on\n"
        "print Bench.Option1\n"
        "print Bench.Option2\n"
        "Bench.HScroll1 = 42\n"
        "print Bench.HScroll1\n"
        "Bench.Text3 = триггер\n"
        "print Bench.Text3.visible\n"
        "print Bench.Command7.enabled\n"
        "print Bench.Command1.caption\n"
        "print Bench.Command1\n"
        "print state.JD\n"
        "print state.AlfaL(1)\n"
        "print state.NameData\n"
        "echo слова как есть: {a} # и это\n");
    EXPECT_EQ(played.failure, "");
    EXPECT_EQ(played.out,
              "Bench.Text1 =  два  слова # не пометка \n"
              "Bench.Text1 = \n"
              "Bench.Text5(3) = 100,46\n"
              "Bench.Check1 = on\n"
              "Bench.Option1 = off\n"
              "Bench.Option2 = on\n"
              "Bench.HScroll1 = 42\n"
              "Bench.Text3.visible = off\n"
              "Bench.Command7.enabled = off\n"
              "Bench.Command1.caption = Проверить\n"
              "Bench.Command1 = Проверить\n"
              "state.JD = 2378862.1000000001\n"
              "state.AlfaL(1) = 0.10000000000000001\n"
              "state.NameData = GREN\n"
              "слова как есть: {a} # и это\n");
    EXPECT_EQ(bench().changes, 2);  // each write fires, also one of an empty text
}

TEST_F(PlayerTest, MessagesNoticesAndAnswersAreLines) {
    const Outcome played = play(
        "Bench.Text1 = abc\nBench.Command1\nprint Bench.status\n"
        "answer no\nanswer yes\n"
        "Bench.Command4\nprint Bench.Text2\nBench.Command4\nprint Bench.Text2\n"
        "Bench.Command5\nprint Bench.Text1\n");
    EXPECT_EQ(played.failure, "");
    EXPECT_EQ(played.out,
              "message \"Tarvex7\": Введите правильно\\nданные\n"
              "cause: поле Text1: не число «abc»\n"
              "Bench.status = поле Text1: не число «abc»\n"
              "question \"Tarvex7m\": Заменить файл? - no\nBench.Text2 = оставлен\n"
              "question \"Tarvex7m\": Заменить файл? - yes\nBench.Text2 = заменен\n"
              "notice: План закончен\nBench.Text1 = 0\n");  // posted work is done before the next line
}

TEST_F(PlayerTest, HooksActInsideTheRunningCalculation) {
    EXPECT_EQ(
        play("at yield 4 Bench.Command3\nat yield 2 Bench.Text1 = в пути\nat yield 2 print Bench.Text1\n"
             "print Bench.Text1\nBench.Command2\nprint Bench.Text2\nBench.Command2\nprint Bench.Text2\n")
            .out,
        "Bench.Text1 = 1,5\nBench.Text1 = в пути\nBench.Text2 = 4\nBench.Text2 = 10\n");
    // Another calculation from inside the first: what is left of the hooks counts on.
    EXPECT_EQ(
        play("at yield 1 Bench.Command2\nat yield 5 Bench.Command3\nBench.Command2\nprint Bench.Text2\n")
            .failure,
        "");
    EXPECT_EQ(bench().steps, 5);
    const struct {
        const char *script, *failure;
    } wrong[] = {
        {"# нет расчета\nat yield 1 Bench.Command3\n",
         "2: после этой строки ни один расчет не уступил управление"},
        {"at yield 11 Bench.Command3\n\nBench.Command2\necho мимо\n",
         "1: расчет уступил управление меньше раз: 10"},
        {"\nat yield 3 Bench.Command7\nBench.Command2\n", "2: Command7 сейчас недоступен"},
        {"at yield 3 Bench.Command99\nBench.Command2\n", "1: на форме Bench нет элемента «Command99»"},
        {"at yield 2 Bench.Command4\nBench.Command2\n",
         "1: на вопрос нет ответа (answer yes или answer no): Заменить файл?"},
    };
    for (const auto& [script, failure] : wrong) {
        ScriptScreen fresh(out);
        Desk other(fresh);
        other.add("Bench", [&] { return std::make_unique<BenchForm>(other); });
        std::istringstream in(script);
        out.str("");
        try {
            Player(fresh, other, names).play(readScript(in), "Bench");
            ADD_FAILURE() << script;
        } catch (const LineFailure& thrown) {
            EXPECT_EQ(std::to_string(thrown.line) + ": " + thrown.text, failure);
            EXPECT_EQ(out.str(), "");  // no guard took the failure for its own
            EXPECT_FALSE(other.busy());
        }
    }
}

TEST_F(PlayerTest, FormsLoadAtTheFirstReferenceAndAreActivatedByActs) {
    EXPECT_EQ(play("print Other.Text1\nOther.Text1 = моё\nprint Other.Text1\n"
                   "Bench.Check1 = on\nBench.Check1 = off\nshow Other\nprint Other.Text1\n"
                   "Other.Text1 = x\nclose Other\nprint Other.Text1\n")
                  .out,
              "Other.Text1 = \n"     // looking at a form is not turning to it
              "Other.Text1 = моё\n"  // its activation came before the text
              "Other.Text1 = включена\n"
              "Other.Text1 = \n");  // a new one
    EXPECT_EQ(bench().activations, 2);
}

TEST_F(PlayerTest, EndsWithTheProgram) {
    const Outcome played = play("show Other\nBench.Command5\nBench.Command6\nBench.Text99 = никогда\n");
    EXPECT_EQ(played.failure, "");
    EXPECT_FALSE(desk.anyLoaded());
}

TEST_F(PlayerTest, Arithmetic) {
    const struct {
        const char *expression, *shown;
    } cases[] = {
        {"1 + 2 * 3", "7"},
        {"(1 + 2) * 3", "9"},
        {"-2 - -3", "1"},
        {"10 / 4 / 5", "0,5"},
        {"1,5 * 2.5e1", "37,5"},
        {"Bench.Text5(10) * state.AlfaL(2) + Bench.HScroll1", "3002"},
        {"(b - Bench.Text1) * 100 / б2", "25"},
    };
    for (const auto& [expression, shown] : cases) {
        const Outcome played =
            play("let b = Bench.Text5(2)\nlet б2 = 2\ncalc a = " + std::string(expression) + "\nprint a\n");
        EXPECT_EQ(played.failure, "");
        EXPECT_EQ(played.out, "a = " + std::string(shown) + "\n");
    }
}

TEST_F(PlayerTest, TheFirstLineThatCannotBeDoneStopsTheScript) {
    const std::string deep = "let a = " + std::string(1000, '(') + "1\n",
                      noFile = "save Bench.Picture1 nowhere/a.png";
    const struct {
        std::string line, failure;
    } cases[] = {
        {"Form99.Text1 = 1", "нет формы «Form99»"},
        {"show Form99", "нет формы «Form99»"},
        {"close Other", "форма не открыта: «Other»"},
        {"Bench.Text99 = 1", "на форме Bench нет элемента «Text99»"},
        {"Bench.Text5(11) = 1", "нет такого номера: «Bench.Text5(11)»"},
        {"Bench.Text5 = 1", "нет такого номера: «Bench.Text5»"},
        {"print Bench.Text5(x)", "нет такого номера: «Bench.Text5(x)»"},
        {"Bench.Command7", "Command7 сейчас недоступен"},
        {"Bench.Text2 = 1", "Text2 - результат, в него не вводят"},
        {"Bench.Text1", "Text1 - не кнопка"},
        {"Bench.Command1 = on", "в Command1 ничего не вводят"},
        {"Bench.Check1 = да", "ожидается on или off, а не «да»"},
        {"Bench.Option1 = off", "переключатель снимают, включив другой: Option1"},
        {"Bench.HScroll1 = 0", "HScroll1 меняется от 1 до 10000"},
        {"Bench.HScroll1 = 1,5", "ожидается число"},
        {"Bench.HScroll1 = 1e99", "слишком большое число"},
        {"Bench.Picture1", "Picture1 - не кнопка"},
        {"Bench.Picture1 press 1,1 left", "непонятное действие: «press»"},
        {"Bench.Picture1 release 1 left", "ожидаются координаты X,Y"},
        {"Bench.Picture1 release 1,a left", "ожидается число"},
        {"Bench.Picture1 release 1,1 middle", "ожидается left или right"},
        {"Bench.Picture2 click 1,1 left", "Picture2 не отвечает на мышь"},
        {"Bench.Text1 click 1,1 left", "Text1 - не рисунок"},
        {"print", "нечего печатать"},
        {"print Bench.Picture1", "Picture1 - рисунок, у него нет значения"},
        {"print Bench.Text1.color", "на форме Bench нет элемента «Text1.color»"},
        {"print a", "нет числа с именем «a»"},
        {"print state.NoSuch", "нет общей переменной «NoSuch»"},
        {"print state.AlfaL(3)", "неверный номер: «AlfaL(3)»"},
        {"print state.AlfaL", "неверный номер: «AlfaL»"},
        {"print state.AlfaL(1", "неверный номер: «AlfaL(1»"},
        {"let 5 = 5", "ожидается ИМЯ = выражение"},
        {"let a 5", "ожидается ИМЯ = выражение"},
        {"let a =", "в выражении ожидается число или имя"},
        {"let a = 1 +", "в выражении ожидается число или имя"},
        {"let a = (1", "не закрыта скобка"},
        {"let a = 1 2", "лишнее в выражении: «2»"},
        {"let a = 1.2.3", "в выражении не число"},
        {"let a = state.NameData", "в выражении не число"},
        {"let a = 1 / (2 - 2)", "деление на нуль или слишком большое число"},
        {"let a = 1e300 * 1e300", "деление на нуль или слишком большое число"},
        {deep, "слишком много скобок"},
        {"answer maybe", "ожидается answer yes или answer no"},
        {"Bench.Command4", "на вопрос нет ответа (answer yes или answer no): Заменить файл?"},
        {"at yield x Bench.Command3", "ожидается число"},
        {"at yield 0 Bench.Command3", "номер уступки считается от 1"},
        {"at yield 1", "после at yield N нет действия"},
        {"at once Bench.Command3", "ожидается at yield N ..."},
        {"save Bench.Text1 a.png", "Text1 - не рисунок"},
        {"export Bench.Picture1 a.png", "рисунок с осями и легендой пишут в файл .pdf, .svg или .csv"},
        {"save Bench.Picture1 a.gif", "рисунок сохраняют в файл .png, .bmp, .svg или .csv"},
        {noFile, "не удалось записать «nowhere/a.png» (нет папки nowhere)"},
        {"save Bench.Picture1 /a.png", "вне текущего каталога рисунок сохраняют только с --trust: «/a.png»"},
        {"save Bench.Picture1 ../a.png",
         "вне текущего каталога рисунок сохраняют только с --trust: «../a.png»"},
        {"Нажать кнопку", "непонятная строка: «Нажать кнопку»"},
        {std::string("\x7f"
                     "ELF\0\1\2",
                     7),
         "непонятная строка: «?ELF???»"},
        {std::string(3 << 20, 'x'), "слишком длинная строка"},
    };
    for (const auto& [line, failure] : cases) {
        const Outcome played = play("Bench.Text1 = 1\n" + line + "\necho дальше\n");
        EXPECT_EQ(played.failure, "2: " + failure);
        EXPECT_EQ(played.out, "");
    }
}

TEST_F(PlayerTest, PicturesAreSavedAsVectorsAndNumbersToo) {
    const std::string csv = (folder.path() / "a.csv").string(), svg = (folder.path() / "a.svg").string();
    const Outcome played = play(
        "Bench.Picture1 release -2.5,10 left\nsave Bench.Picture1 " + csv + "\nsave Bench.Picture1 " + svg,
        true);
    EXPECT_EQ(played.failure, "");
    EXPECT_EQ(test::readBytes(csv), "\xEF\xBB\xBFвид;x;y;x2;y2;цвет\r\nточка;-2,5;10;;;#ff0000\r\n");
    EXPECT_NE(test::readBytes(svg).find("fill=\"#ff0000\"/>"), std::string::npos);

    // With what the picture means, where it has a meaning.
    bench().Picture2.axes(0, {{"время", "год", 1900, 100}, {"dAlfaP", "сек", 0, 2}});
    const int series = bench().Picture2.series({"dAlfaP", "эксп. 1", 0, 0});
    const std::string pdf = (folder.path() / "a.pdf").string();
    screen.draw({"Bench.Picture2"}, makeImageCanvas);
    for (const double y : {0.25, 0.5}) bench().Picture2.as(series).disc(y, y, 0.01, {255, 0, 0});
    std::string script;
    for (const std::string& file : {csv, svg, pdf}) script += "export Bench.Picture2 " + file + "\n";
    EXPECT_EQ(play(script, true).failure, "");
    EXPECT_EQ(test::readBytes(csv),
              "\xEF\xBB\xBF"
              "dAlfaP, эксп. 1\r\nвремя, год; dAlfaP, сек\r\n1925;0,5\r\n1950;1\r\n");
    const std::string drawn = test::readBytes(svg);
    for (const char* text : {"dAlfaP, ", "эксп. 1", "время, год", "1,5"})
        EXPECT_NE(drawn.find(text), std::string::npos) << text;
    EXPECT_EQ(test::readBytes(pdf).substr(0, 5), "%PDF-");
}

TEST_F(PlayerTest, OnlyPicturesThatAScriptSavesAreDrawn) {
    const std::string file = (folder.path() / "a b.bmp").string();
    EXPECT_EQ(
        play("Bench.Picture1 release -2.5,1e1 right\nprint Bench.Text2\nsave Bench.Picture1 " + file + "\n",
             true)
            .out,
        "Bench.Text2 = -2,5;10;right\n");
    EXPECT_EQ(test::readBytes(file).substr(0, 2), "BM");
    EXPECT_NE(bench().Picture1.canvas(), nullptr);
    EXPECT_EQ(bench().Picture2.canvas(), nullptr);
    const std::string within = (folder.path() / "a.tvx").string();
    test::writeBytes(within, "save Form1.Picture1 b.png\nplay " + within + "\nplay nowhere.tvx\n");
    EXPECT_EQ(savedPictures({"at yield 3 save Form2.Picture1 a.png", "Form6.Command7", "print Form1.Text1",
                             "play " + within}),
              (std::set<std::string>{"Form1.Picture1", "Form2.Picture1", "Form6"}));
}

}  // namespace tarvex
