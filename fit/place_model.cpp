#include "fit/place_model.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "core/arithmetic.h"
#include "experiment/experiment_run.h"
#include "numeric/advance.h"
#include "numeric/integrator.h"
#include "numeric/step_inside.h"

namespace tarvex {

namespace {

constexpr double leastInverse = 1e-9;  ///< of 1/Vgr, in 1/Vsv: slower delays are none

struct NamedParameter {
    const char* name;
    Parameter parameter;
};
constexpr std::array<NamedParameter, 5> namedParameters = {{{"Vgr", Parameter::Vgr},
                                                            {"VXsys", Parameter::VXsys},
                                                            {"VYsys", Parameter::VYsys},
                                                            {"VZsys", Parameter::VZsys},
                                                            {"kPgr1", Parameter::kPgr1}}};

Rows ModelState::*const positions[] = {&ModelState::X0, &ModelState::Y0, &ModelState::Z0};
Rows ModelState::*const velocities[] = {&ModelState::VX0, &ModelState::VY0, &ModelState::VZ0};

/// 1/Vgr away from 0, where the equations have no Vgr.
double speedOf(double inverse) {
    if (std::abs(inverse) < leastInverse) inverse = inverse < 0 ? -leastInverse : leastInverse;
    return Vsv / inverse;
}

}  // namespace

std::string Unknown::name() const {
    constexpr const char* axes[] = {"X", "Y", "Z"};
    if (kind == Kind::Position) return axes[axis] + std::to_string(body);
    if (kind == Kind::Velocity) return std::string("V") + axes[axis] + std::to_string(body);
    if (parameter == Parameter::Mass) return "m0/m" + std::to_string(body);
    return std::find_if(namedParameters.begin(), namedParameters.end(),
                        [&](const NamedParameter& one) { return one.parameter == parameter; })
        ->name;
}

Unknown parameterOf(const std::string& name) {
    Unknown one{.kind = Unknown::Kind::Parameter};
    for (const NamedParameter& known : namedParameters)
        if (name == known.name) {
            one.parameter = known.parameter;
            return one;
        }
    one.parameter = Parameter::Mass;
    for (one.body = 1; one.body <= NPlanetMax; ++one.body)
        if (name == "m" + std::to_string(one.body) || name == "m0/m" + std::to_string(one.body)) return one;
    throw Failure("не подгоняется: " + name + " (Vgr, VXsys, VYsys, VZsys, kPgr1, m1 ... m10)");
}

/// The model ready for its first step; a flight begins from a copy.
struct PlaceModel::Prepared : Model {
    explicit Prepared(const Experiment& e) : Model(e.tree) {
        s = e.s;
        motion = e.motion;
    }
    Prepared(const Prepared& other) : Model(other.tree) {
        s = other.s;
        motion = other.motion;
        run.stepper = other.run.stepper;
        run.boxes = other.run.boxes;
        run.kodModel = 1;
        run.kodTime = 1;
        run.Msys = other.run.Msys;
    }
    Prepared& operator=(const Prepared&) = delete;

