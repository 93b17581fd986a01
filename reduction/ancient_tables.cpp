#include "reduction/ancient_tables.h"

#include "core/calendar.h"
#include "core/failure.h"
#include "core/numbers.h"

namespace tarvex {

namespace {

constexpr double tablePrecession = 5025.0 / 36525 / 3600;  ///< degrees a day

std::vector<TableBody> onFirstSheet(const char* sun, std::array<const char*, 2> mercury,
                                    std::array<const char*, 2> venus, std::array<const char*, 2> mars,
                                    std::array<const char*, 2> moon) {
    const auto body = [](int number, const std::array<const char*, 2>& cells) {
        TableBody b{number, {1, cells[0]}, {}, {}};
        if (cells[1] != nullptr) b.latitude = Cell{1, cells[1]};
        return b;
    };
    return {{0, {1, sun}, {}, {}}, body(1, mercury), body(2, venus), body(4, mars), body(11, moon)};
}

std::array<Cell, 4> dateAt(const char* year, const char* month, const char* day, const char* hours) {
    return {Cell{1, year}, Cell{1, month}, Cell{1, day}, Cell{1, hours}};
}

std::array<AncientTable, 11> makeTables() {
    std::array<AncientTable, 11> t;
    // clang-format off
    // file, sheets, start year, longitude and latitude of its author, date, precession, computed, added, bodies
    t[1] = {"AlBattani", 9, 900, 37, 36, dateAt("D9", "C9", "B9", "F9"), {}, false, false,
            onFirstSheet("C14", {"C20", "F20"}, {"C19", "F19"}, {"C18", "F18"}, {"C15", "F15"})};
    t[2] = {"AlfonsoTab", 7, 1200, -4, 39.9, dateAt("D13", "C13", "B13", "F13"), Cell{1, "D39"}, false, false,
            onFirstSheet("D46", {"D145", nullptr}, {"D128", nullptr}, {"D112", nullptr}, {"D55", "D60"})};
    t[3] = {"AlKhwarizmi", 9, 800, 44, 33, dateAt("D9", "C9", "B9", "F9"), Cell{1, "C22"}, false, true,
            onFirstSheet("C14", {"C20", "F20"}, {"C19", "F19"}, {"C18", "F18"}, {"C15", "F15"})};
    t[4] = {"Almagest", 8, 607, 39, 30.97, dateAt("B6", "C6", "D6", "E6"), {}, true, false,
            {{0, {2, "N20"}, {}, {}},
             {1, {8, "AD61"}, Cell{8, "AD36"}, {}},
             {2, {7, "AD61"}, Cell{7, "AD36"}, {}},
             {4, {6, "AD57"}, Cell{6, "AF30"}, Cell{6, "AE30"}},
             {11, {3, "X36"}, Cell{3, "X43"}, {}}}};
    t[5].name = "HandyTables";
    t[6].name = "PrutenticTables";
    t[7] = {"RudolphineTables", 11, 1600, 12.5, 55.9, dateAt("C10", "D10", "E10", "F10"), Cell{3, "F27"}, false, false,
            onFirstSheet("C13", {"C19", "G19"}, {"C18", "G18"}, {"C17", "G17"}, {"C23", "G23"})};
    t[8] = {"Streete", 10, 1620, 0, 51.5, dateAt("C14", "D14", "E14", "F14"), Cell{1, "G20"}, false, false,
            {{0, {1, "D25"}, {}, {}},
             {1, {9, "S35"}, Cell{9, "S41"}, {}},
             {2, {8, "S35"}, Cell{8, "S41"}, {}},
             {4, {7, "S35"}, Cell{7, "S41"}, {}},
             {11, {1, "G50"}, Cell{1, "G46"}, {}}}};
    t[9] = {"Tycho", 1, 1580, 12.5, 55.9, dateAt("E11", "D11", "C11", "G11"), {}, false, false,
            {{0, {1, "G20"}, {}, {}}, {11, {1, "G29"}, Cell{1, "G52"}, {}}}};
    t[10] = {"Wing", 10, 1640, 0, 51.5, dateAt("C14", "D14", "E14", "F14"), {}, false, false,
             {{0, {3, "P19"}, {}, {}},
              {1, {8, "V51"}, Cell{8, "V52"}, {}},
              {2, {7, "V48"}, Cell{7, "V49"}, {}},
              {4, {6, "V48"}, Cell{6, "V49"}, {}},
              {11, {1, "G47"}, Cell{1, "G43"}, {}}}};
    // clang-format on
    return t;
}

const TableBody* bodyOf(const AncientTable& table, int number) {
    for (const TableBody& body : table.bodies)
        if (body.body == number) return &body;
    return nullptr;
}

}  // namespace

const AncientTable& ancientTable(int option) {
    static const std::array<AncientTable, 11> tables = makeTables();
    if (option < 1 || option > 10) throw SubscriptFailure("нет таблицы № " + std::to_string(option));
    return tables[option];
}

void ObservedDate::takeFrom(const ModelState& s) {
    GodObs = s.GodR;
    MesObs = s.MesR;
    DenObs = s.DenR;
    DenObsI = toInt32(Fix(DenObs));
    ChasObs = (DenObs - DenObsI) * 24;
}

void NormalizeLocalDate(ModelState& s, ObservedDate& date) {
    NormalizeDate(s, s.DenR + s.ObsL / 15 / 24, s.MesR, s.GodR);
    date.takeFrom(s);
}

std::string tableFileName(const AncientTable& table) { return "\\Tab\\" + table.name + ".xls"; }

void openTable(TableInUse& t, int option, SpreadsheetOffice& office, const DataTree& tree) {
    t.close();
    const AncientTable& table = ancientTable(option);
    if (table.sheets > 0) t.book = office.open(tree.at(tableFileName(table)), table.sheets);
    t.table = &table;
}

namespace {

int selectedRow(const ModelState& s) {
    if (s.IplSel < 0 || s.IplSel >= rowCount)
        throw SubscriptFailure("нет в таблице тела № " + std::to_string(s.IplSel));
    return s.IplSel;
}

/// The cells that a reading asks for: precession, then those of the body, then the Sun's longitude.
std::vector<Cell> wantedCells(const AncientTable& table, const TableBody* body, const TableBody* sun) {
    std::vector<Cell> wanted;
    if (table.precession) wanted.push_back(*table.precession);
    if (body != nullptr) {
        wanted.push_back(body->longitude);
        if (body->latitude) wanted.push_back(*body->latitude);
        if (body->southMark) wanted.push_back(*body->southMark);
    }
    if (sun != nullptr) wanted.push_back(sun->longitude);
    return wanted;
}

/// Adds to the longitudes of the Sun and of body b.
void addToLongitudes(ModelState& s, int b, double change) {
    s.Lpl[rowSun] += change;
    if (b > 0) s.Lpl[b] += change;
}

}  // namespace

double ReadTableCells(ModelState& s, const TableInUse& t, const ObservedDate& date, double almagestPrec,
                      bool correct, bool alsoSun) {
    if (t.table == nullptr) throw Failure("таблица не открыта");
    const AncientTable& table = *t.table;
    const double PrecNow = (s.JDut0 - s.JDepoha) * tablePrecession;
    if (!t.book) return t.PrecTab0 + PrecNow;  // a table without cells reads and corrects nothing
    const int b = selectedRow(s);
    const TableBody* body = bodyOf(table, b);
    const TableBody* sun = alsoSun && b != 0 ? bodyOf(table, 0) : nullptr;
    const auto values =
        t.book->calculate({table.date.begin(), table.date.end()},
                          {double(date.GodObs), double(date.MesObs), double(date.DenObsI), date.ChasObs},
                          wantedCells(table, body, sun));
    auto value = values.begin();
    s.Prec = table.precession           ? numberIn(*value++)
             : table.computedPrecession ? (s.JDut0 - s.JDepoha) / 36525 + almagestPrec
                                        : 0;
    if (body != nullptr) {
        const double L = numberIn(*value++);
        double B = body->latitude ? numberIn(*value++) : 0;
        if (body->southMark && textIn(*value++) == "S") B = -B;
        s.Lpl[b] = L;
        s.Bpl[b] = B;
    }
    if (sun != nullptr) {
        s.Lpl[rowSun] = numberIn(*value);
        s.Bpl[rowSun] = 0;
    }
    if (table.addsPrecession) addToLongitudes(s, b, s.Prec);
    if (correct) addToLongitudes(s, b, t.PrecTab0 + PrecNow - s.Prec);
    return t.PrecTab0 + PrecNow;
}

}  // namespace tarvex
