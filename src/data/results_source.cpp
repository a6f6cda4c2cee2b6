#include "data/results_source.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <deque>
#include <map>
#include <span>
#include <tuple>

#include "data/basic_text.h"

namespace numarel {
namespace {

constexpr int kMinYear = 1900;
constexpr int kMaxYear = 2199;

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
// Letters of any script count: a header may be written in the lottery's own language.
bool IsLetter(char c) {
    unsigned char u = static_cast<unsigned char>(c);
    return u >= 0x80 || ((u | 0x20) >= 'a' && (u | 0x20) <= 'z');
}
bool AllDigits(std::string_view s) {
    return !s.empty() && std::all_of(s.begin(), s.end(), IsDigit);
}
int ToInt(std::string_view digits) {
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

std::string Lower(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return out;
}

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
        value = ToInt(s_.substr(start, p_ - start));
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

int ParseOneForm(std::string_view text, DateFormat format) {
    // Every form starts with a digit and takes at least eight characters ("1/5/2021").
    if (text.size() < 8 || !IsDigit(text[0])) return 0;
    DateScanner scan(text);
    int y = 0, m = 0, d = 0;
    switch (format) {
        case DateFormat::Compact:
            if (text.size() != 8 || !AllDigits(text)) return 0;
            return MakeDate(ToInt(text.substr(0, 4)), ToInt(text.substr(4, 2)),
                            ToInt(text.substr(6, 2)));
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

constexpr DateFormat kForms[] = {DateFormat::MonthDayYear, DateFormat::YearMonthDay,
                                 DateFormat::DayMonthYearDot, DateFormat::Compact,
                                 DateFormat::DayMonthYearSlash};
constexpr int kFormCount = 6;  // the enum's size, Guess included

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
    std::string n = Lower(name);
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
    std::string name = Lower(TrimBlanksAndTabs(text));
    for (auto [word, part] : kNames)
        if (name == word) return part;
    return -1;
}

// --- lines and fields ------------------------------------------------------------------------

struct Line {
    int number = 0;
    std::string_view text;
};

std::vector<Line> SplitLines(std::string_view text) {
    std::vector<Line> lines;
    lines.reserve(text.size() / 24 + 1);
    std::size_t start = 0;
    int number = 1;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i] != '\n' && text[i] != '\r') continue;
        lines.push_back({number++, text.substr(start, i - start)});
        if (i + 1 < text.size() && text[i] == '\r' && text[i + 1] == '\n') ++i;
        start = i + 1;
    }
    return lines;
}

// Reads a quoted field from `p` (at the opening quote); a doubled quote stands for one.
void ReadQuoted(std::string_view line, std::size_t& p, std::string& out) {
    ++p;
    while (p < line.size()) {
        if (line[p] == '"') {
            if (p + 1 < line.size() && line[p + 1] == '"') {
                out += '"';
                p += 2;
                continue;
            }
            ++p;
            return;
        }
        out += line[p++];
    }
}

// The fields of lines, as views of the source's own bytes; only a quoted field, which loses its
// quotes, is a text of its own, kept in `unquoted` (a deque, so that the views stay valid). A
// line of a large source costs a few views, not a text per field.
struct FieldStore {
    std::vector<std::string_view> fields;
    std::deque<std::string> unquoted;
};

// Splits a line at `sep`, or at runs of blanks when `sep` is ' ', adding its fields to `store`.
// Fields are trimmed; quoted fields lose their quotes and may hold the separator.
void SplitFields(std::string_view line, char sep, FieldStore& store) {
    std::size_t p = 0;
    const std::size_t n = line.size();
    // The field from `start` to `p`, after the unquoted text of a quoted field when there is one.
    auto add = [&](bool quoted, std::string_view rest) {
        if (!quoted) {
            store.fields.push_back(rest);
            return;
        }
        std::string& text = store.unquoted.back();
        text.append(rest);
        store.fields.push_back(text);
    };
    auto quoted = [&] {
        if (p >= n || line[p] != '"') return false;
        ReadQuoted(line, p, store.unquoted.emplace_back());
        return true;
    };
    if (sep == ' ') {
        while (true) {
            while (p < n && IsBlank(line[p]))
                ++p;
            if (p >= n) return;
            const bool q = quoted();
            std::size_t start = p;
            while (p < n && !IsBlank(line[p]))
                ++p;
            add(q, line.substr(start, p - start));
        }
    }
    while (true) {
        while (p < n && IsBlank(line[p]))
            ++p;
        const bool q = quoted();
        std::size_t start = p;
        while (p < n && line[p] != sep)
            ++p;
        add(q, TrimBlanksAndTabs(line.substr(start, p - start)));
        if (p >= n) return;
        ++p;  // the separator; one after the last field gives an empty field
    }
}

// The separator that splits most lines into the same number of fields. Commas, semicolons, tabs
// and bars are preferred to runs of blanks, which also split dates with times and "1 2 3".
char SniffSeparator(const std::vector<Line>& lines) {
    struct Score {
        double coverage = 0;
        std::size_t fields = 0;
    };
    FieldStore store;
    auto score = [&](char sep) {
        std::map<std::size_t, int> counts;
        int sampled = 0;
        for (const Line& line : lines) {
            if (TrimBlanksAndTabs(line.text).empty()) continue;
            if (++sampled > 400) break;
            store = {};
            SplitFields(line.text, sep, store);
            if (store.fields.size() >= 2) ++counts[store.fields.size()];
        }
        Score best;
        for (auto [size, count] : counts)
            if (count >= best.coverage) best = {static_cast<double>(count), size};
        if (sampled > 0) best.coverage /= std::min(sampled, 400);
        return best;
    };
    Score blanks = score(' ');
    char chosen = ' ';
    Score best;
    for (char sep : {'\t', ';', ',', '|'}) {
        Score s = score(sep);
        if (s.fields >= 2 && (s.coverage > best.coverage ||
                              (s.coverage == best.coverage && s.fields > best.fields))) {
            best = s;
            chosen = sep;
        }
    }
    if (chosen != ' ' && best.coverage >= 0.5 * blanks.coverage) return chosen;
    return ' ';
}

// Text that can only be a value: a date or a draw number.
bool LooksLikeValue(std::string_view field) {
    for (DateFormat f : kForms)
        if (ParseOneForm(field, f)) return true;
    return ParseDrawNumber(field) != 0;
}

// A line of names: no dates or draw numbers, and letters in at least half of its fields.
bool IsHeaderLike(std::span<const std::string_view> fields) {
    auto lettered = [](std::string_view f) { return std::any_of(f.begin(), f.end(), IsLetter); };
    if (std::none_of(fields.begin(), fields.end(), lettered)) return false;
    int filled = 0, named = 0;
    for (std::string_view f : fields) {
        if (f.empty()) continue;
        ++filled;
        if (LooksLikeValue(f)) return false;
        if (std::any_of(f.begin(), f.end(), IsLetter)) ++named;
    }
    return filled > 0 && named * 2 >= filled;
}

std::string HeaderKey(std::span<const std::string_view> fields) {
    std::string key;
    for (std::string_view f : fields) {
        key += Lower(f);
        key += '\x1f';
    }
    return key;
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
    std::array<int, kFormCount> dates{};
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
        for (DateFormat form : kForms)
            if (ParseOneForm(f, form)) ++s.dates[static_cast<std::size_t>(form)];
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
            int v = ToInt(f);
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
        if (Lower(layout.columnNames[i]) == Lower(h)) return static_cast<int>(i);
    if (AllDigits(h) && h.size() <= 4) {
        int n = ToInt(h);
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
        return Lower(layout_.columnNames[static_cast<std::size_t>(c)]).find(word) !=
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
            for (DateFormat f : kForms)  // on a tie MM/DD/YYYY comes before DD/MM/YYYY
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
            d.date = ParseOneForm(f, layout_.dateFormat);
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
            if (anyDrawNumber && AllDigits(f) && f.size() <= 9 && ToInt(f) > 0)
                d.drawNumber = ToInt(f);
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

bool ParseDateFormatName(std::string_view name, DateFormat& format) {
    std::string n = Lower(TrimBlanksAndTabs(name));
    if (n.empty()) {
        format = DateFormat::Guess;
        return true;
    }
    for (DateFormat f : kForms)
        if (Lower(DateFormatName(f)) == n) {
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
    if (format != DateFormat::Guess) return ParseOneForm(text, format);
    for (DateFormat f : kForms)
        if (int date = ParseOneForm(text, f)) return date;
    return 0;
}

int ParseDrawNumber(std::string_view text) {
    text = TrimBlanksAndTabs(text);
    if (text.size() != 7 || !AllDigits(text)) return 0;
    int year = ToInt(text.substr(0, 4));
    int running = ToInt(text.substr(4));
    return year >= kMinYear && year <= kMaxYear && running >= 1 ? ToInt(text) : 0;
}

std::string IsoDate(int yyyymmdd) {
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", yyyymmdd / 10000, yyyymmdd / 100 % 100,
                  yyyymmdd % 100);
    return text;
}

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
