#include "forms/laboratory.h"

#include "forms/help_pages.h"
#include "forms/session_steps.h"

namespace tarvex {

namespace {

/// Takes a copy of what a calculation that goes on reads, but not of what only the form that is opened needs:
/// the tables of perturbations and of ET-UT (they stay as well while nobody reduces observations or seeks
/// eclipses), and the folder of its data.  A plan is copied while its experiments run.
std::function<void()> keepForCalculations(Laboratory& lab) {
    const bool reduces = lab.desk.calculating("Form10") || lab.desk.calculating("Form16");
    const bool plans = lab.desk.calculating("Form10") || lab.desk.calculating("Form15");
    return [&lab, reduces, plans, s = lab.s, plan = lab.plan]() mutable {
        s.TipData = lab.s.TipData;
        s.Rpl = lab.s.Rpl;
        if (!reduces) {
            s.kLl = lab.s.kLl;
            s.kLp = lab.s.kLp;
            s.Ipert1 = lab.s.Ipert1;
            s.Ipert2 = lab.s.Ipert2;
            s.kET = lab.s.kET;
            s.JDt01 = lab.s.JDt01;
            s.JDt02 = lab.s.JDt02;
        }
        lab.s = s;
        if (plans) lab.plan = plan;
    };
}

}  // namespace

Laboratory::Laboratory(Screen& screen, std::filesystem::path dataRoot)
    : tree(std::move(dataRoot)), desk(screen), session(desk, sessionSteps()) {
    desk.nameFilesFrom((tree.root() / "").string());
    s.say = [this](const Message& told) { desk.tell(told); };
    addNames(names, s);
    addNames(names, plan);
    addNames(names, reduction);
    addNames(names, motion);
    addNames(names, run);
    addNames(names, series);
    addNames(names, shifts);
    addNames(names, answer);
    addNames(names, ephemeris);
    addNames(names, orbitCheck);
    desk.onActed([this](const std::string& form) {
        if (!form.empty()) s.provenance.attribute(s, formNumber(form));
    });
    desk.keepForCalculations([this] { return keepForCalculations(*this); });
    addForms(*this);
}

Laboratory::~Laboratory() = default;

}  // namespace tarvex
