// Recommend 3 digits: forecasts of three digits derived from each drawing, written on the row of
// the drawing they forecast and judged there; the last drawing's forecast is the recommendation.
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
// digit ranks as the longer, as a stable sort of all ten leaves them.
DigitTriple LongestMissing(ReportSheet& sheet, int row, int chartCol) {
    // A digit's rank as one number, its Miss before it and the digit after it; the three largest
    // are kept in ascending order.
    std::array<int, 3> top = {INT_MIN, INT_MIN, INT_MIN};
    const ReportSheet::RowRun chart = sheet.Run(row, chartCol, chartCol + 9);
    for (int d = 0; d < 10; ++d) {
        // A cell outside the sheet reads as empty, a Miss of 0.
        const short miss = d >= chart.Count() || chart.TextIs(d, "*") ? 0 : chart.CellNumber(d);
        const int rank = miss * 16 + d;
        if (rank < top[0]) continue;
        if (rank < top[1]) {
            top[0] = rank;
        } else if (rank < top[2]) {
            top = {top[1], rank, top[2]};
        } else {
            top = {top[1], top[2], rank};
        }
    }
    DigitTriple digits{};
    for (std::size_t i = 0; i < 3; ++i)
        digits[i] = static_cast<short>(top[i] & 15);  // the digit, whatever the sign of the Miss
    return digits;
}

void Derive(ReportSheet& sheet, const ThreeDigitReport& report, const ThreeDigitForecast& f) {
    const int drawCount = sheet.DrawCount();
    const int col = f.block.firstCol;
    for (int r = f.firstSourceRow; r <= drawCount; ++r) {
        switch (f.derivation) {
            case Derivation::ByUnits:
            case Derivation::BySum: {
                // A value without a line of the table leaves the next row without a forecast.
                const int value =
                    f.derivation == Derivation::ByUnits
                        ? sheet.CellNumber(r, 3)
                        : sheet.CellNumber(r, 1) + sheet.CellNumber(r, 2) + sheet.CellNumber(r, 3);
                if (value >= 0 && value < static_cast<int>(f.table.size()))
                    WriteTriple(sheet, r + 1, col, f.table[static_cast<std::size_t>(value)]);
                break;
            }
            case Derivation::LongestMisses: {
                WriteTriple(sheet, r + 1, col, LongestMissing(sheet, r, report.missChartCol));
                break;
            }
        }
    }
}

// "Just hit" where every distinct digit of a drawing with two or three of them was forecast.
void MarkWholeDrawingsForecast(ReportSheet& sheet, const ThreeDigitReport& report) {
    const ForecastBlock& block = report.forecasts.front().block;
    ReportSheet::NumberDigits distinctDigits;
    ReportSheet::NumberDigits forecastDigits;
    for (int r = 1; r <= sheet.DrawCount(); ++r) {
        const std::string_view distinct = sheet.TextView(r, report.distinctCol, distinctDigits);
        int found = 0;
        for (int c = block.firstCol; c <= block.lastCol; ++c) {
            const std::string_view trimmed = Trim(sheet.TextView(r, c, forecastDigits));
            for (char digit : distinct)
                if (trimmed == std::string_view(&digit, 1)) ++found;
        }
        if (found == 3 || (found == 2 && distinct.size() == 2)) {
            sheet.SetText(r, report.noteCol, "Just hit");
            sheet.SetBackColor(r, report.noteCol, colours::kHit);
        }
    }
}

void Build(const ThreeDigitReport& report, std::span<const DrawRecord> drawings,
           ReportSheet& sheet) {
    SetColumns(sheet, report.columns);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        if (report.missChartCol >= 0)
            for (short d : digits)
                sheet.SetText(row, report.missChartCol + d, "*");
        if (report.distinctCol >= 0) {
            SortDigits(digits);
            sheet.SetText(row, report.distinctCol, DistinctDigits(digits));
        }
    });
    if (report.missChartCol >= 0) {
        // The cells still empty are those that get a Miss number.
        const int lastCol = report.missChartCol + 9;
        for (int r = 1; r <= drawCount; ++r) {
            const ReportSheet::RowRun chart = sheet.Run(r, report.missChartCol, lastCol);
            for (int i = 0; i < chart.Count(); ++i)
                if (chart.IsEmpty(i))
                    sheet.SetForeColor(r, report.missChartCol + i, kMissChartFore);
        }
        FillMissCounters(sheet, report.missChartCol, lastCol);
    }
    for (const ThreeDigitForecast& forecast : report.forecasts)
        Derive(sheet, report, forecast);

    WriteHeaders(sheet, report.columns);
    FinishLoad(sheet);

    std::vector<ForecastBlock> blocks;
    for (const ThreeDigitForecast& forecast : report.forecasts)
        blocks.push_back(forecast.block);
    JudgeForecasts(sheet, blocks);
    if (report.noteCol >= 0) MarkWholeDrawingsForecast(sheet, report);
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

}  // namespace numarel
