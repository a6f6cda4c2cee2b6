#include "frame/header_columns.h"

#include "data/basic_text.h"

namespace numarel {
namespace {

// The index of a text of one to three digit characters: "7" is 7, "05" 15 and "57" 67 (after the
// ten of one digit), "012" 122 (after the hundred of two); -1 for any other text.
int DigitKeyIndex(std::string_view text) {
    if (text.empty() || text.size() > 3) return -1;
    int value = 0;
    for (char c : text) {
        if (!IsDigit(c)) return -1;
        value = value * 10 + (c - '0');
    }
    constexpr int kBefore[] = {0, 0, 10, 110};  // the keys of fewer digits
    return kBefore[text.size()] + value;
}

}  // namespace

HeaderColumns::HeaderColumns(const ReportSheet& sheet, int firstCol, int lastCol, bool trim)
    : firstCol_(firstCol) {
    byDigits_.fill(-1);
    for (int c = firstCol; c <= lastCol; ++c) {
        headers_.push_back(sheet.Text(0, c));
        keys_.emplace_back(trim ? Trim(headers_.back()) : headers_.back());
    }
    // Pair and pattern texts are two or three digits nearly always, found by their digits; any
    // other key by its text.
    // The first column of a key is the one found.
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const int col = firstCol + static_cast<int>(i);
        const int index = DigitKeyIndex(keys_[i]);
        if (index < 0)
            byText_.emplace(keys_[i], col);
        else if (byDigits_[static_cast<std::size_t>(index)] < 0)
            byDigits_[static_cast<std::size_t>(index)] = col;
    }
}

int HeaderColumns::Find(std::string_view text) const {
    const int index = DigitKeyIndex(text);
    if (index >= 0) return byDigits_[static_cast<std::size_t>(index)];
    const auto found = byText_.find(text);
    return found != byText_.end() ? found->second : -1;
}

}  // namespace numarel
