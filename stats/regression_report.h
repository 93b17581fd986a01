#pragma once
// What a referee asks of a regression: errors of its coefficients, analysis of variance, how it predicts, and
// whether its points were really repeated.

#include <optional>
#include <string>
#include <vector>

#include "stats/plan_block.h"

namespace tarvex {

struct CoefficientReport {
    double value = 0;
    std::optional<double> error, t, chance;  ///< none without degrees of freedom; chance of |t| by accident
    std::optional<double> inflation;         ///< of its variance by the other columns; none for b0
};

struct VarianceRow {
    std::string source;
    double sum = 0;
    int degrees = 0;
    std::optional<double> F, chance;
    double mean() const { return sum / degrees; }
};

struct RegressionReport {
    std::vector<CoefficientReport> coefficients;  ///< b0 .. b(2*Nf+Npar), of plain squares
    /// Linear terms, products and squares in this order, each after those before; then the residual, and its
    /// parts where there are true replicates: lack of fit and pure error.
    std::vector<VarianceRow> variance;
    int freedom = 0;                         ///< of the residual
    std::optional<double> residualVariance;  ///< none without freedom
    std::optional<double> R2, adjustedR2, predictiveR2;
    bool trueReplicates = false, idleReplicates = false;  ///< repeated points that differ, that are identical
    double awayFromPlan = 0;  ///< largest difference from the coefficients b that the plan's formulas gave
    std::vector<std::vector<double>> inverse;  ///< (X'X)^-1 of these columns
};

/// The full quadratic of Yu(1..Nplan) at the coded points, by least squares.
/// Throws ArithmeticFailure where the points do not determine it.
/// Source: N. R. Draper, H. Smith, Applied Regression Analysis (1998); D. M. Allen, Technometrics 16, 125
/// (1974), prediction of points left out.
RegressionReport reportRegression(const PlanBlock& p);

/// The report as lines for a picture.
std::vector<std::string> reportLines(const PlanBlock& p, const RegressionReport& report);
/// What makes the regression not to be believed; empty where nothing does.
/// @param squared  the criterion is a square or an absolute value and cannot be negative
std::vector<std::string> regressionWarnings(const PlanBlock& p, const RegressionReport& report, bool squared);

/// Coefficients of the full quadratic by least squares, 0..2*Nf+Npar; for plans without formulas.
std::vector<double> leastSquaresCoefficients(const PlanBlock& p);
/// Terms of the full quadratic at a coded point (from X1 on): 1, linear, products, squares.
std::vector<double> quadraticTerms(const std::vector<double>& codes);
/// Coded levels of point u.
std::vector<double> codesOf(const PlanBlock& p, int u);

}  // namespace tarvex
