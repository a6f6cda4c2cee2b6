// Recommend 3 digits: forecasts of three digits derived from each drawing, written on the row of
// the drawing they forecast and judged there; the last drawing's forecast is the recommendation.
#include <algorithm>
#include <array>
#include <climits>
#include <span>
#include <string>
#include <vector>

#include "data/basic_text.h"
#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/recommended_digits/digit_forecasts.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

using DigitTriple = std::array<short, 3>;

constexpr Rgb kTwoDigitsHit = MakeRgb(140, 219, 255);
constexpr Rgb kMissChartFore = MakeRgb(188, 194, 182);

// How a forecast is derived from the drawing of row r for row r + 1.
enum class Derivation {
    // The line of the table for the drawing's U.
    ByUnits,
    // The line of the table for the drawing's Sum.
    BySum,
    // The three digits missing longest in the miss chart of row r, the longest last.
    LongestMisses,
};

struct ThreeDigitForecast {
    Derivation derivation;
    std::span<const DigitTriple> table = {};  // ByUnits, BySum: the line for each value
    int firstSourceRow = 1;                   // drawings above this row give no forecast
    ForecastBlock block;
};

// What sets one report apart.
struct ThreeDigitReport {
    std::span<const SheetColumn> columns;
    std::span<const ThreeDigitForecast> forecasts;
    // The store column of the drawing's distinct digits and the column that reads "Just hit"
    // where they all lie in the first forecast; -1: neither.
    int distinctCol = -1;
    int noteCol = -1;
    // The first of ten store columns, one per digit, that hold "*" where the digit was drawn and
    // its Miss elsewhere; -1: no chart.
    int missChartCol = -1;
};

// {U, U + 3, U + 6} modulo 10; from U = 4 on the last two stand exchanged.
constexpr DigitTriple kByUnits[] = {
    {0, 3, 6}, {1, 4, 7}, {2, 5, 8}, {3, 6, 9}, {4, 0, 7},
    {5, 1, 8}, {6, 2, 9}, {7, 3, 0}, {8, 1, 4}, {9, 2, 5},
};

constexpr DigitTriple kBySum[] = {
    {0, 3, 6}, {4, 5, 6}, {0, 1, 9}, {3, 6, 7}, {2, 5, 7}, {4, 5, 7}, {1, 3, 8},
    {2, 3, 7}, {2, 6, 8}, {2, 4, 5}, {2, 8, 9}, {0, 2, 8}, {0, 1, 9}, {1, 6, 7},
    {1, 3, 6}, {1, 2, 5}, {1, 3, 4}, {1, 3, 4}, {1, 2, 7}, {0, 1, 2}, {1, 4, 5},
    {0, 1, 9}, {0, 1, 4}, {0, 5, 9}, {3, 5, 9}, {1, 5, 9}, {0, 4, 8}, {4, 7, 8},
};

constexpr SheetColumn kColumnsA[] = {
    {1290}, {300, "H"}, {300, "T"},   {300, "U"}, {20},         {300},
    {300},  {300},      {430, "Y/N"}, {20},       {-1, "Note"}, {20},
};
constexpr ThreeDigitForecast kForecastsA[] = {
    {.derivation = Derivation::ByUnits,
     .table = kByUnits,
     .firstSourceRow = 1,
     .block = {.firstCol = 5,
               .lastCol = 7,
               .markerCol = 8,
               .firstJudgedRow = 2,
               .hitColour = colours::kFoundDigit}},
};
constexpr ThreeDigitReport kRecommendA = {
    .columns = kColumnsA,
    .forecasts = kForecastsA,
    .distinctCol = 9,
    .noteCol = 10,
};

