// Form10: choosing tables and files of observations.
#include "core/calendar.h"
#include "core/numbers.h"
#include "forms/date_fields.h"
#include "forms/observations_form.h"

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
    for (int i = 0; i <= 10; ++i) Option4(i).setEnabled(tables);
    for (int i = 0; i <= 7; ++i) Option9(i).setEnabled(!tables);
    closeSources();
    lab.s.TipData = tables ? "Tab" : "Obs";
    Check1.setCaption(tables ? "Ras(ЭКЛ)" : "Ras(ЭКВ)");
    Check9.setCaption(tables ? "Nab(ЭКЛ)" : "Nab(ЭКВ)");
    (tables ? Option9 : Option4)(0).choose();
    Check26.setEnabled(!tables);
}

void ObservationsForm::setDate(const char* day, const char* month, const std::string& year) {
    Text2.setText(day);
    Text3.setText(month);
    Text4.setText(year);
}

void ObservationsForm::chooseTable(int i) {
    ModelState& s = lab.s;
    ReductionState& r = lab.reduction;
    if (i == 0 || !Option1.on()) return;
    const AncientTable& table = ancientTable(i);
    if (r.table.table == &table && s.NameData == table.name) return;
    r.table.close();
    s.NameData = table.name;
    r.NomData = i;

    (i == tycho ? Option15 : Option16).choose();
    (i == almagest ? Option7 : Option6).choose();
    setDate(i == almagest ? "23" : "1", i == almagest ? "3" : "1",
            table.sheets > 0 ? std::to_string(table.startYear) : Text4.text());
    Check15.set(true);
    Check16.set(true);
    Check17.set(false);
    if (table.sheets > 0) {
        Text24.show(table.ObsL);
        Text25.show(table.ObsB);
        Text16.show(table.startYear);
        Text14.show(table.startYear + yearsOfTable);
    }
    // all fields before the workbook: a table that is open needs no second choice
    s.IplSel = bodyTyped();
    s.ObsL = Text24.number();
    s.ObsB = Text25.number();
    readChoices();
    try {
        openTable(r.table, i, lab.office, lab.tree);
    } catch (const OfficeFailure&) {
        throw Refusal("Не найдена программа таблиц LibreOffice (пакет libreoffice-calc-nogui)\r\n" +
                          tableFileName(table),
                      "Tarvex6");
    } catch (const std::exception&) {
        throw Refusal("Не найдена таблица\r\n" + lab.tree.at(tableFileName(table)).string(), "Tarvex6");
    }

    convertDate();
    const CalendarKept kept(s);
    takeCalendar();
    r.kodKalendTab = s.kodKalend;
    r.TimeZoneTab = s.TimeZone;
    s.JDepoha = s.JDut0 = s.JD;
    NormalizeLocalDate(s, r.date);
    try {
        ReadTableCells(s, r.table, r.date, almagestPrecReduction, Check19.on());
    } catch (const std::exception&) {
        s.kodStop = 1;
        r.table.close();  // so that the same choice tries again
        throw Refusal("Ошибка вычислений в таблицах" + s.NameData, "Tarvex7.0");
    }
    r.table.PrecTab0 = s.Prec;
    startPasses(reduction());  // a step without "Начать" begins here
    if (i == alKhwarizmi && Check19.on()) r.table.PrecTab0 -= r.choices.Precess * 15 / 100 / 3600;
}

void ObservationsForm::chooseObservatory(int i) {
    ModelState& s = lab.s;
    ReductionState& r = lab.reduction;
    if (i == 0 || !Option2.on()) return;
    const std::string chosen = i == otherObservatory ? Text59.text() : observatories[i].name;
    if (r.file.isOpen() && s.NameData == chosen) return;
    r.file.close();
    s.NameData = chosen;
    r.NomData = i;
    Text24.setText(observatories[i].ObsL);
    Text25.setText(observatories[i].ObsB);
    Option15.choose();
    Option5.choose();
    Text2.setText("1,5");
    Text3.setText("1");
    for (CheckBox* correction : {&Check15, &Check16, &Check17}) correction->set(true);

    s.IplSel = bodyTyped();
    const char* filtered = !Check3.on() ? "" : Option17.on() ? "LB" : "L";
    const auto path = lab.tree.at(observationFileName(s.NameData, s.IplSel, Text56.text(), filtered));
    Text57.setText(Text56.text());
    ObservationFile::Header header;
    try {
        header = r.file.open(path, s.NameData);
    } catch (const OpenFailure&) {
        throw Refusal("Не найден файл\r\n" + path.string(), "Tarvex7");
    }
    r.header = header.text;
    s.God0 = header.firstYear;
    r.GodK = header.lastYear;
    Text4.show(s.God0);
    Text16.show(s.God0);
    Text14.show(r.GodK);
    s.kodStop = 0;
}

}  // namespace tarvex
