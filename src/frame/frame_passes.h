#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/basic_text.h"
#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// H, T and U of the drawing in hand, as 16-bit numbers.
using CurrentDigits = std::array<short, 3>;

// Colours that recur across reports.
namespace colours {
inline constexpr Rgb kHit = MakeRgb(255, 0, 0);
inline constexpr Rgb kStatisticBack = MakeRgb(231, 225, 239);
inline constexpr Rgb kStatisticFore = MakeRgb(0, 0, 255);
inline constexpr Rgb kSumWidth = MakeRgb(43, 218, 255);
inline constexpr Rgb kFirstTrace = MakeRgb(182, 219, 170);
inline constexpr Rgb kFoundDigit = MakeRgb(255, 223, 157);
}  // namespace colours

// Column 0's text for a drawing: the date by the number-to-text rule (a blank before a
// non-negative number), ":", then H, T and U trimmed, with no separators. Empty when the date is
// not a number.
std::string DrawingLabel(const DrawRecord& record);
// A drawing's date by the number-to-text rule (a blank before a non-negative number); empty when
// the date is not a number.
std::string DateText(std::string_view date);
// Writes DateText(date) as the label of `row`, for a report whose label is the date alone; an
// empty text writes nothing.
void WriteDateLabel(ReportSheet& sheet, int row, std::string_view date);

// The number of drawings a report holds: one per record it is given.
int CountDrawings(std::span<const DrawRecord> drawings);

// Sizes the sheet to `rows`, records `drawCount`, and blanks columns 0 to `lastBlankCol` of the
// next drawing's row.
void ResetSheet(ReportSheet& sheet, int drawCount, int rows, int lastBlankCol = 4);

// Where FillSheet writes H, T and U; a column of -1 is not written.
struct DigitColumns {
    int h = 1;
    int t = 2;
    int u = 3;
};

// Writes "H", "T" and "U" over the digit columns in the header row.
void HeadDigitColumns(ReportSheet& sheet, DigitColumns columns = {});

// The drawings in file order as FillSheet reads them, for a report that lays a drawing out
// otherwise than on one row: `visit(int n, const DrawRecord& record, CurrentDigits& digits)` per
// drawing, with its number (1 for the oldest), its record and the digits in hand. A digit that
// cannot be converted keeps the value of the drawing before, as a failed statement leaves it.
template <class Visit>
void ReadDrawings(std::span<const DrawRecord> drawings, Visit&& visit);

// A report with no work of its own on each drawing's row.
struct NoRowWork {
    void operator()(int, CurrentDigits&) const {}
};

// The second pass over the drawings: per drawing, the label into column 0, the converted digits
// into `columns`, then the report's own work, `work(int row, CurrentDigits& digits)` with the
// row (1 for the oldest) and the digits in hand, which the report may change (a report that sorts
// them sorts them here). A digit that cannot be converted keeps the value of the drawing before,
// as a failed statement leaves it.
template <class Work = NoRowWork>
void FillSheet(ReportSheet& sheet, std::span<const DrawRecord> drawings, Work&& work = {},
               DigitColumns columns = {});

// The close of the first load order: current cell to the next drawing's row, column 1, and the
// view scrolled to the last row.
void FinishLoad(ReportSheet& sheet);

// For each column from `firstCol` to `lastCol`, rows 1 to DrawCount: an empty cell gets the
// number of drawings since the last hit, counting this one; a cell with any text is a hit and
// starts the count again.
void FillMissCounters(ReportSheet& sheet, int firstCol, int lastCol);

// The same Miss counters, filled one row at a time, for a report that reads a row's Miss numbers
// before it writes the next row. The Miss numbers get the fore colour `missFore` (0: as it is).
class MissCounters {
public:
    MissCounters(int firstCol, int lastCol, Rgb missFore = kDefaultColour);
    // Fills the empty cells of `row` in the columns and moves the counters on.
    void FillRow(ReportSheet& sheet, int row);

private:
    int firstCol_;
    Rgb missFore_;
    std::vector<short> counters_;
};

