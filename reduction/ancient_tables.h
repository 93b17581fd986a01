#pragma once
// The tables of the old astronomers: workbooks in which a date written into fixed cells makes longitude and
// latitude appear in other fixed cells.  Here are the map of those cells, the corrections afterwards, and
// what is usual for a table: its observer, calendar and start.

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/data_tree.h"
#include "core/model_state.h"
#include "spreadsheet/spreadsheet.h"

namespace tarvex {

/// Where a table has the place of a body.
struct TableBody {
    int body = 0;
    Cell longitude;
    std::optional<Cell> latitude;   ///< none: the latitude is 0
    std::optional<Cell> southMark;  ///< a cell whose text "S" turns the latitude negative
};

/// One table.
struct AncientTable {
    std::string name;  ///< NameData, and the name of the workbook
    int sheets = 0;    ///< worksheets kept open; 0: the table has no cells
    int startYear = 0;
    double ObsL = 0, ObsB = 0;       ///< place of its author, degrees
    std::array<Cell, 4> date{};      ///< year, month, day, hours
    std::optional<Cell> precession;  ///< none: 0, or computed
    bool computedPrecession = false;
    bool addsPrecession = false;  ///< its longitudes are sidereal: the precession is added to them
    std::vector<TableBody> bodies;
};

/// Tables by the number of their option, 1..10; two of them have a name and no cells.
/// Throws SubscriptFailure.
const AncientTable& ancientTable(int option);

/// The date as it goes to a table (or came from an observation): local, in the calendar of the data.
struct ObservedDate {
    std::int32_t GodObs = 0, MesObs = 0, DenObsI = 0;  ///< year, month, whole day
    double ChasObs = 0;                                ///< hours
    double DenObs = 0;                                 ///< day with its fraction
    /// Takes GodR, MesR, DenR of the calendar routines apart.
    void takeFrom(const ModelState& s);
};

/// The local date of the observer: DenR, MesR, GodR with ObsL of the state added as time, normalised.
void NormalizeLocalDate(ModelState& s, ObservedDate& date);

/// A table in use.
struct TableInUse {
    const AncientTable* table = nullptr;  ///< null: none was chosen
    std::unique_ptr<Workbook> book;       ///< null: closed, or a table without cells
    double PrecTab0 = 0;                  ///< precession of the table at its start, degrees

    void close() {
        book.reset();
        table = nullptr;
    }
};

/// Opens the workbook of a table ("\Tab\NAME.xls").  A table without cells opens nothing.
/// Throws OpenFailure or FileFailure for a missing or unfit workbook, OfficeFailure when LibreOffice is
/// missing.
void openTable(TableInUse& t, int option, SpreadsheetOffice& office, const DataTree& tree);
std::string tableFileName(const AncientTable& table);

/// Zero point of the Almagest's precession at its start, degrees: the observations and the eclipses
/// have one each, on which their results so far rest.
inline constexpr double almagestPrecReduction = 3.9, almagestPrecEclipse = 6.83;

/// Writes the date to the table and reads Lpl(IplSel) and Bpl(IplSel), degrees of the ecliptic of date, and
/// Prec. A body that the table does not have keeps its old values.
/// @param almagestPrec  one of the two constants above
/// @param correct       replace the table's own precession: PrecTab0 at the start and 5025 arc seconds a
/// century from
///                      JDepoha to JDut0
/// @param alsoSun       read Lpl(0) as well, in the same exchange
/// @return the precession that stands for the table's own when corrected: PrecTab0 + PrecNow, degrees
/// Throws Failure.
double ReadTableCells(ModelState& s, const TableInUse& t, const ObservedDate& date, double almagestPrec,
                      bool correct, bool alsoSun = false);

}  // namespace tarvex
