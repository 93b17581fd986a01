#include "theories/perturbations.h"

#include "core/arithmetic.h"
#include "core/text_files.h"

namespace tarvex {

namespace {

constexpr std::array<const char*, perturbedBodies + 1> names = {"", "Меркурий", "Венера", "Земля", "Марс"};

/// Runs an action with every cell of the table, in the order of the file.
template <class Table, class AtBody, class AtCell>
void forEachCell(Table& table, AtBody atBody, AtCell atCell) {
    for (int body = 1; body <= perturbedBodies; ++body) {
        atBody(body);
        for (int r = 1; r <= 2; ++r)
            for (int k = 1; k <= perturbationTerms; ++k) atCell(table[r][body * 10 + k]);
    }
}

}  // namespace

void readPlanetPerturbations(ModelState& s, const std::filesystem::path& path) {
    TextReader in(path);
    auto table = s.kLp;
    forEachCell(
        table,
        [&in](int body) {
            if (body > 1) in.line();  // what is left of the last line of numbers
            in.line();                // the name
        },
        [&in](double& cell) { cell = in.number() / MK; });
    s.kLp = table;
}

void writePlanetPerturbations(ModelState& s, const std::filesystem::path& path) {
    forEachCell(
        s.kLp, [](int) {}, [](double& cell) { cell = finite(Fix(MK * cell)); });
    TextWriter out(path);
    for (int body = 1; body <= perturbedBodies; ++body) {
        out.line(names[body]);
        for (int r = 1; r <= 2; ++r) {
            const double* c = &s.kLp[r][body * 10];
            out.items(c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
        }
    }
    out.commit();
}

}  // namespace tarvex
