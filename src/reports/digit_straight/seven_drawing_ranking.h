#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

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

// How often each digit occurs in `digits`. A value outside 0..9 has no counter and is passed
// over, as a failed statement would be.
DigitCounts CountDigits(std::span<const short> digits);

// The ten digits ordered by count, highest first; equal counts go by the smaller digit first,
// so a digit's place among equals depends on its value, never on when it came. Every digit has
// a place, a digit with count 0 included.
std::array<short, 10> RankDigits(const DigitCounts& counts);

// Back colours gathered over many rows and written a colour at a time, for a pass that gives
// cells one of a few colours with no telling which: the sheet then looks a colour up once per
// batch, not at every change of colour. Gathering takes no branch on the colour.
template <std::size_t N>
class ColourBatch {
public:
    static_assert(N >= 1 && N <= 4, "a length of 16 bits per colour");
    explicit ColourBatch(const std::array<Rgb, N>& colours) : colours_(colours) {}

    // Gathers the cells of row `row` from column `firstCol` on, cell i for colour `indices[i]`;
    // an index of N gathers nothing. A batch near full is written.
    void Add(ReportSheet& sheet, int row, int firstCol, std::span<const std::uint8_t> indices) {
        std::uint64_t lengths = lengths_;  // kept at hand while the row is gathered
        for (std::size_t i = 0; i < indices.size() && i < kMaxRun; ++i) {
            // The cell goes to the end of every list, and only the list of its colour grows.
            const Cell cell{row, firstCol + static_cast<int>(i)};
            for (std::size_t k = 0; k < N; ++k)
                cells_[k][(lengths >> (16 * k)) & 0xFFFF] = cell;
            lengths += indices[i] < N ? std::uint64_t{1} << (16 * indices[i]) : 0;
        }
        lengths_ = lengths;
        for (std::size_t k = 0; k < N; ++k)
            if (Length(k) > kCapacity - kMaxRun) return Flush(sheet);
    }
    // Writes the gathered colours; to be called after the last row.
    void Flush(ReportSheet& sheet) {
        for (std::size_t k = 0; k < N; ++k)
            for (std::size_t i = 0; i < Length(k); ++i)
                sheet.SetBackColor(cells_[k][i].row, cells_[k][i].col, colours_[k]);
        lengths_ = 0;
    }

private:
    static constexpr std::size_t kCapacity = 1024;  // cells per colour in a batch
    static constexpr std::size_t kMaxRun = 16;      // cells gathered at a time
    struct Cell {
        int row;
        int col;
    };
    std::size_t Length(std::size_t k) const { return (lengths_ >> (16 * k)) & 0xFFFF; }

    std::array<Rgb, N> colours_;
    std::array<std::array<Cell, kCapacity>, N> cells_;
    std::uint64_t lengths_ = 0;  // 16 bits per colour
};

// The ranking as it slides down the sheet, for a report that works each row while it is at hand
// (inside FillSheet's work): Rank is given the rows in order from row 1, each once its digits
// are written.
class SevenDrawingRanking {
public:
    // Takes the digits of columns 34..36 of row - 1, read back from the sheet, into the seven and
    // lets the oldest go; from row 8 on writes the counts of the seven into columns 1..10 of
    // `row`, colours those count cells, and writes the ranked digits into columns 12..21. Rows 1
    // to 7 get nothing.
    void Rank(ReportSheet& sheet, int row);
    // Writes the colours of the count cells still gathered; to be called after the last row.
    void Finish(ReportSheet& sheet) { countColours_.Flush(sheet); }

private:
    std::array<std::array<short, 3>, kRankingDrawings> window_{};
    DigitCounts counts_{};
    // By count: below 2, exactly 2, above 2.
    ColourBatch<3> countColours_{
        {ranking_colours::kSeldom, ranking_colours::kTwice, ranking_colours::kOften}};
};

// Bands the four middle ranks, columns 15..18, of a row, ranked or not.
void ShadeMiddleRanks(ReportSheet& sheet, int row);

}  // namespace numarel
