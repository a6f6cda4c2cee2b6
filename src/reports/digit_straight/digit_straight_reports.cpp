#include "reports/digit_straight/cold_warm_hot.h"
#include "reports/digit_straight/pair_operation_units.h"
#include "reports/digit_straight/position_trend.h"
#include "reports/digit_straight/recommend_320_straight.h"
#include "reports/digit_straight/recommend_tundred_ten_units.h"
#include "reports/digit_straight/regions.h"
#include "reports/digit_straight/shapes.h"
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
