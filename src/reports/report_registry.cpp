#include "reports/report_registry.h"

#include <string>
#include <vector>

#include "reports/command_table.h"

namespace numarel {

std::span<const ReportFamily> ReportFamilies() {
    static constexpr ReportFamily kFamilies[] = {
        ThreeWayBoxChanceReports,
        ThreeWayBoxDoublesReports,
        BoxStatisticsReports,
        TicketsFollowReports,
        DigitSetReports,
        ColdWarmHotReports,
        RegionReports,
        PositionTrendReports,
        PairOperationUnitsReports,
        ShapeReports,
        Recommend320StraightReports,
        RecommendTundredTenUnitsReports,
        RecommendThreeDigitsReports,
        RecommendTwoDigitsReports,
        FormulaDigitGroupsReports,
        DigitFormulaReports,
        RecommendOneDigitReports,
        PairsChartReports,
        BoxNumberPairReports,
        FixedPairListReports,
        InheritTwoDigitsReports,
        FiveRegionsPairsReports,
        PositionPairOperationReports,
        RecommendPairsReports,
        SumLinesReports,
        SumWidthTypeReports,
        SumWidthRegionReports,
        RecommendNumberSumReports,
        BoxNumberShapeReports,
        BoxSmallMiddleLargeReports,
        FourModelsReports,
        AdditionMultiplicationReports,
        DigitClassSumReports,
        NumberEnquiryReports,
    };
    return kFamilies;
}

const ReportDefinition* FindReport(std::string_view object) {
    for (ReportFamily family : ReportFamilies())
        for (const ReportDefinition& def : family())
            if (def.object == object && def.build) return &def;
    return nullptr;
}

void BuildReport(const ReportDefinition& definition, std::span<const DrawRecord> drawings,
                 ReportSheet& sheet) {
    definition.build(drawings, sheet);
    sheet.DropUnusedTexts();
    sheet.SetTitle(std::string(definition.title));
}

HelpButtonState HelpButtonOf(const ReportDefinition& definition, std::string_view commandHelpPage) {
    switch (definition.help) {
        case HelpButton::PageFromCommandTable:
            return {.shown = !commandHelpPage.empty(), .page = commandHelpPage};
        case HelpButton::Inert:
            return {.shown = true};
        case HelpButton::Hidden:
            return {};
    }
    return {};
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
    return RunReport(*def, drawingsPath, sheet);
}

Status RunReport(const ReportDefinition& definition, const std::filesystem::path& drawingsPath,
                 ReportSheet& sheet) {
    std::vector<DrawRecord> drawings;
    Status s = ReadHistory(drawingsPath, drawings);
    if (!s.ok()) return s;
    BuildReport(definition, drawings, sheet);
    return Status::Ok();
}

}  // namespace numarel
