#include "stats/planet_terms.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/arithmetic.h"
#include "stats/linear_fit.h"
#include "stats/quantiles.h"

namespace tarvex {

namespace {

using Eigen::MatrixXd;
using Eigen::VectorXd;

constexpr int moon = 11;
constexpr double fullTurn = 6.283185307179586;

struct Mover {
    const char* name;
    double turns;     ///< mean longitude, turns a Julian century
    double mass;      ///< in the Sun's
    double distance;  ///< au
};
/// By number of the body.
constexpr std::array<Mover, 12> movers = {{{"Солнце", 99.9978617, 1, 1},
                                           {"Меркурий", 415.2018744, 1 / 6023600.0, 0.38710},
                                           {"Венера", 162.5495552, 1 / 408523.7, 0.72333},
                                           {"Земля", 99.9978617, 1 / 328900.56, 1.00000},
                                           {"Марс", 53.1675030, 1 / 3098708.0, 1.52368},
                                           {"Юпитер", 8.4302930, 1 / 1047.3486, 5.20260},
                                           {"Сатурн", 3.3940530, 1 / 3497.898, 9.55491},
                                           {"Уран", 1.1902370, 1 / 22902.98, 19.21845},
                                           {"Нептун", 0.6068780, 1 / 19412.24, 30.11039},
                                           {"Плутон", 0.4039610, 1 / 135200000.0, 39.48169},
                                           {"Ксена", 0.1795000, 1 / 119700000.0, 67.6681},
                                           {"Луна", 1336.8512300, 1 / 27068700.0, 0.00257}}};

constexpr int highest = 5;           ///< harmonic of a planet
constexpr double faintest = 1e-3;    ///< prior size of a term that is still taken, in the largest one's
constexpr double alternation = 0.1;  ///< prior size of perihelia differing from aphelia
constexpr double slowest = 1e-3;     ///< frequency in the body's own below which a term is no slower

struct Candidate {
    std::string name;
    double turns;  ///< a century
    double prior;  ///< standard deviation of its amplitudes, relative
};

/// How strongly planet p shakes the orbit of the body, relative to the others.
double strength(int body, int p) {
    if (body == moon) return p == 3 ? 1 : 1e-3 * strength(3, p);
    if (p == moon) return body == 3 ? 1 : 0;
    const double a = movers[body].distance, b = movers[p].distance;
    return movers[p].mass * std::pow(std::min(a / b, b / a), 3);
}

std::vector<Candidate> candidates(int body) {
    const double own = movers[body].turns;
    std::vector<Candidate> all;
    for (int p = 1; p < static_cast<int>(movers.size()); ++p) {
        if (p == body || !(strength(body, p) > 0)) continue;
        for (int k = 1; k <= highest; ++k)
            for (const bool less : {false, true}) {
                const double turns = k * movers[p].turns - (less ? own : 0);
                // seen every half turn of the body only: what counts is the slowest of the frequencies
                // that look the same there
                double slow = std::fmod(std::abs(turns), 2 * own);
                slow = std::min(slow, 2 * own - slow);
                const char* planet = body == moon && p == 3 ? movers[0].name : movers[p].name;
                all.push_back({std::to_string(k) + "*L(" + planet + ")" + (less ? "-L" : ""), turns,
                               strength(body, p) * own / std::max(slow, slowest * own)});
            }
    }
    double largest = 0;
    for (const Candidate& c : all) largest = std::max(largest, c.prior);
    for (Candidate& c : all) c.prior /= largest;
    std::erase_if(all, [](const Candidate& c) { return c.prior < faintest; });
    all.push_back({"L", own, alternation});
    return all;
}

/// The mixed model: columns of the trend free, those of the terms with their prior variance.
struct Mixed {
    MatrixXd trend, terms;
    VectorXd values;

    Mixed(const std::vector<Group>& groups, const std::vector<Candidate>& all, int degree, double middle) {
        const auto n = static_cast<Eigen::Index>(groups.size()), m = static_cast<Eigen::Index>(all.size());
        trend.resize(n, degree);
        terms.resize(n, 2 * m);
        values.resize(n);
        for (Eigen::Index i = 0; i < n; ++i) {
            const Group& g = groups[static_cast<std::size_t>(i)];
            const double root = std::sqrt(g.W);
            for (int c = 0; c < degree; ++c) trend(i, c) = root * std::pow(g.T - middle, c);
            for (Eigen::Index c = 0; c < m; ++c) {
                const Candidate& one = all[static_cast<std::size_t>(c)];
                const double angle = fullTurn * one.turns * (g.T - middle);
                terms(i, 2 * c) = root * one.prior * std::cos(angle);
                terms(i, 2 * c + 1) = root * one.prior * std::sin(angle);
            }
            values[i] = root * g.Y;
        }
    }
};

struct Variances {
    double noise = 0;     ///< variance of a point
    double terms = 0;     ///< prior variance of the terms over it
    double absorbed = 0;  ///< degrees of freedom that the terms take
};

/// The variances of largest restricted likelihood.
/// @param plain  the fit of the trend alone
Variances variancesOf(const Mixed& mixed, const LinearFit& plain) {
    const MatrixXd left = mixed.terms - plain.basis * (plain.basis.transpose() * mixed.terms);
    const Eigen::SelfAdjointEigenSolver<MatrixXd> eigen(left.transpose() * left);
    const VectorXd strengths = eigen.eigenvalues().cwiseMax(0);
    const VectorXd seen = eigen.eigenvectors().transpose() * (left.transpose() * plain.residual);
    const double floor = 1e-12 * strengths.maxCoeff(), freedom = plain.freedom();
    Variances best;
    double likelihood = 0;
    for (int step = -60; step <= 160; ++step) {
        const double ratio = std::pow(10.0, step / 20.0);
        double explained = 0, volume = 0, absorbed = 0;
        for (Eigen::Index i = 0; i < strengths.size(); ++i) {
            if (strengths[i] <= floor) continue;
            const double grown = 1 + ratio * strengths[i];
            explained += ratio * seen[i] * seen[i] / grown;
            volume += std::log(grown);
            absorbed += 1 - 1 / grown;
        }
        const double noise = std::max(plain.rss - explained, 1e-12 * plain.rss) / freedom;
        const double here = -0.5 * (freedom * std::log(noise) + volume);
        if (step == -60 || here > likelihood) {
            likelihood = here;
            best = {noise, ratio, absorbed};
        }
    }
    return best;
}

/// Trend and terms fitted together; the prior enters the normal equations of the terms.
struct Solved {
    VectorXd b;        ///< the trend in columns of unit size, then the terms in units of their prior
    MatrixXd inverse;  ///< covariance of b over the variance of a point
    VectorXd scale;    ///< sizes of the columns of the trend

