// Observations reduced without any screen: the first places of Mars in a file of observations, each with what
// the theory says of it.
//
//     reduce_observation DATA
//
// DATA is the data tree; nothing is written into it.

#include <cstdio>
#include <exception>

#include "core/calendar.h"
#include "reduction/reduction_chain.h"
#include "theories/perturbations.h"

using namespace tarvex;

int main(int count, char** words) try {
    const DataTree tree(count > 1 ? words[1] : "data");
    constexpr int mars = 4, wanted = 5;

    ModelState s;
    s.gamma = 6.67259e-11;  // N m^2/kg^2
    s.IplSel = mars;
    s.NameData = "SUMM";         // geocentric places of a file
    s.ObsL = 0, s.ObsB = 51.48;  // of the observer, degrees

    ReductionState r;
    r.choices.tables = false;
    r.choices.planet = PlanetTheory::Ser0;
    r.choices.earth = EarthTheory::Ser0;
    r.choices.aberrSource = r.choices.aberrReceiver = r.choices.nutation = true;
    r.choices.planetTerms = r.choices.earthMoonTerms = true;  // periodic terms of Mars and of the Earth
    s.Ipert1 = {0, 2, 3, 2, 3}, s.Ipert2 = {0, 5, 5, 5, 5};   // by which planets
    readPlanetPerturbations(s, tree.at(files::perturbations(1)));

    const auto head = r.file.open(tree.at(observationFileName(s.NameData, mars, "100", "")), s.NameData);
    const PlanBlock noPlan;
    for (int i = 0; i < wanted; ++i) {
        const auto seen = r.file.ReadObsRecord({head.firstYear, head.lastYear, r.choices.byDistance});
        if (!seen) break;
        r.Ln = seen->ascension;
        r.Bn = seen->declination;
        s.JD = JDfromDate(s, seen->dayWithTime(), seen->month, seen->year);
        reduceTheory(s, r, noPlan, {}, {});
        compareWithData(s, r);
        std::printf("%04d %02d %02d  seen %9.5f %9.5f  theory %9.5f %9.5f  difference %6.1f\" %6.1f\"\n",
                    seen->year, seen->month, seen->day, r.Ln, r.Bn, r.Lt, r.Bt, r.dL * 3600, r.dB * 3600);
    }
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
