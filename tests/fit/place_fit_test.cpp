#include "fit/place_fit.h"

#include <random>

#include "numeric/run_loop.h"
#include "stats/drift_solution.h"
#include "stats/slope_error.h"
#include "tests/support/test_run.h"

namespace tarvex {

using test::TestRun;

namespace {

constexpr double trueVgr = 214.7;

/// Newton's law towards the places that bodies have left, in a system that moves.
struct Retarded : TestRun {
    explicit Retarded(double Vgr) {
        settings.finiteGravitySpeed = true;
        settings.gravitySpeed = Vgr;
        settings.step = 7200;
        settings.measuring = Measuring::ExactPassages;
        motion.kodDX = 2;
        s.VXsys = 175.3;
        s.VYsys = 200;
    }
};

/// Places of the bodies as the model has them, with the errors of an observer.
std::vector<Place> seenPlaces(Retarded& t, const std::vector<int>& bodies, double years, double sigma) {
    std::vector<Place> places;
    for (double days = 0; days < years * 365.25; days += 15)
        for (const int body : bodies) places.push_back({t.s.JDstart + days, body, {}});
    const auto seen = PlaceModel(t.experiment(), t.settings, {}).placesAt(places, {});
    std::mt19937 random(20261122);
    std::normal_distribution<double> error(0, sigma);
    for (std::size_t k = 0; k < places.size(); ++k)
        places[k].r = seen[k] + Vec3{error(random), error(random), error(random)};
    return places;
}

/// Perihelion and node of Mercury at its passages, arc seconds against centuries.
struct Passages : RunPort {
    explicit Passages(TestRun& run) : t(run) {}
    void passed(const Passage& seen) override {
        if (!seen.apse) return;
        const double T = t.run.Tsec / sekD / 36525;
        perihelion.push_back({T, 3600 * t.run.AlfaP, 1});
        node.push_back({T, 3600 * t.run.AlfaU, 1});
    }
    TestRun& t;
    std::vector<Group> perihelion, node;
};

/// Shifts of perihelion and node a century in an experiment of 20 years.
std::array<double, 2> drifts(double Vgr) {
    Retarded t(Vgr);
    t.settings.step = 10800;
    t.settings.lastYear = 1821;
    Passages port(t);
    t.start();
    RunLoop(t.experiment(), port);
    std::array<double, 2> out{};
    const std::vector<Group>* const series[] = {&port.perihelion, &port.node};
    for (std::size_t k = 0; k < 2; ++k) {
        FitResult fit;
        fit.groups.assign(series[k]->begin() + 2, series[k]->end());
        fitGroups(Equation::Line, fit);
        out[k] = fit.b[1];
    }
    return out;
}

}  // namespace

// Two ways to the speed of gravity: the places of a body, and the drifts of its orbit in a plan of
// experiments.
TEST(PlaceFit, PlacesAndDriftsFindTheSameSpeedOfGravity) {
    Retarded truth(trueVgr), first(300);
    const auto places = seenPlaces(truth, {1, 2}, 8, 20e3);
    first.s.X0[1] += 3e6, first.s.VY0[1] += 0.05, first.s.Z0[2] -= 4e6;
    const auto before = first.s.X0;
    const PlaceFit fit = fitPlaces(first.experiment(), first.settings, places,
                                   {.bodies = {1, 2}, .parameters = {"Vgr"}, .sigma = 20e3});
    ASSERT_TRUE(fit.parameters.at(0).value);
    const double Vgr = *fit.parameters[0].value, error = *fit.parameters[0].error;
    EXPECT_NEAR(Vgr, trueVgr, 3 * error);
    EXPECT_LT(error, 2);
    EXPECT_NEAR(fit.chiSquare / fit.freedom, 1, 0.15);
    EXPECT_EQ(fit.freedom, static_cast<int>(3 * places.size()) - 13);
    EXPECT_NEAR(*fit.initialData[0].value, truth.s.X0[1] / 1000, 4 * *fit.initialData[0].error);
    EXPECT_GT(fit.bodies[0].before, 100 * fit.bodies[0].after);
    EXPECT_NE(fit.verdict.find("определено только V/Vgr: заданы VXsys, VYsys, VZsys; найдено Vgr = "),
              std::string::npos)
        << fit.verdict;
    EXPECT_EQ(first.s.X0, before);  // the state is left alone

    DriftProblem plan;
    plan.factors = {factorVgr};
    plan.levels = {0, 175.3, 200, 0, 250};
    plan.intervals = {0, 0, 0, 0, 70};
    for (const int param : {1, 2}) plan.drifts.push_back({.planet = 1, .param = param, .observedError = 1});
    for (const double speed : {180., 250., 320.}) {
        plan.experiments.push_back({0, 175.3, 200, 0, speed});
        const auto calculated = drifts(speed);
        for (std::size_t k = 0; k < 2; ++k) plan.drifts[k].calculated.push_back(calculated[k]);
    }
    const auto observed = drifts(trueVgr);
    for (std::size_t k = 0; k < 2; ++k) plan.drifts[k].observed = observed[k] + (k == 0 ? 0.7 : -0.4);
    const DriftSolution solved = solveDrifts(plan);
    ASSERT_TRUE(solved.factors[0].value);
    EXPECT_NEAR(*solved.factors[0].value, Vgr, 2 * std::hypot(*solved.factors[0].error, error));
    EXPECT_NEAR(*solved.factors[0].value, trueVgr, 2 * *solved.factors[0].error);
}

// What places cannot tell is not told as a number: Newton's own places bear no speed of gravity, and where
// velocity and speed are both sought only their ratio is known.
TEST(PlaceFit, TellsWhatIsNotDetermined) {
    Retarded truth(trueVgr), first(1000);
    truth.settings.gravitySpeed = 1e9;
    const auto places = seenPlaces(truth, {1}, 3, 50e3);
    const PlaceFitSettings asked{.bodies = {1}, .parameters = {"Vgr", "VXsys"}, .sigma = 50e3};
    const PlaceFit fit = fitPlaces(first.experiment(), first.settings, places, asked);
    EXPECT_FALSE(fit.parameters[0].value);
    ASSERT_TRUE(fit.lowestVgr);
    EXPECT_GT(*fit.lowestVgr, 1000);
    const auto lines = fitLines(fit);
    EXPECT_EQ(lines[0], "Vgr = не определено");
    EXPECT_NE(fit.verdict.find("не отличается от 0: Vgr не меньше "), std::string::npos) << fit.verdict;
    // the same by the law of the moment: order 8, and no Vgr at all
    Retarded newton(1000);
    newton.settings.finiteGravitySpeed = false;
    const PlaceFit alone = fitPlaces(newton.experiment(), newton.settings, places, asked);
    EXPECT_FALSE(alone.parameters[0].value);
    EXPECT_FALSE(alone.lowestVgr);
    EXPECT_NEAR(alone.chiSquare / alone.freedom, 1, 0.3);
}

TEST(PlaceFit, RefusesWhatCannotBeFitted) {
    Retarded t(300);
    const auto places = seenPlaces(t, {1}, 1, 0);
    const PlaceFitSettings good{.bodies = {1}, .parameters = {"Vgr"}, .sigma = 1e4};
    const auto trouble = [&](const std::vector<Place>& given, auto change) {
        PlaceFitSettings fit = good;
        change(fit);
        try {
            fitPlaces(t.experiment(), t.settings, given, fit);
        } catch (const Failure& failure) {
            return std::string(failure.what());
        }
        return std::string("fitted");
    };
    auto early = places;
    early.front().JD -= 1;
    const std::vector<Place> few(places.begin(), places.begin() + 2);
    const auto same = [](PlaceFitSettings&) {};
    EXPECT_EQ(trouble({}, same), "нет мест");
    EXPECT_NE(trouble(early, same).find("раньше начала модели"), std::string::npos);
    EXPECT_EQ(trouble(few, same), "неизвестных 7, координат мест 6: мест мало");
    EXPECT_EQ(trouble(places, [](auto& fit) { fit.sigma = 0; }), "погрешность места должна быть больше нуля");
    EXPECT_EQ(trouble(places, [](auto& fit) { fit.bodies = {1, 4}; }), "нет мест объекта № 4");
    EXPECT_NE(trouble(places, [](auto& fit) { fit.parameters = {"Vgrr"}; }).find("не подгоняется: Vgrr"),
              std::string::npos);
    EXPECT_EQ(trouble(places, [](auto& fit) { fit.tell = [](int) { return false; }; }),
              "подгонка остановлена");

    const auto path = t.folder.path() / "places.txt";
    std::ofstream(path) << "# JD body X Y Z\n2378863,5 1 1 2 3\n\n2378862.5 2 -1E3 2 3\n2378862.5 1 4 5 6\n";
    const auto read = readPlaces(path, {1});
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0].r.z, 6000);
    EXPECT_EQ(read[1].JD, 2378863.5);
    for (const char* bad : {"2378862.5 1 4 5", "2378862.5 11 4 5 6", "2378862.5 1 4 5 x", "1 1 1 1 1 1"}) {
        std::ofstream(path) << "2378863.5 1 1 2 3\n" << bad << "\n";
        try {
            readPlaces(path, {1});
            ADD_FAILURE() << bad;
        } catch (const FileFailure& failure) {
            EXPECT_NE(std::string(failure.what()).find("places.txt, строка 2: "), std::string::npos)
                << failure.what();
        }
    }
}

}  // namespace tarvex
