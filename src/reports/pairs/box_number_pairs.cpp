#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 37;
constexpr int kDifferenceCol = 5;  // the value d is charted in column 6 + d
constexpr int kSumCol = 17;        // the value s is charted in column 17 + s
constexpr int kDividerCols[] = {4, 16, 36};

// Bands on the differences 3 to 6 and the sums 5 to 13.
constexpr int kDifferenceBand[] = {9, 12};
constexpr int kSumBand[] = {22, 30};
constexpr Rgb kDifferenceBandColour = MakeRgb(255, 231, 255);
constexpr Rgb kSumBandColour = MakeRgb(194, 225, 219);
constexpr Rgb kDifferenceColour = MakeRgb(0, 206, 188);
constexpr Rgb kSumColour = MakeRgb(255, 194, 0);

// The two digits of the Box Number a report charts, as places among the sorted digits
// (0 Small, 1 Middle, 2 Large).
struct BoxNumberPair {
    int higher;
    int lower;
};

constexpr BoxNumberPair kLargeSmall = {2, 0};
constexpr BoxNumberPair kLargeMiddle = {2, 1};
constexpr BoxNumberPair kMiddleSmall = {1, 0};

void Build(BoxNumberPair pair, std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c < kCols; ++c)
        sheet.SetColWidth(c, 300);
    for (int c : kDividerCols)
        sheet.SetColWidth(c, 60);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    FillSheet(sheet, drawings, [&sheet, pair](int row, CurrentDigits& digits) {
        SortDigits(digits);
        const int higher = digits[static_cast<std::size_t>(pair.higher)];
        const int lower = digits[static_cast<std::size_t>(pair.lower)];
        sheet.SetNumber(row, kDifferenceCol, higher - lower);
        sheet.SetNumber(row, kSumCol, higher + lower);
    });

    HeadDigitColumns(sheet);
    sheet.SetText(0, kDifferenceCol, "-");
    for (int d = 0; d <= 9; ++d)
        sheet.SetNumber(0, kDifferenceCol + 1 + d, d);
    sheet.SetText(0, kSumCol, "+");
    for (int s = 1; s <= 18; ++s)
        sheet.SetNumber(0, kSumCol + s, s);
    FinishLoad(sheet);

    for (int r = 1; r <= drawCount; ++r) {
        for (int c = kDifferenceBand[0]; c <= kDifferenceBand[1]; ++c)
            sheet.SetBackColor(r, c, kDifferenceBandColour);
        for (int c = kSumBand[0]; c <= kSumBand[1]; ++c)
            sheet.SetBackColor(r, c, kSumBandColour);
    }

    for (int r = 1; r <= drawCount; ++r) {
        const int d = sheet.CellNumber(r, kDifferenceCol);
        sheet.SetNumber(r, kDifferenceCol + 1 + d, d);
        sheet.SetBackColor(r, kDifferenceCol + 1 + d, kDifferenceColour);
        // A sum of 0 falls on the value cell itself, which keeps its text and takes the colour.
        const int s = sheet.CellNumber(r, kSumCol);
        sheet.SetNumber(r, kSumCol + s, s);
        sheet.SetBackColor(r, kSumCol + s, kSumColour);
    }
}

}  // namespace

std::span<const ReportDefinition> BoxNumberPairReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frm3dshouwei",
         .title = "Box Number:Large-Small;Large+Small",
         .build = [](std::span<const DrawRecord> d, ReportSheet& s) { Build(kLargeSmall, d, s); }},
        {.object = "frm3ddazhong",
         .title = "Box Number:Large-Middle;Large+Middle",
         .build = [](std::span<const DrawRecord> d, ReportSheet& s) { Build(kLargeMiddle, d, s); }},
        {.object = "frm3dzhongxiao",
         .title = "Box Number:Middle-Small;Middle+Small",
         .build = [](std::span<const DrawRecord> d, ReportSheet& s) { Build(kMiddleSmall, d, s); }},
    };
    return kReports;
}

}  // namespace numarel
