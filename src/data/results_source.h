#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/result_dates.h"
#include "data/status.h"

namespace numarel {

// Reading the results files that lotteries publish (open-data CSV exports, result pages saved as
// text): which columns hold what is found from the header and from the values, and every line
// becomes the drawings it holds.

// What the user says outright about the source, overriding the guesses. A column is named by its
// header text (case does not matter) or by its number counted from 1.
struct SourceHints {
    std::string dateColumn = {};
    std::string drawColumn = {};
    // One entry per drawing of the day, in the day's order: a column holding three digits, a
    // column that starts three one-digit columns, or three columns joined by '+' ("4+5+6").
    std::vector<std::string> digitsColumns = {};
    DateFormat dateFormat = DateFormat::Guess;
};

// One drawing found in the source.
struct SourceDrawing {
    int date = 0;        // YYYYMMDD; 0 when the source has no dates
    int drawNumber = 0;  // the source's draw number; 0 when it has none
    int slot = 0;        // which drawing of the day: in the order of the columns, or of the day
    int line = 0;        // the line of the source it stands on, counted from 1
    std::array<char, 3> digits{};

    std::string DigitsText() const { return std::string(digits.data(), 3); }
};

// A line of the source that gave nothing, or less than it seemed to hold.
struct RejectedLine {
    int line = 0;
    std::string reason;
};

// Two or more different drawings given for the same date (or draw number) and drawing of the day.
struct SourceConflict {
    std::string where;                // as DescribeSourceDrawing names it
    std::vector<SourceDrawing> kept;  // every version, in the order of the source
};

// What the reader made of the source's columns.
struct SourceLayout {
    char separator = ',';  // ',', ';', '\t', '|', or ' ' for runs of blanks
    int headerLine = 0;    // 0 when there is no header
    int repeatedHeaders = 0;
    int columnCount = 0;
    std::vector<std::string> columnNames;  // header texts, or "column N"
    bool namedByHeader = false;            // whether columnNames come from the header
    int dateColumn = -1;                   // counted from 0; -1 when there is none
    DateFormat dateFormat = DateFormat::Guess;
    int drawColumn = -1;
    // A column naming the day's drawing of each row ("Midday", "Evening"), where a day's drawings
    // stand on rows of their own; -1 when there is none.
    int dayPartColumn = -1;
    // Per drawing of the day: the one column that holds its three digits, or its three columns.
    std::vector<std::vector<int>> digitsColumns;
    // Whether the draw number tells the drawings apart (one drawing a row); with several drawings
    // a day in one row it names the day only.
    bool DrawNumberPerDrawing() const { return drawColumn >= 0 && digitsColumns.size() == 1; }
};

// Everything read from a source.
struct ResultsSource {
    Status status;  // not ok when the source could not be read or holds no usable drawing
    SourceLayout layout;
    // Oldest first: ordered by date (or draw number) and then by drawing of the day; the same
    // drawing given twice is kept once, conflicting versions are all kept in the order of the
    // source.
    std::vector<SourceDrawing> drawings;
    int duplicates = 0;  // drawings given more than once and kept once
    std::vector<SourceConflict> conflicts;
    std::vector<RejectedLine> rejected;
    int lines = 0;

    bool HasDates() const { return layout.dateColumn >= 0; }
};

// Reads a results file. `bytes` may start with a byte-order mark and use CR LF or LF.
ResultsSource ReadResultsSource(std::string_view bytes, const SourceHints& hints = {});

// Names a drawing of the source for messages: its date (or draw number) and, where a day has
// several drawings, the column of the day's drawing: "2020-08-12, Evening".
std::string DescribeSourceDrawing(const SourceDrawing& drawing, const SourceLayout& layout);

// "YYYY-MM-DD" of a YYYYMMDD number.
std::string IsoDate(int yyyymmdd);

}  // namespace numarel
