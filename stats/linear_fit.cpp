#include "stats/linear_fit.h"

#include "core/arithmetic.h"

namespace tarvex {

LinearFit linearFit(const Eigen::MatrixXd& X, const Eigen::VectorXd& y) {
    if (!X.allFinite() || !y.allFinite()) throw ArithmeticFailure("точка аппроксимации - не число");
    Eigen::VectorXd size = X.colwise().norm();
    for (double& one : size)
        if (one == 0) one = 1;
    Eigen::JacobiSVD<Eigen::MatrixXd> svd(X * size.cwiseInverse().asDiagonal(),
                                          Eigen::ComputeThinU | Eigen::ComputeThinV);
    svd.setThreshold(1e-9);
    LinearFit fit;
    fit.rank = static_cast<int>(svd.rank());
    fit.basis = svd.matrixU().leftCols(fit.rank);
    const Eigen::MatrixXd back = size.cwiseInverse().asDiagonal() * svd.matrixV().leftCols(fit.rank) *
                                 svd.singularValues().head(fit.rank).cwiseInverse().asDiagonal();
    fit.b = back * (fit.basis.transpose() * y);
    fit.inverse = back * back.transpose();
    fit.residual = y - X * fit.b;
    fit.rss = fit.residual.squaredNorm();
    return fit;
}

}  // namespace tarvex
