#include <string>
#include <string_view>

#include "data/basic_text.h"
#include "frame/frame_passes.h"
#include "frame/header_columns.h"
#include "frame/number_classes.h"
#include "reports/pairs/pair_text.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 51;
// The drawing's three pair texts stand under "H", "T" and "U": smallest with middle, smallest
// with largest, middle with largest.
constexpr int kFirstPairCol = 1;
constexpr int kLastPairCol = 3;
constexpr int kFirstChartCol = 6;
constexpr int kLastChartCol = 50;
// Bands of nine columns with nine between them, counted from the first chart column.
constexpr int kBandWidth = 9;
constexpr Rgb kBandColour = MakeRgb(255, 212, 255);
constexpr Rgb kPairColour = MakeRgb(0, 206, 188);

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1032);
    for (int c = 1; c < kCols; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(4, 60);
    sheet.SetColWidth(5, 60);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    FillSheet(
        sheet, drawings,
        [&sheet](int row, CurrentDigits& digits) {
            SortDigits(digits);
            sheet.SetText(row, 1, PairText(digits[0], digits[1]));
            sheet.SetText(row, 2, PairText(digits[0], digits[2]));
            sheet.SetText(row, 3, PairText(digits[1], digits[2]));
        },
        DigitColumns{-1, -1, -1});

    HeadDigitColumns(sheet);
    int col = kFirstChartCol;
    for (int a = 0; a <= 8; ++a)
        for (int b = a + 1; b <= 9; ++b)
            sheet.SetText(0, col++, PairText(a, b));
    FinishLoad(sheet);

    for (int r = 1; r <= drawCount; ++r)
        for (int band = kFirstChartCol; band <= kLastChartCol; band += 2 * kBandWidth)
            for (int c = band; c < band + kBandWidth; ++c)
                sheet.SetBackColor(r, c, kBandColour);

    // The pairs are whatever the header row says, compared without blanks.
    const HeaderColumns chart(sheet, kFirstChartCol, kLastChartCol, /*trim=*/true);
    for (int r = 1; r <= drawCount; ++r) {
        for (int p = kFirstPairCol; p <= kLastPairCol; ++p) {
            const int c = chart.Find(Trim(sheet.Text(r, p)));
            if (c < 0) continue;
            sheet.SetText(r, c, chart.Header(c));
            sheet.SetBackColor(r, c, kPairColour);
        }
    }
}

}  // namespace

std::span<const ReportDefinition> PairsChartReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frm3dliangma", .title = "Pairs", .build = Build},
    };
    return kReports;
}

}  // namespace numarel
