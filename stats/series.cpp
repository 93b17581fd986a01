#include "stats/series.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/data_tree.h"
#include "core/name_table.h"
#include "core/text_files.h"

namespace tarvex {

namespace {

constexpr double kept = 0.005;  ///< half of the last place in which a file keeps dates, days

/// Fields of a long record after number, dT, ddT and weight; of a short one the first six after number and
/// dT.
constexpr int shortParams = 6, longParams = 9;

Record readRecord(TextReader& file, DataKind kind) {
    Record r;
    file.number();  // the record's number; records are counted by position
    r.dTd = file.number() / 100;
    if (kind == dataLong) {
        r.ddTd = file.number() / 100;
        r.Par[parVes] = file.number() / (100 * MK);
    } else {
        r.Par[parVes] = MK / (100 * MK);  // short records are fitted with weight 1, this value is never used
    }
    for (int p = 1; p <= (kind == dataLong ? longParams : shortParams); ++p)
        r.Par[p] = file.number() / (100 * MK);
    r.Par[parAlfaL0] *= 100;  // the one field that is written without the 100
    return r;
}

std::string recordText(int number, const Record& r, DataKind kind) {
    std::string text = fileItem(number) + fileItem(Fix(100 * r.dTd));
    if (kind == dataLong) text += fileItem(Fix(100 * r.ddTd)) + fileItem(Fix(100 * MK * r.Par[parVes]));
    for (int p = 1; p <= (kind == dataLong ? longParams : shortParams); ++p)
        text += fileItem(Fix((p == parAlfaL0 ? MK : 100 * MK) * r.Par[p]));
    return text;
}

/// Moves the origin to the earliest of the dates and counts every record from it.
void setDates(SeriesData& d, const std::vector<double>& dates) {
    d.JD0 = *std::min_element(dates.begin(), dates.end());
    for (std::size_t i = 0; i < dates.size(); ++i) d.records[i].dTd = dates[i] - d.JD0;
}

std::vector<double> datesOf(const SeriesData& d) {
    std::vector<double> dates;
    dates.reserve(d.records.size() + 1);
    for (const Record& r : d.records) dates.push_back(d.JD0 + r.dTd);
    return dates;
}

}  // namespace

const Record& SeriesData::at(int i) const {
    if (i < 1 || i > NP1max()) throw SubscriptFailure("нет записи № " + std::to_string(i));
    return records[i - 1];
}

void addNames(NameTable& table, const SeriesData& d) {
    table.add("Npl", d.Npl);
    table.add("Nparam", d.Nparam);
    table.add("kodData", d.kodData);
    table.add("FileData", d.FileData);
    table.add("DirImit", d.DirImit);
    table.add("JD0series", d.JD0);
    const auto one = [&d](const std::vector<int>& indices, std::size_t count) -> const Record& {
        if (indices.size() != count) throw SubscriptFailure("не то число номеров в скобках");
        return d.at(indices[0]);
    };
    table.addComputed("NP1max", [&d](const std::vector<int>&) { return toFullText(d.NP1max()); });
    table.addComputed("dTd", [one](const std::vector<int>& i) { return toFullText(one(i, 1).dTd); });
    table.addComputed("ddTd", [one](const std::vector<int>& i) { return toFullText(one(i, 1).ddTd); });
    table.addComputed("Par", [one](const std::vector<int>& i) {
        const Record& r = one(i, 2);
        if (i[1] < 1 || i[1] > parVes) throw SubscriptFailure("нет параметра № " + std::to_string(i[1]));
        return toFullText(r.Par[i[1]]);
    });
}

void readSeries(const DataTree& tree, const std::string& name, DataKind kind, SeriesData& d) {
    TextReader file(tree.at(name));
    SeriesData read;
    for (std::string& line : read.header) line = file.line();
    const std::int32_t count = file.int32();
    read.JD0 = file.number() / 100;
    std::int32_t records = 0;
    while (!file.noMoreItems()) {
        if (records >= count)
            throw FileFailure("записей больше, чем сказано в начале файла " + name + ": " +
                              std::to_string(count));
        const Record r = readRecord(file, kind);
        if (++records <= maxRecords) read.records.push_back(r);
    }
    if (records > maxRecords)
        throw Refusal("У Вас в файле " + toText(records) + " записей. Это больше допустимых\r\n" +
                          "32000 записей. Надо переделать эксперимент увеличив NC0\r\n" +
                          "т.е. количество шагов для вывода данных в файл",
                      "Tarvex7");
    if (records == 0) throw FileFailure("нет записей в файле " + name);
    d.header = std::move(read.header);
    d.JD0 = read.JD0;
    d.records = std::move(read.records);
    d.folded = 0;
    d.FileData = name;
}

void writeSeries(const DataTree& tree, const SeriesData& d) {
    TextWriter file(tree.at(d.FileData));
    for (const std::string& line : d.header) file.line(line);
    file.items(d.NP1max(), Fix(100 * d.JD0));
    for (int i = 1; i <= d.NP1max(); ++i) {
        Record r = d.at(i);
        if (d.folded != 0) r.Par[d.folded] = r.unfolded;
        file.line(recordText(i, r, static_cast<DataKind>(d.kodData)));
    }
    file.commit();
}

void foldAngles(SeriesData& d, std::int16_t p) {
    d.folded = p;
    for (Record& r : d.records) {
        double& v = r.Par[p];
        r.unfolded = v;
        if (v > 0)
            v -= Fix(v / 360) * 360;
        else if (v < 0)
            v -= (Fix(v / 360) - 1) * 360;
    }
}

void setValue(const SeriesData& d, Record& record, int p, double value) {
    record.Par.at(p) = value;
    if (p == d.folded) record.unfolded = value;
}

void removeRecord(SeriesData& d, int i) {
    d.at(i);
    if (d.NP1max() == 1) throw SubscriptFailure("это единственная запись ряда");
    auto dates = datesOf(d);
    dates.erase(dates.begin() + (i - 1));
    d.records.erase(d.records.begin() + (i - 1));
    if (i == 1) setDates(d, dates);
}

int recordAt(const SeriesData& d, double date) {
    for (int i = 1; i <= d.NP1max(); ++i)
        if (std::abs(d.date(i) - date) < kept) return i;
    return 0;
}

int placeFor(const SeriesData& d, double date) {
    const int n = d.NP1max();
    for (int i = 1; i <= n + 1; ++i) {
        const double before = i == 1 ? 0 : d.date(i - 1), after = i > n ? 2 * JD2000 : d.date(i);
        if (before < date && date < after) return i;
    }
    throw SubscriptFailure("эта дата в ряду уже есть или вне его: JD " + toText(date));
}

void insertRecord(SeriesData& d, int place, double date, Record record) {
    if (place < 1 || place > d.NP1max() + 1 || d.NP1max() >= maxRecords)
        throw SubscriptFailure("нет места для записи № " + std::to_string(place));
    auto dates = datesOf(d);
    dates.insert(dates.begin() + (place - 1), finite(date));
    d.records.insert(d.records.begin() + (place - 1), record);
    setDates(d, dates);
}

int recordNear(const SeriesData& d, double days) {
    const int n = d.NP1max();
    const auto middle = [&](int i) { return d.at(i).dTd + d.at(i).ddTd / 2; };
    for (int i = 1; i < n; ++i)
        if (days < (middle(i) + middle(i + 1)) / 2) return i;
    return n;
}

}  // namespace tarvex
