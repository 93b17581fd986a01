#pragma once
// Workbooks of the ancient tables, driven through a spreadsheet program that runs hidden beside this one: a
// date goes into named cells, the workbook's own formulas work, other cells are read.  No type of that
// program shows here.

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "core/failure.h"

namespace tarvex {

/// The spreadsheet program is not there, cannot be started or has gone.
struct OfficeFailure : Failure {
    using Failure::Failure;
};

/// A cell by its name ("D39") on a sheet numbered from 1.
struct Cell {
    int sheet = 1;
    std::string name;
    bool operator==(const Cell&) const = default;
};

/// What a cell holds.  An empty cell is the number 0.
using CellValue = std::variant<double, std::string>;

/// The number of a cell; throws ConversionFailure for a text.
double numberIn(const CellValue& value);
/// The text of a cell; a number gives its text.
std::string textIn(const CellValue& value);

/// An open workbook.  The file itself is never changed and never locked.  Closed by its destructor.
class Workbook {
public:
    virtual ~Workbook() = default;

    /// Writes numbers to cells, recalculates, reads cells.  Three round trips to the program when the lists
    /// of cells are those of the call before; the cells are tied to the exchange anew when they are not.
    /// @param inputs   cells to write
    /// @param values   one number a cell of inputs
    /// @param outputs  cells to read
    /// @return         what the output cells hold, in their order
    /// Throws Failure: a cell name or sheet number that is none, an error in a read cell, or (OfficeFailure)
    /// the program has gone.
    virtual std::vector<CellValue> calculate(const std::vector<Cell>& inputs,
                                             const std::vector<double>& values,
                                             const std::vector<Cell>& outputs) = 0;
};

/// The spreadsheet program: started hidden at the first open, started again when it has gone, ended with this
/// object. It never outlives this program, also not after a crash.
class SpreadsheetOffice {
public:
    SpreadsheetOffice();
    ~SpreadsheetOffice();  ///< workbooks that are still open only throw from then on
    SpreadsheetOffice(const SpreadsheetOffice&) = delete;
    SpreadsheetOffice& operator=(const SpreadsheetOffice&) = delete;

    /// Called with true before a wait of seconds (the start, a load) and with false after it.
    void onBusy(std::function<void(bool)> busy);

    /// Opens a workbook.
    /// @param path    the file, in any format the program reads
    /// @param sheets  worksheets that it must have at least
    /// Throws OpenFailure when there is no such file, FileFailure when it is no such workbook, OfficeFailure
    /// when the program is missing or does not start.
    std::unique_ptr<Workbook> open(const std::filesystem::path& path, int sheets);

    /// Process number of the running program, 0 while there is none.
    int process() const;

    /// True when the program was found as this laboratory was built.
    static bool available();

private:
    struct Running;
    std::unique_ptr<Running> running_;
    std::function<void(bool)> busy_ = [](bool) {};
};

}  // namespace tarvex
