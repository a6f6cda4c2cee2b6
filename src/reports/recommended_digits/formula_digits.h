#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace numarel {

// Text functions of the formula forecasts: a forecast's digits are read out of the decimal text
// of a formula's value.

// `text` with every occurrence of `piece` taken out, searching from the start again after each
// removal. An empty piece takes nothing out.
std::string RemoveAll(std::string_view text, std::string_view piece);

// The general decimal text of a number: at most 15 significant digits, no exponent, no zero
// before the point (".125", "-.5", "18.0588235294118", "0").
std::string DecimalText(double value);

// The first `count` distinct characters of the decimal text of `value`, in order of first
// appearance, points left out; a value below 1 gets its leading "0" back first, so 0.125 gives
// "012" and 0 gives "0".
std::string LeadingDigits(double value, int count);

// LeadingDigits for one count, remembered per value: over a long history the formulas give the
// same few thousand values again and again. 0 and -0 are one value, worked out for the first seen.
class LeadingDigitsMemo {
public:
    explicit LeadingDigitsMemo(int count) : count_(count) {}
    const std::string& operator()(double value);

private:
    // Open addressing on the value's bits: 0 is a free slot, else the bits and the text's index
    // + 1 (the bits alone could be 0, for the value 0).
    struct Slot {
        std::uint64_t bits = 0;
        std::uint32_t text = 0;
    };
    void Grow();
    int count_;
    std::vector<Slot> slots_;
    std::deque<std::string> texts_;  // never moved: the references handed out stay valid
};

// DrawnNumber by the general rule.
double DrawnNumberOf(std::string_view label);
// The number of a label's last three characters when they are digits, as nearly every label's
// are (no trimming changes them then); -1 otherwise.
inline int TrailingThreeDigits(std::string_view label) {
    const std::size_t size = label.size();
    if (size < 3) return -1;
    const unsigned a = static_cast<unsigned char>(label[size - 3]) - '0';
    const unsigned b = static_cast<unsigned char>(label[size - 2]) - '0';
    const unsigned c = static_cast<unsigned char>(label[size - 1]) - '0';
    return (a <= 9) & (b <= 9) & (c <= 9) ? static_cast<int>(a * 100 + b * 10 + c) : -1;
}
// The number formed by a drawing's digits: the value of the last three characters of its
// trimmed drawing label (" 2020001:012" gives 12).
inline double DrawnNumber(std::string_view label) {
    const int digits = TrailingThreeDigits(label);
    return digits >= 0 ? digits : DrawnNumberOf(label);
}
// DrawnNumber when it is a whole number from 0 to 999, as a drawing's number nearly always is;
// -1 otherwise.
int WholeDrawnNumber(std::string_view label);

}  // namespace numarel
