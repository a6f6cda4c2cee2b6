#include <gtest/gtest.h>

#include <fstream>
#include <set>

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

TEST_F(LotteryCommands, NewLotteryThroughEveryMessage) {
    std::ofstream(folder.DataDir() / "Mine.txt", std::ios::binary) << "2020001 1 2 3\r\n";
    struct Case {
        std::string_view answer;
        std::string_view says;
        std::string created;  // empty: nothing created, the selection stays
        std::string label = "";
    };
    const std::string_view created =
        "Lottery have been created and selected.Next, you can click Drawings button to edit it.";
    const Case cases[] = {
        {"", "You have not entered a name.", ""},
        {"   ", "You have not entered a name.", ""},
        {"a/b", "cannot be used as a file name", ""},
        {"..\\up", "cannot be used as a file name", ""},
        {"\t", "cannot be used as a file name", ""},
        {"two\nlines", "cannot be used as a file name", ""},
        {"Mine", "This lottery already exists.Please rename.", ""},
        {"  Pick 3 Evening  ", created, "Pick 3 Evening.txt", "Lottery:Pick 3 Evening."},
        // .txt is added even to a name ending in it.
        {"draws.txt", created, "draws.txt.txt", "Lottery:draws.txt."},
    };
    std::string selected = "Old.txt";
    for (const Case& c : cases) {
        LotteryChange change = NewLottery(folder, c.answer);
        EXPECT_EQ(change.changed, !c.created.empty()) << c.answer;
        EXPECT_EQ(change.message.title, "Friendship Tip:");
        EXPECT_NE(change.message.text.find(c.says), std::string::npos) << change.message.text;
        if (change.changed) {
            selected = c.created;
            const auto file = folder.DataDir() / c.created;
            EXPECT_EQ(change.drawingsPath, file);
            EXPECT_EQ(change.fileName, c.created);
            EXPECT_EQ(change.label, c.label);
            EXPECT_TRUE(std::filesystem::exists(file) && std::filesystem::file_size(file) == 0);
        }
        EXPECT_EQ(Selection(), "\"" + selected + "\"\r\n") << c.answer;
    }
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.DataDir()))
        files.insert(entry.path().filename().string());
    EXPECT_EQ(files, (std::set<std::string>{"Mine.txt", "Pick 3 Evening.txt", "draws.txt.txt"}));
    EXPECT_EQ(ReadAll(folder.DataDir() / "Mine.txt"), "2020001 1 2 3\r\n");
}

TEST_F(LotteryCommands, SelectLotteryTakesOnlyFilesDirectlyInTheDataFolder) {
    const std::string data = DataFolderText(folder);
    const std::string root = folder.root.string();
    ASSERT_EQ(data.back(), '/');
    struct Case {
        std::string path;
        std::string name;  // empty: refused
        std::string label = "";
    };
    const Case cases[] = {
        {root + "/elsewhere/x.txt", ""},
        {data + "sub/x.txt", ""},
        {root + "/Data/x.txt", ""},  // the comparison is case-sensitive
        {"x.txt", ""},
        {data + "Old.txt", "Old.txt", "Lottery:Old."},  // the current one again is written too
        {data + "Night Draw.txt", "Night Draw.txt", "Lottery:Night Draw."},
        {data + "a.b.txt", "a.b.txt", "Lottery:a.b."},
        {data + "NoDot", "NoDot", "Lottery:"},
    };
    for (const Case& c : cases) {
        std::filesystem::remove(folder.SelectionFile());
        LotteryChange change = SelectLottery(folder, c.path);
        EXPECT_EQ(change.changed, !c.name.empty()) << c.path;
        if (!change.changed) {
            EXPECT_EQ(change.message, (UserMessage{"Error:", "You must select lottery of the " +
                                                                 data + "\nPlease select again!"}));
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
