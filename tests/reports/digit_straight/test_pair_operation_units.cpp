#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;

constexpr Rgb kHtColour = MakeRgb(255, 212, 164);
constexpr Rgb kHuColour = MakeRgb(182, 219, 170);
constexpr Rgb kTuColour = MakeRgb(231, 194, 182);

// Each drawing follows another, so its row must not borrow anything from the row before.
TEST(PairOperationUnits, MarksOneResultPerPairChart) {
    const struct {
        const char* object;
        const char* drawing;
        const char* sum;
        int ht;  // the results of H with T, H with U and T with U
        int hu;
        int tu;
    } cases[] = {
        {"frmweihe", "987", "24", 7, 6, 5},  {"frmweihe", "505", "10", 5, 0, 5},
        {"frmweicha", "272", "11", 5, 0, 5}, {"frmweicha", "091", "10", 9, 1, 8},
        {"frmweiji", "059", "14", 0, 0, 5},  {"frmweiji", "987", "24", 2, 3, 6},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.object) + " " + c.drawing);
        ReportSheet sheet = Build(c.object, Drawings({"000", c.drawing}));
        ASSERT_EQ(sheet.Rows(), 4);
        EXPECT_EQ(sheet.Text(2, 4), c.sum);
        EXPECT_EQ(sheet.BackColor(2, 4), colours::kSumWidth);
        // Columns 5 to 36: the three charts of ten, with a divider between them.
        std::vector<std::string> charts(32);
        charts[c.ht] = std::to_string(c.ht);
        charts[11 + c.hu] = std::to_string(c.hu);
        charts[22 + c.tu] = std::to_string(c.tu);
        EXPECT_EQ(RowTexts(sheet, 2, 5, 36), charts);
        EXPECT_EQ(ColumnsColoured(sheet, 2, kHtColour), std::vector<int>{5 + c.ht});
        EXPECT_EQ(ColumnsColoured(sheet, 2, kHuColour), std::vector<int>{16 + c.hu});
        EXPECT_EQ(ColumnsColoured(sheet, 2, kTuColour), std::vector<int>{27 + c.tu});
        // Nothing is recommended.
        EXPECT_EQ(RowTexts(sheet, 3, 0, 36), std::vector<std::string>(37));
    }
}

}  // namespace
}  // namespace numarel
