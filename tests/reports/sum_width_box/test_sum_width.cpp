#include <gtest/gtest.h>

#include <algorithm>
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
using Cols = std::vector<int>;

// `count` columns of the same width.
std::vector<int> Widths(int count, int twips) {
    return std::vector<int>(static_cast<std::size_t>(count), twips);
}

// Joins runs of widths or texts.
template <typename T>
std::vector<T> Join(std::initializer_list<std::vector<T>> parts) {
    std::vector<T> out;
    for (const auto& p : parts)
        out.insert(out.end(), p.begin(), p.end());
    return out;
}

// The numbers `first` to `last` as header texts.
Texts Numbers(int first, int last) {
    Texts out;
    for (int n = first; n <= last; ++n)
        out.push_back(std::to_string(n));
    return out;
}

TEST(SumWidthReports, HeaderWidthsTitleAndRows) {
    const struct {
        std::string_view object;
        std::string title;
        Texts header;
        std::vector<int> widths;
        int rowsForTwoDrawings;
        int fontDecipoints;
        Rgb mark;
    } layouts[] = {
        {"frmxingtai3dhe", "Sum-Sum Units",
         Join<std::string>(
             {{"", "H", "T", "U", "Sum", ""}, Numbers(0, 27), {"", "S U", ""}, Numbers(0, 9)}),
         Join<int>(
             {{1290, 300, 300, 300, 480, 60}, Widths(28, 300), {60, 480, 60}, Widths(10, 300)}),
         4, 75, kDefaultColour},
        {"frmhekualu",
         "Sum 012 Type&Width 012 Type",
         {"", "S", "W", "SW012Type", "", "00", "11", "22", "01", "02", "10", "12", "20", "21", "",
          "", ""},
         Join<int>({{1204, 300, 300, 860, 40}, Widths(9, 300), {2, 2, 2}}),
         5,
         83,
         MakeRgb(43, 145, 255)},
        {"frmhekuazonghe",
         "Sum Units Four Regions&Width Four Regions",
         {"",   "H",  "T",  "U",  "S",  "W",  "",   "11", "12", "13", "14", "21",
          "22", "23", "24", "31", "32", "33", "34", "41", "42", "43", "44"},
         Join<int>({{1290}, Widths(5, 300), {60}, Widths(16, 480)}),
         8,
         75,
         kDefaultColour},
        {"frmhezhi4",
         "Recommend Number Sum-[Following 7 fixed sums]+[Following 4 fixed sums]",
         {"", "H", "T", "U", "S", "8", "10", "11", "13", "15", "16", "18", "Y/N", "", "12", "13",
          "14", "15", "Y/N"},
         Join<int>({{1290}, Widths(11, 300), {688, 688}, Widths(4, 300), {688}}),
         4,
         75,
         kDefaultColour},
    };
    for (const auto& l : layouts) {
        SCOPED_TRACE(std::string(l.object));
        const ReportSheet s = Build(l.object, Drawings({"123", "456"}));
        ASSERT_EQ(s.Cols(), static_cast<int>(l.header.size()));
        EXPECT_EQ(RowTexts(s, 0, 0, s.Cols() - 1), l.header);
        std::vector<int> widths;
        for (int c = 0; c < s.Cols(); ++c)
            widths.push_back(s.ColWidth(c));
        EXPECT_EQ(widths, l.widths);
        EXPECT_EQ(s.Title(), l.title);
        EXPECT_EQ(s.Rows(), l.rowsForTwoDrawings);
        EXPECT_EQ(s.TopRow(), s.Rows() - 1);
        EXPECT_EQ(s.FontDecipoints(), l.fontDecipoints);
        EXPECT_EQ(FindReport(l.object)->markColour, l.mark);
        // Nothing is recommended: the next drawing's row holds nothing at all.
        EXPECT_EQ(RowTexts(s, 3, 0, s.Cols() - 1), Texts(l.header.size()));
        EXPECT_EQ(ColumnsColoured(s, 3, kDefaultColour).size(), l.header.size());
    }
}

// --- Sum-Sum Units -------------------------------------------------------------------------------

constexpr int kSumLineZero = 6;  // the Sum line's column of Sum 0
constexpr int kSumUnitsCol = 35;
constexpr Rgb kSumTrace = MakeRgb(0, 206, 188);
constexpr Rgb kUnitsTrace = MakeRgb(255, 194, 0);
constexpr Rgb kBand = MakeRgb(255, 212, 255);

