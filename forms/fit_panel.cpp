#include "forms/fit_panel.h"

#include <sstream>

#include "core/number_list.h"

namespace tarvex {

Layout FitPanel::layout() {
    return column(
        {frame("Места", column({row({source(0), source(1), source(2)}), fields(2, {file, every, from, to})})),
         frame("Что подгонять", fields(1, {bodies, parameters, sigma})), row({fit, stop}),
         fields(2, {Vgr, VgrError, VgrLow, chiSquare, freedom}), report});
}

PlaceFitSettings FitPanel::settings() const {
    const double unit = source(2).on() ? 1 / (3600 * kUgol) : 1000;  // of arc seconds or km
    PlaceFitSettings set{
        .bodies = numberList(bodies.text()), .parameters = {}, .sigma = unit * sigma.number()};
    std::istringstream list(parameters.text());
    for (std::string name; std::getline(list, name, ',');) {
        const auto first = name.find_first_not_of(' ');
        if (first != std::string::npos)
            set.parameters.push_back(name.substr(first, name.find_last_not_of(' ') - first + 1));
    }
    return set;
}

void FitPanel::clear() {
    for (TextField* field : {&Vgr, &VgrError, &VgrLow, &chiSquare, &freedom, &report}) field->setText("");
}

void FitPanel::show(const PlaceFit& found) {
    for (const FittedValue& one : found.parameters) {
        if (one.what.name() != "Vgr" || !one.value) continue;
        Vgr.show(cut6(*one.value));
        VgrError.show(cut6(*one.error));
    }
    if (found.lowestVgr) VgrLow.show(cut6(*found.lowestVgr));
    chiSquare.show(cut6(found.chiSquare));
    freedom.show(found.freedom);
    std::string text;
    for (const std::string& line : fitLines(found)) text += (text.empty() ? "" : "\r\n") + line;
    report.setText(text);
}

}  // namespace tarvex
