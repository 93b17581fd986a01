#include "stats/drift_solution.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "stats/drift_verdict.h"
#include "stats/linear_fit.h"
#include "stats/quantiles.h"

namespace tarvex {

namespace {

using Eigen::MatrixXd;
using Eigen::VectorXd;

constexpr double negligible = 1e-8;  ///< singular value, in the largest, that is rounding
constexpr int mostSteps = 100;

std::size_t at(Eigen::Index i) { return static_cast<std::size_t>(i); }
std::vector<double> plain(const VectorXd& v) { return {v.begin(), v.end()}; }

/// One drift less its prediction and the gradient of the prediction, all in sigma.
struct Equations {
    VectorXd residual;
    MatrixXd slope;

    Equations(const DriftProblem& problem, const DriftSurfaces& surfaces, const VectorXd& where,
              const std::vector<double>& sigma)
        : residual(static_cast<Eigen::Index>(problem.drifts.size())), slope(residual.size(), where.size()) {
        const auto inner = plain(where);
        for (Eigen::Index d = 0; d < residual.size(); ++d) {
            const int drift = static_cast<int>(d);
            residual[d] = (problem.drifts[at(d)].observed - surfaces.predicted(drift, inner)) / sigma[at(d)];
            const auto row = surfaces.gradient(drift, inner);
            slope.row(d) = Eigen::Map<const Eigen::RowVectorXd>(row.data(), where.size()) / sigma[at(d)];
        }
    }
};

/// Errors of observed less predicted at a place; all 1 where none is known.
std::vector<double> sigmas(const DriftProblem& problem, const DriftSurfaces& surfaces,
                           const std::vector<double>& inner, bool& known) {
    std::vector<double> out;
    known = false;
    for (std::size_t d = 0; d < problem.drifts.size(); ++d) {
        const int drift = static_cast<int>(d);
        const Drift& one = problem.drifts[d];
        // the floor keeps a drift that claims no error from outweighing rounding
        const double floor = 1e-6 * std::max(surfaces.spread(drift), 1e-9 * std::abs(one.observed));
        const double sigma =
            std::hypot(one.observedError, one.calculatedError, surfaces.predictionError(drift, inner));
        known = known || sigma > floor;
        out.push_back(std::max(sigma, floor));
    }
    if (!known) out.assign(problem.drifts.size(), 1);
    for (double& sigma : out)
        if (!(finite(sigma) > 0)) sigma = 1;
    return out;
}

/// Minimises chi-square over the coordinates that are free, from `start` on, the errors as given.
VectorXd descend(const DriftProblem& problem, const DriftSurfaces& surfaces, VectorXd start,
                 const std::vector<double>& sigma, const std::vector<Eigen::Index>& free) {
    if (free.empty()) return start;
    for (int step = 0; step < mostSteps; ++step) {
        const Equations here(problem, surfaces, start, sigma);
        Eigen::JacobiSVD<MatrixXd> svd(here.slope(Eigen::all, free),
                                       Eigen::ComputeThinU | Eigen::ComputeThinV);
        svd.setThreshold(negligible);
        const VectorXd move = svd.solve(here.residual);
        double length = 1;
        VectorXd next = start;
        for (int halving = 0; halving < 40; ++halving, length /= 2) {
            next = start;
            next(free) += length * move;
            const Equations there(problem, surfaces, next, sigma);
            if (there.residual.squaredNorm() <= here.residual.squaredNorm() * (1 + 1e-12)) break;
        }
        start = next;
        if (length * move.norm() <= 1e-9 * (1 + start.norm())) return start;
    }
    throw ArithmeticFailure("подгонка дрейфов не сходится");
}

std::vector<Eigen::Index> everyCoordinate(Eigen::Index count) {
    std::vector<Eigen::Index> all;
    for (Eigen::Index i = 0; i < count; ++i) all.push_back(i);
    return all;
}

VectorXd centreOf(const DriftProblem& problem, const DriftSurfaces& surfaces) {
    FactorValues levels = problem.levels;
    if (problem.seeksVgr() && !(levels[factorVgr] > 0)) levels[factorVgr] = 1;
    const auto inner = surfaces.inner(levels);
    return Eigen::Map<const VectorXd>(inner.data(), static_cast<Eigen::Index>(inner.size()));
}

/// Place of a factor among the unknowns, -1 when it is none.
Eigen::Index placeOf(const DriftProblem& problem, int factor) {
    const auto found = std::find(problem.factors.begin(), problem.factors.end(), factor);
    return found == problem.factors.end() ? -1 : found - problem.factors.begin();
}

/// What the equations at the solution say of errors: covariance, and which coordinates nothing determines.
struct Certainty {
    MatrixXd covariance;
    std::vector<bool> loose;

