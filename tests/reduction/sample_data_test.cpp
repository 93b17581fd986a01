// The data that come with the laboratory: sample observations and amplitudes of periodic terms made from
// DE405, and the Sun of the Almagest.

#include "core/calendar.h"
#include "reduction/reduction_run.h"
#include "reduction/theory_places.h"
#include "tests/support/ephemeris_files.h"
#include "theories/ephemeris.h"
#include "theories/perturbations.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

using Vector = std::array<double, 3>;
double dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
Vector cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// The reduction of the sample files.
struct Samples : ::testing::Test {
    Samples() {
        s.gamma = 6.67259e-11;
        s.NameData = "SUMM";
        c.tables = false;
        c.nutation = true;
        s.God0 = 1960;
        r.GodK = 2059;
    }

    void open(int body) {
        s.IplSel = static_cast<std::int16_t>(body);
        r.header = r.file.open(tree.at(observationFileName("SUMM", body, "100", "")), "SUMM").text;
        s.JDepoha = 0;
    }
    void run(ReductionView& view) {
        startReduction(all);
        ReductionRun(all, view);
    }
    /// Root mean square of dL, arc seconds, for a whole file.
    double longitudeError(int body) {
        open(body);
        ReductionView view;
        run(view);
        return r.criterion[2][2][0];
    }

    DataTree tree{test::ephemerisFolder().parent_path()};
    ModelState s;
    ReductionState r;
    PlanBlock plan;
    Reduction all{s, r, plan, tree};
    ReductionChoices& c = r.choices;
};

/// Puts the orbit that osculates the ephemeris at each observation in the place of the plan's elements.
class OsculatingOrbit final : public ReductionView {
public:
    OsculatingOrbit(ModelState& s_, PlanBlock& plan_, const DataTree& tree) : s(s_), plan(plan_), e(tree) {}

    void dateRead() override {
        if (!e.file) DEOpen(s, e);
        s.JDepoha = s.JD;
        // ET-UT of the files, which is not that of the reduction
        const double t = (s.JD - 2451544.5) / 365.25;
        const double later = -0.060374 + t * (0.0017275 + t * (0.000651814 + t * 0.00002373599));
        e.JDjpl = s.JD + (63.86 + t * (0.3345 + t * later)) / sekD;
        DESeek(s, e);
        InitMassesSer0(s);
        const bool moon = s.IplSel == rowMoon;
        const Vector r = place(moon), v = speed;
        elements(r, v, s.gamma * s.m[moon ? int{rowEarth} : int{rowSun}]);
    }

private:
    /// From the Sun to the Earth and Moon, or from the Earth to the Moon; leaves the speed too.
    Vector place(bool moon) {
        const int b = moon ? rowMoon : rowEarthMoon;
        DEEvaluate(s, e, b, 1);
        if (moon)
            s.X[0] = s.Y[0] = s.Z[0] = s.VX[0] = s.VY[0] = s.VZ[0] = 0;
        else
            DEEvaluate(s, e, rowSun, 1);
        speed = {s.VX[b] - s.VX[0], s.VY[b] - s.VY[0], s.VZ[b] - s.VZ[0]};
        return {s.X[b] - s.X[0], s.Y[b] - s.Y[0], s.Z[b] - s.Z[0]};
    }

    void elements(const Vector& r, const Vector& v, double mu) {
        const double R = std::sqrt(dot(r, r));
        const Vector h = cross(r, v), vh = cross(v, h);
        Vector ex{};
        for (int i = 0; i < 3; ++i) ex[i] = vh[i] / mu - r[i] / R;
        const double ecc = std::sqrt(dot(ex, ex)), a = 1 / (2 / R - dot(v, v) / mu);
        const double node = std::atan2(h[0], -h[1]), tilt = std::atan2(std::hypot(h[0], h[1]), h[2]);
        const Vector n = {std::cos(node), std::sin(node), 0};
        const double H = std::sqrt(dot(h, h));
        const Vector across = cross({h[0] / H, h[1] / H, h[2] / H}, n);
        const double peri = node + std::atan2(dot(ex, across), dot(ex, n));
        const double E = std::atan2(dot(r, v) / std::sqrt(mu * a), 1 - R / a);
        const double L = peri + E - ecc * std::sin(E);
        const double values[] = {a, ecc, tilt * kUgol, peri * kUgol, node * kUgol, 0, L * kUgol, 0, 0};
        for (int i = 1; i <= 9; ++i) plan.XU[i][0] = values[i - 1];
    }

    ModelState& s;
    PlanBlock& plan;
    Ephemeris e;
    Vector speed{};
};

}  // namespace

