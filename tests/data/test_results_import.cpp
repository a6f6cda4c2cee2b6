#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>

#include "data/result_dates.h"
#include "data/results_import.h"
#include "support/case_file.h"

namespace numarel {
namespace {

using testing::Case;
using testing::Fixture;
using testing::ReadAll;
using testing::ReadCases;
using testing::TempDir;
using testing::Words;

std::string Sample(std::string_view name) {
    return ReadAll(Fixture("data/import") / name);
}

// `text` with its lines ended by CR LF, as the drawings tables write them.
std::string CrLf(const std::string& text) {
    std::string out;
    for (char c : text)
        out += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return out;
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

// Each published sample beside its .expected file: the summary of the columns found, then the
// drawings; and the short sources, read with YYYYMMDD dates. The samples:
// - open_data.csv: one row a day, out of order, two days missing; leading zeros dropped from the
//   daily numbers; the four-digit games beside them left out.
// - newest_first.txt: newest first after a byte-order mark, the header repeated, the draw numbers
//   kept with their gap (2021248 is missing).
// - headerless.txt: two drawings a day in six fields; one day has only its first.
// - semicolon.csv: a sum column never reaches three digits.
TEST(ResultsImport, SourceFormatsImportIntoTheDrawingsExpected) {
    int samples = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Fixture("data/import"))) {
        if (entry.path().extension() != ".expected") continue;
        ++samples;
        const std::string sample = entry.path().stem().string();
        std::string expected = ReadAll(entry.path());
        const std::string columns = expected.substr(0, expected.find('\n'));
        expected = CrLf(expected.substr(columns.size() + 1));
        ImportPlan plan = PlanImport(Sample(sample), {}, {});
        ASSERT_TRUE(plan.status.ok()) << sample << ": " << plan.status.message();
        EXPECT_EQ(DescribeLayout(plan.source.layout), columns) << entry.path();
        EXPECT_EQ(FormatDrawingsTable(plan.added), expected) << entry.path();
        EXPECT_TRUE(plan.source.rejected.empty()) << sample;
    }
    EXPECT_EQ(samples, 4) << "the .expected files of tests/data/import";
    for (const Case& c : ReadCases("data/import/short_sources.txt", 3)) {
        ImportOptions options = Dates(DateField::YearMonthDay);
        for (const std::string& hint : Words(c[2])) {
            const std::string value = hint.substr(hint.find('=') + 1);
            if (hint.starts_with("date="))
                options.hints.dateColumn = value;
            else if (hint.starts_with("digits="))
                options.hints.digitsColumns.push_back(value);
            else
                ASSERT_TRUE(ParseDateFormatName(value, options.hints.dateFormat)) << c.where;
        }
        EXPECT_EQ(Added(c[0], "", options), c[1]) << c.where;
    }
}

// The summary names the day given twice, the conflict and each line not used with its reason.
TEST(ResultsImport, DuplicatesConflictsAndLinesThatGiveNothingAreListed) {
    const std::string source = Sample("duplicates.csv");
    ImportPlan plan = PlanImport(source, {}, Dates(DateField::YearMonthDay));
    ASSERT_TRUE(plan.status.ok());
    EXPECT_EQ(FormatDrawingsTable(plan.added),
              "20210101 3 3 3\r\n20210101 4 4 4\r\n20210102 1 1 1\r\n20210102 2 2 2\r\n"
              "20210102 2 2 5\r\n");
    EXPECT_EQ(FormatImportSummary(plan), Sample("duplicates.csv.summary"))
        << "data/import/duplicates.csv.summary";

    ImportOptions strict;
    strict.strict = true;
    EXPECT_FALSE(PlanImport(source, {}, strict).status.ok());
}

TEST(ResultsImport, TheDateFieldGoesOnFromTheFilesOwnNumbering) {
    const std::string yearEnd = "Date,Result\n12/30/2020,555\n12/31/2020,666\n01/01/2021,777\n";
    for (const Case& c : ReadCases("data/import/numbering.txt", 3)) {
        ImportOptions options;
        if (c[1].starts_with("like "))
            options.numberedLike = c[1].substr(5);
        else
            ASSERT_TRUE(ParseDateFieldName(c[1], options.dates)) << c.where;
        EXPECT_EQ(Added(yearEnd, c[0], options), c[2]) << c.where;
    }

    // A source with draw numbers gives its own; without years there is no YYYYNNN.
    EXPECT_EQ(Added("2021003 7 8 9\n2021001 1 2 3\n", ""), "2021001 1 2 3\r\n2021003 7 8 9\r\n");
    ImportOptions anyNumber = Dates(DateField::YearRunning);
    anyNumber.hints.drawColumn = "1";
    EXPECT_EQ(Added("12 1 2 3\n", "", anyNumber),
              "refused: The source gives no year for its drawings.");
}

TEST(ResultsImport, OnlyWhatComesAfterTheFilesLastDrawingIsAdded) {
    for (const Case& c : ReadCases("data/import/after_last.txt", 3))
        EXPECT_EQ(Added(Sample(c[0]), c[1]), c[2]) << c.where;
}

// Only the file's newest drawings, those that tell where it ends, must agree with the source:
// further back a disagreement, or a day that the source gives twice, is listed and the new
// drawings are added all the same.
TEST(ResultsImport, OnlyTheFilesNewestDrawingsMustAgreeWithTheSource) {
    // One drawing a day from 2021-01-01: 33 days in the source, the first 30 in the file, and the
    // same 30 numbered 1 to 30.
    const std::string source = Sample("33_days.csv"), file = Sample("30_days.txt");
    auto plan = [&](const std::string& src, const std::string& drawings) {
        return PlanImport(src, ParseDrawings(drawings), {});
    };
    // `file` with the digits of day `n` (from 0) made 999; each of its lines is 16 bytes.
    auto wrong = [&](int n) { return std::string(file).replace(16 * n + 9, 5, "9 9 9"); };
    // Within the file's last ten drawings a disagreement still refuses; further back it does not.
    ImportPlan atTheEnd = plan(source, wrong(22));
    EXPECT_EQ(atTheEnd.status.message(),
              "The source disagrees with the file: the file has 999 for 20210123, the source 618 "
              "for 2021-01-23 (line 24). Nothing was imported.");
    ImportPlan furtherBack = plan(source, wrong(4));
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
    for (std::string twice : {"2021-01-04", "2021-01-30"}) {
        std::string src = source;
        src.insert(src.find(twice), twice + ",555\n");  // the other version comes first
        ImportPlan p = plan(src, file);
        ASSERT_TRUE(p.status.ok()) << twice << ": " << p.status.message();
        EXPECT_EQ(p.added.size(), 3u) << twice;
        EXPECT_TRUE(p.olderDisagreements.empty()) << twice;
        EXPECT_EQ(p.source.conflicts.size(), 1u) << twice;
        // A file numbered by running numbers is lined up by its last drawings' digits.
        ImportPlan run = plan(src, Sample("30_days_numbered.txt"));
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

TEST(ResultsImport, ImportingIntoAFileAppendsOnceOnNewLinesAndKeepsTheEndMarkerLast) {
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

    // New lines start on a line of their own.
    const DrawRecord added{"2021002", "4", "5", "6"};
    for (const Case& c : ReadCases("data/import/new_lines.txt", 2)) {
        std::string out;
        ASSERT_TRUE(AppendDrawingLines(c[0], {&added, 1}, out).ok()) << c.where;
        EXPECT_EQ(out, c[1]) << c.where;
    }
    std::string cut;
    EXPECT_FALSE(AppendDrawingLines("2021001 1 2", {&added, 1}, cut).ok());
}

TEST(ResultsImport, BadSourcesAndFilesAreRefusedAndLeaveTheFileAsItWas) {
    TempDir dir;
    std::string many = "Date,Midday,Evening\n";
    for (int day = 0; day < 20000; ++day)
        many += std::to_string(1 + day % 12) + "/" + std::to_string(1 + day / 12 % 28) + "/" +
                std::to_string(2000 + day / 336) + ",123,456\n";
    std::vector<Case> cases = ReadCases("data/import/refusals.txt", 3);
    cases.push_back(
        {"too many drawings",
         {many, "The file would hold 40000 drawings; at most 32767 fit. Nothing was imported.", ""},
         {}});
    for (const Case& c : cases) {
        const auto file = dir.Write("d.txt", c[2]);
        ImportPlan plan;
        Status s = ImportIntoFile(c[0], file, {}, false, plan);
        EXPECT_EQ(s.message(), c[1]) << c.where;
        EXPECT_EQ(ReadAll(file), c[2]) << c.where;
    }
}

}  // namespace
}  // namespace numarel
