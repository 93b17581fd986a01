#include "forms/moon_perturbations_controls.h"

#include <string>
#include <vector>

#include "theories/perturbations.h"

namespace tarvex {

namespace {

const MoonTerm& termOf(int n) { return moonTerms[n <= 16 ? n - 1 : n - 9]; }

std::vector<int> termNumbers() {
    std::vector<int> numbers;
    numbers.reserve(std::size(moonTerms));
    for (const MoonTerm& term : moonTerms) numbers.push_back(term.n);
    return numbers;
}

}  // namespace

MoonPerturbationsControls::MoonPerturbationsControls(Desk& desk)
    : Form(desk, formName, "Возмущения  Луны dLdB   Tarvex7m - форма 21"),
      termTaken(this, termNumbers(),
                [](int n) {
                    return CheckBox::Spec{.name = "Check1",
                                          .caption = termOf(n).caption,
                                          .on = termOf(n).taken,
                                          .hint = "Учитывать этот член; неотмеченный равен 0"};
                }),
      amplitude(this, termNumbers(), [](int n) {
          const bool latitude = n >= 11 && n <= 16;
          return TextField::Spec{.name = "Text1",
                                 .hint = std::string("Амплитуда члена ") + termOf(n).argument +
                                         (latitude ? " в широте" : " в долготе") +
                                         " Луны, градусы; идет в kLl(" + std::to_string(n) + ")",
                                 .width = 9};
      }) {
    layOut();
}

void MoonPerturbationsControls::layOut() {
    const auto group = [this](int from, int to) {
        std::vector<Layout> cells;
        for (int n = from; n <= to; ++n) {
            cells.emplace_back(termTaken(n));
            cells.emplace_back(amplitude(n));
            cells.emplace_back(termOf(n).argument);
        }
        return table(3, cells);
    };
    layout_ = column({
        row({frame("Долгота, градусы", group(1, 10)),
             column({frame("Широта, градусы", group(11, 16)), frame("Долгота, градусы", group(25, 28))})}),
        frame("Обозначения",
              column({"L = AlfaL(Ipl) - AlfaP(Ipl)", "Ls = AlfaL(Ipl2) - AlfaP(Ipl2)",
                      "F = AlfaL(Ipl) - AlfaU(Ipl)", "D = AlfaL(Ipl) - AlfaL(Ipl2)", " для Луны Ipl2=0"})),
        row({setCoefficients, closeForm, stretch()}),
    });
}

}  // namespace tarvex
