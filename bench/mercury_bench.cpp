// The ways to measure 200 years of Mercury, and other planets: time, steps, drift of the perihelion and the
// worst apse against an independent solution.  The ways take turns; the time is the median of their rounds.
// The windows, minutes long, go once.

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "bench/timing.h"
#include "tests/support/reference_orbit.h"
#include "tests/support/test_run.h"

namespace tarvex {
namespace {

struct Way {
    const char* name;
    int body;
    double step;
    Measuring measuring;
    Stepper stepper;
    bool relativistic;
};

constexpr Way ways[] = {
    {"Mercury windows, Newton", 1, 3600, Measuring::Windows, Stepper::RungeKutta4, false},
    {"Mercury exact, Newton", 1, 3600, Measuring::ExactPassages, Stepper::RungeKutta4, false},
    {"Mercury order 8, Newton", 1, 86400, Measuring::ExactPassages, Stepper::Order8, false},
    {"Mercury windows, relativity", 1, 3600, Measuring::Windows, Stepper::RungeKutta4, true},
    {"Mercury exact, relativity", 1, 3600, Measuring::ExactPassages, Stepper::RungeKutta4, true},
    {"Mercury order 8, relativity", 1, 86400, Measuring::ExactPassages, Stepper::Order8, true},
    {"Jupiter windows, Newton", 5, 3600, Measuring::Windows, Stepper::RungeKutta4, false},
    {"Jupiter exact, Newton", 5, 3600, Measuring::ExactPassages, Stepper::RungeKutta4, false},
    {"Neptune windows, Newton", 8, 3600, Measuring::Windows, Stepper::RungeKutta4, false},
    {"Neptune exact, Newton", 8, 3600, Measuring::ExactPassages, Stepper::RungeKutta4, false},
};
constexpr std::size_t wayCount = std::size(ways);

struct Apse {
    double time, perihelion;
    bool atPerihelion;
};

struct Apses : RunPort {
    explicit Apses(test::TestRun& run) : t(run) {}
    void passed(const Passage& seen) override {
        if (seen.apse && !seen.first) all.push_back({t.run.Tsec, t.run.AlfaP, t.run.kodPeri == 1});
    }
    bool giveWay() override {
        ++displays;
        return true;
    }
    test::TestRun& t;
    std::vector<Apse> all;
    long displays = 0;
};

struct Result {
    std::vector<double> seconds;
    double steps = 0;
    std::vector<Apse> apses;
};

void prepare(test::TestRun& t, const Way& way, int years) {
    t.settings.body = way.body;
    t.settings.step = way.step;
    t.settings.stepsPerDisplay = 10000;
    t.settings.lastYear = 1800 + years;
    t.settings.measuring = way.measuring;
    t.settings.stepper = way.stepper;
    t.settings.relativistic = way.relativistic;
    t.start();
}

void go(const Way& way, int years, Result& result) {
    test::TestRun t;
    prepare(t, way, years);
    Apses port(t);
    const Experiment e = t.experiment();
    result.seconds.push_back(bench::timed(1, [&] { RunLoop(e, port); }) / 1e9);
    result.steps = static_cast<double>(port.displays * t.s.NC0 + t.s.NC);
    result.apses = port.all;
}

std::vector<test::ReferenceApse> reference(const Way& way, int years) {
    test::TestRun t;
    prepare(t, way, years);
    std::vector<double> gm;
    test::ReferenceOrbit::State place, speed;
    for (int i = 0; i < t.s.NPlOn; ++i) {
        gm.push_back(t.s.gamma * t.s.m[i]);
        place.push_back({t.s.X[i], t.s.Y[i], t.s.Z[i]});
        speed.push_back({t.s.VX[i], t.s.VY[i], t.s.VZ[i]});
    }
    place.insert(place.end(), speed.begin(), speed.end());
    test::ReferenceOrbit orbit(gm, place, way.relativistic ? Vsv * Vsv : 0);
    return orbit.apses(static_cast<std::size_t>(t.s.IplSel), 0, 2 * sekD, (years + 0.01) * sekG);
}

struct Drift {
    double perCentury = 0, ofReference = 0, worst = 0;  ///< arc seconds
};

Drift compare(const std::vector<Apse>& measured, const std::vector<test::ReferenceApse>& expected) {
    std::vector<std::pair<double, double>> own, other;
    Drift drift;
    for (const Apse& a : measured) {
        const test::ReferenceApse* near = nullptr;
        for (const auto& b : expected)
            if (b.atPerihelion == a.atPerihelion &&
                (near == nullptr || std::abs(b.time - a.time) < std::abs(near->time - a.time)))
                near = &b;
        if (near == nullptr) continue;
        const double difference = 3600 * std::remainder(a.perihelion - near->perihelion, 360);
        const double centuries = near->time / sekG / 100;
        drift.worst = std::max(drift.worst, std::abs(difference));
        const double base = 3600 * std::remainder(near->perihelion - expected.front().perihelion, 360);
        other.emplace_back(centuries, base);
        own.emplace_back(centuries, base + difference);
    }
    if (own.size() < 2) return drift;
    drift.perCentury = test::slopeOf(own);
    drift.ofReference = test::slopeOf(other);
    return drift;
}

}  // namespace

void bench::printPassages(int years, int rounds) {
    Result results[wayCount];
    for (int round = rounds; round > 0; --round)
        for (std::size_t k = 0; k < wayCount; ++k)
            if (ways[k].measuring != Measuring::Windows || round == rounds) go(ways[k], years, results[k]);
    std::printf("%-28s %9s %10s %14s %13s %12s\n", "way", "s", "steps", "drift \"/cent.", "- reference",
                "worst apse \"");
    std::vector<test::ReferenceApse> expected;
    for (std::size_t k = 0; k < wayCount; ++k) {
        if (k == 0 || ways[k].relativistic != ways[k - 1].relativistic || ways[k].body != ways[k - 1].body)
            expected = reference(ways[k], years);
        const Drift drift = compare(results[k].apses, expected);
        std::printf("%-28s %9.3f %10.0f %14.5f %13.1e %12.1e\n", ways[k].name, median(results[k].seconds),
                    results[k].steps, drift.perCentury, drift.perCentury - drift.ofReference, drift.worst);
    }
}

}  // namespace tarvex
