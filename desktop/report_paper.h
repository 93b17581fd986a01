#pragma once
// A report on paper: its blocks laid out on the pages of a device.

#include <vector>

#include "runtime/report.h"

class QPagedPaintDevice;

namespace tarvex {

/// Paints the report page by page.  Numbers are never broken: a table that is too wide takes smaller letters,
/// and if they do not help either it goes on below by columns, each part with the first column.  Pictures are
/// scaled to the page and carry their axes and legend.
/// Throws FileFailure where the device takes no drawing.
void paintReport(QPagedPaintDevice& device, const ReportHead& head, const std::vector<ReportBlock>& blocks);

}  // namespace tarvex
