#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "data/status.h"

namespace numarel {

// The program folder: data\ with one drawings file per lottery, Numarel\ with the selection
// file; and where the shipped help\ pages are, beside it unless the program is installed.
struct ProgramFolder {
    std::filesystem::path root;
    std::filesystem::path shipped = {};  // holds help\; empty: the same as root

    std::filesystem::path DataDir() const { return root / "data"; }
    std::filesystem::path SelectionFile() const { return root / "Numarel" / "shujuwenjian.ini"; }
    std::filesystem::path HelpDir() const { return (shipped.empty() ? root : shipped) / "help"; }
    // The help page `page` + ".htm"; the name is used exactly, trailing blank included.
    std::filesystem::path HelpPage(std::string_view page) const {
        return HelpDir() / (std::string(page) + ".htm");
    }
};

// The name of the sample lottery shipped with the program.
inline constexpr std::string_view kSampleLotteryFile = "Synthetic-Demo.txt";

// Reads the selection file: every string in it, the last one wins. Empty name when it holds none.
Status ReadSelection(const std::filesystem::path& selectionFile, std::string& name);

// Rewrites the selection file whole: the name in double quotes, ended by CR LF.
Status WriteSelection(const std::filesystem::path& selectionFile, std::string_view name);

// "Lottery:" and the file name cut after its last ".", so that it ends in a full stop; a name
// without a dot gives "Lottery:" alone.
std::string LotteryLabel(std::string_view fileName);

// The lottery in use at start-up.
struct CurrentLottery {
    std::filesystem::path drawingsPath;  // empty when there is no lottery at all
    std::string fileName;
    std::string label;
    // Non-empty when the selection could not be used as it stands and something else was chosen;
    // a front end shows it to the user.
    std::string notice;
};

// Reads the selection. When the selection file is missing, empty, or names a file that is not in
// data\, falls back to the sample lottery (or the first lottery in data\), rewrites the selection
// file and says so in `notice`.
CurrentLottery ResolveCurrentLottery(const ProgramFolder& folder);

}  // namespace numarel
