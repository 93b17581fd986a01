#pragma once
// What the equations of motion work on: the state vector, the pair arrays, the trace of the bodies, the
// speeds along the lines between them and the mode codes that choose the law.  SI units throughout.

#include <array>
#include <cstdint>
#include <vector>

#include "core/constants.h"
#include "core/model_state.h"
#include "numeric/laws.h"

namespace tarvex {

class NameTable;

inline constexpr int lanes = 12;              ///< bodies 0..10 and one idle lane, three vectors of four
inline constexpr int equations = 6 * bodies;  ///< X, Y, Z, VX, VY, VZ of bodies 0..10 in blocks of 11

/// One value a body, [i]; lane 11 is idle.
using BodyArray = std::array<double, lanes>;
/// One value an ordered pair, [i][j] = (i, j), the action of i on j.  Cells (i, i) and lane 11 are idle:
/// whatever stands there is finite and means nothing.
using PairArray = std::array<std::array<double, lanes>, bodies>;

/// Positions of the bodies at whole multiples of Dt back in time, index 0 the newest: a ring for each body.
class Trace {
public:
    /// Makes room for the indices 0..last of every body.
    void resize(int last);
    int size() const { return size_; }  ///< count of positions a body, 0 before the first resize
    double at(int n, int body) const { return cells_[place(body) + static_cast<std::size_t>(slot(n))]; }
    double& at(int n, int body) { return cells_[place(body) + static_cast<std::size_t>(slot(n))]; }
    /// The ring of one body and the place of index n in it, for readers of several coordinates at once.
    const double* ring(int body) const { return &cells_[place(body)]; }
    int slot(int n) const { return head_ + n < size_ ? head_ + n : head_ + n - size_; }
    /// Moves every position one index back and drops the oldest; index 0 is then to be written.
    void shift() { head_ = head_ == 0 ? size_ - 1 : head_ - 1; }

private:
    std::size_t place(int body) const {
        return static_cast<std::size_t>(body) * static_cast<std::size_t>(size_);
    }

    std::vector<double> cells_;
    int size_ = 0, head_ = 0;
};

/// Products of the masses as the kernels read them, formed again only when a mass or a tick has changed.
struct PairWeights {
    alignas(32) PairArray force{};    ///< kodPair(i,j)*m(i)*m(j)*gamma, 0 in idle cells
    alignas(32) PairArray upper{};    ///< force where i < j, else 0
    alignas(32) PairArray active{};   ///< row j, lane i: 1 where kodPair(i,j) is not 0, else 0
    alignas(32) BodyArray perMass{};  ///< 1/m(j)
    std::array<double, bodies> m{};   ///< what the products were formed from
    double gamma = 0;
    Row2<std::int32_t, 13, 13> kodPair{};
    bool formed = false;
    bool symmetric = false;  ///< force(i,j) and force(j,i) are the same number in every bit
    bool held = false;       ///< nobody changes masses or ticks until the holder says so: no need to compare
};

/// The state of the bodies in lanes; the idle lane holds some finite neighbour of the array copied.
struct BodyLanes {
    alignas(32) BodyArray x{}, y{}, z{}, vx{}, vy{}, vz{};
};

/// What a right-hand side that keeps no pairs read, so that its pairs can be formed when somebody reads them.
struct LatePairs {
    enum class Of { None, Plain, Relativistic };
    Of waiting = Of::None;
    BodyLanes bodies;
    // of the relativistic one besides
    alignas(32) BodyArray ax{}, ay{}, az{};
    std::array<double, lanes> gm{};
    double c2 = 0;
};

/// State of the pair N1, N2 as the last right-hand side saw it before the pressure law: the debug text.
struct PairDebug {
    double X = 0, Xzap = 0, VX = 0, VXzap = 0;  ///< of the acting body; zap: as its pull left
    double F = 0, R = 0, T = 0, Betta = 0, Alfa = 0, dV1 = 0, dV2 = 0, FX = 0;
};

struct Motion {
    // --- state vector: U(i) X, U(i+11) Y, U(i+22) Z, U(i+33) VX, U(i+44) VY, U(i+55) VZ
    std::array<double, equations + 3> U{};  ///< 66..68: origin of the step loop
    std::array<double, equations> dU{};
    alignas(32) BodyArray AX{}, AY{}, AZ{};  ///< accelerations of the last finished step, mean of the stages

