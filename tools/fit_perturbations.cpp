// Fits the amplitudes of the periodic terms of Mercury, Venus, the Earth and Mars, and writes them as
// \Dat\dL1.dat.
//
// usage: tarvex-fit-terms DATA_FOLDER       (needs JPL\ascp1960.405 ... of tools/prepare_ephemeris)
//
// For each body: the heliocentric ecliptic longitude J2000 by DE405 less that of the Ser0 theory, every 5
// days from 1960 to 2059, by linear least squares on the sixteen terms of its two perturbing bodies, with a
// constant and a rate beside them that are not kept: they belong to the secular theory.  The terms come from
// the routine that applies them.

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

#include "core/arithmetic.h"
#include "core/data_tree.h"
#include "core/model_state.h"
#include "reduction/theory_places.h"
#include "theories/elements.h"
#include "theories/ephemeris.h"
#include "theories/geometry.h"
#include "theories/perturbations.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

constexpr double firstDate = 2436934.5, lastDate = 2473459.5, step = 5;
constexpr int unknowns = 2 * perturbationTerms + 2;
using Row = std::array<double, unknowns>;

/// Ecliptic longitude of a body seen from the Sun by the ephemeris, degrees; the Earth with the Moon.
double longitudeByEphemeris(ModelState& s, Ephemeris& e, int body) {
    e.JDjpl = s.JD;
    DESeek(s, e);
    DEEvaluate(s, e, 0, 1);
    DEEvaluate(s, e, body, 1);
    PairGeometry(s, 0, body);
    return s.LonPl[body];
}

double longitudeByTheory(ModelState& s, int body) {
    s.X[0] = s.Y[0] = s.Z[0] = 0;
    for (s.Ipl = 1; s.Ipl <= 9; ++s.Ipl) ElementsSer0Plus(s);  // as the reduction leaves them for the terms
    s.Ipl = static_cast<std::int16_t>(body);
    ElementsSer0(s);
    ElementsToXYZ(s);
    PairGeometry(s, 0, body);
    return s.LonPl[body];
}

/// The sixteen terms with amplitude 1, a constant and the time in centuries.
Row termsOf(ModelState& s, int body) {
    Row row{};
    for (int i = 0; i < 2 * perturbationTerms; ++i) {
        for (int r = 1; r <= 2; ++r)
            for (int k = 1; k <= perturbationTerms; ++k) s.kLp[r][k] = 0;
        s.kLp[1 + i / perturbationTerms][1 + i % perturbationTerms] = 1;
        s.Lpl[body] = 0;
        PlanetPerturbFromColumns(s, body);
        row[i] = s.Lpl[body];
    }
    row[unknowns - 2] = 1;
    row[unknowns - 1] = (s.JD - JD2000) / 36525;
    return row;
}

/// Solves the normal equations by elimination with the largest pivot.
Row solve(std::array<Row, unknowns> A, Row b) {
    for (int c = 0; c < unknowns; ++c) {
        int best = c;
        for (int r = c; r < unknowns; ++r)
            if (std::abs(A[r][c]) > std::abs(A[best][c])) best = r;
        std::swap(A[c], A[best]);
        std::swap(b[c], b[best]);
        for (int r = 0; r < unknowns; ++r) {
            if (r == c) continue;
            const double f = ratio(A[r][c], A[c][c]);
            for (int j = c; j < unknowns; ++j) A[r][j] -= f * A[c][j];
            b[r] -= f * b[c];
        }
    }
    for (int c = 0; c < unknowns; ++c) b[c] /= A[c][c];
    return b;
}

void fitBody(ModelState& s, Ephemeris& e, int body) {
    std::vector<Row> rows;
    std::vector<double> residuals;
    for (s.JD = firstDate; s.JD < lastDate; s.JD += step) {
        const double observed = longitudeByEphemeris(s, e, body);
        residuals.push_back(std::remainder(observed - longitudeByTheory(s, body), 360.0));
        rows.push_back(termsOf(s, body));
    }
    std::array<Row, unknowns> A{};
    Row b{};
    for (std::size_t n = 0; n < rows.size(); ++n)
        for (int i = 0; i < unknowns; ++i) {
            b[i] += rows[n][i] * residuals[n];
            for (int j = 0; j < unknowns; ++j) A[i][j] += rows[n][i] * rows[n][j];
        }
    const Row x = solve(A, b);
    double before = 0, after = 0;
    for (std::size_t n = 0; n < rows.size(); ++n) {
        double left = residuals[n];
        for (int i = 0; i < 2 * perturbationTerms; ++i) left -= x[i] * rows[n][i];
        before += residuals[n] * residuals[n];
        after += left * left;
    }
    const auto rms = [&](double sum) { return 3600 * std::sqrt(sum / static_cast<double>(rows.size())); };
    std::printf("body %d: rms %.2f -> %.2f arc seconds\n", body, rms(before), rms(after));
    for (int i = 0; i < 2 * perturbationTerms; ++i)
        s.kLp[1 + i / perturbationTerms][body * 10 + 1 + i % perturbationTerms] = x[i];
}

}  // namespace

}  // namespace tarvex

int main(int argc, char** argv) {
    using namespace tarvex;
    if (argc != 2) {
        std::fputs("usage: tarvex-fit-terms DATA_FOLDER\n", stderr);
        return 2;
    }
    try {
        const DataTree tree(argv[1]);
        ModelState s;
        s.Ipert1 = {0, 2, 3, 2, 3};  // the pairs that Form22 opens with
        s.Ipert2 = {0, 5, 5, 5, 5};
        Ephemeris e(tree);
        s.JD = firstDate;
        DEOpen(s, e);
        for (int body = 1; body <= perturbedBodies; ++body) fitBody(s, e, body);
        writePlanetPerturbations(s, tree.at(files::perturbations(1)));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tarvex-fit-terms: %s\n", failure.what());
        return 1;
    }
    return 0;
}
