#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "frame/number_classes.h"
#include "frame/report_sheet.h"

namespace numarel {

// The text of an unordered pair of digits: the smaller digit first, so that 7 with 2 and 2 with 7
// are both "27". Two equal digits give a double such as "55".
DigitsText PairText(int first, int second);
// Writes PairText(first, second) into a cell. A pair such as "27" reads as a plain number and is
// kept as one by the sheet whichever way it is written; it is written as one here, which is faster.
void SetPairText(ReportSheet& sheet, int row, int col, int first, int second);

// The columns of a header row range, looked up by their header text.
class HeaderColumns {
public:
    // Reads the headers of columns `firstCol` to `lastCol` of row 0, blanks trimmed when `trim`.
    HeaderColumns(const ReportSheet& sheet, int firstCol, int lastCol, bool trim);
    // The first column whose header is `text`; -1 when there is none.
    int Find(std::string_view text) const;
    // The header of `col` as the sheet holds it.
    const std::string& Header(int col) const {
        return headers_[static_cast<std::size_t>(col - firstCol_)];
    }

private:
    int firstCol_;
    std::vector<std::string> headers_;
    std::vector<std::string> keys_;    // the headers as they are compared
    std::array<int, 100> byDigits_{};  // two-digit keys, by their value; -1 when none
};

}  // namespace numarel
