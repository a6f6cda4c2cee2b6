#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>
#include <sstream>
#include <streambuf>

#include "cli/cli_run.h"
#include "cli/import_command.h"
#include "data/file_io.h"
#include "data/lottery_catalog.h"
#include "data/lottery_commands.h"
#include "support/case_file.h"
#include "support/test_support.h"

namespace numarel {
namespace {

namespace fs = std::filesystem;
using testing::Case;
using testing::CliRun;
using testing::Fill;
using testing::Has;
using testing::Lines;
using testing::ReadAll;
using testing::ReadCases;
using testing::RunCliWith;
using testing::TempDir;

fs::path CliProgram() {
    return fs::canonical("/proc/self/exe").parent_path() / "numarel-cli";
}

// Runs a shell command line; its exit status, or -1 when a signal ended it.
int Shell(const std::string& line) {
    int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string Quote(const fs::path& path) {
    return "'" + path.string() + "'";
}

// A results source with one drawing a day, the first `days` of cli/cases/60_days.csv.
std::string Results(int days) {
    static const std::string all = ReadAll(testing::Fixture("cli/cases/60_days.csv"));
    std::size_t end = 0;
    for (int d = 0; d < days; ++d)
        end = all.find('\n', end) + 1;
    return all.substr(0, end);
}

// Two imports into one file at the same moment, round after round: one adds a day, the other two.
// Whichever comes second reads what the first wrote, so every drawing arrives, and both say so.
TEST(WritersTakeTurns, TwoImportsAtOnceLoseNoDrawing) {
    TempDir dir;
    const fs::path file = dir.path() / "Daily.txt";
    constexpr int kRounds = 30;
    std::vector<DrawRecord> records;
    for (int round = 0; round < kRounds; ++round) {
        const fs::path a = dir.Write("a.csv", Results(2 * round + 1));
        const fs::path b = dir.Write("b.csv", Results(2 * round + 2));
        const std::string import =
            CliProgram().string() + " import --dates ymd --into " + Quote(file) + " ";
        const std::string line = "cd " + Quote(dir.path()) + " && { (" + import + Quote(a) +
                                 " >out-a 2>err-a; echo $? >code-a) & (" + import + Quote(b) +
                                 " >out-b 2>err-b; echo $? >code-b) & wait; }";
        ASSERT_EQ(Shell(line), 0);
        for (std::string_view which : {"a", "b"}) {
            const std::string code = ReadAll(dir.path() / ("code-" + std::string(which)));
            EXPECT_EQ(code, "0\n") << "round " << round << " " << which << ": "
                                   << ReadAll(dir.path() / ("err-" + std::string(which)));
        }
        ASSERT_TRUE(ReadHistory(file, records).ok());
        ASSERT_EQ(records.size(), static_cast<std::size_t>(2 * round + 2)) << "round " << round;
    }
    // Every day once, in order, and no lock file left.
    EXPECT_EQ(records.front().date, "20210101");
    EXPECT_EQ(records.back().date, "20210304");  // day 60
    EXPECT_FALSE(fs::exists(DrawingsFileLock::LockFileOf(file)));
}

// A stream that never ends, as `yes | numarel-cli import -`.
class EndlessInput : public std::streambuf {
public:
    EndlessInput() : block_(1 << 16, '7') { setg(block_.data(), block_.data(), EndOfBlock()); }
    std::size_t given = 0;

protected:
    int_type underflow() override {
        given += block_.size();
        setg(block_.data(), block_.data(), EndOfBlock());
        return traits_type::to_int_type(block_[0]);
    }

private:
    char* EndOfBlock() { return block_.data() + block_.size(); }
    std::string block_;
};

TEST(StandardInput, MoreThanTheCapIsRefusedInOneLine) {
    TempDir dir;
    ProgramFolder folder{dir.path()};
    ImportCommand command;
    command.source = "-";
    command.into = (dir.path() / "d.txt").string();
    EndlessInput endless;
    std::istream in(&endless);
    std::ostringstream out, err;
    EXPECT_EQ(RunImportCommand(command, folder, in, out, err), 1);
    EXPECT_EQ(err.str(),
              "numarel-cli: Standard input holds more than 64 MB, more than any results file; it "
              "was not read.\n");
    EXPECT_LE(endless.given, kMaxReadBytes + (1u << 17));  // it stopped reading there
    EXPECT_TRUE(out.str().empty());
    EXPECT_FALSE(fs::exists(command.into));

    // The real program on an endless pipe: one line and exit 1, never an abort or a hang.
    const std::string line = "yes 2021-01-01,123 | timeout 60 " + CliProgram().string() +
                             " import - --into " + Quote(command.into) + " 2>" +
                             Quote(dir.path() / "err") + " >/dev/null";
    EXPECT_EQ(Shell("bash -c 'set -o pipefail; " + line + "; exit ${PIPESTATUS[1]}'"), 1);
    EXPECT_EQ(Lines(ReadAll(dir.path() / "err")), 1) << ReadAll(dir.path() / "err");
    EXPECT_FALSE(fs::exists(command.into));
}

// A pipe as the drawings file, the results file, the selection file, a lottery or the output:
// refused in one line at once. `timeout` turns a wait into a failure instead of a hung test.
TEST(OddFiles, APipeAnywhereIsRefusedWithoutWaiting) {
    TempDir dir;
    const fs::path fifo = dir.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    dir.Write("home/data/Daily.txt", "2021001 1 2 3\r\n");
    ASSERT_EQ(::mkfifo((dir.path() / "home/data/Piped.txt").c_str(), 0600), 0);
    fs::create_directories(dir.path() / "home/Numarel");
    ASSERT_EQ(::mkfifo((dir.path() / "home/Numarel/shujuwenjian.ini").c_str(), 0600), 0);
    const fs::path drawings = dir.Write("d.txt", "2021001 1 2 3\r\n");
    const fs::path results = dir.Write("r.csv", "2021-01-02,456\n");
    for (const Case& c : ReadCases("cli/cases/pipes.txt", 1)) {
        const std::string args = Fill(
            c[0],
            {{"fifo", Quote(fifo)}, {"drawings", Quote(drawings)}, {"results", Quote(results)}});
        const std::string line = "NUMAREL_HOME=" + Quote(dir.path() / "home") + " timeout 10 " +
                                 CliProgram().string() + " " + args + " >/dev/null 2>" +
                                 Quote(dir.path() / "err");
        const int code = Shell(line);
        EXPECT_NE(code, 124) << c.where << ": it waited";
        EXPECT_NE(code, 0) << c.where;
        const std::string err = ReadAll(dir.path() / "err");
        EXPECT_EQ(Lines(err), 1) << c.where << ": " << err;
        EXPECT_TRUE(Has(err, "pipe") || Has(err, "selection")) << c.where << ": " << err;
    }
    EXPECT_EQ(ReadAll(drawings), "2021001 1 2 3\r\n");
}

// One rule for lottery names, in New Lottery and in import --lottery: the same names pass, and a
// refusal names the same rule in both.
TEST(LotteryNameRule, TheSameInBothPrograms) {
    for (const Case& c : ReadCases("cli/cases/lottery_names.txt", 1)) {
        const std::string& name = c[0];
        SCOPED_TRACE(c.where);
        TempDir dir;
        ProgramFolder folder{dir.path()};
        fs::create_directories(folder.DataDir());
        const fs::path source = dir.Write("r.csv", "2021-01-02,456\n");
        const std::string rule = LotteryNameProblem(name);

        LotteryChange desktop = NewLottery(folder, name);
        CliRun cli = RunCliWith({"import", source.string(), "--lottery", name}, folder);
        EXPECT_EQ(desktop.changed, rule.empty()) << desktop.message.text;
        EXPECT_EQ(cli.code == 0, rule.empty()) << cli.err;
        if (rule.empty()) continue;
        EXPECT_EQ(cli.code, 2);
        EXPECT_EQ(Lines(cli.err), 1) << cli.err;
        EXPECT_TRUE(Has(cli.err, rule)) << cli.err;
        EXPECT_TRUE(Has(desktop.message.text, rule)) << desktop.message.text;
        // Nothing was made anywhere.
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.DataDir()), {}), 0);
    }
}

