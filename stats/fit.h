#pragma once
// A series against time: grouping, the weighted fit of a constant, a line or a parabola, and the search over
// all sizes of the groups.  The limit of a result is two standard deviations (95 %).

#include <array>
#include <vector>

#include "core/numbers.h"
#include "stats/series.h"

namespace tarvex {

inline constexpr double limitFactor = 2;

enum class Equation { Constant = 1, Line = 2, Parabola = 3 };  ///< value: number of coefficients

struct FitSettings {
    Equation equation = Equation::Line;
    int first = 1, last = 0;   ///< sample, record numbers
    double T0 = 0;             ///< origin of time, Julian date
    bool unitWeights = false;  ///< all weights 1

    int leastGroups() const { return static_cast<int>(equation) + 1; }
    int size() const { return toInt32(static_cast<double>(last) - first + 1); }
};

struct Group {
    double T = 0, Y = 0, W = 1;  ///< centuries from T0, mean value, weight
};

struct FitResult {
    std::vector<Group> groups;      ///< weights normalised to a largest of 1
    double VesMax = 1, VesSum = 0;  ///< largest weight as read; sum of the normalised weights
    std::array<double, 3> b{};      ///< coefficients b0, b1, b2; time in centuries
    double Sigma = 0;               ///< standard deviation, in the parameter's own unit

    double at(double T) const { return b[0] + b[1] * T + b[2] * T * T; }
};

/// Groups of NCP records from first to last; what is left over at the end is dropped.
/// Throws SubscriptFailure for a sample outside the series, ArithmeticFailure for weights that sum to
/// nothing.
void formGroups(const SeriesData& d, const FitSettings& settings, int NCP, FitResult& out);

/// Weighted fit of the groups.  In Sigma the weight multiplies the residual before it is squared: a
/// record of weight 2 counts there as twice as far off, not as two records.
/// @throws ArithmeticFailure where the equations are singular
/// Source: least squares by normal equations.
void fitGroups(Equation equation, FitResult& fit);

/// Unit of the shift of a parameter: caption, and scale of coefficient and Sigma; no scale for the weight.
struct ShiftUnit {
    const char* caption;
    double scale;
};
ShiftUnit shiftUnit(int Nparam);

/// Shift per century at D centuries from the origin, in the parameter's own unit: the derivative of the fit.
double shiftAt(Equation equation, const FitResult& fit, double D);

/// Results of all group sizes and the three criteria drawn from them.
struct GroupSearch {
    struct Value {
        double shift = 0, limit = 0;
    };
    struct Step {
        int from = 0, to = 0;
        double Hi = 0, Lo = 0;
        bool raised = false;
    };             ///< piece of the band
    int best = 0;  ///< size with the smallest limit
    Value min, maxmin, mean;
    std::vector<Step> band;  ///< pieces in order; the last one closes the band
};
/// @param dYgr, Sigma2gr  shift and limit by size, sizes first..last
GroupSearch searchGroups(const std::vector<double>& dYgr, const std::vector<double>& Sigma2gr, int first,
                         int last);

}  // namespace tarvex
