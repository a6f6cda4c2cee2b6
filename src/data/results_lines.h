#pragma once

#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace numarel::results_text {

// The lines and fields of a results file: how a line is split into fields, which separator a file
// uses, and which lines are headers. Used by the results reader only.

inline bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
// Letters of any script count: a header may be written in the lottery's own language.
inline bool IsLetter(char c) {
    unsigned char u = static_cast<unsigned char>(c);
    return u >= 0x80 || ((u | 0x20) >= 'a' && (u | 0x20) <= 'z');
}

// A line of the source, numbered from 1.
struct Line {
    int number = 0;
    std::string_view text;
};

// The lines of `text`, blank lines left out.
std::vector<Line> SplitLines(std::string_view text);

// The fields of lines, as views of the source's own bytes; only a quoted field, which loses its
// quotes, is a text of its own, kept in `unquoted` (a deque, so that the views stay valid). A
// line of a large source costs a few views, not a text per field.
struct FieldStore {
    std::vector<std::string_view> fields;
    std::deque<std::string> unquoted;
};

// Splits a line at `sep`, or at runs of blanks when `sep` is ' ', adding its fields to `store`.
// Fields are trimmed; quoted fields lose their quotes and may hold the separator.
void SplitFields(std::string_view line, char sep, FieldStore& store);

// The separator that splits most lines into the same number of fields.
char SniffSeparator(const std::vector<Line>& lines);

// Text that can only be a value: a date or a draw number.
bool LooksLikeValue(std::string_view field);

// A line of names: no dates or draw numbers, and letters in at least half of its fields.
bool IsHeaderLike(std::span<const std::string_view> fields);

// The names of a header line as one text, case ignored, so that a repeated header is known.
std::string HeaderKey(std::span<const std::string_view> fields);

}  // namespace numarel::results_text
