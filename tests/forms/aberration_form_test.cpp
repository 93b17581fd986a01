#include "forms/aberration_form.h"

#include <cmath>

#include "tests/forms/lab_fixture.h"

namespace tarvex {

class Form11Test : public test::LabTest {
protected:
    Form11Test() { lab.s.gamma = 66.7006e-12; }
    AberrationForm& form = lab.desk.get<AberrationForm>();
};

TEST_F(Form11Test, StepsOverDatesAndComesBack) {
    lab.s.kodKalend = 1;
    form.Text6.setText("1");
    form.Option4.choose();
    screen.atYield = [&](int count) {
        if (count == 3) form.Command6.press();
    };
    form.Command5.press();
    EXPECT_EQ(form.Text23.text(), "1,53");
    EXPECT_EQ(lab.s.JD, 2451545.02);
    EXPECT_EQ(lab.s.kodKalend, 1);  // restored after the form's own conversion
    form.Command9.press();
    EXPECT_EQ(form.Text23.text(), "1,54");
    form.Command8.press();
    EXPECT_EQ(form.Text23.text(), "1,5");
    EXPECT_EQ(form.Text10.text(), "1");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form11Test, StarFromTheFields) {
    form.Check1(4).set(false);
    form.Check1(10).set(true);
    form.Text12.setText("100000");
    form.Text14.setText("-200000000000");
    form.Text3.setText("100");
    form.Command1.press();
    form.Command3.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(lab.s.VXsys, 100);
    EXPECT_NE(form.Text34.text(), "0");
    form.Text3.setText("1e307");
    form.Command3.press();
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка при расчете");
    EXPECT_TRUE(std::isfinite(lab.s.VX[3]));
    form.Text14.setText("1e304");
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные ");
    EXPECT_TRUE(std::isfinite(lab.s.Y[10]));
    form.Text14.setText("-200000000000");
    form.Check1(10).set(false);  // nothing ticked: the star stays the object
    form.Command1.press();
    EXPECT_NEAR(toNumber(form.Text30.text()), 2e11, 1e6);
}

TEST_F(Form11Test, BadInput) {
    form.Check1(5).set(true);
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Должен быть отмечен только 1 объект");
    EXPECT_EQ(lab.s.kodStop, 1);
    form.Check1(5).set(false);
    for (const auto& [field, text] :
         std::initializer_list<std::pair<TextField*, const char*>>{{&form.Text6, "0"},
                                                                   {&form.Text6, "x"},
                                                                   {&form.Text23, ""},
                                                                   {&form.Text33, "1e10"},
                                                                   {&form.Text43, "99999999999"},
                                                                   {&form.Text1, "?"}}) {
        const std::string good = field->text();
        field->setText(text);
        form.Command1.press();
        EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные ") << field->name() << text;
        field->setText(good);
    }
    form.Text43.setText("40000");
    form.Command5.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно дату") << "once, and the steps end";
    form.Text43.setText("2000");
    form.Command1.press();
    form.Option5.choose();
    form.Text8.setText("0");
    form.Command3.press();
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка при расчете");
    form.Check1(4).set(false);
    form.Check1(3).set(true);  // the Earth seen from the Earth
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные ");
}

}  // namespace tarvex
