// Sum-Sum Units: two number lines, the Sum from 0 to 27 and its last digit from 0 to 9, with the
// drawing's value traced on each.
#include <span>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 47;
constexpr int kSumCol = 4;
constexpr int kFirstSumLineCol = 6;  // Sum 0; Sum 27 is column 33
constexpr int kLastSumLineCol = 33;
constexpr int kSumUnitsCol = 35;
constexpr int kFirstUnitsLineCol = 37;  // Sum Units 0; 9 is column 46
constexpr int kDividers[] = {5, 34, 36};

// The Sums 0 to 7 and 20 to 27: the two ends of the Sum line are banded in every drawing's row.
constexpr int kLowBandEnd = kFirstSumLineCol + 7;
constexpr int kHighBandStart = kFirstSumLineCol + 20;

constexpr Rgb kBand = MakeRgb(255, 212, 255);
constexpr Rgb kSumTrace = MakeRgb(0, 206, 188);
constexpr Rgb kUnitsTrace = MakeRgb(255, 194, 0);

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c < kCols; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(kSumCol, 480);
    sheet.SetColWidth(kSumUnitsCol, 480);
    for (int c : kDividers)
        sheet.SetColWidth(c, 60);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        sheet.SetNumber(row, kSumCol, SumOf(digits));
        // Sum Units is the last character of the Sum as written: its last decimal digit, so a
        // Sum of 10 gives 0.
        const int sum = sheet.CellNumber(row, kSumCol);
        sheet.SetNumber(row, kSumUnitsCol, (sum < 0 ? -sum : sum) % 10);
    });

    HeadDigitColumns(sheet);
    sheet.SetText(0, kSumCol, "Sum");
    for (int c = kFirstSumLineCol; c <= kLastSumLineCol; ++c)
        sheet.SetNumber(0, c, c - kFirstSumLineCol);
    sheet.SetText(0, kSumUnitsCol, "S U");
    for (int c = kFirstUnitsLineCol; c < kCols; ++c)
        sheet.SetNumber(0, c, c - kFirstUnitsLineCol);

    for (int r = 1; r <= drawCount; ++r) {
        for (int c = kFirstSumLineCol; c <= kLowBandEnd; ++c)
            sheet.SetBackColor(r, c, kBand);
        for (int c = kHighBandStart; c <= kLastSumLineCol; ++c)
            sheet.SetBackColor(r, c, kBand);
    }

    // The traces come after the band, so a value at either end of the line shows the trace's
    // colour. Each copies its value cell onto the line; both hold plain numbers, so the number
    // is the text.
    for (int r = 1; r <= drawCount; ++r) {
        const short sum = sheet.CellNumber(r, kSumCol);
        sheet.SetNumber(r, kFirstSumLineCol + sum, sum);
        sheet.SetBackColor(r, kFirstSumLineCol + sum, kSumTrace);
        const short units = sheet.CellNumber(r, kSumUnitsCol);
        sheet.SetNumber(r, kFirstUnitsLineCol + units, units);
        sheet.SetBackColor(r, kFirstUnitsLineCol + units, kUnitsTrace);
    }

    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> SumLinesReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmxingtai3dhe",
         .title = "Sum-Sum Units",
         .build = Build,
         .help = HelpButton::Hidden},
    };
    return kReports;
}

}  // namespace numarel
