#include "stats/shifts.h"

#include "core/constants.h"
#include "core/data_tree.h"
#include "core/failure.h"
#include "core/name_table.h"
#include "core/text_files.h"

namespace tarvex {

namespace {

void needCell(int planet, int param) {
    if (planet < 1 || planet > shiftPlanets || param < 1 || param > shiftParams)
        throw SubscriptFailure("no such cell in the table of shifts");
}

void needCount(int count) {
    if (count < 0 || count > maxPoints) throw SubscriptFailure("count of experiments");
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

ShiftRow experimentRow(const ShiftTables& t, int planet, int u) {
    ShiftRow row{};
    for (int c = 1; c <= shiftParams; ++c) row[c] = t.dRas[planet][c][u];
    return row;
}

}  // namespace

double& ShiftTables::observed(int planet, int param) {
    needCell(planet, param);
    return dNab[planet][param];
}

double& ShiftTables::calculated(int planet, int param, int experiment) {
    needCell(planet, param);
    if (experiment < 1 || experiment > maxPoints) throw SubscriptFailure("experiment number");
    return dRas[planet][param][experiment];
}

void addNames(NameTable& table, const ShiftTables& t) {
    table.add("dNab", t.dNab);
    table.add("dRas", t.dRas);
    table.add("Ves", t.Ves);
}

ShiftFileHead readObservedShifts(const DataTree& tree, const std::string& dir, int planets, ShiftTables& t) {
    TextReader file(tree.at(files::shifts(dir)));
    ShiftFileHead head;
    head.title = file.line();
    head.columns = file.line();
    ShiftTable read = t.dNab;
    for (int i = 1; i <= planets; ++i) read[i] = readRow(file);
    t.dNab = read;
    return head;
}

void writeObservedShifts(const DataTree& tree, const std::string& dir, const ShiftTables& t) {
    TextWriter file(tree.at(files::shifts(dir)));
    file.line("Обработанные данные  " + dir + "  по всем планетам");
    file.line(
        "№ планеты      перигелий    восхождение    наклон     эксцентриситет   полуось       угл. скорость");
    for (int i = 1; i <= shiftPlanets; ++i) file.line(rowText(i, t.dNab[i], true));
    file.commit();
}

ShiftFileHead readPlanShifts(const DataTree& tree, int plan, int planet, ShiftTables& t, std::int16_t& count,
                             std::int16_t* reached) {
    needCell(planet, 1);
    TextReader file(tree.at(files::planShifts(plan, planet)));
    ShiftFileHead head;
    head.title = file.line();
    const int experiments = file.int16();
    file.line();  // the rest of the line of the count
    head.columns = file.line();
    if (experiments < 1 || experiments > maxPoints)
        throw FileFailure("no such count of experiments in a plan");
    auto read = t.dRas[planet];
    for (int u = 1; u <= experiments; ++u) {
        const ShiftRow row = readRow(file);
        for (int c = 1; c <= shiftParams; ++c) read[c][u] = row[c];
        if (reached != nullptr) *reached = static_cast<std::int16_t>(u);
    }
    t.dRas[planet] = read;
    count = static_cast<std::int16_t>(experiments);
    return head;
}

void writePlanShifts(const DataTree& tree, int plan, int planet, const ShiftTables& t, int count) {
    needCell(planet, 1);
    needCount(count);
    TextWriter file(tree.at(files::planShifts(plan, planet)));
    file.line("Обработанные данные расчета для плана № " + toText(plan) + "  по планете № " + toText(planet));
    file.items(count);
    file.line(
        "№ эксперимента  перигелий   восхождение     наклон    эксцентриситет    полуось        угл. "
        "скорость");
    for (int u = 1; u <= count; ++u) file.line(rowText(u, experimentRow(t, planet, u), true));
    file.commit();
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
        file.line(rowText(u, experimentRow(t, planet, u), false));
    }
    file.commit();
}

}  // namespace tarvex
