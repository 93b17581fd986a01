#pragma once
// The equations of motion written out word by word, with arc tangents, sines, cosines and powers for every
// pair. Slow and plain on purpose: the kernels of numeric/ are checked and timed against it.

#include <array>
#include <vector>

#include "core/model_state.h"

namespace tarvex::literal {

using Pairs = double[11][11];

struct Equations {
    const ModelState* s = nullptr;  ///< masses, ticks, gamma, Dt, DtCur

    double U[66] = {}, dU[66] = {};
    double X[11] = {}, Y[11] = {}, Z[11] = {}, VX[11] = {}, VY[11] = {}, VZ[11] = {};
    double AX[11] = {}, AY[11] = {}, AZ[11] = {};
    int kodVgr = 0, kodDX = 0, kodPgr = 0, kodDiffurV = 0, kodAA = 0, kodLVsimple = 0;
    double kPgr1 = 0, kPgr2 = 0, Vgr = Vsv, nR = 2, Vsv2 = Vsv * Vsv;

    Pairs DXp = {}, DYp = {}, DZp = {}, Rxy = {}, Rik = {}, Tik = {}, Fik = {}, FXik = {}, FYik = {},
          FZik = {};
    Pairs AlfaIK = {}, BettaIK = {};
    double AlfaVX[11] = {}, AlfaVY[11] = {}, BettaVZ[11] = {};
    Pairs dAlfaVX1 = {}, dAlfaVY1 = {}, dBettaVZ1 = {}, dAlfaVX2 = {}, dAlfaVY2 = {}, dBettaVZ2 = {};
    Pairs VX1zap = {}, VY1zap = {}, VZ1zap = {}, VX0zap = {}, VY0zap = {}, VZ0zap = {}, V1zap = {};
    Pairs dVX1 = {}, dVY1 = {}, dVZ1 = {}, dV1 = {}, dVX2 = {}, dVY2 = {}, dVZ2 = {}, dV2 = {};
    Pairs dR = {}, d2R = {}, dV1old = {}, dV2old = {}, AV1 = {}, AV2 = {}, AV1old = {}, AV2old = {};
    Pairs BV1 = {}, BV2 = {}, AX1zap = {}, AY1zap = {}, AZ1zap = {}, AX0zap = {}, AY0zap = {}, AZ0zap = {};
    Pairs A1zap = {};
    double AXold[11] = {}, AYold[11] = {}, AZold[11] = {}, JX[11] = {}, JY[11] = {}, JZ[11] = {};
    double DtOld = 0, dTstage = 0, Tsled = 0;
    int NDiffur = 0, NSled = 0;
    std::vector<std::vector<double>> SledX, SledY, SledZ;  ///< [n][i]

    /// What belongs to one coordinate.
    struct Axis {
        int at;  ///< of its places in the state vector; its speeds stand 33 later
        double (&p)[11], (&v)[11], (&a)[11], (&aOld)[11], (&jerk)[11];
        Pairs &d, &f, &v1, &v0, &a1, &a0;
        std::vector<std::vector<double>>& trace;
    };
    std::array<Axis, 3> axes() {
        return {Axis{0, X, VX, AX, AXold, JX, DXp, FXik, VX1zap, VX0zap, AX1zap, AX0zap, SledX},
                Axis{11, Y, VY, AY, AYold, JY, DYp, FYik, VY1zap, VY0zap, AY1zap, AY0zap, SledY},
                Axis{22, Z, VZ, AZ, AZold, JZ, DZp, FZik, VZ1zap, VZ0zap, AZ1zap, AZ0zap, SledZ}};
    }

    void Diffur();
    void DiffurOTO();
    void SpeedUpdate();
    void fillTrace();
    void pushTrace(double Tsec);
    void unpack();

private:
    void distances(int i, int j);
    void retardBy(int form, int i, int j);
    void retardByTrace(int i, int j);
    void angles(int i, int j);
    void velocityDirections();
    void lineSpeeds(int i, int j, const Pairs& vx, const Pairs& vy, const Pairs& vz);
    double retardedSpeed(const Axis& q, int i, int j) const;
    void accelerationAlong(int i, int j);
    void stageSpeeds();
    void factorLaw(int i, int j);
    void lienardWiechert(int i, int j);
};

}  // namespace tarvex::literal
