#include <gtest/gtest.h>

#include "frame/number_classes.h"

namespace numarel {
namespace {

TEST(NumberClasses, LettersOfTheTrickyDigits) {
    // 0 is Even, Small, Composite; 1 is Odd, Small, Prime; 4 Small; 5 Big; 9 Composite.
    EXPECT_EQ(PatternString({0, 1, 4}, ClassPair::OddEven), "EOE");
    EXPECT_EQ(PatternString({0, 4, 5}, ClassPair::BigSmall), "SSB");
    EXPECT_EQ(PatternString({0, 1, 9}, ClassPair::PrimeComposite), "CPC");
    EXPECT_EQ(Pattern012({0, 4, 8}), "012");
    EXPECT_EQ(Type012(9), 0);
}

TEST(NumberClasses, RegionsDifferForFourAndFive) {
    EXPECT_EQ(ThreeRegion(4), 'M');
    EXPECT_EQ(ThreeRegion(5), 'M');
    EXPECT_EQ(ThreeRegion(2), 'S');
    EXPECT_EQ(ThreeRegion(7), 'L');
    EXPECT_EQ(FourRegion1234(4), '2');
    EXPECT_EQ(FourRegion1234(5), '3');
    EXPECT_EQ(FourRegion1234(3), '1');
    EXPECT_EQ(FourRegion1234(6), '4');
    EXPECT_EQ(FourRegionSumWidth(4), '2');
    EXPECT_EQ(FourRegionSumWidth(5), '3');
    EXPECT_EQ(FiveRegionPair(7), "27");
    EXPECT_EQ(FiveRegionPair(0), "05");
}

TEST(NumberClasses, ShapesOfSortedDigits) {
    struct Case {
        CurrentDigits digits;
        CurrentDigits sorted;
        std::string distinct;
        bool threeWay;
        bool sixWay;
    };
    const Case cases[] = {
        {{7, 7, 7}, {7, 7, 7}, "7", false, false},  {{2, 1, 1}, {1, 1, 2}, "12", true, false},
        {{9, 0, 9}, {0, 9, 9}, "09", true, false},  {{3, 1, 2}, {1, 2, 3}, "123", false, true},
        {{9, 8, 0}, {0, 8, 9}, "089", false, true},
    };
    for (const Case& c : cases) {
        CurrentDigits d = c.digits;
        SortDigits(d);
        EXPECT_EQ(d, c.sorted);
        EXPECT_EQ(DistinctDigits(d), c.distinct);
        EXPECT_EQ(IsThreeWayBox(d), c.threeWay);
        EXPECT_EQ(IsSixWayBox(d), c.sixWay);
        EXPECT_EQ(IsTriple(d), c.distinct.size() == 1);
    }
}

TEST(NumberClasses, SumWidthAndTheirTypes) {
    EXPECT_EQ(SumOf({9, 9, 9}), 27);
    EXPECT_EQ(SumUnitsOf({9, 9, 9}), 7);
    EXPECT_EQ(WidthOf({5, 5, 5}), 0);
    EXPECT_EQ(WidthOf({9, 0, 4}), 9);
    EXPECT_EQ(SumWidthType({1, 2, 4}), "10");  // Sum 7, Width 3
}

TEST(NumberClasses, TallyStrings) {
    EXPECT_EQ(TallyString({0, 1, 2}, ClassPair::BigSmall), "3S");
    EXPECT_EQ(TallyString({0, 1, 9}, ClassPair::BigSmall), "2S1B");
    EXPECT_EQ(TallyString({0, 8, 9}, ClassPair::BigSmall), "2B1S");
    EXPECT_EQ(TallyString({1, 3, 4}, ClassPair::OddEven), "2O1E");
    EXPECT_EQ(TallyString({0, 2, 3}, ClassPair::OddEven), "2E1O");
    EXPECT_EQ(TallyString({4, 6, 8}, ClassPair::PrimeComposite), "3C");
    EXPECT_EQ(TallyString({1, 2, 0}, ClassPair::PrimeComposite), "2P1C");
    EXPECT_EQ(PatternStrings(ClassPair::BigSmall)[1], "BBS");
}

}  // namespace
}  // namespace numarel
