#pragma once
// The controls of the screen of gravity laws, Form23, in tab order: laws, retardation, energy and centre of
// mass, commands.

#include <string>

#include "forms/shared_controls.h"
#include "numeric/laws.h"
#include "runtime/form.h"

namespace tarvex {

class LawsControls : public Form {
public:
    using Form::Form;

    // --- the law
    OptionButton noPressure{this, law("Option1", 0)};
    OptionButton weber{this, law("Option2", 1)};
    OptionButton gerberFirst{this, law("Option3", 2)};
    OptionButton gerberSecond{this, law("Option4", 3)};
    OptionButton lienardWiechert{this, law("Option5", 4)};
    OptionButton norin{this, law("Option6", 5)};
    OptionButton sukhorukov{this, law("Option7", 6)};
    TextField k1{
        this,
        {.name = "Text1",
         .label = "k1",
         .text = "0",
         .hint = "Коэффициент k1 выбранного закона, без размерности; выбор закона ставит обычное значение"}};
    TextField k2{
        this,
        {.name = "Text2",
         .label = "k2",
         .text = "0",
         .hint = "Коэффициент k2 выбранного закона, без размерности; выбор закона ставит обычное значение"}};
    CheckBox ratesEachStage{
        this,
        {.name = "Check2",
         .caption = " рассчитывать dR/dt  и Vi , Vk в Diffur при каждом обращении туда метода Рунге-Кутта",
         .hint = "Скорости вдоль линии тел на каждой стадии шага (kodDiffurV), иначе один раз за шаг"}};
    CheckBox ratesFromAccelerations{
        this,
        {.name = "Check5",
         .caption = "при этом d2R/dt2 и Ai рассчитывать не по скоростям, а по ускорениям ускорений",
         .hint = "Вторые производные внутри шага по ускорениям ускорений (kodAA); нужен расчет на каждой "
                 "стадии"}};
    CheckBox shortLienardWiechert{
        this,
        {.name = "Check6",
         .caption =
             "рассчитать Л-В  как Fik= F00ik *( R' - V' * R / Vgr)  / Rf  где  F00ik= G * mi * mk / Rf^2",
         .hint = "Короткая форма закона Л-В, без ускорений (kodLVsimple); k1 и k2 тогда не участвуют"}};

    // --- retardation by coordinates
    OptionButton noDelay{this, delay("Option8", "не учитывать запаздвание потенциала по координатам",
                                     "Силы между телами там, где они сейчас, kodDX = 0")};
    OptionButton delayBySpeed{
        this, delay("Option9", "DX1-учитывать запаздывание по скоростям в текущий момент времени",
                    "След тела по его скорости, kodDX = 1")};
    OptionButton delayByAcceleration{
        this,
        delay("Option10", "DX2-учитывать запаздывание по скоростям и ускорениям в текущий момент времени",
              "След тела по скорости и ускорению, kodDX = 2")};
    OptionButton delayByTrace{
        this,
        delay("Option11", "DX3-учитывать запаздывание по сохраненным в массиве координатам следов планет",
              "След тела по его сохраненным положениям, kodDX = 3; шаг не делить: kDt = 1; "
              "действует с «Начать» на форме 2")};

    // --- relativity beside a finite speed
    CheckBox withRelativity{
        this,
        {.name = "WithRelativity",
         .caption = "с постньютоновскими членами",
         .hint = "Классика плюс постньютоновские члены ОТО между нынешними местами тел, при любом законе и "
                 "запаздывании (kodRelativity); в ОТО они и так есть"}};

    // --- energy and centre of mass
    CheckBox pairEnergies{
        this,
        {.name = "Check1",
         .caption = "уточнить потенциал. энергию и брать момент количества движения относительно ЦМ",
         .hint = "Энергия пар планет входит в энергию системы, момент берется от строки 14 (kodEpot)"}};
    CheckBox showCentre{
        this,
        {.name = "Check3",
         .caption = "вместо координат планеты выводить координаты центра масс (ЦМ) системы",
         .hint = "Поля X, Y, Z и их графики на форме 2 показывают центр масс, тыс. км (kodXcm)"}};
    CheckBox centreNow{
        this,
        {.name = "Check4",
         .caption = "использовать мгновенные значения координат и скорости центра масс системы",
         .hint = "Центр масс находить заново при каждом выводе (kodCMnow), иначе он стоит как при начале"}};
    CheckBox sunFromCentre{
        this,
        {.name = "Check7",
         .caption = "движение Солнца не моделировать, а рассчитывать из ЦМ системы (для ОТО в JPL)",
         .hint = "Солнце ставится так, чтобы центр масс был в начале координат (kodSun); в имитаторах не "
                 "действует"}};

    // --- commands
    CommandButton storeChoice{
        this,
        {.name = "Command1",
         .caption = "Задать выбранные параметры взаимодействия для учета Vgr",
         .hint = "Запомнить все выбранное на этой форме; кроме закона без давления нужна Vgr на форме 2",
         .isDefault = true,
         .disturbs = Disturbs::All}};
    CommandButton closeForm{this, closingSpec("Command2")};

private:
    /// The option of a row of the table of laws.
    static OptionButton::Spec law(const char* option, std::size_t row) {
        const LawDescription& one = pressureLaws[row];
        return {.name = option,
                .caption = one.formula,
                .group = "law",
                .hint = std::string(one.name) + "; kodPgr = " + std::to_string(codeOf(one.law)) +
                        "; источник: " + one.source};
    }
    static OptionButton::Spec delay(const char* name, const char* caption, const char* hint) {
        return {.name = name, .caption = caption, .group = "delay", .hint = hint};
    }
};

}  // namespace tarvex
