#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Builds a report: the drawings a report sees in, the finished sheet out. Pure: the same drawings
// always give the same sheet.
using ReportBuilder = void (*)(std::span<const DrawRecord> drawings, ReportSheet& sheet);

// Text a report derives from its finished sheet on the user's demand.
using SheetText = std::string (*)(const ReportSheet& sheet);
// Text derived from one column of the finished sheet.
using ColumnText = std::string (*)(const ReportSheet& sheet, int col);

// A button of a report window beyond Exit and Help; the window places it between the two.
struct ExtraButton {
    enum class Kind {
        None,
        ToggleTextBox,  // shows and hides a text box over the sheet, its text built afresh
        ExportFile,     // writes its text to a file beside the program and opens it
    };
    Kind kind = Kind::None;
    std::string_view caption;       // "Next Box numbers", "Export"
    std::string_view shownCaption;  // ToggleTextBox: the caption while the box is shown
    std::string_view exportFile;    // ExportFile: path under the program folder, "/" separated
    SheetText text = nullptr;       // the text of the box or the file
};

// The kind of window that shows a report.
enum class WindowKind {
    Report,   // the sheet with Exit, Help and the report's own button under it
    Enquiry,  // the sheet over a frame in which the user enters tickets to look up
};

// What the report window needs to know of a report beyond its sheet.
struct ReportDefinition {
    std::string_view object;  // the window object, as in the command table
    ReportBuilder build = nullptr;
    Rgb markColour = kDefaultColour;  // mouse-down marks cells in this colour; 0: no marks
    bool inertHelpButton = false;     // shows "Help" although the report has no page
    // A double click on the sheet puts this text of the current cell's column on the clipboard;
    // nullptr: a double click does nothing.
    ColumnText doubleClickText = nullptr;
    ExtraButton extraButton{};
    WindowKind window = WindowKind::Report;
};

// The built reports of each subsystem, each defined beside its reports.
std::span<const ReportDefinition> ThreeWayBoxReports();
std::span<const ReportDefinition> TicketsFollowReports();
std::span<const ReportDefinition> DigitSetReports();
std::span<const ReportDefinition> DigitStraightReports();
std::span<const ReportDefinition> RecommendedDigitReports();
std::span<const ReportDefinition> PairReports();
std::span<const ReportDefinition> SumWidthBoxReports();
std::span<const ReportDefinition> EnquiryOtherReports();
std::span<const ReportDefinition> NumberEnquiryReports();

// The report built by `object`; nullptr when it is not built yet (or unknown).
const ReportDefinition* FindReport(std::string_view object);

// Builds `object` into `sheet`. False when the report is not built yet.
bool BuildReport(std::string_view object, std::span<const DrawRecord> drawings, ReportSheet& sheet);

// Opens a report as its window does: reads the drawings at `drawingsPath` and builds `object`.
// Fails with a message for the user when the report is not built yet, when the file cannot be
// read, or when it holds more drawings than the reports can count.
Status RunReport(std::string_view object, const std::filesystem::path& drawingsPath,
                 ReportSheet& sheet);

}  // namespace numarel
