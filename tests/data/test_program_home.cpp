#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "data/program_home.h"
#include "support/case_file.h"

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
    fs::create_directories(dir.path() / "portable/data");
    fs::create_directories(dir.path() / "portable/help");
    fs::create_directories(dir.path() / "cwd");
    for (const testing::Case& row : testing::ReadCases("data/cases/program_home.txt", 6)) {
        std::vector<fs::path> c;
        for (const std::string& field : row.fields)
            c.push_back(testing::Fill(field, {{"dir", dir.path().string()}}));
        SCOPED_TRACE(row.where);
        ProgramFolder folder;
        const HomeEnvironment env{c[1], c[2], (dir.path() / "home").string(), c[3]};
        ASSERT_TRUE(ResolveProgramFolder(c[0], env, folder).ok());
        EXPECT_EQ(folder.root, c[4]);
        EXPECT_EQ(folder.HelpDir(), c[5]);
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
