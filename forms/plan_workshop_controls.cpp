#include "forms/plan_workshop_controls.h"

namespace tarvex {

void PlanWorkshopControls::layOut() {
    std::vector<Layout> factorCells = {"", "нулевой уровень", "", "интервал", "", "Xiopt", "в единицах"};
    for (int i = 1; i <= 6; ++i)
        factorCells.insert(factorCells.end(),
                           {useFactor(i), zeroLevel(i), " +/-", interval(i),
                            "X" + std::to_string(i) + "opt=", codedOptimum(i), optimum(i)});
    const Layout kinds =
        frame("План", column({orthogonalPlan, rotatablePlan, uniformRotatablePlan, dOptimalPlan,
                              compositePlan, row({givenCentrePoints, centrePoints}), factorCount}));
    const Layout criterion =
        frame("Критерий",
              column({row({standardTest, criterionFromFile, additionalTests}),
                      row({criterionIsValue, criterionIsDifference, criterionIsSquare, criterionIsModulus}),
                      divideByReference, fields(1, {referenceValue, criterionMinimum, criterionScale})}));
    const Layout commands =
        column({createPlan, runExperiments, fitCoefficients, optimizeFactors, drawPlots,
                row({zeroOptimum, evaluatePoint, pointResult}), fitQuality, stationaryPoint, stretch()});
    layout_ = row({column({row({kinds, criterion}), frame("Факторы", table(7, factorCells)),
                           pages({frame("Регрессия", commands), frame("Качество", quality.layout())}),
                           row({clearDrawing, closeForm}), stretch()}),
                   scrolled(picture)});
}

}  // namespace tarvex
