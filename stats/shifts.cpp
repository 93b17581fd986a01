#include "stats/shifts.h"

#include <filesystem>

#include "core/constants.h"
#include "core/data_tree.h"
#include "core/failure.h"
#include "core/name_table.h"
#include "core/text_files.h"

namespace tarvex {

namespace {

void needCell(int planet, int param) {
    if (planet < 1 || planet > shiftPlanets || param < 1 || param > shiftParams)
        throw SubscriptFailure("нет в таблице смещений планеты № " + std::to_string(planet) +
                               " и параметра № " + std::to_string(param));
}

void needCount(int count) {
    if (count < 0 || count > maxPoints)
        throw SubscriptFailure("к-во экспериментов " + std::to_string(count) + " не из 0..91");
}

ShiftRow readRow(TextReader& file) {
    file.number();  // the number of the row; rows go by position
    ShiftRow row{};
    for (int c = 1; c <= shiftParams; ++c) row[c] = file.number() / MK;
    return row;
}

std::string rowText(int number, const ShiftRow& row, bool scaled) {
    std::string text = fileItem(number);
    for (int c = 1; c <= shiftParams; ++c) text += fileItem(scaled ? Fix(MK * row[c]) : row[c]);
    return text;
}

ShiftRow experimentRow(const PlanShiftTable& table, int planet, int u) {
    ShiftRow row{};
    for (int c = 1; c <= shiftParams; ++c) row[c] = table[planet][c][u];
    return row;
}

constexpr const char* planetColumns =
    "№ планеты      перигелий    восхождение    наклон     эксцентриситет   полуось       угл. скорость";
constexpr const char* experimentColumns =
    "№ эксперимента  перигелий   восхождение     наклон    эксцентриситет    полуось        угл. скорость";

/// Reads `planets` rows after two head lines; the table keeps its values when the file is bad.
ShiftFileHead readTable(TextReader& file, int planets, ShiftTable& table) {
    ShiftFileHead head;
    head.title = file.line();
    head.columns = file.line();
    ShiftTable read = table;
    for (int i = 1; i <= planets; ++i) read[i] = readRow(file);
    table = read;
    return head;
}

void writeTable(const DataTree& tree, const std::string& name, const std::string& title,
                const ShiftTable& table) {
    TextWriter file(tree.at(name));
    file.line(title);
    file.line(planetColumns);
    for (int i = 1; i <= shiftPlanets; ++i) file.line(rowText(i, table[i], true));
    file.commit();
}

ShiftFileHead readPlanTable(TextReader& file, int planet, PlanShiftTable& table, std::int16_t& count,
                            std::int16_t* reached) {
    ShiftFileHead head;
    head.title = file.line();
    const int experiments = file.int16();
    file.line();  // the rest of the line of the count
    head.columns = file.line();
    if (experiments < 1 || experiments > maxPoints)
        throw FileFailure("к-во экспериментов " + std::to_string(experiments) + " не из 1..91 в файле плана");
    auto read = table[planet];
    for (int u = 1; u <= experiments; ++u) {
        const ShiftRow row = readRow(file);
        for (int c = 1; c <= shiftParams; ++c) read[c][u] = row[c];
        if (reached != nullptr) *reached = static_cast<std::int16_t>(u);
    }
    table[planet] = read;
    count = static_cast<std::int16_t>(experiments);
    return head;
}

void writePlanTable(const DataTree& tree, const std::string& name, const std::string& title, int planet,
                    const PlanShiftTable& table, int count) {
    needCell(planet, 1);
    needCount(count);
    TextWriter file(tree.at(name));
    file.line(title);
    file.items(count);
    file.line(experimentColumns);
    for (int u = 1; u <= count; ++u) file.line(rowText(u, experimentRow(table, planet, u), true));
    file.commit();
}

}  // namespace

double& ShiftTables::observed(int planet, int param) {
    needCell(planet, param);
    return dNab[planet][param];
}

double& ShiftTables::calculated(int planet, int param, int experiment) {
    needCell(planet, param);
    if (experiment < 1 || experiment > maxPoints)
        throw SubscriptFailure("нет эксперимента № " + std::to_string(experiment));
    return dRas[planet][param][experiment];
}

void addNames(NameTable& table, const ShiftTables& t) {
    table.add("dNab", t.dNab);
    table.add("dRas", t.dRas);
    table.add("Ves", t.Ves);
    table.add("dNabErr", t.dNabErr);
    table.add("dRasErr", t.dRasErr);
}

ShiftFileHead readObservedShifts(const DataTree& tree, const std::string& dir, int planets, ShiftTables& t) {
    TextReader file(tree.at(files::shifts(dir)));
    return readTable(file, planets, t.dNab);
}

void writeObservedShifts(const DataTree& tree, const std::string& dir, const ShiftTables& t) {
    writeTable(tree, files::shifts(dir), "Обработанные данные  " + dir + "  по всем планетам", t.dNab);
}

ShiftFileHead readPlanShifts(const DataTree& tree, int plan, int planet, ShiftTables& t, std::int16_t& count,
                             std::int16_t* reached) {
    needCell(planet, 1);
    TextReader file(tree.at(files::planShifts(plan, planet)));
    return readPlanTable(file, planet, t.dRas, count, reached);
}

void writePlanShifts(const DataTree& tree, int plan, int planet, const ShiftTables& t, int count) {
    writePlanTable(
        tree, files::planShifts(plan, planet),
        "Обработанные данные расчета для плана № " + toText(plan) + "  по планете № " + toText(planet),
        planet, t.dRas, count);
}

void writePlanShiftsUnscaled(const DataTree& tree, int plan, int planet, const ShiftFileHead& head,
                             const ShiftTables& t, int count, std::int16_t& reached) {
    needCell(planet, 1);
    needCount(count);
    reached = 0;
    TextWriter file(tree.at(files::planShifts(plan, planet)));
    file.line(head.title);
    file.items(count);
    file.line(head.columns);
    for (int u = 1; u <= count; ++u) {
        reached = static_cast<std::int16_t>(u);
        file.line(rowText(u, experimentRow(t.dRas, planet, u), false));
    }
    file.commit();
}

void readObservedErrors(const DataTree& tree, const std::string& dir, ShiftTables& t) {
    const std::string name = files::shiftErrors(dir);
    if (!std::filesystem::exists(tree.at(name))) {
        t.dNabErr = {};
        return;
    }
    TextReader file(tree.at(name));
    readTable(file, shiftPlanets, t.dNabErr);
}

void writeObservedErrors(const DataTree& tree, const std::string& dir, const ShiftTables& t) {
    writeTable(tree, files::shiftErrors(dir), "Погрешности данных  " + dir + "  по всем планетам", t.dNabErr);
}

void readPlanErrors(const DataTree& tree, int plan, int planet, ShiftTables& t) {
    needCell(planet, 1);
    const std::string name = files::planShiftErrors(plan, planet);
    if (!std::filesystem::exists(tree.at(name))) {
        t.dRasErr[planet] = {};
        return;
    }
    TextReader file(tree.at(name));
    std::int16_t count = 0;
    readPlanTable(file, planet, t.dRasErr, count, nullptr);
}

void writePlanErrors(const DataTree& tree, int plan, int planet, const ShiftTables& t, int count) {
    writePlanTable(
        tree, files::planShiftErrors(plan, planet),
        "Погрешности данных расчета для плана № " + toText(plan) + "  по планете № " + toText(planet), planet,
        t.dRasErr, count);
}

}  // namespace tarvex
