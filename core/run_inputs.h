#pragma once
// What a run of the model takes over from the shared state, and its keeping while a tool computes with the
// same routines.

#include "core/model_state.h"

namespace tarvex {

/// Puts back, at its end, the elements and masses of the bodies and the Earth-Moon mode: the routines of
/// theories write them wherever they are used, but only what forms initial data may hand them on.  The
/// current rows X..VZ and the results of the coordinate chain stay as the tool leaves them, and so does what
/// a run never reads: the elements of the Moon's row 11, the work row 12 of the masses.
class RunInputsKept {
public:
    explicit RunInputsKept(ModelState& s);
    ~RunInputsKept();
    RunInputsKept(const RunInputsKept&) = delete;
    RunInputsKept& operator=(const RunInputsKept&) = delete;

private:
    static constexpr int elements = 7, massRows = 14;
    ModelState& s_;
    Row2<double, elements, bodies> elements_;
    Row2<double, 2, massRows> masses_;
    std::int16_t kodMoon_, kodBary_;
};

/// Velocity of the whole system as a tool counts it, km/s: that of the model until the tool sets its own, and
/// again once the model's has changed since.
class ToolVelocity {
public:
    struct Value {
        double X = 0, Y = 0, Z = 0;
        bool operator==(const Value&) const = default;
    };
    const Value& of(const ModelState& s);
    void set(const ModelState& s, const Value& own);

private:
    Value own_, seen_;
};

}  // namespace tarvex
