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

constexpr Rgb kHtColour = MakeRgb(255, 212, 164);
constexpr Rgb kHuColour = MakeRgb(182, 219, 170);
constexpr Rgb kTuColour = MakeRgb(231, 194, 182);

struct PairCase {
    const char* object;
    const char* drawing;
    std::string sum;
    // The results of H with T, H with U and T with U.
    int ht;
    int hu;
    int tu;
};

class PairOperationUnits : public ::testing::TestWithParam<PairCase> {};

TEST_P(PairOperationUnits, MarksOneResultPerPairChart) {
    const PairCase& c = GetParam();
    // The drawing of interest follows another, so row 2 must not borrow anything from row 1.
    ReportSheet sheet = Build(c.object, Drawings({"000", c.drawing}));
    ASSERT_EQ(sheet.Rows(), 4);
    EXPECT_EQ(sheet.Text(2, 4), c.sum);
    EXPECT_EQ(sheet.BackColor(2, 4), colours::kSumWidth);

    EXPECT_EQ(ColumnsColoured(sheet, 2, kHtColour), std::vector<int>{5 + c.ht});
    EXPECT_EQ(ColumnsColoured(sheet, 2, kHuColour), std::vector<int>{16 + c.hu});
    EXPECT_EQ(ColumnsColoured(sheet, 2, kTuColour), std::vector<int>{27 + c.tu});
    EXPECT_EQ(sheet.Text(2, 5 + c.ht), std::to_string(c.ht));
    EXPECT_EQ(sheet.Text(2, 16 + c.hu), std::to_string(c.hu));
    EXPECT_EQ(sheet.Text(2, 27 + c.tu), std::to_string(c.tu));
    int written = 0;
    for (int col = 5; col <= 36; ++col)
        written += sheet.IsEmpty(2, col) ? 0 : 1;
    EXPECT_EQ(written, 3);

    // Nothing is recommended.
    for (int col = 0; col < sheet.Cols(); ++col)
        EXPECT_TRUE(sheet.IsEmpty(3, col)) << col;
}

INSTANTIATE_TEST_SUITE_P(Drawings, PairOperationUnits,
                         ::testing::Values(PairCase{"frmweihe", "987", "24", 7, 6, 5},
                                           PairCase{"frmweihe", "505", "10", 5, 0, 5},
                                           PairCase{"frmweicha", "272", "11", 5, 0, 5},
                                           PairCase{"frmweicha", "091", "10", 9, 1, 8},
                                           PairCase{"frmweiji", "059", "14", 0, 0, 5},
                                           PairCase{"frmweiji", "987", "24", 2, 3, 6}));

}  // namespace
}  // namespace numarel
