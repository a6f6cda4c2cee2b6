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

// The builder of one member of a family: the family's one routine `kFamilyBuild` applied to the
// member's row of differences `kRow`, as in `.build = BuildMember<Build, kSixteenTickets>`.
template <auto kFamilyBuild, const auto& kRow>
void BuildMember(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    kFamilyBuild(kRow, drawings, sheet);
}

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
    std::string_view caption = {};       // "Next Box numbers", "Export"
    std::string_view shownCaption = {};  // ToggleTextBox: the caption while the box is shown
    std::string_view exportFile = {};    // ExportFile: path under the program folder, "/" separated
    SheetText text = nullptr;            // the text of the box or the file
};

// What a report window shows while the report computes.
enum class LoadOrder {
    // "Loading......" and the hourglass while it computes, then the report's title.
    ShowsLoading,
    // The report's title from the start and no hourglass.
    DesignedCaption,
};

// The Help button of a report window.
enum class HelpButton {
    // Shown when the command table names a page for the report, and opens that page.
    PageFromCommandTable,
    // Shown although the report has no page; pressing it does nothing.
    Inert,
    // The report has the button but never shows it.
    Hidden,
};

// The kind of window that shows a report.
enum class WindowKind {
    Report,   // the sheet with Exit, Help and the report's own button under it
    Enquiry,  // the sheet over a frame in which the user enters tickets to look up
};

// Everything known of a report beyond its sheet; one row of its family's registry.
struct ReportDefinition {
    std::string_view object = {};  // the window object, as in the command table
    std::string_view title = {};   // the window's caption once the report is loaded
    ReportBuilder build = nullptr;
    LoadOrder loadOrder = LoadOrder::ShowsLoading;
    HelpButton help = HelpButton::PageFromCommandTable;
    Rgb markColour = kDefaultColour;  // mouse-down marks cells in this colour; 0: no marks
    // A double click on the sheet puts this text of the current cell's column on the clipboard;
    // nullptr: a double click does nothing.
    ColumnText doubleClickText = nullptr;
    ExtraButton extraButton{};
    WindowKind window = WindowKind::Report;
};

// The registered reports of one family, defined beside the family's table of differences.
using ReportFamily = std::span<const ReportDefinition> (*)();

// Every family of every subsystem, in the order the subsystems are numbered.
std::span<const ReportFamily> ReportFamilies();

// The report built by `object`; nullptr when it is not built yet (or unknown).
const ReportDefinition* FindReport(std::string_view object);

// Builds `definition` into `sheet` and gives the sheet the report's title.
void BuildReport(const ReportDefinition& definition, std::span<const DrawRecord> drawings,
                 ReportSheet& sheet);

// What a report window's Help button is: whether it is shown, and the page it opens (empty: it
// opens nothing). `commandHelpPage` is the page the command table names for the report. The
// window, the command line's listing and the tests all ask here.
struct HelpButtonState {
    bool shown = false;
    std::string_view page = {};
};
HelpButtonState HelpButtonOf(const ReportDefinition& definition, std::string_view commandHelpPage);

// Opens a report as its window does: reads the drawings at `drawingsPath` and builds `object`.
// Fails with a message for the user when the report is not built yet, when the file cannot be
// read, or when it holds more drawings than the reports can count.
Status RunReport(std::string_view object, const std::filesystem::path& drawingsPath,
                 ReportSheet& sheet);
// The same for a report already found.
Status RunReport(const ReportDefinition& definition, const std::filesystem::path& drawingsPath,
                 ReportSheet& sheet);

// --- the families ----------------------------------------------------------------------------
// reports/three_way_box
std::span<const ReportDefinition> ThreeWayBoxChanceReports();
std::span<const ReportDefinition> ThreeWayBoxDoublesReports();
std::span<const ReportDefinition> BoxStatisticsReports();
// reports/tickets_follow
std::span<const ReportDefinition> TicketsFollowReports();
// reports/digit_sets
std::span<const ReportDefinition> DigitSetReports();
// reports/digit_straight
std::span<const ReportDefinition> ColdWarmHotReports();
std::span<const ReportDefinition> RegionReports();
std::span<const ReportDefinition> PositionTrendReports();
std::span<const ReportDefinition> PairOperationUnitsReports();
std::span<const ReportDefinition> ShapeReports();
std::span<const ReportDefinition> Recommend320StraightReports();
std::span<const ReportDefinition> RecommendTundredTenUnitsReports();
// reports/recommended_digits
std::span<const ReportDefinition> RecommendThreeDigitsReports();
std::span<const ReportDefinition> RecommendTwoDigitsReports();
std::span<const ReportDefinition> FormulaDigitGroupsReports();
std::span<const ReportDefinition> DigitFormulaReports();
std::span<const ReportDefinition> RecommendOneDigitReports();
// reports/pairs
std::span<const ReportDefinition> PairsChartReports();
std::span<const ReportDefinition> BoxNumberPairReports();
std::span<const ReportDefinition> FixedPairListReports();
std::span<const ReportDefinition> InheritTwoDigitsReports();
std::span<const ReportDefinition> FiveRegionsPairsReports();
std::span<const ReportDefinition> PositionPairOperationReports();
std::span<const ReportDefinition> RecommendPairsReports();
// reports/sum_width_box
std::span<const ReportDefinition> SumLinesReports();
std::span<const ReportDefinition> SumWidthTypeReports();
std::span<const ReportDefinition> SumWidthRegionReports();
std::span<const ReportDefinition> RecommendNumberSumReports();
std::span<const ReportDefinition> BoxNumberShapeReports();
std::span<const ReportDefinition> BoxSmallMiddleLargeReports();
std::span<const ReportDefinition> FourModelsReports();
std::span<const ReportDefinition> AdditionMultiplicationReports();
// reports/enquiry_other
std::span<const ReportDefinition> DigitClassSumReports();
std::span<const ReportDefinition> NumberEnquiryReports();

}  // namespace numarel
