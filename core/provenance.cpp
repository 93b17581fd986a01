#include "core/provenance.h"

#include <algorithm>

#include "core/model_state.h"

namespace tarvex {

namespace {

/// Columns of ElemStart in the order in which elements are compared; the seventh is the mean longitude, which
/// showing a table reduces to one turn.
constexpr std::array givenRows = {&ModelState::AlfaP0, &ModelState::AlfaU0, &ModelState::Betta0,
                                  &ModelState::Eks0,   &ModelState::R0sr,   &ModelState::W0sr};
constexpr std::array initialRows = {&ModelState::X0,  &ModelState::Y0,  &ModelState::Z0,
                                    &ModelState::VX0, &ModelState::VY0, &ModelState::VZ0};

}  // namespace

void Provenance::wrote(Given group, int form, const char* how) {
    last_[static_cast<int>(group)] = {form, how, ++writings_};
}

void Provenance::handOver(const ModelState& s, std::initializer_list<Given> groups, const char* how,
                          int form) {
    for (const Given group : groups) {
        wrote(group, form, how);
        handedOver_[static_cast<int>(group)] = last(group);
        given_[static_cast<int>(group)] = cells(s, group);
    }
}

void Provenance::attribute(const ModelState& s, int form) {
    for (int k = 0; k < groupCount; ++k) {
        const auto group = static_cast<Given>(k);
        const Cells now = cells(s, group);
        if (now == seen_[k]) continue;
        seen_[k] = now;
        if (last(group).order <= attributed_) wrote(group, form);
    }
    attributed_ = writings_;
}

bool Provenance::moved(const ModelState& s, Given group) const {
    return cells(s, group) != given_[static_cast<int>(group)];
}

Provenance::Measured Provenance::measuredElements(const ModelState& s) const {
    Cells start{};
    for (int i = 1; i < bodies; ++i)
        for (std::size_t k = 0; k < givenRows.size(); ++k) start[k * bodies + i] = s.ElemStart[k + 1][i];
    if (start == Cells{}) return Measured::ByNone;
    return start == given_[static_cast<int>(Given::Elements)] ? Measured::ByLoaded : Measured::ByOthers;
}

Provenance::Cells Provenance::cells(const ModelState& s, Given group) {
    Cells all{};
    switch (group) {
        case Given::Elements:
            for (std::size_t k = 0; k < givenRows.size(); ++k)
                std::copy_n((s.*givenRows[k]).begin() + 1, NPlanetMax, all.begin() + k * bodies + 1);
            break;
        case Given::InitialData:
            for (std::size_t k = 0; k < initialRows.size(); ++k)
                std::copy_n((s.*initialRows[k]).begin(), bodies, all.begin() + k * bodies);
            break;
        case Given::Masses:
            std::copy_n(s.m.begin(), bodies, all.begin());
            if (s.kodMoon == 1) {  // otherwise no run reads them
                all[rowMoon] = s.m[rowMoon];
                all[rowEarth] = s.m[rowEarth];
            }
            all[rowEarth + 1] = s.gamma;
            break;
        case Given::Date:
            all[0] = s.JDstart;
            break;
        case Given::EarthMoon:
            all[0] = s.kodMoon;
            break;
        case Given::Bary:
            all[0] = s.kodBary;
            break;
        case Given::SystemVelocity:
            all[0] = s.VXsys;
            all[1] = s.VYsys;
            all[2] = s.VZsys;
            break;
        case Given::Plan:
            all[0] = s.NPlan;
            break;
        case Given::Laws:
            break;
    }
    return all;
}

}  // namespace tarvex
