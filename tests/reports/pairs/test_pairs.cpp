#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
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

using Cols = std::vector<int>;

// Pairs: the pair texts stand under H, T and U, and each different pair is marked once in its
// column, over bands of nine columns counted from column 6.
TEST(PairCharts, PairsMarksEachDifferentPairOnce) {
    constexpr Rgb kBand = MakeRgb(255, 212, 255), kMark = MakeRgb(0, 206, 188);
    // Columns of the pairs: 01-09 are 6-14, 12-19 are 15-22, 23-29 are 23-29, ..., 57 is 42.
    const struct {
        const char* drawing;
        Texts pairs;
        Cols marked;
    } cases[] = {
        {"725", {"25", "27", "57"}, {25, 27, 42}}, {"257", {"25", "27", "57"}, {25, 27, 42}},
        {"112", {"11", "12", "12"}, {15}},         {"555", {"55", "55", "55"}, {}},
        {"900", {"00", "09", "09"}, {14}},         {"981", {"18", "19", "89"}, {21, 22, 50}},
    };
    ReportSheet sheet = Build("frm3dliangma", Drawings({"725", "257", "112", "555", "900", "981"}));
    ASSERT_EQ(sheet.Rows(), 8);
    for (int r = 1; r <= 6; ++r) {
        const auto& c = cases[r - 1];
        SCOPED_TRACE(c.drawing);
        EXPECT_EQ(RowTexts(sheet, r, 1, 3), c.pairs);
        Texts chart(51);
        for (int col : c.marked)
            chart[static_cast<std::size_t>(col)] = sheet.Text(0, col);
        EXPECT_EQ(RowTexts(sheet, r, 4, 50), Texts(chart.begin() + 4, chart.end()));
        EXPECT_EQ(ColumnsColoured(sheet, r, kMark), c.marked);
        Cols band;
        for (int col = 6; col <= 50; ++col)
            if ((col - 6) % 18 < 9) band.push_back(col);
        std::erase_if(band, [&](int col) { return std::ranges::count(c.marked, col) > 0; });
        EXPECT_EQ(ColumnsColoured(sheet, r, kBand), band);
    }
}

// The Box Number charts take two of the sorted digits and chart their difference (column 6 + d)
// and sum (column 17 + s), over bands on the differences 3 to 6 and the sums 5 to 13.
TEST(PairCharts, BoxNumberChartsMarkDifferenceAndSum) {
    constexpr Rgb kDifferenceBand = MakeRgb(255, 231, 255), kSumBand = MakeRgb(194, 225, 219);
    constexpr Rgb kDifference = MakeRgb(0, 206, 188), kSum = MakeRgb(255, 194, 0);
    const struct {
        const char* object;
        const char* drawing;
        int difference, sum;
    } cases[] = {
        {"frm3dshouwei", "295", 7, 11},  {"frm3ddazhong", "295", 4, 14},
        {"frm3dzhongxiao", "295", 3, 7}, {"frm3ddazhong", "121", 1, 3},
        {"frm3dshouwei", "999", 0, 18},  {"frm3dzhongxiao", "090", 0, 0},  // on column 17 itself
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.object) + " " + c.drawing);
        ReportSheet sheet = Build(c.object, Drawings({"738", c.drawing}));
        ASSERT_EQ(sheet.Rows(), 4);
        const int d = 6 + c.difference, s = 17 + c.sum;
        const std::string difference = std::to_string(c.difference), sum = std::to_string(c.sum);
        EXPECT_EQ(RowTexts(sheet, 2, 5, 5), Texts{difference});
        EXPECT_EQ(RowTexts(sheet, 2, d, d), Texts{difference});
        EXPECT_EQ(RowTexts(sheet, 2, 17, 17), Texts{sum});
        EXPECT_EQ(RowTexts(sheet, 2, s, s), Texts{sum});
        EXPECT_EQ(ColumnsColoured(sheet, 2, kDifference), Cols{d});
        EXPECT_EQ(ColumnsColoured(sheet, 2, kSum), Cols{s});
        Cols differenceBand = {9, 10, 11, 12}, sumBand = {22, 23, 24, 25, 26, 27, 28, 29, 30};
        std::erase(differenceBand, d);
        std::erase(sumBand, s);
        EXPECT_EQ(ColumnsColoured(sheet, 2, kDifferenceBand), differenceBand);
        EXPECT_EQ(ColumnsColoured(sheet, 2, kSumBand), sumBand);
    }
}

