#include "forms/planet_perturbations_controls.h"

#include <array>
#include <string>
#include <vector>

#include "forms/screens.h"
#include "theories/perturbations.h"

namespace tarvex {

namespace {

constexpr std::array<const char*, perturbationTerms + 1> arguments = {
    "",           "sin(L-2*D)", "sin(2*D)", "sin(D)", "sin(L1)", "sin(2*D-2*L)", "sin(2*D-L-L1)",
    "sin(2*D+L)", "sin(L1-2*D)"};
constexpr std::array<const char*, perturbedBodies + 1> planets = {"", "Меркурий", "Венера", "Земля", "Марс"};

std::vector<int> cells() {
    std::vector<int> all;
    for (int r = 1; r <= 2; ++r)
        for (int body = 1; body <= perturbedBodies; ++body)
            for (int k = 1; k <= perturbationTerms; ++k)
                all.push_back(PlanetPerturbationsControls::cell(body, r, k));
    return all;
}

TextField::Spec cellSpec(int index) {
    const int r = index > 50 ? 2 : 1, k = index % 10, body = index / 10 - (r == 2 ? 4 : 0);
    return {.name = "Text1",
            .text = "0",
            .hint = std::string(planets[body]) + ": амплитуда члена " + arguments[k] +
                    (r == 1 ? " от первого" : " от второго") + " возмущающего тела, градусы; идет в kLp(" +
                    std::to_string(r) + "," + std::to_string(body * 10 + k) + ")",
            .width = 9};
}

}  // namespace

PlanetPerturbationsControls::PlanetPerturbationsControls(Desk& desk)
    : Form(desk, PlanetPerturbationsScreen::formName, "Возмущения планет dL  Tarvex7m - форма 22"),
      amplitude(this, cells(), cellSpec) {
    layOut();
}

void PlanetPerturbationsControls::layOut() {
    std::vector<Layout> rows = {"", "тело"};
    for (int k = 1; k <= perturbationTerms; ++k) rows.emplace_back(arguments[k]);
    const std::array<TextField*, 9> perturbers = {nullptr,          &mercuryPerturber1, &mercuryPerturber2,
                                                  &venusPerturber1, &venusPerturber2,   &earthPerturber1,
                                                  &earthPerturber2, &marsPerturber1,    &marsPerturber2};
    for (int body = 1; body <= perturbedBodies; ++body)
        for (int r = 1; r <= 2; ++r) {
            rows.emplace_back(r == 1 ? planets[body] : "");
            rows.emplace_back(*perturbers[2 * body - 2 + r]);
            for (int k = 1; k <= perturbationTerms; ++k) rows.emplace_back(amplitude(cell(body, r, k)));
        }
    layout_ = column({
        frame("Амплитуды, градусы", table(2 + perturbationTerms, rows)),
        frame("Обозначения", column({"L = AlfaL(Ipl) - AlfaP(Ipl)", "D = AlfaL(Ipl) - AlfaL(Ipl2)",
                                     "Ipl - планета, Ipl2 - возмущающее тело этой строки; L1 - его L"})),
        row({setCoefficients, loadAmplitudes, saveAmplitudes, fileNumber, closeForm, stretch()}),
    });
}

}  // namespace tarvex
