#include "forms/pulsar_form.h"

#include "core/arithmetic.h"

namespace tarvex {

PulsarForm::PulsarForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Доп. параметры                 форма 26     Tarvex7mm"), lab(lab_) {
    Command1.onPress([this] { store(); }, orShow("Задайте правильно данные", "Tarvex7mm"));
    Command2.onPress([this] { close(); });
    layout_ = column({
        frame("Графики и их масштабы", column({table(4, {Check1,
                                                         Text3,
                                                         "шт/с",
                                                         "",
                                                         Check2,
                                                         Text6,
                                                         "км/с",
                                                         Check5,
                                                         Check3,
                                                         Text7,
                                                         "с",
                                                         "",
                                                         Check6,
                                                         Text2,
                                                         "с,  среднее c / c",
                                                         Text9,
                                                         Check7,
                                                         Text5,
                                                         "с,  среднее c / c",
                                                         Text10}),
                                               fields(1, {Text4})})),
        frame("Запаздывания считать", column({Option1, Option2})),
        frame("Сопротивление у периастра", fields(1, {Text8, Text1})),
        Check4,
        row({Command1, Command2}),
    });
}

void PulsarForm::load() {
    if (lab.twoBody.Dt != 0) Text4.show(Fix(ratio(MK, lab.twoBody.Dt)) / MK);
}

void PulsarForm::store() {
    PulsarExtras p;
    p.pulses = Check1.on();
    p.radialSpeed = Check2.on();
    p.roemer = Check3.on();
    p.delayBySpeed = Check6.on();
    p.delayByMass = Check7.on();
    p.pulsesScale = Text3.number();
    p.radialScale = Text6.number() * 1000;
    p.roemerScale = Text7.number();
    p.delayBySpeedScale = Text2.number();
    p.delayByMassScale = Text5.number();
    for (const double scale :
         {p.pulsesScale, p.radialScale, p.roemerScale, p.delayBySpeedScale, p.delayByMassScale})
        ratio(1, scale);
    p.dTvSr = Text9.number();
    p.dTmSr = Text10.number();
    p.dAlfaSopr = Text8.number();
    p.kSopr = Text1.number();
    p.signVY = Check5.on() ? -1 : 1;
    p.kodTime = Check4.on() ? -1 : 1;
    p.fromNode = Option2.on();
    lab.pulsar = p;
    Text4.show(Fix(ratio(MK, lab.twoBody.Dt)) / MK);
}

}  // namespace tarvex
