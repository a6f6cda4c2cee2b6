#include <gtest/gtest.h>

#include <cstdio>
#include <nlohmann/json.hpp>
#include <sstream>

#include "data/drawings_file.h"
#include "export/sheet_format.h"
#include "reports/report_registry.h"
#include "support/case_file.h"

namespace numarel {
namespace {

// The exchange format built the plain way, as one document in memory.
std::string ReferenceJson(const ReportSheet& sheet, std::string_view report) {
    using nlohmann::ordered_json;
    auto colour = [](Rgb c) -> ordered_json {
        if (c == kDefaultColour) return nullptr;
        char buf[8];
        std::snprintf(buf, sizeof buf, "#%06x", static_cast<unsigned>(c & 0xFFFFFF));
        return std::string(buf);
    };
    ordered_json doc;
    doc["report"] = std::string(report);
    doc["title"] = SheetTextToUtf8(sheet.Title());
    doc["rows"] = sheet.Rows();
    doc["cols"] = sheet.Cols();
    doc["colWidths"] = ordered_json::array();
    for (int c = 0; c < sheet.Cols(); ++c)
        doc["colWidths"].push_back(sheet.ColWidth(c));
    doc["rowHeights"] = ordered_json::array();
    for (auto [row, twips] : sheet.ExplicitRowHeights())
        doc["rowHeights"].push_back({row, twips});
    if (sheet.GridColour() != kDefaultColour) doc["gridColour"] = colour(sheet.GridColour());
    ordered_json cells = ordered_json::array();
    for (int r = 0; r < sheet.Rows(); ++r)
        for (int c = 0; c < sheet.Cols(); ++c) {
            Rgb back = sheet.BackColor(r, c), fore = sheet.ForeColor(r, c);
            if (sheet.IsEmpty(r, c) && !back && !fore) continue;
            cells.push_back({r, c, SheetTextToUtf8(sheet.Text(r, c)), colour(back), colour(fore)});
        }
    doc["cells"] = std::move(cells);
    return doc.dump() + "\n";
}

std::string StreamedJson(const ReportSheet& sheet, std::string_view report) {
    std::ostringstream os;
    WriteSheetJson(sheet, report, os);
    return std::move(os).str();
}

// A sheet with every kind of text the escaping has to get right.
ReportSheet AwkwardSheet() {
    ReportSheet sheet(4, 5);
    sheet.SetTitle("Caf\xe9 \"quoted\" \\ back");
    const char* texts[] = {"",         "plain",    "a\"b",   "back\\slash", "tab\tand\nnewline",
                           "\x01\x1f", "\xe9\xff", "</td>&", " 12 ",        "-7"};
    int i = 0;
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < 5; ++c)
            sheet.SetText(r, c, texts[i++ % 10]);
    sheet.SetNumber(2, 1, 32767);
    sheet.SetBackColor(3, 3, MakeRgb(255, 0, 0));  // a coloured empty cell still counts
    sheet.SetForeColor(2, 1, MakeRgb(0, 0, 0x12));
    sheet.SetColWidth(0, 1290);
    sheet.SetColWidth(4, 2);
    sheet.SetRowHeight(2, 300);
    return sheet;
}

TEST(SheetWriters, StreamedJsonEqualsTheDocumentBuiltInMemory) {
    // An empty sheet, the awkward one and one of defaults.
    for (const ReportSheet& sheet : {ReportSheet(), AwkwardSheet(), ReportSheet(3, 2)})
        EXPECT_EQ(StreamedJson(sheet, "frm\"x\\"), ReferenceJson(sheet, "frm\"x\\"))
            << sheet.Rows();
}

TEST(SheetWriters, StreamedJsonOfEveryReportOnAFullHistory) {
    auto drawings = ParseDrawings(testing::HistoryText(kMaxDrawings, 12345, 1000001));
    ASSERT_EQ(drawings.size(), kMaxDrawings);
    // The largest sheet, and one of another family.
    for (std::string_view object : {"frmzuliu120", "frmbjiouhe", "frmrenwenleng"}) {
        const ReportDefinition* def = FindReport(object);
        if (!def) continue;
        ReportSheet sheet;
        BuildReport(*def, drawings, sheet);
        std::string streamed = StreamedJson(sheet, object);
        EXPECT_TRUE(streamed == ReferenceJson(sheet, object)) << object;
        EXPECT_EQ(FormatSheetJson(sheet, object), streamed) << object;
    }
}

// A drawings file can put any text into a cell: in CSV and on the clipboard a text that a
// spreadsheet would run as a formula is written after a single quote, numbers stay numbers, and
// JSON keeps every text exactly.
TEST(SheetWriters, CsvQuotesWhatNeedsItNeutralisesFormulasAndKeepsNumbers) {
    ReportSheet sheet(1, 2);
    for (const testing::Case& c : testing::ReadCases("export/cases/csv_fields.txt", 3)) {
        sheet.SetText(0, 1, c[0]);
        EXPECT_EQ(FormatSheetCsv(sheet), "," + c[1] + "\r\n") << c.where;
        EXPECT_EQ(FormatRangeTsv(sheet, 0, 1, 0, 1), c[2] + "\n") << c.where;
        const auto json = nlohmann::json::parse(FormatSheetJson(sheet, "x"));
        EXPECT_EQ(json["cells"][0][2], c[0]) << c.where;
    }
    // A number the sheet holds as a number is never touched.
    sheet.SetNumber(0, 1, -7);
    EXPECT_EQ(FormatSheetCsv(sheet), ",-7\r\n");
    EXPECT_EQ(FormatRangeTsv(sheet, 0, 1, 0, 1), "-7\n");
    // The sheet's own characters are written as UTF-8.
    sheet.SetText(0, 1, "\xe9");
    EXPECT_EQ(FormatSheetCsv(sheet), ",\xc3\xa9\r\n");
}

// The rows and columns given, in their order; those outside the sheet are left out.
TEST(SheetWriters, ChosenCellsKeepTheirOrderAndDropWhatIsOutside) {
    ReportSheet sheet(3, 4);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 4; ++c)
            sheet.SetText(r, c, std::to_string(r) + std::to_string(c));
    EXPECT_EQ(FormatCellsTsv(sheet, {0, 2, 7}, {0, 3, 1, -1}), "00\t03\t01\n20\t23\t21\n");
    const std::string html = FormatCellsHtml(sheet, {2}, {3, 0});
    EXPECT_NE(html.find("<tr><td>23</td><td>20</td></tr>"), std::string::npos) << html;
    EXPECT_EQ(FormatCellsTsv(sheet, {}, {1}), "");
    EXPECT_EQ(FormatRangeTsv(sheet, 1, 1, 9, 2), "11\t12\n21\t22\n");
}

TEST(SheetWriters, TextOutputShowsControlCharactersAsAStandIn) {
    ReportSheet sheet(2, 2);
    sheet.SetTitle("Title\x1b]0;x\x07");
    sheet.SetText(0, 1, "--H--");
    sheet.SetText(1, 0, " 2020001:\x1b[31m");
    sheet.SetText(1, 1,
                  "a\x7f\xc2\x9b"
                  "b");  // DEL and the one-character CSI of UTF-8
    const std::string text = FormatSheetText(sheet, 30);
    for (char c : text)
        EXPECT_FALSE((static_cast<unsigned char>(c) < 0x20 && c != '\n') || c == 0x7f)
            << static_cast<int>(c);
    EXPECT_EQ(text.find("\xc2\x9b"), std::string::npos);
    EXPECT_NE(text.find("Title?]0;x?"), std::string::npos) << text;
    EXPECT_NE(text.find(" 2020001:?[31m"), std::string::npos) << text;
    EXPECT_NE(text.find("a??b"), std::string::npos) << text;
}

}  // namespace
}  // namespace numarel
