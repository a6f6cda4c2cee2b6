#include <gtest/gtest.h>

#include <string>
#include <string_view>
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
using Cols = std::vector<int>;

Texts Join(std::initializer_list<Texts> parts) {
    Texts out;
    for (const Texts& p : parts)
        out.insert(out.end(), p.begin(), p.end());
    return out;
}
TEST(SumLines, EachValueStandsOnItsLineOverTheBandedEnds) {
    const struct {
        std::string_view digits;
        std::string sum, units;
        int sumCol, unitsCol;
    } cases[] = {
        {"000", "0", "0", 6, 37},  // the trace wins over the band
        {"999", "27", "7", 33, 44},
        {"550", "10", "0", 16, 37},  // Sum 10 has Sum Units 0
    };
    const Cols ends = {6, 7, 8, 9, 10, 11, 12, 13, 26, 27, 28, 29, 30, 31, 32, 33};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet s = Build("frmxingtai3dhe", Drawings({c.digits}));
        Texts row(47);  // from column 4 on, nothing but the two values and their traces
        row[4] = row[static_cast<std::size_t>(c.sumCol)] = c.sum;
        row[35] = row[static_cast<std::size_t>(c.unitsCol)] = c.units;
        EXPECT_EQ(RowTexts(s, 1, 4, 46), Texts(row.begin() + 4, row.end()));
        EXPECT_EQ(ColumnsColoured(s, 1, MakeRgb(0, 206, 188)), Cols{c.sumCol});
        EXPECT_EQ(ColumnsColoured(s, 1, MakeRgb(255, 194, 0)), Cols{c.unitsCol});
        Cols band;
        for (int col : ends)
            if (col != c.sumCol) band.push_back(col);
        EXPECT_EQ(ColumnsColoured(s, 1, MakeRgb(255, 212, 255)), band);
    }
}

TEST(SumWidthTypes, SumWidthAndTheirTypeTracedOnce) {
    const struct {
        std::string_view digits;
        Texts sumWidthType;
        int traceCol;
    } cases[] = {
        {"000", {"0", "0", "00"}, 5},   {"999", {"27", "0", "00"}, 5},
        {"321", {"6", "2", "02"}, 9},   {"589", {"22", "4", "11"}, 6},
        {"049", {"13", "9", "10"}, 10}, {"137", {"11", "6", "20"}, 12},
        {"266", {"14", "4", "21"}, 13},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet s = Build("frmhekualu", Drawings({c.digits}));
        Texts row = Join({c.sumWidthType, Texts(10)});
        row[static_cast<std::size_t>(c.traceCol - 1)] = c.sumWidthType[2];
        EXPECT_EQ(RowTexts(s, 1, 1, 13), row);
        EXPECT_EQ(ColumnsColoured(s, 1, MakeRgb(176, 188, 79)), Cols{c.traceCol});
        EXPECT_EQ(RowTexts(s, 3, 0, 13), Texts(14));  // the row after the next drawing's too
    }
}

// "11" is column 7, "12" 8, "24" 14, "41" 19.
TEST(SumWidthRegions, RegionCellsMissNumbersAndThreeStatisticRowsUnderFourColouredOnes) {
    const ReportSheet s = Build("frmhekuazonghe", Drawings({"000", "049", "550", "999"}));
    ASSERT_EQ(s.Rows(), 10);
    EXPECT_EQ(s.TopRow(), 9);
    // Sum 10 takes Sum Units 0 and Width 5 region "3": "13", column 9.
    const Texts sumWidth[] = {{"0", "0"}, {"13", "9"}, {"10", "5"}, {"27", "0"}};
    const int pairCols[] = {7, 14, 9, 19};
    for (int r = 1; r <= 4; ++r) {
        EXPECT_EQ(RowTexts(s, r, 4, 5), sumWidth[r - 1]) << r;
        EXPECT_EQ(ColumnsColoured(s, r, colours::kHit), Cols{pairCols[r - 1]}) << r;
    }
    EXPECT_EQ(ColumnsColoured(s, 1, colours::kSumWidth), Cols{4});
    // Per column: drawings 1 to 4, Amount, Max Miss, Current Miss, and no Average.
    const std::pair<int, Texts> columns[] = {
        {7, {".", "1", "2", "3", "1", "2", "3", ""}},
        {8, {"1", "2", "3", "4", "0", "3", "4", ""}},
        {14, {"1", ".", "1", "2", "1", "1", "2", ""}},
        {19, {"1", "2", "3", ".", "1", "3", "0", ""}},
    };
    for (const auto& [col, texts] : columns) {
        Texts rows;
        for (int r : {1, 2, 3, 4, 6, 7, 8, 9})
            rows.push_back(s.Text(r, col));
        EXPECT_EQ(rows, texts) << col;
    }
    EXPECT_EQ(RowTexts(s, 5, 0, 22), Texts(23));
    EXPECT_EQ(RowTexts(s, 6, 0, 0), Texts{"Amount"});
    EXPECT_EQ(RowTexts(s, 8, 0, 0), Texts{"Current Miss"});
    EXPECT_EQ(RowTexts(s, 9, 0, 22), Texts(23));
    for (int r = 6; r <= 9; ++r) {
        EXPECT_EQ(ColumnsColoured(s, r, colours::kStatisticBack).size(), 22u) << r;
        EXPECT_EQ(s.ForeColor(r, 1), colours::kStatisticFore) << r;
    }
    EXPECT_TRUE(ColumnsColoured(s, 5, colours::kStatisticBack).empty());
}

TEST(RecommendNumberSum, EachListMarksTheDrawingsSum) {
    const struct {
        std::string_view digits;
        std::string sum;
        Cols hitCols;  // first list 5 to 11, second 14 to 17
        Texts flags;   // columns 12 and 18
    } cases[] = {
        {"049", "13", {8, 15}, {"-Y-", "-Y-"}},  // Sum 13 stands in both lists
        {"555", "15", {9, 17}, {"-Y-", "-Y-"}},  // so does 15
        {"008", "8", {5}, {"-Y-", ""}},
        {"345", "12", {14}, {"", "-Y-"}},
        {"423", "9", {}, {"", ""}},  // neither: nothing after the Sum
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet s = Build("frmhezhi4", Drawings({c.digits}));
        Texts row = Join({{c.sum}, Texts(14)});  // columns 4 to 18
        for (int col : c.hitCols)
            row[static_cast<std::size_t>(col - 4)] = c.sum;
        row[8] = c.flags[0];
        row[14] = c.flags[1];
        EXPECT_EQ(RowTexts(s, 1, 4, 18), row);
        EXPECT_EQ(ColumnsColoured(s, 1, colours::kHit), c.hitCols);
        EXPECT_EQ(ColumnsColoured(s, 1, colours::kSumWidth), Cols{4});
    }
}

}  // namespace
}  // namespace numarel
