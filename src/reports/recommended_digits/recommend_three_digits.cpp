// Recommend 3 digits: forecasts of three digits derived from each drawing, written on the row of
// the drawing they forecast and judged there; the last drawing's forecast is the recommendation.
#include <algorithm>
#include <array>
#include <bit>
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
// digit ranks as the longer, as a stable sort of all ten leaves them.
DigitTriple LongestMissing(ReportSheet& sheet, int row, int chartCol,
                           const ReportSheet::TextKey& star) {
    // A chart cell holds a Miss number or a star, in places that are random: both are read
    // without a branch, and any other text, which is rare, by its number afterwards (a star
    // written any other way reads as 0 too). A cell outside the sheet reads as empty, a Miss of 0.
    const ReportSheet::RowRun chart = sheet.Run(row, chartCol, chartCol + 9);
    std::array<short, 10> misses{};
    unsigned others = 0;
    for (int d = 0; d < chart.Count(); ++d) {
        misses[static_cast<std::size_t>(d)] = chart.NumberOrZero(d);
        others |= static_cast<unsigned>(!chart.HoldsNumber(d) & !chart.Holds(d, star)) << d;
    }
    for (unsigned rest = others; rest != 0; rest &= rest - 1) {
        const int d = std::countr_zero(rest);
        misses[static_cast<std::size_t>(d)] = chart.CellNumber(d);
    }
    // A digit's rank as one number, its Miss before it and the digit after it; the three largest
    // are kept in ascending order. Each rank goes in at its place and the smallest drops out,
    // without a branch. No two ranks are equal, as their digits differ.
    std::array<int, 3> top = {INT_MIN, INT_MIN, INT_MIN};
    for (int d = 0; d < 10; ++d) {
        const int rank = misses[static_cast<std::size_t>(d)] * 16 + d;
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
            int row, const ReportSheet::TextKey& star) {
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
            WriteTriple(sheet, row + 1, col, LongestMissing(sheet, row, report.missChartCol, star));
            break;
        }
    }
}

// The miss chart of a drawing's row: "*" where a digit was drawn, and in each cell still empty
// the number of drawings since the digit's last hit, counting this one, in its own fore colour.
class MissChart {
public:
    MissChart(ReportSheet& sheet, int firstCol)
        : sheet_(sheet),
          firstCol_(firstCol),
          star_(sheet.Prepare("*")),
          missFore_(sheet.PrepareColour(kMissChartFore)) {}
    // The star of a drawn digit, made ready for the sheet.
    const ReportSheet::TextKey& Star() const { return star_; }

    // A digit outside 0 to 9 puts its star outside the chart, where it may meet a forecast
    // cell: the forecast, which the row before gave already, stays there, as it would be written
    // over the star if the forecasts came after the whole chart.
    void WriteRow(int row, const CurrentDigits& digits, std::span<const ForecastBlock> blocks) {
        for (short d : digits) {
            const int col = firstCol_ + d;
            if ((d < 0 || d > 9) && HoldsForecast(row, col, blocks)) continue;
            sheet_.SetText(row, col, star_);
        }
        // Which cells are empty is random: they are gathered with their Miss numbers first, and
        // the counters move on, without a branch; then the gathered cells are written.
        ReportSheet::RowRun chart = sheet_.Run(row, firstCol_, firstCol_ + 9);
        std::array<int, 10> emptyCells;
        std::array<short, 10> misses;
        std::size_t empty = 0;
        for (int i = 0; i < chart.Count(); ++i) {
            short& counter = counters_[static_cast<std::size_t>(i)];
            const bool isEmpty = chart.IsEmpty(i);
            emptyCells[empty] = i;
            misses[empty] = counter;
            empty += isEmpty;
            counter = isEmpty ? static_cast<short>(counter + 1) : short{1};
        }
        for (std::size_t k = 0; k < empty; ++k) {
            chart.SetForeColor(emptyCells[k], missFore_);
            chart.SetNumber(emptyCells[k], misses[k]);
        }
    }

private:
    bool HoldsForecast(int row, int col, std::span<const ForecastBlock> blocks) const {
        for (const ForecastBlock& block : blocks)
            if (col >= block.firstCol && col <= block.lastCol && !sheet_.IsEmpty(row, col))
                return true;
        return false;
    }

    ReportSheet& sheet_;
    int firstCol_;
    ReportSheet::TextKey star_;
    ReportSheet::ColourKey missFore_;
    std::array<short, 10> counters_ = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
};

// "Just hit" on row `row` where every distinct digit of a drawing with two or three of them was
// forecast.
// `written` is the text the distinct digits were written with, read again only where the cell
// no longer holds it.
void MarkWholeDrawingForecast(ReportSheet& sheet, const ThreeDigitReport& report, int row,
                              const ReportSheet::TextKey& written) {
    const ForecastBlock& block = report.forecasts.front().block;
    ReportSheet::NumberDigits distinctDigits;
    ReportSheet::NumberDigits forecastDigits;
    const std::string_view distinct = sheet.Holds(row, report.distinctCol, written)
                                          ? written.text
                                          : sheet.TextView(row, report.distinctCol, distinctDigits);
    // Each of the three forecast cells' trimmed text as one character, or none where it is
    // longer or empty. The forecasts are digits: a number's text is one character from 0 to 9.
    const ReportSheet::RowRun cells = sheet.Run(row, block.firstCol, block.firstCol + 2);
    std::array<char, 3> forecast{};
    std::array<bool, 3> single{};
    for (std::size_t i = 0; i < forecast.size(); ++i) {
        const int c = block.firstCol + static_cast<int>(i);
        if (static_cast<int>(i) < cells.Count() && cells.HoldsNumber(static_cast<int>(i))) {
            const int value = cells.CellNumber(static_cast<int>(i));
            single[i] = value >= 0 && value <= 9;
            forecast[i] = static_cast<char>('0' + value);
        } else {
            const std::string_view trimmed = Trim(sheet.TextView(row, c, forecastDigits));
            single[i] = trimmed.size() == 1;
            forecast[i] = single[i] ? trimmed[0] : '\0';
        }
    }
    // The drawings are random: the characters are compared without a branch on each.
    int found = 0;
    for (char digit : distinct)
        for (std::size_t i = 0; i < forecast.size(); ++i)
            found += single[i] && forecast[i] == digit;
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
    MissChart missChart(sheet, report.missChartCol);
    SortedDigitTexts distinctTexts(sheet, DistinctDigits);

    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        if (report.missChartCol >= 0) missChart.WriteRow(row, digits, blocks);
        ReportSheet::TextKey distinct;
        if (report.distinctCol >= 0) {
            SortDigits(digits);
            distinct = distinctTexts.Write(row, report.distinctCol, digits);
        }
        for (const ThreeDigitForecast& forecast : report.forecasts)
            if (row >= forecast.firstSourceRow)
                Derive(sheet, report, forecast, row, missChart.Star());
        judge.JudgeRow(row);
        if (report.noteCol >= 0) MarkWholeDrawingForecast(sheet, report, row, distinct);
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
