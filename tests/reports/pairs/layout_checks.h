#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "frame/report_sheet.h"
#include "reports/command_table.h"
#include "reports/report_registry.h"

namespace numarel::testing {

// Columns `first` to `last` share one width.
struct WidthRun {
    int first;
    int last;
    int width;
};

// The widths of a sheet's columns as runs give them, column 0 first.
inline std::vector<int> WidthsOf(std::initializer_list<WidthRun> runs) {
    std::vector<int> widths;
    for (const WidthRun& run : runs)
        for (int c = run.first; c <= run.last; ++c) {
            widths.resize(static_cast<std::size_t>(c) + 1, -1);
            widths[static_cast<std::size_t>(c)] = run.width;
        }
    return widths;
}

// The widths a sheet has, column 0 first.
inline std::vector<int> ColumnWidths(const ReportSheet& sheet) {
    std::vector<int> widths;
    for (int c = 0; c < sheet.Cols(); ++c)
        widths.push_back(sheet.ColWidth(c));
    return widths;
}

// The page the report's Help button opens; empty when the window shows no Help button.
inline std::string_view HelpPageOf(std::string_view object) {
    const HelpButtonState help = HelpButtonOf(*FindReport(object), FindCommand(object)->helpPage);
    return help.shown ? help.page : std::string_view("(none)");
}

}  // namespace numarel::testing
