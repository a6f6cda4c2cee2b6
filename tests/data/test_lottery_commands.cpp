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
        {"a/b", "cannot be used as a file name", ""},  // the name rules are pinned below
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

// One rule for what a lottery name is, wherever a name comes from: the selection file, as a
// person may edit it, or the New Lottery prompt. A name that is not one never opens a file.
TEST(LotteryNames, TheSelectionFileAndNewLotteryKeepNamesInsideTheDataFolder) {
    struct Case {
        std::string name;  // as written in the selection file; New Lottery is asked without ".txt"
        bool isName;
        bool isNewName = isName;  // New Lottery's rule is stricter than reading a selection
    };
    const Case cases[] = {
        {"Evening.txt", true},
        {"Fr\xc3\xbch Ziehung.txt", true},       // non-ASCII names work
        {"\xe5\xbd\xa9\xe7\xa5\xa8.txt", true},  // in any script
        {"a..b.txt", true, false},               // read back, but no new name holds ".."
        {".hidden.txt", true, false},            // nor begins with a dot
        {"Pick 3: Evening.txt", true},
        {"../victim.txt", false},
        {"sub/victim.txt", false},
        {"..\\victim.txt", false},
        {"C:victim.txt", false},
        {"c:\\victim.txt", false},
        {"My \"Best\" Lottery.txt", false},
        {"tab\there.txt", false},
        {"line\nbreak.txt", false},
        {"bell\x07.txt", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
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
        {data + "a.b.txt", "a.b.txt", "Lottery:a.b."},
        {data + "NoDot", "NoDot", "Lottery:"},
        // In the folder, but the selection file cannot hold the name as it stands.
        {data + "a\"b.txt", ""},
        {data + " lead.txt", ""},
    };
    for (const Case& c : cases) {
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
