#include "reports/recommended_digits/formula_digits.h"

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

constexpr Rgb kSeveralHits = MakeRgb(140, 219, 255);
constexpr int kGroup1 = 5;  // its result in 6
constexpr int kGroup2 = 8;
constexpr int kGroup3 = 11;
constexpr int kLastCol = 12;

TEST(FormulaDigits, DecimalTextAndItsDigits) {
    const struct {
        double value;
        const char* text;
        const char* firstThree;
    } cases[] = {
        {0, "0", "0"},  // "00": one distinct digit
        {0.125, ".125", "012"},
        {307.0 / 17, "18.0588235294118", "180"},  // 15 significant digits
        {1e-5, ".00001", "01"},                   // no exponent
        {9.999999999999998, "10", "10"},          // rounding carries into a new digit
        {123456789012345678.0, "123456789012346000", "123"},
        {-2.5, "-2.5", "0-2"},  // below 1, so the "0" goes in front of the sign
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(DecimalText(c.value), c.text);
        EXPECT_EQ(LeadingDigits(c.value, 3), c.firstThree);
    }
    EXPECT_EQ(LeadingDigits(307.0 / 17, 4), "1805");
    EXPECT_EQ(RemoveAll("aabb", "ab"), "");  // the first removal joins a new "ab"
    EXPECT_EQ(RemoveAll("abc", ""), "abc");
}

TEST(FormulaDigits, GroupsCountDrawnDigits) {
    ReportSheet s = Build("frmdanma2", Drawings({"307", "331", "000"}));
    ASSERT_EQ(s.Rows(), 5);
    EXPECT_EQ(RowTexts(s, 1, kGroup1, kLastCol), Texts(8));
    // From 3 0 7. The drawn 3 3 1: the 1 of 571 and of 189 once, the 3 of 329 twice.
    EXPECT_EQ(RowTexts(s, 2, kGroup1, kLastCol),
              (Texts{"571", "1  ", "", "189", "1  ", "", "329", "2  "}));
    EXPECT_EQ(ColumnsColoured(s, 2, kSeveralHits), Cols{kGroup3 + 1});
    // From 3 3 1: 5.7855..., 204.558, 1058 / 3.141 = 336.835... The drawn 0 0 0 counts three.
    EXPECT_EQ(RowTexts(s, 3, kGroup1, kLastCol),
              (Texts{"578", "  -N-", "", "204", "3  ", "", "368", "  -N-"}));
    EXPECT_EQ(ColumnsColoured(s, 3, kSeveralHits), Cols{kGroup2 + 1});
    // The recommendation from 0 0 0, unjudged.
    EXPECT_EQ(RowTexts(s, 4, 0, kLastCol),
              (Texts{"", "", "", "", "", "0", "", "", "0", "", "", "231", ""}));
}

}  // namespace
}  // namespace numarel
