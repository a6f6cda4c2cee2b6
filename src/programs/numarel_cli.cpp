#include <filesystem>
#include <iostream>

#include "cli/cli_app.h"
#include "data/program_home.h"

int main(int argc, char** argv) {
    std::error_code ec;
    std::filesystem::path exe = std::filesystem::canonical("/proc/self/exe", ec);
    std::filesystem::path programDir = ec ? std::filesystem::current_path() : exe.parent_path();
    numarel::ProgramFolder folder;
    numarel::Status found =
        numarel::ResolveProgramFolder(programDir, numarel::HomeEnvironment::FromProcess(), folder);
    if (!found.ok()) {
        std::cerr << "numarel-cli: " << found.message() << '\n';
        return 1;
    }
    return numarel::RunCli(argc, argv, folder, std::cout, std::cerr);
}
