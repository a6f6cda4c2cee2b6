#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Charts of a rule of thumb: after a signal drawing a 3 Way Box is due within four drawings.
// Each marks its signal drawings, paints the four rows after each, and marks the 3 Way Boxes.
void BuildThreeWayBoxChanceH1(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildThreeWayBoxChanceRun(std::span<const DrawRecord> drawings, ReportSheet& sheet);
// Also keeps a hidden second rule: two equal Widths in a row signal the three rows after them.
void BuildThreeWayBoxChanceT0(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
