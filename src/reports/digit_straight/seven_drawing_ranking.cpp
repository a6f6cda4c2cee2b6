#include "reports/digit_straight/seven_drawing_ranking.h"

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

Rgb CountColour(short count) {
    if (count > 2) return ranking_colours::kOften;
    if (count == 2) return ranking_colours::kTwice;
    return ranking_colours::kSeldom;
}

void FillSevenDrawingRanking(ReportSheet& sheet) {
    using namespace ranking_cols;
    const int drawCount = sheet.DrawCount();
    if (drawCount < kRankingDrawings) return;
    // The counts slide down the sheet: each row's digits are read back once, counted when the
    // row enters the seven and taken off when it leaves.
    auto digitsOf = [&](int r) {
        return std::array<short, 3>{sheet.CellNumber(r, kFirstDigit),
                                    sheet.CellNumber(r, kFirstDigit + 1),
                                    sheet.CellNumber(r, kFirstDigit + 2)};
    };
    std::array<std::array<short, 3>, kRankingDrawings> window{};
    DigitCounts counts{};
    auto add = [&](const std::array<short, 3>& digits, short step) {
        for (short d : digits)
            if (d >= 0 && d <= 9) counts[static_cast<std::size_t>(d)] += step;
    };
    for (int r = 1; r < kRankingDrawings; ++r) {
        window[static_cast<std::size_t>(r % kRankingDrawings)] = digitsOf(r);
        add(window[static_cast<std::size_t>(r % kRankingDrawings)], 1);
    }
    for (int target = kRankingDrawings + 1; target <= drawCount + 1; ++target) {
        auto& slot = window[static_cast<std::size_t>((target - 1) % kRankingDrawings)];
        slot = digitsOf(target - 1);
        add(slot, 1);
        for (int d = 0; d <= 9; ++d) {
            const short n = counts[static_cast<std::size_t>(d)];
            sheet.SetNumber(target, kFirstCount + d, n);
            sheet.SetBackColor(target, kFirstCount + d, CountColour(n));
        }
        const auto order = RankDigits(counts);
        for (int i = 0; i < 10; ++i)
            sheet.SetNumber(target, kFirstRank + i, order[static_cast<std::size_t>(i)]);
        // The oldest of the seven leaves before the next row is counted.
        add(window[static_cast<std::size_t>(target % kRankingDrawings)], -1);
    }
}

void ShadeMiddleRanks(ReportSheet& sheet) {
    constexpr int kFirstMiddle = ranking_cols::kFirstRank + 3;
    for (int r = 1; r < sheet.Rows(); ++r)
        for (int c = kFirstMiddle; c < kFirstMiddle + 4; ++c)
            sheet.SetBackColor(r, c, ranking_colours::kMiddleRanks);
}

}  // namespace numarel
