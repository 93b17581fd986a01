#pragma once
// The canvas of the forms with plans: a grid under text and plots, and what the plan and its workshop draw
// alike on it.

#include <functional>

#include "runtime/picture.h"
#include "stats/plan_block.h"

namespace tarvex {

inline constexpr double planLine = 0.55;  ///< distance of printed lines, picture units
inline constexpr double planLeft = 0.9;   ///< where they start, right of the numbers of the rows

/// Size of the canvas of a plan in picture units.
struct PlanPage {
    int rows = 38, columns = 32;

    /// @param leastRows  rows of a plan of up to 3 factors
    static PlanPage of(int Nf, int leastRows);
    /// The empty picture: sized, scaled from (0, rows) to (columns, -2), with its grid and numbers.
    void drawEmpty(Picture& picture, bool numberRows) const;
    /// Brings the plots at the foot of the picture into sight.
    void showPlots(Picture& picture) const;
};

/// Circles at (u/2, (values(u)-Ymin)/Mcrit); throws ArithmeticFailure for a scale of 0.
void plotExperiments(Picture& picture, const PlanBlock& p, const std::array<double, 100>& values,
                     double radius, Color color);
/// The legend of calculated and experimental values under the axis.
void drawLegend(Picture& picture);
/// One line a coefficient, "b<i>  =  value", downwards from (x, y).
void printCoefficients(Picture& picture, const PlanBlock& p, double x, double y);
/// Finds the stationary point and prints the title, the levels of the elimination, the system and the
/// formulas downwards from (x, y).
void printOptimum(Picture& picture, PlanBlock& p, double x, double y);
/// The regression along each factor from -1 to +1, the curves side by side; coordinates(i) is the place of
/// the plan's factor i on the other curves.
void plotAlongFactors(Picture& picture, PlanBlock& p, const std::function<double(int)>& coordinates,
                      Color color);

inline constexpr Color experimentColor{0, 0, 250}, regressionColor{250, 0, 0};

}  // namespace tarvex
