#include "forms/laws_form.h"

#include <array>

#include "forms/screens.h"

namespace tarvex {

namespace {

/// The options of the laws, in the order of their table.
constexpr std::array<OptionButton LawsForm::*, pressureLaws.size()> laws = {
    &LawsForm::noPressure,      &LawsForm::weber, &LawsForm::gerberFirst, &LawsForm::gerberSecond,
    &LawsForm::lienardWiechert, &LawsForm::norin, &LawsForm::sukhorukov};

/// An option of the retardation and what it stands for.
struct DelayOption {
    OptionButton LawsForm::*option;
    Retardation delay;
};
constexpr std::array<DelayOption, 4> delays = {
    {{&LawsForm::noDelay, Retardation::None},
     {&LawsForm::delayBySpeed, Retardation::BySpeeds},
     {&LawsForm::delayByAcceleration, Retardation::ByAccelerations},
     {&LawsForm::delayByTrace, Retardation::ByTrace}}};

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

/// Whether gravity has a speed in the runs; a screen that is not loaded has its box off, and is not loaded
/// for this.
bool gravityHasSpeed(Desk& desk) {
    const auto* run = loadedScreen<RunScreen>(desk);
    return run != nullptr && run->settings().finiteGravitySpeed;
}

}  // namespace

LawsForm::LawsForm(Laboratory& lab_)
    : LawsControls(lab_.desk, formName, "Дополнительные параметры   Tarvex7m5 - форма 23"), lab(lab_) {
    for (std::size_t i = 0; i < laws.size(); ++i)
        (this->*laws[i]).onChoose([this, i] {
            k1.show(pressureLaws[i].k1);
            k2.show(pressureLaws[i].k2);
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
    for (std::size_t i = 0; i < laws.size(); ++i)
        if (codeOf(pressureLaws[i].law) == lab.motion.kodPgr) (this->*laws[i]).choose();
    for (const DelayOption& one : delays)
        if (codeOf(one.delay) == lab.motion.kodDX) (this->*one.option).choose();
    for (const Tick& tick : ticks) (this->*tick.box).set(lab.motion.*tick.code == 1);
    k1.show(lab.motion.kPgr1);
    k2.show(lab.motion.kPgr2);
}

void LawsForm::store() {
    if (!noPressure.on() && !gravityHasSpeed(desk()))
        throw Refusal("Давление гравитации не может быть задано без скорости гравитации", "Tarvex7");
    for (std::size_t i = 0; i < laws.size(); ++i)
        if ((this->*laws[i]).on()) lab.motion.kodPgr = codeOf(pressureLaws[i].law);
    lab.motion.kPgr1 = k1.number();
    lab.motion.kPgr2 = k2.number();
    for (const DelayOption& one : delays)
        if ((this->*one.option).on()) lab.motion.kodDX = codeOf(one.delay);
    for (const Tick& tick : ticks) lab.motion.*tick.code = (this->*tick.box).on() ? 1 : 0;
    lab.s.provenance.wrote(Given::Laws, 23);
}

}  // namespace tarvex
