#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>

#include "data/results_import.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::ReadAll;
using testing::TempDir;

std::string Sample(std::string_view name) {
    return ReadAll(std::filesystem::path(NUMAREL_TESTS_DIR) / "data" / "import" / name);
}

// The lines an import of `source` into a file holding `file` would write, or the refusal.
std::string Added(std::string_view source, std::string_view file, ImportOptions options = {}) {
    std::vector<DrawRecord> records = ParseDrawings(file);
    records.resize(ReportDrawCount(records));
    ImportPlan plan = PlanImport(source, records, options);
    return plan.status.ok() ? FormatDrawingsTable(plan.added) : "refused: " + plan.status.message();
}

ImportOptions Dates(DateField dates) {
    ImportOptions o;
    o.dates = dates;
    return o;
}

// The day `n` days after `start`, written by `form` (a printf form taking year, month, day).
std::string Day(std::chrono::year_month_day start, int n, const char* form) {
    const std::chrono::year_month_day d{std::chrono::sys_days{start} + std::chrono::days{n}};
    char text[16];
    std::snprintf(text, sizeof text, form, static_cast<int>(d.year()),
                  static_cast<unsigned>(d.month()), static_cast<unsigned>(d.day()));
    return text;
}

// Each source format and what it gives. The published samples also pin the summary of the
// columns found; the short sources are read with YYYYMMDD dates.
TEST(ResultsImport, SourceFormatsImportIntoTheDrawingsExpected) {
    struct Published {
        const char* file;
        std::string columns;  // the columns the summary names
        std::string drawings;
    };
    const Published samples[] = {
        // One row a day, out of order, two days missing; leading zeros dropped from the daily
        // numbers; the four-digit games beside them left out.
        {"open_data.csv",
         "separated by commas, header on line 1; dates in \"Draw Date\" (MM/DD/YYYY); digits in "
         "\"Midday Daily\", then \"Evening Daily\"",
         "2021001 9 9 9\r\n2021002 1 0 0\r\n2021003 0 0 7\r\n2021004 9 5 0\r\n2021005 3 1 5\r\n"
         "2021006 0 6 2\r\n2021007 0 8 1\r\n2021008 4 0 7\r\n2021009 1 2 0\r\n2021010 0 3 3\r\n"},
        // Newest first after a byte-order mark, the header repeated, the draw numbers kept with
        // their gap (2021248 is missing).
        {"newest_first.txt",
         "separated by blanks, header on line 1 (repeated once further down); draw numbers in "
         "\"column 1\"; dates in \"column 2\" (YYYY-MM-DD); digits in "
         "\"column 3\"+\"column 4\"+\"column 5\"",
         "2021245 9 5 6\r\n2021246 2 1 0\r\n2021247 7 7 7\r\n2021249 0 0 4\r\n2021250 3 8 1\r\n"},
        // Two drawings a day in six fields; one day has only its first.
        {"headerless.txt",
         "separated by blanks, no header; dates in \"column 1\" (YYYYMMDD); digits in "
         "\"column 2\"+\"column 3\"+\"column 4\", then \"column 5\"+\"column 6\"+\"column 7\"",
         "2021001 4 1 9\r\n2021002 2 2 0\r\n2021003 5 5 1\r\n2021004 0 6 3\r\n2021005 8 0 2\r\n"
         "2021006 6 4 4\r\n2021007 1 9 7\r\n"},
        // A sum column never reaches three digits.
        {"semicolon.csv",
         "separated by semicolons, header on line 1; dates in \"Datum\" (DD.MM.YYYY); digits in "
         "\"Tag\", then \"Abend\"",
         "2021001 7 1 3\r\n2021002 3 8 5\r\n2021003 5 2 8\r\n2021004 0 6 1\r\n2021005 0 9 0\r\n"
         "2021006 0 0 4\r\n"},
    };
    for (const Published& c : samples) {
        ImportPlan plan = PlanImport(Sample(c.file), {}, {});
        ASSERT_TRUE(plan.status.ok()) << c.file << ": " << plan.status.message();
        EXPECT_EQ(DescribeLayout(plan.source.layout), c.columns) << c.file;
        EXPECT_EQ(FormatDrawingsTable(plan.added), c.drawings) << c.file;
        EXPECT_TRUE(plan.source.rejected.empty()) << c.file;
    }

    struct Case {
        std::string source;
        std::string drawings;
        SourceHints hints = {};
    };
    auto utf16 = [](std::string_view text) {
        std::string out = "\xFF\xFE";
        for (char c : text) {
            out += c;
            out += '\0';
        }
        return out;
    };
    const Case cases[] = {
        {"Date,Numbers\r\n2021-01-02,\"4,5,6\"\r\n2021-01-01,\"1,2,3\"\r\n",
         "20210101 1 2 3\r\n20210102 4 5 6\r\n"},
        // 13 cannot be a month: the slashes are day first.
        {"13/01/2021\t1-2-3\n12/01/2021\t4-5-6\n", "20210112 4 5 6\r\n20210113 1 2 3\r\n"},
        {"Date,Ball 1,Ball 2,Ball 3,Sum,Bonus\n01/05/2021,1,2,3,6,7\n", "20210105 1 2 3\r\n"},
        {"2021-01-05T00:00:00.000;1 2 3\n2021-01-06 12:00:00 AM;4  5  6\n",
         "20210105 1 2 3\r\n20210106 4 5 6\r\n"},
        {utf16("Date\tResult\r\n2021-03-01\t789\r\n"), "20210301 7 8 9\r\n"},
        {"D,A,B\n2021-01-01,123,456\n",
         "20210101 4 5 6\r\n20210101 1 2 3\r\n",
         {.digitsColumns = {"b", "2"}}},
        {"x,y,h,t,u\n1,2021-01-01,7,8,9\n",
         "20210101 7 8 9\r\n",
         {.dateColumn = "2", .digitsColumns = {"3+4+5"}}},
        {"5/1/2021,321\n", "20210105 3 2 1\r\n", {.dateFormat = DateFormat::DayMonthYearSlash}},
        // A day's drawings on rows of their own, named by the part of the day.
        {"Date,Draw,Numbers\n01/02/2021,Evening,456\n01/02/2021,Midday,123\n",
         "20210102 1 2 3\r\n20210102 4 5 6\r\n"},
        // A row number of three digits climbs on every row: not the drawing's digits.
        {"100,2021-01-01,123\n101,2021-01-02,456\n102,2021-01-03,789\n103,2021-01-04,012\n"
         "104,2021-01-05,345\n105,2021-01-06,678\n106,2021-01-07,901\n107,2021-01-08,234\n",
         "20210101 1 2 3\r\n20210102 4 5 6\r\n20210103 7 8 9\r\n20210104 0 1 2\r\n"
         "20210105 3 4 5\r\n20210106 6 7 8\r\n20210107 9 0 1\r\n20210108 2 3 4\r\n"},
    };
    for (const Case& c : cases) {
        ImportOptions options = Dates(DateField::YearMonthDay);
        options.hints = c.hints;
        EXPECT_EQ(Added(c.source, "", options), c.drawings) << c.source;
    }
}

