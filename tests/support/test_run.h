#pragma once
// An experiment of its own state and data tree for tests, on the Solar System of a secular theory.

#include "core/calendar.h"
#include "numeric/experiment_start.h"
#include "tests/support/testing.h"
#include "theories/elements.h"
#include "theories/secular_theories.h"

namespace tarvex::test {

/// Elements, masses and initial data of Ser0 or JPL0 for a Julian date, as a load leaves them.
inline void loadTheory(ModelState& s, double JD, void (*masses)(ModelState&), void (*elements)(ModelState&)) {
    masses(s);
    s.gamma = 66.7259e-12;
    s.mSol = s.m[0];
    s.JD = s.JD0 = s.JDstart = JD;
    for (s.Ipl = 1; s.Ipl <= 9; ++s.Ipl) {
        const int i = s.Ipl;
        elements(s);
        ElementsToXYZ(s);
        ElementsToVXYZ(s);
        const double start[] = {0,         s.AlfaP0[i], s.AlfaU0[i], s.Betta0[i],
                                s.Eks0[i], s.R0sr[i],   s.W0sr[i],   s.AlfaL[i]};
        for (int k = 1; k <= 7; ++k) s.ElemStart[k][i] = start[k];
    }
    s.Ipl = 9;
    s.X[10] = 7555444333222, s.VY[10] = 4333;  // Xena, far away
    s.m[10] = s.mSol / 9888777;
    s.X0 = s.X, s.Y0 = s.Y, s.Z0 = s.Z, s.VX0 = s.VX, s.VY0 = s.VY, s.VZ0 = s.VZ;
}

/// Ticks bodies 0..last.
inline void tick(ModelState& s, int last) {
    s.NPlOn = static_cast<std::int16_t>(last + 1);
    for (int i = 0; i < bodies; ++i) s.kodPl[i] = i <= last;
    for (int i = 0; i < bodies; ++i)
        for (int j = 0; j < bodies; ++j) s.kodPair[i][j] = s.kodPl[i] * s.kodPl[j];
}

struct TestRun {
    TestRun() {
        for (const char* name : {"Dat", "JPL", "NEW", "Plan0/Txt1", "Plan0/Txt3", "Plan0/Txt4"})
            folder.makeFolder(name);
        loadTheory(s, 2378862, InitMassesSer0, ElementsSer0);  // 1 January 1801, noon
        tick(s, 9);
        settings.boxes.measure = true;
        settings.boxes.endAtYear = true;
        settings.today = "21.11.2026";
    }
    Experiment experiment() { return {s, motion, run, ephemeris, tree}; }
    StartNotes start() { return startExperiment(experiment(), settings); }
    void go() { RunLoop(experiment(), port); }
    void startAndGo() {
        start();
        go();
    }

    TempFolder folder;
    DataTree tree{folder.path()};
    ModelState s;
    Motion motion;
    RunState run;
    Ephemeris ephemeris{tree};
    RunSettings settings;
    RunPort silent;
    RunPort& port = silent;
};

}  // namespace tarvex::test