    Solved(const Mixed& mixed, const Variances& v) : scale(mixed.trend.colwise().norm()) {
        MatrixXd X(mixed.values.size(), mixed.trend.cols() + mixed.terms.cols());
        X << mixed.trend * scale.cwiseInverse().asDiagonal(), mixed.terms;
        MatrixXd normal = X.transpose() * X;
        normal.diagonal().tail(mixed.terms.cols()).array() += 1 / v.terms;
        inverse = normal.llt().solve(MatrixXd::Identity(normal.rows(), normal.cols()));
        b = inverse * (X.transpose() * mixed.values);
    }
    VectorXd terms() const { return b.tail(b.size() - scale.size()); }
};

std::vector<PlanetTerm> standingOut(const Solved& solved, const std::vector<Candidate>& all, double noise) {
    std::vector<PlanetTerm> terms;
    for (std::size_t c = 0; c < all.size(); ++c) {
        const auto at = solved.scale.size() + 2 * static_cast<Eigen::Index>(c);
        const double amplitude = all[c].prior * std::hypot(solved.b[at], solved.b[at + 1]);
        const double variance = std::max(solved.inverse(at, at), solved.inverse(at + 1, at + 1));
        const double error = all[c].prior * std::sqrt(noise * variance);
        if (amplitude > 2 * error)
            terms.push_back({all[c].name, 100 / std::abs(all[c].turns), amplitude, error});
    }
    std::sort(terms.begin(), terms.end(),
              [](const PlanetTerm& x, const PlanetTerm& y) { return x.amplitude > y.amplitude; });
    return terms;
}

/// The points less their terms.
std::vector<Group> withoutTerms(std::vector<Group> points, const Mixed& mixed, const Solved& solved) {
    const VectorXd oscillation = mixed.terms * solved.terms();
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i].Y -= oscillation[static_cast<Eigen::Index>(i)] / std::sqrt(points[i].W);
    return points;
}

}  // namespace

std::optional<PeriodicFit> fitWithPeriods(const std::vector<Group>& groups, Equation equation, int body,
                                          double D) {
    std::vector<Group> used;
    for (const Group& g : groups)
        if (g.W > 0) used.push_back(g);
    const int degree = static_cast<int>(equation), n = static_cast<int>(used.size());
    if (equation == Equation::Constant || body < 1 || body > moon || n < degree + 6) return std::nullopt;
    double middle = 0;
    for (const Group& g : used) middle += g.T / n;
    const std::vector<Candidate> all = candidates(body);
    const Mixed mixed(used, all, degree, middle);
    const LinearFit plain = linearFit(mixed.trend, mixed.values);
    if (plain.rank < degree || !(plain.rss > 1e-24 * mixed.values.squaredNorm())) return std::nullopt;
    const Variances v = variancesOf(mixed, plain);
    const Solved solved(mixed, v);

    PeriodicFit out;
    VectorXd contrast = VectorXd::Zero(solved.b.size());
    contrast[1] = 1 / solved.scale[1];
    if (degree == 3) contrast[2] = 2 * (D - middle) / solved.scale[2];
    out.slope = finite(contrast.dot(solved.b));
    for (int c = 0; c < degree; ++c) out.value += solved.b[c] / solved.scale[c] * std::pow(D - middle, c);
    out.terms = standingOut(solved, all, v.noise);
    const VectorXd left = mixed.values - mixed.terms * solved.terms() -
                          mixed.trend * solved.b.head(degree).cwiseQuotient(solved.scale);
    out.scatter = std::sqrt(left.squaredNorm() / std::max(1.0, n - degree - v.absorbed));

    // what the terms leave may still have a memory
    out.error = slopeError(withoutTerms(used, mixed, solved), equation, D).value_or(SlopeError{});
    const double points = std::clamp(out.error.effectivePoints, 1.0, static_cast<double>(n));
    out.error.effectivePoints = points;
    out.error.sigma = std::sqrt(v.noise * n / points * contrast.dot(solved.inverse * contrast));
    const double reach =
        out.error.sigma * studentQuantile(0.975, std::max(1.0, points - degree - v.absorbed));
    out.error.low = out.slope - reach;
    out.error.high = out.slope + reach;
    return out;
}

}  // namespace tarvex
