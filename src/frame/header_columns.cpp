#include "frame/header_columns.h"

#include "data/basic_text.h"

namespace numarel {

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
        const int index = DigitTextPlace(keys_[i]);
        if (index < 0)
            byText_.emplace(keys_[i], col);
        else if (byDigits_[static_cast<std::size_t>(index)] < 0)
            byDigits_[static_cast<std::size_t>(index)] = col;
    }
}

int HeaderColumns::Find(std::string_view text) const {
    const int index = DigitTextPlace(text);
    if (index >= 0) return byDigits_[static_cast<std::size_t>(index)];
    const auto found = byText_.find(text);
    return found != byText_.end() ? found->second : -1;
}

}  // namespace numarel
