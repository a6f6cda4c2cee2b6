#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "reports/pairs/layout_checks.h"
#include "reports/pairs/pair_text.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

constexpr Rgb kBand = MakeRgb(255, 212, 255);
constexpr Rgb kMarked = MakeRgb(0, 206, 188);
constexpr int kFirstChartCol = 6;
constexpr int kLastChartCol = 50;
// Chart columns of some pairs: 01 to 09 take 6 to 14, 12 to 19 take 15 to 22, 23 to 29 take 23
// to 29, then 34 to 39, 45 to 49, 56 to 59, 67 to 69, 78 and 79, and 89 last.
constexpr int kPair09 = 14;
constexpr int kPair12 = 15;
constexpr int kPair18 = 21;
constexpr int kPair19 = 22;
constexpr int kPair25 = 25;
constexpr int kPair27 = 27;
constexpr int kPair57 = 42;
constexpr int kPair89 = 50;

// A pair is unordered: either order of its digits gives one text, the smaller digit first.
TEST(PairText, PutsTheSmallerDigitFirst) {
    EXPECT_EQ(PairText(7, 2), "27");
    EXPECT_EQ(PairText(2, 7), "27");
    EXPECT_EQ(PairText(9, 0), "09");
    EXPECT_EQ(PairText(5, 5), "55");
}

TEST(PairsChart, Layout) {
    ReportSheet sheet = Build("frm3dliangma", {});
    EXPECT_EQ(sheet.Title(), "Pairs");
    EXPECT_EQ(testing::HelpPageOf("frm3dliangma"), "(none)");
    EXPECT_EQ(sheet.Rows(), 2);
    EXPECT_EQ(RowTexts(sheet, 0, 0, sheet.Cols() - 1),
              (Texts{"",   "H",  "T",  "U",  "",   "",   "01", "02", "03", "04", "05", "06", "07",
                     "08", "09", "12", "13", "14", "15", "16", "17", "18", "19", "23", "24", "25",
                     "26", "27", "28", "29", "34", "35", "36", "37", "38", "39", "45", "46", "47",
                     "48", "49", "56", "57", "58", "59", "67", "68", "69", "78", "79", "89"}));
    EXPECT_EQ(testing::ColumnWidths(sheet),
              testing::WidthsOf({{0, 0, 1032}, {1, 3, 300}, {4, 5, 60}, {6, 50, 300}}));
}

// Whatever the order of the digits, a drawing marks the pairs of its different digits; the bands
// of nine columns lie under the marks.
TEST(PairsChart, DrawingsMarkTheirPairsInAnyOrder) {
    const struct {
        const char* drawing;
        Texts pairs;  // under "H", "T", "U"
        std::vector<int> marked;
    } cases[] = {
        {"725", {"25", "27", "57"}, {kPair25, kPair27, kPair57}},
        {"257", {"25", "27", "57"}, {kPair25, kPair27, kPair57}},
        {"112", {"11", "12", "12"}, {kPair12}},
        {"555", {"55", "55", "55"}, {}},
        {"900", {"00", "09", "09"}, {kPair09}},
        {"981", {"18", "19", "89"}, {kPair18, kPair19, kPair89}},
    };
    std::vector<DrawRecord> drawings;
    for (const auto& c : cases)
        drawings.push_back(Drawings({c.drawing})[0]);
    ReportSheet sheet = Build("frm3dliangma", drawings);
    ASSERT_EQ(sheet.Rows(), 8);

    for (int r = 1; r <= 6; ++r) {
        const auto& c = cases[r - 1];
        SCOPED_TRACE(c.drawing);
        EXPECT_EQ(RowTexts(sheet, r, 1, 3), c.pairs);
        Texts chart(kLastChartCol - kFirstChartCol + 1);
        for (int col : c.marked)
            chart[static_cast<std::size_t>(col - kFirstChartCol)] = sheet.Text(0, col);
        EXPECT_EQ(RowTexts(sheet, r, kFirstChartCol, kLastChartCol), chart);
        EXPECT_EQ(ColumnsColoured(sheet, r, kMarked), c.marked);
        std::vector<int> band;
        for (int col : {6,  7,  8,  9,  10, 11, 12, 13, 14, 24, 25, 26, 27, 28,
                        29, 30, 31, 32, 42, 43, 44, 45, 46, 47, 48, 49, 50})
            if (std::find(c.marked.begin(), c.marked.end(), col) == c.marked.end())
                band.push_back(col);
        EXPECT_EQ(ColumnsColoured(sheet, r, kBand), band);
    }
    // Nothing is recommended.
    EXPECT_EQ(RowTexts(sheet, 7, 0, kLastChartCol), Texts(51));
    EXPECT_TRUE(ColumnsColoured(sheet, 7, kBand).empty());
}

}  // namespace
}  // namespace numarel
