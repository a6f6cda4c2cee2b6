#pragma once

#include <filesystem>
#include <iosfwd>

#include "data/lottery_catalog.h"

namespace numarel {

// Runs numarel-cli with `argv`, writing results to `out` and the one-line error to `err`.
// `folder` is where data\, Numarel\ and help\ live. Returns the exit code.
int RunCli(int argc, const char* const* argv, const ProgramFolder& folder, std::ostream& out,
           std::ostream& err);
// The same for a program folder that holds all three itself.
int RunCli(int argc, const char* const* argv, const std::filesystem::path& programFolder,
           std::ostream& out, std::ostream& err);

}  // namespace numarel
