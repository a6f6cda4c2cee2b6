#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

// Repeats a text `n` times.
Texts Repeat(int n, const std::string& text) {
    return Texts(static_cast<std::size_t>(n), text);
}
template <typename T>
std::vector<T> Join(std::initializer_list<std::vector<T>> parts) {
    std::vector<T> all;
    for (const auto& p : parts)
        all.insert(all.end(), p.begin(), p.end());
    return all;
}

// Box Number Shape columns.
constexpr int kTypeText = 1, kEvenCount = 16, kBigCount = 25, kPrimeCount = 34;
constexpr Rgb kFirstClass = MakeRgb(42, 219, 167);
constexpr Rgb kSecondClass = MakeRgb(249, 182, 85);
constexpr Rgb kTrace = MakeRgb(127, 176, 206);

TEST(BoxNumberShape, TypesClassesAndTracesOfEachDrawing) {
    ReportSheet s = Build("frmzuxuan012lu", Drawings({"036", "210", "999", "471", "588", "475"}));
    ASSERT_EQ(s.Rows(), 6 + 3);

    // 0 3 6: all 0Type; 0 and 6 Even, 6 Big, 3 Prime.
    EXPECT_EQ(RowTexts(s, 1, 1, 45), Join<std::string>({{"000", "0", "0", "0", "000"},
                                                        Repeat(10, ""),
                                                        {"2", "E", "O", "E", "", "", "2E", "", ""},
                                                        {"1", "S", "S", "B", "", "", "", "1B", ""},
                                                        {"1", "C", "P", "C", "", "", "", "1P", ""},
                                                        {"0", "3", "6"}}));
    EXPECT_EQ(ColumnsColoured(s, 1, kFirstClass), (std::vector<int>{2, 3, 4, 17, 19, 28, 36}));
    EXPECT_EQ(ColumnsColoured(s, 1, kSecondClass), (std::vector<int>{18, 26, 27, 35, 37}));
    EXPECT_EQ(ColumnsColoured(s, 1, kTrace), (std::vector<int>{5, 22, 32, 41}));

    // 2 1 0: the type text keeps the drawn order, the trace sorts it.
    EXPECT_EQ(RowTexts(s, 2, 1, 4), (Texts{"210", "2", "1", "0"}));
    EXPECT_EQ(s.Text(2, 8), "012");

    // The other counts and patterns: the trace columns of each drawing.
    const struct {
        int row;
        const char* typeText;
        Texts counts;  // Even, Big, Prime
        std::vector<int> traces;
    } rows[] = {
        {3, "000", {"0", "3", "0"}, {5, 20, 30, 38}},   // 9 9 9
        {6, "112", {"1", "2", "2"}, {12, 23, 31, 40}},  // 4 7 5
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.row);
        EXPECT_EQ(s.Text(r.row, kTypeText), r.typeText);
        EXPECT_EQ((Texts{s.Text(r.row, kEvenCount), s.Text(r.row, kBigCount),
                         s.Text(r.row, kPrimeCount)}),
                  r.counts);
        EXPECT_EQ(ColumnsColoured(s, r.row, kTrace), r.traces);
        for (int c : r.traces)
            EXPECT_EQ(s.Text(r.row, c), s.Text(0, c));
    }
}

// Box Number-Small/Middle/Large: first trend from column 5, second from 16, third from 27.
TEST(BoxSmallMiddleLarge, SortedDigitsAndTheirTrends) {
    ReportSheet s = Build("frm3dzxxzd", Drawings({"703", "555"}));
    ASSERT_EQ(s.Rows(), 4);
    EXPECT_EQ(RowTexts(s, 1, 0, 3), (Texts{" 2020001:703", "0", "3", "7"}));
    Texts trends = Repeat(33, "");  // columns 4 to 36
    trends[5 - 4] = "0";
    trends[19 - 4] = "3";
    trends[34 - 4] = "7";
    EXPECT_EQ(RowTexts(s, 1, 4, 36), trends);
    EXPECT_EQ(ColumnsColoured(s, 1, MakeRgb(182, 188, 164)), (std::vector<int>{5}));
    EXPECT_EQ(ColumnsColoured(s, 1, MakeRgb(255, 206, 164)), (std::vector<int>{19}));
    EXPECT_EQ(ColumnsColoured(s, 1, MakeRgb(0, 206, 237)), (std::vector<int>{34}));
    // A triple: the same digit in all three trends.
    EXPECT_EQ((Texts{s.Text(2, 10), s.Text(2, 21), s.Text(2, 32)}), (Texts{"5", "5", "5"}));
}

