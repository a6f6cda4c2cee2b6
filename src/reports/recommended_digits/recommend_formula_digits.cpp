// Other recommend digits: three groups of up to three digits per drawing, each read out of one
// formula on the drawing's number, judged on the next drawing by how many drawn digits they hold.
#include <algorithm>
#include <cmath>
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

// The count of drawn digits found in the group, a digit drawn twice counting twice.
int DrawnDigitsInGroup(const std::string (&drawn)[3], const std::string& group) {
    int found = 0;
    for (const std::string& digit : drawn)
        for (char c : group)
            if (digit.size() == 1 && digit[0] == c) ++found;
    return found;
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    SetColumns(sheet, kColumns);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    FillSheet(sheet, drawings);

    LeadingDigitsMemo leadingThree(3);
    for (int r = 1; r <= drawCount; ++r) {
        const double n = DrawnNumber(sheet.Text(r, 0));
        for (const DigitGroup& group : kGroups)
            if (auto value = group.formula(n))
                sheet.SetText(r + 1, group.col, leadingThree(*value));
    }

    WriteHeaders(sheet, kColumns);
    FinishLoad(sheet);

    for (int r = 2; r <= drawCount; ++r) {
        const std::string drawn[3] = {sheet.Text(r, 1), sheet.Text(r, 2), sheet.Text(r, 3)};
        for (const DigitGroup& group : kGroups) {
            const int found = DrawnDigitsInGroup(drawn, sheet.Text(r, group.col));
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
