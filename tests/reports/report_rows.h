#pragma once
// Report tests' helpers on top of the case files: drawings written as words, and a sheet's rows
// checked against cases.
#include <map>
#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "support/case_file.h"

namespace numarel::testing {

// Drawings dated 2020001, 2020002, ... from words such as 123, or 3,0,12 for H, T and U apart;
// a date of its own goes in front with a colon, as in 20240109:123.
inline std::vector<DrawRecord> DrawingsOf(const std::vector<std::string>& words) {
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
        const ReportSheet sheet = Build(c.Text(0), DrawingsOf(c.Words(1)));
        if (c.Text(2) == "rows" || c.Text(2) == "top") {
            EXPECT_EQ(c.Text(2) == "rows" ? sheet.Rows() : sheet.TopRow(), c.Int(3)) << c.where;
            continue;
        }
        const int row = c.Int(2);
        const std::vector<std::string> how = c.Words(3), texts = c.Words(4);
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
            const int last = first + static_cast<int>(texts.size()) - 1;
            EXPECT_EQ(RowTexts(sheet, row, first, last), texts) << c.where;
            for (int col = first; col <= last; ++col)  // an empty text: no cell at all
                if (texts[static_cast<std::size_t>(col - first)].empty()) {
                    EXPECT_TRUE(sheet.IsEmpty(row, col)) << c.where << " column " << col;
                }
        }
    }
}

}  // namespace numarel::testing
