#include "stats/plan_file.h"

#include "core/constants.h"
#include "core/data_tree.h"
#include "core/failure.h"
#include "core/text_files.h"

namespace tarvex {

namespace {

constexpr std::string_view addedHead = "добавленные точки плана: число, факторов; уровни";

std::vector<std::vector<double>> readAdded(TextReader& file) {
    std::string head;
    if (file.lineUsedUp()) file.line(head);
    if (!file.line(head) || !head.starts_with(addedHead))
        return {};  // whatever else stands there is no matter
    const int count = file.int16(), factors = file.int16();
    if (count < 1 || count > maxPoints || factors < 1 || factors > maxFactors)
        throw FileFailure("добавленных точек " + std::to_string(count) + " по " + std::to_string(factors));
    std::vector<std::vector<double>> points(static_cast<std::size_t>(count));
    for (auto& point : points)
        for (int i = 0; i < factors; ++i) point.push_back(file.number());
    return points;
}

void writeAdded(TextWriter& file, const std::vector<std::vector<double>>& points) {
    if (points.empty()) return;
    file.line(std::string(addedHead));
    file.items(points.size(), points.front().size());
    for (const auto& point : points) {
        std::string line;
        for (const double code : point) line += fileItem(code);
        file.line(line);
    }
}

}  // namespace

PlanFileHead PlanFileHead::of(int N, bool roto, int Nf) {
    return {"Уровни варьирования плана № " + toText(N),
            (roto ? "Roto" : "Orto") + std::string(" - для  ") + toText(Nf) + "  факторов ",
            "весовые коэффициенты смещений параметров орбит планет",
            {}};
}

PlanFileHead readPlanFile(const DataTree& tree, int N, PlanBlock& p, ShiftTables& t) {
    TextReader file(tree.at(files::plan(N)));
    PlanFileHead head;
    head.levels = file.line();
    head.kind = file.line();
    auto Xnul = p.Xnul;
    auto dXvar = p.dXvar, Xopt = p.Xopt, XoptR = p.XoptR;
    for (int i = 1; i <= gravityFactors; ++i) {
        Xnul[i] = file.number() / MK;
        dXvar[i] = file.number() / MK;
        Xopt[i] = file.number() / MK;
        XoptR[i] = file.number() / MK;
    }
    file.line();  // the rest of the last line of factors
    head.weights = file.line();
    ShiftTable Ves = t.Ves;
    for (int i = 1; i <= weightPlanets; ++i)
        for (int c = 1; c <= shiftParams; ++c) Ves[i][c] = file.number();
    head.added = readAdded(file);
    p.Xnul = Xnul;
    p.dXvar = dXvar;
    p.Xopt = Xopt;
    p.XoptR = XoptR;
    t.Ves = Ves;
    return head;
}

void writePlanFile(const DataTree& tree, int N, const PlanFileHead& head, const PlanBlock& p,
                   const ShiftTables& t) {
    TextWriter file(tree.at(files::plan(N)));
    file.line(head.levels);
    file.line(head.kind);
    for (int i = 1; i <= gravityFactors; ++i)
        file.items(Fix(MK * p.Xnul[i]), Fix(MK * p.dXvar[i]), Fix(MK * p.Xopt[i]), Fix(MK * p.XoptR[i]));
    file.line(head.weights);
    for (int i = 1; i <= weightPlanets; ++i) {
        const ShiftRow& w = t.Ves[i];
        file.items(w[1], w[2], w[3], w[4], w[5], w[6]);
    }
    writeAdded(file, head.added);
    file.commit();
}

}  // namespace tarvex
