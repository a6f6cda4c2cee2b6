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

constexpr int kSum = 4;
constexpr int kWidth = 5;
// X1 of the forecasts A to F; X2 stands beside X1, the marker beside X2.
constexpr int kFirstCols[] = {6, 10, 14, 18, 22, 26};
constexpr int kLastCol = 28;

// Per forecast A to F: X1, X2 and the marker as one text, such as "28-Y-".
Texts Forecasts(const ReportSheet& s, int row) {
    Texts out;
    for (int c : kFirstCols)
        out.push_back(s.Text(row, c) + s.Text(row, c + 1) + s.Text(row, c + 2));
    return out;
}

TEST(RecommendTwoDigits, FormulasAndTheirTrackRecord) {
    ReportSheet s = Build("frmtongshahao", Drawings({"307", "289", "199", "000", "105"}));
    ASSERT_EQ(s.Rows(), 7);
    const struct {
        int row;
        Texts sumWidth;
        Texts forecasts;  // A to F
        Cols found;       // forecast cells whose digit was drawn
        Cols both;        // markers of a forecast with both cells found
    } rows[] = {
        // Only F, from the row's own date 2020001, stands on row 1, and it is not judged.
        {1, {"10", "7"}, {"", "", "", "", "", "67"}, {}, {}},
        // From 3 0 7 (S 10, W 7): 307 / 17 = 18.05..., 307 / 32 = 9.59375, 307 x 0.1975 = 60.63.
        {2,
         {"19", "7"},
         {"28-Y-", "18-Y-", "95-Y-", "60", "19-Y-", "90-Y-"},
         {6, 7, 11, 14, 23, 26},
         {8}},
        // From 2 8 9 (S 19, W 7): x = 10 gives A2 9; 289 / 26 = 11.115..., 289 / 32 = 9.03125,
        // 289 x 0.1975 = 57.0775; E around the units 9 is 8 and 0. 9 drawn twice, one cell.
        {3, {"19", "8"}, {"29-Y-", "15-Y-", "90-Y-", "57", "80", "23"}, {7, 10, 14}, {}},
        // From 1 9 9: 199 / 26 = 7.65..., 199 / 32 = 6.21875, 199 x 0.1975 = 39.3025.
        {4, {"0", "0"}, {"19", "76", "62", "39", "80-Y-", "56"}, {23}, {}},
        // From 0 0 0: A1 = A2 = 9 moves A2 to 0; B, C and D read "00", so one drawn 0 finds both.
        {5,
         {"6", "5"},
         {"90-Y-", "00-Y-", "00-Y-", "00-Y-", "19-Y-", "89"},
         {7, 10, 11, 14, 15, 18, 19, 22},
         {12, 16, 20}},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.row);
        EXPECT_EQ(RowTexts(s, r.row, kSum, kWidth), r.sumWidth);
        EXPECT_EQ(ColumnsColoured(s, r.row, colours::kSumWidth), (Cols{kSum, kWidth}));
        EXPECT_EQ(Forecasts(s, r.row), r.forecasts);
        EXPECT_EQ(ColumnsColoured(s, r.row, colours::kFoundDigit), r.found);
        EXPECT_EQ(ColumnsColoured(s, r.row, colours::kHit), r.both);
    }
    // The recommendation from 1 0 5 (S 6, W 5): 105 / 13 = 8.07..., 105 / 32 = 3.28125,
    // 105 x 0.1975 = 20.7375; F from the date 2020005 + 1.
    EXPECT_EQ(RowTexts(s, 6, 0, kWidth), Texts(6));
    EXPECT_EQ(Forecasts(s, 6), (Texts{"43", "80", "32", "20", "57", "12"}));
    EXPECT_TRUE(ColumnsColoured(s, 6, colours::kFoundDigit).empty());
    EXPECT_TRUE(ColumnsColoured(s, 6, colours::kSumWidth).empty());
}

TEST(RecommendTwoDigits, DateForecastOfTheNextDrawing) {
    // An empty file: the next drawing is row 1 and its date digit is 0 + 1.
    ReportSheet empty = Build("frmtongshahao", {});
    EXPECT_EQ(empty.Rows(), 2);
    EXPECT_EQ(Forecasts(empty, 1), (Texts{"", "", "", "", "", "67"}));
    EXPECT_EQ(RowTexts(empty, 1, 0, kLastCol - 3), Texts(26));

    // An eight-digit date: its own row by its last digit 9; the next drawing by the first seven
    // characters plus 1, 2024011, not by the date plus 1.
    auto drawings = Drawings({"123"});
    drawings[0].date = "20240109";
    ReportSheet s = Build("frmtongshahao", drawings);
    EXPECT_EQ(RowTexts(s, 1, 26, 27), (Texts{"0", "1"}));
    EXPECT_EQ(RowTexts(s, 2, 26, 27), (Texts{"6", "7"}));
}

}  // namespace
}  // namespace numarel
