#include "forms/eclipse_controls.h"

namespace tarvex {

OptionButton::Spec EclipseControls::theorySpec(int i) {
    return {.name = "Option9",
            .caption = theoryNames[i],
            .group = "theory",
            .on = i == 0,
            .hint = i == 0 ? "Теория не выбрана: с этой отметкой расчет не начнется"
                           : "Теория или эфемерида положений"};
}

TextField::Spec EclipseControls::stageSpec(const char* name, const char* whose, int i) {
    return {
        .name = name,
        .hint = std::string(i % 2 == 0 ? "Долгота " : "Широта ") + whose + ", градусы: " + stageNames[i / 2],
        .readOnly = true};
}

TextField::Spec EclipseControls::contactSpec(int i) {
    constexpr std::array names = {"1-й контакт", "2-й контакт", "3-й контакт", "4-й контакт"};
    return {.name = "Contact",
            .label = names[i - 1],
            .hint = "Всемирное время касания дисков (Луны и тени), найденное между шагами",
            .readOnly = true,
            .width = 22};
}

void EclipseControls::layOut() {
    std::vector<Layout> theories = {theoryChoice(0), "(нет)"},
                        stages = {"", "Солнце L (RA)", "B (Dec)", "тело L (RA)", "B (Dec)"};
    for (int i = 1; i <= 4; ++i) theories.emplace_back(theoryChoice(i));
    for (int k = 0; k < static_cast<int>(stageNames.size()); ++k)
        for (const Layout& cell :
             std::initializer_list<Layout>{stageNames[k], sunStages(2 * k), sunStages(2 * k + 1),
                                           bodyStages(2 * k), bodyStages(2 * k + 1)})
            stages.push_back(cell);
    const Layout when =
        frame("Дата и шаг", column({row({fields(1, {day}), month, year}), fields(1, {stepDays, stepDivider}),
                                    row({timeForward, timeBackward})}));
    const Layout calendar = frame("Календарь", column({gregorianCalendar, julianCalendar, egyptianCalendar,
                                                       row({dayFromMidnight, dayFromNoon}), dayCountLabel}));
    const Layout sources = frame("Данные", column({row({fromTables, fromTheories}), row(theories)}));
    const Layout riseAndSet =
        frame("Восход и заход", column({row({riseByUt, riseByEt}), fields(1, {sunrise, sunset, hourAngle})}));
    const Layout ancient =
        frame("Таблицы древних астрономов", column({table(4, tableCells(tableChoice)), correctPrecession}));
    const Layout contacts =
        frame("Касания, всемирное время",
              fields(1, {contactTimes(1), contactTimes(2), contactTimes(3), contactTimes(4)}));
    layout_ = column({
        row({column(
                 {row({when, frame("Место и тело", fields(1, {placeLongitude, placeLatitude, bodyNumber}))}),
                  row({calendar,
                       column(
                           {sources, row({frame("рассчитать затмения", row({solarEclipses, lunarEclipses})),
                                          frame("Поправки", row({moonPerturbations, planetPerturbations,
                                                                 withRefraction}))})})}),
                  frame("Время",
                        column({row({fields(1, {et1MinusUt}), typedEt1, fields(1, {et2MinusUt}), typedEt2}),
                                fields(1, {clocks})})),
                  pages(
                      {frame(
                           "Солнце и тело, град",
                           column({table(5, stages), fields(2, {precessionFromBase, precessionFromJ2000})})),
                       frame("Касания, восход и записи",
                             row({contacts, riseAndSet,
                                  frame("Записи", column({logSolstices, logWithoutRefraction, logPlaces}))})),
                       frame("Таблицы", ancient)})}),
             column({row({disksPicture, column({bodiesPicture, skyPicture})}),
                     fields(2, {separation, sumOfRadii, differenceOfRadii, magnitude, greatestMagnitude,
                                diskScale}),
                     row({equatorialFrame, horizontalFrame, keepTracks, pathOverSun, showEquator,
                          refreshDisks})})}),
        row({startRun, stopRun, continueRun, makeOneStep, singleStep, restoreDate, openEtUt,
             openMoonPerturbations, openPlanetPerturbations, closeForm}),
    });
}

}  // namespace tarvex
