// Eclipses by the ancient tables.
#include "core/calendar.h"
#include "forms/eclipse_form.h"
#include "forms/screens.h"

namespace tarvex {

namespace {

constexpr int almagest = 4, tycho = 9;  ///< tables by their option
/// Start years of the tables on this form, by option; 0 where nothing is set.
constexpr std::array startYears = {0, 900, 1252, 800, 884, 0, 0, 1600, 1620, 0, 1640};

}  // namespace

/// The labels and choices that go with tables or theories.
void EclipseForm::chooseData(bool tables) {
    if (!tables) table_.close();
    (tables ? theoryChoice : tableChoice)(0).choose();
    if (tables) {
        dayFromNoon.choose();
        useFirstRelation();
        for (int i = 0; i < 6; ++i) {
            sunStages(i).setText("");
            bodyStages(i).setText("");
        }
    }
    dayCountLabel.setCaption("день от 1.1.1 г. н.э.");
}

/// The tables are read with the first relation of ET-UT, and that of the Earth's rotation as it stands at
/// first.
void EclipseForm::useFirstRelation() {
    if (auto* const form = loadedScreen<EtUtScreen>(desk()))
        form->useFirstRelation();
    else if (desk().knows(EtUtScreen::formName))
        desk().loadAndUnload(EtUtScreen::formName);  // its load sets just these
}

void EclipseForm::chooseTable(int i) {
    ModelState& s = lab.s;
    // the table of Tycho is offered here but read on the observations screen only
    if (i == 0 || i == tycho || !fromTables.on()) return;
    const AncientTable& table = ancientTable(i);
    if (table_.table == &table) return;
    table_.close();
    s.NameData = table.name;
    if (startYears[i] > 0) {
        dayFromNoon.choose();
        (i == almagest ? egyptianCalendar : julianCalendar).choose();
        day.setText(i == almagest ? "16" : "1");
        month.setText(i == almagest ? "6" : "1");
        year.show(startYears[i]);
    }
    // all fields before the workbook: a table that is open needs no second choice
    s.IplSel = bodyTyped();
    s.ObsL = placeLongitude.number();
    s.ObsB = placeLatitude.number();
    const std::string path = lab.tree.at(tableFileName(table)).string();
    stage("Не найден файл\r\n" + path, "Tarvex6", [&] { openTable(table_, i, lab.office, lab.tree); });

    s.kodKalend = codeOf(i == almagest ? Calendar::Egyptian : Calendar::Julian);
    s.TimeZone = 12;
    NormalizeDate(s, day.number(), month.int32(), year.int32());
    s.JD = JDfromDate(s, s.DenR, s.MesR, s.GodR);
    s.JDepoha = s.JDut0 = s.JDet = s.JD;
    kalend_ = s.kodKalend;
    zone_ = s.TimeZone;
    s.kodKalend = codeOf(Calendar::Gregorian);
    s.TimeZone = 0;
    table_.PrecTab0 = 0;
    try {
        readTable(false);
    } catch (const Refusal&) {
        table_.close();  // so that the same choice tries again
        throw;
    }
    table_.PrecTab0 = s.Prec;
    // the screen of the relations takes its fields anew, with the laws that stand there
    if (auto* const form = loadedScreen<EtUtScreen>(desk())) form->takeAnew();
}

/// The Sun and the body from the workbook for this moment, at the local time of the place.
void EclipseForm::readTable(bool correct) {
    ModelState& s = lab.s;
    ObservedDate date;
    s.kodKalend = kalend_;
    s.TimeZone = zone_;
    double JD = s.JDet + s.ObsL / 15 / 24;
    DateFromJD(s, JD);
    s.kodKalend = codeOf(Calendar::Gregorian);
    s.TimeZone = 0;
    date.takeFrom(s);
    double corrected = 0;
    try {
        corrected = ReadTableCells(s, table_, date, almagestPrecEclipse, correct, true);
    } catch (const std::exception& failure) {
        s.kodStop = 1;
        // A workbook whose office has gone is closed: the same choice then opens it again.
        if (dynamic_cast<const OfficeFailure*>(&failure) != nullptr) table_.close();
        throw Refusal("Ошибка вычислений в таблицах", "Tarvex6");
    }
    precessionFromBase.show(cut6(s.Prec));
    precessionFromJ2000.show(cut6(corrected));
}

}  // namespace tarvex
