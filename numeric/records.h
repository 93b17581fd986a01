#pragma once
// The files of an experiment: element records at each apse (FileRas) and the track of the body (FileXYZ).
// Both stay closed between records; a record is one append.  From its head to its last record a file is
// claimed: two programs would mix their records in it.

#include <string>

#include "core/data_tree.h"
#include "core/model_state.h"
#include "numeric/motion.h"
#include "numeric/run_state.h"

namespace tarvex {

/// Number of the body in file names and heads: IplSel, 11 in Earth-Moon mode.
int fileBody(const ModelState& s);

/// Names of the two files of a run by NPlan, NFile and, for an imitator, its theory.
std::string recordFile(const ModelState& s, const RunState& run);
/// The first of them for a run that is yet to begin.
/// @param body  as fileBody() tells it
std::string recordFile(bool model, Imitator theory, int plan, int body, int experiment);
std::string trackFile(const ModelState& s);

/// Number of records that a reader of FileRas must be ready for; 32-bit.
/// @throws OverflowFailure, and ArithmeticFailure for a zero step, NC0 or period
std::int32_t recordCount(const ModelState& s, const RunState& run);

/// Claims the files that the boxes ask for.  Throws FileFailure when another program is writing one of them.
void claimRecords(const DataTree& tree, RunState& run);
/// The run is done with its files.
void dropRecords(RunState& run);

/// Replaces FileRas by its five head lines.
/// @param today  the date of the day as the head shows it, "21.11.2026"
void writeRasHead(const DataTree& tree, const ModelState& s, const Motion& motion, RunState& run,
                  const std::string& today);
/// Replaces FileXYZ by its four head lines.
void writeXYZHead(const DataTree& tree, const ModelState& s, const Motion& motion, RunState& run,
                  const std::string& today);

/// Appends one element record, or with the energy box one energy record, to FileRas.  Leaves JD, Ipl, Lae and
/// the body's elements as ElementsJPL0 sets them, and with the energy box Eks, Rr and Period as
/// recorded: what scripts print after a run.
void WriteRasRecord(const DataTree& tree, ModelState& s, RunState& run);
/// Appends one line of date, coordinates, velocities and energies of IplSel to FileXYZ.
void WriteXYZRecord(const DataTree& tree, const ModelState& s, RunState& run);

/// A measured angle continued over whole turns.
/// @param theory    the angle of a theory at the same date, radians, not reduced: it counts the turns
/// @param measured  degrees, 0..360
/// @return          degrees
double continuousAngle(double theory, double measured);

/// The speed of gravity in units of Vsv as heads show it, cut to hundredths; 0 while it is off.
std::string gravitySpeedText(const Motion& motion);

/// Today's date as file heads show it.
std::string todayText();

}  // namespace tarvex