    Certainty(const Equations& equations, double scale, DriftSolution& out) {
        const Eigen::Index k = equations.slope.cols();
        Eigen::JacobiSVD<MatrixXd> svd(equations.slope, Eigen::ComputeFullU | Eigen::ComputeFullV);
        svd.setThreshold(negligible);
        const Eigen::Index rank = svd.rank();
        out.singular.assign(at(k), 0);
        for (Eigen::Index i = 0; i < svd.singularValues().size(); ++i)
            out.singular[at(i)] = svd.singularValues()[i];
        out.determined = static_cast<int>(rank);
        const MatrixXd known =
            svd.matrixV().leftCols(rank) * svd.singularValues().head(rank).cwiseInverse().asDiagonal();
        covariance = scale * known * known.transpose();
        const VectorXd lost = svd.matrixV().rightCols(k - rank).rowwise().squaredNorm();
        for (const double share : lost) loose.push_back(share > 1e-6);
    }
};

/// 1/Vgr, V/Vgr and the bound of Vgr.
void tellRatios(const DriftProblem& problem, const DriftSurfaces& surfaces, const Certainty& sure,
                const VectorXd& inner, DriftSolution& out) {
    const Eigen::Index v = placeOf(problem, factorVgr);
    if (v < 0 || sure.loose[at(v)]) return;
    const double error = std::sqrt(sure.covariance(v, v));
    if (problem.seeksVgr()) {
        out.inverseVgr = {inner[v] * surfaces.inverseUnit(), error * surfaces.inverseUnit()};
        for (Eigen::Index i = 0; i < inner.size(); ++i)
            if (isVelocity(problem.factors[at(i)]))
                out.ratios.push_back({inner[i] * surfaces.ratioUnit(),
                                      std::sqrt(sure.covariance(i, i)) * surfaces.ratioUnit()});
    } else {
        const double value = *surfaces.natural(plain(inner))[at(v)];
        out.inverseVgr = {ratio(1, value), error * problem.intervals[factorVgr] / (value * value)};
    }
    const SolvedRatio& u = *out.inverseVgr;
    out.scaleLoose = std::abs(u.value) < 2 * u.error;  // doubled or halved, chi-square grows by less than one
    const double highest = u.value + normalOne95 * u.error;
    if (u.value - normalBoth95 * u.error <= 0 && highest > 0) out.lowestVgr = 1 / highest;
}

/// Derivatives of the natural values by the inner coordinates.
MatrixXd naturalSlopes(const DriftProblem& problem, const DriftSurfaces& surfaces, const VectorXd& inner) {
    const Eigen::Index k = inner.size(), v = placeOf(problem, factorVgr);
    MatrixXd slopes = MatrixXd::Zero(k, k);
    for (Eigen::Index i = 0; i < k; ++i) {
        const int factor = problem.factors[at(i)];
        if (!problem.seeksVgr() || factor > factorVgr) {
            slopes(i, i) = problem.intervals[static_cast<std::size_t>(factor)];
        } else if (factor == factorVgr) {
            slopes(i, i) = -1 / surfaces.inverseUnit() / (inner[v] * inner[v]);
        } else {
            const double unit = surfaces.ratioUnit() / surfaces.inverseUnit();
            slopes(i, i) = unit / inner[v];
            slopes(i, v) = -unit * inner[i] / (inner[v] * inner[v]);
        }
    }
    return slopes;
}

// complexity: a factor can be undetermined in four ways, by itself or through Vgr, and each is told.
void tellFactors(const DriftProblem& problem, const DriftSurfaces& surfaces, const Certainty& sure,
                 const VectorXd& inner, DriftSolution& out) {
    const Eigen::Index k = inner.size(), v = placeOf(problem, factorVgr);
    const bool noVgr =
        v >= 0 && out.inverseVgr && out.inverseVgr->value - normalBoth95 * out.inverseVgr->error <= 0;
    const auto values = surfaces.natural(plain(inner));
    MatrixXd natural = MatrixXd::Zero(k, k);
    if (v < 0 || inner[v] != 0 || !problem.seeksVgr()) {
        const MatrixXd slopes = naturalSlopes(problem, surfaces, inner);
        natural = slopes * sure.covariance * slopes.transpose();
    }
    out.correlation.assign(at(k), std::vector<double>(at(k), 0));
    for (Eigen::Index i = 0; i < k; ++i) {
        SolvedFactor one{problem.factors[at(i)], {}, {}};
        const bool ratioed = problem.seeksVgr() && one.factor <= factorVgr;
        const bool lost = sure.loose[at(i)] || (ratioed && (sure.loose[at(v)] || noVgr)) ||
                          (one.factor == factorVgr && noVgr);
        if (!lost) {
            one.value = values[at(i)];
            if (out.errorsKnown || out.freedom > 0) one.error = std::sqrt(natural(i, i));
        }
        out.factors.push_back(one);
        for (Eigen::Index j = 0; j < k; ++j) {
            const double size = std::sqrt(natural(i, i) * natural(j, j));
            out.correlation[at(i)][at(j)] = i == j ? 1 : size > 0 ? natural(i, j) / size : 0;
        }
    }
}

}  // namespace

DriftSolution solveDrifts(const DriftProblem& problem) {
    if (problem.drifts.empty() || problem.factors.empty())
        throw Refusal("Нет смещений, по которым можно решать", "Tarvex7m");
    const DriftSurfaces surfaces(problem);
    DriftSolution out;
    VectorXd inner = centreOf(problem, surfaces);
    const auto all = everyCoordinate(inner.size());
    for (int pass = 0; pass < 20; ++pass) {  // the errors of the surfaces change with the place
        const VectorXd before = inner;
        out.sigma = sigmas(problem, surfaces, plain(inner), out.errorsKnown);
        inner = descend(problem, surfaces, centreOf(problem, surfaces), out.sigma, all);
        if ((inner - before).norm() <= 1e-9 * (1 + inner.norm())) break;
    }
    const Equations equations(problem, surfaces, inner, out.sigma);
    out.residual = plain(equations.residual);
    out.chiSquare = finite(equations.residual.squaredNorm());
    const Certainty sure(equations, 1, out);
    out.freedom = static_cast<int>(problem.drifts.size()) - out.determined;
    Certainty scaled = sure;
    if (!out.errorsKnown && out.freedom > 0) scaled.covariance *= out.chiSquare / out.freedom;
    out.inner = plain(inner);
    for (const auto& row : scaled.covariance.rowwise()) out.covariance.emplace_back(row.begin(), row.end());
    for (std::size_t d = 0; d < problem.drifts.size(); ++d)
        out.predicted.push_back(surfaces.predicted(static_cast<int>(d), out.inner));
    tellRatios(problem, surfaces, scaled, inner, out);
    tellFactors(problem, surfaces, scaled, inner, out);
    out.verdict = verdictText(problem, out);
    return out;
}

namespace {

/// The drift of a planet as the drifts of the others predict it.
LeftOutDrift predictedByRest(const DriftProblem& problem, const Drift& left) {
    LeftOutDrift one;
    DriftProblem rest = problem, own = problem;
    std::erase_if(rest.drifts, [&](const Drift& d) { return d.planet == left.planet; });
    own.drifts = {left};
    if (rest.drifts.empty()) return one;
    DriftSolution solution;
    try {
        solution = solveDrifts(rest);
    } catch (const ArithmeticFailure&) {
        return one;  // the others agree on no solution
    }
    if (solution.determined < static_cast<int>(problem.factors.size())) return one;
    const DriftSurfaces surfaces(own);
    bool known = false;
    const double sigma = sigmas(own, surfaces, solution.inner, known)[0];
    const auto slope = surfaces.gradient(0, solution.inner);
    double variance = sigma * sigma;
    for (std::size_t i = 0; i < slope.size(); ++i)
        for (std::size_t j = 0; j < slope.size(); ++j)
            variance += slope[i] * solution.covariance[i][j] * slope[j];
    one.predicted = surfaces.predicted(0, solution.inner);
    one.residual = ratio(left.observed - *one.predicted, std::sqrt(variance));
    return one;
}

}  // namespace

std::vector<LeftOutDrift> leaveOnePlanetOut(const DriftProblem& problem) {
    std::vector<LeftOutDrift> out;
    for (const Drift& left : problem.drifts) out.push_back(predictedByRest(problem, left));
    return out;
}

double contour68() { return chiSquareQuantile(0.6826894921, 2); }
double contour95() { return chiSquareQuantile(0.95, 2); }

namespace {

/// The axes of a map and where a point of it lies in inner coordinates.
struct MapAxes {
    const DriftProblem& problem;
    const DriftSurfaces& surfaces;
    Eigen::Index first, second;
    bool ratios;

