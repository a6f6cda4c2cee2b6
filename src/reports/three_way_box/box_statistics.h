#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Reports that follow a list of Box Numbers at once, one column each: the hits, the Miss of
// every number, and on each hit how long that number had stayed away, sorted into bands.
void BuildThreeWayBoxStatistical(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildSixWayBoxStatistical(std::span<const DrawRecord> drawings, ReportSheet& sheet);
// Seventy chosen 6 Way Box tickets grouped by Sum, the groups of even Sum striped.
void BuildSeventyTicketsFollow(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
