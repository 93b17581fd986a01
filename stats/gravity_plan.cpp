#include "stats/gravity_plan.h"

#include <cmath>

#include "core/arithmetic.h"
#include "stats/plan_file.h"
#include "stats/stat.h"

namespace tarvex {

void createGravityPlan(PlanBlock& p, PlanKind kind, const std::vector<int>& factors) {
    p.kodPlan = kind;
    p.Nf = 0;
    for (const int factor : factors) p.Nfact[++p.Nf] = static_cast<std::int16_t>(factor);
    if (p.Nf < 2 || p.Nf > maxFactors) throw Refusal("К-во факторов должно быть от 2 до 6", "Tarvex7m");
    PlanCenterCount(p);
    BuildPlan(p);
    PlanCoefficients(p);
}

void setNaturalLevels(PlanBlock& p) {
    for (int u = 1, last = experiments(p); u <= last; ++u) {
        for (int i = 1; i <= gravityFactors; ++i) p.XU[i][u] = p.Xnul[i];
        for (int i = 1; i <= p.Nf; ++i) {
            const int factor = p.Nfact[i];
            p.XU[factor][u] = finite(p.PlanX[i][u] * p.dXvar[factor] + p.Xnul[factor]);
        }
    }
}

double shiftCriterion(const ShiftTables& t, const std::vector<int>& planets, const std::vector<int>& params,
                      int u, CriterionForm form) {
    double sum = 0;
    for (const int planet : planets)
        for (const int c : params) {
            const double W = t.Ves[planet][c], D = t.dRas[planet][c][u], O = t.dNab[planet][c];
            switch (form) {
                case CriterionForm::Y:
                    sum += W * D / 100;
                    break;
                case CriterionForm::dY:
                    sum += ratio((D - O) * W, std::abs(O)) / 100;
                    break;
                case CriterionForm::dY2: {
                    const double term = ratio((D - O) * W, O) / 100;
                    sum += term * term;
                    break;
                }
                case CriterionForm::AbsDY:
                    sum += std::abs(ratio(D - O, O)) * W / 100;
                    break;
            }
        }
    return finite(sum);
}

void codedTest(PlanBlock& p, CriterionForm form) {
    for (int u = 1, last = experiments(p); u <= last; ++u)
        p.Yu[u] = pointCriterion(p, evaluatePoint(p, u), form, true, false);
}

}  // namespace tarvex