TEST(SumLines, EachValueStandsOnItsLineOverTheBandedEnds) {
    const struct {
        std::string_view digits;
        std::string sum;
        std::string units;
        int sumCol;
        int unitsCol;
    } cases[] = {
        {"000", "0", "0", 6, 37},                                // the trace wins over the band
        {"999", "27", "7", 33, 44}, {"550", "10", "0", 16, 37},  // Sum 10: Sum Units 0
        {"469", "19", "9", 25, 46}, {"578", "20", "0", 26, 37},
    };
    const Cols ends = {6, 7, 8, 9, 10, 11, 12, 13, 26, 27, 28, 29, 30, 31, 32, 33};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet s = Build("frmxingtai3dhe", Drawings({c.digits}));
        EXPECT_EQ(s.Text(1, 4), c.sum);
        EXPECT_EQ(s.Text(1, kSumUnitsCol), c.units);
        Texts line(41);
        line[static_cast<std::size_t>(c.sumCol - kSumLineZero)] = c.sum;
        line[static_cast<std::size_t>(c.unitsCol - kSumLineZero)] = c.units;
        line[static_cast<std::size_t>(kSumUnitsCol - kSumLineZero)] = c.units;
        EXPECT_EQ(RowTexts(s, 1, kSumLineZero, 46), line);
        EXPECT_EQ(ColumnsColoured(s, 1, kSumTrace), Cols{c.sumCol});
        EXPECT_EQ(ColumnsColoured(s, 1, kUnitsTrace), Cols{c.unitsCol});
        Cols band;
        for (int col : ends)
            if (col != c.sumCol) band.push_back(col);
        EXPECT_EQ(ColumnsColoured(s, 1, kBand), band);
    }
}

// --- Sum 012 Type & Width 012 Type -------------------------------------------------------------

TEST(SumWidthTypes, SumWidthAndTheirTypeTracedOnce) {
    const struct {
        std::string_view digits;
        Texts sumWidthType;
        int traceCol;
    } cases[] = {
        {"000", {"0", "0", "00"}, 5},
        {"999", {"27", "0", "00"}, 5},
        {"123", {"6", "2", "02"}, 9},
        {"321", {"6", "2", "02"}, 9},  // the drawn order is no matter
        {"589", {"22", "4", "11"}, 6},
        {"119", {"11", "8", "22"}, 7},
        {"246", {"12", "4", "01"}, 8},
        {"049", {"13", "9", "10"}, 10},
        {"358", {"16", "5", "12"}, 11},
        {"137", {"11", "6", "20"}, 12},
        {"266", {"14", "4", "21"}, 13},
    };
    constexpr Rgb kTrace = MakeRgb(176, 188, 79);
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet s = Build("frmhekualu", Drawings({c.digits}));
        EXPECT_EQ(RowTexts(s, 1, 1, 3), c.sumWidthType);
        Texts trace(9);
        trace[static_cast<std::size_t>(c.traceCol - 5)] = c.sumWidthType[2];
        EXPECT_EQ(RowTexts(s, 1, 4, 13), Join<std::string>({{""}, trace}));
        EXPECT_EQ(ColumnsColoured(s, 1, kTrace), Cols{c.traceCol});
        EXPECT_EQ(RowTexts(s, 3, 0, 13), Texts(14));  // the row after the next drawing's too
    }
}

// --- Sum Units Four Regions & Width Four Regions -----------------------------------------------

TEST(SumWidthRegions, EachDrawingMarksTheCellOfItsTwoRegions) {
    const struct {
        std::string_view digits;
        Texts sumWidth;
        int pairCol;
    } cases[] = {
        {"000", {"0", "0"}, 7},    // "11"
        {"999", {"27", "0"}, 19},  // Sum Units 7, Width 0: "41"
        {"049", {"13", "9"}, 14},  // "24"
        {"550", {"10", "5"}, 9},   // Sum 10 takes Sum Units 0: "13"
        {"123", {"6", "2"}, 15},   // "31"
        {"437", {"14", "4"}, 12},  // "22"
        {"069", {"15", "9"}, 18},  // "34"
        {"089", {"17", "9"}, 22},  // "44"
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet s = Build("frmhekuazonghe", Drawings({c.digits}));
        EXPECT_EQ(RowTexts(s, 1, 4, 5), c.sumWidth);
        EXPECT_EQ(ColumnsColoured(s, 1, colours::kSumWidth), Cols{4});
        EXPECT_EQ(ColumnsColoured(s, 1, colours::kHit), Cols{c.pairCol});
        EXPECT_EQ(s.Text(1, c.pairCol), ".");
    }
}

