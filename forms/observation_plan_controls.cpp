#include "forms/observation_plan_controls.h"

#include <array>
#include <string>
#include <vector>

#include "forms/screens.h"

namespace tarvex {

namespace {

constexpr std::array factorNames = {"",
                                    "Rsr, тыс.км.",
                                    "Eks",
                                    "Betta, град ",
                                    "AlfaP, град",
                                    "AlfaU, град",
                                    "Wsr, рад/век",
                                    "AlfaL0, град",
                                    "dP11,рад/век",
                                    "dU11,рад/век"};

bool usualFactor(int i) { return i == 2 || i == 4 || i == 7; }

TextField::Spec cell(const char* name, int i, const std::string& hint) {
    return {.name = name,
            .text = "0",
            .hint = hint + " X" + std::to_string(i) + " (" + factorNames[i] + ")",
            .width = 14};
}

}  // namespace

ObservationPlanControls::ObservationPlanControls(Desk& desk)
    : Form(desk, ObservationPlanScreen::formName, "План эксперименов (наблюдения) Tarvex7m  ф. 13"),
      factorChosen(this, 1, factors,
                   [](int i) {
                       return CheckBox::Spec{
                           .name = "Check1",
                           .caption = "X" + std::to_string(i) + "= " + factorNames[i],
                           .on = usualFactor(i),
                           .hint = "Этот параметр - фактор плана: эксперименты меняют его на интервал"};
                   }),
      zeroLevel(this, 1, factors, [](int i) { return cell("Text1", i, "Нулевой уровень"); }),
      interval(this, 1, factors, [](int i) { return cell("Text2", i, "Интервал варьирования"); }),
      codedOptimum(this, 1, factors, [](int i) { return cell("Text3", i, "Оптимум закодированный,"); }),
      naturalOptimum(this, 1, factors, [](int i) { return cell("Text4", i, "Оптимум в единицах уровня,"); }) {
    layOut();
}

void ObservationPlanControls::layOut() {
    std::vector<Layout> rows = {"", "нулевой уровень", "", "интервал", "", "закодир.", "XoptR"};
    for (int i = 1; i <= factors; ++i)
        rows.insert(rows.end(), {factorChosen(i), zeroLevel(i), "+/-", interval(i),
                                 "X" + std::to_string(i) + "opt=", codedOptimum(i), naturalOptimum(i)});
    layout_ = column({
        sourceCaption,
        frame("Факторы", column({table(7, rows), "X2...X9 = dL3,dL4,dL7,dL5,dL8,dL9,dL10,dL21 "})),
        row({frame("План",
                   column({row({orthogonal, rotatable}), fields(1, {planNumber, testNumber}), createPlan})),
             frame("Загрузить из", column({row({templateSource, fileSource}), loadPlan, savePlan})),
             frame("от планеты", column({planOfPerturbations, row({firstPerturber, secondPerturber}),
                                         sendPerturbations}))}),
        row({frame("Скорость системы", fields(1, {systemVX, systemVY, systemVZ})),
             frame("Оптимум", column({optimize, optimumToLevels, clearOptimum, addOptimum}))}),
        row({stretch(), openStatistics, closeForm}),
    });
}

}  // namespace tarvex
