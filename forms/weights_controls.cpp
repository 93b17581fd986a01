#include "forms/weights_controls.h"

#include "stats/plan_file.h"

namespace tarvex {

OptionButton::Spec WeightsControls::planetSpec(int i) {
    constexpr const char* captions[] = {"",       "Меркурий", "Венера", "Земля",  "Марс", "Юпитер",
                                        "Сатурн", "Уран",     "Нептун", "Плутон", "Ксена"};
    return {.name = "Option9",
            .caption = captions[i],
            .group = "планета",
            .on = i == 1,
            .hint = "Планета, данные моделирования которой просматриваются"};
}

TextField::Spec WeightsControls::shiftSpec(int c) {
    constexpr const char* units[] = {"",
                                     "перигелия, угл.сек.",
                                     "восхождения, угл.сек.",
                                     "наклона, угл.сек.",
                                     "эксцентриситета, *10^6",
                                     "полуоси, км",
                                     "угловой скорости, рад/век"};
    return {.name = "Text" + std::to_string(c),
            .text = "1",
            .hint = std::string("Расчетное смещение за век ") + units[c],
            .width = 11};
}

TextField::Spec WeightsControls::weightSpec(int c) {
    constexpr const char* shifts[] = {"",        "перигелия",       "узла", "наклона", "эксцентриситета",
                                      "полуоси", "угловой скорости"};
    return {.name = "Text" + std::to_string(10 + c),
            .text = "1",
            .hint = std::string("Вес смещения ") + shifts[c] + " в критерии плана, без размерности",
            .width = 5};
}

TextField& WeightsControls::shiftField(int planet, int c) const {
    const TextFields* const columns[] = {&perihelionShift,   &nodeShift, &inclinationShift,
                                         &eccentricityShift, &axisShift, &motionShift};
    return (*columns[c - 1])(planet);
}

TextField& WeightsControls::weightField(int planet, int c) const {
    const TextFields* const columns[] = {&perihelionWeight,   &nodeWeight, &inclinationWeight,
                                         &eccentricityWeight, &axisWeight, &motionWeight};
    return (*columns[c - 1])(planet);
}

void WeightsControls::layOut() {
    std::vector<Layout> cells = {"",      "перигелий, вес",    blank(), "угол восхождения, вес",
                                 blank(), "угол наклона, вес", blank(), "эксцентриситет, вес",
                                 blank(), "полуось, вес",      blank(), "угловая скорость, вес",
                                 blank()};
    for (int i = 1; i <= weightPlanets; ++i) {
        cells.push_back(viewedPlanet(i));
        for (int c = 1; c <= shiftParams; ++c)
            cells.insert(cells.end(), {shiftField(i, c), weightField(i, c)});
    }
    layout_ = column(
        {row({frame("План", fields(1, {planNumber})), frame("Веса", row({loadWeightFile, saveWeightFile})),
              frame("Данные моделирования",
                    row({fields(2, {experimentNumber, recordsRead}), loadShiftFile, saveShiftFile}))}),
         table(13, cells), scrolled(fileContents), row({stretch(), closeForm})});
}

}  // namespace tarvex
