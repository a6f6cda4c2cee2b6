#include "data/lottery_catalog.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "data/basic_text.h"
#include "data/drawings_file.h"
#include "data/file_io.h"

namespace numarel {

bool IsLotteryFileName(std::string_view name) {
    // Blanks at either end would be trimmed away when the selection is read back.
    if (name.empty() || name == "." || name == ".." || name.front() == ' ' || name.back() == ' ')
        return false;
    // "C:name" is a path relative to a drive's folder, not a name.
    if (name.size() >= 2 && name[1] == ':' &&
        ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= 'a' && name[0] <= 'z')))
        return false;
    for (char c : name)
        if (c == '/' || c == '\\' || c == '"' || IsControlCharacter(c)) return false;
    return true;
}

std::string LotteryNameProblem(std::string_view name) {
    if (name.empty()) return "A lottery name cannot be empty.";
    for (char c : name)
        if (IsControlCharacter(c))
            return "A lottery name cannot hold a control character (a line break, a tab, ESC).";
    if (name.find_first_of("/\\") != std::string_view::npos)
        return "A lottery name cannot hold a path separator (/ or \\).";
    if (name.find_first_of("*?\"<>|") != std::string_view::npos)
        return "A lottery name cannot hold any of * ? \" < > |.";
    // "C:name" is a path relative to a drive's folder, not a name.
    if (name.size() >= 2 && name[1] == ':' &&
        ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= 'a' && name[0] <= 'z')))
        return "A lottery name cannot begin with a drive such as \"C:\".";
    if (name.front() == '.')
        return "A lottery name cannot begin with a dot: its file would be hidden, and Select "
               "Lottery would not show it.";
    if (name.back() == '.')
        return "A lottery name cannot end with a dot: its file would end in \"..txt\", which "
               "some systems and file dialogs cut or refuse.";
    if (name.find("..") != std::string_view::npos)
        return "A lottery name cannot hold \"..\": in a path two dots name the folder above.";
    if (name.front() == ' ' || name.back() == ' ')
        return "A lottery name cannot begin or end with a blank.";
    if (name.size() > kLongestLotteryName)
        return "A lottery name can be at most " + std::to_string(kLongestLotteryName) +
               " characters long.";
    return {};
}

std::string ShownName(std::string_view name) {
    constexpr std::size_t kLongest = 80;
    std::string shown;
    for (char c : name.substr(0, kLongest))
        shown += IsControlCharacter(c) ? '?' : c;
    if (name.size() > kLongest) shown += "...";
    return shown;
}

std::string SelectionName(std::string_view bytes) {
    // The strings are read with the free-field rules of the drawings file.
    std::vector<std::string> strings = ParseFields(WithoutUtf8Mark(bytes));
    return strings.empty() ? std::string() : std::string(Trim(strings.back()));
}

std::string SelectionBytes(std::string_view name) {
    return "\"" + std::string(name) + "\"\r\n";
}

Status ReadSelection(const std::filesystem::path& selectionFile, std::string& name) {
    name.clear();
    std::string bytes;
    Status s = ReadFileBytes(selectionFile, bytes, "selection file");
    if (s.ok()) name = SelectionName(bytes);
    return s;
}

Status WriteSelection(const std::filesystem::path& selectionFile, std::string_view name) {
    if (!IsLotteryFileName(name))
        return Status::InvalidArgument("\"" + ShownName(name) + "\" is not a lottery name.");
    std::error_code ec;
    std::filesystem::create_directories(selectionFile.parent_path(), ec);
    return WriteFileSafely(selectionFile, SelectionBytes(name));
}

std::string LotteryLabel(std::string_view fileName) {
    std::size_t dot = fileName.rfind('.');
    std::string label = "Lottery:";
    if (dot != std::string_view::npos) label += fileName.substr(0, dot + 1);
    return label;
}

CurrentLottery ResolveCurrentLottery(const ProgramFolder& folder) {
    CurrentLottery current;
    std::string name;
    std::error_code ec;
    Status s = ReadSelection(folder.SelectionFile(), name);
    const bool usable = s.ok() && IsLotteryFileName(name);
    if (usable && std::filesystem::is_regular_file(folder.DataDir() / name, ec)) {
        current.fileName = name;
        current.drawingsPath = folder.DataDir() / name;
        current.label = LotteryLabel(name);
        return current;
    }
    if (!s.ok())
        current.problem = s.code() == Status::Code::NotFound
                              ? "No lottery was selected yet"
                              : "The selection file cannot be read (" + s.message() + ")";
    else if (name.empty())
        current.problem = "The selection file names no lottery";
    else if (!usable)
        current.problem =
            "The selection file holds \"" + ShownName(name) + "\", which is not a lottery name";
    else
        current.problem =
            "The selected lottery \"" + ShownName(name) + "\" is not in the data folder";

    // Fall back to the sample, or else the first lottery in data\ by name.
    std::string fallback;
    if (std::filesystem::is_regular_file(folder.DataDir() / kSampleLotteryFile, ec)) {
        fallback = std::string(kSampleLotteryFile);
    } else {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.DataDir(), ec)) {
            std::string file = entry.path().filename().string();
            if (entry.is_regular_file(ec) && entry.path().extension() == ".txt" &&
                IsLotteryFileName(file))
                names.push_back(std::move(file));
        }
        std::sort(names.begin(), names.end());
        if (!names.empty()) fallback = names.front();
    }
    if (fallback.empty()) {
        current.label = "Lottery:";
        current.notice = current.problem +
                         ", and there is no lottery in the data folder. Make one with New "
                         "Lottery.";
        return current;
    }
    current.fileName = fallback;
    current.drawingsPath = folder.DataDir() / fallback;
    current.label = LotteryLabel(fallback);
    current.notice = current.problem + "; using \"" + fallback + "\".";
    current.fallback = true;
    return current;
}

}  // namespace numarel
