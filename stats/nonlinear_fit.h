#pragma once
// Least squares of a model that can only be asked for its residuals, each question a long calculation of its
// own.

#include <functional>
#include <vector>

namespace tarvex {

/// Residuals (measured less predicted, in sigma) for several sets of unknowns at once: one row a set.  The
/// sets are independent, so they may be worked out side by side.
using ResidualsOfSets =
    std::function<std::vector<std::vector<double>>(const std::vector<std::vector<double>>& sets)>;

struct NonlinearFit {
    std::vector<double> x;                        ///< the unknowns at the least sum of squares
    std::vector<std::vector<double>> covariance;  ///< of these, for residuals in sigma
    std::vector<bool> loose;                      ///< unknowns that the residuals do not determine
    std::vector<double> residual;                 ///< in sigma, at the solution
    double chiSquare = 0;                         ///< their sum of squares
    int determined = 0;                           ///< combinations of the unknowns that are determined
    int passes = 0;                               ///< linearisations made

    int freedom() const { return static_cast<int>(residual.size()) - determined; }
};

/// Gauss and Newton with derivatives by one-sided differences; a step that does not help is halved.  Ends
/// when the next step would lower chi-square by less than 1E-4, or by less than 1E-9 of it.
/// @param start  first values of the unknowns
/// @param step   distance for the difference of each, not 0
/// @param most   linearisations after which it does not converge
/// @throws ArithmeticFailure without convergence, or for residuals that are no numbers; what `residuals`
/// throws Source: J. E. Dennis, R. B. Schnabel, Numerical Methods for Unconstrained Optimization (1983),
/// chapter 10.
NonlinearFit fitNonlinear(const ResidualsOfSets& residuals, const std::vector<double>& start,
                          const std::vector<double>& step, int most = 20);

}  // namespace tarvex
