#include "data/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <memory>
#include <optional>
#include <ostream>
#include <streambuf>
#include <system_error>

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
    std::string text = "Cannot write " + Quoted(path) + ": " + FileErrorReason(error) + ".";
    if (hadOldFile) text += " The file was left as it was.";
    return Status::IoError(std::move(text));
}

// A device, a pipe or a socket: there is nothing to replace, so it is written in place.
Status WriteInPlace(const fs::path& path, const std::function<void(std::ostream&)>& write) {
    if (Faulted(WriteStep::Create)) return WriteFailed(path, errno, false);
    Descriptor fd(OpenRetrying(path.c_str(), O_WRONLY | O_TRUNC | O_NOCTTY));
    if (!fd) return WriteFailed(path, errno, false);
    if (!WriteThrough(fd.get(), write) || !Sync(fd.get(), WriteStep::SyncFile) || !fd.Close())
        return WriteFailed(path, errno, false);
    return Status::Ok();
}

// A name for the temporary file that no other writer uses at the same moment.
std::string TemporaryName() {
    static std::atomic<unsigned> counter{0};
    return ".numarel-" + std::to_string(::getpid()) + "-" + std::to_string(counter++) + ".tmp";
}

}  // namespace

std::string FileErrorReason(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return "the folder does not exist";
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

Status ReadFileBytes(const fs::path& path, std::string& bytes) {
    bytes.clear();
    if (path.empty()) return Status::NotFound(std::string(kNoLotteryText));
    std::error_code ec;
    fs::file_status status = fs::status(path, ec);
    if (!fs::exists(status))
        return Status::NotFound("The file " + Quoted(path) + " does not exist.");
    if (fs::is_directory(status))
        return Status::IoError(Quoted(path) + " is a folder, not a drawings file.");
    auto failed = [&](int error) {
        bytes.clear();
        return Status::IoError("Cannot read " + Quoted(path) + ": " + FileErrorReason(error) + ".");
    };
    Descriptor fd(OpenRetrying(path.c_str(), O_RDONLY | O_NOCTTY));
    if (!fd) return failed(errno);
    struct stat st {};
    if (::fstat(fd.get(), &st) == 0 && S_ISREG(st.st_mode) && st.st_size > 0)
        bytes.reserve(static_cast<std::size_t>(st.st_size));
    char buffer[65536];
    for (;;) {
        ssize_t n = ::read(fd.get(), buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return failed(errno);
        if (n == 0) break;
        if (bytes.size() + static_cast<std::size_t>(n) > kMaxReadBytes) {
            bytes.clear();
            return Status::IoError(Quoted(path) +
                                   " is too large to be a drawings file (more than " +
                                   std::to_string(kMaxReadBytes >> 20) + " MB).");
        }
        bytes.append(buffer, static_cast<std::size_t>(n));
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
    fs::file_status status = fs::status(path, ec);
    if (fs::is_directory(status)) return WriteFailed(path, EISDIR, false);
    const bool hadOldFile = fs::exists(status);
    if (hadOldFile && !fs::is_regular_file(status)) return WriteInPlace(path, write);

    fs::path folder = path.parent_path();
    if (folder.empty()) folder = ".";
    const fs::path temp = folder / TemporaryName();
    if (Faulted(WriteStep::Create)) return WriteFailed(path, errno, hadOldFile);
    Descriptor fd(OpenRetrying(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOCTTY, 0666));
    if (!fd) return WriteFailed(path, errno, hadOldFile);
    auto abandon = [&](int error) {
        fd.Close();
        ::unlink(temp.c_str());
        return WriteFailed(path, error, hadOldFile);
    };
    // The new file keeps the old one's permissions.
    if (hadOldFile) {
        struct stat old {};
        if (::stat(path.c_str(), &old) == 0) ::fchmod(fd.get(), old.st_mode & 07777);
    }
    bool written;
    try {
        written = WriteThrough(fd.get(), write);
    } catch (...) {
        fd.Close();
        ::unlink(temp.c_str());
        throw;
    }
    if (!written) return abandon(errno);
    // The data must be on the disk before the name points at it, or a crash right after the
    // rename can leave an empty file behind the old name.
    if (!Sync(fd.get(), WriteStep::SyncFile)) return abandon(errno);
    if (!fd.Close()) {
        int error = errno;
        ::unlink(temp.c_str());
        return WriteFailed(path, error, hadOldFile);
    }
    if (Faulted(WriteStep::Rename) || ::rename(temp.c_str(), path.c_str()) != 0) {
        int error = errno;
        ::unlink(temp.c_str());
        return WriteFailed(path, error, hadOldFile);
    }
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

ScopedWriteFault::ScopedWriteFault(WriteStep step, int error) {
    g_fault = Fault{step, error};
}

ScopedWriteFault::~ScopedWriteFault() {
    g_fault.reset();
}

}  // namespace numarel
