#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;

std::vector<std::string> Column(const ReportSheet& sheet, int col) {
    std::vector<std::string> out;
    for (int r = 1; r <= sheet.DrawCount(); ++r)
        out.push_back(sheet.Text(r, col));
    return out;
}

std::vector<int> RowsColoured(const ReportSheet& sheet, int col, Rgb colour) {
    std::vector<int> out;
    for (int r = 0; r < sheet.Rows(); ++r)
        if (sheet.BackColor(r, col) == colour) out.push_back(r);
    return out;
}

// 112 and 505 signal and are 3 Way Boxes on one row; 910, 089 and 321 are runs, 198 is not;
// the triple 777 is no 3 Way Box.
const auto kMixed = Drawings({"112", "505", "910", "198", "089", "777", "321"});

struct SignalCase {
    const char* object;
    std::vector<std::string> signals;
};

TEST(ThreeWayBoxChance, EachReportSignalsByItsOwnRule) {
    const SignalCase cases[] = {
        {"Form1zu3", {"***", "", "", "***", "", "", ""}},     // H is 1
        {"Form1tlj", {"", "", "***", "", "***", "", "***"}},  // runs, 9 wrapping to 0
        {"Form1zu3bai10", {"", "***", "", "", "", "", ""}},   // T is 0
    };
    for (const SignalCase& c : cases) {
        SCOPED_TRACE(c.object);
        ReportSheet sheet = Build(c.object, kMixed);
        EXPECT_EQ(Column(sheet, 4), c.signals);
        EXPECT_EQ(Column(sheet, 5), (std::vector<std::string>{"YES", "YES", "", "", "", "", ""}));
        EXPECT_EQ(sheet.Text(0, 5), "3 Way Box");
        EXPECT_EQ(sheet.Rows(), 7 + 5);
        // Digits as drawn although the tests ran on sorted ones; the date stands alone.
        EXPECT_EQ(testing::RowTexts(sheet, 3, 0, 3),
                  (std::vector<std::string>{" 2020003", "9", "1", "0"}));
    }
}

TEST(ThreeWayBoxChance, HiddenWidthColumnsOfTheThirdReport) {
    ReportSheet sheet = Build("Form1zu3bai10", kMixed);
    ASSERT_EQ(sheet.Cols(), 10);
    EXPECT_EQ(Column(sheet, 8), (std::vector<std::string>{"  YES", "  YES", "", "", "", "", ""}));
    EXPECT_EQ(Column(sheet, 9), (std::vector<std::string>{"1", "5", "9", "8", "9", "0", "2"}));
    EXPECT_EQ(sheet.Text(0, 8), "3 Way Box");
    EXPECT_EQ(sheet.ColWidth(9), 40);
    EXPECT_EQ(Build("Form1zu3", kMixed).Cols(), 6);
}

TEST(ThreeWayBoxChance, FourRowsAfterEachSignalArePaintedAndStretchesMerge) {
    // Signals on rows 1 and 3: row 3 lies in the first stretch, row 1 itself stays white.
    ReportSheet sheet =
        Build("Form1zu3", Drawings({"100", "234", "156", "222", "333", "444", "555", "666"}));
    EXPECT_EQ(RowsColoured(sheet, 4, colours::kHit), (std::vector<int>{2, 3, 4, 5, 6, 7}));
}

TEST(ThreeWayBoxChance, SignalOnTheLastDrawingPaintsAllFourRowsToCome) {
    ReportSheet sheet = Build("Form1zu3", Drawings({"000", "100"}));
    EXPECT_EQ(RowsColoured(sheet, 4, colours::kHit), (std::vector<int>{3, 4, 5, 6}));
}

TEST(ThreeWayBoxChance, EqualWidthsInARowPaintTheThreeRowsAfterThem) {
    // Widths 4 4 0 0 2: rows 1 and 2 never form a pair; rows 3 and 4 paint rows 5 to 7.
    ReportSheet sheet = Build("Form1zu3bai10", Drawings({"135", "246", "000", "999", "123"}));
    EXPECT_EQ(RowsColoured(sheet, 7, colours::kHit), (std::vector<int>{5, 6, 7}));

    // The pair in the last two drawings reaches DrawCount + 3.
    ReportSheet late = Build("Form1zu3bai10", Drawings({"123", "135", "246"}));
    EXPECT_EQ(RowsColoured(late, 7, colours::kHit), (std::vector<int>{4, 5, 6}));
}

TEST(ThreeWayBoxChance, EmptyFileGivesHeaderAndFourBlankRows) {
    ReportSheet sheet = Build("Form1tlj", {});
    EXPECT_EQ(sheet.Rows(), 5);
    EXPECT_EQ(testing::RowTexts(sheet, 0, 0, 5),
              (std::vector<std::string>{"", "H", "T", "U", "", "3 Way Box"}));
    EXPECT_TRUE(RowsColoured(sheet, 4, colours::kHit).empty());
    EXPECT_EQ(sheet.Title(), "3 Way Box Chance[2]");
}

}  // namespace
}  // namespace numarel
