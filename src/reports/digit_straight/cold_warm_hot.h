#pragma once

#include <span>
#include <string>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// The mark colour of a mouse-down in Cold Warm Hot.
inline constexpr Rgb kColdWarmHotMark = MakeRgb(43, 145, 255);

// Cold Warm Hot: per drawing, the ten digits ranked over the seven drawings before it and split
// into three Hot, four Warm and three Cold digits, and the pattern of Hot, Warm and Cold digits
// the drawing fell into. The row after the last drawing holds the lists for the next drawing.
void BuildColdWarmHot(std::span<const DrawRecord> drawings, ReportSheet& sheet);

// The text of "Next Box numbers": the nine groups of Box Numbers made from the next drawing's
// Hot, Warm and Cold lists, read from the finished sheet. Items are followed by a blank, groups
// by an empty line, lines end in CR LF. Without lists (fewer than seven drawings) it says so.
std::string NextBoxNumbersText(const ReportSheet& sheet);

}  // namespace numarel
