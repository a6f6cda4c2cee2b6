#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

#include "data/basic_text.h"
#include "data/drawings_file.h"
#include "data/drawings_table.h"
#include "data/lottery_catalog.h"
#include "support/case_file.h"

namespace numarel {
namespace {

// A number as the cases write it: "none" for no number.
std::string Shown(const double* value) {
    std::ostringstream os;
    os << std::setprecision(17) << (value ? *value : 0);
    return value ? os.str() : "none";
}

TEST(BasicText, NumbersReadAndWrittenAsTheProgramDoes) {
    for (const testing::Case& c : testing::ReadCases("data/cases/numbers.txt", 3)) {
        ASSERT_TRUE(c[0] == "LeadingValue" || c[0] == "WholeNumber" || c[0] == "ToInt16")
            << c.where << ": no reading " << c[0];
        const std::optional<double> value =
            c[0] == "LeadingValue" ? LeadingValue(c[1])
            : c[0] == "WholeNumber"
                ? WholeNumber(c[1])
                : (ToInt16(c[1]) ? std::optional<double>(*ToInt16(c[1])) : std::nullopt);
        EXPECT_EQ(Shown(value ? &*value : nullptr), c[2]) << c.where;
    }
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

TEST(DrawingsReader, FieldsAreReadFourAtATimeUpToTheEndMarker) {
    for (const testing::Case& c : testing::ReadCases("data/cases/drawings_read.txt", 3)) {
        const std::vector<DrawRecord> read = ParseDrawings(c[0]);
        std::string records;
        for (const DrawRecord& r : read)
            records += (records.empty() ? "" : ";") + r.date + "," + r.h + "," + r.t + "," + r.u;
        EXPECT_EQ(records, c[1]) << c.where;
        EXPECT_EQ(ReportDrawCount(read), std::stoul(c[2])) << c.where;
    }
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
    std::vector<DrawRecord> rows;
    std::string lines;
    for (const testing::Case& c : testing::ReadCases("data/cases/drawings_written.txt", 5)) {
        rows.push_back({c[0], c[1], c[2], c[3]});
        lines += c[4];
    }
    EXPECT_EQ(FormatDrawingsTable(rows), lines) << "data/cases/drawings_written.txt";
    // A quoted field read from a file can hold line breaks and tabs: written as blanks.
    EXPECT_EQ(FormatDrawingsTable(ParseDrawings("\"20\r\n21\" 1 \"2\t\" 3\r\n")),
              "20  21 1 2  3\r\n");
}

TEST(SelectionFile, RoundTripAndTheLastOfAnyNumberOfStringsWins) {
    TempDir dir;
    auto ini = dir.path() / "Numarel" / "shujuwenjian.ini";
    ASSERT_TRUE(WriteSelection(ini, "My Lottery.txt").ok());
    EXPECT_EQ(ReadAll(ini), "\"My Lottery.txt\"\r\n");
    for (const testing::Case& c : testing::ReadCases("data/cases/selections.txt", 2)) {
        dir.Write("Numarel/shujuwenjian.ini", c[0]);
        std::string name = "stale";
        ASSERT_TRUE(ReadSelection(ini, name).ok()) << c.where;
        EXPECT_EQ(name, c[1]) << c.where;
    }
    // A name that is not a lottery's is never written.
    for (const char* bad : {"", "../x.txt", "a\"b.txt"})
        EXPECT_EQ(WriteSelection(ini, bad).code(), Status::Code::InvalidArgument) << bad;
    EXPECT_EQ(ReadAll(ini), "");
}

TEST(SelectionFile, AnUnusableSelectionFallsBackWithoutWritingAndSaysWhyAndLabelsNameTheLottery) {
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
    // Export offers the lottery name of a label without its full stop.
    EXPECT_EQ(ExportPresetName("Lottery:Synthetic-Demo."), "Synthetic-Demo");
    EXPECT_EQ(ExportPresetName("Lottery:a.b."), "a.b");
    EXPECT_EQ(ExportPresetName("Lottery:"), "");
}

std::vector<std::string> Column(const DrawingsTable& table, int col) {
    std::vector<std::string> cells;
    for (int row = 0; row < table.RowCount(); ++row)
        cells.push_back(table.Cell(row, col));
    return cells;
}

TEST(DrawingsTable, SaveWritesTheEmptyLastRowAsAnEndMarkerAndRowsOutsideAreIgnored) {
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

    // The row buttons are pinned through the editor; rows it never offers are ignored here.
    DrawingsTable fresh;
    fresh.SetCell(0, 0, "A");
    fresh.InsertBefore(99);  // past the end: appended
    EXPECT_FALSE(fresh.DeleteRow(9));
    EXPECT_EQ(Column(fresh, 0), (std::vector<std::string>{"A", ""}));
    fresh.SetCell(5, 0, "x");
    fresh.SetCell(0, 4, "x");
    EXPECT_EQ(fresh.Cell(5, 0), "");
    EXPECT_EQ(fresh.Cell(0, 4), "");
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
