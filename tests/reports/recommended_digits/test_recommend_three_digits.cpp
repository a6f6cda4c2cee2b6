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
using Texts = std::vector<std::string>;
using Cols = std::vector<int>;

constexpr Rgb kTwoDigits = MakeRgb(140, 219, 255);

// Recommend 3 digits-A.
constexpr int kForecastA = 5;  // to 7
constexpr int kMarkerA = 8;
constexpr int kNote = 10;
// Recommend 3 digits-BC.
constexpr int kForecastB = 5;  // to 7
constexpr int kMarkerB = 8;
constexpr int kMissChart = 10;  // digit 0; digit 9 in 19
constexpr int kForecastC = 20;  // to 22
constexpr int kMarkerC = 23;

// U = 7 forecasts 7 3 0, U = 0 forecasts 0 3 6, U = 1 forecasts 1 4 7, U = 4 forecasts 4 0 7.
TEST(RecommendThreeDigits, UnitsForecastJudgedOnTheNextRow) {
    ReportSheet s = Build("frmdingdanshh", Drawings({"247", "730", "331", "444", "404"}));
    ASSERT_EQ(s.Rows(), 7);
    const struct {
        int row;
        Texts forecastToNote;  // columns 5 to 10
        Cols found;            // forecast cells whose digit was drawn
        bool justHit;
    } rows[] = {
        // No drawing before row 1: only the store of its distinct digits.
        {1, {"", "", "", "", "247", ""}, {}, false},
        {2, {"7", "3", "0", "-Y-", "037", "Just hit"}, {5, 6, 7}, true},
        // 3 drawn twice marks its one cell; 1 is not forecast.
        {3, {"0", "3", "6", "-Y-", "13", ""}, {6}, false},
        // A triple reaches one distinct digit at most.
        {4, {"1", "4", "7", "-Y-", "4", ""}, {6}, false},
        // Both distinct digits of 4 0 4 forecast.
        {5, {"4", "0", "7", "-Y-", "04", "Just hit"}, {5, 6}, true},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.row);
        EXPECT_EQ(RowTexts(s, r.row, kForecastA, kNote), r.forecastToNote);
        EXPECT_EQ(ColumnsColoured(s, r.row, colours::kFoundDigit), r.found);
        EXPECT_EQ(ColumnsColoured(s, r.row, colours::kHit), r.justHit ? Cols{kNote} : Cols{});
    }
    // The recommendation from U = 4, unjudged, with nothing else on its row.
    EXPECT_EQ(RowTexts(s, 6, 0, 11), (Texts{"", "", "", "", "", "4", "0", "7", "", "", "", ""}));
    EXPECT_TRUE(ColumnsColoured(s, 6, colours::kFoundDigit).empty());
}

TEST(RecommendThreeDigits, UnitsOutsideTheTableShortAndEmptyFiles) {
    auto drawings = Drawings({"331", "730"});
    drawings[0].u = "12";
    ReportSheet s = Build("frmdingdanshh", drawings);
    // U = 12 selects no line: the next row has no forecast and so no marks.
    EXPECT_EQ(RowTexts(s, 2, kForecastA, kNote), (Texts{"", "", "", "", "037", ""}));
    EXPECT_EQ(RowTexts(s, 3, kForecastA, kForecastA + 2), (Texts{"0", "3", "6"}));

    // Sums 16 and 17 share one line; a triple hits one cell and never two.
    ReportSheet bc = Build("frmtongsha3ma", Drawings({"556", "566", "111"}));
    EXPECT_EQ(RowTexts(bc, 2, kForecastC, kMarkerC), (Texts{"1", "3", "4", ""}));
    EXPECT_EQ(RowTexts(bc, 3, kForecastC, kMarkerC), (Texts{"1", "3", "4", "-Y-"}));
    EXPECT_EQ(ColumnsColoured(bc, 3, colours::kHit), Cols{kForecastC});
    // Sum 3 gives 3 6 7 for the next drawing, and no forecast B below ten drawings.
    EXPECT_EQ(RowTexts(bc, 4, kForecastB, kMarkerB), Texts(4));
    EXPECT_EQ(RowTexts(bc, 4, kForecastC, kMarkerC), (Texts{"3", "6", "7", ""}));

    for (const char* object : {"frmdingdanshh", "frmtongsha3ma"}) {
        ReportSheet empty = Build(object, {});
        EXPECT_EQ(empty.Rows(), 2) << object;
        EXPECT_EQ(RowTexts(empty, 1, 0, empty.Cols() - 1), Texts(empty.Cols())) << object;
    }
}

