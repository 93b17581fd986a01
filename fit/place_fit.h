#pragma once
// Fit of the model to places: initial data of the bodies and parameters by least squares, with errors,
// correlations and a sentence on what is determined.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "fit/place_model.h"

namespace tarvex {

struct PlaceFitSettings {
    std::vector<int> bodies;              ///< whose initial data are sought, and whose places count
    std::vector<std::string> parameters;  ///< sought beside them, names as parameterOf() reads them
    double sigma = 0;  ///< error of a coordinate of a place, m, or of a sight, rad; above 0
    int jobs = 0;      ///< threads; 0: one a core
    /// Told now and then of the flights that are done; false stops the fit.
    std::function<bool(int flights)> tell{};
};

struct FittedValue {
    Unknown what;
    std::optional<double> value, error;  ///< in the units that are shown; none where nothing determines them
    std::string unit;
};

/// Residuals of one body at the solution.
struct BodyResidual {
    int body = 0;
    int places = 0;
    bool sights = false;           ///< they are directions
    double before = 0, after = 0;  ///< root mean square of a coordinate, km; of a direction, arc seconds
    double chiSquare = 0;
};

struct PlaceFit {
    std::vector<FittedValue> initialData;          ///< km, m/s
    std::vector<FittedValue> parameters;           ///< Vgr in Vsv, km/s, 1, m0/m
    std::vector<std::vector<double>> correlation;  ///< of the parameters
    double inverseVgr = 0, inverseVgrError = 0;    ///< where Vgr is sought
    std::optional<double> lowestVgr;               ///< 95 %, where 1/Vgr = 0 lies inside the interval of 95 %
    double chiSquare = 0;
    int freedom = 0;
    int passes = 0;
    std::vector<BodyResidual> bodies;
    std::string verdict;
};

/// Fits the model to the places of the bodies.  A sight is compared across its line, from the Earth of the
/// model: where the Earth's own orbit is to be sought too, body 3 is one of the bodies.  All are places, or
/// all are sights.
/// @param e         the model with its first values, as an experiment would start from it; nothing of it is
/// changed
/// @param settings  its step, law and speed of gravity
/// @param places    in order of time
/// @throws Failure for no places, places before the start, no sigma, fewer measurements than unknowns, or
/// when it was
///         stopped; ArithmeticFailure without convergence; others as PlaceModel does
PlaceFit fitPlaces(const Experiment& e, const RunSettings& settings, const std::vector<Place>& places,
                   const PlaceFitSettings& fit);

/// The answer as lines: "Vgr = value ± error", correlations, residuals by body, "ChiSquare = ", "Freedom = ",
/// the sentence.
std::vector<std::string> fitLines(const PlaceFit& fit);

}  // namespace tarvex
