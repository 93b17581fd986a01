#include "batch/fit_run.h"

#include <chrono>
#include <ostream>
#include <sstream>

#include "batch/option_words.h"
#include "batch/quiet_screen.h"
#include "core/calendar.h"
#include "fit/place_fit.h"
#include "forms/laboratory.h"
#include "forms/screens.h"
#include "script/player.h"

namespace tarvex {

namespace {

constexpr double km = 1000;

bool sets(const FitOptions& options, const std::string& control) {
    for (const BatchSetting& setting : options.settings)
        if (setting.control.starts_with(control)) return true;
    return false;
}

bool involves(const FitOptions& options, const std::string& name) {
    for (const std::string& sought : options.parameters)
        if (sought == name) return true;
    for (const BatchSetting& setting : options.given)
        if (setting.control == name) return true;
    return false;
}

double noonOfJanuaryFirst(int year) {
    const auto s = std::make_unique<ModelState>();
    return JDfromDate(*s, 1.5, 1, year);
}

/// Places of the span that was asked for.
std::vector<Place> placesOf(const FitOptions& options, const DataTree& tree) {
    const double from = options.from ? noonOfJanuaryFirst(*options.from) : -1e9;
    const double to = options.to ? noonOfJanuaryFirst(*options.to + 1) : 1e9;
    if (options.byEphemeris()) return ephemerisPlaces(tree, options.bodies, from, to, options.every);
    std::vector<Place> places;
    for (const Place& place : readPlaces(options.places, options.bodies))
        if (place.JD >= from && place.JD <= to) places.push_back(place);
    if (places.empty()) throw Failure("нет мест: " + options.places);
    return places;
}

/// Values of the parameters into the state that the forms have made: a script has no control for each of
/// them.
void giveParameters(const FitOptions& options, Laboratory& lab) {
    for (const BatchSetting& one : options.given) {
        const double value = toNumber(one.value);
        const Unknown what = parameterOf(one.control);
        switch (what.parameter) {
            case Parameter::Vgr:
                break;  // a control of Form2
            case Parameter::VXsys:
                lab.s.VXsys = value;
                break;
            case Parameter::VYsys:
                lab.s.VYsys = value;
                break;
            case Parameter::VZsys:
                lab.s.VZsys = value;
                break;
            case Parameter::kPgr1:
                lab.motion.kPgr1 = value;
                break;
            case Parameter::Mass:
                lab.s.m[what.body] = ratio(lab.s.m[0], value);
                break;
        }
    }
}

/// Tells how far the fit is, not too often.
class Progress {
public:
    Progress(std::ostream& err, bool terminal) : err_(err), every_(terminal ? 2 : 60) {}
    bool tell(int flights) {
        const auto now = std::chrono::steady_clock::now();
        if (now - told_ < every_) return true;
        told_ = now;
        err_ << "просчитано движений: " << flights << std::endl;
        return true;
    }

private:
    std::ostream& err_;
    std::chrono::seconds every_;
    std::chrono::steady_clock::time_point told_ = std::chrono::steady_clock::now();
};

void play(const std::vector<std::string>& script, QuietScreen& screen, Laboratory& lab) {
    try {
        Player(screen, lab.desk, lab.names).play(script);
    } catch (const LineFailure& failure) {
        throw Failure(screen.trouble.empty() ? failure.text : screen.trouble);
    }
    if (!screen.trouble.empty()) throw Failure(screen.trouble);
}

/// Whether coordinates come from elements: the ephemeris and a file bring coordinates of their own.
bool startsByElements(const FitOptions& options) {
    bool byElements = !options.byEphemeris();
    for (const BatchSetting& setting : options.settings) {
        if (setting.value != "on") continue;
        for (const char* option : {"Form1.Option4", "Form1.Option5", "Form1.Option8"})
            if (setting.control == option) byElements = true;
        for (const char* option : {"Form1.Option6", "Form1.Option9"})
            if (setting.control == option) byElements = false;
    }
    return byElements;
}

}  // namespace

std::vector<std::string> fitScript(const FitOptions& options, int year, int month, double day) {
    std::vector<std::string> script, laws, run;
    if (options.byEphemeris()) script.emplace_back("Form1.Option9 = on");
    script.insert(script.end(), {"Form1.Text34 = " + std::to_string(year),
                                 "Form1.Text33 = " + std::to_string(month), "Form1.Text32 = " + toText(day)});
    for (const BatchSetting& setting : options.settings) {
        const std::string line = setting.control + " = " + setting.value;
        (setting.control.starts_with("Form1.")    ? script
         : setting.control.starts_with("Form23.") ? laws
                                                  : run)
            .push_back(line);
    }
    script.emplace_back("Form1.Command3");
    if (startsByElements(options)) script.emplace_back("Form1.Command12");
    script.insert(script.end(), {"Form1.Command1", "Form2.Option3 = on", "Form2.Option7 = on"});
    const bool finite = involves(options, "Vgr");
    if (finite)
        script.insert(script.end(), {"Form2.Check13 = on", "Form2.Text35 = 1000"});
    else
        script.emplace_back("Form2.Text38 = 43200");  // of order 8
    for (const BatchSetting& one : options.given)
        if (one.control == "Vgr") script.push_back("Form2.Text35 = " + one.value);
    script.insert(script.end(), run.begin(), run.end());
    // the place that a body has left draws it, as in a plan, unless another law is chosen
    if (finite && !sets(options, "Form23.Option")) script.emplace_back("Form23.Option10 = on");
    script.insert(script.end(), laws.begin(), laws.end());
    if (options.relativity) script.emplace_back("Form23.WithRelativity = on");
    script.emplace_back("Form23.Command1");
    return script;
}

int runFit(const FitOptions& options, std::ostream& out, std::ostream& err, bool terminal) {
    const DataTree tree(dataTree(options.data));
    const std::vector<Place> places = placesOf(options, tree);
    std::ostringstream printed;
    QuietScreen screen(printed);
    Laboratory lab(screen, tree.root());
    lab.s.TimeZone = 0;
    double first = places.front().JD;
    DateFromJD(lab.s, first);
    play(fitScript(options, lab.s.GodR, lab.s.MesR, lab.s.DenR), screen, lab);
    giveParameters(options, lab);
    Progress progress(err, terminal);
    PlaceFitSettings fit{.bodies = options.bodies,
                         .parameters = options.parameters,
                         .sigma = options.sigma * km,
                         .jobs = options.jobs,
                         .tell = [&](int flights) { return progress.tell(flights); }};
    const PlaceFit found = fitPlaces(lab.experiment(), screenOf<RunScreen>(lab.desk).settings(), places, fit);
    for (const std::string& line : fitLines(found)) out << line << '\n';
    return 0;
}

}  // namespace tarvex
