#include "frame/number_classes.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

namespace numarel {

bool IsOdd(int digit) {
    return digit % 2 != 0;
}
bool IsSmall(int digit) {
    return digit < 5;
}
bool IsPrime(int digit) {
    return digit == 1 || digit == 2 || digit == 3 || digit == 5 || digit == 7;
}
int Type012(int digit) {
    return digit % 3;
}

char DigitClassLetter(int digit, ClassPair pair) {
    switch (pair) {
        case ClassPair::OddEven:
            return IsOdd(digit) ? 'O' : 'E';
        case ClassPair::BigSmall:
            return IsSmall(digit) ? 'S' : 'B';
        case ClassPair::PrimeComposite:
            return IsPrime(digit) ? 'P' : 'C';
    }
    return '?';
}

void DigitsText::AppendNumber(short digit) {
    char text[8];  // "-32768" at most
    const auto [end, ec] = std::to_chars(text, text + sizeof text, digit);
    const auto size = static_cast<std::size_t>(end - text);
    if (ec != std::errc() || size > chars_.size() - size_) return;  // a field that does not fit
    std::copy(text, end, chars_.begin() + static_cast<std::ptrdiff_t>(size_));
    size_ += size;
}

DigitsText DistinctDigits(const CurrentDigits& s) {
    DigitsText out;
    if (s[0] >= 0 && s[2] <= 9 && s[0] <= s[1] &&
        s[1] <= s[2]) {  // sorted digits, as nearly always
        out.Append(s[0]);
        if (s[1] != s[0]) out.Append(s[1]);
        if (s[2] != s[1]) out.Append(s[2]);
        return out;
    }
    for (std::size_t i = 0; i < 3; ++i)
        if (i == 0 || s[i] != s[i - 1]) out.Append(s[i]);
    return out;
}

DigitsText JoinedDigits(const CurrentDigits& digits) {
    DigitsText out;
    for (short digit : digits)
        out.Append(digit);
    return out;
}

int SumOf(const CurrentDigits& d) {
    return d[0] + d[1] + d[2];
}
int WidthOf(const CurrentDigits& d) {
    return *std::max_element(d.begin(), d.end()) - *std::min_element(d.begin(), d.end());
}
int SumUnitsOf(const CurrentDigits& d) {
    return SumOf(d) % 10;
}

bool IsThreeWayBox(const CurrentDigits& s) {
    return (s[0] == s[1] && s[1] != s[2]) || (s[0] != s[1] && s[1] == s[2]);
}
bool IsSixWayBox(const CurrentDigits& d) {
    return d[0] != d[1] && d[0] != d[2] && d[1] != d[2];
}
bool IsTriple(const CurrentDigits& d) {
    return d[0] == d[1] && d[1] == d[2];
}

char ThreeRegion(int digit) {
    return digit <= 2 ? 'S' : digit <= 6 ? 'M' : 'L';
}

char FourRegion1234(int digit) {
    if (IsOdd(digit)) return digit < 4 ? '1' : '3';
    return digit < 5 ? '2' : '4';
}

char FourRegionSumWidth(int digit) {
    return digit <= 2 ? '1' : digit <= 4 ? '2' : digit <= 6 ? '3' : '4';
}

std::string_view FiveRegionPair(int digit) {
    static constexpr std::string_view kPairs[5] = {"05", "16", "27", "38", "49"};
    int r = ((digit % 5) + 5) % 5;
    return kPairs[r];
}

std::string PatternString(const CurrentDigits& d, ClassPair pair) {
    std::string out(3, ' ');
    for (std::size_t i = 0; i < 3; ++i)
        out[i] = DigitClassLetter(d[i], pair);
    return out;
}

const std::array<std::string_view, 8>& PatternStrings(ClassPair pair) {
    static const std::array<std::string_view, 8> kOddEven = {"OOO", "OOE", "OEO", "OEE",
                                                             "EOO", "EOE", "EEO", "EEE"};
    static const std::array<std::string_view, 8> kBigSmall = {"BBB", "BBS", "BSB", "BSS",
                                                              "SBB", "SBS", "SSB", "SSS"};
    static const std::array<std::string_view, 8> kPrimeComposite = {"PPP", "PPC", "PCP", "PCC",
                                                                    "CPP", "CPC", "CCP", "CCC"};
    switch (pair) {
        case ClassPair::OddEven:
            return kOddEven;
        case ClassPair::BigSmall:
            return kBigSmall;
        case ClassPair::PrimeComposite:
            break;
    }
    return kPrimeComposite;
}

std::string Pattern012(const CurrentDigits& d) {
    std::string out;
    for (short digit : d)
        out += static_cast<char>('0' + ((digit % 3) + 3) % 3);
    return out;
}

std::string TallyString(const CurrentDigits& d, ClassPair pair) {
    // The first letter of each pair is the one the tally strings count first when it has 2.
    char first = 0, second = 0;
    switch (pair) {
        case ClassPair::BigSmall:
            first = 'S', second = 'B';
            break;
        case ClassPair::OddEven:
            first = 'E', second = 'O';
            break;
        case ClassPair::PrimeComposite:
            first = 'P', second = 'C';
            break;
    }
    int n = 0;
    for (short digit : d)
        if (DigitClassLetter(digit, pair) == first) ++n;
    switch (n) {
        case 3:
            return std::string("3") + first;
        case 2:
            return std::string("2") + first + "1" + second;
        case 1:
            return std::string("2") + second + "1" + first;
        default:
            return std::string("3") + second;
    }
}

std::string SumWidthType(const CurrentDigits& d) {
    std::string out(2, '0');
    out[0] = static_cast<char>('0' + SumOf(d) % 3);
    out[1] = static_cast<char>('0' + WidthOf(d) % 3);
    return out;
}

}  // namespace numarel
