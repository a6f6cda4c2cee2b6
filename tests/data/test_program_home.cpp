#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "data/program_home.h"
#include "support/test_support.h"

namespace numarel {
namespace {

namespace fs = std::filesystem;
using testing::ReadAll;
using testing::TempDir;

// An installed layout under `dir`: bin/ for the programs, share/numarel/ for what they ship.
struct Installed {
    explicit Installed(const fs::path& dir) : bin(dir / "usr" / "bin") {
        fs::create_directories(bin);
        fs::create_directories(dir / "usr/share/numarel/help");
        fs::create_directories(dir / "usr/share/numarel/data");
        std::ofstream(dir / "usr/share/numarel/data/Synthetic-Demo.txt") << "2020001 1 2 3\r\n";
    }
    fs::path bin;
};

TEST(ProgramHome, TheThreeRulesInTheirOrder) {
    TempDir dir;
    Installed installed(dir.path());
    const fs::path home = dir.path() / "home";
    const fs::path shipped = dir.path() / "usr/share/numarel";
    const fs::path beside = dir.path() / "portable";
    fs::create_directories(beside / "data");
    fs::create_directories(beside / "help");
    fs::create_directories(dir.path() / "cwd");
    const struct {
        const char* what;
        fs::path programDir;
        HomeEnvironment env;
        fs::path root;
        fs::path helpDir;
    } cases[] = {
        {"installed: the user's own folder",
         installed.bin,
         {"", "", home.string(), "/"},
         home / ".local/share/numarel",
         shipped / "help"},
        {"XDG_DATA_HOME moves it",
         installed.bin,
         {"", (dir.path() / "xdg").string(), home, "/"},
         dir.path() / "xdg/numarel",
         shipped / "help"},
        {"a relative XDG_DATA_HOME is ignored",
         installed.bin,
         {"", "xdg", home.string(), "/"},
         home / ".local/share/numarel",
         shipped / "help"},
        {"a portable copy keeps its own folder",
         beside,
         {"", "", home.string(), "/"},
         beside,
         beside / "help"},
        {"NUMAREL_HOME wins, relative to the current folder",
         beside,
         {"../mine", "", home.string(), dir.path() / "cwd"},
         dir.path() / "mine",
         beside / "help"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ProgramFolder folder;
        ASSERT_TRUE(ResolveProgramFolder(c.programDir, c.env, folder).ok());
        EXPECT_EQ(folder.root, c.root);
        EXPECT_EQ(folder.HelpDir(), c.helpDir);
        EXPECT_TRUE(fs::is_directory(folder.DataDir()));
    }
}

TEST(ProgramHome, AFirstStartGetsTheSampleAndNothingIsEverOverwritten) {
    TempDir dir;
    Installed installed(dir.path());
    const HomeEnvironment env{"", "", (dir.path() / "home").string(), "/"};
    ProgramFolder folder;
    ASSERT_TRUE(ResolveProgramFolder(installed.bin, env, folder).ok());
    EXPECT_EQ(ReadAll(folder.DataDir() / "Synthetic-Demo.txt"), "2020001 1 2 3\r\n");
    EXPECT_EQ(ReadAll(folder.SelectionFile()), "\"Synthetic-Demo.txt\"\r\n");

    // The user's changes, and a later version's sample, stay apart.
    std::ofstream(folder.DataDir() / "Synthetic-Demo.txt") << "mine";
    std::ofstream(folder.SelectionFile()) << "\"Other.txt\"";
    std::ofstream(dir.path() / "usr/share/numarel/data/Synthetic-Demo.txt") << "newer sample";
    ASSERT_TRUE(ResolveProgramFolder(installed.bin, env, folder).ok());
    EXPECT_EQ(ReadAll(folder.DataDir() / "Synthetic-Demo.txt"), "mine");
    EXPECT_EQ(ReadAll(folder.SelectionFile()), "\"Other.txt\"");
}

TEST(ProgramHome, AFolderThatCannotBeMadeIsNamedInTheMessage) {
    TempDir dir;
    Installed installed(dir.path());
    const fs::path file = dir.path() / "a-file";
    std::ofstream(file) << "x";
    // A data "folder" beside the program that is a file does not make a portable copy either.
    std::ofstream(installed.bin / "data") << "x";
    ProgramFolder folder;
    Status s = ResolveProgramFolder(installed.bin, {"", "", file.string(), "/"}, folder);
    EXPECT_FALSE(s.ok());
    EXPECT_NE(s.message().find(file.string()), std::string::npos) << s.message();
    EXPECT_FALSE(ResolveProgramFolder(installed.bin, {"", "", "", "/"}, folder).ok());
}

}  // namespace
}  // namespace numarel
