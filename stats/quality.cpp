#include "stats/quality.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "stats/stat.h"

namespace tarvex {

FitQuality fitQuality(const PlanBlock& p) {
    FitQuality q;
    q.degrees = p.Nplan - (lastColumn(p.Nf) + 1);
    experiments(p);
    double mean = 0, residual = 0, total = 0, size = 0;
    for (int u = 1; u <= p.Nplan; ++u) mean += p.Yu[u] / p.Nplan;
    for (int u = 1; u <= p.Nplan; ++u) {
        residual += (p.Yu[u] - p.Yras[u]) * (p.Yu[u] - p.Yras[u]);
        total += (p.Yu[u] - mean) * (p.Yu[u] - mean);
        size += p.Yu[u] * p.Yu[u];
    }
    if (q.degrees > 0) q.residualMeanSquare = residual / q.degrees;
    if (total > 1e-24 * size) q.R2 = 1 - residual / total;  // below it only rounding varies
    return q;
}

std::string fitQualityText(const PlanBlock& p) {
    const FitQuality q = fitQuality(p);
    std::string text = "Остаточная дисперсия = ";
    text += q.residualMeanSquare ? toText(toNumber(Format(*q.residualMeanSquare, "0.000000000")))
                                 : "нет степеней свободы";
    text += "   (степеней свободы " + std::to_string(q.degrees) + ")   R^2 = ";
    return text + (q.R2 ? Format(*q.R2, "0.000000") : "не определен, критерий постоянный");
}

StationaryKind stationaryKind(const PlanBlock& p) {
    const int n = p.Nf;
    Eigen::MatrixXd form(n, n);
    for (int i = 1; i <= n; ++i) {
        form(i - 1, i - 1) = 2 * p.b[squareColumn(n, i)];
        for (int j = i + 1; j <= n; ++j) form(i - 1, j - 1) = form(j - 1, i - 1) = p.b[pairColumn(n, i, j)];
    }
    const Eigen::VectorXd values =
        Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd>(form, Eigen::EigenvaluesOnly).eigenvalues();
    const double largest = values.cwiseAbs().maxCoeff();
    bool up = false, down = false, flat = false;
    for (const double v : values) {
        if (std::abs(v) <= 1e-9 * largest)
            flat = true;
        else
            (v > 0 ? up : down) = true;
    }
    if (up && down) return StationaryKind::Saddle;
    if (flat) return StationaryKind::Degenerate;
    return up ? StationaryKind::Minimum : StationaryKind::Maximum;
}

std::vector<int> factorsOutside(const PlanBlock& p) {
    const double reach = std::max(1.0, p.Plecho) * (1 + 1e-9);
    std::vector<int> outside;
    for (int i = 1; i <= p.Nf; ++i)
        if (std::abs(p.Xopt[i]) > reach) outside.push_back(i);
    return outside;
}

std::string stationaryText(const PlanBlock& p) {
    if (p.Nf < 2 || p.Nf > maxFactors) return " ";  // no plan, no point
    std::string text = "Стационарная точка: ";
    switch (stationaryKind(p)) {
        case StationaryKind::Minimum:
            text += "минимум";
            break;
        case StationaryKind::Maximum:
            text += "максимум";
            break;
        case StationaryKind::Saddle:
            text += "седло - не оптимум";
            break;
        case StationaryKind::Degenerate:
            text += "вырожденная - есть направление без кривизны, оптимум не определен";
            break;
    }
    const auto outside = factorsOutside(p);
    if (outside.empty()) return text + ", внутри области плана";
    text += "; точка вне области плана по";
    for (const int i : outside) text += " X" + std::to_string(p.Nfact[i]);
    return text;
}

}  // namespace tarvex
