// Statistics: loading, showing, picking and editing a series, and the files of shifts.

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "forms/statistics_form.h"

namespace tarvex {

namespace {

constexpr const char* box = "Tarvex7";

/// Reads a file; a missing or damaged one ends in the messages that name it.
template <class Body>
void reading(const std::string& name, Body&& body) {
    try {
        body();
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл\r\n" + name, box);
    } catch (const FileFailure&) {
        throw Refusal("Ошибка чтения данных из файла\r\n" + name, box);
    }
}

template <class Body>
void writing(const std::string& name, Body&& body) {
    stage("Ошибка записи данных в файл\r\n" + name, box, body);
}

}  // namespace

int StatisticsForm::chosenPlanet() const {
    for (int i = 1; i <= 11; ++i)
        if (planet(i).on()) return i;
    return 1;
}

std::int16_t StatisticsForm::chosenParam() const {
    for (int i = 1; i <= 8; ++i)
        if (parameter(i).on()) return static_cast<std::int16_t>(i == 8 ? static_cast<int>(parVes) : i);
    return parAlfaP;
}

void StatisticsForm::chooseImitator() {
    lab.series.DirImit = newcombImitator.on() ? "\\NEW" : jplImitator.on() ? "\\JPL" : "\\Ser";
}

DataKind StatisticsForm::chosenKind() const {
    if (fromModel.on()) return dataModel;
    return newcombImitator.on() || jplImitator.on() ? dataImitator : dataLong;
}

void StatisticsForm::chooseFile() {
    SeriesData& d = lab.series;
    d.Npl = chosenPlanet();
    d.Nparam = chosenParam();
    chooseImitator();
    const std::int32_t experiment = experimentNumber.int32();
    switch (chosenKind()) {
        case dataModel:
            d.FileData = files::runRecord(lab.s.NPlan, d.Npl, experiment);
            break;
        case dataLong:
            d.FileData = files::series(d.DirImit + "\\Plan" + toText(lab.s.NPlan), d.Npl);
            break;
        default:
            d.FileData = files::series(d.DirImit, d.Npl);
    }
}

void StatisticsForm::showRun(const RunRecords& run) {
    (run.model ? fromModel : fromImitator).choose();
    if (!run.model) (run.newcomb ? newcombImitator : jplImitator).choose();
    planNumber.show(run.plan);
    experimentNumber.show(run.experiment);
    planet(run.body).choose();
    lab.s.NPlan = static_cast<std::int16_t>(run.plan);
    chooseFile();
    SeriesData recorded = lab.series;
    try {
        readSeries(lab.tree, recorded.FileData, chosenKind(), recorded);
    } catch (const FileFailure& failure) {
        return setStatus(std::string("Прогон еще ничего не записал: ") + failure.what());
    }
    if (recorded.records.empty()) return setStatus("Прогон еще ничего не записал в " + recorded.FileData);
    fitScales(recorded);
    loadData.press();
}

void StatisticsForm::offerPlan(int plan, int body) {
    fromModel.choose();
    planNumber.show(plan);
    planet(body).choose();
    wholePlan.set(true);
}

void StatisticsForm::chooseOptima(int plan, int body) {
    fromImitator.choose();
    ownImitator.choose();
    planNumber.show(plan);
    planet(body).choose();
}

void StatisticsForm::printPage(double rows, const std::vector<std::string>& lines) {
    drawEmpty(rows, 52, false);
    printLines(lines);
}

/// Scales of round numbers in which the chosen parameter takes the usual picture.
void StatisticsForm::fitScales(const SeriesData& series) {
    constexpr double usualColumns = 26, usualRows = 10;
    const auto round = [](double least) {
        double scale = std::pow(10.0, std::floor(std::log10(least)));
        for (const double factor : {1.0, 2.0, 5.0, 10.0})
            if (scale * factor >= least) return cut6(scale * factor);
        return cut6(least);
    };
    const auto value = [&](const Record& r) { return r.Par[series.Nparam]; };
    const auto [low, high] =
        std::minmax_element(series.records.begin(), series.records.end(),
                            [&](const Record& a, const Record& b) { return value(a) < value(b); });
    const double years = (series.records.back().dTd + series.records.back().ddTd) / 365.25;
    const double leastScale = 1e-5;  // of the numbers that a field shows
    timeScale.show(round(std::max(std::abs(years) / usualColumns, leastScale)));
    parameterScale.show(round(std::max((value(*high) - value(*low)) / usualRows, leastScale)));
}

void StatisticsForm::LoadSeries() {
    SeriesData& d = lab.series;
    d.kodData = dataNone;
    d.records.clear();  // what is not loaded whole must not be fitted as if it were
    lab.s.NPlan = planNumber.int16();
    MT = timeScale.number();
    Mpar = parameterScale.number();
    chosenColor();
    chooseFile();
    const DataKind kind = chosenKind();
    reading(d.FileData, [&] { readSeries(lab.tree, d.FileData, kind, d); });
    try {
        if (anglesWithinTurn.on() && (d.Nparam < 3 || d.Nparam == parAlfaL0)) foldAngles(d, d.Nparam);
        // the text tells intervals and W* as the file has them, before the parameter changes them in memory
        const std::vector<std::string> lines = showAsText.on() ? seriesText() : std::vector<std::string>{};
        prepareForParam();
        if (!overlay.on() && !sizePicture()) {
            d.records.clear();
            return;
        }
        showSample();
        if (showAsText.on())
            printLines(lines);
        else
            drawSeries();
    } catch (...) {
        d.records.clear();
        throw;
    }
    d.kodData = kind;
    if (ownImitator.on()) groupSize.setText("1");
}

void StatisticsForm::prepareForParam() {
    SeriesData& d = lab.series;
    loadedParam = d.Nparam;
    loadedRates = d.Nparam == parW && d.Npl == rowMoon && (moonPerigeeRate.on() || moonNodeRate.on());
    // such a value is taken at the moment of the record, not across an interval
    const bool instant = d.Nparam == parAlfaL0 || (d.Npl == rowMoon && d.Nparam <= parAlfaU);
    Ymin = MK * MK;
    Ymax = -MK;
    for (Record& r : d.records) {
        if (loadedRates) r.Par[parW] = r.Par[moonNodeRate.on() ? parDU11 : parDP11];
        Ymin = std::min(Ymin, r.Par[d.Nparam]);
        Ymax = std::max(Ymax, r.Par[d.Nparam]);
        if (instant) r.ddTd = 0;
    }
}

bool StatisticsForm::sizePicture() {
    const Record& last = lab.series.records.back();
    double rows = Fix(ratio(Ymax, Mpar) - ratio(Ymin, Mpar)) + 3;
    double columns = ratio((last.dTd + last.ddTd) / 365.25, MT) + 2;
    if (showAsText.on()) {
        rows = lab.series.NP1max() / 2.0 + 20;
        columns = 52;
    }
    if (rows * columns >= 3000 &&
        !desk().ask("Вы действительно хотите\r\nтакой большой график.\r\nЕсли Да, то придется подождать",
                    box))
        return false;
    drawEmpty(rows, columns, !showAsText.on());
    return true;
}

void StatisticsForm::showDate(double date, TextField& year, TextField& month, TextField& day) {
    DateFromJD(lab.s, date);
    year.show(lab.s.GodR);
    month.show(lab.s.MesR);
    day.show(cut6(lab.s.DenR));
}

void StatisticsForm::showSample() {
    const SeriesData& d = lab.series;
    const int n = d.NP1max();
    recordCount.show(n);
    firstRecord.setText("1");
    lastRecord.show(n);
    firstValue.show(cut6(d.at(1).Par[d.Nparam]));
    lastValue.show(cut6(d.at(n).Par[d.Nparam]));
    showDate(d.date(1), firstYear, firstMonth, firstDay);
    showDate(d.date(n), lastYear, lastMonth, lastDay);
}

void StatisticsForm::drawSeries() {
    constexpr Color border{255, 0, 0};
    const SeriesData& d = lab.series;
    const Record& last = d.records.back();
    const double top = picture.toUserY(0);
    picture.text(2, top - 0.1, "Plan" + toText(lab.s.NPlan));
    picture.text(1, 1.6, firstYear.text());
    picture.text(placeX(last.dTd) - 1, 1.6, lastYear.text());
    picture.text(5, top - 0.1, "Ymax=  " + toText(cut6(Ymax)));
    picture.text(5, top - 0.7, "Ymin=  " + toText(cut6(Ymin)));
    for (const Record* r : {&d.records.front(), &last}) {
        const double x = placeX(r->ddTd / 2 + r->dTd);
        picture.line(x, 0, x, top, border);
    }
    const Color color = chosenColor();
    tellAxes();
    const int series = seriesOf(parameterName, drawn_, drawn_);
    ++drawn_;
    for (const Record& r : d.records)
        picture.as(series).circle(placeX(r.ddTd / 2 + r.dTd), placeY(r.Par[d.Nparam]), 0.06, color);
}

std::vector<std::string> StatisticsForm::seriesText() {
    struct Item {
        const char* label;
        int p;
        const char* pattern;
    };
    constexpr Item items[] = {
        {"    Ves= ", parVes, "0.0000"},          {"    AlfaP  = ", parAlfaP, "000000.00"},
        {"    AlfaU  = ", parAlfaU, "000000.00"}, {"    Betta  = ", parBetta, "00.00000"},
        {"    Eks  = ", parEks, "0.000000000"},   {"    Rsr  = ", parRsr, "0000.0000000"},
        {"    W0  = ", parW, "0000.00000"},       {"    AlfaL0  = ", parAlfaL0, "0000000.000"},
        {"    dP11  = ", parDP11, "00.000000"},   {"    dU11  = ", parDU11, "00.000000"}};
    const SeriesData& d = lab.series;
    const int marked = markedRecord.int32();
    std::vector<std::string> lines;
    for (int i = 1; i <= d.NP1max(); ++i) {
        double date = d.date(i);
        DateFromJD(lab.s, date);
        const Record& r = d.at(i);
        std::string text = toText(i) + "   IG= " + Format(lab.s.GodR, "0000") +
                           "    dT= " + Format(r.dTd, "0000000.00") +
                           "    ddT= " + Format(r.ddTd, "000000.00");
        for (const Item& item : items) text += item.label + Format(r.Par[item.p], item.pattern);
        if (i == marked) lines.emplace_back("---------------------");
        lines.push_back(text);
        if (i == marked) lines.emplace_back("---------------------");
    }
    return lines;
}

void StatisticsForm::printLines(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        picture.text(0.3, lineY, line);
        lineY -= 0.5;
    }
}

