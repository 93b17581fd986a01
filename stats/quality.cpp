#include "stats/quality.h"

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

std::vector<double> eigenvalues(std::vector<std::vector<double>> a) {
    const std::size_t n = a.size();
    constexpr int sweeps = 50;  // each sweep at least squares the smallness of what is left; 10 are plenty
    for (int sweep = 0; sweep < sweeps; ++sweep) {
        double off = 0, all = 0;
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < n; ++j) (i == j ? all : off) += a[i][j] * a[i][j];
        if (off <= 1e-30 * all || off == 0) break;
        for (std::size_t p = 0; p < n; ++p)
            for (std::size_t q = p + 1; q < n; ++q) {
                if (a[p][q] == 0) continue;
                const double theta = (a[q][q] - a[p][p]) / (2 * a[p][q]);
                const double t = (theta >= 0 ? 1 : -1) / (std::abs(theta) + std::hypot(theta, 1));
                const double c = 1 / std::hypot(t, 1), s = t * c;
                for (std::size_t k = 0; k < n; ++k) {
                    const double x = a[k][p], y = a[k][q];
                    a[k][p] = c * x - s * y;
                    a[k][q] = s * x + c * y;
                }
                for (std::size_t k = 0; k < n; ++k) {
                    const double x = a[p][k], y = a[q][k];
                    a[p][k] = c * x - s * y;
                    a[q][k] = s * x + c * y;
                }
            }
    }
    std::vector<double> values;
    for (std::size_t i = 0; i < n; ++i) values.push_back(a[i][i]);
    return values;
}

StationaryKind stationaryKind(const PlanBlock& p) {
    const int n = p.Nf;
    std::vector<std::vector<double>> form(n, std::vector<double>(n));
    for (int i = 1; i <= n; ++i) {
        form[i - 1][i - 1] = 2 * p.b[squareColumn(n, i)];
        for (int j = i + 1; j <= n; ++j) form[i - 1][j - 1] = form[j - 1][i - 1] = p.b[pairColumn(n, i, j)];
    }
    const auto values = eigenvalues(form);
    double largest = 0;
    for (const double v : values) largest = std::max(largest, std::abs(v));
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
