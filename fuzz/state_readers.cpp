// Readers of the model's own files: parameters, ephemeris, perturbations, pulsar.
#include "fuzz/target.h"
#include "initial/parameter_file.h"
#include "numeric/pulsar_file.h"
#include "theories/ephemeris.h"
#include "theories/perturbations.h"

namespace tarvex::fuzz {

namespace {

constexpr double dateOf1960 = 2436920.5;  ///< lies in the first record of ascp1960.405

void expectState(const ModelState& s) {
    for (const Rows* row :
         {&s.AlfaL, &s.R0sr, &s.W0sr, &s.Eks0, &s.Betta0, &s.AlfaP0, &s.AlfaU0, &s.X0, &s.Y0, &s.Z0, &s.VX0,
          &s.VY0,   &s.VZ0,  &s.X,    &s.Y,    &s.Z,      &s.VX,     &s.VY,     &s.VZ, &s.m,  &s.km})
        expectAllFinite(*row, "the state");
}

const Target parameters("parameters", [](std::string_view input) {
    put(files::parameters(1), input);
    ModelState s;
    ParameterReader reader(tree(), 1);
    reader.date(s);
    reader.bodies(s, [](int) {});
    expectState(s);
    writeParameters(s, tree(), 2);
    expectNumbers(fetch(files::parameters(2)), "a parameter file");
});

const Target ephemeris("ephemeris", [](std::string_view input) {
    put(files::ephemeris(1960), input);
    ModelState s;
    Ephemeris e(tree());
    s.JD = dateOf1960;
    DEOpen(s, e);
    for (int body = 0; body <= 11; ++body) DEEvaluate(s, e, body, 1);
    e.JDjpl += 32;
    DESeek(s, e);
    expectState(s);
});

const Target perturbations("perturbations", [](std::string_view input) {
    put(files::perturbations(2), input);
    ModelState s;
    readPlanetPerturbations(s, tree().at(files::perturbations(2)));
    expectAllFinite(s.kLp, "an amplitude");
});

const Target pulsar("pulsar", [](std::string_view input) {
    put(files::pulsar(1), input);
    const PulsarData d = readPulsar(tree().at(files::pulsar(1)));
    for (const double value : {d.m1, d.m2, d.Eks, d.AlfaP, d.Betta, d.Rsr, d.P0})
        expectFinite(value, "a pulsar");
    writePulsar(tree().at(files::pulsar(2)), d);
    expectNumbers(fetch(files::pulsar(2)), "a pulsar file");
});

}  // namespace

}  // namespace tarvex::fuzz
