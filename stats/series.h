#pragma once
// Series of orbit elements of one planet: short records (runs of the model, imitators) and long ones (from
// observations), their files, and their editing record by record.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/model_state.h"

namespace tarvex {

class DataTree;

/// State of the series data, the values of kodData.
enum DataKind : std::int16_t {
    dataNone = 0,
    dataImitatorShifts = 1,
    dataPlanShifts = 2,
    dataImitator = 3,
    dataModel = 4,
    dataLong = 5,
    dataTest = 6
};

/// Parameters of a record.  Angles in degrees, Rsr in millions of km, W*, dP11, dU11 in rad a century.
enum Param : std::int16_t {
    parAlfaP = 1,
    parAlfaU,
    parBetta,
    parEks,
    parRsr,
    parW,
    parAlfaL0,
    parDP11,
    parDU11,
    parVes
};

inline constexpr int maxRecords = 32000;

struct Record {
    double dTd = 0;                ///< days from JD0
    double ddTd = 0;               ///< interval, days
    std::array<double, 11> Par{};  ///< parameters 1..10
    double unfolded = 0;           ///< the folded parameter as the file has it, see foldAngles()
};

struct SeriesData {
    std::int32_t Npl = 1;     ///< planet, 1..11
    std::int16_t Nparam = 1;  ///< chosen parameter
    std::int16_t kodData = dataNone;
    std::string FileData;                 ///< the series file, named from the program's folder
    std::string DirImit;                  ///< folder of the imitator, like "\Ser"
    std::array<std::string, 4> header{};  ///< the file's head lines, kept for rewriting
    double JD0 = 0;                       ///< Julian date of the series' origin; not the origin of a run
    std::vector<Record> records;          ///< record number i is records[i - 1]
    std::int16_t folded = 0;              ///< parameter whose angles are folded in memory, 0: none

    int NP1max() const { return static_cast<int>(records.size()); }
    /// Record number i from 1; throws SubscriptFailure outside the series.
    const Record& at(int i) const;
    double date(int i) const { return JD0 + at(i).dTd; }
};

void addNames(NameTable& table, const SeriesData& d);

/// Reads a series file of long or short records.  Throws OpenFailure, FileFailure (a record cut short, text
/// for numbers, more records than the count line says, none at all), or a Refusal above 32,000 records.  A
/// count line that says more than there is is no fault.
void readSeries(const DataTree& tree, const std::string& name, DataKind kind, SeriesData& d);
/// Rewrites d.FileData with d.header, count, origin and records numbered from 1; long records for dataLong.
void writeSeries(const DataTree& tree, const SeriesData& d);

/// Folds parameter p of all records into 0..360 degrees in memory; a rewritten file keeps its turns.
void foldAngles(SeriesData& d, std::int16_t p);
/// Gives a parameter of a record its value, in memory and for the file.
void setValue(const SeriesData& d, Record& record, int p, double value);

/// Removes record number i; the origin moves to the earliest date when the first went.
/// Throws SubscriptFailure outside the series and for its only record.
void removeRecord(SeriesData& d, int i);
/// Number of the record with this date, 0 when there is none.  Dates are kept to 0.01 day.
int recordAt(const SeriesData& d, double date);
/// Number at which a record of a date that the series does not hold belongs.
/// Throws SubscriptFailure where no neighbours enclose it.
int placeFor(const SeriesData& d, double date);
/// Inserts a record with this date and number `place`; the origin becomes the earliest date and every dTd
/// follows.
void insertRecord(SeriesData& d, int place, double date, Record record);

/// Number of the record nearest to `days` from the origin, by the middles of the intervals; 0 for an empty
/// series.
int recordNear(const SeriesData& d, double days);

}  // namespace tarvex
