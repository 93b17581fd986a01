#include "forms/moon_perturbations_form.h"

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

MoonPerturbationsForm::MoonPerturbationsForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Возмущения  Луны dLdB   Tarvex7m - форма 21"),
      Check1(this, termNumbers(),
             [](int n) {
                 return CheckBox::Spec{.name = "Check1",
                                       .caption = termOf(n).caption,
                                       .on = termOf(n).taken,
                                       .hint = "Учитывать этот член; неотмеченный равен 0"};
             }),
      Text1(this, termNumbers(),
            [](int n) {
                const bool latitude = n >= 11 && n <= 16;
                return TextField::Spec{.name = "Text1",
                                       .hint = std::string("Амплитуда члена ") + termOf(n).argument +
                                               (latitude ? " в широте" : " в долготе") +
                                               " Луны, градусы; идет в kLl(" + std::to_string(n) + ")",
                                       .width = 9};
            }),
      lab(lab_) {
    Command1.onPress(
        [this] {
            for (const MoonTerm& term : moonTerms) {
                lab.s.kLl[term.n] = 0;
                if (Check1(term.n).on()) lab.s.kLl[term.n] = Text1(term.n).number();
            }
        },
        orShow("Введите правильно номер объекта на форме 10", "Tarvex7"));
    Command2.onPress([this] { close(); });

    const auto group = [this](int from, int to) {
        std::vector<Layout> cells;
        for (int n = from; n <= to; ++n) {
            cells.emplace_back(Check1(n));
            cells.emplace_back(Text1(n));
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
        row({Command1, Command2, stretch()}),
    });
}

void MoonPerturbationsForm::load() {
    for (const MoonTerm& term : moonTerms) Text1(term.n).show(term.amplitude);
    Command1.press();
}

}  // namespace tarvex
