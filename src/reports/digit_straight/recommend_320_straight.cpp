#include <array>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/header_columns.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

constexpr int kCols = 38;
constexpr int kFirstPairCol = 5;
constexpr int kYesCol = 37;

// The 32 H-T pairs in column order. They are distinct, so a drawing hits at most one.
constexpr std::array<std::string_view, 32> kPairs = {
    "05", "07", "13", "14", "15", "16", "17", "20", "21", "27", "30", "31", "32", "36", "39", "40",
    "41", "46", "51", "55", "59", "66", "73", "79", "80", "83", "84", "85", "93", "96", "98", "99"};
constexpr int kLastPairCol = kFirstPairCol + static_cast<int>(kPairs.size()) - 1;

// The first and third runs of eight pair columns are banded, so the pairs read as four groups.
struct Band {
    int firstCol;
    int lastCol;
};
constexpr Band kBands[] = {{5, 12}, {21, 28}};
constexpr Rgb kBandColour = MakeRgb(212, 188, 134);

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    for (int c = kFirstPairCol; c <= kLastPairCol; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(4, 20);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    FillSheet(sheet, drawings);

    HeadDigitColumns(sheet);
    for (std::size_t i = 0; i < kPairs.size(); ++i)
        sheet.SetText(0, kFirstPairCol + static_cast<int>(i), kPairs[i]);
    FinishLoad(sheet);

    for (int r = 1; r <= drawCount; ++r)
        for (const Band& band : kBands)
            for (int c = band.firstCol; c <= band.lastCol; ++c)
                sheet.SetBackColor(r, c, kBandColour);

    // The pairs are taken from the header, and H and T are joined as texts, so 0 5 reads "05".
    // The pairs are distinct, so a drawing hits at most one.
    const HeaderColumns pairs(sheet, kFirstPairCol, kLastPairCol, /*trim=*/false);
    std::string joined;
    for (int r = 1; r <= drawCount; ++r) {
        ReportSheet::NumberDigits h, t;
        joined.assign(sheet.TextView(r, 1, h));
        joined.append(sheet.TextView(r, 2, t));
        const int col = pairs.Find(joined);
        if (col < 0) continue;
        sheet.SetBackColor(r, col, colours::kHit);
        sheet.SetText(r, col, joined);
        sheet.SetText(r, kYesCol, "YES");
    }
}

std::string Export320Text(const ReportSheet& sheet) {
    std::string text;
    for (int r = 1; r <= sheet.DrawCount(); ++r) {
        text += sheet.Text(r, 0);
        if (!sheet.IsEmpty(r, kYesCol)) text += "-[320YES]";
        text += "\r\n";
    }
    return text;
}

}  // namespace

// Recommend 320 Straight Numbers: 32 fixed H-T pairs, each good for any U digit, and the drawings
// whose H and T fall on one of them. Export writes one line per drawing, its label followed by
// "-[320YES]" on a hit.
std::span<const ReportDefinition> Recommend320StraightReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmbaishi32zu",
         .title = "Recommend 320 Straight Numbers",
         .build = Build,
         .extraButton = {.kind = ExtraButton::Kind::ExportFile,
                         .caption = "Export",
                         .exportFile = "Numarel/daochu320.txt",
                         .text = Export320Text}},
    };
    return kReports;
}

// The claims the scoreboard follows, each judged as the report judges it.
std::span<const ScoredMethod> Recommend320StraightMethods() {
    static constexpr ScoredMethod kMethods[] = {
        // The 32 H-T pairs of the header, each with any U.
        {.object = "frmbaishi32zu",
         .name = "320 Straight Numbers",
         .shape = ClaimShape::StraightPairs,
         .claimCount = 32,
         .claimInHeader = true,
         .judgeCol = 37,
         .hitText = "YES",
         .firstJudgedRow = 1},
    };
    return kMethods;
}

}  // namespace numarel
