#pragma once

#include <span>
#include <string>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Recommend 320 Straight Numbers: 32 fixed H-T pairs, each good for any U digit, and the drawings
// whose H and T fall on one of them.
void BuildRecommend320StraightNumbers(std::span<const DrawRecord> drawings, ReportSheet& sheet);

// The export of the finished sheet: one line per drawing, its label followed by "-[320YES]" on a
// hit, each line ended by CR LF.
std::string Export320Text(const ReportSheet& sheet);

}  // namespace numarel
