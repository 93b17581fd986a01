#pragma once
// The statistics screen, Form6: series of orbit elements against time.  Loads a series, shows it, edits it,
// fits it, searches over the sizes of groups, and keeps the files of secular shifts.

#include <random>

#include "forms/laboratory.h"
#include "forms/screens.h"
#include "forms/statistics_controls.h"
#include "stats/fit.h"
#include "stats/planet_terms.h"

namespace tarvex {

class StatisticsForm final : public StatisticsControls, public StatisticsScreen {
public:
    using StatisticsScreen::formName;
    explicit StatisticsForm(Laboratory& lab);
    void load() override;
    void activate() override;

    // --- for other screens (StatisticsScreen)
    void showRun(const RunRecords& run) override;
    void offerPlan(int plan, int body) override;
    void chooseOptima(int plan, int body) override;
    void printPage(double rows, const std::vector<std::string>& lines) override;
    bool fitsPeriods() const override { return withPeriods.on(); }

private:
    /// Clears the picture and scales it to rows x columns units; with a grid for points, without one for
    /// text.
    void drawEmpty(double rows, double columns, bool grid);

    // --- data (statistics_form_data.cpp)
    void LoadSeries();
    void fitScales(const SeriesData& series);
    void chooseFile();
    void chooseImitator();
    DataKind chosenKind() const;
    int chosenPlanet() const;
    std::int16_t chosenParam() const;
    void prepareForParam();
    enum Layer : int { layerTime, layerSearch };
    void tellAxes();
    int seriesOf(const std::string& name, int color, int mark);
    int curveOf(const char* name, Layer layer, int color);
    bool sizePicture();
    void showSample();
    void drawSeries();
    std::vector<std::string> seriesText();
    void printLines(const std::vector<std::string>& lines);
    void showDate(double date, TextField& year, TextField& month, TextField& day);
    void pick(double x, Picture::Button button);
    void needEditable(const char* action);
    void DeleteRecord();
    void AddRecord();
    void rewrite(SeriesData changed);
    void LoadShifts();
    void printShifts(double y, int number, const ShiftRow& row, const char* betta, const char* w);
    void SaveShifts();

    // --- the fit (statistics_form_fit.cpp)
    void FitSample();
    void makeTestSeries();
    void readSettings();
    void passOfSize(int NCP, bool single);
    void drawGroups();
    void drawCurves();
    void printResults();
    void GroupSearchReport(int last);
    void keepShift();

    // --- observed shifts by the ephemeris (statistics_form_observed.cpp)
    void ObservedFromDE405();
    std::vector<int> planetsOfPlan();
    void measureObserved(int planet, int from, int to, ShiftTables& measured);

    // --- errors and differences (statistics_form_error.cpp)
    void tellError();
    void clearError();
    void tellPassages();
    void printTerms(const std::vector<PlanetTerm>& terms, double scale);
    double typedError() const;
    bool measuring_ = false;  ///< the ephemeris is being measured
    SeriesData secondSeries();
    void PairedFit();
    void drawPairs(const std::vector<Group>& points, const FitResult& line, double scale);

    double placeX(double days) const { return days / 365.25 / MT + 1; }
    double placeY(double value) const;
    Color chosenColor() const;

    Laboratory& lab;
    double MT = 15, Mpar = 0.1;         ///< years and units of the parameter in a picture unit
    double searchX = 25, searchY = 10;  ///< group sizes and units of the shift in a unit of the search graph
    double Ymin = 0, Ymax = 0;          ///< extremes of the parameter
    std::int16_t loadedParam = 0;       ///< parameter with which the series was loaded
    bool loadedRates = false;           ///< a rate of the Moon was copied into W* at the load
    bool shiftsLoaded = false;          ///< a file of shifts has been read since the form was opened
    double lineY = 0;                   ///< height of the next printed line
    std::string parameterName;          ///< of the series that was drawn last
    int drawn_ = 0, fits_ = 0;          ///< series and fits on the picture

    FitSettings settings;
    FitResult fit;
    int count = 0;  ///< records that the fit may use
    double originYear = 2000, yearIG = 2000;
    double shift = 0, limit = 0;         ///< of the last pass, output units; the weight keeps the old ones
    double searchReference = 0;          ///< base line of the search graph; an overlay keeps it
    std::vector<double> dYgr, Sigma2gr;  ///< by group size
    std::mt19937 random;                 ///< not seeded: every start gives the same sequence
};

}  // namespace tarvex
