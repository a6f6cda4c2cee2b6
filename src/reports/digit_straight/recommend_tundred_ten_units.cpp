#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

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

// The longest text a mask cell gets: the stars, a digit as the sheet writes a number, "(YES)".
using MaskBuffer = std::array<char, 48>;

// The mask of `digit`, with "(YES)" after it on a hit, written into `out`.
std::string_view MaskOf(const CarriedDigit& carried, std::string_view digit, bool hit,
                        MaskBuffer& out) {
    char* at = out.data();
    for (char c : carried.before)
        *at++ = c;
    if (digit.size() == 1)  // nearly always
        *at++ = digit[0];
    else
        at = std::copy(digit.begin(), digit.end(), at);
    for (char c : carried.after)
        *at++ = c;
    if (hit) {
        constexpr std::string_view kYes = "(YES)";
        at = std::copy(kYes.begin(), kYes.end(), at);
    }
    return {out.data(), static_cast<std::size_t>(at - out.data())};
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The masks of the digits 0 to 9, without and with "(YES)", per carried column: nearly every
// mask is one of them.
class MaskTable {
public:
    MaskTable() {
        MaskBuffer buffer;
        for (std::size_t k = 0; k < kCarried.size(); ++k)
            for (char d = '0'; d <= '9'; ++d)
                for (bool hit : {false, true})
                    masks_[k][static_cast<std::size_t>(d - '0')][hit] =
                        std::string(MaskOf(kCarried[k], {&d, 1}, hit, buffer));
    }
    std::string_view Mask(std::size_t k, std::string_view digit, bool hit,
                          MaskBuffer& buffer) const {
        if (digit.size() == 1 && IsDigit(digit[0]))
            return masks_[k][static_cast<std::size_t>(digit[0] - '0')][hit];
        return MaskOf(kCarried[k], digit, hit, buffer);
    }

private:
    std::array<std::array<std::array<std::string, 2>, 10>, kCarried.size()> masks_;
};

// Column 0's date: the number-to-text rule, which writes a date of plain digits without a leading
// zero as it stands, after a blank. Empty when the date is not a number.
void WriteDate(ReportSheet& sheet, int row, const std::string& date) {
    constexpr std::size_t kPlainMax = 15;
    if (!date.empty() && date.size() <= kPlainMax && (date[0] != '0' || date.size() == 1) &&
        std::all_of(date.begin(), date.end(), IsDigit)) {
        std::array<char, kPlainMax + 1> text;
        text[0] = ' ';
        date.copy(text.data() + 1, date.size());
        sheet.SetText(row, 0, std::string_view(text.data(), date.size() + 1));
    } else if (auto value = WholeNumber(date)) {
        sheet.SetText(row, 0, NumberToText(*value));
    }
}

// The second pass over the drawings, as the frame's fill makes it, but with the date alone in
// column 0: writing each whole drawing label only to replace it would cost as much again.
void FillDatesAndDigits(ReportSheet& sheet, std::span<const DrawRecord> drawings) {
    sheet.ReserveLabels(drawings.size());
    ReadDrawings(drawings, [&](int row, const DrawRecord& record, CurrentDigits& digits) {
        WriteDate(sheet, row, record.date);
        for (std::size_t i = 0; i < 3; ++i)
            sheet.SetNumber(row, static_cast<int>(i) + 1, digits[i]);
    });
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
    FillDatesAndDigits(sheet, drawings.first(static_cast<std::size_t>(drawCount)));

    HeadDigitColumns(sheet);
    for (const CarriedDigit& carried : kCarried)
        sheet.SetText(0, carried.col, carried.header);
    sheet.SetCurrentCell(drawCount + 1, 1);

    // Each drawing's digits go to the row after it, the last drawing's to the next drawing's row.
    for (int r = 1; r <= drawCount; ++r)
        for (const CarriedDigit& carried : kCarried)
            sheet.SetNumber(r + 1, carried.col, sheet.CellNumber(r, carried.fromCol));

    static const MaskTable masks;
    ReportSheet::NumberDigits digitText;
    MaskBuffer mask;
    for (int r = 2; r <= drawCount; ++r) {
        for (std::size_t k = 0; k < kCarried.size(); ++k) {
            const CarriedDigit& carried = kCarried[k];
            const std::string_view digit = sheet.TextView(r, carried.col, digitText);
            // Compared as texts: both cells hold numbers, alike exactly when their texts are.
            const bool hit = sheet.SameText(r, carried.col, r, carried.positionCol);
            sheet.SetText(r, carried.col, masks.Mask(k, digit, hit, mask));
            if (hit) sheet.SetBackColor(r, carried.col, colours::kHit);
        }
    }

    // The next drawing's row always gets its masks; with no drawing nothing was carried there, so
    // they are masks of empty digits, the stars alone.
    const int next = drawCount + 1;
    for (const CarriedDigit& carried : kCarried)
        sheet.SetText(next, carried.col,
                      MaskOf(carried, sheet.TextView(next, carried.col, digitText), false, mask));

    // Which groups hit in each row, from the cells' colours; the texts are then written a column
    // at a time, one text over and over.
    enum : unsigned char { kFirstHit = 1, kSecondHit = 2 };
    std::vector<unsigned char> groups(static_cast<std::size_t>(std::max(drawCount + 1, 0)), 0);
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
        groups[static_cast<std::size_t>(r)] =
            static_cast<unsigned char>((first > 0 ? kFirstHit : 0) | (second > 0 ? kSecondHit : 0));
    }
    for (int r = 2; r <= drawCount; ++r)
        if (groups[static_cast<std::size_t>(r)] & kFirstHit)
            sheet.SetText(r, kFirstGroupCol, "(1)+(2)+(3)YES");
    for (int r = 2; r <= drawCount; ++r)
        if (groups[static_cast<std::size_t>(r)] & kSecondHit)
            sheet.SetText(r, kSecondGroupCol, "(4)+(5)+(6)YES");
    for (int r = 2; r <= drawCount; ++r)
        if (groups[static_cast<std::size_t>(r)] != 0)
            sheet.SetText(r, kEitherGroupCol, "(1)-----(6)YES");

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
