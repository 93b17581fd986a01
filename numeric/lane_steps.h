#pragma once
// The steps of several experiments at once, each with its own bodies, step, speed of gravity and
// coefficients, in the lanes of one core's vectors.

#include <array>
#include <memory>

#include "numeric/run_loop.h"

namespace tarvex {

class LaneSteps {
public:
    static constexpr int mostLanes = 8;
    using Lanes = std::array<const Experiment*, mostLanes>;  ///< nullptr: nobody in this lane

    /// Experiments that go abreast on this processor: 4 or 8.
    static int abreast();
    /// @param experiments  1..abreast()
    static std::unique_ptr<LaneSteps> make(int experiments);
    virtual ~LaneSteps() = default;

    /// True for an experiment whose steps can be made here: fourth order, gravity with a speed, DX2 alone or
    /// with the law of Lienard and Wiechert once a step, the square of the distance.
    static bool fits(const Experiment& e);
    /// True when the two may go abreast.
    static bool alike(const Experiment& a, const Experiment& b);

    virtual int width() const = 0;
    /// Below so many experiments each is faster alone.
    virtual int leastExperiments() const = 0;

    /// Takes an experiment into a lane, with everything that its steps read beside U, AX..AZ and DtCur; its
    /// products of the masses have been formed.
    virtual void load(int lane, const Experiment& e) = 0;
    /// Gives everything back that later steps read; what is formed anew at every step stays here.
    virtual void store(int lane, const Experiment& e) const = 0;
    /// The stages of the last step as rungeKuttaStep leaves them.
    virtual void storeStages(int lane, RunState& run) const = 0;

    /// What rungeKuttaStep does, for every experiment that is there.  The floating-point flags of the caller
    /// are clear, and remain so.
    /// @return  false when something was wrong with one of them: then nothing has been done
    virtual bool step(const Lanes& all) = 0;
    /// What SpeedUpdate does.
    virtual bool speeds(const Lanes& all) = 0;
};

}  // namespace tarvex
