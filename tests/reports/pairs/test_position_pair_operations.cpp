#include <gtest/gtest.h>

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

// + or - of Pairs: a row per pair of positions.
constexpr int kSumCol = 1;
constexpr int kFirstSumChartCol = 2;
constexpr int kDifferenceCol = 22;
constexpr int kFirstDifferenceChartCol = 23;
constexpr int kLastChartCol = 32;
constexpr Rgb kChartColour = MakeRgb(200, 164, 170);

// Units of product of two digits: one row per drawing.
constexpr int kFirstUnitsCol = 5;
constexpr int kLastUnitsCol = 14;
constexpr Rgb kPairColour = MakeRgb(189, 157, 165);

TEST(SumOrDifferenceOfPairs, EachPairOfPositionsHasItsRowSumDifferenceAndChart) {
    const ReportSheet sheet = Build("frmliangmahecha", Drawings({"307", "000", "992"}));
    ASSERT_EQ(sheet.Rows(), 12);
    const struct {
        const char* label;
        int sum;
        int difference;
    } rows[] = {
        {" 2020001:307(H±T)", 3, 3},  {" 2020001:307(H±U)", 10, 4}, {" 2020001:307(T±U)", 7, 7},
        {" 2020002:000(H±T)", 0, 0},  {" 2020002:000(H±U)", 0, 0},  {" 2020002:000(T±U)", 0, 0},
        {" 2020003:992(H±T)", 18, 0}, {" 2020003:992(H±U)", 11, 7}, {" 2020003:992(T±U)", 11, 7},
    };
    int r = 1;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Texts cells(kLastChartCol + 1);  // the chart cells carry no text
        cells[0] = row.label;
        cells[kSumCol] = std::to_string(row.sum);
        cells[kDifferenceCol] = std::to_string(row.difference);
        EXPECT_EQ(RowTexts(sheet, r, 0, kLastChartCol), cells);
        EXPECT_EQ(
            ColumnsColoured(sheet, r, kChartColour),
            (Columns{kFirstSumChartCol + row.sum, kFirstDifferenceChartCol + row.difference}));
        ++r;
    }
    // Two empty rows close the sheet; there is no next drawing's row.
    for (int last : {10, 11}) {
        EXPECT_EQ(RowTexts(sheet, last, 0, kLastChartCol), Texts(kLastChartCol + 1));
        EXPECT_TRUE(ColumnsColoured(sheet, last, kChartColour).empty());
    }
}

TEST(UnitsOfProductOfTwoDigits, PairsStandInTheColumnOfTheirProductsUnitsInDrawnOrder) {
    const ReportSheet sheet = Build("frmliangmajiwei", Drawings({"257", "007", "743", "347"}));
    ASSERT_EQ(sheet.Rows(), 6);
    const struct {
        const char* drawing;
        Texts units;  // columns for the units 0 to 9
    } rows[] = {
        // 2*5 = 10, 2*7 = 14, 5*7 = 35.
        {"257", {"25;", "", "", "", "27;", "57;", "", "", "", ""}},
        // All three products are 0: the pairs follow one another in one cell.
        {"007", {"00;07;07;", "", "", "", "", "", "", "", "", ""}},
        // 7*4 = 28, 7*3 = 21, 4*3 = 12.
        {"743", {"", "73;", "43;", "", "", "", "", "", "74;", ""}},
        // The same digits in another order are other texts: 3*4 = 12, 3*7 = 21, 4*7 = 28.
        {"347", {"", "37;", "34;", "", "", "", "", "", "47;", ""}},
    };
    int r = 1;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.drawing);
        EXPECT_EQ(RowTexts(sheet, r, kFirstUnitsCol, kLastUnitsCol), row.units);
        Columns filled;
        for (int u = 0; u <= 9; ++u)
            if (!row.units[static_cast<std::size_t>(u)].empty())
                filled.push_back(kFirstUnitsCol + u);
        EXPECT_EQ(ColumnsColoured(sheet, r, kPairColour), filled);
        ++r;
    }
    EXPECT_EQ(RowTexts(sheet, 5, 0, kLastUnitsCol), Texts(kLastUnitsCol + 1));
}

}  // namespace
}  // namespace numarel
