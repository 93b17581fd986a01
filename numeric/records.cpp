#include "numeric/records.h"

#include <fmt/format.h>

#include <cmath>
#include <ctime>

#include "core/arithmetic.h"
#include "core/text_files.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

constexpr int venus = 2, jupiter = 5;  ///< rows of the masses that a head of a file tells

constexpr int rasHeadLines = 5, xyzHeadLines = 4;

std::string startDate(const ModelState& s) {
    return Format(s.Den0, "00.00") + "." + Format(s.Mes0, "00") + "." + Format(s.God0, "0000");
}

std::string whole(int v) { return std::to_string(v); }

}  // namespace

int fileBody(const ModelState& s) { return s.kodMoon == 1 ? rowMoon : s.IplSel; }

std::string recordFile(bool model, Imitator theory, int plan, int body, int experiment) {
    if (model) return files::runRecord(plan, body, experiment);
    return files::series(theory == Imitator::New0 ? "\\NEW" : "\\JPL", body);
}

std::string recordFile(const ModelState& s, const RunState& run) {
    return recordFile(run.kodModel == 1, run.boxes.theory, s.NPlan, fileBody(s), s.NFile);
}

std::string trackFile(const ModelState& s) { return files::trackXYZ(fileBody(s), s.NFile); }

std::int32_t recordCount(const ModelState& s, const RunState& run) {
    if (fileBody(s) == rowEarthMoon) return 32000;
    double years = static_cast<double>(run.GodEnd) - s.God0;
    if (run.measuring == Measuring::ExactPassages)
        years = std::abs(years) + 1;  // back in time and the last year too
    if (run.boxes.energy) return toInt32(Fix(ratio(ratio(1.1 * years * 365.25 * 24 * 3600, s.Dt), s.NC0)));
    return toInt32(Fix(ratio(years * 3 * 365.25, run.Period)));
}

void claimRecords(const DataTree& tree, RunState& run) {
    if (run.boxes.records && run.kodTest == 0) run.claimRas.take(tree.at(run.FileRas));
    if (run.boxes.track) run.claimXYZ.take(tree.at(run.FileXYZ));
}

void dropRecords(RunState& run) {
    run.claimRas.drop();
    run.claimXYZ.drop();
}

void writeRasHead(const DataTree& tree, const ModelState& s, const Motion& motion, RunState& run,
                  const std::string& today) {
    std::string first = "эксперимент № " + whole(s.NFile) + " для объекта № " + whole(fileBody(s)) + " из " +
                        whole(s.NPlOn) + " от " + today + " плоскость эклиптики в эпоху J2000 начало " +
                        startDate(s);
    if (run.boxes.energy) first += " E0sys= " + toText(run.E0sys) + " MKD0sys= " + toText(run.MKD0sys);

    TextWriter file(tree.at(run.FileRas), rasHeadLines);
    file.line(first);
    file.line("шаг решения " + toText(s.Dt) + " сек  уменьшен у перигелия в " + whole(s.kDt) + " раз  " +
              "   dAlfa= " + toText(run.dAlfa) + "   kodBary= " + whole(s.kodBary) + "   kodMoon= " +
              whole(s.kodMoon) + "   kodDX= " + whole(motion.kodDX) + "   kodPgr= " + whole(motion.kodPgr) +
              "   kodOTO=  " + whole(motion.kodOTO) + "   kodSun=  " + whole(motion.kodSun) +
              (run.kodModel == 1 && motion.kodOTO == 0 && motion.kodRelativity == 1
                   ? "   постньютоновские члены"
                   : "") +
              (run.measuring == Measuring::ExactPassages ? "   точные прохождения" : "") +
              (run.stepper == Stepper::Order8 ? "   высокий порядок" : ""));
    file.line(run.ModelName + "    VXsys=  " + toText(s.VXsys) + "   VYsys= " + toText(s.VYsys) +
              "   VZsys= " + toText(s.VZsys) + "   Vgr= " + gravitySpeedText(motion) + " Vsv " +
              "  k1= " + toText(motion.kPgr1) + "  k2= " + toText(motion.kPgr2) +
              "  m2=  " + toText(Fix(ratio(s.m[rowSun], s.m[venus]))) +
              "     m5= " + toText(Fix(ratio(1000 * s.m[rowSun], s.m[jupiter])) / 1000));
    file.line(run.boxes.energy
                  ? " № замера     прошло дней          dEsys %       dMKDsys %      dEKsys %"
                  : " № замера     прошло дней   перигелий     восхождение     наклон   эксцентриситет    "
                    "полуось     угл.скорость");
    file.items(run.NP1max, Fix(100 * s.JD0));
    run.claimRas.take(tree.at(run.FileRas), [&] { file.commit(); });
}

