#pragma once
// The test bench of gravity: the retardation and the pressure of gravity between two chosen bodies, one
// iteration at a time.  Nothing is integrated.

#include <array>

#include "core/model_state.h"
#include "numeric/motion.h"

namespace tarvex {

struct GravityBench {
    int N1 = 0, N2 = 1;        ///< the two bodies
    double m1 = 0, m2 = 0;     ///< and their masses, kg, as benchPresent found them
    int NDiffur = 0;           ///< iterations made
    bool useTrace = false;     ///< the pull comes from the trace of a body, by kodDX
    bool usePressure = false;  ///< and is changed by the law of pressure

    /// Between the present positions.
    struct Present {
        double L = 0, T = 0, F = 0;     ///< m, s, N; the same both ways
        double FX = 0, FY = 0, FZ = 0;  ///< sizes of the projections, N
    } present;

    /// Action of body i on body k.
    struct Action {
        double DX = 0, DY = 0, DZ = 0;  ///< from the trace of i to k, m
        double L = 0, T = 0;            ///< m, s
        double Alfa = 0, Betta = 0;     ///< direction, rad: longitude in its quadrant, latitude
        double dAlfaVX1 = 0, dAlfaVY1 = 0, dBettaVZ1 = 0;  ///< angles of the velocity of i with the line, rad
        double dAlfaVX2 = 0, dAlfaVY2 = 0, dBettaVZ2 = 0;  ///< of k
        double dV1 = 0, dV2 = 0;                           ///< projections of the velocities on the line, m/s
        double VX = 0, VY = 0, VZ = 0;                     ///< velocity of i as its pull left, m/s
        double Fs = 0, FXs = 0, FYs = 0, FZs = 0;          ///< force from the trace, N
        double F = 0, FX = 0, FY = 0, FZ = 0;              ///< with the pressure
    };
    Action a12, a21;

    struct Point {
        double X = 0, Y = 0, Z = 0;
    };
    Point trace1, trace2;           ///< where the pulls come from, m
    double delay1 = 0, delay2 = 0;  ///< by which the last iteration found them, s
};

/// Bodies 1.. on circular orbits of the theory Ser0 at the longitude L, rad, with its masses; accelerations
/// 0. A Sun rests in the origin.
void benchPlace(ModelState& s, Motion& motion, int body, double L);

/// The law and the accelerations of the bench; a run has its own.
struct BenchLaw {
    double Vgr = 0, kPgr1 = 0, kPgr2 = 0;  ///< m/s; coefficients of the pressure
    BodyArray AX{}, AY{}, AZ{};            ///< m/s^2
    static BenchLaw of(const Motion& m) { return {m.Vgr, m.kPgr1, m.kPgr2, m.AX, m.AY, m.AZ}; }
};

/// While it lives, the run's law and accelerations are those of the bench; then the run has its own again.
class BenchLawInUse {
public:
    BenchLawInUse(Motion& motion, BenchLaw& law) : motion_(motion), law_(law) { exchange(); }
    ~BenchLawInUse() { exchange(); }
    BenchLawInUse(const BenchLawInUse&) = delete;
    BenchLawInUse& operator=(const BenchLawInUse&) = delete;

private:
    void exchange();

    Motion& motion_;
    BenchLaw& law_;
};

/// The pair of the two ticked bodies, in rising order.
/// @throws Refusal for more than two, Failure for less
GravityBench benchPair(const std::array<bool, 10>& ticked);

/// Both bodies of the pair on circular orbits at their longitudes, rad, under a law.
/// @param Vgr  speed of gravity, m/s
/// @throws ArithmeticFailure for Vgr = 0
void benchPlacePair(ModelState& s, Motion& motion, const GravityBench& b, double Vgr, double kPgr1,
                    double kPgr2, double L1, double L2);

/// Adds the velocity of the system, km/s, to both bodies.
/// @throws ArithmeticFailure for a speed beyond numbers; what was added before stays
void benchAddVelocity(ModelState& s, const GravityBench& b, double VX, double VY, double VZ);

/// State of all bodies and their accelerations as the last right-hand side of a run left them for the bench.
void benchRestore(ModelState& s, Motion& motion);

/// Forces between the present positions by Newton's law; the iterations begin anew.
/// @throws ArithmeticFailure for coinciding bodies and Vgr = 0
void benchPresent(const ModelState& s, const Motion& motion, GravityBench& b);

/// One iteration: traces by the delays of the last one, forces, projections and the pressure.
/// Throws SubscriptFailure when the trace of kodDX = 3 has never been filled, ArithmeticFailure as
/// benchPresent.
void benchIterate(const ModelState& s, const Motion& motion, GravityBench& b);

}  // namespace tarvex
