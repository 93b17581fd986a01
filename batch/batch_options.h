#pragma once
// What is asked of tarvex-plan.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

/// A control of a form set before the experiment, as a script line does it.
struct BatchSetting {
    std::string control;  ///< "Form2.Text38"
    std::string value;    ///< "3600", "on"
};

struct BatchOptions {
    std::optional<std::filesystem::path> data;  ///< data tree; none: where the programs find it
    int plan = 0;
    int first = 0, last = 0;  ///< experiments
    std::vector<int> planets = {1};
    int jobs = 0;         ///< processes at once; 0: one a core
    int lanes = 0;        ///< experiments side by side in a process; 0: as many as its core takes abreast
    bool resume = false;  ///< leave experiments that the journal knows as finished
    bool again = false;   ///< but not those finished with other settings
    std::vector<BatchSetting> settings;
};

/// @param arguments  [--data DIR] --plan N --experiments FROM-TO [--planets 1,2,4-6] [--jobs J] [--lanes L]
/// [--resume
/// [--again]]
///                   [NAME=VALUE ...]: a control of Form2, or FormN.NAME=VALUE of another form
/// Throws Failure, with the text for the user, when something is missing or cannot be read.
BatchOptions parseBatchOptions(const std::vector<std::string>& arguments);

}  // namespace tarvex
