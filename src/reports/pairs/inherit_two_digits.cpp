#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 6;
constexpr int kDistinctCol = 4;  // work column: the drawing's different digits
constexpr int kInheritCol = 5;

// How many characters of one text match a character of the other, every pair compared. Texts of
// different digits hold no character twice, so this is the number of digits they share.
int SharedCharacters(std::string_view one, std::string_view other) {
    int shared = 0;
    for (char a : one)
        for (char b : other)
            if (a == b) ++shared;
    return shared;
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(kDistinctCol, 20);
    sheet.SetColWidth(kInheritCol, 1032);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    // Each row's different digits are written, then read back from their cell and compared with
    // those of the row before.
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        SortDigits(digits);
        sheet.SetText(row, kDistinctCol, DistinctDigits(digits));
        if (row == 1) return;
        ReportSheet::NumberDigits before;
        ReportSheet::NumberDigits after;
        if (SharedCharacters(sheet.TextView(row - 1, kDistinctCol, before),
                             sheet.TextView(row, kDistinctCol, after)) == 2)
            sheet.SetText(row, kInheritCol, "YES");
    });

    HeadDigitColumns(sheet);
    sheet.SetText(0, kInheritCol, "Inherit 2 Digits");
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> InheritTwoDigitsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmchong2ge", .title = "Inherit 2 Digits", .build = Build},
    };
    return kReports;
}

}  // namespace numarel
