#include "stats/plan_block.h"

#include "core/failure.h"
#include "core/name_table.h"

namespace tarvex {

std::array<std::array<std::string, 7>, 7> signStrings() {
    constexpr std::array<int, 7> tail = {0, 0, 12, 10, 10, 10, 15};
    std::array<std::array<std::string, 7>, 7> strings;
    for (int Nf = 2; Nf <= maxFactors; ++Nf)
        for (int i = 1; i <= Nf; ++i) {
            std::string& column = strings[Nf][i];
            for (int u = 0; u < 1 << Nf; ++u) column += (u >> (Nf - i) & 1) == 0 ? "+1" : "-1";
            for (int star = 1; star <= Nf; ++star) column += star == i ? "+1-1" : "+0+0";
            for (int zero = 0; zero < tail[Nf]; ++zero) column += "+0";
        }
    return strings;
}

int experiments(const PlanBlock& p) {
    if (p.Nplan < 1 || p.Nplan > maxPoints) throw SubscriptFailure("план не создан");
    return p.Nplan;
}

void addNames(NameTable& table, const PlanBlock& p) {
#define NAME(variable) table.add(#variable, p.variable)
    NAME(kodPlan);
    NAME(Nf);
    NAME(Nyadro);
    NAME(Nzvezd);
    NAME(N0);
    NAME(Npar);
    NAME(Nplan);
    NAME(Plecho);
    NAME(Xi2sr);
    NAME(la2);
    NAME(la4);
    NAME(la4z);
    NAME(FactSign);
    NAME(PlanKod);
    NAME(PlanX);
    NAME(EXi);
    NAME(EXi2);
    NAME(EXi4);
    NAME(Yu);
    NAME(Yras);
    NAME(b);
    NAME(Nexp);
    NAME(NexpKon);
    NAME(Yopt);
    NAME(Ymin);
    NAME(Ymax);
    NAME(Mcrit);
    NAME(Stroka);
    NAME(kSys);
    NAME(kLevel);
    NAME(Xopt);
    NAME(TestText);
    NAME(Nfact);
    NAME(Xnul);
    NAME(dXvar);
    NAME(XoptR);
    NAME(XU);
#undef NAME
    for (int i = 1; i <= 7; ++i) table.add("k" + std::to_string(i), p.k[i]);
    table.add("Xplan", p.X);
    table.add("Zplan", p.Z);
}

}  // namespace tarvex
