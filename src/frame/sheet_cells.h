#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "frame/report_sheet.h"

namespace numarel::frame_detail {

// The frame's passes over many cells, reaching the sheet's cells directly: only frame_passes.cpp
// uses it. Each walk does what the plain cell calls would do, cell after cell.
class SheetCells {
public:
    // Room for the label of `row` (column 0 below the header), `size` characters (1 to
    // TextPool::kRoomMax), to be filled in full with a text that is not a plain number; nullptr
    // when the cell is outside the sheet or holds a text already.
    static char* NewLabelRoom(ReportSheet& sheet, int row, std::size_t size);
    // Makes room for `count` more labels.
    static void ReserveLabels(ReportSheet& sheet, std::size_t count);

    // A hit marker looked up once for a walk over many cells; valid while the sheet's texts are.
    struct Hit {
        std::uint32_t handle = 0;
        std::string_view text;
    };
    static Hit HitOf(const ReportSheet& sheet, std::string_view hitText);

    // Rows `firstRow` to `lastRow` of the Miss counters, one row after the other, one counter per
    // column from `firstCol` on (columns past the spans' size are left out): an empty cell gets
    // its column's counter and the counter counts on; any other cell starts it again at 1 and,
    // holding exactly the hit's text, adds to `hits`. With `closedRuns`, `maxMisses` is raised to
    // the CellNumber of each cell but the hits.
    static void CountMisses(ReportSheet& sheet, int firstRow, int lastRow, int firstCol,
                            const Hit& hit, bool closedRuns, std::span<short> counters,
                            std::span<short> hits, std::span<short> maxMisses);
    // The Miss counters alone on one row: an empty cell gets its column's counter, in the fore
    // colour `missFore` (0: as it is), and the counter counts on; any other cell starts it again.
    static void CountMissesOnRow(ReportSheet& sheet, int row, int firstCol, Rgb missFore,
                                 std::span<short> counters);
    // Column by column over rows `firstRow` to `lastRow`: adds to `hits` the cells that hold
    // exactly the hit's text, and raises `maxOthers` to the largest CellNumber of the others.
    static void TallyColumns(const ReportSheet& sheet, int firstRow, int lastRow, int firstCol,
                             const Hit& hit, std::span<short> hits, std::span<short> maxOthers);
    // ColourCellsHolding on a row of the sheet, for cells and up to kMaxKeys keys that lie
    // right of column 0 and inside the sheet.
    static constexpr int kMaxKeys = 3;
    static int ColourCellsHolding(ReportSheet& sheet, int row, int firstCol, int lastCol,
                                  int firstKey, int keyCount, Rgb colour);
};

// The two walks over one row are defined here, so that a report's loop over its drawings, which
// calls them on every row, pays no call for them.

inline void SheetCells::CountMissesOnRow(ReportSheet& sheet, int row, int firstCol, Rgb missFore,
                                         std::span<short> counters) {
    if (!sheet.Contains(row, firstCol)) return;
    const std::size_t count =
        std::min(static_cast<std::size_t>(sheet.cols_ - firstCol), counters.size());
    const bool coloured = missFore != kDefaultColour;
    const std::uint16_t fore = coloured ? sheet.PaletteIndex(missFore) : 0;
    ReportSheet::Cell* cells = sheet.CellData() + sheet.Index(row, firstCol);
    for (std::size_t i = 0; i < count; ++i) {
        const bool empty = cells[i].text == 0;
        cells[i].text = empty ? ReportSheet::NumberHandle(counters[i]) : cells[i].text;
        cells[i].fore = coloured && empty ? fore : cells[i].fore;
        counters[i] = empty ? static_cast<short>(counters[i] + 1) : 1;
    }
}

inline int SheetCells::ColourCellsHolding(ReportSheet& sheet, int row, int firstCol, int lastCol,
                                          int firstKey, int keyCount, Rgb colour) {
    ReportSheet::Cell* cells = sheet.CellData() + sheet.Index(row, 0);
    // The keys' handles, the first standing in for the keys there are not.
    const std::uint32_t key0 = cells[firstKey].text;
    const std::uint32_t key1 = cells[firstKey + (keyCount > 1 ? 1 : 0)].text;
    const std::uint32_t key2 = cells[firstKey + (keyCount > 2 ? 2 : 0)].text;
    const std::uint16_t back = sheet.PaletteIndex(colour);
    // Whether a cell holds a key is as good as random: the cells are coloured without a jump.
    int coloured = 0;
    for (int c = firstCol; c <= lastCol; ++c) {
        ReportSheet::Cell& cell = cells[c];
        const bool holds = (cell.text == key0) | (cell.text == key1) | (cell.text == key2);
        // Under a mask: the compiler would jump on `holds`.
        const auto mask = static_cast<std::uint16_t>(0u - static_cast<unsigned>(holds));
        cell.back = static_cast<std::uint16_t>((cell.back & ~mask) | (back & mask));
        coloured += holds;
    }
    return coloured;
}

}  // namespace numarel::frame_detail
