#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/report_rows.h"
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
constexpr int kBandCol = 6;
constexpr Rgb kRed = MakeRgb(255, 0, 0);

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

// Inherit two digits and + or - of Pairs, worked by hand.
TEST(PairCharts, RowsWorkedByHand) {
    testing::CheckRows("reports/pairs/rows.txt");
}

constexpr const char* kRecommendPairs = "frmrenwenlengTlm";
constexpr int kFirstRankCol = 12;
constexpr int kLastRankCol = 21;
constexpr int kFirstPairCol = 22;
constexpr int kLastPairCol = 33;
constexpr int kHitCol = 40;
constexpr Rgb kMiddleRanks = MakeRgb(249, 212, 194);

// Drawings 4 to 10 rank 4 2 7 1 3 5 6 0 8 9 (see recommended.txt).
const std::vector<DrawRecord> kHistory =
    Drawings({"000", "000", "000", "447", "447", "471", "712", "122", "233", "356", "447"});
// Pairs among 4 2 7 1, then among 6 0 8 9; the ranks 3 and 5 between them are left out.
const Texts kPairsAfterDrawingTen{"24", "47", "14", "27", "12", "17",
                                  "06", "68", "69", "08", "09", "89"};

std::vector<DrawRecord> FirstDrawings(int n) {
    return {kHistory.begin(), kHistory.begin() + n};
}

TEST(RecommendPairs, TheNextRowHasRanksFromSevenDrawingsAndPairsFromTen) {
    for (const testing::Case& c : testing::ReadCases("reports/pairs/recommended.txt")) {
        SCOPED_TRACE(c.where);
        const ReportSheet sheet = Build(kRecommendPairs, FirstDrawings(c.Int(0)));
        const int next = c.Int(0) + 1;
        ASSERT_EQ(sheet.Rows(), next + 2);
        const Texts ranks = RowTexts(sheet, next, kFirstRankCol, kLastRankCol);
        EXPECT_EQ(std::count(ranks.begin(), ranks.end(), ""), c.Text(1) == "ranked" ? 0 : 10);
        if (!c.Words(2).empty()) {
            EXPECT_EQ(ranks, c.Words(2));
        }
        EXPECT_EQ(RowTexts(sheet, next, kFirstPairCol, kLastPairCol),
                  c.Words(3).empty() ? Texts(12) : c.Words(3));
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
    // Drawing 11, 4 4 7: 47 is the second pair (the texts are cases of rows.txt).
    EXPECT_EQ(ColumnsColoured(sheet, 11, kRed, kFirstPairCol), (Columns{23}));
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
