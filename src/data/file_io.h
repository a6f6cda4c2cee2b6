#pragma once

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

// Reads a whole file into `bytes`. A missing file, a folder, an unreadable file and an empty path
// (no lottery) each fail with a message that names the file and says why.
Status ReadFileBytes(const std::filesystem::path& path, std::string& bytes);

// Writes `bytes` to `path` so that the old file is never lost: a temporary file in the same folder
// is written, flushed to the disk and only then renamed over the old one, and the folder is
// flushed after the rename. On any failure the old file stays byte for byte as it was, no
// temporary file is left, and the message names the file and the reason in plain words.
// A link is followed and its target replaced; a device such as /dev/null is written in place.
Status WriteFileSafely(const std::filesystem::path& path, std::string_view bytes);

// The same for contents made while they are written: `write` streams them into the file a block
// at a time, so that a large export never sits in memory whole.
Status WriteFileSafely(const std::filesystem::path& path,
                       const std::function<void(std::ostream&)>& write);

// A reason for a failed file operation in words a user understands ("the disk is full").
std::string FileErrorReason(int error);

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
