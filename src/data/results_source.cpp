#include "data/results_source.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <deque>
#include <map>
#include <span>
#include <tuple>

#include "data/basic_text.h"
#include "data/results_lines.h"

namespace numarel {
namespace {

using namespace results_text;

// Three digits in one field: "123", "7" or "81" with the leading zeros dropped, "1 2 3", "1-2-3",
// "1,2,3". `strong` tells whether the field could hardly be anything else: three digit characters
// or three separated digits, not a short number.
bool ParseThreeDigits(std::string_view field, std::array<char, 3>& digits, bool& strong) {
    field = TrimBlanksAndTabs(field);
    if (field.empty()) return false;
    if (AllDigits(field)) {
        if (field.size() > 3) return false;
        digits = {'0', '0', '0'};
        std::copy(field.begin(), field.end(), digits.end() - field.size());
        strong = field.size() == 3;
        return true;
    }
    auto isSeparator = [](char c) {
        return c == ' ' || c == '\t' || c == '-' || c == ',' || c == '.' || c == '/' || c == '|';
    };
    int n = 0;
    std::size_t p = 0;
    while (p < field.size()) {
        if (isSeparator(field[p])) {
            ++p;
            continue;
        }
        if (!IsDigit(field[p]) || n == 3) return false;
        if (p + 1 < field.size() && !isSeparator(field[p + 1])) return false;
        digits[static_cast<std::size_t>(n++)] = field[p++];
    }
    strong = true;
    return n == 3;
}

bool IsSingleDigit(std::string_view field) {
    field = TrimBlanksAndTabs(field);
    return field.size() == 1 && IsDigit(field[0]);
}

// Header texts that name columns of something other than the drawn digits: other games' numbers
// (with a 4 to 9 in the name, as "Pick 4"), sums, bonus balls, prizes, row numbers.
bool NamesOtherThanDigits(std::string_view name) {
    std::string n = AsciiLower(name);
    for (std::string_view word : {"sum", "bonus", "fireball", "wild", "multiplier", "jackpot",
                                  "prize", "payout", "winners", "sales", "index", "total"})
        if (n.find(word) != std::string::npos) return true;
    if (n == "id" || n == "no" || n == "row" || n == "#") return true;
    return std::any_of(n.begin(), n.end(), [](char c) { return c >= '4' && c <= '9'; });
}

// The parts of the day that name a day's drawings, in the day's order.
constexpr std::string_view kDayParts[] = {"morning", "midday", "afternoon", "evening", "night"};

// The place in the day of a drawing named "Midday", "Evening" and so on; -1 for other texts.
int DayPart(std::string_view text) {
    static constexpr std::pair<std::string_view, int> kNames[] = {
        {"morning", 0},   {"midday", 1},  {"mid-day", 1}, {"mid day", 1}, {"noon", 1}, {"day", 1},
        {"afternoon", 2}, {"evening", 3}, {"eve", 3},     {"night", 4},   {"nite", 4}};
    std::string name = AsciiLower(TrimBlanksAndTabs(text));
    for (auto [word, part] : kNames)
        if (name == word) return part;
    return -1;
}

// --- columns ---------------------------------------------------------------------------------

// A line that may hold drawings: its fields, views into the reader's FieldStore.
struct Row {
    int line = 0;
    std::span<const std::string_view> fields;
};

std::string_view FieldAt(const Row& row, int col) {
    return col >= 0 && static_cast<std::size_t>(col) < row.fields.size()
               ? row.fields[static_cast<std::size_t>(col)]
               : std::string_view();
}

struct ColumnStats {
    int filled = 0;
    std::array<int, kDateFormatCount> dates{};
    int drawNumbers = 0;
    int threeDigits = 0;  // fields that read as three digits
    int strong = 0;       // of these, three characters or three separated digits
    int longNumbers = 0;  // numbers of more than three digits
    int singles = 0;      // one digit
    int dayParts = 0;     // names of a part of the day
    // Whether the whole numbers climb or fall by at least one on every row, as a row index does.
    int numbers = 0;
    int previous = -1;
    bool rising = true;
    bool falling = true;

