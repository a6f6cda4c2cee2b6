#include <cstdlib>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 37;
constexpr int kSumCol = 4;
constexpr int kDigitWidth = 300;

enum class Operation { UnitsOfSum, AbsoluteDifference, UnitsOfProduct };

// What sets the three reports apart.
struct PairOperationUnits {
    Operation operation;
};

constexpr PairOperationUnits kUnitsOfSums = {Operation::UnitsOfSum};
constexpr PairOperationUnits kDifferences = {Operation::AbsoluteDifference};
constexpr PairOperationUnits kUnitsOfProducts = {Operation::UnitsOfProduct};

// One chart per pair of positions: the positions' digit columns, where its ten-column line
// starts, and its colour.
struct PairChart {
    int firstDigitCol;
    int secondDigitCol;
    int firstCol;
    Rgb colour;
};

constexpr PairChart kCharts[] = {
    {1, 2, 5, MakeRgb(255, 212, 164)},
    {1, 3, 16, MakeRgb(182, 219, 170)},
    {2, 3, 27, MakeRgb(231, 194, 182)},
};
constexpr int kDividerCols[] = {15, 26};

// The last character of a number written as text, that is its last decimal digit.
int LastDigitOf(int value) {
    return std::abs(value) % 10;
}

int Apply(Operation operation, int a, int b) {
    switch (operation) {
        case Operation::UnitsOfSum:
            return LastDigitOf(a + b);
        case Operation::AbsoluteDifference:
            return std::abs(a - b);
        case Operation::UnitsOfProduct:
            return LastDigitOf(a * b);
    }
    return 0;
}

void Build(const PairOperationUnits& report, std::span<const DrawRecord> drawings,
           ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c < kCols; ++c)
        sheet.SetColWidth(c, kDigitWidth);
    for (int c : kDividerCols)
        sheet.SetColWidth(c, 30);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    FillSheet(sheet, drawings, [&sheet](int row, CurrentDigits& digits) {
        sheet.SetNumber(row, kSumCol, SumOf(digits));
        sheet.SetBackColor(row, kSumCol, colours::kSumWidth);
    });

    HeadDigitColumns(sheet);
    sheet.SetText(0, kSumCol, "S");
    for (const PairChart& chart : kCharts)
        for (int v = 0; v <= 9; ++v)
            sheet.SetNumber(0, chart.firstCol + v, v);
    FinishLoad(sheet);

    for (int r = 1; r <= drawCount; ++r) {
        for (const PairChart& chart : kCharts) {
            const int result = Apply(report.operation, sheet.CellNumber(r, chart.firstDigitCol),
                                     sheet.CellNumber(r, chart.secondDigitCol));
            sheet.SetNumber(r, chart.firstCol + result, result);
            sheet.SetBackColor(r, chart.firstCol + result, chart.colour);
        }
    }
}

}  // namespace

// Charts of one operation on each pair of positions (H with T, H with U, T with U): a ten-column
// line per pair marking the value of each drawing.
std::span<const ReportDefinition> PairOperationUnitsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmweihe",
         .title = "Units of H+T H+U T+U",
         .build = BuildMember<Build, kUnitsOfSums>},
        {.object = "frmweicha",
         .title = "absolute value of H-T H-U T-U",
         .build = BuildMember<Build, kDifferences>},
        {.object = "frmweiji",
         .title = "Units of H*T H*U T*U",
         .build = BuildMember<Build, kUnitsOfProducts>},
    };
    return kReports;
}

}  // namespace numarel
