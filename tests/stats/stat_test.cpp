#include "stats/stat.h"

#include <random>

#include "core/data_tree.h"
#include "stats/bench.h"
#include "stats/test_plan.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

PlanBlock planOf(int kind, int Nf, int N0 = -1) {
    PlanBlock p;
    p.kodPlan = static_cast<std::int16_t>(kind);
    p.Nf = static_cast<std::int16_t>(Nf);
    PlanCenterCount(p);
    if (N0 >= 0) p.N0 = static_cast<std::int16_t>(N0);
    BuildPlan(p);
    PlanCoefficients(p);
    return p;
}

/// Terms of the full quadratic at a coded point, in the order of b.
std::vector<double> terms(int Nf, const std::vector<double>& x) {
    std::vector<double> t{1};
    for (int i = 0; i < Nf; ++i) t.push_back(x[i]);
    for (int i = 0; i < Nf; ++i)
        for (int j = i + 1; j < Nf; ++j) t.push_back(x[i] * x[j]);
    for (int i = 0; i < Nf; ++i) t.push_back(x[i] * x[i]);
    return t;
}

std::vector<double> pointOf(const PlanBlock& p, int u) {
    std::vector<double> x;
    for (int i = 1; i <= p.Nf; ++i) x.push_back(p.PlanX[i][u]);
    return x;
}

/// Solves a linear system with pivoting, in long double.
std::vector<long double> solve(std::vector<std::vector<long double>> a) {
    const std::size_t n = a.size();
    for (std::size_t c = 0; c < n; ++c) {
        std::size_t best = c;
        for (std::size_t r = c; r < n; ++r)
            if (std::abs(a[r][c]) > std::abs(a[best][c])) best = r;
        std::swap(a[c], a[best]);
        for (std::size_t r = 0; r < n; ++r) {
            if (r == c) continue;
            const long double f = a[r][c] / a[c][c];
            for (std::size_t k = c; k <= n; ++k) a[r][k] -= f * a[c][k];
        }
    }
    std::vector<long double> x;
    for (std::size_t c = 0; c < n; ++c) x.push_back(a[c][n] / a[c][c]);
    return x;
}

/// Ordinary least squares of Yu on the full quadratic, by its normal equations.
std::vector<long double> leastSquares(const PlanBlock& p) {
    const std::size_t n = lastColumn(p.Nf) + 1;
    std::vector<std::vector<long double>> normal(n, std::vector<long double>(n + 1));
    for (int u = 1; u <= p.Nplan; ++u) {
        const auto t = terms(p.Nf, pointOf(p, u));
        for (std::size_t r = 0; r < n; ++r) {
            for (std::size_t c = 0; c < n; ++c) normal[r][c] += static_cast<long double>(t[r]) * t[c];
            normal[r][n] += static_cast<long double>(t[r]) * p.Yu[u];
        }
    }
    return solve(normal);
}

/// Largest distance of the coefficients from least squares, criterion values being of the size of 1.
double distanceFromLeastSquares(PlanBlock& p, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> value(-1, 1);
    for (int u = 1; u <= p.Nplan; ++u) p.Yu[u] = value(random);
    FitRegression(p);
    const auto exact = leastSquares(p);
    double largest = 0;
    for (int c = 0; c <= lastColumn(p.Nf); ++c)
        largest = std::max(largest, static_cast<double>(std::abs(p.b[c] - exact[c])));
    return largest;
}

/// b of the quadratic sum of (i * (X_i - x_i)^2) + 0.3 * pairs of the same differences.
void setQuadratic(PlanBlock& p, const std::vector<double>& at) {
    p.b = {};
    for (int i = 1; i <= p.Nf; ++i)
        for (int j = i; j <= p.Nf; ++j) {
            const double a = i == j ? i + 1 : 0.3, xi = at[i - 1], xj = at[j - 1];
            p.b[0] += a * xi * xj;
            p.b[i] -= a * xj;
            p.b[j] -= a * xi;
            p.b[i == j ? squareColumn(p.Nf, i) : pairColumn(p.Nf, i, j)] += a;
        }
}

}  // namespace

