#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

#include "data/basic_text.h"
#include "frame/frame_passes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 65;
constexpr int kFirstChartCol = 5;
constexpr int kBlockWidth = 20;  // per position: ten digit columns, then ten movement columns
constexpr Rgb kDigitColour = MakeRgb(255, 152, 104);
constexpr Rgb kMoveColour = MakeRgb(0, 146, 255);
constexpr std::array<Rgb, 3> kBandColours{MakeRgb(176, 200, 152), MakeRgb(208, 204, 0),
                                          MakeRgb(96, 204, 152)};

int DigitChartCol(int position) {
    return kFirstChartCol + kBlockWidth * (position - 1);
}
int MoveChartCol(int position) {
    return DigitChartCol(position) + 10;
}

// The frame's fill, with this chart's label: the drawing label without the blank the date's
// number-to-text form puts before it. The date is a number, so a date that is not one leaves the
// label empty. Written once per row, as labels are the one text a sheet keeps per drawing.
void FillTrendRows(ReportSheet& sheet, std::span<const DrawRecord> drawings) {
    CurrentDigits digits{0, 0, 0};
    int row = 1;
    for (const DrawRecord& record : drawings) {
        if (row > sheet.DrawCount()) break;
        const std::string label = DrawingLabel(record);
        sheet.SetText(row, 0, std::string_view(label).substr(label.starts_with(' ') ? 1 : 0));
        const std::string* fields[3] = {&record.h, &record.t, &record.u};
        for (int i = 0; i < 3; ++i) {
            // A digit that cannot be converted keeps the value of the drawing before.
            if (auto v = ToInt16(*fields[i])) digits[static_cast<std::size_t>(i)] = *v;
            sheet.SetNumber(row, 1 + i, digits[static_cast<std::size_t>(i)]);
        }
        ++row;
    }
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1131);
    for (int c = 1; c < kCols; ++c)
        sheet.SetColWidth(c, 240);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 5);
    FillTrendRows(sheet, drawings);
    for (int p = 1; p <= 3; ++p) {
        for (int d = 0; d <= 9; ++d) {
            sheet.SetNumber(0, DigitChartCol(p) + d, d);
            sheet.SetNumber(0, MoveChartCol(p) + d, d);
        }
    }
    sheet.SetCurrentCell(drawCount + 1, 1);

    for (int r = 1; r <= drawCount; ++r)
        for (int p = 1; p <= 3; ++p)
            for (int c = DigitChartCol(p); c < DigitChartCol(p) + kBlockWidth; ++c)
                sheet.SetBackColor(r, c, kBandColours[static_cast<std::size_t>(p - 1)]);

    // Both charts read the digits back from columns 1 to 3.
    for (int p = 1; p <= 3; ++p) {
        for (int r = 1; r <= drawCount; ++r) {
            const short d = sheet.CellNumber(r, p);
            sheet.SetNumber(r, DigitChartCol(p) + d, d);
            sheet.SetBackColor(r, DigitChartCol(p) + d, kDigitColour);
        }
    }
    // A move is plain subtraction, never modulo 10: 9 to 0 is -9 and 0 to 9 is 9, in one column.
    for (int p = 1; p <= 3; ++p) {
        for (int r = 2; r <= drawCount; ++r) {
            const int move = sheet.CellNumber(r, p) - sheet.CellNumber(r - 1, p);
            sheet.SetNumber(r, MoveChartCol(p) + std::abs(move), move);
            sheet.SetBackColor(r, MoveChartCol(p) + std::abs(move), kMoveColour);
        }
    }

    sheet.SetTopRow(sheet.Rows() - 1);
}

}  // namespace

std::span<const ReportDefinition> PositionTrendReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frm3weizoushi", .title = "Tundred Ten Units Trend", .build = Build},
    };
    return kReports;
}

}  // namespace numarel
