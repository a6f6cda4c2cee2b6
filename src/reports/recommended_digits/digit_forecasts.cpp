#include "reports/recommended_digits/digit_forecasts.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "frame/frame_passes.h"

namespace numarel {

namespace {

constexpr ColumnRange kDrawnDigits{1, 3};  // H, T and U of the row's drawing

}  // namespace

void SetColumns(ReportSheet& sheet, std::span<const SheetColumn> columns) {
    sheet.SetCols(static_cast<int>(columns.size()));
    for (std::size_t c = 0; c < columns.size(); ++c)
        if (columns[c].width >= 0) sheet.SetColWidth(static_cast<int>(c), columns[c].width);
}

void WriteHeaders(ReportSheet& sheet, std::span<const SheetColumn> columns) {
    for (std::size_t c = 0; c < columns.size(); ++c)
        if (!columns[c].header.empty()) sheet.SetText(0, static_cast<int>(c), columns[c].header);
}

ForecastJudge::ForecastJudge(ReportSheet& sheet, std::span<const ForecastBlock> blocks)
    : sheet_(sheet), blocks_(blocks) {
    if (blocks.size() > kMaxBlocks)
        throw std::length_error("more forecast blocks than a row's judgement holds");
}

void ForecastJudge::JudgeRow(int row) {
    if (row > sheet_.DrawCount()) return;  // the next drawing's row is never judged
    std::array<int, kMaxBlocks> found{};
    for (std::size_t b = 0; b < blocks_.size(); ++b) {
        const ForecastBlock& block = blocks_[b];
        if (row < block.firstJudgedRow) continue;
        found[b] = ColourCellsHolding(sheet_, row, {block.firstCol, block.lastCol}, kDrawnDigits,
                                      block.hitColour);
    }
    // The markers go in once every block is judged, so that no block reads another's marker as a
    // forecast.
    for (std::size_t b = 0; b < blocks_.size(); ++b)
        if (found[b] > 0) sheet_.SetText(row, blocks_[b].markerCol, "-Y-");

    // A block with two cells found counts its hits from the colours the cells now show.
    for (std::size_t b = 0; b < blocks_.size(); ++b) {
        const ForecastBlock& block = blocks_[b];
        if (block.pairColour == kDefaultColour || row < block.firstPairRow || found[b] < 2)
            continue;
        int colouredHits = 0;
        for (int c = block.firstCol; c <= block.lastCol; ++c)
            colouredHits += sheet_.BackColor(row, c) == block.hitColour;
        if (colouredHits >= 2) sheet_.SetBackColor(row, block.markerCol, block.pairColour);
    }
}

}  // namespace numarel
