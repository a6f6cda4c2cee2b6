#include "frame/sheet_cells.h"

#include <algorithm>
#include <vector>

namespace numarel::frame_detail {

char* SheetCells::NewLabelRoom(ReportSheet& sheet, int row, std::size_t size) {
    if (row <= 0 || row >= sheet.rows_ || sheet.cols_ == 0) return nullptr;
    std::uint32_t& cell = sheet.CellData()[sheet.Index(row, 0)].text;
    return cell == 0 ? sheet.pool_.AddLooseRoom(size, cell) : nullptr;
}

void SheetCells::ReserveLabels(ReportSheet& sheet, std::size_t count) {
    sheet.pool_.ReserveLoose(count);
}

SheetCells::Hit SheetCells::HitOf(const ReportSheet& sheet, std::string_view hitText) {
    const ReportSheet::TextKey key = sheet.KeyOf(hitText);
    return {key.handle, key.text};
}

void SheetCells::CountMisses(ReportSheet& sheet, int firstRow, int lastRow, int firstCol,
                             const Hit& key, bool closedRuns, std::span<short> counters,
                             std::span<short> hits, std::span<short> maxMisses) {
    using Cell = ReportSheet::Cell;
    firstRow = std::max(firstRow, 0);
    lastRow = std::min(lastRow, sheet.rows_ - 1);
    if (firstCol < 0) return;
    const int count = std::min({sheet.cols_ - firstCol, static_cast<int>(counters.size()),
                                static_cast<int>(hits.size()), static_cast<int>(maxMisses.size())});
    for (int row = firstRow; row <= lastRow; ++row) {
        Cell* cells = sheet.CellData() + sheet.Index(row, firstCol);
        for (int i = 0; i < count; ++i) {
            const auto k = static_cast<std::size_t>(i);
            const std::uint32_t h = cells[i].text;
            // Whether a cell is a hit is as good as random: the cells are counted without a jump.
            const bool empty = h == 0;
            bool match = !empty && h == key.handle;
            // Another text: a label (column 0) that reads as the hit counts as one, and with
            // closed runs any other raises Max Miss by its number. Otherwise it only starts the
            // counter again, like a hit, without a jump: a chart's markers come in no order.
            if (!empty && !match && (closedRuns || firstCol + i == 0)) [[unlikely]] {
                if (firstCol + i == 0 && row > 0 && sheet.HandleIs(h, key.text))
                    match = true;
                else if (closedRuns)
                    maxMisses[k] = std::max(maxMisses[k], sheet.RoundedValue(h));
            }
            cells[i].text = empty ? ReportSheet::NumberHandle(counters[k]) : h;
            // The Miss number is read back from the cell: a counter always fits its inline
            // number.
            const short miss =
                empty ? static_cast<short>(ReportSheet::InlineValue(cells[i].text)) : 0;
            counters[k] = empty ? static_cast<short>(counters[k] + 1) : 1;
            hits[k] = static_cast<short>(hits[k] + (match ? 1 : 0));
            maxMisses[k] = closedRuns ? std::max(maxMisses[k], miss) : maxMisses[k];
        }
    }
}

void SheetCells::TallyColumns(const ReportSheet& sheet, int firstRow, int lastRow, int firstCol,
                              const Hit& key, std::span<short> hits, std::span<short> maxOthers) {
    using Cell = ReportSheet::Cell;
    firstRow = std::max(firstRow, 0);
    lastRow = std::min(lastRow, sheet.rows_ - 1);
    if (firstCol < 0) return;
    const int count = std::min({sheet.cols_ - firstCol, static_cast<int>(hits.size()),
                                static_cast<int>(maxOthers.size())});
    if (count <= 0 || firstRow > lastRow) return;
    // Inline numbers order as their handles do, so the largest is kept as a handle and turned
    // into a counter once, at the end; only texts other than the hit are read as numbers.
    std::vector<std::uint32_t> largest(static_cast<std::size_t>(count),
                                       ReportSheet::NumberHandle(0));
    for (int r = firstRow; r <= lastRow; ++r) {
        const Cell* row = sheet.CellData() + sheet.Index(r, firstCol);
        for (int i = 0; i < count; ++i) {
            const std::uint32_t h = row[i].text;
            const auto k = static_cast<std::size_t>(i);
            if (h == key.handle) {
                ++hits[k];
            } else if (h & ReportSheet::kNumberTag) {
                largest[k] = std::max(largest[k], h);
            } else if (h != 0) {
                if (firstCol + i == 0 && r > 0 && sheet.HandleIs(h, key.text))  // a label
                    ++hits[k];
                else
                    maxOthers[k] = std::max(maxOthers[k], sheet.RoundedValue(h));
            }
        }
    }
    for (int i = 0; i < count; ++i) {
        const auto k = static_cast<std::size_t>(i);
        maxOthers[k] = std::max(maxOthers[k], sheet.HandleNumber(largest[k]));
    }
}

}  // namespace numarel::frame_detail
