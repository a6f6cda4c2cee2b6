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

std::vector<int> RowsColoured(const ReportSheet& sheet, int col) {
    std::vector<int> out;
    for (int r = 0; r < sheet.Rows(); ++r)
        if (sheet.BackColor(r, col) == colours::kHit) out.push_back(r);
    return out;
}

TEST(ThreeWayBoxChance, EachReportSignalsByItsOwnRule) {
    // 112 and 505 signal and are 3 Way Boxes on one row; 910, 089 and 321 are runs, 198 is not;
    // the triple 777 is no 3 Way Box.
    const auto drawings = Drawings({"112", "505", "910", "198", "089", "777", "321"});
    const struct {
        const char* object;
        std::vector<std::string> signals;
    } cases[] = {
        {"Form1zu3", {"***", "", "", "***", "", "", ""}},
        {"Form1tlj", {"", "", "***", "", "***", "", "***"}},
        {"Form1zu3bai10", {"", "***", "", "", "", "", ""}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.object);
        ReportSheet sheet = Build(c.object, drawings);
        EXPECT_EQ(Column(sheet, 4), c.signals);
        EXPECT_EQ(Column(sheet, 5), (std::vector<std::string>{"YES", "YES", "", "", "", "", ""}));
        // Digits as drawn although the tests ran on sorted ones; the date stands alone.
        EXPECT_EQ(testing::RowTexts(sheet, 3, 0, 3),
                  (std::vector<std::string>{" 2020003", "9", "1", "0"}));
    }
    ReportSheet third = Build("Form1zu3bai10", drawings);
    EXPECT_EQ(Column(third, 8), (std::vector<std::string>{"  YES", "  YES", "", "", "", "", ""}));
    EXPECT_EQ(Column(third, 9), (std::vector<std::string>{"1", "5", "9", "8", "9", "0", "2"}));
}

TEST(ThreeWayBoxChance, PaintedStretches) {
    // Signals on rows 1 and 3 merge; the first signal row itself stays white.
    EXPECT_EQ(
        RowsColoured(
            Build("Form1zu3", Drawings({"100", "234", "156", "222", "333", "444", "555", "666"})),
            4),
        (std::vector<int>{2, 3, 4, 5, 6, 7}));
    // A signal on the last drawing paints all four rows to come.
    EXPECT_EQ(RowsColoured(Build("Form1zu3", Drawings({"000", "100"})), 4),
              (std::vector<int>{3, 4, 5, 6}));
    // Widths 4 4 0 0 2: rows 1 and 2 never form a pair; rows 3 and 4 paint rows 5 to 7.
    EXPECT_EQ(
        RowsColoured(Build("Form1zu3bai10", Drawings({"135", "246", "000", "999", "123"})), 7),
        (std::vector<int>{5, 6, 7}));
    // A pair in the last two drawings reaches DrawCount + 3.
    EXPECT_EQ(RowsColoured(Build("Form1zu3bai10", Drawings({"123", "135", "246"})), 7),
              (std::vector<int>{4, 5, 6}));
}

TEST(ThreeWayBoxChance, EmptyFileGivesFourBlankRows) {
    ReportSheet sheet = Build("Form1tlj", {});
    EXPECT_EQ(sheet.Rows(), 5);
    EXPECT_TRUE(RowsColoured(sheet, 4).empty());
}

}  // namespace
}  // namespace numarel
