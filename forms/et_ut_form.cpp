#include "forms/et_ut_form.h"

#include <array>

#include "core/arithmetic.h"
#include "core/calendar.h"

namespace tarvex {

namespace {

struct Formula {
    const char* caption;
    double a, b, c, T0;
    const char* hint;
};
constexpr std::array<Formula, 6> formulas = {{
    {"задать вручную", 0, 0, 0, 0, "Коэффициенты и год отсчета берутся из полей"},
    {"ET-UT=24.35+72.32*(T-T0)+29.95*(T-T0)^2  Джонс 1939  T0=1900", 24.35, 72.32, 29.95, 1900,
     "Парабола Джонса от 1900 года, с"},
    {"ET-UT=31.5*(T-T0)^2   Долмау 1997  T0=1800", 0, 0, 31.5, 1800, "Парабола от 1800 года, с"},
    {"ET-UT=31.5*(T-T0)^2   Норин 2010  T0= JD0 (для поворота планет)", 0, 0, 31.5, 1800,
     "Парабола от 1800 года для поворота планет, с"},
    {"ET-UT=31.5*(T-T0)^2   Норин 2010  T0= JD0 (для вращения Земли)", 0, 0, 31.5, 1800,
     "Парабола от 1800 года для вращения Земли, с"},
    {"кусочная аппроксимация от 1700 до 2000 и далее прогноз", 0, 0, 0, 1900,
     "Таблица многочленов, с; последний из них к 2020 году дает примерно на 60 с больше действительного"},
}};
constexpr int manual = 0, piecewise = 5;

}  // namespace

/// The controls of one of the two formulas.
struct EtUtForm::Row {
    TextField &a, &b, &c, &T0;
    OptionButtons& choice;
    OptionButton& reversed;
    double& JDt0;
};

EtUtForm::EtUtForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Рассчет ET-UT     Tarvex7m -  форма 17 "),
      Option8(this, 0, 5,
              [](int i) {
                  return OptionButton::Spec{.name = "Option8",
                                            .caption = formulas[i].caption,
                                            .group = "ET1",
                                            .on = i == 1,
                                            .hint = formulas[i].hint};
              }),
      Option9(this, 0, 5,
              [](int i) {
                  return OptionButton::Spec{.name = "Option9",
                                            .caption = formulas[i].caption,
                                            .group = "ET2",
                                            .on = i == 4,
                                            .hint = formulas[i].hint};
              }),
      lab(lab_) {
    Command1.onPress([this] { setValues(); });
    Command2.onPress([this] { close(); });
    Text5.onChange([this] { setValues(); });

    std::vector<Layout> choice1, choice2;
    for (int i = 0; i <= 5; ++i) {
        choice1.emplace_back(Option8(i));
        choice2.emplace_back(Option9(i));
    }
    layout_ = column({
        frame("ET1: поворот планет", column({row({"ET1-UT, сек =", Option1, Option2, Text1, " + ", Text2,
                                                  " * (T-T01) +", Text3, " * (T-T01)^2", Text10, stretch()}),
                                             column(choice1)})),
        frame("ET2: вращение Земли", column({row({"ET2-UT, сек =", Option3, Option4, Text11, " + ", Text12,
                                                  " * (T-T02) +", Text13, " * (T-T02)^2", Text20, stretch()}),
                                             column(choice2)})),
        frame("Диаметры (тыс. км.)", fields(3, {Text6, Text7, Text8})),
        row({Command1, Command2, stretch()}),
    });
}

void EtUtForm::load() {
    for (const int k : {1, 2}) {
        const Row r = rowOf(k);
        const Formula& f = formulas[k];
        r.a.show(f.a);
        r.b.show(f.b);
        r.c.show(f.c);
        r.T0.show(f.T0);
    }
    Command1.press();
}

EtUtForm::Row EtUtForm::rowOf(int k) {
    if (k == 1) return {Text1, Text2, Text3, Text10, Option8, Option2, lab.s.JDt01};
    return {Text11, Text12, Text13, Text20, Option9, Option4, lab.s.JDt02};
}

void EtUtForm::setValues() {
    ModelState& s = lab.s;
    for (const int k : {1, 2}) {
        const Row r = rowOf(k);
        for (int i = manual + 1; i <= piecewise; ++i) {
            if (!r.choice(i).on()) continue;
            r.a.show(formulas[i].a);
            r.b.show(formulas[i].b);
            r.c.show(formulas[i].c);
            r.T0.show(formulas[i].T0);
        }
    }
    for (const int k : {1, 2}) setFormula(k);
    s.kodKalend = 0;
    s.TimeZone = 0;
    for (const int k : {1, 2}) {
        const Row r = rowOf(k);
        r.JDt0 = JDfromDate(s, 1.5, 1, r.T0.int32());
    }
    s.Diam[rowSun] = finite(MK * Text6.number());
    s.Diam[rowEarthMoon] = finite(MK * Text7.number());
    s.Diam[rowMoon] = finite(MK * Text8.number());
}

/// Row k of kET from the fields.
void EtUtForm::setFormula(int k) {
    const Row r = rowOf(k);
    auto& ET = lab.s.kET[k];
    ET[0] = r.a.number();
    ET[1] = r.b.number();
    ET[2] = r.c.number();
    ET[4] = r.choice(piecewise).on() ? 2 : 1;
    if (r.reversed.on()) ET[4] = -ET[4];
}

}  // namespace tarvex
