#pragma once
// Cases kept in plain text files beside the tests, one case a line:
//   field | field | ...   each field a list of words or "quoted texts" ("" is an empty text);
// blank lines and lines starting with # are skipped. A case names its file and line.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "support/test_support.h"

namespace numarel::testing {

using Words = std::vector<std::string>;

struct Case {
    std::string where;  // file:line
    std::vector<Words> fields;
    const Words& operator[](std::size_t i) const {
        static const Words none;
        if (i < fields.size()) return fields[i];
        ADD_FAILURE() << where << ": no field " << i;
        return none;
    }
    const std::string& Text(std::size_t i) const {
        static const std::string none;
        return (*this)[i].empty() ? none : (*this)[i][0];
    }
    int Int(std::size_t i) const { return std::stoi((*this)[i].empty() ? "-1" : (*this)[i][0]); }
    std::vector<int> Ints(std::size_t i) const {
        std::vector<int> out;
        for (const std::string& w : (*this)[i])
            out.push_back(std::stoi(w));
        return out;
    }
};

// The cases of `name`, a path under the tests' folder; fails the test when there are none.
inline std::vector<Case> ReadCases(const std::string& name) {
    std::ifstream in(std::filesystem::path(NUMAREL_TESTS_DIR) / name, std::ios::binary);
    std::vector<Case> cases;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.find_first_not_of(' ') == std::string::npos || line[0] == '#') continue;
        Case c{name + ":" + std::to_string(number), {{}}};
        std::string word;
        bool quoted = false, inWord = false;
        for (char ch : line + ' ') {
            if (quoted && ch != '"') {
                word += ch;
            } else if (ch == '"') {
                quoted = !quoted;
                inWord = true;
            } else if (ch == ' ' || ch == '|') {
                if (inWord) c.fields.back().push_back(word);
                word.clear();
                inWord = false;
                if (ch == '|') c.fields.emplace_back();
            } else {
                word += ch;
                inWord = true;
            }
        }
        cases.push_back(std::move(c));
    }
    EXPECT_FALSE(cases.empty()) << "no cases in " << name;
    return cases;
}

// Drawings dated 2020001, 2020002, ... from words such as 123, or 3,0,12 for H, T and U apart;
// a date of its own goes in front with a colon, as in 20240109:123.
inline std::vector<DrawRecord> DrawingsOf(const Words& words) {
    std::vector<DrawRecord> out;
    for (std::string w : words) {
        std::string date = std::to_string(2020001 + out.size());
        if (const auto colon = w.find(':'); colon != std::string::npos) {
            date = w.substr(0, colon);
            w.erase(0, colon + 1);
        }
        DrawRecord r{date, w.substr(0, 1), w.substr(1, 1), w.substr(2, 1)};
        if (w.find(',') != std::string::npos) {
            const auto a = w.find(','), b = w.find(',', a + 1);
            r.h = w.substr(0, a);
            r.t = w.substr(a + 1, b - a - 1);
            r.u = w.substr(b + 1);
        }
        out.push_back(r);
    }
    return out;
}

// Checks every case of `name`: report | drawings | row | first column | texts, where the row's
// cells from that column on must be the texts; with a colour for the column ("colour R G B",
// "hits", "statistics" or "sum-width"), the row's columns of that back colour must be the numbers.
// A case report | drawings | rows | N (or top | N) gives the sheet's rows (or its top row).
inline void CheckRows(const std::string& name) {
    for (const Case& c : ReadCases(name)) {
        const ReportSheet sheet = Build(c.Text(0), DrawingsOf(c[1]));
        if (c.Text(2) == "rows" || c.Text(2) == "top") {
            EXPECT_EQ(c.Text(2) == "rows" ? sheet.Rows() : sheet.TopRow(), c.Int(3)) << c.where;
            continue;
        }
        const int row = c.Int(2);
        const Words& how = c[3];
        const std::map<std::string, Rgb> named = {{"hits", colours::kHit},
                                                  {"statistics", colours::kStatisticBack},
                                                  {"sum-width", colours::kSumWidth}};
        if (how.size() == 4 || named.count(c.Text(3))) {
            const Rgb colour =
                how.size() == 4 ? MakeRgb(std::stoi(how[1]), std::stoi(how[2]), std::stoi(how[3]))
                                : named.at(how[0]);
            EXPECT_EQ(ColumnsColoured(sheet, row, colour), c.Ints(4)) << c.where;
        } else {
            const int first = c.Int(3);
            const int last = first + static_cast<int>(c[4].size()) - 1;
            EXPECT_EQ(RowTexts(sheet, row, first, last), c[4]) << c.where;
            for (int col = first; col <= last; ++col)  // an empty text: no cell at all
                if (c[4][static_cast<std::size_t>(col - first)].empty()) {
                    EXPECT_TRUE(sheet.IsEmpty(row, col)) << c.where << " column " << col;
                }
        }
    }
}

}  // namespace numarel::testing
