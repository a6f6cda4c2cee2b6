#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Charts of the fixed digit regions: per drawing, which region digits came up and the region
// pattern of the drawing. They recommend nothing; the next drawing's row stays empty.

// Three Regions: Small 0-2, Middle 3-6, Large 7-9, and how many digits fell in each.
void BuildThreeRegions(std::span<const DrawRecord> drawings, ReportSheet& sheet);
// Four Regions-1234: odd and even within small and big, with the sorted region triple, its sum
// and whether the digits lie in one, two or three regions.
void BuildFourRegions1234(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
