#include "reports/digit_straight/seven_drawing_ranking.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace numarel {

DigitCounts CountDigits(std::span<const short> digits) {
    DigitCounts counts{};
    for (short d : digits)
        if (d >= 0 && d <= 9) ++counts[static_cast<std::size_t>(d)];
    return counts;
}

std::array<short, 10> RankDigits(const DigitCounts& counts) {
    // A key per digit that ranks it: its count, then the digit reversed, so that among equal
    // counts the smaller digit ranks higher; no two keys are alike. The keys go through a fixed
    // network of 29 exchanges, which takes no branch, where a sort of random counts would guess
    // wrong at every other step.
    std::array<int, 10> keys{};
    for (std::size_t d = 0; d < 10; ++d)
        keys[d] = counts[d] * 16 + (15 - static_cast<int>(d));
    static constexpr std::array<std::array<std::uint8_t, 2>, 29> kNetwork = {{
        {0, 8}, {1, 9}, {2, 7}, {3, 5}, {4, 6}, {0, 2}, {1, 4}, {5, 8}, {7, 9}, {0, 3},
        {2, 4}, {5, 7}, {6, 9}, {0, 1}, {3, 6}, {8, 9}, {1, 5}, {2, 3}, {4, 7}, {6, 8},
        {1, 2}, {3, 5}, {4, 6}, {7, 8}, {2, 3}, {4, 5}, {6, 7}, {3, 4}, {5, 6},
    }};
    // Unrolled, with every index known, so that the keys stay in registers.
    [&keys]<std::size_t... E>(std::index_sequence<E...>) {
        // By arithmetic: a comparison here is compiled to a branch that guesses wrong.
        auto exchange = [&keys](std::size_t i, std::size_t j) {
            const int difference = keys[i] - keys[j];
            // The difference when key i is the lower, else 0.
            const int swap = difference & (difference >> 31);
            keys[i] -= swap;
            keys[j] += swap;
        };
        (exchange(kNetwork[E][0], kNetwork[E][1]), ...);
    }
    (std::make_index_sequence<kNetwork.size()>());
    std::array<short, 10> order{};
    for (std::size_t i = 0; i < 10; ++i)
        order[i] = static_cast<short>(15 - (keys[i] & 15));
    return order;
}

void SevenDrawingRanking::Rank(ReportSheet& sheet, int row) {
    using namespace ranking_cols;
    if (row < 2) return;
    // The counts slide down the sheet: each row's digits are read back once, counted when the
    // row enters the seven and taken off when it leaves, its slot going to the row that enters.
    auto add = [this](const std::array<short, 3>& digits, short step) {
        for (short d : digits)
            if (d >= 0 && d <= 9) counts_[static_cast<std::size_t>(d)] += step;
    };
    const int entering = row - 1;
    auto& slot = window_[static_cast<std::size_t>(entering % kRankingDrawings)];
    if (entering > kRankingDrawings) add(slot, -1);
    slot = {sheet.CellNumber(entering, kFirstDigit), sheet.CellNumber(entering, kFirstDigit + 1),
            sheet.CellNumber(entering, kFirstDigit + 2)};
    add(slot, 1);
    if (row <= kRankingDrawings) return;

    ReportSheet::RowRun cells = sheet.Run(row, kFirstCount, kLastRank);
    if (cells.Count() <= kLastRank - kFirstCount) return;
    // By count, never below 0: which colour is anybody's guess, so a table tells it.
    for (int d = 0; d <= 9; ++d) {
        const short n = counts_[static_cast<std::size_t>(d)];
        cells.SetNumber(d, n);
        cells.SetBackColor(d, byCount_[std::min(static_cast<std::size_t>(n), byCount_.size() - 1)]);
    }
    const auto order = RankDigits(counts_);
    for (int i = 0; i < 10; ++i)
        cells.SetNumber(kFirstRank - kFirstCount + i, order[static_cast<std::size_t>(i)]);
}

void ShadeMiddleRanks(ReportSheet& sheet, int row) {
    using ranking_cols::kFirstMiddleRank;
    static constexpr std::array<int, 4> kMiddle{kFirstMiddleRank, kFirstMiddleRank + 1,
                                                kFirstMiddleRank + 2, kFirstMiddleRank + 3};
    sheet.SetBackColor(row, kMiddle, ranking_colours::kMiddleRanks);
}

}  // namespace numarel
