#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// How often the whole winning number falls inside fixed digit sets: a column per set with its
// hits and Miss numbers, and the statistic rows under them.
//
// One set: "this N digits".
void BuildSixWayFromThisSixDigits(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildBoxFromThisSixDigits(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildSixWayFromThisSevenDigits(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildBoxFromThisSevenDigits(std::span<const DrawRecord> drawings, ReportSheet& sheet);
// A table of sets: "these N digits".
void BuildSixWayFromTheseFourDigits(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildSixWayFromTheseFiveDigits(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildSixWayFromTheseSixDigits(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildSixWayFromTheseSevenDigits(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildSixWayFromSixDigitRuns(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildSixWayFrom012TypeSets(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildBoxFromTheseNDigits(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
