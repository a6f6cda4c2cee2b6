#pragma once

#include <filesystem>
#include <iosfwd>

namespace numarel {

// Runs numarel-cli with `argv`, writing results to `out` and the one-line error to `err`.
// `programFolder` is where data\, Numarel\ and help\ live. Returns the exit code.
int RunCli(int argc, const char* const* argv, const std::filesystem::path& programFolder,
           std::ostream& out, std::ostream& err);

}  // namespace numarel
