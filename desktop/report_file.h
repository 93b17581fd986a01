#pragma once
// Reports as files.

#include <filesystem>
#include <string>
#include <vector>

#include "runtime/report.h"

namespace tarvex {

/// The endings that a report can have.
bool isReportFile(const std::filesystem::path& file);

/// Writes a report of these forms, whole or not at all: ".html" with its pictures inside, or ".pdf" on A4.
/// Throws FileFailure, also for another ending.
void writeReport(const std::filesystem::path& file, const ReportHead& head,
                 const std::vector<const Form*>& forms);

/// A head with the time of now.
ReportHead reportHead(std::string given);

/// The blocks of a report, with the pictures on which more than the ground is to be seen.
std::vector<ReportBlock> drawnBlocks(const std::vector<const Form*>& forms);

}  // namespace tarvex
