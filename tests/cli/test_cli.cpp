#include <gtest/gtest.h>

#include <sys/wait.h>
#include <cerrno>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/cli_run.h"
#include "cli/import_command.h"
#include "cli/report_names.h"
#include "data/drawings_file.h"
#include "data/file_io.h"
#include "data/lottery_catalog.h"
#include "export/sheet_format.h"
#include "reports/command_table.h"
#include "reports/report_registry.h"
#include "support/case_file.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Case;
using testing::CliRun;
using testing::Fill;
using testing::Fixture;
using testing::Lines;
using testing::ReadAll;
using testing::ReadCases;
using testing::RunCliWith;
using testing::TempDir;
using testing::Words;

// The cells are the reports' own, pinned with them; here the shape of each format of a small file.
// JSON and text are compared whole: the keys in their order, the cells row by row, the text's
// title, header, the three rows of the last drawing of a report with three rows a drawing and the
// two empty rows closing the sheet, its columns lined up by characters.
TEST(Cli, EachFormatOfASmallFile) {
    TempDir dir;
    auto data = dir.Write("small.txt", "2020001 1 2 3\r\n2020002 3 0 7\r\n");
    auto run = [&](std::vector<std::string> args) {
        args.insert(args.end(), {"--data", data.string()});
        CliRun r = RunCliWith(args, dir.path());
        EXPECT_EQ(r.code, 0) << r.err;
        return r.out;
    };
    EXPECT_EQ(run({"report", "frmbjiouhe", "--format", "json"}),
              ReadAll(Fixture("cli/cases/small_frmbjiouhe.json")))
        << "cli/cases/small_frmbjiouhe.json";
    EXPECT_EQ(run({"report", "frmliangmahecha", "--tail", "1"}),
              ReadAll(Fixture("cli/cases/small_frmliangmahecha_tail1.txt")))
        << "cli/cases/small_frmliangmahecha_tail1.txt";

    // The grid-line colour is the one key a report adds only when it has a colour of its own (the
    // file above shows it absent); HTML draws the grid in it, or in the default grey.
    EXPECT_EQ(nlohmann::json::parse(run({"report", "frmliangmahecha", "--format", "json"}))
                  .value("gridColour", ""),
              "#00c000");
    EXPECT_TRUE(testing::Has(run({"report", "frmliangmahecha", "--format", "html"}),
                             "border-right:1px solid #00c000"));
    EXPECT_TRUE(testing::Has(run({"report", "frmbjiouhe", "--format", "html"}),
                             "border-right:1px solid #c0c0c0"));

    auto out = dir.path() / "sheet.csv";
    EXPECT_TRUE(run({"report", "frmbjiouhe", "--format", "csv", "--output", out.string()}).empty());
    EXPECT_EQ(ReadAll(out).substr(0, 9), ",H,T,U,,,");  // the header row, its fixed cell empty
}

TEST(Cli, ErrorsSayOneLineExitNonZeroAndWriteNothing) {
    TempDir dir;
    auto out = dir.path() / "never.json";
    dir.Write("good.txt", "1 1 2 3\r\n");
    std::string big;
    for (std::size_t i = 0; i <= kMaxDrawings; ++i)
        big += "1 1 2 3\r\n";
    dir.Write("big.txt", big);
    for (const Case& c : ReadCases("cli/cases/errors.txt", 1)) {
        auto args = Words(Fill(c[0], {{"dir", dir.path().string()}}));
        args.push_back("--output");
        args.push_back(out.string());
        CliRun run = RunCliWith(args, dir.path());
        EXPECT_NE(run.code, 0) << c.where << run.out;
        EXPECT_EQ(Lines(run.err), 1) << c.where << run.err;
        EXPECT_FALSE(std::filesystem::exists(out)) << c.where;
    }
}

// The enquiry's cells and refusals are pinned with it; here the command's shape.
TEST(Cli, EnquireReadsItsTextsAsTheTextBoxDoes) {
    TempDir dir;
    auto data = dir.Write("small.txt", "2020001 4 5 6\r\n2020002 3 2 1\r\n");
    // The texts make the tickets 123, 456 and 789 whatever their grouping.
    CliRun run = RunCliWith(
        {"enquire", "box", "12", "3,456", "7 89", "--data", data.string(), "--format", "json"},
        dir.path());
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.out, ReadAll(Fixture("cli/cases/enquire_box.json")))
        << "cli/cases/enquire_box.json";

    auto out = dir.path() / "never.csv";
    CliRun r = RunCliWith(
        {"enquire", "straight", "--data", data.string(), "--output", out.string()}, dir.path());
    EXPECT_NE(r.code, 0);
    EXPECT_EQ(r.err, "numarel-cli: You did not enter the Straight Number!\n");
    EXPECT_FALSE(std::filesystem::exists(out));
}

