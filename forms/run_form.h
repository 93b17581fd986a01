#pragma once
// The experiment screen, Form2.  It runs the model or an imitator, measures the orbit of one body and keeps
// its records.

#include <array>
#include <map>
#include <optional>

#include "experiment/experiment_run.h"
#include "forms/laboratory.h"
#include "forms/picture_axes.h"
#include "forms/run_controls.h"
#include "forms/screens.h"
#include "numeric/run_pause.h"
#include "runtime/resting_commands.h"

namespace tarvex {

class RunForm final : public RunControls, public RunScreen, public RestingCommands, private ExperimentPort {
public:
    using RunScreen::formName;
    explicit RunForm(Laboratory& lab);

    void load() override;
    void activate() override;
    void unload() override;
    void settled() noexcept override;
    /// Stop rests while nothing runs; what goes on with a run, while one runs or before the first.
    bool rests(const Control& command) const override;

    // --- for the plan (RunScreen)
    RunSettings settings() const override;
    void chooseForPlan(bool finiteGravitySpeed) override;
    bool runOfPlan(int number, double gravitySpeed) override;
    std::string body() const override { return bodyNumber.text(); }
    void setBody(const std::string& typed) override { bodyNumber.setText(typed); }

private:
    static double clockSeconds();  ///< of the computer

    void bindCommands();
    void bindBoxes();
    void arrange();
    Layout elementTable();

    // --- commands
    RunBoxes boxes() const;
    void start();
    void resume();
    void runBatch();
    void stop();
    bool run();
    void runAlone();
    void goOn();
    std::string cautions() const;
    void writeTestHead();
    class GoesOn;
    void offerCommands();
    void toStatistics();
    void toPlan();
    void leaveFor(CommandButton& command, const char* form);
    void closeEphemeris();

    // --- what the run tells (ExperimentPort)
    void settingsTaken() override;
    void started(const StartNotes& notes) override;
    void passed(const Passage& seen) override;
    void showDate() override;
    void drawBodies() override;
    void showTrack() override;
    void showEnergy() override;
    void testExperiment() override;
    bool giveWay() override;

    // --- showing
    /// What a run plots against time.
    enum Plotted : int {
        plotPerihelion,
        plotNode,
        plotInclination,
        plotEccentricity,
        plotSemiAxis,
        plotPeriod,
        plotX,
        plotY,
        plotZ,
        plotEnergy,
        plotMomentum,
        plottedCount
    };
    void tellAxes();
    void tellPlots();
    void showStartElements();
    void showShifts();
    void plotShifts();
    void showDebugText();
    void showNotes(const StartNotes& notes);
    void clearPictures();
    void clearView();
    void drawMarkers(bool wipe = false);
    void eraseBodies() { drawMarkers(true); }
    void rescale();
    /// A point of a plot whose box is on; a plot that is off never reads its scale.
    void point(Plotted what, bool on, double value, double scale, Color color);
    /// Prints a line on the plot; the line printed before in its place goes.
    void note(int place, double x, double y, const std::string& text);
    double timeOnPlot() const;

    Laboratory& lab;
    std::map<int, std::string> notes_;  ///< lines that stand on the plot, by their place
    double viewX_ = 0, viewY_ = 0;      ///< middle of the system view, its units
    bool* planEnd_ = nullptr;           ///< whether the run of a plan that is to begin has ended by itself
    bool gone_ = false;                 ///< unloaded: the run ends
    int runs_ = 0;                      ///< times that the loop was entered
    std::optional<RunPause> pause_;     ///< the run that was left last, for "Продолжить"
    std::array<BodySeries, bodies> bodies_;  ///< on the picture of the orbits
    std::array<int, bodies> viewed_{};       ///< on the system view
    std::array<int, plottedCount> plotted_{};
    int goingOn_ = 0;    ///< runs that go on now, one inside another
    int runsShown_ = 0;  ///< since the pictures were cleared
};

}  // namespace tarvex
