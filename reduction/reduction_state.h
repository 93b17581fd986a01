#pragma once
// What the reduction of observations and its plans work on: choices, data, results of the chain, sums.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/run_inputs.h"
#include "reduction/ancient_tables.h"
#include "reduction/observation_file.h"
#include "stats/plan_block.h"

namespace tarvex {

class NameTable;

enum class EarthTheory { JPL0, Ser0, Ser0Plus };
enum class PlanetTheory { Plan, JPL0, Ser0 };

/// What its user chooses; read before a run, and the numbers again after every pass.
struct ReductionChoices {
    bool tables = true;  ///< ancient tables; otherwise a file of observations
    EarthTheory earth = EarthTheory::Ser0;
    PlanetTheory planet = PlanetTheory::Ser0;
    bool epochJ2000 = true;  ///< equinox of the plan's elements; otherwise the date
    bool byDistance = true;  ///< criterion dR; otherwise |dL|

    bool aberrSource = true, aberrReceiver = true, nutation = false, parallax = false, refraction = false;
    bool planetTerms = false;        ///< periodic perturbations of the observed planet
    bool earthMoonTerms = false;     ///< of the Earth and the Moon
    bool visibility = false;         ///< drop what is not seen
    bool darkSky = false;            ///< and what stands beside too high a Sun
    bool horizonPicture = false;     ///< the horizon is wanted for a picture also without `visibility`
    bool replacePrecession = false;  ///< of a table
    bool countLongitude = true, countLatitude = true;  ///< what NPlus counts

    bool filter = false;      ///< take only dR or |dL| below dMax
    bool statistics = false;  ///< histograms
    bool goodBadFiles = false, debugFile = false;
    bool rootMeanSquare = false;  ///< response: root mean square, otherwise the mean
    bool weightByCount = false;   ///< weight also by number and span of the observations
    bool pause = false;

    double dMax = 200;      ///< limit of the filter, thousand km or arc seconds
    double HplMin = 1;      ///< least altitude of the body, degrees
    double HsolMax = -0.2;  ///< greatest altitude of the Sun, degrees
    double Precess = 5030;  ///< precession of the plan's elements, arc seconds a century
    int Pauza = 1000;       ///< ms
    std::string fileNumber = "100", goodNumber = "41";  ///< as they stand in file names
};

/// Longitude or right ascension and latitude or declination at a stage, degrees.
struct SkyPlace {
    double L = 0, B = 0;
};

/// The stages of the chain, in their order.
enum ChainStage : int {
    stageJ2000,
    stageSource,
    stageReceiver,
    stageOfDate,
    stageEquator,
    stageParallax,
    stageRefraction,
    stageNutation,
    stageEcliptic,
    chainStages
};

inline constexpr int histogramCells = 60;

struct ReductionState {
    ReductionChoices choices;

    // --- the data
    TableInUse table;
    ObservationFile file;
    std::string header;  ///< header text of the file of observations
    std::string line;    ///< the last record as it was read
    ObservedDate date;
    std::int32_t NomData = 0;       ///< number of the chosen source
    std::int32_t GodK = 0;          ///< last year
    std::int16_t kodKalendTab = 0;  ///< see Calendar, and start of the day of the data
    double TimeZoneTab = 0;
    bool endOfFile = false;
    double JDwhole = 0, JDpart = 0;  ///< date of the last table step, in two parts to keep its precision
    std::string worldDate;           ///< date of a table step in the Gregorian calendar, as it is shown

    // --- one pass
    double Ln = 0, Bn = 0;  ///< place by the data, degrees
    double Lt = 0, Bt = 0;  ///< place by the theory, degrees
    double dL = 0, dB = 0;  ///< theory less data, degrees
    double dR = 0;          ///< distance of the two places, thousand km
    double Rgeo = 0;        ///< geocentric distance of the body, m
    std::array<SkyPlace, chainStages> stage{};
    std::array<bool, chainStages> reached{};  ///< which of them the last pass went through
    SkyPlace body, sun;         ///< azimuth and altitude of body and Sun in the test of visibility
    std::int16_t kodVidim = 1;  ///< 0: the last one was not visible

    // --- sums over the accepted observations
    std::int32_t NObs = 0, NPlus = 0;
    double sumJD = 0, sumR = 0, sumR2 = 0, sumL = 0, sumAbsL = 0, sumL2 = 0, sumB = 0, sumAbsB = 0, sumB2 = 0;
    std::array<double, histogramCells> edge{};
    std::array<std::int32_t, histogramCells> count{};

    // --- experiments
    std::int32_t experiment = 0;  ///< number of the experiment, 0 outside a plan
    /// Criteria (i, j, k): i = 1 dR, thousand km, 2 dL, 3 dB, arc seconds; j = 1 mean, 2 root mean square; k
    /// experiment.
    std::array<std::array<std::array<double, maxPoints + 1>, 3>, 4> criterion{};
    std::int16_t kodDLplan = 0;  ///< 1: the plan varies perturbations of a planet, not its orbit
    std::int16_t NplDL = 1;      ///< by which perturbing planet, 1 or 2
    double dP11 = 0, dU11 = 0;   ///< rates of perihelion and node of the Moon, rad a century
    double PrecSek = 5029;       ///< rate of precession of a plan, arc seconds a century
    double planEpoch = 0;        ///< date to which the levels of the plan were loaded, JD; 0 before that
    ToolVelocity velocity;       ///< of the whole system, as the plan or the laboratory has it

    /// Column of the criteria that counts.
    int measure() const { return choices.rootMeanSquare ? 2 : 1; }
    void clearSums();
};

/// Enters the variables of the reduction under their names; the criteria as dRasKrit.
void addNames(NameTable& table, const ReductionState& r);

}  // namespace tarvex