TEST(ResultsImport, DuplicatesConflictsAndLinesThatGiveNothingAreListed) {
    const std::string source =
        "Date,Midday,Evening\n01/02/2021,111,222\n01/01/2021,333,444\n01/02/2021,111,225\n"
        "02/30/2021,456,\n01/03/2021,12a,\n";
    ImportPlan plan = PlanImport(source, {}, Dates(DateField::YearMonthDay));
    ASSERT_TRUE(plan.status.ok());
    EXPECT_EQ(FormatDrawingsTable(plan.added),
              "20210101 3 3 3\r\n20210101 4 4 4\r\n20210102 1 1 1\r\n20210102 2 2 2\r\n"
              "20210102 2 2 5\r\n");
    EXPECT_EQ(plan.source.duplicates, 1);
    ASSERT_EQ(plan.source.conflicts.size(), 1u);
    EXPECT_NE(FormatImportSummary(plan).find("  2021-01-02, Evening: 222 (line 2), 225 (line 4)"),
              std::string::npos);
    ASSERT_EQ(plan.source.rejected.size(), 2u);
    EXPECT_EQ(plan.source.rejected[0].line, 5);
    EXPECT_EQ(plan.source.rejected[0].reason, "the date \"02/30/2021\" is not a MM/DD/YYYY date");
    EXPECT_EQ(plan.source.rejected[1].reason, "\"12a\" in Midday is not three digits");

    ImportOptions strict;
    strict.strict = true;
    EXPECT_FALSE(PlanImport(source, {}, strict).status.ok());
}

