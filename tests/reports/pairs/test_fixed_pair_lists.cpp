#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/pairs/layout_checks.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

constexpr int kSumCol = 4;
constexpr int kWidthCol = 5;
constexpr int kFirstPairCol = 6;
constexpr int kLastPairCol = 8;
constexpr int kFirstListCol = 10;
constexpr int kLastListCol = 19;

TEST(FixedPairLists, Layout) {
    const struct {
        const char* object;
        const char* title;
        Texts pairs;
    } cases[] = {
        {"frm0luliangma",
         "0 Type Pairs",
         {"00", "33", "66", "99", "03", "06", "09", "36", "39", "69"}},
        {"frmshunziliangma",
         "Serial Pairs",
         {"01", "12", "23", "34", "45", "56", "67", "78", "89", "09"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.object);
        ReportSheet sheet = Build(c.object, {});
        EXPECT_EQ(sheet.Title(), c.title);
        EXPECT_EQ(testing::HelpPageOf(c.object), "(none)");
        Texts header = {"", "H", "T", "U", "S", "W", "", "", "", ""};
        header.insert(header.end(), c.pairs.begin(), c.pairs.end());
        EXPECT_EQ(RowTexts(sheet, 0, 0, sheet.Cols() - 1), header);
        EXPECT_EQ(testing::ColumnWidths(sheet),
                  testing::WidthsOf({{0, 0, 1290}, {1, 8, 300}, {9, 9, 20}, {10, 19, 300}}));
    }
}

// A drawing's pair texts put the smaller digit first and keep doubles; a pair on the list is
// marked once however often the drawing holds it.
TEST(FixedPairLists, MarksTheListedPairsOfADrawing) {
    const struct {
        const char* object;
        const char* drawing;
        const char* sum;
        const char* width;
        Texts pairs;
        std::vector<int> marked;  // list columns 10 to 19
    } cases[] = {
        {"frm0luliangma", "333", "9", "0", {"33", "33", "33"}, {11}},
        {"frm0luliangma", "903", "12", "9", {"03", "09", "39"}, {14, 16, 18}},
        {"frm0luliangma", "600", "6", "6", {"00", "06", "06"}, {10, 15}},
        {"frm0luliangma", "125", "8", "4", {"12", "15", "25"}, {}},
        {"frmshunziliangma", "950", "14", "9", {"05", "09", "59"}, {19}},
        {"frmshunziliangma", "345", "12", "2", {"34", "35", "45"}, {13, 14}},
        {"frmshunziliangma", "777", "21", "0", {"77", "77", "77"}, {}},
        {"frmshunziliangma", "101", "2", "1", {"01", "01", "11"}, {10}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.object) + " " + c.drawing);
        ReportSheet sheet = Build(c.object, Drawings({"456", c.drawing}));
        ASSERT_EQ(sheet.Rows(), 4);
        const int row = 2;
        EXPECT_EQ(RowTexts(sheet, row, 1, kWidthCol),
                  (Texts{{c.drawing[0]}, {c.drawing[1]}, {c.drawing[2]}, c.sum, c.width}));
        EXPECT_EQ(sheet.BackColor(row, kSumCol), colours::kSumWidth);
        EXPECT_EQ(RowTexts(sheet, row, kFirstPairCol, kLastPairCol), c.pairs);
        Texts list(kLastListCol - kFirstListCol + 1);
        for (int col : c.marked)
            list[static_cast<std::size_t>(col - kFirstListCol)] = sheet.Text(0, col);
        EXPECT_EQ(RowTexts(sheet, row, kFirstListCol, kLastListCol), list);
        EXPECT_EQ(ColumnsColoured(sheet, row, colours::kHit), c.marked);
        // Nothing is recommended.
        EXPECT_EQ(RowTexts(sheet, 3, 0, kLastListCol), Texts(20));
    }
}

}  // namespace
}  // namespace numarel
