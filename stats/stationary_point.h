#pragma once
// The surface of a regression around its stationary point: canonical axes, the ridge of the least criterion,
// and how far the point may lie from where it was computed.

#include <optional>
#include <string>
#include <vector>

#include "stats/regression_report.h"

namespace tarvex {

struct CanonicalAxis {
    double curvature = 0;           ///< eigenvalue of the quadratic form
    std::vector<double> direction;  ///< in coded factors, unit length
};

struct StationaryReport {
    std::vector<double> point;        ///< coded; empty where a direction has no curvature
    double value = 0;                 ///< predicted there
    std::vector<double> error;        ///< of the point, by propagation; empty without degrees of freedom
    std::vector<CanonicalAxis> axes;  ///< by rising curvature
    /// Confidence region of 95 % cut along each coded factor through the point, both ways; none where it
    /// does not end within 10 intervals.
    struct Cut {
        std::optional<double> down, up;
    };
    std::vector<Cut> cuts;
};
/// Source: G. E. P. Box, J. S. Hunter, Biometrika 41, 190 (1954).
StationaryReport stationaryReport(const PlanBlock& p, const RegressionReport& report);

/// Coded point of the least predicted criterion at this distance from the centre.
/// Source: A. E. Hoerl, Chem. Eng. Progr. 55, 69 (1959); N. R. Draper, Technometrics 5, 469 (1963).
std::vector<double> ridgePoint(const PlanBlock& p, const RegressionReport& report, double radius);

/// The regression's value at a coded point.
double predictedAt(const RegressionReport& report, const std::vector<double>& codes);
/// The least value predicted inside the plan: at the stationary point there and along the ridge.
double leastPredicted(const PlanBlock& p, const RegressionReport& report);

std::vector<std::string> stationaryLines(const PlanBlock& p, const RegressionReport& report);

}  // namespace tarvex
