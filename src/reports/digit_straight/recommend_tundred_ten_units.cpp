#include <array>
#include <string>
#include <string_view>

#include "data/basic_text.h"
#include "frame/frame_passes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 13;
constexpr int kFirstGroupCol = 10;
constexpr int kSecondGroupCol = 11;
constexpr int kEitherGroupCol = 12;

// A carried digit: the column it lands in, the digit column of the drawing before it comes from,
// the digit column of its own row it is compared with, and how its mask frames the digit.
struct CarriedDigit {
    int col;
    std::string_view header;
    int fromCol;
    int positionCol;
    std::string_view before;
    std::string_view after;
};

constexpr std::array<CarriedDigit, 6> kCarried = {{
    {4, "(1)H 1", 2, 1, "", "**"},
    {5, "(2)H 2", 3, 1, "", "**"},
    {6, "(3)T 1", 1, 2, "*", "*"},
    {7, "(4)T 2", 3, 2, "*", "*"},
    {8, "(5)U 1", 1, 3, "**", ""},
    {9, "(6)U 2", 2, 3, "**", ""},
}};
constexpr int kFirstCarriedCol = 4;
constexpr int kLastCarriedCol = 9;
// Columns 4 to 6 make the first group, 7 to 9 the second, whatever position they stand for.
constexpr int kLastFirstGroupCarriedCol = 6;

std::string MaskOf(const CarriedDigit& carried, std::string_view digit) {
    std::string mask;
    mask.reserve(carried.before.size() + digit.size() + carried.after.size() + 5);
    mask += carried.before;
    mask += digit;
    mask += carried.after;
    return mask;
}

// The second pass over the drawings, as the frame's fill makes it, but with the date alone in
// column 0: writing each whole drawing label only to replace it would cost as much again.
void FillDatesAndDigits(ReportSheet& sheet, std::span<const DrawRecord> drawings, int drawCount) {
    CurrentDigits digits{0, 0, 0};
    for (int row = 1; row <= drawCount; ++row) {
        const DrawRecord& record = drawings[static_cast<std::size_t>(row - 1)];
        if (auto date = WholeNumber(record.date)) sheet.SetText(row, 0, NumberToText(*date));
        const std::string* fields[3] = {&record.h, &record.t, &record.u};
        for (std::size_t i = 0; i < 3; ++i) {
            // A digit that cannot be converted keeps the value of the drawing before.
            if (auto v = ToInt16(*fields[i])) digits[i] = *v;
            sheet.SetNumber(row, static_cast<int>(i) + 1, digits[i]);
        }
    }
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 860);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    for (int c = kFirstGroupCol; c <= kEitherGroupCol; ++c)
        sheet.SetColWidth(c, 1204);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 5, 4);
    FillDatesAndDigits(sheet, drawings, drawCount);

    HeadDigitColumns(sheet);
    for (const CarriedDigit& carried : kCarried)
        sheet.SetText(0, carried.col, carried.header);
    sheet.SetCurrentCell(drawCount + 1, 1);

    // Each drawing's digits go to the row after it, the last drawing's to the next drawing's row.
    for (int r = 1; r <= drawCount; ++r)
        for (const CarriedDigit& carried : kCarried)
            sheet.SetNumber(r + 1, carried.col, sheet.CellNumber(r, carried.fromCol));

    for (int r = 2; r <= drawCount; ++r) {
        for (const CarriedDigit& carried : kCarried) {
            const std::string digit = sheet.Text(r, carried.col);
            if (sheet.TextIs(r, carried.positionCol, digit)) {
                sheet.SetText(r, carried.col, MaskOf(carried, digit) + "(YES)");
                sheet.SetBackColor(r, carried.col, colours::kHit);
            } else {
                sheet.SetText(r, carried.col, MaskOf(carried, digit));
            }
        }
    }

    // The next drawing's row always gets its masks; with no drawing nothing was carried there, so
    // they are masks of empty digits, the stars alone.
    const int next = drawCount + 1;
    for (const CarriedDigit& carried : kCarried)
        sheet.SetText(next, carried.col, MaskOf(carried, sheet.Text(next, carried.col)));

    for (int r = 2; r <= drawCount; ++r) {
        short first = 0;
        short second = 0;
        for (int c = kFirstCarriedCol; c <= kLastCarriedCol; ++c) {
            if (sheet.BackColor(r, c) != colours::kHit) continue;
            if (c <= kLastFirstGroupCarriedCol)
                ++first;
            else
                ++second;
        }
        if (first > 0) {
            sheet.SetText(r, kFirstGroupCol, "(1)+(2)+(3)YES");
            sheet.SetText(r, kEitherGroupCol, "(1)-----(6)YES");
        }
        if (second > 0) {
            sheet.SetText(r, kSecondGroupCol, "(4)+(5)+(6)YES");
            sheet.SetText(r, kEitherGroupCol, "(1)-----(6)YES");
        }
    }

    sheet.SetTopRow(sheet.Rows() - 1);
}

}  // namespace

std::span<const ReportDefinition> RecommendTundredTenUnitsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmzhixuantaloven",
         .title = "Recommend Tundred Ten Units",
         .build = Build,
         .help = HelpButton::Inert},
    };
    return kReports;
}

}  // namespace numarel