// Four Models: columns 5 to 8; statistics from row DrawCount + 2.
TEST(FourModels, HitsMissesAndStatistics) {
    // 5 6 1: two Big, two Odd. 5 7 9: three Big. 5 6 2: two Big, one Odd. 1 3 6: one Big, two
    // Odd. 2 4 7: one Big, one Odd (4 is Small). 0 2 4: no Big, no Odd. 4 5 0: one Big, one Odd.
    ReportSheet s =
        Build("frmxingtai1", Drawings({"561", "579", "562", "136", "247", "024", "450"}));
    ASSERT_EQ(s.Rows(), 7 + 6);
    const std::string hit = "*************";
    const std::vector<Texts> expected = {
        {hit, "1", "1", "1"}, {"1", "2", "2", "2"}, {"2", hit, "3", "3"}, {"3", "1", hit, "4"},
        {"4", "2", "1", hit}, {"5", "3", "2", "1"}, {"6", "4", "3", hit},
    };
    for (int r = 1; r <= 7; ++r)
        EXPECT_EQ(RowTexts(s, r, 5, 8), expected[r - 1]) << r;
    EXPECT_EQ(RowTexts(s, 9, 0, 8), (Texts{"Amount", "", "", "", "", "1", "1", "1", "2"}));
    EXPECT_EQ(RowTexts(s, 10, 0, 8), (Texts{"Max Miss", "", "", "", "", "5", "3", "3", "4"}));
    EXPECT_EQ(RowTexts(s, 11, 0, 8), (Texts{"Current Miss", "", "", "", "", "6", "4", "3", "0"}));
    EXPECT_EQ(RowTexts(s, 12, 0, 8), (Texts{"Average", "", "", "", "", "7", "7", "7", "3"}));
    EXPECT_EQ(ColumnsColoured(s, 12, colours::kStatisticBack),
              (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

// Addition and Multiplication Box Number: S, W and the two marker columns.
TEST(AdditionMultiplication, EachDrawingInAtMostOneColumn) {
    ReportSheet s = Build("frmjiachengzh", Drawings({"422", "505", "326", "551", "421", "000"}));
    ASSERT_EQ(s.Rows(), 8);
    const std::string mark = "******";
    const std::vector<Texts> expected = {
        {"4", "2", "2", "8", "2", mark, ""},   // 2 + 2 = 4, though 2 x 2 = 4 as well
        {"5", "0", "5", "10", "5", mark, ""},  // 0 + 5 = 5
        {"3", "2", "6", "11", "4", "", mark},  // 2 x 3 = 6
        {"5", "5", "1", "11", "4", "", mark},  // 1 x 5 = 5
        {"4", "2", "1", "7", "3", "", ""},    {"0", "0", "0", "0", "0", mark, ""},
    };
    for (int r = 1; r <= 6; ++r) {
        SCOPED_TRACE(r);
        EXPECT_EQ(RowTexts(s, r, 1, 7), expected[static_cast<std::size_t>(r - 1)]);
        std::vector<int> red;
        if (!expected[static_cast<std::size_t>(r - 1)][5].empty()) red.push_back(6);
        if (!expected[static_cast<std::size_t>(r - 1)][6].empty()) red.push_back(7);
        EXPECT_EQ(ColumnsColoured(s, r, colours::kHit), red);
        EXPECT_EQ(s.BackColor(r, 4), colours::kSumWidth);
    }
}

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
        {"999", {"27", "0", "00"}, 5},  {"321", {"6", "2", "02"}, 9},
        {"589", {"22", "4", "11"}, 6},  {"049", {"13", "9", "10"}, 10},
        {"266", {"14", "4", "21"}, 13},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet s = Build("frmhekualu", Drawings({c.digits}));
        Texts row = Join({c.sumWidthType, Texts(10)});
        row[static_cast<std::size_t>(c.traceCol - 1)] = c.sumWidthType[2];
        EXPECT_EQ(RowTexts(s, 1, 1, 13), row);
        EXPECT_EQ(ColumnsColoured(s, 1, MakeRgb(176, 188, 79)), Cols{c.traceCol});
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
    EXPECT_EQ(RowTexts(s, 8, 0, 0), Texts{"Current Miss"});
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