    bool IndexLike() const { return numbers >= 8 && (rising || falling); }
};

ColumnStats Measure(const std::vector<Row>& rows, int col) {
    ColumnStats s;
    for (const Row& row : rows) {
        std::string_view f = TrimBlanksAndTabs(FieldAt(row, col));
        if (f.empty()) continue;
        ++s.filled;
        for (DateFormat form : DateForms())
            if (ParseDateIn(f, form)) ++s.dates[static_cast<std::size_t>(form)];
        const bool number = AllDigits(f);
        if (number && f.size() == 7 && ParseDrawNumber(f)) ++s.drawNumbers;
        std::array<char, 3> digits;
        bool strong = false;
        if (ParseThreeDigits(f, digits, strong)) {
            ++s.threeDigits;
            if (strong) ++s.strong;
        }
        if (number && f.size() > 3) ++s.longNumbers;
        if (number && f.size() == 1) ++s.singles;
        if (!number && DayPart(f) >= 0) ++s.dayParts;
        if (number && f.size() <= 9) {
            int v = DigitsValue(f);
            if (s.numbers > 0) {
                s.rising = s.rising && v > s.previous;
                s.falling = s.falling && v < s.previous;
            }
            s.previous = v;
            ++s.numbers;
        }
    }
    return s;
}

// Three in four: a column keeps its part when a few lines of a pasted page hold something else.
bool Mostly(int part, int whole) {
    return whole > 0 && part * 4 >= whole * 3;
}

// The column a hint names: its header text, or its number from 1. -1 when there is none.
int FindColumn(std::string_view hint, const SourceLayout& layout) {
    std::string_view h = TrimBlanksAndTabs(hint);
    for (std::size_t i = 0; i < layout.columnNames.size(); ++i)
        if (AsciiLower(layout.columnNames[i]) == AsciiLower(h)) return static_cast<int>(i);
    if (AllDigits(h) && h.size() <= 4) {
        int n = DigitsValue(h);
        if (n >= 1 && n <= layout.columnCount) return n - 1;
    }
    return -1;
}

std::string ColumnText(std::string_view hint) {
    return "There is no column \"" + std::string(hint) + "\" in the source.";
}

// Reads a drawing of one slot from a row; false with `bad` set when the fields hold something
// that is not three digits, false with `bad` empty when they are empty.
bool ReadSlot(const Row& row, const std::vector<int>& cols, std::array<char, 3>& digits,
              std::string& bad) {
    bad.clear();
    if (cols.size() == 1) {
        std::string_view f = TrimBlanksAndTabs(FieldAt(row, cols[0]));
        if (f.empty()) return false;
        bool strong = false;
        if (ParseThreeDigits(f, digits, strong)) return true;
        bad = f;
        return false;
    }
    bool empty = true;
    bool ok = true;
    for (std::size_t i = 0; i < 3; ++i) {
        std::string_view f = TrimBlanksAndTabs(FieldAt(row, cols[i]));
        if (!f.empty()) empty = false;
        if (IsSingleDigit(f))
            digits[i] = f[0];
        else
            ok = false;
        if (!bad.empty()) bad += ' ';
        bad += f.empty() ? std::string_view("(empty)") : f;
    }
    if (ok) bad.clear();
    if (empty) bad.clear();
    return ok;
}

class SourceReader {
public:
    SourceReader(std::string_view text, const SourceHints& hints) : text_(text), hints_(hints) {}

    ResultsSource Read();

private:
    bool FindLayout();
    bool AssignColumns();
    void GuessDigits(const std::vector<ColumnStats>& stats);
    void DropRepeatedSlots();
    void ReadDrawings();
    void Order();
    // Records why the source cannot be used; false, so that a step can end with it.
    bool Fail(std::string message) {
        result_.status = Status::InvalidArgument(std::move(message));
        return false;
    }

