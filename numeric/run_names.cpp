#include "core/name_table.h"
#include "numeric/run_state.h"

namespace tarvex {

void addNames(NameTable& table, const RunState& run) {
    addNames(table, static_cast<const Energy&>(run));
#define NAME(member) table.addMember(#member, run.member);
#include "orbit_watch_names.inc"
#include "run_state_names.inc"
#undef NAME
}

}  // namespace tarvex
