#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Tundred Ten Units Trend: for each position the drawn digit on a line of ten columns and, beside
// it, the move from the previous drawing, its size by column and its direction by sign.
void BuildTundredTenUnitsTrend(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