void writeXYZHead(const DataTree& tree, const ModelState& s, const Motion& motion, RunState& run,
                  const std::string& today) {
    TextWriter file(tree.at(run.FileXYZ), xyzHeadLines);
    file.line("эксперимент № " + whole(s.NFile) + " для объекта № " + whole(fileBody(s)) + " из " +
              whole(s.NPlOn) + " от  " + today + " плоскость эклиптики в эпоху J2000    начало " +
              startDate(s));
    file.line("шаг решения " + toText(s.Dt) + " сек  уменьшен у перигелия в " + whole(s.kDt) + " раз  " +
              "   dAlfa= " + toText(run.dAlfa) + "   kodBary= " + whole(s.kodBary) + "   kodMoon=  " +
              whole(s.kodMoon) + "   kodDX=  " + whole(motion.kodDX) + "   kodPgr=  " + whole(motion.kodPgr));
    file.line(run.ModelName + "             VXsys=  " + toText(s.VXsys) + "   VYsys= " + toText(s.VYsys) +
              "   VZsys= " + toText(s.VZsys) + "    Vgr= " + gravitySpeedText(motion) + " Vsv " +
              "  k1= " + toText(motion.kPgr1) + "  k2= " + toText(motion.kPgr2));
    file.line(
        "время в секундах/1000000     X, Y, Z и Rpl в тыс. км     VX, VY, VZ и Vpl в м/с    "
        "энергия системы в Дж /10^30   момент количества движения в кг*м^2/с /10^30");
    run.claimXYZ.take(tree.at(run.FileXYZ), [&] { file.commit(); });
}

double continuousAngle(double theory, double measured) {
    const double t = kUgol * theory;
    double turns = Fix(t / 360);
    const double a = t - turns * 360;
    if (t > 0) {
        if (a > 300 && measured < 60) ++turns;
        if (a < 60 && measured > 300) --turns;
        return turns * 360 + measured;
    }
    if (t < 0) {
        if (a < -300 && measured > 300) --turns;
        if (a > -60 && measured < 60) ++turns;
        return (turns - 1) * 360 + measured;
    }
    return turns;
}

void WriteRasRecord(const DataTree& tree, ModelState& s, RunState& run) {
    const int i = s.kodMoon == 1 && s.IplSel == rowXena ? rowMoon : s.IplSel;
    s.JD = Fix(100 * run.Tmod / sekD) / 100 + s.JD0;
    s.Ipl = static_cast<std::int16_t>(i);
    ElementsJPL0(s);
    double perihelion = continuousAngle(s.AlfaP0[i], run.AlfaP);
    double node = continuousAngle(s.AlfaU0[i], run.AlfaU);
    double inclination = run.Betta;
    if (run.boxes.energy) {
        perihelion = ratio((run.Esys - run.E0sys) * 100, run.E0sys);
        node = ratio((run.MKDsys - run.MKD0sys) * 100, run.MKD0sys);
        inclination = ratio((run.EKsys - run.EK0sys) * 100, run.EK0sys) / kUgol;
        run.Eks = 0;
        s.Rr[s.IplSel] = 0;
        run.Period = MK * MK * MK * MK * MK;
    }
    run.claimRas.take(tree.at(run.FileRas));
    appendLine(tree.at(run.FileRas),
               fileItem(run.NZamer) + fileItem(Fix(100 * run.Tmod / sekD)) +
                   fileItem(Fix(perihelion * 100 * MK)) + fileItem(Fix(node * 100 * MK)) +
                   fileItem(Fix(kUgol * inclination * 100 * MK)) + fileItem(Fix(run.Eks * 100 * MK)) +
                   fileItem(Fix(s.Rr[s.IplSel] / 10)) +
                   fileItem(Fix(ratio((100 * MK + 100 * MK) * Pi * 36525, run.Period))));
}

void WriteXYZRecord(const DataTree& tree, const ModelState& s, RunState& run) {
    constexpr std::string_view wide = "000000000.000", narrow = "0000000.000";
    const int i = s.IplSel;
    const double scale = MK * MK * MK * MK * MK;
    run.claimXYZ.take(tree.at(run.FileXYZ));
    appendLine(tree.at(run.FileXYZ),
               Format(s.DenR, "00.000") + "." + Format(s.MesR, "00") + "." + Format(s.GodR, "0000") +
                   "____T= " + Format(run.Tmod / MK, wide) + "____X= " + Format(s.X[i] / MK, wide) +
                   "____Y= " + Format(s.Y[i] / MK, wide) + "____Z= " + Format(s.Z[i] / MK, wide) +
                   "____Rpl= " + Format(s.Rcur / MK, wide) + "____VX= " + Format(s.VX[i], narrow) +
                   "____VY= " + Format(s.VY[i], narrow) + "____VZ= " + Format(s.VZ[i], narrow) +
                   "____Vpl= " + Format(run.Vpl, narrow) + "____Esys= " + Format(run.Esys / scale, wide) +
                   "____MKDsys= " + Format(run.MKDsys / scale, wide));
}

std::string gravitySpeedText(const Motion& motion) {
    return toText(Fix(motion.kodVgr * 100 * motion.Vgr / Vsv) / 100);
}

std::string todayText() {
    const std::time_t now = std::time(nullptr);
    std::tm day{};
    localtime_r(&now, &day);
    return fmt::format("{:02}.{:02}.{}", day.tm_mday, day.tm_mon + 1, day.tm_year + 1900);
}

}  // namespace tarvex
