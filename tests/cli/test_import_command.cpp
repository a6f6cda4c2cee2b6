#include <gtest/gtest.h>

#include <sstream>

#include "cli/cli_run.h"
#include "cli/import_command.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::CliRun;
using testing::ReadAll;
using testing::TempDir;

// numarel-cli import with `args`.
CliRun Cli(std::vector<std::string> args, const ProgramFolder& folder) {
    args.insert(args.begin(), "import");
    return testing::RunCliWith(args, folder);
}

int Lines(const std::string& text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

const char* const kSource =
    "Draw Date,Midday,Evening,Sum\r\n09/02/2021,315,62,9\r\n09/01/2021,7,950,14\r\n";

TEST(ImportCommand, ImportsOnceAndSaysWhatItDid) {
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
              "Columns: separated by commas, header on line 1; dates in \"Draw Date\" "
              "(MM/DD/YYYY); digits in \"Midday\", then \"Evening\"\n"
              "Drawings found: 4\nAdded: 4, dated 2021001 to 2021004\nAlready present: 0\n"
              "Conflicts: 0\nLines not used: 0\nWritten to \"" +
                  file + "\".\n");

    CliRun again = Cli({source, "--into", file}, folder);
    EXPECT_EQ(again.code, 0);
    EXPECT_NE(again.out.find("Already present: 4\n"), std::string::npos);
    EXPECT_NE(again.out.find("Nothing new"), std::string::npos);

    // A lottery of data\, created when missing; the Date field as asked.
    std::filesystem::create_directories(folder.DataDir());
    CliRun lottery = Cli({source, "--lottery", "Daily", "--dates", "ymd"}, folder);
    EXPECT_EQ(lottery.code, 0) << lottery.err;
    EXPECT_EQ(ReadAll(folder.DataDir() / "Daily.txt").substr(0, 16), "20210901 0 0 7\r\n");
}

TEST(ImportCommand, ColumnsNamedOutrightAndStandardInput) {
    TempDir dir;
    ProgramFolder folder{dir.path()};
    const std::string source =
        dir.Write("r.txt", "n;when;x;y\n1;2021-05-01;123;456\n2;2021-05-02;789;012\n").string();
    const std::string file = (dir.path() / "d.txt").string();
    // The day's drawings in the order given: y first.
    CliRun run = Cli({source, "--into", file, "--date-column", "When", "--digits-column", "y",
                      "--digits-column", "3", "--date-format", "yyyy-mm-dd"},
                     folder);
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(ReadAll(file),
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
    const std::string file = dir.Write("d.txt", kept).string();
    const std::string good = dir.Write("good.csv", kSource).string();
    struct Case {
        std::vector<std::string> args;
        int code;
        std::string err;
    };
    const Case cases[] = {
        {{file, "--into", file}, 1, "the source is the drawings file itself"},
        {{(dir.path() / "none.csv").string(), "--into", file}, 1, "the source \""},
        {{good, "--into", dir.path().string()}, 1, "is a folder, not a drawings file."},
        {{good}, 2, "say where the drawings go, with --into FILE or --lottery NAME"},
        {{good, "--lottery", "../x"}, 2, "\"../x\" is not a lottery name"},
        {{good, "--into", file, "--dates", "weekly"}, 2, "weekly"},
        {{good, "--into", file, "--date-column", "When"}, 1, "There is no column \"When\""},
    };
    for (const Case& c : cases) {
        CliRun run = Cli(c.args, folder);
        EXPECT_EQ(run.code, c.code) << c.args[0] << " " << run.err;
        EXPECT_EQ(Lines(run.err), 1) << run.err;
        EXPECT_NE(run.err.find(c.err), std::string::npos) << run.err;
        EXPECT_EQ(ReadAll(file), kept);
    }
}

}  // namespace
}  // namespace numarel
