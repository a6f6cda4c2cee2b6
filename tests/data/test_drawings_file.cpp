#include <gtest/gtest.h>

#include "data/drawings_file.h"
#include "data/lottery_catalog.h"
#include "support/test_support.h"

namespace numarel {
namespace {

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

TEST(DrawingsWriter, SaveChecksDigitsButWritesDatesAsTyped) {
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
}

TEST(DrawingsWriter, EveryRowStaysOneLine) {
    // A quoted field read from a file can hold line breaks and tabs; Save writes them as blanks.
    auto rows = ParseDrawings("\"20\r\n21\" 1 \"2\t\" 3\r\n");
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(FormatDrawingsTable(rows), "20  21 1 2  3\r\n");
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

}  // namespace
}  // namespace numarel