void StatisticsForm::pick(double x, Picture::Button button) {
    const SeriesData& d = lab.series;
    const int i = recordNear(d, (x - 1) * MT * 365.25);
    const Record& r = d.at(i);
    const double place = placeX(r.ddTd / 2 + r.dTd);
    picture.line(place, 0, place, picture.toUserY(0), {255, 0, 0});
    if (button == Picture::Button::Right) {
        lastRecord.show(i);
        lastValue.show(cut6(r.Par[d.Nparam]));
        showDate(d.date(i), lastYear, lastMonth, lastDay);
        return;
    }
    firstRecord.show(i);
    firstValue.show(cut6(r.Par[d.Nparam]));
    showDate(d.date(i), firstYear, firstMonth, firstDay);
    showDate(d.date(i), newYear, newMonth, newDay);
    double end = d.date(i) + r.ddTd;
    DateFromJD(lab.s, end);
    newEndYear.show(lab.s.GodR);
}

void StatisticsForm::needEditable(const char* action) {
    const SeriesData& d = lab.series;
    if (d.kodData < dataImitator || d.kodData == dataTest)
        throw Refusal("У Вас не загружены первичные данные", box);
    if (d.kodData != dataLong) return;
    // a load of these parameters has replaced intervals or W* in memory: a rewrite would spoil the file
    const bool spoilt = loadedParam == parAlfaL0 || (d.Npl == rowMoon && loadedParam <= parAlfaU) ||
                        loadedRates || (loadedParam == parW && (moonPerigeeRate.on() || moonNodeRate.on()));
    if (spoilt)
        throw Refusal(std::string(action) + " можно только если при загрузке\r\n" +
                          "          не был отмечен параметр AlfaL0\r\n" +
                          "         а для Луны еще и AlfaP или AlfaU\r\n" +
                          "     или W* и один из чекбоксов dP11 или dU11",
                      box);
}

