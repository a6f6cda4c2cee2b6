// Recommend Number Sum: two fixed lists of Sums, seven and four, each checked against every
// drawing. The lists themselves are the recommendation; the rows show how they would have fared.
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

constexpr int kCols = 19;
constexpr int kSumCol = 4;
constexpr int kGapCol = 13;
constexpr int kFlagWidth = 688;
constexpr std::string_view kHitFlag = "-Y-";

// A list of Sums: its columns, headed by the Sums, and the column that flags a hit.
struct SumList {
    int firstCol;
    std::span<const std::string_view> sums;
    int flagCol;
};

constexpr std::string_view kSevenSums[] = {"8", "10", "11", "13", "15", "16", "18"};
constexpr std::string_view kFourSums[] = {"12", "13", "14", "15"};
constexpr SumList kLists[] = {{5, kSevenSums, 12}, {14, kFourSums, 18}};

// Marks the list's column of each drawing's Sum. The Sums are those of the header row, compared
// as numbers with the drawing's Sum cell.
void CheckList(ReportSheet& sheet, const SumList& list) {
    const int lastCol = list.firstCol + static_cast<int>(list.sums.size()) - 1;
    std::vector<short> sums;
    std::vector<std::string> headers;
    for (int c = list.firstCol; c <= lastCol; ++c) {
        sums.push_back(sheet.CellNumber(0, c));
        headers.push_back(sheet.Text(0, c));
    }
    for (int r = 1; r <= sheet.DrawCount(); ++r) {
        const short sum = sheet.CellNumber(r, kSumCol);
        for (std::size_t i = 0; i < sums.size(); ++i) {
            if (sums[i] != sum) continue;
            const int col = list.firstCol + static_cast<int>(i);
            sheet.SetText(r, list.flagCol, kHitFlag);
            sheet.SetText(r, col, headers[i]);
            sheet.SetBackColor(r, col, colours::kHit);
        }
    }
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c < kCols; ++c)
        sheet.SetColWidth(c, 300);
    for (const SumList& list : kLists)
        sheet.SetColWidth(list.flagCol, kFlagWidth);
    sheet.SetColWidth(kGapCol, kFlagWidth);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        sheet.SetNumber(row, kSumCol, SumOf(digits));
        sheet.SetBackColor(row, kSumCol, colours::kSumWidth);
    });

    HeadDigitColumns(sheet);
    sheet.SetText(0, kSumCol, "S");
    for (const SumList& list : kLists) {
        for (std::size_t i = 0; i < list.sums.size(); ++i)
            sheet.SetText(0, list.firstCol + static_cast<int>(i), list.sums[i]);
        sheet.SetText(0, list.flagCol, "Y/N");
    }
    FinishLoad(sheet);

    for (const SumList& list : kLists)
        CheckList(sheet, list);
}

}  // namespace

std::span<const ReportDefinition> RecommendNumberSumReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmhezhi4",
         .title = "Recommend Number Sum-[Following 7 fixed sums]+[Following 4 fixed sums]",
         .build = Build,
         .help = HelpButton::Hidden},
    };
    return kReports;
}

// The claims the scoreboard follows, each judged as the report judges it.
std::span<const ScoredMethod> RecommendNumberSumMethods() {
    static constexpr ScoredMethod kMethods[] = {
        {.object = "frmhezhi4",
         .name = "7 fixed sums",
         .shape = ClaimShape::Sums,
         .claimCount = 7,
         .claimInHeader = true,
         .judgeCol = 12,
         .firstJudgedRow = 1},
        {.object = "frmhezhi4",
         .name = "4 fixed sums",
         .shape = ClaimShape::Sums,
         .firstClaimCol = 14,
         .claimCount = 4,
         .claimInHeader = true,
         .judgeCol = 18,
         .firstJudgedRow = 1},
    };
    return kMethods;
}

}  // namespace numarel
