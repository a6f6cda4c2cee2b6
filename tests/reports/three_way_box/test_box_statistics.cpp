#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;

constexpr Rgb kStripe = MakeRgb(170, 210, 176);

// `count` drawings of `filler`, with the drawings of `at` on their rows (1 for the first).
std::vector<DrawRecord> Sequence(int count, std::string_view filler,
                                 const std::map<int, std::string_view>& at) {
    std::vector<DrawRecord> out;
    for (int row = 1; row <= count; ++row) {
        auto it = at.find(row);
        std::string_view digits = it == at.end() ? filler : it->second;
        out.push_back({std::to_string(2020000 + row), std::string(1, digits[0]),
                       std::string(1, digits[1]), std::string(1, digits[2])});
    }
    return out;
}

int ColumnOf(const ReportSheet& sheet, std::string_view header) {
    for (int c = 0; c < sheet.Cols(); ++c)
        if (sheet.TextIs(0, c, header)) return c;
    return -1;
}

TEST(BoxStatistics, HitsMissesAndWinningNumberMiss) {
    // 717 and 177 are one number; 123 is of the other kind; 121 is 112's first hit.
    ReportSheet sheet = Build("frmzusan90", Drawings({"717", "177", "123", "771", "121"}));
    const int col177 = ColumnOf(sheet, "177");
    const int col112 = ColumnOf(sheet, "112");
    const int w = 96;
    EXPECT_EQ(sheet.Text(1, 0), "2020001|717");
    EXPECT_EQ(sheet.Text(1, col177), "****");
    EXPECT_EQ(sheet.BackColor(1, col177), colours::kHit);
    EXPECT_EQ(sheet.Text(3, col177), "1");
    EXPECT_EQ(sheet.Text(5, col112), "****");
    EXPECT_EQ(sheet.Text(4, col112), "4");

    std::vector<std::string> mark, distance, firstBand;
    for (int r = 1; r <= 5; ++r) {
        mark.push_back(sheet.Text(r, 5));
        distance.push_back(sheet.Text(r, w));
        firstBand.push_back(sheet.Text(r, w + 1));
    }
    EXPECT_EQ(mark, (std::vector<std::string>{"-Y-", "-Y-", "", "-Y-", "-Y-"}));
    // Row 1 has no entry; a direct repeat is 0; a first hit gives its row number.
    EXPECT_EQ(distance, (std::vector<std::string>{"", "0", "", "2", "5"}));
    EXPECT_EQ(firstBand, (std::vector<std::string>{"", "*", "", "*", "*"}));
    for (int c = w + 2; c <= w + 6; ++c)
        EXPECT_TRUE(sheet.IsEmpty(3, c));
}

TEST(BoxStatistics, BandLimits) {
    // 001 comes on rows 1, 101, 202, 702 and 1203: distances 100, 101, 500, 501.
    ReportSheet sheet =
        Build("frmzusan90",
              Sequence(1203, "123",
                       {{1, "100"}, {101, "010"}, {202, "001"}, {702, "100"}, {1203, "001"}}));
    const int w = 96;
    const std::map<int, std::pair<std::string, int>> expected = {{101, {"100", w + 1}},
                                                                 {202, {"101", w + 2}},
                                                                 {702, {"500", w + 5}},
                                                                 {1203, {"501", w + 6}}};
    for (const auto& [row, want] : expected) {
        SCOPED_TRACE(row);
        EXPECT_EQ(sheet.Text(row, w), want.first);
        std::vector<int> starred;
        for (int c = w + 1; c <= w + 6; ++c)
            if (sheet.TextIs(row, c, "*")) starred.push_back(c);
        EXPECT_EQ(starred, std::vector<int>{want.second});
    }
}

TEST(BoxStatistics, SixWayBoxesCompareAsNumbers) {
    // 210 sorts to "012", the header whose number is 12; 112 is of the other kind.
    ReportSheet sheet = Build("frmzuliu120", Drawings({"210", "112", "987"}));
    EXPECT_EQ(sheet.Text(1, 6), "****");
    EXPECT_EQ(sheet.Text(2, 5), "");
    EXPECT_EQ(sheet.Text(3, 126), "3");
}

TEST(SeventyTicketsFollow, StripesUnderHitsAndMisses) {
    // 012 is a 6 Way Box outside the list; 014 is unstriped (Sum 5), 024 striped (Sum 6).
    ReportSheet sheet = Build("frmzuliu70", Drawings({"012", "410", "420", "123"}));
    EXPECT_EQ(sheet.Text(1, 5), "");
    EXPECT_TRUE(sheet.IsEmpty(1, 76));
    EXPECT_EQ(testing::RowTexts(sheet, 3, 5, 7), (std::vector<std::string>{"-Y-", "1", "****"}));
    EXPECT_EQ(sheet.Text(3, 76), "3");
    EXPECT_EQ(sheet.BackColor(3, 7), colours::kHit);
    EXPECT_EQ(sheet.BackColor(4, 7), kStripe);
    EXPECT_EQ(sheet.BackColor(5, 7), kDefaultColour);  // no stripe below the drawings

    // The stripe falls on exactly the tickets of even Sum, Sums ascending from 5 to 23.
    int previousSum = 0;
    for (int c = 6; c <= 75; ++c) {
        const std::string t = sheet.Text(0, c);
        const int sum = t[0] + t[1] + t[2] - 3 * '0';
        EXPECT_GE(sum, previousSum) << t;
        previousSum = sum;
        EXPECT_EQ(sheet.BackColor(1, c) == kStripe, sum % 2 == 0) << t;
    }
    EXPECT_EQ(previousSum, 23);
}

}  // namespace
}  // namespace numarel
