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

struct Layout {
    const char* object;
    const char* title;
    int cols;
    int groupCol;
    const char* groupHeader;
    int ticketWidth;
    int fontDecipoints;
};

TEST(TicketsFollow, SheetLayoutAndTicketsInTheHeader) {
    const Layout layouts[] = {
        {"frmqita1", "16 Tickets follow", 22, 21, "", 496, 68},
        {"frmqita3", "27 Tickets follow", 33, 32, "Gather", 372, 75},
        {"frmqita2a", "30 Tickets follow A", 36, 35, "Gather", 372, 75},
        {"frmqita2", "30 Tickets follow B", 36, 35, "Gather", 372, 75},
        {"frmqita450", "50 Tickets follow AB", 109, 105, "Gather", 372, 75},
        {"frmqita354", "18 Tickets follow ABC", 63, 59, "Gather", 372, 75},
    };
    for (const Layout& l : layouts) {
        SCOPED_TRACE(l.object);
        ReportSheet sheet = Build(l.object, Drawings({"123"}));
        EXPECT_EQ(sheet.Title(), l.title);
        EXPECT_EQ(sheet.Cols(), l.cols);
        EXPECT_EQ(sheet.Rows(), 1 + 6);
        EXPECT_EQ(sheet.FontDecipoints(), l.fontDecipoints);
        EXPECT_EQ(RowTexts(sheet, 0, 1, 3), (Texts{"H", "T", "U"}));
        EXPECT_EQ(sheet.Text(0, l.groupCol), l.groupHeader);
        EXPECT_EQ(sheet.ColWidth(4), 30);
        EXPECT_EQ(sheet.ColWidth(5), l.ticketWidth);
        EXPECT_EQ(sheet.ColWidth(l.groupCol - 1), l.ticketWidth);
        // Every ticket column is headed by a three-digit ticket.
        for (int c = 5; c < l.groupCol; ++c)
            EXPECT_EQ(sheet.Text(0, c).size(), 3u) << c;
    }
}

TEST(TicketsFollow, ListsKeepTheirOwnOrder) {
    ReportSheet a = Build("frmqita2a", Drawings({}));
    EXPECT_EQ(RowTexts(a, 0, 8, 12), (Texts{"045", "126", "037", "136", "056"}));
    EXPECT_EQ(a.Text(0, 34), "479");
    ReportSheet b = Build("frmqita450", Drawings({}));
    EXPECT_EQ(RowTexts(b, 0, 54, 56), (Texts{"449", "035", "017"}));
    ReportSheet c = Build("frmqita354", Drawings({}));
    EXPECT_EQ(RowTexts(c, 0, 22, 23), (Texts{"455", "027"}));
    EXPECT_EQ(RowTexts(c, 0, 40, 41), (Texts{"459", "058"}));
}

// 6 2 0 hits "026" in any order; 2 0 0 and a triple hit nothing and keep the Miss runs going.
TEST(TicketsFollow, SixWayBoxHitsMissesAndStatistics) {
    ReportSheet s = Build("frmqita1", Drawings({"620", "200", "514", "111"}));
    ASSERT_EQ(s.Rows(), 10);
    EXPECT_EQ(s.Text(1, 4), "026");
    EXPECT_EQ(s.Text(2, 4), "02");
    // Columns: 5 "026", 6 "045", 8 "145", 21 the group.
    EXPECT_EQ(RowTexts(s, 1, 5, 8), (Texts{"*****", "1", "1", "1"}));
    EXPECT_EQ(RowTexts(s, 2, 5, 8), (Texts{"1", "2", "2", "2"}));
    EXPECT_EQ(RowTexts(s, 3, 5, 8), (Texts{"2", "3", "3", "*****"}));
    EXPECT_EQ(RowTexts(s, 4, 5, 8), (Texts{"3", "4", "4", "1"}));
    EXPECT_EQ(RowTexts(s, 1, 21, 21)[0], "*****");
    EXPECT_EQ(s.Text(4, 21), "1");
    EXPECT_EQ(RowTexts(s, 5, 0, 21), Texts(22, ""));

    EXPECT_EQ(RowTexts(s, 6, 0, 0)[0], "Amount");
    EXPECT_EQ(RowTexts(s, 6, 5, 6), (Texts{"1", "0"}));
    EXPECT_EQ(RowTexts(s, 7, 5, 6), (Texts{"2", "3"}));
    EXPECT_EQ(RowTexts(s, 8, 5, 6), (Texts{"3", "4"}));
    EXPECT_EQ(RowTexts(s, 9, 5, 6), (Texts{"4", ""}));  // no hit: no Average
    // The group: two hits, longest Miss 1, last row a Miss of 1, one hit in two drawings.
    EXPECT_EQ((Texts{s.Text(6, 21), s.Text(7, 21), s.Text(8, 21), s.Text(9, 21)}),
              (Texts{"2", "1", "1", "2"}));
    EXPECT_EQ(ColumnsColoured(s, 9, colours::kStatisticBack).size(), 21u);
    EXPECT_TRUE(ColumnsColoured(s, 3, colours::kStatisticBack).empty());
}

TEST(TicketsFollow, OneDrawingHasNoMaxMiss) {
    ReportSheet s = Build("frmqita3", Drawings({"830"}));
    EXPECT_EQ(s.Text(1, 5), "***");  // "038"
    EXPECT_EQ(s.Text(1, 32), "***");
    EXPECT_EQ(RowTexts(s, 3, 5, 7), (Texts{"1", "0", "0"}));
    EXPECT_EQ(RowTexts(s, 4, 5, 7), (Texts{"0", "0", "0"}));  // Max Miss
    EXPECT_EQ(RowTexts(s, 5, 5, 7), (Texts{"0", "1", "1"}));  // Current Miss
    EXPECT_EQ(s.Text(5, 32), "0");
}

TEST(TicketsFollow, ThirtyTicketsAverageIsDrawCountWithoutAHit) {
    ReportSheet a = Build("frmqita2a", Drawings({"150", "999", "730"}));
    EXPECT_EQ(a.Text(1, 5), "***");   // "015"
    EXPECT_EQ(a.Text(3, 10), "***");  // "037", out of ascending order
    EXPECT_EQ(RowTexts(a, 8, 5, 7), (Texts{"3", "3", "3"}));
    EXPECT_EQ(a.Text(8, 35), "1");  // two hits in three drawings
    // Both lists hold "035"; "018" only B.
    ReportSheet b = Build("frmqita2", Drawings({"530", "801"}));
    EXPECT_EQ(RowTexts(b, 1, 5, 7), (Texts{"1", "1", "***"}));
    EXPECT_EQ(b.Text(2, 5), "***");
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

TEST(TicketsFollow, EmptyHistoryGivesHeaderAndEmptyRows) {
    for (const char* object : {"frmqita1", "frmqita2", "frmqita450", "frmqita354"}) {
        SCOPED_TRACE(object);
        ReportSheet s = Build(object, Drawings({}));
        EXPECT_EQ(s.Rows(), 6);
        EXPECT_EQ(s.Text(2, 0), "Amount");
        EXPECT_EQ(s.Text(2, 5), "0");
        EXPECT_TRUE(s.IsEmpty(1, 5));
    }
}

}  // namespace
}  // namespace numarel
