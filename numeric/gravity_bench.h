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

/// State of all bodies and their accelerations as the last right-hand side of a run left them for the bench.
void benchRestore(ModelState& s, Motion& motion);

/// Forces between the present positions; the iterations begin anew.
/// Throws ArithmeticFailure for coinciding bodies and Vgr = 0.
void benchPresent(const ModelState& s, const Motion& motion, GravityBench& b);

/// One iteration: traces by the delays of the last one, forces, projections and the pressure.
/// Throws SubscriptFailure when the trace of kodDX = 3 has never been filled, ArithmeticFailure as
/// benchPresent.
void benchIterate(const ModelState& s, const Motion& motion, GravityBench& b);

}  // namespace tarvex
