#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;

constexpr Rgb kSixWay = MakeRgb(42, 194, 91);
constexpr Rgb kTriple = MakeRgb(255, 0, 0);
constexpr Rgb kThreeWay = MakeRgb(102, 164, 244);

TEST(RiseDownShape, EachDrawingMarksTheFirstMatchingShape) {
    struct Expected {
        int col;
        const char* shape;
        Rgb colour;
    };
    const std::vector<Expected> expected = {
        {1, ".:|", kSixWay},    {6, "|:.", kSixWay},    {3, ":.|", kSixWay},
        {8, "..|", kThreeWay},  {10, "|..", kThreeWay}, {9, ".|.", kThreeWay},
        {12, "|.|", kThreeWay}, {7, ":::", kTriple},    {2, ".|:", kSixWay},
        {4, ":|.", kSixWay},    {5, "|.:", kSixWay},    {11, ".||", kThreeWay},
        {13, "||.", kThreeWay},
    };
    ReportSheet sheet =
        Build("frmxingxiang", Drawings({"159", "951", "519", "559", "955", "595", "515", "777",
                                        "132", "231", "312", "344", "443"}));
    ASSERT_EQ(sheet.Rows(), 13 + 3);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const int row = static_cast<int>(i) + 1;
        SCOPED_TRACE(sheet.Text(row, 0));
        std::vector<std::string> shapes(13);
        shapes[expected[i].col - 1] = expected[i].shape;
        EXPECT_EQ(testing::RowTexts(sheet, row, 1, 13), shapes);
        EXPECT_EQ(sheet.BackColor(row, expected[i].col), expected[i].colour);
    }
    // Neither the next drawing's row nor the row after it gets a shape.
    EXPECT_EQ(testing::RowTexts(sheet, 14, 0, 16), std::vector<std::string>(17));
    EXPECT_EQ(testing::RowTexts(sheet, 15, 0, 16), std::vector<std::string>(17));
    EXPECT_EQ(sheet.TopRow(), 15);
}

TEST(StraightNumberShape, WordsLettersAndWordColumns) {
    ReportSheet sheet = Build("frmjibenxingtai", Drawings({"148", "059"}));
    ASSERT_EQ(sheet.Rows(), 5);

    // 1 4 8: OEE, SSB, PCC.
    EXPECT_EQ(testing::RowTexts(sheet, 1, 1, 4), (std::vector<std::string>{"OEE", "O", "E", "E"}));
    EXPECT_EQ(testing::RowTexts(sheet, 1, 14, 17),
              (std::vector<std::string>{"SSB", "S", "S", "B"}));
    EXPECT_EQ(testing::RowTexts(sheet, 1, 27, 30),
              (std::vector<std::string>{"PCC", "P", "C", "C"}));
    EXPECT_EQ(testing::ColumnsColoured(sheet, 1, MakeRgb(42, 219, 167)), (std::vector<int>{3, 4}));
    EXPECT_EQ(testing::ColumnsColoured(sheet, 1, MakeRgb(127, 176, 237)), (std::vector<int>{17}));
    EXPECT_EQ(testing::ColumnsColoured(sheet, 1, MakeRgb(236, 217, 136)), (std::vector<int>{28}));
    EXPECT_EQ(testing::ColumnsColoured(sheet, 1, MakeRgb(212, 219, 225)), (std::vector<int>{8}));
    EXPECT_EQ(testing::ColumnsColoured(sheet, 1, MakeRgb(243, 140, 0)), (std::vector<int>{24}));
    EXPECT_EQ(testing::ColumnsColoured(sheet, 1, MakeRgb(40, 203, 0)), (std::vector<int>{34}));

    // 0 5 9: EOO, SBB, CPC; 5 is Big.
    for (auto [wordCol, wordCell, word] :
         {std::tuple{1, 9, "EOO"}, std::tuple{14, 22, "SBB"}, std::tuple{27, 36, "CPC"}}) {
        EXPECT_EQ(sheet.Text(2, wordCol), word);
        EXPECT_EQ(sheet.Text(2, wordCell), word);
    }
    EXPECT_EQ(testing::ColumnsColoured(sheet, 2, MakeRgb(127, 176, 237)),
              (std::vector<int>{16, 17}));

    EXPECT_EQ(testing::RowTexts(sheet, 3, 0, 42), std::vector<std::string>(43));
}

}  // namespace
}  // namespace numarel
