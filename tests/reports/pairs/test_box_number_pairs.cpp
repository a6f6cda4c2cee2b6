#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/pairs/layout_checks.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

constexpr int kDifferenceCol = 5;
constexpr int kFirstDifferenceChartCol = 6;  // difference 0
constexpr int kLastDifferenceChartCol = 15;  // difference 9
constexpr int kSumCol = 17;
constexpr int kFirstSumChartCol = 18;  // sum 1
constexpr int kLastSumChartCol = 35;   // sum 18
constexpr Rgb kDifferenceBand = MakeRgb(255, 231, 255);
constexpr Rgb kSumBand = MakeRgb(194, 225, 219);
constexpr Rgb kDifferenceMark = MakeRgb(0, 206, 188);
constexpr Rgb kSumMark = MakeRgb(255, 194, 0);

TEST(BoxNumberPairs, Layout) {
    const Texts header = {"",  "H",  "T",  "U",  "",   "-",  "0",  "1",  "2",  "3",  "4", "5", "6",
                          "7", "8",  "9",  "",   "+",  "1",  "2",  "3",  "4",  "5",  "6", "7", "8",
                          "9", "10", "11", "12", "13", "14", "15", "16", "17", "18", ""};
    const struct {
        const char* object;
        const char* title;
        const char* helpPage;
    } cases[] = {
        {"frm3dshouwei", "Box Number:Large-Small;Large+Small", "Large_Small"},
        {"frm3ddazhong", "Box Number:Large-Middle;Large+Middle", "Large_Middle"},
        {"frm3dzhongxiao", "Box Number:Middle-Small;Middle+Small", "Middle_Small"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.object);
        ReportSheet sheet = Build(c.object, {});
        EXPECT_EQ(sheet.Title(), c.title);
        EXPECT_EQ(testing::HelpPageOf(c.object), c.helpPage);
        EXPECT_EQ(RowTexts(sheet, 0, 0, sheet.Cols() - 1), header);
        EXPECT_EQ(testing::ColumnWidths(sheet), testing::WidthsOf({{0, 0, 1290},
                                                                   {1, 3, 300},
                                                                   {4, 4, 60},
                                                                   {5, 15, 300},
                                                                   {16, 16, 60},
                                                                   {17, 35, 300},
                                                                   {36, 36, 60}}));
    }
}

// The two digits a report takes are found among the sorted digits, whatever the drawn order;
// each drawing marks its difference and its sum once, over the bands.
TEST(BoxNumberPairs, MarksDifferenceAndSumOfTheTwoDigits) {
    const struct {
        const char* object;
        const char* drawing;
        int difference;
        int sum;
    } cases[] = {
        {"frm3dshouwei", "295", 7, 11},  {"frm3ddazhong", "295", 4, 14},
        {"frm3dzhongxiao", "295", 3, 7}, {"frm3dshouwei", "529", 7, 11},
        {"frm3dshouwei", "444", 0, 8},   {"frm3ddazhong", "444", 0, 8},
        {"frm3dzhongxiao", "444", 0, 8}, {"frm3ddazhong", "121", 1, 3},
        {"frm3dzhongxiao", "121", 0, 2}, {"frm3dshouwei", "999", 0, 18},
        {"frm3dzhongxiao", "090", 0, 0}, {"frm3dshouwei", "090", 9, 9},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.object) + " " + c.drawing);
        // A drawing before it, so that the row cannot lean on the first row's state.
        ReportSheet sheet = Build(c.object, Drawings({"738", c.drawing}));
        ASSERT_EQ(sheet.Rows(), 4);
        const int row = 2;
        EXPECT_EQ(RowTexts(sheet, row, 1, 3),
                  (Texts{{c.drawing[0]}, {c.drawing[1]}, {c.drawing[2]}}));
        EXPECT_EQ(sheet.Text(row, kDifferenceCol), std::to_string(c.difference));

        const int differenceCol = kFirstDifferenceChartCol + c.difference;
        Texts differences(kLastDifferenceChartCol - kFirstDifferenceChartCol + 1);
        differences[static_cast<std::size_t>(c.difference)] = std::to_string(c.difference);
        EXPECT_EQ(RowTexts(sheet, row, kFirstDifferenceChartCol, kLastDifferenceChartCol),
                  differences);
        EXPECT_EQ(ColumnsColoured(sheet, row, kDifferenceMark), std::vector<int>{differenceCol});

        // A sum of 0 is marked on the value cell itself and leaves the chart empty.
        const int sumCol = kSumCol + c.sum;
        Texts sums(kLastSumChartCol - kFirstSumChartCol + 1);
        if (c.sum > 0) sums[static_cast<std::size_t>(c.sum - 1)] = std::to_string(c.sum);
        EXPECT_EQ(sheet.Text(row, kSumCol), std::to_string(c.sum));
        EXPECT_EQ(RowTexts(sheet, row, kFirstSumChartCol, kLastSumChartCol), sums);
        EXPECT_EQ(ColumnsColoured(sheet, row, kSumMark), std::vector<int>{sumCol});

        // Bands on the differences 3 to 6 and the sums 5 to 13, under the marks.
        std::vector<int> differenceBand, sumBand;
        for (int col = 9; col <= 12; ++col)
            if (col != differenceCol) differenceBand.push_back(col);
        for (int col = 22; col <= 30; ++col)
            if (col != sumCol) sumBand.push_back(col);
        EXPECT_EQ(ColumnsColoured(sheet, row, kDifferenceBand), differenceBand);
        EXPECT_EQ(ColumnsColoured(sheet, row, kSumBand), sumBand);

        // Nothing is recommended.
        EXPECT_EQ(RowTexts(sheet, 3, 0, 36), Texts(37));
        EXPECT_TRUE(ColumnsColoured(sheet, 3, kSumBand).empty());
    }
}

}  // namespace
}  // namespace numarel
