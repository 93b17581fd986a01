#pragma once
// Form14, the ellipse and the eccentric: how close the eccentric and the equant come to a Kepler ellipse.

#include "forms/eccentric_controls.h"
#include "forms/laboratory.h"
#include "reduction/eccentric.h"

namespace tarvex {

class EccentricForm final : public EccentricControls {
public:
    explicit EccentricForm(Laboratory& lab);
    void load() override;
    void unload() override;

private:
    void start();
    void EccentricRun();
    void EccentricDraw();
    void drawMarks(Color ellipse, Color eccentric, Color equant);
    void tellAxes();
    void clearPictures();

    Laboratory& lab;
    Eccentric model_;
    Eccentric drawn_;  ///< where the marks stand that the next drawing erases
    bool started_ = false, gone_ = false;
    int dAlfa_ = Plot::none, dR_ = Plot::none, onEllipse_ = Plot::none, onEccentric_ = Plot::none,
        onDeferent_ = Plot::none;  ///< series of the pictures
};

}  // namespace tarvex
