#include <gtest/gtest.h>

#include "reports/report_rows.h"

namespace numarel {
namespace {

// One set 6 Way only and Box, seven digits, and sets of different lengths, worked by hand.
TEST(DigitSets, RowsWorkedByHand) {
    testing::CheckRows("reports/digit_sets/rows.txt");
}

}  // namespace
}  // namespace numarel
