#include "stats/regression_report.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "stats/linear_fit.h"
#include "stats/quantiles.h"
#include "stats/stat.h"
#include "stats/stationary_point.h"

namespace tarvex {

namespace {

using Eigen::MatrixXd;
using Eigen::VectorXd;

MatrixXd columnsOf(const PlanBlock& p) {
    MatrixXd X(experiments(p), lastColumn(p.Nf) + 1);
    for (int u = 1; u <= p.Nplan; ++u) {
        const auto row = quadraticTerms(codesOf(p, u));
        X.row(u - 1) = Eigen::Map<const Eigen::RowVectorXd>(row.data(), X.cols());
    }
    return X;
}

VectorXd criterionOf(const PlanBlock& p) {
    return Eigen::Map<const VectorXd>(p.Yu.data() + 1, experiments(p));
}

LinearFit wholeFit(const PlanBlock& p) {
    if (p.Nf < 2 || p.Nf > maxFactors)
        throw SubscriptFailure("в плане от 2 до 6 факторов, а не " + std::to_string(p.Nf));
    LinearFit fit = linearFit(columnsOf(p), criterionOf(p));
    if (fit.rank <= lastColumn(p.Nf)) throw ArithmeticFailure("точек плана мало для коэффициентов регрессии");
    return fit;
}

/// Sum of squares of the criterion within repeated points.
struct Repeats {
    double sum = 0;
    int degrees = 0;
    bool idle = false;  ///< repeated points all alike: the model repeated itself, nothing was repeated

