#include "frame/frame_passes.h"

#include <algorithm>
#include <vector>

#include "data/basic_text.h"

namespace numarel {

std::string DrawingLabel(const DrawRecord& record) {
    std::string label;
    label.reserve(24);
    // A date of plain digits without a leading zero is written as it stands, as the general
    // rule below would write it; every drawings file the program writes has such dates.
    const std::string_view digits = Trim(record.date);
    const bool plain =
        !digits.empty() && digits.size() <= 15 && (digits[0] != '0' || digits.size() == 1) &&
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (plain) {
        label += ' ';
        label += digits;
    } else {
        auto date = WholeNumber(record.date);
        if (!date) return {};
        label = NumberToText(*date);
    }
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

void ReadDrawings(std::span<const DrawRecord> drawings, const DrawingVisit& visit) {
    CurrentDigits digits{0, 0, 0};
    int n = 1;
    for (const DrawRecord& record : drawings) {
        if (n > static_cast<int>(kMaxDrawings)) break;
        const std::string* fields[3] = {&record.h, &record.t, &record.u};
        for (int i = 0; i < 3; ++i) {
            const std::string& field = *fields[i];
            // Nearly every field is one digit; anything else takes the general rule.
            if (field.size() == 1 && field[0] >= '0' && field[0] <= '9')
                digits[static_cast<std::size_t>(i)] = static_cast<short>(field[0] - '0');
            else if (auto v = ToInt16(field))
                digits[static_cast<std::size_t>(i)] = *v;
        }
        visit(n, record, digits);
        ++n;
    }
}

void HeadDigitColumns(ReportSheet& sheet, DigitColumns columns) {
    sheet.SetText(0, columns.h, "H");
    sheet.SetText(0, columns.t, "T");
    sheet.SetText(0, columns.u, "U");
}

void FillSheet(ReportSheet& sheet, std::span<const DrawRecord> drawings, const RowWork& work,
               DigitColumns columns) {
    // Every label is a text of its own; without room made for them up front, the pool's
    // doubling would leave a full history with nearly twice the room the labels need.
    constexpr std::size_t kOtherTexts = 256;
    sheet.ReserveTexts(std::min(drawings.size(), kMaxDrawings) + kOtherTexts);
    ReadDrawings(drawings, [&](int row, const DrawRecord& record, CurrentDigits& digits) {
        sheet.SetText(row, 0, DrawingLabel(record));
        sheet.SetNumber(row, columns.h, digits[0]);
        sheet.SetNumber(row, columns.t, digits[1]);
        sheet.SetNumber(row, columns.u, digits[2]);
        if (work) work(row, digits);
    });
}

void FinishLoad(ReportSheet& sheet) {
    sheet.SetCurrentCell(sheet.DrawCount() + 1, 1);
    sheet.SetTopRow(sheet.Rows() - 1);
}

void FillMissCounters(ReportSheet& sheet, int firstCol, int lastCol) {
    if (lastCol < firstCol) return;
    const int drawCount = sheet.DrawCount();
    // Row by row, one counter per column: wide sheets are walked in the order they are stored.
    std::vector<short> counters(static_cast<std::size_t>(lastCol - firstCol + 1), 1);
    for (int r = 1; r <= drawCount; ++r) {
        ReportSheet::RowRun cells = sheet.Run(r, firstCol, lastCol);
        const int count = cells.Count();
        for (int i = 0; i < count; ++i) {
            short& counter = counters[static_cast<std::size_t>(i)];
            if (cells.IsEmpty(i)) {
                cells.SetNumber(i, counter);
                ++counter;
            } else {
                counter = 1;
            }
        }
    }
}

void AddMissStatistics(ReportSheet& sheet, int firstHitCol, int lastHitCol,
                       std::string_view hitMarker) {
    const int n = sheet.DrawCount();
    sheet.SetText(n + 2, 0, "Amount");
    sheet.SetText(n + 3, 0, "Max Miss");
    sheet.SetText(n + 4, 0, "Current Miss");

    // Amount and Max Miss are gathered in one walk over the rows, the order in which the cells
    // are stored; wide sheets would otherwise be read a column at a time.
    const std::size_t width =
        lastHitCol >= firstHitCol ? static_cast<std::size_t>(lastHitCol - firstHitCol + 1) : 0;
    std::vector<short> amounts(width, 0);
    std::vector<short> maxMisses(width, 0);
    // A number cell can be the marker only if the marker reads like a number; markers are
    // asterisks, so the Miss numbers between the hits need no comparison.
    const bool numericMarker =
        !hitMarker.empty() && (hitMarker[0] == '-' || (hitMarker[0] >= '0' && hitMarker[0] <= '9'));
    for (int r = 1; r <= n; ++r) {
        // A run still open in the last row counts only up to the row before.
        const bool closedRuns = r <= n - 1;
        const ReportSheet::RowRun cells = sheet.Run(r, firstHitCol, lastHitCol);
        const int count = cells.Count();
        for (int i = 0; i < count; ++i) {
            const auto k = static_cast<std::size_t>(i);
            if ((numericMarker || !cells.HoldsNumber(i)) && cells.TextIs(i, hitMarker))
                ++amounts[k];
            else if (closedRuns)
                maxMisses[k] = std::max(maxMisses[k], cells.CellNumber(i));
        }
    }
    for (int c = firstHitCol; c <= lastHitCol; ++c)
        sheet.SetNumber(n + 2, c, amounts[static_cast<std::size_t>(c - firstHitCol)]);
    for (int c = firstHitCol; c <= lastHitCol; ++c) {
        if (sheet.TextIs(n, c, hitMarker))
            sheet.SetText(n + 4, c, "0");
        else
            sheet.SetText(n + 4, c, sheet.Text(n, c));
    }
    for (int c = firstHitCol; c <= lastHitCol; ++c)
        sheet.SetNumber(n + 3, c, maxMisses[static_cast<std::size_t>(c - firstHitCol)]);
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
    const int n = sheet.DrawCount();
    sheet.SetRows(n + 6);
    AddMissStatistics(sheet, firstHitCol, lastHitCol, hitMarker);
    sheet.SetText(n + 5, 0, "Average");
    sheet.SetTopRow(sheet.Rows() - 1);
    ColourStatisticRows(sheet, n + 5, lastHitCol);
    for (int c = firstHitCol; c <= lastHitCol; ++c) {
        short amount = sheet.CellNumber(n + 2, c);
        if (rule == AverageRule::DrawCountWhenNoHit && amount == 0) amount = 1;
        if (amount != 0) sheet.SetNumber(n + 5, c, n / amount);
    }
}

void ToggleCellMark(ReportSheet& sheet, int row, int col, Rgb markColour) {
    if (sheet.BackColor(row, col) != markColour)
        sheet.SetBackColor(row, col, markColour);
    else
        sheet.SetBackColor(row, col, kDefaultColour);
}

}  // namespace numarel
