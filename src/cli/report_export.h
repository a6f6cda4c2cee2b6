#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>

#include "cli/sheet_format.h"
#include "frame/report_sheet.h"

namespace numarel {

// The program's version as --version prints it.
std::string_view ProgramVersion();

// Turns the name a user gave for a report (window object or menu caption, any case) into its
// window object; false after saying which captions come closest.
bool ResolveReportArgument(std::string& name, std::ostream& err);

// Writes `sheet` as it is formatted, to `out` or, when `outputFile` is not empty, to that file;
// a file is replaced only once it has been written whole. Returns the exit code.
int DeliverSheet(const ReportSheet& sheet, SheetFormat format, std::string_view object, int tail,
                 const std::string& outputFile, std::ostream& out, std::ostream& err);

// Writes every built report on `drawings` into `folder` as <object>.<format>, and for HTML an
// index.html listing them by group as the main window does. A failing report is reported and
// the others still written. Returns 0 when every report was written, 1 otherwise.
int ExportAllReports(const std::filesystem::path& drawings, SheetFormat format,
                     const std::filesystem::path& folder, std::ostream& err);

}  // namespace numarel
