#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"

namespace numarel {

// The vocabulary of digit classes, regions and number shapes that every report shares.

// The pairs of classes a digit is sorted into, each with its two letters.
enum class ClassPair {
    OddEven,         // O: 1 3 5 7 9, E: 0 2 4 6 8
    BigSmall,        // B: 5 to 9, S: 0 to 4
    PrimeComposite,  // P: 1 2 3 5 7, C: 0 4 6 8 9
};

bool IsOdd(int digit);
bool IsSmall(int digit);  // below 5
bool IsPrime(int digit);  // 1 2 3 5 7: 1 counts as prime, 0 as composite
// The remainder by 3: the digit's 012 Type.
int Type012(int digit);

// The letter of the class table for a digit: O/E, B/S or P/C.
char DigitClassLetter(int digit, ClassPair pair);

// Sorts three digits ascending in place, as the neighbour-exchange sort leaves them.
inline void SortDigits(CurrentDigits& d) {
    // Minimum, middle and maximum without jumps: drawn digits come in no order a branch could
    // guess.
    const short low = std::min(d[0], d[1]);
    const short high = std::max(d[0], d[1]);
    const short middle = std::max(low, std::min(high, d[2]));
    d[0] = std::min(low, d[2]);
    d[2] = std::max(high, d[2]);
    d[1] = middle;
}

// The digits of a drawing written one after the other, held by value: a cell's text made for every
// drawing, without a string.
class DigitsText {
public:
    // Adds a digit: one character for 0 to 9, the field's number for anything else; nothing
    // once the room is full.
    void Append(short digit) {
        if (digit >= 0 && digit <= 9 && size_ < chars_.size()) [[likely]]
            chars_[size_++] = static_cast<char>('0' + digit);
        else
            AppendNumber(digit);
    }
    std::size_t size() const { return size_; }
    const char* data() const { return chars_.data(); }
    operator std::string_view() const { return {chars_.data(), size_}; }

private:
    void AppendNumber(short digit);
    // Four fields of at most "-32768"; only the first size_ are written.
    std::array<char, 4 * 6> chars_;
    std::size_t size_ = 0;
};

// The different digits of sorted digits, ascending: three characters for a 6 Way Box, two for a
// 3 Way Box, one for a triple.
DigitsText DistinctDigits(const CurrentDigits& sorted);
// The three digits written one after the other, as "012".
DigitsText JoinedDigits(const CurrentDigits& digits);

int SumOf(const CurrentDigits& digits);
int WidthOf(const CurrentDigits& digits);
int SumUnitsOf(const CurrentDigits& digits);

// Exactly two equal digits (sorted input).
bool IsThreeWayBox(const CurrentDigits& sorted);
// Three different digits.
bool IsSixWayBox(const CurrentDigits& digits);
bool IsTriple(const CurrentDigits& digits);

// Regions of one digit.
char ThreeRegion(int digit);         // 'S' 0-2, 'M' 3-6, 'L' 7-9
char FourRegion1234(int digit);      // '1' 1 3, '2' 0 2 4, '3' 5 7 9, '4' 6 8
char FourRegionSumWidth(int digit);  // '1' 0-2, '2' 3 4, '3' 5 6, '4' 7-9
// The Five Regions pair a digit belongs to: "05", "16", "27", "38" or "49".
std::string_view FiveRegionPair(int digit);

// One letter per position, H first: "OEE", "BSB", "PPC".
std::string PatternString(const CurrentDigits& digits, ClassPair pair);
// The eight pattern strings of a class pair in the reports' column order.
const std::array<std::string_view, 8>& PatternStrings(ClassPair pair);
// The 012 Type of each digit, H first, such as "102".
std::string Pattern012(const CurrentDigits& digits);

// How many digits fall in each class regardless of position: "3S", "2S1B", "2B1S", "3B";
// "3E", "2E1O", "2O1E", "3O"; "3P", "2P1C", "2C1P", "3C".
std::string TallyString(const CurrentDigits& digits, ClassPair pair);

// The Sum and Width type: Sum's and Width's remainders by 3 as two characters, Sum first.
std::string SumWidthType(const CurrentDigits& digits);

}  // namespace numarel
