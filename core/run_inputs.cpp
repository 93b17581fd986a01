#include "core/run_inputs.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::array borrowedRows = {&ModelState::AlfaL, &ModelState::R0sr,   &ModelState::W0sr,
                                     &ModelState::Eks0,  &ModelState::Betta0, &ModelState::AlfaP0,
                                     &ModelState::AlfaU0};
constexpr std::array massRowsOf = {&ModelState::m, &ModelState::km};

}  // namespace

RunInputsKept::RunInputsKept(ModelState& s) : s_(s), kodMoon_(s.kodMoon), kodBary_(s.kodBary) {
    for (int k = 0; k < elements; ++k)
        std::copy_n((s.*borrowedRows[k]).begin(), bodies, elements_[k].begin());
    for (int k = 0; k < 2; ++k) std::copy_n((s.*massRowsOf[k]).begin(), massRows, masses_[k].begin());
}

RunInputsKept::~RunInputsKept() {
    const double work = s_.m[rowWork];
    for (int k = 0; k < elements; ++k)
        std::copy_n(elements_[k].begin(), bodies, (s_.*borrowedRows[k]).begin());
    for (int k = 0; k < 2; ++k) std::copy_n(masses_[k].begin(), massRows, (s_.*massRowsOf[k]).begin());
    s_.m[rowWork] = work;
    s_.kodMoon = kodMoon_;
    s_.kodBary = kodBary_;
}

const ToolVelocity::Value& ToolVelocity::of(const ModelState& s) {
    if (const Value now{s.VXsys, s.VYsys, s.VZsys}; now != seen_) own_ = seen_ = now;
    return own_;
}

void ToolVelocity::set(const ModelState& s, const Value& own) {
    seen_ = {s.VXsys, s.VYsys, s.VZsys};
    own_ = own;
}

}  // namespace tarvex
