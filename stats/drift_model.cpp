#include "stats/drift_model.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "stats/linear_fit.h"

namespace tarvex {

namespace {

constexpr const char* box = "Tarvex7m";

std::size_t at(int i) { return static_cast<std::size_t>(i); }

}  // namespace

bool DriftProblem::unknown(int factor) const {
    return std::find(factors.begin(), factors.end(), factor) != factors.end();
}

bool DriftSurfaces::isRatio(int factor) const {
    return problem_.seeksVgr() && (isVelocity(factor) || factor == factorVgr);
}

void DriftSurfaces::chooseUnits() {
    velocityUnit_ = 0;
    for (int i = 1; i < factorVgr; ++i)
        velocityUnit_ = std::max({velocityUnit_, std::abs(problem_.levels[at(i)]),
                                  problem_.unknown(i) ? std::abs(problem_.intervals[at(i)]) : 0});
    if (velocityUnit_ == 0) velocityUnit_ = 1;
    vgrUnit_ = problem_.levels[factorVgr] > 0 ? problem_.levels[factorVgr] : 1;
    for (double& interval : problem_.intervals)
        if (interval == 0) interval = 1;
}

DriftSurfaces::DriftSurfaces(const DriftProblem& problem) : problem_(problem) {
    chooseUnits();
    const auto n = static_cast<Eigen::Index>(problem.experiments.size());
    std::vector<std::vector<double>> points;
    middle_.assign(at(unknowns()), 0);
    for (const FactorValues& one : problem.experiments) {
        points.push_back(inner(one));
        for (int i = 0; i < unknowns(); ++i) middle_[at(i)] += points.back()[at(i)] / static_cast<double>(n);
    }
    const auto columns = static_cast<Eigen::Index>(terms(middle_).size());
    if (n < columns)
        throw Refusal("Экспериментов " + toText(static_cast<double>(n)) +
                          ", а коэффициентов модели смещений " + toText(static_cast<double>(columns)),
                      box);
    Eigen::MatrixXd F(n, columns);
    for (Eigen::Index u = 0; u < n; ++u) {
        const auto row = terms(points[static_cast<std::size_t>(u)]);
        F.row(u) = Eigen::Map<const Eigen::RowVectorXd>(row.data(), columns);
    }
    for (const Drift& drift : problem.drifts) {
        if (drift.calculated.size() != problem.experiments.size())
            throw SubscriptFailure("нет таких экспериментов плана");
        const LinearFit fit = linearFit(F, Eigen::Map<const Eigen::VectorXd>(drift.calculated.data(), n));
        coefficients_.emplace_back(fit.b.begin(), fit.b.end());
        scatter_.push_back(fit.freedom() > 0 ? std::sqrt(fit.rss / fit.freedom()) : 0);
        if (inverse_.empty())
            for (const auto& row : fit.inverse.rowwise()) inverse_.emplace_back(row.begin(), row.end());
    }
}

std::vector<double> DriftSurfaces::inner(const FactorValues& natural) const {
    std::vector<double> out;
    for (const int factor : problem_.factors) {
        const double x = natural[at(factor)];
        if (!isRatio(factor))
            out.push_back(ratio(x - problem_.levels[at(factor)], problem_.intervals[at(factor)]));
        else
            out.push_back(factor == factorVgr ? ratio(vgrUnit_, x)
                                              : ratio(x / velocityUnit_ * vgrUnit_, natural[factorVgr]));
    }
    return out;
}

std::vector<std::optional<double>> DriftSurfaces::natural(const std::vector<double>& inner) const {
    double inverse = 0;  // of Vgr, in its unit
    for (int i = 0; i < unknowns(); ++i)
        if (problem_.factors[at(i)] == factorVgr) inverse = inner[at(i)];
    std::vector<std::optional<double>> out;
    for (int i = 0; i < unknowns(); ++i) {
        const int factor = problem_.factors[at(i)];
        if (!isRatio(factor))
            out.emplace_back(problem_.levels[at(factor)] + inner[at(i)] * problem_.intervals[at(factor)]);
        else if (inverse == 0)
            out.emplace_back();
        else
            out.emplace_back(factor == factorVgr ? vgrUnit_ / inverse
                                                 : inner[at(i)] / inverse * velocityUnit_);
    }
    return out;
}

std::vector<double> DriftSurfaces::terms(const std::vector<double>& inner) const {
    std::vector<double> d, out{1};
    for (std::size_t i = 0; i < inner.size(); ++i) d.push_back(inner[i] - middle_[i]);
    out.insert(out.end(), d.begin(), d.end());
    if (problem_.model == DriftModel::Quadratic)
        for (std::size_t i = 0; i < d.size(); ++i)
            for (std::size_t j = i; j < d.size(); ++j) out.push_back(d[i] * d[j]);
    return out;
}

double DriftSurfaces::predicted(int drift, const std::vector<double>& inner) const {
    const auto row = terms(inner);
    double sum = 0;
    for (std::size_t c = 0; c < row.size(); ++c) sum += row[c] * coefficients_[at(drift)][c];
    return sum;
}

std::vector<double> DriftSurfaces::gradient(int drift, const std::vector<double>& inner) const {
    const auto& b = coefficients_[at(drift)];
    const std::size_t k = inner.size();
    std::vector<double> out(b.begin() + 1, b.begin() + 1 + static_cast<std::ptrdiff_t>(k));
    if (problem_.model != DriftModel::Quadratic) return out;
    std::size_t c = k + 1;
    for (std::size_t i = 0; i < k; ++i)
        for (std::size_t j = i; j < k; ++j, ++c) {
            out[i] += b[c] * (inner[j] - middle_[j]);
            out[j] += b[c] * (inner[i] - middle_[i]);
        }
    return out;
}

double DriftSurfaces::predictionError(int drift, const std::vector<double>& inner) const {
    const auto row = terms(inner);
    double leverage = 0;
    for (std::size_t i = 0; i < row.size(); ++i)
        for (std::size_t j = 0; j < row.size(); ++j) leverage += row[i] * inverse_[i][j] * row[j];
    return scatter(drift) * std::sqrt(1 + leverage);
}

double DriftSurfaces::spread(int drift) const {
    const auto& values = problem_.drifts[at(drift)].calculated;
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    return *high - *low;
}

}  // namespace tarvex