constexpr SheetColumn kColumnsBC[] = {
    {1290},      {300, "H"},  {300, "T"},   {300, "U"},  {20},        {300, "B1"},
    {300, "B2"}, {300, "B3"}, {430, "Y/N"}, {150},       {2, "0"},    {2, "1"},
    {2, "2"},    {2, "3"},    {2, "4"},     {2, "5"},    {2, "6"},    {2, "7"},
    {2, "8"},    {2, "9"},    {300, "C1"},  {300, "C2"}, {300, "C3"}, {430, "Y/N"},
};
constexpr ThreeDigitForecast kForecastsBC[] = {
    {.derivation = Derivation::LongestMisses,
     .firstSourceRow = 10,
     .block = {.firstCol = 5,
               .lastCol = 7,
               .markerCol = 8,
               .firstJudgedRow = 11,
               .hitColour = colours::kHit,
               .pairColour = kTwoDigitsHit,
               .firstPairRow = 11}},
    {.derivation = Derivation::BySum,
     .table = kBySum,
     .firstSourceRow = 1,
     .block = {.firstCol = 20,
               .lastCol = 22,
               .markerCol = 23,
               .firstJudgedRow = 2,
               .hitColour = colours::kHit,
               .pairColour = kTwoDigitsHit,
               .firstPairRow = 11}},
};
constexpr ThreeDigitReport kRecommendBC = {
    .columns = kColumnsBC,
    .forecasts = kForecastsBC,
    .missChartCol = 10,
};

void WriteTriple(ReportSheet& sheet, int row, int firstCol, const DigitTriple& digits) {
    for (int i = 0; i < 3; ++i)
        sheet.SetNumber(row, firstCol + i, digits[static_cast<std::size_t>(i)]);
}

// The three digits missing longest on row `row`, the longest last; of equal Misses the larger
// digit ranks as the longer, as a stable sort of all ten leaves them. A star reads as a Miss of 0.
DigitTriple LongestMissing(const ReportSheet& sheet, int row, int chartCol) {
    // A digit's rank is its Miss and then the digit, as one number. The three largest ranks are
    // kept in ascending order: each rank goes in at its place and the smallest drops out.
    std::array<int, 3> top = {INT_MIN, INT_MIN, INT_MIN};
    for (int d = 0; d < 10; ++d) {
        const int rank = sheet.CellNumber(row, chartCol + d) * 16 + d;
        const int below2 = std::min(top[2], rank);
        const int below1 = std::min(top[1], below2);
        top = {std::max(top[0], below1), std::max(top[1], below2), std::max(top[2], rank)};
    }
    DigitTriple digits{};
    for (std::size_t i = 0; i < 3; ++i)
        digits[i] = static_cast<short>(top[i] & 15);  // the digit, whatever the sign of the Miss
    return digits;
}

// Writes the forecast derived from the drawing of row `row` into row `row` + 1.
void Derive(ReportSheet& sheet, const ThreeDigitReport& report, const ThreeDigitForecast& f,
            int row) {
    const int col = f.block.firstCol;
    switch (f.derivation) {
        case Derivation::ByUnits:
        case Derivation::BySum: {
            // A value without a line of the table leaves the next row without a forecast.
            const int value = f.derivation == Derivation::ByUnits
                                  ? sheet.CellNumber(row, 3)
                                  : sheet.CellNumber(row, 1) + sheet.CellNumber(row, 2) +
                                        sheet.CellNumber(row, 3);
            if (value >= 0 && value < static_cast<int>(f.table.size()))
                WriteTriple(sheet, row + 1, col, f.table[static_cast<std::size_t>(value)]);
            break;
        }
        case Derivation::LongestMisses: {
            WriteTriple(sheet, row + 1, col, LongestMissing(sheet, row, report.missChartCol));
            break;
        }
    }
}

// True when (row, col) lies in a forecast block and holds a forecast already.
bool HoldsForecast(const ReportSheet& sheet, int row, int col,
                   std::span<const ForecastBlock> blocks) {
    for (const ForecastBlock& block : blocks)
        if (col >= block.firstCol && col <= block.lastCol && !sheet.IsEmpty(row, col)) return true;
    return false;
}

