#pragma once
// The screen of ET-UT, Form17: the two relations of ephemeris and universal time, ET1 for the turning of the
// planets and ET2 for the rotation of the Earth.

#include "forms/et_ut_controls.h"
#include "forms/laboratory.h"
#include "forms/screens.h"

namespace tarvex {

class EtUtForm final : public EtUtControls, public EtUtScreen {
public:
    using EtUtScreen::formName;
    explicit EtUtForm(Laboratory& lab);

    void load() override;
    void useFirstRelation() override;
    void takeAnew() override;

private:
    struct Row;
    void setValues();
    void setFormula(int k);
    Row rowOf(int k);

    Laboratory& lab;
};

}  // namespace tarvex
