#include "reports/digit_straight/pair_operation_units.h"
#include "reports/digit_straight/recommend_320_straight.h"
#include "reports/digit_straight/recommend_tundred_ten_units.h"
#include "reports/digit_straight/shapes.h"
#include "reports/report_registry.h"

namespace numarel {

std::span<const ReportDefinition> DigitStraightReports() {
    static constexpr ReportDefinition kReports[] = {
        // Cold Warm Hot, regions and the position trend come first.
        {"frmweihe", BuildUnitsOfPairSums},
        {"frmweicha", BuildPairDifferences},
        {"frmweiji", BuildUnitsOfPairProducts},
        {"frmxingxiang", BuildRiseDownShape, MakeRgb(42, 194, 91)},
        {"frmjibenxingtai", BuildStraightNumberShape, MakeRgb(43, 145, 255)},
        {"frmbaishi32zu", BuildRecommend320StraightNumbers, kDefaultColour, false, nullptr,
         ExtraButton{
             ExtraButton::Kind::ExportFile, "Export", {}, "Numarel/daochu320.txt", Export320Text}},
        {"frmzhixuantaloven", BuildRecommendTundredTenUnits, kDefaultColour, true},
    };
    return kReports;
}

}  // namespace numarel
