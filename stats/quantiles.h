#pragma once
// Quantiles and tails of the distributions that errors and tests are judged by.

namespace tarvex {

// Boost.Math computes them; it throws std::domain_error for arguments out of range.

/// Quantile of Student's t.
/// @param p        probability below it, 0..1 without the ends
/// @param degrees  of freedom, above 0, not necessarily whole
double studentQuantile(double p, double degrees);
/// Probability of |t| or more (both tails) when there is no effect.
double studentTail(double t, double degrees);
/// Probability of F or more.
/// @param above, below  degrees of freedom of numerator and denominator, above 0
double fisherTail(double F, double above, double below);
/// Quantile of Fisher's F.
double fisherQuantile(double p, double above, double below);
/// Quantile of chi-square.
double chiSquareQuantile(double p, double degrees);
/// Probability of this chi-square or more.
double chiSquareTail(double chiSquare, double degrees);

/// Of the normal distribution: both tails and one tail of 5 %.
inline constexpr double normalBoth95 = 1.959963984540054, normalOne95 = 1.6448536269514722;

}  // namespace tarvex
