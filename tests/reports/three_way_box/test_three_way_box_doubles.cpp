#include <gtest/gtest.h>

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;

constexpr Rgb kRed = colours::kHit;
constexpr Rgb kViolet = MakeRgb(158, 140, 255);
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

struct ClassCase {
    const char* drawing;
    int doubleCol;  // -1: none
    std::vector<std::pair<std::string, Rgb>> classes;
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
    const ClassCase cases[] = {
        {"001", 8, {{"3S", kRed}, {"2E1O", kViolet}, {"2C1P", kRed}}},
        {"110", 9, {{"3S", kRed}, {"2O1E", kViolet}, {"2P1C", kRed}}},
        {"117", 9, {{"2S1B", kRed}, {"3O", kViolet}, {"3P", kRed}}},
        {"449", 12, {{"2S1B", kRed}, {"2E1O", kViolet}, {"3C", kRed}}},
        {"550", 13, {{"2B1S", kRed}, {"2O1E", kViolet}, {"2P1C", kRed}}},
        {"688", 16, {{"3B", kRed}, {"3E", kViolet}, {"3C", kRed}}},
        {"232", 10, {{"3S", kRed}, {"2E1O", kViolet}, {"3P", kRed}}},
        {"777", -1, {}},
        {"123", -1, {}},
    };
    ExpectClasses("frmzu3leixing2", cases);
}

TEST(ThreeWayBoxTrend, ClassesTheDoubleAlone) {
    const ClassCase cases[] = {
        {"007", 8, {{"Small", kRed}, {"0Type", kViolet}, {"Even", kRed}, {"Composite", kViolet}}},
        {"110", 9, {{"Small", kRed}, {"1Type", kViolet}, {"Odd", kRed}, {"Prime", kViolet}}},
        {"011", 9, {{"Small", kRed}, {"1Type", kViolet}, {"Odd", kRed}, {"Prime", kViolet}}},
        // 22 is 2Type by its digit although 22 leaves 1 by 3.
        {"223", 10, {{"Small", kRed}, {"2Type", kViolet}, {"Even", kRed}, {"Prime", kViolet}}},
        {"998", 17, {{"Big", kRed}, {"0Type", kViolet}, {"Odd", kRed}, {"Composite", kViolet}}},
        {"555", -1, {}},
    };
    ExpectClasses("Form1zu3zh", cases);
}

// 00 on row 1 only, 11 on rows 3 and 4, 88 on row 6, 55 on the last row; 777 is a triple.
const auto kHistory = Drawings({"001", "777", "110", "011", "123", "688", "550"});

TEST(ThreeWayBoxDoubles, MissCountsAndMaxMissOfClosedRunsOnly) {
    const struct {
        const char* object;
        const char* label;
        std::size_t labelsUnderTheSheet;
    } reports[] = {{"frmzu3leixing2", "2020001:001", 1}, {"Form1zu3zh", " 2020001", 2}};
    for (const auto& [object, label, labels] : reports) {
        SCOPED_TRACE(object);
        ReportSheet sheet = Build(object, kHistory);
        EXPECT_EQ(sheet.Text(1, 0), label);
        EXPECT_EQ(sheet.Labels().size(), labels);
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
    const ColumnText copied = FindReport("frmzu3leixing2")->doubleClickText;
    EXPECT_EQ(copied(type, 29), "\r\n\r\n");  // 2P1C on rows 3, 4 and 7
    EXPECT_EQ(copied(type, 25), "");          // parity colour is not red
}

}  // namespace
}  // namespace numarel
