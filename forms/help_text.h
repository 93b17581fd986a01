#pragma once
// The texts of the help form.

namespace tarvex::help {

extern const char* const mainRoad;  ///< step by step from elements to an optimum
extern const char* const forms;     ///< what each form does
extern const char* const form1;     ///< the commands of the first form, one by one
extern const char* const rules;     ///< fields, files, and what people trip over

}  // namespace tarvex::help
