#pragma once
// Form11, the bench of aberration: its components by the motion of the source and of the receiver in a moving
// Solar System.

#include "forms/aberration_controls.h"
#include "forms/laboratory.h"
#include "reduction/aberration_bench.h"

namespace tarvex {

class AberrationForm final : public AberrationControls {
public:
    explicit AberrationForm(Laboratory& lab);
    void load() override;
    void unload() override;

private:
    bool prepare(double date);
    void iterate();
    void stepLoop();
    void showScale();
    enum Layer : int { layerPlaces, layerTime, layerPhase };
    void tellAxes();
    int placesOf(int row);
    void clearPicture();
    void showBody(int row, TextField& x, TextField& y, TextField& z, TextField& vx, TextField& vy,
                  TextField& vz);
    Color colorOf(int row) const;
    void drawPlaces();
    void drawConstruction();
    void drawComponents();
    double across(double x, double y, double z, bool horizontal) const;

    Laboratory& lab;
    AberrationBench bench_;
    bool gone_ = false;                              ///< the form has been closed
    std::string startDay_, startMonth_, startYear_;  ///< date fields kept by "С шагом"
    int source_ = Plot::none, receiver_ = Plot::none, total_ = Plot::none;  ///< series of the components
};

}  // namespace tarvex
