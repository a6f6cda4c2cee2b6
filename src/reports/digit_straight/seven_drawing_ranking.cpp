#include "reports/digit_straight/seven_drawing_ranking.h"

#include <algorithm>

namespace numarel {

std::array<short, 10> RankDigits(const DigitCounts& counts) {
    // A key per digit that ranks it: its count, then the digit reversed, so that among equal
    // counts the smaller digit ranks higher. A digit's place is the number of higher keys. The
    // keys fill sixteen places, the last six lower than any digit's, so that each key is held
    // against all the others at once.
    std::array<short, 16> keys;
    keys.fill(-1);
    for (std::size_t d = 0; d < 10; ++d)
        keys[d] = static_cast<short>(counts[d] * 10 + (9 - static_cast<int>(d)));
    std::array<short, 16> places{};
    for (std::size_t k = 0; k < 10; ++k)
        for (std::size_t d = 0; d < places.size(); ++d)
            places[d] = static_cast<short>(places[d] + (keys[k] > keys[d] ? 1 : 0));
    std::array<short, 10> order{};
    for (std::size_t d = 0; d < 10; ++d)
        order[static_cast<std::size_t>(places[d])] = static_cast<short>(d);
    return order;
}

namespace {

// The colour of a count cell: counts 0 and 1, 2, then 3 and more.
Rgb CountColour(short count) {
    static constexpr std::array<Rgb, 4> kByCount{ranking_colours::kSeldom, ranking_colours::kSeldom,
                                                 ranking_colours::kTwice, ranking_colours::kOften};
    return kByCount[std::min<std::size_t>(static_cast<std::size_t>(count), kByCount.size() - 1)];
}

}  // namespace

void SevenDrawingRanking::Rank(ReportSheet& sheet, int row) {
    using namespace ranking_cols;
    auto count = [&](int r, short step) {
        for (int c = kFirstDigit; c < kFirstDigit + 3; ++c) {
            const short d = sheet.CellNumber(r, c);
            if (d >= 0 && d <= 9) counts_[static_cast<std::size_t>(d)] += step;
        }
    };
    if (row >= 2) count(row - 1, 1);
    if (row >= 2 + kRankingDrawings) count(row - 1 - kRankingDrawings, -1);
    if (row <= kRankingDrawings) return;
    for (int d = 0; d <= 9; ++d) {
        const short n = counts_[static_cast<std::size_t>(d)];
        sheet.SetNumber(row, kFirstCount + d, n);
        sheet.SetBackColor(row, kFirstCount + d, CountColour(n));
    }
    const auto order = RankDigits(counts_);
    for (int i = 0; i < 10; ++i)
        sheet.SetNumber(row, kFirstRank + i, order[static_cast<std::size_t>(i)]);
}

void ShadeMiddleRanks(ReportSheet& sheet, int row) {
    for (int c = ranking_cols::kFirstMiddleRank; c <= ranking_cols::kLastMiddleRank; ++c)
        sheet.SetBackColor(row, c, ranking_colours::kMiddleRanks);
}

}  // namespace numarel
