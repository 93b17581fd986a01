#pragma once
// Secular shifts of the orbit elements, planet by parameter, and the files that hold them.  Parameters 1..6
// are AlfaP, AlfaU, Betta (arc seconds a century), Eks (millionths), Rsr (km), W* (rad a century).

#include <array>
#include <string>

#include "stats/plan_block.h"

namespace tarvex {

class DataTree;
class NameTable;

inline constexpr int shiftPlanets = 11;  ///< planets 1..11 of the tables, 11 the Moon
inline constexpr int shiftParams = 6;

using ShiftRow = std::array<double, shiftParams + 1>;
using ShiftTable = std::array<ShiftRow, shiftPlanets + 1>;

/// Planet by parameter by experiment.
using PlanShiftTable =
    std::array<std::array<std::array<double, maxPoints + 1>, shiftParams + 1>, shiftPlanets + 1>;

struct ShiftTables {
    ShiftTable dNab{};         ///< observed shifts, planet by parameter
    PlanShiftTable dRas{};     ///< calculated shifts
    ShiftTable Ves{};          ///< weight of each shift in the criterion
    ShiftTable dNabErr{};      ///< one standard error of the observed shifts, 0 where it is not known
    PlanShiftTable dRasErr{};  ///< and of the calculated ones

    /// A cell; throws SubscriptFailure outside the table.
    double& observed(int planet, int param);
    double& calculated(int planet, int param, int experiment);
};

void addNames(NameTable& table, const ShiftTables& t);

/// Head lines of a file of shifts, for the picture.
struct ShiftFileHead {
    std::string title, columns;
};

/// Reads \<dir>\TarvexNab.dat (dir like "\Ser") for planets 1..planets into dNab, which keeps its values when
/// the file is bad.  Throws OpenFailure or FileFailure.
ShiftFileHead readObservedShifts(const DataTree& tree, const std::string& dir, int planets, ShiftTables& t);
/// Rewrites that file with all the values held.
void writeObservedShifts(const DataTree& tree, const std::string& dir, const ShiftTables& t);

/// Reads the calculated shifts of a planet in a plan into dRas; count becomes the number of experiments in
/// the file.  Keeps all values when the file is bad or holds more experiments than a plan can; `reached` then
/// tells how many could be read.
ShiftFileHead readPlanShifts(const DataTree& tree, int plan, int planet, ShiftTables& t, std::int16_t& count,
                             std::int16_t* reached = nullptr);
/// Rewrites that file for `count` experiments; the values are scaled by MK and cut.
void writePlanShifts(const DataTree& tree, int plan, int planet, const ShiftTables& t, int count);
/// The same with a given head and the values as they stand, without their scale.
void writePlanShiftsUnscaled(const DataTree& tree, int plan, int planet, const ShiftFileHead& head,
                             const ShiftTables& t, int count, std::int16_t& reached);

/// The errors of the same tables, in files beside theirs with the same layout.  Where there is no such file
/// the errors become 0, not known; a damaged one throws FileFailure and changes nothing.
void readObservedErrors(const DataTree& tree, const std::string& dir, ShiftTables& t);
void writeObservedErrors(const DataTree& tree, const std::string& dir, const ShiftTables& t);
void readPlanErrors(const DataTree& tree, int plan, int planet, ShiftTables& t);
void writePlanErrors(const DataTree& tree, int plan, int planet, const ShiftTables& t, int count);

}  // namespace tarvex
