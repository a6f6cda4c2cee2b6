#pragma once

#include <filesystem>
#include <string>

#include "data/lottery_catalog.h"
#include "platform/platform.h"

namespace numarel {

// What the windows of one run share: where the program lives, the current lottery and the
// platform they speak through. Reports read `drawingsPath` once, when they open.
struct Session {
    ProgramFolder folder;
    Platform& platform;
    std::filesystem::path drawingsPath;  // CurrentDrawingsPath
    std::string lotteryLabel = "Lottery:";
};

}  // namespace numarel
