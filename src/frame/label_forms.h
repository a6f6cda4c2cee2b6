#pragma once

#include <string>
#include <string_view>

namespace numarel {

// Some reports show column 0 in other forms than the usual DrawingLabel
// (" 2020001:123"); each is derived from that label once FillSheet has written it.

// The date alone, with the blank of the number-to-text rule: " 2020001".
inline std::string DateOfLabel(std::string_view label) {
    return std::string(label.substr(0, label.find(':')));
}

// Date and digits without blanks, joined by `separator`: "2020001:123", "2020001|123".
inline std::string CompactLabel(std::string_view label, char separator) {
    std::string out;
    out.reserve(label.size());
    for (char c : label) {
        if (c == ' ') continue;
        out += c == ':' ? separator : c;
    }
    return out;
}

}  // namespace numarel
