#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include "export/page_layout.h"
#include "export/pdf_writer.h"
#include "export/sheet_view.h"
#include "support/test_support.h"

namespace numarel {
namespace {

// A report-like sheet: `drawings` drawing rows, the next drawing's row and two footer rows,
// `cols` columns of which column 3 is a store and column 5 a thin divider.
ReportSheet WideSheet(int drawings, int cols) {
    ReportSheet sheet(drawings + 4, cols);
    sheet.SetTitle("Wide Trend");
    sheet.SetDrawCount(drawings);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c < cols; ++c) {
        sheet.SetText(0, c, "c" + std::to_string(c));
        sheet.SetColWidth(c, 400);
    }
    sheet.SetColWidth(3, 2);
    sheet.SetColWidth(5, 30);
    for (int r = 1; r <= drawings; ++r) {
        sheet.SetText(r, 0, " " + std::to_string(2020000 + r) + ":123");
        sheet.SetNumber(r, 1, r);
    }
    sheet.SetText(drawings + 2, 0, "Amount");
    sheet.SetText(drawings + 3, 0, "Max Miss");
    return sheet;
}

double RowsHeight(const ReportSheet& sheet, const std::vector<int>& rows, double scale) {
    double h = 0;
    for (int r : rows)
        h += ShownRowHeight(sheet, r) * scale;
    return h;
}

TEST(PageLayout, ColumnsThatDoNotFitGoToFollowingPagesInOrder) {
    const ReportSheet sheet = WideSheet(100, 60);
    const PageSetup setup = A4Landscape();
    const PageLayout layout = LayOutPages(sheet, AllBodyRows(sheet), setup);
    ASSERT_TRUE(layout.labelColumn);

    // Down the rows first, then on to the next run of columns: every shown column once, in order.
    std::vector<int> cols;
    std::vector<int> rowsOfFirstRun;
    for (std::size_t i = 0; i < layout.pages.size(); ++i) {
        const SheetPage& page = layout.pages[i];
        if (i == 0 || page.cols != layout.pages[i - 1].cols)
            cols.insert(cols.end(), page.cols.begin(), page.cols.end());
        if (page.cols == layout.pages[0].cols)
            rowsOfFirstRun.insert(rowsOfFirstRun.end(), page.rows.begin(), page.rows.end());
        // Every page's cells fit on the paper.
        double width = ShownColWidth(sheet, 0) * layout.scale;
        for (int c : page.cols)
            width += ShownColWidth(sheet, c) * layout.scale;
        EXPECT_LE(width, setup.width - 2 * setup.margin) << i;
        EXPECT_LE(RowsHeight(sheet, page.rows, layout.scale) + 12 + layout.headingHeight,
                  setup.height - 2 * setup.margin)
            << i;
    }
    std::vector<int> shown = ShownColumns(sheet);
    shown.erase(shown.begin());
    EXPECT_EQ(cols, shown);
    EXPECT_EQ(std::count(cols.begin(), cols.end(), 3), 0);  // the store is left out
    EXPECT_EQ(std::count(cols.begin(), cols.end(), 5), 1);  // the divider is not
    EXPECT_EQ(rowsOfFirstRun, AllBodyRows(sheet));
    EXPECT_GT(layout.pages.size(), 2u);

    // Scaled to the width, every column is on the first run of pages.
    PageSetup fit = setup;
    fit.fitToWidth = true;
    const PageLayout scaled = LayOutPages(sheet, AllBodyRows(sheet), fit);
    EXPECT_LT(scaled.scale, 0.05);
    EXPECT_EQ(scaled.pages.front().cols, shown);
    // A narrow sheet is never enlarged.
    const ReportSheet narrow = WideSheet(10, 4);
    EXPECT_EQ(LayOutPages(narrow, AllBodyRows(narrow), fit).scale, 0.05);
}

TEST(PageLayout, RowsChosenAsTheUserAsks) {
    ReportSheet sheet = WideSheet(50, 6);
    sheet.SetRowHeight(49, 2);  // hidden as on screen

    std::vector<int> newest = NewestDrawingRows(sheet, 3);
    EXPECT_EQ(newest, (std::vector<int>{48, 50, 51, 52, 53}));
    EXPECT_EQ(NewestDrawingRows(sheet, 0), (std::vector<int>{51, 52, 53}));  // after the drawings
    EXPECT_EQ(NewestDrawingRows(sheet, 500).size(), 52u);  // all, less the hidden row
    EXPECT_EQ(AllBodyRows(sheet).size(), 52u);
    EXPECT_EQ(DrawingRowsDated(sheet, "2020010", "2020012"), (std::vector<int>{10, 11, 12}));
    EXPECT_EQ(DrawingRowsDated(sheet, "", "2020002"), (std::vector<int>{1, 2}));
    EXPECT_EQ(DrawingRowsDated(sheet, "2020048", ""), (std::vector<int>{48, 50}));
    EXPECT_TRUE(DrawingRowsDated(sheet, "2021001", "2021002").empty());

    // Drawings spread over two rows keep both.
    ReportSheet pairs(9, 3);
    pairs.SetDrawCount(4);
    pairs.SetRowsPerDrawing(2);
    for (int n = 1; n <= 4; ++n)
        pairs.SetText(2 * n - 1, 0, " " + std::to_string(2020000 + n) + ":123");
    EXPECT_EQ(NewestDrawingRows(pairs, 1), (std::vector<int>{7, 8}));
    EXPECT_EQ(DrawingRowsDated(pairs, "2020002", "2020003"), (std::vector<int>{3, 4, 5, 6}));

    // The default fills exactly one page: one drawing more spills onto a second.
    const ReportSheet tall = WideSheet(500, 6);
    const PageSetup setup = A4Landscape();
    const int fill = DrawingsFillingOnePage(tall, setup);
    EXPECT_GT(fill, 20);
    EXPECT_EQ(LayOutPages(tall, NewestDrawingRows(tall, fill), setup).pages.size(), 1u);
    EXPECT_EQ(LayOutPages(tall, NewestDrawingRows(tall, fill + 1), setup).pages.size(), 2u);
}

// Records what a page draws.
class RecordingCanvas final : public PageCanvas {
public:
    std::vector<std::string> texts;
    std::map<std::string, Rgb> textColour;
    std::vector<Rgb> fills;
    void FillRect(double, double, double, double, Rgb colour) override { fills.push_back(colour); }
    void Line(double, double, double, double, Rgb, double) override {}
    void Text(double, double, double, double, std::string_view utf8, Rgb colour, double, bool,
              Align) override {
        texts.emplace_back(utf8);
        textColour[std::string(utf8)] = colour;
    }
    double TextWidth(std::string_view utf8, double points, bool) override {
        return static_cast<double>(utf8.size()) * points / 2;
    }
    bool Has(const std::string& text) const {
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
};

TEST(PageLayout, EveryPageCarriesTitleLotteryAndPageNumberWithTheFixedCells) {
    ReportSheet sheet = WideSheet(100, 60);
    sheet.SetBackColor(100, 1, MakeRgb(255, 0, 0));
    sheet.SetForeColor(100, 1, MakeRgb(0, 0, 255));
    const PageLayout layout = LayOutPages(sheet, NewestDrawingRows(sheet, 5), A4Landscape());
    ASSERT_GT(layout.pages.size(), 1u);
    const int pages = static_cast<int>(layout.pages.size());
    for (int i = 0; i < pages; ++i) {
        RecordingCanvas canvas;
        DrawSheetPage(sheet, layout, static_cast<std::size_t>(i), "Daily", canvas);
        EXPECT_TRUE(canvas.Has("Wide Trend")) << i;
        EXPECT_TRUE(canvas.Has("Daily: 2020001 to 2020100, 100 drawings")) << i;
        EXPECT_TRUE(canvas.Has(PageNumberText(i + 1, pages))) << i;
        // The header of the page's first column and the labels repeat on every page.
        const int firstCol = layout.pages[static_cast<std::size_t>(i)].cols.front();
        EXPECT_TRUE(canvas.Has("c" + std::to_string(firstCol))) << i;
        EXPECT_TRUE(canvas.Has(" 2020100:123")) << i;
        EXPECT_TRUE(canvas.Has("Max Miss")) << i;
        EXPECT_FALSE(canvas.Has(" 2020095:123")) << i;
        EXPECT_FALSE(canvas.Has("c3")) << i;
    }
    RecordingCanvas first;
    DrawSheetPage(sheet, layout, 0, "", first);
    EXPECT_EQ(first.textColour["100"], MakeRgb(0, 0, 255));
    EXPECT_NE(std::find(first.fills.begin(), first.fills.end(), MakeRgb(255, 0, 0)),
              first.fills.end());
    EXPECT_NE(std::find(first.fills.begin(), first.fills.end(), sheet_view::kFixedBack),
              first.fills.end());
    EXPECT_TRUE(first.Has("2020001 to 2020100, 100 drawings"));
}

int CountPages(const std::string& pdf) {
    static const std::regex kPage("/Type\\s*/Page[^s]");
    return static_cast<int>(
        std::distance(std::sregex_iterator(pdf.begin(), pdf.end(), kPage), std::sregex_iterator()));
}

TEST(PdfWriter, WritesOnePdfPageForEveryLaidOutPageAndAFailedStreamStaysFailed) {
    const ReportSheet sheet = WideSheet(200, 40);
    const PageSetup setup = A4Landscape();
    const std::vector<int> rows = NewestDrawingRows(sheet, 120);
    std::ostringstream os;
    WriteSheetPdf(sheet, "Daily", rows, setup, os);
    const std::string pdf = os.str();
    ASSERT_TRUE(os.good());
    ASSERT_EQ(pdf.rfind("%PDF-", 0), 0u);
    const int pages = static_cast<int>(LayOutPages(sheet, rows, setup).pages.size());
    EXPECT_GT(pages, 2);
    EXPECT_EQ(CountPages(pdf), pages);

    std::ofstream closed;  // never opened: every write fails
    WriteSheetPdf(sheet, "", PdfChoice{}, closed);
    EXPECT_FALSE(closed.good());
}

}  // namespace
}  // namespace numarel
