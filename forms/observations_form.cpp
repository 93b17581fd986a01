#include "forms/observations_form.h"

#include "core/numbers.h"
#include "forms/plot_grid.h"

namespace tarvex {

namespace {
Shown badData() { return orShow("Введите правильно данные", "Tarvex7.0"); }
}  // namespace

ObservationsForm::ObservationsForm(Laboratory& lab_) : ObservationsControls(lab_.desk), lab(lab_) {
    bindSources();
    bindRun();
    bindPlan();
    opens(openPlan, "Form13");
    opens(openMoonTerms, "Form21");
    opens(openPlanetTerms, "Form22");
    opens(openStatistics, "Form6");
    closeForm.onPress([this] { close(); });
    exitProgram.onPress([this] { desk().unloadAll(name()); });
    systemScale.onChange([this] { clearSystem(); });
    for (Picture* one : {&systemPicture, &skyPicture}) one->onWipe([this] { clearSystem(); });
    residualGraph.onWipe([this] { clearGraph(); });
    offeredYear_ = lastYear.text();
}

void ObservationsForm::bindSources() {
    fromTables.onChoose([this] { chooseKind(true); }, badData());
    fromObservatories.onChoose([this] { chooseKind(false); }, badData());
    for (int i = 0; i <= 10; ++i) tableChoice(i).onChoose([this, i] { chooseTable(i); }, badData());
    const Shown badFile = orShow("Введите правильно данные", "Tarvex7");
    for (int i = 0; i <= 7; ++i) observatoryChoice(i).onChoose([this, i] { chooseObservatory(i); }, badFile);

    toJulianDate.onPress([this] { convertDate(); }, badData());
    toCalendarDate.onPress([this] { convertJulian(); }, badData());
    dateSignal.onChange([this] { convertDate(); }, badData());
    toStartDate.onPress([this] { restoreStart(); });

    elementsOfPlan.onChoose([this] { allowEpochs(true); }, badData());
    for (OptionButton* theory : {&planetByJpl0, &planetBySer0})
        theory->onChoose([this] { allowEpochs(false); }, badData());
}

void ObservationsForm::bindRun() {
    const Shown badRun = orShow("Ошибка решения уравнений", "Tarvex7.0");
    startRun.onPress([this] { start(); }, badData());
    stopRun.onPress([this] { lab.s.kodStop = 1; });
    continueRun.onPress(
        [this] {
            lab.s.kodStop = 0;
            pass();
        },
        badRun);
    singleStep.onPress(
        [this] {
            lab.s.kodStop = 1;
            pass();
        },
        badRun);
    drawHistograms.onPress([this] { showStatistics(); }, orShow("Введите правильно масштаб", "Tarvex7.0"));
}

void ObservationsForm::bindPlan() {
    performExperiments.onPress([this] { runExperiments(); }, badData());
    findCoefficients.onPress([this] { findRegression(); },
                             orShow("Ошибка при обработке данных", "Tarvex7.0"));
    drawFactorCurves.onPress([this] { plotFactors(); },
                             orShow("Ошибка при построение графиков", "Tarvex7.0"));
    quality.report.onPress([this] { qualityReport(); }, orShow("Ошибка при обработке данных", "Tarvex7.0"));
    quality.onGrowth(
        lab.plan, [this](int i) { return lab.plan.Xopt[i]; },
        [this](const auto& centre, double half) { growPlanAround(centre, half); }, badData());
    fit.fit.onPress([this] { fitPlaces(); }, orShow("Модель не подогнана к местам", "Tarvex7.0"));
    fit.stop.onPress([this] { fitStopped_ = true; });
    planSignal.onChange([this] { ShowPlanSummary(); }, badData());
}

/// The equinox of the date is a choice only for elements of the plan, and the plan of perturbations only for
/// planets that a theory places.
void ObservationsForm::allowEpochs(bool byPlan) {
    if (!byPlan) planEpochJ2000.choose();
    planEpochOfDate.setEnabled(byPlan);
    planEpochJ2000.setEnabled(true);
    if (auto* plan = loadedScreen<ObservationPlanScreen>(desk())) plan->allowPerturbations(!byPlan);
}

void ObservationsForm::load() {
    lab.s.TipData = "Tab";
    lab.plan.Nf = 3;
    for (int i = 0; i <= 7; ++i) observatoryChoice(i).setEnabled(false);
    weightByCount.setEnabled(false);
    planEpochOfDate.setEnabled(false);
    clearGraph();
    clearSystem();
    lab.office.onBusy([this](bool busy) {
        officeState.setCaption(busy ? "Открывается таблица ..." : "");
        if (busy) desk().yield();
    });
    // their loads fill the tables that this form works with; the number of the plan is set by opening the
    // plan on observations alone
    const std::int16_t NPlan = lab.s.NPlan;
    for (const char* form : {"Form13", "Form21", "Form22"})
        if (desk().knows(form) && !desk().isLoaded(form)) desk().loadAndUnload(form);
    lab.s.NPlan = NPlan;
}

void ObservationsForm::unload() {
    if (running_) lab.s.kodStop = 1;
    lab.office.onBusy([](bool) {});
    gone_ = true;
    if (!running_) closeSources();  // otherwise when the pass that still runs has ended
}

void ObservationsForm::clearGraph() {
    const double wider = std::max(1.0, graphWidth.number());
    page_ = PlanPage::of(lab.plan.Nf, 46);
    page_.columns = static_cast<int>(page_.columns * std::min(wider, 10.0));
    page_.drawEmpty(residualGraph, true);
    residualGraph.line(0, 4, page_.columns, 4, {100, 100, 100});
}

void ObservationsForm::clearSystem() {
    lab.s.Mx = systemScale.value() * 100000.0 * 1000;
    systemScaleCaption.setCaption("Масштаб = " + toText(systemScale.value() * 2 / 10.0) + " млн.км/см");
    tellViews(systemPicture, lab.s.Mx, sideView);
    tellViews(skyPicture, lab.s.Mx, sideView);
    skyPicture.axes(layersAfterViews, {scaledAxis("азимут", "град", 18), scaledAxis("высота", "град", 9)});
    for (int row = 0; row <= rowMoon; ++row) {
        bodies_[row] = bodySeries(systemPicture, bodyName(row));
        seen_[row] = bodySeries(skyPicture, bodyName(row));
    }
    sunInSky_ = skyPicture.series({.quantity = "Солнце на небе", .layer = layersAfterViews});
    bodyInSky_ = skyPicture.series({.quantity = "объект на небе", .layer = layersAfterViews});
    drawGrid(systemPicture, {});
    drawGrid(skyPicture, {});
}

}  // namespace tarvex
