#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cerrno>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/cli_run.h"
#include "cli/sheet_format.h"
#include "data/drawings_file.h"
#include "data/file_io.h"
#include "data/lottery_catalog.h"
#include "reports/command_table.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::CliRun;
using testing::ReadAll;
using testing::RunCliWith;
using testing::TempDir;

// The cells are the reports' own, pinned with them; here the shape of each format.
TEST(Cli, JsonOfASmallFileFollowsTheContract) {
    TempDir dir;
    auto data = dir.Write("small.txt", "2020001 1 2 3\r\n2020002 0 0 0\r\n");
    CliRun run = RunCliWith({"report", "frmbjiouhe", "--data", data.string(), "--format", "json"},
                            dir.path());
    ASSERT_EQ(run.code, 0) << run.err;
    auto doc = nlohmann::json::parse(run.out);
    EXPECT_EQ(doc.size(), 7u);
    EXPECT_EQ(doc["report"], "frmbjiouhe");
    EXPECT_EQ(doc["title"], "Sum of Odd-Sum of Even");
    EXPECT_EQ(doc["rows"], 4);
    EXPECT_EQ(doc["cols"], 61);
    EXPECT_EQ(doc["colWidths"].size(), 61u);
    EXPECT_EQ(doc["colWidths"][0], 1290);
    EXPECT_EQ(doc["rowHeights"], nlohmann::json::array());
    auto cells = doc["cells"];
    for (nlohmann::json cell : {nlohmann::json{1, 11, "4", "#b6dbaa", nullptr},
                                nlohmann::json{1, 0, " 2020001:123", nullptr, nullptr}})
        EXPECT_NE(std::find(cells.begin(), cells.end(), cell), cells.end()) << cell;
    // Row-major order.
    for (std::size_t i = 1; i < cells.size(); ++i) {
        auto a = std::make_pair(cells[i - 1][0].get<int>(), cells[i - 1][1].get<int>());
        auto b = std::make_pair(cells[i][0].get<int>(), cells[i][1].get<int>());
        EXPECT_LT(a, b);
    }
}

