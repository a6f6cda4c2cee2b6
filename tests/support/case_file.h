#pragma once

// Cases kept in files beside the tests: a case a line, its fields parted by a "|" with a blank
// (or the line's end) on either side; empty lines, blank lines and lines starting with # are
// skipped. In a field \n, \r, \t, \0, \\ and \xHH stand for their bytes, and \| for a bar that
// parts nothing. A field is read as its text, or as its words: parted by blanks, with "quoted
// texts" kept whole ("" is an empty word). Every failure names the case's file:line.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "support/test_support.h"

namespace numarel::testing {

// A file under tests/, by its path there.
inline std::filesystem::path Fixture(std::string_view name) {
    return std::filesystem::path(NUMAREL_TESTS_DIR) / name;
}

inline std::string Unescape(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        const char c = text[++i];
        const std::size_t named = std::string_view("nrt0").find(c);
        if (c == 'x') {
            out += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            out += named == std::string_view::npos ? c : std::string_view("\n\r\t\0", 4)[named];
        }
    }
    return out;
}

// The words of `text`: parted by blanks, "quoted texts" kept whole.
inline std::vector<std::string> Words(std::string_view text) {
    std::vector<std::string> out;
    std::string word;
    bool quoted = false, inWord = false;
    for (const char ch : std::string(text) + ' ') {
        if (ch == '"') {
            quoted = !quoted;
            inWord = true;
        } else if (!quoted && std::string_view(" \t\r\n").find(ch) != std::string_view::npos) {
            if (inWord) out.push_back(word);
            word.clear();
            inWord = false;
        } else {
            word += ch;
            inWord = true;
        }
    }
    return out;
}

struct Case {
    std::string where;  // file:line, for the failure messages
    std::vector<std::string> fields;
    std::vector<std::vector<std::string>> words;  // each field's words

    // Field `i` as its text, or as its words; a missing field fails the test and reads as empty.
    const std::string& operator[](std::size_t i) const {
        static const std::string none;
        if (i < fields.size()) return fields[i];
        ADD_FAILURE() << where << ": no field " << i;
        return none;
    }
    const std::vector<std::string>& Words(std::size_t i) const {
        static const std::vector<std::string> none;
        return i < words.size() ? words[i] : ((void)(*this)[i], none);
    }
    // The first word of field `i` ("" for none), and the words as numbers.
    const std::string& Text(std::size_t i) const {
        static const std::string none;
        return Words(i).empty() ? none : Words(i)[0];
    }
    int Int(std::size_t i) const {
        const std::vector<int> numbers = Ints(i);
        return numbers.empty() ? -1 : numbers[0];
    }
    std::vector<int> Ints(std::size_t i) const {
        std::vector<int> out;
        for (const std::string& word : Words(i))
            try {
                out.push_back(std::stoi(word));
            } catch (const std::exception&) {
                ADD_FAILURE() << where << ": \"" << word << "\" is not a number";
            }
        return out;
    }
};

// The cases of tests/`name`; with `fields`, a line with another count fails the test.
inline std::vector<Case> ReadCases(std::string_view name, std::size_t fields = 0) {
    const std::string text = ReadAll(Fixture(name));
    std::vector<Case> cases;
    std::size_t lineNo = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = text.find('\n', at);
        if (end == std::string::npos) end = text.size();
        std::string_view line(text.data() + at, end - at);
        at = end + 1;
        ++lineNo;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line.find_first_not_of(' ') == std::string_view::npos || line[0] == '#') continue;
        Case c{std::string(name) + ":" + std::to_string(lineNo), {}, {}};
        for (std::size_t i = 0, start = 0; i <= line.size(); ++i) {
            if (i + 1 < line.size() && line[i] == '\\') {
                ++i;
            } else if (i == line.size() || (line[i] == '|' && (i == 0 || line[i - 1] == ' ') &&
                                            (i + 1 == line.size() || line[i + 1] == ' '))) {
                // The blanks beside a bar belong to it.
                const std::size_t stop = std::max(start, i == line.size() || i == 0 ? i : i - 1);
                c.fields.push_back(Unescape(line.substr(start, stop - start)));
                c.words.push_back(testing::Words(c.fields.back()));
                start = std::min(i + 2, line.size());
                i = std::max(i, start - 1);
            }
        }
        if (fields != 0 && c.fields.size() != fields)
            ADD_FAILURE() << c.where << ": " << c.fields.size() << " fields, not " << fields;
        else
            cases.push_back(std::move(c));
    }
    EXPECT_FALSE(cases.empty()) << "no cases in " << name;
    return cases;
}

// The parts of `text` between the `separator`s: "a,,b" is "a", "" and "b"; "" is one empty part.
inline std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts{""};
    for (char c : text)
        c == separator ? parts.emplace_back() : parts.back() += c;
    return parts;
}

// `text` with every "{name}" replaced by its value.
inline std::string Fill(std::string text,
                        std::initializer_list<std::pair<std::string_view, std::string>> values) {
    for (const auto& [name, value] : values)
        for (std::size_t at; (at = text.find("{" + std::string(name) + "}")) != std::string::npos;)
            text.replace(at, name.size() + 2, value);
    return text;
}

}  // namespace numarel::testing
