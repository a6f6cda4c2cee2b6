#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "export/pdf_writer.h"
#include "export/sheet_format.h"
#include "frame/report_sheet.h"
#include "reports/scoreboard/method_claims.h"

namespace numarel {

// The program's version as --version prints it.
std::string_view ProgramVersion();

// Turns the name a user gave for a report (window object or menu caption, any case) into its
// window object; false after saying which captions come closest.
bool ResolveReportArgument(std::string& name, std::ostream& err);

// The files `report --all` writes into `folder`: one a report, and the contents page for HTML.
std::vector<std::filesystem::path> ExportedFiles(SheetFormat format,
                                                 const std::filesystem::path& folder);

// Writes every built report on `drawings` into `folder` as <object>.<format>, and for HTML an
// index.html listing them by group as the main window does, and the scoreboard page
// scoreboard.html, linked from it. A failing report is reported and
// the others still written. Returns 0 when every report was written, 1 otherwise.
// `pdf` chooses the rows and the scale of PDF pages.
int ExportAllReports(const std::filesystem::path& drawings, SheetFormat format,
                     const std::filesystem::path& folder, std::ostream& err,
                     const PayoutTable& payouts = {}, const PdfChoice& pdf = {});

}  // namespace numarel
