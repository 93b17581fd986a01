#include "reduction/observed_direction.h"

#include <cmath>
#include <memory>

#include "core/arithmetic.h"
#include "reduction/coordinate_chain.h"
#include "reduction/sky.h"

namespace tarvex {

namespace {

constexpr int savedEarth = 23;  ///< row of its J2000 copy

Vec3 unitVector(double L, double B) {
    const double l = L / kUgol, b = B / kUgol;
    return {std::cos(b) * std::cos(l), std::cos(b) * std::sin(l), std::sin(b)};
}

/// From the frame of the data, of their date, to the ecliptic of J2000.
Vec3 toJ2000(const ModelState& state, const Vec3& v, bool ecliptic) {
    const auto s = std::make_unique<ModelState>(state);
    const double T = sky::centuries(s->JDut0);
    s->Ipl = rowWork;
    s->X[rowWork] = v.x, s->Y[rowWork] = v.y, s->Z[rowWork] = v.z;
    if (!ecliptic) EquToEcl(*s, T);
    PrecessMatrixEcl(*s, T, 0);
    ApplyPrecessXYZ(*s);
    return {s->X[rowWork], s->Y[rowWork], s->Z[rowWork]};
}

}  // namespace

ObservedDirection observedDirection(const ModelState& s, const ReductionState& r) {
    const SkyPlace& theory = r.stage[stageJ2000];
    const Vec3 off = toJ2000(s, unitVector(r.Ln, r.Bn) - unitVector(r.Lt, r.Bt), r.choices.tables);
    const Vec3 seen = unitVector(theory.L, theory.B) + off;
    const double share = ratio(s.m[rowMoon], s.m[rowMoon] + s.m[rowEarth]);
    const Vec3 moon{s.X[rowMoon] - s.X[savedEarth], s.Y[rowMoon] - s.Y[savedEarth],
                    s.Z[rowMoon] - s.Z[savedEarth]};
    return {s.JDet, s.IplSel, ratio(1, length(seen)) * seen, -share * moon};
}

}  // namespace tarvex
