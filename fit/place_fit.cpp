#include "fit/place_fit.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>

#include "core/arithmetic.h"
#include "fit/side_by_side.h"
#include "stats/drift_verdict.h"
#include "stats/nonlinear_fit.h"
#include "stats/quantiles.h"

namespace tarvex {

namespace {

std::vector<Unknown> unknownsOf(const PlaceFitSettings& fit) {
    std::vector<Unknown> unknowns;
    for (const int body : fit.bodies)
        for (const auto kind : {Unknown::Kind::Position, Unknown::Kind::Velocity})
            for (int axis = 0; axis < 3; ++axis)
                unknowns.push_back({.kind = kind, .body = body, .axis = axis});
    for (const std::string& name : fit.parameters) unknowns.push_back(parameterOf(name));
    return unknowns;
}

bool has(const std::vector<int>& wanted, int body) {
    return std::find(wanted.begin(), wanted.end(), body) != wanted.end();
}

std::size_t coordinates(const std::vector<Place>& places) {
    std::size_t count = 0;
    for (const Place& place : places) count += static_cast<std::size_t>(place.coordinates());
    return count;
}

std::vector<Place> placesOf(const std::vector<Place>& all, const std::vector<int>& wanted) {
    std::vector<Place> places;
    for (const Place& place : all)
        if (has(wanted, place.body) || (place.body == rowSun && has(wanted, rowEarthMoon)))
            places.push_back(place);
    return places;
}

void check(const PlaceModel& model, const std::vector<Place>& places, const PlaceFitSettings& fit) {
    if (places.empty()) throw Failure("нет мест");
    if (!(fit.sigma > 0)) throw Failure("погрешность места должна быть больше нуля");
    if (places.front().JD < model.JDstart())
        throw Failure("место JD " + toText(places.front().JD) + " раньше начала модели JD " +
                      toText(model.JDstart()));
    if (coordinates(places) <= model.unknowns().size())
        throw Failure("неизвестных " + std::to_string(model.unknowns().size()) + ", координат мест " +
                      std::to_string(coordinates(places)) + ": мест мало");
    for (const int body : fit.bodies)
        if (std::none_of(places.begin(), places.end(),
                         [&](const Place& p) { return p.body == body || (p.sight && body == rowEarthMoon); }))
            throw Failure("нет мест объекта № " + std::to_string(body));
}

/// Residuals of the model in sigma, many sets of values at once.
class PlaceResiduals {
public:
    PlaceResiduals(const PlaceModel& model, const std::vector<Place>& places, const PlaceFitSettings& fit)
        : model_(model), places_(places), fit_(fit) {
        for (const Place& place : places) {
            if (place.body != rowSun) asked_.push_back(place);
            if (!place.sight) continue;
            asked_.push_back(place);
            asked_.back().body = rowEarthMoon;
        }
    }

    std::vector<std::vector<double>> operator()(const std::vector<InnerValues>& sets) {
        std::vector<std::vector<double>> rows(sets.size());
        const auto fly = [&](std::size_t k) {
            rows[k] = rowOf(sets[k]);
            ++flights_;
        };
        if (!sideBySide(sets.size(), fit_.jobs, fly, [this] { return !fit_.tell || fit_.tell(flights_); }))
            throw Failure("подгонка остановлена");
        return rows;
    }

private:
    std::vector<double> rowOf(const InnerValues& values) const {
        const std::vector<Vec3> seen = model_.placesAt(asked_, values);
        std::vector<double> row;
        auto at = seen.begin();
        for (const Place& place : places_) {
            const Vec3 body = place.body == rowSun ? Vec3{} : *at++;
            if (!place.sight) {
                const Vec3 off = place.r - body;
                for (const double one : {off.x, off.y, off.z}) row.push_back(one / fit_.sigma);
                continue;
            }
            const Vec3 line = body - *at++ - place.aside;
            const Vec3 off = place.r - (1 / length(line)) * line;
            for (const Vec3& side : acrossOf(place.r)) row.push_back(dot(off, side) / fit_.sigma);
        }
        return row;
    }

    /// Eastwards and northwards of a direction.
    static std::array<Vec3, 2> acrossOf(const Vec3& r) {
        const double flat = std::hypot(r.x, r.y);
        const Vec3 east = flat > 0 ? Vec3{-r.y / flat, r.x / flat, 0} : Vec3{1, 0, 0};
        return {east, Vec3{-r.z * east.y, r.z * east.x, r.x * east.y - r.y * east.x}};
    }

