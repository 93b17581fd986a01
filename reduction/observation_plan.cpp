#include "reduction/observation_plan.h"

#include <array>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "core/text_files.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

constexpr int factors = 9, factorLongitude = 7;
constexpr double km = 1000, fine = 1000 * MK;  ///< scales of the file
constexpr std::array<double, factors + 1> templateIntervals = {0,   10 * MK, 0.0001, 0.01, 0.1,
                                                               0.1, 0.001,   0.01,   0.1,  0.1};
constexpr double moonPerihelion = 4069.037111 / kUgol, moonNode = -1934.136185 / kUgol;  ///< rad a century

std::string scaled(double value, double scale) { return fileItem(Fix(value * scale)); }

/// Plans of numbered files may be links; a typed text in the name must not lead out of the folder.
std::filesystem::path planPath(const DataTree& tree, const std::string& name) {
    const std::string numbers = std::filesystem::path(tree.at(name)).stem().string();
    return numbers.find_first_not_of("0123456789_") == std::string::npos ? tree.at(name) : tree.typed(name);
}

}  // namespace

void planTemplate(ModelState& s, ReductionState& r, PlanBlock& plan, bool epochJ2000) {
    needSelectedBody(s);
    const RunInputsKept kept(s);
    const int body = planetOfPlan(s.IplSel);
    r.dP11 = body == rowMoon ? moonPerihelion : 0;
    r.dU11 = body == rowMoon ? moonNode : 0;
    s.Ipl = static_cast<std::int16_t>(body);
    if (epochJ2000) {
        ElementsJPL0(s);
        if (body == rowMoon) {
            PrecessMoonToDate(s);
            r.dP11 -= 5029.0 / 3600 / kUgol;
            r.dU11 -= 5029.0 / 3600 / kUgol;
        }
    } else {
        ElementsNew0(s);
    }
    plan.Xnul[1] = s.R0sr[body];
    plan.Xnul[2] = s.Eks0[body];
    plan.Xnul[3] = kUgol * s.Betta0[body];
    plan.Xnul[4] = kUgol * s.AlfaP0[body];
    plan.Xnul[5] = kUgol * s.AlfaU0[body];
    plan.Xnul[6] = 100 * s.W0sr[body] * sekG;
    plan.Xnul[7] = kUgol * s.AlfaL[body];
    plan.Xnul[8] = r.dP11;
    plan.Xnul[9] = r.dU11;
    for (int i = 1; i <= factors; ++i) {
        plan.dXvar[i] = templateIntervals[i];
        plan.Xopt[i] = 0;
        plan.XoptR[i] = plan.Xnul[i];
    }
    plan.Xnul[10] = 1;
    r.velocity.set(s, {});
    r.PrecSek = 5029;
}

std::string planTestFileName(const ModelState& s, int body, const std::string& file, std::int32_t NOpyt) {
    return "\\" + s.TipData + "\\Plan" + std::to_string(s.NPlan) + "\\" + std::to_string(body) +
           (file.empty() ? "" : "_" + file) + "_" + std::to_string(NOpyt) + ".dat";
}

void savePlanTest(ModelState& s, ReductionState& r, PlanBlock& plan, const DataTree& tree,
                  const std::string& name, std::int32_t NOpyt, const PlanFileWords& words) {
    TextWriter file(planPath(tree, name));
    file.line("план № " + std::to_string(s.NPlan) + " опыт № " + std::to_string(NOpyt) + " по планете № " +
              std::to_string(s.IplSel) + " для " + s.NameData + " в эпохе " +
              (words.epochJ2000 ? "J2000" : "JD") + " по " + (words.rootMeanSquare ? "Sigma" : "") +
              (words.byDistance ? "R" : "L") + " от " + words.today);
    file.line("Начальная дата оптимизации и год окончания");
    file.items(Fix(s.Den0 * MK), s.Mes0, s.God0, r.GodK, Fix(s.JDut * MK));
    file.line("Нулевые уровни и интервалы варьирования параметров и оптимальные значения");
    file.line(fileItem(1) + fileItem(plan.Xnul[1] / km) + fileItem(plan.dXvar[1] / km) +
              scaled(plan.Xopt[1], MK) + fileItem(plan.XoptR[1] / km));
    plan.Xnul[factorLongitude] /= 1000;
    for (int i = 2; i <= factors; ++i)
        file.line(fileItem(i) + scaled(plan.Xnul[i], fine) + scaled(plan.dXvar[i], MK) +
                  scaled(plan.Xopt[i], MK) + scaled(plan.XoptR[i], MK));
    file.line("Скорость Солнечной системы по осям X Y Z и прецессия и вес ");
    const ToolVelocity::Value V = r.velocity.of(s);
    file.items(Fix(V.X * 1000), Fix(V.Y * 1000), Fix(V.Z * 1000), Fix(r.PrecSek * MK),
               Fix(plan.Xnul[10] * MK));
    file.line("№ эксперимента  закодированные уровни и экспериментальное и расчетное значение критерия");
    for (int u = 1; u <= plan.Nplan; ++u) {
        std::string line = std::to_string(u) + "    ";
        for (int f = 1; f <= plan.Nf; ++f) line += toText(Fix(plan.PlanX[f][u] * 1000)) + "       ";
        file.line(line + scaled(plan.Yu[u], MK) + scaled(plan.Yras[u], MK));
    }
    file.line(
        "№ коэффициента и его значение для закодированного уравнения регрессии и экспериментальный критерий "
        "без "
        "поправок= " +
        toText(Fix(words.criterion * MK)));
    for (int i = 0; i <= maxColumns; ++i) file.line(fileItem(i) + scaled(plan.b[i], MK));
    file.commit();
}

void loadPlanTest(ModelState& s, ReductionState& r, PlanBlock& plan, const DataTree& tree,
                  const std::string& name) {
    TextReader file(planPath(tree, name));
    file.line();
    file.line();
    const double Den0 = file.number() / MK;
    const std::int32_t Mes0 = file.int32(), God0 = file.int32(), GodK = file.int32();
    const double JDut = file.number() / MK;
    file.line();  // the rest of the line of dates
    file.line();
    std::array<std::array<double, 4>, factors + 1> row{};
    for (int i = 1; i <= factors; ++i) {
        if (file.int32() != i) throw FileFailure("нет фактора " + std::to_string(i) + " в файле " + name);
        for (double& value : row[i]) value = file.number();
    }
    for (const int c : {0, 1, 3}) finite(row[1][c] * km);
    file.line();
    file.line();
    std::array<double, 5> last{};
    for (double& value : last) value = file.number();

    s.Den0 = Den0, s.Mes0 = Mes0, s.God0 = God0, s.JDut = JDut;
    r.GodK = GodK;
    for (int i = 1; i <= factors; ++i) {
        const bool first = i == 1;
        plan.Xnul[i] = first ? row[i][0] * km : row[i][0] / (i == factorLongitude ? MK : fine);
        plan.dXvar[i] = first ? row[i][1] * km : row[i][1] / MK;
        plan.Xopt[i] = row[i][2] / MK;
        plan.XoptR[i] = first ? row[i][3] * km : row[i][3] / MK;
    }
    r.velocity.set(s, {last[0] / 1000, last[1] / 1000, last[2] / 1000});
    r.PrecSek = last[3] / MK;
    plan.Xnul[10] = last[4] / MK;
}

}  // namespace tarvex
