#include "initial/start_up.h"

namespace tarvex {

void startUp(ModelState& s) {
    const ModelState fresh;
    s.NEqMax = fresh.NEqMax;
    s.ColorR = fresh.ColorR;
    s.ColorG = fresh.ColorG;
    s.ColorB = fresh.ColorB;
    s.Mx = fresh.Mx;
    s.Diam = fresh.Diam;
    s.RSol = fresh.RSol;
    s.Lae = fresh.Lae;
    s.VXsys = s.VYsys = s.VZsys = 0;
    s.DayMonth = fresh.DayMonth;
    s.Tsid = fresh.Tsid;
}

void tickBodies(ModelState& s, const std::array<bool, bodies>& ticked) {
    s.NPlOn = 0;
    for (int i = 0; i < bodies; ++i) {
        s.kodPl[i] = ticked[i] ? 1 : 0;
        s.NPlOn += ticked[i] ? 1 : 0;
        for (int j = 0; j < bodies; ++j) s.kodPair[i][j] = ticked[i] && ticked[j] ? 1 : 0;
    }
}

void handOverElements(ModelState& s) {
    for (int i = 1; i <= NPlanetMax; ++i) {
        s.ElemStart[1][i] = s.AlfaP0[i];
        s.ElemStart[2][i] = s.AlfaU0[i];
        s.ElemStart[3][i] = s.Betta0[i];
        s.ElemStart[4][i] = s.Eks0[i];
        s.ElemStart[5][i] = s.R0sr[i];
        s.ElemStart[6][i] = s.W0sr[i];
        s.ElemStart[7][i] = s.AlfaL[i];
    }
}

bool elementsHandedOver(const ModelState& s) {
    for (const auto& element : s.ElemStart)
        for (const double value : element)
            if (value != 0) return true;
    return false;
}

}  // namespace tarvex
