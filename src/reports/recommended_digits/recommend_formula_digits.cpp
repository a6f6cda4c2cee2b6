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

// The group texts of each drawn number, each worked out once and made ready for the sheet: the
// numbers of a history are those of 000 to 999, drawn again and again. No key where the formula
// fails.
class GroupTexts {
public:
    using Keys = std::array<std::optional<ReportSheet::TextKey>, std::size(kGroups)>;
    explicit GroupTexts(ReportSheet& sheet) : sheet_(sheet) {}
    const Keys& operator()(double n) {
        const bool common = n >= 0 && n < static_cast<double>(kCommonNumbers) && n == std::floor(n);
        Keys& keys = common ? byNumber_[static_cast<std::size_t>(n)] : other_;
        if (common && known_[static_cast<std::size_t>(n)]) return keys;
        for (std::size_t g = 0; g < std::size(kGroups); ++g) {
            const std::optional<double> value = kGroups[g].formula(n);
            keys[g] = value ? std::optional(sheet_.Prepare(leadingThree_(*value))) : std::nullopt;
        }
        if (common) known_[static_cast<std::size_t>(n)] = true;
        return keys;
    }

private:
    static constexpr std::size_t kCommonNumbers = 1000;
    ReportSheet& sheet_;
    LeadingDigitsMemo leadingThree_{3};  // keeps the texts the keys name
    std::array<Keys, kCommonNumbers> byNumber_{};
    std::array<bool, kCommonNumbers> known_{};
    Keys other_{};
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

// Judges the groups that stand on row `row` against its drawing. How many digits are found is
// random: the cells with more than one are gathered and coloured together.
void JudgeGroups(ReportSheet& sheet, int row, const ResultTexts& results) {
    ReportSheet::NumberDigits digitText[3];
    ReportSheet::NumberDigits groupText;
    const std::string_view drawn[3] = {sheet.TextView(row, 1, digitText[0]),
                                       sheet.TextView(row, 2, digitText[1]),
                                       sheet.TextView(row, 3, digitText[2])};
    const DrawnCharacters drawnCharacters(drawn);
    std::array<int, std::size(kGroups)> severalCols;
    std::size_t several = 0;
    for (const DigitGroup& group : kGroups) {
        // A group of three digits without a leading 0 is held as a number.
        const int value = sheet.HoldsNumber(row, group.col) ? sheet.CellNumber(row, group.col) : 0;
        const int found = value >= 100 && value <= 999
                              ? drawnCharacters.FoundInNumber(value)
                              : drawnCharacters.FoundIn(sheet.TextView(row, group.col, groupText));
        sheet.SetText(row, group.col + 1, results.Of(found));
        severalCols[several] = group.col + 1;
        several += found > 1;
    }
    sheet.SetBackColor(row, std::span(severalCols).first(several), kSeveralHits);
}

// The groups that the number of the drawing of row `row` gives the next row.
void WriteGroups(ReportSheet& sheet, int row, GroupTexts& groupTexts) {
    ReportSheet::NumberDigits labelDigits;
    const double n = DrawnNumber(sheet.TextView(row, 0, labelDigits));
    const GroupTexts::Keys& keys = groupTexts(n);
    for (std::size_t g = 0; g < std::size(kGroups); ++g)
        if (keys[g]) sheet.SetText(row + 1, kGroups[g].col, *keys[g]);
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
        WriteGroups(sheet, row - 1, *groupTexts);
        JudgeGroups(sheet, row, results);
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

}  // namespace numarel