    std::string_view text_;
    const SourceHints& hints_;
    ResultsSource result_;
    FieldStore store_;       // the fields of every line
    std::vector<Row> rows_;  // the lines that may hold drawings, in the order of the source
    SourceLayout& layout_ = result_.layout;
};

ResultsSource SourceReader::Read() {
    if (!FindLayout() || !AssignColumns()) return std::move(result_);
    ReadDrawings();
    if (result_.drawings.empty()) {
        Fail("No usable drawing was found in the source.");
        return std::move(result_);
    }
    Order();
    return std::move(result_);
}

bool SourceReader::FindLayout() {
    std::vector<Line> lines = SplitLines(text_);
    result_.lines = static_cast<int>(lines.size());
    layout_.separator = SniffSeparator(lines);

    // Every field first, then the rows over them, once the store no longer moves.
    std::vector<std::pair<int, std::size_t>> starts;  // line number, first field
    starts.reserve(lines.size());
    for (const Line& line : lines) {
        if (TrimBlanksAndTabs(line.text).empty()) continue;
        starts.emplace_back(line.number, store_.fields.size());
        SplitFields(line.text, layout_.separator, store_);
    }
    std::vector<Line>().swap(lines);
    std::vector<Row> all;
    all.reserve(starts.size());
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const std::size_t first = starts[i].second;
        const std::size_t end = i + 1 < starts.size() ? starts[i + 1].second : store_.fields.size();
        all.push_back(
            {starts[i].first,
             std::span<const std::string_view>(store_.fields).subspan(first, end - first)});
    }
    std::vector<std::pair<int, std::size_t>>().swap(starts);
    // The header: the last line of names before the first line of values, one with as many
    // fields as the values preferred; lines of names before it are titles.
    std::size_t firstValues = 0;
    while (firstValues < all.size() && IsHeaderLike(all[firstValues].fields))
        ++firstValues;
    std::map<std::size_t, int> counts;
    for (std::size_t i = firstValues; i < all.size(); ++i)
        ++counts[all[i].fields.size()];
    int most = 0;
    for (auto [size, count] : counts)
        if (count > most) {
            most = count;
            layout_.columnCount = static_cast<int>(size);
        }
    std::size_t header = firstValues;  // none
    for (std::size_t i = 0; i < firstValues; ++i)
        if (header == firstValues ||
            all[i].fields.size() == static_cast<std::size_t>(layout_.columnCount) ||
            all[header].fields.size() != static_cast<std::size_t>(layout_.columnCount))
            header = i;
    const bool hasHeader = header < firstValues;
    std::string headerKey;
    if (hasHeader) {
        layout_.headerLine = all[header].line;
        headerKey = HeaderKey(all[header].fields);
    }
    layout_.namedByHeader =
        hasHeader && all[header].fields.size() == static_cast<std::size_t>(layout_.columnCount);
    for (int c = 0; c < layout_.columnCount; ++c) {
        std::string name;
        if (layout_.namedByHeader)
            name = std::string(all[header].fields[static_cast<std::size_t>(c)]);
        layout_.columnNames.push_back(name.empty() ? "column " + std::to_string(c + 1) : name);
    }

    // The rows of values are kept in place, in `all` itself.
    const bool none = all.empty();
    std::size_t kept = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (hasHeader && i == header) continue;
        const bool names = i < firstValues || IsHeaderLike(all[i].fields);
        if (names && hasHeader && i > header && HeaderKey(all[i].fields) == headerKey) {
            ++layout_.repeatedHeaders;
            continue;
        }
        if (names) {
            result_.rejected.push_back({all[i].line, "no drawing in this line"});
            continue;
        }
        all[kept++] = all[i];
    }
    all.resize(kept);
    rows_ = std::move(all);
    if (rows_.empty()) {
        Fail(none ? "The source is empty." : "The source holds no drawings.");
        return false;
    }
    return true;
}

