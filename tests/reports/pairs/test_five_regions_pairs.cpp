#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;
using Columns = std::vector<int>;

constexpr const char* kObject = "frmdaimaduizi";
constexpr int kLastCol = 27;
constexpr int kBandCol = 6;
constexpr Rgb kRed = MakeRgb(255, 0, 0);
constexpr Rgb kBlue = MakeRgb(43, 218, 255);  // Width, Sum and the digit chart

// A row's cells from column 1 on, written "a|b|...".
Texts Cells(const std::string& row) {
    Texts out;
    std::istringstream in(row);
    for (std::string cell; std::getline(in, cell, '|');)
        out.push_back(cell);
    out.resize(kLastCol);
    return out;
}

TEST(FiveRegionsPairs, RegionPairsTheirRegionTheChartAndRepeats) {
    const ReportSheet sheet = Build(kObject, Drawings({"055", "501", "105", "444", "138"}));
    ASSERT_EQ(sheet.Rows(), 7);
    const struct {
        const char* drawing;
        // H T U W S, band, the pairs of the sorted digits, "-Y-", regions 05 16 27 38 49, divider,
        // the digits 0 to 9.
        const char* cells;
        Columns red;
        Columns blue;
    } rows[] = {
        // The first pair is five apart (so is the second, which is not looked at).
        {"055", "0|5|5|5|10||05|05|55|-Y-|05||||||0|||||5", {7, 11}, {4, 5, 17, 22}},
        // The same pairs in another order; T is 0 in both, so both T cells are red.
        {"501", "5|0|1|5|6||01|05|15|-Y-|05||||||0|1||||5", {2, 8, 11}, {4, 5, 17, 18, 22}},
        {"105", "1|0|5|5|6||01|05|15|-Y-|05||||||0|1||||5", {2, 8, 11}, {4, 5, 17, 18, 22}},
        // A triple: width 0, no region, one chart cell.
        {"444", "4|4|4|0|12||44|44|44||||||||||||4", {}, {4, 5, 21}},
        // Only the middle and the largest digit are five apart.
        {"138", "1|3|8|7|12||13|18|38|-Y-||||38||||1||3|||||8", {9, 14}, {4, 5, 18, 20, 25}},
    };
    int r = 1;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.drawing);
        EXPECT_EQ(sheet.Text(r, 0), " 202000" + std::to_string(r) + ":" + row.drawing);
        EXPECT_EQ(RowTexts(sheet, r, 1, kLastCol), Cells(row.cells));
        EXPECT_EQ(ColumnsColoured(sheet, r, kRed), row.red);
        EXPECT_EQ(ColumnsColoured(sheet, r, kBlue), row.blue);
        ++r;
    }
    // Nothing is recommended.
    EXPECT_EQ(RowTexts(sheet, 6, 0, kLastCol), Texts(kLastCol + 1));
    EXPECT_TRUE(ColumnsColoured(sheet, 6, kBlue).empty());
}

// Bands of 22 rows on and 22 off from row 39, as far as the next drawing's row.
TEST(FiveRegionsPairs, BandMarksTwentyTwoRowsOnAndOffFromRowThirtyNine) {
    for (int drawings : {38, 83}) {
        SCOPED_TRACE(drawings);
        const ReportSheet sheet =
            Build(kObject, std::vector<DrawRecord>(drawings, Drawings({"123"})[0]));
        Columns marked;
        for (int r = 0; r < sheet.Rows(); ++r)
            if (sheet.TextIs(r, kBandCol, "↓")) marked.push_back(r);
        Columns expected{39};
        if (drawings == 83) {
            for (int r = 40; r <= 60; ++r)
                expected.push_back(r);
            expected.insert(expected.end(), {83, 84});
        }
        EXPECT_EQ(marked, expected);
    }
}

}  // namespace
}  // namespace numarel
