#include "core/model_state.h"
#include "core/name_table.h"

namespace tarvex {

void addNames(NameTable& table, const ModelState& s) {
#define NAME(member) table.addMember(#member, s.member);
#include "model_state_names.inc"
#undef NAME
#define CONSTANT(value) table.addComputed(#value, [](const std::vector<int>&) { return toFullText(value); })
    CONSTANT(MK);
    CONSTANT(Pi);
    CONSTANT(kUgol);
    CONSTANT(Vsv);
    CONSTANT(sekD);
    CONSTANT(sekG);
    CONSTANT(JD1900);
    CONSTANT(JD2000);
    CONSTANT(AlfaEclip);
    CONSTANT(NPlanetMax);
#undef CONSTANT
}

}  // namespace tarvex
