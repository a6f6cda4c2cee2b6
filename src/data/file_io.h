#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include "data/status.h"

namespace numarel {

// What a message says when there is no lottery at all, instead of an empty file name.
inline constexpr std::string_view kNoLotteryText =
    "There is no lottery yet. Make one with New Lottery.";

// The largest file the program reads whole; a drawings file of the largest history is far below.
inline constexpr std::size_t kMaxReadBytes = std::size_t{64} << 20;

// Reads a whole file into `bytes`. Only a plain file is read: a pipe, a socket or a device is
// refused at once, never waited on. A missing file, a folder, a loop of links, an unreadable
// file, a file over kMaxReadBytes and an empty path (no lottery) each fail with a message that
// calls the file `what` ("drawings file", "selection file"), names it and says why.
Status ReadFileBytes(const std::filesystem::path& path, std::string& bytes,
                     std::string_view what = "file");

// Reads a stream (standard input) to its end into `bytes`, up to kMaxReadBytes: past that it stops
// reading and fails with one sentence that calls the input `what`.
Status ReadStreamBytes(std::istream& in, std::string_view what, std::string& bytes);

// Writes `bytes` to `path` so that the old file is never lost: a temporary file in the same folder
// is written, flushed to the disk and only then renamed over the old one, and the folder is
// flushed after the rename. On any failure the old file stays byte for byte as it was, no
// temporary file is left, and the message names the file and the reason in plain words.
// A link is followed and its target replaced. Only a plain file is written, and /dev/null (in
// place); a pipe, a socket or another device is refused at once.
//
// The temporary file has a name of its own, made with O_EXCL and tried again under another name
// when taken, so a file left by an earlier run never stands in the way. While it exists, SIGINT,
// SIGTERM, SIGHUP and SIGPIPE remove it before the program ends by the signal (where the signal's
// action was the default one). A write that succeeds removes the temporary files in its folder
// that runs which are gone left there more than an hour ago (after a kill -9 or a power cut).
Status WriteFileSafely(const std::filesystem::path& path, std::string_view bytes);

// The same for contents made while they are written: `write` streams them into the file a block
// at a time, so that a large export never sits in memory whole.
Status WriteFileSafely(const std::filesystem::path& path,
                       const std::function<void(std::ostream&)>& write);

// A reason for a failed file operation in words a user understands ("the disk is full").
std::string FileErrorReason(int error);

// The reason why `path` cannot be reached when the system says ENOTDIR: the first folder of its
// path that is a file, "\"out\" is a file, not a folder"; FileErrorReason(ENOTDIR) when none is.
std::string NotAFolderReason(const std::filesystem::path& path);

// How long a writer of a drawings file waits for another one to finish before it gives up.
inline constexpr std::chrono::milliseconds kLockWait{5000};

// The advisory lock that every writer of a drawings file holds from its read of the file to the
// rename of the new one, in the command line and the desktop program alike: a writer that reads
// the file under the lock and writes it before letting go can never undo another writer's change.
// The lock is flock(2) on a hidden lock file beside the drawings file, ".<name>.lock", there only
// while a writer holds it (the drawings file itself is replaced at each write and so cannot carry
// the lock). A link is followed, so every name of one file takes the same lock. The lock goes with
// the process: a writer that is killed leaves at most an empty lock file, which holds no one up.
class DrawingsFileLock {
public:
    DrawingsFileLock() = default;
    ~DrawingsFileLock() { Release(); }
    DrawingsFileLock(const DrawingsFileLock&) = delete;
    DrawingsFileLock& operator=(const DrawingsFileLock&) = delete;

    // Takes the lock of the drawings file `drawings`, waiting up to kLockWait (ScopedLockWait in
    // tests) while another writer holds it; then fails with a Busy status saying so. A folder where
    // no lock file can be made (missing, read-only) or a file system without locks is no failure:
    // the write itself then says what is wrong, or goes on unguarded.
    Status Acquire(const std::filesystem::path& drawings);
    void Release();
    bool Held() const { return fd_ >= 0; }

    // The lock file of `drawings`.
    static std::filesystem::path LockFileOf(const std::filesystem::path& drawings);

private:
    int fd_ = -1;
    std::string lockFile_;
};

// For tests: while an object lives, a writer waits `wait` for the lock instead of kLockWait.
class ScopedLockWait {
public:
    explicit ScopedLockWait(std::chrono::milliseconds wait);
    ~ScopedLockWait();
    ScopedLockWait(const ScopedLockWait&) = delete;
    ScopedLockWait& operator=(const ScopedLockWait&) = delete;
};

// True when both paths lead to the same file, however they are written: relative, with "..",
// through a link.
bool SameFile(const std::filesystem::path& a, const std::filesystem::path& b);

// The steps of WriteFileSafely, for tests that make one of them fail.
enum class WriteStep { Create, Write, SyncFile, Rename, SyncFolder };

// For tests: while an object lives, every WriteFileSafely fails at `step` with the system error
// `error`, as a full disk or a pulled cable would. A failing Write step writes half the bytes
// first.
class ScopedWriteFault {
public:
    ScopedWriteFault(WriteStep step, int error);
    ~ScopedWriteFault();
    ScopedWriteFault(const ScopedWriteFault&) = delete;
    ScopedWriteFault& operator=(const ScopedWriteFault&) = delete;
};

}  // namespace numarel
