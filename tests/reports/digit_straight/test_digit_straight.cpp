#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "reports/report_rows.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;

// The text of "Next Box numbers" for a finished sheet.
std::string NextBoxNumbersText(const ReportSheet& sheet) {
    return FindReport("frmrenwenleng")->extraButton.text(sheet);
}
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

// Ranked Hot 7 4 1, Warm 9 5 2 0, Cold 3 6 8: rank order and digit order differ in Hot and Warm.
const auto kSeven = Drawings({"777", "777", "444", "441", "111", "999", "552"});

// The hand-worked rows of every report of this folder.
TEST(DigitStraight, RowsWorkedByHand) {
    testing::CheckRows("reports/digit_straight/rows.txt");
}

TEST(ColdWarmHot, NothingIsCountedBeforeSevenDrawings) {
    auto drawings = kSeven;
    for (const auto& d : Drawings({"730", "444"}))
        drawings.push_back(d);
    const ReportSheet sheet = Build("frmrenwenleng", drawings);
    ASSERT_EQ(sheet.Rows(), 12);
    EXPECT_EQ(RowTexts(sheet, 7, 1, 32), Texts(32));
    // Rows 1 to 24 are collapsed as far as the sheet has them.
    EXPECT_EQ(sheet.RowHeight(11), 2);
}

// Exactly seven drawings: the lists of the next drawing's row give the text, its groups in their
// order, each a header line, its items each followed by a blank, and an empty line.
TEST(ColdWarmHot, NextBoxNumbersFollowTheListsInTheirOrder) {
    const std::string text = NextBoxNumbersText(Build("frmrenwenleng", kSeven));
    EXPECT_EQ(text, testing::ReadAll(std::filesystem::path(NUMAREL_TESTS_DIR) / "reports" /
                                     "digit_straight" / "next_box_numbers.expected"));
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

TEST(Recommend320StraightNumbers, ExportListsEveryDrawingWithItsHit) {
    ReportSheet sheet = Build("frmbaishi32zu", Drawings({"307", "500", "059"}));
    const SheetText Export320Text = FindReport("frmbaishi32zu")->extraButton.text;
    EXPECT_EQ(Export320Text(sheet),
              " 2020001:307-[320YES]\r\n 2020002:500\r\n 2020003:059-[320YES]\r\n");
    EXPECT_EQ(Export320Text(Build("frmbaishi32zu", {})), "");
}

}  // namespace
}  // namespace numarel
