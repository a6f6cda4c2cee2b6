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

TEST(RecommendTundredTenUnits, DigitsMovedToAnotherPositionHit) {
    ReportSheet sheet = Build("frmzhixuantaloven", Drawings({"123", "213"}));
    ASSERT_EQ(sheet.Rows(), 2 + 5);
    EXPECT_EQ(sheet.Text(1, 0), " 2020001");

    // Row 1 has nothing carried into it.
    EXPECT_EQ(RowTexts(sheet, 1, 4, 12), Texts(9));
    // T moved to H and H moved to T.
    EXPECT_EQ(RowTexts(sheet, 2, 4, 12), (Texts{"2**(YES)", "3**", "*1*(YES)", "*3*", "**1", "**2",
                                                "(1)+(2)+(3)YES", "", "(1)-----(6)YES"}));
    EXPECT_EQ(ColumnsColoured(sheet, 2, colours::kHit), (std::vector<int>{4, 6}));
    // The recommendation: the masks of the last drawing, never judged.
    EXPECT_EQ(RowTexts(sheet, 3, 4, 12),
              (Texts{"1**", "3**", "*2*", "*3*", "**2", "**1", "", "", ""}));
    EXPECT_TRUE(ColumnsColoured(sheet, 3, colours::kHit).empty());
    EXPECT_EQ(sheet.TopRow(), 6);
}

TEST(RecommendTundredTenUnits, GroupsFollowColumnsNotPositions) {
    // 123 then 434: only U of the drawing before came back, as T, in column 7 of the second group.
    // 121 then 010: H and U of the drawing before are both 1, so both T masks hit together.
    ReportSheet sheet = Build("frmzhixuantaloven", Drawings({"123", "434", "121", "010"}));
    EXPECT_EQ(ColumnsColoured(sheet, 2, colours::kHit), std::vector<int>{7});
    EXPECT_EQ(RowTexts(sheet, 2, 10, 12), (Texts{"", "(4)+(5)+(6)YES", "(1)-----(6)YES"}));
    EXPECT_EQ(ColumnsColoured(sheet, 4, colours::kHit), (std::vector<int>{6, 7}));
    EXPECT_EQ(RowTexts(sheet, 4, 6, 7), (Texts{"*1*(YES)", "*1*(YES)"}));
    EXPECT_EQ(RowTexts(sheet, 4, 10, 12),
              (Texts{"(1)+(2)+(3)YES", "(4)+(5)+(6)YES", "(1)-----(6)YES"}));
}

TEST(RecommendTundredTenUnits, ShortHistories) {
    // One drawing: only the next drawing's row carries masks.
    ReportSheet one = Build("frmzhixuantaloven", Drawings({"907"}));
    EXPECT_EQ(RowTexts(one, 1, 4, 12), Texts(9));
    EXPECT_EQ(RowTexts(one, 2, 4, 9), (Texts{"0**", "7**", "*9*", "*7*", "**9", "**0"}));

    // No drawing (an empty file, or one of only an end marker): the next drawing's row, row 1,
    // still gets its masks, of empty digits, so the stars alone.
    std::vector<DrawRecord> onlyEndMarker = ParseDrawings("0 0 0 0\r\n");
    onlyEndMarker.resize(ReportDrawCount(onlyEndMarker));
    for (const auto& drawings : {Drawings({}), onlyEndMarker}) {
        ReportSheet none = Build("frmzhixuantaloven", drawings);
        EXPECT_EQ(none.Rows(), 5);
        EXPECT_EQ(RowTexts(none, 1, 0, 12),
                  (Texts{"", "", "", "", "**", "**", "**", "**", "**", "**", "", "", ""}));
        for (int r = 2; r < 5; ++r)
            EXPECT_EQ(RowTexts(none, r, 0, 12), Texts(13)) << r;
    }
}

}  // namespace
}  // namespace numarel
