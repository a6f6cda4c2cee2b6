#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_rows.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;

// The cells of the empty history are the golden test's; the font is not in them.
TEST(TicketsFollow, TheSheetIsInTheSmallerFont) {
    EXPECT_EQ(Build("frmqita1", Drawings({})).FontDecipoints(), 68);
}

// Six Way Box tickets and the lists with letters of whole Box Numbers, worked by hand.
TEST(TicketsFollow, RowsWorkedByHand) {
    testing::CheckRows("reports/tickets_follow/rows.txt");
}

TEST(TicketsFollow, StatisticRowsAreColouredToTheLastTicketColumn) {
    ReportSheet s = Build("frmqita1", Drawings({"620", "200", "514", "111"}));
    ASSERT_EQ(s.Rows(), 10);
    EXPECT_EQ(ColumnsColoured(s, 9, colours::kStatisticBack).size(), 21u);
    ReportSheet lists = Build("frmqita450", Drawings({"505", "777", "730"}));
    EXPECT_EQ(ColumnsColoured(lists, 5, colours::kStatisticBack).back(), 104);
}

}  // namespace
}  // namespace numarel
