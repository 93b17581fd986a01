#pragma once
// Eclipses and transits as seen from one place: the disks of the Sun and a body (the Moon, Mercury, Venus)
// and the Earth's shadow on the sky at one moment, by a theory, the ephemeris or an ancient table, with two
// clocks: ET1 turns the planets, ET2 the Earth.

#include <array>
#include <functional>

#include "core/model_state.h"
#include "reduction/sky_rows.h"

namespace tarvex {

struct Ephemeris;

struct Eclipse {
    enum class Source { Tables, New0, JPL0, JPL2, Ser0Plus };

    // --- what to compute
    Source source = Source::Ser0Plus;
    bool lunar = false;        ///< the Moon and the shadow, not the Sun and the body
    bool moonTerms = false;    ///< periodic perturbations of the Moon
    bool planetTerms = false;  ///< periodic perturbations of the Earth and the planet
    bool refraction = false;   ///< altitudes as the air shows them
    bool solstices = false;    ///< watch for equinoxes and solstices
    /// Ancient tables: writes longitudes and latitudes of rows 0 and IplSel, degrees of date, into Lpl and
    /// Bpl.
    std::function<void()> readTable;

    // --- results of EclipseAt, degrees unless told otherwise
    struct Sky {
        double L = 0, B = 0;  ///< longitude or right ascension, latitude or declination
    };
    /// Sun and body at the stages of the chain.
    struct Stages {
        Sky geoJ2000, source, receiver, ofDate, equator, nutation, topo;
    };
    Stages sun, body;
    std::array<double, rowCount> azimuth{},
        altitude{};                    ///< rows 0, body, 13 and 30..37; azimuth -180..180, 0 south
    double Rsun = 0.27, Rbody = 0.27;  ///< angular radii of the disks
    double Rshadow = 0;                ///< angular radius of the umbra at the Moon, from the Earth's centre
    double RshadowSeen = 0;            ///< the same from the observer's distance to the Moon
    double Tsol = 0;                   ///< hour angle of the limb's first point, hours
    bool kodSolst = false;             ///< the Sun is within a degree of an equinox or a solstice
    double separation = 0;             ///< of the centres: Sun and body, or Moon and shadow
    double magnitude = 0;              ///< covered share of the diameter of the Sun (of the Moon)
};

/// Places everything for the moment s.JDut0 (with s.JDet for the planets and s.JDut for the Earth's rotation)
/// and the observer s.ObsL, s.ObsB; rows 0, 3, 11, IplSel, 12..14 of the state hold the chain's vectors
/// afterwards, rows 0, IplSel, 13 and the limb unit vectors of the horizon. With the masses of the
/// source; those of the state and its elements stay.
/// @param drawHeliocentric  called when rows 0, 3, 11, IplSel are heliocentric ecliptic, before they turn
/// geocentric A date that the ephemeris does not serve leaves as its Refusal, with s.kodStop set. Throws
/// ArithmeticFailure when the body is the Earth or stands in the origin.
void EclipseAt(ModelState& s, Ephemeris& ephemeris, Eclipse& e,
               const std::function<void()>& drawHeliocentric = {});

/// From the horizon back to the geocentric ecliptic of date: where a Sun seen at e.azimuth[0], e.altitude[0]
/// stands. Rows 18 to 21; leaves LonPl(16), LatPl of the result.
/// @return longitude and latitude, degrees
Eclipse::Sky EclipseBack(ModelState& s, const Eclipse& e, bool withRefraction, bool withNutation);

/// The moments at which two disks touch, found between steps.
class Contacts {
public:
    enum class Kind { First, Second, Third, Fourth };
    struct Contact {
        Kind kind;
        double JDut0;
    };
    /// Takes the state of one step.  Steps may go forward or back in time.
    /// @param sum, difference  sum and absolute difference of the radii, degrees
    /// @return the contacts passed since the last step, in the order they were passed (none or one or two)
    std::array<Contact, 2> step(double JDut0, double separation, double sum, double difference, int& count);
    void clear() { known_ = false; }

private:
    bool known_ = false;
    double JD_ = 0, outer_ = 0, inner_ = 0;  ///< last moment; separation less the sum and less the difference
};

}  // namespace tarvex
