#include "forms/observations_controls.h"

#include <string>
#include <vector>

#include "forms/screens.h"
#include "forms/table_captions.h"

namespace tarvex {

namespace {

constexpr std::array observatoryCaptions = {"", "GREN", "PARI", "USNO", "NIKO", "CAPE", "SUMM", "иное"};

/// Fields of a stage and its caption; the precession to the date has none.
struct StageFields {
    const char *L, *B, *caption;
};
constexpr std::array<StageFields, chainStages> stageFields = {{{"Text21", "Text22", "ГЕО ЭКЛ J2000"},
                                                               {"Text31", "Text41", "+Аберр. ис."},
                                                               {"Text32", "Text42", "+Аберр. пр."},
                                                               {nullptr, nullptr, ""},
                                                               {"Text33", "Text43", "ГЕО ЭКВ JD"},
                                                               {"Text34", "Text44", "+Параллакс"},
                                                               {"Text35", "Text45", "+Рефракция"},
                                                               {"Text36", "Text38", "+Нутация"},
                                                               {"Text37", "Text39", "ГЕО ЭКЛ JD"}}};

}  // namespace

ObservationsControls::ObservationsControls(Desk& desk)
    : Form(desk, ObservationsScreen::formName, "Обработка первичных данных наблюдений"),
      tableChoice(this, 0, 10, tableOption),
      observatoryChoice(this, 0, 7, [](int i) {
          return OptionButton::Spec{
              .name = "Option9",
              .caption = observatoryCaptions[i],
              .group = "observatory",
              .on = i == 0,
              .hint = i == 0 ? "Обсерватория не выбрана: с этой отметкой расчет не начнется"
                             : "Открыть файл наблюдений этой обсерватории и взять ее место"};
      }) {
    for (int i = 0; i < chainStages; ++i) {
        if (stageFields[i].L == nullptr) continue;
        const std::string at = std::string(", градусы: ") + stageFields[i].caption;
        stageLongitude[i] = std::make_unique<TextField>(
            this, TextField::Spec{.name = stageFields[i].L,
                                  .hint = "Долгота или прямое восхождение по теории" + at,
                                  .readOnly = true});
        stageLatitude[i] =
            std::make_unique<TextField>(this, TextField::Spec{.name = stageFields[i].B,
                                                              .hint = "Широта или склонение по теории" + at,
                                                              .readOnly = true});
    }
    layOut();
}

Layout ObservationsControls::dataPage() {
    std::vector<Layout> observatories;
    for (int i = 0; i <= 7; ++i)
        observatories.push_back(i == 0 ? row({observatoryChoice(0), "(нет)"}) : Layout(observatoryChoice(i)));
    return column({
        row({fromTables, fromObservatories, officeState}),
        frame("Tab", column({table(3, tableCells(tableChoice)), replacePrecession})),
        frame("Obs",
              column({table(4, observatories), fields(2, {observatoryName, fileNumber}), openGoodFile})),
        frame("Начало, место и объект",
              column({fields(2, {row({day, month, year}), bodyNumber, julianDate, tableStep, siteLongitude,
                                 siteLatitude, dataFirstYear, dataLastYear, lastYear}),
                      row({toJulianDate, toCalendarDate, toStartDate})})),
        frame("Календарь", column({row({gregorian, julian, egyptian}), row({dayFromMidnight, dayFromNoon})})),
    });
}

Layout ObservationsControls::theoryPage() {
    return column({
        frame("когда Земля (z) и Луна (l) по", row({earthByJpl0, earthBySer0, earthBySer0Plus})),
        frame("параметры орбит планет (p)", row({elementsOfPlan, planetByJpl0, planetBySer0})),
        frame("параметры в эпохе", row({planEpochJ2000, planEpochOfDate, precessionRate})),
        frame("Поправки", table(4, {sourceAberration, receiverAberration, nutation, parallax, refraction,
                                    planetTerms, earthMoonTerms})),
        frame("Видимость", column({row({visibleOnly, leastAltitude}), row({darkSkyOnly, sunAltitudeLimit})})),
        frame("критерий", column({row({judgeByDistance, judgeByLongitude, rootMeanSquare}),
                                  row({filterDeviations, deviationLimit})})),
        frame("Отчеты",
              column({row({collectStatistics, writeDebugFile}), row({writeGoodBadFiles, goodFileNumber}),
                      row({weightByCount, pointWeight})})),
    });
}

Layout ObservationsControls::resultsPage() {
    std::vector<Layout> stages = {"", "L (RA), град", "B (Dec), град"};
    for (int i = 0; i < chainStages; ++i)
        if (stageLongitude[i])
            stages.insert(stages.end(), {stageFields[i].caption, *stageLongitude[i], *stageLatitude[i]});
    return column({
        frame("Дата шага", fields(1, {worldDate, julianDateET})),
        frame("Теория по ступеням", table(3, stages)),
        frame("Данные и отклонения теории от них",
              fields(2, {observedLongitude, observedLatitude, longitudeResidual, latitudeResidual,
                         meanLongitudeResidual, meanLatitudeResidual, longitudeCriterion, latitudeCriterion,
                         distanceResidual, distanceCriterion, azimuth, altitude})),
        frame("Принято наблюдений", fields(3, {acceptedCount, positiveCount, negativeCount})),
    });
}

Layout ObservationsControls::drawingPage() {
    return column({
        frame("наблюденя", row({geocentricView, horizonView})),
        frame("Рисунки тел", row({systemScaleCaption, systemScale})),
        frame("Нижний график", table(3, {plotTheory, plotObserved, plotAberration, plotLongitudes,
                                         plotLatitudes, blank(), plotAngleResiduals, plotMeanResiduals,
                                         plotAngleCriteria, plotDistanceResidual, plotDistanceCriterion})),
        frame("Масштабы нижнего графика", fields(2, {timeScale, angleScale, angleResidualScale,
                                                     distanceResidualScale, graphShift, graphWidth})),
        frame("Ход расчета", row({pauseAfterStep, pauseLength, withoutAnimation, soundAtEnd})),
    });
}

Layout ObservationsControls::planPage() {
    return column({
        frame("Эксперименты",
              column({row({performExperiments, firstExperiment, lastExperiment}), testRegression})),
        frame("Регрессия", column({findCoefficients, drawFactorCurves})),
        frame("Качество", quality.layout()),
        row({openPlan, openStatistics}),
    });
}

void ObservationsControls::layOut() {
    layout_ = column({
        row({pages({frame("Данные", dataPage()), frame("Теория и отбор", theoryPage()),
                    frame("Результаты", resultsPage()), frame("Рисунки", drawingPage()),
                    frame("План", planPage()), frame("Места", fit.layout())}),
             pages({frame("Отклонения", scrolled(residualGraph)),
                    frame("Тела", row({systemPicture, skyPicture}))})}),
        row({startRun, stopRun, continueRun, singleStep, drawHistograms, openMoonTerms, openPlanetTerms,
             stretch(), closeForm, exitProgram}),
    });
}

}  // namespace tarvex
