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
using Texts = std::vector<std::string>;

// Each drawing marks exactly one cell on each number line, in the colour of its line: value v at
// column 7 + v on the first line, 36 + v on the second.
TEST(DigitClassSums, EachDrawingMarksOneValuePerNumberLine) {
    const struct {
        const char* report;
        const char* digits;
        int first;
        int second;  // -1 where there is no second line
    } cases[] = {
        {"frmbjiouhe", "000", 0, 0},     {"frmbjiouhe", "999", 27, 0},
        {"frmbjiouhe", "123", 4, 2},     {"frmbxiaodahe", "444", 12, 0},
        {"frmbxiaodahe", "999", 0, 27},  {"frmbxiaodahe", "405", 4, 5},
        {"frmbzhihehe", "017", 8, 0},    {"frmbzhihehe", "489", 0, 21},
        {"frm3shu5luhe", "999", 12, -1}, {"frm3shu5luhe", "505", 0, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.report) + " " + c.digits);
        auto sheet = Build(c.report, Drawings({c.digits}));
        EXPECT_EQ(ColumnsColoured(sheet, 1, colours::kFirstTrace), std::vector<int>{7 + c.first});
        EXPECT_EQ(sheet.Text(1, 7 + c.first), std::to_string(c.first));
        if (c.second >= 0) {
            EXPECT_EQ(ColumnsColoured(sheet, 1, colours::kHit), std::vector<int>{36 + c.second});
            EXPECT_EQ(sheet.Text(1, 36 + c.second), std::to_string(c.second));
        } else {
            EXPECT_TRUE(ColumnsColoured(sheet, 1, colours::kHit).empty());
            EXPECT_EQ(sheet.Text(1, 5), std::to_string(c.first));  // the value itself
        }
    }
}

TEST(DigitClassSums, RowsFollowTheFileAndTheNextRowStaysEmpty) {
    auto empty = Build("frmbxiaodahe", {});
    EXPECT_EQ(empty.Rows(), 2);
    EXPECT_EQ(testing::RowTexts(empty, 1, 0, empty.Cols() - 1), Texts(empty.Cols()));
    EXPECT_EQ(empty.TopRow(), 1);

    // Each row starts its sums afresh.
    auto sheet = Build("frmbjiouhe", Drawings({"135", "246", "000"}));
    EXPECT_EQ(sheet.Rows(), 5);
    EXPECT_EQ(sheet.Text(1, 0), " 2020001:135");
    EXPECT_EQ(sheet.Text(1, 7 + 9), "9");
    EXPECT_EQ(sheet.Text(2, 36 + 12), "12");
    EXPECT_EQ(sheet.Text(3, 7), "0");
    EXPECT_EQ(testing::RowTexts(sheet, 4, 0, sheet.Cols() - 1), Texts(sheet.Cols()));
    EXPECT_EQ(sheet.CurrentRow(), 4);
    EXPECT_EQ(sheet.TopRow(), 4);
}

}  // namespace
}  // namespace numarel
