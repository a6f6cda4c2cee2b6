#include "reports/pairs/pair_text.h"

#include <algorithm>

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

std::string PairText(int first, int second) {
    if (second < first) std::swap(first, second);
    // Digits as they stand in the file are not checked, so a value beyond 0 to 9 is written out
    // in full rather than as one character.
    if (first >= 0 && second <= 9)
        return {static_cast<char>('0' + first), static_cast<char>('0' + second)};
    return std::to_string(first) + std::to_string(second);
}

constexpr std::string_view kLeadingZero[10] = {"00", "01", "02", "03", "04",
                                               "05", "06", "07", "08", "09"};

void SetPairText(ReportSheet& sheet, int row, int col, int first, int second) {
    if (second < first) std::swap(first, second);
    if (first < 0 || second > 9)
        sheet.SetText(row, col, PairText(first, second));
    else if (first == 0)
        sheet.SetText(row, col, kLeadingZero[second]);
    else
        sheet.SetNumber(row, col, first * 10 + second);
}

PairTextWriter::PairTextWriter(ReportSheet& sheet) : sheet_(sheet) {
    // The texts the keys view: "00" to "99".
    static constexpr auto kTexts = [] {
        std::array<std::array<char, 2>, 100> texts{};
        for (std::size_t i = 0; i < texts.size(); ++i)
            texts[i] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
        return texts;
    }();
    for (std::size_t first = 0; first <= 9; ++first) {
        for (std::size_t second = 0; second <= 9; ++second) {
            const auto& text = kTexts[std::min(first, second) * 10 + std::max(first, second)];
            pairs_[first * 10 + second] = sheet.Prepare(std::string_view(text.data(), text.size()));
        }
    }
}

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
