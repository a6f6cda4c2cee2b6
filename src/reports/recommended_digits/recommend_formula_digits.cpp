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

// The drawn digits of a row (columns 1 to 3) as a group's characters are compared with them: how
// often each digit character was drawn, four bits per digit. A drawn text longer than one
// character is never equal to one.
class DrawnCharacters {
public:
    explicit DrawnCharacters(const std::string_view (&drawn)[3]) : drawn_(drawn) {
        for (std::string_view digit : drawn) {
            if (digit.size() != 1) continue;
            if (IsDigit(digit[0]))
                counts_ += std::uint64_t{1} << (4 * (digit[0] - '0'));
            else
                allDigits_ = false;
        }
    }

    // The count of drawn digits found in the group, a digit drawn twice counting twice.
    int FoundIn(std::string_view group) const {
        int found = 0;
        if (allDigits_) {
            // A character that is no digit was not drawn.
            for (char c : group)
                if (IsDigit(c)) found += static_cast<int>(CountOf(c));
            return found;
        }
        for (std::string_view digit : drawn_)
            for (char c : group)
                if (digit.size() == 1 && digit[0] == c) ++found;
        return found;
    }

    // FoundIn for a group held as a number from 100 to 999, whose text is its three digits.
    int FoundInNumber(int value) const {
        const char text[3] = {static_cast<char>('0' + value / 100),
                              static_cast<char>('0' + value / 10 % 10),
                              static_cast<char>('0' + value % 10)};
        if (!allDigits_) return FoundIn({text, 3});
        return static_cast<int>(CountOf(text[0]) + CountOf(text[1]) + CountOf(text[2]));
    }

private:
    static bool IsDigit(char c) { return c >= '0' && c <= '9'; }
    std::uint64_t CountOf(char digit) const { return (counts_ >> (4 * (digit - '0'))) & 15; }
    const std::string_view (&drawn_)[3];
    std::uint64_t counts_ = 0;
    bool allDigits_ = true;  // every one-character drawn text is a digit
};

// How often each digit character stands in a text, four bits per digit: the count of drawn
// digits a group holds is then a look-up per drawn digit.
std::uint64_t DigitCounts(std::string_view text) {
    std::uint64_t counts = 0;
    for (char c : text)
        if (c >= '0' && c <= '9') counts += std::uint64_t{1} << (4 * (c - '0'));
    return counts;
}

// A group as written: its text made ready for the sheet (no handle where the formula fails) and
// the digits it holds.
struct PreparedGroup {
    ReportSheet::TextKey key;
    std::uint64_t digitCounts = 0;
};

// The group texts of a number: empty where its formula fails (a group is never empty).
using GroupTextsOf = std::array<std::string, std::size(kGroups)>;

