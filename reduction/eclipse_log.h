#pragma once
// What a run of eclipses notes by the way: rise and set of the Sun, and the lines of its two log files.

#include "core/data_tree.h"
#include "reduction/eclipse.h"

namespace tarvex {

/// Rise and set by the altitudes of one step and the one before, whichever way time goes.
class RiseAndSet {
public:
    enum class Seen { Neither, Rise, Set };
    /// @param altitude  of the Sun's upper limb at this step, degrees
    /// @return          what happened since the last step; Neither at the first one
    Seen step(double altitude);
    void clear() { known_ = false; }
    bool begun() const { return known_; }

private:
    bool known_ = false;
    double last_ = 0;
};

/// Heads of the two files, where they do not stand yet: \Dat\Param_data.txt of places near each other, and
/// \Dat\TimeYer_data.txt of equinoxes and solstices.
/// @param s  IplSel and NameData are named in the heads
/// @throws FileFailure
void beginPlacesLog(const DataTree& tree, const ModelState& s);
void beginSolsticeLog(const DataTree& tree, const ModelState& s);

/// A line of the first while the boxes around the disks of the Sun and the body meet in azimuth and altitude:
/// the typed date, longitudes and latitudes Lpl, Bpl of both, degrees, all times 1000.
/// @param day, month, year  as the date fields hold them
/// @throws FileFailure
void logPlaces(const DataTree& tree, const ModelState& s, const Eclipse& e, double day, double month,
               double year);

/// A line of the second: local time by JDut, the Sun forward (geocentric J2000, of date), and `back` from the
/// horizon, degrees.  Leaves the date of JDut in DateFromJD's cells and the time in those of DayToHMS.
/// @throws FileFailure
void logSolstice(const DataTree& tree, ModelState& s, const Eclipse& e, const Eclipse::Sky& back);

/// hh:mm:ss of the fraction of a day.  Leaves ChasR, MinR, SekR.
std::string timeOfFraction(ModelState& s, double day);

}  // namespace tarvex
