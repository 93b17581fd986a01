#pragma once
// The model as places see it: from initial data and parameters to where the bodies are at given dates.

#include <memory>
#include <string>
#include <vector>

#include "fit/places.h"
#include "numeric/experiment_start.h"

namespace tarvex {

/// What can be sought beside the initial data.
enum class Parameter { Vgr, VXsys, VYsys, VZsys, kPgr1, Mass };

/// An unknown of the fit.  Its inner value is what the places are nearly linear in.
struct Unknown {
    enum class Kind { Position, Velocity, Parameter };
    Kind kind = Kind::Position;
    int body = 0;  ///< of initial data and of a mass
    int axis = 0;  ///< 0..2 of initial data
    Parameter parameter = Parameter::Vgr;

    /// "Vgr", "VXsys", "kPgr1", "m0/m5"; "X1", "VX1" of initial data.
    std::string name() const;
};

/// Reads "Vgr", "VXsys", "VYsys", "VZsys", "kPgr1", "m5" or "m0/m5" (bodies 1..10).
/// @throws Failure for any other name
Unknown parameterOf(const std::string& name);

/// Values of an unknown inside and outside: Vgr is 1/Vgr inside, in 1/Vsv, and natural otherwise; a mass is
/// m0/m; initial data are m and m/s; velocities of the system km/s.
using InnerValues = std::vector<double>;

class PlaceModel {
public:
    /// Prepares the model as the start of an experiment does, without measuring, records and an end.
    /// @param e         with initial data, masses, laws and system velocity; its state is copied
    /// @param settings  step, law, speed of gravity; order 8 is taken where the law allows it
    /// @throws Refusal and others as startExperiment() does
    PlaceModel(const Experiment& e, RunSettings settings, std::vector<Unknown> unknowns);
    ~PlaceModel();

    const std::vector<Unknown>& unknowns() const { return unknowns_; }
    /// First values of the unknowns: what the model was prepared with.
    InnerValues start() const;
    /// Distances for differences of each.
    InnerValues steps() const;

    /// Where the bodies of the places are at their dates, from the Sun, m, one a place.  May be asked by
    /// several threads at once.
    /// @param places  in order of time, none before the start
    /// @throws ArithmeticFailure where the motion fails
    std::vector<Vec3> placesAt(const std::vector<Place>& places, const InnerValues& values) const;

    double JDstart() const;
    bool highOrder() const;  ///< the step of order 8 is in use

private:
    struct Prepared;
    std::unique_ptr<Prepared> prepared_;
    std::vector<Unknown> unknowns_;
};

}  // namespace tarvex
