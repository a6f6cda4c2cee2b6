#include "reports/report_registry.h"
#include "reports/tickets_follow/tickets_follow.h"

namespace numarel {

std::span<const ReportDefinition> TicketsFollowReports() {
    static constexpr ReportDefinition kReports[] = {
        {"frmqita1", BuildSixteenTicketsFollow},   {"frmqita3", BuildTwentySevenTicketsFollow},
        {"frmqita2a", BuildThirtyTicketsFollowA},  {"frmqita2", BuildThirtyTicketsFollowB},
        {"frmqita450", BuildFiftyTicketsFollowAB}, {"frmqita354", BuildEighteenTicketsFollowABC},
    };
    return kReports;
}

}  // namespace numarel
