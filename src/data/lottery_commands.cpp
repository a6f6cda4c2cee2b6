#include "data/lottery_commands.h"

#include <system_error>

#include "data/basic_text.h"
#include "data/file_io.h"

namespace numarel {
namespace {

UserMessage Tip(std::string text) {
    return {kFriendshipTip, std::move(text)};
}

}  // namespace

LotteryChange NewLottery(const ProgramFolder& folder, std::string_view answer) {
    LotteryChange change;
    std::string name(Trim(answer));
    if (name.empty()) {
        change.message = Tip("You have not entered a name.");
        return change;
    }
    std::string fileName = name + ".txt";
    if (std::string problem = LotteryNameProblem(name); !problem.empty()) {
        change.message = Tip("\"" + ShownName(name) + "\" cannot be used as a file name. " +
                             problem + " Please rename.");
        return change;
    }
    std::filesystem::path path = folder.DataDir() / fileName;
    std::error_code ec;
    std::filesystem::create_directories(folder.DataDir(), ec);
    // Under the lock, so that no other writer makes the same file between the test and the
    // creation.
    DrawingsFileLock lock;
    Status created = lock.Acquire(path);
    // A link that leads nowhere is a name in use too.
    if (created.ok() && std::filesystem::exists(std::filesystem::symlink_status(path, ec))) {
        change.message = Tip("This lottery already exists.Please rename.");
        return change;
    }
    if (created.ok()) created = WriteFileSafely(path, std::string_view{});
    if (!created.ok()) {
        change.message = {
            "Error:",
            "The lottery \"" + ShownName(name) + "\" could not be created. " + created.message(),
            MessageIcon::Warning};
        return change;
    }

    change.changed = true;
    change.drawingsPath = path;
    change.fileName = fileName;
    change.label = LotteryLabel(fileName);
    Status s = WriteSelection(folder.SelectionFile(), fileName);
    change.message =
        s.ok() ? Tip("Lottery have been created and selected.Next, you can click Drawings button "
                     "to edit it.")
               : UserMessage{"Error:",
                             "The lottery has been created, but it cannot be kept as "
                             "the selected lottery: " +
                                 s.message(),
                             MessageIcon::Warning};
    return change;
}

std::string DataFolderText(const ProgramFolder& folder) {
    std::string text = folder.DataDir().string();
    text += std::filesystem::path::preferred_separator;
    return text;
}

LotteryChange SelectLottery(const ProgramFolder& folder, std::string_view chosenPath) {
    LotteryChange change;
    const std::string dataFolder = DataFolderText(folder);
    std::size_t cut = chosenPath.find_last_of(std::filesystem::path::preferred_separator);
    std::string_view chosenFolder =
        cut == std::string_view::npos ? std::string_view() : chosenPath.substr(0, cut + 1);
    if (chosenFolder != dataFolder) {
        change.message = {
            "Error:", "You must select lottery of the " + dataFolder + "\nPlease select again!"};
        return change;
    }
    std::string name(chosenPath.substr(cut + 1));
    // A file of the data folder whose name the selection file cannot hold.
    if (!IsLotteryFileName(name)) {
        change.message = {
            "Error:",
            "\"" + ShownName(name) + "\" cannot be used as a lottery name.Please rename the file.",
            MessageIcon::Warning};
        return change;
    }
    change.changed = true;
    change.drawingsPath = std::filesystem::path(std::string(chosenPath));
    change.fileName = name;
    change.label = LotteryLabel(name);
    Status s = WriteSelection(folder.SelectionFile(), name);
    change.message = s.ok() ? UserMessage{"OK:", "You have selected " + name}
                            : UserMessage{"Error:",
                                          "You have selected " + name +
                                              ", but the choice cannot be kept: " + s.message(),
                                          MessageIcon::Warning};
    return change;
}

}  // namespace numarel
