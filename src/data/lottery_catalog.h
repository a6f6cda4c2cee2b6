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

// True when `name` can stand for a lottery: one file name in the data folder and nothing else.
// Not a name: an empty one, "." or "..", one with a path separator or a drive ("C:"), and one with
// a control character, a double quote or a blank at either end, which the quoted selection file
// cannot hold as they stand.
bool IsLotteryFileName(std::string_view name);

// The one rule for the name of a new lottery, for the desktop program's New Lottery and the
// command line's import --lottery alike: empty when `name` meets it, otherwise the rule it breaks,
// as one sentence. A name is not empty, holds no path separator, none of * ? " < > | (which a
// file name on some systems, or the quoted selection file, cannot hold) and no control character,
// does not begin with a drive ("C:"), a dot (a hidden file) or a blank, does not end with a dot or
// a blank, holds no "..", and is at most kLongestLotteryName bytes long. Every name it lets pass
// is one IsLotteryFileName takes, with ".txt" after it.
std::string LotteryNameProblem(std::string_view name);
inline constexpr std::size_t kLongestLotteryName = 200;

// A name as a message shows it: control characters as "?", a very long name shortened.
std::string ShownName(std::string_view name);

// The name in the bytes of a selection file: every string in it, the last one wins, trimmed of
// blanks; empty when it holds none. A UTF-8 byte-order mark at the start is skipped. The name is
// what the file says: check it with IsLotteryFileName.
std::string SelectionName(std::string_view bytes);

// The bytes of a selection file naming `name`: the name in double quotes, ended by CR LF.
std::string SelectionBytes(std::string_view name);

// Reads the selection file with SelectionName.
Status ReadSelection(const std::filesystem::path& selectionFile, std::string& name);

// Rewrites the selection file whole, safely, with SelectionBytes. Refuses a name that
// IsLotteryFileName rejects.
Status WriteSelection(const std::filesystem::path& selectionFile, std::string_view name);

// "Lottery:" and the file name cut after its last ".", so that it ends in a full stop; a name
// without a dot gives "Lottery:" alone.
std::string LotteryLabel(std::string_view fileName);

// The lottery in use.
struct CurrentLottery {
    std::filesystem::path drawingsPath;  // empty when there is no lottery at all
    std::string fileName;
    std::string label;
    // Empty when the selection file names a lottery of the data folder; otherwise why it does not,
    // as one sentence without a full stop.
    std::string problem;
    // Non-empty when the selection could not be used: the problem and what was chosen instead.
    // A front end shows it to the user.
    std::string notice;
    // The lottery in use is one that the selection file does not name.
    bool fallback = false;
};

// Reads the selection and changes no file. When the selection file is missing, names no lottery,
// holds something that is not a lottery name, or names a file that is not in data\, falls back to
// the sample lottery (or the first lottery in data\) and says so in `problem` and `notice`.
CurrentLottery ResolveCurrentLottery(const ProgramFolder& folder);

}  // namespace numarel
