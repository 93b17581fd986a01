#pragma once
// The Moon screen, Form20: barycentric initial data of the Moon and the Earth, and the check of the orbit
// that they give.

#include "forms/laboratory.h"
#include "forms/moon_controls.h"
#include "initial/moon_data.h"
#include "numeric/orbit_check.h"

namespace tarvex {

class MoonForm final : public MoonControls, private OrbitCheckPort {
public:
    static constexpr const char* formName = "Form20";
    explicit MoonForm(Laboratory& lab);

    void load() override;
    void activate() override;
    void unload() override;

private:
    void nodePassed() override;
    void perihelionPassed() override;

    void preset(bool geocentric);
    void takeBary();
    void showScale();
    void clearPicture();
    void setData();
    void drawInitial();
    void showElements();
    void start();
    void OrbitCheckLoop();
    void display();
    void drawPair(Color earth, Color moon, Color centre);
    struct DateFields dateFields();

    Laboratory& lab;
    OrbitCheck& check_;
    double firstPeriod_ = 0;  ///< period after the second perihelion, days
    bool gone_ = false;
};

}  // namespace tarvex
