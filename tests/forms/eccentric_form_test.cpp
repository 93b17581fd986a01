#include "forms/eccentric_form.h"

#include "tests/forms/lab_fixture.h"

namespace tarvex {

using test::Drawn;

class Form14Test : public test::LabTest {
protected:
    EccentricForm& form = lab.desk.get<EccentricForm>();
};

TEST_F(Form14Test, RunsUntilStoppedGoesOnAndSteps) {
    screen.atYield = [&](int count) {
        if (count == 5) form.stopRun.press();
    };
    form.startRun.press();
    EXPECT_EQ(form.elapsedTime.text(), "0,4");
    form.singleStep.press();
    EXPECT_EQ(form.elapsedTime.text(), "0,5");
    screen.atYield = [&](int count) {
        if (count == 9) form.stopRun.press();
    };
    form.continueRun.press();
    EXPECT_EQ(form.elapsedTime.text(), "0,9");
    EXPECT_TRUE(screen.messages.empty());
    const auto& figure = test::drawnOn(form.orbitDrawing);
    const auto start = std::find_if(figure.begin(), figure.end(),
                                    [](const Drawn& d) { return d.kind == Drawn::Kind::Disc; });
    ASSERT_NE(start, figure.end());
    EXPECT_EQ(start->color, (Color{0, 0, 0})) << "the point of the start comes first";
}

TEST_F(Form14Test, BadFieldsEndInTheirMessages) {
    // nothing to go on with
    EXPECT_EQ(screen.said(form.singleStep), "Ошибка при расчете координат");
    const std::pair<TextField*, const char*> bad[] = {{&form.meanRadius, ""},
                                                      {&form.ellipseEccentricity, "1,5"},
                                                      {&form.eccentricShift, "abc"},
                                                      {&form.meanMotion, "1e999"},
                                                      {&form.drawingScale, "0"}};
    for (const auto& [field, text] : bad) {
        EXPECT_EQ(screen.said(form.startRun, *field, text), "Введите правильно данные") << field->name();
    }
    screen.atYield = [&](int) { form.longitudeScale.setText("0"); };  // spoiled during the run
    EXPECT_EQ(screen.said(form.startRun), "Ошибка при расчете координат");
    screen.atYield = [&](int) { lab.desk.unload("Form14"); };  // closed during the run
    form.longitudeScale.setText("1");
    EXPECT_EQ(screen.said(form.startRun), "");
}

}  // namespace tarvex
