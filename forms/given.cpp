#include "forms/given.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <limits>

#include "forms/screens.h"
#include "numeric/records.h"

namespace tarvex {

namespace {

// ------------------------------------------------------------------ what is given

std::string sourceWords(const Provenance& p) {
    const std::string name = p.last(Given::Elements).how;
    return name == "файл" ? "из файла № " + std::to_string(p.file) : name == "экран" ? "с экрана" : name;
}

std::string massWords(const Provenance& p) {
    const auto& masses = p.handedOver(Given::Masses);
    const std::string name = masses.how;
    return name == "файл" ? "из файла" : name == "экран" ? "с экрана" : name;
}

std::string lawWords(const RunSettings& set, const Laboratory& lab) {
    if (!set.model)
        return set.boxes.theory == Imitator::New0   ? "имитатор New0"
               : set.boxes.theory == Imitator::JPL2 ? "имитатор JPL2"
                                                    : "имитатор JPL0";
    if (set.relativistic) return "ОТО, Vgr=" + set.gravitySpeed.text() + " Vsv";
    std::string words = "Классика, 1/R^" + set.distanceExponent.text();
    if (!set.finiteGravitySpeed) return words + ", без Vgr";
    words += ", Vgr=" + set.gravitySpeed.text() + " Vsv";
    const Motion& motion = lab.motion;
    if (motion.kodDX != 0) words += fmt::format(", kodDX={}", motion.kodDX);
    if (motion.kodPgr != 0) words += fmt::format(", kodPgr={}", motion.kodPgr);
    if (motion.kodDX != 0 || motion.kodPgr != 0)
        words += fmt::format(" (форма {})", lab.s.provenance.last(Given::Laws).form);
    return words;
}

/// One file that Start begins anew.
std::string fileWords(const DataTree& tree, std::string name) {
    std::error_code none;
    const bool there = std::filesystem::exists(tree.at(name), none);
    std::replace(name.begin(), name.end(), '\\', '/');
    return name.substr(1) + (there ? " (есть, станет .old)" : "");
}

std::string recordWords(const RunSettings& set, const Laboratory& lab) {
    if (!set.boxes.records && !set.boxes.track) return "без записи";
    const int experiment = set.experiment.orElse(-1);
    const int body = lab.s.kodMoon == 1 ? rowMoon : set.body.orElse(-1);
    if (experiment < 0 || body < 0 || body > std::numeric_limits<std::int16_t>::max())
        return "файл не назван";
    std::string words = "файл ";
    if (set.boxes.records)
        words += fileWords(lab.tree, recordFile(set.model, set.boxes.theory, lab.s.NPlan, body, experiment));
    if (set.boxes.records && set.boxes.track) words += ", ";
    if (set.boxes.track) words += fileWords(lab.tree, files::trackXYZ(body, experiment));
    return words;
}

std::string velocityWords(const ModelState& s) {
    if (s.VXsys == 0 && s.VYsys == 0 && s.VZsys == 0) return "";
    return fmt::format("; скорость системы {} {} {} км/с", toText(s.VXsys), toText(s.VYsys), toText(s.VZsys));
}

std::string givenWords(const RunSettings& set, const Laboratory& lab) {
    const ModelState& s = lab.s;
    const Provenance& p = s.provenance;
    const auto& initial = p.last(Given::InitialData);
    return fmt::format(
        "Элементы {} на {}.{}.{}; начальные данные: форма {}{}{}; массы {}; {}{}; {}; {}, эксперимент {}, {}",
        sourceWords(p), toText(p.day), p.month, p.year, initial.form, *initial.how != 0 ? ", " : "",
        initial.how, massWords(p), s.kodMoon == 1 ? "Земля и Луна отдельно" : "Земля с Луной вместе",
        velocityWords(s), lawWords(set, lab), s.NPlan == 0 ? "вне плана" : fmt::format("план № {}", s.NPlan),
        set.experiment.text(), recordWords(set, lab));
}

// ------------------------------------------------------------------ what stands out

struct Moved {
    Given group;
    const char *what, *verb;
};
constexpr Moved movable[] = {
    {Given::InitialData, "начальные данные", "изменила"},  {Given::Masses, "массы", "изменила"},
    {Given::EarthMoon, "режим Земля-Луна", "изменила"},    {Given::Bary, "kodBary", "изменила"},
    {Given::SystemVelocity, "скорость системы", "задала"}, {Given::Plan, "номер плана", "задала"}};

void tellElements(const ModelState& s, bool atRun, std::vector<std::string>& all) {
    const Provenance& p = s.provenance;
    if (!p.complete) all.emplace_back("загрузка на форме 1 не закончена");
    const auto measured = p.measuredElements(s);
    if (!atRun) {
        if (p.moved(s, Given::Elements))
            all.push_back(
                fmt::format("элементы после загрузки изменила форма {}", p.last(Given::Elements).form));
    } else if (measured == Provenance::Measured::ByNone) {
        all.emplace_back("элементы не переданы («К моделированию»), измерять не по чему");
    } else if (measured == Provenance::Measured::ByOthers) {
        all.emplace_back("измерение по другим элементам, чем загружены («К моделированию»)");
    }
    if (p.handedOver(Given::InitialData).order < p.handedOver(Given::Elements).order)
        all.emplace_back("начальные данные старше загруженных элементов");
}

std::vector<std::string> outstanding(Laboratory& lab, bool atRun) {
    const ModelState& s = lab.s;
    std::vector<std::string> all;
    tellElements(s, atRun, all);
    for (const Moved& one : movable)
        if (s.provenance.moved(s, one.group))
            all.push_back(
                fmt::format("{} {} форма {}", one.what, one.verb, s.provenance.last(one.group).form));
    const auto* const screen = loadedScreen<ElementsScreen>(lab.desk);
    if (screen == nullptr) return all;
    if (const auto words = screen->notLoaded(); !words.empty())
        all.push_back(fmt::format("на форме 1 не загружено: {}", fmt::join(words, ", ")));
    return all;
}

}  // namespace

void showGiven(Laboratory& lab, Label& label, bool atRun) noexcept {
    try {
        const auto* const runScreen = loadedScreen<RunScreen>(lab.desk);
        const RunSettings set = runScreen != nullptr ? runScreen->settings() : RunSettings{};
        const auto warnings = outstanding(lab, atRun);
        std::string text = givenWords(set, lab);
        if (!warnings.empty()) text += fmt::format(". ВНИМАНИЕ: {}", fmt::join(warnings, "; "));
        if (text != label.caption()) label.setCaption(std::move(text));
        label.setWarning(!warnings.empty());
    } catch (const std::exception& failure) {  // a path that cannot be looked at, no memory
        label.setCaption(failure.what());
    }
}

}  // namespace tarvex
