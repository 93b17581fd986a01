#pragma once
// Form10, the reduction of observations: theory against ancient tables or the files of observatories, through
// all corrections, for one run or for the experiments of a plan.

#include <array>

#include "forms/laboratory.h"
#include "forms/observations_controls.h"
#include "forms/picture_axes.h"
#include "forms/plan_picture.h"
#include "forms/screens.h"
#include "reduction/reduction_run.h"

namespace tarvex {

class ObservationsForm final : public ObservationsControls, public ObservationsScreen, private ReductionView {
public:
    using ObservationsScreen::formName;
    explicit ObservationsForm(Laboratory& lab);
    void load() override;
    void unload() override;

    // --- for the plan on observations (ObservationsScreen)
    bool planetByPlan() const override { return elementsOfPlan.on(); }
    bool epochOfPlanJ2000() const override { return planEpochJ2000.on(); }
    bool sourceChosen() const override;
    std::string observedFile() const override { return fromObservatories.on() ? fileNumber.text() : ""; }
    std::int32_t body() const override { return bodyNumber.int32(); }
    std::int32_t firstYear() const override { return year.int32(); }
    double precession() const override { return precessionRate.number(); }
    bool byDistance() const override { return judgeByDistance.on(); }
    bool rootMeanSquares() const override { return rootMeanSquare.on(); }
    std::optional<double> criterion() const override;
    void showPrecession(double arcSecondsPerCentury) override { precessionRate.show(arcSecondsPerCentury); }
    void showFirstDay(std::int32_t year, std::int32_t month, double day) override;
    void showLastYear(std::int32_t last) override;
    void takeDate() override;
    void showExperiments(int count) override { lastExperiment.show(count); }
    void showPlan() override;
    void showOptimum() override;

private:
    /// Empties the lower graph and sizes it for the plan.
    void clearGraph();
    /// Top of the lower graph, picture units.
    double graphTop() const { return page_.rows; }
    void bindSources();
    void bindRun();
    void bindPlan();
    void allowEpochs(bool byPlan);

    // --- sources (observations_form_sources.cpp)
    void chooseKind(bool tables);
    void chooseTable(int i);
    void fieldsOfTable(int i, const AncientTable& table);
    void openWorkbook(int i, const AncientTable& table);
    void chooseObservatory(int i);
    void offerLastYear(std::int32_t last);
    void typeDate(const char* startDay, const char* startMonth, const std::string& startYear);
    void closeSources();

    // --- a run (observations_form_run.cpp)
    bool ReadRunParams();
    void takeCalendar();
    std::int32_t bodyTyped() const;
    void readChoices();
    void convertDate();
    void convertJulian();
    void restoreStart();
    void start();
    void pass();
    void drawLimits();
    void showStatistics();

    void readFields() override;
    void dateRead() override;
    void heliocentric() override;
    void placed() override;
    void compared() override;
    void rejected() override;
    void accepted() override;
    void pause(int milliseconds) override;
    void giveWay() override;
    void clearSystem();
    void drawSky();
    void plotPlaces();
    void plotResiduals();
    /// What the lower graph shows against time.
    enum Plotted : int {
        plotLt,
        plotBt,
        plotLn,
        plotBn,
        plotSource,
        plotReceiver,
        plotAberrations,
        plotDL,
        plotDB,
        plotDR,
        plotMeanDL,
        plotMeanDB,
        plotCriterionR,
        plotCriterionL,
        plotCriterionB,
        plotRejectedR,
        plotRejectedL,
        plottedCount
    };
    void tellGraph();
    void graphPoint(Plotted what, double y, Color color);

    // --- plans (observations_form_plan.cpp)
    void runExperiments();
    void lookAtExperiments();
    void printResponse(int k);
    void findRegression();
    void plotFactors();
    void qualityReport();
    void growPlanAround(const std::vector<double>& centre, double half);
    void ShowPlanSummary();

    // --- the fit to places (observations_form_fit.cpp)
    void fitPlaces();
    std::vector<Place> placesToFit(const std::vector<int>& wanted);
    void keepSight();

    Reduction reduction() { return {lab.s, lab.reduction, lab.plan, lab.tree}; }

    Laboratory& lab;
    PlanPage page_;
    bool running_ = false, gone_ = false;        ///< a run goes on; the form has been closed
    bool fitting_ = false, fitStopped_ = false;  ///< a fit goes on; the user has stopped it
    std::vector<Place> sights_;  ///< directions of the observations that the last run has accepted
    int passes_ = 0;
    std::string offeredYear_;  ///< text of the last year's field as the user has not typed it
    /// Experiments that one press was to run: the first, and at which a stop interrupted it (0: none).
    int firstOfBatch_ = 1, stoppedAt_ = 0;
    // scales of the lower graph, of one cell: years, degrees, arc seconds, thousand km; and its shift up,
    // cells
    double yearsPerCell_ = 1, degreesPerCell_ = 90, arcSecondsPerCell_ = 100, distancePerCell_ = 50;
    double shiftCells_ = 0;
    std::array<int, plottedCount> plotted_{};
    std::array<BodySeries, rowMoon + 1> bodies_, seen_;  ///< on the picture of the system, in the sky
    int histograms_ = 0;                                 ///< drawn so far
    int sunInSky_ = Plot::none, bodyInSky_ = Plot::none;
};

}  // namespace tarvex