/// Writes the changed series, and takes it over only when the file holds it.
void StatisticsForm::rewrite(SeriesData changed) {
    writing(changed.FileData, [&] { writeSeries(lab.tree, changed); });
    lab.series = std::move(changed);
    recordCount.show(lab.series.NP1max());
}

void StatisticsForm::DeleteRecord() {
    needEditable("УДАЛИТЬ ТОЧКУ");
    SeriesData changed = lab.series;
    removeRecord(changed, markedRecord.int32());
    rewrite(std::move(changed));
    if (lastRecord.int32() > lab.series.NP1max()) lastRecord.show(lab.series.NP1max());
}

void StatisticsForm::AddRecord() {
    needEditable("ДОБАВИТЬ ТОЧКУ");
    SeriesData changed = lab.series;
    const double value = newValue.number();
    const std::int32_t year = newYear.int32();
    lab.s.kodErrDate = 0;
    const double date = JDfromDate(lab.s, newDay.number(), newMonth.int32(), year);
    if (lab.s.kodErrDate != 0) return;  // the date has been complained of
    const double interval = (newEndYear.number() - year) * 365.25;
    changed.Nparam = chosenParam();
    Record record;
    record.ddTd = interval;
    setValue(changed, record, changed.Nparam, value);
    record.Par[parVes] = 1;
    const int same = recordAt(changed, date);
    if (same == 0) {
        insertRecord(changed, placeFor(changed, date), date, record);
    } else if (desk().ask("Точка № " + toText(same) + " с такой датой уже есть\r\n" +
                              "Заменить отмеченный параметр в этой точке?",
                          box)) {
        changed.records[same - 1].ddTd = interval;
        setValue(changed, changed.records[same - 1], changed.Nparam, value);
    } else {
        insertRecord(changed, same, date, record);  // a second record of the same date
    }
    rewrite(std::move(changed));
}

