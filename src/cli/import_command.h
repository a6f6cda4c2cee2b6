#pragma once

#include <CLI/CLI.hpp>
#include <iosfwd>
#include <string>
#include <vector>

#include "data/lottery_catalog.h"

namespace numarel {

// numarel-cli import: a results file into a drawings file, appending only what is new.
struct ImportCommand {
    CLI::App* command = nullptr;
    std::string source;
    std::string into;
    std::string lottery;
    bool dryRun = false;
    bool strict = false;
    std::string dateColumn;
    std::string drawColumn;
    std::vector<std::string> digitsColumns;
    std::string dateFormat;
    std::string dates = "auto";
};

// Adds the subcommand and its options to `app`, bound to `command`.
void AddImportCommand(CLI::App& app, ImportCommand& command);

// Runs the parsed command: the summary on `out`, one line on `err` when it refuses. `in` is the
// source named "-". Returns the exit code.
int RunImportCommand(const ImportCommand& command, const ProgramFolder& folder, std::istream& in,
                     std::ostream& out, std::ostream& err);

}  // namespace numarel
