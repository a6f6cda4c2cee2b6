#include "reports/digit_straight/seven_drawing_ranking.h"

namespace numarel {

DigitCounts CountDigits(std::span<const short> digits) {
    DigitCounts counts{};
    for (short d : digits)
        if (d >= 0 && d <= 9) ++counts[static_cast<std::size_t>(d)];
    return counts;
}

std::array<short, 10> RankDigits(const DigitCounts& counts) {
    std::array<short, 10> order{};
    std::size_t next = 0;
    // Seven drawings give at most 21; starting from the largest count also ranks longer windows.
    short top = 0;
    for (short c : counts)
        top = c > top ? c : top;
    for (int v = top; v >= 0 && next < order.size(); --v)
        for (short d = 0; d <= 9; ++d)
            if (counts[static_cast<std::size_t>(d)] == v) order[next++] = d;
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
    std::array<short, 3 * kRankingDrawings> window{};
    for (int first = 1; first <= drawCount - (kRankingDrawings - 1); ++first) {
        const int target = first + kRankingDrawings;
        std::size_t k = 0;
        for (int r = first; r < target; ++r)
            for (int c = kFirstDigit; c < kFirstDigit + 3; ++c)
                window[k++] = sheet.CellNumber(r, c);
        const DigitCounts counts = CountDigits(window);
        for (int d = 0; d <= 9; ++d) {
            const short n = counts[static_cast<std::size_t>(d)];
            sheet.SetNumber(target, kFirstCount + d, n);
            sheet.SetBackColor(target, kFirstCount + d, CountColour(n));
        }
        const auto order = RankDigits(counts);
        for (int i = 0; i < 10; ++i)
            sheet.SetNumber(target, kFirstRank + i, order[static_cast<std::size_t>(i)]);
    }
}

}  // namespace numarel
