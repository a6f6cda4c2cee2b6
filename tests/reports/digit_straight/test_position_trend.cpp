#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;
using Cols = std::vector<int>;

constexpr Rgb kDigit = MakeRgb(255, 152, 104);
constexpr Rgb kMove = MakeRgb(0, 146, 255);
constexpr Rgb kHBand = MakeRgb(176, 200, 152);
constexpr Rgb kTBand = MakeRgb(208, 204, 0);
constexpr Rgb kUBand = MakeRgb(96, 204, 152);

TEST(TundredTenUnitsTrend, MovesArePlainDifferencesPlacedBySize) {
    const ReportSheet sheet = Build("frm3weizoushi", Drawings({"905", "095", "362"}));
    EXPECT_EQ(sheet.Rows(), 3 + 5);
    EXPECT_EQ(sheet.Text(1, 0), "2020001:905");

    // The first drawing has digit cells only.
    EXPECT_EQ(ColumnsColoured(sheet, 1, kDigit), (Cols{14, 25, 50}));
    EXPECT_EQ(RowTexts(sheet, 1, 14, 14), Texts{"9"});
    EXPECT_TRUE(ColumnsColoured(sheet, 1, kMove).empty());
    EXPECT_EQ(sheet.BackColor(1, 15), kHBand);
    EXPECT_EQ(sheet.BackColor(1, 44), kTBand);
    EXPECT_EQ(sheet.BackColor(1, 64), kUBand);
    EXPECT_EQ(sheet.BackColor(1, 4), kDefaultColour);

    // 9 to 0 and 0 to 9 share the last column, told apart by sign; no change is 0.
    EXPECT_EQ(ColumnsColoured(sheet, 2, kMove), (Cols{24, 44, 55}));
    EXPECT_EQ(sheet.Text(2, 24), "-9");
    EXPECT_EQ(sheet.Text(2, 44), "9");
    EXPECT_EQ(sheet.Text(2, 55), "0");

    EXPECT_EQ(ColumnsColoured(sheet, 3, kMove), (Cols{18, 38, 58}));
    EXPECT_EQ(RowTexts(sheet, 3, 18, 18), Texts{"3"});
    EXPECT_EQ(sheet.Text(3, 38), "-3");
    EXPECT_EQ(sheet.Text(3, 58), "-3");
    EXPECT_EQ(ColumnsColoured(sheet, 3, kDigit), (Cols{8, 31, 47}));

    for (int r = 4; r < sheet.Rows(); ++r)
        EXPECT_EQ(RowTexts(sheet, r, 0, 64), Texts(65)) << "row " << r;
    EXPECT_EQ(sheet.TopRow(), 7);
}

TEST(TundredTenUnitsTrend, LabelIsTheDrawingLabelWithoutItsLeadingBlank) {
    // The date is read as a number, so a leading zero or a decimal point does not show, and a
    // date that is not a number leaves the label empty while the digits still count.
    const std::vector<DrawRecord> drawings = {
        {"02020001", "1", "2", "3"}, {"abc", "4", "5", "6"}, {"2020003.0", " 7", "8", "9"}};
    const ReportSheet sheet = Build("frm3weizoushi", drawings);
    EXPECT_EQ(sheet.Text(1, 0), "2020001:123");
    EXPECT_EQ(sheet.Text(2, 0), "");
    EXPECT_EQ(RowTexts(sheet, 2, 1, 3), (Texts{"4", "5", "6"}));
    EXPECT_EQ(sheet.Text(3, 0), "2020003:789");
}

}  // namespace
}  // namespace numarel
