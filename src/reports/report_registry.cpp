#include "reports/report_registry.h"

#include <string>
#include <vector>

#include "shell/command_table.h"

namespace numarel {

const ReportDefinition* FindReport(std::string_view object) {
    using Family = std::span<const ReportDefinition> (*)();
    static constexpr Family kFamilies[] = {
        ThreeWayBoxReports,   TicketsFollowReports,    DigitSetReports,
        DigitStraightReports, RecommendedDigitReports, PairReports,
        SumWidthBoxReports,   EnquiryOtherReports,     NumberEnquiryReports,
    };
    for (Family family : kFamilies)
        for (const ReportDefinition& def : family())
            if (def.object == object && def.build) return &def;
    return nullptr;
}

bool BuildReport(std::string_view object, std::span<const DrawRecord> drawings,
                 ReportSheet& sheet) {
    const ReportDefinition* def = FindReport(object);
    if (!def) return false;
    def->build(drawings, sheet);
    return true;
}

Status RunReport(std::string_view object, const std::filesystem::path& drawingsPath,
                 ReportSheet& sheet) {
    const ReportDefinition* def = FindReport(object);
    if (!def) {
        if (FindCommand(object))
            return Status::NotBuilt("The report \"" + std::string(object) +
                                    "\" is not available yet.");
        return Status::NotFound("There is no report \"" + std::string(object) + "\".");
    }
    std::vector<DrawRecord> drawings;
    Status s = ReadHistory(drawingsPath, drawings);
    if (!s.ok()) return s;
    def->build(drawings, sheet);
    return Status::Ok();
}

}  // namespace numarel
