#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/cli_app.h"

namespace numarel::testing {

// What one run of the command line gave: its exit code and what it wrote to each stream.
struct CliRun {
    int code;
    std::string out;
    std::string err;
};

// Runs numarel-cli with `args` over `folder`: a ProgramFolder, or the path of a folder that holds
// data\, Numarel\ and help\ itself.
template <class Folder>
CliRun RunCliWith(const std::vector<std::string>& args, const Folder& folder) {
    std::vector<const char*> argv{"numarel-cli"};
    for (const std::string& a : args)
        argv.push_back(a.c_str());
    std::ostringstream out, err;
    const int code = RunCli(static_cast<int>(argv.size()), argv.data(), folder, out, err);
    return {code, out.str(), err.str()};
}

}  // namespace numarel::testing
