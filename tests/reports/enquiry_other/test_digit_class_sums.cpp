#include <gtest/gtest.h>

#include "frame/frame_passes.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;

struct TraceCase {
    const char* report;
    const char* digits;
    int firstCol;   // the coloured cell of the first number line
    int secondCol;  // of the second, -1 where there is none
    const char* firstText;
    const char* secondText;
};

// Each drawing marks exactly one cell on each number line, in the colour of its line.
TEST(DigitClassSums, EachDrawingMarksOneValuePerNumberLine) {
    const TraceCase cases[] = {
        {"frmbjiouhe", "000", 7, 36, "0", "0"},    {"frmbjiouhe", "999", 34, 36, "27", "0"},
        {"frmbjiouhe", "123", 11, 38, "4", "2"},   {"frmbxiaodahe", "444", 19, 36, "12", "0"},
        {"frmbxiaodahe", "999", 7, 63, "0", "27"}, {"frmbxiaodahe", "405", 11, 41, "4", "5"},
        {"frmbzhihehe", "017", 15, 36, "8", "0"},  {"frmbzhihehe", "489", 7, 57, "0", "21"},
        {"frm3shu5luhe", "999", 19, -1, "12", ""}, {"frm3shu5luhe", "505", 7, -1, "0", ""},
    };
    for (const TraceCase& c : cases) {
        SCOPED_TRACE(std::string(c.report) + " " + c.digits);
        auto sheet = Build(c.report, Drawings({c.digits}));
        EXPECT_EQ(ColumnsColoured(sheet, 1, colours::kFirstTrace), (std::vector<int>{c.firstCol}));
        EXPECT_EQ(sheet.Text(1, c.firstCol), c.firstText);
        if (c.secondCol >= 0) {
            EXPECT_EQ(ColumnsColoured(sheet, 1, colours::kHit), (std::vector<int>{c.secondCol}));
            EXPECT_EQ(sheet.Text(1, c.secondCol), c.secondText);
        } else {
            EXPECT_TRUE(ColumnsColoured(sheet, 1, colours::kHit).empty());
            EXPECT_EQ(sheet.Text(1, 5), c.firstText);  // the value itself
        }
    }
}

TEST(DigitClassSums, HeaderWidthsAndUnreachableValues) {
    auto odd = Build("frmbjiouhe", {});
    EXPECT_EQ(odd.Cols(), 61);
    EXPECT_EQ(odd.Title(), "Sum of Odd-Sum of Even");
    EXPECT_EQ(odd.ColWidth(0), 1290);
    EXPECT_EQ(odd.Text(0, 7), "0");
    EXPECT_EQ(odd.Text(0, 34), "27");
    EXPECT_EQ(odd.ColWidth(27), 2);  // Sum of Odd 20 cannot happen
    EXPECT_TRUE(odd.IsEmpty(0, 27));
    EXPECT_EQ(odd.ColWidth(37), 2);  // Sum of Even is never odd
    EXPECT_EQ(odd.Text(0, 60), "24");
    EXPECT_EQ(odd.ColWidth(35), 300);
    EXPECT_TRUE(odd.IsEmpty(0, 35));

    auto prime = Build("frmbzhihehe", {});
    EXPECT_EQ(prime.Cols(), 64);
    EXPECT_EQ(prime.ColWidth(5), 2);
    EXPECT_EQ(prime.ColWidth(35), 20);
    for (int v : {1, 2, 3, 5, 7, 11})
        EXPECT_EQ(prime.ColWidth(36 + v), 2) << v;
    EXPECT_EQ(prime.ColWidth(36 + 4), 300);
    EXPECT_EQ(prime.Text(0, 36 + 12), "12");

    auto rem = Build("frm3shu5luhe", {});
    EXPECT_EQ(rem.Cols(), 20);
    EXPECT_EQ(rem.ColWidth(5), 300);
    EXPECT_EQ(rem.Text(0, 19), "12");
}

TEST(DigitClassSums, EmptyHistoryShowsOnlyTheHeader) {
    auto sheet = Build("frmbxiaodahe", {});
    EXPECT_EQ(sheet.Rows(), 2);
    EXPECT_EQ(sheet.Text(0, 1), "H");
    for (int c = 0; c < sheet.Cols(); ++c)
        EXPECT_TRUE(sheet.IsEmpty(1, c));
    EXPECT_EQ(sheet.TopRow(), 1);
}

TEST(DigitClassSums, RowsFollowTheFileAndTheNextRowStaysEmpty) {
    auto sheet = Build("frmbjiouhe", Drawings({"135", "246", "000"}));
    EXPECT_EQ(sheet.Rows(), 5);
    EXPECT_EQ(sheet.Text(1, 0), " 2020001:135");
    EXPECT_EQ(sheet.Text(1, 7 + 9), "9");
    EXPECT_EQ(sheet.Text(2, 36 + 12), "12");
    EXPECT_EQ(sheet.Text(3, 7), "0");
    for (int c = 0; c < sheet.Cols(); ++c)
        EXPECT_TRUE(sheet.IsEmpty(4, c));
    EXPECT_EQ(sheet.CurrentRow(), 4);
    EXPECT_EQ(sheet.TopRow(), 4);
}

}  // namespace
}  // namespace numarel
