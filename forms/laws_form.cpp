#include "forms/laws_form.h"

#include <array>

namespace tarvex {

namespace {

/// A law by its option: its code and the coefficients that a click puts into the fields.
struct Law {
    OptionButton LawsForm::*option;
    std::int16_t kodPgr;
    double k1, k2;
};
constexpr std::array<Law, 7> laws = {{{&LawsForm::noPressure, 0, 0, 0},
                                      {&LawsForm::weber, 2, 0.5, 1},
                                      {&LawsForm::gerberFirst, 3, 3, 6},
                                      {&LawsForm::gerberSecond, 4, 3, 6},
                                      {&LawsForm::lienardWiechert, 5, 1, 1},
                                      {&LawsForm::norin, 6, 1, 1},
                                      {&LawsForm::sukhorukov, 7, 0, 0}}};
constexpr std::array<OptionButton LawsForm::*, 4> delays = {
    &LawsForm::noDelay, &LawsForm::delayBySpeed, &LawsForm::delayByAcceleration, &LawsForm::delayByTrace};

/// A tick and the code that holds it.
struct Tick {
    CheckBox LawsForm::*box;
    std::int16_t Motion::*code;
};
constexpr std::array<Tick, 8> ticks = {{{&LawsForm::ratesEachStage, &Motion::kodDiffurV},
                                        {&LawsForm::pairEnergies, &Motion::kodEpot},
                                        {&LawsForm::showCentre, &Motion::kodXcm},
                                        {&LawsForm::centreNow, &Motion::kodCMnow},
                                        {&LawsForm::ratesFromAccelerations, &Motion::kodAA},
                                        {&LawsForm::shortLienardWiechert, &Motion::kodLVsimple},
                                        {&LawsForm::sunFromCentre, &Motion::kodSun},
                                        {&LawsForm::withRelativity, &Motion::kodRelativity}}};

/// Whether gravity has a speed on Form2; a form that is not loaded has its box off, and is not loaded for
/// this.
bool gravityHasSpeed(Desk& desk) {
    if (!desk.isLoaded("Form2")) return false;
    const auto* box = dynamic_cast<const CheckBox*>(desk.form("Form2").find("Check13"));
    return box != nullptr && box->on();
}

}  // namespace

LawsForm::LawsForm(Laboratory& lab_)
    : LawsControls(lab_.desk, formName, "Дополнительные параметры   Tarvex7m5 - форма 23"), lab(lab_) {
    for (const Law& law : laws)
        (this->*law.option).onChoose([this, law] {
            k1.show(law.k1);
            k2.show(law.k2);
        });
    storeChoice.onPress([this] { store(); }, orShow("Задайте правильно данные", "Tarvex7"));
    closeForm.onPress([this] { close(); });

    layout_ =
        column({frame("выбор вида динамического воздействия скорости гравитации Vgr или  Ve=Vgr+Vi",
                      column({noPressure, weber, gerberFirst, gerberSecond, lienardWiechert, norin,
                              sukhorukov, row({fields(2, {k1, k2}), stretch()}), ratesEachStage,
                              ratesFromAccelerations, shortLienardWiechert})),
                frame("выбор варианта рассчета для учета запаздывания потенциала по координатам",
                      column({noDelay, delayBySpeed, delayByAcceleration, delayByTrace})),
                withRelativity,
                frame("энергия и центр масс", column({pairEnergies, showCentre, centreNow, sunFromCentre})),
                row({storeChoice, stretch(), closeForm})});
}

void LawsForm::load() {
    for (const Law& law : laws)
        if (law.kodPgr == lab.motion.kodPgr) (this->*law.option).choose();
    for (std::size_t i = 0; i < delays.size(); ++i)
        if (lab.motion.kodDX == static_cast<int>(i)) (this->*delays[i]).choose();
    for (const Tick& tick : ticks) (this->*tick.box).set(lab.motion.*tick.code == 1);
    k1.show(lab.motion.kPgr1);
    k2.show(lab.motion.kPgr2);
}

void LawsForm::store() {
    if (!noPressure.on() && !gravityHasSpeed(desk()))
        throw Refusal("Давление гравитации не может быть задано без скорости гравитации", "Tarvex7");
    for (const Law& law : laws)
        if ((this->*law.option).on()) lab.motion.kodPgr = law.kodPgr;
    lab.motion.kPgr1 = k1.number();
    lab.motion.kPgr2 = k2.number();
    for (std::size_t i = 0; i < delays.size(); ++i)
        if ((this->*delays[i]).on()) lab.motion.kodDX = static_cast<std::int16_t>(i);
    for (const Tick& tick : ticks) lab.motion.*tick.code = (this->*tick.box).on() ? 1 : 0;
    lab.s.provenance.wrote(Given::Laws, 23);
}

}  // namespace tarvex
