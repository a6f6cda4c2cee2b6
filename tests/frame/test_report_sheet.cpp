#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

#include "frame/frame_passes.h"
#include "frame/header_columns.h"
#include "frame/number_classes.h"
#include "frame/report_sheet.h"
#include "frame/text_pool.h"
#include "support/case_file.h"

namespace numarel {
namespace {

using testing::Case;
using testing::ReadCases;
using testing::RowTexts;
using testing::Split;
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

TEST(ReportSheet, NumbersAreWrittenAsTextTextIsKeptAsTypedAndReadByItsLeadingNumber) {
    ReportSheet sheet(2, 3);
    sheet.SetNumber(1, 1, 32767);
    sheet.SetNumber(1, 2, -12);
    sheet.SetText(0, 1, "007");
    EXPECT_EQ(RowTexts(sheet, 1, 1, 2), (std::vector<std::string>{"32767", "-12"}));
    EXPECT_TRUE(sheet.TextIs(1, 1, "32767"));
    EXPECT_FALSE(sheet.TextIs(0, 1, "7"));
    // A number and the same text written as text are one text; leading zeros make another.
    sheet.SetText(0, 2, "32767");
    EXPECT_TRUE(sheet.SameText(1, 1, 0, 2));
    EXPECT_FALSE(sheet.SameText(0, 1, 0, 2));
    sheet.SetText(1, 0, "007");
    EXPECT_TRUE(sheet.SameText(1, 0, 0, 1));
    EXPECT_TRUE(sheet.SameText(0, 0, 5, 5));  // empty, and outside the sheet
    sheet.SetBackColor(1, 1, MakeRgb(255, 0, 0));
    EXPECT_EQ(sheet.BackColor(1, 1), 0xFF0000u);
    sheet.SetBackColor(1, 1, kDefaultColour);
    EXPECT_EQ(sheet.BackColor(1, 1), kDefaultColour);
    // Read without a copy, a number reads as its text whatever its size.
    ReportSheet::NumberDigits digits;
    for (long v : {-40000L, -12L, 0L, 7L, 10L, 42L, 99L, 100L, 999L, 1000L, 32767L, 99999L}) {
        sheet.SetNumber(1, 2, v);
        EXPECT_EQ(sheet.TextView(1, 2, digits), std::to_string(v));
    }
    // A label read as a number, then written over: its number is the new text's.
    sheet.SetText(1, 0, " 12:3");
    EXPECT_EQ(sheet.CellNumber(1, 0), 12);
    sheet.SetText(1, 0, " 40");
    EXPECT_EQ(sheet.CellNumber(1, 0), 40);
    // A cell's number follows the leading-number rule.
    for (const Case& c : ReadCases("frame/cases/cell_numbers.txt", 2)) {
        sheet.SetText(0, 0, c[0]);
        EXPECT_EQ(sheet.CellNumber(0, 0), std::stoi(c[1])) << c.where;
    }
}

TEST(NumberClasses, ThreeDigitsSortAscending) {
    for (short a = -1; a <= 10; ++a)
        for (short b = -1; b <= 10; ++b)
            for (short c = -1; c <= 10; ++c) {
                CurrentDigits digits{a, b, c};
                CurrentDigits expected = digits;
                std::sort(expected.begin(), expected.end());
                SortDigits(digits);
                EXPECT_EQ(digits, expected) << a << b << c;
            }
}

TEST(ReportSheet, WritesOutsideTheSheetAreIgnoredAndReadsAreEmpty) {
    ReportSheet sheet(2, 2);
    sheet.SetText(-1, 0, "x");
    sheet.SetText(2, 0, "x");
    sheet.SetNumber(0, 2, 5);
    sheet.SetBackColor(5, 5, 1);
    sheet.SetColWidth(9, 100);
    sheet.SetRowHeight(-3, 100);
    EXPECT_EQ(sheet.Text(2, 0), "");
    EXPECT_EQ(sheet.CellNumber(0, 2), 0);
    EXPECT_EQ(sheet.BackColor(5, 5), kDefaultColour);
    EXPECT_EQ(sheet.ColWidth(9), -1);
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < 2; ++c)
            EXPECT_TRUE(sheet.IsEmpty(r, c));
}

// A text written again is found again without being read anew, but only while it is the same
// text: a buffer reused with other characters, of any length, writes its new text; a text that
// reads as a number is kept as one; a label keeps its own text.
TEST(ReportSheet, TextsWrittenAgainReadAsWritten) {
    ReportSheet sheet(4, 4);
    std::string buffer = "***";
    sheet.SetText(1, 1, buffer);
    buffer[1] = '+';
    sheet.SetText(1, 2, buffer);
    buffer = "a text longer than eight";
    sheet.SetText(1, 3, buffer);
    buffer[0] = 'A';
    sheet.SetText(2, 3, buffer);
    buffer = "12";
    sheet.SetText(2, 1, buffer);
    buffer = "07";
    sheet.SetText(2, 2, buffer);
    sheet.SetText(3, 0, "***");  // a label
    sheet.SetText(3, 1, "***");
    EXPECT_EQ(RowTexts(sheet, 1, 1, 3), (Texts{"***", "*+*", "a text longer than eight"}));
    EXPECT_EQ(RowTexts(sheet, 2, 1, 3), (Texts{"12", "07", "A text longer than eight"}));
    EXPECT_TRUE(sheet.HoldsNumber(2, 1));
    EXPECT_FALSE(sheet.HoldsNumber(2, 2));
    // Digits at both ends, another character between: a text, not the number 103.
    buffer = "1-3";
    sheet.SetText(3, 2, buffer);
    EXPECT_EQ(sheet.Text(3, 2), "1-3");
    EXPECT_TRUE(sheet.SameText(3, 0, 3, 1));
    EXPECT_TRUE(sheet.SameText(1, 1, 3, 1));
    EXPECT_FALSE(sheet.SameText(1, 1, 1, 2));
    // Digits with a leading zero: one text for each spelling, from any buffer.
    sheet.SetText(3, 3, "012");
    buffer = "012";
    sheet.SetText(2, 1, buffer);
    EXPECT_TRUE(sheet.SameText(3, 3, 2, 1));
    EXPECT_FALSE(sheet.SameText(2, 1, 2, 2));
    sheet.SetText(3, 3, "x");
    sheet.SetText(2, 1, "12");
    // Written over again and again, then the texts no cell holds let go: what is written after
    // reads as written.
    for (int i = 0; i < 6000; ++i)
        sheet.SetText(1, 1, std::to_string(i) + "x");
    sheet.DropUnusedTexts();
    sheet.SetText(3, 3, buffer);
    EXPECT_EQ(sheet.Text(3, 3), "012");
    sheet.SetText(2, 2, "07");
    sheet.SetText(1, 2, "*+*");
    EXPECT_EQ(RowTexts(sheet, 1, 1, 3), (Texts{"5999x", "*+*", "a text longer than eight"}));
    EXPECT_EQ(sheet.Text(2, 2), "07");
    // A constant text of the program and the same characters in a buffer are one text, before
    // and after the texts are let go; a constant that is a plain number is a number.
    sheet.SetText(3, 2, "*+*");
    EXPECT_TRUE(sheet.SameText(1, 2, 3, 2));
    sheet.SetText(3, 3, "120");
    EXPECT_TRUE(sheet.HoldsNumber(3, 3));
    buffer = "120";
    sheet.SetText(2, 3, buffer);
    EXPECT_TRUE(sheet.SameText(2, 3, 3, 3));
}

// A pair of digits reads as its two characters, one text with the same characters written as
// text, a label in column 0.
TEST(ReportSheet, DigitPairsReadAsTheirTwoCharacters) {
    ReportSheet sheet(2, 5);
    sheet.SetDigitPair(1, 1, 0, 5);
    sheet.SetDigitPair(1, 2, 5, 7);
    sheet.SetText(1, 3, "05");
    sheet.SetDigitPair(1, 4, 0, 5);
    sheet.SetDigitPair(1, 0, 0, 9);
    EXPECT_EQ(RowTexts(sheet, 1, 0, 4), (Texts{"09", "05", "57", "05", "05"}));
    EXPECT_TRUE(sheet.HoldsNumber(1, 2));
    EXPECT_FALSE(sheet.HoldsNumber(1, 1));
    EXPECT_TRUE(sheet.SameText(1, 1, 1, 3));
    EXPECT_TRUE(sheet.SameText(1, 4, 1, 3));
    EXPECT_THROW(sheet.SetDigitPair(1, 1, 10, 0), std::invalid_argument);
}

// Amount and Max Miss agree with the cell calls on any cell: a marker, a number written as text,
// a text read as its leading number, a number past a counter's range, empty cells, and a label
// that reads as the marker.
TEST(FrameStatistics, TalliesReadCellsAsTheCellCallsDo) {
    const auto rows = ReadCases("frame/cases/tally_cells.txt", 1);
    for (std::string_view marker : {"***", "7", " 1000001:123", "absent"}) {
        ReportSheet sheet(12, 4);
        for (int r = 0; r < 6; ++r)
            for (int c = 0; c < 4; ++c)
                sheet.SetText(r, c, Split(rows.at(r)[0], ',').at(c));
        sheet.SetDrawCount(5);
        AddMissStatistics(sheet, 0, 3, marker);
        for (int c = 1; c < 4; ++c) {  // column 0 below the drawings holds the rows' names
            short amount = 0, maxMiss = 0;
            for (int r = 1; r <= 5; ++r) {
                if (sheet.TextIs(r, c, marker))
                    ++amount;
                else if (r < 5)  // a run still open in the last row is not counted
                    maxMiss = std::max(maxMiss, sheet.CellNumber(r, c));
            }
            EXPECT_EQ(sheet.CellNumber(7, c), amount) << marker << " column " << c;
            EXPECT_EQ(sheet.CellNumber(8, c), maxMiss) << marker << " column " << c;
        }
    }
}

// Miss counters count the drawings since the last hit, this one included; filled a row at a
// time they give what FillMissCounters gives, the Miss numbers in their fore colour and the hits
// as they were.
TEST(FrameMissCounters, CountSinceTheLastHitRowByRowAsTheWholePass) {
    const std::vector<std::string> hits = {"", "", "*", "", "*", "*", "x", ""};
    ReportSheet whole = HitColumn(hits);
    FillMissCounters(whole, 5, 5);
    ReportSheet byRow = HitColumn(hits);
    MissCounters counters(5, 5, 0x123456);
    for (int r = 1; r <= static_cast<int>(hits.size()); ++r)
        counters.FillRow(byRow, r);
    Texts column;
    for (int r = 1; r <= static_cast<int>(hits.size()); ++r) {
        column.push_back(whole.Text(r, 5));
        EXPECT_EQ(byRow.Text(r, 5), whole.Text(r, 5)) << r;
        EXPECT_EQ(byRow.ForeColor(r, 5),
                  hits[static_cast<std::size_t>(r - 1)].empty() ? 0x123456u : kDefaultColour)
            << r;
    }
    EXPECT_EQ(column, (Texts{"1", "2", "*", "1", "*", "*", "x", "1"}));
}

// A forecast cell is coloured when its text is a drawn digit's (columns 1 to 3), whatever it
// holds: a number, a text, nothing against a drawn digit that is empty, or a drawn digit itself.
TEST(FrameForecasts, CellsHoldingADrawnDigitAreColouredAndCounted) {
    constexpr Rgb kMark = 0xFFDF9D;
    struct Walk {
        int row, first, last;
        ColumnRange keys;
        std::string coloured;  // one character per column 0 to 8: 'x' coloured
    };
    // The drawn digits, columns 1 to 3, and fewer keys, or the label among them.
    for (const Walk& walk : {Walk{1, 4, 8, {1, 3}, "....x..xx"}, Walk{1, 2, 6, {1, 3}, "..xxx...."},
                             Walk{2, 4, 8, {1, 3}, "....xxxxx"}, Walk{2, 5, 6, {1, 3}, ".....xx.."},
                             Walk{1, 4, 8, {1, 1}, "........x"}, Walk{1, 4, 8, {1, 2}, "....x...x"},
                             Walk{1, 4, 8, {0, 1}, "......x.x"}}) {
        ReportSheet sheet(3, 9);
        const Texts row1 = {" 1:123", "1", "2", "", "2", " 2", " 1:123", "", "1"};
        for (int c = 0; c < 9; ++c)
            sheet.SetText(1, c, row1[static_cast<std::size_t>(c)]);
        sheet.SetText(2, 1, "5");
        const int found =
            ColourCellsHolding(sheet, walk.row, {walk.first, walk.last}, walk.keys, kMark);
        std::string coloured;
        for (int c = 0; c < 9; ++c)
            coloured += sheet.BackColor(walk.row, c) == kMark ? 'x' : '.';
        const std::string where = "row " + std::to_string(walk.row) + " from " +
                                  std::to_string(walk.first) + ", keys from " +
                                  std::to_string(walk.keys.first);
        EXPECT_EQ(coloured, walk.coloured) << where;
        EXPECT_EQ(found, std::count(coloured.begin(), coloured.end(), 'x')) << where;
    }
}

// A header is found by its exact text, the first of two alike; digit texts of different lengths
// ("5", "05", "005") are different headers.
TEST(HeaderColumns, FindTheFirstColumnWithTheText) {
    const Texts headers = {"05", "5", "005", "57", "012", "120", "1234", "a b", "57", "", "999"};
    ReportSheet sheet(1, 13);
    for (int c = 0; c < 11; ++c)
        sheet.SetText(0, c + 2, headers[static_cast<std::size_t>(c)]);
    const HeaderColumns columns(sheet, 2, 12, /*trim=*/false);
    for (int c = 0; c < 11; ++c) {
        if (c == 8 || c == 9) continue;  // the second "57", and no header
        EXPECT_EQ(columns.Find(headers[static_cast<std::size_t>(c)]), c + 2);
    }
    EXPECT_EQ(columns.Find("57"), 5);  // not column 10
    for (std::string_view absent : {"0", "50", "0005", "012 ", "021", "99", "b"})
        EXPECT_EQ(columns.Find(absent), -1) << absent;
}

TEST(ReportSheet, ResizingKeepsWhatFits) {
    ReportSheet sheet(3, 3);
    sheet.SetText(1, 1, "a");
    sheet.SetText(2, 2, "b");
    sheet.SetColWidth(1, 300);
    sheet.SetRowHeight(1, 2);
    sheet.Resize(2, 5);
    EXPECT_EQ(sheet.Text(1, 1), "a");
    EXPECT_TRUE(sheet.IsEmpty(1, 4));
    EXPECT_EQ(sheet.ColWidth(1), 300);
    EXPECT_EQ(sheet.ColWidth(4), -1);
    sheet.Resize(4, 2);
    EXPECT_EQ(sheet.Text(1, 1), "a");
    EXPECT_TRUE(sheet.IsEmpty(2, 1));  // row 2 was cut away and comes back empty
    EXPECT_EQ((sheet.ExplicitRowHeights()), (std::vector<std::pair<int, int>>{{1, 2}}));
}

// A large sheet may get the cells of one let go before: it still starts empty, rows added later
// included.
TEST(ReportSheet, ASheetOnReusedCellsStartsEmpty) {
    {
        ReportSheet used(600, 400);
        for (int r = 0; r < 600; ++r)
            for (int c = 0; c < 400; ++c)
                used.SetNumber(r, c, 9);
    }
    ReportSheet sheet(350, 400);  // over a megabyte, as the large sheets are
    sheet.Resize(340, 400);
    sheet.Resize(350, 400);
    for (int r = 0; r < 350; ++r)
        for (int c = 0; c < 400; ++c)
            ASSERT_TRUE(sheet.IsEmpty(r, c)) << r << "," << c;
}

TEST(ReportSheet, TheLargestSheetStaysCompact) {
    ReportSheet sheet(32769, 215);
    for (int r = 1; r < sheet.Rows(); ++r) {
        sheet.SetText(r, 0, " " + std::to_string(1000000 + r) + ":123");
        for (int c = 1; c < sheet.Cols(); ++c) {
            if ((r + c) % 7 == 0) {
                sheet.SetText(r, c, "*****");
                sheet.SetBackColor(r, c, MakeRgb(255, 0, 0));
            } else {
                sheet.SetNumber(r, c, r % 500);
            }
        }
    }
    double perCell = static_cast<double>(sheet.MemoryBytes()) / (32769.0 * 215.0);
    EXPECT_LT(perCell, 10.0);
}

// A label written again takes the old one's place, as reports that shorten their labels need;
// other texts that no cell holds any more are let go after the build. Each cell reads as before.
TEST(ReportSheet, TextsNoCellHoldsAreLetGo) {
    ReportSheet sheet(32769, 6);
    for (int r = 1; r < sheet.Rows(); ++r) {
        sheet.SetText(r, 0, " " + std::to_string(1000000 + r) + ":123");
        sheet.SetText(r, 0, " " + std::to_string(1000000 + r));
        sheet.SetNumber(r, 1, r % 10);
        sheet.SetText(r, 2, "pending " + std::to_string(r));
        sheet.SetText(r, 2, "done");
        if (r % 3 == 0) sheet.SetText(r, 4, "***");
    }
    sheet.SetText(0, 5, "3 Way Box");
    sheet.SetText(0, 3, " 1000002");
    const std::size_t before = sheet.MemoryBytes();
    sheet.DropUnusedTexts();
    EXPECT_LT(sheet.MemoryBytes(), before);
    EXPECT_LT(static_cast<double>(sheet.MemoryBytes()) / (32769.0 * 6), 16.0);
    for (int r : {1, 2, 3, 16384, 32768}) {
        EXPECT_EQ(sheet.Text(r, 0), " " + std::to_string(1000000 + r));
        EXPECT_EQ(sheet.CellValue(r, 0), 1000000 + r);
        EXPECT_EQ(sheet.CellNumber(r, 1), r % 10);
        EXPECT_TRUE(sheet.TextIs(r, 2, "done"));
        EXPECT_EQ(sheet.TextIs(r, 4, "***"), r % 3 == 0);
    }
    EXPECT_TRUE(sheet.TextIs(0, 5, "3 Way Box"));
    sheet.SetText(5, 5, "3 Way Box");  // a text kept is found again, not added twice
    EXPECT_TRUE(sheet.SameText(0, 5, 5, 5));
    // A label is the same text as any other cell that reads alike, and no other.
    EXPECT_TRUE(sheet.SameText(2, 0, 0, 3));
    EXPECT_FALSE(sheet.SameText(1, 0, 0, 3));
    sheet.SetText(3, 0, " 1000002");
    EXPECT_TRUE(sheet.SameText(3, 0, 2, 0));
    sheet.SetText(3, 0, "7");  // a label that is a plain number is a number like any other
    EXPECT_TRUE(sheet.HoldsNumber(3, 0));
    EXPECT_EQ(sheet.Text(2, 0), " 1000002");
    sheet.SetText(1, 0, " 1000001:123 and more");  // longer than the text it replaces
    EXPECT_EQ(sheet.Text(1, 0), " 1000001:123 and more");
    EXPECT_EQ(sheet.Text(2, 0), " 1000002");
}

// Each text is kept once under one handle, short ones (looked up apart from the rest) as well as
// long ones, and its view survives the pool growing and moving.
TEST(TextPool, EachTextOnceAndViewsSurviveGrowth) {
    TextPool pool;
    const std::string longText(40000, 'x');
    const std::uint32_t first = pool.Intern(" 2020001:123");
    const std::uint32_t big = pool.Intern(longText);
    std::vector<std::string> texts = {"E", "O", "2E", "E2", "H"};
    for (int i = 0; i < 1000; ++i)
        texts.push_back(std::to_string(1000 + i).substr(1));
    std::vector<std::uint32_t> handles;
    for (const std::string& t : texts)
        handles.push_back(pool.Intern(t));
    for (int i = 0; i < 5000; ++i)
        pool.Intern("label " + std::to_string(i));
    for (std::size_t i = texts.size(); i-- > 0;) {
        EXPECT_EQ(pool.Intern(texts[i]), handles[i]) << texts[i];
        EXPECT_EQ(pool.View(handles[i]), texts[i]);
    }
    EXPECT_EQ(pool.Intern(" 2020001:123"), first);
    EXPECT_EQ(pool.Size(), 2 + texts.size() + 5000);
    EXPECT_EQ(pool.Value(first), 2020001);
    EXPECT_EQ(pool.View(big), longText);
    TextPool moved = std::move(pool);
    EXPECT_EQ(moved.View(first), " 2020001:123");
}

using testing::Drawings;

TEST(FrameLabel, DateByTheNumberRuleThenTheTrimmedDigits) {
    for (const Case& c : ReadCases("frame/cases/labels.txt", 5))
        EXPECT_EQ(DrawingLabel({c[0], c[1], c[2], c[3]}), c[4]) << c.where;
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

// Labels are made in the sheet's own room on a first fill and take the general way over a label
// already there; either way they read as DrawingLabel writes them.
TEST(FrameFill, LabelsReadAsWrittenOnAFirstFillAndAgain) {
    // Dates for each way a plain label's date is copied: 15, 1, 5 and 8 characters.
    const std::vector<DrawRecord> first = {{"123456789012345", "1", "2", "3"},
                                           {"7", "0", "0", "0"},
                                           {"8", "12", "0", "0"},
                                           {"20241", "4", "4", "4"},
                                           {"20240101", "5", "6", "7"}};
    const std::vector<DrawRecord> second = {{"2", "9", "9", "9"}, {"1234567890", "4", "5", "6"}};
    ReportSheet sheet;
    sheet.SetCols(4);
    ResetSheet(sheet, 5, 7);
    FillSheet(sheet, first, {});
    EXPECT_EQ(RowTexts(sheet, 1, 0, 0), (Texts{" 123456789012345:123"}));
    EXPECT_EQ(RowTexts(sheet, 4, 0, 0), (Texts{" 20241:444"}));
    EXPECT_EQ(RowTexts(sheet, 5, 0, 0), (Texts{" 20240101:567"}));
    for (int r = 1; r <= 5; ++r)
        EXPECT_EQ(sheet.Text(r, 0), DrawingLabel(first[static_cast<std::size_t>(r - 1)])) << r;
    FillSheet(sheet, second, {});
    sheet.DropUnusedTexts();
    EXPECT_EQ(RowTexts(sheet, 1, 0, 0), (Texts{" 2:999"}));
    EXPECT_EQ(RowTexts(sheet, 2, 0, 0), (Texts{" 1234567890:456"}));
    EXPECT_EQ(RowTexts(sheet, 3, 0, 0), (Texts{DrawingLabel(first[2])}));
}

TEST(FrameFill, SkippedDigitColumnsAreNotWritten) {
    auto drawings = Drawings({"123"});
    ReportSheet sheet(3, 6);
    ResetSheet(sheet, 1, 3);
    FillSheet(sheet, drawings, {}, {-1, 4, 5});
    EXPECT_EQ(RowTexts(sheet, 1, 1, 5), (Texts{"", "", "", "2", "3"}));
}

TEST(FrameStatistics, AmountMaxMissCurrentMissAndAverage) {
    const auto cases = ReadCases("frame/cases/statistic_rows.txt", 3);
    // The Miss counters and the rows come out the same from the two passes as from the one walk.
    for (const bool oneWalk : {false, true})
        for (const Case& c : cases) {
            const Texts cells = c[0] == "(none)" ? Texts{} : Split(c[0], ',');
            ASSERT_TRUE(c[1] == "DrawCountWhenNoHit" || c[1] == "EmptyWhenNoHit")
                << c.where << ": no rule " << c[1];
            const AverageRule rule = c[1] == "DrawCountWhenNoHit" ? AverageRule::DrawCountWhenNoHit
                                                                  : AverageRule::EmptyWhenNoHit;
            ReportSheet sheet = HitColumn(cells);
            if (oneWalk) {
                FillMissCountersAndStatisticRows(sheet, 5, "***", rule);
            } else {
                FillMissCounters(sheet, 5, 5);
                AddStatisticRows(sheet, 5, "***", rule);
            }
            const int n = static_cast<int>(cells.size());
            ASSERT_EQ(sheet.Rows(), n + 6);
            EXPECT_EQ(sheet.Text(n + 2, 0), "Amount");
            EXPECT_EQ(sheet.Text(n + 5, 0), "Average");
            Texts rows;
            for (int r = n + 2; r <= n + 5; ++r)
                rows.push_back(sheet.Text(r, 5));
            EXPECT_EQ(rows, Split(c[2], ',')) << c.where << ", one walk: " << oneWalk;
            ReportSheet counted = HitColumn(cells);
            FillMissCounters(counted, 5, 5);
            for (int r = 1; r <= n; ++r)
                EXPECT_EQ(sheet.Text(r, 5), counted.Text(r, 5)) << r;
            EXPECT_EQ(sheet.TopRow(), n + 5);
        }
}

}  // namespace
}  // namespace numarel
