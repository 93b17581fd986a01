#pragma once
// The files that a reduction writes: accepted observations (Good), rejected ones (Bad), stages of the chain
// (Ras), and the statistics of a run (Stat).

#include <string>

#include "core/data_tree.h"
#include "reduction/reduction_state.h"

namespace tarvex {

std::string goodFileName(const ModelState& s, const ReductionState& r);
std::string badFileName(const ModelState& s, const ReductionState& r);
std::string stageFileName(const ModelState& s, const ReductionState& r);
std::string statisticsFileName(const ModelState& s, const ReductionState& r);

/// Path of a file of a source.  One of a source that the laboratory knows, with a plain number, may be a link
/// to anywhere; a name with another text in it must not lead out of its folder.
/// @param source  as it stands in the name: a table, an observatory or what the user typed
/// @param number  the number typed for it
/// Throws OpenFailure for a name that leads out.
std::filesystem::path sourcePath(const DataTree& tree, const std::string& name, const std::string& source,
                                 const std::string& number);

/// Good (for a file of observations) and Bad with their heads.  Throws FileFailure; also when the Good file
/// would be the file that is read.
void startGoodBadFiles(const ModelState& s, const ReductionState& r, const DataTree& tree);
/// The observation just read, as it was read.  Tables have no record to keep.
void appendGood(const ModelState& s, const ReductionState& r, const DataTree& tree);
/// Date and residuals of a rejected observation: arc seconds and thousand km.
void appendBad(const ModelState& s, const ReductionState& r, const DataTree& tree);

void startStageFile(const ModelState& s, const ReductionState& r, const DataTree& tree);
/// One stage: longitude and latitude, degrees; distance R, m.
void appendStage(const ModelState& s, const ReductionState& r, const DataTree& tree, const char* label,
                 double L, double B, double R);

/// Histogram cells with their edges, and the means.  Throws ArithmeticFailure when nothing was accepted.
void writeStatistics(const ModelState& s, const ReductionState& r, const DataTree& tree);

}  // namespace tarvex
