#pragma once
// How series look: a colour for each quantity, told apart by every eye, and a sign for each run.

#include <QColor>
#include <QString>
#include <map>

#include "runtime/plot.h"

namespace tarvex {

enum class Sign { Circle, Square, Triangle, Diamond, Cross, Ring, Plus, Wedge };
inline constexpr int signs = 8;

struct PlotLook {
    bool distinct = true;                        ///< false: as the forms draw
    std::map<std::string, QColor> chosenColors;  ///< by the user, for a quantity
    std::map<std::string, Sign> chosenSigns;     ///< by the user, for a run

    /// @param dark  what lies behind is dark
    QColor colorOf(const Plot::Series& series, bool dark) const;
    Sign signOf(const Plot::Series& series) const;
    /// Its points are to be drawn over those of the form.
    bool covers(const Plot::Series& series) const;
    bool operator==(const PlotLook&) const = default;
};

/// "круг"
QString nameOf(Sign sign);

/// A colour for a dark ground in place of one for a white ground: as strong, and light where it was dark.
QRgb turnedDark(QRgb color);

}  // namespace tarvex
