#include "forms/planet_perturbations_form.h"

#include "theories/perturbations.h"

namespace tarvex {

namespace {

constexpr std::array<const char*, perturbationTerms + 1> arguments = {
    "",           "sin(L-2*D)", "sin(2*D)", "sin(D)", "sin(L1)", "sin(2*D-2*L)", "sin(2*D-L-L1)",
    "sin(2*D+L)", "sin(L1-2*D)"};
constexpr std::array<const char*, perturbedBodies + 1> planets = {"", "Меркурий", "Венера", "Земля", "Марс"};

/// Index of the field of a term for the perturbing body r.
int cell(int body, int r, int k) { return body * 10 + k + (r == 2 ? 40 : 0); }

std::vector<int> cells() {
    std::vector<int> all;
    for (int r = 1; r <= 2; ++r)
        for (int body = 1; body <= perturbedBodies; ++body)
            for (int k = 1; k <= perturbationTerms; ++k) all.push_back(cell(body, r, k));
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

PlanetPerturbationsForm::PlanetPerturbationsForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Возмущения планет dL  Tarvex7m - форма 22"),
      Text1(this, cells(), cellSpec),
      lab(lab_) {
    const Shown badData = orShow("Введите правильно данные", "Tarvex7");
    Command1.onPress([this] { takeFields(); }, badData);
    Command2.onPress([this] { close(); });
    Command3.onPress([this] { loadFile(); }, badData);
    Command4.onPress([this] { saveFile(); }, badData);

    std::vector<Layout> rows = {"", "тело"};
    for (int k = 1; k <= perturbationTerms; ++k) rows.emplace_back(arguments[k]);
    const std::array<TextField*, 9> perturbers = {nullptr, &Text4, &Text5, &Text2, &Text3,
                                                  &Text6,  &Text7, &Text8, &Text9};
    for (int body = 1; body <= perturbedBodies; ++body)
        for (int r = 1; r <= 2; ++r) {
            rows.emplace_back(r == 1 ? planets[body] : "");
            rows.emplace_back(*perturbers[2 * body - 2 + r]);
            for (int k = 1; k <= perturbationTerms; ++k) rows.emplace_back(Text1(cell(body, r, k)));
        }
    layout_ = column({
        frame("Амплитуды, градусы", table(2 + perturbationTerms, rows)),
        frame("Обозначения", column({"L = AlfaL(Ipl) - AlfaP(Ipl)", "D = AlfaL(Ipl) - AlfaL(Ipl2)",
                                     "Ipl - планета, Ipl2 - возмущающее тело этой строки; L1 - его L"})),
        row({Command1, Command3, Command4, Text10, Command2, stretch()}),
    });
}

void PlanetPerturbationsForm::load() {
    for (const int i : cells()) Text1(i).show(0);
    Command3.press();
    Command1.press();
}

/// kLp from the fields, and the perturbing bodies.
void PlanetPerturbationsForm::takeFields() {
    ModelState& s = lab.s;
    for (int body = 1; body <= perturbedBodies; ++body)
        for (int k = 1; k <= perturbationTerms; ++k)
            for (int r = 1; r <= 2; ++r) s.kLp[r][body * 10 + k] = Text1(cell(body, r, k)).number();
    const auto pair = [&s](int body, const TextField& first, const TextField& second) {
        s.Ipert1[body] = first.int32();
        s.Ipert2[body] = second.int32();
    };
    pair(1, Text4, Text5);
    pair(2, Text2, Text3);
    pair(3, Text6, Text7);
    pair(4, Text8, Text9);
}

void PlanetPerturbationsForm::loadFile() {
    readPlanetPerturbations(lab.s, lab.tree.at(files::perturbations(Text10.int16())));
    for (int body = 1; body <= perturbedBodies; ++body)
        for (int k = 1; k <= perturbationTerms; ++k)
            for (int r = 1; r <= 2; ++r) Text1(cell(body, r, k)).show(lab.s.kLp[r][body * 10 + k]);
}

void PlanetPerturbationsForm::saveFile() {
    takeFields();
    writePlanetPerturbations(lab.s, lab.tree.at(files::perturbations(Text10.int16())));
    takeFields();  // the values unscaled again; after a failure kLp stays scaled
}

}  // namespace tarvex
