#include <gtest/gtest.h>

#include "frame/frame_passes.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Drawings;
using testing::RowTexts;

using Texts = std::vector<std::string>;

// A sheet with a hit column 5 whose rows 1..n hold `cells` ("" or a marker).
ReportSheet HitColumn(const std::vector<std::string>& cells) {
    ReportSheet sheet;
    int n = static_cast<int>(cells.size());
    ResetSheet(sheet, n, n + 2);
    sheet.SetCols(6);
    for (int r = 1; r <= n; ++r)
        sheet.SetText(r, 5, cells[static_cast<std::size_t>(r - 1)]);
    return sheet;
}

TEST(FrameLabel, DateByTheNumberRuleThenTheTrimmedDigits) {
    EXPECT_EQ(DrawingLabel({"2020001", "1", "2", "3"}), " 2020001:123");
    EXPECT_EQ(DrawingLabel({"0020001", " 1", "2 ", "3"}), " 20001:123");
    EXPECT_EQ(DrawingLabel({"-5", "1", "2", "3"}), "-5:123");
    EXPECT_EQ(DrawingLabel({"2020-01-01", "1", "2", "3"}), "");
}

TEST(FrameFill, WritesLabelsDigitsAndKeepsDigitsThatCannotBeConverted) {
    std::vector<DrawRecord> drawings = {{"1", "1", "2", "3"}, {"x", "4", "?", "6"}};
    ReportSheet sheet;
    sheet.SetCols(4);
    ResetSheet(sheet, CountDrawings(drawings), 4);
    std::vector<CurrentDigits> seen;
    FillSheet(sheet, drawings, [&](int, CurrentDigits& d) { seen.push_back(d); });
    EXPECT_EQ(RowTexts(sheet, 1, 0, 3), (Texts{" 1:123", "1", "2", "3"}));
    // The date is no number: no label, but the row is a drawing; "?" keeps the earlier 2.
    EXPECT_EQ(RowTexts(sheet, 2, 0, 3), (Texts{"", "4", "2", "6"}));
    EXPECT_EQ(seen.size(), 2u);
    EXPECT_EQ(sheet.DrawCount(), 2);
}

TEST(FrameFill, SkippedDigitColumnsAreNotWritten) {
    auto drawings = Drawings({"123"});
    ReportSheet sheet(3, 6);
    ResetSheet(sheet, 1, 3);
    FillSheet(sheet, drawings, {}, {-1, 4, 5});
    EXPECT_EQ(RowTexts(sheet, 1, 1, 5), (Texts{"", "", "", "2", "3"}));
}

TEST(FrameMissCounters, CountSinceTheLastHitIncludingThisDrawing) {
    ReportSheet sheet = HitColumn({"", "", "*", "", "*", "*", ""});
    FillMissCounters(sheet, 5, 5);
    std::vector<std::string> column;
    for (int r = 1; r <= 7; ++r)
        column.push_back(sheet.Text(r, 5));
    EXPECT_EQ(column, (Texts{"1", "2", "*", "1", "*", "*", "1"}));
}

TEST(FrameStatistics, AmountMaxMissCurrentMissAndAverage) {
    struct Case {
        std::vector<std::string> cells;
        AverageRule rule;
        Texts rows;  // Amount, Max Miss, Current Miss, Average
    };
    const Texts none = {"", "", "", ""};
    const Case cases[] = {
        // The run 1 2 3 between the two hits is the largest.
        {{"", "", "***", "", "", "", "***", ""}, AverageRule::EmptyWhenNoHit, {"2", "3", "1", "4"}},
        // The open run at the end counts only up to the row before it.
        {{"", "", "", "", "***"}, AverageRule::EmptyWhenNoHit, {"1", "4", "0", "5"}},
        // Without a hit the average is a division by 0 and stays empty, unless the rule says.
        {none, AverageRule::EmptyWhenNoHit, {"0", "3", "4", ""}},
        {none, AverageRule::DrawCountWhenNoHit, {"0", "3", "4", "4"}},
        {{"***"}, AverageRule::EmptyWhenNoHit, {"1", "0", "0", "1"}},
        {{}, AverageRule::EmptyWhenNoHit, {"0", "0", "", ""}},
    };
    for (const Case& c : cases) {
        ReportSheet sheet = HitColumn(c.cells);
        FillMissCounters(sheet, 5, 5);
        AddStatisticRows(sheet, 5, "***", c.rule);
        const int n = static_cast<int>(c.cells.size());
        ASSERT_EQ(sheet.Rows(), n + 6);
        EXPECT_EQ(sheet.Text(n + 2, 0), "Amount");
        EXPECT_EQ(sheet.Text(n + 5, 0), "Average");
        Texts rows;
        for (int r = n + 2; r <= n + 5; ++r)
            rows.push_back(sheet.Text(r, 5));
        EXPECT_EQ(rows, c.rows) << n << " drawings";
        EXPECT_EQ(sheet.TopRow(), n + 5);
    }
}

TEST(FrameMarks, SecondClickRestoresTheDefaultNotTheReportColour) {
    ReportSheet sheet(2, 2);
    const Rgb mark = MakeRgb(43, 145, 255);
    sheet.SetBackColor(1, 1, colours::kHit);
    ToggleCellMark(sheet, 1, 1, mark);
    EXPECT_EQ(sheet.BackColor(1, 1), mark);
    ToggleCellMark(sheet, 1, 1, mark);
    EXPECT_EQ(sheet.BackColor(1, 1), kDefaultColour);
}

}  // namespace
}  // namespace numarel
