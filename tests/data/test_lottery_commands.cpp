#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "data/lottery_commands.h"
#include "support/case_file.h"

namespace numarel {

void PrintTo(const UserMessage& m, std::ostream* os) {
    *os << m.title << " / " << m.text;
}

namespace {

using testing::Case;
using testing::Fill;
using testing::ReadAll;
using testing::ReadCases;
using testing::TempDir;

class LotteryCommands : public ::testing::Test {
protected:
    void SetUp() override {
        folder.root = dir.path() / "prog";
        std::filesystem::create_directories(folder.DataDir());
        std::filesystem::create_directories(folder.SelectionFile().parent_path());
        WriteSelection(folder.SelectionFile(), "Old.txt");
    }
    std::string Selection() const { return ReadAll(folder.SelectionFile()); }

    TempDir dir;
    ProgramFolder folder;
};

TEST_F(LotteryCommands, NewLotteryThroughEveryMessage) {
    std::ofstream(folder.DataDir() / "Mine.txt", std::ios::binary) << "2020001 1 2 3\r\n";
    std::string selected = "Old.txt";
    for (const Case& c : ReadCases("data/cases/new_lottery.txt", 4)) {
        LotteryChange change = NewLottery(folder, c[0]);
        EXPECT_EQ(change.changed, !c[2].empty()) << c.where;
        EXPECT_EQ(change.message.title, "Friendship Tip:");
        EXPECT_NE(change.message.text.find(c[1]), std::string::npos)
            << c.where << change.message.text;
        if (change.changed) {
            selected = c[2];
            const auto file = folder.DataDir() / c[2];
            EXPECT_EQ(change.drawingsPath, file);
            EXPECT_EQ(change.fileName, c[2]);
            EXPECT_EQ(change.label, c[3]) << c.where;
            EXPECT_TRUE(std::filesystem::exists(file) && std::filesystem::file_size(file) == 0);
        }
        EXPECT_EQ(Selection(), "\"" + selected + "\"\r\n") << c.where;
    }
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.DataDir()))
        files.insert(entry.path().filename().string());
    EXPECT_EQ(files, (std::set<std::string>{"Mine.txt", "Pick 3 Evening.txt", "draws.txt.txt"}));
    EXPECT_EQ(ReadAll(folder.DataDir() / "Mine.txt"), "2020001 1 2 3\r\n");
}

// One rule for what a lottery name is, wherever a name comes from: the selection file, as a
// person may edit it, or the New Lottery prompt. A name that is not one never opens a file.
TEST(LotteryNames, TheSelectionFileAndNewLotteryKeepNamesInsideTheDataFolder) {
    for (const Case& row : ReadCases("data/cases/lottery_names.txt", 3)) {
        const struct {
            std::string name;
            bool isName, isNewName;
        } c{row[0], row[1] == "yes", row[2] == "yes"};
        SCOPED_TRACE(row.where);
        TempDir dir;
        ProgramFolder folder{dir.path() / "prog"};
        const std::string drawings = "2020001 1 2 3\r\n";
        // A file the name would reach if it were taken as a path: it must stay untouched.
        dir.Write("prog/victim.txt", drawings);
        dir.Write(std::string("prog/data/") + std::string(kSampleLotteryFile), "2020001 4 5 6\r\n");
        if (c.isName) dir.Write("prog/data/" + c.name, drawings);
        dir.Write("prog/Numarel/shujuwenjian.ini", "\"" + c.name + "\"\r\n");

        CurrentLottery current = ResolveCurrentLottery(folder);
        EXPECT_EQ(current.fallback, !c.isName);
        EXPECT_EQ(current.drawingsPath.parent_path(), folder.DataDir());
        EXPECT_EQ(current.fileName, c.isName ? c.name : std::string(kSampleLotteryFile));
        EXPECT_EQ(current.notice.empty(), c.isName);

        const std::string answer = c.name.substr(0, c.name.size() - 4);
        if (c.isName) std::filesystem::remove(folder.DataDir() / c.name);
        LotteryChange change = NewLottery(folder, answer);
        EXPECT_EQ(change.changed, c.isNewName) << change.message.text;
        if (!c.isNewName) {
            EXPECT_NE(change.message.text.find("cannot be used as a file name"), std::string::npos);
            EXPECT_EQ(change.message.text.find('\n'), std::string::npos);
        } else {
            EXPECT_EQ(change.drawingsPath, folder.DataDir() / c.name);
            EXPECT_EQ(ReadAll(folder.SelectionFile()), "\"" + c.name + "\"\r\n");
            EXPECT_EQ(ResolveCurrentLottery(folder).fileName, c.name);  // and it reads back
        }
        EXPECT_EQ(ReadAll(dir.path() / "prog" / "victim.txt"), drawings);
    }
}

TEST_F(LotteryCommands, SelectLotteryTakesOnlyFilesDirectlyInTheDataFolder) {
    const std::string data = DataFolderText(folder);
    const std::string root = folder.root.string();
    ASSERT_EQ(data.back(), '/');
    for (const Case& row : ReadCases("data/cases/select_lottery.txt", 3)) {
        const struct {
            std::string path, name, label;
        } c{Fill(row[0], {{"data", data}, {"root", root}}), row[1], row[2]};
        SCOPED_TRACE(row.where);
        std::filesystem::remove(folder.SelectionFile());
        LotteryChange change = SelectLottery(folder, c.path);
        EXPECT_EQ(change.changed, !c.name.empty()) << c.path;
        if (!change.changed) {
            EXPECT_EQ(change.message.title, "Error:");
            const bool inTheFolder =
                c.path.starts_with(data) && c.path.find('/', data.size()) == std::string::npos;
            if (inTheFolder)
                EXPECT_NE(change.message.text.find("cannot be used as a lottery name"),
                          std::string::npos);
            else
                EXPECT_EQ(change.message.text,
                          "You must select lottery of the " + data + "\nPlease select again!");
            EXPECT_FALSE(std::filesystem::exists(folder.SelectionFile()));
            continue;
        }
        EXPECT_EQ(change.drawingsPath, std::filesystem::path(c.path));
        EXPECT_EQ(change.label, c.label);
        EXPECT_EQ(change.message, (UserMessage{"OK:", "You have selected " + c.name}));
        EXPECT_EQ(Selection(), "\"" + c.name + "\"\r\n");
    }
}

}  // namespace
}  // namespace numarel
