#include "forms/laboratory.h"

namespace tarvex {

Laboratory::Laboratory(Screen& screen, std::filesystem::path dataRoot)
    : tree(std::move(dataRoot)), desk(screen) {
    s.say = [this](const std::string& text, const std::string& title) { desk.message(text, title); };
    addNames(names, s);
    addNames(names, plan);
    addNames(names, reduction);
    addNames(names, motion);
    addNames(names, run);
    addNames(names, series);
    addNames(names, shifts);
    addNames(names, ephemeris);
    addNames(names, orbitCheck);
    addForms(*this);
}

Laboratory::~Laboratory() = default;

}  // namespace tarvex
