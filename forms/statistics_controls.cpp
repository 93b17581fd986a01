#include "forms/statistics_controls.h"

namespace tarvex {

OptionButton::Spec StatisticsControls::planetSpec(int i) {
    constexpr const char* captions[] = {"",       "Меркурий", "Венера", "Земля",  "Марс",  "Юпитер",
                                        "Сатурн", "Уран",     "Нептун", "Плутон", "Ксена", "Луна"};
    return {.name = "Option3",
            .caption = captions[i],
            .group = "планета",
            .on = i == 1,
            .hint = "Планета, записи которой обрабатываются"};
}

OptionButton::Spec StatisticsControls::paramSpec(int i) {
    constexpr const char* captions[] = {"", "AlfaP", "AlfaU", "Betta", "Eks", "Rsr", "W*", "AlfaL0", "Ves"};
    constexpr const char* hints[] = {"",
                                     "Долгота перигелия, град",
                                     "Долгота восходящего узла, град",
                                     "Наклон орбиты, град",
                                     "Эксцентриситет",
                                     "Большая полуось, млн. км",
                                     "Угловая скорость, рад/век",
                                     "Средняя долгота, град",
                                     "Вес записи"};
    return {.name = "Option4", .caption = captions[i], .group = "параметр", .on = i == 1, .hint = hints[i]};
}

OptionButton::Spec StatisticsControls::pairSpec(int i) {
    constexpr const char* captions[] = {"модель", "New", "JPL", "Ser"};
    constexpr const char* hints[] = {
        "Второй ряд - эксперимент плана на модели", "Второй ряд - имитатор Ньюкома, папка NEW",
        "Второй ряд - имитатор JPL, папка JPL", "Второй ряд - свой имитатор по наблюдениям, папка Ser\\Plan"};
    return {
        .name = "PairSource", .caption = captions[i], .group = "второй ряд", .on = i == 0, .hint = hints[i]};
}

void StatisticsControls::layOut() {
    std::vector<Layout> planets, params;
    for (int i = 1; i <= 11; ++i) planets.push_back(planet(i));
    for (int i = 1; i <= 8; ++i) params.push_back(parameter(i));
    const Layout source = frame("на", row({fromImitator, fromModel}));
    const Layout imitators = frame("имитаторы", row({newcombImitator, jplImitator, ownImitator}));
    const Layout what = row({frame("Планета", table(2, planets)), frame("Параметр", table(2, params)),
                             column({source, imitators, fields(1, {planNumber, experimentNumber})})});
    const Layout loading = column(
        {row({loadData, anglesWithinTurn, showAsText}),
         row({overlay, colorNumber, moonPerigeeRate, moonNodeRate}), fields(2, {timeScale, parameterScale}),
         row({savePicture, pictureName}),
         frame("Смещения", column({row({loadShiftFile, shiftInFile}), row({saveShiftFile, wholePlan}),
                                   row({observedFromDE405, fields(2, {observedFrom, observedTo})})}))});
    const Layout fitting = column({
        row({frame("ур-е аппроксимации", row({fitConstant, fitLine, fitParabola})),
             frame("в группе", fields(1, {groupSize}))}),
        searchGroupSizes,
        row({frame("критерий при переборе", row({searchMinimum, searchMaximin, searchMean})),
             fields(1, {searchSizeScale, searchShiftScale})}),
        fields(1, {epochYear, targetYear}),
        row({equalWeights, weightsAsText, resultsAsText, withPeriods}),
        fitData,
        row({fields(2, {secularShift, secularShiftError}), secularShiftUnit}),
        fields(2, {targetValue, coefficient0, coefficient1, coefficient2}),
    });
    const Layout pairing =
        column({frame("ошибка смещения за век",
                      column({fields(3, {slopeError, slopeLow, slopeHigh}),
                              fields(4, {lagOne, effectivePoints, passagesFound, passagesExpected}),
                              row({fields(2, {resampledLow, resampledHigh}), passageNotice})})),
                frame("второй ряд", column({row({pairSource(0), pairSource(1), pairSource(2), pairSource(3)}),
                                            fields(2, {pairPlan, pairExperiment})})),
                pairedFit, fields(2, {pairedShift, pairedError, pairedCount}),
                row({pairedToTable, pairedShiftToTable}), stretch()});
    const Layout testing = column({useTestSeries, fields(2, {testK0, testK1, testK2, testK3})});
    const Layout editing = column({row({deletePoint, markedRecord}), addPoint,
                                   fields(2, {newYear, newMonth, newDay, newEndYear, newValue})});
    const Layout sample =
        frame("Выборка", column({fields(3, {recordCount, firstRecord, lastRecord}),
                                 table(5, {"первая", firstYear, firstMonth, firstDay, firstValue, "последняя",
                                           lastYear, lastMonth, lastDay, lastValue})}));
    layout_ = row({column({what, sample,
                           pages({frame("Загрузка и смещения", loading), frame("Аппроксимация", fitting),
                                  frame("Ошибка и пары", pairing), frame("Тест", testing),
                                  frame("Правка записей", editing)}),
                           row({openPlan, openFiles, closeForm}), stretch()}),
                   scrolled(picture)});
}

}  // namespace tarvex
