#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

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
// same few thousand values again and again.
class LeadingDigitsMemo {
public:
    explicit LeadingDigitsMemo(int count) : count_(count) {}
    const std::string& operator()(double value);

private:
    // A cheap hash of the value's bits; 0 and -0 are one key.
    struct ValueHash {
        std::size_t operator()(double value) const;
    };
    int count_;
    std::unordered_map<double, std::string, ValueHash> known_;
};

// The number formed by a drawing's digits: the value of the last three characters of its
// trimmed drawing label (" 2020001:012" gives 12).
double DrawnNumber(std::string_view label);

}  // namespace numarel
