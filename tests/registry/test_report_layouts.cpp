// Every built report's header row (its ticket lists, digit sets, pairs and headers), all its
// column widths, its title and its help page, written out by hand in layouts.txt from the reports'
// own descriptions of their layout: the one place where these are checked. A report's constants
// live in row 0 and its passes read them back from there, so a ticket or a width copied wrongly
// into a family's table changes what the report computes; this table shows it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "reports/command_table.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;
using Texts = std::vector<std::string>;
using Widths = std::vector<int>;

constexpr int kDefaultWidth = -1;  // a width the report leaves at the sheet's default
constexpr int kUnreachableWidth = 2;

// `text` with a count such as "x3" cut off its end; 1 when it has none.
int CutCount(std::string& text) {
    const std::size_t x = text.rfind('x');
    if (x == std::string::npos || x == 0 || x + 1 == text.size() ||
        text.find_first_not_of("0123456789", x + 1) != std::string::npos)
        return 1;
    const int times = std::atoi(text.c_str() + x + 1);
    text.resize(x);
    return times;
}

// Widths in runs, as layouts.txt writes them.
Widths Runs(std::string_view runs) {
    Widths out;
    std::istringstream in{std::string(runs)};
    int line = -1;
    for (std::string run; in >> run;) {
        if (run == "|") {
            in >> run;
            line = std::atoi(run.c_str());
        } else if (line >= 0) {
            out.at(static_cast<std::size_t>(line + std::atoi(run.c_str()))) = kUnreachableWidth;
        } else {
            const int times = CutCount(run);
            out.insert(out.end(), times, run == "d" ? kDefaultWidth : std::atoi(run.c_str()));
        }
    }
    return out;
}

// Row 0 in words, as layouts.txt writes them.
Texts Words(std::string_view words) {
    Texts out;
    std::size_t at = 0;
    while ((at = words.find_first_not_of(' ', at)) != std::string_view::npos) {
        std::string word;
        if (words[at] == '\'') {
            const std::size_t close = words.find('\'', at + 1);
            word = std::string(words.substr(at + 1, close - at - 1));
            at = close + 1;
            out.push_back(word);
            continue;
        }
        const std::size_t end = std::min(words.find(' ', at), words.size());
        word = std::string(words.substr(at, end - at));
        at = end;
        const int times = CutCount(word);
        Texts once;
        const std::size_t dots = word.find("..");
        if (dots != std::string::npos && dots > 0 && std::isdigit(word.back())) {
            for (int n = std::atoi(word.c_str()); n <= std::atoi(word.c_str() + dots + 2); ++n)
                once.push_back(std::to_string(n));
        } else {
            once = {word == "_" ? std::string() : word};
        }
        for (int i = 0; i < times; ++i)
            out.insert(out.end(), once.begin(), once.end());
    }
    return out;
}

struct Layout {
    std::string object;
    std::string title;
    std::string helpPage;  // empty: the report has no page
    std::string widths;    // in runs
    std::string header;    // in words
};

// A value of layouts.txt: in double quotes it keeps its blanks at either end.
std::string Value(std::string text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        return text.substr(1, text.size() - 2);
    return text;
}

// The layouts of tests/registry/layouts.txt: "key: value" lines, a blank line between reports.
std::vector<Layout> Layouts() {
    std::ifstream in(std::filesystem::path(NUMAREL_TESTS_DIR) / "registry" / "layouts.txt");
    EXPECT_TRUE(in) << "layouts.txt is missing";
    std::vector<Layout> out;
    std::string* last = nullptr;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("  ") && last) {
            *last += line.substr(1);
            continue;
        }
        const std::size_t colon = line.find(':');
        if (line.empty() || line[0] == '#' || colon == std::string::npos) continue;
        const std::string key = line.substr(0, colon);
        const std::string value = line.size() > colon + 2 ? Value(line.substr(colon + 2)) : "";
        if (key == "object") {
            out.emplace_back();
            out.back().object = value;
        }
        if (out.empty()) continue;
        Layout& l = out.back();
        last = key == "title"    ? &l.title
               : key == "help"   ? &l.helpPage
               : key == "widths" ? &l.widths
               : key == "header" ? &l.header
                                 : nullptr;
        if (last) *last = value;
    }
    return out;
}

