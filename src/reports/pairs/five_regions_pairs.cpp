#include <array>
#include <span>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/pairs/pair_text.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 28;
constexpr int kWidthCol = 4;
constexpr int kSumCol = 5;
constexpr int kBandCol = 6;
constexpr int kFirstPairCol = 7;  // 7, 8, 9: the pairs smallest-middle, smallest-largest,
constexpr int kLastPairCol = 9;   // middle-largest of the sorted digits
constexpr int kRegionPairCol = 10;
constexpr int kFirstRegionCol = 11;
constexpr int kFirstChartCol = 17;  // digit d in column 17 + d

constexpr std::array<std::string_view, 5> kRegions{"05", "16", "27", "38", "49"};
constexpr std::string_view kRegionPairMarker = "-Y-";
constexpr std::string_view kBandMark = "↓";
// Column 6 carries the band mark on 22 rows, leaves 22 rows, and so on, from row 39.
constexpr int kFirstBandRow = 39;
constexpr int kBandRows = 22;

constexpr Rgb kChartColour = colours::kSumWidth;

void SetWidths(ReportSheet& sheet) {
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= kSumCol; ++c)
        sheet.SetColWidth(c, 300);
    for (int c = kBandCol; c <= kLastPairCol; ++c)
        sheet.SetColWidth(c, 2);
    for (int c = kRegionPairCol; c < kFirstRegionCol + static_cast<int>(kRegions.size()); ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(16, 540);
    for (int d = 0; d <= 9; ++d)
        sheet.SetColWidth(kFirstChartCol + d, 300);
    sheet.SetColWidth(27, 540);
}

void WriteHeader(ReportSheet& sheet) {
    int c = 1;
    for (std::string_view text : {"H", "T", "U", "W", "S"})
        sheet.SetText(0, c++, text);
    for (std::size_t i = 0; i < kRegions.size(); ++i)
        sheet.SetText(0, kFirstRegionCol + static_cast<int>(i), kRegions[i]);
    for (int d = 0; d <= 9; ++d)
        sheet.SetNumber(0, kFirstChartCol + d, d);
}

// The sum and width, the three pairs of the sorted digits, and the mark of a region pair: the
// first pair whose digits lie five apart is coloured.
void FillRow(ReportSheet& sheet, int r, CurrentDigits& digits) {
    sheet.SetNumber(r, kSumCol, SumOf(digits));
    sheet.SetBackColor(r, kSumCol, colours::kSumWidth);
    sheet.SetBackColor(r, kWidthCol, colours::kSumWidth);
    SortDigits(digits);
    const auto [a, b, c] = digits;
    sheet.SetNumber(r, kWidthCol, c - a);
    SetPairText(sheet, r, kFirstPairCol, a, b);
    SetPairText(sheet, r, kFirstPairCol + 1, a, c);
    SetPairText(sheet, r, kLastPairCol, b, c);
    const int markedCol = b - a == 5   ? kFirstPairCol
                          : c - a == 5 ? kFirstPairCol + 1
                          : c - b == 5 ? kLastPairCol
                                       : -1;
    if (markedCol < 0) return;
    sheet.SetBackColor(r, markedCol, colours::kHit);
    sheet.SetText(r, kRegionPairCol, kRegionPairMarker);
}

void MarkBands(ReportSheet& sheet) {
    // Rows 39 to 60 on, 61 to 82 off, 83 to 104 on, ...; as far as the next drawing's row.
    for (int r = kFirstBandRow; r <= sheet.DrawCount() + 1; ++r)
        if ((r - kFirstBandRow) % (2 * kBandRows) < kBandRows)
            sheet.SetText(r, kBandCol, kBandMark);
}

// Each pair cell is compared with the region headers in row 0; the first region it equals shows
// its text in red. Three digits hold at most one region.
void MarkRegions(ReportSheet& sheet) {
    std::array<std::string, kRegions.size()> regions;
    for (std::size_t i = 0; i < regions.size(); ++i)
        regions[i] = sheet.Text(0, kFirstRegionCol + static_cast<int>(i));
    for (int r = 1; r <= sheet.DrawCount(); ++r) {
        for (int c = kFirstPairCol; c <= kLastPairCol; ++c) {
            for (std::size_t i = 0; i < regions.size(); ++i) {
                const int col = kFirstRegionCol + static_cast<int>(i);
                if (!sheet.SameText(r, c, 0, col)) continue;
                sheet.SetBackColor(r, col, colours::kHit);
                sheet.SetText(r, col, regions[i]);
                break;
            }
        }
    }
}

// The drawn digits, read back from columns 1 to 3, each in its chart column.
void ChartDigits(ReportSheet& sheet) {
    for (int r = 1; r <= sheet.DrawCount(); ++r) {
        for (int p = 1; p <= 3; ++p) {
            const short d = sheet.CellNumber(r, p);
            sheet.SetBackColor(r, kFirstChartCol + d, kChartColour);
            sheet.SetNumber(r, kFirstChartCol + d, d);
        }
    }
}

// A digit drawn at the same position as in the drawing before: both cells red.
void MarkRepeats(ReportSheet& sheet) {
    for (int r = 1; r <= sheet.DrawCount() - 1; ++r) {
        for (int p = 1; p <= 3; ++p) {
            if (!sheet.SameText(r, p, r + 1, p)) continue;
            sheet.SetBackColor(r, p, colours::kHit);
            sheet.SetBackColor(r + 1, p, colours::kHit);
        }
    }
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    SetWidths(sheet);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, kBandCol);
    FillSheet(sheet, drawings,
              [&sheet](int r, CurrentDigits& digits) { FillRow(sheet, r, digits); });
    WriteHeader(sheet);
    FinishLoad(sheet);

    MarkBands(sheet);
    MarkRegions(sheet);
    ChartDigits(sheet);
    MarkRepeats(sheet);
}

}  // namespace

// Five Regions Pairs: the ten digits in five regions of two digits five apart, 05 16 27 38 49. A
// drawing that holds both digits of a region is marked, and the region it hit is shown beside a
// plain chart of its digits. Nothing is recommended.
std::span<const ReportDefinition> FiveRegionsPairsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmdaimaduizi",
         .title = "Five Regions Pairs[05 16 27 38 49]",
         .build = Build,
         .markColour = MakeRgb(43, 218, 255)},
    };
    return kReports;
}

}  // namespace numarel
