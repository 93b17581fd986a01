// Statistics: what the error of a drift is, with the memory of its points and the oscillations by the
// planets, and the difference of two series passage by passage.

#include <algorithm>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "forms/statistics_form.h"
#include "stats/passages.h"
#include "stats/series_shift.h"

namespace tarvex {

namespace {

constexpr const char* box = "Tarvex7";
constexpr double line = 0.5;  ///< distance of printed lines

/// Resamples that a wait of a moment allows.
int resamplesFor(std::size_t points) {
    return static_cast<int>(
        std::clamp(2e6 / static_cast<double>(std::max<std::size_t>(points, 1)), 99.0, 999.0));
}

}  // namespace

void StatisticsForm::clearError() {
    for (TextField* field :
         {&slopeError, &slopeLow, &slopeHigh, &lagOne, &effectivePoints, &resampledLow, &resampledHigh})
        field->setText("");
}

void StatisticsForm::tellError() {
    clearError();
    const SeriesData& d = lab.series;
    const ShiftUnit unit = shiftUnit(d.Nparam);
    if (unit.caption == nullptr) return;
    const double D = (yearIG - originYear) / 100;
    std::optional<SlopeError> error;
    if (withPeriods.on()) {
        if (const auto periodic = fitWithPeriods(fit.groups, settings.equation, d.Npl, D)) {
            error = periodic->error;
            shift = unit.scale * periodic->slope;
            secularShift.show(cut6(shift));
            printTerms(periodic->terms, unit.scale);
        }
    } else {
        error = tarvex::slopeError(fit.groups, settings.equation, D, resamplesFor(fit.groups.size()));
    }
    if (!error) return;
    slopeError.show(cut6(unit.scale * error->sigma));
    slopeLow.show(cut6(unit.scale * error->low));
    slopeHigh.show(cut6(unit.scale * error->high));
    lagOne.show(cut6(error->lagOne));
    effectivePoints.show(cut6(error->effectivePoints));
    if (error->resamples == 0) return;
    resampledLow.show(cut6(unit.scale * error->bootLow));
    resampledHigh.show(cut6(unit.scale * error->bootHigh));
}

void StatisticsForm::printTerms(const std::vector<PlanetTerm>& terms, double scale) {
    constexpr std::size_t most = 12;
    double y = picture.toUserY(0) - 2.4;
    for (std::size_t i = 0; i < std::min(most, terms.size()); ++i, y -= line)
        picture.text(1.2, y,
                     terms[i].name + "   период " + Format(terms[i].period, "0.000") + " лет   амплитуда " +
                         Format(scale * terms[i].amplitude, "0.000") + " ± " +
                         Format(scale * terms[i].error, "0.000"));
}

void StatisticsForm::tellPassages() {
    passagesFound.setText("");
    passagesExpected.setText("");
    passageNotice.setCaption(" ");
    const SeriesData& d = lab.series;
    if (d.kodData != dataModel && d.kodData != dataImitator) return;  // no passages of a run
    const PassageCount passages = countPassages(d, settings);
    passagesFound.show(passages.found);
    passagesExpected.show(passages.expected);
    if (passages.lost() > 0) passageNotice.setCaption("потеряно прохождений: " + toText(passages.lost()));
}

/// The error that goes to the tables: as the fit has shown it, or as it was typed; 0 where there is none.
double StatisticsForm::typedError() const { return slopeError.text().empty() ? 0 : slopeError.number(); }

SeriesData StatisticsForm::secondSeries() {
    SeriesData second;
    const int body = lab.series.Npl;
    DataKind kind = dataImitator;
    std::string name = files::series("\\JPL", body);
    if (pairSource(0).on()) {
        kind = dataModel;
        name = files::runRecord(pairPlan.int16(), body, pairExperiment.int32());
    } else if (pairSource(1).on()) {
        name = files::series("\\NEW", body);
    } else if (pairSource(3).on()) {
        kind = dataLong;
        name = files::series("\\Ser\\Plan" + toText(pairPlan.int16()), body);
    }
    try {
        readSeries(lab.tree, name, kind, second);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл\r\n" + name, box);
    } catch (const FileFailure&) {
        throw Refusal("Ошибка чтения данных из файла\r\n" + name, box);
    }
    return second;
}

// complexity: what cannot be paired is refused by its cause, then either table may be asked for
void StatisticsForm::PairedFit() {
    const SeriesData& d = lab.series;
    for (TextField* field : {&pairedShift, &pairedError, &pairedCount}) field->setText("");
    if (d.kodData < dataImitator || d.kodData == dataTest || d.records.empty())
        throw Refusal("У Вас не загружены первичные данные", box);
    const ShiftUnit unit = shiftUnit(d.Nparam);
    if (unit.caption == nullptr) throw Refusal("У веса записи нет смещения", box);
    originYear = epochYear.number();
    lab.s.kodErrDate = 0;
    settings.T0 = JDfromDate(lab.s, 1.5, 1, toInt32(originYear));
    if (lab.s.kodErrDate != 0) return;
    readSettings();
    MT = timeScale.number();
    // a constant has no shift: the difference of drifts is that of lines then
    const Equation equation = settings.equation == Equation::Parabola ? Equation::Parabola : Equation::Line;
    SeriesData second = secondSeries();
    second.Npl = d.Npl;
    PairedSeries pairs = pairPassages(d, second, settings);
    pairedCount.show(static_cast<double>(pairs.points.groups.size()));
    if (static_cast<int>(pairs.points.groups.size()) <= static_cast<int>(equation))
        throw Refusal("У рядов нет общих прохождений", box);
    fitGroups(equation, pairs.points);
    const double D = (yearIG - originYear) / 100;
    const auto error = tarvex::slopeError(pairs.points.groups, equation, D);
    pairedShift.show(cut6(unit.scale * shiftAt(equation, pairs.points, D)));
    secularShiftUnit.setCaption(unit.caption);
    if (!error) return;
    pairedError.show(cut6(unit.scale * error->sigma));
    if (pairedShiftToTable.on() && d.Nparam < parAlfaL0) {
        secularShift.show(cut6(seriesShift(second, d.Nparam, withPeriods.on()).shift +
                               unit.scale * shiftAt(equation, pairs.points, D)));
        if (lab.s.NPlan > 0)
            lab.shifts.calculated(d.Npl, d.Nparam, experimentNumber.int32()) = secularShift.number();
    }
    if (pairedToTable.on() && d.Nparam < parAlfaL0) {
        slopeError.show(cut6(unit.scale * error->sigma));
        lab.shifts.dNabErr[d.Npl][d.Nparam] = typedError();
        if (lab.s.NPlan > 0) {
            lab.shifts.calculated(d.Npl, d.Nparam, experimentNumber.int32());  // a cell of the table
            lab.shifts.dRasErr[d.Npl][d.Nparam][experimentNumber.int32()] = typedError();
        }
    }
    drawPairs(pairs.points.groups, pairs.points, unit.scale);
}

void StatisticsForm::drawPairs(const std::vector<Group>& points, const FitResult& fitted, double scale) {
    const auto [low, high] = std::minmax_element(points.begin(), points.end(),
                                                 [](const Group& a, const Group& b) { return a.Y < b.Y; });
    const double base = low->Y, unit = std::max((high->Y - base) / 10, 1e-12);
    const auto x = [&](double T) { return ratio((T - points.front().T) * 100, MT) + 1; };
    const auto y = [&](double value) { return (value - base) / unit + 1; };
    const double columns = x(points.back().T) + 2;
    if (!(columns < 2000)) throw ArithmeticFailure("span of the differences");
    drawEmpty(13, std::max(columns, 20.0), true);
    const Color color = chosenColor();
    for (const Group& g : points) picture.circle(x(g.T), y(g.Y), 0.06, color);
    constexpr int pieces = 100;
    const double from = points.front().T, step = (points.back().T - from) / pieces;
    for (int i = 0; i < pieces; ++i)
        picture.line(x(from + i * step), y(fitted.at(from + i * step)), x(from + (i + 1) * step),
                     y(fitted.at(from + (i + 1) * step)), {255, 0, 0});
    picture.text(2.5, 12.9,
                 "Разность рядов: " + pairedShift.text() + " ± " + pairedError.text() + " " +
                     secularShiftUnit.caption() + " за век,  пар " + pairedCount.text());
    picture.text(2.5, 12.3, "клетка " + toText(cut6(scale * unit)) + " " + secularShiftUnit.caption());
}

}  // namespace tarvex
