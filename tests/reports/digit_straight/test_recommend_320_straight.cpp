#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using Cols = std::vector<int>;

constexpr Rgb kBand = MakeRgb(212, 188, 134);

TEST(Recommend320StraightNumbers, HTJoinedAsTextHitsItsPairColumn) {
    ReportSheet sheet = Build("frmbaishi32zu", Drawings({"307", "309", "052", "500", "999"}));
    ASSERT_EQ(sheet.Rows(), 7);

    // Per drawing: the hit column (0 for none) and the pair it shows, which is also its header.
    const std::pair<int, std::string> hits[] = {
        {15, "30"}, {15, "30"}, {5, "05"}, {0, ""}, {36, "99"}};
    for (int r = 1; r <= 5; ++r) {
        SCOPED_TRACE(r);
        const auto& [col, pair] = hits[r - 1];
        EXPECT_EQ(ColumnsColoured(sheet, r, colours::kHit), col ? Cols{col} : Cols{});
        EXPECT_EQ(sheet.Text(r, 37), col ? "YES" : "");
        if (col) {
            EXPECT_EQ(sheet.Text(r, col), pair);
            EXPECT_EQ(sheet.Text(0, col), pair);
        }
    }
    // Bands stay where nothing hit and give way to red where something did.
    const Cols banded = {5, 6, 7, 8, 9, 10, 11, 12, 21, 22, 23, 24, 25, 26, 27, 28};
    EXPECT_EQ(ColumnsColoured(sheet, 4, kBand), banded);
    EXPECT_EQ(ColumnsColoured(sheet, 3, kBand), Cols(banded.begin() + 1, banded.end()));
    EXPECT_TRUE(ColumnsColoured(sheet, 6, kBand).empty());
    EXPECT_EQ(testing::RowTexts(sheet, 6, 0, 37), std::vector<std::string>(38));
}

TEST(Recommend320StraightNumbers, ExportListsEveryDrawingWithItsHit) {
    ReportSheet sheet = Build("frmbaishi32zu", Drawings({"307", "500", "059"}));
    const SheetText Export320Text = FindReport("frmbaishi32zu")->extraButton.text;
    EXPECT_EQ(Export320Text(sheet),
              " 2020001:307-[320YES]\r\n 2020002:500\r\n 2020003:059-[320YES]\r\n");
    EXPECT_EQ(Export320Text(Build("frmbaishi32zu", {})), "");
}

}  // namespace
}  // namespace numarel
