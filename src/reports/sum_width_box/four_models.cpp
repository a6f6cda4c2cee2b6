#include <array>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 9;
constexpr int kFirstModelCol = 5;
constexpr int kLastModelCol = 8;
constexpr std::string_view kHitMarker = "*************";

// Each model is the Big and Small tally joined to the Odd and Even tally: "2B1S;2O1E" is two Big
// digits and two Odd ones.
constexpr std::string_view kModels[] = {"2B1S;2O1E", "2B1S;2E1O", "2S1B;2O1E", "2S1B;2E1O"};

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1218);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    for (int c = kFirstModelCol; c <= kLastModelCol; ++c)
        sheet.SetColWidth(c, 1178);
    sheet.SetColWidth(4, 30);

    const int drawCount = CountDrawings(drawings);
    // Room for the statistic rows from the start, so that adding them does not move the sheet.
    sheet.SetRows(drawCount + 6);
    ResetSheet(sheet, drawCount, drawCount + 2);

    // The headers come first, so that each drawing is matched while its row is at hand.
    HeadDigitColumns(sheet);
    for (int c = kFirstModelCol; c <= kLastModelCol; ++c)
        sheet.SetText(0, c, kModels[c - kFirstModelCol]);

    // A drawing hits the model whose header is its own pair of tallies; three Big, three Small,
    // three Odd or three Even digits match no header. The tallies depend only on how many digits
    // are Small and how many Even, so each pair of tallies is written out once.
    std::array<std::string, 16> talliesByCounts;
    FillSheet(sheet, drawings, [&](int r, CurrentDigits&) {
        const CurrentDigits digits = {sheet.CellNumber(r, 1), sheet.CellNumber(r, 2),
                                      sheet.CellNumber(r, 3)};
        int small = 0;
        int even = 0;
        for (short digit : digits) {
            if (DigitClassLetter(digit, ClassPair::BigSmall) == 'S') ++small;
            if (DigitClassLetter(digit, ClassPair::OddEven) == 'E') ++even;
        }
        std::string& tallies = talliesByCounts[static_cast<std::size_t>(small * 4 + even)];
        if (tallies.empty())
            tallies = TallyString(digits, ClassPair::BigSmall) + ';' +
                      TallyString(digits, ClassPair::OddEven);
        for (int c = kFirstModelCol; c <= kLastModelCol; ++c) {
            if (!sheet.TextIs(0, c, tallies)) continue;
            sheet.SetText(r, c, kHitMarker);
            break;
        }
    });
    FinishLoad(sheet);
    FillMissCountersAndStatisticRows(sheet, kLastModelCol, kHitMarker, AverageRule::EmptyWhenNoHit,
                                     kFirstModelCol);
}

}  // namespace

std::span<const ReportDefinition> FourModelsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmxingtai1", .title = "Four Models", .build = Build},
    };
    return kReports;
}

}  // namespace numarel
