#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Charts of one operation applied to the pairs H with T, H with U and T with U: each one-digit
// result is marked on a ten-column line per pair.
void BuildUnitsOfPairSums(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildPairDifferences(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildUnitsOfPairProducts(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