bool SourceReader::AssignColumns() {
    std::vector<ColumnStats> stats;
    for (int c = 0; c < layout_.columnCount; ++c)
        stats.push_back(Measure(rows_, c));
    const int rowCount = static_cast<int>(rows_.size());
    auto nameHas = [&](int c, std::string_view word) {
        return AsciiLower(layout_.columnNames[static_cast<std::size_t>(c)]).find(word) !=
               std::string::npos;
    };

    // Dates: the column where most values read as dates of one form.
    if (!hints_.dateColumn.empty()) {
        layout_.dateColumn = FindColumn(hints_.dateColumn, layout_);
        if (layout_.dateColumn < 0) return Fail(ColumnText(hints_.dateColumn));
    } else {
        int bestCount = 0;
        for (int c = 0; c < layout_.columnCount; ++c) {
            const ColumnStats& s = stats[static_cast<std::size_t>(c)];
            int count = hints_.dateFormat != DateFormat::Guess
                            ? s.dates[static_cast<std::size_t>(hints_.dateFormat)]
                            : *std::max_element(s.dates.begin(), s.dates.end());
            if (!Mostly(count, s.filled) || count * 2 < rowCount) continue;
            bool better =
                count > bestCount || (count == bestCount && layout_.dateColumn >= 0 &&
                                      nameHas(c, "date") && !nameHas(layout_.dateColumn, "date"));
            if (better) {
                bestCount = count;
                layout_.dateColumn = c;
            }
        }
    }
    if (layout_.dateColumn >= 0) {
        layout_.dateFormat = hints_.dateFormat;
        if (layout_.dateFormat == DateFormat::Guess) {
            const ColumnStats& s = stats[static_cast<std::size_t>(layout_.dateColumn)];
            int best = 0;
            for (DateFormat f : DateForms())  // on a tie MM/DD/YYYY comes before DD/MM/YYYY
                if (s.dates[static_cast<std::size_t>(f)] > best) {
                    best = s.dates[static_cast<std::size_t>(f)];
                    layout_.dateFormat = f;
                }
            if (best == 0)
                return Fail("The column \"" +
                            layout_.columnNames[static_cast<std::size_t>(layout_.dateColumn)] +
                            "\" holds no dates in a known form.");
        }
    }

    // Draw numbers: seven digits, the year and a running number.
    if (!hints_.drawColumn.empty()) {
        layout_.drawColumn = FindColumn(hints_.drawColumn, layout_);
        if (layout_.drawColumn < 0) return Fail(ColumnText(hints_.drawColumn));
    } else {
        for (int c = 0; c < layout_.columnCount && layout_.drawColumn < 0; ++c) {
            const ColumnStats& s = stats[static_cast<std::size_t>(c)];
            if (c != layout_.dateColumn && Mostly(s.drawNumbers, s.filled) &&
                s.drawNumbers * 2 >= rowCount)
                layout_.drawColumn = c;
        }
    }
    if (layout_.dateColumn < 0 && layout_.drawColumn < 0)
        return Fail("No column of dates or draw numbers was found in the source.");

    if (!hints_.digitsColumns.empty()) {
        for (const std::string& hint : hints_.digitsColumns) {
            std::vector<int> cols;
            std::string_view rest = hint;
            while (!rest.empty()) {
                std::size_t plus = rest.find('+');
                std::string_view part = rest.substr(0, plus);
                int c = FindColumn(part, layout_);
                if (c < 0) return Fail(ColumnText(part));
                cols.push_back(c);
                rest = plus == std::string_view::npos ? std::string_view() : rest.substr(plus + 1);
            }
            const ColumnStats& first = stats[static_cast<std::size_t>(cols[0])];
            if (cols.size() == 1 && Mostly(first.singles, first.filled) &&
                cols[0] + 2 < layout_.columnCount)
                cols = {cols[0], cols[0] + 1, cols[0] + 2};
            if (cols.size() != 1 && cols.size() != 3)
                return Fail("The digits \"" + hint + "\" name " + std::to_string(cols.size()) +
                            " columns; one or three are needed.");
            layout_.digitsColumns.push_back(cols);
        }
    } else {
        GuessDigits(stats);
        DropRepeatedSlots();
    }
    if (layout_.digitsColumns.empty())
        return Fail("No column of three digits was found in the source.");
    // One drawing a row, named by the part of the day.
    for (int c = 0; c < layout_.columnCount && layout_.digitsColumns.size() == 1; ++c) {
        const ColumnStats& s = stats[static_cast<std::size_t>(c)];
        if (c != layout_.dateColumn && c != layout_.drawColumn && Mostly(s.dayParts, s.filled) &&
            s.dayParts * 2 >= rowCount) {
            layout_.dayPartColumn = c;
            break;
        }
    }
    return true;
}

