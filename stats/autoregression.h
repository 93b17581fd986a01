#pragma once
// Noise that remembers: an autoregressive model of residuals, and what it does to sums of them.

#include <vector>

namespace tarvex {

/// x(i) = phi(1) x(i-1) + ... + phi(p) x(i-p) + innovation; no phi is white noise.
struct Autoregression {
    std::vector<double> phi;

    int order() const { return static_cast<int>(phi.size()); }
};

/// The model of a series, its order chosen by Schwarz's criterion up to `most`.
/// A first order is corrected for the bias that fitted coefficients of a trend bring.
/// @param x        residuals in the order of time, taken as equally spaced
/// @param fitted   number of coefficients that were fitted to leave these residuals
/// Source: J. P. Burg, thesis, Stanford (1975); G. Schwarz, Ann. Stat. 6, 461 (1978); M. G. Kendall,
/// Biometrika 41, 403 (1954).
Autoregression chooseAutoregression(const std::vector<double>& x, int most, int fitted);
/// The same of a given order.
Autoregression fitAutoregression(const std::vector<double>& x, int order, int fitted);

/// Largest order worth trying on n points.
int largestOrder(int n);

/// Variance of sum w(i) x(i) over the variance of one x.
/// The weights are filtered backwards by the model: the energy of what comes out is the sum that the
/// covariances would give, without forming them.
double varianceOfSum(const Autoregression& model, const std::vector<double>& w);

/// Correlation of neighbours, 0 for a series that does not vary.
double lagOne(const std::vector<double>& x);

}  // namespace tarvex
