#include <algorithm>
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
    // The mask as text, for a digit of the table.
    const std::string& Mask(std::size_t k, int digit, bool hit) const {
        return masks_[k][static_cast<std::size_t>(digit)][hit];
    }

private:
    std::array<std::array<std::array<std::string, 2>, 10>, kCarried.size()> masks_;
};

// The masks of the table made ready for one sheet, so that writing one is a store.
class MaskKeys {
public:
    MaskKeys(ReportSheet& sheet, const MaskTable& masks) {
        for (std::size_t k = 0; k < kCarried.size(); ++k)
            for (int d = 0; d <= 9; ++d)
                for (bool hit : {false, true})
                    keys_[k][static_cast<std::size_t>(d)][hit] =
                        sheet.Prepare(masks.Mask(k, d, hit));
    }
    // The key of the mask of `digit`, or nullptr for a digit the table lacks.
    const ReportSheet::TextKey* Find(std::size_t k, std::string_view digit, bool hit) const {
        if (digit.size() != 1 || !IsDigit(digit[0])) return nullptr;
        return &keys_[k][static_cast<std::size_t>(digit[0] - '0')][hit];
    }

private:
    std::array<std::array<std::array<ReportSheet::TextKey, 2>, 10>, kCarried.size()> keys_;
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

// The masks of row `row`, each compared with the digit of its position in the row. Compared as
// texts: both cells hold numbers, alike exactly when their texts are.
void MaskRow(ReportSheet& sheet, int row, const MaskKeys& keys) {
    ReportSheet::NumberDigits digitText;
    MaskBuffer mask;
    std::array<int, kCarried.size()> hitCols;
    std::size_t hits = 0;
    for (std::size_t k = 0; k < kCarried.size(); ++k) {
        const CarriedDigit& carried = kCarried[k];
        const std::string_view digit = sheet.TextView(row, carried.col, digitText);
        const bool hit = sheet.SameText(row, carried.col, row, carried.positionCol);
        if (const ReportSheet::TextKey* key = keys.Find(k, digit, hit))
            sheet.SetText(row, carried.col, *key);
        else
            sheet.SetText(row, carried.col, MaskOf(carried, digit, hit, mask));
        // Which digits come back is random: the hit cells are gathered and coloured together.
        hitCols[hits] = carried.col;
        hits += hit;
    }
    sheet.SetBackColor(row, std::span(hitCols).first(hits), colours::kHit);
}

// The group texts of row `row`, by the colours its masks now show.
struct GroupTexts {
    ReportSheet::TextKey first;
    ReportSheet::TextKey second;
    ReportSheet::TextKey either;
};

void MarkGroups(ReportSheet& sheet, int row, const GroupTexts& texts) {
    int first = 0;
    int second = 0;
    for (int c = kFirstCarriedCol; c <= kLastCarriedCol; ++c) {
        const bool hit = sheet.BackColor(row, c) == colours::kHit;
        if (c <= kLastFirstGroupCarriedCol)
            first += hit;
        else
            second += hit;
    }
    if (first > 0) sheet.SetText(row, kFirstGroupCol, texts.first);
    if (second > 0) sheet.SetText(row, kSecondGroupCol, texts.second);
    if (first > 0 || second > 0) sheet.SetText(row, kEitherGroupCol, texts.either);
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

    static const MaskTable masks;
    const MaskKeys keys(sheet, masks);
    const GroupTexts groupTexts{.first = sheet.Prepare("(1)+(2)+(3)YES"),
                                .second = sheet.Prepare("(4)+(5)+(6)YES"),
                                .either = sheet.Prepare("(1)-----(6)YES")};
    drawings = drawings.first(static_cast<std::size_t>(drawCount));
    sheet.ReserveLabels(drawings.size());
    ReadDrawings(drawings, [&](int row, const DrawRecord& record, CurrentDigits& digits) {
        WriteDate(sheet, row, record.date);
        for (std::size_t i = 0; i < 3; ++i)
            sheet.SetNumber(row, static_cast<int>(i) + 1, digits[i]);
        // Each drawing's digits go to the row after it, the last drawing's to the next drawing's
        // row.
        for (const CarriedDigit& carried : kCarried)
            sheet.SetNumber(row + 1, carried.col, sheet.CellNumber(row, carried.fromCol));
        if (row < 2) return;
        MaskRow(sheet, row, keys);
        MarkGroups(sheet, row, groupTexts);
    });

    HeadDigitColumns(sheet);
    for (const CarriedDigit& carried : kCarried)
        sheet.SetText(0, carried.col, carried.header);
    sheet.SetCurrentCell(drawCount + 1, 1);

    // The next drawing's row always gets its masks; with no drawing nothing was carried there, so
    // they are masks of empty digits, the stars alone.
    const int next = drawCount + 1;
    ReportSheet::NumberDigits digitText;
    MaskBuffer mask;
    for (const CarriedDigit& carried : kCarried)
        sheet.SetText(next, carried.col,
                      MaskOf(carried, sheet.TextView(next, carried.col, digitText), false, mask));

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
         .judgeCol = 10,
         .hitText = "(1)+(2)+(3)YES"},
        {.object = "frmzhixuantaloven",
         .name = "(4)+(5)+(6)",
         .shape = ClaimShape::PositionMasks,
         .firstClaimCol = 7,
         .claimCount = 3,
         .judgeCol = 11,
         .hitText = "(4)+(5)+(6)YES"},
        {.object = "frmzhixuantaloven",
         .name = "(1)-----(6)",
         .shape = ClaimShape::PositionMasks,
         .firstClaimCol = 4,
         .claimCount = 6,
         .judgeCol = 12,
         .hitText = "(1)-----(6)YES"},
    };
    return kMethods;
}

}  // namespace numarel
