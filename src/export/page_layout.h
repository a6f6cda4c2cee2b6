#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/report_sheet.h"

namespace numarel {

// Printing a sheet on paper, shared by the desktop program's Print and Print preview and by the
// command line's PDF, so that both give the same pages. All lengths are in points (1/72 inch),
// from the top left corner of the page.

struct PageSetup {
    double width = 842;  // A4 landscape
    double height = 595;
    double margin = 28;  // on every side
    // Scale the columns down so that all of them fit the width of one page; otherwise the columns
    // that do not fit go to following pages, in order.
    bool fitToWidth = false;
};

// A4 and US Letter, in points.
PageSetup A4Landscape();
PageSetup LetterLandscape();

// The rows a printout shows, chosen the three ways a user can: the newest drawings, a range of
// dates, or all. Each gives the body rows in order (the header row repeats on every page by
// itself); rows of 2 twips or less are left out, as the window hides them.
// The newest `drawings` drawings, with the next drawing's row and any footer rows after them.
std::vector<int> NewestDrawingRows(const ReportSheet& sheet, int drawings);
// The drawings dated `from` to `to` (numbers compared as numbers; either may be empty for no
// bound). Drawings spread over several rows keep all of them.
std::vector<int> DrawingRowsDated(const ReportSheet& sheet, std::string_view from,
                                  std::string_view to);
// Every row below the header.
std::vector<int> AllBodyRows(const ReportSheet& sheet);
// How many of the newest drawings fill one page, with the rows after them (at least 1 while the
// sheet has drawings).
int DrawingsFillingOnePage(const ReportSheet& sheet, const PageSetup& setup);

// One sheet of paper: the body rows and columns on it; row 0 and column 0 are drawn on every page
// in front of them.
struct SheetPage {
    std::vector<int> rows;
    std::vector<int> cols;
};

struct PageLayout {
    PageSetup setup;
    double scale = 0.05;        // points per twip: 1/20 at full size
    double headingHeight = 30;  // title and lottery lines above the sheet
    bool labelColumn = true;    // column 0 is shown, and repeats on every page
    std::vector<SheetPage> pages;
};

// Cuts the sheet into pages: the columns into runs that fit the page width (or all of them,
// scaled, with fitToWidth), each run's rows into pages; pages go down the rows first, then on to
// the next run of columns.
PageLayout LayOutPages(const ReportSheet& sheet, const std::vector<int>& rows,
                       const PageSetup& setup);

// What a page is drawn on: a PDF surface, a printer, a preview.
class PageCanvas {
public:
    enum class Align { Left, Centre, Right };
    virtual ~PageCanvas() = default;
    virtual void FillRect(double x, double y, double w, double h, Rgb colour) = 0;
    virtual void Line(double x1, double y1, double x2, double y2, Rgb colour, double width) = 0;
    // `utf8` in Arial of `points`, vertically centred in the box and clipped to it.
    virtual void Text(double x, double y, double w, double h, std::string_view utf8, Rgb colour,
                      double points, bool bold, Align align) = 0;
    virtual double TextWidth(std::string_view utf8, double points, bool bold) = 0;
};

// "page 2 of 7"
std::string PageNumberText(int page, int pages);
// "Daily: 2020001 to 2020250, 250 drawings" (without a lottery name, from the count on).
std::string LotteryLine(const ReportSheet& sheet, std::string_view lottery);

// Draws page `index` (from 0) of `layout`: the title, the lottery with its date range and the page
// number above the sheet, then the header row, the label column and the page's cells in the
// colours the window shows.
void DrawSheetPage(const ReportSheet& sheet, const PageLayout& layout, std::size_t index,
                   std::string_view lottery, PageCanvas& canvas);

}  // namespace numarel
