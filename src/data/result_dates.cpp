#include "data/result_dates.h"

#include <cstdio>

#include "data/basic_text.h"

namespace numarel {
namespace {

constexpr int kMinYear = 1900;
constexpr int kMaxYear = 2199;

int MakeDate(int y, int m, int d) {
    if (y < kMinYear || y > kMaxYear || m < 1 || m > 12 || d < 1) return 0;
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    int days = kDays[m - 1] + (m == 2 && leap ? 1 : 0);
    return d <= days ? y * 10000 + m * 100 + d : 0;
}

// Reads the numbers and separators of a date, one at a time.
class DateScanner {
public:
    explicit DateScanner(std::string_view s) : s_(s) {}

    bool Number(int minLen, int maxLen, int& value) {
        std::size_t start = p_;
        while (p_ < s_.size() && IsDigit(s_[p_]) && p_ - start < static_cast<std::size_t>(maxLen))
            ++p_;
        if (p_ - start < static_cast<std::size_t>(minLen)) return false;
        if (p_ < s_.size() && IsDigit(s_[p_])) return false;  // too many digits
        value = DigitsValue(s_.substr(start, p_ - start));
        return true;
    }
    bool Char(char c) {
        if (p_ >= s_.size() || s_[p_] != c) return false;
        ++p_;
        return true;
    }
    // Nothing more, or a time of day after a blank or a T.
    bool EndOrTime() const { return p_ == s_.size() || s_[p_] == ' ' || s_[p_] == 'T'; }

private:
    std::string_view s_;
    std::size_t p_ = 0;
};

}  // namespace

int ParseDateIn(std::string_view text, DateFormat format) {
    // Every form starts with a digit and takes at least eight characters ("1/5/2021").
    if (text.size() < 8 || !IsDigit(text[0])) return 0;
    DateScanner scan(text);
    int y = 0, m = 0, d = 0;
    switch (format) {
        case DateFormat::Compact:
            if (text.size() != 8 || !AllDigits(text)) return 0;
            return MakeDate(DigitsValue(text.substr(0, 4)), DigitsValue(text.substr(4, 2)),
                            DigitsValue(text.substr(6, 2)));
        case DateFormat::MonthDayYear:
            if (!(scan.Number(1, 2, m) && scan.Char('/') && scan.Number(1, 2, d) &&
                  scan.Char('/') && scan.Number(4, 4, y)))
                return 0;
            break;
        case DateFormat::DayMonthYearSlash:
            if (!(scan.Number(1, 2, d) && scan.Char('/') && scan.Number(1, 2, m) &&
                  scan.Char('/') && scan.Number(4, 4, y)))
                return 0;
            break;
        case DateFormat::YearMonthDay: {
            if (!scan.Number(4, 4, y)) return 0;
            char sep = scan.Char('-') ? '-' : scan.Char('/') ? '/' : '\0';
            if (!(sep && scan.Number(1, 2, m) && scan.Char(sep) && scan.Number(1, 2, d))) return 0;
            break;
        }
        case DateFormat::DayMonthYearDot:
            if (!(scan.Number(1, 2, d) && scan.Char('.') && scan.Number(1, 2, m) &&
                  scan.Char('.') && scan.Number(4, 4, y)))
                return 0;
            break;
        case DateFormat::Guess:
            return 0;
    }
    return scan.EndOrTime() ? MakeDate(y, m, d) : 0;
}

namespace {

constexpr DateFormat kForms[] = {DateFormat::MonthDayYear, DateFormat::YearMonthDay,
                                 DateFormat::DayMonthYearDot, DateFormat::Compact,
                                 DateFormat::DayMonthYearSlash};

}  // namespace

std::span<const DateFormat> DateForms() {
    return kForms;
}

bool ParseDateFormatName(std::string_view name, DateFormat& format) {
    std::string n = AsciiLower(TrimBlanksAndTabs(name));
    if (n.empty()) {
        format = DateFormat::Guess;
        return true;
    }
    for (DateFormat f : DateForms())
        if (AsciiLower(DateFormatName(f)) == n) {
            format = f;
            return true;
        }
    return false;
}

std::string_view DateFormatName(DateFormat format) {
    switch (format) {
        case DateFormat::MonthDayYear:
            return "MM/DD/YYYY";
        case DateFormat::DayMonthYearSlash:
            return "DD/MM/YYYY";
        case DateFormat::YearMonthDay:
            return "YYYY-MM-DD";
        case DateFormat::DayMonthYearDot:
            return "DD.MM.YYYY";
        case DateFormat::Compact:
            return "YYYYMMDD";
        case DateFormat::Guess:
            break;
    }
    return "";
}

int ParseResultDate(std::string_view text, DateFormat format) {
    text = TrimBlanksAndTabs(text);
    if (format != DateFormat::Guess) return ParseDateIn(text, format);
    for (DateFormat f : DateForms())
        if (int date = ParseDateIn(text, f)) return date;
    return 0;
}

int ParseDrawNumber(std::string_view text) {
    text = TrimBlanksAndTabs(text);
    if (text.size() != 7 || !AllDigits(text)) return 0;
    int year = DigitsValue(text.substr(0, 4));
    int running = DigitsValue(text.substr(4));
    return year >= kMinYear && year <= kMaxYear && running >= 1 ? DigitsValue(text) : 0;
}

std::string IsoDate(int yyyymmdd) {
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", yyyymmdd / 10000, yyyymmdd / 100 % 100,
                  yyyymmdd % 100);
    return text;
}

}  // namespace numarel