// The miss chart of a drawing's row: "*" where a digit was drawn, and in each cell still empty
// the number of drawings since the digit's last hit, counting this one, in its own fore colour.
// A digit outside 0 to 9 puts its star outside the chart, where it may meet a forecast cell: the
// forecast, which the row before gave already, stays there, as it would be written over the star
// if the forecasts came after the whole chart.
void WriteMissChartRow(ReportSheet& sheet, int row, int firstCol, const CurrentDigits& digits,
                       std::span<const ForecastBlock> blocks, MissCounters& misses) {
    for (short d : digits) {
        const int col = firstCol + d;
        if ((d < 0 || d > 9) && HoldsForecast(sheet, row, col, blocks)) continue;
        sheet.SetText(row, col, "*");
    }
    misses.FillRow(sheet, row);
}

// "Just hit" on row `row` where every distinct digit of a drawing with two or three of them was
// forecast: each forecast cell counts by its trimmed text, when that is one character.
void MarkWholeDrawingForecast(ReportSheet& sheet, const ThreeDigitReport& report, int row) {
    const ForecastBlock& block = report.forecasts.front().block;
    ReportSheet::NumberDigits distinctDigits;
    const std::string_view distinct = sheet.TextView(row, report.distinctCol, distinctDigits);
    int found = 0;
    for (int c = block.firstCol; c <= block.firstCol + 2; ++c) {
        ReportSheet::NumberDigits forecastDigits;
        const std::string_view forecast = Trim(sheet.TextView(row, c, forecastDigits));
        if (forecast.size() != 1) continue;
        for (char digit : distinct)
            found += digit == forecast[0];
    }
    if (found == 3 || (found == 2 && distinct.size() == 2)) {
        sheet.SetText(row, report.noteCol, "Just hit");
        sheet.SetBackColor(row, report.noteCol, colours::kHit);
    }
}

// The drawings' rows are worked one after the other while each is at hand: its miss chart and
// distinct digits, the forecasts it gives the next row, then the judgement of the forecasts the
// row before gave it.
void Build(const ThreeDigitReport& report, std::span<const DrawRecord> drawings,
           ReportSheet& sheet) {
    SetColumns(sheet, report.columns);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);

    std::vector<ForecastBlock> blocks;
    for (const ThreeDigitForecast& forecast : report.forecasts)
        blocks.push_back(forecast.block);
    ForecastJudge judge(sheet, blocks);
    MissCounters chartMisses(report.missChartCol, report.missChartCol + 9, kMissChartFore);

    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        if (report.missChartCol >= 0)
            WriteMissChartRow(sheet, row, report.missChartCol, digits, blocks, chartMisses);
        if (report.distinctCol >= 0) {
            SortDigits(digits);
            sheet.SetText(row, report.distinctCol, DistinctDigits(digits));
        }
        for (const ThreeDigitForecast& forecast : report.forecasts)
            if (row >= forecast.firstSourceRow) Derive(sheet, report, forecast, row);
        judge.JudgeRow(row);
        if (report.noteCol >= 0) MarkWholeDrawingForecast(sheet, report, row);
    });

    WriteHeaders(sheet, report.columns);
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> RecommendThreeDigitsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmdingdanshh",
         .title = "Recommend 3 digits-A",
         .build = BuildMember<Build, kRecommendA>},
        {.object = "frmtongsha3ma",
         .title = "Recommend 3 digits-BC",
         .build = BuildMember<Build, kRecommendBC>},
    };
    return kReports;
}

// The claims the scoreboard follows, each judged as the report judges it.
std::span<const ScoredMethod> RecommendThreeDigitsMethods() {
    static constexpr ScoredMethod kMethods[] = {
        {.object = "frmdingdanshh", .name = "A", .claimCount = 3},
        {.object = "frmtongsha3ma", .name = "B", .claimCount = 3, .firstJudgedRow = 11},
        {.object = "frmtongsha3ma",
         .name = "C",
         .firstClaimCol = 20,
         .claimCount = 3,
         .judgeCol = 23},
    };
    return kMethods;
}

}  // namespace numarel
