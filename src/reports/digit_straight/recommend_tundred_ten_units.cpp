#include <array>
#include <string>
#include <string_view>

#include "data/basic_text.h"
#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

constexpr int kCols = 13;
constexpr int kFirstGroupCol = 10;
constexpr int kSecondGroupCol = 11;
constexpr int kEitherGroupCol = 12;
// The group texts of a row whose masks hit.
constexpr std::string_view kFirstGroupHit = "(1)+(2)+(3)YES";
constexpr std::string_view kSecondGroupHit = "(4)+(5)+(6)YES";
constexpr std::string_view kEitherGroupHit = "(1)-----(6)YES";

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

// Appends to `mask` the mask of `digit`, with "(YES)" after it on a hit.
template <class Text>
constexpr void AppendMask(Text& mask, const CarriedDigit& carried, std::string_view digit,
                          bool hit) {
    mask += carried.before;
    mask += digit;
    mask += carried.after;
    if (hit) mask += "(YES)";
}

std::string MaskOf(const CarriedDigit& carried, std::string_view digit, bool hit) {
    std::string mask;
    AppendMask(mask, carried, digit, hit);
    return mask;
}

// The mask of a digit 0 to 9, kept in the program's constants.
class DigitMask {
public:
    constexpr DigitMask& operator+=(std::string_view part) {
        for (char c : part)
            chars_[size_++] = c;
        return *this;
    }
    constexpr std::string_view Text() const { return {chars_.data(), size_}; }

private:
    std::array<char, 8> chars_{};  // the longest is "**9(YES)"
    std::size_t size_ = 0;
};

// The masks of the digits 0 to 9, without and with "(YES)", per carried column.
constexpr auto kDigitMasks = [] {
    std::array<std::array<std::array<DigitMask, 2>, 10>, kCarried.size()> masks{};
    constexpr std::string_view kDigits = "0123456789";
    for (std::size_t k = 0; k < kCarried.size(); ++k)
        for (std::size_t d = 0; d < 10; ++d)
            for (bool hit : {false, true})
                AppendMask(masks[k][d][hit], kCarried[k], kDigits.substr(d, 1), hit);
    return masks;
}();

// The masks of row `row`, each compared with the digit of its position in the row. Compared as
// texts: both cells hold numbers, alike exactly when their texts are.
void MaskRow(ReportSheet& sheet, int row) {
    for (std::size_t k = 0; k < kCarried.size(); ++k) {
        const CarriedDigit& carried = kCarried[k];
        const bool hit = sheet.SameText(row, carried.col, row, carried.positionCol);
        ReportSheet::NumberDigits digits;
        const std::string_view digit = sheet.TextView(row, carried.col, digits);
        if (digit.size() == 1 && IsDigit(digit[0]))
            sheet.SetText(row, carried.col,
                          kDigitMasks[k][static_cast<std::size_t>(digit[0] - '0')][hit].Text());
        else
            sheet.SetText(row, carried.col, MaskOf(carried, digit, hit));
        if (hit) sheet.SetBackColor(row, carried.col, colours::kHit);
    }
}

// The group texts of row `row`, by the colours its masks now show.
void MarkGroups(ReportSheet& sheet, int row) {
    int first = 0;
    int second = 0;
    for (int c = kFirstCarriedCol; c <= kLastCarriedCol; ++c) {
        const bool hit = sheet.BackColor(row, c) == colours::kHit;
        if (c <= kLastFirstGroupCarriedCol)
            first += hit;
        else
            second += hit;
    }
    if (first > 0) sheet.SetText(row, kFirstGroupCol, kFirstGroupHit);
    if (second > 0) sheet.SetText(row, kSecondGroupCol, kSecondGroupHit);
    if (first > 0 || second > 0) sheet.SetText(row, kEitherGroupCol, kEitherGroupHit);
}

// The drawings as the frame's fill reads them, but with the date alone in column 0: writing each
// whole drawing label only to replace it would cost as much again. Each row is worked while it
// is at hand: its digits carried to the next row, then its own masks and groups.
void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 860);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    for (int c = kFirstGroupCol; c <= kEitherGroupCol; ++c)
        sheet.SetColWidth(c, 1204);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 5, 4);

    drawings = drawings.first(static_cast<std::size_t>(drawCount));
    ReadDrawings(drawings, [&](int row, const DrawRecord& record, CurrentDigits& digits) {
        WriteDateLabel(sheet, row, record.date);
        for (std::size_t i = 0; i < 3; ++i)
            sheet.SetNumber(row, static_cast<int>(i) + 1, digits[i]);
        // Each drawing's digits go to the row after it, the last drawing's to the next drawing's
        // row.
        for (const CarriedDigit& carried : kCarried)
            sheet.SetNumber(row + 1, carried.col, sheet.CellNumber(row, carried.fromCol));
        if (row < 2) return;
        MaskRow(sheet, row);
        MarkGroups(sheet, row);
    });

    HeadDigitColumns(sheet);
    for (const CarriedDigit& carried : kCarried)
        sheet.SetText(0, carried.col, carried.header);
    sheet.SetCurrentCell(drawCount + 1, 1);

    // The next drawing's row always gets its masks; with no drawing nothing was carried there, so
    // they are masks of empty digits, the stars alone.
    const int next = drawCount + 1;
    for (const CarriedDigit& carried : kCarried)
        sheet.SetText(next, carried.col, MaskOf(carried, sheet.Text(next, carried.col), false));

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

// The claims the scoreboard follows, each judged as the report judges it.
std::span<const ScoredMethod> RecommendTundredTenUnitsMethods() {
    static constexpr ScoredMethod kMethods[] = {
        // The masks carried from the drawing before, by the three judgement columns.
        {.object = "frmzhixuantaloven",
         .name = "(1)+(2)+(3)",
         .shape = ClaimShape::PositionMasks,
         .firstClaimCol = 4,
         .claimCount = 3,
         .judgeCol = kFirstGroupCol,
         .hitText = kFirstGroupHit},
        {.object = "frmzhixuantaloven",
         .name = "(4)+(5)+(6)",
         .shape = ClaimShape::PositionMasks,
         .firstClaimCol = 7,
         .claimCount = 3,
         .judgeCol = kSecondGroupCol,
         .hitText = kSecondGroupHit},
        {.object = "frmzhixuantaloven",
         .name = "(1)-----(6)",
         .shape = ClaimShape::PositionMasks,
         .firstClaimCol = 4,
         .claimCount = 6,
         .judgeCol = kEitherGroupCol,
         .hitText = kEitherGroupHit},
    };
    return kMethods;
}

}  // namespace numarel
