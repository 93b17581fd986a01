#pragma once
// The shared model: one state that every form reads and writes.  All quantities are SI (metres, seconds,
// kilograms, radians) unless a comment says otherwise.  Arrays are indexed by the body row (see Row in
// constants.h) or by the system's own subscript; where that counts from 1, cell 0 is unused.

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "core/constants.h"
#include "core/failure.h"
#include "core/provenance.h"

namespace tarvex {

class NameTable;

template <class T, int N, int M>
using Row2 = std::array<std::array<T, M>, N>;
using Rows = std::array<double, rowCount>;  ///< one value a row, rows 0..39

struct ModelState {
    // --- orbital elements of a body at the date of the theory
    Rows AlfaL{};   ///< mean longitude, rad
    Rows R0sr{};    ///< semi-major axis, m
    Rows W0sr{};    ///< mean motion, rad/s
    Rows Eks0{};    ///< eccentricity
    Rows Betta0{};  ///< inclination, rad
    Rows AlfaP0{};  ///< longitude of perihelion, rad
    Rows AlfaU0{};  ///< longitude of ascending node, rad
    Rows Aae{};     ///< semi-major axis as a theory gives it, au
    Rows V0sr{};    ///< mean orbital speed R0sr*W0sr, m/s
    /// Elements of bodies 1..10 as handed to modelling: AlfaP0, AlfaU0, Betta0, Eks0, R0sr, W0sr, AlfaL.
    Row2<double, 8, bodies> ElemStart{};

    // --- rectangular state
    Rows X{}, Y{}, Z{};           ///< coordinates, m, heliocentric ecliptic unless told otherwise
    Rows VX{}, VY{}, VZ{};        ///< velocities, m/s
    Rows X0{}, Y0{}, Z0{};        ///< initial coordinates of a run, m
    Rows VX0{}, VY0{}, VZ0{};     ///< initial velocities of a run, m/s
    Rows XOld{}, YOld{}, ZOld{};  ///< coordinates at which the bodies were last drawn, m

    // --- what the element routines leave for later use
    Rows Mean{};      ///< mean anomaly, rad
    Rows Anom{};      ///< true anomaly, rad
    Rows Rr{};        ///< radius vector, m
    Rows Uarg{};      ///< argument of latitude, rad
    double Escr = 0;  ///< eccentric anomaly of the last call, rad; stale where Kepler's iteration fails
    std::array<double, 101> Ekep{};  ///< Kepler iterates
    double pKep = 0;                 ///< semi-latus rectum, m
    double Vr = 0, Vn = 0;           ///< radial and transverse speed, m/s

    // --- masses and sizes
    Rows km{};  ///< mSol / mass; row 11 Earth mass / Moon mass
    Rows m{};   ///< mass, kg; row 3 Earth with Moon, 11 Moon, 12 work cell of the element routines, 13 Earth
    double mSol = 0;   ///< mass of the Sun, kg
    double gamma = 0;  ///< gravitational constant, N m^2/kg^2
    Rows Diam = {1392000000., 4879000, 12104000, 12756000, 6794000, 0,
                 0,           0,       0,        0,        0,       3475000};  ///< diameter, m
    double RSol = 696000000;  ///< radius of the Sun, m; the Moon bench leaves a distance here
    /// Reference period shown beside the orbit check, days; rows 0 and 10 are fillers.
    std::array<double, 12> Tsid = {4444,    87.96926, 224.7008, 365.2564, 686.9796, 4332.82,
                                   10755.7, 30687.15, 60190.03, 90553.02, 99999,    27.32166};

    // --- which bodies take part
    std::array<std::int32_t, 13> kodPl{};  ///< 1 for a ticked body
    Row2<std::int32_t, 13, 13> kodPair{};  ///< 1 where both bodies of the pair are ticked
    std::int16_t NPlOn = 0;                ///< count of ticked bodies
    std::int16_t NEqMax = 65;              ///< highest index of the equations' state vector
    std::array<std::int16_t, 13> ColorR = {240, 240, 0, 0, 255, 0, 0, 189, 255, 0, 0};
    std::array<std::int16_t, 13> ColorG = {240, 0, 220, 0, 0, 0, 191, 0, 0, 0, 250};
    std::array<std::int16_t, 13> ColorB = {0, 240, 0, 255, 0, 220, 0, 0, 0, 255, 0};

    // --- units and the system velocity
    double Lae = LaeTheory;  ///< astronomical unit, m; the user can type it, every theory sets it again
    double VXsys = 0, VYsys = 0, VZsys = 0;  ///< velocity of the whole system, km/s
    double Mx = 0.3 * MK * MK;               ///< metres in a drawing unit

