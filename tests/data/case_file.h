#pragma once

// Cases kept in files beside the tests. A case file holds a case a line, its fields parted by
// " | "; blank lines and lines starting with # are skipped. In a field \n, \r, \t, \0, \\ and \xHH
// stand for their bytes, and \| for a bar that parts nothing.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "support/test_support.h"

namespace numarel::testing {

// A file under tests/, by its path there.
inline std::filesystem::path Fixture(std::string_view name) {
    return std::filesystem::path(NUMAREL_TESTS_DIR) / name;
}

struct Case {
    std::string where;  // file:line, for the failure messages
    std::vector<std::string> fields;
    const std::string& operator[](std::size_t i) const { return fields.at(i); }
};

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

// The cases of tests/`name`, each with `fields` fields; a line with another count fails the test.
inline std::vector<Case> ReadCases(std::string_view name, std::size_t fields) {
    const std::string text = ReadAll(Fixture(name));
    std::vector<Case> cases;
    std::size_t lineNo = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = text.find('\n', at);
        if (end == std::string::npos) end = text.size();
        const std::string_view line(text.data() + at, end - at);
        at = end + 1;
        ++lineNo;
        if (line.empty() || line[0] == '#') continue;
        Case c{std::string(name) + ":" + std::to_string(lineNo), {}};
        std::size_t start = 0;
        for (std::size_t i = 0; i <= line.size(); ++i) {
            if (i < line.size() && line[i] == '\\') {
                ++i;
            } else if (i == line.size() || line.substr(i, 3) == " | ") {
                c.fields.push_back(Unescape(line.substr(start, i - start)));
                start = i + 3;
                i += 2;
            }
        }
        if (c.fields.size() != fields)
            ADD_FAILURE() << c.where << ": " << c.fields.size() << " fields, not " << fields;
        else
            cases.push_back(std::move(c));
    }
    EXPECT_FALSE(cases.empty()) << name;
    return cases;
}

// Words parted by blanks.
inline std::vector<std::string> Words(std::string_view text) {
    std::vector<std::string> out;
    std::istringstream in{std::string(text)};
    for (std::string word; in >> word;)
        out.push_back(word);
    return out;
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
