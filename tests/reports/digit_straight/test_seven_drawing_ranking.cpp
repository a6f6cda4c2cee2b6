#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "reports/digit_straight/seven_drawing_ranking.h"

namespace numarel {
namespace {

using Order = std::array<short, 10>;

Order RankOf(std::vector<short> digits) {
    return RankDigits(CountDigits(digits));
}

TEST(SevenDrawingRanking, HigherCountsFirstAndEqualCountsBySmallerDigit) {
    // Nine digits twice and 8 three times: only the tie-break decides who joins 8 at the top.
    EXPECT_EQ(RankOf({0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7, 8, 8, 8, 9, 9}),
              (Order{8, 0, 1, 2, 3, 4, 5, 6, 7, 9}));
    // Unseen digits still take the last places.
    EXPECT_EQ(RankOf({9, 9, 9}), (Order{9, 0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

}  // namespace
}  // namespace numarel
