#include "stats/slope_error.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "core/arithmetic.h"
#include "stats/autoregression.h"
#include "stats/linear_fit.h"
#include "stats/quantiles.h"

namespace tarvex {

namespace {

using Eigen::MatrixXd;
using Eigen::VectorXd;

std::vector<double> plain(const VectorXd& v) { return {v.begin(), v.end()}; }

/// The fitted equation with the weights inside: rows multiplied by the root of their weight.
struct Design {
    MatrixXd basis;    ///< orthonormal
    MatrixXd toBasis;  ///< coefficients of the basis from the values
    VectorXd slopeOf;  ///< slope = slopeOf . values
    VectorXd values;
    VectorXd residual;
    double slope = 0;

    Design(const std::vector<Group>& groups, Equation equation, double D) {
        std::vector<Group> used;
        for (const Group& g : groups)
            if (g.W > 0) used.push_back(g);
        const auto n = static_cast<Eigen::Index>(used.size());
        const int terms = static_cast<int>(equation);
        double middle = 0;
        for (const Group& g : used) middle += g.T / static_cast<double>(n);
        MatrixXd X(n, terms);
        values.resize(n);
        for (Eigen::Index i = 0; i < n; ++i) {
            const Group& g = used[static_cast<std::size_t>(i)];
            const double root = std::sqrt(g.W);
            for (int c = 0; c < terms; ++c) X(i, c) = root * std::pow(g.T - middle, c);
            values[i] = root * g.Y;
        }
        VectorXd contrast = VectorXd::Zero(terms);
        contrast[1] = 1;
        if (terms == 3) contrast[2] = 2 * (D - middle);
        if (n <= terms) return;  // the caller sees the empty basis
        const LinearFit fit = linearFit(X, values);
        if (fit.rank < terms) return;
        basis = fit.basis;
        slopeOf = X * (fit.inverse * contrast);
        residual = fit.residual;
        slope = contrast.dot(fit.b);
    }
    bool usable() const { return basis.cols() > 0; }
    int terms() const { return static_cast<int>(basis.cols()); }
};

struct Judged {
    double sigma = 0, effective = 0;
};

/// Error of the slope under the model of the residuals, and the independent points that are worth it.
Judged judge(const Design& design, const VectorXd& residual, const Autoregression& model) {
    const auto n = static_cast<double>(residual.size());
    double taken = 0;
    for (int c = 0; c < design.terms(); ++c) taken += varianceOfSum(model, plain(design.basis.col(c)));
    // the fit has taken more out of correlated residuals than its terms; near a unit root almost all
    const double variance = residual.squaredNorm() / std::max(n - taken, 0.05 * n);
    const double independent = residual.squaredNorm() / (n - design.terms()) * design.slopeOf.squaredNorm();
    const double full = std::max(variance * varianceOfSum(model, plain(design.slopeOf)), independent);
    return {std::sqrt(full), full > 0 ? n * independent / full : n};
}

/// What drives the residuals once their memory is taken out, around zero.
std::vector<double> innovations(const std::vector<double>& e, const Autoregression& model) {
    std::vector<double> out;
    const auto p = static_cast<std::size_t>(model.order());
    for (std::size_t i = p; i < e.size(); ++i) {
        double v = e[i];
        for (std::size_t k = 1; k <= p; ++k) v -= model.phi[k - 1] * e[i - k];
        out.push_back(v);
    }
    double mean = 0;
    for (const double v : out) mean += v / static_cast<double>(out.size());
    for (double& v : out) v -= mean;
    return out;
}

/// A series of residuals made anew: blocks of innovations, and the memory put back.
VectorXd resampled(const std::vector<double>& source, const Autoregression& model, Eigen::Index n,
                   std::mt19937& random) {
    const auto block = static_cast<std::size_t>(std::max(1.0, std::cbrt(static_cast<double>(n))));
    const std::size_t starts = source.size() - block + 1, warm = 100 + 10 * model.phi.size();
    std::vector<double> e;
    while (e.size() < warm + static_cast<std::size_t>(n)) {
        const std::size_t from = random() % starts;
        for (std::size_t i = from; i < from + block; ++i) {
            double v = source[i];
            for (std::size_t k = 1; k <= std::min(model.phi.size(), e.size()); ++k)
                v += model.phi[k - 1] * e[e.size() - k];
            e.push_back(v);
        }
    }
    return Eigen::Map<const VectorXd>(e.data() + warm, n);
}

void resample(const Design& design, const Autoregression& model, int times, SlopeError& out) {
    const std::vector<double> source = innovations(plain(design.residual), model);
    const Eigen::Index n = design.residual.size();
    if (source.size() < 10) return;
    std::mt19937 random(20000101);
    std::vector<double> t;
    for (int i = 0; i < times; ++i) {
        const VectorXd e = resampled(source, model, n, random);
        const VectorXd left = e - design.basis * (design.basis.transpose() * e);
        const Autoregression again = fitAutoregression(plain(left), model.order(), design.terms());
        const double sigma = judge(design, left, again).sigma;
        if (sigma > 0) t.push_back(design.slopeOf.dot(e) / sigma);
    }
    if (t.size() < 39) return;  // fewer do not reach into the tails
    std::sort(t.begin(), t.end());
    const auto at = [&](double p) {
        return t[static_cast<std::size_t>(p * static_cast<double>(t.size() - 1))];
    };
    out.resamples = static_cast<int>(t.size());
    out.bootLow = design.slope - at(0.975) * out.sigma;
    out.bootHigh = design.slope - at(0.025) * out.sigma;
}

}  // namespace

std::optional<SlopeError> slopeError(const std::vector<Group>& groups, Equation equation, double D,
                                     int resamples) {
    if (equation == Equation::Constant) return std::nullopt;
    const Design design(groups, equation, D);
    if (!design.usable()) return std::nullopt;
    const auto n = static_cast<int>(design.residual.size());
    SlopeError out;
    out.effectivePoints = n;
    const double noise = 1e-12 * design.values.norm();
    if (design.residual.norm() > noise) {  // below it only rounding varies
        const std::vector<double> e = plain(design.residual);
        const Autoregression model = chooseAutoregression(e, largestOrder(n), design.terms());
        const Judged judged = judge(design, design.residual, model);
        out.sigma = finite(judged.sigma);
        out.effectivePoints = judged.effective;
        out.order = model.order();
        out.lagOne = lagOne(e);
        if (resamples > 0) resample(design, model, resamples, out);
    }
    const double reach =
        out.sigma * studentQuantile(0.975, std::max(1.0, out.effectivePoints - design.terms()));
    out.low = design.slope - reach;
    out.high = design.slope + reach;
    return out;
}

}  // namespace tarvex
