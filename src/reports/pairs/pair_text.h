#pragma once

#include "frame/number_classes.h"
#include "frame/report_sheet.h"

namespace numarel {

// The text of an unordered pair of digits: the smaller digit first, so that 7 with 2 and 2 with 7
// are both "27". Two equal digits give a double such as "55".
DigitsText PairText(int first, int second);
// Writes PairText(first, second) into a cell.
inline void SetPairText(ReportSheet& sheet, int row, int col, int first, int second) {
    const auto a = static_cast<unsigned>(first);
    const auto b = static_cast<unsigned>(second);
    if (a < 10 && b < 10) {
        // Which digit is the smaller is as good as random: the two are ordered without a jump.
        const unsigned low = a < b ? a : b;
        sheet.SetDigitPair(row, col, low, a ^ b ^ low);
    } else {
        sheet.SetText(row, col, PairText(first, second));
    }
}

}  // namespace numarel
