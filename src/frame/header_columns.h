#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/basic_text.h"
#include "frame/report_sheet.h"

namespace numarel {

// The columns of a header row range, looked up by their header text.
class HeaderColumns {
public:
    // Reads the headers of columns `firstCol` to `lastCol` of row 0, blanks trimmed when `trim`.
    HeaderColumns(const ReportSheet& sheet, int firstCol, int lastCol, bool trim);
    // The look-up holds views of the headers kept here.
    HeaderColumns(const HeaderColumns&) = delete;
    HeaderColumns& operator=(const HeaderColumns&) = delete;
    // The first column whose header is `text`; -1 when there is none.
    int Find(std::string_view text) const;
    // The header of `col` as the sheet holds it.
    const std::string& Header(int col) const {
        return headers_[static_cast<std::size_t>(col - firstCol_)];
    }

private:
    int firstCol_;
    std::vector<std::string> headers_;
    std::vector<std::string> keys_;  // the headers as they are compared
    // Keys of one to three digit characters, by DigitTextPlace; -1 when none.
    std::array<int, kDigitTextCount> byDigits_{};
    std::unordered_map<std::string_view, int> byText_;  // every other key: its first column
};

}  // namespace numarel