TEST(Stat, PlansHaveTheirKnownSizesAndArms) {
    struct Case {
        int kind, Nf, Nplan;
        double arm, Xi2sr;
    };
    const Case cases[] = {{1, 2, 9, 1, 2.0 / 3},
                          {1, 4, 25, std::sqrt(2.0), 0.8},
                          {2, 4, 26, 2, 0},
                          {2, 2, 11, std::sqrt(2.0), 0},
                          {3, 6, 91, std::pow(2, 1.5), 0},
                          {4, 4, 24, 1, 0},
                          {5, 3, 15, 1, 0}};
    for (const Case& c : cases) {
        const PlanBlock p = planOf(c.kind, c.Nf);
        EXPECT_EQ(p.Nplan, c.Nplan) << c.kind << c.Nf;
        EXPECT_NEAR(p.Plecho, c.arm, 1e-14);
        EXPECT_NEAR(p.Xi2sr, c.Xi2sr, 1e-14);
    }
    const PlanBlock two = planOf(1, 2);
    EXPECT_EQ(two.FactSign[2][1], "+1+1-1-1+1-1+0+0+0+0+0+0+0+0+0+0+0+0+0+0");
    EXPECT_EQ(two.FactSign[2][2], "+1-1+1-1+0+0+1-1+0+0+0+0+0+0+0+0+0+0+0+0");
    EXPECT_EQ(
        planOf(3, 3).Stroka,
        "табличные коэффициенты  k1= 0,1663  k2= 0,0568  k3= 0,0732  k4= 0,125  k5= 0,0625  k6= 0,0069  "
        "k7= 0,0568");
}

TEST(Stat, ZeroPointsEndWithTheTailOfTheSignStrings) {
    const int tail[] = {12, 10, 10, 10, 15};
    for (int Nf = 2; Nf <= 6; ++Nf) {
        EXPECT_NO_THROW(planOf(2, Nf, tail[Nf - 2]));
        EXPECT_THROW(planOf(2, Nf, tail[Nf - 2] + 1), ConversionFailure) << Nf;
    }
    EXPECT_THROW(planOf(5, 2, 32767), OverflowFailure);
    EXPECT_THROW(planOf(2, 7), SubscriptFailure);
    PlanBlock tooFew;
    tooFew.kodPlan = planRoto;
    tooFew.Nf = 2;
    tooFew.N0 = -8;
    EXPECT_THROW(BuildPlan(tooFew), ArithmeticFailure);
    EXPECT_THROW(FitRegression(tooFew), SubscriptFailure);
}

// How far fits with rounded table coefficients (kind 4) and the composite plan lie from least squares, for a
// criterion of size 1.
TEST(Stat, TableCoefficientsLieThisFarFromLeastSquares) {
    struct Case {
        int kind, Nf;
        double least, most;
    };
    for (const Case& c : {Case{4, 4, 1e-6, 1e-4}, {4, 5, 1e-6, 1e-4}, {5, 2, 0.1, 0.5}, {5, 6, 0.01, 0.1}}) {
        PlanBlock p = planOf(c.kind, c.Nf);
        const double away = distanceFromLeastSquares(p, 7);
        EXPECT_GT(away, c.least) << c.kind << ' ' << c.Nf;
        EXPECT_LT(away, c.most) << c.kind << ' ' << c.Nf;
    }
}

TEST(Stat, CompositeFitFollowsItsOwnFormulas) {
    PlanBlock p = planOf(5, 3);
    for (int u = 1; u <= p.Nplan; ++u) p.Yu[u] = u * u;
    FitRegression(p);
    const double core = 204, outer = 81 + 100 + 121 + 144 + 169 + 196 + 225;  // points 1..8 and 9..15
    const double b0 = (outer - core / 8) / 4 / 2;
    EXPECT_DOUBLE_EQ(p.b[0], b0);
    EXPECT_DOUBLE_EQ(p.b[1], (1 + 4 + 9 + 16 - 25 - 36 - 49 - 64 + 81 - 100) / 10.0);
    EXPECT_DOUBLE_EQ(p.b[4], (1 + 4 - 9 - 16 - 25 - 36 + 49 + 64) / 8.0);  // X1*X2 over the core
    EXPECT_DOUBLE_EQ(p.b[7], (81 + 100) / 2.0 - b0);
}

