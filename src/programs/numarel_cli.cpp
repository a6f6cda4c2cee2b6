#include <filesystem>
#include <iostream>

#include "cli/cli_app.h"

int main(int argc, char** argv) {
    std::error_code ec;
    std::filesystem::path exe = std::filesystem::canonical("/proc/self/exe", ec);
    std::filesystem::path folder = ec ? std::filesystem::current_path() : exe.parent_path();
    return numarel::RunCli(argc, argv, folder, std::cout, std::cerr);
}
