#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Fixed lists of Box Number tickets followed through the history: a column per ticket with its
// hits and Miss numbers, a column for the list as a whole, and the statistic rows under them.
void BuildSixteenTicketsFollow(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildTwentySevenTicketsFollow(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildThirtyTicketsFollowA(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildThirtyTicketsFollowB(std::span<const DrawRecord> drawings, ReportSheet& sheet);
// Tickets in named lists, 3 Way Box tickets among them, with a letter column per list that
// shows which lists a drawing fell in.
void BuildFiftyTicketsFollowAB(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildEighteenTicketsFollowABC(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