    explicit Repeats(const PlanBlock& p) {
        std::map<std::vector<long>, std::vector<double>> places;
        double size = 0;
        for (int u = 1; u <= p.Nplan; ++u) {
            std::vector<long> key;
            for (const double code : codesOf(p, u)) key.push_back(std::lround(1e9 * code));
            places[key].push_back(p.Yu[u]);
            size = std::max(size, std::abs(p.Yu[u]));
        }
        for (const auto& [key, values] : places) {
            double mean = 0;
            for (const double v : values) mean += v / static_cast<double>(values.size());
            for (const double v : values) sum += (v - mean) * (v - mean);
            degrees += static_cast<int>(values.size()) - 1;
        }
        if (degrees > 0 && std::sqrt(sum) <= 1e-12 * size) {
            idle = true;
            sum = 0;
            degrees = 0;
        }
    }
};

void judge(VarianceRow& row, const VarianceRow& against) {
    if (row.degrees < 1 || against.degrees < 1 || !(against.sum > 0)) return;
    row.F = row.mean() / against.mean();
    row.chance = fisherTail(*row.F, row.degrees, against.degrees);
}

void analyseVariance(const PlanBlock& p, const LinearFit& fit, RegressionReport& out) {
    const MatrixXd X = columnsOf(p);
    const VectorXd y = criterionOf(p);
    const int ends[] = {1, 1 + p.Nf, 1 + p.Nf + p.Npar, static_cast<int>(X.cols())};
    const char* names[] = {"линейные", "парные", "квадраты"};
    double before = linearFit(X.leftCols(1), y).rss;
    for (int group = 1; group <= 3; ++group) {
        const double after = linearFit(X.leftCols(ends[group]), y).rss;
        out.variance.push_back({names[group - 1], before - after, ends[group] - ends[group - 1], {}, {}});
        before = after;
    }
    const VarianceRow residual{"остаток", fit.rss, fit.freedom(), {}, {}};
    for (VarianceRow& row : out.variance) judge(row, residual);
    out.variance.push_back(residual);
    const Repeats repeats(p);
    out.idleReplicates = repeats.idle;
    out.trueReplicates = repeats.degrees > 0;
    if (!out.trueReplicates) return;
    const VarianceRow pure{"чистая ошибка", repeats.sum, repeats.degrees, {}, {}};
    VarianceRow lack{"неадекватность", fit.rss - repeats.sum, fit.freedom() - repeats.degrees, {}, {}};
    judge(lack, pure);
    out.variance.push_back(lack);
    out.variance.push_back(pure);
}

void determination(const PlanBlock& p, const LinearFit& fit, RegressionReport& out) {
    const VectorXd y = criterionOf(p), deviation = y.array() - y.mean();
    const double total = deviation.squaredNorm();
    if (!(total > 1e-24 * y.squaredNorm())) return;  // below it only rounding varies
    out.R2 = 1 - fit.rss / total;
    if (fit.freedom() < 1) return;
    out.adjustedR2 = 1 - fit.rss / fit.freedom() / (total / (p.Nplan - 1));
    double press = 0;
    for (Eigen::Index u = 0; u < y.size(); ++u) {
        const double free = 1 - fit.basis.row(u).squaredNorm();
        if (free < 1e-9) return;  // no other point says anything of this one
        press += std::pow(fit.residual[u] / free, 2);
    }
    out.predictiveR2 = 1 - press / total;
}

std::string shown(const std::optional<double>& v) {
    if (!v) return "-";
    const double size = std::abs(*v);
    if (size != 0 && (size < 1e-3 || size >= 1e7)) {  // six digits, whatever the size
        const int power = static_cast<int>(std::floor(std::log10(size)));
        return Format(*v / std::pow(10, power), "0.00000") + "E" + std::to_string(power);
    }
    return Format(*v, "0.0000");
}

}  // namespace

std::vector<double> codesOf(const PlanBlock& p, int u) {
    std::vector<double> codes;
    for (int i = 1; i <= p.Nf; ++i) codes.push_back(p.PlanX[i][u]);
    return codes;
}

std::vector<double> quadraticTerms(const std::vector<double>& codes) {
    std::vector<double> row{1};
    row.insert(row.end(), codes.begin(), codes.end());
    for (std::size_t i = 0; i < codes.size(); ++i)
        for (std::size_t j = i + 1; j < codes.size(); ++j) row.push_back(codes[i] * codes[j]);
    for (const double code : codes) row.push_back(code * code);
    return row;
}

std::vector<double> leastSquaresCoefficients(const PlanBlock& p) {
    const LinearFit fit = wholeFit(p);
    return {fit.b.begin(), fit.b.end()};
}

RegressionReport reportRegression(const PlanBlock& p) {
    const LinearFit fit = wholeFit(p);
    const MatrixXd X = columnsOf(p);
    RegressionReport out;
    out.freedom = fit.freedom();
    if (out.freedom > 0) out.residualVariance = fit.rss / out.freedom;
    for (Eigen::Index c = 0; c < fit.b.size(); ++c) {
        CoefficientReport one;
        one.value = finite(fit.b[c]);
        const double share = fit.inverse(c, c);
        if (out.residualVariance) {
            one.error = std::sqrt(*out.residualVariance * share);
            if (*one.error > 0) {
                one.t = one.value / *one.error;
                one.chance = studentTail(*one.t, out.freedom);
            }
        }
        if (c > 0) one.inflation = share * (X.col(c).array() - X.col(c).mean()).matrix().squaredNorm();
        out.awayFromPlan = std::max(out.awayFromPlan, std::abs(one.value - p.b[static_cast<std::size_t>(c)]));
        out.coefficients.push_back(one);
    }
    for (const auto& row : fit.inverse.rowwise()) out.inverse.emplace_back(row.begin(), row.end());
    determination(p, fit, out);
    analyseVariance(p, fit, out);
    return out;
}

std::vector<std::string> reportLines(const PlanBlock& p, const RegressionReport& report) {
    std::vector<std::string> lines = {"Качество регрессии.  R^2 = " + shown(report.R2) +
                                      "   R^2 испр. = " + shown(report.adjustedR2) +
                                      "   R^2 предсказания = " + shown(report.predictiveR2) +
                                      "   степеней свободы " + std::to_string(report.freedom)};
    for (std::size_t c = 0; c < report.coefficients.size(); ++c) {
        const CoefficientReport& one = report.coefficients[c];
        lines.push_back("b" + std::to_string(c) + " = " + shown(one.value) + " ± " + shown(one.error) +
                        "   t = " + shown(one.t) + "   p = " + shown(one.chance) +
                        (c > 0 ? "   VIF = " + shown(one.inflation) : ""));
    }
    for (const VarianceRow& row : report.variance)
        lines.push_back(row.source + ":  сумма квадратов " + shown(row.sum) + "   степеней " +
                        std::to_string(row.degrees) + "   F = " + shown(row.F) +
                        "   p = " + shown(row.chance));
    if (report.idleReplicates)
        lines.emplace_back("Повторные точки одинаковы: модель детерминирована, это не повторы");
    for (std::string& line : stationaryLines(p, report)) lines.push_back(std::move(line));
    return lines;
}

std::vector<std::string> regressionWarnings(const PlanBlock& p, const RegressionReport& report,
                                            bool squared) {
    std::vector<std::string> out;
    constexpr double good = 0.9, fair = 0.5;
    if (report.freedom < 1)
        out.emplace_back("нет степеней свободы: погрешности неизвестны");
    else if (report.adjustedR2.value_or(0) < good || report.predictiveR2.value_or(0) < fair)
        out.emplace_back("уравнение плохо определено: оптимуму верить нельзя");
    if (squared) {
        double least = leastPredicted(p, report);
        for (int u = 1; u <= experiments(p); ++u) {
            const auto row = quadraticTerms(codesOf(p, u));
            double value = 0;
            for (std::size_t c = 0; c < row.size(); ++c) value += row[c] * report.coefficients[c].value;
            least = std::min(least, value);
        }
        if (least < 0)
            out.push_back("критерий-квадрат предсказан отрицательным (" + shown(least) +
                          "): оптимуму верить нельзя, решайте по смещениям");
    }
    return out;
}

}  // namespace tarvex
