#include <gtest/gtest.h>

#include <fstream>

#include "data/lottery_commands.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::ReadAll;

}  // namespace

void PrintTo(const UserMessage& m, std::ostream* os) {
    *os << m.title << " / " << m.text;
}

namespace {

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

TEST_F(LotteryCommands, NewLotteryRefusesAnEmptyOrBlankName) {
    for (std::string_view answer : {"", "   "}) {
        LotteryChange change = NewLottery(folder, answer);
        EXPECT_FALSE(change.changed);
        EXPECT_EQ(change.message, (UserMessage{"Friendship Tip:", "You have not entered a name."}));
    }
    EXPECT_EQ(Selection(), "\"Old.txt\"\r\n");
    EXPECT_TRUE(std::filesystem::is_empty(folder.DataDir()));
}

TEST_F(LotteryCommands, NewLotteryCreatesAnEmptyFileAndSelectsIt) {
    LotteryChange change = NewLottery(folder, "  Pick 3 Evening  ");
    ASSERT_TRUE(change.changed);
    const auto file = folder.DataDir() / "Pick 3 Evening.txt";
    EXPECT_EQ(change.drawingsPath, file);
    EXPECT_EQ(change.fileName, "Pick 3 Evening.txt");
    EXPECT_EQ(change.label, "Lottery:Pick 3 Evening.");
    ASSERT_TRUE(std::filesystem::exists(file));
    EXPECT_EQ(std::filesystem::file_size(file), 0u);
    EXPECT_EQ(Selection(), "\"Pick 3 Evening.txt\"\r\n");
    EXPECT_EQ(change.message, (UserMessage{"Friendship Tip:",
                                           "Lottery have been created and selected.Next, you "
                                           "can click Drawings button to edit it."}));
}

TEST_F(LotteryCommands, NewLotteryKeepsAnExistingFileAndTheSelection) {
    {
        std::ofstream existing(folder.DataDir() / "Mine.txt", std::ios::binary);
        existing << "2020001 1 2 3\r\n";
    }
    LotteryChange change = NewLottery(folder, "Mine");
    EXPECT_FALSE(change.changed);
    EXPECT_EQ(change.message,
              (UserMessage{"Friendship Tip:", "This lottery already exists.Please rename."}));
    EXPECT_EQ(ReadAll(folder.DataDir() / "Mine.txt"), "2020001 1 2 3\r\n");
    EXPECT_EQ(Selection(), "\"Old.txt\"\r\n");
}

TEST_F(LotteryCommands, NewLotteryAddsTxtEvenToANameEndingInTxt) {
    LotteryChange change = NewLottery(folder, "draws.txt");
    ASSERT_TRUE(change.changed);
    EXPECT_TRUE(std::filesystem::exists(folder.DataDir() / "draws.txt.txt"));
    EXPECT_EQ(change.label, "Lottery:draws.txt.");
}

TEST_F(LotteryCommands, NewLotteryRefusesANameThatIsAPath) {
    for (std::string_view answer : {"a/b", "..\\up", "\t", "two\nlines"}) {
        LotteryChange change = NewLottery(folder, answer);
        EXPECT_FALSE(change.changed) << answer;
        EXPECT_EQ(change.message.title, "Friendship Tip:");
        EXPECT_NE(change.message.text.find("cannot be used as a file name"), std::string::npos);
    }
    EXPECT_EQ(Selection(), "\"Old.txt\"\r\n");
}

TEST_F(LotteryCommands, SelectLotteryAcceptsOnlyFilesDirectlyInTheDataFolder) {
    const std::string data = DataFolderText(folder);
    const std::string root = folder.root.string();
    const std::string refused[] = {
        root + "/elsewhere/x.txt",  // another folder
        data + "sub/x.txt",         // below the data folder
        root + "/Data/x.txt",       // the comparison is case-sensitive
        "x.txt",                    // no folder at all
    };
    for (const std::string& path : refused) {
        LotteryChange change = SelectLottery(folder, path);
        EXPECT_FALSE(change.changed) << path;
        EXPECT_EQ(change.message, (UserMessage{"Error:", "You must select lottery of the " + data +
                                                             "\nPlease select again!"}))
            << path;
    }
    EXPECT_EQ(Selection(), "\"Old.txt\"\r\n");
    EXPECT_EQ(data.back(), '/');
}

TEST_F(LotteryCommands, SelectLotteryTakesTheNameAndRewritesTheSelection) {
    struct Case {
        std::string name;
        std::string label;
    };
    const Case cases[] = {
        {"Old.txt", "Lottery:Old."},  // the current lottery again still rewrites the file
        {"Night Draw.txt", "Lottery:Night Draw."},
        {"a.b.txt", "Lottery:a.b."},
        {"NoDot", "Lottery:"},
    };
    for (const Case& c : cases) {
        std::filesystem::remove(folder.SelectionFile());
        const std::string path = DataFolderText(folder) + c.name;
        LotteryChange change = SelectLottery(folder, path);
        ASSERT_TRUE(change.changed) << c.name;
        EXPECT_EQ(change.drawingsPath, std::filesystem::path(path));
        EXPECT_EQ(change.label, c.label);
        EXPECT_EQ(change.message, (UserMessage{"OK:", "You have selected " + c.name}));
        EXPECT_EQ(Selection(), "\"" + c.name + "\"\r\n");
    }
}

}  // namespace
}  // namespace numarel
