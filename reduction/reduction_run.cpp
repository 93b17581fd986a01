#include "reduction/reduction_run.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/numbers.h"
#include "reduction/reduction_chain.h"
#include "reduction/reduction_files.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

constexpr int cells = 19;  ///< of one histogram; they stand at 0, 20 and 40
constexpr double secondOfArc = 1.0 / 3600;

void setHistogramEdges(ReductionState& r) {
    r.count.fill(0);
    for (int n = 0; n < cells; ++n) {
        r.edge[n] = n * secondOfArc;
        r.edge[n + 20] = n * secondOfArc / 4;
        r.edge[n + 40] = r.choices.dMax * n / 18;
    }
    r.edge[19] = r.edge[39] = MK;
    r.edge[59] = MK * MK;
}

void countInHistogram(ReductionState& r, int first, double value) {
    for (int n = first + 1; n <= first + cells; ++n)
        if (r.edge[n - 1] <= value && value < r.edge[n]) ++r.count[n];
}

std::string shownWorldDate(ModelState& s) {
    double JD = s.JD;
    s.kodKalend = codeOf(Calendar::Gregorian);
    s.TimeZone = 0;
    DateFromJD(s, JD);
    DayToHMS(s, s.DenR);
    const bool before = s.GodR < 1;
    return Format(s.ChasR, "00") + ":" + Format(s.MinR, "00") + " - " + Format(Fix(s.DenR), "00") + "." +
           Format(s.MesR, "00") + "." + Format(before ? std::abs(s.GodR) + 1 : s.GodR, "0000") + " года " +
           (before ? "до н.э." : "н.э.");
}

/// Next date of a table, and the place that the table gives for it.
void stepTable(Reduction x) {
    auto& [s, r, plan, tree] = x;
    const double part = finite(r.JDpart + s.DtCur);
    r.JDwhole = finite(r.JDwhole + Fix(part));
    r.JDpart = part - Fix(part);
    s.JD = r.JDwhole + r.JDpart;
    const CalendarKept kept(s);
    r.worldDate = shownWorldDate(s);
    s.kodKalend = r.kodKalendTab;
    s.TimeZone = r.TimeZoneTab;
    DateFromJD(s, s.JD);  // the Egyptian calendar leaves JD at its own midnight, from which its tables count
    s.Den = s.DenR, s.Mes = s.MesR, s.God = s.GodR;
    NormalizeLocalDate(s, r.date);
    try {
        ReadTableCells(s, r.table, r.date, almagestPrecReduction, r.choices.replacePrecession);
    } catch (const std::exception& failure) {
        s.kodStop = 1;
        // A workbook whose office has gone is closed: the same choice then opens it again.
        if (dynamic_cast<const OfficeFailure*>(&failure) != nullptr) r.table.close();
        throw Refusal("Ошибка вычислений в таблицах" + s.NameData, "Tarvex7.0");
    }
}

/// Next observation from JDepoha on; false at the end of the file.
bool stepFile(Reduction x) {
    auto& [s, r, plan, tree] = x;
    const CalendarKept kept(s);
    s.kodKalend = r.kodKalendTab;
    s.TimeZone = r.TimeZoneTab;
    r.endOfFile = false;
    do {
        std::optional<Observation> found;
        try {
            found = r.file.ReadObsRecord({s.God0, r.GodK, r.choices.byDistance});
        } catch (const std::exception&) {
            s.kodStop = 1;
            r.file.close();
            throw Refusal("Ошибка чтения данных из файла\r\n" + r.file.path().string(), "Tarvex7");
        }
        if (!found) {
            r.endOfFile = true;
            return false;
        }
        r.line = std::move(found->line);
        r.date = {found->year, found->month, found->day, found->hours, found->dayWithTime()};
        s.Lpl[s.IplSel] = found->ascension;
        s.Bpl[s.IplSel] = found->declination;
        NormalizeDate(s, r.date.DenObs, r.date.MesObs, r.date.GodObs);
        s.JD = JDfromDate(s, s.DenR, s.MesR, s.GodR);
    } while (s.JD < s.JDepoha);
    return true;
}

void renewCriteria(Reduction x) {
    auto& [s, r, plan, tree] = x;
    const int k = r.experiment, j = r.measure();
    const double N = r.NObs;
    auto& c = r.criterion;
    c[1][1][k] = r.sumR / N;
    c[1][2][k] = std::sqrt(r.sumR2 / N);
    c[2][1][k] = 3600 * r.sumAbsL / N;
    c[2][2][k] = 3600 * std::sqrt(r.sumL2 / N);
    c[3][1][k] = 3600 * r.sumAbsB / N;
    c[3][2][k] = 3600 * std::sqrt(r.sumB2 / N);
    plan.Yu[k] = c[r.choices.byDistance ? 1 : 2][j][k];
    double weight = ratio(1, plan.Yu[k]);
    if (r.choices.weightByCount && !r.choices.tables)
        weight *= (N / 1000 + 1) * ((r.GodK - s.God0) / 100.0 + 1);
    plan.Xnul[10] = weight;
}

