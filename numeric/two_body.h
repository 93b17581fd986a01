#pragma once
// Two bodies by themselves, a planet and the Sun or a binary pulsar, with the speed of gravity, a force along
// the velocity and a drag near the periastron; the orbit of m1 is measured on the way.
//
// m1 and m2 stand in rows of their own meaning, rowM1 and rowM2 with the masses cellMass1 and cellMass2;
// rowCentre is their centre of mass.

#include "numeric/pair_orbit.h"

namespace tarvex {

inline constexpr int rowM1 = 11, rowM2 = rowPairCentre;
inline constexpr int cellMass1 = 11, cellMass2 = 13;  ///< of m and km: kg, and Suns

/// m1 is the body whose orbit about m2 is measured; cells of U: m2, m1, their velocities.
struct TwoBody : PairOrbit {
    TwoBody() { Dt = DtCur = 60, kDt = NC0 = 100; }

    enum class Ft { ByRetardation, ByFormula, Given };  ///< how the force along the velocity arises

    // --- what acts; may be changed between batches
    bool withVgr = false;  ///< the effect of the speed of gravity is on
    Ft source = Ft::ByRetardation;
    double FtGiven = 0;           ///< N, of Ft::Given
    bool byOtherSpeed = false;    ///< Ft by the speed of the other body
    bool alsoOnM2 = false;        ///< Ft acts on m2 as well
    double Vgr = Vsv;             ///< m/s
    double kSopr = 0;             ///< drag / V^2, kg/m
    double dAlfaSopr = 60;        ///< half-width of the drag around the periastron, degrees
    bool fromNode = false;        ///< kodNachalo: delays count from the node, not from the periastron
    double dTvSr = 0, dTmSr = 0;  ///< mean rates of the delays, s/s, taken off

    // --- integration
    double drag = 0;          ///< kSopr while the longitude is in the drag window, else 0
    double Ft1 = 0, Fik = 0;  ///< force along the velocity of m1 and attraction at the last stage, N

    // --- measurement
    double Rcur = 0;                     ///< distance from the origin row, m
    double distance = 0, R0 = 0;         ///< of the two bodies now and at the start, m
    double V1 = 0, V2 = 0;               ///< speeds, m/s
    double VYmin = Vsv, VYmax = -Vsv;    ///< extremes of VY of m1 since the last periastron, m/s
    double Rem_min = MK, Rem_max = -MK;  ///< extremes of the Roemer delay, s
    double Tper0 = 0, Period = 0;        ///< s
    double AlfaPnach = 0, AlfaUnach = 0, BettaNach = 0, EksNach = 0, RsrNach = 0,
           PeriodNach = 0;          ///< baselines
    double DragHi = 0, DragLo = 0;  ///< longitudes at which the drag acts, degrees
    double dTv = 0, dTm = 0;        ///< delays by the speed and by the mass of m2, s
    double Tcount = 0;              ///< when the counting of the delays began, s
    double E0sys = 0, Esys = 0, MKD0sys = 0, MKDsys = 0;
};

/// What a form shows while the run goes on.
class TwoBodyPort {
public:
    virtual ~TwoBodyPort() = default;
    virtual void periodMeasured() {}  ///< a wrap of the longitude with NZamer > 0
    virtual void nodePassed() {}
    virtual void periastronPassed() {}  ///< before the extremes are reset
    virtual void stepDone() {}
};

/// Prepares a run from rows rowM1 and rowM2 (system velocity added) and the elements of rowM1.
/// @param b  what acts, Dt, kDt, NC0, dAlfa, exact and origin are given
/// @throws ArithmeticFailure when the bodies coincide or a divisor is zero
void startTwoBody(ModelState& s, TwoBody& b);

/// Right-hand side on U into dU: Newton's law between the places where the pulls left (withVgr), the force Ft
/// along the velocity, and the drag kSopr V^2; leaves Ft1 and Fik, N.
void TwoBodyDiffur(ModelState& s, TwoBody& b);

/// NC0 steps with their measurement, then the energy, J, and the moment of momentum, kg m^2/s.
/// @throws ArithmeticFailure for a Vgr of 0, a step that is no number, an m1 as fast as light; the state is
/// that of
///         the last good step
void runTwoBodyBatch(ModelState& s, TwoBody& b, TwoBodyPort& port);

/// Takes the baselines of the differences anew.
void takeBaselines(const ModelState& s, TwoBody& b);

/// Centre of mass of the two into rowCentre.
void twoBodyCentre(ModelState& s);

/// Rows of both bodies from the elements of rowM1: relative orbit about m2 with the velocities about the
/// common centre (CentralMass::Pair), or both about the common centre (CentralMass::AboutCentre); copied into
/// the initial rows.
void twoBodyInitialData(ModelState& s);

}  // namespace tarvex
