#include "reports/pairs/pair_text.h"

#include <algorithm>
#include <utility>

namespace numarel {

DigitsText PairText(int first, int second) {
    if (second < first) std::swap(first, second);
    // Digits as they stand in the file are not checked, so a value beyond 0 to 9 is written out
    // in full rather than as one character.
    DigitsText text;
    text.Append(static_cast<short>(first));
    text.Append(static_cast<short>(second));
    return text;
}

void SetPairText(ReportSheet& sheet, int row, int col, int first, int second) {
    if (second < first) std::swap(first, second);
    if (first >= 1 && second <= 9)
        sheet.SetNumber(row, col, first * 10 + second);
    else
        sheet.SetText(row, col, PairText(first, second));
}

}  // namespace numarel
