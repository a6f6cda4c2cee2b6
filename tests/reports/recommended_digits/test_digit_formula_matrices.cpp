#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

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
        {"frmdanma4", "444", {{"0124", ""}}, "$", 0},
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

}  // namespace
}  // namespace numarel
