// Any bytes as a selection file, and as an answer to New Lottery: a name that passes as a lottery
// name stays one file of the data folder and survives being written and read back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "data/basic_text.h"
#include "data/lottery_catalog.h"

namespace {

void CheckName(const std::string& name) {
    using namespace numarel;
    for (char c : ShownName(name))
        if (IsControlCharacter(c)) std::abort();
    if (!IsLotteryFileName(name)) return;
    const std::filesystem::path data = "/program/data";
    const std::filesystem::path file = data / name;
    if (file.parent_path() != data || file.filename() != name) std::abort();
    if (file.lexically_normal().parent_path() != data) std::abort();
    if (SelectionName(SelectionBytes(name)) != name) std::abort();
    LotteryLabel(name);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckName(numarel::SelectionName(bytes));
    CheckName(std::string(numarel::Trim(bytes)) + ".txt");
    return 0;
}
