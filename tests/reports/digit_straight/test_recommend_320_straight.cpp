#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/digit_straight/recommend_320_straight.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;

constexpr Rgb kBand = MakeRgb(212, 188, 134);

TEST(Recommend320StraightNumbers, HTJoinedAsTextHitsItsPairColumn) {
    ReportSheet sheet = Build("frmbaishi32zu", Drawings({"307", "309", "052", "500", "999"}));
    ASSERT_EQ(sheet.Rows(), 7);

    struct Expected {
        int row;
        int col;  // 0: no hit
        const char* pair;
    };
    for (const Expected& e : {Expected{1, 15, "30"}, Expected{2, 15, "30"}, Expected{3, 5, "05"},
                              Expected{4, 0, ""}, Expected{5, 36, "99"}}) {
        SCOPED_TRACE(e.row);
        if (e.col == 0) {
            EXPECT_TRUE(ColumnsColoured(sheet, e.row, colours::kHit).empty());
            EXPECT_TRUE(sheet.IsEmpty(e.row, 37));
        } else {
            EXPECT_EQ(ColumnsColoured(sheet, e.row, colours::kHit), std::vector<int>{e.col});
            EXPECT_EQ(sheet.Text(e.row, e.col), e.pair);
            EXPECT_EQ(sheet.Text(0, e.col), e.pair);
            EXPECT_EQ(sheet.Text(e.row, 37), "YES");
        }
    }
    // Bands stay where nothing hit and give way to red where something did.
    std::vector<int> banded;
    for (int c = 5; c <= 12; ++c)
        banded.push_back(c);
    for (int c = 21; c <= 28; ++c)
        banded.push_back(c);
    EXPECT_EQ(ColumnsColoured(sheet, 4, kBand), banded);
    banded.erase(banded.begin());
    EXPECT_EQ(ColumnsColoured(sheet, 3, kBand), banded);
    EXPECT_TRUE(ColumnsColoured(sheet, 6, kBand).empty());
    for (int c = 0; c < sheet.Cols(); ++c)
        EXPECT_TRUE(sheet.IsEmpty(6, c));
}

TEST(Recommend320StraightNumbers, ExportListsEveryDrawingWithItsHit) {
    ReportSheet sheet = Build("frmbaishi32zu", Drawings({"307", "500", "059"}));
    EXPECT_EQ(Export320Text(sheet),
              " 2020001:307-[320YES]\r\n 2020002:500\r\n 2020003:059-[320YES]\r\n");
    EXPECT_EQ(Export320Text(Build("frmbaishi32zu", {})), "");
}

}  // namespace
}  // namespace numarel
