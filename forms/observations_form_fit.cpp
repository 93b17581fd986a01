// Reduction of observations: the model fitted to places of bodies.

#include "core/calendar.h"
#include "forms/observations_form.h"
#include "reduction/observed_direction.h"

namespace tarvex {

namespace {

double noonOfJanuaryFirst(int year) {
    const auto s = std::make_unique<ModelState>();
    const double JD = JDfromDate(*s, 1.5, 1, year);
    if (s->kodErrDate != 0) throw Failure("нет такого года: " + std::to_string(year));
    return JD;
}

/// Takes the mark of a fit that goes on away.
struct Mark {
    bool& fitting;
    ~Mark() { fitting = false; }
};

}  // namespace

std::vector<Place> ObservationsForm::placesToFit(const std::vector<int>& wanted) {
    if (fit.source(1).on())
        return ephemerisPlaces(lab.tree, wanted, noonOfJanuaryFirst(fit.from.int32()),
                               noonOfJanuaryFirst(fit.to.int32() + 1), fit.every.number());
    if (fit.source(2).on()) {
        if (sights_.empty()) throw Refusal("Сначала обработайте наблюдения", "Tarvex7.0");
        return sights_;
    }
    if (fit.file.text().empty()) throw Refusal("Задайте файл мест", "Tarvex7.0");
    return readPlaces(lab.tree.typed("\\Obs\\" + fit.file.text()), wanted);
}

/// Keeps the direction of an accepted observation of a body that the model can place.
void ObservationsForm::keepSight() {
    if (lab.s.IplSel > 9 || lab.reduction.choices.tables) return;
    const ObservedDirection seen = observedDirection(lab.s, lab.reduction);
    sights_.push_back({seen.JD, seen.body, seen.direction, true, seen.aside});
}

void ObservationsForm::fitPlaces() {
    if (fitting_) return;  // pressed while a fit gives way: that fit goes on
    fit.clear();
    PlaceFitSettings set = fit.settings();
    const std::vector<Place> places = placesToFit(set.bodies);
    const auto* screen = loadedScreen<RunScreen>(desk());
    RunSettings run = screen != nullptr ? screen->settings() : RunSettings{};
    run.test = false;
    fitStopped_ = false;
    fitting_ = true;
    const Mark mark{fitting_};
    const Running calculation(*this);
    set.tell = [this](int flights) {
        setStatus("просчитано движений: " + std::to_string(flights));
        desk().yield();
        return !fitStopped_ && !gone_;
    };
    fit.show(tarvex::fitPlaces(lab.experiment(), run, places, set));
}

}  // namespace tarvex
