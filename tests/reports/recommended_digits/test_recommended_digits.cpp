#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/recommended_digits/formula_digits.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

constexpr int kDistinctCol = 4;
constexpr int kFirstSetCol = 5;

// The column whose header is `set`; -1 when there is none.
int SetColumn(const ReportSheet& s, std::string_view set) {
    for (int c = kFirstSetCol; c < s.Cols(); ++c)
        if (s.TextIs(0, c, set)) return c;
    return -1;
}

int CountInRow(const ReportSheet& s, int row, std::string_view text) {
    int n = 0;
    for (int c = kFirstSetCol; c < s.Cols(); ++c)
        if (s.TextIs(row, c, text)) ++n;
    return n;
}

TEST(DigitFormulaMatrices, FixedSetsMarkOneAndTwoOrMore) {
    // 1 1 2 takes 1 and 2: two digits of 126, one of 158 and 258. 4 4 4 takes one digit of 349
    // and 047 only, so its row has no note.
    ReportSheet z = Build("frmz3b2", Drawings({"112", "444"}));
    EXPECT_EQ(RowTexts(z, 1, 4, 13), (Texts{"12", "$", " *", " *", "", "", "", "", "", "   -Y-"}));
    EXPECT_EQ(RowTexts(z, 2, 4, 13), (Texts{"4", "", "", "", " *", "", "", " *", "", ""}));

    // 0 3 6 has all three digits in 0369, and the runs wrap from 9 to 0.
    ReportSheet serial = Build("frmdanma3", Drawings({"036", "901", "557"}));
    EXPECT_EQ(RowTexts(serial, 1, 5, 18),
              (Texts{" *", " *", " *", " *", " *", " *", " *", "", " *", " *", "", "$", "", ""}));
    EXPECT_EQ(RowTexts(serial, 2, 4, 18),
              (Texts{"019", "$", " *", "", "", "", "", "", " *", "$", "$", "", "$", " *", ""}));
    EXPECT_EQ(RowTexts(serial, 3, 4, 18),
              (Texts{"57", "", "", "", " *", " *", "$", " *", " *", "", "", "", "", " *", " *"}));
    // Nothing is forecast: the next drawing's row stays empty.
    EXPECT_EQ(RowTexts(serial, 4, 0, 18), Texts(19, ""));
}

TEST(DigitFormulaMatrices, EverySetOfASize) {
    const struct {
        const char* object;
        const char* drawing;
        std::vector<std::pair<const char*, const char*>> cells;  // set, marker
        const char* marker;
        int markedSets;  // how many sets show `marker`, counted by hand
    } cases[] = {
        // The second 1 does not count twice: every set with 1 and 2.
        {"frmdanma3c2", "121", {{"012", "$"}, {"129", "$"}, {"134", ""}, {"345", ""}}, "$", 8},
        // A triple takes one digit at most.
        {"frmdanma3c2", "444", {{"345", ""}}, "$", 0},
        // Two or three of 0, 3, 6: 3 x 21 sets with two of them and 7 with all three.
        {"frmdanma4", "630", {{"0369", "$"}, {"0124", ""}, {"0345", "$"}}, "$", 70},
        {"frmdanma30", "444", {{"012", " 0"}, {"345", ""}}, " 0", 84},
        {"frmdanma40", "630", {{"1245", " 0"}, {"0124", ""}}, " 0", 35},
        {"frmdanma212", "211", {{"12", "$"}, {"01", " *"}, {"29", " *"}, {"34", ""}}, " *", 16},
        {"frmdanma212", "211", {}, "$", 1},
        {"frmdanma313", "211", {{"019", "$"}, {"034", ""}, {"123", "$"}}, "$", 64},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.object) + " " + c.drawing);
        ReportSheet s = Build(c.object, Drawings({c.drawing}));
        for (const auto& [set, marker] : c.cells)
            EXPECT_EQ(s.Text(1, SetColumn(s, set)), marker) << set;
        EXPECT_EQ(CountInRow(s, 1, c.marker), c.markedSets);
        EXPECT_EQ(CountInRow(s, 2, c.marker), 0);  // the next drawing's row
    }
}

