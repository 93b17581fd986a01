#include "stats/stationary_point.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "stats/linear_fit.h"
#include "stats/quantiles.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

using Eigen::MatrixXd;
using Eigen::VectorXd;

constexpr double mostIntervals = 10;  ///< how far a confidence region is followed

/// Y = b0 + linear . x + x' form x.
struct Quadratic {
    VectorXd linear;
    MatrixXd form;

    Quadratic(int n, const RegressionReport& report) : linear(n), form(n, n) {
        const auto b = [&](int c) { return report.coefficients[static_cast<std::size_t>(c)].value; };
        for (int i = 1; i <= n; ++i) {
            linear[i - 1] = b(i);
            form(i - 1, i - 1) = b(squareColumn(n, i));
            for (int j = i + 1; j <= n; ++j)
                form(i - 1, j - 1) = form(j - 1, i - 1) = b(pairColumn(n, i, j)) / 2;
        }
    }
    VectorXd gradient(const VectorXd& x) const { return linear + 2 * form * x; }
};

/// Derivatives of the gradient at x by the coefficients.
MatrixXd gradientTerms(const VectorXd& x) {
    const int n = static_cast<int>(x.size());
    MatrixXd G = MatrixXd::Zero(n, lastColumn(n) + 1);
    for (int i = 1; i <= n; ++i) {
        G(i - 1, i) = 1;
        G(i - 1, squareColumn(n, i)) = 2 * x[i - 1];
        for (int j = i + 1; j <= n; ++j) {
            G(i - 1, pairColumn(n, i, j)) = x[j - 1];
            G(j - 1, pairColumn(n, i, j)) = x[i - 1];
        }
    }
    return G;
}

MatrixXd inverseOf(const RegressionReport& report) {
    const auto k = static_cast<Eigen::Index>(report.inverse.size());
    MatrixXd out(k, k);
    for (Eigen::Index i = 0; i < k; ++i)
        out.row(i) =
            Eigen::Map<const Eigen::RowVectorXd>(report.inverse[static_cast<std::size_t>(i)].data(), k);
    return out;
}

MatrixXd gradientCovariance(const RegressionReport& report, const VectorXd& x) {
    const MatrixXd G = gradientTerms(x);
    return *report.residualVariance * G * inverseOf(report) * G.transpose();
}

/// Whether the true stationary point may lie at x: its gradient there is not told from 0.
bool mayBe(const Quadratic& surface, const RegressionReport& report, const VectorXd& x) {
    const VectorXd g = surface.gradient(x);
    const auto n = static_cast<double>(x.size());
    return g.dot(gradientCovariance(report, x).ldlt().solve(g)) <=
           n * fisherQuantile(0.95, n, report.freedom);
}

std::optional<double> edge(const Quadratic& surface, const RegressionReport& report, const VectorXd& from,
                           Eigen::Index factor, double way) {
    VectorXd x = from;
    double inside = 0, outside = 0;
    for (double step = 0.01; step <= mostIntervals; step *= 1.1) {
        x[factor] = from[factor] + way * step;
        if (!mayBe(surface, report, x)) {
            outside = step;
            break;
        }
        inside = step;
    }
    if (outside == 0) return std::nullopt;
    for (int halving = 0; halving < 40; ++halving) {
        const double middle = (inside + outside) / 2;
        x[factor] = from[factor] + way * middle;
        (mayBe(surface, report, x) ? inside : outside) = middle;
    }
    return from[factor] + way * inside;
}

std::string cut4(double v) { return Format(v, "0.0000"); }

}  // namespace

double predictedAt(const RegressionReport& report, const std::vector<double>& codes) {
    const auto row = quadraticTerms(codes);
    double value = 0;
    for (std::size_t c = 0; c < row.size(); ++c) value += row[c] * report.coefficients[c].value;
    return value;
}

StationaryReport stationaryReport(const PlanBlock& p, const RegressionReport& report) {
    const Quadratic surface(p.Nf, report);
    StationaryReport out;
    const Eigen::SelfAdjointEigenSolver<MatrixXd> eigen(surface.form);
    for (Eigen::Index i = 0; i < eigen.eigenvalues().size(); ++i) {
        const VectorXd direction = eigen.eigenvectors().col(i);
        out.axes.push_back({eigen.eigenvalues()[i], {direction.begin(), direction.end()}});
    }
    const VectorXd sizes = eigen.eigenvalues().cwiseAbs();
    if (!(sizes.minCoeff() > 1e-9 * sizes.maxCoeff())) return out;
    const VectorXd x = (2 * surface.form).ldlt().solve(-surface.linear);
    out.point.assign(x.begin(), x.end());
    out.value = predictedAt(report, out.point);
    if (!report.residualVariance || !(*report.residualVariance > 0)) return out;
    const MatrixXd back = (2 * surface.form).inverse();
    const VectorXd variances = (back * gradientCovariance(report, x) * back.transpose()).diagonal();
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        out.error.push_back(std::sqrt(variances[i]));
        out.cuts.push_back({edge(surface, report, x, i, -1), edge(surface, report, x, i, 1)});
    }
    return out;
}

