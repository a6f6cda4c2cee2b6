#pragma once

#include <span>
#include <string>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// The 3 Way Box drawings by their double (00 to 99), with the Miss of every double and its
// longest closed Miss. Type classes the double together with the third digit; Trend classes the
// double alone.
void BuildThreeWayBoxType(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildThreeWayBoxTrend(std::span<const DrawRecord> drawings, ReportSheet& sheet);

// What a double click on column `col` of either sheet copies: for every hit that follows a
// non-hit row, the text of that row, each line ended by CR LF. In a double column these are the
// closed Miss lengths in file order.
std::string ClosedMissLengths(const ReportSheet& sheet, int col);

}  // namespace numarel