TEST(DigitFormulaMatrices, DigitsOutsideZeroToNineAreCountedAsCharacters) {
    // U = 12 sorts last and its text joins the others: 0312 holds 0, 1, 2 and 3, so 234 takes
    // two of them.
    auto d = Drawings({"301", "111"});
    d[0].u = "12";
    d[1].u = "11";
    ReportSheet serial = Build("frmdanma3", d);
    EXPECT_EQ(RowTexts(serial, 1, 0, 9),
              (Texts{" 2020001:3012", "3", "0", "12", "0312", "$", "$", "$", " *", ""}));
    EXPECT_EQ(RowTexts(serial, 1, 16, 18), (Texts{"$", " *", " *"}));

    // 1 1 11 leaves the text 111: every 1 of it counts, so each set with a 1 takes three.
    ReportSheet two = Build("frmdanma3c2", d);
    EXPECT_EQ(two.Text(2, kDistinctCol), "111");
    EXPECT_EQ(two.Text(2, SetColumn(two, "019")), "$");
    EXPECT_EQ(CountInRow(two, 2, "$"), 36);
    ReportSheet none = Build("frmdanma30", d);
    EXPECT_EQ(CountInRow(none, 2, " 0"), 84);
}

using testing::ColumnsColoured;
using Cols = std::vector<int>;

constexpr Rgb kSeveralHits = MakeRgb(140, 219, 255);
constexpr int kGroup1 = 5;  // its result in 6
constexpr int kGroup2 = 8;
constexpr int kGroup3 = 11;
constexpr int kLastCol = 12;

TEST(FormulaDigits, DecimalTextAndItsDigits) {
    const struct {
        double value;
        const char* text;
        const char* firstThree;
    } cases[] = {
        {0, "0", "0"},  // "00": one distinct digit
        {0.125, ".125", "012"},
        {307.0 / 17, "18.0588235294118", "180"},  // 15 significant digits
        {1e-5, ".00001", "01"},                   // no exponent
        {9.999999999999998, "10", "10"},          // rounding carries into a new digit
        {123456789012345678.0, "123456789012346000", "123"},
        {-2.5, "-2.5", "0-2"},  // below 1, so the "0" goes in front of the sign
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(DecimalText(c.value), c.text);
        EXPECT_EQ(LeadingDigits(c.value, 3), c.firstThree);
    }
    EXPECT_EQ(LeadingDigits(307.0 / 17, 4), "1805");
    EXPECT_EQ(RemoveAll("aabb", "ab"), "");  // the first removal joins a new "ab"
    EXPECT_EQ(RemoveAll("abc", ""), "abc");
}

TEST(FormulaDigits, GroupsCountDrawnDigits) {
    ReportSheet s = Build("frmdanma2", Drawings({"307", "331", "000"}));
    ASSERT_EQ(s.Rows(), 5);
    EXPECT_EQ(RowTexts(s, 1, kGroup1, kLastCol), Texts(8));
    // From 3 0 7. The drawn 3 3 1: the 1 of 571 and of 189 once, the 3 of 329 twice.
    EXPECT_EQ(RowTexts(s, 2, kGroup1, kLastCol),
              (Texts{"571", "1  ", "", "189", "1  ", "", "329", "2  "}));
    EXPECT_EQ(ColumnsColoured(s, 2, kSeveralHits), Cols{kGroup3 + 1});
    // From 3 3 1: 5.7855..., 204.558, 1058 / 3.141 = 336.835... The drawn 0 0 0 counts three.
    EXPECT_EQ(RowTexts(s, 3, kGroup1, kLastCol),
              (Texts{"578", "  -N-", "", "204", "3  ", "", "368", "  -N-"}));
    EXPECT_EQ(ColumnsColoured(s, 3, kSeveralHits), Cols{kGroup2 + 1});
    // The recommendation from 0 0 0, unjudged.
    EXPECT_EQ(RowTexts(s, 4, 0, kLastCol),
              (Texts{"", "", "", "", "", "0", "", "", "0", "", "", "231", ""}));
}

