#include <array>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 38;
constexpr int kDigitWidth = 300;
constexpr int kDividerWidth = 60;

// One trend of 0 to 9 per sorted position: the smallest digit, the middle one, the largest.
struct Trend {
    int zeroCol;
    Rgb colour;
};
constexpr std::array<Trend, 3> kTrends = {{
    {5, MakeRgb(182, 188, 164)},
    {16, MakeRgb(255, 206, 164)},
    {27, MakeRgb(0, 206, 237)},
}};

constexpr std::string_view kDigitTexts[10] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, kDigitWidth);
    for (const Trend& trend : kTrends) {
        sheet.SetColWidth(trend.zeroCol - 1, kDividerWidth);
        for (int d = 0; d <= 9; ++d)
            sheet.SetColWidth(trend.zeroCol + d, kDigitWidth);
    }
    sheet.SetColWidth(kCols - 1, kDividerWidth);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2);
    // The label keeps the drawn order; the digit columns show the sorted digits.
    FillSheet(sheet, drawings,
              [&](int row, CurrentDigits& digits) {
                  SortDigits(digits);
                  for (int p = 0; p < 3; ++p)
                      sheet.SetNumber(row, 1 + p, digits[static_cast<std::size_t>(p)]);
              },
              {-1, -1, -1});

    HeadDigitColumns(sheet);
    for (const Trend& trend : kTrends)
        for (int d = 0; d <= 9; ++d)
            sheet.SetText(0, trend.zeroCol + d, kDigitTexts[d]);

    for (int r = 1; r <= drawCount; ++r) {
        for (int p = 0; p < 3; ++p) {
            const int digit = sheet.CellNumber(r, 1 + p);
            const Trend& trend = kTrends[static_cast<std::size_t>(p)];
            sheet.SetNumber(r, trend.zeroCol + digit, digit);
            sheet.SetBackColor(r, trend.zeroCol + digit, trend.colour);
        }
    }
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> BoxSmallMiddleLargeReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frm3dzxxzd", .title = "Box Number-Small/Middle/Large", .build = Build},
    };
    return kReports;
}

}  // namespace numarel
