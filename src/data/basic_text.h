#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace numarel {

// Text rules of the classic BASIC runtime that the drawings files and the sheets depend on.

// The number at the start of a text: blanks, tabs and line ends are ignored anywhere, reading
// stops at the first character that cannot continue a number; no number, or one too large for a
// double, gives 0.
double LeadingValue(std::string_view text);

// The value of a text that is wholly a number (blanks around it allowed); nullopt otherwise, and
// for a number too large for a double, which cannot be converted.
std::optional<double> WholeNumber(std::string_view text);

// Conversion to a 16-bit signed integer: a whole number, rounded half to even, in range.
std::optional<short> ToInt16(std::string_view text);

// Rounds half to even and clamps to the 16-bit range, as an assignment to a 16-bit counter.
short RoundToInt16(double value);

// The standard number-to-text rule: a blank in front of a non-negative number.
std::string NumberToText(double value);

// A character below the blank, or DEL: line breaks, tabs and the like.
inline bool IsControlCharacter(char c) {
    auto u = static_cast<unsigned char>(c);
    return u < 0x20 || u == 0x7F;
}

// A character from "0" to "9".
inline bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The texts of one to three digit characters, numbers or not ("7", "05", "012"), numbered 0 to
// kDigitTextCount - 1: the ten of one digit, then the hundred of two, then the thousand of three.
inline constexpr std::size_t kDigitTextCount = 1110;
// The number of such a text of `size` characters, from its first, middle and last digit (for
// fewer than three characters some of them are the same one).
constexpr std::size_t DigitTextPlace(std::size_t size, unsigned first, unsigned middle,
                                     unsigned last) {
    return size == 1   ? first
           : size == 2 ? 10 + first * 10 + last
                       : 110 + first * 100 + middle * 10 + last;
}
// The number of `text` among them; -1 for any other text.
inline int DigitTextPlace(std::string_view text) {
    if (text.empty() || text.size() > 3) return -1;
    for (char c : text)
        if (!IsDigit(c)) return -1;
    const auto digit = [&text](std::size_t i) { return static_cast<unsigned>(text[i] - '0'); };
    return static_cast<int>(
        DigitTextPlace(text.size(), digit(0), digit(text.size() / 2), digit(text.size() - 1)));
}

// True for a text of one or more characters "0" to "9" and nothing else.
bool AllDigits(std::string_view text);
// The value of a text of digits (AllDigits) that fits an int.
int DigitsValue(std::string_view digits);
// The text with "A" to "Z" made lower case.
std::string AsciiLower(std::string_view text);

// Blanks trimmed from both ends (the runtime's rule: tabs stay).
std::string_view Trim(std::string_view text);
// Blanks and tabs trimmed from both ends, as a field of a results file is read.
std::string_view TrimBlanksAndTabs(std::string_view text);

// A text of up to seven characters as one number, its length in the top byte; any longer text
// is kLongText. Two short texts are alike exactly when their numbers are, so a pass that matches
// many cells against a few headers compares numbers instead of texts.
constexpr std::uint64_t kLongText = ~std::uint64_t{0};
constexpr std::uint64_t PackedText(std::string_view text) {
    if (text.size() > 7) return kLongText;
    std::uint64_t packed = static_cast<std::uint64_t>(text.size()) << 56;
    for (std::size_t i = 0; i < text.size(); ++i)
        packed |= static_cast<std::uint64_t>(static_cast<unsigned char>(text[i])) << (8 * i);
    return packed;
}

}  // namespace numarel
