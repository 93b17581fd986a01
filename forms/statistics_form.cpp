#include "forms/statistics_form.h"

#include <algorithm>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "forms/picture_axes.h"

namespace tarvex {

StatisticsForm::StatisticsForm(Laboratory& lab_)
    : StatisticsControls(lab_.desk, formName,
                         "Статистическая обработка параметров орбит             Tarvex7m  - форма 6"),
      lab(lab_) {
    const Shown badData = orShow("Задайте правильно данные", "Tarvex7");
    loadData.onPress([this] { LoadSeries(); }, badData);
    fitData.onPress([this] { FitSample(); },
                    orShow("Ошибка при обработке данных или маленькие масштабы", "Tarvex7mm"));
    pairedFit.onPress([this] { PairedFit(); },
                      orShow("Ошибка при обработке данных или маленькие масштабы", "Tarvex7mm"));
    deletePoint.onPress([this] { DeleteRecord(); }, orShow("Ошибка вычислений", "Tarvex7"));
    addPoint.onPress([this] { AddRecord(); }, orShow("Ошибка вычислений", "Tarvex7"));
    loadShiftFile.onPress([this] { LoadShifts(); }, badData);
    observedFromDE405.onPress([this] { ObservedFromDE405(); },
                              orShow("Смещения по DE405 не измерены", "Tarvex7"));
    saveShiftFile.onPress([this] { SaveShifts(); }, badData);
    savePicture.onPress(
        [this] {
            const std::string name = pictureName.text();
            picture.save(lab.tree.typed("\\Risunki\\" + name + (name.ends_with(".png") ? "" : ".bmp")));
        },
        orShow("Ошибка записи файла", "Tarvex7"));
    closeForm.onPress([this] { close(); });
    opens(openPlan, PlanScreen::formName);
    openPlan.onPress([this] { openFreshPlan(lab, fromModel.on() ? lab.s.NPlan : 0); });
    opens(openFiles, "Form9");
    picture.onWipe([this] { drawEmpty(picture.toUserY(0), picture.toUserX(1), true); });
    picture.onRelease([this](double x, double, Picture::Button button) { pick(x, button); },
                      orShow("Не могу найти эту точку", "Tarvex7"));
    layOut();
}

void StatisticsForm::load() {
    lab.series.kodData = dataNone;
    drawEmpty(13, 29.5, true);
}

void StatisticsForm::activate() {
    lab.s.kodKalend = codeOf(Calendar::Gregorian);
    lab.s.TimeZone = 0;
}

/// What the graph means at its scales: dates, and the parameter of the series.
void StatisticsForm::tellAxes() {
    const SeriesData& d = lab.series;
    struct Parameter {
        const char *name, *unit;
    };
    constexpr Parameter parameters[] = {{"", ""},          {"AlfaP", "град"},  {"AlfaU", "град"},
                                        {"Betta", "град"}, {"Eks", ""},        {"Rsr", "млн. км"},
                                        {"W*", "рад/век"}, {"AlfaL0", "град"}, {"Ves", ""}};
    const auto n = static_cast<std::size_t>(d.Nparam);
    const Parameter& what = n < std::size(parameters) ? parameters[n] : parameters[0];
    picture.axes(layerTime, {yearAxis(d.JD0, 1, MT * 365.25),
                             scaledAxis(what.name, what.unit, Mpar, 1 - ratio(Ymin, Mpar))});
    parameterName = what.name;
}

/// A series of the graph in the axes of its layer; those that are laid over each other get signs of their
/// own.
int StatisticsForm::seriesOf(const std::string& name, int color, int mark) {
    const std::string run = lab.s.NPlan > 0 ? "план " + std::to_string(lab.s.NPlan) : "";
    return picture.series({name, run, layerTime, color, mark});
}

/// A line of the present fit.
int StatisticsForm::curveOf(const char* name, Layer layer, int color) {
    return picture.series({name, "", layer, color, fits_, true});
}

double StatisticsForm::placeY(double value) const { return ratio(value - Ymin, Mpar) + 1; }

Color StatisticsForm::chosenColor() const {
    const int n = colorNumber.int16();
    if (n < 0 || n >= static_cast<int>(lab.s.ColorR.size()))
        throw SubscriptFailure("нет цвета № " + std::to_string(n));
    return {lab.s.ColorR[n], lab.s.ColorG[n], lab.s.ColorB[n]};
}

void StatisticsForm::drawEmpty(double rows, double columns, bool grid) {
    constexpr double unit = 24.9;
    constexpr Color line{200, 200, 200}, middle{150, 150, 150};
    picture.resize(toInt32(columns * unit), toInt32(rows * unit));
    picture.setScale(0, rows, columns, 0);
    picture.clear();
    lineY = rows - 0.3;
    drawn_ = fits_ = 0;
    picture.noAxes();
    if (!grid) return;
    // a picture can have many thousand columns: lines closer than a pixel show nothing
    const int stepX = 1 + static_cast<int>(columns / 2000), stepY = 1 + static_cast<int>(rows / 2000);
    // numbers at the edges stand inside the picture; in its lower corners those of the sides
    constexpr double lineHeight = 0.6;
    for (int x = 0; x <= columns; x += stepX) {
        picture.line(x, 0, x, rows, line);
        if (x >= 1 && x <= columns - 2) picture.text(x, lineHeight, std::to_string(x), middle);
    }
    for (int j = 0; j <= rows; j += stepY) {
        const double y = std::clamp(j + lineHeight / 2, lineHeight, rows);
        picture.line(0, j, columns, j, line);
        picture.text(0, y, std::to_string(j - 1), middle);
        picture.text(columns - 1, y, std::to_string(j - 5), middle);
    }
    picture.line(0, 5, columns, 5, middle);
    picture.text(0.65, rows - 0.1, "Alfa");
    picture.text(std::max(columns - 3, 3.6), rows - 0.1, "dAlfa");
}

}  // namespace tarvex
