#include "reports/pairs/pair_text.h"

#include <utility>

#include "data/basic_text.h"

namespace numarel {

std::string PairText(int first, int second) {
    if (second < first) std::swap(first, second);
    // Digits as they stand in the file are not checked, so a value beyond 0 to 9 is written out
    // in full rather than as one character.
    if (first >= 0 && second <= 9)
        return {static_cast<char>('0' + first), static_cast<char>('0' + second)};
    return std::to_string(first) + std::to_string(second);
}

void SetPairText(ReportSheet& sheet, int row, int col, int first, int second) {
    sheet.SetText(row, col, PairText(first, second));
}

HeaderColumns::HeaderColumns(const ReportSheet& sheet, int firstCol, int lastCol, bool trim)
    : firstCol_(firstCol) {
    for (int c = firstCol; c <= lastCol; ++c) {
        headers_.push_back(sheet.Text(0, c));
        keys_.emplace_back(trim ? Trim(headers_.back()) : headers_.back());
    }
}

int HeaderColumns::Find(std::string_view text) const {
    for (std::size_t i = 0; i < keys_.size(); ++i)
        if (keys_[i] == text) return firstCol_ + static_cast<int>(i);
    return -1;
}

}  // namespace numarel
