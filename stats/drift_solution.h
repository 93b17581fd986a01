#pragma once
// The answer of a plan: the factors at which the model drifts as the planets do, with errors, what of them is
// determined at all, and how well the planets agree.

#include "stats/drift_model.h"

namespace tarvex {

struct SolvedFactor {
    int factor = 0;
    std::optional<double> value, error;  ///< natural units; none where nothing determines them
};

/// A ratio that the drifts determine when Vgr is sought.
struct SolvedRatio {
    double value = 0, error = 0;
};

struct DriftSolution {
    std::vector<SolvedFactor> factors;
    std::vector<std::vector<double>> correlation;  ///< of the factors
    double chiSquare = 0;
    int freedom = 0;                ///< drifts less determined unknowns
    bool errorsKnown = true;        ///< else all drifts weigh alike, and errors are scaled by chi-square
    std::vector<double> residual;   ///< observed less predicted in its sigma, one a drift
    std::vector<double> sigma;      ///< of that difference, units of the drift
    std::vector<double> predicted;  ///< one a drift
    std::vector<double> singular;   ///< singular values: change of drifts, in sigma, for a change by one unit
    int determined = 0;             ///< singular values above rounding
    bool scaleLoose = false;        ///< velocities and Vgr may change together within the errors
    std::optional<SolvedRatio> inverseVgr;        ///< 1/Vgr, where Vgr is sought
    std::vector<SolvedRatio> ratios;              ///< V/Vgr of the velocities sought, km/s, in order
    std::optional<double> lowestVgr;              ///< 95 %, where 1/Vgr = 0 lies inside the interval of 95 %
    std::vector<double> inner;                    ///< the solution in the coordinates of the surfaces
    std::vector<std::vector<double>> covariance;  ///< of these
    std::string verdict;
};

/// Weighted least squares over all drifts, by Gauss and Newton with singular values: unknowns that nothing
/// determines stay at the centre of the plan.
/// Throws a Refusal without drifts or experiments enough, ArithmeticFailure where it does not converge.
DriftSolution solveDrifts(const DriftProblem& problem);

/// Left-out prediction of one drift: its planet takes no part, the others solve.
struct LeftOutDrift {
    std::optional<double> predicted;
    std::optional<double> residual;  ///< observed less predicted over the error of that difference
};
/// One a drift; none where the other planets do not determine the unknowns.
std::vector<LeftOutDrift> leaveOnePlanetOut(const DriftProblem& problem);

/// Chi-square of profile likelihood on a grid of two quantities: the two unknowns of the picture fixed, the
/// others solved for anew.
struct ProfileMap {
    int first = 0, second = 0;  ///< factors of the axes
    bool ratios = false;        ///< the axes are first/Vgr and 1/Vgr, for an answer without a number of Vgr
    std::vector<double> x, y;   ///< values of the grid
    std::vector<std::vector<double>> chiSquare;  ///< above the least, x by y

    struct Segment {
        double x1, y1, x2, y2;
    };
    /// Pieces of the contour at this height, straight between the lines of the grid.
    std::vector<Segment> contour(double height) const;
};
/// Map of +-reach errors around the solution; none where fewer than two unknowns are determined.
std::optional<ProfileMap> profileMap(const DriftProblem& problem, const DriftSolution& solution,
                                     double reach = 4, int points = 81);
/// Heights above the least chi-square that hold two unknowns with 68 and 95 %.
double contour68();
double contour95();

/// Drifts that the surfaces predict for these values of all factors, one a drift.
std::vector<double> predictDrifts(const DriftProblem& problem, const FactorValues& values);

}  // namespace tarvex
