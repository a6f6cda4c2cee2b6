#include <gtest/gtest.h>

#include <string>
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

    // 2 1 0: the type text keeps the drawn order, the trace sorts it; type 2 has no colour.
    EXPECT_EQ(RowTexts(s, 2, 1, 4), (Texts{"210", "2", "1", "0"}));
    EXPECT_EQ(RowTexts(s, 2, 5, 14), Join<std::string>({Repeat(3, ""), {"012"}, Repeat(6, "")}));
    EXPECT_EQ(ColumnsColoured(s, 2, kFirstClass), (std::vector<int>{4, 17, 19, 35, 36}));
    EXPECT_EQ(ColumnsColoured(s, 2, kSecondClass), (std::vector<int>{3, 18, 26, 27, 28, 37}));
    EXPECT_EQ(ColumnsColoured(s, 2, kTrace), (std::vector<int>{8, 22, 29, 40}));

    // The other counts and patterns: the trace columns of each drawing.
    const struct {
        int row;
        const char* typeText;
        Texts counts;  // Even, Big, Prime
        std::vector<int> traces;
    } rows[] = {
        {3, "000", {"0", "3", "0"}, {5, 20, 30, 38}},   // 9 9 9
        {4, "111", {"1", "1", "2"}, {6, 23, 32, 40}},   // 4 7 1
        {5, "222", {"2", "3", "1"}, {7, 22, 30, 41}},   // 5 8 8
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
    for (int r = 7; r <= 8; ++r)
        EXPECT_EQ(RowTexts(s, r, 0, 45), Repeat(46, ""));
    EXPECT_EQ(s.Text(1, 0), " 2020001:036");
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
    EXPECT_EQ(RowTexts(s, 3, 0, 37), Repeat(38, ""));
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
    EXPECT_EQ(RowTexts(s, 8, 0, 8), Repeat(9, ""));
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
    EXPECT_EQ(RowTexts(s, 7, 0, 7), Repeat(8, ""));
}

}  // namespace
}  // namespace numarel
