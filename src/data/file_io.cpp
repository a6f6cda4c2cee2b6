#include "data/file_io.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <istream>
#include <memory>
#include <mutex>
#include <optional>
#include <ostream>
#include <streambuf>
#include <system_error>
#include <thread>

namespace numarel {
namespace {

namespace fs = std::filesystem;

struct Fault {
    WriteStep step;
    int error;
};
std::optional<Fault> g_fault;

// True when the armed test fault hits `step`; sets errno as the system would.
bool Faulted(WriteStep step) {
    if (!g_fault || g_fault->step != step) return false;
    errno = g_fault->error;
    return true;
}

std::string Quoted(const fs::path& path) {
    return "\"" + path.string() + "\"";
}

// Closes a descriptor on every way out.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }
    explicit operator bool() const { return fd_ >= 0; }
    // Closes now; false (errno set) when the system reports a late write error.
    bool Close() {
        int fd = fd_;
        fd_ = -1;
        return ::close(fd) == 0;
    }

private:
    int fd_;
};

int OpenRetrying(const char* path, int flags, mode_t mode = 0) {
    int fd;
    do {
        fd = ::open(path, flags | O_CLOEXEC, mode);
    } while (fd < 0 && errno == EINTR);
    return fd;
}

// Writes all of `bytes`; false with errno set when the system refuses part of it.
bool WriteAll(int fd, std::string_view bytes) {
    if (g_fault && g_fault->step == WriteStep::Write) {
        // Part of the data reaches the file before the failure, as on a disk that fills up.
        bytes = bytes.substr(0, bytes.size() / 2);
        while (!bytes.empty()) {
            ssize_t n = ::write(fd, bytes.data(), bytes.size());
            if (n <= 0) break;
            bytes.remove_prefix(static_cast<std::size_t>(n));
        }
        return !Faulted(WriteStep::Write);
    }
    while (!bytes.empty()) {
        ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        if (n == 0) {
            errno = EIO;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

// An output stream's buffer over a descriptor: full blocks go to WriteAll, and the first failure
// is kept so that the writer can say why.
class DescriptorBuffer final : public std::streambuf {
public:
    explicit DescriptorBuffer(int fd) : fd_(fd), block_(new char[kBlock]) {
        setp(block_.get(), block_.get() + kBlock);
    }
    int error() const { return error_; }
    // Writes what is buffered; false once anything failed.
    bool Flush() {
        if (error_) return false;
        std::string_view pending(pbase(), static_cast<std::size_t>(pptr() - pbase()));
        setp(block_.get(), block_.get() + kBlock);
        if (WriteAll(fd_, pending)) return true;
        error_ = errno ? errno : EIO;
        return false;
    }

protected:
    int_type overflow(int_type ch) override {
        if (!Flush()) return traits_type::eof();
        if (!traits_type::eq_int_type(ch, traits_type::eof())) {
            *pptr() = traits_type::to_char_type(ch);
            pbump(1);
        }
        return traits_type::not_eof(ch);
    }
    int sync() override { return Flush() ? 0 : -1; }

private:
    static constexpr std::size_t kBlock = 1 << 16;
    int fd_;
    std::unique_ptr<char[]> block_;
    int error_ = 0;
};

// Streams `write` into `fd`; false with errno set when the system refused part of it.
bool WriteThrough(int fd, const std::function<void(std::ostream&)>& write) {
    DescriptorBuffer buffer(fd);
    std::ostream os(&buffer);
    write(os);
    if (buffer.Flush() && os) return true;
    errno = buffer.error() ? buffer.error() : EIO;
    return false;
}

// fsync, where a file system or a device that cannot sync is no failure.
bool Sync(int fd, WriteStep step) {
    if (Faulted(step)) return false;
    if (::fsync(fd) == 0) return true;
    return errno == EINVAL || errno == EROFS || errno == ENOTSUP;
}

Status WriteFailed(const fs::path& path, int error, bool hadOldFile) {
    std::string text = "Cannot write " + Quoted(path) + ": " +
                       (error == ENOTDIR ? NotAFolderReason(path) : FileErrorReason(error)) + ".";
    if (hadOldFile) text += " The file was left as it was.";
    return Status::IoError(std::move(text));
}

// What a file that is not a plain file is, as the reason it is refused.
std::string KindReason(mode_t mode) {
    if (S_ISDIR(mode)) return "it is a folder";
    if (S_ISFIFO(mode)) return "it is a pipe (FIFO), not a plain file";
    if (S_ISSOCK(mode)) return "it is a socket, not a plain file";
    if (S_ISCHR(mode) || S_ISBLK(mode)) return "it is a device, not a plain file";
    return "it is not a plain file";
}

// /dev/null, the one device an output may be.
bool IsNullDevice(const struct stat& st) {
    struct stat null {};
    return S_ISCHR(st.st_mode) && ::stat("/dev/null", &null) == 0 && st.st_rdev == null.st_rdev;
}

// /dev/null: there is nothing to replace, so it is written in place. The open never waits: a
// pipe put in its place meanwhile is refused.
Status WriteInPlace(const fs::path& path, const std::function<void(std::ostream&)>& write) {
    if (Faulted(WriteStep::Create)) return WriteFailed(path, errno, false);
    Descriptor fd(OpenRetrying(path.c_str(), O_WRONLY | O_NOCTTY | O_NONBLOCK));
    if (!fd) return WriteFailed(path, errno, false);
    struct stat st {};
    if (::fstat(fd.get(), &st) != 0) return WriteFailed(path, errno, false);
    if (!IsNullDevice(st))
        return Status::IoError("Cannot write " + Quoted(path) + ": " + KindReason(st.st_mode) +
                               ".");
    if (!WriteThrough(fd.get(), write) || !Sync(fd.get(), WriteStep::SyncFile) || !fd.Close())
        return WriteFailed(path, errno, false);
    return Status::Ok();
}

// The temporary files of this process that exist right now, in a fixed table that a signal
// handler can read without taking a lock or allocating: each slot is free (0), being filled (1) or
// holds the absolute path of a temporary file (2).
constexpr int kTemporarySlots = 64;
constexpr std::size_t kTemporaryPathMax = 4096;
struct TemporarySlot {
    std::atomic<int> state{0};
    char path[kTemporaryPathMax];
};
TemporarySlot g_temporaries[kTemporarySlots];
constexpr int kCleanedSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

// Removes this run's temporary files, then ends the program by the same signal as before.
// Only async-signal-safe calls: unlink, signal, raise.
extern "C" void RemoveTemporariesAndRaise(int sig) {
    const int saved = errno;
    for (TemporarySlot& slot : g_temporaries)
        if (slot.state.load() == 2) ::unlink(slot.path);
    std::signal(sig, SIG_DFL);
    std::raise(sig);  // delivered once the handler returns, with the default action
    errno = saved;
}

// Installs the handler for each signal whose action is still the default one: a signal the
// program ignores (SIGPIPE under some shells, SIGHUP under nohup) or handles itself is left so.
void InstallTemporaryCleanup() {
    static std::once_flag once;
    std::call_once(once, [] {
        for (int sig : kCleanedSignals) {
            struct sigaction old {};
            if (::sigaction(sig, nullptr, &old) != 0 || old.sa_handler != SIG_DFL ||
                (old.sa_flags & SA_SIGINFO))
                continue;
            struct sigaction action {};
            action.sa_handler = RemoveTemporariesAndRaise;
            sigemptyset(&action.sa_mask);
            for (int other : kCleanedSignals)
                sigaddset(&action.sa_mask, other);
            ::sigaction(sig, &action, nullptr);
        }
    });
}

// Notes a temporary file for the signal handler; -1 when the table is full or the path too long
// (the file is then only removed on the normal ways out).
int RememberTemporary(const fs::path& temp) {
    InstallTemporaryCleanup();
    std::error_code ec;
    const std::string path = fs::absolute(temp, ec).string();
    if (ec || path.size() >= kTemporaryPathMax) return -1;
    for (int i = 0; i < kTemporarySlots; ++i) {
        int expected = 0;
        if (!g_temporaries[i].state.compare_exchange_strong(expected, 1)) continue;
        std::memcpy(g_temporaries[i].path, path.c_str(), path.size() + 1);
        g_temporaries[i].state.store(2);
        return i;
    }
    return -1;
}

void ForgetTemporary(int slot) {
    if (slot >= 0) g_temporaries[slot].state.store(0);
}

// A temporary file beside `path`, created with O_EXCL under a name of its own; a name that is
// taken (by a file an earlier run left behind, or by another writer) is tried again under another.
// Sets `temp`; an invalid descriptor with errno set when none can be made.
int CreateTemporary(const fs::path& folder, fs::path& temp) {
    static std::atomic<unsigned> counter{0};
    constexpr int kTries = 100;
    const auto pid = std::to_string(::getpid());
    for (int attempt = 0; attempt < kTries; ++attempt) {
        // A clock reading makes the name differ from a run that had the same process id.
        const auto tick = static_cast<unsigned long long>(
            std::chrono::steady_clock::now().time_since_epoch().count());
        temp = folder / (".numarel-" + pid + "-" + std::to_string(counter++) + "-" +
                         std::to_string(tick % 1000000007ULL) + ".tmp");
        int fd = OpenRetrying(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOCTTY, 0666);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    errno = EEXIST;
    return -1;
}

// Removes the temporary files that runs which no longer exist left in `folder` (a kill -9, a power
// cut): ".numarel-PID-....tmp" whose process is gone and which were last written more than an
// hour ago, so that a writer on another machine or in another container that shares the folder,
// whose process this one cannot see, is never robbed of its file.
void RemoveStaleTemporaries(const fs::path& folder) {
    std::error_code ec;
    const auto now = fs::file_time_type::clock::now();
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (!name.starts_with(".numarel-") || !name.ends_with(".tmp")) continue;
        const std::size_t dash = name.find('-', 9);
        if (dash == std::string::npos || dash == 9) continue;
        long pid = 0;
        for (std::size_t i = 9; i < dash && pid < (1L << 30); ++i) {
            if (name[i] < '0' || name[i] > '9') {
                pid = -1;
                break;
            }
            pid = pid * 10 + (name[i] - '0');
        }
        if (pid <= 0 || ::kill(static_cast<pid_t>(pid), 0) == 0 || errno != ESRCH) continue;
        std::error_code timeError;
        const auto written = fs::last_write_time(it->path(), timeError);
        if (timeError || now - written < std::chrono::hours(1)) continue;
        if (it->is_regular_file(timeError)) ::unlink(it->path().c_str());
    }
}

std::chrono::milliseconds g_lockWait = kLockWait;

}  // namespace

std::string FileErrorReason(int error) {
    switch (error) {
        case ENOENT:
            return "the folder does not exist";
        case ENOTDIR:
            return "a part of its path is a file, not a folder";
        case ELOOP:
            return "its path is a loop of links";
        case ENXIO:
            return "it is a pipe that no program reads";
        case ENOSPC:
        case EDQUOT:
            return "the disk is full";
        case EISDIR:
            return "it is a folder";
        case EACCES:
        case EPERM:
            return "no permission";
        case EROFS:
            return "the disk is read-only";
        case ENAMETOOLONG:
            return "the name is too long";
        case EFBIG:
            return "the file is too large";
        case EIO:
            return "the disk reported an error";
        default:
            return std::generic_category().message(error);
    }
}

std::string NotAFolderReason(const fs::path& path) {
    std::error_code ec;
    for (fs::path p = path.parent_path(); !p.empty(); p = p.parent_path()) {
        fs::file_status status = fs::status(p, ec);
        if (fs::exists(status) && !fs::is_directory(status))
            return Quoted(p) + " is a file, not a folder";
        if (p == p.parent_path()) break;
    }
    return FileErrorReason(ENOTDIR);
}

Status ReadFileBytes(const fs::path& path, std::string& bytes, std::string_view what) {
    bytes.clear();
    if (path.empty()) return Status::NotFound(std::string(kNoLotteryText));
    const std::string named = std::string(what) + " " + Quoted(path);
    auto failed = [&](int error) {
        bytes.clear();
        return Status::IoError(
            "Cannot read the " + named + ": " +
            (error == ENOTDIR ? NotAFolderReason(path) : FileErrorReason(error)) + ".");
    };
    // O_NONBLOCK: opening a pipe that no program writes would otherwise wait for ever.
    Descriptor fd(OpenRetrying(path.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK));
    if (!fd) {
        if (errno == ENOENT) return Status::NotFound("The " + named + " does not exist.");
        return failed(errno);
    }
    struct stat st {};
    if (::fstat(fd.get(), &st) != 0) return failed(errno);
    if (S_ISDIR(st.st_mode))
        return Status::IoError(Quoted(path) + " is a folder, not a " + std::string(what) + ".");
    if (!S_ISREG(st.st_mode))
        return Status::IoError("Cannot read the " + named + ": " + KindReason(st.st_mode) + ".");
    auto tooLarge = [&] {
        bytes.clear();
        return Status::IoError("The " + named + " is too large (more than " +
                               std::to_string(kMaxReadBytes >> 20) + " MB).");
    };
    if (static_cast<std::uint64_t>(st.st_size) > kMaxReadBytes) return tooLarge();
    ::fcntl(fd.get(), F_SETFL, ::fcntl(fd.get(), F_GETFL) & ~O_NONBLOCK);
    if (st.st_size > 0) bytes.reserve(static_cast<std::size_t>(st.st_size));
    char buffer[65536];
    for (;;) {
        ssize_t n = ::read(fd.get(), buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return failed(errno);
        if (n == 0) break;
        if (bytes.size() + static_cast<std::size_t>(n) > kMaxReadBytes) return tooLarge();
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
    return Status::Ok();
}

Status ReadStreamBytes(std::istream& in, std::string_view what, std::string& bytes) {
    bytes.clear();
    std::unique_ptr<char[]> buffer(new char[65536]);
    while (in) {
        in.read(buffer.get(), 65536);
        const auto n = static_cast<std::size_t>(in.gcount());
        if (bytes.size() + n > kMaxReadBytes) {
            bytes.clear();
            bytes.shrink_to_fit();
            return Status::IoError(std::string(what) + " holds more than " +
                                   std::to_string(kMaxReadBytes >> 20) +
                                   " MB, more than any results file; it was not read.");
        }
        bytes.append(buffer.get(), n);
    }
    if (in.bad()) {
        bytes.clear();
        return Status::IoError(std::string(what) + " could not be read to its end.");
    }
    return Status::Ok();
}

Status WriteFileSafely(const fs::path& requested, std::string_view bytes) {
    return WriteFileSafely(requested, [bytes](std::ostream& os) {
        os.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    });
}

Status WriteFileSafely(const fs::path& requested, const std::function<void(std::ostream&)>& write) {
    if (requested.empty()) return Status::NotFound(std::string(kNoLotteryText));
    std::error_code ec;
    // A link stays a link: its target is what gets replaced.
    fs::path path = requested;
    if (fs::is_symlink(fs::symlink_status(requested, ec))) {
        fs::path target = fs::weakly_canonical(requested, ec);
        if (!ec) path = target;
    }
    struct stat st {};
    bool hadOldFile = false;
    if (::stat(path.c_str(), &st) == 0) {
        if (S_ISDIR(st.st_mode)) return WriteFailed(path, EISDIR, false);
        if (!S_ISREG(st.st_mode)) {
            if (IsNullDevice(st)) return WriteInPlace(path, write);
            return Status::IoError("Cannot write " + Quoted(path) + ": " + KindReason(st.st_mode) +
                                   ".");
        }
        hadOldFile = true;
    } else if (errno != ENOENT) {
        // A loop of links, a file where a folder should be, a folder that cannot be searched.
        return WriteFailed(path, errno, false);
    }

    fs::path folder = path.parent_path();
    if (folder.empty()) folder = ".";
    fs::path temp;
    if (Faulted(WriteStep::Create)) return WriteFailed(path, errno, hadOldFile);
    Descriptor fd(CreateTemporary(folder, temp));
    if (!fd) return WriteFailed(path, errno, hadOldFile);
    const int slot = RememberTemporary(temp);
    auto removeTemporary = [&] {
        ::unlink(temp.c_str());
        ForgetTemporary(slot);
    };
    auto abandon = [&](int error) {
        fd.Close();
        removeTemporary();
        return WriteFailed(path, error, hadOldFile);
    };
    // The new file keeps the old one's permissions.
    if (hadOldFile) ::fchmod(fd.get(), st.st_mode & 07777);
    bool written;
    try {
        written = WriteThrough(fd.get(), write);
    } catch (...) {
        fd.Close();
        removeTemporary();
        throw;
    }
    if (!written) return abandon(errno);
    // The data must be on the disk before the name points at it, or a crash right after the
    // rename can leave an empty file behind the old name.
    if (!Sync(fd.get(), WriteStep::SyncFile)) return abandon(errno);
    if (!fd.Close()) {
        int error = errno;
        removeTemporary();
        return WriteFailed(path, error, hadOldFile);
    }
    if (Faulted(WriteStep::Rename) || ::rename(temp.c_str(), path.c_str()) != 0) {
        int error = errno;
        removeTemporary();
        return WriteFailed(path, error, hadOldFile);
    }
    ForgetTemporary(slot);
    RemoveStaleTemporaries(folder);
    // The rename itself is durable only once the folder is flushed too.
    Descriptor dir(OpenRetrying(folder.c_str(), O_RDONLY | O_DIRECTORY));
    if (Faulted(WriteStep::SyncFolder) || (dir && !Sync(dir.get(), WriteStep::SyncFolder)))
        return Status::IoError(Quoted(path) + " was written, but the disk did not confirm it: " +
                               FileErrorReason(errno) + ".");
    return Status::Ok();
}

bool SameFile(const fs::path& a, const fs::path& b) {
    if (a.empty() || b.empty()) return false;
    std::error_code ec;
    if (fs::exists(a, ec) && fs::exists(b, ec)) {
        bool same = fs::equivalent(a, b, ec);
        return !ec && same;
    }
    fs::path ca = fs::weakly_canonical(fs::absolute(a, ec), ec);
    fs::path cb = fs::weakly_canonical(fs::absolute(b, ec), ec);
    return ca.lexically_normal() == cb.lexically_normal();
}

fs::path DrawingsFileLock::LockFileOf(const fs::path& drawings) {
    std::error_code ec;
    fs::path path = fs::weakly_canonical(fs::absolute(drawings, ec), ec);
    if (ec || path.empty()) path = drawings;
    return path.parent_path() / ("." + path.filename().string() + ".lock");
}

Status DrawingsFileLock::Acquire(const fs::path& drawings) {
    Release();
    const fs::path lockFile = LockFileOf(drawings);
    const auto deadline = std::chrono::steady_clock::now() + g_lockWait;
    for (;;) {
        int fd = OpenRetrying(lockFile.c_str(), O_RDWR | O_CREAT | O_NOCTTY | O_NOFOLLOW, 0666);
        // No lock file can be made: the write that follows says why, or there is nothing to guard.
        if (fd < 0) return Status::Ok();
        int locked;
        do {
            locked = ::flock(fd, LOCK_EX | LOCK_NB);
        } while (locked != 0 && errno == EINTR);
        if (locked != 0 && errno != EWOULDBLOCK) {
            // A file system without locks: go on as before there were any.
            ::close(fd);
            return Status::Ok();
        }
        if (locked == 0) {
            // The holder before removes the lock file as it lets go; a lock taken on a file that
            // is no longer the one of that name guards nothing, so it is taken again.
            struct stat held {
            }, named{};
            if (::fstat(fd, &held) == 0 && ::stat(lockFile.c_str(), &named) == 0 &&
                held.st_dev == named.st_dev && held.st_ino == named.st_ino) {
                fd_ = fd;
                lockFile_ = lockFile.string();
                return Status::Ok();
            }
            ::close(fd);
            continue;
        }
        ::close(fd);
        if (std::chrono::steady_clock::now() >= deadline) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(g_lockWait).count();
    return Status::Busy(Quoted(drawings) + " is busy: another program is writing it (waited " +
                        std::to_string(seconds) + (seconds == 1 ? " second" : " seconds") +
                        "). Nothing was written; try again.");
}

void DrawingsFileLock::Release() {
    if (fd_ < 0) return;
    // Removed while still held, so that no other writer can take a lock on a file that is gone.
    ::unlink(lockFile_.c_str());
    ::close(fd_);  // lets go of the lock
    fd_ = -1;
    lockFile_.clear();
}

ScopedLockWait::ScopedLockWait(std::chrono::milliseconds wait) {
    g_lockWait = wait;
}

ScopedLockWait::~ScopedLockWait() {
    g_lockWait = kLockWait;
}

ScopedWriteFault::ScopedWriteFault(WriteStep step, int error) {
    g_fault = Fault{step, error};
}

ScopedWriteFault::~ScopedWriteFault() {
    g_fault.reset();
}

}  // namespace numarel
