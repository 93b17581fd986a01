#pragma once
// Secular drifts as functions of the factors of a plan.  The pull of a place that the Sun has left works
// through V/Vgr, and through 1/Vgr alone, so drifts are nearly linear in these where they are far from
// linear in Vgr; a squared criterion of them is neither.

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "stats/plan_file.h"

namespace tarvex {

enum class DriftModel { Ratio, Quadratic };  ///< linear in V/Vgr and 1/Vgr; quadratic in coded factors

inline constexpr int factorVgr = 4;  ///< 1..3 are the velocities of the system
inline bool isVelocity(int factor) { return factor >= 1 && factor < factorVgr; }

/// Natural values of all factors, 1..gravityFactors.
using FactorValues = std::array<double, gravityFactors + 1>;

/// One drift: what the plan's experiments gave, and what was observed.
struct Drift {
    int planet = 0, param = 0;
    double observed = 0, observedError = 0;  ///< one standard error; 0 not known
    std::vector<double> calculated{};        ///< one an experiment
    double calculatedError = 0;              ///< common to all experiments; 0 not known
};

struct DriftProblem {
    DriftModel model = DriftModel::Ratio;
    std::vector<int> factors;               ///< the unknowns, numbers in rising order
    FactorValues levels{}, intervals{};     ///< of the plan; levels are the given values of the others
    std::vector<FactorValues> experiments;  ///< natural values of each experiment
    std::vector<Drift> drifts;

    bool unknown(int factor) const;
    /// Whether Vgr is sought, so that everything is told in 1/Vgr and V/Vgr.
    bool seeksVgr() const { return model == DriftModel::Ratio && unknown(factorVgr); }
};

/// Drifts predicted from inner coordinates: coded factors, or (where Vgr is sought in the model of ratios)
/// 1/Vgr and V/Vgr in units of the plan's centre, in which that model is linear.  A change by one is a whole
/// interval, or a whole velocity.
class DriftSurfaces {
public:
    /// Fits every drift by the experiments.
    /// Throws a Refusal where there are fewer experiments than terms, or a Vgr of 0 among them.
    explicit DriftSurfaces(const DriftProblem& problem);

    int unknowns() const { return static_cast<int>(problem_.factors.size()); }
    std::vector<double> inner(const FactorValues& natural) const;
    /// The values of the unknowns; none of a velocity or Vgr where 1/Vgr is 0.
    std::vector<std::optional<double>> natural(const std::vector<double>& inner) const;
    /// @param drift  index into the problem's drifts
    double predicted(int drift, const std::vector<double>& inner) const;
    std::vector<double> gradient(int drift, const std::vector<double>& inner) const;
    /// Standard error of the prediction as far as the scatter of the experiments around the surface tells.
    double predictionError(int drift, const std::vector<double>& inner) const;
    /// Scatter of the experiments around the surface; 0 without freedom.
    double scatter(int drift) const { return scatter_[static_cast<std::size_t>(drift)]; }
    /// Size of V/Vgr (km/s in units of c) and of 1/Vgr that are 1 in inner coordinates.
    double ratioUnit() const { return velocityUnit_ / vgrUnit_; }
    double inverseUnit() const { return 1 / vgrUnit_; }
    /// Spread of the calculated drifts, for a floor of their errors.
    double spread(int drift) const;

private:
    void chooseUnits();

    std::vector<double> terms(const std::vector<double>& inner) const;
    bool isRatio(int factor) const;

    DriftProblem problem_;
    double velocityUnit_ = 1, vgrUnit_ = 1;
    std::vector<double> middle_;                     ///< mean inner coordinates of the experiments
    std::vector<std::vector<double>> coefficients_;  ///< drift by term
    std::vector<double> scatter_;
    std::vector<std::vector<double>> inverse_;  ///< (F'F)^-1 of the terms F of the experiments
};

}  // namespace tarvex
