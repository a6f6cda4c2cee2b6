#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

TEST(DigitSets, OneSetSixWayOnly) {
    // 1 1 4 scores 2 and 1 1 1 scores 1: neither hits; the order of the digits plays no part.
    ReportSheet s = Build("frmgaopin6ma", Drawings({"145", "114", "111", "514"}));
    EXPECT_EQ(RowTexts(s, 1, 4, 5), (Texts{"145", "*****"}));
    EXPECT_EQ(RowTexts(s, 2, 4, 5), (Texts{"14", "1"}));
    EXPECT_EQ(RowTexts(s, 3, 4, 5), (Texts{"1", "2"}));
    EXPECT_EQ(s.Text(4, 5), "*****");
    EXPECT_TRUE(s.IsEmpty(5, 5));
    // Amount, Max Miss, Current Miss, Average.
    EXPECT_EQ((Texts{s.Text(6, 5), s.Text(7, 5), s.Text(8, 5), s.Text(9, 5)}),
              (Texts{"2", "2", "0", "2"}));
    EXPECT_TRUE(ColumnsColoured(s, 1, colours::kHit).empty());

    // A field that cannot be read keeps the sorted digit of the drawing before: 5 4 1 is 1 4 5 in
    // hand, so x 4 5 is 1 4 5 again and hits.
    ReportSheet kept = Build("frmgaopin6ma", Drawings({"541", "x45"}));
    EXPECT_EQ(RowTexts(kept, 2, 1, 5), (Texts{"1", "4", "5", "145", "*****"}));
}

TEST(DigitSets, OneSetBoxHitsThreeWayBoxInRed) {
    // 1 1 2 scores 1; 1 4 2 scores 2 but has three distinct digits.
    ReportSheet s = Build("frmgaopin6ma36", Drawings({"114", "112", "142", "145"}));
    EXPECT_EQ(s.Text(1, 5), "*****");
    EXPECT_EQ(s.BackColor(1, 5), colours::kHit);
    EXPECT_EQ(s.Text(2, 5), "1");
    EXPECT_EQ(s.Text(3, 5), "2");
    EXPECT_EQ(s.Text(4, 5), "*****");
    EXPECT_EQ(s.BackColor(4, 5), kDefaultColour);
    EXPECT_EQ(s.Text(6, 5), "2");  // red hits count

    ReportSheet seven = Build("frmgaopin7ma36", Drawings({"550", "003", "888"}));
    EXPECT_EQ(seven.Text(1, 5), "*****");
    EXPECT_EQ(seven.BackColor(1, 5), colours::kHit);
    EXPECT_EQ(seven.Text(2, 5), "1");
    EXPECT_EQ(seven.Text(3, 5), "2");  // a triple inside the set is no hit
    ReportSheet sixWay = Build("frmgaopin7ma", Drawings({"550"}));
    EXPECT_EQ(sixWay.Text(1, 5), "1");
}

TEST(DigitSets, SetsOfDifferentLengthsScanTheirWholeSet) {
    // Cols 5..18 hold four-digit sets, 19..24 five-digit sets; only "03691" has 1, 6 and 9, and
    // only as its fifth digit.
    ReportSheet s = Build("frmlingleizu6", Drawings({"961", "036"}));
    EXPECT_EQ(s.Text(1, 19), "****");
    for (int c = 5; c <= 24; ++c) {
        if (c != 19) {
            EXPECT_EQ(s.Text(1, c), "1") << c;
        }
    }
    EXPECT_EQ(RowTexts(s, 2, 18, 24), (Texts{"2", "****", "****", "****", "****", "****", "****"}));

    ReportSheet qt = Build("frmzuxuanqt", Drawings({"033", "145"}));
    EXPECT_EQ(RowTexts(qt, 1, 5, 7), (Texts{"******", "1", "1"}));
    EXPECT_EQ(ColumnsColoured(qt, 1, colours::kHit), (std::vector<int>{5}));
    EXPECT_EQ(RowTexts(qt, 2, 5, 7), (Texts{"1", "******", "******"}));
    EXPECT_TRUE(ColumnsColoured(qt, 2, colours::kHit).empty());
}

}  // namespace
}  // namespace numarel
