#include "runtime/resting_commands.h"

#include "runtime/form.h"

namespace tarvex {

bool isOffered(const Control& control) {
    const auto* form = dynamic_cast<const RestingCommands*>(&control.form());
    return control.enabled() && (form == nullptr || !form->rests(control));
}

}  // namespace tarvex
