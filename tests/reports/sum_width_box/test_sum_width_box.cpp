#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

// Four Models: columns 5 to 8; statistics from row DrawCount + 2.
TEST(FourModels, HitsMissesAndStatistics) {
    // 5 6 1: two Big, two Odd. 5 7 9: three Big. 5 6 2: two Big, one Odd. 1 3 6: one Big, two
    // Odd. 2 4 7: one Big, one Odd (4 is Small). 0 2 4: no Big, no Odd. 4 5 0: one Big, one Odd.
    ReportSheet s =
        Build("frmxingtai1", Drawings({"561", "579", "562", "136", "247", "024", "450"}));
    ASSERT_EQ(s.Rows(), 7 + 6);
    const std::string hit = "*************";
    const std::vector<Texts> expected = {
        {hit, "1", "1", "1"}, {"1", "2", "2", "2"}, {"2", hit, "3", "3"}, {"3", "1", hit, "4"},
        {"4", "2", "1", hit}, {"5", "3", "2", "1"}, {"6", "4", "3", hit},
    };
    for (int r = 1; r <= 7; ++r)
        EXPECT_EQ(RowTexts(s, r, 5, 8), expected[r - 1]) << r;
    EXPECT_EQ(RowTexts(s, 9, 0, 8), (Texts{"Amount", "", "", "", "", "1", "1", "1", "2"}));
    EXPECT_EQ(RowTexts(s, 10, 0, 8), (Texts{"Max Miss", "", "", "", "", "5", "3", "3", "4"}));
    EXPECT_EQ(RowTexts(s, 11, 0, 8), (Texts{"Current Miss", "", "", "", "", "6", "4", "3", "0"}));
    EXPECT_EQ(RowTexts(s, 12, 0, 8), (Texts{"Average", "", "", "", "", "7", "7", "7", "3"}));
    EXPECT_EQ(ColumnsColoured(s, 12, colours::kStatisticBack),
              (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

// Addition and Multiplication Box Number: S, W and the two marker columns.
TEST(AdditionMultiplication, EachDrawingInAtMostOneColumn) {
    ReportSheet s = Build("frmjiachengzh", Drawings({"422", "505", "326", "551", "421", "000"}));
    ASSERT_EQ(s.Rows(), 8);
    const std::string mark = "******";
    const std::vector<Texts> expected = {
        {"4", "2", "2", "8", "2", mark, ""},   // 2 + 2 = 4, though 2 x 2 = 4 as well
        {"5", "0", "5", "10", "5", mark, ""},  // 0 + 5 = 5
        {"3", "2", "6", "11", "4", "", mark},  // 2 x 3 = 6
        {"5", "5", "1", "11", "4", "", mark},  // 1 x 5 = 5
        {"4", "2", "1", "7", "3", "", ""},    {"0", "0", "0", "0", "0", mark, ""},
    };
    for (int r = 1; r <= 6; ++r) {
        SCOPED_TRACE(r);
        EXPECT_EQ(RowTexts(s, r, 1, 7), expected[static_cast<std::size_t>(r - 1)]);
        std::vector<int> red;
        if (!expected[static_cast<std::size_t>(r - 1)][5].empty()) red.push_back(6);
        if (!expected[static_cast<std::size_t>(r - 1)][6].empty()) red.push_back(7);
        EXPECT_EQ(ColumnsColoured(s, r, colours::kHit), red);
        EXPECT_EQ(s.BackColor(r, 4), colours::kSumWidth);
    }
}

using Cols = std::vector<int>;

// "11" is column 7, "12" 8, "24" 14, "41" 19.
TEST(SumWidthRegions, RegionCellsMissNumbersAndThreeStatisticRowsUnderFourColouredOnes) {
    const ReportSheet s = Build("frmhekuazonghe", Drawings({"000", "049", "550", "999"}));
    ASSERT_EQ(s.Rows(), 10);
    EXPECT_EQ(s.TopRow(), 9);
    // Sum 10 takes Sum Units 0 and Width 5 region "3": "13", column 9.
    const Texts sumWidth[] = {{"0", "0"}, {"13", "9"}, {"10", "5"}, {"27", "0"}};
    const int pairCols[] = {7, 14, 9, 19};
    for (int r = 1; r <= 4; ++r) {
        EXPECT_EQ(RowTexts(s, r, 4, 5), sumWidth[r - 1]) << r;
        EXPECT_EQ(ColumnsColoured(s, r, colours::kHit), Cols{pairCols[r - 1]}) << r;
    }
    EXPECT_EQ(ColumnsColoured(s, 1, colours::kSumWidth), Cols{4});
    // Per column: drawings 1 to 4, Amount, Max Miss, Current Miss, and no Average.
    const std::pair<int, Texts> columns[] = {
        {7, {".", "1", "2", "3", "1", "2", "3", ""}},
        {8, {"1", "2", "3", "4", "0", "3", "4", ""}},
        {14, {"1", ".", "1", "2", "1", "1", "2", ""}},
        {19, {"1", "2", "3", ".", "1", "3", "0", ""}},
    };
    for (const auto& [col, texts] : columns) {
        Texts rows;
        for (int r : {1, 2, 3, 4, 6, 7, 8, 9})
            rows.push_back(s.Text(r, col));
        EXPECT_EQ(rows, texts) << col;
    }
    EXPECT_EQ(RowTexts(s, 8, 0, 0), Texts{"Current Miss"});
    for (int r = 6; r <= 9; ++r) {
        EXPECT_EQ(ColumnsColoured(s, r, colours::kStatisticBack).size(), 22u) << r;
        EXPECT_EQ(s.ForeColor(r, 1), colours::kStatisticFore) << r;
    }
    EXPECT_TRUE(ColumnsColoured(s, 5, colours::kStatisticBack).empty());
}

}  // namespace
}  // namespace numarel
