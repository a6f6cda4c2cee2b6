#include "reports/recommended_digits/digit_forecasts.h"

#include <array>

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

namespace {

// The drawn digits of a row (columns 1 to 3), to which each forecast cell of the row is compared
// as text. Two number cells hold the same text exactly when their numbers are alike, which their
// values as counters tell apart away from the counter's ends; any other cell is left to the sheet.
class DrawnDigits {
public:
    DrawnDigits(ReportSheet& sheet, int row) : sheet_(sheet), row_(row) {
        const ReportSheet::RowRun drawn = sheet.Run(row, 1, 3);
        for (int p = 0; p < 3; ++p) {
            // A text, or a number at a counter's end, never matches by value.
            const bool number = p < drawn.Count() && drawn.HoldsNumber(p);
            values_[static_cast<std::size_t>(p)] = number ? drawn.CellNumber(p) : kNoValue;
        }
    }

    // True when the cell in column `col` holds the text of at least one drawn digit.
    bool Holds(int col) const {
        if (sheet_.HoldsNumber(row_, col)) {
            const int value = sheet_.CellNumber(row_, col);
            // Drawn digits are random: no branch to mispredict.
            if (value != kNoValue && value != 32767)
                return (value == values_[0]) | (value == values_[1]) | (value == values_[2]);
        }
        for (int p = 1; p <= 3; ++p)
            if (sheet_.SameText(row_, p, row_, col)) return true;
        return false;
    }

private:
    static constexpr int kNoValue = -32768;
    const ReportSheet& sheet_;
    int row_;
    std::array<int, 3> values_{};
};

}  // namespace

void JudgeForecasts(ReportSheet& sheet, std::span<const ForecastBlock> blocks) {
    const int drawCount = sheet.DrawCount();
    for (int r = 1; r <= drawCount; ++r) {
        const DrawnDigits drawn(sheet, r);
        for (const ForecastBlock& block : blocks) {
            if (r < block.firstJudgedRow) continue;
            bool hit = false;
            for (int c = block.firstCol; c <= block.lastCol; ++c) {
                if (!drawn.Holds(c)) continue;
                sheet.SetBackColor(r, c, block.hitColour);
                hit = true;
            }
            if (hit) sheet.SetText(r, block.markerCol, "-Y-");
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