TEST(Stat, EquationMatchesItsTermsAndTheWholeRoadRecoversAQuadratic) {
    const std::vector<double> at = {0.3, -0.7, 0.11, 0.9, -0.25, 0.5};
    for (int kind : {1, 2, 3})
        for (int Nf = 2; Nf <= 6; ++Nf) {
            PlanBlock p = planOf(kind, Nf);
            setQuadratic(p, at);
            const auto b = p.b;
            for (int u = 1; u <= p.Nplan; ++u) {
                const auto point = pointOf(p, u), t = terms(Nf, point);
                double value = 0;
                for (std::size_t c = 0; c < t.size(); ++c) value += b[c] * t[c];
                std::copy(point.begin(), point.end(), p.X.begin() + 1);
                p.Nexp = static_cast<std::int16_t>(u);
                EvalRegression(p);
                EXPECT_NEAR(p.Z[u], value, 1e-12);
                p.Yu[u] = value;
            }
            FitRegression(p);
            for (int c = 0; c <= lastColumn(Nf); ++c)
                EXPECT_NEAR(p.b[c], b[c], 1e-10) << kind << ' ' << Nf << ' ' << c;
            BuildOptimumSystem(p);
            for (int i = 1; i <= Nf; ++i)
                EXPECT_NEAR(p.Xopt[i], at[i - 1], 1e-9) << kind << ' ' << Nf << ' ' << i;
            EXPECT_LT(distanceFromLeastSquares(p, 10 * kind + Nf), 1e-12) << kind << ' ' << Nf;
        }
}

TEST(Stat, EliminatedLevelsArePrintedRowByRow) {
    PlanBlock p;
    p.Nf = 3;
    p.b = {1, -2, -4, -6, 1, 0, -1, 1, 2, 3};  // X1 X2 X3, X1X2 X1X3 X2X3, squares
    p.TestText[6] = "old";
    p.Stroka = "head";
    BuildOptimumSystem(p);
    // 0 = -2 + 2 X1 + X2;  0 = -4 + X1 + 4 X2 - X3;  0 = -6 - X2 + 6 X3
    EXPECT_EQ(p.TestText[2], "    -2    2    1    0    \r\n    -5    1    3,833    0    \r\n");
    EXPECT_EQ(p.TestText[1], "    -0,695    1,739    0");
    EXPECT_EQ(p.TestText[11], " X1opt= -k110/k111 =  -0,695 / 1,739 = 0,4");
    EXPECT_EQ(p.TestText[12],
              " X2opt =  - ( k220 + k221 * X1opt  )  /  k222 =  -  (  -5 + 1 * 0,4  )  /  3,833 = 1,2");
    EXPECT_EQ(p.TestText[13], " X3opt =  - ( k330 + k331 * X1opt + k332 * X2opt )  /  k333 = 1,2");
    EXPECT_EQ(p.TestText[6], "");
    EXPECT_EQ(p.kLevel, 2);
    PrintOptimumSystem(p);
    const std::string rows[] = {"    1 -е       0 =   -2  +  2 * X1  +  1 * X2    +  0 * X3",
                                "    2 -е       0 =   -4  +  1 * X1  +  4 * X2    +  -1 * X3",
                                "    3 -е       0 =   -6  +  0 * X1  +  -1 * X2    +  6 * X3"};
    std::string whole = "head";  // what stood in the buffer stays at its head
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(p.TestText[i], rows[i - 1]);
        whole += rows[i - 1] + "\r\n";
    }
    EXPECT_EQ(p.Stroka, whole);

    PlanBlock six = planOf(2, 6);
    setQuadratic(six, {0, 0, 0, 0, 0, 0.5});
    BuildOptimumSystem(six);
    EXPECT_EQ(
        six.TestText[16],
        " X6opt =  - ( k660 + k661 * X1opt + k662 * X2opt + k663 * X3opt + k664 * X4opt + k665 * X5opt ) / "
        "k666 = 0,5");
    EXPECT_NE(six.TestText[5], "");
    EXPECT_EQ(six.TestText[6], "");
}

TEST(Stat, SingularSystemsThrowEvenWhereAnotherRowCouldServe) {
    for (int Nf = 2; Nf <= 6; ++Nf) {
        PlanBlock p = planOf(1, Nf);
        setQuadratic(p, {1, 1, 1, 1, 1, 1});
        p.b[squareColumn(Nf, Nf)] = 0;  // a zero in the last diagonal cell; the pairs are not zero
        EXPECT_THROW(BuildOptimumSystem(p), ArithmeticFailure) << Nf;
        p.b = {};
        EXPECT_THROW(BuildOptimumSystem(p), ArithmeticFailure) << Nf;
    }
}

