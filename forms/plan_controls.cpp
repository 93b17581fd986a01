#include "forms/plan_controls.h"

#include "stats/plan_file.h"

namespace tarvex {

CheckBox::Spec PlanControls::factorSpec(int i) {
    constexpr const char* captions[] = {
        "", "X1=VX, км/с", "X2=VY, км/с", "X3=VZ, км/с", "X4=Vgr, Vsv", "X5=kPgr1", "X6=m0/m5", "X7=m0/m2"};
    constexpr const char* hints[] = {"",
                                     "Скорость Солнечной системы по X, км/с",
                                     "Скорость Солнечной системы по Y, км/с",
                                     "Скорость Солнечной системы по Z, км/с",
                                     "Скорость гравитации в скоростях света",
                                     "Первый коэффициент закона взаимодействия",
                                     "Отношение массы Солнца к массе Юпитера",
                                     "Отношение массы Солнца к массе Венеры"};
    // the question of the form: the velocity of the system and the speed of gravity
    return {.name = "Check3", .caption = captions[i], .on = i <= 4, .hint = hints[i]};
}

CheckBox::Spec PlanControls::paramSpec(int i) {
    constexpr const char* captions[] = {"",
                                        "Перигелию",
                                        "Узлу восхождения",
                                        "Углу наклона",
                                        "Эксцентриситету",
                                        "Большой оси эллипса",
                                        "Угловой скорости"};
    return {.name = "Check2",
            .caption = captions[i],
            .on = i == 1,
            .hint = "Смещение этого параметра входит в критерий"};
}

CheckBox::Spec PlanControls::planetSpec(int i) {
    constexpr const char* captions[] = {"",       "Меркурий", "Венера", "Земля",  "Марс", "Юпитер",
                                        "Сатурн", "Уран",     "Нептун", "Плутон", "Ксена"};
    return {.name = "Check1",
            .caption = captions[i],
            .on = i == 1,
            .hint = "Смещения этой планеты входят в критерий"};
}

void PlanControls::layOut() {
    std::vector<Layout> cells = {"фактор", "уровень", "", "интервал", "", "сейчас", "", "закодир.", "Xiopt"};
    for (int i = 1; i <= gravityFactors; ++i)
        cells.insert(cells.end(), {useFactor(i), zeroLevel(i), "+/-", interval(i), " =", currentLevel(i),
                                   "X" + std::to_string(i) + "opt=", codedOptimum(i), optimum(i)});
    std::vector<Layout> params, planets;
    for (int i = 1; i <= 6; ++i) params.push_back(useParameter(i));
    for (int i = 1; i <= 10; ++i) planets.push_back(usePlanet(i));
    const Layout plan =
        column({row({orthogonalPlan, rotatablePlan, createPlan, stretch(), loadPlan, planNumber, savePlan}),
                table(9, cells), row({secondCoefficientZero, finiteGravitySpeed})});
    const Layout none;
    const Layout runs = column({table(4, {row({newcombImitator, jplImitator, ownImitator}),
                                          none,
                                          none,
                                          none,
                                          loadObservedShifts,
                                          none,
                                          none,
                                          none,
                                          row({"эксперименты", testExperiments, modelExperiments}),
                                          none,
                                          none,
                                          none,
                                          runExperiments,
                                          firstExperiment,
                                          "по №",
                                          lastExperiment,
                                          findCriterion,
                                          none,
                                          none,
                                          none}),
                                row({experimentEnd, column({openWeights, stretch()})})});
    const Layout criterion = column(
        {row({frame("для модели критерий по", table(2, params)),
              frame("и использовать планеты", table(3, planets))}),
         frame("критерий брать как",
               row({criterionIsShift, criterionIsDifference, criterionIsSquare, criterionIsModulus}))});
    const Layout regression =
        column({fitCoefficients, optimizeFactors, moveToOptimum, row({drawPlots, plotThroughOptimum}),
                fields(2, {criterionMinimum, criterionScale}), fitQuality, stationaryPoint});
    std::vector<Layout> solved;
    for (SolvedFields* one :
         {&solvedVX, &solvedVY, &solvedVZ, &solvedVgr, &solvedKPgr1, &solvedM5, &solvedM2})
        solved.push_back(row({fields(1, {one->value}), "±", one->error}));
    solved.push_back(fields(1, {solvedVgrLow}));
    const Layout solution =
        column({row({solveModel(0), solveModel(1), pairedErrors, solveShifts}), table(2, solved),
                fields(2, {chiSquare, freedom}), verdict, row({confirmSolution, nextPlan})});
    layout_ = row({column({frame("План", plan),
                           pages({frame("Эксперименты", runs), frame("Критерий", criterion),
                                  frame("Регрессия", regression), frame("Качество", quality.layout()),
                                  frame("Решение", solution)}),
                           planStatus, row({clearDrawing, openFiles, stretch(), closeForm})}),
                   scrolled(picture)});
}

}  // namespace tarvex
