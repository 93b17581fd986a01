#pragma once
// Least squares by singular values, for the routines of this folder; the only header here that shows Eigen.

#include <Eigen/Dense>

namespace tarvex {

struct LinearFit {
    Eigen::VectorXd b;         ///< coefficients; those that the points do not determine are the smallest
    Eigen::MatrixXd inverse;   ///< (X'X)^-1, the covariance of b over the variance of a point
    Eigen::MatrixXd basis;     ///< orthonormal columns that span those of X
    Eigen::VectorXd residual;  ///< y - Xb
    double rss = 0;            ///< sum of squares of the residuals
    int rank = 0;

    int freedom() const { return static_cast<int>(residual.size()) - rank; }
};

/// Fits y by the columns of X.  Columns may be of very different size; a column is dependent on the others
/// where its part of its own is below 1e-9.
/// @throws ArithmeticFailure for points that are no numbers
/// Source: the pseudoinverse by singular values; G. H. Golub, C. F. Van Loan, Matrix Computations.
LinearFit linearFit(const Eigen::MatrixXd& X, const Eigen::VectorXd& y);

}  // namespace tarvex
