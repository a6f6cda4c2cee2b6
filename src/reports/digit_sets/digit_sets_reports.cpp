#include "reports/report_registry.h"

namespace numarel {

// The reports of this group that are built; none yet.
std::span<const ReportDefinition> DigitSetReports() { return {}; }

}  // namespace numarel
