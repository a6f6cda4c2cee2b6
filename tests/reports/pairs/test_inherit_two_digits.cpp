#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/pairs/layout_checks.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

constexpr int kInheritCol = 5;

TEST(InheritTwoDigits, Layout) {
    ReportSheet sheet = Build("frmchong2ge", {});
    EXPECT_EQ(sheet.Title(), "Inherit 2 Digits");
    EXPECT_EQ(testing::HelpPageOf("frmchong2ge"), "Inherit_2_Digits");
    EXPECT_EQ(RowTexts(sheet, 0, 0, sheet.Cols() - 1),
              (Texts{"", "H", "T", "U", "", "Inherit 2 Digits"}));
    EXPECT_EQ(testing::ColumnWidths(sheet),
              testing::WidthsOf({{0, 0, 1290}, {1, 3, 300}, {4, 4, 20}, {5, 5, 1032}}));
}

// A drawing is marked when it shares exactly two different digits with the one before, in any
// position; repeated digits count once.
TEST(InheritTwoDigits, MarksExactlyTwoSharedDigits) {
    ReportSheet sheet = Build("frmchong2ge", Drawings({
                                                 "123",  // the first drawing is never marked
                                                 "234",  // 2 and 3
                                                 "432",  // all three: no mark
                                                 "112",  // 2 only
                                                 "219",  // 1 and 2, the 1 drawn twice before
                                                 "555",  // none
                                                 "550",  // 5 only
                                                 "505",  // 0 and 5: the same Box Number
                                                 "000",  // 0 only
                                             }));
    ASSERT_EQ(sheet.Rows(), 11);
    Texts marks;
    for (int r = 1; r <= 10; ++r)
        marks.push_back(sheet.Text(r, kInheritCol));
    EXPECT_EQ(marks, (Texts{"", "YES", "", "", "YES", "", "", "YES", "", ""}));
    EXPECT_EQ(RowTexts(sheet, 2, 1, 3), (Texts{"2", "3", "4"}));
    EXPECT_EQ(RowTexts(sheet, 10, 0, kInheritCol), Texts(6));
}

}  // namespace
}  // namespace numarel
