#pragma once

#include <iosfwd>
#include <string_view>

#include "frame/report_sheet.h"

namespace numarel {

// A report as one self-contained web page that opens at once at any size. The sheet is kept in
// the page in a compact form and drawn by a small script that builds only the rows and columns
// in view:
//   <script type="application/json" id="sheet-info">: title, counts, the shown columns with their
//       widths in pixels, the rows of their own height, the colour palette, labels;
//   <script type="text/plain" id="sheet-texts">: one line a row, the shown cells' texts
//       separated by tabs ("\\", "\t", "\n", "\r" and "<" escaped as \\ \t \n \r \l);
//   <script type="text/plain" id="sheet-colours">: one line a row, runs of cells of one palette
//       entry: the entry's code (letters, as wide as the palette needs) followed by the run's
//       length when it is more than 1; a row's last run of defaults is left out.
// The header row and the label column stay in place while scrolling; the page opens at the
// newest rows, or at the top with the fragment #top. Selecting cells with the mouse and copying
// gives their texts, tab-separated. `lottery` is named under the title when it is not empty.
void WriteReportPage(const ReportSheet& sheet, std::string_view report, std::string_view lottery,
                     std::ostream& out);

}  // namespace numarel
