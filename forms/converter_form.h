#pragma once
// Form12, the coordinate converter: a body, by theory or as typed, from one frame into another, and angles
// from one unit into another.

#include <array>

#include "forms/converter_controls.h"
#include "forms/laboratory.h"
#include "reduction/converter.h"

namespace tarvex {

class ConverterForm final : public ConverterControls {
public:
    explicit ConverterForm(Laboratory& lab);
    void load() override;

private:
    int body() const;
    ConvFrame frameChosen() const;
    void setCoordinates();
    void typedToBase(int body, const ConvFrame& frame);
    void convert();
    void showFromBase(int body, const ConvFrame& frame, const std::array<TextField*, 6>& to);
    void takeSite();  ///< and the calendar of the dates
    void dateToJulian();
    void julianToDate();
    void showLocalTimes();
    double angleTyped() const;
    void showAngle();
    void clearPicture();
    void ConvDraw(int body, const ConvFrame& frame);
    void showScale();

    Laboratory& lab;
    double angle_ = 0;  ///< degrees
    ConvBase base_;
};

}  // namespace tarvex
