#pragma once
// Dynamic pressure of gravity: the speeds along the lines at a stage, and the laws that change the pair
// forces. Lanes of the classical right-hand side.

#include "numeric/lane_kernels.h"

namespace tarvex::kernel {

/// What the pairs of one call share.  Held apart from Motion, so that writing a pair leaves it in registers.
struct LawFactors {
    double Vgr, perVgr, square, perSquare, k1, k2, nR;
    double delay;  ///< seconds a metre by which the speeds along the lines are retarded: 1/Vgr, or 0 without
                   ///< kodDX
    bool atStage;  ///< the speeds along the lines are those of the stage (kodDiffurV)
    bool byJerk;   ///< second derivatives by the acceleration of acceleration (kodAA)
    bool simple;   ///< the short form of Lienard and Wiechert
    bool rated;    ///< stages 2 to 4; at the first the rates of the speed update stand
    double perDt;  ///< 2/DtCur, at the fourth stage 1/DtCur
    double forward;  ///< DtCur, at the fourth stage 3*DtCur/2
    double jerk;     ///< DtCur/2, at the fourth stage DtCur
    LawFactors(const ModelState& s, const Motion& m)
        : Vgr(m.Vgr),
          perVgr(1 / Vgr),
          square(Vgr * Vgr),
          perSquare(1 / square),
          k1(m.kPgr1),
          k2(m.kPgr2),
          nR(m.nR),
          delay(m.kodDX > 0 ? perVgr : 0),
          atStage(m.kodDiffurV == 1),
          byJerk(m.kodAA != 0),
          simple(m.kodLVsimple == 1),
          rated(m.NDiffur >= 2 && m.NDiffur <= 4),
          perDt(rated ? (m.NDiffur == 4 ? 1 : 2) / s.DtCur : 0),
          forward(m.NDiffur == 4 ? 3 * s.DtCur / 2 : s.DtCur),
          jerk(m.NDiffur == 4 ? s.DtCur : s.DtCur / 2) {}
};

/// Force on the bodies in the lanes, its size and components.
struct Force {
    Four f, x, y, z;
};

/// Speeds along the lines and d2R at a stage; the velocity of body i as it was when its pull left is kept.
TARVEX_LANES void stageSpeeds(Motion& m, const BodyLanes& b, const Actor& a, int i, int j, const Line& line,
                              const Direction& u, const LawFactors& law, Watch& watch) {
    const Four t = line.r * law.delay;
    const Four wx = a.vx - a.ax * t, wy = a.vy - a.ay * t, wz = a.vz - a.az * t;
    const Four v1 = alongOfActor(u, a, wx, wy, wz).sum(), v2 = alongOfPassive(u, b, j).sum();
    put(m.VX1zap[i], j, wx);
    put(m.VY1zap[i], j, wy);
    put(m.VZ1zap[i], j, wz);
    put(m.dV1[i], j, v1);
    put(m.dV2[i], j, v2);
    put(m.dR[i], j, v2 - v1);
    if (!law.byJerk) {
        if (!law.rated) return;
        const Four rate = (v2 - at(m.dV2old[i], j) - v1 + at(m.dV1old[i], j)) * law.perDt;
        put(m.d2R[i], j, rate);
        watch.number(rate);
        return;
    }
    if (law.rated) {
        put(m.AV1[i], j, law.forward * at(m.BV1[i], j) + at(m.AV1old[i], j));
        put(m.AV2[i], j, law.forward * at(m.BV2[i], j) + at(m.AV2old[i], j));
    }
    put(m.d2R[i], j, at(m.AV2[i], j) - at(m.AV1[i], j));
}

/// Retarded acceleration of body i at a stage: by the velocities, or by the acceleration of acceleration.
TARVEX_LANES void stageAccelerations(Motion& m, int i, int j, const LawFactors& law) {
    if (!law.rated) return;
    if (!law.byJerk) {
        put(m.AX1zap[i], j, (at(m.VX1zap[i], j) - at(m.VX0zap[i], j)) * law.perDt);
        put(m.AY1zap[i], j, (at(m.VY1zap[i], j) - at(m.VY0zap[i], j)) * law.perDt);
        put(m.AZ1zap[i], j, (at(m.VZ1zap[i], j) - at(m.VZ0zap[i], j)) * law.perDt);
    } else {
        put(m.AX1zap[i], j, law.jerk * m.JX[i] + at(m.AX0zap[i], j));
        put(m.AY1zap[i], j, law.jerk * m.JY[i] + at(m.AY0zap[i], j));
        put(m.AZ1zap[i], j, law.jerk * m.JZ[i] + at(m.AZ0zap[i], j));
    }
}

/// A force of the size f along the line, to body i where f is positive.
TARVEX_LANES Force pull(const Line& line, Four inverse, Four f) {
    const Four q = f * inverse;
    return {f, -line.dx * q, -line.dy * q, -line.dz * q};
}

/// Force changed by the factor of a law; f0 is its size before.
template <int kodPgr>
TARVEX_LANES Force factorLaw(Motion& m, const BodyLanes& b, const Actor& a, int i, int j, const Line& line,
                             Four inverse, Four f0, const LawFactors& law) {
    const double k1 = law.k1, k2 = law.k2, Vgr = law.Vgr, perVgr = law.perVgr, square = law.square;
    const double perSquare = law.perSquare;
    // idle lanes: no speed along a line that is none
    const Four busy = at(idleTable.busy[i], j), v1 = at(m.dV1[i], j) * busy, v2 = at(m.dV2[i], j) * busy;
    const Four rate = at(m.dR[i], j) * busy, rate2 = at(m.d2R[i], j) * busy, Ve = Vgr + v1;
    Four f = f0;
    if constexpr (kodPgr == codeOf(Pressure::Weber)) {
        f = (1 - k1 * rate * rate * perSquare + k2 * line.r * rate2 * perSquare) * f0;
    } else if constexpr (kodPgr == codeOf(Pressure::GerberFirst)) {
        f = (1 - (k1 * rate * rate - k2 * line.r * rate2) / (Ve * Ve)) * f0;
    } else if constexpr (kodPgr == codeOf(Pressure::GerberSecond)) {
        const Four less = Ve - rate, less2 = less * less;
        f = Ve * f0 * Ve * (Ve * Ve + k1 * rate * rate + k2 * line.r * rate2 - 4 * Ve * rate) /
            (less2 * less2);
    } else if constexpr (kodPgr == codeOf(Pressure::Norin)) {
        f = (1 - k1 * v2 * perVgr) * f0 / (1 - k2 * v1 * perVgr);
    } else if constexpr (kodPgr == codeOf(Pressure::Sukhorukov)) {
        const Four his2 = at(b.vx, j) * at(b.vx, j) + at(b.vy, j) * at(b.vy, j) + at(b.vz, j) * at(b.vz, j);
        const double own2 = a.vx * a.vx + a.vy * a.vy + a.vz * a.vz;
        f = root(square + his2 - 2 * Vgr * v2) * f0 / root(square + own2 - 2 * Vgr * v1);
    }
    if constexpr (kodPgr == codeOf(Pressure::GerberFirst) || kodPgr == codeOf(Pressure::GerberSecond))
        put(m.Ve[i], j, Ve);
    // the components take the signs of the force before the law
    const Force along = pull(line, inverse, f0 < 0 ? -f : f);
    return {f, along.x, along.y, along.z};
}

/// The retarded force of Lienard and Wiechert; the exponent 3 stands whatever nR is.
/// @param alongLine  acceleration of body i along the line; @param velocity2  square of its velocity
TARVEX_LANES Force lienardWiechert(Motion& m, int i, int j, const Line& line, Four alongLine, Four velocity2,
                                   const LawFactors& law, Watch& watch) {
    const double perVgr = law.perVgr, square = law.square;
    const Four over = line.r * perVgr, rf = line.r - over * (at(m.dV1[i], j) * at(idleTable.busy[i], j));
    const Four f = -at(m.weights.force[i], j) / (rf * rf * rf * square);
    const Four x = line.dx - over * at(m.VX1zap[i], j), y = line.dy - over * at(m.VY1zap[i], j);
    const Four z = line.dz - over * at(m.VZ1zap[i], j);
    put(m.Rf[i], j, rf);
    watch.notHuge(rf);
    if (law.simple) {
        const Four q = square * f;
        return {f, q * x, q * y, q * z};
    }
    const Four towards = square + law.k1 * line.r * alongLine - velocity2, drag = line.r * rf * law.k2;
    return {f, (towards * x - drag * at(m.AX1zap[i], j)) * f, (towards * y - drag * at(m.AY1zap[i], j)) * f,
            (towards * z - drag * at(m.AZ1zap[i], j)) * f};
}

/// Lienard and Wiechert with the values that the speed update left.
TARVEX_LANES Force lienardOfStep(Motion& m, int i, int j, const Line& line, const LawFactors& law,
                                 Watch& watch) {
    const Four v = at(m.V1zap[i], j);
    return lienardWiechert(m, i, j, line, at(m.A1zap[i], j), v * v, law, watch);
}

/// Lienard and Wiechert with the velocity and acceleration of the stage; the acceleration along the line
/// takes the signs of the velocity, as in accelerationsOfStep.
TARVEX_LANES Force lienardOfStage(Motion& m, const Actor& a, int i, int j, const Line& line,
                                  const Direction& u, const LawFactors& law, Watch& watch) {
    stageAccelerations(m, i, j, law);
    const Four wx = at(m.VX1zap[i], j), wy = at(m.VY1zap[i], j), wz = at(m.VZ1zap[i], j);
    const Four along = alongOfActor(u, a, at(m.AX1zap[i], j), at(m.AY1zap[i], j), at(m.AZ1zap[i], j)).sum();
    watch.number(along);
    return lienardWiechert(m, i, j, line, along, wx * wx + wy * wy + wz * wz, law, watch);
}

}  // namespace tarvex::kernel
