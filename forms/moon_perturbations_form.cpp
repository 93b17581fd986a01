#include "forms/moon_perturbations_form.h"

#include "theories/perturbations.h"

namespace tarvex {

MoonPerturbationsForm::MoonPerturbationsForm(Laboratory& lab_)
    : MoonPerturbationsControls(lab_.desk), lab(lab_) {
    setCoefficients.onPress(
        [this] {
            for (const MoonTerm& term : moonTerms) {
                lab.s.kLl[term.n] = 0;
                if (termTaken(term.n).on()) lab.s.kLl[term.n] = amplitude(term.n).number();
            }
        },
        orShow("Введите правильно номер объекта на форме 10", "Tarvex7"));
    closeForm.onPress([this] { close(); });
}

void MoonPerturbationsForm::load() {
    for (const MoonTerm& term : moonTerms) amplitude(term.n).show(term.amplitude);
    setCoefficients.press();
}

}  // namespace tarvex
