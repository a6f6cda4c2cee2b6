#include <gtest/gtest.h>

#include "cli/cli_run.h"
#include "cli/report_names.h"
#include "reports/command_table.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::CliRun;
using testing::ReadAll;
using testing::RunCliWith;
using testing::TempDir;

TEST(ReportNames, ObjectsAndCaptionsInAnyCase) {
    struct Case {
        std::string_view name;
        std::string_view object;  // empty: no report
    } cases[] = {
        {"FRMRENWENLENG", "frmrenwenleng"},
        {"cold warm hot", "frmrenwenleng"},
        {"cold warm", ""},       // a part of a caption is not a name
        {"cold  warm hot", ""},  // nor is a caption with other blanks
        {"", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FindReportByName(c.name), c.object) << c.name;
    EXPECT_EQ(ClosestCaptions("warm", 1).front(), "Cold Warm Hot");
    EXPECT_EQ(ClosestCaptions("zzzz").size(), 5u);
}

TEST(ReportCommand, NamesVersionAndUnknownNames) {
    TempDir dir;
    auto data = dir.Write("small.txt", "2020001 1 2 3\r\n2020002 0 0 0\r\n");
    CliRun byObject = RunCliWith(
        {"report", "frmbjiouhe", "--data", data.string(), "--format", "csv"}, dir.path());
    CliRun byCaption =
        RunCliWith({"report", "sum of odd-sum of even", "--data", data.string(), "--format", "csv"},
                   dir.path());
    ASSERT_EQ(byObject.code, 0) << byObject.err;
    EXPECT_EQ(byCaption.code, 0) << byCaption.err;
    EXPECT_EQ(byCaption.out, byObject.out);

    CliRun unknown = RunCliWith({"report", "cold wram hot", "--data", data.string()}, dir.path());
    EXPECT_EQ(unknown.code, 1);
    EXPECT_NE(unknown.err.find("\"Cold Warm Hot\""), std::string::npos) << unknown.err;
    EXPECT_EQ(std::count(unknown.err.begin(), unknown.err.end(), '\n'), 1);
    EXPECT_TRUE(unknown.out.empty());

    CliRun version = RunCliWith({"--version"}, dir.path());
    EXPECT_EQ(version.code, 0);
    EXPECT_TRUE(version.out.starts_with("numarel-cli ")) << version.out;
}

std::size_t BuiltReports() {
    std::size_t n = 0;
    for (ReportFamily family : ReportFamilies())
        n += family().size();
    return n;
}

TEST(ReportCommand, AllWritesEveryReportAndAnIndexByGroup) {
    TempDir dir;
    auto data = dir.Write("Mine.txt", "2020001 1 2 3\r\n2020002 4 5 6\r\n2020003 0 0 0\r\n");
    auto folder = dir.path() / "out";
    for (std::string format : {"html", "csv", "json"}) {
        CliRun run = RunCliWith({"report", "--all", "--data", data.string(), "--format", format,
                                 "--output", (folder / format).string()},
                                dir.path());
        EXPECT_EQ(run.code, 0) << run.err;
        std::size_t files = 0;
        for (auto& entry : std::filesystem::directory_iterator(folder / format)) {
            EXPECT_EQ(entry.path().extension(), "." + format);
            ++files;
        }
        EXPECT_EQ(files, BuiltReports() + (format == "html" ? 1 : 0)) << format;
    }
    // Built on every core, each file is what the report gives on its own.
    for (ReportFamily family : ReportFamilies())
        for (const ReportDefinition& def : family()) {
            std::string object(def.object);
            EXPECT_EQ(ReadAll(folder / "csv" / (object + ".csv")),
                      RunCliWith({"report", object, "--data", data.string(), "--format", "csv"},
                                 dir.path())
                          .out)
                << object;
        }
    std::string index = ReadAll(folder / "html" / "index.html");
    // Groups in the main window's order, each report linked where its group lists it.
    std::size_t at = 0;
    for (const GroupButton& group : GroupButtons()) {
        std::string caption(group.caption);
        if (auto amp = caption.find('&'); amp != std::string::npos) caption.insert(amp + 1, "amp;");
        std::size_t found = index.find("<h2>" + caption + "</h2>", at);
        ASSERT_NE(found, std::string::npos) << group.caption;
        at = found;
    }
    EXPECT_NE(index.find("<a href=\"frmrenwenleng.html\">Cold Warm Hot</a>"), std::string::npos);
}

TEST(ReportCommand, AllGoesOnPastAFailureAndSaysSo) {
    TempDir dir;
    auto data = dir.Write("Mine.txt", "2020001 1 2 3\r\n");
    auto folder = dir.path() / "out";
    std::filesystem::create_directories(folder / "frmbjiouhe.csv");  // cannot become a file
    CliRun run = RunCliWith({"report", "--all", "--data", data.string(), "--format", "csv",
                             "--output", folder.string()},
                            dir.path());
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("frmbjiouhe"), std::string::npos) << run.err;
    EXPECT_TRUE(std::filesystem::exists(folder / "frmrenwenleng.csv"));

    CliRun noFolder = RunCliWith({"report", "--all", "--data", data.string()}, dir.path());
    EXPECT_EQ(noFolder.code, 1);

    // A drawings file that one of the exports would replace stops the export before it begins.
    auto named = dir.Write("kept/frmbjiouhe.csv", "2020001 1 2 3\r\n");
    CliRun overData = RunCliWith({"report", "--all", "--data", named.string(), "--format", "csv",
                                  "--output", named.parent_path().string()},
                                 dir.path());
    EXPECT_EQ(overData.code, 1);
    EXPECT_NE(overData.err.find("never written over"), std::string::npos) << overData.err;
    EXPECT_EQ(ReadAll(named), "2020001 1 2 3\r\n");
    EXPECT_FALSE(std::filesystem::exists(named.parent_path() / "frmrenwenleng.csv"));
}

}  // namespace
}  // namespace numarel