TEST(ResultsImport, TheDateFieldGoesOnFromTheFilesOwnNumbering) {
    const std::string yearEnd = "Date,Result\n12/30/2020,555\n12/31/2020,666\n01/01/2021,777\n";
    struct Case {
        std::string file;
        DateField dates;
        std::string added;
    };
    const Case cases[] = {
        {"2020363 5 5 5\r\n", DateField::Auto, "2020364 6 6 6\r\n2021001 7 7 7\r\n"},
        {"20201230 5 5 5\r\n", DateField::Auto, "20201231 6 6 6\r\n20210101 7 7 7\r\n"},
        {"7 5 5 5\r\n", DateField::Auto, "8 6 6 6\r\n9 7 7 7\r\n"},
        {"", DateField::Number, "1 5 5 5\r\n2 6 6 6\r\n3 7 7 7\r\n"},
        {"2020363 5 5 5\r\n", DateField::YearMonthDay, "20201231 6 6 6\r\n20210101 7 7 7\r\n"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Added(yearEnd, c.file, Dates(c.dates)), c.added) << c.file;
    // Replacing a table: its numbering is followed, each form from its start.
    const std::pair<const char*, const char*> replacing[] = {
        {"20201230", "20201230 5 5 5\r\n20201231 6 6 6\r\n20210101 7 7 7\r\n"},
        {"2020363", "2020001 5 5 5\r\n2020002 6 6 6\r\n2021001 7 7 7\r\n"},
        {"57", "1 5 5 5\r\n2 6 6 6\r\n3 7 7 7\r\n"},
    };
    for (auto [like, added] : replacing) {
        ImportOptions options;
        options.numberedLike = like;
        EXPECT_EQ(Added(yearEnd, "", options), added) << like;
    }

    // A source with draw numbers gives its own; without years there is no YYYYNNN.
    EXPECT_EQ(Added("2021003 7 8 9\n2021001 1 2 3\n", ""), "2021001 1 2 3\r\n2021003 7 8 9\r\n");
    ImportOptions anyNumber = Dates(DateField::YearRunning);
    anyNumber.hints.drawColumn = "1";
    EXPECT_EQ(Added("12 1 2 3\n", "", anyNumber),
              "refused: The source gives no year for its drawings.");
}

TEST(ResultsImport, OnlyWhatComesAfterTheFilesLastDrawingIsAdded) {
    const std::string openData = Sample("open_data.csv");
    const std::string drawNumbers = Sample("newest_first.txt");
    struct Case {
        std::string source;
        std::string file;
        std::string added;
    };
    const Case cases[] = {
        // Numbered by the import itself: found by the run of its last drawings.
        {openData, "2021001 9 9 9\r\n2021002 1 0 0\r\n2021003 0 0 7\r\n2021004 9 5 0\r\n",
         "2021005 3 1 5\r\n2021006 0 6 2\r\n2021007 0 8 1\r\n2021008 4 0 7\r\n2021009 1 2 0\r\n"
         "2021010 0 3 3\r\n"},
        // By date: the day's second drawing is still missing from the file.
        {openData, "20210906 1 2 0\r\n", "20210906 0 3 3\r\n"},
        // By draw number, past a gap in the source.
        {drawNumbers, "2021245 9 5 6\r\n2021246 2 1 0\r\n",
         "2021247 7 7 7\r\n2021249 0 0 4\r\n"
         "2021250 3 8 1\r\n"},
        // The file numbered otherwise than the source's draw numbers: found by the run.
        {drawNumbers, "2021004 2 1 0\r\n2021005 7 7 7\r\n", "2021006 0 0 4\r\n2021007 3 8 1\r\n"},
        // Disagreements, by each way of lining up.
        {openData, "20210831 9 9 9\r\n20210831 1 0 1\r\n",
         "refused: The source disagrees with the file: the file has 101 for 20210831, the "
         "source 100 for 2021-08-31, Evening Daily (line 5). Nothing was imported."},
        {drawNumbers, "2021246 2 1 1\r\n",
         "refused: The source disagrees with the file: the file has 211 for 2021246, the source "
         "210 for 2021-09-03 (draw 2021246) (line 6). Nothing was imported."},
        {openData, "1 4 4 4\r\n",
         "refused: The file's last drawing (1, 444) is not in the source, so it cannot be told "
         "which drawings are new."},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Added(c.source, c.file), c.added) << c.file;
}

// Only the file's newest drawings, those that tell where it ends, must agree with the source:
// further back a disagreement, or a day that the source gives twice, is listed and the new
// drawings are added all the same.
TEST(ResultsImport, OnlyTheFilesNewestDrawingsMustAgreeWithTheSource) {
    // One drawing a day from 2021-01-01, digits from the day's number; `file` has the first days.
    using namespace std::chrono;
    auto iso = [](int n) { return Day(year{2021} / 1 / 1, n, "%04d-%02u-%02u"); };
    auto compact = [](int n) { return Day(year{2021} / 1 / 1, n, "%04d%02u%02u"); };
    auto digits = [](int n) { return std::to_string(100 + n * 7919 % 900); };
    auto source = [&](int days, const std::string& extraRow = "") {
        std::string text = "Date,Numbers\n";
        for (int n = 0; n < days; ++n)
            text += iso(n) + "," + digits(n) + "\n";
        return text + extraRow;
    };
    auto file = [&](int days, int wrongDay) {
        std::string text;
        for (int n = 0; n < days; ++n) {
            std::string d = n == wrongDay ? "999" : digits(n);
            text += compact(n) + " " + d[0] + " " + d[1] + " " + d[2] + "\r\n";
        }
        return text;
    };
    auto plan = [&](const std::string& src, const std::string& drawings) {
        std::vector<DrawRecord> records = ParseDrawings(drawings);
        return PlanImport(src, records, {});
    };
    // Within the file's last ten drawings a disagreement still refuses; further back it does not.
    ImportPlan atTheEnd = plan(source(33), file(30, 22));
    EXPECT_EQ(atTheEnd.status.message(),
              "The source disagrees with the file: the file has 999 for 20210123, the source " +
                  digits(22) + " for 2021-01-23 (line 24). Nothing was imported.");
    ImportPlan furtherBack = plan(source(33), file(30, 4));
    ASSERT_TRUE(furtherBack.status.ok()) << furtherBack.status.message();
    EXPECT_EQ(furtherBack.added.size(), 3u);
    EXPECT_EQ(furtherBack.added.front().date, "20210131");
    EXPECT_EQ(furtherBack.alreadyPresent, 30);
    EXPECT_NE(FormatImportSummary(furtherBack)
                  .find("Older disagreements, left as the file has them: 1\n  the file has 999 "
                        "for 20210105"),
              std::string::npos);

    // The source gives a day twice, once as the file has it: at the end or further back, the
    // file agrees, and the day is listed among the conflicts. It was once refused: the file's
    // drawing was held against the day's first version only.
    for (int twice : {3, 29}) {
        const std::string second = iso(twice) + "," + digits(twice) + "\n";
        const std::string first = iso(twice) + ",555\n";
        std::string src = source(33);
        src.insert(src.find(second), first);  // the other version comes first
        ImportPlan p = plan(src, file(30, -1));
        ASSERT_TRUE(p.status.ok()) << twice << ": " << p.status.message();
        EXPECT_EQ(p.added.size(), 3u) << twice;
        EXPECT_TRUE(p.olderDisagreements.empty()) << twice;
        EXPECT_EQ(p.source.conflicts.size(), 1u) << twice;
        // A file numbered by running numbers is lined up by its last drawings' digits.
        std::string numbered;
        for (int n = 0; n < 30; ++n)
            numbered += std::to_string(n + 1) + " " + digits(n)[0] + " " + digits(n)[1] + " " +
                        digits(n)[2] + "\r\n";
        ImportPlan run = plan(src, numbered);
        ASSERT_TRUE(run.status.ok()) << twice << ": " << run.status.message();
        EXPECT_EQ(run.alignment, Alignment::Run);
        ASSERT_EQ(run.added.size(), 3u) << twice;
        EXPECT_EQ(run.added.front().date, "31") << twice;
        EXPECT_TRUE(run.olderDisagreements.empty()) << twice;
    }
    // The same by draw numbers, the file's last drawing being the second version.
    EXPECT_EQ(Added("2021001 1 2 3\n2021002 4 5 6\n2021002 4 5 7\n2021003 7 8 9\n",
                    "2021001 1 2 3\r\n2021002 4 5 7\r\n"),
              "2021003 7 8 9\r\n");
}

// A published file of a lottery with two drawings a day, newest first, onto the first 25,000 of
// its drawings: an old day given twice with different digits is listed, and the 27 newer
// drawings are appended.
TEST(ResultsImport, ALongHistoryTakesTheNewestDrawingsPastAnOldConflict) {
    TempDir dir;
    using namespace std::chrono;
    auto us = [](int n) { return Day(year{1980} / 9 / 12, n, "%3$02u/%2$02u/%1$04d"); };
    auto compact = [](int n) { return Day(year{1980} / 9 / 12, n, "%04d%02u%02u"); };
    auto digits = [](int drawing) {
        return std::to_string(1000 + drawing * 7919 % 1000).substr(1);
    };
    const int days = 12514;  // the last day's evening drawing is not in yet: 25,027 drawings
    std::vector<std::string> rows;
    std::string drawings;
    for (int n = 0; n < days; ++n) {
        const std::string evening = n + 1 < days ? digits(2 * n + 1) : "";
        rows.push_back(us(n) + "," + digits(2 * n) + "," + evening + "\n");
        for (int k = 0; k < 2 && 2 * n + k < 25000; ++k) {
            const std::string d = digits(2 * n + k);
            drawings += compact(n) + " " + d[0] + " " + d[1] + " " + d[2] + "\r\n";
        }
    }
    rows.push_back(us(500) + "," + digits(1000) + ",703\n");
    std::string source = "Draw Date,Midday Daily,Evening Daily\n";
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        source += *row;
    const auto file = dir.Write("ny.txt", drawings);

    ImportPlan plan;
    ASSERT_TRUE(ImportIntoFile(source, file, {}, false, plan).ok()) << plan.status.message();
    EXPECT_EQ(plan.added.size(), 27u);
    EXPECT_EQ(plan.alreadyPresent, 25001);  // the day given twice, in both its versions
    EXPECT_EQ(plan.dates, DateField::YearMonthDay);
    const std::string summary = FormatImportSummary(plan);
    EXPECT_NE(summary.find("Conflicts: 1\n  " + IsoDate(std::stoi(compact(500))) +
                           ", Evening Daily: 703 (line 2), " + digits(1001) + " (line "),
              std::string::npos)
        << summary;
    const std::string after = ReadAll(file);
    ASSERT_TRUE(after.starts_with(drawings));
    std::vector<DrawRecord> records = ParseDrawings(after);
    ASSERT_EQ(records.size(), 25027u);
    EXPECT_EQ(records.back().date, compact(days - 1));
}

TEST(ResultsImport, ImportingIntoAFileAppendsOnceAndKeepsTheEndMarkerLast) {
    TempDir dir;
    const std::string source = Sample("newest_first.txt");
    const auto file = dir.Write("d.txt", "2021245 9 5 6\r\n0 0 0 0\r\n2099001 1 1 1\r\n");
    ImportPlan plan;
    ASSERT_TRUE(ImportIntoFile(source, file, {}, false, plan).ok());
    const std::string once = ReadAll(file);
    EXPECT_EQ(once,
              "2021245 9 5 6\r\n2021246 2 1 0\r\n2021247 7 7 7\r\n2021249 0 0 4\r\n"
              "2021250 3 8 1\r\n0 0 0 0\r\n2099001 1 1 1\r\n");
    auto stamp = std::filesystem::last_write_time(file);
    ASSERT_TRUE(ImportIntoFile(source, file, {}, false, plan).ok());
    EXPECT_TRUE(plan.added.empty());
    EXPECT_EQ(plan.alreadyPresent, 5);
    EXPECT_EQ(ReadAll(file), once);
    EXPECT_EQ(std::filesystem::last_write_time(file), stamp);  // not even rewritten
}

TEST(ResultsImport, NewLinesStartOnALineOfTheirOwn) {
    const DrawRecord added{"2021002", "4", "5", "6"};
    const std::pair<std::string, std::string> cases[] = {
        {"2021001 1 2 3", "2021001 1 2 3\r\n2021002 4 5 6\r\n"},
        {"2021001 1 2 3\n  0 0 0 0\n", "2021001 1 2 3\n2021002 4 5 6\r\n  0 0 0 0\n"},
        {"2021001 1 2 3 0 0 0 0\r\n", "2021001 1 2 3 \r\n2021002 4 5 6\r\n0 0 0 0\r\n"},
    };
    for (const auto& [file, expected] : cases) {
        std::string out;
        ASSERT_TRUE(AppendDrawingLines(file, {&added, 1}, out).ok()) << file;
        EXPECT_EQ(out, expected) << file;
    }
    std::string out;
    EXPECT_FALSE(AppendDrawingLines("2021001 1 2", {&added, 1}, out).ok());
}

TEST(ResultsImport, BadSourcesAndFilesAreRefusedAndLeaveTheFileAsItWas) {
    TempDir dir;
    std::string many = "Date,Midday,Evening\n";
    for (int day = 0; day < 20000; ++day)
        many += std::to_string(1 + day % 12) + "/" + std::to_string(1 + day / 12 % 28) + "/" +
                std::to_string(2000 + day / 336) + ",123,456\n";
    struct Case {
        std::string source;
        std::string message;
        std::string file = "2021001 1 2 3\r\n";
    };
    const Case cases[] = {
        {"\r\n  \r\n", "The source is empty."},
        {"Draw Date,Midday,Evening\r\n", "The source holds no drawings."},
        {std::string("PK\x03\x04\x14\0\0\0", 8) + "123", "The source is not a text file."},
        {"hello world\nthis is prose\n", "The source holds no drawings."},
        {"2021-01-01 12\n", "No column of three digits was found in the source."},
        {"123\n456\n", "No column of dates or draw numbers was found in the source."},
        {many, "The file would hold 40000 drawings; at most 32767 fit. Nothing was imported.", ""},
    };
    for (const Case& c : cases) {
        const auto file = dir.Write("d.txt", c.file);
        ImportPlan plan;
        Status s = ImportIntoFile(c.source, file, {}, false, plan);
        EXPECT_EQ(s.message(), c.message) << c.source.substr(0, 40);
        EXPECT_EQ(ReadAll(file), c.file);
    }
}

}  // namespace
}  // namespace numarel
