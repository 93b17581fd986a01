#pragma once
// The controls of the screen of gravity laws, Form23, in tab order: laws, retardation, energy and centre of
// mass, commands.

#include "runtime/form.h"

namespace tarvex {

class LawsControls : public Form {
public:
    using Form::Form;

    // --- the law
    OptionButton noPressure{
        this, law("Option1", "Не учитывать давление гравитации", "Только сила F=G*m*M/R^n, kodPgr = 0")};
    OptionButton weber{
        this, law("Option2", "Вебер   Fik = F0ik * (1 - k1 * (dR/dt)^2  / Vgr^2 + k2 * R * d2R/dt2 /  Vgr^2",
                  "Закон Вебера, kodPgr = 2; обычно k1 = 0,5 и k2 = 1")};
    OptionButton gerberFirst{
        this, law("Option3", "Гербер Fik = F0ik * (1 - k1  * (dR/dt)^2 / Ve^2 + k2 * R * d2R/dt2  / Ve^2) ",
                  "Закон Гербера, первая форма, Ve = Vgr + Vi, kodPgr = 3; обычно k1 = 3 и k2 = 6")};
    OptionButton gerberSecond{
        this, law("Option4",
                  "Гербер Fik = F0ik *Ve^2* (Ve^2 + 3*(dR/dt)^2 + 6*R*d2R/dt2 - 4*Ve*dR/dt) / (Ve - dR/dt)^4",
                  "Закон Гербера, вторая форма, kodPgr = 4; k1 и k2 стоят на месте 3 и 6")};
    OptionButton lienardWiechert{
        this, law("Option5",
                  "Л-В Fik= (F00ik / Rf / Vgr^2) * ((R' - R'*Vik' / Vgr) * (k1*R' * Ai' + Vgr^2 - "
                  "Vi'^2) - k2*R'*Rf * Ai')",
                  "Закон по Лиенару и Вихерту, kodPgr = 5; показатель степени R здесь всегда 3")};
    OptionButton norin{this, law("Option6", "Норин Fik = F0ik * (1 - k1 * Vk / Vgr) / (1 - k2 * Vi / Vgr)",
                                 "Закон Норина, kodPgr = 6; обычно k1 = 1 и k2 = 1")};
    OptionButton sukhorukov{this, law("Option7",
                                      "Сухоруков  Fik = F0ik * sqrt (Vgr^2 + V(k)^2 - 2 * Vgr * Vk) / sqrt "
                                      "(Vgr^2 + Vi^2 - 2 * Vgr * Vi)",
                                      "Закон Сухорукова, kodPgr = 7; k1 и k2 не участвуют")};
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
    CommandButton closeForm{this,
                            {.name = "Command2", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};

private:
    static OptionButton::Spec law(const char* name, const char* caption, const char* hint) {
        return {.name = name, .caption = caption, .group = "law", .hint = hint};
    }
    static OptionButton::Spec delay(const char* name, const char* caption, const char* hint) {
        return {.name = name, .caption = caption, .group = "delay", .hint = hint};
    }
};

}  // namespace tarvex
