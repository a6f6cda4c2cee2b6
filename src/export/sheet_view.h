#pragma once

#include <string>
#include <vector>

#include "frame/report_sheet.h"

namespace numarel {

// What a sheet looks like on screen, for the writers that draw it (pages, printing): the sizes
// and colours the report window uses, and which columns it shows.
namespace sheet_view {

constexpr int kDefaultColWidthTwips = 960;
constexpr int kDefaultRowHeightTwips = 240;
// A column this narrow is a store for values the report reads back, or a hairline: not shown.
constexpr int kHiddenColTwips = 2;
constexpr Rgb kCellBack = MakeRgb(255, 255, 255);
constexpr Rgb kCellFore = MakeRgb(0, 0, 0);
constexpr Rgb kFixedBack = MakeRgb(240, 240, 240);
constexpr Rgb kFixedLine = MakeRgb(0, 0, 0);
constexpr Rgb kGridLine = MakeRgb(192, 192, 192);
constexpr Rgb kBehindCells = MakeRgb(128, 128, 128);

}  // namespace sheet_view

// The columns the window shows, in order: every column but those of 2 twips or less.
std::vector<int> ShownColumns(const ReportSheet& sheet);
// Widths and heights with the defaults filled in, in twips.
int ShownColWidth(const ReportSheet& sheet, int col);
int ShownRowHeight(const ReportSheet& sheet, int row);

// The colours a cell is drawn in: its own, or the defaults of a body or a fixed cell.
Rgb ShownBack(const ReportSheet& sheet, int row, int col);
Rgb ShownFore(const ReportSheet& sheet, int row, int col);
Rgb ShownGridLine(const ReportSheet& sheet);

// The date of the drawing in `row` (a drawing's first row): the number its label starts with,
// before ":" or "|" (" date:HTU"); empty when the label has none.
std::string DrawingDate(const ReportSheet& sheet, int row);
// "first to last" over the drawings of the sheet, or the one date, or empty without drawings.
std::string DrawingDateRange(const ReportSheet& sheet);
// The same for the drawings whose first rows are `first` and `last`.
std::string DrawingDateRange(const ReportSheet& sheet, int first, int last);

// "#rrggbb"
std::string HexColour(Rgb colour);

}  // namespace numarel
