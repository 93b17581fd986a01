#include "forms/planet_perturbations_form.h"

#include "theories/perturbations.h"

namespace tarvex {

PlanetPerturbationsForm::PlanetPerturbationsForm(Laboratory& lab_)
    : PlanetPerturbationsControls(lab_.desk), lab(lab_) {
    const Shown badData = orShow("Введите правильно данные", "Tarvex7");
    setCoefficients.onPress([this] { takeFields(); }, badData);
    closeForm.onPress([this] { close(); });
    loadAmplitudes.onPress([this] { loadFile(); }, badData);
    saveAmplitudes.onPress([this] { saveFile(); }, badData);
}

void PlanetPerturbationsForm::load() {
    for (int body = 1; body <= perturbedBodies; ++body)
        for (int k = 1; k <= perturbationTerms; ++k)
            for (int r = 1; r <= 2; ++r) amplitude(cell(body, r, k)).show(0);
    loadAmplitudes.press();
    setCoefficients.press();
}

/// kLp from the fields, and the perturbing bodies.
void PlanetPerturbationsForm::takeFields() {
    ModelState& s = lab.s;
    for (int body = 1; body <= perturbedBodies; ++body)
        for (int k = 1; k <= perturbationTerms; ++k)
            for (int r = 1; r <= 2; ++r) s.kLp[r][body * 10 + k] = amplitude(cell(body, r, k)).number();
    const auto pair = [&s](int body, const TextField& first, const TextField& second) {
        s.Ipert1[body] = first.int32();
        s.Ipert2[body] = second.int32();
    };
    pair(1, mercuryPerturber1, mercuryPerturber2);
    pair(2, venusPerturber1, venusPerturber2);
    pair(3, earthPerturber1, earthPerturber2);
    pair(4, marsPerturber1, marsPerturber2);
}

void PlanetPerturbationsForm::loadFile() {
    readPlanetPerturbations(lab.s, lab.tree.at(files::perturbations(fileNumber.int16())));
    for (int body = 1; body <= perturbedBodies; ++body) showAmplitudes(body);
}

void PlanetPerturbationsForm::showAmplitudes(int body) {
    for (int k = 1; k <= perturbationTerms; ++k)
        for (int r = 1; r <= 2; ++r) amplitude(cell(body, r, k)).show(lab.s.kLp[r][body * 10 + k]);
}

void PlanetPerturbationsForm::saveFile() {
    takeFields();
    writePlanetPerturbations(lab.s, lab.tree.at(files::perturbations(fileNumber.int16())));
    takeFields();  // the values unscaled again; after a failure kLp stays scaled
}

}  // namespace tarvex