constexpr int kForecastCol = 5;
constexpr int kJudgementCol = 6;

TEST(RecommendOneDigit, WeightedSumJudgesEveryDrawing) {
    // 3 0 7: 12 + 0 + 63 + 3 = 78, so 8 for 1 8 3; 1 8 3 gives 106, and 6 6 1 holds 6 twice;
    // 6 6 1 gives 90 and 5 5 5 gives 113.
    ReportSheet s = Build("frmzonghe", Drawings({"307", "183", "661", "555"}));
    const Texts expected[] = {{"", "-N-"}, {"8", "-Y-"}, {"6", "-Y-"}, {"0", "-N-"}, {"3", ""}};
    const Cols coloured[] = {{}, {kJudgementCol}, {kJudgementCol}, {}, {}};
    for (int r = 1; r <= 5; ++r) {
        SCOPED_TRACE(r);
        EXPECT_EQ(RowTexts(s, r, kForecastCol, kJudgementCol), expected[r - 1]);
        EXPECT_EQ(ColumnsColoured(s, r, colours::kHit), coloured[r - 1]);
    }
    EXPECT_EQ(RowTexts(s, 5, 0, 3), Texts(4, ""));

    // U = 12: 12 + 108 + 3 = 123. H = 9000 overflows the 16-bit sum, and the forecast of the
    // row before stands.
    auto d = Drawings({"300", "911", "535"});
    d[0].u = "12";
    d[1].h = "9000";
    ReportSheet odd = Build("frmzonghe", d);
    EXPECT_EQ(RowTexts(odd, 2, kForecastCol, kJudgementCol), (Texts{"3", "-N-"}));
    EXPECT_EQ(RowTexts(odd, 3, kForecastCol, kJudgementCol), (Texts{"3", "-Y-"}));
    EXPECT_EQ(odd.Text(4, kForecastCol), "5");
}

TEST(RecommendOneDigit, TableByHundredsMarksOnlyHits) {
    // H 3 -> 4, 2 -> 6, 9 -> 6, 8 -> 4; H = 12 has no line in the table.
    auto d = Drawings({"307", "284", "955", "866", "134"});
    d[4].h = "12";
    ReportSheet s = Build("frmtongsha1ma", d);
    const Texts expected[] = {{"", ""},     {"4", "-Y-"}, {"6", ""},
                              {"6", "-Y-"}, {"4", "-Y-"}, {"", ""}};
    const Cols coloured[] = {{}, {kJudgementCol}, {}, {kJudgementCol}, {kJudgementCol}, {}};
    for (int r = 1; r <= 6; ++r) {
        SCOPED_TRACE(r);
        EXPECT_EQ(RowTexts(s, r, kForecastCol, kJudgementCol), expected[r - 1]);
        EXPECT_EQ(ColumnsColoured(s, r, colours::kHit), coloured[r - 1]);
    }
    EXPECT_EQ(s.Text(5, 0), " 2020005:1234");

    // The whole table: 3 and 5 are never forecast.
    ReportSheet table =
        Build("frmtongsha1ma",
              Drawings({"000", "100", "200", "300", "400", "500", "600", "700", "800", "900"}));
    Texts forecasts;
    for (int r = 2; r <= 11; ++r)
        forecasts.push_back(table.Text(r, kForecastCol));
    EXPECT_EQ(forecasts, (Texts{"0", "8", "6", "4", "7", "9", "1", "2", "4", "6"}));
}

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

TEST(RecommendThreeDigits, UnitsOutsideTheTableAndShortFiles) {
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

constexpr int kSum = 4;
constexpr int kWidth = 5;
// X1 of the forecasts A to F; X2 stands beside X1, the marker beside X2.
constexpr int kFirstCols[] = {6, 10, 14, 18, 22, 26};
constexpr int kLastForecastCol = 28;

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
    EXPECT_EQ(RowTexts(empty, 1, 0, kLastForecastCol - 3), Texts(26));

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
