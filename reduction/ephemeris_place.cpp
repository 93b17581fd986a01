#include "reduction/ephemeris_place.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "reduction/coordinate_chain.h"
#include "reduction/sky.h"

namespace tarvex {

namespace {

/// Closes the ephemeris file however the work ends.
struct Closing {
    Ephemeris& e;
    ~Closing() { DEClose(e); }
};

}  // namespace

int ephemerisPlace(ModelState& s, Ephemeris& e, std::int32_t body, const EphemerisFrame& frame) {
    {
        const Closing closing{e};
        DEOpen(s, e);
        DEEvaluate(s, e, rowSun, 0);
        DEEvaluate(s, e, toInt16(body), 0);
    }
    s.IplSel = body;  // only a body that the ephemeris knows
    const int i = body;
    if (frame.heliocentric)
        for (Rows* row : {&s.X, &s.Y, &s.Z, &s.VX, &s.VY, &s.VZ}) (*row)[i] -= (*row)[rowSun];
    const double T0 = 0, T = sky::centuries(s.JD);
    PrecessMatrixEqu(s, T0, T);
    if (frame.ecliptic) {
        PrecessMatrixEcl(s, T0, T);
        const sky::Obliquity J2000{AlfaEclip, std::cos(AlfaEclip), std::sin(AlfaEclip)};
        setPlace(s, i, sky::toEcliptic(placeOf(s, i), J2000));
        setVelocity(s, i, sky::toEcliptic(velocityOf(s, i), J2000));
    }
    if (frame.ofDate) {
        s.Ipl = static_cast<std::int16_t>(i);
        ApplyPrecessXYZ(s);
        ApplyPrecessVXYZ(s);
    }
    if (frame.metres) {
        for (Rows* row : {&s.X, &s.Y, &s.Z}) (*row)[i] = finite((*row)[i] * s.Lae);
        s.VX[i] = finite(s.Lae * s.VX.at(s.Ipl) / sekD);
        s.VY[i] = finite(s.Lae * s.VY[i] / sekD);
        s.VZ[i] = finite(s.Lae * s.VZ[i] / sekD);
    }
    return s.Ipl;
}

}  // namespace tarvex
