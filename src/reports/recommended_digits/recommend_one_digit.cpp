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
#include "reports/scoreboard/scored_method.h"

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

// A date of plain digits that starts with a digit other than 0 reads as a number other than 0:
// the common case is told without reading the date as a number.
bool IsEndOfDrawings(const DrawRecord& record) {
    const std::string& date = record.date;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (!date.empty() && date[0] != '0' && std::all_of(date.begin(), date.end(), isDigit))
        return false;
    return IsEndMarker(record);
}

// The forecast by weighted sum, worked on each drawing's row while it is at hand: the count of
// the forecast the row before gave, its judgement, and the forecast for the next row.
//
// The forecast runs over the rows that the drawings file still holds when read again, which are
// the drawings before the first end marker. A sum that overflows leaves the forecast of the row
// before.
class WeightedSumForecast {
public:
    WeightedSumForecast(ReportSheet& sheet, std::span<const DrawRecord> drawings)
        : sheet_(sheet), drawings_(drawings) {}

    void WorkRow(int r) {
        const bool forecastBefore = r >= 2 && !ended_;
        ended_ = ended_ || IsEndOfDrawings(drawings_[static_cast<std::size_t>(r - 1)]);
        // How many digits of this row are the forecast the row before gave.
        if (forecastBefore) {
            int drawn = 0;
            for (int p = 1; p <= 3; ++p)
                if (sheet_.CellNumber(r, p) == x_) ++drawn;
            sheet_.SetText(r, kJudgementCol, kDrawnCounts[static_cast<std::size_t>(drawn)]);
        }
        if (!ended_) {
            if (auto sum = WeightedSum(sheet_.CellNumber(r, 1), sheet_.CellNumber(r, 2),
                                       sheet_.CellNumber(r, 3)))
                x_ = static_cast<short>(*sum % 10);
            sheet_.SetNumber(r + 1, kForecastCol, x_);
        }
        // The judgement reads the count back and writes over it.
        if (sheet_.CellNumber(r, kJudgementCol) > 0) {
            sheet_.SetText(r, kJudgementCol, "-Y-");
            sheet_.SetBackColor(r, kJudgementCol, colours::kHit);
        } else {
            sheet_.SetText(r, kJudgementCol, "-N-");
        }
    }

private:
    ReportSheet& sheet_;
    std::span<const DrawRecord> drawings_;
    bool ended_ = false;  // an end marker was read
    short x_ = 0;
};

// The forecast by the table, worked on each drawing's row: the judgement of the forecast the row
// before gave, then the forecast for the next row. An H outside 0 to 9 has no line in the table
// and leaves the next row without a forecast.
void WorkRowByHundredsTable(ReportSheet& sheet, int r) {
    if (r >= 2) {
        for (int p = 1; p <= 3; ++p) {
            if (sheet.SameText(r, p, r, kForecastCol)) {
                sheet.SetText(r, kJudgementCol, "-Y-");
                sheet.SetBackColor(r, kJudgementCol, colours::kHit);
            }
        }
    }
    const short h = sheet.CellNumber(r, 1);
    if (h >= 0 && h <= 9)
        sheet.SetNumber(r + 1, kForecastCol, kDigitForHundreds[static_cast<std::size_t>(h)]);
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
    if (method == Method::WeightedSum) {
        WeightedSumForecast forecast(sheet, drawings);
        FillSheet(sheet, drawings, [&](int row, CurrentDigits&) { forecast.WorkRow(row); });
    } else {
        FillSheet(sheet, drawings,
                  [&](int row, CurrentDigits&) { WorkRowByHundredsTable(sheet, row); });
    }

    HeadDigitColumns(sheet);
    sheet.SetText(0, kForecastCol, "1 digit");
    sheet.SetText(0, kJudgementCol, "Y/N");
    FinishLoad(sheet);
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

// The claims the scoreboard follows, each judged as the report judges it.
std::span<const ScoredMethod> RecommendOneDigitMethods() {
    static constexpr ScoredMethod kMethods[] = {
        {.object = "frmzonghe", .name = "1 digit", .judgeCol = 6},
        {.object = "frmtongsha1ma", .name = "1 digit", .judgeCol = 6},
    };
    return kMethods;
}

}  // namespace numarel
