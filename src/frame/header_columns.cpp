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
        const int index = TwoDigitIndex(keys_.back());
        if (index >= 0 && byDigits_[static_cast<std::size_t>(index)] < 0)
            byDigits_[static_cast<std::size_t>(index)] = c;
    }
}

int HeaderColumns::Find(std::string_view text) const {
    // Pair texts are two digits nearly always; only odd digits in the file need the search.
    const int index = TwoDigitIndex(text);
    if (index >= 0) return byDigits_[static_cast<std::size_t>(index)];
    for (std::size_t i = 0; i < keys_.size(); ++i)
        if (keys_[i] == text) return firstCol_ + static_cast<int>(i);
    return -1;
}

}  // namespace numarel
