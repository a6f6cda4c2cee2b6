// Other recommend digits: three groups of up to three digits per drawing, each read out of one
// formula on the drawing's number, judged on the next drawing by how many drawn digits they hold.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "frame/frame_passes.h"
#include "reports/recommended_digits/digit_forecasts.h"
#include "reports/recommended_digits/formula_digits.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

constexpr Rgb kSeveralHits = MakeRgb(140, 219, 255);

struct DigitGroup {
    int col;  // the group; its result stands in the next column
    // The formula's value for the drawn number N; nullopt where it fails.
    std::optional<double> (*formula)(double n);
};

constexpr DigitGroup kGroups[] = {
    {5,
     [](double n) -> std::optional<double> {
         if (n < 0) return std::nullopt;  // no square root
         return std::sqrt(n) * 0.318;
     }},
    {8, [](double n) -> std::optional<double> { return n * 0.618; }},
    {11, [](double n) -> std::optional<double> { return (n + 727) / 3.141; }},
};

constexpr SheetColumn kColumns[] = {
    {1290},         {300, "H"}, {300, "T"},        {300, "U"},     {20},  {860, "digits-1"},
    {860, "  Y/N"}, {200},      {860, "digits-2"}, {860, "  Y/N"}, {200}, {860, "digits-3"},
    {860, "  Y/N"},
};

// A result by the count of found digits: "  -N-" for none, else the count followed by two
// blanks. A group holds each digit once and a drawn digit is one character, so no more than
// three are found.
constexpr std::string_view kResultTexts[] = {"  -N-", "1  ", "2  ", "3  "};

// A group's text: its digits, three at most; empty where its formula fails (a group is never
// empty). Four bytes, not a DigitsText's thirty-two: the table of every number's groups below
// stays small enough to be read on every row without leaving the cache.
class GroupText {
public:
    GroupText() = default;
    explicit GroupText(std::string_view text)
        : size_(static_cast<std::uint8_t>(std::min(text.size(), std::size_t{3}))) {
        std::copy_n(text.begin(), size_, chars_.begin());
    }
    bool empty() const { return size_ == 0; }
    operator std::string_view() const { return {chars_.data(), size_}; }

private:
    std::array<char, 3> chars_{};
    std::uint8_t size_ = 0;
};

// The group texts of a number.
using GroupTextsOf = std::array<GroupText, std::size(kGroups)>;

GroupTextsOf WorkOutGroups(double n, LeadingDigitsMemo& leadingThree) {
    GroupTextsOf texts;
    for (std::size_t g = 0; g < std::size(kGroups); ++g)
        if (const std::optional<double> value = kGroups[g].formula(n))
            texts[g] = GroupText(leadingThree(*value));
    return texts;
}

// The numbers of a history are those of 000 to 999, drawn again and again: their groups are
// worked out once for the program, the same in every history.
constexpr std::size_t kCommonNumbers = 1000;
const std::array<GroupTextsOf, kCommonNumbers>& CommonGroupTexts() {
    static const auto table = [] {
        auto texts = std::make_unique<std::array<GroupTextsOf, kCommonNumbers>>();
        LeadingDigitsMemo leadingThree{3};
        for (std::size_t n = 0; n < kCommonNumbers; ++n)
            (*texts)[n] = WorkOutGroups(static_cast<double>(n), leadingThree);
        return texts;
    }();
    return *table;
}

// Writes the groups `groups` on row `row`; an empty group (its formula failed) is left out.
void WriteGroupTexts(ReportSheet& sheet, int row, const GroupTextsOf& groups) {
    for (std::size_t g = 0; g < std::size(kGroups); ++g)
        if (!groups[g].empty()) sheet.SetText(row, kGroups[g].col, groups[g]);
}

// Writes on row `row` + 1 the groups that the number of the drawing of row `row` gives.
void WriteGroups(ReportSheet& sheet, int row, LeadingDigitsMemo& leadingThree) {
    ReportSheet::NumberDigits labelDigits;
    const std::string_view label = sheet.TextView(row, 0, labelDigits);
    if (const int n = WholeDrawnNumber(label); n >= 0)
        WriteGroupTexts(sheet, row + 1, CommonGroupTexts()[static_cast<std::size_t>(n)]);
    else
        WriteGroupTexts(sheet, row + 1, WorkOutGroups(DrawnNumber(label), leadingThree));
}

// The drawn digits of a row (columns 1 to 3), each as its one character; a drawn digit whose
// text is not one character matches no character of a group.
struct DrawnDigits {
    DrawnDigits(const ReportSheet& sheet, int row) {
        for (int p = 0; p < 3; ++p) {
            ReportSheet::NumberDigits digits;
            const std::string_view text = sheet.TextView(row, p + 1, digits);
            chars[p] = text.size() == 1 ? static_cast<unsigned char>(text[0]) : -1;
        }
    }
    int chars[3];
};

// The count of drawn digits found in the group in column `col`: each character of the group
// counts once for every drawn digit it equals, so a digit drawn twice counts twice.
int FoundInGroup(const ReportSheet& sheet, int row, int col, const DrawnDigits& drawn) {
    ReportSheet::NumberDigits groupDigits;
    int found = 0;
    for (const unsigned char c : sheet.TextView(row, col, groupDigits))
        found += (c == drawn.chars[0]) + (c == drawn.chars[1]) + (c == drawn.chars[2]);
    return found;
}

// Judges the groups that stand on row `row` against its drawing.
void JudgeGroups(ReportSheet& sheet, int row) {
    const DrawnDigits drawn(sheet, row);
    for (const DigitGroup& group : kGroups) {
        const int found = FoundInGroup(sheet, row, group.col, drawn);
        sheet.SetText(row, group.col + 1,
                      kResultTexts[static_cast<std::size_t>(std::min(found, 3))]);
        if (found > 1) sheet.SetBackColor(row, group.col + 1, kSeveralHits);
    }
}

// Each drawing's row is worked while it is at hand, and with it the row before, still at hand
// too: the groups from the drawing before, then their judgement.
void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    SetColumns(sheet, kColumns);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);

    LeadingDigitsMemo leadingThree{3};
    FillSheet(sheet, drawings, [&](int row, CurrentDigits&) {
        if (row < 2) return;
        WriteGroups(sheet, row - 1, leadingThree);
        JudgeGroups(sheet, row);
    });
    if (drawCount >= 1) WriteGroups(sheet, drawCount, leadingThree);

    WriteHeaders(sheet, kColumns);
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> FormulaDigitGroupsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmdanma2", .title = "Other recommend digits-[formula]", .build = Build},
    };
    return kReports;
}

// The claims the scoreboard follows, each judged as the report judges it.
std::span<const ScoredMethod> FormulaDigitGroupsMethods() {
    static constexpr ScoredMethod kMethods[] = {
        // Each group in one cell; its result cell holds the count of drawn digits, or "  -N-".
        {.object = "frmdanma2",
         .name = "digits-1",
         .judgeCol = 6,
         .hitText = "  -N-",
         .hitUnless = true},
        {.object = "frmdanma2",
         .name = "digits-2",
         .firstClaimCol = 8,
         .judgeCol = 9,
         .hitText = "  -N-",
         .hitUnless = true},
        {.object = "frmdanma2",
         .name = "digits-3",
         .firstClaimCol = 11,
         .judgeCol = 12,
         .hitText = "  -N-",
         .hitUnless = true},
    };
    return kMethods;
}

}  // namespace numarel
