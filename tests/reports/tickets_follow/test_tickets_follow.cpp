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

// The cells of the empty history are the golden test's; the font is not in them.
TEST(TicketsFollow, TheSheetIsInTheSmallerFont) {
    EXPECT_EQ(Build("frmqita1", Drawings({})).FontDecipoints(), 68);
}

// 6 2 0 hits "026" in any order; 2 0 0 and a triple hit nothing and keep the Miss runs going.
TEST(TicketsFollow, SixWayBoxHitsMissesAndStatistics) {
    ReportSheet s = Build("frmqita1", Drawings({"620", "200", "514", "111"}));
    ASSERT_EQ(s.Rows(), 10);
    EXPECT_EQ(s.Text(1, 4), "026");
    EXPECT_EQ(s.Text(2, 4), "02");
    // Columns: 5 "026", 6 "045", 8 "145", 21 the group.
    EXPECT_EQ(RowTexts(s, 1, 5, 8), (Texts{"*****", "1", "1", "1"}));
    EXPECT_EQ(RowTexts(s, 3, 5, 8), (Texts{"2", "3", "3", "*****"}));
    EXPECT_EQ(RowTexts(s, 4, 5, 8), (Texts{"3", "4", "4", "1"}));
    EXPECT_EQ(s.Text(1, 21), "*****");
    EXPECT_EQ(s.Text(4, 21), "1");

    EXPECT_EQ(s.Text(6, 0), "Amount");
    EXPECT_EQ(RowTexts(s, 9, 5, 6), (Texts{"4", ""}));  // no hit: no Average
    // The group: two hits, longest Miss 1, last row a Miss of 1, one hit in two drawings.
    EXPECT_EQ((Texts{s.Text(6, 21), s.Text(7, 21), s.Text(8, 21), s.Text(9, 21)}),
              (Texts{"2", "1", "1", "2"}));
    EXPECT_EQ(ColumnsColoured(s, 9, colours::kStatisticBack).size(), 21u);
    EXPECT_TRUE(ColumnsColoured(s, 3, colours::kStatisticBack).empty());
}

// Whole sorted numbers: 3 Way Box tickets hit, a ticket in both lists hits in both, and each
// list with a hit shows its letter.
TEST(TicketsFollow, ListsWithLettersFollowWholeBoxNumbers) {
    ReportSheet s = Build("frmqita450", Drawings({"505", "777", "730"}));
    EXPECT_EQ(s.Text(1, 4), "055");
    EXPECT_EQ(s.Text(1, 48), "***");  // "055" of list A
    EXPECT_EQ(s.Text(1, 93), "***");  // "055" of list B
    EXPECT_EQ(RowTexts(s, 1, 105, 108), (Texts{"***", "A", "B", ""}));
    // A triple is in no list: no hit, no letter, and the Gather column keeps no Miss numbers.
    EXPECT_EQ(RowTexts(s, 2, 105, 108), (Texts{"", "", "", ""}));
    EXPECT_EQ(s.Text(2, 48), "1");
    // "037" stands in both lists too.
    EXPECT_EQ(s.Text(3, 6), "***");
    EXPECT_EQ(s.Text(3, 59), "***");
    EXPECT_EQ(RowTexts(s, 3, 106, 107), (Texts{"A", "B"}));
    // Statistics stop at the last ticket column.
    EXPECT_EQ(s.Text(5, 104), "0");
    EXPECT_EQ(s.Text(8, 104), "3");
    EXPECT_EQ(RowTexts(s, 5, 105, 108), (Texts{"", "", "", ""}));
    EXPECT_EQ(ColumnsColoured(s, 5, colours::kStatisticBack).back(), 104);

    ReportSheet abc = Build("frmqita354", Drawings({"703", "037", "922", "446"}));
    EXPECT_EQ(RowTexts(abc, 1, 59, 62), (Texts{"***", "A", "", ""}));
    EXPECT_EQ(abc.Text(2, 5), "***");
    EXPECT_EQ(RowTexts(abc, 3, 59, 62), (Texts{"***", "", "", "C"}));  // "229"
    EXPECT_EQ(RowTexts(abc, 4, 59, 62), (Texts{"", "", "", ""}));
}

}  // namespace
}  // namespace numarel