// The grid-line colour is the one key a report adds only when it has a colour of its own.
TEST(Cli, GridLinesInAReportsOwnColourReachJsonAndHtml) {
    TempDir dir;
    auto data = dir.Write("small.txt", "2020001 1 2 3\r\n2020002 3 0 7\r\n");
    const struct {
        const char* report;
        const char* gridColour;  // nullptr: the key is absent
        const char* htmlLine;
    } cases[] = {
        {"frmbjiouhe", nullptr, "#c0c0c0"},
        {"frmliangmahecha", "#00c000", "#00c000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.report);
        CliRun json = RunCliWith({"report", c.report, "--data", data.string(), "--format", "json"},
                                 dir.path());
        ASSERT_EQ(json.code, 0) << json.err;
        auto doc = nlohmann::json::parse(json.out);
        EXPECT_EQ(doc.contains("gridColour"), c.gridColour != nullptr);
        if (c.gridColour) EXPECT_EQ(doc.value("gridColour", ""), c.gridColour);
        CliRun html = RunCliWith({"report", c.report, "--data", data.string(), "--format", "html"},
                                 dir.path());
        ASSERT_EQ(html.code, 0) << html.err;
        EXPECT_NE(html.out.find(std::string("border-right:1px solid ") + c.htmlLine),
                  std::string::npos);
    }
}

// A report with three rows a drawing shows all three rows of each drawing the tail asks for.
TEST(Cli, TextTailCountsDrawingsNotRowsAndCsvGoesToTheOutputFile) {
    TempDir dir;
    auto data = dir.Write("small.txt", "2020001 1 2 3\r\n2020002 3 0 7\r\n");
    CliRun run = RunCliWith({"report", "frmliangmahecha", "--data", data.string(), "--tail", "1"},
                            dir.path());
    ASSERT_EQ(run.code, 0) << run.err;
    std::vector<std::string> lines;
    std::istringstream in(run.out);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    // Title, header, the three rows of the last drawing, the two empty rows closing the sheet.
    ASSERT_EQ(lines.size(), 7u) << run.out;
    EXPECT_EQ(lines[2].substr(0, lines[2].find(" |")), " 2020002:307(H\u00b1T)");
    // Columns line up by characters: the bar stands where the header's does.
    EXPECT_EQ(lines[2].find('|') - 1, lines[1].find('|'));

    auto out = dir.path() / "sheet.csv";
    CliRun csv = RunCliWith({"report", "frmbjiouhe", "--data", data.string(), "--format", "csv",
                             "--output", out.string()},
                            dir.path());
    ASSERT_EQ(csv.code, 0) << csv.err;
    EXPECT_TRUE(csv.out.empty());
    EXPECT_EQ(ReadAll(out).substr(0, 9), ",H,T,U,,,");  // the header row, its fixed cell empty
}

TEST(Cli, ErrorsSayOneLineExitNonZeroAndWriteNothing) {
    TempDir dir;
    auto out = dir.path() / "never.json";
    auto good = dir.Write("good.txt", "1 1 2 3\r\n");
    std::string big;
    for (std::size_t i = 0; i <= kMaxDrawings; ++i)
        big += "1 1 2 3\r\n";
    auto tooMany = dir.Write("big.txt", big);
    const std::vector<std::vector<std::string>> failing = {
        {"report", "frmbjiouhe", "--data", (dir.path() / "missing.txt").string()},
        {"report", "frmbjiouhe", "--data", tooMany.string()},
        {"report", "frmbjiouhe", "--data", dir.path().string()},  // a folder
        {"report", "frmnosuch", "--data", good.string()},
        {"report", "frmbjiouhe", "--data", good.string(), "--format", "xml"},
        {"report"},
        {},
    };
    for (auto args : failing) {
        args.push_back("--output");
        args.push_back(out.string());
        CliRun run = RunCliWith(args, dir.path());
        EXPECT_NE(run.code, 0) << run.out;
        EXPECT_FALSE(run.err.empty());
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_FALSE(std::filesystem::exists(out));
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
    auto doc = nlohmann::json::parse(run.out);
    EXPECT_EQ(doc["report"], "frmzuxuanhaocx");
    EXPECT_EQ(doc["title"], "Box Number Enquire");
    EXPECT_EQ(doc["cols"], 5 + 3 + 1);
    auto cells = doc["cells"];
    EXPECT_NE(std::find(cells.begin(), cells.end(), nlohmann::json{0, 6, "456", nullptr, nullptr}),
              cells.end());

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
    static std::string History() {
        std::string bytes;
        for (int i = 0; i < 300; ++i)
            bytes += std::to_string(2020001 + i) + " " + std::to_string(i * 7 % 10) + " " +
                     std::to_string(i * 3 % 10) + " " + std::to_string(i * i % 10) + "\r\n";
        return bytes;
    }
    const std::string kDrawings = History();
    TempDir dir;
    ProgramFolder folder{dir.path()};
    std::filesystem::path elsewhere;
};

TEST_F(CliFolder, OutputIsNeverTheDrawingsFileItReadsNorTheSelection) {
    const std::filesystem::path cwd = std::filesystem::current_path();
    std::filesystem::current_path(dir.path() / "elsewhere");
    const std::string data = elsewhere.string();
    const std::vector<std::vector<std::string>> targets = {
        {"--data", data, "--output", "my.txt"},  // relative
        {"--data", data, "--output", (dir.path() / "data/../elsewhere/my.txt").string()},
        {"--data", data, "--output", (dir.path() / "link" / "my.txt").string()},  // a link
        {"--data", "../link/my.txt", "--output", data},
        {"--output", (folder.DataDir() / "Mine.txt").string()},  // the current lottery
        {"--data", data, "--output", "../Numarel/shujuwenjian.ini"},
    };
    const auto kept = Kept();
    for (const auto& command : kWritingCommands) {
        for (const auto& target : targets) {
            auto args = command;
            args.insert(args.end(), target.begin(), target.end());
            CliRun run = RunCliWith(args, dir.path());
            EXPECT_EQ(run.code, 1) << args[0] << " " << target.back();
            EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
            EXPECT_NE(run.err.find("never written over"), std::string::npos) << run.err;
            EXPECT_EQ(Kept(), kept);
        }
    }
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
    const std::string selections[] = {
        "\"../outside.txt\"\r\n",
        "\"" + (dir.path() / "outside.txt").string() + "\"\r\n",
        "\"Gone.txt\"\r\n",
        "\"a\" \"b\" \"c\" \"d\" \"../outside.txt\"",
    };
    for (const std::string& selection : selections) {
        dir.Write("Numarel/shujuwenjian.ini", selection);
        const auto kept = Kept();
        for (const auto& command : kWritingCommands) {
            CliRun run = RunCliWith(command, dir.path());
            EXPECT_EQ(run.code, 1) << selection << command[0];
            EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
            EXPECT_NE(run.err.find("--data"), std::string::npos) << run.err;
            EXPECT_EQ(run.out.find("2031001"), std::string::npos);
            EXPECT_EQ(Kept(), kept);
            EXPECT_EQ(ReadAll(dir.path() / "outside.txt"), "2031001 9 8 7\r\n");
        }
    }
}

// The real program, with its standard output or its output file on a device that is always full.
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
                           : "numarel-cli: Cannot write \"/dev/full\": the disk is full.\n")
            << line;
    }
    EXPECT_EQ(Kept()[1], kDrawings);
}

TEST(Cli, ListShowsTheWholeCommandTableAndWithoutDataTheSelectedLotteryIsUsed) {
    TempDir dir;
    CliRun run = RunCliWith({"list"}, dir.path());
    ASSERT_EQ(run.code, 0);
    std::size_t lines = std::count(run.out.begin(), run.out.end(), '\n');
    EXPECT_EQ(lines, CommandTable().size() + 1);
    EXPECT_NE(
        run.out.find("Others\tSum of Odd-Sum of Even\tfrmbjiouhe\tSum_of_Odd-Sum_of_Even\tyes"),
        std::string::npos);
    EXPECT_NE(run.out.find("Box Pairs\t(separator)"), std::string::npos);

    dir.Write("data/Mine.txt", "2020001 9 9 9\r\n");
    WriteSelection(ProgramFolder{dir.path()}.SelectionFile(), "Mine.txt");
    CliRun mine = RunCliWith({"report", "frmbjiouhe", "--format", "csv"}, dir.path());
    ASSERT_EQ(mine.code, 0) << mine.err;
    EXPECT_NE(mine.out.find(" 2020001:999"), std::string::npos);
}

}  // namespace
}  // namespace numarel
