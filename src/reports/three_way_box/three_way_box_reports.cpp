#include "reports/report_registry.h"
#include "reports/three_way_box/box_statistics.h"
#include "reports/three_way_box/three_way_box_chance.h"
#include "reports/three_way_box/three_way_box_doubles.h"

namespace numarel {

std::span<const ReportDefinition> ThreeWayBoxReports() {
    static constexpr ReportDefinition kReports[] = {
        {"Form1zu3", BuildThreeWayBoxChanceH1},
        {"Form1tlj", BuildThreeWayBoxChanceRun},
        {"Form1zu3bai10", BuildThreeWayBoxChanceT0},
        {.object = "frmzu3leixing2",
         .build = BuildThreeWayBoxType,
         .doubleClickText = ClosedMissLengths},
        {.object = "Form1zu3zh",
         .build = BuildThreeWayBoxTrend,
         .doubleClickText = ClosedMissLengths},
        {.object = "frmzusan90", .build = BuildThreeWayBoxStatistical, .inertHelpButton = true},
        {.object = "frmzuliu120", .build = BuildSixWayBoxStatistical, .inertHelpButton = true},
        // Works as the Box statistics do, on a list of its own.
        {"frmzuliu70", BuildSeventyTicketsFollow},
    };
    return kReports;
}

}  // namespace numarel
