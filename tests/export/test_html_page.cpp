#include <gtest/gtest.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "data/drawings_file.h"
#include "export/html_page.h"
#include "export/sheet_format.h"
#include "reports/report_registry.h"
#include "support/case_file.h"

namespace numarel {
namespace {

using testing::Split;

std::string Page(const ReportSheet& sheet, std::string_view report, std::string_view lottery) {
    std::ostringstream os;
    WriteReportPage(sheet, report, lottery, os);
    return std::move(os).str();
}

// The text of the script element with this id.
std::string Block(const std::string& page, std::string_view id) {
    const std::string open = "id=\"" + std::string(id) + "\">";
    const std::size_t begin = page.find(open);
    if (begin == std::string::npos) return {};
    const std::size_t from = begin + open.size();
    return page.substr(from, page.find("</script>", from) - from);
}

// What the page's script does with a cell of the texts block.
std::string Unescape(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        const char c = text[++i];
        out += c == 't' ? '\t' : c == 'n' ? '\n' : c == 'r' ? '\r' : c == 'l' ? '<' : c;
    }
    return out;
}

// A row of the colours block as palette entries, one a shown column, as the script reads it.
std::vector<int> Runs(const std::string& line, int width, std::size_t columns) {
    std::vector<int> entries;
    for (std::size_t i = 0; i < line.size();) {
        int entry = 0;
        for (int k = 0; k < width; ++k) {
            const char c = line[i++];
            entry = entry * 52 + (c <= 'Z' ? c - 'A' : c - 'a' + 26);
        }
        int count = 0;
        while (i < line.size() && line[i] >= '0' && line[i] <= '9')
            count = count * 10 + (line[i++] - '0');
        entries.insert(entries.end(), count ? count : 1, entry);
    }
    entries.resize(columns, 0);
    return entries;
}

std::string Hex(Rgb colour) {
    if (colour == kDefaultColour) return "";
    char text[16];
    std::snprintf(text, sizeof text, "#%06x", static_cast<unsigned>(colour));
    return text;
}

// A sheet with what the page must get right: texts that could break out of their block, a
// hidden store column, colours in runs and alone, a drawing count and labels with dates.
ReportSheet TrickySheet() {
    ReportSheet sheet(6, 6);
    sheet.SetTitle("Trend <b>&</b> \"quotes\"");
    sheet.SetDrawCount(4);
    const char* header[] = {"", "H", "a\tb", "</script>", "store", "back\\slash"};
    for (int c = 0; c < 6; ++c)
        sheet.SetText(0, c, header[c]);
    for (int r = 1; r <= 4; ++r) {
        sheet.SetText(r, 0, " " + std::to_string(2020000 + r) + ":123");
        sheet.SetNumber(r, 1, r * 7);
        sheet.SetText(r, 2, r == 2 ? "line\nbreak\r" : "\xe9t\xe9");
        sheet.SetNumber(r, 4, 99);
    }
    sheet.SetColWidth(0, 1290);
    sheet.SetColWidth(4, 2);     // a store: left out
    sheet.SetColWidth(5, 30);    // a thin divider: shown
    sheet.SetRowHeight(3, 2);    // a hidden row keeps its place
    for (int c = 1; c < 6; ++c)  // a run across the hidden column
        sheet.SetBackColor(2, c, MakeRgb(255, 0, 0));
    sheet.SetForeColor(3, 2, MakeRgb(0, 0, 255));
    sheet.SetBackColor(0, 1, MakeRgb(43, 218, 255));
    sheet.SetGridColour(MakeRgb(1, 2, 3));
    return sheet;
}

TEST(HtmlPage, KeepsTheSheetInBlocksTheScriptDraws) {
    const ReportSheet sheet = TrickySheet();
    const std::string page = Page(sheet, "frmtest", "Daily");

    const auto info = nlohmann::json::parse(Block(page, "sheet-info"));
    // The expected file's keys are all there are, with these values.
    const auto expected = nlohmann::json::parse(
        testing::ReadAll(testing::Fixture("export/cases/tricky_sheet_info.json")));
    EXPECT_EQ(info, expected) << "export/cases/tricky_sheet_info.json, not\n" << info.dump();
    const std::vector<int> columns = info["columns"];

    // One line a row, one field a shown column, every text back as it was.
    const auto lines = Split(Block(page, "sheet-texts"), '\n');
    ASSERT_EQ(lines.size(), 6u);
    for (int r = 0; r < 6; ++r) {
        const auto fields = Split(lines[static_cast<std::size_t>(r)], '\t');
        ASSERT_EQ(fields.size(), columns.size()) << r;
        for (std::size_t i = 0; i < columns.size(); ++i)
            EXPECT_EQ(Unescape(fields[i]), SheetTextToUtf8(sheet.Text(r, columns[i])))
                << r << "," << columns[i];
    }
    // The header row stays in place while the body scrolls.
    EXPECT_NE(page.find("#head{position:sticky;top:0"), std::string::npos);
    EXPECT_NE(page.find(".r>.c:first-child{position:sticky;left:0"), std::string::npos);

    // Colour runs give every shown cell its own colours.
    const auto runs = Split(Block(page, "sheet-colours"), '\n');
    ASSERT_EQ(runs.size(), 6u);
    const int width = info["codeWidth"];
    for (int r = 0; r < 6; ++r) {
        const auto entries = Runs(runs[static_cast<std::size_t>(r)], width, columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const auto& entry = info["palette"][entries[i]];
            EXPECT_EQ(entry[0], Hex(sheet.BackColor(r, columns[i]))) << r << "," << columns[i];
            EXPECT_EQ(entry[1], Hex(sheet.ForeColor(r, columns[i]))) << r << "," << columns[i];
        }
    }
    EXPECT_EQ(runs[1], "");  // a row of defaults costs nothing

    // No text ends a script element early, the title is escaped, the grid keeps its colour.
    std::size_t scripts = 0;
    for (std::size_t at = page.find("</script>"); at != std::string::npos;
         at = page.find("</script>", at + 1))
        ++scripts;
    EXPECT_EQ(scripts, 4u);
    EXPECT_NE(page.find("<title>Trend &lt;b&gt;&amp;&lt;/b&gt; &quot;quotes&quot;</title>"),
              std::string::npos);
    EXPECT_NE(page.find("Daily: <span id=\"draw-count\">4</span> drawings, 2020001 to 2020004"),
              std::string::npos);
    EXPECT_NE(page.find("border-right:1px solid #010203"), std::string::npos);
}

TEST(HtmlPage, AWidePaletteTakesLongerCodesAndAnEmptySheetStillMakesAPage) {
    ReportSheet sheet(3, 80);
    for (int c = 0; c < 80; ++c)
        sheet.SetBackColor(1, c, MakeRgb(c, 0, 1));
    const std::string page = Page(sheet, "frmwide", "");
    const auto info = nlohmann::json::parse(Block(page, "sheet-info"));
    ASSERT_EQ(info["codeWidth"], 2);
    const auto runs = Split(Block(page, "sheet-colours"), '\n');
    const auto entries = Runs(runs[1], 2, 80);
    for (int c = 0; c < 80; ++c)
        EXPECT_EQ(info["palette"][entries[static_cast<std::size_t>(c)]][0], Hex(MakeRgb(c, 0, 1)));

    // An empty sheet still makes a page.
    const std::string none = Page(ReportSheet(), "frmnone", "");
    const auto noInfo = nlohmann::json::parse(Block(none, "sheet-info"));
    EXPECT_EQ(noInfo["rows"], 0);
    EXPECT_EQ(noInfo["dates"], "");
    EXPECT_EQ(Block(none, "sheet-texts"), "");
}

// Pages of whole histories stay within four times their CSV, the widest report included.
TEST(HtmlPage, StaysWithinFourTimesTheCsv) {
    const auto drawings = ParseDrawings(testing::HistoryText(3000, 777, 2000001));
    for (std::string_view object : {"frm3weizoushi", "frmzuliu120", "frmbjiouhe", "Form1zu3zh"}) {
        if (!FindReport(object)) continue;
        const ReportSheet sheet = testing::Build(object, drawings);
        const std::string page = Page(sheet, object, "Sample");
        EXPECT_LE(page.size(), 4 * FormatSheetCsv(sheet).size()) << object;
    }
}

// The page's script run by headless Chromium, where it is installed: the newest rows are drawn at
// once, the fixed header with them, and a range chosen with the mouse is copied as text.
TEST(HtmlPage, ChromiumDrawsTheNewestRowsAndCopiesARange) {
    if (std::system("command -v chromium > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "chromium is not installed";
    ReportSheet sheet(2002, 8);
    sheet.SetTitle("Long sheet");
    sheet.SetDrawCount(2000);
    sheet.SetColWidth(3, 2);
    for (int c = 1; c < 8; ++c)
        sheet.SetText(0, c, "h" + std::to_string(c));
    for (int r = 1; r <= 2000; ++r) {
        sheet.SetText(r, 0, " " + std::to_string(2020000 + r) + ":123");
        for (int c = 1; c < 8; ++c)
            sheet.SetNumber(r, c, r * 10 + c);
    }
    // After the page has drawn itself: drag from the label of drawing 1999 to the third shown
    // column of drawing 2000, copy, and put what was copied and what is drawn into the title.
    const std::string harness = testing::ReadAll(testing::Fixture("export/cases/copy_range.html"));
    std::string page = Page(sheet, "frmlong", "");
    page.replace(page.rfind("</body>"), 7, harness);
    testing::TempDir dir;
    const auto file = dir.Write("page.html", page);
    const auto dom = dir.path() / "dom.html";
    const std::string command =
        "timeout 120 chromium --headless --disable-gpu --no-sandbox --window-size=1000,700 "
        "--dump-dom "
        "'file://" +
        file.string() + "' > '" + dom.string() + "' 2> /dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string out = testing::ReadAll(dom);
    const std::size_t begin = out.find("<title>") + 7;
    std::string title = out.substr(begin, out.find("</title>") - begin);
    for (auto [from, to] : {std::pair<std::string, std::string>{"&quot;", "\""}, {"&amp;", "&"}})
        for (std::size_t at = title.find(from); at != std::string::npos; at = title.find(from, at))
            title.replace(at, from.size(), to);
    const auto result = nlohmann::json::parse(title);
    EXPECT_EQ(result, nlohmann::json::parse(testing::ReadAll(
                          testing::Fixture("export/cases/copy_range.expected.json"))))
        << "export/cases/copy_range.expected.json";
}

}  // namespace
}  // namespace numarel
