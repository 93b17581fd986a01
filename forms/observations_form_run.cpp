// Reduction of observations: one run, what it reads from the fields and what it shows.
#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/clock.h"
#include "core/numbers.h"
#include "forms/date_fields.h"
#include "forms/observations_form.h"
#include "forms/plot_grid.h"
#include "reduction/reduction_files.h"

namespace tarvex {

namespace {

constexpr Color green{0, 200, 0}, dRcolor{0, 0, 200}, dLcolor{255, 0, 0}, moonColor{220, 220, 220};
constexpr double pointRadius = 0.05, rejectedRadius = 0.15;
constexpr int progressEvery = 64;  ///< passes
constexpr int layerHistogram = 100;

}  // namespace

/// The calendar and the start of the day of the data.
void ObservationsForm::takeCalendar() {
    lab.s.kodKalend = codeOf(egyptian.on() ? Calendar::Egyptian
                             : julian.on() ? Calendar::Julian
                                           : Calendar::Gregorian);
    lab.s.TimeZone = dayFromNoon.on() ? 12 : 0;
}

/// Number of the body from its field, 0..11.
std::int32_t ObservationsForm::bodyTyped() const {
    const std::int32_t body = bodyNumber.int32();
    if (body < 0 || body > rowMoon) throw SubscriptFailure("нет тела № " + std::to_string(body));
    return body;
}

void ObservationsForm::convertDate() {
    const CalendarKept kept(lab.s);
    takeCalendar();
    gregorianToJulian(lab, {year, month, day, julianDate});
}

void ObservationsForm::convertJulian() {
    const CalendarKept kept(lab.s);
    takeCalendar();
    julianToGregorian(lab, {year, month, day, julianDate});
}

void ObservationsForm::restoreStart() {
    year.show(lab.s.God0);
    month.show(lab.s.Mes0);
    day.show(lab.s.Den0);
}

void ObservationsForm::readChoices() {
    ReductionChoices& c = lab.reduction.choices;
    c.tables = fromTables.on();
    c.earth = earthByJpl0.on()   ? EarthTheory::JPL0
              : earthBySer0.on() ? EarthTheory::Ser0
                                 : EarthTheory::Ser0Plus;
    c.planet = elementsOfPlan.on() ? PlanetTheory::Plan
               : planetByJpl0.on() ? PlanetTheory::JPL0
                                   : PlanetTheory::Ser0;
    c.epochJ2000 = planEpochJ2000.on();
    c.byDistance = judgeByDistance.on();
    c.aberrSource = sourceAberration.on();
    c.aberrReceiver = receiverAberration.on();
    c.nutation = nutation.on();
    c.parallax = parallax.on();
    c.refraction = refraction.on();
    c.planetTerms = planetTerms.on();
    c.earthMoonTerms = earthMoonTerms.on();
    c.visibility = visibleOnly.on();
    c.darkSky = darkSkyOnly.on();
    c.horizonPicture = horizonView.on() && !withoutAnimation.on();
    c.replacePrecession = replacePrecession.on();
    c.countLongitude = plotLongitudes.on();
    c.countLatitude = plotLatitudes.on();
    c.filter = filterDeviations.on();
    c.statistics = collectStatistics.on();
    c.goodBadFiles = writeGoodBadFiles.on();
    c.debugFile = writeDebugFile.on();
    c.rootMeanSquare = rootMeanSquare.on();
    c.weightByCount = weightByCount.on();
    c.pause = pauseAfterStep.on();
    c.HplMin = leastAltitude.number();
    c.HsolMax = sunAltitudeLimit.number();
    c.Precess = precessionRate.number();
    c.fileNumber = fileNumber.text();
    c.goodNumber = goodFileNumber.text();
    readFields();
}

/// The numbers that may be typed while a run goes on.
void ObservationsForm::readFields() {
    ReductionChoices& c = lab.reduction.choices;
    lab.s.DtCur = tableStep.number();
    c.dMax = deviationLimit.number();
    c.Pauza = pauseLength.int32();
    yearsPerCell_ = timeScale.number();
    degreesPerCell_ = angleScale.number();
    arcSecondsPerCell_ = angleResidualScale.number();
    distancePerCell_ = distanceResidualScale.number();
    shiftCells_ = graphShift.number();
}

/// False when the date is none.
bool ObservationsForm::ReadRunParams() {
    ModelState& s = lab.s;
    ReductionState& r = lab.reduction;
    s.kodStop = 1;
    if (fromTables.on() && tableChoice(0).on()) throw Refusal("Выберете имитатор", "Tarvex7.0");
    if (fromObservatories.on() && observatoryChoice(0).on())
        throw Refusal("Выберете обсерваторию", "Tarvex7.0");
    const std::int32_t body = bodyTyped();
    if (body == 3) throw Refusal("Землю не наблюдали", "Tarvex7.0");
    s.IplSel = body;
    s.ObsL = siteLongitude.number();
    s.ObsB = siteLatitude.number();
    readChoices();
    s.kodErrDate = 0;
    convertDate();
    if (s.kodErrDate != 0) return false;  // the date has been complained of
    const CalendarKept kept(s);
    takeCalendar();
    r.kodKalendTab = s.kodKalend;
    r.TimeZoneTab = s.TimeZone;
    s.JDepoha = s.JD;
    s.God0 = s.GodR;
    s.Mes0 = s.MesR;
    s.Den0 = s.DenR;
    r.GodK = lastYear.int32();
    if (auto* plan = loadedScreen<ObservationPlanScreen>(desk())) plan->takeLevels();
    s.kodStop = 0;
    std::string text;
    if (elementsOfPlan.on() && r.planEpoch != 0 && r.planEpoch != s.JDepoha)
        text = "Уровни плана загружены для другой начальной даты (JD " + toText(r.planEpoch) + "). ";
    if (egyptian.on() && !dayFromNoon.on()) text += egyptianFromMidnight;
    setStatus(text);
    return true;
}

void ObservationsForm::start() {
    if (running_) return;
    if (fromObservatories.on() && lab.s.kodStop == 1) throw Refusal("Надо открыть файл снова", "Tarvex7.0");
    if (!ReadRunParams()) return;
    ShowPlanSummary();  // an empty graph below, and above it the plan beside which the responses are printed
    page_.showPlots(residualGraph);
    clearSystem();
    sights_.clear();
    startReduction(reduction());
    drawLimits();
    pass();
}

void ObservationsForm::drawLimits() {
    const ReductionChoices& c = lab.reduction.choices;
    if (!c.filter) return;
    const auto limit = [this](double y) { residualGraph.line(0, y, page_.columns, y, green); };
    if (c.byDistance) {
        limit(ratio(c.dMax, distancePerCell_) + shiftCells_);
    } else {
        limit(4 + shiftCells_ + ratio(c.dMax, arcSecondsPerCell_));
        limit(4 + shiftCells_ - c.dMax / arcSecondsPerCell_);
    }
}

/// Passes from where the run stands.
void ObservationsForm::pass() {
    if (running_) return;  // pressed while a run gives way: that run goes on
    readChoices();
    tellGraph();
    struct Mark {
        explicit Mark(ObservationsForm& form_) : form(form_) { form.running_ = true; }
        ~Mark() {
            form.running_ = false;
            if (form.gone_) form.closeSources();
        }
        ObservationsForm& form;
    } mark(*this);
    const Running calculation(*this);
    stage("Ошибка решения уравнений", "Tarvex7.0", [this] { ReductionRun(reduction(), *this); });
}

void ObservationsForm::dateRead() {
    const ModelState& s = lab.s;
    const ReductionState& r = lab.reduction;
    if (r.choices.tables) {
        worldDate.setText(r.worldDate);
        year.show(s.God);
        month.show(s.Mes);
        day.show(s.Den);
    }
    julianDate.show(s.JD);
    observedLongitude.show(cut6(r.Ln));
    observedLatitude.show(cut6(r.Bn));
}

void ObservationsForm::heliocentric() {
    if (withoutAnimation.on()) return;
    const ModelState& s = lab.s;
    for (const int body : {0, 3, static_cast<int>(s.IplSel)}) {
        const Color color = body == rowMoon ? moonColor : bodyColor(s, body);
        drawBothViews(systemPicture, s.X[body] / s.Mx, s.Y[body] / s.Mx, s.Z[body] / s.Mx, 0.06, color,
                      bodies_[body]);
    }
}

/// Sun, Earth and body as seen from the Earth, or azimuth and altitude of Sun and body.
void ObservationsForm::drawSky() {
    const ModelState& s = lab.s;
    const ReductionState& r = lab.reduction;
    const int b = s.IplSel;
    const Color color = b == rowMoon ? moonColor : bodyColor(s, b);
    if (horizonView.on()) {
        skyPicture.as(sunInSky_).disc(r.sun.L / 18, r.sun.B / 9, 0.1, bodyColor(s, 0));
        skyPicture.as(bodyInSky_).disc(r.body.L / 18, r.body.B / 9, 0.06, color);
        return;
    }
    drawBothViews(skyPicture, 0, 0, 0, 0.06, bodyColor(s, 3), seen_[3]);
    if (b != rowSun)
        drawBothViews(skyPicture, s.X[0] / s.Mx, s.Y[0] / s.Mx, s.Z[0] / s.Mx, 0.06, bodyColor(s, 0),
                      seen_[0]);
    // by the theory, on the ecliptic like the Sun: the row itself holds the data in their own frame by now
    const SkyPlace& place = r.stage[stageJ2000];
    const double B = place.B / kUgol, L = place.L / kUgol, R = r.Rgeo / s.Mx;
    drawBothViews(skyPicture, R * std::cos(B) * std::cos(L), R * std::cos(B) * std::sin(L), R * std::sin(B),
                  0.06, color, seen_[b]);
}

/// What the lower graph means at its scales, from now on.
void ObservationsForm::tellGraph() {
    const int experiment = lab.reduction.experiment;
    const std::string run = experiment > 0 ? "эксп. " + std::to_string(experiment) : "";
    const Axis time = yearAxis(lab.s.JDepoha, 0, yearsPerCell_ * 365.25);
    constexpr const char *degrees = "град", *seconds = "сек", *km = "тыс. км";
    const auto tell = [&](Plotted what, const char* name, const char* unit, double scale, int color,
                          double line = 0) {
        residualGraph.axes(
            what, {time, scaledAxis(name, unit, scale, shiftCells_ + line, unit == seconds ? "\"" : "")});
        plotted_[what] = residualGraph.series({name, run, what, color, std::max(0, experiment - 1)});
    };
    constexpr double angles = 4;  // height of the line from which they count
    tell(plotLt, "L по теории", degrees, degreesPerCell_, 0);
    tell(plotBt, "B по теории", degrees, degreesPerCell_, 6);
    tell(plotLn, "L наблюдения", degrees, degreesPerCell_, 4);
    tell(plotBn, "B наблюдения", degrees, degreesPerCell_, 2);
    tell(plotSource, "аберрация источника", seconds, arcSecondsPerCell_, 1, 5);
    tell(plotReceiver, "аберрация приемника", seconds, arcSecondsPerCell_, 2, 3);
    tell(plotAberrations, "аберрация", seconds, arcSecondsPerCell_, 0, 1);
    tell(plotDL, "dL", seconds, arcSecondsPerCell_, 1, angles);
    tell(plotDB, "dB", seconds, arcSecondsPerCell_, 2, angles);
    tell(plotDR, "dR", km, distancePerCell_, 0);
    tell(plotMeanDL, "dLsr", seconds, arcSecondsPerCell_, 4, angles);
    tell(plotMeanDB, "dBsr", seconds, arcSecondsPerCell_, 3, angles);
    tell(plotCriterionR, "dRsr", km, distancePerCell_, 5);
    tell(plotCriterionL, "Abs(dL)sr", seconds, arcSecondsPerCell_, 5);
    tell(plotCriterionB, "Abs(dB)sr", seconds, arcSecondsPerCell_, 7);
    tell(plotRejectedR, "dR отброшено", km, distancePerCell_, 3);
    tell(plotRejectedL, "dL отброшено", seconds, arcSecondsPerCell_, 3, angles);
}

void ObservationsForm::graphPoint(Plotted what, double y, Color color) {
    const double x = ratio((lab.s.JD - lab.s.JDepoha) / 365.25, yearsPerCell_);
    residualGraph.as(plotted_[what]).disc(x, y + shiftCells_, pointRadius, color);
}

void ObservationsForm::placed() {
    const ReductionState& r = lab.reduction;
    julianDateET.show(lab.s.JDet);
    if (!r.choices.visibility && !r.choices.horizonPicture) return;
    azimuth.show(cut6(r.body.L));
    altitude.show(cut6(r.body.B));
}

void ObservationsForm::compared() {
    const ReductionState& r = lab.reduction;
    for (int i = 0; i < chainStages; ++i) {
        if (!r.reached[i] || !stageLongitude[i]) continue;
        stageLongitude[i]->show(cut6(r.stage[i].L));
        stageLatitude[i]->show(cut6(r.stage[i].B));
    }
    plotPlaces();
    if (!withoutAnimation.on()) drawSky();
}

/// Places by theory and by the data, and the shifts by aberration.
void ObservationsForm::plotPlaces() {
    const ReductionState& r = lab.reduction;
    const bool L = plotLongitudes.on(), B = plotLatitudes.on();
    if (plotTheory.on() && L) graphPoint(plotLt, ratio(r.Lt, degreesPerCell_), {0, 0, 255});
    if (plotTheory.on() && B) graphPoint(plotBt, ratio(r.Bt, degreesPerCell_), {50, 0, 200});
    if (plotObserved.on() && L) graphPoint(plotLn, ratio(r.Ln, degreesPerCell_), {220, 250, 0});
    if (plotObserved.on() && B) graphPoint(plotBn, ratio(r.Bn, degreesPerCell_), {220, 250, 0});
    if (plotAberration.on() && r.reached[stageSource] && r.reached[stageReceiver]) {
        const auto shift = [&](ChainStage to, ChainStage from) {
            return ratio(std::remainder(r.stage[to].L - r.stage[from].L, 360) * 3600, arcSecondsPerCell_);
        };
        graphPoint(plotSource, shift(stageSource, stageJ2000) + 5, {255, 0, 0});
        graphPoint(plotReceiver, shift(stageReceiver, stageSource) + 3, {0, 250, 0});
        graphPoint(plotAberrations, shift(stageReceiver, stageJ2000) + 1, {0, 0, 250});
    }
}

void ObservationsForm::rejected() {
    const ReductionState& r = lab.reduction;
    const double x = ratio((lab.s.JD - lab.s.JDepoha) / 365.25, yearsPerCell_);
    if (judgeByDistance.on() && plotDistanceResidual.on())
        residualGraph.as(plotted_[plotRejectedR])
            .circle(x, ratio(r.dR, distancePerCell_) + shiftCells_, rejectedRadius, dRcolor);
    if (judgeByLongitude.on() && plotAngleResiduals.on())
        residualGraph.as(plotted_[plotRejectedL])
            .circle(x, ratio(r.dL * 3600, arcSecondsPerCell_) + 4 + shiftCells_, rejectedRadius, {200, 0, 0});
}

void ObservationsForm::accepted() {
    const ReductionState& r = lab.reduction;
    const auto& c = r.criterion;
    const int j = r.measure(), k = r.experiment;
    if (fit.source(2).on()) keepSight();
    acceptedCount.show(r.NObs);
    positiveCount.show(r.NPlus);
    negativeCount.show(r.NObs - r.NPlus);
    longitudeResidual.show(cut6(r.dL));
    latitudeResidual.show(cut6(r.dB));
    distanceResidual.show(cut6(r.dR));
    meanLongitudeResidual.show(cut6(r.sumL / r.NObs));
    meanLatitudeResidual.show(cut6(r.sumB / r.NObs));
    distanceCriterion.show(cut6(c[1][j][k]));
    longitudeCriterion.show(cut6(c[2][j][k] / 3600));
    latitudeCriterion.show(cut6(c[3][j][k] / 3600));
    if (r.choices.weightByCount) pointWeight.show(cut6(lab.plan.Xnul[10]));
    plotResiduals();
}

/// Residuals of the observation, their means and the criteria, as ticked.
void ObservationsForm::plotResiduals() {
    const ReductionState& r = lab.reduction;
    const auto& c = r.criterion;
    const int j = r.measure(), k = r.experiment;
    const bool L = plotLongitudes.on(), B = plotLatitudes.on();
    const auto seconds = [this](double degrees) { return ratio(degrees * 3600, arcSecondsPerCell_); };
    if (plotAngleResiduals.on() && L) graphPoint(plotDL, seconds(r.dL) + 4, dLcolor);
    if (plotAngleResiduals.on() && B) graphPoint(plotDB, seconds(r.dB) + 4, {0, 130, 100});
    if (plotDistanceResidual.on()) graphPoint(plotDR, ratio(r.dR, distancePerCell_), dRcolor);
    if (plotMeanResiduals.on() && L) graphPoint(plotMeanDL, seconds(r.sumL / r.NObs) + 4, {250, 220, 0});
    if (plotMeanResiduals.on() && B) graphPoint(plotMeanDB, seconds(r.sumB / r.NObs) + 4, {200, 200, 0});
    if (plotDistanceCriterion.on())
        graphPoint(plotCriterionR, ratio(c[1][j][k], distancePerCell_), {0, 0, 0});
    if (plotAngleCriteria.on() && L)
        graphPoint(plotCriterionL, ratio(c[2][j][k], arcSecondsPerCell_), {0, 0, 0});
    if (plotAngleCriteria.on() && B)
        graphPoint(plotCriterionB, ratio(c[3][j][k], arcSecondsPerCell_), {220, 220, 0});
}

/// In short pieces, so that "Остановить" is seen at once.
void ObservationsForm::pause(int milliseconds) {
    constexpr int piece = 100;
    for (int left = milliseconds; left > 0 && lab.s.kodStop != 1; left -= piece)
        desk().pause(std::min(left, piece));
}

void ObservationsForm::giveWay() {
    const ReductionState& r = lab.reduction;
    if (++passes_ % progressEvery == 0)
        progress((lab.s.JD - lab.s.JDepoha) / (std::max(1, r.GodK + 1 - lab.s.God0) * 365.25));
    desk().yield();
}

void ObservationsForm::showStatistics() {
    ReductionState& r = lab.reduction;
    const std::int32_t scale = distanceResidualScale.int32();
    r.NPlus = scale;  // the field shows this counter under its own name
    clearSystem();
    const auto polygon = [&](Picture& picture, int first, double left, double factor, double bottom,
                             const char* name) {
        const auto y = [&](int n) { return ratio(factor * r.count[n], scale) + bottom; };
        const int layer = layerHistogram;
        picture.axes(layer, {scaledAxis("интервал", "", 1, -left),
                             scaledAxis("наблюдений", "", ratio(scale, factor), bottom)});
        const int series = picture.series(
            {.quantity = name, .layer = layer, .color = 1, .mark = histograms_, .joined = true});
        for (int n = first + 1; n <= first + 18; ++n)
            picture.as(series).line(n - left, y(n), n + 1 - left, y(n + 1), {255, 0, 0});
        return picture.text(1 - left + first, bottom + 19, name, {255, 0, 0});
    };
    ++histograms_;
    page_.showPlots(residualGraph);
    polygon(systemPicture, 0, 10, 3, -10, "dLpl");
    polygon(skyPicture, 20, 30, 3, -10, "dBpl");
    polygon(residualGraph, 40, 40, 1, 0, "dRpl");
    if (collectStatistics.on()) writeStatistics(lab.s, r, lab.tree);
}

}  // namespace tarvex
