#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Recommend Tundred Ten Units: the digits of a drawing carried to the other two positions of the
// next drawing, shown as position masks, with the drawings where one came back there.
void BuildRecommendTundredTenUnits(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
