#include "frame/frame_passes.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "data/basic_text.h"
#include "frame/sheet_cells.h"

namespace numarel {

namespace {

bool IsOneDigit(const std::string& field) {
    return field.size() == 1 && IsDigit(field[0]);
}

// True for a date of at most 15 plain digits without a leading zero, which the number-to-text
// rule writes as it stands, after a blank.
bool IsPlainDate(std::string_view date) {
    const std::size_t size = date.size();
    if (size == 0 || size > 15 || (date[0] == '0' && size > 1)) return false;
    // Nearly every date is plain: one test at the end instead of a jump per character.
    bool plain = true;
    for (char c : date)
        plain &= IsDigit(c);
    return plain;
}

// The length of the label of a drawing whose date is plain and whose H, T and U are one digit
// each, as in every drawings file the program writes; 0 for any other drawing. The general rule
// would write such a label as WritePlainLabel does.
[[gnu::always_inline]] inline std::size_t PlainLabelSize(const DrawRecord& record) {
    const bool plain = IsOneDigit(record.h) & IsOneDigit(record.t) & IsOneDigit(record.u);
    return plain && IsPlainDate(record.date) ? record.date.size() + 5 : 0;
}

// A blank, the date, ":" and the three digits, into the PlainLabelSize characters at `out`.
[[gnu::always_inline]] inline void WritePlainLabel(const DrawRecord& record, char* out) {
    const std::string& date = record.date;
    *out++ = ' ';
    // At most 15 characters: copied in two moves that may overlap, without a call.
    const std::size_t n = date.size();
    if (n >= 8) {
        std::memcpy(out, date.data(), 8);
        std::memcpy(out + n - 8, date.data() + n - 8, 8);
    } else if (n >= 4) {
        std::memcpy(out, date.data(), 4);
        std::memcpy(out + n - 4, date.data() + n - 4, 4);
    } else {
        for (std::size_t i = 0; i < n; ++i)
            out[i] = date[i];
    }
    out += n;
    *out++ = ':';
    *out++ = record.h[0];
    *out++ = record.t[0];
    *out = record.u[0];
}

}  // namespace

std::string DateText(std::string_view date) {
    // A date of plain digits without a leading zero is written as it stands, as the general
    // rule below would write it.
    const std::string_view digits = Trim(date);
    if (IsPlainDate(digits)) return ' ' + std::string(digits);
    auto value = WholeNumber(date);
    return value ? NumberToText(*value) : std::string();
}

void WriteDateLabel(ReportSheet& sheet, int row, std::string_view date) {
    // A plain date is written straight into the sheet's room for the label, as a drawing's is.
    if (IsPlainDate(date)) {
        if (char* room = frame_detail::SheetCells::NewLabelRoom(sheet, row, date.size() + 1)) {
            room[0] = ' ';
            std::memcpy(room + 1, date.data(), date.size());
            return;
        }
    }
    if (const std::string text = DateText(date); !text.empty()) sheet.SetText(row, 0, text);
}

std::string DrawingLabel(const DrawRecord& record) {
    if (const std::size_t size = PlainLabelSize(record)) {
        std::string label(size, ' ');
        WritePlainLabel(record, label.data());
        return label;
    }
    std::string label = DateText(record.date);
    if (label.empty()) return {};
    label += ':';
    label += Trim(record.h);
    label += Trim(record.t);
    label += Trim(record.u);
    return label;
}

int CountDrawings(std::span<const DrawRecord> drawings) {
    return static_cast<int>(std::min(drawings.size(), kMaxDrawings));
}

void ResetSheet(ReportSheet& sheet, int drawCount, int rows, int lastBlankCol) {
    sheet.SetDrawCount(drawCount);
    sheet.SetRows(rows);
    for (int c = 0; c <= lastBlankCol; ++c)
        sheet.SetText(drawCount + 1, c, "");
}

void HeadDigitColumns(ReportSheet& sheet, DigitColumns columns) {
    sheet.SetText(0, columns.h, "H");
    sheet.SetText(0, columns.t, "T");
    sheet.SetText(0, columns.u, "U");
}

namespace frame_detail {

void ReserveLabels(ReportSheet& sheet, std::span<const DrawRecord> drawings) {
    // Every label is a text of its own; without room made for them up front, the pool's
    // doubling would leave a full history with nearly twice the room the labels need.
    SheetCells::ReserveLabels(sheet, std::min(drawings.size(), kMaxDrawings));
}

void WriteDrawing(ReportSheet& sheet, int row, const DrawRecord& record,
                  const CurrentDigits& digits, DigitColumns columns) {
    // A plain label is written straight into the sheet's room for it.
    const std::size_t size = PlainLabelSize(record);
    char* room = size != 0 ? SheetCells::NewLabelRoom(sheet, row, size) : nullptr;
    if (room != nullptr)
        WritePlainLabel(record, room);
    else
        sheet.SetText(row, 0, DrawingLabel(record));
    sheet.SetNumber(row, columns.h, digits[0]);
    sheet.SetNumber(row, columns.t, digits[1]);
    sheet.SetNumber(row, columns.u, digits[2]);
}

}  // namespace frame_detail

void FinishLoad(ReportSheet& sheet) {
    sheet.SetCurrentCell(sheet.DrawCount() + 1, 1);
    sheet.SetTopRow(sheet.Rows() - 1);
}

MissCounters::MissCounters(int firstCol, int lastCol, Rgb missFore)
    : firstCol_(firstCol),
      missFore_(missFore),
      counters_(static_cast<std::size_t>(std::max(lastCol - firstCol + 1, 0)), 1) {}

void MissCounters::FillRow(ReportSheet& sheet, int row) {
    frame_detail::SheetCells::CountMissesOnRow(sheet, row, firstCol_, missFore_, counters_);
}

void FillMissCounters(ReportSheet& sheet, int firstCol, int lastCol) {
    // Row by row: wide sheets are walked in the order they are stored.
    std::vector<short> counters(static_cast<std::size_t>(std::max(lastCol - firstCol + 1, 0)), 1);
    for (int row = 1; row <= sheet.DrawCount(); ++row)
        frame_detail::SheetCells::CountMissesOnRow(sheet, row, firstCol, kDefaultColour, counters);
}

namespace {

// Amount and Max Miss of each hit column, index 0 being the first.
struct MissTally {
    std::vector<short> amounts;
    std::vector<short> maxMisses;
    explicit MissTally(int firstHitCol, int lastHitCol)
        : amounts(lastHitCol >= firstHitCol ? lastHitCol - firstHitCol + 1 : 0, 0),
          maxMisses(amounts.size(), 0) {}
};

// The rows Amount, Max Miss and Current Miss from `tally`, with their labels.
void WriteMissStatistics(ReportSheet& sheet, int firstHitCol, int lastHitCol,
                         std::string_view hitMarker, const MissTally& tally) {
    const int n = sheet.DrawCount();
    sheet.SetText(n + 2, 0, "Amount");
    sheet.SetText(n + 3, 0, "Max Miss");
    sheet.SetText(n + 4, 0, "Current Miss");
    for (int c = firstHitCol; c <= lastHitCol; ++c)
        sheet.SetNumber(n + 2, c, tally.amounts[static_cast<std::size_t>(c - firstHitCol)]);
    for (int c = firstHitCol; c <= lastHitCol; ++c) {
        if (sheet.TextIs(n, c, hitMarker))
            sheet.SetText(n + 4, c, "0");
        else
            sheet.SetText(n + 4, c, sheet.Text(n, c));
    }
    for (int c = firstHitCol; c <= lastHitCol; ++c)
        sheet.SetNumber(n + 3, c, tally.maxMisses[static_cast<std::size_t>(c - firstHitCol)]);
}

// The Average row under the Miss statistics, the colours and the scroll of AddStatisticRows.
void FinishStatisticRows(ReportSheet& sheet, int lastHitCol, AverageRule rule, int firstHitCol) {
    const int n = sheet.DrawCount();
    sheet.SetText(n + 5, 0, "Average");
    sheet.SetTopRow(sheet.Rows() - 1);
    ColourStatisticRows(sheet, n + 5, lastHitCol);
    for (int c = firstHitCol; c <= lastHitCol; ++c) {
        short amount = sheet.CellNumber(n + 2, c);
        if (rule == AverageRule::DrawCountWhenNoHit && amount == 0) amount = 1;
        if (amount != 0) sheet.SetNumber(n + 5, c, n / amount);
    }
}

}  // namespace

void AddMissStatistics(ReportSheet& sheet, int firstHitCol, int lastHitCol,
                       std::string_view hitMarker) {
    const int n = sheet.DrawCount();
    // Amount and Max Miss are gathered in one walk over the rows, the order in which the cells
    // are stored; wide sheets would otherwise be read a column at a time.
    MissTally tally(firstHitCol, lastHitCol);
    using frame_detail::SheetCells;
    const SheetCells::Hit hit = SheetCells::HitOf(sheet, hitMarker);
    // A run still open in the last row counts only up to the row before.
    SheetCells::TallyColumns(sheet, 1, n - 1, firstHitCol, hit, tally.amounts, tally.maxMisses);
    if (n >= 1) {
        std::vector<short> lastRowMaxima(tally.amounts.size(), 0);
        SheetCells::TallyColumns(sheet, n, n, firstHitCol, hit, tally.amounts, lastRowMaxima);
    }
    WriteMissStatistics(sheet, firstHitCol, lastHitCol, hitMarker, tally);
}

void ColourStatisticRows(ReportSheet& sheet, int lastRow, int lastCol) {
    for (int r = sheet.DrawCount() + 2; r <= lastRow; ++r) {
        for (int c = 1; c <= lastCol; ++c) {
            sheet.SetBackColor(r, c, colours::kStatisticBack);
            sheet.SetForeColor(r, c, colours::kStatisticFore);
        }
    }
}

void AddStatisticRows(ReportSheet& sheet, int lastHitCol, std::string_view hitMarker,
                      AverageRule rule, int firstHitCol) {
    sheet.SetRows(sheet.DrawCount() + 6);
    AddMissStatistics(sheet, firstHitCol, lastHitCol, hitMarker);
    FinishStatisticRows(sheet, lastHitCol, rule, firstHitCol);
}

void FillMissCountersAndStatisticRows(ReportSheet& sheet, int lastHitCol,
                                      std::string_view hitMarker, AverageRule rule,
                                      int firstHitCol) {
    const int n = sheet.DrawCount();
    sheet.SetRows(n + 6);
    // Each cell is counted while it is at hand: a Miss number as soon as it is written, read
    // back from the cell, a hit as the counter starts again.
    MissTally tally(firstHitCol, lastHitCol);
    std::vector<short> counters(tally.amounts.size(), 1);
    using frame_detail::SheetCells;
    const SheetCells::Hit hit = SheetCells::HitOf(sheet, hitMarker);
    // A run open in the last row counts up to the row before.
    SheetCells::CountMisses(sheet, 1, n - 1, firstHitCol, hit, true, counters, tally.amounts,
                            tally.maxMisses);
    if (n >= 1)
        SheetCells::CountMisses(sheet, n, n, firstHitCol, hit, false, counters, tally.amounts,
                                tally.maxMisses);
    WriteMissStatistics(sheet, firstHitCol, lastHitCol, hitMarker, tally);
    FinishStatisticRows(sheet, lastHitCol, rule, firstHitCol);
}

int ColourCellsHolding(ReportSheet& sheet, int row, ColumnRange cells, ColumnRange keys,
                       Rgb colour) {
    // A few keys and the cells, right of the labels on a row of the sheet, are compared by their
    // handles in one walk. Anything else takes the plain cell calls.
    const auto inside = [&sheet](ColumnRange range) {
        return range.first > 0 && range.first <= range.last && range.last < sheet.Cols();
    };
    const int keyCount = keys.last - keys.first + 1;
    if (sheet.Contains(row, 0) && inside(cells) && inside(keys) &&
        keyCount <= frame_detail::SheetCells::kMaxKeys) {
        return frame_detail::SheetCells::ColourCellsHolding(sheet, row, cells.first, cells.last,
                                                            keys.first, keyCount, colour);
    }
    int coloured = 0;
    for (int c = cells.first; c <= cells.last; ++c) {
        bool holds = false;
        for (int k = keys.first; k <= keys.last && !holds; ++k)
            holds = sheet.SameText(row, k, row, c);
        if (!holds) continue;
        sheet.SetBackColor(row, c, colour);
        ++coloured;
    }
    return coloured;
}

void ToggleCellMark(ReportSheet& sheet, int row, int col, Rgb markColour) {
    if (sheet.BackColor(row, col) != markColour)
        sheet.SetBackColor(row, col, markColour);
    else
        sheet.SetBackColor(row, col, kDefaultColour);
}

}  // namespace numarel
