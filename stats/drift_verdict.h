#pragma once
// The sentence that a user reads under an answer: what the measurements determine, what they do not, and
// whether they agree.  Made here alone, from the numbers that are shown beside it.

#include <optional>
#include <string>
#include <vector>

#include "stats/drift_solution.h"

namespace tarvex {

/// An answer as the sentence tells it, whatever it was found by.
struct Answer {
    struct Value {
        std::string name;
        std::optional<double> value, error;
    };
    std::string measured;  ///< what it was found by, with its count: "Смещений 4"
    std::string agreeing;  ///< the same as a subject: "смещения"
    int unknowns = 0;      ///< all that were sought
    int determined = 0;    ///< combinations of them
    std::vector<Value> values;
    bool seeksVgr = false, hasVelocity = false;
    std::vector<std::string> given;  ///< velocities of the system that are no unknowns
    bool scaleLoose = false;         ///< velocities and Vgr may change together within the errors
    std::optional<SolvedRatio> inverseVgr;
    std::optional<double> lowestVgr;
    bool errorsKnown = true;
    bool weak = false;  ///< some combination changes what was measured by less than its errors
    double chiSquare = 0;
    int freedom = 0;
};

std::string verdictText(const Answer& answer);
std::string verdictText(const DriftProblem& problem, const DriftSolution& solution);

/// Name of a factor of the plan, "VX" ... "m0/m2".
const char* factorName(int factor);

/// A number to two digits of its error, or to four digits of its own without one.
std::string rounded(double value, double error);
/// "value ± error" so.
std::string roundedWithError(double value, double error);

}  // namespace tarvex
