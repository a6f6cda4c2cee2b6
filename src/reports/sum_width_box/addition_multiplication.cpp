#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 8;
constexpr int kSumCol = 4;
constexpr int kWidthCol = 5;
constexpr int kAdditionCol = 6;
constexpr int kMultiplicationCol = 7;
constexpr std::string_view kMarker = "******";

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= kWidthCol; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(kAdditionCol, 860);
    sheet.SetColWidth(kMultiplicationCol, 860);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        sheet.SetNumber(row, kSumCol, SumOf(digits));
        sheet.SetBackColor(row, kSumCol, colours::kSumWidth);
        SortDigits(digits);
        const int a = digits[0], b = digits[1], c = digits[2];
        sheet.SetNumber(row, kWidthCol, c - a);
        // Addition is tested first: a number such as 2 2 4 that meets both shows only there.
        int markCol = -1;
        if (a + b == c)
            markCol = kAdditionCol;
        else if (a * b == c)
            markCol = kMultiplicationCol;
        sheet.SetText(row, markCol, kMarker);
        sheet.SetBackColor(row, markCol, colours::kHit);
    });

    HeadDigitColumns(sheet);
    sheet.SetText(0, kSumCol, "S");
    sheet.SetText(0, kWidthCol, "W");
    sheet.SetText(0, kAdditionCol, "Addition Box Number");
    sheet.SetText(0, kMultiplicationCol, "Multiplication Box Number");
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> AdditionMultiplicationReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmjiachengzh",
         .title = "Addition Box Number&Multiplication Box Number",
         .build = Build},
    };
    return kReports;
}

}  // namespace numarel
