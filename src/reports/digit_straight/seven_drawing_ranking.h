#pragma once

#include <array>

#include "frame/report_sheet.h"

namespace numarel {

// The ranking of the ten digits by how often they came up in the seven drawings before a row.
// Cold Warm Hot splits it into Hot, Warm and Cold lists; Recommend Pairs forms pairs from it.
// Both keep it in the same columns, so the sheet pass below serves them both.

// How many of the drawings before a row are counted.
inline constexpr int kRankingDrawings = 7;

// Where the ranking lives on the sheet of both reports.
namespace ranking_cols {
inline constexpr int kFirstCount = 1;  // columns 1..10: how often digit 0..9 came up
inline constexpr int kFirstRank = 12;  // columns 12..21: the digits, most frequent first
inline constexpr int kLastRank = 21;
inline constexpr int kFirstMiddleRank = 15;  // columns 15..18: the four middle ranks
inline constexpr int kLastMiddleRank = 18;
inline constexpr int kFirstDigit = 34;  // columns 34..36: H, T, U of the drawing
}  // namespace ranking_cols

// Back colours of the count cells: above 2, exactly 2, below 2.
namespace ranking_colours {
inline constexpr Rgb kOften = MakeRgb(255, 0, 0);
inline constexpr Rgb kTwice = MakeRgb(255, 243, 42);
inline constexpr Rgb kSeldom = MakeRgb(1, 188, 243);
// The band over the four middle ranks.
inline constexpr Rgb kMiddleRanks = MakeRgb(249, 212, 194);
}  // namespace ranking_colours

using DigitCounts = std::array<short, 10>;

// The ten digits ordered by count, highest first; equal counts go by the smaller digit first,
// so a digit's place among equals depends on its value, never on when it came. Every digit has
// a place, a digit with count 0 included.
std::array<short, 10> RankDigits(const DigitCounts& counts);

// The ranking as it slides down the sheet, for a report that works each row while it is at hand
// (inside FillSheet's work): Rank is given the rows in order from row 1, each once its digits
// are written.
class SevenDrawingRanking {
public:
    // Counts the digits of columns 34..36 of row - 1, read back from the sheet, and lets those of
    // row - 8 go; from row 8 on writes the counts of the seven rows before `row` into columns
    // 1..10 of `row`, colours those count cells, and writes the ranked digits into columns
    // 12..21. Rows 1 to 7 get nothing.
    void Rank(ReportSheet& sheet, int row);

private:
    DigitCounts counts_{};
};

// Bands the four middle ranks, columns 15..18, of a row, ranked or not.
void ShadeMiddleRanks(ReportSheet& sheet, int row);

}  // namespace numarel
