#include "reports/recommended_digits/formula_digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "data/basic_text.h"

namespace numarel {

std::string RemoveAll(std::string_view text, std::string_view piece) {
    std::string out(text);
    if (piece.empty()) return out;
    // Taking a piece out can join two halves into a new occurrence, hence the fresh start.
    for (std::size_t at = out.find(piece); at != std::string::npos; at = out.find(piece))
        out.erase(at, piece.size());
    return out;
}

std::string DecimalText(double value) {
    if (value == 0 || !std::isfinite(value)) return "0";
    // The 15 significant digits and the exponent, then laid out without the exponent.
    char buf[40];
    auto [end, ec] =
        std::to_chars(buf, buf + sizeof buf, std::fabs(value), std::chars_format::scientific, 14);
    if (ec != std::errc()) return "0";
    std::string_view sci(buf, static_cast<std::size_t>(end - buf));
    const std::size_t e = sci.find('e');
    std::string digits;
    for (char c : sci.substr(0, e))
        if (c != '.') digits += c;
    while (digits.size() > 1 && digits.back() == '0')
        digits.pop_back();
    const int exponent = std::atoi(std::string(sci.substr(e + 1)).c_str());

    std::string out = value < 0 ? "-" : "";
    if (exponent < 0) {
        out += '.';
        out.append(static_cast<std::size_t>(-exponent - 1), '0');
        out += digits;
        return out;
    }
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole) {
        out += digits;
        out.append(whole - digits.size(), '0');
    } else {
        out.append(digits, 0, whole);
        out += '.';
        out.append(digits, whole);
    }
    return out;
}

std::string LeadingDigits(double value, int count) {
    std::string text = DecimalText(value);
    if (value < 1) text.insert(text.begin(), '0');
    text = RemoveAll(text, ".");
    // Every repeat of a character is blanked, so that only first appearances stay.
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        for (std::size_t j = i + 1; j < text.size(); ++j)
            if (text[i] == text[j]) text[j] = '*';
    text = RemoveAll(text, "*");
    if (count < 0) count = 0;
    return text.substr(0, std::min(text.size(), static_cast<std::size_t>(count)));
}

std::size_t LeadingDigitsMemo::ValueHash::operator()(double value) const {
    if (value == 0) value = 0;  // -0 as 0
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15ull) >> 32);
}

const std::string& LeadingDigitsMemo::operator()(double value) {
    auto [it, isNew] = known_.try_emplace(value);
    if (isNew) it->second = LeadingDigits(value, count_);
    return it->second;
}

double DrawnNumber(std::string_view label) {
    std::string_view trimmed = Trim(label);
    if (trimmed.size() > 3) trimmed.remove_prefix(trimmed.size() - 3);
    return LeadingValue(trimmed);
}

}  // namespace numarel
