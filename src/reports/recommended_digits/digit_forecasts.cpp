#include "reports/recommended_digits/digit_forecasts.h"

namespace numarel {

void SetColumns(ReportSheet& sheet, std::span<const SheetColumn> columns) {
    sheet.SetCols(static_cast<int>(columns.size()));
    for (std::size_t c = 0; c < columns.size(); ++c)
        if (columns[c].width >= 0) sheet.SetColWidth(static_cast<int>(c), columns[c].width);
}

void WriteHeaders(ReportSheet& sheet, std::span<const SheetColumn> columns) {
    for (std::size_t c = 0; c < columns.size(); ++c)
        if (!columns[c].header.empty()) sheet.SetText(0, static_cast<int>(c), columns[c].header);
}

void JudgeForecasts(ReportSheet& sheet, std::span<const ForecastBlock> blocks) {
    const int drawCount = sheet.DrawCount();
    for (int r = 1; r <= drawCount; ++r) {
        for (const ForecastBlock& block : blocks) {
            if (r < block.firstJudgedRow) continue;
            for (int c = block.firstCol; c <= block.lastCol; ++c) {
                for (int p = 1; p <= 3; ++p) {
                    if (!sheet.SameText(r, p, r, c)) continue;
                    sheet.SetBackColor(r, c, block.hitColour);
                    sheet.SetText(r, block.markerCol, "-Y-");
                }
            }
            if (block.pairColour == kDefaultColour || r < block.firstPairRow) continue;
            // The hits are counted from the colours the cells now show.
            int hits = 0;
            for (int c = block.firstCol; c <= block.lastCol; ++c)
                if (sheet.BackColor(r, c) == block.hitColour) ++hits;
            if (hits >= 2) sheet.SetBackColor(r, block.markerCol, block.pairColour);
        }
    }
}

}  // namespace numarel
