#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "reports/report_rows.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;

// Four Models, Addition and Multiplication Box Number and the Sum Width regions, worked by hand.
TEST(SumWidthBox, RowsWorkedByHand) {
    testing::CheckRows("reports/sum_width_box/rows.txt");
}

TEST(SumWidthRegions, StatisticRowsAreColouredAcrossTheSheet) {
    // Sum Width regions: three statistic rows under four coloured ones.
    const ReportSheet s = Build("frmhekuazonghe", Drawings({"000", "049", "550", "999"}));
    ASSERT_EQ(s.Rows(), 10);
    for (int r = 6; r <= 9; ++r) {
        EXPECT_EQ(ColumnsColoured(s, r, colours::kStatisticBack).size(), 22u) << r;
        EXPECT_EQ(s.ForeColor(r, 1), colours::kStatisticFore) << r;
    }
}

}  // namespace
}  // namespace numarel
