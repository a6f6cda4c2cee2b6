#include "reports/digit_sets/digit_sets.h"
#include "reports/report_registry.h"

namespace numarel {

std::span<const ReportDefinition> DigitSetReports() {
    static constexpr ReportDefinition kReports[] = {
        {"frmgaopin6ma", BuildSixWayFromThisSixDigits},
        {"frmgaopin6ma36", BuildBoxFromThisSixDigits},
        {"frmgaopin7ma", BuildSixWayFromThisSevenDigits},
        {"frmgaopin7ma36", BuildBoxFromThisSevenDigits},
        {"frmzuxuan4", BuildSixWayFromTheseFourDigits},
        {"frmzuxuan1", BuildSixWayFromTheseFiveDigits},
        {"frmzuxuan6", BuildSixWayFromTheseSixDigits},
        {"frmzuxuan7", BuildSixWayFromTheseSevenDigits},
        {"frm6lianhao", BuildSixWayFromSixDigitRuns},
        {"frmlingleizu6", BuildSixWayFrom012TypeSets},
        {"frmzuxuanqt", BuildBoxFromTheseNDigits},
    };
    return kReports;
}

}  // namespace numarel
