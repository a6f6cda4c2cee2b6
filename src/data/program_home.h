#pragma once

#include <filesystem>
#include <string>

#include "data/lottery_catalog.h"
#include "data/status.h"

namespace numarel {

// What decides where a user's lotteries live, taken from the process (or made up by tests).
struct HomeEnvironment {
    std::string numarelHome;           // NUMAREL_HOME; empty when unset
    std::string xdgDataHome;           // XDG_DATA_HOME; empty when unset
    std::string home;                  // HOME
    std::filesystem::path currentDir;  // against which a relative NUMAREL_HOME is read
    static HomeEnvironment FromProcess();
};

// The folder of shipped files (help pages, the sample lottery) for a program in `programDir`:
// `programDir` itself when it holds help/ (a build tree, an unpacked portable copy), otherwise
// ../share/numarel beside its bin/ folder.
std::filesystem::path ShippedFilesDir(const std::filesystem::path& programDir);

// The program folder of a program in `programDir`, one rule for the desktop program and the
// command line:
//   1. NUMAREL_HOME, when set (relative to the current folder when relative);
//   2. otherwise `programDir`, when it holds a writable data/;
//   3. otherwise $XDG_DATA_HOME/numarel, or ~/.local/share/numarel.
// A folder of rule 1 or 3 that has no data/ yet is set up with the shipped sample lottery and a
// selection file naming it; nothing a user already has there is ever overwritten. Fails, naming
// the folder and what went wrong, when the folder cannot be made or written.
Status ResolveProgramFolder(const std::filesystem::path& programDir, const HomeEnvironment& env,
                            ProgramFolder& folder);

}  // namespace numarel
