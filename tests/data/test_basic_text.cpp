#include <gtest/gtest.h>

#include "data/basic_text.h"

namespace numarel {
namespace {

// Marker texts such as " *" and "12:34" are pinned by the sheet's CellNumber test.
TEST(BasicText, LeadingValueReadsBlanksSignsAndExponents) {
    EXPECT_EQ(LeadingValue("1 2 3"), 123);
    EXPECT_EQ(LeadingValue("-7"), -7);
    EXPECT_EQ(LeadingValue("2.5e1"), 25);
}

TEST(BasicText, WholeNumberAcceptsOnlyACompleteNumber) {
    EXPECT_EQ(WholeNumber(" 20230101 "), 20230101);
    EXPECT_EQ(WholeNumber("0.0"), 0);
    EXPECT_FALSE(WholeNumber("2023-01-01"));
    EXPECT_FALSE(WholeNumber("abc"));
    EXPECT_FALSE(WholeNumber(""));
}

TEST(BasicText, ToInt16RoundsHalfToEvenAndRefusesOverflow) {
    EXPECT_EQ(ToInt16("7"), 7);
    EXPECT_EQ(ToInt16("2.5"), 2);
    EXPECT_EQ(ToInt16("3.5"), 4);
    EXPECT_FALSE(ToInt16("40000"));
    EXPECT_FALSE(ToInt16("5x"));
    EXPECT_EQ(RoundToInt16(1e9), 32767);
}

TEST(BasicText, NumberToTextPutsABlankBeforeNonNegativeNumbers) {
    EXPECT_EQ(NumberToText(2020001), " 2020001");
    EXPECT_EQ(NumberToText(0), " 0");
    EXPECT_EQ(NumberToText(-3), "-3");
    EXPECT_EQ(NumberToText(1.5), " 1.5");
}

}  // namespace
}  // namespace numarel