// Every subcommand that writes a file, with what it needs besides --data and --output.
const std::vector<std::vector<std::string>> kWritingCommands = {
    {"report", "frmbjiouhe"},       {"miss-lengths", "frmzu3leixing2", "12"},
    {"next-box-numbers"},           {"export320"},
    {"enquire", "straight", "123"},
};

std::vector<std::string> With(std::vector<std::string> args,
                              std::initializer_list<std::string> more) {
    args.insert(args.end(), more);
    return args;
}

// A program folder whose current lottery is data/Mine.txt, and a drawings file elsewhere.
class CliFolder : public ::testing::Test {
protected:
    void SetUp() override {
        dir.Write("data/Mine.txt", kDrawings);
        WriteSelection(folder.SelectionFile(), "Mine.txt");
        elsewhere = dir.Write("elsewhere/my.txt", kDrawings);
        std::filesystem::create_directory_symlink(dir.path() / "elsewhere", dir.path() / "link");
    }
    // The files no command may change.
    std::vector<std::string> Kept() const {
        return {ReadAll(folder.DataDir() / "Mine.txt"), ReadAll(elsewhere),
                ReadAll(folder.SelectionFile())};
    }

    // Enough drawings for every command to have something to write.
    const std::string kDrawings = testing::HistoryText(300, 7, 2020001);
    TempDir dir;
    ProgramFolder folder{dir.path()};
    std::filesystem::path elsewhere;
};

TEST_F(CliFolder, OutputIsNeverTheDrawingsFileItReadsNorTheSelection) {
    const std::filesystem::path cwd = std::filesystem::current_path();
    std::filesystem::current_path(dir.path() / "elsewhere");
    const auto targets = ReadCases("cli/cases/never_written_over.txt", 1);
    const auto kept = Kept();
    for (const auto& command : kWritingCommands) {
        for (const Case& target : targets) {
            auto args = command;
            for (const std::string& arg : Words(
                     Fill(target[0], {{"data", elsewhere.string()}, {"dir", dir.path().string()}})))
                args.push_back(arg);
            CliRun run = RunCliWith(args, dir.path());
            EXPECT_EQ(run.code, 1) << args[0] << " " << target.where;
            EXPECT_EQ(Lines(run.err), 1) << run.err;
            EXPECT_NE(run.err.find("never written over"), std::string::npos) << run.err;
            EXPECT_EQ(Kept(), kept);
        }
    }
    // Import writes into its --into file, never into the selection.
    auto results = dir.Write("results.csv", "Date,Number\n2031-01-02,987\n");
    CliRun import = RunCliWith(
        {"import", results.string(), "--into", "../Numarel/shujuwenjian.ini"}, dir.path());
    EXPECT_EQ(import.code, 1);
    EXPECT_NE(import.err.find("never written over"), std::string::npos) << import.err;
    EXPECT_EQ(Kept(), kept);
    std::filesystem::current_path(cwd);
}

TEST_F(CliFolder, AFailedOutputLeavesTheOldFileAsItWas) {
    auto old = dir.Write("out/sheet.csv", "an earlier sheet\r\n");
    for (const auto& command : kWritingCommands) {
        CliRun run;
        {
            ScopedWriteFault full(WriteStep::Write, ENOSPC);
            run = RunCliWith(With(command, {"--output", old.string()}), dir.path());
        }
        EXPECT_EQ(run.code, 1) << command[0];
        EXPECT_EQ(run.err, "numarel-cli: Cannot write \"" + old.string() +
                               "\": the disk is full. The file was left as it was.\n");
        EXPECT_EQ(ReadAll(old), "an earlier sheet\r\n");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(old.parent_path()), {}), 1);
    }
}

