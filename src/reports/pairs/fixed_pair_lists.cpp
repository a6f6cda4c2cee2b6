#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/header_columns.h"
#include "frame/number_classes.h"
#include "reports/pairs/pair_text.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 20;
constexpr int kSumCol = 4;
constexpr int kWidthCol = 5;
// Smallest with middle, smallest with largest, middle with largest; a double digit gives a
// double.
constexpr int kFirstPairCol = 6;
constexpr int kLastPairCol = 8;
constexpr int kDividerCol = 9;
constexpr int kFirstListCol = 10;

// The pairs made of the 0Type digits 0, 3, 6 and 9, doubles included.
constexpr std::string_view kZeroTypePairs[] = {"00", "33", "66", "99", "03",
                                               "06", "09", "36", "39", "69"};
// Digits that follow each other, 0 and 9 counting as neighbours.
constexpr std::string_view kSerialPairs[] = {"01", "12", "23", "34", "45",
                                             "56", "67", "78", "89", "09"};

void Build(std::span<const std::string_view> pairs, std::span<const DrawRecord> drawings,
           ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c < kCols; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(kDividerCol, 20);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    // The header cells come first, so that each row is charted while it is at hand.
    HeadDigitColumns(sheet);
    sheet.SetText(0, kSumCol, "S");
    sheet.SetText(0, kWidthCol, "W");
    for (std::size_t i = 0; i < pairs.size(); ++i)
        sheet.SetText(0, kFirstListCol + static_cast<int>(i), pairs[i]);

    // The pairs are whatever the header row says.
    const HeaderColumns list(sheet, kFirstListCol, kCols - 1, /*trim=*/false);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        sheet.SetNumber(row, kSumCol, SumOf(digits));
        sheet.SetBackColor(row, kSumCol, colours::kSumWidth);
        SortDigits(digits);
        sheet.SetNumber(row, kWidthCol, digits[2] - digits[0]);
        SetPairText(sheet, row, kFirstPairCol, digits[0], digits[1]);
        SetPairText(sheet, row, kFirstPairCol + 1, digits[0], digits[2]);
        SetPairText(sheet, row, kLastPairCol, digits[1], digits[2]);
        // The pairs read back from their cells, against the list.
        for (int p = kFirstPairCol; p <= kLastPairCol; ++p) {
            ReportSheet::NumberDigits digits;
            const int c = list.Find(sheet.TextView(row, p, digits));
            if (c < 0) continue;
            sheet.SetText(row, c, list.Header(c));
            sheet.SetBackColor(row, c, colours::kHit);
        }
    });
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> FixedPairListReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frm0luliangma",
         .title = "0 Type Pairs",
         .build = [](std::span<const DrawRecord> d,
                     ReportSheet& s) { Build(kZeroTypePairs, d, s); }},
        {.object = "frmshunziliangma",
         .title = "Serial Pairs",
         .build = [](std::span<const DrawRecord> d, ReportSheet& s) { Build(kSerialPairs, d, s); }},
    };
    return kReports;
}

}  // namespace numarel
