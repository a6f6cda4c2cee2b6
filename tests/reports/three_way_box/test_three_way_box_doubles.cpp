#include <gtest/gtest.h>

#include <map>
#include <span>
#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "reports/three_way_box/three_way_box_doubles.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;

constexpr Rgb kClassBack = MakeRgb(158, 140, 255);
constexpr Rgb kMissFore = MakeRgb(188, 194, 182);

// The written class cells of one row from column 18 on: column -> (text, back colour).
std::map<int, std::pair<std::string, Rgb>> ClassCells(const ReportSheet& sheet, int row) {
    std::map<int, std::pair<std::string, Rgb>> out;
    for (int c = 18; c < sheet.Cols(); ++c)
        if (!sheet.IsEmpty(row, c)) out[c] = {sheet.Text(row, c), sheet.BackColor(row, c)};
    return out;
}

struct ClassCase {
    const char* drawing;
    int doubleCol;  // -1: none
    std::map<int, std::pair<std::string, Rgb>> classes;
};

// Each drawing alone in a file: its double cell (header text on red), "-Y-" and class cells.
void ExpectClasses(const char* object, std::span<const ClassCase> cases) {
    for (const ClassCase& c : cases) {
        SCOPED_TRACE(c.drawing);
        ReportSheet sheet = Build(object, Drawings({c.drawing}));
        EXPECT_EQ(ClassCells(sheet, 1), c.classes);
        std::vector<int> doubles;
        for (int col = 8; col <= 17; ++col)
            if (sheet.BackColor(1, col) == colours::kHit) doubles.push_back(col);
        EXPECT_EQ(doubles, c.doubleCol < 0 ? std::vector<int>{} : std::vector<int>{c.doubleCol});
        EXPECT_EQ(sheet.Text(1, 7), c.doubleCol < 0 ? "" : "-Y-");
        if (c.doubleCol >= 0) {
            EXPECT_EQ(sheet.Text(1, c.doubleCol), sheet.Text(0, c.doubleCol));
        }
    }
}

TEST(ThreeWayBoxType, ClassesTheDoubleWithTheThirdDigit) {
    const Rgb red = colours::kHit;
    const ClassCase cases[] = {
        {"001", 8, {{21, {"3S", red}}, {24, {"2E1O", kClassBack}}, {30, {"2C1P", red}}}},
        {"110", 9, {{21, {"3S", red}}, {25, {"2O1E", kClassBack}}, {29, {"2P1C", red}}}},
        {"117", 9, {{19, {"2S1B", red}}, {27, {"3O", kClassBack}}, {31, {"3P", red}}}},
        {"449", 12, {{19, {"2S1B", red}}, {24, {"2E1O", kClassBack}}, {32, {"3C", red}}}},
        {"550", 13, {{20, {"2B1S", red}}, {25, {"2O1E", kClassBack}}, {29, {"2P1C", red}}}},
        {"688", 16, {{22, {"3B", red}}, {26, {"3E", kClassBack}}, {32, {"3C", red}}}},
        {"232", 10, {{21, {"3S", red}}, {24, {"2E1O", kClassBack}}, {31, {"3P", red}}}},
        {"777", -1, {}},
        {"123", -1, {}},
    };
    ExpectClasses("frmzu3leixing2", cases);
}

TEST(ThreeWayBoxTrend, ClassesTheDoubleAlone) {
    const Rgb red = colours::kHit;
    const ClassCase cases[] = {
        {"007",
         8,
         {{19, {"Small", red}},
          {22, {"0Type", kClassBack}},
          {26, {"Even", red}},
          {29, {"Composite", kClassBack}}}},
        {"110",
         9,
         {{19, {"Small", red}},
          {23, {"1Type", kClassBack}},
          {27, {"Odd", red}},
          {30, {"Prime", kClassBack}}}},
        {"011",
         9,
         {{19, {"Small", red}},
          {23, {"1Type", kClassBack}},
          {27, {"Odd", red}},
          {30, {"Prime", kClassBack}}}},
        // 22 is 2Type by its digit although 22 leaves 1 by 3.
        {"223",
         10,
         {{19, {"Small", red}},
          {24, {"2Type", kClassBack}},
          {26, {"Even", red}},
          {30, {"Prime", kClassBack}}}},
        {"998",
         17,
         {{20, {"Big", red}},
          {22, {"0Type", kClassBack}},
          {27, {"Odd", red}},
          {29, {"Composite", kClassBack}}}},
        {"555", -1, {}},
    };
    ExpectClasses("Form1zu3zh", cases);
}

// 00 on row 1 only, 11 on rows 3 and 4, 88 on row 6, 55 on the last row; 777 is a triple.
const auto kHistory = Drawings({"001", "777", "110", "011", "123", "688", "550"});

TEST(ThreeWayBoxDoubles, MissCountsAndMaxMissOfClosedRunsOnly) {
    for (const char* object : {"frmzu3leixing2", "Form1zu3zh"}) {
        SCOPED_TRACE(object);
        ReportSheet sheet = Build(object, kHistory);
        const int last = 7 + 4;
        ASSERT_EQ(sheet.Rows(), last + 1);
        EXPECT_EQ(sheet.Text(last, 0), "Max Miss");
        // 00: its run after row 1 never closes; 11: 2 closed by row 3; 55: closed by the last row.
        std::vector<std::string> columnOf00;
        for (int r = 1; r <= 7; ++r)
            columnOf00.push_back(sheet.Text(r, 8));
        EXPECT_EQ(columnOf00, (std::vector<std::string>{"00", "1", "2", "3", "4", "5", "6"}));
        EXPECT_EQ(testing::RowTexts(sheet, last, 8, 17),
                  (std::vector<std::string>{"0", "2", "0", "0", "0", "6", "0", "0", "5", "0"}));
        // The triple's row holds Miss numbers only.
        EXPECT_EQ(sheet.Text(2, 7), "");
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
    EXPECT_EQ(ClosedMissLengths(type, 29), "\r\n\r\n");  // 2P1C on rows 3, 4 and 7
    EXPECT_EQ(ClosedMissLengths(type, 25), "");          // parity colour is not red
}

TEST(ThreeWayBoxDoubles, LabelColumnAndLabelsUnderTheSheet) {
    ReportSheet type = Build("frmzu3leixing2", kHistory);
    EXPECT_EQ(type.Text(1, 0), "2020001:001");
    ASSERT_EQ(type.Labels().size(), 1u);
    EXPECT_EQ(type.Labels()[0].back, MakeRgb(192, 192, 0));

    ReportSheet trend = Build("Form1zu3zh", kHistory);
    EXPECT_EQ(trend.Text(1, 0), " 2020001");
    ASSERT_EQ(trend.Labels().size(), 2u);
    EXPECT_EQ(trend.Labels()[1].text, "0Type:00,33,66,99;1Type:11,44,77;2Type:22,55,88.");
}

}  // namespace
}  // namespace numarel
