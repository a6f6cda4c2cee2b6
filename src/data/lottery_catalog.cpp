#include "data/lottery_catalog.h"

#include <algorithm>
#include <fstream>
#include <system_error>
#include <vector>

#include "data/basic_text.h"
#include "data/drawings_file.h"

namespace numarel {

Status ReadSelection(const std::filesystem::path& selectionFile, std::string& name) {
    std::string bytes;
    Status s = ReadFileBytes(selectionFile, bytes);
    if (!s.ok()) return s;
    // The selection file is read with the same free-field rules as a drawings file.
    name.clear();
    for (const DrawRecord& r : ParseDrawings(bytes)) {
        for (const std::string* f : {&r.date, &r.h, &r.t, &r.u})
            if (!f->empty()) name = *f;
    }
    return Status::Ok();
}

Status WriteSelection(const std::filesystem::path& selectionFile, std::string_view name) {
    std::error_code ec;
    std::filesystem::create_directories(selectionFile.parent_path(), ec);
    std::ofstream out(selectionFile, std::ios::binary | std::ios::trunc);
    if (!out) return Status::IoError("The selection file cannot be written.");
    out << '"' << name << "\"\r\n";
    return out ? Status::Ok() : Status::IoError("The selection file cannot be written.");
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
    name = std::string(Trim(name));
    if (s.ok() && !name.empty() && std::filesystem::is_regular_file(folder.DataDir() / name, ec)) {
        current.fileName = name;
        current.drawingsPath = folder.DataDir() / name;
        current.label = LotteryLabel(name);
        return current;
    }

    // Fall back to the sample, or else the first lottery in data\ by name.
    std::string fallback;
    if (std::filesystem::is_regular_file(folder.DataDir() / kSampleLotteryFile, ec)) {
        fallback = std::string(kSampleLotteryFile);
    } else {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.DataDir(), ec)) {
            if (entry.is_regular_file() && entry.path().extension() == ".txt")
                names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        if (!names.empty()) fallback = names.front();
    }
    std::string why = !s.ok()        ? "No lottery was selected yet"
                      : name.empty() ? "The selection file names no lottery"
                                     : "The selected lottery \"" + name + "\" was not found";
    if (fallback.empty()) {
        current.label = "Lottery:";
        current.notice = why +
                         ", and there is no lottery in the data folder. Create one with "
                         "New Lottery.";
        return current;
    }
    current.fileName = fallback;
    current.drawingsPath = folder.DataDir() / fallback;
    current.label = LotteryLabel(fallback);
    current.notice = why + "; using \"" + fallback + "\".";
    WriteSelection(folder.SelectionFile(), fallback);
    return current;
}

}  // namespace numarel
