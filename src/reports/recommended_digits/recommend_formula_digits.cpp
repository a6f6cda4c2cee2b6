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

// A count of found digits followed by two blanks. A group holds each digit once and a drawn
// digit is one character, so no more than three are found.
constexpr std::string_view kFoundTexts[] = {"0  ", "1  ", "2  ", "3  "};

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
                if (IsDigit(c)) found += static_cast<int>((counts_ >> (4 * (c - '0'))) & 15);
            return found;
        }
        for (std::string_view digit : drawn_)
            for (char c : group)
                if (digit.size() == 1 && digit[0] == c) ++found;
        return found;
    }

private:
    static bool IsDigit(char c) { return c >= '0' && c <= '9'; }
    const std::string_view (&drawn_)[3];
    std::uint64_t counts_ = 0;
    bool allDigits_ = true;  // every one-character drawn text is a digit
};

// The group texts of each drawn number, each worked out once: the numbers of a history are those
// of 000 to 999, drawn again and again. nullptr where the formula fails.
class GroupTexts {
public:
    using Texts = std::array<const std::string*, std::size(kGroups)>;
    const Texts& operator()(double n) {
        const bool common = n >= 0 && n < static_cast<double>(kCommonNumbers) && n == std::floor(n);
        Texts& texts = common ? byNumber_[static_cast<std::size_t>(n)] : other_;
        if (common && known_[static_cast<std::size_t>(n)]) return texts;
        for (std::size_t g = 0; g < std::size(kGroups); ++g) {
            const std::optional<double> value = kGroups[g].formula(n);
            texts[g] = value ? &leadingThree_(*value) : nullptr;
        }
        if (common) known_[static_cast<std::size_t>(n)] = true;
        return texts;
    }

private:
    static constexpr std::size_t kCommonNumbers = 1000;
    LeadingDigitsMemo leadingThree_{3};  // keeps the texts the pointers name
    std::array<Texts, kCommonNumbers> byNumber_{};
    std::array<bool, kCommonNumbers> known_{};
    Texts other_{};
};

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    SetColumns(sheet, kColumns);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    FillSheet(sheet, drawings);

    auto groupTexts = std::make_unique<GroupTexts>();
    ReportSheet::NumberDigits labelDigits;
    for (int r = 1; r <= drawCount; ++r) {
        const double n = DrawnNumber(sheet.TextView(r, 0, labelDigits));
        const GroupTexts::Texts& texts = (*groupTexts)(n);
        for (std::size_t g = 0; g < std::size(kGroups); ++g)
            if (texts[g]) sheet.SetText(r + 1, kGroups[g].col, *texts[g]);
    }

    WriteHeaders(sheet, kColumns);
    FinishLoad(sheet);

    ReportSheet::NumberDigits digitText[3];
    ReportSheet::NumberDigits groupText;
    for (int r = 2; r <= drawCount; ++r) {
        const std::string_view drawn[3] = {sheet.TextView(r, 1, digitText[0]),
                                           sheet.TextView(r, 2, digitText[1]),
                                           sheet.TextView(r, 3, digitText[2])};
        const DrawnCharacters drawnCharacters(drawn);
        for (const DigitGroup& group : kGroups) {
            const int found = drawnCharacters.FoundIn(sheet.TextView(r, group.col, groupText));
            if (found > 0)
                sheet.SetText(r, group.col + 1, kFoundTexts[std::min(found, 3)]);
            else
                sheet.SetText(r, group.col + 1, "  -N-");
            if (found > 1) sheet.SetBackColor(r, group.col + 1, kSeveralHits);
        }
    }
}

}  // namespace

std::span<const ReportDefinition> FormulaDigitGroupsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmdanma2", .title = "Other recommend digits-[formula]", .build = Build},
    };
    return kReports;
}

}  // namespace numarel