void SourceReader::GuessDigits(const std::vector<ColumnStats>& stats) {
    auto usable = [&](int c) {
        return c != layout_.dateColumn && c != layout_.drawColumn &&
               !(layout_.namedByHeader &&
                 NamesOtherThanDigits(layout_.columnNames[static_cast<std::size_t>(c)]));
    };
    int run = 0;  // one-digit columns in a row, grouped by three from the left
    for (int c = 0; c < layout_.columnCount; ++c) {
        const ColumnStats& s = stats[static_cast<std::size_t>(c)];
        bool single = usable(c) && s.filled > 0 && Mostly(s.singles, s.filled);
        if (single) {
            if (++run == 3) {
                layout_.digitsColumns.push_back({c - 2, c - 1, c});
                run = 0;
            }
            continue;
        }
        run = 0;
        // Three digits in one field. A column of short numbers counts when it never holds more
        // than three digits and a fair share of its values have three (nine in ten do, drawn at
        // random): the leading zeros of the others were dropped. Sums and bonus balls never
        // reach three digits; row numbers climb.
        if (usable(c) && Mostly(s.threeDigits, s.filled) && s.longNumbers == 0 && s.strong > 0 &&
            s.strong * 4 >= s.filled && !s.IndexLike())
            layout_.digitsColumns.push_back({c});
    }
}

// A source that gives the same drawing twice in a row, as one field and as three, has one slot.
void SourceReader::DropRepeatedSlots() {
    auto& slots = layout_.digitsColumns;
    for (std::size_t a = 0; a < slots.size(); ++a) {
        for (std::size_t b = a + 1; b < slots.size();) {
            int both = 0, same = 0;
            for (const Row& row : rows_) {
                std::array<char, 3> x, y;
                std::string bad;
                if (!ReadSlot(row, slots[a], x, bad) || !ReadSlot(row, slots[b], y, bad)) continue;
                ++both;
                if (x == y) ++same;
            }
            if (both > 0 && same * 20 >= both * 19)
                slots.erase(slots.begin() + static_cast<std::ptrdiff_t>(b));
            else
                ++b;
        }
    }
}

void SourceReader::ReadDrawings() {
    const bool anyDrawNumber = !hints_.drawColumn.empty();
    std::string bad;
    result_.drawings.reserve(rows_.size() * layout_.digitsColumns.size());
    for (const Row& row : rows_) {
        SourceDrawing d;
        d.line = row.line;
        if (layout_.dateColumn >= 0) {
            std::string_view f = TrimBlanksAndTabs(FieldAt(row, layout_.dateColumn));
            d.date = ParseDateIn(f, layout_.dateFormat);
            if (!d.date) {
                result_.rejected.push_back(
                    {row.line, f.empty() ? std::string("no date")
                                         : "the date \"" + std::string(f) + "\" is not a " +
                                               std::string(DateFormatName(layout_.dateFormat)) +
                                               " date"});
                continue;
            }
        }
        if (layout_.drawColumn >= 0) {
            std::string_view f = TrimBlanksAndTabs(FieldAt(row, layout_.drawColumn));
            if (anyDrawNumber && AllDigits(f) && f.size() <= 9 && DigitsValue(f) > 0)
                d.drawNumber = DigitsValue(f);
            else
                d.drawNumber = ParseDrawNumber(f);
            // Where the draw number tells the drawings apart it is needed; a number of the day
            // may be missing beside a date.
            if (!d.drawNumber && (layout_.dateColumn < 0 || layout_.DrawNumberPerDrawing())) {
                result_.rejected.push_back(
                    {row.line, f.empty() ? std::string("no draw number")
                                         : "the draw number \"" + std::string(f) +
                                               "\" is not the year and a running number"});
                continue;
            }
        }
        std::string problems;
        int found = 0;
        for (std::size_t slot = 0; slot < layout_.digitsColumns.size(); ++slot) {
            const std::vector<int>& cols = layout_.digitsColumns[slot];
            d.slot = layout_.dayPartColumn >= 0
                         ? std::max(0, DayPart(FieldAt(row, layout_.dayPartColumn)))
                         : static_cast<int>(slot);
            if (ReadSlot(row, cols, d.digits, bad)) {
                result_.drawings.push_back(d);
                ++found;
            } else if (!bad.empty()) {
                if (!problems.empty()) problems += "; ";
                problems += "\"" + bad + "\" in " +
                            layout_.columnNames[static_cast<std::size_t>(cols[0])] +
                            " is not three digits";
            }
        }
        if (!problems.empty())
            result_.rejected.push_back({row.line, problems});
        else if (found == 0)
            result_.rejected.push_back({row.line, "no digits in this line"});
        if (row.fields.size() > static_cast<std::size_t>(layout_.columnCount)) {
            bool extra = false;
            for (std::size_t i = static_cast<std::size_t>(layout_.columnCount);
                 i < row.fields.size(); ++i)
                extra = extra || !row.fields[i].empty();
            if (extra)
                result_.rejected.push_back({row.line, std::to_string(row.fields.size()) +
                                                          " fields where the others have " +
                                                          std::to_string(layout_.columnCount) +
                                                          "; the last ones were left out"});
        }
    }
    std::stable_sort(result_.rejected.begin(), result_.rejected.end(),
                     [](const RejectedLine& a, const RejectedLine& b) { return a.line < b.line; });
}

