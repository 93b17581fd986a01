#include "runtime/form.h"

#include <new>

#include "core/arithmetic.h"
#include "runtime/desk.h"
#include "tests/support/recording_screen.h"
#include "tests/support/testing.h"

namespace tarvex {

using test::RecordingScreen;

namespace {

class BenchForm final : public Form {
public:
    static constexpr const char* formName = "Bench";
    explicit BenchForm(Desk& desk) : Form(desk, formName, "Стенд") {
        Command1.onPress([this] { result = Text1.number() / divisor; },
                         orShow("Введите правильно данные", "Tarvex7"));
        Command2.onPress([this] {
            close();
            closedAlive = name() == "Bench";  // the form outlives its own handler
        });
        Option1.onChoose([this] { ++chosen; });
        Check1.onChange([this] { ++ticked; });
        Text2.onChange([this] {
            ++triggered;
            throw Refusal("своё", "Tarvex7.0");
        });
        HScroll1.onChange([this] { ++scrolled; });
        opens(Command3, "Other");
    }
    void activate() override { ++activated; }

    TextField Text1{this, {.name = "Text1", .text = "1,5", .hint = "Делимое: любое число"}};
    TextField Text2{this, {.name = "Text2", .hidden = true}};
    TextFields Text5{this, 0, 10,
                     [](int i) { return TextField::Spec{.name = "Text5", .text = std::to_string(i)}; }};
    CheckBox Check1{this, {.name = "Check1"}};
    OptionButton Option1{this, {.name = "Option1", .group = "a", .on = true}};
    OptionButton Option2{this, {.name = "Option2", .group = "a"}};
    OptionButton Option3{this, {.name = "Option3", .group = "b", .on = true}};
    CommandButton Command1{this, {.name = "Command1"}};
    CommandButton Command2{this, {.name = "Command2"}};
    CommandButton Command3{this, {.name = "Command3"}};
    ScrollBar HScroll1{this, {.name = "HScroll1", .min = 1, .max = 10, .value = 3}};
    Picture Picture1{this, {.name = "Picture1", .width = 200, .height = 100}};

    double result = 0, divisor = 1;
    int chosen = 0, ticked = 0, triggered = 0, scrolled = 0, activated = 0;
    bool closedAlive = false;
};

struct Bench : ::testing::Test {
    Bench() : desk(screen) {
        desk.add("Bench", [this] { return std::make_unique<BenchForm>(desk); });
    }
    RecordingScreen screen;
    Desk desk;
};

}  // namespace

TEST_F(Bench, GuardShowsTheFixedMessageForEveryKindOfFailure) {
    auto& form = desk.get<BenchForm>();
    const std::pair<const char*, const char*> typed[] = {
        {"", "поле Text1 (Делимое): пусто там, где нужно число"},
        {"abc", "поле Text1 (Делимое): не число «abc»"},
        {"1e999", "поле Text1 (Делимое): слишком большое число «1e999»"}};
    for (const auto& [bad, cause] : typed) {
        form.Text1.setText(bad);
        EXPECT_EQ(screen.told(form.Command1),
                  (RecordingScreen::Message{"Введите правильно данные", "Tarvex7"}));
        EXPECT_EQ(form.status(), cause);
        EXPECT_EQ(screen.causes.back(), cause);
    }
    EXPECT_EQ(screen.pointedAt, std::vector<std::string>(3, "Bench.Text1"));
    form.Text1.setText("3");  // no text is to blame
    form.divisor = 0;
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().title, "Tarvex7");
    EXPECT_EQ(form.status(), "деление на ноль, корень из отрицательного или слишком большое число");
    EXPECT_EQ(screen.pointedAt.size(), 3u);
    form.divisor = 2;
    form.Command1.press();
    EXPECT_EQ(form.status(), "");  // until the next action
    EXPECT_EQ(form.result, 1.5);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Bench, HandlersRunInsideTheWritersCall) {
    auto& form = desk.get<BenchForm>();
    form.Text2.setText("x");
    form.Text2.setText("x");  // an equal text fires too
    EXPECT_EQ(form.triggered, 2);
    EXPECT_EQ(screen.messages.size(), 2u);
    EXPECT_EQ(screen.messages[0].text, "своё");
    screen.messages.clear();
    const std::pair<std::function<void()>, const char*> failures[] = {
        {[] { throw std::bad_alloc(); }, "не хватает памяти"},
        {[] { throw std::out_of_range("x"); }, "номер вне границ"},
        {[] { std::filesystem::rename("/tree/Dat/none", "/tree/Dat/a"); }, "нет папки Dat"},
        {[] { stage("этап", "Tarvex7", [] { throw FileFailure("нет файла /tree/Dat/a"); }); },
         "нет файла Dat/a"},
        {[] { throw Refusal("все сказано", "Tarvex7"); }, ""}};
    desk.nameFilesFrom("/tree/");
    for (const auto& [action, cause] : failures) {
        form.Command1.onPress(action);
        form.Command1.press();
        EXPECT_EQ(form.status(), cause);
    }
    EXPECT_EQ(screen.messages.size(), 5u);
    EXPECT_EQ(screen.messages[3].text, "этап");

    form.Option2.choose();
    EXPECT_FALSE(form.Option1.on());
    EXPECT_TRUE(form.Option3.on());  // another group
    test::enter(form.Option1, form.Option1);
    EXPECT_EQ(form.chosen, 2);

    test::enter(form.Check1, false, form.Check1, true);
    EXPECT_EQ(form.ticked, 1);
    form.HScroll1.setValue(99);
    EXPECT_EQ(form.HScroll1.value(), 10);
    EXPECT_EQ(form.scrolled, 1);
    EXPECT_THROW(form.Text5(11), SubscriptFailure);
    EXPECT_EQ(static_cast<TextField*>(form.find("Text5(10)"))->text(), "10");
    EXPECT_FALSE(form.Command3.enabled());  // opens a form that does not exist
}

