#include "stats/test_plan.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/data_tree.h"
#include "core/text_files.h"

namespace tarvex {

namespace {
void needExperiment(int u) {
    if (u < 1 || u > maxPoints) throw SubscriptFailure("нет эксперимента № " + std::to_string(u));
}
}  // namespace

double testCriterion(const PlanBlock& p, int u, double km5, double km2) {
    needExperiment(u);
    const double target[] = {0, 100, 100, 100, 100, 1, km5, km2};
    double linear = 0, squared = 0;
    for (int i = 1; i <= 7; ++i) {
        const double away = ratio(p.XU[i][u] - target[i], target[i]);
        linear += std::abs(p.XU[i][u] - target[i]) / target[i];
        squared += away * away;
    }
    return linear + squared;
}

std::vector<std::string> testPlanHead(const PlanBlock& p, bool roto) {
    std::vector<std::string> lines = {"эксперименты выполненные на форме 2 по тесту для  " + toText(p.Nf) +
                                          " факторного   " + (roto ? "Roto" : "Orto") + "   плана ",
                                      fileItem(p.Nf) + fileItem(p.Nplan) + fileItem(0)};
    for (int i = 1; i <= p.Nf; ++i)
        lines.push_back(fileItem(Fix(MK * p.Xnul[i])) + fileItem(Fix(MK * p.dXvar[i])));
    lines.emplace_back("   ");
    return lines;
}

void writeTestPlanHead(const DataTree& tree, const PlanBlock& p, bool roto) {
    const std::vector<std::string> head = testPlanHead(p, roto);
    TextWriter file(tree.at(files::testPlan(p.Nf)), static_cast<int>(head.size()));
    for (const std::string& line : head) file.line(line);
    file.commit();
}

void appendTestExperiment(const DataTree& tree, const PlanBlock& p, int u, double y) {
    appendLine(tree.at(files::testPlan(p.Nf)), fileItem(u) + fileItem(Fix(MK * y)));
}

bool readTestPlan(const DataTree& tree, PlanBlock& p) {
    TextReader file(tree.at(files::testPlan(p.Nf)));
    file.line();
    if (file.int16() != p.Nf || file.int16() != p.Nplan) return false;
    const double Yopt = file.number() / MK;
    auto Xnul = p.Xnul;
    auto dXvar = p.dXvar;
    auto Yu = p.Yu;
    for (int i = 1; i <= p.Nf; ++i) {
        Xnul[i] = file.number() / MK;
        dXvar[i] = file.number() / MK;
    }
    for (int n = 1; n <= experiments(p); ++n) {
        const int u = file.int16();
        if (u < 1 || u > p.Nplan) throw FileFailure("эксперимент № " + std::to_string(u) + " вне плана");
        Yu[u] = file.number() / MK;
    }
    p.Yopt = Yopt;
    p.Xnul = Xnul;
    p.dXvar = dXvar;
    p.Yu = Yu;
    return true;
}

}  // namespace tarvex
