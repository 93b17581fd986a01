#include "forms/converter_form.h"

#include <cmath>

#include "tests/forms/lab_fixture.h"

namespace tarvex {

class Form12Test : public test::LabTest {
protected:
    ConverterForm& form = lab.desk.get<ConverterForm>();
};

TEST_F(Form12Test, TypedPolarCoordinatesComeBackAsTyped) {
    form.Option1(11).choose();
    form.Text11.setText("200");
    form.Text12.setText("-7,5");
    form.Option9.choose();
    form.Option19.choose();
    form.Option17.choose();
    form.Command6.press();
    form.Command7.press();
    EXPECT_NEAR(toNumber(form.Text14.text()), 200, 1e-6);
    EXPECT_NEAR(toNumber(form.Text15.text()), -7.5, 1e-6);
    EXPECT_NEAR(toNumber(form.Text16.text()), 300000, 1e-3);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form12Test, AnglesInEveryUnitAndSign) {
    form.Option5.choose();
    form.Option21.choose();
    form.Text17.setText("10");
    form.Text18.setText("30");
    form.Text19.setText("36");
    form.Command4.press();
    form.Option6.choose();
    form.Command5.press();
    EXPECT_EQ(form.Text10.text(), "-10,51");
    form.Option4.choose();
    form.Command5.press();
    EXPECT_EQ(form.Text7.text(), "0");
    EXPECT_EQ(form.Text8.text(), "42");
    EXPECT_NEAR(toNumber(form.Text9.text()), 2.4, 2e-6);
    EXPECT_TRUE(form.Option21.on());  // although no whole hour is left to carry the sign
}

TEST_F(Form12Test, DatesAndTheirLocalTimes) {
    lab.s.kodKalend = 2;
    lab.s.TimeZone = 12;
    form.Command10.press();
    EXPECT_EQ(form.Text31.text(), "2451545");
    EXPECT_EQ(form.Text27.text(), "LT =15:00:00");
    EXPECT_EQ(form.Text30.text(), "LTut  =14:58:00");
    form.Command6.press();
    form.Command2.press();
    EXPECT_EQ(form.Text31.text(), "2451545,25");
    EXPECT_EQ(form.Text32.text(), "1,75");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form12Test, RefusalsAndBadInput) {
    form.Option10.choose();
    form.Command6.press();
    EXPECT_EQ(screen.onlyMessage().text, "ГОРизонтальные координаты\r\nзадаются только ТОПОцентрические");
    form.Command7.press();
    EXPECT_EQ(screen.onlyMessage().text,
              "Преобразование в ГОРизонтальные координаты\r\nпроизводится только в ТОПОцентрические");
    form.Option8.choose();
    form.Option1(3).choose();
    form.Option19.choose();
    form.Command6.press();  // the Earth from the Earth
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные");
    form.Option18.choose();
    form.Text33.setText("13");
    form.Command6.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные");
    form.Command10.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно дату");
    form.Text33.setText("1");
    form.Text31.setText("");
    form.Command11.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно юлианскую дату");
    form.Text29.setText("дня");
    form.Command2.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно к-во дней");
    form.Option1(11).choose();
    form.Text13.setText("далеко");
    form.Text31.setText("2451545");
    form.Command6.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно исходные координаты");
    form.Text13.setText("1e304");  // beyond double precision in metres
    form.Text1.setText("1e304");
    for (OptionButton* kind : {&form.Option2, &form.Option3}) {
        kind->choose();
        form.Command6.press();
        EXPECT_EQ(screen.onlyMessage().text, "Введите правильно исходные координаты");
        EXPECT_TRUE(std::isfinite(lab.s.X[11]) && std::isfinite(lab.s.Rcur)) << kind->name();
    }
    form.Text8.setText("x");
    form.Option4.choose();
    form.Command4.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные");
}

}  // namespace tarvex