TEST(Stat, NumbersBeyondRangeNeverReachThePlan) {
    for (int kind : {1, 2, 5}) {
        PlanBlock p = planOf(kind, 2);
        for (int u = 1; u <= p.Nplan; ++u)
            p.Yu[u] = u % 2 == 0 ? 1.5e308 : 1.6e308;  // in range; their sum is not
        EXPECT_THROW(FitRegression(p), ArithmeticFailure);
        for (const double b : p.b) EXPECT_TRUE(std::isfinite(b)) << kind;
    }
    PlanBlock p = planOf(1, 2);
    for (int i = 1; i <= 2; ++i) p.Xnul[i] = p.dXvar[i] = 1.5e308;
    EXPECT_THROW(runAdditionalTest(p, 1), ArithmeticFailure);  // Y(u)=u needs no level
    EXPECT_THROW(runStandardTest(p), ArithmeticFailure);
    EXPECT_TRUE(std::isfinite(p.XU[1][1]) && std::isfinite(p.X[1]));
    p.Yu[1] = 1.5e308;
    p.Yu[2] = -1.5e308;
    EXPECT_THROW(findExtremes(p), ArithmeticFailure);
    EXPECT_TRUE(std::isfinite(p.Mcrit));
    p.Yopt = 0;
    EXPECT_THROW(pointCriterion(p, 1e200, CriterionForm::dY2, false, false), ArithmeticFailure);
}

TEST(TestPlanFile, IsWrittenByteForByteAndReadBack) {
    const test::TempFolder folder;
    folder.makeFolder("Dat");
    const DataTree tree(folder.path());
    PlanBlock p = planOf(1, 2);
    p.Xnul[1] = 1.5;
    p.dXvar[1] = 0.25;
    p.Xnul[2] = -3;
    p.dXvar[2] = 0.0000019;
    writeTestPlanHead(tree, p, false);
    for (int u = 1; u <= 9; ++u) appendTestExperiment(tree, p, u, u / 3.0);
    const auto path = folder.path() / "Dat" / "NabPlan2.txt";
    const std::string bytes = test::readBytes(path);
    EXPECT_TRUE(
        bytes.starts_with("эксперименты выполненные на форме 2 по тесту для  2 факторного   Orto   плана \r\n"
                          " 2  9  0 \r\n 1500000  250000 \r\n-3000000  1 \r\n   \r\n 1  333333 \r\n"));
    PlanBlock read = planOf(1, 2);
    ASSERT_TRUE(readTestPlan(tree, read));
    EXPECT_EQ(read.Xnul[1], 1.5);
    EXPECT_EQ(read.dXvar[2], 0.000001);  // cut, never rounded
    EXPECT_EQ(read.Yu[7], 2.333333);
    EXPECT_EQ(read.Yopt, 0);

    PlanBlock other = planOf(2, 2);
    EXPECT_FALSE(readTestPlan(tree, other));
    test::writeBytes(path, bytes.substr(0, bytes.size() - 11));
    EXPECT_THROW(readTestPlan(tree, read), FileFailure);
    test::writeBytes(path, bytes.substr(0, bytes.size() - 11) + " abc \r\n");
    EXPECT_THROW(readTestPlan(tree, read), FileFailure);
    PlanBlock three = planOf(1, 3);
    EXPECT_THROW(readTestPlan(tree, three), OpenFailure);
}

TEST(TestPlanFile, CriterionMeasuresTheDistanceFromItsTargets) {
    PlanBlock p;
    const double x[] = {0, 100, 150, 0, 100, 1, 500, 3000};
    for (int i = 1; i <= 7; ++i) p.XU[i][4] = x[i];
    EXPECT_DOUBLE_EQ(testCriterion(p, 4, 1000, 2000), (0.5 + 1 + 0.5 + 0.5) + (0.25 + 1 + 0.25 + 0.25));
    EXPECT_DOUBLE_EQ(testCriterion(p, 4, -1000, 2000), (0.5 + 1 - 1.5 + 0.5) + (0.25 + 1 + 2.25 + 0.25));
    EXPECT_THROW(testCriterion(p, 92, 1000, 2000), SubscriptFailure);
    EXPECT_THROW(testCriterion(p, 4, 0, 2000), ArithmeticFailure);
}

}  // namespace tarvex
