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
using Columns = std::vector<int>;

constexpr const char* kObject = "frmdaimaduizi";
constexpr int kLastCol = 27;
constexpr int kBandCol = 6;
constexpr Rgb kRed = MakeRgb(255, 0, 0);
constexpr Rgb kBlue = MakeRgb(43, 218, 255);  // Width, Sum and the digit chart

TEST(FiveRegionsPairs, RegionPairsTheirRegionTheChartAndRepeats) {
    const ReportSheet sheet = Build(kObject, Drawings({"055", "501", "105", "444", "138", "123"}));
    ASSERT_EQ(sheet.Rows(), 8);
    // Columns 1 to 27: H T U W S, band, the three pairs of the sorted digits, "-Y-", the five
    // regions, a divider, the digits 0 to 9, an empty column.
    const struct {
        const char* drawing;
        Texts cells;
        Columns red;
        Columns blue;
    } rows[] = {
        // 0 5 5: the first pair is five apart (so is the second, which is not looked at).
        {"055",
         {"0", "5", "5", "5", "10", "", "05", "05", "55", "-Y-", "05", "", "", "",
          "",  "",  "0", "",  "",   "", "",   "5",  "",   "",    "",   "", ""},
         {7, 11},
         {4, 5, 17, 22}},
        // 5 0 1 and 1 0 5 have the same pairs; T is 0 in both, so both T cells are red.
        {"501",
         {"5", "0", "1", "5", "6", "", "01", "05", "15", "-Y-", "05", "", "", "",
          "",  "",  "0", "1", "",  "", "",   "5",  "",   "",    "",   "", ""},
         {2, 8, 11},
         {4, 5, 17, 18, 22}},
        {"105",
         {"1", "0", "5", "5", "6", "", "01", "05", "15", "-Y-", "05", "", "", "",
          "",  "",  "0", "1", "",  "", "",   "5",  "",   "",    "",   "", ""},
         {2, 8, 11},
         {4, 5, 17, 18, 22}},
        // A triple: width 0, no region, one chart cell.
        {"444",
         {"4", "4", "4", "0", "12", "", "44", "44", "44", "", "", "", "", "",
          "",  "",  "",  "",  "",   "", "4",  "",   "",   "", "", "", ""},
         {},
         {4, 5, 21}},
        // Only the middle and the largest digit are five apart; H repeats in the next drawing.
        {"138",
         {"1", "3", "8", "7", "12", "",  "13", "18", "38", "-Y-", "",  "", "", "38",
          "",  "",  "",  "1", "",   "3", "",   "",   "",   "",    "8", "", ""},
         {1, 9, 14},
         {4, 5, 18, 20, 25}},
        {"123",
         {"1", "2", "3", "2", "6", "",  "12", "13", "23", "", "", "", "", "",
          "",  "",  "",  "1", "2", "3", "",   "",   "",   "", "", "", ""},
         {1},
         {4, 5, 18, 19, 20}},
    };
    int r = 1;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.drawing);
        EXPECT_EQ(sheet.Text(r, 0), " 202000" + std::to_string(r) + ":" + row.drawing);
        EXPECT_EQ(RowTexts(sheet, r, 1, kLastCol), row.cells);
        EXPECT_EQ(ColumnsColoured(sheet, r, kRed), row.red);
        EXPECT_EQ(ColumnsColoured(sheet, r, kBlue), row.blue);
        ++r;
    }
    // Nothing is recommended.
    EXPECT_EQ(RowTexts(sheet, 7, 0, kLastCol), Texts(kLastCol + 1));
    EXPECT_TRUE(ColumnsColoured(sheet, 7, kBlue).empty());
}

TEST(FiveRegionsPairs, BandMarksTwentyTwoRowsOnAndOffFromRowThirtyNine) {
    const struct {
        int drawings;
        Columns markedRows;
    } cases[] = {
        {37, {}},
        {38, {39}},  // only the next drawing's row
        {83, {}},    // filled below
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.drawings);
        std::vector<DrawRecord> drawings;
        for (int i = 0; i < c.drawings; ++i)
            drawings.push_back(Drawings({"123"})[0]);
        const ReportSheet sheet = Build(kObject, drawings);
        Columns marked;
        for (int r = 0; r < sheet.Rows(); ++r) {
            if (sheet.IsEmpty(r, kBandCol)) continue;
            EXPECT_EQ(sheet.Text(r, kBandCol), "↓");
            marked.push_back(r);
        }
        Columns expected = c.markedRows;
        if (c.drawings == 83) {
            for (int row = 39; row <= 60; ++row)
                expected.push_back(row);
            expected.push_back(83);
            expected.push_back(84);
        }
        EXPECT_EQ(marked, expected);
    }
}

}  // namespace
}  // namespace numarel
