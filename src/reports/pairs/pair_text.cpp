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

}  // namespace numarel
