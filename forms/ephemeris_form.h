#pragma once
// The ephemeris test, Form24: test of the DE405 ephemeris, one body at one date.

#include "forms/ephemeris_controls.h"
#include "forms/laboratory.h"

namespace tarvex {

class EphemerisForm final : public EphemerisControls {
public:
    static constexpr const char* formName = "Form24";
    explicit EphemerisForm(Laboratory& lab);

private:
    void calculate();
    void ownCalendar();

    Laboratory& lab;
};

}  // namespace tarvex
