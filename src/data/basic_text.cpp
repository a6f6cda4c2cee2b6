#include "data/basic_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace numarel {
namespace {

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Parses sign, digits, fraction and exponent at the start of `s`; returns the length consumed
// (0 when no digit was seen) and the value.
std::size_t ParseNumber(std::string_view s, double& value) {
    std::size_t i = 0;
    bool negative = false;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) negative = s[i++] == '-';
    const std::size_t intStart = i;
    // Whole numbers of up to 18 digits, the usual case, are summed directly.
    std::uint64_t whole = 0;
    while (i < s.size() && IsDigit(s[i]) && i - intStart < 18)
        whole = whole * 10 + (s[i++] - '0');
    bool digits = i > intStart;
    bool simple = i == s.size() || (!IsDigit(s[i]) && s[i] != '.' && s[i] != 'e' && s[i] != 'E' &&
                                    s[i] != 'd' && s[i] != 'D');
    if (digits && simple) {
        value = negative ? -static_cast<double>(whole) : static_cast<double>(whole);
        return i;
    }
    // Anything longer goes through the general conversion.
    std::string buf;
    i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) buf += s[i++];
    digits = false;
    while (i < s.size() && IsDigit(s[i])) {
        buf += s[i++];
        digits = true;
    }
    if (i < s.size() && s[i] == '.') {
        buf += s[i++];
        while (i < s.size() && IsDigit(s[i])) {
            buf += s[i++];
            digits = true;
        }
    }
    if (!digits) return 0;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
        std::size_t j = i + 1;
        std::string exp = "e";
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) exp += s[j++];
        if (j < s.size() && IsDigit(s[j])) {
            while (j < s.size() && IsDigit(s[j]))
                exp += s[j++];
            buf += exp;
            i = j;
        }
    }
    // A number too large for a double (a date of hundreds of digits) is left infinite: the callers
    // decide what an overflow means.
    value = std::strtod(buf.c_str(), nullptr);
    return i;
}

// The value of a text of 1 to 15 decimal digits and nothing else, which a double holds exactly:
// most texts read as numbers are such (digits, dates, counts), and need no general parse.
std::optional<double> PlainDigitsValue(std::string_view s) {
    if (s.empty() || s.size() > 15) return std::nullopt;
    std::uint64_t v = 0;
    for (char c : s) {
        if (!IsDigit(c)) return std::nullopt;
        v = v * 10 + static_cast<std::uint64_t>(c - '0');
    }
    return static_cast<double>(v);
}

}  // namespace

std::string_view Trim(std::string_view text) {
    std::size_t b = 0, e = text.size();
    while (b < e && text[b] == ' ')
        ++b;
    while (e > b && text[e - 1] == ' ')
        --e;
    return text.substr(b, e - b);
}

bool AllDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

int DigitsValue(std::string_view digits) {
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

std::string AsciiLower(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return out;
}

std::string_view TrimBlanksAndTabs(std::string_view text) {
    auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return text;
}

double LeadingValue(std::string_view text) {
    if (auto plain = PlainDigitsValue(text)) return *plain;
    double value = 0;
    if (text.find_first_of(" \t\r\n") == std::string_view::npos)
        return ParseNumber(text, value) && std::isfinite(value) ? value : 0;
    std::string packed;
    packed.reserve(text.size());
    for (char c : text)
        if (!IsSpace(c)) packed += c;
    if (ParseNumber(packed, value) == 0 || !std::isfinite(value)) return 0;
    return value;
}

std::optional<double> WholeNumber(std::string_view text) {
    std::string_view s = text;
    while (!s.empty() && IsSpace(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && IsSpace(s.back()))
        s.remove_suffix(1);
    if (s.empty()) return std::nullopt;
    if (auto plain = PlainDigitsValue(s)) return plain;
    double value = 0;
    std::size_t used = ParseNumber(s, value);
    // A number that overflows cannot be converted, as a text that is no number cannot.
    if (used == 0 || used != s.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

short RoundToInt16(double value) {
    double r = std::nearbyint(value);  // default rounding mode: half to even
    if (r < std::numeric_limits<short>::min()) return std::numeric_limits<short>::min();
    if (r > std::numeric_limits<short>::max()) return std::numeric_limits<short>::max();
    return static_cast<short>(r);
}

std::optional<short> ToInt16(std::string_view text) {
    auto value = WholeNumber(text);
    if (!value) return std::nullopt;
    double r = std::nearbyint(*value);
    if (r < std::numeric_limits<short>::min() || r > std::numeric_limits<short>::max())
        return std::nullopt;
    return static_cast<short>(r);
}

std::string NumberToText(double value) {
    char buf[64];
    if (value == std::floor(value) && std::fabs(value) < 1e15) {
        auto [end, ec] = std::to_chars(buf, buf + sizeof buf, static_cast<long long>(value));
        *end = '\0';
    } else {
        std::snprintf(buf, sizeof buf, "%.15G", value);
        // The classic rule writes exponents as E+20, E-05 without padding beyond two digits.
    }
    std::string out = buf;
    if (out == "-0") out = "0";
    if (!out.empty() && out[0] != '-') out.insert(out.begin(), ' ');
    return out;
}

}  // namespace numarel
