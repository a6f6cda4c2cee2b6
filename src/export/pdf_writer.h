#pragma once

#include <iosfwd>
#include <string_view>
#include <vector>

#include "export/page_layout.h"
#include "frame/report_sheet.h"

namespace numarel {

// The printed pages of a sheet as a PDF document, drawn with cairo's PDF surface: the pages of
// LayOutPages for `rows`, each with the title, the lottery with its date range and "page x of y".
// A failure of the stream leaves it failed.
void WriteSheetPdf(const ReportSheet& sheet, std::string_view lottery, const std::vector<int>& rows,
                   const PageSetup& setup, std::ostream& out);

// What the command line lets a user choose: the newest `drawings` drawings (-1: those that fill one
// page, the default), and scaling the columns to the page width.
struct PdfChoice {
    int drawings = -1;
    bool fitToWidth = false;
};
void WriteSheetPdf(const ReportSheet& sheet, std::string_view lottery, const PdfChoice& choice,
                   std::ostream& out);

}  // namespace numarel
