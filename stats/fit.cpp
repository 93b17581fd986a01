#include "stats/fit.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "stats/stat.h"

namespace tarvex {

void formGroups(const SeriesData& d, const FitSettings& settings, int NCP, FitResult& out) {
    if (NCP < 1) throw SubscriptFailure("записей в группе должно быть больше 0: " + std::to_string(NCP));
    d.at(settings.first);
    d.at(settings.last);
    const int p = d.Nparam;
    const bool isLong = d.kodData == dataLong;
    // such a value belongs to the moment of its record, not to the middle of an interval
    const bool instant = p == parAlfaL0 || (d.Npl == rowMoon && (p == parAlfaP || p == parAlfaU));
    out.groups.clear();
    double weights = 0, largest = 0;
    const int count = settings.size() / NCP;
    for (int g = 0; g < count; ++g) {
        const Record* from = &d.records[settings.first - 1 + g * NCP];
        const Record& last = from[NCP - 1];
        Group group;
        for (int i = 0; i < NCP; ++i) group.Y += from[i].Par[p];
        group.Y /= NCP;
        if (isLong) {  // time and weight of the group's last record: such data come in groups of one
            group.T = (d.JD0 + last.dTd + (instant ? 0 : last.ddTd / 2) - settings.T0) / 36525;
            group.W = settings.unitWeights ? 1 : last.Par[parVes];
        } else {
            group.T = (d.JD0 + (last.dTd + from->dTd) / 2 - settings.T0) / 36525;
        }
        weights += group.W;
        largest = std::max(largest, group.W);
        out.groups.push_back(group);
    }
    out.VesMax = largest;
    out.VesSum = ratio(weights, largest);
    for (Group& group : out.groups) group.W /= largest;
}

void fitGroups(Equation equation, FitResult& fit) {
    double S1 = 0, S2 = 0, S3 = 0, S4 = 0, Sy = 0, Sty = 0, St2y = 0;
    const double S0 = fit.VesSum;
    for (const Group& g : fit.groups) {
        const double wt = g.W * g.T, wt2 = wt * g.T;
        S1 += wt;
        S2 += wt2;
        S3 += wt2 * g.T;
        S4 += wt2 * g.T * g.T;
        Sy += g.W * g.Y;
        Sty += wt * g.Y;
        St2y += wt2 * g.Y;
    }
    fit.b = {};
    switch (equation) {
        case Equation::Constant:
            fit.b[0] = ratio(Sy, S0);
            break;
        case Equation::Line: {
            const double a = -ratio(S2, S1);
            fit.b[0] = ratio(a * Sy + Sty, a * S0 + S1);
            fit.b[1] = ratio(Sty - S1 * fit.b[0], S2);
            break;
        }
        case Equation::Parabola: {
            Elimination e;  // cells of its own: the plan's optimum stays as it is
            e.kLevel = 3;
            e.kSys[3][1] = {-Sy, S0, S1, S2};
            e.kSys[3][2] = {-Sty, S1, S2, S3};
            e.kSys[3][3] = {-St2y, S2, S3, S4};
            SolveOptimum3(e);
            fit.b = {e.Xopt[1], e.Xopt[2], e.Xopt[3]};
            break;
        }
    }
    double sum = 0;
    for (const Group& g : fit.groups) {
        const double residual = (g.Y - fit.at(g.T)) * g.W;  // the weight enters squared, unlike above
        sum += residual * residual;
    }
    fit.Sigma = root(ratio(sum, static_cast<double>(fit.groups.size()) - static_cast<int>(equation)));
}

ShiftUnit shiftUnit(int Nparam) {
    switch (Nparam) {
        case parAlfaP:
        case parAlfaU:
        case parBetta:
            return {"угл.сек.", 3600};
        case parEks:
            return {"* 10^6", MK};
        case parRsr:
            return {"км", MK};
        case parW:
            return {"рад/век", 1};
        case parAlfaL0:
            return {"град", 1};
        default:
            return {nullptr, 0};
    }
}

double shiftAt(Equation equation, const FitResult& fit, double D) {
    if (equation == Equation::Constant) return 0;
    return equation == Equation::Line ? fit.b[1] : fit.b[1] + 2 * fit.b[2] * D;
}

GroupSearch searchGroups(const std::vector<double>& dYgr, const std::vector<double>& Sigma2gr, int first,
                         int last) {
    GroupSearch found;
    double smallest = MK * MK;
    for (int s = first; s <= last; ++s) {
        if (Sigma2gr[s] < smallest) {
            smallest = Sigma2gr[s];
            found.best = s;
        }
        found.mean.shift += dYgr[s];
        found.mean.limit += Sigma2gr[s];
    }
    if (found.best == 0) throw ArithmeticFailure("предел ошибки не мал ни при одном размере группы");
    found.mean.shift /= last - first + 1;
    found.mean.limit /= last - first + 1;
    found.min = {dYgr[found.best], Sigma2gr[found.best]};

    double Hi = found.min.shift + found.min.limit, Lo = found.min.shift - found.min.limit;
    int broken = first - 1;
    for (int s = first; s <= last; ++s) {
        const double lower = dYgr[s] - Sigma2gr[s], upper = dYgr[s] + Sigma2gr[s];
        if (lower > Hi) {
            found.band.push_back({broken, s, Hi, Lo, true});
            broken = s;
            Hi = lower;
        }
        if (upper < Lo) {
            found.band.push_back({broken, s, Hi, Lo, false});
            broken = s;
            Lo = upper;
        }
    }
    found.band.push_back({first - 1, last, Hi, Lo, false});
    found.maxmin = {(Lo + Hi) / 2, (Hi - Lo) / 2};
    return found;
}

}  // namespace tarvex