GroupTextsOf WorkOutGroups(double n, LeadingDigitsMemo& leadingThree) {
    GroupTextsOf texts;
    for (std::size_t g = 0; g < std::size(kGroups); ++g)
        if (const std::optional<double> value = kGroups[g].formula(n))
            texts[g] = leadingThree(*value);
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

// The groups of each drawn number, each made ready for the sheet once, when it first comes.
class GroupTexts {
public:
    using Groups = std::array<PreparedGroup, std::size(kGroups)>;
    explicit GroupTexts(ReportSheet& sheet) : sheet_(sheet) {}
    const Groups& operator()(double n) {
        const bool common = n >= 0 && n < static_cast<double>(kCommonNumbers) && n == std::floor(n);
        if (common) return Of(static_cast<int>(n));
        otherTexts_ = WorkOutGroups(n, leadingThree_);
        return Prepare(otherTexts_, other_);
    }
    // The groups of a number from 0 to 999.
    const Groups& Of(int number) {
        const auto i = static_cast<std::size_t>(number);
        if (!known_[i]) {
            Prepare(common_[i], byNumber_[i]);
            known_[i] = true;
        }
        return byNumber_[i];
    }

private:
    const Groups& Prepare(const GroupTextsOf& texts, Groups& groups) {
        for (std::size_t g = 0; g < std::size(kGroups); ++g)
            groups[g] = {sheet_.Prepare(texts[g]), DigitCounts(texts[g])};
        return groups;
    }

    ReportSheet& sheet_;
    const std::array<GroupTextsOf, kCommonNumbers>& common_ = CommonGroupTexts();
    std::array<Groups, kCommonNumbers> byNumber_{};
    std::array<bool, kCommonNumbers> known_{};
    LeadingDigitsMemo leadingThree_{3};  // keeps the texts of other numbers
    GroupTextsOf otherTexts_;            // the texts `other_` names
    Groups other_{};
};

// The texts of the results, made ready for the sheet, by the count found.
class ResultTexts {
public:
    explicit ResultTexts(ReportSheet& sheet) {
        for (std::size_t k = 0; k < texts_.size(); ++k)
            texts_[k] = sheet.Prepare(kResultTexts[k]);
    }
    const ReportSheet::TextKey& Of(int found) const {
        return texts_[static_cast<std::size_t>(std::min(found, 3))];
    }

private:
    std::array<ReportSheet::TextKey, std::size(kResultTexts)> texts_;
};

// The count of drawn digits found in the group in column `col` of row `row`, read from its text.
int FoundInCell(const ReportSheet& sheet, int row, int col, const DrawnCharacters& drawn) {
    // A group of three digits without a leading 0 is held as a number.
    const int value = sheet.HoldsNumber(row, col) ? sheet.CellNumber(row, col) : 0;
    if (value >= 100 && value <= 999) return drawn.FoundInNumber(value);
    ReportSheet::NumberDigits groupText;
    return drawn.FoundIn(sheet.TextView(row, col, groupText));
}

// Judges the groups that stand on row `row` against its drawing; `written` are the groups that
// were written there, known without reading the text back where a cell still holds its group
// and the drawn digits are digits. How many digits are found is random: the cells with more
// than one are gathered and coloured together.
void JudgeGroups(ReportSheet& sheet, int row, const GroupTexts::Groups& written,
                 const ResultTexts& results) {
    // The drawn digits as shifts into a group's digit counts; a digit is held as a number.
    unsigned shifts[3];
    bool digits = true;
    for (int i = 0; i < 3; ++i) {
        const int digit = sheet.HoldsNumber(row, 1 + i) ? sheet.CellNumber(row, 1 + i) : -1;
        digits &= digit >= 0 && digit <= 9;
        shifts[i] = 4 * static_cast<unsigned>(digit);
    }
    std::array<int, std::size(kGroups)> severalCols;
    std::size_t several = 0;
    for (std::size_t g = 0; g < std::size(kGroups); ++g) {
        const int col = kGroups[g].col;
        const PreparedGroup& group = written[g];
        int found;
        if (digits && sheet.Holds(row, col, group.key)) [[likely]] {
            found = static_cast<int>(((group.digitCounts >> shifts[0]) & 15) +
                                     ((group.digitCounts >> shifts[1]) & 15) +
                                     ((group.digitCounts >> shifts[2]) & 15));
        } else {
            ReportSheet::NumberDigits digitText[3];
            const std::string_view drawn[3] = {sheet.TextView(row, 1, digitText[0]),
                                               sheet.TextView(row, 2, digitText[1]),
                                               sheet.TextView(row, 3, digitText[2])};
            found = FoundInCell(sheet, row, col, DrawnCharacters(drawn));
        }
        sheet.SetText(row, col + 1, results.Of(found));
        severalCols[several] = col + 1;
        several += found > 1;
    }
    sheet.SetBackColor(row, std::span(severalCols).first(several), kSeveralHits);
}

// Writes on row `row` + 1 the groups that the number of the drawing of row `row` gives, and
// returns them.
const GroupTexts::Groups& WriteGroups(ReportSheet& sheet, int row, GroupTexts& groupTexts) {
    ReportSheet::NumberDigits labelDigits;
    const std::string_view label = sheet.TextView(row, 0, labelDigits);
    const int digits = TrailingThreeDigits(label);
    const GroupTexts::Groups& groups =
        digits >= 0 ? groupTexts.Of(digits) : groupTexts(DrawnNumberOf(label));
    for (std::size_t g = 0; g < std::size(kGroups); ++g)
        if (groups[g].key.handle != 0) sheet.SetText(row + 1, kGroups[g].col, groups[g].key);
    return groups;
}

// Each drawing's row is worked while it is at hand, and with it the row before, still at hand
// too: the groups from the drawing before, then their judgement.
void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    SetColumns(sheet, kColumns);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);

    auto groupTexts = std::make_unique<GroupTexts>(sheet);
    const ResultTexts results(sheet);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits&) {
        if (row < 2) return;
        JudgeGroups(sheet, row, WriteGroups(sheet, row - 1, *groupTexts), results);
    });
    if (drawCount >= 1) WriteGroups(sheet, drawCount, *groupTexts);

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