std::vector<double> ridgePoint(const PlanBlock& p, const RegressionReport& report, double radius) {
    const Quadratic surface(p.Nf, report);
    const Eigen::SelfAdjointEigenSolver<MatrixXd> eigen(surface.form);
    const VectorXd& curvature = eigen.eigenvalues();
    VectorXd pull = eigen.eigenvectors().transpose() * (-surface.linear / 2);
    // a pull at right angles to the weakest axis leaves its sign open: it goes along
    const double scale = pull.norm() + curvature.cwiseAbs().maxCoeff();
    if (!(scale > 0)) {  // a plain without slope: no way is better
        std::vector<double> any(static_cast<std::size_t>(p.Nf), 0);
        any[0] = radius;
        return any;
    }
    if (std::abs(pull[0]) < 1e-9 * scale) pull[0] = 1e-9 * scale;
    const auto at = [&](double m) { return VectorXd(pull.cwiseQuotient((curvature.array() - m).matrix())); };
    // the distance falls from without end to 0 as the multiplier leaves the least curvature downwards
    double near = curvature[0] - 1e-12 * scale, far = curvature[0] - scale;
    while (at(far).norm() > radius) far = curvature[0] - 2 * (curvature[0] - far);
    for (int halving = 0; halving < 200; ++halving) {
        const double middle = (near + far) / 2;
        (at(middle).norm() > radius ? near : far) = middle;
    }
    const VectorXd x = eigen.eigenvectors() * at(far);
    return {x.begin(), x.end()};
}

double leastPredicted(const PlanBlock& p, const RegressionReport& report) {
    const double reach = std::max(1.0, p.Plecho);
    double least = report.coefficients[0].value;
    for (int step = 1; step <= 10; ++step)
        least = std::min(least, predictedAt(report, ridgePoint(p, report, reach * step / 10)));
    const StationaryReport stationary = stationaryReport(p, report);
    bool inside = !stationary.point.empty();
    for (const double x : stationary.point) inside = inside && std::abs(x) <= reach;
    return inside ? std::min(least, stationary.value) : least;
}

std::vector<std::string> stationaryLines(const PlanBlock& p, const RegressionReport& report) {
    const StationaryReport s = stationaryReport(p, report);
    const auto name = [&](std::size_t i) { return "X" + std::to_string(p.Nfact[i + 1]); };
    std::vector<std::string> lines;
    for (std::size_t k = 0; k < s.axes.size(); ++k) {
        std::string line = "Каноническая ось " + std::to_string(k + 1) + ": собственное число " +
                           cut4(s.axes[k].curvature) + ", направление";
        for (std::size_t i = 0; i < s.axes[k].direction.size(); ++i)
            line += "  " + name(i) + " " + cut4(s.axes[k].direction[i]);
        lines.push_back(line);
    }
    if (s.point.empty()) {
        lines.emplace_back("Стационарной точки нет: есть направление без кривизны");
    } else {
        std::string line = "Стационарная точка: Y = " + cut4(s.value);
        for (std::size_t i = 0; i < s.point.size(); ++i)
            line +=
                "  " + name(i) + " = " + cut4(s.point[i]) + (s.error.empty() ? "" : " ± " + cut4(s.error[i]));
        lines.push_back(line);
        line = "Ее доверительная область 95 % вдоль осей:";
        for (std::size_t i = 0; i < s.cuts.size(); ++i)
            line += "  " + name(i) + " от " + (s.cuts[i].down ? cut4(*s.cuts[i].down) : "-∞") + " до " +
                    (s.cuts[i].up ? cut4(*s.cuts[i].up) : "∞");
        if (!s.cuts.empty()) lines.push_back(line);
    }
    const double reach = std::max(1.0, p.Plecho);
    for (int step = 1; step <= 4; ++step) {
        const auto point = ridgePoint(p, report, reach * step / 4);
        std::string line =
            "Гребень, радиус " + cut4(reach * step / 4) + ": Y = " + cut4(predictedAt(report, point));
        for (std::size_t i = 0; i < point.size(); ++i) line += "  " + name(i) + " " + cut4(point[i]);
        lines.push_back(line);
    }
    return lines;
}

}  // namespace tarvex