    /// Writes the two coordinates; false where the point is none.
    bool place(double x, double y, VectorXd& inner) const {
        if (ratios) {
            inner[first] = x / surfaces.ratioUnit();
            inner[second] = y / surfaces.inverseUnit();
            return true;
        }
        FactorValues values = problem.levels;
        values[static_cast<std::size_t>(problem.factors[at(first)])] = x;
        values[static_cast<std::size_t>(problem.factors[at(second)])] = y;
        if (problem.seeksVgr() && !(values[factorVgr] > 0)) return false;
        const auto all = surfaces.inner(values);
        inner[first] = all[at(first)];
        inner[second] = all[at(second)];
        return true;
    }
};

std::vector<double> gridOf(double value, double error, double reach, int points) {
    std::vector<double> out;
    out.reserve(static_cast<std::size_t>(std::max(points, 0)));
    for (int i = 0; i < points; ++i) out.push_back(value + error * reach * (2.0 * i / (points - 1) - 1));
    return out;
}

/// The two unknowns of the picture: a velocity and Vgr where both are sought, else the first two.
std::pair<Eigen::Index, Eigen::Index> axesOf(const DriftProblem& problem) {
    const Eigen::Index v = placeOf(problem, factorVgr);
    if (!problem.seeksVgr()) return {0, 1};
    return {v == 0 ? 1 : 0, v};
}

/// The grid of a map over two factors, or over their ratios where Vgr has no value; none where neither can be
/// laid.
std::optional<ProfileMap> mapGrid(const SolvedFactor& one, const SolvedFactor& two,
                                  const DriftSolution& solution, double reach, int points) {
    ProfileMap map;
    map.first = one.factor;
    map.second = two.factor;
    map.ratios = !two.value || !one.value;
    if (map.ratios && (!isVelocity(one.factor) || !solution.inverseVgr)) return std::nullopt;
    if (!map.ratios && !(one.error && two.error)) return std::nullopt;
    map.x = map.ratios ? gridOf(solution.ratios[0].value, solution.ratios[0].error, reach, points)
                       : gridOf(*one.value, *one.error, reach, points);
    map.y = map.ratios ? gridOf(solution.inverseVgr->value, solution.inverseVgr->error, reach, points)
                       : gridOf(*two.value, *two.error, reach, points);
    return map;
}

/// By what chi-square is divided: the scatter itself is the error where none was known.
double chiSquareScale(const DriftSolution& solution) {
    if (solution.errorsKnown || solution.freedom == 0 || solution.chiSquare == 0) return 1;
    return solution.chiSquare / solution.freedom;
}

}  // namespace

std::optional<ProfileMap> profileMap(const DriftProblem& problem, const DriftSolution& solution, double reach,
                                     int points) {
    if (problem.factors.size() < 2 || solution.determined < static_cast<int>(problem.factors.size()))
        return std::nullopt;
    const DriftSurfaces surfaces(problem);
    const auto [first, second] = axesOf(problem);
    const SolvedFactor &one = solution.factors[at(first)], &two = solution.factors[at(second)];
    std::optional<ProfileMap> map = mapGrid(one, two, solution, reach, points);
    if (!map) return std::nullopt;
    const MapAxes axes{problem, surfaces, first, second, map->ratios};
    std::vector<Eigen::Index> free = everyCoordinate(static_cast<Eigen::Index>(problem.factors.size()));
    std::erase_if(free, [&](Eigen::Index i) { return i == axes.first || i == axes.second; });
    const double scale = chiSquareScale(solution);
    const VectorXd best =
        Eigen::Map<const VectorXd>(solution.inner.data(), static_cast<Eigen::Index>(solution.inner.size()));
    const auto heightAt = [&](double x, double y) {
        constexpr double nowhere = 1e9;
        VectorXd inner = best;
        if (!axes.place(x, y, inner)) return nowhere;
        try {
            inner = descend(problem, surfaces, inner, solution.sigma, free);
        } catch (const ArithmeticFailure&) {
            return nowhere;
        }
        const Equations here(problem, surfaces, inner, solution.sigma);
        return (here.residual.squaredNorm() - solution.chiSquare) / scale;
    };
    for (const double x : map->x) {
        std::vector<double> column;
        for (const double y : map->y) column.push_back(heightAt(x, y));
        map->chiSquare.push_back(std::move(column));
    }
    return map;
}

std::vector<ProfileMap::Segment> ProfileMap::contour(double height) const {
    std::vector<Segment> out;
    const auto between = [&](double a, double b, double va, double vb) {
        return a + (b - a) * (height - va) / (vb - va);
    };
    for (std::size_t i = 0; i + 1 < x.size(); ++i)
        for (std::size_t j = 0; j + 1 < y.size(); ++j) {
            const double corner[4] = {chiSquare[i][j], chiSquare[i + 1][j], chiSquare[i + 1][j + 1],
                                      chiSquare[i][j + 1]};
            const double cx[4] = {x[i], x[i + 1], x[i + 1], x[i]}, cy[4] = {y[j], y[j], y[j + 1], y[j + 1]};
            std::vector<std::pair<double, double>> cuts;
            for (int k = 0; k < 4; ++k) {
                const int l = (k + 1) % 4;
                if ((corner[k] < height) != (corner[l] < height))
                    cuts.emplace_back(between(cx[k], cx[l], corner[k], corner[l]),
                                      between(cy[k], cy[l], corner[k], corner[l]));
            }
            for (std::size_t k = 0; k + 1 < cuts.size(); k += 2)
                out.push_back({cuts[k].first, cuts[k].second, cuts[k + 1].first, cuts[k + 1].second});
        }
    return out;
}

std::vector<double> predictDrifts(const DriftProblem& problem, const FactorValues& values) {
    const DriftSurfaces surfaces(problem);
    const auto inner = surfaces.inner(values);
    std::vector<double> out;
    out.reserve(problem.drifts.size());
    for (int d = 0; d < static_cast<int>(problem.drifts.size()); ++d)
        out.push_back(surfaces.predicted(d, inner));
    return out;
}

}  // namespace tarvex
