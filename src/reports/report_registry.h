#pragma once

#include <filesystem>
#include <span>
#include <string_view>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Builds a report: the drawings a report sees in, the finished sheet out. Pure: the same drawings
// always give the same sheet.
using ReportBuilder = void (*)(std::span<const DrawRecord> drawings, ReportSheet& sheet);

// What the report window needs to know of a report beyond its sheet.
struct ReportDefinition {
    std::string_view object;  // the window object, as in the command table
    ReportBuilder build = nullptr;
    Rgb markColour = kDefaultColour;  // mouse-down marks cells in this colour; 0: no marks
    bool inertHelpButton = false;     // shows "Help" although the report has no page
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

// The report built by `object`; nullptr when it is not built yet (or unknown).
const ReportDefinition* FindReport(std::string_view object);

// Builds `object` into `sheet`. False when the report is not built yet.
bool BuildReport(std::string_view object, std::span<const DrawRecord> drawings,
                 ReportSheet& sheet);

// Opens a report as its window does: reads the drawings at `drawingsPath` and builds `object`.
// Fails with a message for the user when the report is not built yet, when the file cannot be
// read, or when it holds more drawings than the reports can count.
Status RunReport(std::string_view object, const std::filesystem::path& drawingsPath,
                 ReportSheet& sheet);

}  // namespace numarel
