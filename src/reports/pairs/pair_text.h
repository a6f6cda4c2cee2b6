#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "frame/number_classes.h"
#include "frame/report_sheet.h"

namespace numarel {

// The text of an unordered pair of digits: the smaller digit first, so that 7 with 2 and 2 with 7
// are both "27". Two equal digits give a double such as "55".
DigitsText PairText(int first, int second);
// Writes PairText(first, second) into a cell.
inline void SetPairText(ReportSheet& sheet, int row, int col, int first, int second) {
    const int low = std::min(first, second);
    const int high = std::max(first, second);
    if (low >= 0 && high <= 9)
        sheet.SetDigitPair(row, col, static_cast<unsigned>(low), static_cast<unsigned>(high));
    else
        sheet.SetText(row, col, PairText(low, high));
}

}  // namespace numarel
