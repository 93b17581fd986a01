#include "stats/stat.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/failure.h"
#include "core/numbers.h"
#include "stats/regression_report.h"

namespace tarvex {

int lastColumn(int Nf) { return 2 * Nf + Nf * (Nf - 1) / 2; }
int squareColumn(int Nf, int i) { return lastColumn(Nf) - Nf + i; }
int pairColumn(int Nf, int i, int j) { return Nf + (i - 1) * Nf - i * (i - 1) / 2 + (j - i); }

namespace {

constexpr bool hasPlan(int Nf) { return Nf >= 2 && Nf <= maxFactors; }

void needPlan(int Nf) {
    if (!hasPlan(Nf)) throw SubscriptFailure("в плане от 2 до 6 факторов, а не " + std::to_string(Nf));
}

/// k1..k7 of a kind that is fitted, or printed, by a table.
struct TableRow {
    PlanKind kind;
    int Nf;
    std::array<double, 7> k;
    bool hasK7 = true;
};
constexpr TableRow tableRows[] = {
    {planUniform, 2, {0.2, 0.1, 0.125, 0.25, 0.1251, 0.0187, 0.1}},
    {planUniform, 3, {0.1663, 0.0568, 0.0732, 0.125, 0.0625, 0.0069, 0.0568}},
    {planUniform, 4, {0.1428, 0.0357, 0.0417, 0.0625, 0.0312, 0.0037, 0.0357}},
    {planUniform, 5, {0.0988, 0.0191, 0.0231, 0.0312, 0.0156, 0.0015, 0.0191}},
    {planUniform, 6, {0.0625, 0.0098, 0.0125, 0.0156, 0.0078, 0.0005, 0.0098}},
    {planDBox, 4, {0.22917, 0.0625, 0.0555556, 0.0625, 0.5, 0.10417}, false},
    {planDBox, 5, {0.158206, 0.0332, 0.0294118, 0.03125, 0.5, 0.0917969}, false},
};

/// Levels of the factors from the sign strings, stretched by the arm at the star points.
void fillFactorColumns(PlanBlock& p) {
    for (int i = 1; i <= p.Nf; ++i)
        for (int u = 1; u <= p.Nplan; ++u) {
            const std::string& signs = p.FactSign[p.Nf][i];
            const std::size_t at = 2 * static_cast<std::size_t>(u - 1);
            // beyond the end of the string there is nothing to read: too many zero points end here
            const double level = toNumber(at < signs.size() ? signs.substr(at, 2) : std::string());
            p.PlanKod[i][u] = level;
            p.PlanX[i][u] = u > p.Nyadro && u <= p.Nyadro + p.Nzvezd ? p.Plecho * level : level;
        }
}

}  // namespace

void PlanCenterCount(PlanBlock& p) {
    constexpr int roto[] = {3, 2, 2, 3, 3}, uniform[] = {5, 6, 7, 10, 15};
    p.N0 = 1;
    if (p.kodPlan == planDBox) p.N0 = 0;
    if (!hasPlan(p.Nf)) return;
    if (p.kodPlan == planRoto) p.N0 = static_cast<std::int16_t>(roto[p.Nf - 2]);
    if (p.kodPlan == planUniform) p.N0 = static_cast<std::int16_t>(uniform[p.Nf - 2]);
}

std::string coefficientText(const PlanBlock& p, const char* head, double (*cut)(double)) {
    std::string text = head;
    for (int i = 1; i <= 7; ++i)
        text += (i == 1 ? "k1= " : "  k" + std::to_string(i) + "= ") + toText(cut(p.k[i]));
    return text;
}

void BuildPlan(PlanBlock& p) {
    needPlan(p.Nf);
    p.Nyadro = static_cast<std::int16_t>(1 << p.Nf);
    p.Nzvezd = static_cast<std::int16_t>(2 * p.Nf);
    p.Npar = static_cast<std::int16_t>(p.Nf * (p.Nf - 1) / 2);
    p.Nplan = toInt16(p.Nyadro + p.Nzvezd + p.N0);
    p.Xi2sr = 0;
    p.Plecho = 1;
    if (p.kodPlan == planOrtho) {
        p.Plecho = root((root(p.Nyadro * p.Nplan) - p.Nyadro) / 2);
        p.Xi2sr = root(ratio(p.Nyadro, p.Nplan));
    }
    if (p.kodPlan == planRoto || p.kodPlan == planUniform) p.Plecho = std::pow(2, p.Nf / 4.0);
    for (const TableRow& row : tableRows)
        if (row.kind == p.kodPlan && row.Nf == p.Nf)
            for (int i = 1; i <= (row.hasK7 ? 7 : 6); ++i) p.k[i] = row.k[i - 1];
    p.Stroka = coefficientText(p, "табличные коэффициенты  ", [](double v) { return v; });

    fillFactorColumns(p);
    FillColumns(p);
}

void FillColumns(PlanBlock& p) {
    const int last = lastColumn(p.Nf);
    for (int i = 1; i <= p.Nf; ++i)
        for (int u = 1; u <= p.Nplan; ++u) {
            for (int j = i + 1; j <= p.Nf; ++j)
                p.PlanX[pairColumn(p.Nf, i, j)][u] = p.PlanX[i][u] * p.PlanX[j][u];
            p.PlanX[squareColumn(p.Nf, i)][u] = p.PlanX[i][u] * p.PlanX[i][u] - p.Xi2sr;
        }
    for (int c = 1; c <= last; ++c) {
        p.EXi[c] = p.EXi2[c] = p.EXi4[c] = 0;
        for (int u = 1; u <= p.Nplan; ++u) {
            const double x = p.PlanX[c][u];
            p.EXi[c] += x;
            p.EXi2[c] += x * x;
            p.EXi4[c] += x * x * x * x;
        }
    }
    p.la2 = ratio(p.EXi2[1], p.Nplan);
    p.la4 = ratio(p.EXi4[1], p.Nplan) / 3;
    p.la4z = ratio(ratio(p.la4, p.la2), p.la2);
}

void PlanCoefficients(PlanBlock& p) {
    const double k = p.Nf, N = p.Nplan, la2 = p.la2, la4 = p.la4, la4z = p.la4z;
    if (p.kodPlan == planRoto) {
        const double below = (k + 2) * la4 - k * la2 * la2, A = ratio(1, 2 * la4 * below);
        p.k = {0,
               2 * la4 * la4 * (k + 2) * A / N,
               2 * A * la4 * la2 / N,
               1 / la2 / N,
               1 / N / la4,
               below * A / N,
               (la2 * la2 - la4) * A / N,
               2 * A * la4 * la2 / N};
    }
    if (p.kodPlan == planUniform) {
        const double below = (k + 2) * la4z - k, A = ratio(1, 2 * la4z * below);
        p.k = {0,
               2 * la4z * la4z * (k + 2) * A / N,
               (2 * la4z / la2) * A / N,
               1 / la2 / N,
               1 / N / la4z / la2 / la2,
               below * A / N / la2 / la2,
               (1 - la4z) * A / N / la2 / la2,
               2 * A * la4z / N / la2};
    }
}

namespace {

/// Sums of the criterion over the experiments, alone and with the columns of the plan.
struct Sums {
    explicit Sums(const PlanBlock& p) {
        const int last = lastColumn(p.Nf);
        for (int u = 1; u <= p.Nplan; ++u) {
            Y += p.Yu[u];
            (u > p.Nyadro ? outer : core) += p.Yu[u];
            for (int c = 1; c <= last; ++c) {
                column[c] += p.PlanX[c][u] * p.Yu[u];
                if (u > p.Nyadro) columnOuter[c] += p.PlanX[c][u] * p.Yu[u];
            }
        }
        for (int i = 1; i <= p.Nf; ++i) squares += column[squareColumn(p.Nf, i)];
    }
    double Y = 0, core = 0, outer = 0;  ///< all points; the core; star and zero points
    double squares = 0;                 ///< of all square columns together
    std::array<double, maxColumns + 1> column{}, columnOuter{};
};

}  // namespace

// complexity: every kind of plan has its own short formulas for the same coefficients
void FitRegression(PlanBlock& p) {
    needPlan(p.Nf);
    experiments(p);
    const Sums sum(p);
    const auto& k = p.k;
    const int last = lastColumn(p.Nf), firstSquare = squareColumn(p.Nf, 1);
    const double corners = 1 << p.Nf;
    auto b = p.b;
    switch (p.kodPlan) {
        case planOrtho: {
            double squares = 0;
            for (int c = 1; c <= last; ++c) {
                b[c] = ratio(sum.column[c], p.EXi2[c]);
                if (c >= firstSquare) squares += b[c];
            }
            b[0] = sum.Y / p.Nplan - p.Xi2sr * squares;  // of the equation in plain squares
            break;
        }
        case planRoto:
        case planUniform:
        case planDBox:
            b[0] = k[1] * sum.Y - k[2] * sum.squares;
            for (int c = 1; c < firstSquare; ++c) b[c] = (c <= p.Nf ? k[3] : k[4]) * sum.column[c];
            for (int c = firstSquare; c <= last; ++c)
                b[c] =
                    p.kodPlan ==
                            planDBox  // the published constants of the D-plan go with these signs and no k7
                        ? k[5] * sum.column[c] - k[6] * sum.squares - k[2] * sum.Y
                        : k[5] * sum.column[c] + k[6] * sum.squares - k[7] * sum.Y;
            break;
        case planComposite:
            b[0] = (sum.outer - sum.core / corners) / 4 / (p.Nf - 1);
            for (int c = 1; c <= p.Nf; ++c) b[c] = sum.column[c] / (corners + 2);
            for (int c = p.Nf + 1; c < firstSquare; ++c) b[c] = sum.column[c] / corners;
            for (int c = firstSquare; c <= last; ++c) b[c] = sum.columnOuter[c] / 2 - b[0];
            break;
        case planAugmented: {
            const std::vector<double> fitted = leastSquaresCoefficients(p);
            std::copy(fitted.begin(), fitted.end(), b.begin());
            break;
        }
        default:
            throw SubscriptFailure("неизвестный вид плана");
    }
    for (int c = 0; c <= last; ++c) finite(b[c]);
    p.b = b;
}

void EvalRegression(PlanBlock& p) {
    if (!hasPlan(p.Nf)) return;
    if (p.Nexp < 0 || p.Nexp >= static_cast<int>(p.Z.size()))
        throw SubscriptFailure("нет эксперимента № " + std::to_string(p.Nexp));
    double value = p.b[0];
    for (int i = 1; i <= p.Nf; ++i) value += p.b[i] * p.X[i];
    for (int i = 1, c = p.Nf; i <= p.Nf; ++i)
        for (int j = i + 1; j <= p.Nf; ++j) value += p.b[++c] * p.X[i] * p.X[j];
    for (int i = 1; i <= p.Nf; ++i) value += p.b[squareColumn(p.Nf, i)] * p.X[i] * p.X[i];
    p.Z[p.Nexp] = finite(value);
    p.Yopt = lastColumn(p.Nf) + 1;
}

}  // namespace tarvex
