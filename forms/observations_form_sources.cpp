// Reduction of observations: choosing tables and files of observations.
#include "core/calendar.h"
#include "core/numbers.h"
#include "forms/date_fields.h"
#include "forms/observations_form.h"
#include "reduction/reduction_files.h"

namespace tarvex {

namespace {

struct Observatory {
    const char* name;
    const char *ObsL, *ObsB;  ///< degrees, as they stand in the fields
};
constexpr std::array<Observatory, 8> observatories = {{{"", "", ""},
                                                       {"GREN", "0", "51,477"},
                                                       {"PARI", "2,337", "48,836"},
                                                       {"USNO", "-77,066", "38,921"},
                                                       {"NIKO", "31,975", "46,972"},
                                                       {"CAPE", "18,477", "-33,934"},
                                                       {"SUMM", "0", "0"},
                                                       {"", "1,111", "1,111"}}};
constexpr int otherObservatory = 7;
constexpr int almagest = 4, alKhwarizmi = 3, tycho = 9;  ///< tables by their option
constexpr int yearsOfTable = 30;

}  // namespace

void ObservationsForm::closeSources() {
    lab.reduction.file.close();
    lab.reduction.table.close();
}

void ObservationsForm::chooseKind(bool tables) {
    for (int i = 0; i <= 10; ++i) tableChoice(i).setEnabled(tables);
    for (int i = 0; i <= 7; ++i) observatoryChoice(i).setEnabled(!tables);
    closeSources();
    lab.s.TipData = tables ? "Tab" : "Obs";
    plotTheory.setCaption(tables ? "Ras(ЭКЛ)" : "Ras(ЭКВ)");
    plotObserved.setCaption(tables ? "Nab(ЭКЛ)" : "Nab(ЭКВ)");
    (tables ? observatoryChoice : tableChoice)(0).choose();
    weightByCount.setEnabled(!tables);
}

void ObservationsForm::showLastYear(std::int32_t last) {
    lastYear.show(last);
    offeredYear_ = lastYear.text();
}

/// The last year of the data, unless the user has typed another.
void ObservationsForm::offerLastYear(std::int32_t last) {
    if (lastYear.text() == offeredYear_) showLastYear(last);
}

void ObservationsForm::typeDate(const char* startDay, const char* startMonth, const std::string& startYear) {
    day.setText(startDay);
    month.setText(startMonth);
    year.setText(startYear);
}

/// The fields as they suit a table: calendar, start, corrections, place.
void ObservationsForm::fieldsOfTable(int i, const AncientTable& table) {
    (i == tycho ? dayFromMidnight : dayFromNoon).choose();
    (i == almagest ? egyptian : julian).choose();
    typeDate(i == almagest ? "23" : "1", i == almagest ? "3" : "1",
             table.sheets > 0 ? std::to_string(table.startYear) : year.text());
    sourceAberration.set(true);
    receiverAberration.set(true);
    nutation.set(false);
    if (table.sheets > 0) {
        siteLongitude.show(table.ObsL);
        siteLatitude.show(table.ObsB);
        dataFirstYear.show(table.startYear);
        dataLastYear.show(table.startYear + yearsOfTable);
        offerLastYear(table.startYear + yearsOfTable);
    }
}

void ObservationsForm::openWorkbook(int i, const AncientTable& table) {
    try {
        openTable(lab.reduction.table, i, lab.office, lab.tree);
    } catch (const OfficeFailure&) {
        throw Refusal("Не найдена программа таблиц LibreOffice (пакет libreoffice-calc-nogui)\r\n" +
                          tableFileName(table),
                      "Tarvex6");
    } catch (const std::exception&) {
        throw Refusal("Не найдена таблица\r\n" + lab.tree.at(tableFileName(table)).string(), "Tarvex6");
    }
}

void ObservationsForm::chooseTable(int i) {
    ModelState& s = lab.s;
    ReductionState& r = lab.reduction;
    if (i == 0 || !fromTables.on()) return;
    const AncientTable& table = ancientTable(i);
    if (r.table.table == &table && s.NameData == table.name) return;
    r.table.close();
    s.NameData = table.name;
    r.NomData = i;

    fieldsOfTable(i, table);
    // all fields before the workbook: a table that is open needs no second choice
    s.IplSel = bodyTyped();
    s.ObsL = siteLongitude.number();
    s.ObsB = siteLatitude.number();
    readChoices();
    openWorkbook(i, table);

    convertDate();
    const CalendarKept kept(s);
    takeCalendar();
    r.kodKalendTab = s.kodKalend;
    r.TimeZoneTab = s.TimeZone;
    s.JDepoha = s.JDut0 = s.JD;
    NormalizeLocalDate(s, r.date);
    try {
        ReadTableCells(s, r.table, r.date, almagestPrecReduction, replacePrecession.on());
    } catch (const std::exception&) {
        s.kodStop = 1;
        r.table.close();  // so that the same choice tries again
        throw Refusal("Ошибка вычислений в таблицах" + s.NameData, "Tarvex7.0");
    }
    r.table.PrecTab0 = s.Prec;
    startPasses(reduction());  // a step without "Начать" begins here
    if (i == alKhwarizmi && replacePrecession.on()) r.table.PrecTab0 -= r.choices.Precess * 15 / 100 / 3600;
}

void ObservationsForm::chooseObservatory(int i) {
    ModelState& s = lab.s;
    ReductionState& r = lab.reduction;
    if (i == 0 || !fromObservatories.on()) return;
    const std::string chosen = i == otherObservatory ? observatoryName.text() : observatories[i].name;
    if (r.file.isOpen() && s.NameData == chosen && s.kodStop != 1) return;  // after a stop it is opened again
    r.file.close();
    s.NameData = chosen;
    r.NomData = i;
    siteLongitude.setText(observatories[i].ObsL);
    siteLatitude.setText(observatories[i].ObsB);
    dayFromMidnight.choose();
    gregorian.choose();
    day.setText("1,5");
    month.setText("1");
    for (CheckBox* correction : {&sourceAberration, &receiverAberration, &nutation}) correction->set(true);

    s.IplSel = bodyTyped();
    const char* filtered = !openGoodFile.on() ? "" : judgeByDistance.on() ? "LB" : "L";
    const auto path =
        sourcePath(lab.tree, observationFileName(s.NameData, s.IplSel, fileNumber.text(), filtered),
                   s.NameData, fileNumber.text());
    goodFileNumber.setText(fileNumber.text());
    ObservationFile::Header header;
    try {
        header = r.file.open(path, s.NameData);
    } catch (const OpenFailure&) {
        throw Refusal("Не найден файл\r\n" + path.string(), "Tarvex7");
    }
    r.header = header.text;
    s.God0 = header.firstYear;
    r.GodK = header.lastYear;
    year.show(s.God0);
    dataFirstYear.show(s.God0);
    dataLastYear.show(r.GodK);
    offerLastYear(r.GodK);
    s.kodStop = 0;
}

}  // namespace tarvex
