#pragma once
// What is asked of tarvex-fit.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "batch/batch_options.h"

namespace tarvex {

struct FitOptions {
    std::optional<std::filesystem::path> data;  ///< data tree; none: where the programs find it
    std::string places;                         ///< a file, or "DE405"
    std::vector<int> bodies;
    std::optional<int> from, to;  ///< years: from noon of 1 January of the first to that after the last
    double every = 30;            ///< days between places of DE405
    std::vector<std::string> parameters;
    double sigma = 0;  ///< of a coordinate, km
    bool relativity = false;
    int jobs = 0;                        ///< threads; 0: one a core
    std::vector<BatchSetting> settings;  ///< controls of forms
    std::vector<BatchSetting> given;     ///< first or given values of parameters, by their names

    bool byEphemeris() const { return places == "DE405"; }
};

/// @param arguments  [--data DIR] --places FILE|DE405 --bodies 1,2,3 [--from YEAR --to YEAR] [--every DAYS]
///                   [--fit Vgr,VXsys,...] --sigma KM [--relativity on|off] [--jobs J] [NAME=VALUE ...]: a
///                   parameter, a control of Form2, or FormN.NAME=VALUE of another form
/// Throws Failure, with the text for the user, when something is missing or cannot be read.
FitOptions parseFitOptions(const std::vector<std::string>& arguments);

}  // namespace tarvex
