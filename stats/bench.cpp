#include "stats/bench.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/constants.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

/// The additional tests; x1..x4 natural values.
struct Test {
    double Yopt;
    double (*value)(int u, double x1, double x2, double x3, double x4);
};
constexpr Test tests[] = {
    {10, [](int u, double, double, double, double) { return static_cast<double>(u); }},
    {2, [](int, double a, double, double, double) { return a + a * a; }},
    {4, [](int, double a, double b, double c, double d) { return a + b + c + d; }},
    {1, [](int, double a, double b, double c, double d) { return a * b * c * d; }},
    {1, [](int, double a, double b, double c, double d) { return a * b * c / (d * d); }},
    {6, [](int, double a, double b, double c,
           double d) { return a * b + a * c + a * d + b * c + b * d + c * d; }},
    {1, [](int, double a, double b, double, double) { return a * a * b * b; }},
    {4, [](int, double a, double b, double c, double d) { return a * a + b * b + c * c + d * d; }},
    {8, [](int, double a, double b, double c,
           double d) { return a + b + c + d + a * d + b * d + c * d + d * d; }},
};
constexpr int dividingTest = 5;

}  // namespace

void runStandardTest(PlanBlock& p) {
    p.b.fill(1);
    for (int u = 1, last = experiments(p); u <= last; ++u) {
        for (int i = 1; i <= p.Nf; ++i) {
            p.X[i] = finite(p.dXvar[i] * p.PlanX[i][u] + p.Xnul[i]);
            p.XU[i][u] = p.PlanX[i][u];
        }
        p.Nexp = static_cast<std::int16_t>(u);
        EvalRegression(p);
        p.Yu[u] = p.Z[u];
    }
}

void runAdditionalTest(PlanBlock& p, int test) {
    const Test& chosen = tests[test - 1];
    p.b.fill(1);
    for (int u = 1, last = experiments(p); u <= last; ++u) {
        for (int i = 1; i <= p.Nf; ++i) p.XU[i][u] = finite(p.dXvar[i] * p.PlanX[i][u] + p.Xnul[i]);
        if (test == dividingTest && p.XU[4][u] == 0)
            throw Refusal("Деление на ноль в эксперименте  " + std::to_string(u), "Tarvex7m");
        p.Yu[u] = finite(chosen.value(u, p.XU[1][u], p.XU[2][u], p.XU[3][u], p.XU[4][u]));
        p.Yopt = chosen.Yopt;
    }
}

void findExtremes(PlanBlock& p) {
    p.Ymin = MK * MK;
    p.Ymax = -MK;
    for (int u = 1, last = experiments(p); u <= last; ++u) {
        if (p.Yu[u] < p.Ymin) p.Ymin = p.Yu[u];
        if (p.Yu[u] > p.Ymax) p.Ymax = p.Yu[u];
    }
    p.Mcrit = finite((p.Ymax - p.Ymin) / 10);
}

void takeCriterion(PlanBlock& p, CriterionForm form, bool relative) {
    const double D = p.Yu[99] = relative ? p.Yopt : 1;
    for (int u = 1, last = experiments(p); u <= last; ++u) {
        const double away = p.Yu[u] - p.Yopt;
        switch (form) {
            case CriterionForm::Y:
                p.Yu[u] = ratio(p.Yu[u], D);
                break;
            case CriterionForm::dY:
                p.Yu[u] = ratio(away, D);
                break;
            case CriterionForm::dY2:
                p.Yu[u] = ratio(away * away, D);
                break;  // D stays outside the square
            case CriterionForm::AbsDY:
                p.Yu[u] = ratio(std::abs(away), D);
                break;
        }
    }
    findExtremes(p);
}

double pointCriterion(const PlanBlock& p, double y, CriterionForm form, bool relative, bool outside) {
    const double D = relative ? p.Yopt : 1, away = y - p.Yopt;
    switch (form) {
        case CriterionForm::Y:
            return y;  // no division here
        case CriterionForm::dY:
            return ratio(away, std::abs(D));
        case CriterionForm::dY2:
            return finite(ratio(away, D) * ratio(away, D));
        case CriterionForm::AbsDY:
            return outside ? ratio(std::abs(away), D) : std::abs(ratio(away, D));
    }
    return y;
}

double evaluatePoint(PlanBlock& p, int u) {
    for (int i = 1; i <= p.Nf; ++i) p.X[i] = p.PlanX[i][u];
    p.Nexp = static_cast<std::int16_t>(u);
    EvalRegression(p);
    return p.Z[u];
}

void evaluatePlan(PlanBlock& p) {
    for (int u = 1, last = experiments(p); u <= last; ++u) p.Yras[u] = evaluatePoint(p, u);
}

}  // namespace tarvex
