#include "reports/digit_straight/seven_drawing_ranking.h"

#include <algorithm>

namespace numarel {

DigitCounts CountDigits(std::span<const short> digits) {
    DigitCounts counts{};
    for (short d : digits)
        if (d >= 0 && d <= 9) ++counts[static_cast<std::size_t>(d)];
    return counts;
}

std::array<short, 10> RankDigits(const DigitCounts& counts) {
    // A key per digit that ranks it: its count, then the digit reversed, so that among equal
    // counts the smaller digit ranks higher. A digit's place is the number of higher keys.
    std::array<int, 10> keys{};
    for (std::size_t d = 0; d < 10; ++d)
        keys[d] = counts[d] * 10 + (9 - static_cast<int>(d));
    std::array<short, 10> order{};
    for (std::size_t d = 0; d < 10; ++d) {
        const auto place =
            std::count_if(keys.begin(), keys.end(), [&keys, d](int key) { return key > keys[d]; });
        order[static_cast<std::size_t>(place)] = static_cast<short>(d);
    }
    return order;
}

namespace {

Rgb CountColour(short count) {
    if (count > 2) return ranking_colours::kOften;
    if (count == 2) return ranking_colours::kTwice;
    return ranking_colours::kSeldom;
}

}  // namespace

void RankSevenDrawings(ReportSheet& sheet, int row) {
    using namespace ranking_cols;
    if (row <= kRankingDrawings) return;
    std::array<short, kRankingDrawings * 3> digits{};
    std::size_t n = 0;
    for (int r = row - kRankingDrawings; r < row; ++r)
        for (int c = kFirstDigit; c < kFirstDigit + 3; ++c)
            digits[n++] = sheet.CellNumber(r, c);
    const DigitCounts counts = CountDigits(digits);
    for (int d = 0; d <= 9; ++d) {
        const short n = counts[static_cast<std::size_t>(d)];
        sheet.SetNumber(row, kFirstCount + d, n);
        sheet.SetBackColor(row, kFirstCount + d, CountColour(n));
    }
    const auto order = RankDigits(counts);
    for (int i = 0; i < 10; ++i)
        sheet.SetNumber(row, kFirstRank + i, order[static_cast<std::size_t>(i)]);
}

void ShadeMiddleRanks(ReportSheet& sheet, int row) {
    for (int c = ranking_cols::kFirstMiddleRank; c <= ranking_cols::kLastMiddleRank; ++c)
        sheet.SetBackColor(row, c, ranking_colours::kMiddleRanks);
}

}  // namespace numarel
