#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "data/lottery_catalog.h"
#include "data/user_message.h"

namespace numarel {

// What the desktop program asks before it runs a lottery command.
namespace lottery_texts {
inline constexpr const char* kNewLotteryPromptTitle = "New Lottery:";
inline constexpr const char* kNewLotteryPromptText = "Please enter a valid file name.";
inline constexpr const char* kSelectQuestion = "Are you sure you want to select lottery?";
inline constexpr const char* kSelectDialogTitle = "Select Lottery";
inline constexpr const char* kSelectDialogFilter = "Lottery file|*.txt";
}  // namespace lottery_texts

// The outcome of New Lottery or Select Lottery. When `changed`, the current lottery is now
// `drawingsPath` and the selection file names it; `message` is shown either way.
struct LotteryChange {
    bool changed = false;
    std::filesystem::path drawingsPath;
    std::string fileName;
    std::string label;
    UserMessage message;
};

// New Lottery with the prompt's answer (empty when the prompt was cancelled): creates an empty
// drawings file named after the trimmed answer and makes it the current lottery.
LotteryChange NewLottery(const ProgramFolder& folder, std::string_view answer);

// The folder a selected lottery must lie in, as the user sees it: the data folder with a
// separator at the end.
std::string DataFolderText(const ProgramFolder& folder);

// Select Lottery with the path chosen in the file dialog (after the user confirmed and did not
// cancel): only a file directly in the data folder is accepted.
LotteryChange SelectLottery(const ProgramFolder& folder, std::string_view chosenPath);

}  // namespace numarel
