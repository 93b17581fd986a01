#pragma once
// The orbit check of the parameter screen: the chosen planet and its centre as two bodies, measured and
// shown.

#include "numeric/orbit_check.h"
#include "runtime/picture.h"

namespace tarvex {

class ElementsForm;
struct Laboratory;

class ElementsFormCheck final : private OrbitCheckPort {
public:
    ElementsFormCheck(ElementsForm& form, Laboratory& lab);

    /// Takes the chosen body and the fields, and runs until it is stopped.
    void start();
    void goOn();                    ///< from where it stood
    void batch();                   ///< NC0 steps and a stop
    void leave() { gone_ = true; }  ///< the form goes: a running check ends at its next display

private:
    void nodePassed() override;
    void perihelionPassed() override;

    void requireOwn() const;
    void OrbitCheckLoop();
    void display();
    void drawPair(Color centre, Color planet, Color cross);

    ElementsForm& form_;
    Laboratory& lab;
    OrbitCheck& check_;
    bool gone_ = false;
};

}  // namespace tarvex