// With the orbit of DE405 itself only the error of 0.3 arc seconds that the files were given is left, and
// what the nutation leaves out: every correction of the chain has the right size, sign and order.
TEST_F(Samples, WithTheOrbitOfDE405OnlyTheErrorOfTheFilesIsLeft) {
    c.planet = PlanetTheory::Plan;
    s.God0 = 1986;  // the years for which the orbit below knows ET-UT
    r.GodK = 2004;
    for (const int body : {0, 11}) {
        OsculatingOrbit orbit(s, plan, tree);
        open(body);
        run(orbit);
        EXPECT_GT(r.NObs, 1300);
        EXPECT_NEAR(r.criterion[3][2][0], 0.3, 0.02) << body;
        EXPECT_NEAR(r.criterion[2][2][0], 0.33, 0.02) << body << ": wider by the cosine of the declination";
        EXPECT_NEAR(r.sumL / r.NObs * 3600, 0, 0.05) << body;
        EXPECT_NEAR(r.sumB / r.NObs * 3600, 0, 0.05) << body;
    }
}

// A theory is as far off as is known of it, and the periodic terms of dL1.dat bring it nearer.
TEST_F(Samples, ThePeriodicTermsThatComeWithThemBringTheTheoriesNearer) {
    struct Case {
        int body;
        double known;  ///< largest root mean square, arc seconds, that the theory JPL0 is known to reach
        double gain;   ///< least part of the error of Ser0 that the terms take away
    };
    for (const auto& [body, known, gain] : {Case{0, 12, 0.4}, {1, 12, 0.4}, {2, 15, 0.25}, {4, 40, 0.25}}) {
        SCOPED_TRACE(body);
        c.earth = EarthTheory::JPL0;
        c.planet = PlanetTheory::JPL0;
        c.planetTerms = c.earthMoonTerms = false;
        const double without = longitudeError(body);
        EXPECT_LT(without, known);
        EXPECT_GT(without, 5) << "more than the error of the places alone";

        c.earth = EarthTheory::Ser0;
        c.planet = PlanetTheory::Ser0;
        const double plain = longitudeError(body);
        readPlanetPerturbations(s, tree.at(files::perturbations(1)));
        s.Ipert1 = {0, 2, 3, 2, 3};
        s.Ipert2 = {0, 5, 5, 5, 5};
        c.earthMoonTerms = true;
        c.planetTerms = body != rowSun;
        EXPECT_LT(longitudeError(body), (1 - gain) * plain);
    }
}

// Ptolemy's year is too long by six minutes, so his mean Sun falls behind by 0.43 degrees a century, of
// which the slowing rotation of the Earth takes 0.02.
TEST_F(Samples, TheSunOfTheAlmagestIsAsFarOffAsItIsKnownToBe) {
    if (!SpreadsheetOffice::available()) GTEST_SKIP() << "built without LibreOffice";
    SpreadsheetOffice office;
    openTable(r.table, 4, office, tree);
    s.IplSel = 0;
    c.tables = true;
    c.nutation = false;
    c.earth = EarthTheory::JPL0;
    r.kodKalendTab = 2;
    r.TimeZoneTab = 12;
    s.ObsL = 29.9;
    s.DtCur = 36.5;
    r.GodK = 2000;
    struct TenDates final : ReductionView {
        explicit TenDates(ModelState& s_, ReductionState& r_) : s(s_), r(r_) {}
        void accepted() override {
            largest = std::max(largest, std::abs(r.dL));
            if (r.NObs == 10) s.kodStop = 1;
        }
        ModelState& s;
        ReductionState& r;
        double largest = 0;
    };
    struct Case {
        int year;     ///< of Nabonassar
        double mean;  ///< error of the Almagest over a year, degrees
    };
    // the days of the epoch, of Meton, of Hipparchus, who found the theory, and of Ptolemy, who kept it
    for (const auto& [year, mean] : {Case{1, 2.55}, {316, 1.26}, {607, 0.06}, {884, -1.09}}) {
        SCOPED_TRACE(year);
        s.kodKalend = 2;
        s.TimeZone = 12;
        s.JDepoha = JDfromDate(s, 1, 1, year);
        s.kodStop = 0;
        TenDates view(s, r);
        run(view);
        EXPECT_NEAR(-r.sumL / r.NObs, mean, 0.05);
        EXPECT_LT(view.largest, std::abs(mean) + 0.45) << "his eccentricity is too large by a fifth";
        EXPECT_GT(view.largest, std::abs(mean) + 0.3);
        EXPECT_LT(std::abs(s.Bpl[0]), 1e-12);
    }
    // what the book does not have is no zero
    s.IplSel = 11;
    s.kodStop = 0;
    ReductionView view;
    EXPECT_THROW(run(view), Refusal);
}

}  // namespace tarvex
