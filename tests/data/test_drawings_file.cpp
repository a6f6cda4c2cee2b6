#include <gtest/gtest.h>

#include "data/basic_text.h"
#include "data/drawings_file.h"
#include "data/drawings_table.h"
#include "data/lottery_catalog.h"
#include "support/test_support.h"

namespace numarel {
namespace {

// Marker texts such as " *" and "12:34" are pinned by the sheet's CellNumber test.
TEST(BasicText, NumbersReadAndWrittenAsTheProgramDoes) {
    EXPECT_EQ(LeadingValue("1 2 3"), 123);
    EXPECT_EQ(LeadingValue("-7"), -7);
    EXPECT_EQ(LeadingValue("2.5e1"), 25);
    // A whole number is the complete text.
    EXPECT_EQ(WholeNumber(" 20230101 "), 20230101);
    EXPECT_EQ(WholeNumber("0.0"), 0);
    EXPECT_FALSE(WholeNumber("2023-01-01"));
    EXPECT_FALSE(WholeNumber("abc"));
    EXPECT_FALSE(WholeNumber(""));
    // Half to even, and no overflow.
    EXPECT_EQ(ToInt16("7"), 7);
    EXPECT_EQ(ToInt16("2.5"), 2);
    EXPECT_EQ(ToInt16("3.5"), 4);
    EXPECT_FALSE(ToInt16("40000"));
    EXPECT_FALSE(ToInt16("5x"));
    EXPECT_EQ(RoundToInt16(1e9), 32767);
    // A blank before a number that is not negative.
    EXPECT_EQ(NumberToText(2020001), " 2020001");
    EXPECT_EQ(NumberToText(0), " 0");
    EXPECT_EQ(NumberToText(-3), "-3");
    EXPECT_EQ(NumberToText(1.5), " 1.5");
}

using testing::ReadAll;
using testing::TempDir;
namespace fs = std::filesystem;

DrawRecord R(std::string d, std::string h, std::string t, std::string u) {
    return {std::move(d), std::move(h), std::move(t), std::move(u)};
}

TEST(DrawingsReader, FieldsAreReadFourAtATime) {
    struct Case {
        const char* bytes;
        std::vector<DrawRecord> records;
    };
    const std::vector<DrawRecord> two = {R("2020001", "1", "2", "3"), R("2020002", "4", "5", "6")};
    const Case cases[] = {
        {"2020001 1 2 3\r\n2020002 4 5 6\r\n", two},
        {"2020001,1,2,3\r\n2020002,4,5,6", two},
        {"2020001 1\n2,3 2020002\r\n4 , 5   6", two},  // separators in any mix
        {"\"2020 001\",\"1\",2,3\r\n", {R("2020 001", "1", "2", "3")}},
        {"2020001,,2,3", {R("2020001", "", "2", "3")}},
        // A short last record keeps the earlier values of the fields it lacks.
        {"2020001 1 2 3\r\n2020002 7\r\n", {two[0], R("2020002", "7", "2", "3")}},
        // A field too many shifts every later record.
        {"1 1 2 3 9\r\n2 4 5 6\r\n",
         {R("1", "1", "2", "3"), R("9", "2", "4", "5"), R("6", "2", "4", "5")}},
        {"", {}},
        {" \r\n\r\n", {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ParseDrawings(c.bytes), c.records) << c.bytes;
}

TEST(DrawingsReader, EndMarkerComparesNumerically) {
    for (const char* marker : {"0", "00", "0.0"}) {
        auto r = ParseDrawings(std::string("1 1 2 3\r\n") + marker + " 0 0 0\r\n2 4 5 6\r\n");
        EXPECT_EQ(r.size(), 3u) << marker;
        EXPECT_EQ(ReportDrawCount(r), 1u) << marker;
    }
    EXPECT_FALSE(IsEndMarker(R("abc", "1", "2", "3")));
    EXPECT_FALSE(IsEndMarker(R("2020001", "0", "0", "0")));
    // A file of nothing but a marker: the editor shows it, reports see no drawing.
    auto zeros = ParseDrawings("0 0 0 0\r\n");
    EXPECT_EQ(zeros.size(), 1u);
    EXPECT_EQ(ReportDrawCount(zeros), 0u);
}

TEST(DrawingsReader, ReadHistoryReportsMissingFilesAndTheDrawingLimit) {
    TempDir dir;
    std::vector<DrawRecord> drawings;
    Status missing = ReadHistory(dir.path() / "none.txt", drawings);
    EXPECT_EQ(missing.code(), Status::Code::NotFound);

    std::string big;
    for (std::size_t i = 0; i < kMaxDrawings; ++i)
        big += "1 1 2 3\r\n";
    auto exact = dir.Write("exact.txt", big);
    EXPECT_TRUE(ReadHistory(exact, drawings).ok());
    EXPECT_EQ(drawings.size(), kMaxDrawings);

    auto over = dir.Write("over.txt", big + "2 4 5 6\r\n");
    Status s = ReadHistory(over, drawings);
    EXPECT_EQ(s.code(), Status::Code::TooManyDrawings);
    EXPECT_NE(s.message().find("32767"), std::string::npos);
    // What stands after a marker does not count.
    auto hidden = dir.Write("hidden.txt", big + "0 0 0 0\r\n2 4 5 6\r\n");
    EXPECT_TRUE(ReadHistory(hidden, drawings).ok());
}

TEST(DrawingsWriter, SaveChecksDigitsWritesDatesAsTypedAndEveryRowAsOneLine) {
    std::vector<DrawRecord> rows = {R("2020001", "1", "0", "9"),
                                    R("2020002", "12", "-1", "5x"),  // 5x passes as its number 5
                                    R(" ", "", " ", "10"),           // an empty row is a marker
                                    R("x17", "3.5", " 4", "0.5"), R("2020003", "9", "9.5", "1")};
    EXPECT_EQ(FormatDrawingsTable(rows),
              "2020001 1 0 9\r\n"
              "2020002 0 0 5x\r\n"
              "0 0 0 0\r\n"
              "x17 3.5  4 0\r\n"
              "2020003 9 0 1\r\n");
    // A quoted field read from a file can hold line breaks and tabs: written as blanks.
    EXPECT_EQ(FormatDrawingsTable(ParseDrawings("\"20\r\n21\" 1 \"2\t\" 3\r\n")),
              "20  21 1 2  3\r\n");
}

TEST(SelectionFile, RoundTripAndTheLastOfAnyNumberOfStringsWins) {
    TempDir dir;
    auto ini = dir.path() / "Numarel" / "shujuwenjian.ini";
    ASSERT_TRUE(WriteSelection(ini, "My Lottery.txt").ok());
    EXPECT_EQ(ReadAll(ini), "\"My Lottery.txt\"\r\n");
    struct Case {
        const char* bytes;
        const char* name;
    };
    const Case cases[] = {
        {"\"My Lottery.txt\"\r\n", "My Lottery.txt"},
        {"\"a.txt\"\r\n\"b.txt\"\r\n", "b.txt"},
        {"\"a\" \"b\" \"c\" \"d\" \"Other.txt\"", "Other.txt"},  // more than a record's four
        {"\"  Spaced.txt  \"\r\n", "Spaced.txt"},
        {"", ""},
    };
    for (const Case& c : cases) {
        dir.Write("Numarel/shujuwenjian.ini", c.bytes);
        std::string name = "stale";
        ASSERT_TRUE(ReadSelection(ini, name).ok());
        EXPECT_EQ(name, c.name) << c.bytes;
    }
    // A name that is not a lottery's is never written.
    for (const char* bad : {"", "../x.txt", "a\"b.txt"})
        EXPECT_EQ(WriteSelection(ini, bad).code(), Status::Code::InvalidArgument) << bad;
    EXPECT_EQ(ReadAll(ini), "");
}

TEST(SelectionFile, AnUnusableSelectionFallsBackWithoutWritingAndSaysWhy) {
    TempDir dir;
    ProgramFolder folder{dir.path()};
    CurrentLottery none = ResolveCurrentLottery(folder);
    EXPECT_TRUE(none.drawingsPath.empty());
    EXPECT_FALSE(none.fallback);
    EXPECT_NE(none.notice.find("Make one with New Lottery."), std::string::npos) << none.notice;

    dir.Write("data/Other.txt", "");
    CurrentLottery first = ResolveCurrentLottery(folder);
    EXPECT_EQ(first.fileName, "Other.txt");
    dir.Write(std::string("data/") + std::string(kSampleLotteryFile), "1 1 2 3\r\n");
    CurrentLottery sample = ResolveCurrentLottery(folder);
    EXPECT_EQ(sample.fileName, kSampleLotteryFile);  // the sample before any other
    EXPECT_TRUE(sample.fallback);
    EXPECT_EQ(sample.problem, "No lottery was selected yet");
    EXPECT_FALSE(fs::exists(folder.SelectionFile()));  // reading never writes

    WriteSelection(folder.SelectionFile(), "Gone.txt");
    EXPECT_NE(ResolveCurrentLottery(folder).notice.find("\"Gone.txt\""), std::string::npos);
    WriteSelection(folder.SelectionFile(), "Other.txt");
    CurrentLottery other = ResolveCurrentLottery(folder);
    EXPECT_EQ(other.label, "Lottery:Other.");
    EXPECT_TRUE(other.problem.empty() && other.notice.empty() && !other.fallback);
}

std::vector<std::string> Column(const DrawingsTable& table, int col) {
    std::vector<std::string> cells;
    for (int row = 0; row < table.RowCount(); ++row)
        cells.push_back(table.Cell(row, col));
    return cells;
}

TEST(DrawingsTable, SaveWritesTheEmptyLastRowAsAnEndMarker) {
    TempDir dir;
    auto file = dir.Write("d.txt", "2020001 1 2 3\r\n2020002 4 5 6\r\n");
    DrawingsTable table;
    ASSERT_TRUE(table.Load(file).ok());
    ASSERT_TRUE(table.Save(file).ok());
    EXPECT_EQ(ReadAll(file), "2020001 1 2 3\r\n2020002 4 5 6\r\n0 0 0 0\r\n");

    // Reopened: the marker row, then a new empty row; a drawing typed there lands behind it.
    ASSERT_TRUE(table.Load(file).ok());
    ASSERT_EQ(table.RowCount(), 4);
    const char* typed[] = {"2020003", "7", "8", "9"};
    for (int col = 0; col < 4; ++col)
        table.SetCell(3, col, typed[col]);
    ASSERT_TRUE(table.Save(file).ok());
    EXPECT_EQ(ReadAll(file), "2020001 1 2 3\r\n2020002 4 5 6\r\n0 0 0 0\r\n2020003 7 8 9\r\n");
    std::vector<DrawRecord> seen;
    ASSERT_TRUE(ReadHistory(file, seen).ok());
    EXPECT_EQ(seen.size(), 2u);
}

// The row buttons are pinned through the editor; rows it never offers are ignored here.
TEST(DrawingsTable, RowsOutsideTheTableAreIgnored) {
    DrawingsTable table;
    table.SetCell(0, 0, "A");
    table.InsertBefore(99);  // past the end: appended
    EXPECT_FALSE(table.DeleteRow(9));
    EXPECT_EQ(Column(table, 0), (std::vector<std::string>{"A", ""}));
    table.SetCell(5, 0, "x");
    table.SetCell(0, 4, "x");
    EXPECT_EQ(table.Cell(5, 0), "");
    EXPECT_EQ(table.Cell(0, 4), "");
}

TEST(DrawingsTable, ExportOffersTheLotteryNameWithoutItsFullStop) {
    EXPECT_EQ(ExportPresetName("Lottery:Synthetic-Demo."), "Synthetic-Demo");
    EXPECT_EQ(ExportPresetName("Lottery:a.b."), "a.b");
    EXPECT_EQ(ExportPresetName("Lottery:"), "");
}

TEST(DrawingsTable, CopyReplacesTheTargetOnlyWhenTheSourceIsRead) {
    TempDir dir;
    auto from = dir.Write("from.txt", "2020001 1 2 3\r\n");
    auto to = dir.Write("to.txt", "old\r\n");
    EXPECT_FALSE(CopyDrawingsFile(dir.path() / "missing.txt", to).ok());
    EXPECT_EQ(ReadAll(to), "old\r\n");
    ASSERT_TRUE(CopyDrawingsFile(from, to).ok());
    EXPECT_EQ(ReadAll(to), "2020001 1 2 3\r\n");
    ASSERT_TRUE(CopyDrawingsFile(to, to).ok());  // a file copied onto itself stays whole
    EXPECT_EQ(ReadAll(to), "2020001 1 2 3\r\n");
}

}  // namespace
}  // namespace numarel
