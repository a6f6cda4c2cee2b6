#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/file_io.h"
#include "data/status.h"

namespace numarel {

// The largest history the 16-bit counters of the reports can hold.
inline constexpr std::size_t kMaxDrawings = 32767;

// One drawing as read from a drawings file: every field as the text the reader found.
// A report converts the digits and formats the date itself (see frame/frame_passes.h).
struct DrawRecord {
    std::string date;
    std::string h;
    std::string t;
    std::string u;

    bool operator==(const DrawRecord&) const = default;
};

// Splits a drawings file into records with the free-field rules: fields separated by blanks,
// commas and line ends in any mix, four fields a record whatever the line breaks, quoted fields
// taken without their quotes. A short last record keeps the earlier record's values for the
// fields it lacks. Every record is returned, end markers and what follows them included.
std::vector<DrawRecord> ParseDrawings(std::string_view bytes);

// Every field of `bytes` under the same free-field rules, one after the other.
std::vector<std::string> ParseFields(std::string_view bytes);

// The encoding that a byte-order mark at the start of `bytes` names when it is one the reader
// cannot read ("UTF-16 little-endian", "UTF-32 big-endian", ...); empty for any other bytes.
std::string_view WideTextEncoding(std::string_view bytes);

// `bytes` without a UTF-8 byte-order mark at the start.
std::string_view WithoutUtf8Mark(std::string_view bytes);

// Refuses text in a wide encoding, naming the encoding: `what` "x" is in UTF-16 ..., a message
// that says to save it as plain text.
Status CheckReadableText(std::string_view bytes, std::string_view what,
                         const std::filesystem::path& path);

// True when the record is an end marker: its date is numerically 0 (0, 00, 0.0, or empty). A date
// that is no number, or too large a number to convert, is no end marker: the record is a drawing
// without a label, and the history goes on after it.
bool IsEndMarker(const DrawRecord& record);

// The number of drawings a report sees: the records before the first end marker.
std::size_t ReportDrawCount(std::span<const DrawRecord> records);

// Reads every record of a drawings file, as the editor shows them. A file in UTF-16 or UTF-32 (by
// its byte-order mark) is refused, naming the encoding; a UTF-8 byte-order mark is skipped.
Status ReadAllRecords(const std::filesystem::path& path, std::vector<DrawRecord>& records);

// Reads the drawings a report sees (up to the first end marker). Fails on a missing or unreadable
// file and on more than kMaxDrawings drawings.
Status ReadHistory(const std::filesystem::path& path, std::vector<DrawRecord>& drawings);

// The bytes Save writes for an editor table: one line per row, "date h t u" CR LF. An empty date
// is written as "0"; a digit that is empty, below 1 or above 9 is written as "0"; every other
// cell is written as it stands, except that a line break or other control character in it is
// written as a blank, so that each row stays one line. Each row holds the four cell texts Date,
// H, T, U.
std::string FormatDrawingsTable(std::span<const DrawRecord> rows);

}  // namespace numarel
