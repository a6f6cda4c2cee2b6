#include "data/program_home.h"

#include <unistd.h>

#include <cstdlib>
#include <system_error>

namespace numarel {
namespace {

std::string Env(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool IsWritableFolder(const std::filesystem::path& dir) {
    std::error_code ec;
    return std::filesystem::is_directory(dir, ec) && ::access(dir.c_str(), W_OK | X_OK) == 0;
}

Status CannotUse(const std::filesystem::path& dir, const std::string& why) {
    return Status::IoError("The folder for your lotteries, \"" + dir.string() +
                           "\", cannot be used: " + why + ".");
}

// Gives a folder without data/ the sample lottery and a selection file naming it. A user's own
// data/, selection file and lotteries are left exactly as they are.
Status SetUp(const std::filesystem::path& root, const std::filesystem::path& shipped) {
    std::error_code ec;
    const ProgramFolder folder{root};
    if (std::filesystem::exists(folder.DataDir(), ec)) {
        if (!IsWritableFolder(folder.DataDir()))
            return CannotUse(root, "its data folder is not a folder that can be written");
        return Status::Ok();
    }
    std::filesystem::create_directories(folder.DataDir(), ec);
    if (ec) return CannotUse(root, ec.message());
    const std::filesystem::path sample = shipped / "data" / std::string(kSampleLotteryFile);
    if (std::filesystem::is_regular_file(sample, ec)) {
        std::filesystem::copy_file(sample, folder.DataDir() / sample.filename(), ec);
        if (ec) return CannotUse(root, "the sample lottery could not be copied: " + ec.message());
        if (!std::filesystem::exists(folder.SelectionFile(), ec)) {
            Status s = WriteSelection(folder.SelectionFile(), kSampleLotteryFile);
            if (!s.ok()) return CannotUse(root, s.message());
        }
    }
    return Status::Ok();
}

}  // namespace

HomeEnvironment HomeEnvironment::FromProcess() {
    std::error_code ec;
    return {Env("NUMAREL_HOME"), Env("XDG_DATA_HOME"), Env("HOME"),
            std::filesystem::current_path(ec)};
}

std::filesystem::path ShippedFilesDir(const std::filesystem::path& programDir) {
    std::error_code ec;
    if (std::filesystem::is_directory(programDir / "help", ec)) return programDir;
    return (programDir / ".." / "share" / "numarel").lexically_normal();
}

Status ResolveProgramFolder(const std::filesystem::path& programDir, const HomeEnvironment& env,
                            ProgramFolder& folder) {
    const std::filesystem::path shipped = ShippedFilesDir(programDir);
    std::filesystem::path root;
    if (!env.numarelHome.empty()) {
        root = (env.currentDir / env.numarelHome).lexically_normal();
    } else if (IsWritableFolder(programDir / "data")) {
        folder = ProgramFolder{programDir, shipped};
        return Status::Ok();
    } else {
        std::filesystem::path base = env.xdgDataHome;
        // Only an absolute XDG_DATA_HOME counts; a relative one is to be ignored.
        if (base.empty() || base.is_relative()) {
            if (env.home.empty())
                return Status::IoError(
                    "There is no folder for your lotteries: neither HOME nor XDG_DATA_HOME is "
                    "set.");
            base = std::filesystem::path(env.home) / ".local" / "share";
        }
        root = base / "numarel";
    }
    Status s = SetUp(root, shipped);
    if (!s.ok()) return s;
    folder = ProgramFolder{root, shipped};
    return Status::Ok();
}

}  // namespace numarel
