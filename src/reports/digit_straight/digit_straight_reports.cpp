#include "reports/digit_straight/cold_warm_hot.h"
#include "reports/digit_straight/position_trend.h"
#include "reports/digit_straight/regions.h"
#include "reports/report_registry.h"

namespace numarel {

std::span<const ReportDefinition> DigitStraightReports() {
    static constexpr ReportDefinition kReports[] = {
        {"frmrenwenleng", BuildColdWarmHot, kColdWarmHotMark, false, nullptr,
         ExtraButton{ExtraButton::Kind::ToggleTextBox,
                     "Next Box numbers",
                     "Hide Box numbers",
                     {},
                     NextBoxNumbersText}},
        {"frmxzd", BuildThreeRegions},
        {"frm4qufenge", BuildFourRegions1234},
        {"frm3weizoushi", BuildTundredTenUnitsTrend},
    };
    return kReports;
}

}  // namespace numarel
