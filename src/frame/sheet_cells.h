#pragma once

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
    // its column's counter, in the fore colour `missFore`, and the counter counts on; any other
    // cell starts it again at 1 and, holding exactly the hit's text, adds to `hits`. With
    // `closedRuns`, `maxMisses` is raised to the CellNumber of each cell but the hits. Empty
    // `hits` and `maxMisses` without `closedRuns` keep the counters alone.
    static void CountMisses(ReportSheet& sheet, int firstRow, int lastRow, int firstCol,
                            const Hit& hit, bool closedRuns, Rgb missFore,
                            std::span<short> counters, std::span<short> hits,
                            std::span<short> maxMisses);
    // Column by column over rows `firstRow` to `lastRow`: adds to `hits` the cells that hold
    // exactly the hit's text, and raises `maxOthers` to the largest CellNumber of the others.
    static void TallyColumns(const ReportSheet& sheet, int firstRow, int lastRow, int firstCol,
                             const Hit& hit, std::span<short> hits, std::span<short> maxOthers);
    // ColourCellsHolding on a row of the sheet, for cells and up to kMaxKeys keys that lie
    // right of column 0 and inside the sheet.
    static constexpr int kMaxKeys = 3;
    static int ColourCellsHolding(ReportSheet& sheet, int row, int firstCol, int lastCol,
                                  int firstKey, int keyCount, Rgb colour);

private:
    // CountMisses, with hits and Max Miss kept when `kTally`.
    template <bool kTally>
    static void CountMissesIn(ReportSheet& sheet, int firstRow, int lastRow, int firstCol,
                              const Hit& hit, bool closedRuns, Rgb missFore,
                              std::span<short> counters, std::span<short> hits,
                              std::span<short> maxMisses);
};

}  // namespace numarel::frame_detail
