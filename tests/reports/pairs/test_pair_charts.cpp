#include <gtest/gtest.h>

#include <algorithm>
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
using Cols = std::vector<int>;

// Pairs: the pair texts stand under H, T and U, and each different pair is marked once in its
// column, over bands of nine columns counted from column 6.
TEST(PairCharts, PairsMarksEachDifferentPairOnce) {
    constexpr Rgb kBand = MakeRgb(255, 212, 255), kMark = MakeRgb(0, 206, 188);
    // Columns of the pairs: 01-09 are 6-14, 12-19 are 15-22, 23-29 are 23-29, ..., 57 is 42.
    const struct {
        const char* drawing;
        Texts pairs;
        Cols marked;
    } cases[] = {
        {"725", {"25", "27", "57"}, {25, 27, 42}}, {"257", {"25", "27", "57"}, {25, 27, 42}},
        {"112", {"11", "12", "12"}, {15}},         {"555", {"55", "55", "55"}, {}},
        {"900", {"00", "09", "09"}, {14}},         {"981", {"18", "19", "89"}, {21, 22, 50}},
    };
    ReportSheet sheet = Build("frm3dliangma", Drawings({"725", "257", "112", "555", "900", "981"}));
    ASSERT_EQ(sheet.Rows(), 8);
    for (int r = 1; r <= 6; ++r) {
        const auto& c = cases[r - 1];
        SCOPED_TRACE(c.drawing);
        EXPECT_EQ(RowTexts(sheet, r, 1, 3), c.pairs);
        Texts chart(51);
        for (int col : c.marked)
            chart[static_cast<std::size_t>(col)] = sheet.Text(0, col);
        EXPECT_EQ(RowTexts(sheet, r, 4, 50), Texts(chart.begin() + 4, chart.end()));
        EXPECT_EQ(ColumnsColoured(sheet, r, kMark), c.marked);
        Cols band;
        for (int col = 6; col <= 50; ++col)
            if ((col - 6) % 18 < 9) band.push_back(col);
        std::erase_if(band, [&](int col) { return std::ranges::count(c.marked, col) > 0; });
        EXPECT_EQ(ColumnsColoured(sheet, r, kBand), band);
    }
    EXPECT_EQ(RowTexts(sheet, 7, 0, 50), Texts(51));
}

// The Box Number charts take two of the sorted digits and chart their difference (column 6 + d)
// and sum (column 17 + s), over bands on the differences 3 to 6 and the sums 5 to 13.
TEST(PairCharts, BoxNumberChartsMarkDifferenceAndSum) {
    constexpr Rgb kDifferenceBand = MakeRgb(255, 231, 255), kSumBand = MakeRgb(194, 225, 219);
    constexpr Rgb kDifference = MakeRgb(0, 206, 188), kSum = MakeRgb(255, 194, 0);
    const struct {
        const char* object;
        const char* drawing;
        int difference, sum;
    } cases[] = {
        {"frm3dshouwei", "295", 7, 11},  {"frm3ddazhong", "295", 4, 14},
        {"frm3dzhongxiao", "295", 3, 7}, {"frm3ddazhong", "121", 1, 3},
        {"frm3dshouwei", "999", 0, 18},  {"frm3dzhongxiao", "090", 0, 0},  // on column 17 itself
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.object) + " " + c.drawing);
        ReportSheet sheet = Build(c.object, Drawings({"738", c.drawing}));
        ASSERT_EQ(sheet.Rows(), 4);
        const int d = 6 + c.difference, s = 17 + c.sum;
        const std::string difference = std::to_string(c.difference), sum = std::to_string(c.sum);
        EXPECT_EQ(RowTexts(sheet, 2, 5, 5), Texts{difference});
        EXPECT_EQ(RowTexts(sheet, 2, d, d), Texts{difference});
        EXPECT_EQ(RowTexts(sheet, 2, 17, 17), Texts{sum});
        EXPECT_EQ(RowTexts(sheet, 2, s, s), Texts{sum});
        EXPECT_EQ(ColumnsColoured(sheet, 2, kDifference), Cols{d});
        EXPECT_EQ(ColumnsColoured(sheet, 2, kSum), Cols{s});
        Cols differenceBand = {9, 10, 11, 12}, sumBand = {22, 23, 24, 25, 26, 27, 28, 29, 30};
        std::erase(differenceBand, d);
        std::erase(sumBand, s);
        EXPECT_EQ(ColumnsColoured(sheet, 2, kDifferenceBand), differenceBand);
        EXPECT_EQ(ColumnsColoured(sheet, 2, kSumBand), sumBand);
        EXPECT_EQ(RowTexts(sheet, 3, 0, 36), Texts(37));
    }
}

// The fixed lists mark each listed pair a drawing holds, doubles included, once.
TEST(PairCharts, FixedListsMarkTheListedPairs) {
    const struct {
        const char* object;
        const char* drawing;
        Texts sumWidthPairs;  // columns 4 to 8
        Cols marked;          // among columns 10 to 19
    } cases[] = {
        {"frm0luliangma", "333", {"9", "0", "33", "33", "33"}, {11}},
        {"frm0luliangma", "903", {"12", "9", "03", "09", "39"}, {14, 16, 18}},
        {"frm0luliangma", "600", {"6", "6", "00", "06", "06"}, {10, 15}},
        {"frmshunziliangma", "950", {"14", "9", "05", "09", "59"}, {19}},
        {"frmshunziliangma", "345", {"12", "2", "34", "35", "45"}, {13, 14}},
        {"frmshunziliangma", "101", {"2", "1", "01", "01", "11"}, {10}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.object) + " " + c.drawing);
        ReportSheet sheet = Build(c.object, Drawings({"456", c.drawing}));
        ASSERT_EQ(sheet.Rows(), 4);
        EXPECT_EQ(RowTexts(sheet, 2, 4, 8), c.sumWidthPairs);
        EXPECT_EQ(sheet.BackColor(2, 4), colours::kSumWidth);
        Texts list(20);
        for (int col : c.marked)
            list[static_cast<std::size_t>(col)] = sheet.Text(0, col);
        EXPECT_EQ(RowTexts(sheet, 2, 9, 19), Texts(list.begin() + 9, list.end()));
        EXPECT_EQ(ColumnsColoured(sheet, 2, colours::kHit), c.marked);
        EXPECT_EQ(RowTexts(sheet, 3, 0, 19), Texts(20));
    }
}

// A drawing is marked when it shares exactly two different digits with the one before, in any
// position; repeated digits count once and the first drawing is never marked.
TEST(PairCharts, InheritTwoDigitsMarksExactlyTwoSharedDigits) {
    ReportSheet sheet = Build(
        "frmchong2ge", Drawings({"123", "234", "432", "112", "219", "555", "550", "505", "000"}));
    ASSERT_EQ(sheet.Rows(), 11);
    Texts marks;
    for (int r = 1; r <= 10; ++r)
        marks.push_back(sheet.Text(r, 5));
    EXPECT_EQ(marks, (Texts{"", "YES", "", "", "YES", "", "", "YES", "", ""}));
    EXPECT_EQ(RowTexts(sheet, 10, 0, 5), Texts(6));
}

}  // namespace
}  // namespace numarel