TEST_F(CliFolder, ASelectionThatIsNotALotteryIsOneLineAndNeverReadOrRewritten) {
    // Valid drawings outside data\: a selection naming them must never produce their report.
    dir.Write("outside.txt", "2031001 9 8 7\r\n");
    for (const Case& selection : ReadCases("cli/cases/selections.txt", 1)) {
        dir.Write("Numarel/shujuwenjian.ini", Fill(selection[0], {{"dir", dir.path().string()}}));
        const auto kept = Kept();
        for (const auto& command : kWritingCommands) {
            CliRun run = RunCliWith(command, dir.path());
            EXPECT_EQ(run.code, 1) << selection.where << command[0];
            EXPECT_EQ(Lines(run.err), 1) << run.err;
            EXPECT_NE(run.err.find("--data"), std::string::npos) << run.err;
            EXPECT_EQ(run.out.find("2031001"), std::string::npos);
            EXPECT_EQ(Kept(), kept);
            EXPECT_EQ(ReadAll(dir.path() / "outside.txt"), "2031001 9 8 7\r\n");
        }
    }
}

// The real program, with its standard output on a device that is always full, or that device as
// its output file, which is refused as no plain file.
TEST_F(CliFolder, EveryFailedWriteExitsNonZeroWithOneLineNamingTheTargetAndTheReason) {
    const auto cli = std::filesystem::canonical("/proc/self/exe").parent_path() / "numarel-cli";
    ASSERT_TRUE(std::filesystem::exists(cli));
    const std::string data = elsewhere.string();
    struct Case {
        std::vector<std::string> args;
        bool toStandardOutput;
    };
    std::vector<Case> cases = {{{"list"}, true}, {{"--help"}, true}};
    for (const auto& command : kWritingCommands) {
        ASSERT_FALSE(RunCliWith(With(command, {"--data", data}), dir.path()).out.empty());
        cases.push_back({With(command, {"--data", data}), true});
        cases.push_back({With(command, {"--data", data, "--output", "/dev/full"}), false});
    }
    cases.push_back({{"report", "frmbjiouhe", "--data", data, "--tail", "0"}, true});
    const auto errFile = dir.path() / "err.txt";
    for (const Case& c : cases) {
        std::string line = cli.string();
        for (const std::string& a : c.args)
            line += " '" + a + "'";
        line += (c.toStandardOutput ? " >/dev/full" : " >/dev/null") + (" 2>" + errFile.string());
        int status = std::system(line.c_str());
        ASSERT_TRUE(WIFEXITED(status)) << line;
        EXPECT_EQ(WEXITSTATUS(status), 1) << line;
        const std::string err = ReadAll(errFile);
        EXPECT_EQ(err, c.toStandardOutput
                           ? "numarel-cli: cannot write to standard output: the disk is full.\n"
                           : "numarel-cli: Cannot write \"/dev/full\": it is a device, not a "
                             "plain file.\n")
            << line;
    }
    EXPECT_EQ(Kept()[1], kDrawings);
}

TEST(Cli, ListShowsTheWholeCommandTableAndWithoutDataTheSelectedLotteryIsUsed) {
    TempDir dir;
    CliRun run = RunCliWith({"list"}, dir.path());
    ASSERT_EQ(run.code, 0);
    EXPECT_EQ(run.out, ReadAll(Fixture("cli/cases/list.expected"))) << "cli/cases/list.expected";

    dir.Write("data/Mine.txt", "2020001 9 9 9\r\n");
    WriteSelection(ProgramFolder{dir.path()}.SelectionFile(), "Mine.txt");
    CliRun mine = RunCliWith({"report", "frmbjiouhe", "--format", "csv"}, dir.path());
    ASSERT_EQ(mine.code, 0) << mine.err;
    EXPECT_NE(mine.out.find(" 2020001:999"), std::string::npos);
}

