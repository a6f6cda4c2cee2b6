// Sum Units Four Regions & Width Four Regions: each drawing falls in one of sixteen cells, the
// region of its Sum Units and the region of its Width, followed by Miss numbers and statistics.
#include <span>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 23;
constexpr int kSumCol = 4;
constexpr int kWidthCol = 5;
constexpr int kDividerCol = 6;
constexpr int kFirstPairCol = 7;  // "11"; the pairs run Sum Units region first, up to "44"
constexpr int kLastPairCol = 22;
constexpr int kRegions = 4;
constexpr std::string_view kHitMarker = ".";

// The cell of a drawing's two regions, each '1' to '4'.
int PairColumn(char sumUnitsRegion, char widthRegion) {
    return kFirstPairCol + kRegions * (sumUnitsRegion - '1') + (widthRegion - '1');
}

// The statistics under the pair columns: Amount, Max Miss and Current Miss as AddStatisticRows
// writes them, with these differences: there is no Average row; Rows stays as it is (the sheet
// was sized for the footer at load) and the view does not scroll again; and the colour covers
// four rows, so the empty row under Current Miss is coloured too.
void AddPairStatistics(ReportSheet& sheet) {
    const int n = sheet.DrawCount();
    AddMissStatistics(sheet, kFirstPairCol, kLastPairCol, kHitMarker);
    ColourStatisticRows(sheet, n + 5, kLastPairCol);
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= kWidthCol; ++c)
        sheet.SetColWidth(c, 300);
    for (int c = kFirstPairCol; c <= kLastPairCol; ++c)
        sheet.SetColWidth(c, 480);
    sheet.SetColWidth(kDividerCol, 60);

    const int drawCount = CountDrawings(drawings);
    // The statistic rows have their room from the start.
    ResetSheet(sheet, drawCount, drawCount + 6);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        sheet.SetNumber(row, kSumCol, SumOf(digits));
        sheet.SetBackColor(row, kSumCol, colours::kSumWidth);
        SortDigits(digits);
        sheet.SetNumber(row, kWidthCol, digits[2] - digits[0]);
    });

    HeadDigitColumns(sheet);
    sheet.SetText(0, kSumCol, "S");
    sheet.SetText(0, kWidthCol, "W");
    for (int s = 0; s < kRegions; ++s) {
        for (int w = 0; w < kRegions; ++w) {
            const char pair[2] = {static_cast<char>('1' + s), static_cast<char>('1' + w)};
            sheet.SetText(0, PairColumn(pair[0], pair[1]), std::string_view(pair, 2));
        }
    }
    FinishLoad(sheet);

    // Sum Units is the last digit of the Sum as written, so a Sum of 10 falls in region "1".
    for (int r = 1; r <= drawCount; ++r) {
        const int sum = sheet.CellNumber(r, kSumCol);
        const char sumUnitsRegion = FourRegionSumWidth((sum < 0 ? -sum : sum) % 10);
        const char widthRegion = FourRegionSumWidth(sheet.CellNumber(r, kWidthCol));
        const int col = PairColumn(sumUnitsRegion, widthRegion);
        sheet.SetBackColor(r, col, colours::kHit);
        sheet.SetText(r, col, kHitMarker);
    }
    FillMissCounters(sheet, kFirstPairCol, kLastPairCol);
    AddPairStatistics(sheet);
}

}  // namespace

std::span<const ReportDefinition> SumWidthRegionReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmhekuazonghe",
         .title = "Sum Units Four Regions&Width Four Regions",
         .build = Build},
    };
    return kReports;
}

}  // namespace numarel
