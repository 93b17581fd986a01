#include "stats/autoregression.h"

#include <algorithm>
#include <cmath>

namespace tarvex {

namespace {

constexpr double steadiest = 0.995;  ///< largest first-order coefficient after correction
constexpr double leastLeft = 1e-12;  ///< of the variance, by a coefficient of one

double energy(const std::vector<double>& x) {
    double sum = 0;
    for (const double v : x) sum += v * v;
    return sum;
}

/// Models of all orders up to `most` by Burg's recursion, and the variance of their innovations.
struct Burg {
    std::vector<Autoregression> models;
    std::vector<double> variance;

    Burg(const std::vector<double>& x, int most) {
        const std::size_t n = x.size();
        std::vector<double> forward = x, backward = x, a;
        variance.push_back(energy(x) / static_cast<double>(n));
        models.emplace_back();
        for (int order = 1; order <= most && variance.back() > 0; ++order) {
            const auto m = static_cast<std::size_t>(order);
            double product = 0, sizes = 0;
            for (std::size_t i = m; i < n; ++i) {
                product += forward[i] * backward[i - 1];
                sizes += forward[i] * forward[i] + backward[i - 1] * backward[i - 1];
            }
            if (!(sizes > 0)) break;
            const double k = 2 * product / sizes;
            for (std::size_t i = n - 1; i >= m; --i) {
                const double f = forward[i], b = backward[i - 1];
                forward[i] = f - k * b;
                backward[i] = b - k * f;
            }
            std::vector<double> next = a;
            for (std::size_t j = 0; j < a.size(); ++j) next[j] -= k * a[a.size() - 1 - j];
            next.push_back(k);
            a = std::move(next);
            variance.push_back(variance.back() * (1 - k * k));
            models.push_back({a});
        }
    }
};

/// A first-order coefficient lies below the true one by about this when coefficients of a trend were fitted.
void correctBias(Autoregression& model, std::size_t n, int fitted) {
    if (model.order() != 1) return;
    double& phi = model.phi[0];
    phi = std::clamp(phi + (fitted + (fitted + 2) * phi) / static_cast<double>(n), -steadiest, steadiest);
}

/// Autocovariances of the model at lags 0 .. p, innovations of variance one: Levinson's recursion downwards
/// for the models of all lower orders, then upwards (Durbin 1960, Rev. Int. Stat. Inst. 28, 233).
std::vector<double> covariances(const Autoregression& model) {
    const std::size_t p = model.phi.size();
    std::vector<std::vector<double>> lower(p + 1);
    std::vector<double> variance(p + 1, 1.0), gamma;
    lower[p] = model.phi;
    for (std::size_t m = p; m > 0; --m) {
        const std::vector<double>& a = lower[m];
        const double k = a[m - 1], left = std::max(1 - k * k, leastLeft);
        variance[m - 1] = variance[m] / left;
        for (std::size_t j = 0; j + 1 < m; ++j) lower[m - 1].push_back((a[j] + k * a[m - 2 - j]) / left);
    }
    gamma.push_back(variance[0]);
    for (std::size_t m = 1; m <= p; ++m) {
        double next = lower[m][m - 1] * variance[m - 1];
        for (std::size_t j = 1; j < m; ++j) next += lower[m - 1][j - 1] * gamma[m - j];
        gamma.push_back(next);
    }
    return gamma;
}

}  // namespace

int largestOrder(int n) {
    return std::max(0, std::min(static_cast<int>(12 * std::pow(n / 100.0, 0.25)), n / 4));
}

Autoregression chooseAutoregression(const std::vector<double>& x, int most, int fitted) {
    const Burg all(x, most);
    const auto n = static_cast<double>(x.size());
    std::size_t best = 0;
    double least = 0;
    for (std::size_t p = 0; p < all.models.size(); ++p) {
        if (!(all.variance[p] > 0)) break;
        const double criterion = n * std::log(all.variance[p]) + std::log(n) * static_cast<double>(p);
        if (p == 0 || criterion < least) {
            least = criterion;
            best = p;
        }
    }
    Autoregression model = all.models[best];
    correctBias(model, x.size(), fitted);
    return model;
}

Autoregression fitAutoregression(const std::vector<double>& x, int order, int fitted) {
    Autoregression model = Burg(x, order).models.back();
    correctBias(model, x.size(), fitted);
    return model;
}

double varianceOfSum(const Autoregression& model, const std::vector<double>& w) {
    // Backwards from the last weight each value is its innovation and p values before it, to which its weight
    // passes on; what is carried beyond the first weight falls on p values that are as any others.
    const std::size_t p = model.phi.size();
    std::vector<double> carried(p + 1, 0.0);  // the last stays 0
    double sum = 0;
    for (auto weight = w.rbegin(); weight != w.rend(); ++weight) {
        const double u = carried[0] + *weight;
        for (std::size_t k = 0; k < p; ++k) carried[k] = carried[k + 1] + model.phi[k] * u;
        sum += u * u;
    }
    const std::vector<double> gamma = covariances(model);
    for (std::size_t i = 0; i < p; ++i)
        for (std::size_t j = 0; j < p; ++j) sum += carried[i] * carried[j] * gamma[i > j ? i - j : j - i];
    return sum / gamma[0];
}

double lagOne(const std::vector<double>& x) {
    double product = 0;
    for (std::size_t i = 1; i < x.size(); ++i) product += x[i] * x[i - 1];
    const double size = energy(x);
    return size > 0 ? product / size : 0;
}

}  // namespace tarvex