TEST_F(Bench, FormsLoadOnceAndOutliveTheirLastHandler) {
    desk.show("Bench");
    auto* form = &desk.get<BenchForm>();
    desk.turnTo(*form);
    EXPECT_EQ(form->activated, 1);
    bool* alive = &form->closedAlive;
    {
        const Desk::InHandler calculation(desk);  // something still runs on the form
        form->Command2.press();
        EXPECT_FALSE(desk.isLoaded("Bench"));
        EXPECT_TRUE(*alive);
    }
    EXPECT_EQ(screen.unloaded, std::vector<std::string>{"Bench"});
    EXPECT_EQ(desk.get<BenchForm>().Text1.text(), "1,5");  // a new one
    EXPECT_THROW(desk.form("Nowhere"), Failure);
}

TEST_F(Bench, FlagsOfACalculationSurviveAYield) {
    screen.atYield = [](int) {
        volatile double zero = 0;
        [[maybe_unused]] volatile double foreign = 1 / zero;
    };
    const ArithmeticGuard guard;
    desk.yield();
    EXPECT_NO_THROW(guard.check());
    volatile double zero = 0;
    [[maybe_unused]] volatile double own = 1 / zero;
    screen.atYield = nullptr;
    desk.yield();
    EXPECT_THROW(guard.check(), ArithmeticFailure);
}

TEST_F(Bench, PicturesDrawInTheirScaleAndIgnoreWhatIsNoPlace) {
    auto& picture = desk.get<BenchForm>().Picture1;
    picture.setScale(-10, 12, 10, -10);
    picture.disc(0, 1, 0.5, {1, 2, 3});
    picture.line(-10, 12, 10, -10, {0, 0, 0});
    picture.line(0, 0, std::nan(""), 1, {0, 0, 0});
    picture.circle(1e300, 0, 1, {0, 0, 0});
    picture.circle(0, 0, 1e300, {0, 0, 0});
    picture.disc(0, 0, std::nan(""), {0, 0, 0});
    picture.text(0, 0, "раз\r\nдва");
    const auto& drawn = test::drawnOn(picture);
    ASSERT_EQ(drawn.size(), 4u);
    EXPECT_DOUBLE_EQ(drawn[0].x, 100);
    EXPECT_DOUBLE_EQ(drawn[0].y, 50);
    EXPECT_DOUBLE_EQ(drawn[0].x2, 5);
    EXPECT_DOUBLE_EQ(drawn[1].x2, 200);
    EXPECT_DOUBLE_EQ(drawn[1].y2, 100);
    EXPECT_EQ(drawn[2].text, "раз");
    EXPECT_GT(drawn[3].y, drawn[2].y);
    EXPECT_THROW(picture.setScale(0, 0, 0, 1), ArithmeticFailure);
    EXPECT_DOUBLE_EQ(picture.toUserY(0.5), 1);
}

}  // namespace tarvex