// The fixed lists mark each listed pair a drawing holds, doubles included, once.
TEST(PairCharts, FixedListsMarkTheListedPairs) {
    const struct {
        const char* object;
        const char* drawing;
        Texts sumWidthPairs;  // columns 4 to 8
        Cols marked;          // among columns 10 to 19
    } cases[] = {
        {"frm0luliangma", "333", {"9", "0", "33", "33", "33"}, {11}},
        {"frm0luliangma", "903", {"12", "9", "03", "09", "39"}, {14, 16, 18}},
        {"frm0luliangma", "600", {"6", "6", "00", "06", "06"}, {10, 15}},
        {"frmshunziliangma", "950", {"14", "9", "05", "09", "59"}, {19}},
        {"frmshunziliangma", "345", {"12", "2", "34", "35", "45"}, {13, 14}},
        {"frmshunziliangma", "101", {"2", "1", "01", "01", "11"}, {10}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.object) + " " + c.drawing);
        ReportSheet sheet = Build(c.object, Drawings({"456", c.drawing}));
        ASSERT_EQ(sheet.Rows(), 4);
        EXPECT_EQ(RowTexts(sheet, 2, 4, 8), c.sumWidthPairs);
        EXPECT_EQ(sheet.BackColor(2, 4), colours::kSumWidth);
        Texts list(20);
        for (int col : c.marked)
            list[static_cast<std::size_t>(col)] = sheet.Text(0, col);
        EXPECT_EQ(RowTexts(sheet, 2, 9, 19), Texts(list.begin() + 9, list.end()));
        EXPECT_EQ(ColumnsColoured(sheet, 2, colours::kHit), c.marked);
    }
}

// A drawing is marked when it shares exactly two different digits with the one before, in any
// position; repeated digits count once and the first drawing is never marked.
TEST(PairCharts, InheritTwoDigitsMarksExactlyTwoSharedDigits) {
    ReportSheet sheet = Build(
        "frmchong2ge", Drawings({"123", "234", "432", "112", "219", "555", "550", "505", "000"}));
    ASSERT_EQ(sheet.Rows(), 11);
    Texts marks;
    for (int r = 1; r <= 10; ++r)
        marks.push_back(sheet.Text(r, 5));
    EXPECT_EQ(marks, (Texts{"", "YES", "", "", "YES", "", "", "YES", "", ""}));
}

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
    const ReportSheet sheet = Build("frmliangmahecha", Drawings({"307", "992"}));
    ASSERT_EQ(sheet.Rows(), 9);
    const struct {
        const char* label;
        int sum;
        int difference;
    } rows[] = {
        {" 2020001:307(H±T)", 3, 3},  {" 2020001:307(H±U)", 10, 4}, {" 2020001:307(T±U)", 7, 7},
        {" 2020002:992(H±T)", 18, 0}, {" 2020002:992(H±U)", 11, 7}, {" 2020002:992(T±U)", 11, 7},
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
}

// A date that is not a number has no label, and the pair's mark goes with it: the three rows
// keep column 0 empty, and their sums, differences and charts are there as for any drawing.
TEST(SumOrDifferenceOfPairs, ADrawingWithoutALabelLeavesColumnZeroEmptyOnAllItsRows) {
    std::vector<DrawRecord> drawings = Drawings({"307", "992"});
    drawings[0].date = "x2020";
    const ReportSheet sheet = Build("frmliangmahecha", drawings);
    ASSERT_EQ(sheet.Rows(), 9);
    for (int r = 1; r <= 3; ++r) {
        EXPECT_EQ(sheet.Text(r, 0), "") << r;
        EXPECT_FALSE(sheet.Text(r, kSumCol).empty()) << r;
    }
    EXPECT_EQ(sheet.Text(1, kSumCol), "3");
    EXPECT_EQ(ColumnsColoured(sheet, 3, kChartColour),
              (Columns{kFirstSumChartCol + 7, kFirstDifferenceChartCol + 7}));
    EXPECT_EQ(sheet.Text(4, 0), " 2020002:992(H±T)");
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
}

constexpr const char* kRecommendPairs = "frmrenwenlengTlm";
constexpr int kFirstRankCol = 12;
constexpr int kLastRankCol = 21;
constexpr int kFirstPairCol = 22;
constexpr int kLastPairCol = 33;
constexpr int kHitCol = 40;
constexpr Rgb kHitMarkerColour = MakeRgb(43, 145, 255);
constexpr Rgb kMiddleRanks = MakeRgb(249, 212, 194);

// Drawings 4 to 10 count 4 five times, 2 and 7 four times, 1 and 3 three times, 5 and 6 once:
// ranked 4 2 7 1 3 5 6 0 8 9, ties by the smaller digit.
const std::vector<DrawRecord> kHistory =
    Drawings({"000", "000", "000", "447", "447", "471", "712", "122", "233", "356", "447"});
