#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/recommended_digits/formula_digits.h"
#include "reports/report_registry.h"
#include "reports/report_rows.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;

constexpr int kFirstSetCol = 5;

// The column whose header is `set`; -1 when there is none.
int SetColumn(const ReportSheet& s, std::string_view set) {
    for (int c = kFirstSetCol; c < s.Cols(); ++c)
        if (s.TextIs(0, c, set)) return c;
    return -1;
}

int CountInRow(const ReportSheet& s, int row, std::string_view text) {
    int n = 0;
    for (int c = kFirstSetCol; c < s.Cols(); ++c)
        if (s.TextIs(row, c, text)) ++n;
    return n;
}

// The hand-worked rows of every report of this folder.
TEST(RecommendedDigits, RowsWorkedByHand) {
    testing::CheckRows("reports/recommended_digits/rows.txt");
}

TEST(DigitFormulaMatrices, EverySetOfASize) {
    for (const testing::Case& c : testing::ReadCases("reports/recommended_digits/matrices.txt")) {
        SCOPED_TRACE(c.where);
        ReportSheet s = Build(c.Text(0), testing::DrawingsOf(c.Words(1)));
        const int row = c.Int(2);
        const std::vector<std::string>& sets = c.Words(3);  // set, marker, set, marker, ...
        for (std::size_t i = 0; i + 1 < sets.size(); i += 2)
            EXPECT_EQ(s.Text(row, SetColumn(s, sets[i])), sets[i + 1]) << sets[i];
        EXPECT_EQ(CountInRow(s, row, c.Text(4)), c.Int(5));
        EXPECT_EQ(CountInRow(s, row + 1, c.Text(4)), 0);  // the next drawing's row
    }
}

TEST(FormulaDigits, DecimalTextAndItsDigits) {
    for (const testing::Case& c : testing::ReadCases("reports/recommended_digits/decimals.txt")) {
        SCOPED_TRACE(c.where);
        const std::string v = c.Text(0);
        const auto slash = v.find('/');
        const double value = slash == std::string::npos
                                 ? std::stod(v)
                                 : std::stod(v.substr(0, slash)) / std::stod(v.substr(slash + 1));
        EXPECT_EQ(DecimalText(value), c.Text(1));
        EXPECT_EQ(LeadingDigits(value, 3), c.Text(2));
    }
    EXPECT_EQ(LeadingDigits(307.0 / 17, 4), "1805");
    EXPECT_EQ(RemoveAll("aabb", "ab"), "");  // the first removal joins a new "ab"
    EXPECT_EQ(RemoveAll("abc", ""), "abc");
}

TEST(RecommendThreeDigits, TheMissChartGreysItsMisses) {
    ReportSheet s = Build("frmtongsha3ma", Drawings({"556", "478", "123", "478", "123", "478",
                                                     "123", "478", "123", "478", "609", "125"}));
    ASSERT_EQ(s.Rows(), 14);
    EXPECT_EQ(s.ForeColor(10, 10), MakeRgb(188, 194, 182));
    EXPECT_EQ(s.ForeColor(10, 10 + 4), kDefaultColour);
}

}  // namespace
}  // namespace numarel
