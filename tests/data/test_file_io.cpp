#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <functional>

#include "data/drawings_table.h"
#include "data/file_io.h"
#include "data/lottery_commands.h"
#include "support/case_file.h"

namespace numarel {
namespace {

namespace fs = std::filesystem;
using testing::Has;
using testing::ReadAll;
using testing::TempDir;

// The names in a folder, to see that no temporary file is left behind.
std::vector<std::string> Listing(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Every writer of the program, each replacing the file `target` with something new.
struct Writer {
    const char* name;
    fs::path (*target)(const ProgramFolder&);
    std::function<Status(const ProgramFolder&, const fs::path& source)> write;
};

const fs::path kLottery = "Night.txt";

fs::path Drawings(const ProgramFolder& f) {
    return f.DataDir() / kLottery;
}
fs::path Selection(const ProgramFolder& f) {
    return f.SelectionFile();
}

const Writer kWriters[] = {
    {"Save", Drawings,
     [](const ProgramFolder& f, const fs::path&) {
         DrawingsTable table;
         table.Load(Drawings(f));
         table.SetCell(0, 1, "7");
         return table.Save(Drawings(f));
     }},
    {"Import", Drawings,
     [](const ProgramFolder& f, const fs::path& source) {
         return CopyDrawingsFile(source, Drawings(f));
     }},
    {"selection file", Selection,
     [](const ProgramFolder& f, const fs::path&) { return WriteSelection(Selection(f), "B.txt"); }},
    {"New Lottery's selection", Selection,
     [](const ProgramFolder& f, const fs::path&) {
         LotteryChange change = NewLottery(f, "Fresh");
         return change.changed ? Status::Ok() : Status::IoError(change.message.text);
     }},
};

TEST(SafeWrite, AFailureAtAnyStepLeavesTheOldFileAsItWasAndNoTemporaryFile) {
    const WriteStep kSteps[] = {WriteStep::Create, WriteStep::Write, WriteStep::SyncFile,
                                WriteStep::Rename};
    for (const Writer& writer : kWriters) {
        for (WriteStep step : kSteps) {
            TempDir dir;
            ProgramFolder folder{dir.path()};
            dir.Write("data/Night.txt", "2020001 1 2 3\r\n2020002 4 5 6\r\n");
            dir.Write("Numarel/shujuwenjian.ini", "\"Night.txt\"\r\n");
            auto source = dir.Write("in/source.txt", "2021001 9 9 9\r\n");
            const fs::path target = writer.target(folder);
            const std::string before = ReadAll(target);
            const auto listing = Listing(target.parent_path());
            Status s;
            {
                ScopedWriteFault full(step, ENOSPC);
                s = writer.write(folder, source);
            }
            SCOPED_TRACE(std::string(writer.name) + " step " + std::to_string(int(step)));
            EXPECT_FALSE(s.ok());
            if (std::string_view(writer.name) != "New Lottery's selection") {
                EXPECT_TRUE(Has(s.message(), target.string())) << s.message();
                EXPECT_TRUE(Has(s.message(), "the disk is full")) << s.message();
            }
            EXPECT_EQ(ReadAll(target), before);
            EXPECT_EQ(Listing(target.parent_path()), listing);
            // Without the fault the same write goes through.
            EXPECT_TRUE(writer.write(folder, source).ok());
            EXPECT_NE(ReadAll(target), before);
            EXPECT_EQ(Listing(target.parent_path()), listing);
        }
    }
}

TEST(SafeWrite, ReasonsAreSaidInPlainWords) {
    TempDir dir;
    auto old = dir.Write("old.txt", "old\r\n");
    dir.Write("odd/afile", "x");
    fs::create_symlink("loop", dir.path() / "odd/loop");
    ASSERT_EQ(::mkfifo((dir.path() / "odd/fifo").c_str(), 0600), 0);
    EXPECT_TRUE(WriteFileSafely("/dev/null", "x").ok());
    for (const testing::Case& c : testing::ReadCases("data/cases/write_refusals.txt", 2)) {
        const std::string path = testing::Fill(c[0], {{"dir", dir.path().string()}});
        Status s = WriteFileSafely(path, "x");
        EXPECT_FALSE(s.ok()) << c.where;
        EXPECT_TRUE(Has(s.message(), testing::Fill(c[1], {{"dir", dir.path().string()}})))
            << c.where << ": " << s.message();
        EXPECT_TRUE(Has(s.message(), path)) << c.where << ": " << s.message();
    }
    // Once the file has its new name, a folder that cannot be flushed is said, not hidden.
    {
        ScopedWriteFault fault(WriteStep::SyncFolder, EIO);
        Status s = WriteFileSafely(old, "new\r\n");
        EXPECT_TRUE(Has(s.message(), "did not confirm")) << s.message();
    }
    EXPECT_EQ(ReadAll(old), "new\r\n");
    EXPECT_EQ(Listing(dir.path()), (std::vector<std::string>{"odd", "old.txt"}));
}

TEST(SafeWrite, ALinkKeepsPointingAtTheFileItNames) {
    TempDir dir;
    auto real = dir.Write("real.txt", "old");
    fs::create_symlink(real, dir.path() / "link.txt");
    ASSERT_TRUE(WriteFileSafely(dir.path() / "link.txt", "new").ok());
    EXPECT_TRUE(fs::is_symlink(dir.path() / "link.txt"));
    EXPECT_EQ(ReadAll(real), "new");
}

}  // namespace
}  // namespace numarel
