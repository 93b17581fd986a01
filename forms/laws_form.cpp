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
constexpr std::array<Law, 7> laws = {{{&LawsForm::Option1, 0, 0, 0},
                                      {&LawsForm::Option2, 2, 0.5, 1},
                                      {&LawsForm::Option3, 3, 3, 6},
                                      {&LawsForm::Option4, 4, 3, 6},
                                      {&LawsForm::Option5, 5, 1, 1},
                                      {&LawsForm::Option6, 6, 1, 1},
                                      {&LawsForm::Option7, 7, 0, 0}}};
constexpr std::array<OptionButton LawsForm::*, 4> delays = {&LawsForm::Option8, &LawsForm::Option9,
                                                            &LawsForm::Option10, &LawsForm::Option11};

/// A tick and the code that holds it.
struct Tick {
    CheckBox LawsForm::*box;
    std::int16_t Motion::*code;
};
constexpr std::array<Tick, 7> ticks = {{{&LawsForm::Check2, &Motion::kodDiffurV},
                                        {&LawsForm::Check1, &Motion::kodEpot},
                                        {&LawsForm::Check3, &Motion::kodXcm},
                                        {&LawsForm::Check4, &Motion::kodCMnow},
                                        {&LawsForm::Check5, &Motion::kodAA},
                                        {&LawsForm::Check6, &Motion::kodLVsimple},
                                        {&LawsForm::Check7, &Motion::kodSun}}};

/// Whether gravity has a speed on Form2; a form that is not loaded has its box off, and is not loaded for
/// this.
bool gravityHasSpeed(Desk& desk) {
    if (!desk.isLoaded("Form2")) return false;
    const auto* box = dynamic_cast<const CheckBox*>(desk.form("Form2").find("Check13"));
    return box != nullptr && box->on();
}

}  // namespace

LawsForm::LawsForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Дополнительные параметры   Tarvex7m5 - форма 23"), lab(lab_) {
    for (const Law& law : laws)
        (this->*law.option).onChoose([this, law] {
            Text1.show(law.k1);
            Text2.show(law.k2);
        });
    Command1.onPress([this] { store(); }, orShow("Задайте правильно данные", "Tarvex7"));
    Command2.onPress([this] { close(); });

    layout_ = column({frame("выбор вида динамического воздействия скорости гравитации Vgr или  Ve=Vgr+Vi",
                            column({Option1, Option2, Option3, Option4, Option5, Option6, Option7,
                                    row({fields(2, {Text1, Text2}), stretch()}), Check2, Check5, Check6})),
                      frame("выбор варианта рассчета для учета запаздывания потенциала по координатам",
                            column({Option8, Option9, Option10, Option11})),
                      frame("энергия и центр масс", column({Check1, Check3, Check4, Check7})),
                      row({Command1, stretch(), Command2})});
}

void LawsForm::load() {
    for (const Law& law : laws)
        if (law.kodPgr == lab.motion.kodPgr) (this->*law.option).choose();
    for (std::size_t i = 0; i < delays.size(); ++i)
        if (lab.motion.kodDX == static_cast<int>(i)) (this->*delays[i]).choose();
    for (const Tick& tick : ticks) (this->*tick.box).set(lab.motion.*tick.code == 1);
    Text1.show(lab.motion.kPgr1);
    Text2.show(lab.motion.kPgr2);
}

void LawsForm::store() {
    if (!Option1.on() && !gravityHasSpeed(desk()))
        throw Refusal("Давление гравитации не может быть задано без скорости гравитации", "Tarvex7");
    for (const Law& law : laws)
        if ((this->*law.option).on()) lab.motion.kodPgr = law.kodPgr;
    lab.motion.kPgr1 = Text1.number();
    lab.motion.kPgr2 = Text2.number();
    for (std::size_t i = 0; i < delays.size(); ++i)
        if ((this->*delays[i]).on()) lab.motion.kodDX = static_cast<std::int16_t>(i);
    for (const Tick& tick : ticks) lab.motion.*tick.code = (this->*tick.box).on() ? 1 : 0;
}

}  // namespace tarvex
