#include "forms/et_ut_form.h"

#include <array>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/clock.h"

namespace tarvex {

namespace {

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
    : EtUtControls(lab_.desk, formName, "Рассчет ET-UT     Tarvex7m -  форма 17 "), lab(lab_) {
    setModel.onPress([this] { setValues(); });
    closeForm.onPress([this] { close(); });
    setTrigger.onChange([this] { setValues(); });

    std::vector<Layout> choice1, choice2;
    for (int i = 0; i <= 5; ++i) {
        choice1.emplace_back(planetsFormula(i));
        choice2.emplace_back(earthFormula(i));
    }
    layout_ = column({
        frame("ET1: поворот планет",
              column({row({"ET1-UT, сек =", planetsPlus, planetsMinus, planetsA, " + ", planetsB,
                           " * (T-T01) +", planetsC, " * (T-T01)^2", planetsYear, stretch()}),
                      column(choice1)})),
        frame("ET2: вращение Земли",
              column({row({"ET2-UT, сек =", earthPlus, earthMinus, earthA, " + ", earthB, " * (T-T02) +",
                           earthC, " * (T-T02)^2", earthYear, stretch()}),
                      column(choice2)})),
        frame("Диаметры (тыс. км.)", fields(3, {sunDiameter, earthDiameter, moonDiameter})),
        row({setModel, closeForm, stretch()}),
    });
}

void EtUtForm::useFirstRelation() {
    constexpr int jones = 1, earthTurns = 4;
    planetsFormula(jones).choose();
    earthFormula(earthTurns).choose();
    planetsPlus.choose();
    takeAnew();
}

void EtUtForm::takeAnew() { setTrigger.setText(timeOfDay()); }

void EtUtForm::load() {
    for (const int k : {1, 2}) {
        const Row r = rowOf(k);
        const Formula& f = formulas[k];
        r.a.show(f.a);
        r.b.show(f.b);
        r.c.show(f.c);
        r.T0.show(f.T0);
    }
    setModel.press();
}

EtUtForm::Row EtUtForm::rowOf(int k) {
    if (k == 1) return {planetsA, planetsB, planetsC, planetsYear, planetsFormula, planetsMinus, lab.s.JDt01};
    return {earthA, earthB, earthC, earthYear, earthFormula, earthMinus, lab.s.JDt02};
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
    s.kodKalend = codeOf(Calendar::Gregorian);
    s.TimeZone = 0;
    for (const int k : {1, 2}) {
        const Row r = rowOf(k);
        r.JDt0 = JDfromDate(s, 1.5, 1, r.T0.int32());
    }
    s.Diam[rowSun] = finite(MK * sunDiameter.number());
    s.Diam[rowEarthMoon] = finite(MK * earthDiameter.number());
    s.Diam[rowMoon] = finite(MK * moonDiameter.number());
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
