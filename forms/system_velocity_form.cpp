#include "forms/system_velocity_form.h"

#include <chrono>

#include "core/arithmetic.h"
#include "forms/elements_form.h"
#include "forms/plot_grid.h"
#include "initial/system_velocity.h"

namespace tarvex {

namespace {

constexpr double xzLevel = 5, xyLevel = -5;  // middle lines of the two views
constexpr Color black{0, 0, 0}, grey{200, 200, 200};

/// A text that differs from second to second, for the trigger of another form.
std::string presentTime() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return toText(static_cast<double>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count()));
}

}  // namespace

CheckBox::Spec SystemVelocityForm::tick(const char* name, const char* caption) {
    return {.name = name, .caption = caption, .hint = "Включить эту скорость в сумму"};
}
TextField::Spec SystemVelocityForm::speed(const char* name, const char* text) {
    return {.name = name,
            .label = "V, км/с",
            .text = text,
            .hint = "Величина скорости, км/с; раскладывается по осям",
            .width = 12};
}
TextField::Spec SystemVelocityForm::alfa(const char* name, const char* text) {
    return {.name = name,
            .label = "Alfa, град",
            .text = text,
            .hint = "Долгота направления, градусы",
            .width = 12};
}
TextField::Spec SystemVelocityForm::betta(const char* name, const char* text) {
    return {.name = name,
            .label = "Betta, град",
            .text = text,
            .hint = "Угол направления от плоскости XY, градусы; минус - вниз",
            .width = 12};
}
TextField::Spec SystemVelocityForm::part(const char* name, const char* label) {
    return {.name = name,
            .label = label,
            .hint = "Проекция скорости на ось, км/с",
            .readOnly = true,
            .width = 12};
}
OptionButton::Spec SystemVelocityForm::sign(const char* name, const char* group, bool plus) {
    return {.name = name,
            .caption = plus ? "+" : "--",
            .group = group,
            .on = plus,
            .hint = plus ? "Направление как задано" : "Обратное направление"};
}

std::array<SystemVelocityForm::Row, 5> SystemVelocityForm::rows() {
    return {{{Check1, Text4, Text5, Text6, Text7, Text8, Text9, Option1, Option2, {200, 0, 0}},
             {Check2, Text10, Text11, Text12, Text13, Text14, Text15, Option3, Option4, {250, 0, 0}},
             {Check3, Text16, Text17, Text18, Text19, Text20, Text21, Option5, Option6, {0, 0, 250}},
             {Check4, Text22, Text23, Text24, Text25, Text26, Text27, Option7, Option8, {255, 0, 250}},
             {Check5, Text28, Text29, Text30, Text31, Text32, Text33, Option9, Option10, {0, 230, 0}}}};
}

SystemVelocityForm::SystemVelocityForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Скорости Солнечной системы       Tarvex7m    -  форма 4"), lab(lab_) {
    const Shown bad = orShow("Введите правильно данные", "Tarvex7");
    Command2.onPress([this] { resolveAndSum(); }, bad);
    Command1.onPress([this] { giveToSystem(); }, bad);
    Command4.onPress([this] { clearPicture(); });
    Command3.onPress([this] { close(); });

    std::vector<Layout> speeds;
    for (Row& r : rows())
        speeds.push_back(column(
            {r.tick, row({fields(3, {r.V, r.Alfa, r.Betta, r.VX, r.VY, r.VZ}), column({r.plus, r.minus})})}));
    layout_ = row({column({frame("Составляющие скорости", column(std::move(speeds))),
                           row({frame("Сумма, км/с", fields(1, {Text34, Text35, Text36})),
                                frame("Скорость системы, км/с", fields(1, {Text1, Text2, Text3}))}),
                           Command2, table(3, {Command1, Command4, Command3})}),
                   column({Picture1, row({stretch(), fields(1, {Text37})})})});
}

void SystemVelocityForm::load() {
    Text1.show(lab.s.VXsys);
    Text2.show(lab.s.VYsys);
    Text3.show(lab.s.VZsys);
    clearPicture();
}

void SystemVelocityForm::activate() { clearPicture(); }

void SystemVelocityForm::clearPicture() {
    drawGrid(Picture1, {.top = 10, .cell = grey, .axis = {160, 160, 160}, .axesY = {xzLevel, xyLevel}});
}

void SystemVelocityForm::drawVelocity(double VX, double VY, double VZ, double MV, Color color) {
    Picture1.line(0, xyLevel, ratio(VX, MV), ratio(VY, MV) + xyLevel, color);
    Picture1.line(0, xzLevel, ratio(VX, MV), ratio(VZ, MV) + xzLevel, color);
}

void SystemVelocityForm::resolveAndSum() {
    ModelState& s = lab.s;
    const double MV = Text37.number();
    s.kodStop = 1;
    double sumX = 0, sumY = 0, sumZ = 0;
    s.VX[rowSun] = s.VY[rowSun] = s.VZ[rowSun] = 0;
    for (Row& r : rows()) {
        if (!r.tick.on()) continue;
        const double V = r.V.number(), Alfa = r.Alfa.number(), Betta = r.Betta.number();
        s.kodStop = r.minus.on() ? -1 : 1;  // the stop flag carries the sign and keeps it: meant
        resolveVelocity(s, V, Alfa, Betta, s.kodStop);
        sumX += s.VX[rowSun];
        sumY += s.VY[rowSun];
        sumZ += s.VZ[rowSun];
        r.VX.show(s.VX[rowSun]);
        r.VY.show(s.VY[rowSun]);
        r.VZ.show(s.VZ[rowSun]);
        drawVelocity(s.VX[rowSun], s.VY[rowSun], s.VZ[rowSun], MV, r.color);
    }
    Text34.show(sumX);
    Text35.show(sumY);
    Text36.show(sumZ);
    drawVelocity(sumX, sumY, sumZ, MV, black);

    resolveVelocity(s, 370, 171, -11.4, 1);  // the Sun against the background radiation, for reference
    drawVelocity(s.VX[rowSun], s.VY[rowSun], s.VZ[rowSun], MV, grey);
    const auto thousandths = [](double v) { return toText(Fix(1000 * v) / 1000); };
    Picture1.text(-9.6, -8.2, "справочно   Vsol=370      Alfa=171      Betta=-11,4   (серые линии)");
    Picture1.text(-9.6, -9.2,
                  "VX = " + thousandths(s.VX[rowSun]) + "      VY = " + thousandths(s.VY[rowSun]) +
                      "      VZ = " + thousandths(s.VZ[rowSun]));
}

void SystemVelocityForm::giveToSystem() {
    ModelState& s = lab.s;
    auto& form1 = desk().get<ElementsForm>();  // first: where it was closed, its load puts the system at rest
    s.VXsys = Text1.number();
    s.VYsys = Text2.number();
    s.VZsys = Text3.number();
    addSystemVelocity(s);
    form1.viewState.choose();
    form1.showStateTrigger.setText(presentTime());
}

}  // namespace tarvex