    double* cellOf(const Unknown& one);
    double inner(const Unknown& one);
    void set(const Unknown& one, double value);
    void takeValues(const std::vector<Unknown>& unknowns, const InnerValues& values);
};

/// The cell that an unknown stands in, none for Vgr and a mass.
double* PlaceModel::Prepared::cellOf(const Unknown& one) {
    const auto body = static_cast<std::size_t>(one.body);
    if (one.kind == Unknown::Kind::Position) return &(s.*positions[one.axis])[body];
    if (one.kind == Unknown::Kind::Velocity) return &(s.*velocities[one.axis])[body];
    switch (one.parameter) {
        case Parameter::VXsys:
            return &s.VXsys;
        case Parameter::VYsys:
            return &s.VYsys;
        case Parameter::VZsys:
            return &s.VZsys;
        case Parameter::kPgr1:
            return &motion.kPgr1;
        default:
            return nullptr;
    }
}

double PlaceModel::Prepared::inner(const Unknown& one) {
    if (const double* cell = cellOf(one)) return *cell;
    return one.parameter == Parameter::Vgr ? ratio(Vsv, motion.Vgr) : ratio(s.m[0], s.m[one.body]);
}

void PlaceModel::Prepared::set(const Unknown& one, double value) {
    if (double* cell = cellOf(one))
        *cell = value;
    else if (one.parameter == Parameter::Vgr)
        motion.Vgr = speedOf(value);
    else
        s.m[one.body] = ratio(s.m[0], value);
}

/// The values into the model, and from them the state of its first step.
void PlaceModel::Prepared::takeValues(const std::vector<Unknown>& unknowns, const InnerValues& values) {
    for (std::size_t k = 0; k < unknowns.size(); ++k) set(unknowns[k], finite(values[k]));
    for (int i = 0; i < bodies; ++i) {
        s.X[i] = s.X0[i], s.Y[i] = s.Y0[i], s.Z[i] = s.Z0[i];
        s.VX[i] = 1000 * s.VXsys + s.VX0[i];
        s.VY[i] = 1000 * s.VYsys + s.VY0[i];
        s.VZ[i] = 1000 * s.VZsys + s.VZ0[i];
    }
    packState(s, motion);
    if (motion.kodDX == codeOf(Retardation::ByTrace)) fillTrace(s, motion);
}

PlaceModel::PlaceModel(const Experiment& e, RunSettings settings, std::vector<Unknown> unknowns)
    : prepared_(std::make_unique<Prepared>(e)), unknowns_(std::move(unknowns)) {
    settings.model = true;
    settings.forward = true;
    settings.test = false;
    settings.measuring = Measuring::ExactPassages;  // the step stays as it is
    settings.boxes = {};
    const bool ofTheMoment = settings.relativistic || !settings.finiteGravitySpeed;
    settings.stepper = ofTheMoment ? Stepper::Order8 : Stepper::RungeKutta4;
    startExperiment(prepared_->experiment(), settings);
    prepared_->s.DtCur = prepared_->s.Dt;
}

PlaceModel::~PlaceModel() = default;

double PlaceModel::JDstart() const { return prepared_->s.JDstart; }
bool PlaceModel::highOrder() const { return prepared_->run.stepper == Stepper::Order8; }

InnerValues PlaceModel::start() const {
    InnerValues values;
    for (const Unknown& one : unknowns_) values.push_back(prepared_->inner(one));
    return values;
}

InnerValues PlaceModel::steps() const {
    constexpr double ofState = 1e-7, ofInverse = 1e-3, leastOfInverse = 1e-6, ofMass = 1e-4;
    constexpr double kilometresASecond = 0.1, ofCoefficient = 1e-3;
    const ModelState& s = prepared_->s;
    InnerValues steps;
    for (const Unknown& one : unknowns_) {
        const int i = one.body;
        if (one.kind == Unknown::Kind::Position)
            steps.push_back(ofState * length({s.X0[i] - s.X0[0], s.Y0[i] - s.Y0[0], s.Z0[i] - s.Z0[0]}));
        else if (one.kind == Unknown::Kind::Velocity)
            steps.push_back(ofState *
                            length({s.VX0[i] - s.VX0[0], s.VY0[i] - s.VY0[0], s.VZ0[i] - s.VZ0[0]}));
        else if (one.parameter == Parameter::Vgr)
            steps.push_back(std::max(ofInverse * std::abs(prepared_->inner(one)), leastOfInverse));
        else if (one.parameter == Parameter::Mass)
            steps.push_back(ofMass * prepared_->inner(one));
        else
            steps.push_back(one.parameter == Parameter::kPgr1 ? ofCoefficient : kilometresASecond);
        if (!(std::abs(steps.back()) > 0))
            throw ArithmeticFailure("у объекта нет начальных данных: " + one.name());
    }
    return steps;
}

namespace {

/// A motion from its start on, step by step, asked for places in order of time.
class Flight {
public:
    explicit Flight(const Experiment& e) : e_(e) {}

    /// Places of one step: those before `end`, s from the start.
    void step(const std::vector<Place>& places, std::size_t& next, std::vector<Vec3>& out) {
        const double begin = e_.run.Tsec, end = begin + e_.s.DtCur;
        std::array<std::optional<OrbitPoint>, bodies> before;
        std::size_t last = next;
        for (; last < places.size() && seconds(places[last]) <= end; ++last) {
            auto& point = before[static_cast<std::size_t>(places[last].body)];
            if (!point) point = seen(places[last].body);
        }
        advance(e_, guard_);
        e_.run.Tsec = end;
        pushTrace(e_.s, e_.motion, end);
        if (next == last) return;
        StepInside inside(e_);
        for (; next < last; ++next) {
            seen(places[next].body);
            Arc arc = inside.arc(*before[static_cast<std::size_t>(places[next].body)]);
            out.push_back(arc.at((seconds(places[next]) - begin) / e_.s.DtCur).r);
        }
    }

private:
    double seconds(const Place& place) const { return (place.JD - e_.s.JDstart) * sekD; }
    OrbitPoint seen(int body) {
        e_.s.IplSel = body;
        e_.s.Icentr = rowSun;
        return seenFromOrigin(e_);
    }

    const Experiment e_;
    ArithmeticGuard guard_;
};

}  // namespace

std::vector<Vec3> PlaceModel::placesAt(const std::vector<Place>& places, const InnerValues& values) const {
    const auto own = std::make_unique<Prepared>(*prepared_);
    own->takeValues(unknowns_, values);
    Flight flight(own->experiment());
    std::vector<Vec3> out;
    out.reserve(places.size());
    std::size_t next = 0;
    while (next < places.size()) flight.step(places, next, out);
    return out;
}

}  // namespace tarvex
