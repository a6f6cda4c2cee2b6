// One digit forecast for the next drawing from the digits of the last one, written on the row of
// the drawing it forecasts and judged there; the forecast in the next drawing's row is the
// recommendation.
#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kForecastCol = 5;
constexpr int kJudgementCol = 6;

enum class Method {
    // The last digit of 4H + 9T + 9U + 3; every drawing row is judged "-Y-" or "-N-" by how many
    // of its digits are the forecast.
    WeightedSum,
    // A fixed digit for each H; only a forecast digit that was drawn is marked.
    HundredsTable,
};

constexpr Method kWeightedSum = Method::WeightedSum;
constexpr Method kHundredsTable = Method::HundredsTable;

// How many digits of a drawing are the forecast, as the number-to-text rule writes them.
constexpr std::string_view kDrawnCounts[] = {" 0", " 1", " 2", " 3"};

constexpr std::array<short, 10> kDigitForHundreds = {0, 8, 6, 4, 7, 9, 1, 2, 4, 6};

// 4a + 9b + 9c + 3 in 16-bit steps, left to right; nothing when a step overflows.
std::optional<short> WeightedSum(int a, int b, int c) {
    int sum = 0;
    for (int term : {4 * a, 9 * b, 9 * c, 3}) {
        if (term < -32768 || term > 32767) return std::nullopt;
        sum += term;
        if (sum < -32768 || sum > 32767) return std::nullopt;
    }
    return static_cast<short>(sum);
}

// The forecast runs over the rows that the drawings file still holds when read again, which are
// the drawings in the sheet. A sum that overflows leaves the forecast of the row before.
void ForecastByWeightedSum(ReportSheet& sheet, std::span<const DrawRecord> drawings) {
    const int drawCount = sheet.DrawCount();
    const int rowsRead = std::min(drawCount, static_cast<int>(ReportDrawCount(drawings)));
    short x = 0;
    for (int r = 1; r <= rowsRead; ++r) {
        if (auto sum =
                WeightedSum(sheet.CellNumber(r, 1), sheet.CellNumber(r, 2), sheet.CellNumber(r, 3)))
            x = static_cast<short>(*sum % 10);
        sheet.SetNumber(r + 1, kForecastCol, x);
        if (r + 1 > drawCount) continue;
        int drawn = 0;
        for (int p = 1; p <= 3; ++p)
            if (sheet.CellNumber(r + 1, p) == x) ++drawn;
        sheet.SetText(r + 1, kJudgementCol, kDrawnCounts[static_cast<std::size_t>(drawn)]);
    }
    for (int r = 1; r <= drawCount; ++r) {
        if (sheet.CellNumber(r, kJudgementCol) > 0) {
            sheet.SetText(r, kJudgementCol, "-Y-");
            sheet.SetBackColor(r, kJudgementCol, colours::kHit);
        } else {
            sheet.SetText(r, kJudgementCol, "-N-");
        }
    }
}

// An H outside 0 to 9 has no line in the table and leaves the next row without a forecast.
void ForecastByHundredsTable(ReportSheet& sheet) {
    const int drawCount = sheet.DrawCount();
    for (int r = 1; r <= drawCount; ++r) {
        const short h = sheet.CellNumber(r, 1);
        if (h >= 0 && h <= 9)
            sheet.SetNumber(r + 1, kForecastCol, kDigitForHundreds[static_cast<std::size_t>(h)]);
    }
    for (int r = 2; r <= drawCount; ++r) {
        const std::string forecast = sheet.Text(r, kForecastCol);
        for (int p = 1; p <= 3; ++p) {
            if (sheet.TextIs(r, p, forecast)) {
                sheet.SetText(r, kJudgementCol, "-Y-");
                sheet.SetBackColor(r, kJudgementCol, colours::kHit);
            }
        }
    }
}

void Build(Method method, std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(7);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(4, 20);
    sheet.SetColWidth(kForecastCol, 860);
    sheet.SetColWidth(kJudgementCol, 430);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    FillSheet(sheet, drawings);

    HeadDigitColumns(sheet);
    sheet.SetText(0, kForecastCol, "1 digit");
    sheet.SetText(0, kJudgementCol, "Y/N");
    FinishLoad(sheet);

    if (method == Method::WeightedSum)
        ForecastByWeightedSum(sheet, drawings);
    else
        ForecastByHundredsTable(sheet);
}

}  // namespace

std::span<const ReportDefinition> RecommendOneDigitReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmzonghe",
         .title = "Recommend 1 digit[1]",
         .build = BuildMember<Build, kWeightedSum>},
        {.object = "frmtongsha1ma",
         .title = "Recommend 1 digit[2]",
         .build = BuildMember<Build, kHundredsTable>},
    };
    return kReports;
}

}  // namespace numarel