// Forecast B ranks the Misses of row r; forecast C looks up the Sum of row r.
TEST(RecommendThreeDigits, LongestMissesAndSumTable) {
    // 5 and 6 drawn only on row 1, 0 and 9 never, so on row 10 the longest Misses are 6 (9, the
    // larger of the tie with 5), 0 and 9 (10 each, 9 the larger).
    ReportSheet s = Build("frmtongsha3ma", Drawings({"556", "478", "123", "478", "123", "478",
                                                     "123", "478", "123", "478", "609", "125"}));
    ASSERT_EQ(s.Rows(), 14);
    EXPECT_EQ(RowTexts(s, 10, kMissChart, kMissChart + 9),
              (Texts{"10", "1", "1", "1", "*", "9", "9", "*", "*", "10"}));
    EXPECT_EQ(s.ForeColor(10, kMissChart), MakeRgb(188, 194, 182));
    EXPECT_EQ(s.ForeColor(10, kMissChart + 4), kDefaultColour);

    const struct {
        int row;
        Texts b;  // B1 to B3 and its marker
        Texts c;  // C1 to C3 and its marker
        Cols hits;
        Cols twoDigits;
    } rows[] = {
        // Sum 16 of 5 5 6 gives 1 3 4; 4 drawn.
        {2, {"", "", "", ""}, {"1", "3", "4", "-Y-"}, {22}, {}},
        // Sum 19 gives 0 1 2: two digits drawn, but the two-digit mark starts on row 11.
        {3, {"", "", "", ""}, {"0", "1", "2", "-Y-"}, {21, 22}, {}},
        // Sum 6 of 1 2 3 gives 1 3 8.
        {10, {"", "", "", ""}, {"1", "3", "8", "-Y-"}, {22}, {}},
        {11, {"6", "0", "9", "-Y-"}, {"0", "1", "2", "-Y-"}, {5, 6, 7, 20}, {kMarkerB}},
        // B from row 11: 5 (Miss 10), 3 and 2 (Miss 2, the larger two of 1 2 3); Sum 15: 1 2 5.
        {12,
         {"2", "3", "5", "-Y-"},
         {"1", "2", "5", "-Y-"},
         {5, 7, 20, 21, 22},
         {kMarkerB, kMarkerC}},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.row);
        EXPECT_EQ(RowTexts(s, r.row, kForecastB, kMarkerB), r.b);
        EXPECT_EQ(RowTexts(s, r.row, kForecastC, kMarkerC), r.c);
        EXPECT_EQ(ColumnsColoured(s, r.row, colours::kHit), r.hits);
        EXPECT_EQ(ColumnsColoured(s, r.row, kTwoDigits), r.twoDigits);
    }
    // The recommendation from 1 2 5: 7 and 8 (Miss 2, the larger two of 4 7 8), 3 (Miss 3); Sum 8.
    EXPECT_EQ(RowTexts(s, 13, 0, kMarkerB), (Texts{"", "", "", "", "", "7", "8", "3", ""}));
    EXPECT_EQ(RowTexts(s, 13, kForecastC, kMarkerC), (Texts{"2", "6", "8", ""}));
}

}  // namespace
}  // namespace numarel