    // --- mode codes
    std::int16_t kodVgr = 0;         ///< 1: gravity has the speed Vgr
    std::int16_t kodOTO = 0;         ///< 1: relativistic right-hand side
    std::int16_t kodRelativity = 0;  ///< 1: post-Newtonian terms beside the classical forces
    std::int16_t kodDX = 0;          ///< retardation by coordinates, see Retardation
    std::int16_t kodPgr = 0;         ///< law of dynamic pressure, see Pressure
    std::int16_t kodSun = 0;         ///< 1: the Sun follows from the centre of mass
    std::int16_t kodDiffurV = 0;     ///< 1: speeds along the line at every stage, not once a step
    std::int16_t kodAA = 0;          ///< 1: second derivatives by accelerations of accelerations
    std::int16_t kodLVsimple = 0;    ///< 1: the short Lienard-Wiechert form
    std::int16_t kodEpot = 0;        ///< 1: pair terms in the energy, moment about the centre of mass
    std::int16_t kodXcm = 0;         ///< 1: show the centre of mass in place of the planet
    std::int16_t kodCMnow = 0;       ///< 1: the centre of mass of the moment
    double kPgr1 = 0, kPgr2 = 0;     ///< coefficients k1, k2 of the law

    // --- constants of a run
    double Vgr = Vsv;  ///< speed of gravity, m/s
    double nR = 2;     ///< exponent of the distance
    double Vsv2 = Vsv * Vsv;

    // --- pairs: from i to j, after retardation from the trace of i; read them after formPairs()
    alignas(32) mutable PairArray DXp{}, DYp{}, DZp{};     ///< m
    alignas(32) mutable PairArray Rik{};                   ///< m
    alignas(32) mutable PairArray Fik{};                   ///< N
    alignas(32) mutable PairArray FXik{}, FYik{}, FZik{};  ///< N; accelerations in the relativistic model
    mutable LatePairs latePairs;
    bool fullQuadrant = false;         ///< AlfaIK has been put into its quadrant by the speeds along the line
    std::array<double, bodies> Phi{};  ///< potential of the relativistic model, m^2/s^2

    // --- speeds along the line i to j (1: of body i as its pull left, 2: of body j)
    alignas(32) PairArray VX1zap{}, VY1zap{}, VZ1zap{}, V1zap{};
    alignas(32) PairArray VX0zap{}, VY0zap{}, VZ0zap{};  ///< the same at the start of the step
    alignas(32) PairArray dVX1{}, dVY1{}, dVZ1{}, dV1{}, dVX2{}, dVY2{}, dVZ2{}, dV2{};
    alignas(32) PairArray dR{}, d2R{};  ///< derivatives of the distance
    alignas(32) PairArray dV1old{}, dV2old{};
    alignas(32) PairArray AV1{}, AV2{}, AV1old{}, AV2old{}, BV1{},
        BV2{};                                                    ///< rates of dV1, dV2 and rates of those
    alignas(32) PairArray AX1zap{}, AY1zap{}, AZ1zap{}, A1zap{};  ///< retarded acceleration of i
    alignas(32) PairArray AX0zap{}, AY0zap{}, AZ0zap{};
    alignas(32) PairArray Ve{}, Rf{};                 ///< Vgr+dV1; Rik-Rik*dV1/Vgr
    alignas(32) BodyArray AXold{}, AYold{}, AZold{};  ///< acceleration of the step before
    alignas(32) BodyArray JX{}, JY{}, JZ{};           ///< acceleration of acceleration
    double DtOld = 0;                                 ///< step of the last speed update, s
    std::int16_t NDiffur = 0;  ///< calls of Diffur in this step that had a pressure law
    double dTstage = 0;        ///< offset of the stage from the step's start, s

