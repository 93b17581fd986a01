// Statistics: the fit of the sample, the test series and the search over group sizes.

#include <array>
#include <utility>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "forms/picture_axes.h"
#include "forms/statistics_form.h"

namespace tarvex {

namespace {
constexpr Color red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, black{0, 0, 0};
constexpr int colorFit = 1, colorLimit = 3, colorGroups = 4, groupMark = 5;
constexpr double curveStep = 20;         ///< days between the points of the curves
constexpr double mostCurvePoints = 1e6;  ///< more is no span of a series
}  // namespace

void StatisticsForm::readSettings() {
    settings.equation = fitConstant.on()   ? Equation::Constant
                        : fitParabola.on() ? Equation::Parabola
                                           : Equation::Line;
    settings.first = firstRecord.int32();
    settings.last = lastRecord.int32();
    settings.unitWeights = equalWeights.on();
    yearIG = targetYear.number();
}

void StatisticsForm::FitSample() {
    SeriesData& d = lab.series;
    for (TextField* field : {&coefficient0, &coefficient1, &coefficient2}) field->setText("0");
    originYear = epochYear.number();
    lab.s.kodErrDate = 0;
    settings.T0 = JDfromDate(lab.s, 1.5, 1, toInt32(originYear));
    if (lab.s.kodErrDate != 0) return;
    if (useTestSeries.on()) makeTestSeries();
    if (const char* unit = shiftUnit(d.Nparam).caption) secularShiftUnit.setCaption(unit);
    readSettings();
    count = recordCount.int32();
    d.at(count);
    MT = timeScale.number();
    Mpar = parameterScale.number();
    searchX = searchSizeScale.number();
    searchY = searchShiftScale.number();
    chosenColor();

    const bool search = searchGroupSizes.on();
    if (search) groupSize.setText("1");
    const int NCP0 = groupSize.int16(), n = settings.size(), NgrMin = settings.leastGroups();
    if (NCP0 < 1) throw SubscriptFailure("в группе должно быть больше 0 записей: " + std::to_string(NCP0));
    const int NCPmax = search ? n / NgrMin : NCP0;
    if (n / NCP0 < NgrMin)
        throw Refusal("Первичные данные должны быть\r\nразбиты минимум на " + toText(NgrMin) + " группы",
                      "Tarvex7");
    dYgr.assign(NCPmax + 1, 0);
    Sigma2gr.assign(NCPmax + 1, 0);
    for (int NCP = NCP0; NCP <= NCPmax; ++NCP) passOfSize(NCP, !search);
    if (search) {
        GroupSearchReport(NCPmax);
        clearError();
    } else {
        tellError();
    }
    tellPassages();
    keepShift();
}

void StatisticsForm::makeTestSeries() {
    SeriesData& d = lab.series;
    const int n = recordCount.int32();
    if (n < 1 || n > maxRecords)
        throw SubscriptFailure("записей может быть от 1 до " + std::to_string(maxRecords) + ", а не " +
                               std::to_string(n));
    const double k0 = testK0.number(), k1 = testK1.number(), k2 = testK2.number(), k3 = testK3.number();
    d.Nparam = parAlfaL0;
    d.JD0 = settings.T0 = 1721058;
    originYear = 0;
    epochYear.setText("0");
    d.kodData = dataTest;
    d.records.assign(n, {});
    std::uniform_real_distribution<double> uniform(0, 1);
    Ymax = 0;
    Ymin = MK;
    for (int i = 1; i <= n; ++i) {
        Record& r = d.records[i - 1];
        r.dTd = i * 36525.0 / n * 25;
        const double T = r.dTd / 36525;
        const double value = finite(k0 + k1 * T + k2 * T * T + (uniform(random) - 0.5) * k3);
        r.Par[parAlfaL0] = value;
        if (value > Ymax) Ymax = value;
        if (value < Ymin) Ymin = value;
    }
    MT = 100;
    Mpar = (Ymax - Ymin) / 10;
    timeScale.setText("100");
    parameterScale.show(Mpar);
    drawEmpty(13, 29.5, true);
    picture.text(5, 12.9, "Ymax=  " + toText(cut6(Ymax)));
    picture.text(5, 12.3, "Ymin=  " + toText(cut6(Ymin)));
    firstValue.show(cut6(d.at(1).Par[parAlfaL0]));
    lastValue.show(cut6(d.at(n).Par[parAlfaL0]));
    tellAxes();
    const int series = seriesOf("AlfaL0", 0, 0);
    for (const Record& r : d.records)
        picture.as(series).circle(placeX(r.dTd), placeY(r.Par[parAlfaL0]), 0.08, red);
}

void StatisticsForm::passOfSize(int NCP, bool single) {
    const SeriesData& d = lab.series;
    formGroups(d, settings, NCP, fit);
    if (single) drawGroups();
    fitGroups(settings.equation, fit);
    const double D = (yearIG - originYear) / 100;
    if (const ShiftUnit unit = shiftUnit(d.Nparam); unit.caption != nullptr) {
        if (settings.equation != Equation::Constant) targetValue.show(cut6(fit.at(D)));
        shift = unit.scale * shiftAt(settings.equation, fit, D);
        limit = limitFactor * unit.scale * fit.Sigma;
        if (single) {
            secularShift.show(cut6(shift));
            secularShiftError.show(cut6(limit));
        }
    }
    if (single) {
        drawCurves();
        coefficient0.show(cut6(fit.b[0]));
        coefficient1.show(cut6(fit.b[1]));
        coefficient2.show(cut6(fit.b[2]));
        if (resultsAsText.on()) printResults();
    }
    groupSize.show(NCP);
    dYgr[NCP] = shift;
    Sigma2gr[NCP] = limit;
}

void StatisticsForm::drawGroups() {
    const Color color{lab.s.ColorR[1], lab.s.ColorG[1], lab.s.ColorB[1]};
    double y = picture.toUserY(0) - 0.5;
    if (weightsAsText.on()) {
        picture.text(18, y, "VesMax=  " + toText(cut6(fit.VesMax)));
        picture.text(18, y - 0.6, "VesSum=  " + toText(cut6(fit.VesSum)));
    }
    int i = 0;
    const int series = seriesOf("группы", colorGroups, groupMark);
    for (const Group& g : fit.groups) {
        const double days = g.T * 36525 + settings.T0 - lab.series.JD0;
        picture.as(series).circle(placeX(days), placeY(g.Y), 0.5 * g.W, color);
        if (!weightsAsText.on()) continue;
        picture.text(22, y, "i=  " + toText(++i) + "   Ves=  " + toText(cut6(g.W)));
        y -= 0.5;
    }
}

void StatisticsForm::drawCurves() {
    const SeriesData& d = lab.series;
    const Color color = chosenColor();
    const Record& last = d.at(count);
    const double from = Fix(d.at(1).dTd), to = Fix(last.dTd + last.ddTd);
    if (!((to - from) / curveStep < mostCurvePoints))
        throw ArithmeticFailure("ряд слишком длинный для кривой");
    const double away = limitFactor * fit.Sigma;
    ++fits_;
    const std::array curves = {std::pair(curveOf("+2*Sigma", layerTime, colorLimit), away),
                               std::pair(curveOf("аппроксимация", layerTime, colorFit), 0.0),
                               std::pair(curveOf("-2*Sigma", layerTime, colorLimit), -away)};
    for (double t = from; t <= to; t += curveStep) {
        const double value = fit.at((d.JD0 + t - settings.T0) / 36525);
        for (const auto& [series, off] : curves)
            picture.as(series).disc(placeX(t), placeY(value + off), 0.015, color);
    }
}

void StatisticsForm::printResults() {
    const double y = settings.equation == Equation::Parabola ? 2.3 : picture.toUserY(0) - 1.2;
    picture.text(1.2, y, "dY=  " + toText(cut6(shift)) + "    2*Sigma=  " + toText(cut6(limit)));
    picture.text(1.2, y - 0.6,
                 "Y=  " + toText(cut6(fit.b[0])) + "  +  " + toText(cut6(fit.b[1])) + " *  X  +  " +
                     toText(cut6(fit.b[2])) + " *  X^2");
}

void StatisticsForm::GroupSearchReport(int last) {
    constexpr int first = 1;  // the search always starts with groups of one
    const GroupSearch found = searchGroups(dYgr, Sigma2gr, first, last);
    const auto show = [&](const GroupSearch::Value& v) {
        secularShift.show(cut6(v.shift));
        secularShiftError.show(cut6(v.limit));
    };
    double y0 = picture.toUserY(0) - 1.2;
    const auto report = [&](const std::string& head, const GroupSearch::Value& v) {
        if (resultsAsText.on())
            picture.text(1.2, y0, head + toText(cut6(v.shift)) + "   dAlfaP100S = " + toText(cut6(v.limit)));
        y0 -= 0.6;
    };
    if (searchMinimum.on()) show(found.min);
    report("минимальное при NCP0 = " + toText(found.best) + "   dAlfaP100M = ", found.min);
    if (!overlay.on()) searchReference = found.min.shift;

    const auto x = [&](int s) { return ratio(s - first + 1, searchX) + 1; };
    const auto y = [&](double value) { return ratio(value - searchReference, searchY) + 5; };
    const char* unit = shiftUnit(lab.series.Nparam).caption;
    picture.axes(layerSearch, {scaledAxis("NCP0", "", searchX, 1 - ratio(first - 1, searchX)),
                               scaledAxis("сдвиг", unit == nullptr ? "" : unit, searchY,
                                          5 - ratio(searchReference, searchY))});
    ++fits_;
    const int low = curveOf("сдвиг - 2*Sigma", layerSearch, 2), middle = curveOf("сдвиг", layerSearch, 0),
              high = curveOf("сдвиг + 2*Sigma", layerSearch, 1);
    const auto segment = [&](int series, int s, double from, double to, Color color) {
        picture.as(series).line(x(s - 1), y(from), x(s), y(to), color);
    };
    // the first segments come from size 0, which has no fit: its cells are 0
    for (int s = first; s <= last; ++s) {
        segment(low, s, dYgr[s - 1] - Sigma2gr[s - 1], dYgr[s] - Sigma2gr[s], green);
        segment(middle, s, dYgr[s - 1], dYgr[s], blue);
        segment(high, s, dYgr[s - 1] + Sigma2gr[s - 1], dYgr[s] + Sigma2gr[s], red);
    }
    for (std::size_t i = 0; i < found.band.size(); ++i) {
        const GroupSearch::Step& step = found.band[i];
        for (const double value : {step.Hi, step.Lo})
            picture.line(x(step.from), y(value), x(step.to), y(value), black);
        if (i + 1 < found.band.size()) picture.text(x(step.to), step.raised ? 12 : 11, toText(step.to));
    }
    if (searchMaximin.on()) show(found.maxmin);
    report("максимин    dAlfaP100M = ", found.maxmin);
    if (searchMean.on()) show(found.mean);
    report("средние       dAlfaP100M = ", found.mean);
}

void StatisticsForm::keepShift() {
    const SeriesData& d = lab.series;
    if (d.Nparam >= parAlfaL0) return;
    // kept whatever the data are: a fit of the model too goes into the observed shifts
    const double value = lab.shifts.observed(d.Npl, d.Nparam) = secularShift.number();
    lab.shifts.dNabErr[d.Npl][d.Nparam] = typedError();
    if (lab.s.NPlan <= 0) return;
    lab.shifts.calculated(d.Npl, d.Nparam, experimentNumber.int32()) = value;
    lab.shifts.dRasErr[d.Npl][d.Nparam][experimentNumber.int32()] = typedError();
}

}  // namespace tarvex
