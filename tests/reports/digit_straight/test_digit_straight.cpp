#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;

// The text of "Next Box numbers" for a finished sheet.
std::string NextBoxNumbersText(const ReportSheet& sheet) {
    return FindReport("frmrenwenleng")->extraButton.text(sheet);
}
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

constexpr Rgb kHotHit = MakeRgb(255, 0, 200);
constexpr Rgb kWarmHit = MakeRgb(225, 0, 0);
constexpr Rgb kColdHit = MakeRgb(42, 140, 167);
constexpr Rgb kWarmBand = MakeRgb(249, 212, 194);
constexpr Rgb kPattern = MakeRgb(42, 219, 167);

// Ranked Hot 7 4 1, Warm 9 5 2 0, Cold 3 6 8: rank order and digit order differ in Hot and Warm.
const auto kSeven = Drawings({"777", "777", "444", "441", "111", "999", "552"});

TEST(ColdWarmHot, ListsCountsAndPatternsOfTheDrawingsAfterTheFirstSeven) {
    auto drawings = kSeven;
    for (const auto& d : Drawings({"730", "444"}))
        drawings.push_back(d);
    const ReportSheet sheet = Build("frmrenwenleng", drawings);

    ASSERT_EQ(sheet.Rows(), 12);
    EXPECT_EQ(RowTexts(sheet, 7, 1, 32), Texts(32));  // nothing before seven drawings are counted

    // Row 8 counts rows 1 to 7.
    EXPECT_EQ(RowTexts(sheet, 8, 1, 10), (Texts{"0", "4", "1", "0", "5", "2", "0", "6", "0", "3"}));
    EXPECT_EQ(RowTexts(sheet, 8, 12, 21),
              (Texts{"7", "4", "1", "9", "5", "2", "0", "3", "6", "8"}));
    // 730: one of each class; each hit list cell painted in its class colour.
    EXPECT_EQ(ColumnsColoured(sheet, 8, kHotHit), (std::vector<int>{12}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, kWarmHit), (std::vector<int>{18}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, kColdHit), (std::vector<int>{19}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, kWarmBand), (std::vector<int>{15, 16, 17}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, kPattern), (std::vector<int>{32}));
    EXPECT_EQ(sheet.Text(8, 32), "111");

    // Row 9 ranks rows 2 to 8: 4 first, then 1 and 7 tied on four. 444 counts three Hot digits
    // though it paints a single list cell.
    EXPECT_EQ(RowTexts(sheet, 9, 12, 21),
              (Texts{"4", "1", "7", "9", "5", "0", "2", "3", "6", "8"}));
    EXPECT_EQ(ColumnsColoured(sheet, 9, kHotHit), (std::vector<int>{12}));
    EXPECT_EQ(ColumnsColoured(sheet, 9, kPattern), (std::vector<int>{25}));
    EXPECT_EQ(sheet.Text(9, 25), "300");

    // The next drawing's row has lists and no pattern; rows 1 to 24 are collapsed as far as the
    // sheet has them.
    EXPECT_EQ(RowTexts(sheet, 10, 12, 21),
              (Texts{"4", "1", "9", "5", "0", "2", "3", "7", "6", "8"}));
    EXPECT_EQ(RowTexts(sheet, 10, 23, 36), Texts(14));
    EXPECT_EQ(sheet.RowHeight(11), 2);
}

// One group of the text: its header line, its items each followed by a blank, an empty line.
std::string Group(const std::string& header, const std::string& items) {
    return header + "\r\n" + items + " \r\n\r\n";
}

