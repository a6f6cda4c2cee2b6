#include "reports/digit_straight/seven_drawing_ranking.h"

namespace numarel {

DigitCounts CountDigits(std::span<const short> digits) {
    DigitCounts counts{};
    for (short d : digits)
        if (d >= 0 && d <= 9) ++counts[static_cast<std::size_t>(d)];
    return counts;
}

std::array<short, 10> RankDigits(const DigitCounts& counts) {
    // Insertion by count, highest first, keeping the digit order among equal counts: the same
    // order as walking the counts from the highest value down and the digits upwards within each.
    std::array<short, 10> order{};
    for (short d = 0; d <= 9; ++d) {
        std::size_t i = static_cast<std::size_t>(d);
        const short count = counts[i];
        for (; i > 0 && counts[static_cast<std::size_t>(order[i - 1])] < count; --i)
            order[i] = order[i - 1];
        order[i] = d;
    }
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
