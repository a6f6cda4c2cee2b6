#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "frame/report_sheet.h"

namespace numarel {

// What the digit forecast reports share: their column layout and the judgement of a block of
// forecast cells against the drawing on the same row.

// One column of a report: its width in twips (-1 leaves the grid's default) and its header.
struct SheetColumn {
    int width;
    std::string_view header = {};
};

// Gives the sheet one column per entry, with its width.
void SetColumns(ReportSheet& sheet, std::span<const SheetColumn> columns);

// Writes the headers of the columns into row 0.
void WriteHeaders(ReportSheet& sheet, std::span<const SheetColumn> columns);

// Forecast digits in columns `firstCol` to `lastCol` of the row whose drawing they forecast.
struct ForecastBlock {
    int firstCol;
    int lastCol;
    int markerCol;       // "-Y-" where at least one forecast digit was drawn
    int firstJudgedRow;  // rows above it are never judged
    Rgb hitColour;       // back colour of a forecast cell whose digit was drawn
    // From `firstPairRow` on, the marker of a row with two or more cells in `hitColour` gets
    // this back colour; 0: no such mark.
    Rgb pairColour = kDefaultColour;
    int firstPairRow = 0;
};

// Judges forecast blocks row by row, so that a report judges each row while it is at hand: on the
// rows `firstJudgedRow` to DrawCount, a forecast cell whose text equals the text of a drawn digit
// (columns 1 to 3) gets the hit colour and its row the marker; then the pair colour.
class ForecastJudge {
public:
    ForecastJudge(ReportSheet& sheet, std::span<const ForecastBlock> blocks);
    // Judges the blocks on `row`, whose drawn digits and forecasts are written.
    void JudgeRow(int row);

private:
    static constexpr std::size_t kMaxBlocks = 8;  // the most blocks a judge takes
    ReportSheet& sheet_;
    std::span<const ForecastBlock> blocks_;
};

}  // namespace numarel
