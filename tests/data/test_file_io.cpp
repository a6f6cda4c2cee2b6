#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <functional>

#include "data/drawings_table.h"
#include "data/file_io.h"
#include "data/lottery_commands.h"
#include "support/test_support.h"

namespace numarel {
namespace {

namespace fs = std::filesystem;
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

bool Has(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
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
    {"Export", [](const ProgramFolder& f) { return f.root / "exported.txt"; },
     [](const ProgramFolder& f, const fs::path&) {
         return CopyDrawingsFile(Drawings(f), f.root / "exported.txt");
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
            dir.Write("exported.txt", "an older export\r\n");
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
    struct Case {
        fs::path path;
        const char* reason;
    };
    const Case cases[] = {
        {dir.path() / "no" / "such.txt", "the folder does not exist"},
        {dir.path(), "it is a folder"},
        {"/dev/full", "the disk is full"},  // a device is written in place, and refuses
        {"", "There is no lottery yet. Make one with New Lottery."},
    };
    for (const Case& c : cases) {
        Status s = WriteFileSafely(c.path, "x");
        EXPECT_FALSE(s.ok()) << c.path;
        EXPECT_TRUE(Has(s.message(), c.reason)) << s.message();
        EXPECT_TRUE(Has(s.message(), c.path.string())) << s.message();
    }
    // Once the file has its new name, a folder that cannot be flushed is said, not hidden.
    {
        ScopedWriteFault fault(WriteStep::SyncFolder, EIO);
        Status s = WriteFileSafely(old, "new\r\n");
        EXPECT_TRUE(Has(s.message(), "did not confirm")) << s.message();
    }
    EXPECT_EQ(ReadAll(old), "new\r\n");
    EXPECT_EQ(Listing(dir.path()), (std::vector<std::string>{"old.txt"}));
    // A device that takes everything.
    EXPECT_TRUE(WriteFileSafely("/dev/null", "x").ok());
}

TEST(SafeWrite, ALinkKeepsPointingAtTheFileItNames) {
    TempDir dir;
    auto real = dir.Write("real.txt", "old");
    fs::create_symlink(real, dir.path() / "link.txt");
    ASSERT_TRUE(WriteFileSafely(dir.path() / "link.txt", "new").ok());
    EXPECT_TRUE(fs::is_symlink(dir.path() / "link.txt"));
    EXPECT_EQ(ReadAll(real), "new");
    // The permissions of the replaced file stay.
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_TRUE(WriteFileSafely(real, "newer").ok());
    EXPECT_EQ(fs::status(real).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST(ReadFile, FailuresNameTheFileAndTheReason) {
    TempDir dir;
    std::string bytes = "stale";
    struct Case {
        fs::path path;
        Status::Code code;
        const char* says;
    };
    const Case cases[] = {
        {dir.path() / "none.txt", Status::Code::NotFound, "does not exist"},
        {dir.path(), Status::Code::IoError, "is a folder"},
        {"", Status::Code::NotFound, "There is no lottery yet. Make one with New Lottery."},
    };
    for (const Case& c : cases) {
        Status s = ReadFileBytes(c.path, bytes);
        EXPECT_EQ(s.code(), c.code) << c.path;
        EXPECT_TRUE(Has(s.message(), c.says)) << s.message();
        EXPECT_TRUE(Has(s.message(), c.path.string())) << s.message();
        EXPECT_TRUE(bytes.empty());
    }
    if (::geteuid() != 0) {  // permissions do not bind the superuser
        auto locked = dir.Write("locked.txt", "1 2 3 4");
        fs::permissions(locked, fs::perms::none);
        Status s = ReadFileBytes(locked, bytes);
        EXPECT_TRUE(Has(s.message(), "no permission")) << s.message();
    }
}

TEST(SameFile, OneFileByEveryPathAndNoOther) {
    TempDir dir;
    auto data = dir.Write("sub/data.txt", "1 2 3 4");
    auto other = dir.Write("sub/other.txt", "1 2 3 4");
    fs::create_symlink(data, dir.path() / "link.txt");
    const fs::path cwd = fs::current_path();
    fs::current_path(dir.path());
    struct Case {
        fs::path a, b;
        bool same;
    };
    const Case cases[] = {
        {data, "sub/data.txt", true},
        {data, dir.path() / "sub" / ".." / "sub" / "data.txt", true},
        {data, "link.txt", true},
        {data, other, false},
        {data, "sub/missing.txt", false},
        {"sub/missing.txt", dir.path() / "sub" / "missing.txt", true},
        {data, "", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SameFile(c.a, c.b), c.same) << c.a << " " << c.b;
    fs::current_path(cwd);
}

}  // namespace
}  // namespace numarel
