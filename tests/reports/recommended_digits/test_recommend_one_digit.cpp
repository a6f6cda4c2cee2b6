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
using Cols = std::vector<int>;

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

TEST(RecommendOneDigit, WeightedSumStopsAtTheEndMarker) {
    testing::TempDir dir;
    auto path = dir.Write("d.txt", "1 3 0 7\r\n2 1 8 3\r\n0 0 0 0\r\n3 5 5 5\r\n");
    ReportSheet s;
    ASSERT_TRUE(RunReport("frmzonghe", path, s).ok());
    EXPECT_EQ(s.Rows(), 4);
    EXPECT_EQ(RowTexts(s, 2, kForecastCol, kJudgementCol), (Texts{"8", "-Y-"}));
    EXPECT_EQ(RowTexts(s, 3, kForecastCol, kJudgementCol), (Texts{"6", ""}));
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

}  // namespace
}  // namespace numarel
