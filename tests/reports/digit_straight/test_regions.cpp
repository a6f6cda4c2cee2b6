#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;
using Cols = std::vector<int>;

constexpr Rgb kPattern = MakeRgb(127, 182, 200);

struct ThreeRegionsCase {
    std::string_view digits;
    int patternCol;
    std::string pattern;
    Cols marked;
};

TEST(ThreeRegions, PatternCountsTheDrawnDigitsOfEachRegion) {
    const ThreeRegionsCase cases[] = {
        {"000", 27, "300", {5}},          // one mark, counted three times
        {"345", 21, "030", {9, 10, 11}},  // three Middle digits
        {"378", 19, "012", {9, 14, 15}},  // no Small, one Middle, two Large
    };
    for (const ThreeRegionsCase& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet sheet = Build("frmxzd", Drawings({c.digits}));
        EXPECT_EQ(ColumnsColoured(sheet, 1, colours::kFoundDigit), c.marked);
        EXPECT_EQ(ColumnsColoured(sheet, 1, kPattern), Cols{c.patternCol});
        EXPECT_EQ(sheet.Text(1, c.patternCol), c.pattern);
    }
}

TEST(ThreeRegions, RegionDigitsStandInEveryDrawingRowUnderTheirRegion) {
    const ReportSheet sheet = Build("frmxzd", Drawings({"123", "456"}));
    for (int r = 1; r <= 2; ++r)
        EXPECT_EQ(RowTexts(sheet, r, 5, 16),
                  (Texts{"0", "1", "2", "", "3", "4", "5", "6", "", "7", "8", "9"}));
    EXPECT_EQ(sheet.Rows(), 4);
    EXPECT_EQ(RowTexts(sheet, 3, 0, 27), Texts(28));
}

struct FourRegionsCase {
    std::string_view digits;
    int patternCol;
    std::string pattern;
    int sumCol;
    std::string sum;
    int typeCol;
    std::string type;
    Cols marked;
};

TEST(FourRegions1234, SortedCodesGivePatternSumAndType) {
    const FourRegionsCase cases[] = {
        {"024", 29, "222", 43, "6", 53, "Type-3", {8, 9, 10}},
        {"105", 24, "123", 43, "6", 51, "Type-1", {5, 8, 12}},
        // 4 is even below 5, 5 odd above 4: one threshold would split them wrongly.
        {"459", 32, "233", 45, "8", 52, "Type-2", {10, 12, 14}},
        {"864", 34, "244", 47, "10", 52, "Type-2", {10, 16, 17}},
        {"686", 38, "444", 49, "12", 53, "Type-3", {16, 17}},
    };
    for (const FourRegionsCase& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet sheet = Build("frm4qufenge", Drawings({c.digits}));
        EXPECT_EQ(ColumnsColoured(sheet, 1, colours::kFoundDigit), c.marked);
        EXPECT_EQ(ColumnsColoured(sheet, 1, kPattern), (Cols{c.patternCol, c.typeCol}));
        EXPECT_EQ(ColumnsColoured(sheet, 1, colours::kHit), Cols{c.sumCol});
        EXPECT_EQ(sheet.Text(1, c.patternCol), c.pattern);
        EXPECT_EQ(sheet.Text(1, c.sumCol), c.sum);
        EXPECT_EQ(sheet.Text(1, c.typeCol), c.type);
    }
}

}  // namespace
}  // namespace numarel
