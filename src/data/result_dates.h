#pragma once

#include <span>
#include <string>
#include <string_view>

namespace numarel {

// The dates of a results file: the forms it may write them in, and its draw numbers.

// The date forms a results file may use.
enum class DateFormat {
    Guess,
    MonthDayYear,       // MM/DD/YYYY
    DayMonthYearSlash,  // DD/MM/YYYY, only when the values cannot be MM/DD/YYYY or when asked
    YearMonthDay,       // YYYY-MM-DD (or YYYY/MM/DD)
    DayMonthYearDot,    // DD.MM.YYYY
    Compact,            // YYYYMMDD
};

// "MM/DD/YYYY" and so on; Guess for an empty text; false for a form that is not known.
bool ParseDateFormatName(std::string_view name, DateFormat& format);
std::string_view DateFormatName(DateFormat format);

// The date in `text` in the given form, as the number YYYYMMDD; 0 when it is not such a date. A
// time of day after the date (after a blank or a T) is allowed and ignored.
int ParseResultDate(std::string_view text, DateFormat format);

// A draw number: the year and a running number, seven digits (2020225); 0 otherwise.
int ParseDrawNumber(std::string_view text);

// The date in `text` in one form, exactly (no blanks around it); 0 when it is not such a date.
int ParseDateIn(std::string_view text, DateFormat format);

// The forms a date is tried in when its form is to be guessed, in the order of the tries.
std::span<const DateFormat> DateForms();

// The number of DateFormat values, Guess included.
inline constexpr int kDateFormatCount = 6;

// YYYY-MM-DD of a date YYYYMMDD.
std::string IsoDate(int yyyymmdd);

}  // namespace numarel