TEST(ColdWarmHot, NextBoxNumbersFollowTheListsInTheirOrder) {
    // Exactly seven drawings: the lists of the next drawing's row give the text.
    const ReportSheet sheet = Build("frmrenwenleng", kSeven);

    // The groups in their order; the first and the last whole, the others by their first item.
    const std::string text = NextBoxNumbersText(sheet);
    EXPECT_TRUE(text.starts_with(Group("003:", "368 336 338 366 668 388 688 333 666 888")));
    EXPECT_TRUE(text.ends_with(Group("111:",
                                     "379 679 789 357 567 578 237 267 278 037 067 078 "
                                     "349 469 489 345 456 458 234 246 248 034 046 048 "
                                     "139 169 189 135 156 158 123 126 128 013 016 018")));
    std::size_t at = 0;
    for (const char* start : {"030:\r\n025 ", "300:\r\n147 ", "012:\r\n369 ", "021:\r\n359 ",
                              "102:\r\n367 ", "120:\r\n579 ", "210:\r\n479 ", "111:\r\n379 "}) {
        at = text.find(start, at);
        EXPECT_NE(at, std::string::npos) << start;
    }
    EXPECT_EQ(std::count(text.begin(), text.end(), ' '), 202);  // every item of every group
}

TEST(ColdWarmHot, WithoutSevenDrawingsTheTextSaysSoInsteadOfEmptyGroups) {
    for (const auto& drawings :
         {Drawings({}), Drawings({"123", "456", "789", "012", "345", "678"})}) {
        const ReportSheet sheet = Build("frmrenwenleng", drawings);
        EXPECT_EQ(sheet.Rows(), static_cast<int>(drawings.size()) + 3);
        const std::string text = NextBoxNumbersText(sheet);
        EXPECT_EQ(text.find("003:"), std::string::npos) << text;
        EXPECT_EQ(text.find("111:"), std::string::npos) << text;
        EXPECT_NE(text.find("at least 7 drawings"), std::string::npos) << text;
    }
}

using Cols = std::vector<int>;

constexpr Rgb kDigit = MakeRgb(255, 152, 104);
constexpr Rgb kMove = MakeRgb(0, 146, 255);

TEST(TundredTenUnitsTrend, MovesArePlainDifferencesPlacedBySize) {
    const ReportSheet sheet = Build("frm3weizoushi", Drawings({"905", "095", "362"}));
    EXPECT_EQ(sheet.Rows(), 3 + 5);
    EXPECT_EQ(sheet.Text(1, 0), "2020001:905");

    // The first drawing has digit cells only.
    EXPECT_EQ(ColumnsColoured(sheet, 1, kDigit), (Cols{14, 25, 50}));
    EXPECT_TRUE(ColumnsColoured(sheet, 1, kMove).empty());

    // 9 to 0 and 0 to 9 share the last column, told apart by sign; no change is 0.
    EXPECT_EQ(ColumnsColoured(sheet, 2, kMove), (Cols{24, 44, 55}));
    EXPECT_EQ(sheet.Text(2, 24), "-9");
    EXPECT_EQ(sheet.Text(2, 44), "9");
    EXPECT_EQ(sheet.Text(2, 55), "0");
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

TEST(Recommend320StraightNumbers, ExportListsEveryDrawingWithItsHit) {
    ReportSheet sheet = Build("frmbaishi32zu", Drawings({"307", "500", "059"}));
    const SheetText Export320Text = FindReport("frmbaishi32zu")->extraButton.text;
    EXPECT_EQ(Export320Text(sheet),
              " 2020001:307-[320YES]\r\n 2020002:500\r\n 2020003:059-[320YES]\r\n");
    EXPECT_EQ(Export320Text(Build("frmbaishi32zu", {})), "");
}

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

TEST(RecommendTundredTenUnits, OneDrawingGivesMasksOnlyToTheNextRow) {
    ReportSheet one = Build("frmzhixuantaloven", Drawings({"907"}));
    EXPECT_EQ(RowTexts(one, 1, 4, 12), Texts(9));
    EXPECT_EQ(RowTexts(one, 2, 4, 9), (Texts{"0**", "7**", "*9*", "*7*", "**9", "**0"}));
}

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
}

}  // namespace
}  // namespace numarel
