#include "forms/eccentric_form.h"

#include <algorithm>

#include "tests/forms/lab_fixture.h"

namespace tarvex {

using test::Drawn;

class Form14Test : public test::LabTest {
protected:
    EccentricForm& form = lab.desk.get<EccentricForm>();
};

TEST_F(Form14Test, RunsUntilStoppedGoesOnAndSteps) {
    screen.atYield = [&](int count) {
        if (count == 5) form.Command4.press();
    };
    form.Command1.press();
    EXPECT_EQ(form.Text17.text(), "0,4");
    form.Command6.press();
    EXPECT_EQ(form.Text17.text(), "0,5");
    screen.atYield = [&](int count) {
        if (count == 9) form.Command4.press();
    };
    form.Command5.press();
    EXPECT_EQ(form.Text17.text(), "0,9");
    EXPECT_TRUE(screen.messages.empty());
    const auto& figure = test::drawnOn(form.Picture1);
    const auto start = std::find_if(figure.begin(), figure.end(),
                                    [](const Drawn& d) { return d.kind == Drawn::Kind::Disc; });
    ASSERT_NE(start, figure.end());
    EXPECT_EQ(start->color, (Color{0, 0, 0})) << "the point of the start comes first";
}

TEST_F(Form14Test, BadFieldsEndInTheirMessages) {
    form.Command6.press();  // nothing to go on with
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка при расчете координат");
    const std::pair<TextField*, const char*> bad[] = {{&form.Text1, ""},
                                                      {&form.Text2, "1,5"},
                                                      {&form.Text3, "abc"},
                                                      {&form.Text4, "1e999"},
                                                      {&form.Text5, "0"}};
    for (const auto& [field, text] : bad) {
        const std::string good = field->text();
        field->setText(text);
        form.Command1.press();
        EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные") << field->name();
        field->setText(good);
    }
    screen.atYield = [&](int) { form.Text8.setText("0"); };  // spoiled during the run
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка при расчете координат");
    screen.atYield = [&](int) { lab.desk.unload("Form14"); };  // closed during the run
    form.Text8.setText("1");
    form.Command1.press();
    EXPECT_TRUE(screen.messages.empty());
}

}  // namespace tarvex
