#include "data/results_lines.h"

#include <algorithm>
#include <array>
#include <map>

#include "data/basic_text.h"
#include "data/result_dates.h"

namespace numarel::results_text {
namespace {

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

}  // namespace

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
    for (DateFormat f : DateForms())
        if (ParseDateIn(field, f)) return true;
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
        key += AsciiLower(f);
        key += '\x1f';
    }
    return key;
}

}  // namespace numarel::results_text