void StatisticsForm::printShifts(double y, int number, const ShiftRow& row, const char* betta,
                                 const char* w) {
    picture.text(0.3, y,
                 " " + toText(number) + "    dAlfaP  = " + Format(row[1], "00000.0000") + "     dAlfaU  = " +
                     Format(row[2], "00000.0000") + "     dBetta  = " + Format(row[3], betta) +
                     "     dEks  = " + Format(row[4], "000.0000") +
                     "     dRsr  = " + Format(row[5], "0000.0000") + "     dW  = " + Format(row[6], w));
}

void StatisticsForm::LoadShifts() {
    SeriesData& d = lab.series;
    ShiftTables& t = lab.shifts;
    shiftsLoaded = false;
    d.kodData = dataNone;
    lab.s.NPlan = planNumber.int16();
    d.Npl = chosenPlanet();
    d.Nparam = chosenParam();
    ShiftFileHead head;
    const bool fromPlan = fromModel.on();
    if (fromPlan) {
        const std::string name = files::planShifts(lab.s.NPlan, d.Npl);
        reading(name, [&] { head = readPlanShifts(lab.tree, lab.s.NPlan, d.Npl, t, lab.plan.Nplan); });
        reading(files::planShiftErrors(lab.s.NPlan, d.Npl),
                [&] { readPlanErrors(lab.tree, lab.s.NPlan, d.Npl, t); });
        drawEmpty(lab.plan.Nplan / 2.0 + 10, 42, false);
    } else {
        chooseImitator();
        reading(files::shifts(d.DirImit),
                [&] { head = readObservedShifts(lab.tree, d.DirImit, shiftPlanets, t); });
        reading(files::shiftErrors(d.DirImit), [&] { readObservedErrors(lab.tree, d.DirImit, t); });
        drawEmpty(20, 42, false);
    }
    d.kodData = fromPlan ? dataPlanShifts : dataImitatorShifts;
    shiftsLoaded = true;
    double y = picture.toUserY(0) - 0.5;
    picture.text(0.3, y, head.title);
    picture.text(0.3, y - 0.6, head.columns);
    y -= 1.4;
    for (int i = 1; i <= (fromPlan ? lab.plan.Nplan : shiftPlanets); ++i, y -= 0.5) {
        ShiftRow row = t.dNab[fromPlan ? 0 : i];
        if (fromPlan)
            for (int c = 1; c <= shiftParams; ++c) row[c] = t.dRas[d.Npl][c][i];
        printShifts(y, i, row, fromPlan ? "0000.0000" : "0000.00000", fromPlan ? "0000.0000" : "000.0000");
    }
    shiftInFile.show(fromPlan ? t.calculated(d.Npl, d.Nparam, experimentNumber.int32())
                              : t.observed(d.Npl, d.Nparam));
}

void StatisticsForm::SaveShifts() {
    if (!shiftsLoaded) throw Refusal("У Вас не были загружены данные из файла", box);
    SeriesData& d = lab.series;
    if (fromModel.on() && wholePlan.on())
        for (int u = 1, last = experiments(lab.plan); u <= last; ++u) {
            experimentNumber.show(u);
            LoadSeries();
            if (d.kodData == dataNone) return;  // the user declined the picture
            stage("Ошибка при обработке данных или маленькие масштабы", "Tarvex7mm", [this] {
                FitSample();
                if (pairedToTable.on() || pairedShiftToTable.on()) PairedFit();
            });
            desk().yield();
        }
    if (fromImitator.on()) {
        lab.shifts.observed(d.Npl, d.Nparam) = secularShift.number();
        lab.shifts.dNabErr[d.Npl][d.Nparam] = typedError();
        chooseImitator();
        writing(files::shifts(d.DirImit), [&] { writeObservedShifts(lab.tree, d.DirImit, lab.shifts); });
        writing(files::shiftErrors(d.DirImit), [&] { writeObservedErrors(lab.tree, d.DirImit, lab.shifts); });
        return;
    }
    lab.shifts.calculated(d.Npl, d.Nparam, experimentNumber.int32()) = secularShift.number();
    lab.shifts.dRasErr[d.Npl][d.Nparam][experimentNumber.int32()] = typedError();
    writing(files::planShifts(lab.s.NPlan, d.Npl),
            [&] { writePlanShifts(lab.tree, lab.s.NPlan, d.Npl, lab.shifts, experiments(lab.plan)); });
    writing(files::planShiftErrors(lab.s.NPlan, d.Npl),
            [&] { writePlanErrors(lab.tree, lab.s.NPlan, d.Npl, lab.shifts, experiments(lab.plan)); });
}

}  // namespace tarvex
