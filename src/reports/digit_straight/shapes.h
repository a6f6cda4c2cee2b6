#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Rise-Down shape: each drawing marked in the table of the thirteen orders its digits can take.
void BuildRiseDownShape(std::span<const DrawRecord> drawings, ReportSheet& sheet);
// Straight Number shape: the odd-even, big-small and prime-composite words of each drawing.
void BuildStraightNumberShape(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