const std::vector<Layout> kLayouts = Layouts();

// The cells of row 0 and the widths that differ from the layout, one line each.
std::string Differences(const ReportSheet& sheet, const Texts& header, const Widths& widths) {
    std::ostringstream out;
    for (int c = 0; c < sheet.Cols(); ++c) {
        if (c < static_cast<int>(header.size()) && sheet.Text(0, c) != header[c])
            out << "\n  column " << c << " is headed \"" << sheet.Text(0, c) << "\", not \""
                << header[c] << "\"";
        if (c < static_cast<int>(widths.size()) && sheet.ColWidth(c) != widths[c])
            out << "\n  column " << c << " is " << sheet.ColWidth(c) << " wide, not " << widths[c];
    }
    return out.str();
}

// One layout a built report, each with one width a header.
TEST(Layout, HeaderRowsColumnWidthsTitlesAndHelpPagesAreTheReportsOwn) {
    std::size_t built = 0;
    for (ReportFamily family : ReportFamilies())
        built += family().size();
    EXPECT_EQ(kLayouts.size(), built);
    const struct {
        const char* name;
        std::vector<DrawRecord> drawings;
    } histories[] = {
        {"no drawings", Drawings({})},
        // 3 Way Box numbers, triples, runs, hits of many lists, and enough drawings for the
        // seven-drawing ranking to reach a pattern.
        {"fourteen drawings", Drawings({"123", "213", "450", "112", "789", "026", "357", "055",
                                        "901", "145", "777", "033", "620", "159"})},
    };
    for (const Layout& layout : kLayouts) {
        SCOPED_TRACE(std::string(layout.object));
        const Texts header = Words(layout.header);
        const Widths widths = Runs(layout.widths);
        ASSERT_EQ(widths.size(), header.size());
        for (const auto& history : histories) {
            SCOPED_TRACE(history.name);
            const ReportSheet sheet = Build(layout.object, history.drawings);
            EXPECT_EQ(sheet.Cols(), static_cast<int>(header.size()));
            const std::string differences = Differences(sheet, header, widths);
            EXPECT_TRUE(differences.empty()) << differences;
            EXPECT_EQ(sheet.Title(), layout.title);
        }
        const CommandEntry* command = FindCommand(layout.object);
        ASSERT_NE(command, nullptr);
        EXPECT_EQ(command->helpPage, layout.helpPage);
    }
}

std::map<std::string_view, int> CommandCounts() {
    std::map<std::string_view, int> counts;
    for (const CommandEntry& e : CommandTable())
        if (!e.IsSeparator()) ++counts[e.report];
    return counts;
}

TEST(Registry, EveryRegisteredReportHasOneMenuEntryAndOneRegistration) {
    const std::map<std::string_view, int> commands = CommandCounts();
    std::set<std::string_view> registered;
    for (ReportFamily family : ReportFamilies()) {
        for (const ReportDefinition& def : family()) {
            SCOPED_TRACE(std::string(def.object));
            EXPECT_TRUE(registered.insert(def.object).second) << "registered twice";
            auto it = commands.find(def.object);
            ASSERT_NE(it, commands.end()) << "no menu entry opens it";
            EXPECT_EQ(it->second, 1) << "more than one menu entry opens it";
            EXPECT_NE(def.build, nullptr);
            EXPECT_EQ(FindReport(def.object), &def);
        }
    }
}

// What each kind of Help button does is pinned through the report window; these are the reports
// that show one without a page.
TEST(Registry, TheInertHelpButtons) {
    for (std::string_view object : {"frmzusan90", "frmzuliu120", "frmzhixuantaloven"}) {
        const ReportDefinition* def = FindReport(object);
        ASSERT_NE(def, nullptr) << object;
        EXPECT_EQ(def->help, HelpButton::Inert) << object;  // layouts.txt shows them without a page
    }
}

}  // namespace
}  // namespace numarel
