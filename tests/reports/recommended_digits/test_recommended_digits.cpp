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
}

constexpr Rgb kTwoDigits = MakeRgb(140, 219, 255);

// Recommend 3 digits-A.
constexpr int kForecastA = 5;  // to 7
constexpr int kNote = 10;
// Recommend 3 digits-BC.
constexpr int kForecastB = 5;  // to 7
constexpr int kMarkerB = 8;
constexpr int kMissChart = 10;  // digit 0; digit 9 in 19
constexpr int kForecastC = 20;  // to 22
constexpr int kMarkerC = 23;

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

// The date forecast (columns 26 and 27) of the next drawing.
TEST(RecommendTwoDigits, DateForecastOfTheNextDrawing) {
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
