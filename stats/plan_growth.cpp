#include "stats/plan_growth.h"

#include "core/failure.h"
#include "stats/linear_fit.h"
#include "stats/regression_report.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

using Eigen::MatrixXd;
using Eigen::VectorXd;

VectorXd termsOf(const std::vector<double>& codes) {
    const auto row = quadraticTerms(codes);
    return Eigen::Map<const VectorXd>(row.data(), static_cast<Eigen::Index>(row.size()));
}

/// The candidate that adds most: det(M + xx') = det M (1 + x' M^-1 x).
std::size_t mostTelling(const MatrixXd& information, const std::vector<VectorXd>& candidates) {
    // a plan that does not determine the quadratic by itself: its missing directions count most
    const MatrixXd whole =
        information + 1e-9 * information.trace() * MatrixXd::Identity(information.rows(), information.cols());
    const Eigen::LLT<MatrixXd> factor(whole);
    if (factor.info() != Eigen::Success) throw ArithmeticFailure("точки плана ничего не определяют");
    std::size_t best = 0;
    double most = -1;
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        const double gain = factor.matrixL().solve(candidates[i]).squaredNorm();
        if (gain > most * (1 + 1e-12)) {
            most = gain;
            best = i;
        }
    }
    return best;
}

}  // namespace

std::vector<std::vector<double>> candidatesAround(const std::vector<double>& centre, double half) {
    constexpr int levels = 5;
    std::vector<std::vector<double>> out{{}};
    for (const double middle : centre) {
        std::vector<std::vector<double>> longer;
        for (const auto& point : out)
            for (int level = 0; level < levels; ++level) {
                longer.push_back(point);
                longer.back().push_back(middle + half * (2.0 * level / (levels - 1) - 1));
            }
        out = std::move(longer);
    }
    return out;
}

std::vector<std::vector<double>> dOptimalPoints(const PlanBlock& p,
                                                const std::vector<std::vector<double>>& candidates,
                                                int count) {
    std::vector<VectorXd> terms;
    terms.reserve(candidates.size());
    for (const auto& codes : candidates) terms.push_back(termsOf(codes));
    if (terms.empty()) return {};
    MatrixXd information = MatrixXd::Zero(lastColumn(p.Nf) + 1, lastColumn(p.Nf) + 1);
    if (p.Nf < 1 || terms[0].size() != information.rows()) throw ArithmeticFailure("план еще не создан");
    for (int u = 1; u <= experiments(p); ++u) {
        const VectorXd x = termsOf(codesOf(p, u));
        information += x * x.transpose();
    }
    std::vector<std::size_t> chosen;
    const auto take = [&](std::size_t i, double sign) {
        information += sign * terms[i] * terms[i].transpose();
    };
    for (int i = 0; i < count; ++i) {
        chosen.push_back(mostTelling(information, terms));
        take(chosen.back(), 1);
    }
    for (int pass = 0; pass < 20; ++pass) {
        bool changed = false;
        for (std::size_t& one : chosen) {
            take(one, -1);
            const std::size_t better = mostTelling(information, terms);
            changed = changed || better != one;
            one = better;
            take(one, 1);
        }
        if (!changed) break;
    }
    std::vector<std::vector<double>> out;
    out.reserve(chosen.size());
    for (const std::size_t i : chosen) out.push_back(candidates[i]);
    return out;
}

void addPoints(PlanBlock& p, const std::vector<std::vector<double>>& points) {
    if (experiments(p) + static_cast<int>(points.size()) > maxPoints)
        throw Refusal("В плане не может быть больше 91 эксперимента", "Tarvex7m");
    for (const auto& codes : points) {
        ++p.Nplan;
        for (int i = 1; i <= p.Nf; ++i)
            p.PlanKod[i][p.Nplan] = p.PlanX[i][p.Nplan] = codes[static_cast<std::size_t>(i - 1)];
    }
    p.kodPlan = planAugmented;
    p.Xi2sr = 0;
    FillColumns(p);
}

std::vector<std::vector<double>> addedPoints(const PlanBlock& p) {
    std::vector<std::vector<double>> out;
    if (p.kodPlan != planAugmented) return out;
    for (int u = p.Nyadro + p.Nzvezd + p.N0 + 1; u <= p.Nplan; ++u) out.push_back(codesOf(p, u));
    return out;
}

}  // namespace tarvex
