#include "stats/nonlinear_fit.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/arithmetic.h"
#include "stats/linear_fit.h"

namespace tarvex {

namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using Eigen::VectorXd;
using Set = std::vector<double>;

constexpr double firstDamping = 1e-4, mostDamping = 1e6, damper = 10;
constexpr double promisedEnough = 1e-4, gainedEnough = 1e-3, rounding = 1e-9;
constexpr double lostShare = 1e-6;  ///< of an unknown that lies outside what is determined

VectorXd vector(const Set& v) { return Eigen::Map<const VectorXd>(v.data(), static_cast<Index>(v.size())); }

/// The residuals at a place and how they fall with each unknown.
struct Linearised {
    VectorXd residual;
    MatrixXd slope;  ///< of the prediction, in sigma

    Linearised(const ResidualsOfSets& residuals, const Set& x, const Set& step) {
        std::vector<Set> sets(x.size() + 1, x);
        for (std::size_t k = 0; k < x.size(); ++k) sets[k + 1][k] += step[k];
        const auto rows = residuals(sets);
        residual = vector(rows[0]);
        slope.resize(residual.size(), static_cast<Index>(x.size()));
        for (std::size_t k = 0; k < x.size(); ++k)
            slope.col(static_cast<Index>(k)) = (residual - vector(rows[k + 1])) / (sets[k + 1][k] - x[k]);
        finite(residual.squaredNorm());
    }
};

/// The move of Marquardt: the larger the damping, the shorter it is and the nearer to steepest descent.
VectorXd dampedMove(const Linearised& here, double damping) {
    const Index unknowns = here.slope.cols(), rows = here.slope.rows();
    MatrixXd slope = MatrixXd::Zero(rows + unknowns, unknowns);
    VectorXd residual = VectorXd::Zero(rows + unknowns);
    slope.topRows(rows) = here.slope;
    slope.bottomRows(unknowns).diagonal() = std::sqrt(damping) * here.slope.colwise().norm();
    residual.head(rows) = here.residual;
    return linearFit(slope, residual).b;
}

Set moved(const Set& x, const VectorXd& move) {
    Set out = x;
    for (std::size_t i = 0; i < x.size(); ++i) out[i] += move[static_cast<Index>(i)];
    return out;
}

void tellCertainty(const Linearised& here, const LinearFit& linear, NonlinearFit& out) {
    const Index unknowns = here.slope.cols();
    // what of each unknown lies in the combinations that are determined, in units of equal weight
    const VectorXd size = here.slope.colwise().norm();
    const MatrixXd kept = linear.inverse * (here.slope.transpose() * here.slope);
    out.determined = linear.rank;
    for (Index i = 0; i < unknowns; ++i) {
        out.loose.push_back(size[i] == 0 || std::abs(1 - kept(i, i)) > lostShare);
        out.covariance.emplace_back();
        for (Index j = 0; j < unknowns; ++j) out.covariance.back().push_back(linear.inverse(i, j));
    }
}

}  // namespace

NonlinearFit fitNonlinear(const ResidualsOfSets& residuals, const Set& start, const Set& step, int most) {
    NonlinearFit out;
    out.x = start;
    double damping = 0, gained = std::numeric_limits<double>::infinity();
    while (out.passes++ < most) {
        const Linearised here(residuals, out.x, step);
        const LinearFit linear = linearFit(here.slope, here.residual);
        const double chi = here.residual.squaredNorm();
        if (chi - linear.rss <= std::max(promisedEnough, rounding * chi) ||
            gained <= std::max(gainedEnough, rounding * chi)) {
            out.residual.assign(here.residual.begin(), here.residual.end());
            out.chiSquare = chi;
            tellCertainty(here, linear, out);
            return out;
        }
        for (;; damping = damping == 0 ? firstDamping : damping * damper) {
            if (damping > mostDamping) throw ArithmeticFailure("подгонка не сходится");
            const Set next = moved(out.x, damping == 0 ? linear.b : dampedMove(here, damping));
            const double there = vector(residuals({next}).front()).squaredNorm();
            if (!(there < chi)) continue;
            gained = chi - there;
            out.x = next;
            break;
        }
        damping = damping <= firstDamping ? 0 : damping / damper;
    }
    throw ArithmeticFailure("подгонка не сходится");
}

}  // namespace tarvex