void addToSums(ModelState& s, ReductionState& r) {
    ++r.NObs;
    if (r.dL > 0 && r.choices.countLongitude) ++r.NPlus;
    if (r.dB > 0 && r.choices.countLatitude) ++r.NPlus;
    r.sumJD += s.JDut0;
    r.sumR += r.dR;
    r.sumR2 += r.dR * r.dR;
    r.sumL += r.dL;
    r.sumAbsL += std::abs(r.dL);
    r.sumL2 += r.dL * r.dL;
    r.sumB += r.dB;
    r.sumAbsB += std::abs(r.dB);
    r.sumB2 += r.dB * r.dB;
}

/// Theory, residuals, filter and sums for the date and place just read.
void onePass(Reduction x, ReductionView& view) {
    auto& [s, r, plan, tree] = x;
    StageLog log;
    if (r.choices.debugFile)
        log = [&x](const char* label, double L, double B, double R) {
            appendStage(x.s, x.r, x.tree, label, L, B, R);
        };
    reduceTheory(s, r, plan, log, [&] { view.heliocentric(); });
    view.placed();
    if (r.kodVidim == 0) return;  // dropped without any count
    compareWithData(s, r);
    if (log) log("  GEO EQU (GEO ECL) Nabl      ", r.Ln, r.Bn, r.Rgeo);
    view.compared();
    if (r.choices.statistics) {
        countInHistogram(r, 0, std::abs(r.dL));
        countInHistogram(r, 20, std::abs(r.dB));
        countInHistogram(r, 40, r.dR);
    }
    const double size = r.choices.byDistance ? r.dR : std::abs(r.dL) * 3600;
    if (r.choices.filter && !(size < r.choices.dMax)) {
        if (r.choices.goodBadFiles) appendBad(s, r, tree);
        view.rejected();
        return;
    }
    addToSums(s, r);
    renewCriteria(x);
    if (r.choices.goodBadFiles) appendGood(s, r, tree);
    view.accepted();
}

}  // namespace

void ReductionState::clearSums() {
    NObs = NPlus = 0;
    sumJD = sumR = sumR2 = sumL = sumAbsL = sumL2 = sumB = sumAbsB = sumB2 = 0;
}

void startPasses(Reduction x) {
    auto& [s, r, plan, tree] = x;
    r.clearSums();
    r.endOfFile = false;
    r.JDwhole = Fix(s.JDepoha);
    r.JDpart = s.JDepoha - r.JDwhole - s.DtCur;
    s.JD = r.JDwhole + r.JDpart;
}

void startReduction(Reduction x) {
    auto& [s, r, plan, tree] = x;
    for (int i = 1; i <= 9; ++i) plan.XU[i][0] = plan.Xnul[i];
    r.experiment = 0;
    startPasses(x);
    if (r.choices.statistics) setHistogramEdges(r);
    if (r.choices.goodBadFiles) startGoodBadFiles(s, r, tree);
    if (r.choices.debugFile) startStageFile(s, r, tree);
}

void ReductionRun(Reduction x, ReductionView& view) {
    auto& [s, r, plan, tree] = x;
    for (;;) {
        needSelectedBody(s);
        if (r.choices.tables)
            stepTable(x);
        else
            stepFile(x);
        if (!r.endOfFile || r.choices.tables) {
            r.Ln = s.Lpl[s.IplSel];
            r.Bn = s.Bpl[s.IplSel];
            view.dateRead();
            onePass(x, view);
        }
        view.readFields();
        if (!r.choices.tables && r.endOfFile) {
            if (r.experiment == 0) r.file.rewind();
            break;
        }
        if (s.kodStop == 1) break;
        if (r.choices.pause) view.pause(r.choices.Pauza);
        if (r.choices.tables && r.date.GodObs > r.GodK) break;
        view.giveWay();
    }
    if (r.NObs > 0) s.JDut = r.sumJD / r.NObs;
}

void layOutExperiments(PlanBlock& plan, int last) {
    for (int k = 1; k <= last; ++k) {
        for (int i = 1; i <= 9; ++i) plan.XU.at(i).at(k) = plan.Xnul[i];
        for (int f = 1; f <= plan.Nf; ++f) {
            const int i = plan.Nfact[f];
            plan.XU.at(i).at(k) = finite(plan.PlanX[f][k] * plan.dXvar[i] + plan.Xnul[i]);
        }
    }
}

void runTestOfRegression(PlanBlock& plan, int first, int last) {
    plan.b.fill(1);
    for (int f = 1; f <= plan.Nf; ++f) plan.Xnul.at(plan.Nfact[f]) = plan.dXvar.at(plan.Nfact[f]) = 1;
    for (int k = first; k <= last; ++k) {
        for (int f = 1; f <= plan.Nf; ++f) plan.X[f] = plan.PlanX[f].at(k);
        plan.Nexp = static_cast<std::int16_t>(k);
        EvalRegression(plan);
        plan.Yu.at(k) = plan.Z[k];
    }
}

void fitResponses(PlanBlock& plan) {
    FitRegression(plan);
    for (int k = 1; k <= plan.Nplan; ++k) {
        for (int f = 1; f <= plan.Nf; ++f) plan.X[f] = plan.PlanX[f][k];
        plan.Nexp = static_cast<std::int16_t>(k);
        EvalRegression(plan);
        plan.Yras.at(k) = plan.Z[k];
    }
}

}  // namespace tarvex
