#include "export/sheet_view.h"

#include <algorithm>

namespace numarel {

std::vector<int> ShownColumns(const ReportSheet& sheet) {
    std::vector<int> cols;
    cols.reserve(static_cast<std::size_t>(std::max(sheet.Cols(), 0)));
    for (int c = 0; c < sheet.Cols(); ++c) {
        const int w = sheet.ColWidth(c);
        if (w < 0 || w > sheet_view::kHiddenColTwips) cols.push_back(c);
    }
    return cols;
}

int ShownColWidth(const ReportSheet& sheet, int col) {
    const int w = sheet.ColWidth(col);
    return w < 0 ? sheet_view::kDefaultColWidthTwips : w;
}

int ShownRowHeight(const ReportSheet& sheet, int row) {
    const int h = sheet.RowHeight(row);
    return h < 0 ? sheet_view::kDefaultRowHeightTwips : h;
}

Rgb ShownBack(const ReportSheet& sheet, int row, int col) {
    const Rgb back = sheet.BackColor(row, col);
    if (back != kDefaultColour) return back;
    return row == 0 || col == 0 ? sheet_view::kFixedBack : sheet_view::kCellBack;
}

Rgb ShownFore(const ReportSheet& sheet, int row, int col) {
    const Rgb fore = sheet.ForeColor(row, col);
    return fore != kDefaultColour ? fore : sheet_view::kCellFore;
}

Rgb ShownGridLine(const ReportSheet& sheet) {
    return sheet.GridColour() == kDefaultColour ? sheet_view::kGridLine : sheet.GridColour();
}

std::string DrawingDate(const ReportSheet& sheet, int row) {
    if (row < 1 || row > sheet.DrawCount() * sheet.RowsPerDrawing()) return {};
    // The label starts with the date, after a blank; some reports put "|" after it, most ":".
    const std::string label = sheet.Text(row, 0);
    std::size_t begin = label.find_first_not_of(' ');
    if (begin == std::string::npos) return {};
    std::size_t end = begin;
    while (end < label.size() && label[end] >= '0' && label[end] <= '9')
        ++end;
    if (end == begin || (end < label.size() && label[end] != ':' && label[end] != '|')) return {};
    return label.substr(begin, end - begin);
}

std::string DrawingDateRange(const ReportSheet& sheet, int first, int last) {
    first = std::max(first, 1);
    last = std::min(last, sheet.DrawCount() * sheet.RowsPerDrawing());
    if (first > last) return {};
    const std::string from = DrawingDate(sheet, first);
    const std::string to = DrawingDate(sheet, last);
    if (from == to || to.empty()) return from;
    if (from.empty()) return to;
    return from + " to " + to;
}

std::string DrawingDateRange(const ReportSheet& sheet) {
    // A drawing spread over several rows has its label on the first.
    return DrawingDateRange(sheet, 1, (sheet.DrawCount() - 1) * sheet.RowsPerDrawing() + 1);
}

std::string HexColour(Rgb colour) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (int i = 0; i < 6; ++i)
        text += kDigits[(colour >> (20 - 4 * i)) & 0xF];
    return text;
}

}  // namespace numarel
