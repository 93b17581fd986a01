// The stationary point of a regression: elimination of the last unknown, level by level, and back.

#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

std::string cut2(double v) { return toText(Fix(100 * v) / 100); }
std::string cut3(double v) { return toText(Fix(1000 * v) / 1000); }

/// Factor of the pivot row that clears `cell`: sign and size apart, so a zero cell gives 0.
double clearingFactor(double cell, double pivot) {
    const double size = std::abs(ratio(cell, pivot));
    return Sgn(cell) == Sgn(pivot) ? -size : size;
}

/// The last unknown of level m from the others; the formula line ends with its value.
void substituteBack(Elimination& e, int m, const std::string& formula) {
    double sum = e.kSys[m][m][0];
    for (int j = 1; j < m; ++j) sum += e.kSys[m][m][j] * e.Xopt[j];
    e.Xopt[m] = -ratio(sum, e.kSys[m][m][m]);
    e.TestText[10 + m] = formula + cut2(e.Xopt[m]);
}

void solveFrom(Elimination& e, int m, void (*below)(Elimination&), const char* formula) {
    EliminateLast(e);
    e.kLevel = static_cast<std::int16_t>(m - 1);
    below(e);
    substituteBack(e, m, formula);
}

}  // namespace

void EliminateLast(Elimination& e) {
    const int m = e.kLevel;
    if (m < 2 || m > maxFactors) throw SubscriptFailure("нет уровня исключения " + std::to_string(m));
    const auto& level = e.kSys[m];
    for (int i = 1; i < m; ++i) {
        const double F = clearingFactor(level[i][m], level[m][m]);
        std::string text = "    ";
        for (int j = 0; j <= m; ++j) {
            e.kSys[m - 1][i][j] = finite(F * level[m][j] + level[i][j]);
            text += cut3(e.kSys[m - 1][i][j]) + "    ";
        }
        e.TestText[m - 1] += text + "\r\n";
    }
}

void SolveOptimum2(Elimination& e) {
    const auto& level = e.kSys[2];
    auto& last = e.kSys[1][1];
    const double F = clearingFactor(level[1][2], level[2][2]);
    e.TestText[1].clear();
    for (int j = 0; j <= 2; ++j) {
        last[j] = finite(F * level[2][j] + level[1][j]);
        e.TestText[1] += "    " + cut3(last[j]);
    }
    e.Xopt[1] = -ratio(last[0], last[1]);
    e.TestText[11] =
        " X1opt= -k110/k111 =  " + cut3(last[0]) + " / " + cut3(last[1]) + " = " + cut2(e.Xopt[1]);
    e.Xopt[2] = -ratio(level[2][0] + level[2][1] * e.Xopt[1], level[2][2]);
    e.TestText[12] = " X2opt =  - ( k220 + k221 * X1opt  )  /  k222 =  -  (  " + cut3(level[2][0]) + " + " +
                     cut3(level[2][1]) + " * " + cut2(e.Xopt[1]) + "  )  /  " + cut3(level[2][2]) + " = " +
                     cut2(e.Xopt[2]);
}

void SolveOptimum3(Elimination& e) {
    solveFrom(e, 3, SolveOptimum2, " X3opt =  - ( k330 + k331 * X1opt + k332 * X2opt )  /  k333 = ");
}

void SolveOptimum4(Elimination& e) {
    solveFrom(e, 4, SolveOptimum3,
              " X4opt =  - ( k440 + k441 * X1opt + k442 * X2opt + k443 * X3opt )  /  k444 = ");
}

void SolveOptimum5(Elimination& e) {
    solveFrom(e, 5, SolveOptimum4,
              " X5opt =  - ( k550 + k551 * X1opt + k552 * X2opt + k553 * X3opt + k554 * X4opt )  /  k555 = ");
}

void SolveOptimum6(Elimination& e) {
    solveFrom(
        e, 6, SolveOptimum5,
        " X6opt =  - ( k660 + k661 * X1opt + k662 * X2opt + k663 * X3opt + k664 * X4opt + k665 * X5opt )"
        " / k666 = ");
}

void BuildOptimumSystem(PlanBlock& p) {
    for (int row = 1; row <= 6; ++row) p.TestText[row].clear();
    const int n = p.Nf;
    if (n < 2 || n > maxFactors) return;
    p.kLevel = p.Nf;
    for (int r = 1; r <= n; ++r) {
        auto& derivative = p.kSys[n][r];
        derivative[0] = p.b[r];
        for (int j = 1; j <= n; ++j)
            derivative[j] = j == r  ? 2 * p.b[squareColumn(n, r)]
                            : r < j ? p.b[pairColumn(n, r, j)]
                                    : p.b[pairColumn(n, j, r)];
    }
    constexpr void (*solvers[])(Elimination&) = {SolveOptimum2, SolveOptimum3, SolveOptimum4, SolveOptimum5,
                                                 SolveOptimum6};
    solvers[n - 2](p);
}

void PrintOptimumSystem(PlanBlock& p) {
    const auto& level = p.kSys.at(p.Nf);
    for (int i = 1; i <= p.Nf; ++i) {
        std::string text = "    " + std::to_string(i) + " -е       0 =   " + cut2(level[i][0]) + "  +  " +
                           cut2(level[i][1]) + " * X1  +  " + cut2(level[i][2]) + " * X2  ";
        for (int j = 3; j <= p.Nf; ++j) text += "  +  " + cut2(level[i][j]) + " * X" + std::to_string(j);
        p.TestText[i] = text;
        p.Stroka += text + "\r\n";
    }
}

}  // namespace tarvex
