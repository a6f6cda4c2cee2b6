#include "reports/recommended_digits/digit_forecasts.h"

#include <algorithm>
#include <array>
#include <stdexcept>

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
// as text.
class DrawnDigits {
public:
    // `cells` is the row from column 0 on.
    DrawnDigits(const ReportSheet& sheet, int row, const ReportSheet::RowRun& cells)
        : sheet_(sheet), row_(row), cells_(cells) {}

    // True when the cell in column `col` holds the text of at least one drawn digit. Drawn digits
    // are random: the three are compared without a branch.
    bool Holds(int col) const {
        if (col < cells_.Count() && cells_.Count() > 3)
            return cells_.SameText(col, 1) | cells_.SameText(col, 2) | cells_.SameText(col, 3);
        for (int p = 1; p <= 3; ++p)
            if (sheet_.SameText(row_, p, row_, col)) return true;
        return false;
    }

private:
    const ReportSheet& sheet_;
    int row_;
    const ReportSheet::RowRun& cells_;
};

}  // namespace

ForecastJudge::ForecastJudge(ReportSheet& sheet, std::span<const ForecastBlock> blocks)
    : sheet_(sheet), blocks_(blocks), marker_(sheet.Prepare("-Y-")) {
    std::size_t cells = 0;
    for (const ForecastBlock& block : blocks) {
        lastCol_ = std::max({lastCol_, block.lastCol, block.markerCol});
        cells += static_cast<std::size_t>(std::max(0, block.lastCol - block.firstCol + 1));
    }
    if (blocks.size() > kMaxBlocks || cells > kMaxCells)
        throw std::length_error("more forecast cells than a row's judgement holds");
    for (std::size_t b = 0; b < blocks.size(); ++b) {
        hitColours_[b] = sheet.PrepareColour(blocks[b].hitColour);
        pairColours_[b] = sheet.PrepareColour(blocks[b].pairColour);
    }
}

// Which forecast digits were drawn is random: rather than branch on each comparison, the row's
// hit cells and markers are gathered first, and each colour is then written over the cells
// gathered for it, consecutive blocks of one colour together.
void ForecastJudge::JudgeRow(int row) {
    if (row > sheet_.DrawCount()) return;  // the next drawing's row is never judged
    const ReportSheet::RowRun cells = sheet_.Run(row, 0, lastCol_);
    const DrawnDigits drawn(sheet_, row, cells);
    std::array<int, kMaxCells> hitCols;
    std::array<int, kMaxBlocks> markerCols;
    std::array<int, kMaxBlocks> blockHits{};
    std::size_t hits = 0;
    std::size_t marked = 0;
    for (std::size_t b = 0; b < blocks_.size(); ++b) {
        const ForecastBlock& block = blocks_[b];
        if (row >= block.firstJudgedRow) {
            int found = 0;
            for (int c = block.firstCol; c <= block.lastCol; ++c) {
                const bool holds = drawn.Holds(c);
                hitCols[hits] = c;
                hits += holds;
                found += holds;
            }
            blockHits[b] = found;
            markerCols[marked] = block.markerCol;
            marked += found > 0;
        }
        if (b + 1 == blocks_.size() || blocks_[b + 1].hitColour != block.hitColour) {
            for (std::size_t i = 0; i < hits; ++i)
                sheet_.SetBackColor(row, hitCols[i], hitColours_[b]);
            hits = 0;
        }
    }
    for (std::size_t i = 0; i < marked; ++i)
        sheet_.SetText(row, markerCols[i], marker_);

    // The hits are counted from the colours the cells now show, in the blocks with two cells
    // found: no other block can show two.
    for (std::size_t b = 0; b < blocks_.size(); ++b) {
        const ForecastBlock& block = blocks_[b];
        if (block.pairColour == kDefaultColour || row < block.firstPairRow || blockHits[b] < 2)
            continue;
        int colouredHits = 0;
        for (int c = block.firstCol; c <= block.lastCol; ++c)
            colouredHits += sheet_.BackColor(row, c) == block.hitColour;
        if (colouredHits >= 2) sheet_.SetBackColor(row, block.markerCol, pairColours_[b]);
    }
}

}  // namespace numarel