TEST(ReportNames, ObjectsAndCaptionsInAnyCaseTheClosestForAnUnknownNameAndTheVersion) {
    for (const Case& c : ReadCases("cli/cases/report_names.txt", 2))
        EXPECT_EQ(FindReportByName(c[0]), c[1]) << c.where;
    EXPECT_EQ(ClosestCaptions("warm", 1).front(), "Cold Warm Hot");
    EXPECT_EQ(ClosestCaptions("zzzz").size(), 5u);

    TempDir dir;
    auto data = dir.Write("small.txt", "2020001 1 2 3\r\n2020002 0 0 0\r\n");
    CliRun unknown = RunCliWith({"report", "cold wram hot", "--data", data.string()}, dir.path());
    EXPECT_EQ(unknown.code, 1);
    EXPECT_NE(unknown.err.find("\"Cold Warm Hot\""), std::string::npos) << unknown.err;
    EXPECT_EQ(Lines(unknown.err), 1);
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

TEST(ReportCommand, AllWritesEveryReportAndAnIndexByGroupAndGoesOnPastAFailure) {
    TempDir dir;
    auto data = dir.Write("Mine.txt", "2020001 1 2 3\r\n2020002 4 5 6\r\n2020003 0 0 0\r\n");
    auto folder = dir.path() / "out";
    for (std::string format : {"html", "csv", "json", "pdf"}) {
        CliRun run = RunCliWith({"report", "--all", "--data", data.string(), "--format", format,
                                 "--output", (folder / format).string()},
                                dir.path());
        EXPECT_EQ(run.code, 0) << run.err;
        std::size_t files = 0;
        for (auto& entry : std::filesystem::directory_iterator(folder / format)) {
            EXPECT_EQ(entry.path().extension(), "." + format);
            ++files;
        }
        // HTML adds the contents page and the scoreboard.
        EXPECT_EQ(files, BuiltReports() + (format == "html" ? 2 : 0)) << format;
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
    EXPECT_NE(index.find("<a href=\"scoreboard.html\">Scoreboard</a>"), std::string::npos);
    EXPECT_NE(ReadAll(folder / "html" / "scoreboard.html").find("frmtongshahao"),
              std::string::npos);
    EXPECT_NE(index.find("<a href=\"frmrenwenleng.html\">Cold Warm Hot</a><span class=\"size\">"),
              std::string::npos);
    // The lottery with its drawings; each page names it too.
    EXPECT_NE(index.find("<h1>Mine</h1>\n<p class=\"lottery\">3 drawings, 2020001 to 2020003</p>"),
              std::string::npos);
    EXPECT_NE(ReadAll(folder / "html" / "frmbjiouhe.html")
                  .find("Mine: <span id=\"draw-count\">3</span> drawings, 2020001 to 2020003"),
              std::string::npos);
    EXPECT_EQ(ReadAll(folder / "pdf" / "frmbjiouhe.pdf").rfind("%PDF-", 0), 0u);

    // It goes on past a failure and says so.
    auto failing = dir.path() / "failing";
    std::filesystem::create_directories(failing / "frmbjiouhe.csv");  // cannot become a file
    CliRun run = RunCliWith({"report", "--all", "--data", data.string(), "--format", "csv",
                             "--output", failing.string()},
                            dir.path());
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("frmbjiouhe"), std::string::npos) << run.err;
    EXPECT_TRUE(std::filesystem::exists(failing / "frmrenwenleng.csv"));

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

// The newest drawings as asked, or those that fill a page; the page names the lottery.
TEST(ReportCommand, PdfPrintsTheNewestDrawings) {
    TempDir dir;
    std::string drawings;
    for (int i = 1; i <= 300; ++i)
        drawings += std::to_string(2020000 + i) + " " + std::to_string(i % 10) + " 2 3\r\n";
    auto data = dir.Write("Daily.txt", drawings);
    auto pdf = dir.path() / "tail.pdf";
    CliRun run = RunCliWith({"report", "frmbjiouhe", "--data", data.string(), "--format", "pdf",
                             "--tail", "2", "--output", pdf.string()},
                            dir.path());
    ASSERT_EQ(run.code, 0) << run.err;
    ASSERT_EQ(ReadAll(pdf).rfind("%PDF-", 0), 0u);
    if (std::system("command -v pdftotext > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "pdftotext is not installed";
    auto text = dir.path() / "tail.txt";
    ASSERT_EQ(std::system(("pdftotext '" + pdf.string() + "' '" + text.string() + "'").c_str()), 0);
    const std::string content = ReadAll(text);
    EXPECT_NE(content.find("Sum of Odd-Sum of Even"), std::string::npos);
    EXPECT_NE(content.find("Daily: 2020001 to 2020300, 300 drawings"), std::string::npos);
    EXPECT_NE(content.find("2020300:023"), std::string::npos);
    EXPECT_NE(content.find("2020299:923"), std::string::npos);
    EXPECT_EQ(content.find("2020298:"), std::string::npos);
    EXPECT_NE(content.find("page 1 of 1"), std::string::npos);
}

// numarel-cli import with `args`.
CliRun Cli(std::vector<std::string> args, const ProgramFolder& folder) {
    args.insert(args.begin(), "import");
    return testing::RunCliWith(args, folder);
}

const char* const kSource =
    "Draw Date,Midday,Evening,Sum\r\n09/02/2021,315,62,9\r\n09/01/2021,7,950,14\r\n";

TEST(ImportCommand, ImportsOnceAndSaysWhatItDidWithColumnsFoundNamedOrPiped) {
    TempDir dir;
    ProgramFolder folder{dir.path()};
    const std::string source = dir.Write("results.csv", kSource).string();
    const std::string file = (dir.path() / "mine.txt").string();

    CliRun dry = Cli({source, "--into", file, "--dry-run"}, folder);
    EXPECT_NE(dry.out.find("Dry run: nothing was written."), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(file));

    CliRun first = Cli({source, "--into", file}, folder);
    ASSERT_EQ(first.code, 0) << first.err;
    EXPECT_EQ(ReadAll(file),
              "2021001 0 0 7\r\n2021002 9 5 0\r\n2021003 3 1 5\r\n2021004 0 6 2\r\n");
    EXPECT_EQ(first.out,
              Fill(ReadAll(Fixture("cli/cases/import_summary.expected")), {{"file", file}}));

    CliRun again = Cli({source, "--into", file}, folder);
    EXPECT_EQ(again.code, 0);
    EXPECT_NE(again.out.find("Already present: 4\n"), std::string::npos);
    EXPECT_NE(again.out.find("Nothing new"), std::string::npos);

    // A lottery of data\, created when missing; the Date field as asked.
    std::filesystem::create_directories(folder.DataDir());
    CliRun lottery = Cli({source, "--lottery", "Daily", "--dates", "ymd"}, folder);
    EXPECT_EQ(lottery.code, 0) << lottery.err;
    EXPECT_EQ(ReadAll(folder.DataDir() / "Daily.txt").substr(0, 16), "20210901 0 0 7\r\n");

    // Columns named outright.
    const std::string named =
        dir.Write("r.txt", "n;when;x;y\n1;2021-05-01;123;456\n2;2021-05-02;789;012\n").string();
    const std::string namedInto = (dir.path() / "d.txt").string();
    // The day's drawings in the order given: y first.
    CliRun run = Cli({named, "--into", namedInto, "--date-column", "When", "--digits-column", "y",
                      "--digits-column", "3", "--date-format", "yyyy-mm-dd"},
                     folder);
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(ReadAll(namedInto),
              "2021001 4 5 6\r\n2021002 1 2 3\r\n2021003 0 1 2\r\n2021004 7 8 9\r\n");

    ImportCommand command;
    command.source = "-";
    command.into = (dir.path() / "piped.txt").string();
    std::istringstream in("2021-05-03 7 8 9\n");
    std::ostringstream out, err;
    EXPECT_EQ(RunImportCommand(command, folder, in, out, err), 0) << err.str();
    EXPECT_EQ(ReadAll(command.into), "2021001 7 8 9\r\n");
}

// The import's own refusals are pinned with the import; here those of the command line.
TEST(ImportCommand, RefusalsAreOneLineAndLeaveTheFileAsItWas) {
    TempDir dir;
    ProgramFolder folder{dir.path()};
    const std::string kept = "2021001 0 0 7\r\n";
    dir.Write("d.txt", kept);
    dir.Write("good.csv", kSource);
    for (const Case& c : ReadCases("cli/cases/import_refusals.txt", 3)) {
        CliRun run = Cli(Words(Fill(c[0], {{"dir", dir.path().string()}})), folder);
        EXPECT_EQ(run.code, std::stoi(c[1])) << c.where << " " << run.err;
        EXPECT_EQ(Lines(run.err), 1) << c.where << run.err;
        EXPECT_NE(run.err.find(c[2]), std::string::npos) << c.where << run.err;
        EXPECT_EQ(ReadAll(dir.path() / "d.txt"), kept) << c.where;
    }
}

}  // namespace
}  // namespace numarel
