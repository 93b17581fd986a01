#pragma once
// Whoever makes the steps of an experiment in its place, together with those of others.

namespace tarvex {

struct Experiment;

class StepSeat {
public:
    virtual ~StepSeat() = default;

    /// Passes begin: until leave() nobody but this seat and the passes touches the motion.
    virtual void take(const Experiment& e) = 0;
    virtual void leave() = 0;

    /// rungeKuttaStep and SpeedUpdate.
    /// @throws as they do
    virtual void step() = 0;
    virtual void speeds() = 0;

    /// Somebody is going to look inside the step that was made: what it reads is put in its place.
    virtual void show() = 0;
};

}  // namespace tarvex
