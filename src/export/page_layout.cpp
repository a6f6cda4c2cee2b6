#include "export/page_layout.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "export/sheet_format.h"
#include "export/sheet_view.h"

namespace numarel {
namespace {

constexpr double kTitlePoints = 11;
constexpr double kLinePoints = 8;

bool RowShown(const ReportSheet& sheet, int row) {
    return ShownRowHeight(sheet, row) > 2;
}

// The first row of drawing `n` (from 1) and the row after its last.
int FirstRowOf(const ReportSheet& sheet, int n) {
    return (n - 1) * sheet.RowsPerDrawing() + 1;
}

// `items` in runs, each as long as fits in `room` by `size` but holding one item at least; one
// empty run for no items.
template <class Size>
std::vector<std::vector<int>> RunsThatFit(const std::vector<int>& items, double room, Size size) {
    std::vector<std::vector<int>> runs;
    double used = 0;
    for (int item : items) {
        const double s = size(item);
        if (runs.empty() || used + s > room + 1e-6) {
            runs.emplace_back();
            used = 0;
        }
        runs.back().push_back(item);
        used += s;
    }
    if (runs.empty()) runs.emplace_back();
    return runs;
}

long long DateValue(std::string_view text, bool& ok) {
    long long value = 0;
    const char* end = text.data() + text.size();
    auto [ptr, ec] = std::from_chars(text.data(), end, value);
    ok = ec == std::errc() && ptr == end;
    return value;
}

}  // namespace

PageSetup A4Landscape() {
    return PageSetup{};
}

PageSetup LetterLandscape() {
    PageSetup setup;
    setup.width = 792;
    setup.height = 612;
    return setup;
}

std::vector<int> NewestDrawingRows(const ReportSheet& sheet, int drawings) {
    drawings = std::clamp(drawings, 0, sheet.DrawCount());
    std::vector<int> rows;
    for (int r = std::max(1, FirstRowOf(sheet, sheet.DrawCount() - drawings + 1)); r < sheet.Rows();
         ++r)
        if (RowShown(sheet, r)) rows.push_back(r);
    return rows;
}

std::vector<int> DrawingRowsDated(const ReportSheet& sheet, std::string_view from,
                                  std::string_view to) {
    bool fromOk = false, toOk = false;
    const long long low = DateValue(from, fromOk);
    const long long high = DateValue(to, toOk);
    std::vector<int> rows;
    for (int n = 1; n <= sheet.DrawCount(); ++n) {
        const int first = FirstRowOf(sheet, n);
        bool ok = false;
        const long long date = DateValue(DrawingDate(sheet, first), ok);
        if (!ok || (fromOk && date < low) || (toOk && date > high)) continue;
        for (int r = first; r < first + sheet.RowsPerDrawing() && r < sheet.Rows(); ++r)
            if (RowShown(sheet, r)) rows.push_back(r);
    }
    return rows;
}

std::vector<int> AllBodyRows(const ReportSheet& sheet) {
    std::vector<int> rows;
    for (int r = 1; r < sheet.Rows(); ++r)
        if (RowShown(sheet, r)) rows.push_back(r);
    return rows;
}

int DrawingsFillingOnePage(const ReportSheet& sheet, const PageSetup& setup) {
    const PageLayout probe = LayOutPages(sheet, {}, setup);
    double room = setup.height - 2 * setup.margin - probe.headingHeight -
                  ShownRowHeight(sheet, 0) * probe.scale;
    // The rows after the drawings come along in any case.
    const int afterDrawings = FirstRowOf(sheet, sheet.DrawCount() + 1);
    for (int r = afterDrawings; r < sheet.Rows(); ++r)
        if (RowShown(sheet, r)) room -= ShownRowHeight(sheet, r) * probe.scale;
    int drawings = 0;
    for (int n = sheet.DrawCount(); n >= 1; --n) {
        double height = 0;
        for (int r = FirstRowOf(sheet, n); r < FirstRowOf(sheet, n + 1); ++r)
            if (RowShown(sheet, r)) height += ShownRowHeight(sheet, r) * probe.scale;
        if (height > room) break;
        room -= height;
        ++drawings;
    }
    return sheet.DrawCount() > 0 ? std::max(drawings, 1) : 0;
}

PageLayout LayOutPages(const ReportSheet& sheet, const std::vector<int>& rows,
                       const PageSetup& setup) {
    PageLayout layout;
    layout.setup = setup;
    std::vector<int> cols = ShownColumns(sheet);
    layout.labelColumn = !cols.empty() && cols.front() == 0;
    if (layout.labelColumn) cols.erase(cols.begin());

    const double width = setup.width - 2 * setup.margin;
    const double labelTwips = layout.labelColumn ? ShownColWidth(sheet, 0) : 0;
    if (setup.fitToWidth) {
        double twips = labelTwips;
        for (int c : cols)
            twips += ShownColWidth(sheet, c);
        if (twips > 0) layout.scale = std::min(layout.scale, width / twips);
    }

    // Runs of columns that fit beside the label column, and runs of rows that fit under the
    // header row.
    const std::vector<std::vector<int>> colRuns =
        RunsThatFit(cols, width - labelTwips * layout.scale,
                    [&](int c) { return ShownColWidth(sheet, c) * layout.scale; });
    std::vector<int> shownRows;
    for (int r : rows)
        if (r > 0 && r < sheet.Rows() && RowShown(sheet, r)) shownRows.push_back(r);
    const std::vector<std::vector<int>> rowRuns =
        RunsThatFit(shownRows,
                    setup.height - 2 * setup.margin - layout.headingHeight -
                        (RowShown(sheet, 0) ? ShownRowHeight(sheet, 0) * layout.scale : 0),
                    [&](int r) { return ShownRowHeight(sheet, r) * layout.scale; });

    for (const auto& colRun : colRuns)
        for (const auto& rowRun : rowRuns)
            layout.pages.push_back({rowRun, colRun});
    return layout;
}

std::string PageNumberText(int page, int pages) {
    return "page " + std::to_string(page) + " of " + std::to_string(pages);
}

std::string LotteryLine(const ReportSheet& sheet, std::string_view lottery) {
    std::string line;
    if (!lottery.empty()) line = SheetTextToUtf8(lottery) + ": ";
    const std::string dates = DrawingDateRange(sheet);
    if (!dates.empty()) line += dates + ", ";
    line += std::to_string(sheet.DrawCount()) + (sheet.DrawCount() == 1 ? " drawing" : " drawings");
    return line;
}

void DrawSheetPage(const ReportSheet& sheet, const PageLayout& layout, std::size_t index,
                   std::string_view lottery, PageCanvas& canvas) {
    if (index >= layout.pages.size()) return;
    const PageSetup& setup = layout.setup;
    const SheetPage& page = layout.pages[index];
    const double left = setup.margin;
    const double top = setup.margin;
    const double width = setup.width - 2 * setup.margin;
    using Align = PageCanvas::Align;

    // The heading: title, then the lottery on the left and the page number on the right.
    canvas.Text(left, top, width, 15, SheetTextToUtf8(sheet.Title()), sheet_view::kCellFore,
                kTitlePoints, true, Align::Left);
    canvas.Text(left, top + 15, width, 11, LotteryLine(sheet, lottery), sheet_view::kCellFore,
                kLinePoints, false, Align::Left);
    canvas.Text(left, top + 15, width, 11,
                PageNumberText(static_cast<int>(index) + 1, static_cast<int>(layout.pages.size())),
                sheet_view::kCellFore, kLinePoints, false, Align::Right);

    std::vector<int> rows;
    if (RowShown(sheet, 0)) rows.push_back(0);
    rows.insert(rows.end(), page.rows.begin(), page.rows.end());
    std::vector<int> cols;
    if (layout.labelColumn) cols.push_back(0);
    cols.insert(cols.end(), page.cols.begin(), page.cols.end());
    if (rows.empty() || cols.empty()) return;

    const double s = layout.scale;
    const double points = sheet.FontDecipoints() / 10.0 * s * 20;
    const Rgb gridLine = ShownGridLine(sheet);
    const double line = std::max(0.25, 0.5 * s * 20);
    const double x0 = left;
    const double y0 = top + layout.headingHeight;

    std::vector<double> xs{x0};
    for (int c : cols)
        xs.push_back(xs.back() + ShownColWidth(sheet, c) * s);
    std::vector<double> ys{y0};
    for (int r : rows)
        ys.push_back(ys.back() + ShownRowHeight(sheet, r) * s);

    const double margin = 2 * s * 20;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int r = rows[i];
        const double y = ys[i], h = ys[i + 1] - ys[i];
        for (std::size_t k = 0; k < cols.size(); ++k) {
            const int c = cols[k];
            const double x = xs[k], w = xs[k + 1] - xs[k];
            canvas.FillRect(x, y, w, h, ShownBack(sheet, r, c));
            if (sheet.IsEmpty(r, c)) continue;
            const std::string text = SheetTextToUtf8(sheet.Text(r, c));
            Align align = Align::Left;
            if (c != 0 && canvas.TextWidth(text, points, false) <= w - 2 * margin)
                align = Align::Centre;
            canvas.Text(x + margin, y, std::max(0.0, w - 2 * margin), h, text,
                        ShownFore(sheet, r, c), points, false, align);
        }
    }
    // Grid lines: the sheet's colour between body cells, black around the fixed ones.
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t k = 0; k < cols.size(); ++k) {
            const bool fixed = rows[i] == 0 || cols[k] == 0;
            const Rgb colour = fixed ? sheet_view::kFixedLine : gridLine;
            canvas.Line(xs[k + 1], ys[i], xs[k + 1], ys[i + 1], colour, line);
            canvas.Line(xs[k], ys[i + 1], xs[k + 1], ys[i + 1], colour, line);
        }
    }
    canvas.Line(x0, y0, xs.back(), y0, sheet_view::kFixedLine, line);
    canvas.Line(x0, y0, x0, ys.back(), sheet_view::kFixedLine, line);
}

}  // namespace numarel
