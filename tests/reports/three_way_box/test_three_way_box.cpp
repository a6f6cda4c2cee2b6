#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "reports/report_rows.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;

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

// Box statistics, 6 Way Boxes and the 3 Way Box doubles, worked by hand.
TEST(ThreeWayBox, RowsWorkedByHand) {
    testing::CheckRows("reports/three_way_box/rows.txt");
}

TEST(BoxStatistics, HitsAreMarkedInTheNumbersColumn) {
    // 717 and 177 are one number; 121 is 112's first hit.
    ReportSheet sheet = Build("frmzusan90", Drawings({"717", "177", "123", "771", "121"}));
    const int col177 = ColumnOf(sheet, "177");
    const int col112 = ColumnOf(sheet, "112");
    EXPECT_EQ(sheet.Text(1, col177), "****");
    EXPECT_EQ(sheet.BackColor(1, col177), colours::kHit);
    EXPECT_EQ(sheet.Text(3, col177), "1");
    EXPECT_EQ(sheet.Text(5, col112), "****");
    EXPECT_EQ(sheet.Text(4, col112), "4");
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

std::vector<int> RowsColoured(const ReportSheet& sheet, int col) {
    std::vector<int> out;
    for (int r = 0; r < sheet.Rows(); ++r)
        if (sheet.BackColor(r, col) == colours::kHit) out.push_back(r);
    return out;
}

TEST(ThreeWayBoxChance, PaintedStretches) {
    for (const testing::Case& c : testing::ReadCases("reports/three_way_box/painted.txt")) {
        EXPECT_EQ(RowsColoured(Build(c.Text(0), testing::DrawingsOf(c.Words(1))), c.Int(2)),
                  c.Ints(3))
            << c.where;
    }
}

constexpr Rgb kMissFore = MakeRgb(188, 194, 182);

// The written class cells of one row from column 18 on, in column order, as (text, back colour);
// a class cell stands in the column that its text heads.
std::vector<std::pair<std::string, Rgb>> ClassCells(const ReportSheet& sheet, int row) {
    std::vector<std::pair<std::string, Rgb>> out;
    for (int c = 18; c < sheet.Cols(); ++c) {
        if (sheet.IsEmpty(row, c)) continue;
        EXPECT_EQ(sheet.Text(row, c), sheet.Text(0, c)) << "column " << c;
        out.emplace_back(sheet.Text(row, c), sheet.BackColor(row, c));
    }
    return out;
}

// 00 on row 1 only, 11 on rows 3 and 4, 88 on row 6, 55 on the last row; 777 is a triple.
const auto kHistory = Drawings({"001", "777", "110", "011", "123", "688", "550"});

TEST(ThreeWayBoxDoubles, MissCountsAndMaxMissOfClosedRunsOnly) {
    const struct {
        const char* object;
        std::size_t labelsUnderTheSheet;
    } reports[] = {{"frmzu3leixing2", 1}, {"Form1zu3zh", 2}};
    for (const auto& [object, labels] : reports) {
        SCOPED_TRACE(object);
        ReportSheet sheet = Build(object, kHistory);
        EXPECT_EQ(sheet.Labels().size(), labels);
        const int last = 7 + 4;
        ASSERT_EQ(sheet.Rows(), last + 1);
        // The triple's row holds Miss numbers only.
        EXPECT_TRUE(ClassCells(sheet, 2).empty());
        EXPECT_EQ(sheet.ForeColor(2, 8), kMissFore);
        EXPECT_EQ(sheet.ForeColor(last, 9), kMissFore);
        EXPECT_EQ(sheet.ForeColor(1, 8), kDefaultColour);
    }
}

TEST(ThreeWayBoxDoubles, DoubleClickCopiesTheClosedMissLengths) {
    for (const char* object : {"frmzu3leixing2", "Form1zu3zh"}) {
        SCOPED_TRACE(object);
        const ReportDefinition* def = FindReport(object);
        ASSERT_NE(def, nullptr);
        ASSERT_NE(def->doubleClickText, nullptr);
        ReportSheet sheet =
            Build(object, Drawings({"011", "123", "456", "110", "110", "789", "101", "550"}));
        EXPECT_EQ(def->doubleClickText(sheet, 9), "2\r\n1\r\n");  // 11: the hit on row 1 adds none
        EXPECT_EQ(def->doubleClickText(sheet, 13), "7\r\n");
        EXPECT_EQ(def->doubleClickText(sheet, 8), "");
    }
    // In a class column the lines are the (empty) texts before each red stretch.
    ReportSheet type = Build("frmzu3leixing2", kHistory);
    const ColumnText copied = FindReport("frmzu3leixing2")->doubleClickText;
    EXPECT_EQ(copied(type, 29), "\r\n\r\n");  // 2P1C on rows 3, 4 and 7
    EXPECT_EQ(copied(type, 25), "");          // parity colour is not red
}

}  // namespace
}  // namespace numarel
