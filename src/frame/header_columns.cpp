#include "frame/header_columns.h"

#include "data/basic_text.h"

namespace numarel {
namespace {

// The index of a text of exactly two digit characters, such as "05" (5) or "57" (57); -1 for any
// other text.
int TwoDigitIndex(std::string_view text) {
    if (text.size() != 2) return -1;
    if (text[0] < '0' || text[0] > '9' || text[1] < '0' || text[1] > '9') return -1;
    return (text[0] - '0') * 10 + (text[1] - '0');
}

}  // namespace

HeaderColumns::HeaderColumns(const ReportSheet& sheet, int firstCol, int lastCol, bool trim)
    : firstCol_(firstCol) {
    byDigits_.fill(-1);
    for (int c = firstCol; c <= lastCol; ++c) {
        headers_.push_back(sheet.Text(0, c));
        keys_.emplace_back(trim ? Trim(headers_.back()) : headers_.back());
    }
    // Pair texts are two digits nearly always, found by their value; any other key by its text.
    // The first column of a key is the one found.
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const int col = firstCol + static_cast<int>(i);
        const int index = TwoDigitIndex(keys_[i]);
        if (index < 0)
            byText_.emplace(keys_[i], col);
        else if (byDigits_[static_cast<std::size_t>(index)] < 0)
            byDigits_[static_cast<std::size_t>(index)] = col;
    }
}

int HeaderColumns::Find(std::string_view text) const {
    const int index = TwoDigitIndex(text);
    if (index >= 0) return byDigits_[static_cast<std::size_t>(index)];
    const auto found = byText_.find(text);
    return found != byText_.end() ? found->second : -1;
}

}  // namespace numarel
