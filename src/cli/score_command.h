#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>

#include "export/sheet_format.h"
#include "reports/scoreboard/scoreboard.h"

namespace numarel {

// The scoreboard as `numarel-cli score` prints it, one row per method and stretch by p-value:
// text (aligned columns), csv and html (the sheet writers on the scoreboard's sheet), or json:
// {"lottery", "drawings", "methods": [{"report", "method", "kind", "stretch", "judged", "hits",
// "expected", "sd", "z", "p", "q", "longestMiss", "expectedLongestMiss", "usesLaterDrawings",
// "cost", "returned", "expectedReturn"}, ...]}.
void WriteScoreboard(const ScoreTable& table, SheetFormat format, std::ostream& out);

// The table as a standalone page, opening at its first rows, the smallest p-values.
std::string ScoreboardHtml(const ScoreTable& table);

// The JSON of the table.
std::string ScoreboardJson(const ScoreTable& table);

}  // namespace numarel
