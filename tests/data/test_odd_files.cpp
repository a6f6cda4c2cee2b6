#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>

#include "data/basic_text.h"
#include "data/drawings_file.h"
#include "data/drawings_table.h"
#include "data/file_io.h"
#include "data/lottery_catalog.h"
#include "data/lottery_commands.h"
#include "data/results_import.h"
#include "frame/frame_passes.h"
#include "support/case_file.h"

namespace numarel {
namespace {

namespace fs = std::filesystem;
using testing::Has;
using testing::ReadAll;
using testing::TempDir;

// The temporary files of the safe write in `folder`.
int Temporaries(const fs::path& folder) {
    int n = 0;
    for (const auto& entry : fs::directory_iterator(folder))
        n += entry.path().filename().string().starts_with(".numarel-");
    return n;
}

// Ctrl+C, kill, a closed terminal or a closed pipe in the middle of a write: the temporary file
// goes with the program, the old file stays.
TEST(OddFiles, TemporaryFilesAreRemovedWhenASignalEndsTheProgram) {
    for (int sig : {SIGTERM, SIGINT, SIGHUP, SIGPIPE}) {
        SCOPED_TRACE(sig);
        TempDir dir;
        const fs::path target = dir.Write("out.csv", "old\r\n");
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            ::close(ready[0]);
            ::alarm(20);
            WriteFileSafely(target, [&](std::ostream& os) {
                os << std::string(1 << 20, 'x');
                os.flush();
                // The temporary file holds a megabyte: now the signal may come.
                char byte = 1;
                (void)!::write(ready[1], &byte, 1);
                for (;;)
                    ::pause();
            });
            ::_exit(3);
        }
        ::close(ready[1]);
        char byte = 0;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        EXPECT_EQ(Temporaries(dir.path()), 1);
        ::kill(child, sig);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
        EXPECT_EQ(WTERMSIG(status), sig);  // the program still ends by the signal
        EXPECT_EQ(Temporaries(dir.path()), 0);
        EXPECT_EQ(ReadAll(target), "old\r\n");
    }
}

TEST(OddFiles, TemporaryFilesLeftByAnEarlierRunNeverBlockAWrite) {
    TempDir dir;
    // What runs before the unique names left, for this process id and for PID 1.
    for (int n = 0; n < 50; ++n) {
        dir.Write(".numarel-" + std::to_string(::getpid()) + "-" + std::to_string(n) + ".tmp", "");
        dir.Write(".numarel-1-" + std::to_string(n) + ".tmp", "");
    }
    for (int n = 0; n < 20; ++n) {
        Status s = WriteFileSafely(dir.path() / "x.csv", std::to_string(n));
        ASSERT_TRUE(s.ok()) << s.message();
    }
    EXPECT_EQ(ReadAll(dir.path() / "x.csv"), "19");
    // Those of running processes stay; so does a fresh one of a process that is gone, which may be
    // a writer in another container. One that a gone process left an hour ago is removed.
    EXPECT_EQ(Temporaries(dir.path()), 100);
    const fs::path fresh = dir.Write(".numarel-1999999999-0-1.tmp", "");
    const fs::path stale = dir.Write(".numarel-1999999999-0-2.tmp", "");
    fs::last_write_time(stale, fs::file_time_type::clock::now() - std::chrono::hours(2));
    ASSERT_TRUE(WriteFileSafely(dir.path() / "x.csv", "20").ok());
    EXPECT_TRUE(fs::exists(fresh));
    EXPECT_FALSE(fs::exists(stale));
    EXPECT_EQ(Temporaries(dir.path()), 101);
}

// A results source with one drawing a day, 1 to 3 January 2021.
const std::string kResults = "2021-01-01,137\n2021-01-02,174\n2021-01-03,211\n";

// While another program holds the lock, a writer waits a little and then says the file is busy,
// writing nothing; once the lock is free it goes through, and leaves no lock file behind.
TEST(DrawingsLock, AWriterWaitsThenSaysTheFileIsBusyAndWritesNothing) {
    TempDir dir;
    ProgramFolder folder{dir.path()};
    const fs::path file = dir.Write("data/Daily.txt", "20210101 1 3 7\r\n");
    ImportOptions options;
    options.dates = DateField::YearMonthDay;
    {
        ScopedLockWait shortWait(std::chrono::milliseconds(100));
        DrawingsFileLock other;
        ASSERT_TRUE(other.Acquire(file).ok());
        ASSERT_TRUE(fs::exists(DrawingsFileLock::LockFileOf(file)));

        ImportPlan plan;
        Status s = ImportIntoFile(kResults, file, options, false, plan);
        EXPECT_EQ(s.code(), Status::Code::Busy);
        EXPECT_TRUE(Has(s.message(), "is busy: another program is writing it")) << s.message();
        EXPECT_TRUE(plan.added.empty());

        DrawingsTable table;
        ASSERT_TRUE(table.Load(file).ok());
        table.SetCell(0, 1, "9");
        EXPECT_EQ(table.Save(file).code(), Status::Code::Busy);
        EXPECT_EQ(ImportDrawingsFile(dir.Write("other.txt", "1 1 1 1\r\n"), file).code(),
                  Status::Code::Busy);
        // The same file by another name takes the same lock.
        fs::create_symlink(file, dir.path() / "alias.txt");
        EXPECT_EQ(ImportIntoFile(kResults, dir.path() / "alias.txt", options, false, plan).code(),
                  Status::Code::Busy);
        // New Lottery too waits for a writer of the file it would make.
        DrawingsFileLock making;
        ASSERT_TRUE(making.Acquire(folder.DataDir() / "New.txt").ok());
        LotteryChange change = NewLottery(folder, "New");
        EXPECT_FALSE(change.changed);
        EXPECT_TRUE(Has(change.message.text, "is busy")) << change.message.text;
        EXPECT_FALSE(fs::exists(folder.DataDir() / "New.txt"));
        EXPECT_EQ(ReadAll(file), "20210101 1 3 7\r\n");
    }
    ImportPlan plan;
    ASSERT_TRUE(ImportIntoFile(kResults, file, options, false, plan).ok());
    EXPECT_EQ(plan.added.size(), 2u);
    EXPECT_TRUE(NewLottery(folder, "New").changed);
    // Only the lock file of a writer at work exists.
    for (const auto& entry : fs::directory_iterator(folder.DataDir()))
        EXPECT_FALSE(entry.path().filename().string().ends_with(".lock")) << entry.path();
}

// The editor's Save never undoes what another program wrote after the table was read: it says
// so, and writes only when asked to replace it.
TEST(DrawingsLock, SaveSeesAChangeMadeByAnotherProgramSinceTheTableWasRead) {
    TempDir dir;
    const fs::path file = dir.Write("Daily.txt", "2021001 1 2 3\r\n");
    DrawingsTable table;
    ASSERT_TRUE(table.Load(file).ok());
    table.SetCell(0, 1, "4");
    ASSERT_TRUE(table.Save(file).ok());  // its own Save is no change by another
    table.SetCell(0, 2, "5");
    ASSERT_TRUE(table.Save(file).ok());

    dir.Write("Daily.txt", "2021001 4 5 3\r\n2021002 7 8 9\r\n");  // an import, meanwhile
    table.SetCell(0, 3, "6");
    Status s = table.Save(file);
    EXPECT_EQ(s.code(), Status::Code::Changed);
    EXPECT_TRUE(Has(s.message(), "was changed by another program")) << s.message();
    EXPECT_EQ(ReadAll(file), "2021001 4 5 3\r\n2021002 7 8 9\r\n");
    ASSERT_TRUE(table.Save(file, true).ok());
    EXPECT_EQ(ReadAll(file), "2021001 4 5 6\r\n0 0 0 0\r\n");

    // A file that did not exist when the table was read, and then did.
    const fs::path fresh = dir.path() / "Fresh.txt";
    DrawingsTable empty;
    EXPECT_FALSE(empty.Load(fresh).ok());
    dir.Write("Fresh.txt", "2021001 1 1 1\r\n");
    EXPECT_EQ(empty.Save(fresh).code(), Status::Code::Changed);
}

// Text in a wide encoding is refused, naming it, instead of being read as thousands of drawings
// of zeros; a UTF-8 mark is skipped, in the drawings and in the selection file.
TEST(OddFiles, WideEncodingsAreRefusedByNameAndAUtf8MarkIsSkipped) {
    TempDir dir;
    for (const testing::Case& c : testing::ReadCases("data/cases/wide_encodings.txt", 2)) {
        SCOPED_TRACE(c.where);
        const fs::path file = dir.Write("wide.txt", c[0]);
        std::vector<DrawRecord> drawings;
        Status s = ReadHistory(file, drawings);
        EXPECT_FALSE(s.ok()) << c[1];
        EXPECT_TRUE(Has(s.message(), c[1] + " text")) << s.message();
        EXPECT_TRUE(drawings.empty());
        DrawingsTable table;
        EXPECT_TRUE(Has(table.Load(file).message(), c[1]));
        ImportPlan plan;
        EXPECT_TRUE(Has(ImportIntoFile(kResults, file, {}, false, plan).message(), c[1]));
        EXPECT_EQ(ReadAll(file), c[0]);
    }
    std::vector<DrawRecord> drawings;
    ASSERT_TRUE(ReadHistory(dir.Write("bom.txt",
                                      "\xEF\xBB\xBF"
                                      "2021001 1 2 3\r\n"),
                            drawings)
                    .ok());
    ASSERT_EQ(drawings.size(), 1u);
    EXPECT_EQ(drawings[0].date, "2021001");
    EXPECT_EQ(SelectionName("\xEF\xBB\xBF\"Daily.txt\"\r\n"), "Daily.txt");
}

// A date too large for any number cannot be converted: the record is a drawing without a label,
// as one whose date is no number, and the history goes on after it.
TEST(OddFiles, ADateThatOverflowsIsADrawingWithoutALabelNotTheEnd) {
    // Such dates are no number by data/cases/numbers.txt.
    const std::string huge(400, '9');
    EXPECT_EQ(WholeNumber(std::string(300, '9')).has_value(), true);  // large, but a number

    TempDir dir;
    const fs::path file =
        dir.Write("d.txt", "2021001 1 2 3\r\n" + huge + " 4 5 6\r\n2021003 7 8 9\r\n0 0 0 0\r\n");
    std::vector<DrawRecord> drawings;
    ASSERT_TRUE(ReadHistory(file, drawings).ok());
    ASSERT_EQ(drawings.size(), 3u);  // the end marker is the fourth line, not the second
    EXPECT_EQ(DrawingLabel(drawings[1]), "");
    EXPECT_EQ(drawings[1].h, "4");
    EXPECT_EQ(DrawingLabel(drawings[2]), " 2021003:789");
}

}  // namespace
}  // namespace numarel