// How AddStatisticRows fills Average where a column has no hit.
enum class AverageRule {
    EmptyWhenNoHit,     // the division fails and the cell stays empty
    DrawCountWhenNoHit  // DrawCount divided by Amount + 1, that is DrawCount itself
};

// Writes the rows Amount, Max Miss and Current Miss, with their labels, into rows DrawCount + 2
// to DrawCount + 4 for the hit columns `firstHitCol` to `lastHitCol`; it neither resizes the
// sheet, nor colours, nor scrolls.
void AddMissStatistics(ReportSheet& sheet, int firstHitCol, int lastHitCol,
                       std::string_view hitMarker);

// Gives rows DrawCount + 2 to `lastRow`, columns 1 to `lastCol`, the statistic rows' colours.
void ColourStatisticRows(ReportSheet& sheet, int lastRow, int lastCol);

// Appends the rows Amount, Max Miss, Current Miss and Average under the drawings (Rows becomes
// DrawCount + 6) for the hit columns `firstHitCol` to `lastHitCol`, whose hit cells hold exactly
// `hitMarker`, colours them and scrolls to the last row.
void AddStatisticRows(ReportSheet& sheet, int lastHitCol, std::string_view hitMarker,
                      AverageRule rule = AverageRule::EmptyWhenNoHit, int firstHitCol = 5);

// FillMissCounters on the hit columns `firstHitCol` to `lastHitCol`, then AddStatisticRows on
// them, in one walk over the rows: what the two passes leave one after the other.
void FillMissCountersAndStatisticRows(ReportSheet& sheet, int lastHitCol,
                                      std::string_view hitMarker,
                                      AverageRule rule = AverageRule::EmptyWhenNoHit,
                                      int firstHitCol = 5);

// Columns `first` to `last` of a row.
struct ColumnRange {
    int first;
    int last;
};

// Gives the back colour `colour` to each cell of `cells` on `row` whose text is that of a cell of
// `keys` on the same row (a drawn digit, a drawn pair); returns how many it coloured.
int ColourCellsHolding(ReportSheet& sheet, int row, ColumnRange cells, ColumnRange keys,
                       Rgb colour);

// A mouse-down mark: a cell whose back colour is not `markColour` gets it; a marked cell goes back
// to the default colour.
void ToggleCellMark(ReportSheet& sheet, int row, int col, Rgb markColour);

// --- how the drawing passes are made: written out here, so that each report's work is compiled
// into the loop over its drawings ------------------------------------------------------------

namespace frame_detail {

// H, T and U of `record` converted into `digits`; a field that is not a number leaves its digit.
inline void ConvertDigits(const DrawRecord& record, CurrentDigits& digits) {
    const std::string* fields[3] = {&record.h, &record.t, &record.u};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::string& field = *fields[i];
        // Nearly every field is one digit; anything else takes the general rule.
        if (field.size() == 1 && field[0] >= '0' && field[0] <= '9')
            digits[i] = static_cast<short>(field[0] - '0');
        else if (auto v = ToInt16(field))
            digits[i] = *v;
    }
}

// Room for the labels of `drawings`.
void ReserveLabels(ReportSheet& sheet, std::span<const DrawRecord> drawings);
// A drawing's label and digits on its row.
void WriteDrawing(ReportSheet& sheet, int row, const DrawRecord& record,
                  const CurrentDigits& digits, DigitColumns columns);

}  // namespace frame_detail

template <class Visit>
void ReadDrawings(std::span<const DrawRecord> drawings, Visit&& visit) {
    CurrentDigits digits{0, 0, 0};
    int n = 1;
    for (const DrawRecord& record : drawings) {
        if (n > static_cast<int>(kMaxDrawings)) break;
        frame_detail::ConvertDigits(record, digits);
        visit(n, record, digits);
        ++n;
    }
}

template <class Work>
void FillSheet(ReportSheet& sheet, std::span<const DrawRecord> drawings, Work&& work,
               DigitColumns columns) {
    frame_detail::ReserveLabels(sheet, drawings);
    ReadDrawings(drawings, [&](int row, const DrawRecord& record, CurrentDigits& digits) {
        frame_detail::WriteDrawing(sheet, row, record, digits, columns);
        work(row, digits);
    });
}

}  // namespace numarel