TEST(SumWidthRegions, ThreeStatisticRowsUnderFourColouredOnes) {
    // Columns 7 "11", 8 "12", 14 "24", 19 "41".
    const ReportSheet s = Build("frmhekuazonghe", Drawings({"000", "049", "000", "999"}));
    ASSERT_EQ(s.Rows(), 10);
    EXPECT_EQ(s.TopRow(), 9);
    EXPECT_EQ(RowTexts(s, 1, 7, 8), (Texts{".", "1"}));
    EXPECT_EQ(RowTexts(s, 4, 7, 8), (Texts{"1", "4"}));
    const struct {
        int col;
        Texts rows;  // drawings 1 to 4, Amount, Max Miss, Current Miss, the empty fourth row
    } columns[] = {
        {7, {".", "1", ".", "1", "2", "1", "1", ""}},
        {8, {"1", "2", "3", "4", "0", "3", "4", ""}},
        {14, {"1", ".", "1", "2", "1", "1", "2", ""}},
        {19, {"1", "2", "3", ".", "1", "3", "0", ""}},
    };
    for (const auto& c : columns) {
        Texts rows;
        for (int r = 1; r <= 4; ++r)
            rows.push_back(s.Text(r, c.col));
        for (int r = 6; r <= 9; ++r)
            rows.push_back(s.Text(r, c.col));
        EXPECT_EQ(rows, c.rows) << c.col;
    }
    EXPECT_EQ(RowTexts(s, 5, 0, 22), Texts(23));
    EXPECT_EQ(RowTexts(s, 6, 0, 0), Texts{"Amount"});
    EXPECT_EQ(RowTexts(s, 7, 0, 0), Texts{"Max Miss"});
    EXPECT_EQ(RowTexts(s, 8, 0, 0), Texts{"Current Miss"});
    EXPECT_EQ(RowTexts(s, 9, 0, 22), Texts(23));  // no Average
    Cols footer;
    for (int c = 1; c <= 22; ++c)
        footer.push_back(c);
    for (int r = 6; r <= 9; ++r) {
        EXPECT_EQ(ColumnsColoured(s, r, colours::kStatisticBack), footer) << r;
        EXPECT_EQ(s.ForeColor(r, 22), colours::kStatisticFore) << r;
    }
    EXPECT_TRUE(ColumnsColoured(s, 5, colours::kStatisticBack).empty());
}

// --- Recommend Number Sum ----------------------------------------------------------------------

TEST(RecommendNumberSum, EachListMarksTheDrawingsSum) {
    const struct {
        std::string_view digits;
        Cols hitCols;  // first list 5 to 11, second 14 to 17
        Texts flags;   // columns 12 and 18
    } cases[] = {
        {"049", {8, 15}, {"-Y-", "-Y-"}},  // Sum 13 stands in both lists
        {"555", {9, 17}, {"-Y-", "-Y-"}},  // so does 15
        {"008", {5}, {"-Y-", ""}},        {"990", {11}, {"-Y-", ""}}, {"345", {14}, {"", "-Y-"}},
        {"932", {16}, {"", "-Y-"}},       {"423", {}, {"", ""}},  // Sum 9: neither
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.digits));
        const ReportSheet s = Build("frmhezhi4", Drawings({c.digits}));
        EXPECT_EQ((Texts{s.Text(1, 12), s.Text(1, 18)}), c.flags);
        EXPECT_EQ(ColumnsColoured(s, 1, colours::kHit), c.hitCols);
        EXPECT_EQ(ColumnsColoured(s, 1, colours::kSumWidth), Cols{4});
        for (int col = 5; col <= 17; ++col) {
            if (col == 12) continue;
            const bool hit = std::find(c.hitCols.begin(), c.hitCols.end(), col) != c.hitCols.end();
            EXPECT_EQ(s.Text(1, col), hit ? s.Text(0, col) : "") << col;
        }
    }
    const ReportSheet s = Build("frmhezhi4", Drawings({"423"}));
    EXPECT_EQ(RowTexts(s, 1, 0, 18),
              Join<std::string>({{" 2020001:423", "4", "2", "3", "9"}, Texts(14)}));
}

}  // namespace
}  // namespace numarel