    // --- dates
    double JD = 0;                    ///< working Julian date
    double JD0 = 0;                   ///< Julian date of the date of the elements
    double JDstart = 0;               ///< start date of the run
    double JDepoha = 0;               ///< date to which the elements refer
    double JDet = 0;                  ///< JD plus ET-UT
    double JDut = 0;                  ///< JD without ET-UT
    double JDut0 = 0;                 ///< universal time of the reduction, the eclipses and the Moon bench
    std::int32_t God0 = 0, Mes0 = 0;  ///< year and month of the date of the elements
    double Den0 = 0;                  ///< day with fraction of that date
    std::int32_t God = 0, Mes = 0;    ///< scratch of date commands and files
    double Den = 0;
    std::int32_t GodR = 0, MesR = 0;  ///< result of DateFromJD and NormalizeDate
    double DenR = 0;
    double ChasR = 0, MinR = 0, SekR = 0;  ///< hours, minutes, seconds of DayToHMS
    std::int16_t kodKalend = 0;            ///< see Calendar
    double TimeZone = 0;                   ///< hours added by the calendar routines
    std::int16_t kodErrDate = 0;           ///< 1 after a bad date
    double KeyDate = 0;                    ///< year + month/100 + day/10000, the key of the calendar reform
    /// Month lengths by calendar (row) and month 1..12; NormalizeDate rewrites February.
    Row2<std::int16_t, 3, 13> DayMonth = {{{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
                                           {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
                                           {0, 30, 30, 30, 30, 30, 30, 30, 30, 30, 30, 30, 35}}};
    double TT = 0;  ///< time argument of the last theory call, centuries
    /// ET-UT formulas 1 and 2: columns 0..2 the coefficients, column 4 the kind (1 quadratic, 2 table, <0
    /// reversed).
    Row2<double, 3, 5> kET{};
    double JDt01 = 0, JDt02 = 0;  ///< origins T01 and T02 of the two formulas

    // --- mode codes
    std::int16_t Ipl = 0,
                 Ipl2 = 0;     ///< current bodies, the implicit argument of theories and element routines
    std::int32_t IplSel = 0;   ///< selected body
    std::int32_t IplJ = 0;     ///< body loop variable of the ephemeris load
    std::int32_t Icentr = 0;   ///< central body of ElementsToVXYZ: 0 the Sun, 13 the Earth; origin of a run
    std::int16_t kodMoon = 0;  ///< 1 in Earth-Moon mode
    std::int16_t kodBary = 0;  ///< what pulls in ElementsToVXYZ, see CentralMass
    std::int16_t kodStop = 0;  ///< 1 asks the running loop to stop
    std::int16_t NFile = 0;    ///< number of the numbered files
    std::int16_t NC = 0, NC0 = 0;  ///< steps since the last screen update, steps per update
    double Dt = 0, DtCur = 0;      ///< base step and current step, s
    std::int16_t kDt = 0;          ///< step divider
    std::int16_t NPlan = 0;        ///< number of the open plan, 0 outside a plan

    // --- coordinate chain
    Rows Lpl{}, Bpl{};                 ///< longitude or right ascension, latitude or declination, degrees
    Row2<double, 16, rowCount> Rpl{};  ///< distance of two rows, m
    Row2<double, 16, rowCount> Tsv{};  ///< light time between two rows, s
    Rows LonPl{};                      ///< longitude seen by PairGeometry, degrees
    double LatPl = 0;  ///< latitude of the last PairGeometry, degrees (obliquity in rad after a turn)
    double Rcur = 0;   ///< distance of the last PairGeometry, m
    double DXcur = 0, DYcur = 0, DZcur = 0, Rxycur = 0;  ///< its differences and their length in the plane, m
    Row2<double, 4, 4> Mprec{};                          ///< precession matrix, rows and columns 1..3
    double Prec = 0;               ///< accumulated precession of the last PrecessMatrixEcl, rad
    double Azim = 0, Vys = 0;      ///< azimuth from the south westward, altitude, degrees
    double TAU = 0;                ///< hour angle, degrees
    double ObsB = 0, ObsL = 0;     ///< latitude and longitude of the observer, degrees
    double GMST = 0, LMST = 0;     ///< sidereal time of Greenwich, hours; local, degrees
    std::array<double, 29> kLl{};  ///< Moon perturbation amplitudes 1..28, degrees
    Row2<double, 3, 49> kLp{};  ///< planet perturbation amplitudes, rows 1..2, column body*10+term, degrees
    std::array<std::int32_t, 5> Ipert1{}, Ipert2{};  ///< first and second perturbing body of bodies 1..4

    // --- texts
    std::string NameData;  ///< source of the observations or tables
    std::string TipData;   ///< folder of that source: "Tab" or "Obs"

    Provenance provenance;  ///< who wrote what a run starts from

    /// Shows a message of the model itself (a bad date, a date outside the ephemeris); the program connects
    /// it.
    std::function<void(const Message&)> say = [](const Message&) {};
};

/// IplSel takes any number that a parameter file holds; whoever uses it as a row asks for one of the bodies
/// 0..11 first.  Throws SubscriptFailure.
inline void needSelectedBody(const ModelState& s) {
    if (s.IplSel < 0 || s.IplSel > rowMoon) throw SubscriptFailure("нет тела № " + std::to_string(s.IplSel));
}

/// Enters every shared variable of the model, and the constants, into the table under its own name.
void addNames(NameTable& table, const ModelState& s);

}  // namespace tarvex
