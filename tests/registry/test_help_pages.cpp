// Every page the program opens by name is shipped in resources/help/, and every link between the
// pages leads to a file that is there. A missing page gives the user no message at all, so these
// tests are the only place where a misspelt or forgotten page name shows.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "reports/command_table.h"
#include "support/test_support.h"

namespace numarel {
namespace {

namespace fs = std::filesystem;
using testing::ReadAll;

// Pages opened by the main window and the drawings editor rather than by a report.
constexpr std::string_view kWindowPages[] = {"Numarelbook", "Numarel", "New_Lottery",
                                             "Edit_Drawings", "Data_Download-Data_Import"};

// The only host that pages may name; everything else must be a local file.
constexpr std::string_view kPublisherHost = "http://www.numarel.example/";

fs::path HelpDir() {
    return fs::path(NUMAREL_SOURCE_DIR) / "resources" / "help";
}

// "%20" and the like as written in an address, turned back into the file name's characters.
std::string PercentDecoded(std::string_view text) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() &&
            std::isxdigit(static_cast<unsigned char>(text[i + 1])) &&
            std::isxdigit(static_cast<unsigned char>(text[i + 2]))) {
            out += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            out += text[i];
        }
    }
    return out;
}

// The values of every href= and src= attribute in `html`, in double or single quotes.
std::vector<std::string> LinkTargets(const std::string& html) {
    std::vector<std::string> targets;
    for (std::string_view attribute : {"href=", "src="}) {
        for (size_t at = html.find(attribute); at != std::string::npos;
             at = html.find(attribute, at + 1)) {
            size_t open = at + attribute.size();
            if (open >= html.size() || (html[open] != '"' && html[open] != '\'')) continue;
            size_t close = html.find(html[open], open + 1);
            if (close == std::string::npos) continue;
            targets.push_back(html.substr(open + 1, close - open - 1));
        }
    }
    return targets;
}

// Page names that the program's windows pass to OpenHelpPage as literals, and the start page
// that the main window loads from the help folder: the first string literal after each call.
std::set<std::string> PagesNamedInSources() {
    std::set<std::string> names;
    const fs::path sources = fs::path(NUMAREL_SOURCE_DIR) / "src";
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(sources)) {
        if (entry.path().extension() != ".cpp") continue;
        const std::string code = ReadAll(entry.path());
        for (std::string_view call : {"OpenHelpPage(", "HelpDir() / \""}) {
            for (size_t at = code.find(call); at != std::string::npos;
                 at = code.find(call, at + 1)) {
                const size_t end = code.find(';', at);
                const size_t open = code.find('"', at);
                if (open == std::string::npos || open > end) continue;  // a page from a variable
                const size_t close = code.find('"', open + 1);
                std::string name = code.substr(open + 1, close - open - 1);
                if (name.ends_with(".htm")) name.resize(name.size() - 4);
                names.insert(name);
            }
        }
    }
    return names;
}

std::vector<fs::path> ShippedPages() {
    std::vector<fs::path> pages;
    for (const fs::directory_entry& entry : fs::directory_iterator(HelpDir()))
        if (entry.path().extension() == ".htm") pages.push_back(entry.path());
    return pages;
}

// The pages of the command table and those the windows' sources name.
TEST(HelpPages, EveryPageTheProgramOpensIsShippedAndEachReportsPageLinksTheSharedOne) {
    std::set<std::string> names;
    for (const CommandEntry& e : CommandTable())
        if (!e.IsSeparator() && !e.helpPage.empty()) names.insert(std::string(e.helpPage));
    EXPECT_EQ(names.size(), 40u);  // some shared by a whole family
    const std::set<std::string> named = PagesNamedInSources();
    // The scan must see the windows' pages, or it proves nothing.
    for (std::string_view page : kWindowPages)
        EXPECT_TRUE(named.contains(std::string(page))) << page;
    // What every report window shares (zoom, copy, save, print) is told on one page, reached from
    // each report's page and from the start page.
    const std::string shared = "Beyond_the_windows.htm";
    std::set<std::string> linking = names;
    linking.insert({"Numarel", "Numarelbook", "Edit_Drawings"});
    for (const std::string& page : linking) {
        const std::vector<std::string> targets = LinkTargets(ReadAll(HelpDir() / (page + ".htm")));
        EXPECT_NE(std::find(targets.begin(), targets.end(), shared), targets.end()) << page;
    }
    names.insert(named.begin(), named.end());
    names.insert("Beyond_the_windows");
    for (const std::string& name : names)
        EXPECT_TRUE(fs::is_regular_file(HelpDir() / (name + ".htm")))
            << "missing help page \"" << name << ".htm\"";
}

TEST(HelpPages, EveryLinkLeadsToAShippedPageAndSectionOrThePublisher) {
    const std::vector<fs::path> pages = ShippedPages();
    ASSERT_GE(pages.size(), 45u);
    for (const fs::path& page : pages) {
        for (const std::string& target : LinkTargets(ReadAll(page))) {
            SCOPED_TRACE(page.filename().string() + " -> " + target);
            if (target.find("://") != std::string::npos || target.starts_with("mailto:")) {
                EXPECT_TRUE(target.starts_with(kPublisherHost));
                continue;
            }
            const size_t hash = target.find('#');
            std::string file = PercentDecoded(target.substr(0, hash));
            const fs::path linked = file.empty() ? page : HelpDir() / file;
            if (!fs::is_regular_file(linked)) {
                ADD_FAILURE() << "no such file";
                continue;
            }
            // A link to a section must find the section's id in the page it names.
            if (hash != std::string::npos) {
                EXPECT_NE(ReadAll(linked).find("id=\"" + target.substr(hash + 1) + "\""),
                          std::string::npos);
            }
        }
    }
}

}  // namespace
}  // namespace numarel