void SourceReader::Order() {
    auto key = [](const SourceDrawing& d) { return std::tuple(d.date, d.drawNumber, d.slot); };
    auto& all = result_.drawings;
    std::stable_sort(all.begin(), all.end(), [&](const SourceDrawing& a, const SourceDrawing& b) {
        return key(a) < key(b);
    });
    std::vector<SourceDrawing> kept;
    kept.reserve(all.size());
    for (std::size_t i = 0; i < all.size();) {
        std::size_t end = i + 1;
        while (end < all.size() && key(all[end]) == key(all[i]))
            ++end;
        std::size_t first = kept.size();
        for (std::size_t j = i; j < end; ++j) {
            bool seen =
                std::any_of(kept.begin() + static_cast<std::ptrdiff_t>(first), kept.end(),
                            [&](const SourceDrawing& k) { return k.digits == all[j].digits; });
            if (seen)
                ++result_.duplicates;
            else
                kept.push_back(all[j]);
        }
        if (kept.size() - first > 1)
            result_.conflicts.push_back(
                {DescribeSourceDrawing(all[i], layout_),
                 std::vector<SourceDrawing>(kept.begin() + static_cast<std::ptrdiff_t>(first),
                                            kept.end())});
        i = end;
    }
    all = std::move(kept);
}

}  // namespace

std::string DescribeSourceDrawing(const SourceDrawing& drawing, const SourceLayout& layout) {
    std::string text =
        drawing.date ? IsoDate(drawing.date) : "draw " + std::to_string(drawing.drawNumber);
    if (drawing.date && drawing.drawNumber && layout.DrawNumberPerDrawing())
        text += " (draw " + std::to_string(drawing.drawNumber) + ")";
    if (layout.dayPartColumn >= 0) {
        text += ", " + std::string(kDayParts[static_cast<std::size_t>(std::clamp(
                           drawing.slot, 0, static_cast<int>(std::size(kDayParts)) - 1))]);
    } else if (layout.digitsColumns.size() > 1) {
        std::size_t slot = static_cast<std::size_t>(drawing.slot);
        if (slot < layout.digitsColumns.size())
            text +=
                ", " + layout.columnNames[static_cast<std::size_t>(layout.digitsColumns[slot][0])];
    }
    return text;
}

ResultsSource ReadResultsSource(std::string_view bytes, const SourceHints& hints) {
    ResultsSource failed;
    // A UTF-16 text (as some spreadsheets save "Unicode text") is narrowed to single bytes.
    std::string narrowed;
    if (bytes.size() >= 2 && (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))) {
        const bool little = bytes[0] == '\xFF';
        narrowed.reserve(bytes.size() / 2);
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
            unsigned char lo = static_cast<unsigned char>(bytes[little ? i : i + 1]);
            unsigned char hi = static_cast<unsigned char>(bytes[little ? i + 1 : i]);
            narrowed += hi == 0 ? static_cast<char>(lo) : '?';
        }
        bytes = narrowed;
    } else if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
    }
    std::size_t controls = 0;
    for (char c : bytes) {
        unsigned char u = static_cast<unsigned char>(c);
        if (u == 0) {
            failed.status = Status::InvalidArgument("The source is not a text file.");
            return failed;
        }
        if ((u < 0x20 && c != '\t' && c != '\r' && c != '\n' && c != '\f') || u == 0x7F) ++controls;
    }
    if (controls * 100 > bytes.size()) {
        failed.status = Status::InvalidArgument("The source is not a text file.");
        return failed;
    }
    if (TrimBlanksAndTabs(bytes).find_first_not_of("\r\n\t\f ") == std::string_view::npos) {
        failed.status = Status::InvalidArgument("The source is empty.");
        return failed;
    }
    return SourceReader(bytes, hints).Read();
}

}  // namespace numarel