    const PlaceModel& model_;
    const std::vector<Place>& places_;
    const PlaceFitSettings& fit_;
    std::vector<Place> asked_;  ///< of the model: the bodies, and the Earth for each sight
    std::atomic<int> flights_ = 0;
};

double rootMeanSquare(double squares, int count) { return std::sqrt(squares / std::max(1, count)); }

BodyResidual residualOf(int body, const std::vector<Place>& places, double sigma,
                        const std::vector<double>& before, const std::vector<double>& after) {
    BodyResidual one{.body = body};
    double earlier = 0;
    int count = 0;
    std::size_t k = 0;
    for (const Place& place : places) {
        const auto end = k + static_cast<std::size_t>(place.coordinates());
        if (place.body != body) {
            k = end;
            continue;
        }
        ++one.places;
        one.sights = place.sight;
        for (; k < end; ++k, ++count) {
            one.chiSquare += after[k] * after[k];
            earlier += before[k] * before[k];
        }
    }
    const double unit = one.sights ? 3600 * kUgol : 1e-3;
    one.before = rootMeanSquare(earlier, count) * sigma * unit;
    one.after = rootMeanSquare(one.chiSquare, count) * sigma * unit;
    return one;
}

void tellBodies(const std::vector<Place>& places, const PlaceFitSettings& fit,
                const std::vector<double>& before, const std::vector<double>& after, PlaceFit& out) {
    for (int body = 0; body < bodies; ++body) {
        const BodyResidual one = residualOf(body, places, fit.sigma, before, after);
        if (one.places > 0) out.bodies.push_back(one);
    }
}

bool isVgr(const Unknown& one) {
    return one.kind == Unknown::Kind::Parameter && one.parameter == Parameter::Vgr;
}

/// The values outside, with their errors: none of Vgr where 1/Vgr may be 0.
// complexity: places, speeds, Vgr and other parameters have a unit each, and any may be undetermined
void tellValues(const std::vector<Unknown>& unknowns, const NonlinearFit& found, PlaceFit& out) {
    for (std::size_t k = 0; k < unknowns.size(); ++k) {
        const Unknown& one = unknowns[k];
        const double value = found.x[k], error = std::sqrt(found.covariance[k][k]);
        FittedValue shown{one, {}, {}, ""};
        if (one.kind != Unknown::Kind::Parameter) {
            const bool place = one.kind == Unknown::Kind::Position;
            shown.unit = place ? "км" : "м/с";
            if (!found.loose[k])
                shown.value = value / (place ? 1000 : 1), shown.error = error / (place ? 1000 : 1);
            out.initialData.push_back(shown);
            continue;
        }
        if (!found.loose[k]) shown.value = value, shown.error = error;
        if (isVgr(one)) {
            shown.unit = "Vsv";
            out.inverseVgr = value, out.inverseVgrError = error;
            const double highest = value + normalOne95 * error;
            const bool none = found.loose[k] || value - normalBoth95 * error <= 0;
            if (none && highest > 0 && !found.loose[k]) out.lowestVgr = 1 / highest;
            shown.value = none ? std::nullopt : std::optional(1 / value);
            shown.error = none ? std::nullopt : std::optional(error / (value * value));
        } else if (one.parameter != Parameter::Mass && one.parameter != Parameter::kPgr1) {
            shown.unit = "км/с";
        }
        out.parameters.push_back(shown);
    }
}

/// Correlations of the parameters, which stand behind the initial data; that of Vgr has the sign of Vgr, not
/// of 1/Vgr.
void tellCorrelations(const std::vector<Unknown>& unknowns, const NonlinearFit& found, PlaceFit& out) {
    const std::size_t first = out.initialData.size();
    for (std::size_t i = first; i < unknowns.size(); ++i) {
        out.correlation.emplace_back();
        for (std::size_t j = first; j < unknowns.size(); ++j) {
            const double size = std::sqrt(found.covariance[i][i] * found.covariance[j][j]);
            const double sign = isVgr(unknowns[i]) == isVgr(unknowns[j]) ? 1 : -1;
            out.correlation.back().push_back(i == j     ? 1
                                             : size > 0 ? sign * found.covariance[i][j] / size
                                                        : 0);
        }
    }
}

Answer answerOf(const PlaceFit& fit, const NonlinearFit& found, const Experiment& e,
                const RunSettings& settings) {
    Answer answer;
    answer.measured = "Координат " + std::to_string(found.residual.size());
    answer.agreeing = "места";
    answer.unknowns = static_cast<int>(found.x.size());
    answer.determined = found.determined;
    answer.chiSquare = fit.chiSquare;
    answer.freedom = fit.freedom;
    const double velocities[] = {e.s.VXsys, e.s.VYsys, e.s.VZsys};
    const char* const names[] = {"VXsys", "VYsys", "VZsys"};
    const auto sought = [&](const std::string& name) {
        return std::any_of(fit.parameters.begin(), fit.parameters.end(),
                           [&](const FittedValue& one) { return one.what.name() == name; });
    };
    for (int axis = 0; axis < 3; ++axis) {
        if (!sought(names[axis])) answer.given.emplace_back(names[axis]);
        answer.hasVelocity = answer.hasVelocity || sought(names[axis]) || velocities[axis] != 0;
    }
    answer.seeksVgr = sought("Vgr");
    if (answer.seeksVgr && settings.finiteGravitySpeed) {
        answer.inverseVgr = {fit.inverseVgr, fit.inverseVgrError};
        answer.lowestVgr = fit.lowestVgr;
        answer.scaleLoose = std::abs(fit.inverseVgr) < 2 * fit.inverseVgrError;
    }
    for (const FittedValue& one : fit.parameters)
        answer.values.push_back({one.what.name(), one.value, one.error});
    return answer;
}

}  // namespace

PlaceFit fitPlaces(const Experiment& e, const RunSettings& settings, const std::vector<Place>& all,
                   const PlaceFitSettings& fit) {
    if (e.s.kodMoon == 1)
        throw Failure("места Земли - ее центра масс с Луной: задайте на форме 1 их движение совместное");
    const PlaceModel model(e, settings, unknownsOf(fit));
    const std::vector<Place> places = placesOf(all, fit.bodies);
    check(model, places, fit);
    PlaceResiduals residuals(model, places, fit);
    const InnerValues start = model.start();
    const std::vector<double> before = residuals({start}).front();
    const NonlinearFit found = fitNonlinear(
        [&](const std::vector<InnerValues>& sets) { return residuals(sets); }, start, model.steps());
    PlaceFit out;
    out.chiSquare = found.chiSquare;
    out.freedom = found.freedom();
    out.passes = found.passes;
    tellValues(model.unknowns(), found, out);
    tellCorrelations(model.unknowns(), found, out);
    tellBodies(places, fit, before, found.residual, out);
    out.verdict = verdictText(answerOf(out, found, e, settings));
    return out;
}

std::vector<std::string> fitLines(const PlaceFit& fit) {
    std::vector<std::string> lines;
    const auto tell = [&](const FittedValue& one) {
        lines.push_back(one.what.name() + " = " +
                        (one.value ? roundedWithError(*one.value, one.error.value_or(0)) : "не определено") +
                        (one.value && !one.unit.empty() ? " " + one.unit : ""));
    };
    for (const FittedValue& one : fit.parameters) tell(one);
    if (fit.lowestVgr)
        lines.push_back("Vgr не меньше " + rounded(*fit.lowestVgr, *fit.lowestVgr / 100) + " Vsv (95 %)");
    for (std::size_t i = 0; i < fit.parameters.size(); ++i)
        for (std::size_t j = i + 1; j < fit.parameters.size(); ++j)
            lines.push_back("корреляция " + fit.parameters[i].what.name() + ", " +
                            fit.parameters[j].what.name() + " = " + Format(fit.correlation[i][j], "0.000"));
    for (const FittedValue& one : fit.initialData) tell(one);
    for (const BodyResidual& one : fit.bodies)
        lines.push_back("объект " + std::to_string(one.body) + ": мест " + std::to_string(one.places) +
                        ", остаток координаты " + rounded(one.after, one.after / 100) +
                        (one.sights ? " угл.сек" : " км") + " (до подгонки " +
                        rounded(one.before, one.before / 100) + "), хи-квадрат " +
                        rounded(one.chiSquare, one.chiSquare / 1000));
    lines.push_back("ChiSquare = " + rounded(fit.chiSquare, fit.chiSquare / 1e5));
    lines.push_back("Freedom = " + std::to_string(fit.freedom));
    lines.push_back(fit.verdict);
    return lines;
}

}  // namespace tarvex
