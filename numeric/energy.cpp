#include "numeric/energy.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/name_table.h"
#include "numeric/motion.h"

namespace tarvex {
namespace {

double distance(const ModelState& s, int i, int j) {
    const double dx = s.X[j] - s.X[i], dy = s.Y[j] - s.Y[i], dz = s.Z[j] - s.Z[i];
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

double kinetic(const ModelState& s, int last) {
    double sum = 0;
    for (int i = 0; i <= last; ++i)
        sum += s.kodPl[i] * s.m[i] * (s.VX[i] * s.VX[i] + s.VY[i] * s.VY[i] + s.VZ[i] * s.VZ[i]) / 2;
    return sum;
}

/// Potential energy of the planets among themselves.
double betweenPlanets(const ModelState& s, int last) {
    double sum = 0;
    for (int i = 1; i <= last; ++i)
        for (int j = 1; j <= last; ++j)
            if (i != j && s.kodPair[i][j] == 1)
                sum -= ratio(s.gamma * s.m[i] * s.m[j], distance(s, i, j)) / 2;
    return sum;
}

/// Moment about a row, of the bodies from first on.
double moment(const ModelState& s, int about, int first, int last) {
    double sum = 0;
    for (int i = first; i <= last; ++i)
        sum += s.kodPl[i] * s.m[i] *
               ((s.VY[i] - s.VY[about]) * (s.X[i] - s.X[about]) -
                (s.VX[i] - s.VX[about]) * (s.Y[i] - s.Y[about]));
    return sum;
}

}  // namespace

void formCentre(ModelState& s, double Msys, int last) {
    const auto mean = [&](const Rows& values) {
        double sum = 0;
        for (int i = 0; i <= last; ++i) sum += s.kodPl[i] * s.m[i] * values[i];
        return ratio(sum, Msys);
    };
    s.X[rowCentre] = mean(s.X);
    s.Y[rowCentre] = mean(s.Y);
    s.Z[rowCentre] = mean(s.Z);
    s.VX[rowCentre] = mean(s.VX);
    s.VY[rowCentre] = mean(s.VY);
    s.VZ[rowCentre] = mean(s.VZ);
}

void startEnergy(ModelState& s, const Motion& motion, Energy& energy, int last) {
    energy.Msys = 0;
    for (int i = 0; i <= last; ++i) energy.Msys += s.kodPl[i] * s.m[i];
    formCentre(s, energy.Msys, last);
    for (int i = 0; i < bodies; ++i) energy.Rsol0[i] = finite(distance(s, rowSun, i));
    energy.EK0sys = finite(kinetic(s, last));
    energy.E0sys = energy.EK0sys;
    energy.MKD0sys = finite(moment(s, rowSun, 1, last));
    if (motion.kodEpot == 1) {
        energy.E0sys += betweenPlanets(s, last);
        energy.MKD0sys = finite(moment(s, rowCentre, 0, last));
    }
    energy.EKsys = energy.EK0sys;
    energy.Esys = energy.E0sys;
    energy.MKDsys = energy.MKD0sys;
}

void measureEnergy(ModelState& s, const Motion& motion, Energy& energy, int last) {
    energy.EKsys = finite(kinetic(s, last));
    energy.MKDsys = finite(moment(s, rowSun, 1, last));
    double potential = 0;
    for (int i = 1; i <= last; ++i)
        if (s.kodPl[i] == 1)
            potential += s.gamma * s.m[rowSun] * s.m[i] *
                         (ratio(1, energy.Rsol0[i]) - ratio(1, distance(s, rowSun, i)));
    if (motion.kodEpot == 1) {
        potential += betweenPlanets(s, last);
        if (motion.kodCMnow == 1) formCentre(s, energy.Msys, last);
        energy.MKDsys = finite(moment(s, rowCentre, 0, last));
    }
    energy.Esys = finite(energy.EKsys + potential);
}

void addNames(NameTable& table, const Energy& energy) {
#define NAME(member) table.addMember(#member, energy.member);
#include "energy_names.inc"
#undef NAME
}

}  // namespace tarvex