// Pairs among 4 2 7 1, then among 6 0 8 9; the ranks 3 and 5 between them are left out.
const Texts kPairsAfterDrawingTen{"24", "47", "14", "27", "12", "17",
                                  "06", "68", "69", "08", "09", "89"};

std::vector<DrawRecord> FirstDrawings(std::size_t n) {
    return {kHistory.begin(), kHistory.begin() + static_cast<std::ptrdiff_t>(n)};
}

TEST(RecommendPairs, TheNextRowHasRanksFromSevenDrawingsAndPairsFromTen) {
    const struct {
        std::size_t drawings;
        bool ranked;
        Texts nextRanks;  // where worked out
        Texts nextPairs;  // empty: no pairs
    } cases[] = {
        {0, false, {}, {}},
        {6, false, {}, {}},
        // Drawings 1 to 7: 0 nine times, 4 five, 7 four, 1 twice, 2 once.
        {7, true, {"0", "4", "7", "1", "2", "3", "5", "6", "8", "9"}, {}},
        {9, true, {}, {}},
        {10, true, {"4", "2", "7", "1", "3", "5", "6", "0", "8", "9"}, kPairsAfterDrawingTen},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.drawings);
        const ReportSheet sheet = Build(kRecommendPairs, FirstDrawings(c.drawings));
        const int next = static_cast<int>(c.drawings) + 1;
        ASSERT_EQ(sheet.Rows(), next + 2);
        const Texts ranks = RowTexts(sheet, next, kFirstRankCol, kLastRankCol);
        EXPECT_EQ(std::count(ranks.begin(), ranks.end(), ""), c.ranked ? 0 : 10);
        if (!c.nextRanks.empty()) {
            EXPECT_EQ(ranks, c.nextRanks);
        }
        EXPECT_EQ(RowTexts(sheet, next, kFirstPairCol, kLastPairCol),
                  c.nextPairs.empty() ? Texts(12) : c.nextPairs);
        // Nothing is judged before row 11, and the next drawing's row never is.
        for (int r = 1; r < sheet.Rows(); ++r) {
            EXPECT_TRUE(sheet.IsEmpty(r, kHitCol)) << r;
            EXPECT_TRUE(ColumnsColoured(sheet, r, kRed, kFirstPairCol).empty()) << r;
        }
    }
}

TEST(RecommendPairs, ADrawingHoldingARecommendedPairIsMarkedOnce) {
    const ReportSheet sheet = Build(kRecommendPairs, kHistory);
    ASSERT_EQ(sheet.Rows(), 14);
    // Drawing 11, 4 4 7, has the pairs 44, 47 and 47: 47 is the second pair; 44 is none.
    EXPECT_EQ(RowTexts(sheet, 11, kFirstPairCol, kLastPairCol), kPairsAfterDrawingTen);
    EXPECT_EQ(ColumnsColoured(sheet, 11, kRed, kFirstPairCol), (Columns{23}));
    EXPECT_EQ(sheet.Text(11, kHitCol), "-Y-");
    EXPECT_EQ(ColumnsColoured(sheet, 11, kHitMarkerColour), (Columns{kHitCol}));
    // Drawings 5 to 11 count as 4 to 10 did: the same pairs for the next drawing, not judged.
    EXPECT_EQ(RowTexts(sheet, 12, kFirstPairCol, kLastPairCol), kPairsAfterDrawingTen);
    EXPECT_TRUE(sheet.IsEmpty(12, kHitCol));
    // Rows 8 to 10 are ranked but have no pairs.
    for (int r = 8; r <= 10; ++r)
        EXPECT_EQ(RowTexts(sheet, r, kFirstPairCol, kLastPairCol), Texts(12)) << r;
    // The four middle ranks are banded on every row under the header; the first 24 rows are
    // collapsed as far as the sheet has them.
    for (int r = 1; r < sheet.Rows(); ++r) {
        EXPECT_EQ(ColumnsColoured(sheet, r, kMiddleRanks), (Columns{15, 16, 17, 18})) << r;
        EXPECT_EQ(sheet.RowHeight(r), 2) << r;
    }
}

TEST(RecommendPairs, EveryPairOfADrawingCanHitAndOnlyOnce) {
    auto drawings = FirstDrawings(10);
    drawings.push_back(Drawings({"742"})[0]);  // 24, 27 and 47: three pair columns
    const ReportSheet sheet = Build(kRecommendPairs, drawings);
    EXPECT_EQ(ColumnsColoured(sheet, 11, kRed, kFirstPairCol), (Columns{22, 23, 25}));
    EXPECT_EQ(sheet.Text(11, kHitCol), "-Y-");
}

}  // namespace
}  // namespace numarel