    // --- trace for kodDX = 3
    Trace SledX, SledY, SledZ;
    std::int16_t NSled = 0;  ///< highest index of the trace
    double Tsled = 0;        ///< time of the last push, s

    // --- debug text and copies for the test bench, filled while kodDebug is 1
    std::int16_t kodDebug = 0;
    std::int16_t N1 = 1, N2 = 2;
    PairDebug debug12, debug21;
    BodyArray Xsave{}, Ysave{}, Zsave{}, VXsave{}, VYsave{}, VZsave{}, AXsave{}, AYsave{}, AZsave{};
    Trace SledXsave, SledYsave, SledZsave;  ///< the step loop copies the trace while kodDX is 3
    double dTstageSave = 0;

    PairWeights weights;
};

/// Right-hand side of the classical model: Newtonian pair forces with the exponent nR, retardation by kodDX
/// and the pressure law kodPgr when kodVgr is 1.  With kodRelativity the post-Newtonian terms of DiffurOTO
/// come on top, between present places: dU alone has them, the pair arrays are those of the forces.  Reads U,
/// masses, ticks, codes, AX..AZ, the trace; writes dU, the pair arrays and the copies X..VZ of s; m, m/s, kg,
/// s. Source: Newton's law of gravity; of the laws of pressure see numeric/laws.h.
/// @throws ArithmeticFailure for Vgr = 0, two bodies at one place or with equal X and Y, a zero mass, an
/// overflow;
///         nothing that is not a number stays behind
void Diffur(ModelState& s, Motion& motion);

/// Forms the pairs of the last Diffur where it went without them: for plain Newtonian gravity nothing but dU
/// needs them, so whoever reads DXp..FZik asks for them first.
void formPairs(const Motion& motion);

/// Forms the products of masses and ticks, and tells Diffur until the end of this object that they stand:
/// comparing them takes longer than a tenth of a right-hand side.
class WeightsHeld {
public:
    WeightsHeld(const ModelState& s, Motion& motion);
    ~WeightsHeld() { motion_.weights.held = false; }
    WeightsHeld(const WeightsHeld&) = delete;
    WeightsHeld& operator=(const WeightsHeld&) = delete;

private:
    Motion& motion_;
};

/// Right-hand side of the relativistic model (Einstein, Infeld and Hoffmann, point masses): FXik(j,i) is the
/// acceleration of i by j.  Vgr, nR, kodDX and kodPgr play no part.
/// @throws ArithmeticFailure for two bodies at one place
void DiffurOTO(ModelState& s, Motion& motion);

/// Speeds along the lines and their rates, once a step after the state has been unpacked; nothing with kodPgr
/// = 0.
/// @throws ArithmeticFailure as Diffur does, and for DtCur = 0
void SpeedUpdate(ModelState& s, Motion& motion);

/// Makes the trace of five light hours at the speed of gravity and fills it by straight flight from X and VX;
/// its copies for the bench get its size and are cleared.
void fillTrace(const ModelState& s, Motion& motion);

/// Pushes the present position when a base step has passed since the last push; at most once a call.
/// @param Tsec  model time, s
void pushTrace(const ModelState& s, Motion& motion, double Tsec);

/// An angle, rad, between -Pi and Pi by one turn at most.
inline double wrapped(double angle) {
    return angle > Pi ? angle - 2 * Pi : angle < -Pi ? angle + 2 * Pi : angle;
}

/// Longitude of the line i to j, rad: by the arc tangent alone, or in its quadrant once the speeds along the
/// line have been formed.  There the two values of DXp = 0 come out turned by Pi, as the cosines have them.
double AlfaIK(const Motion& motion, int i, int j);
/// Latitude of the line i to j, rad.
double BettaIK(const Motion& motion, int i, int j);
/// Direction of a velocity component, rad.
double AlfaVX(double VX);
double AlfaVY(double VY);
double BettaVZ(double VZ);

/// Puts 0 in place of everything in the arrays that is not a finite number: what a failed call may leave.
void dropNonNumbers(Motion& motion);

/// Enters every shared variable of the motion into the table under its own name.
void addNames(NameTable& table, const Motion& motion);

}  // namespace tarvex