TEST(OutputOption, EmptyIsRefusedDashIsStandardOutputAndTheDataFolderIsNoTarget) {
    TempDir dir;
    ProgramFolder folder{dir.path()};
    const fs::path data = dir.Write("data/Daily.txt", "2021001 1 2 3\r\n2021002 4 5 6\r\n");
    WriteSelection(folder.SelectionFile(), "Daily.txt");
    dir.Write("help/Index.htm", "");

    CliRun empty = RunCliWith({"report", "frmbjiouhe", "--output", ""}, folder);
    EXPECT_EQ(empty.code, 2);
    EXPECT_EQ(empty.err, "numarel-cli: --output needs a file name (- for standard output)\n");
    EXPECT_TRUE(empty.out.empty());

    CliRun dash = RunCliWith({"report", "frmbjiouhe", "--output", "-"}, folder);
    EXPECT_EQ(dash.code, 0) << dash.err;
    EXPECT_EQ(dash.out, RunCliWith({"report", "frmbjiouhe"}, folder).out);
    EXPECT_FALSE(fs::exists("-"));

    // A file of the data folder would stand as a lottery; so would every file of --all there.
    CliRun one = RunCliWith(
        {"report", "frmbjiouhe", "--output", (folder.DataDir() / "sheet.txt").string()}, folder);
    EXPECT_EQ(one.code, 1);
    EXPECT_TRUE(Has(one.err, "is in the data folder")) << one.err;
    for (const Case& c : ReadCases("cli/cases/output_folders.txt", 2)) {
        const std::string target = Fill(c[0], {{"dir", dir.path().string()}});
        CliRun all = RunCliWith({"report", "--all", "--output", target}, folder);
        EXPECT_EQ(all.code, 1) << c.where;
        EXPECT_EQ(Lines(all.err), 1) << c.where << all.err;
        EXPECT_TRUE(Has(all.err, c[1])) << c.where << all.err;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.DataDir()), {}), 1);
    EXPECT_EQ(ReadAll(data), "2021001 1 2 3\r\n2021002 4 5 6\r\n");

    // Why a folder cannot be made, and a file where a folder should be.
    const fs::path afile = dir.Write("afile", "x");
    CliRun inFile = RunCliWith({"report", "--all", "--output", (afile / "out").string()}, folder);
    EXPECT_EQ(inFile.err, "numarel-cli: cannot make the folder \"" + (afile / "out").string() +
                              "\": \"" + afile.string() + "\" is a file, not a folder\n");
    CliRun isFile = RunCliWith({"report", "--all", "--output", afile.string()}, folder);
    EXPECT_TRUE(Has(isFile.err, "it is a file, not a folder")) << isFile.err;
    fs::create_symlink("loop", dir.path() / "loop");
    CliRun loop =
        RunCliWith({"report", "frmbjiouhe", "--data", (dir.path() / "loop").string()}, folder);
    EXPECT_TRUE(Has(loop.err, "loop of links")) << loop.err;
}

// The summary says what was added only once it was: a write that fails added nothing.
TEST(ImportSummary, AFailedWriteAddsNothingInTheSummary) {
    TempDir dir;
    ProgramFolder folder{dir.path()};
    const fs::path file = dir.Write("d.txt", "20210101 1 2 3\r\n");
    const fs::path source = dir.Write("r.csv", Results(3));
    CliRun run;
    {
        ScopedWriteFault full(WriteStep::Write, ENOSPC);
        run = RunCliWith({"import", source.string(), "--into", file.string(), "--dates", "ymd"},
                         folder);
    }
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(Has(run.out, "Added: none\n")) << run.out;
    EXPECT_FALSE(Has(run.out, "Written")) << run.out;
    EXPECT_TRUE(Has(run.err, "the disk is full")) << run.err;
    EXPECT_EQ(ReadAll(file), "20210101 1 2 3\r\n");
}

}  // namespace
}  // namespace numarel
