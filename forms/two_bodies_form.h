#pragma once
// The two-body screen, Form25: the problem of two bodies with the speed of gravity.  Takes a pair by theory
// or from the file of a pulsar, runs it until it is stopped, measures its orbit and plots the shifts.

#include <array>
#include <map>

#include "forms/laboratory.h"
#include "forms/picture_axes.h"
#include "forms/screens.h"
#include "forms/two_bodies_controls.h"

namespace tarvex {

class TwoBodiesForm final : public TwoBodiesControls, public TwoBodiesScreen, private TwoBodyPort {
public:
    using TwoBodiesScreen::formName;
    explicit TwoBodiesForm(Laboratory& lab);

    void load() override;
    void activate() override;
    void unload() override;
    std::string typedStep() const override { return step.text(); }

private:
    void periodMeasured() override;
    void nodePassed() override;
    void periastronPassed() override;
    void stepDone() override;

    void loadFromFile();
    void loadFromTheory();
    void saveFile();
    void setData();
    void start();
    void loop();
    void takeSettings();
    void takeNumbers();
    void display();
    void showStart();
    void drawBodies(Color first, Color second);
    void clearPictures();
    void showScale();
    void beginEffect();
    void endEffect();
    void printDelays(const std::string& period);
    void note(const std::string& text);
    double plotX() const;
    /// What a run plots against time.
    enum Plotted : int {
        dEks,
        dAlfaP,
        dR,
        dP,
        radialSpeed,
        roemer,
        delayBySpeed,
        delayByMass,
        pulses,
        plottedCount
    };
    void tellPlots();

    Laboratory& lab;
    bool started_ = false, gone_ = false;
    struct {
        double time = 0, Eks = 0, AlfaP = 0, Rsr = 0, Period = 0;
    } scales_;                 ///< of the plots, a unit, as the run began: s, 1, degrees, thousand km, s
    double effectStart_ = 0;   ///< when the speed of gravity began to act, s
    double lastReceived_ = 0;  ///< time at which the last pulse shown was received, s
    bool anyPerStep_ = false;  ///< some plot of every step is on
    double noteLine_ = 0;      ///< height of the next printed line on the plots, cells
    std::array<int, plottedCount> plotted_{};
    std::map<int, BodySeries> series_;  ///< of rows on the picture of the orbits
};

}  // namespace tarvex
