#include <array>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

// The three ordered pairs of positions of a drawing. Pairs here keep the drawn order, H first.
struct PositionPair {
    int first;  // 0 = H, 1 = T, 2 = U
    int second;
    std::string_view label;  // behind the drawing's label on the pair's own row
};
constexpr std::array<PositionPair, 3> kPositionPairs{{
    {0, 1, "(H±T)"},
    {0, 2, "(H±U)"},
    {1, 2, "(T±U)"},
}};

// --- + or - of Pairs ------------------------------------------------------------------------

namespace sums {

constexpr int kCols = 36;
constexpr int kSumCol = 1;
constexpr int kFirstSumChartCol = 2;  // sums 0 to 18
constexpr int kDividerCol = 21;
constexpr int kDifferenceCol = 22;
constexpr int kFirstDifferenceChartCol = 23;  // differences 0 to 9
constexpr int kFirstDigitCol = 33;            // 33, 34, 35: H, T, U on each row of the drawing
constexpr int kRowsPerDrawing = static_cast<int>(kPositionPairs.size());

constexpr Rgb kChartColour = MakeRgb(200, 164, 170);
constexpr Rgb kGridColour = MakeRgb(0, 192, 0);

void LayOut(ReportSheet& sheet) {
    sheet.SetColWidth(0, 1978);
    sheet.SetColWidth(kSumCol, 258);
    sheet.SetText(0, kSumCol, "+");
    for (int s = 0; s <= 18; ++s) {
        sheet.SetColWidth(kFirstSumChartCol + s, 258);
        sheet.SetNumber(0, kFirstSumChartCol + s, s);
    }
    sheet.SetColWidth(kDividerCol, 60);
    sheet.SetColWidth(kDifferenceCol, 228);
    sheet.SetText(0, kDifferenceCol, "-");
    for (int d = 0; d <= 9; ++d) {
        sheet.SetColWidth(kFirstDifferenceChartCol + d, 228);
        sheet.SetNumber(0, kFirstDifferenceChartCol + d, d);
    }
    for (int c = kFirstDigitCol; c < kFirstDigitCol + 3; ++c)
        sheet.SetColWidth(c, 2);
}

// The pair's two digits as its own row keeps them.
std::array<short, 2> PairOnRow(const ReportSheet& sheet, int row, const PositionPair& pair) {
    return {sheet.CellNumber(row, kFirstDigitCol + pair.first),
            sheet.CellNumber(row, kFirstDigitCol + pair.second)};
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.Resize(1, kCols);  // the header row is written before the drawings are counted
    sheet.SetGridColour(kGridColour);
    LayOut(sheet);

    const int drawCount = CountDrawings(drawings);
    sheet.SetDrawCount(drawCount);
    sheet.SetRowsPerDrawing(kRowsPerDrawing);
    sheet.SetRows(kRowsPerDrawing * drawCount + 3);  // the last two rows stay empty
    ReadDrawings(drawings, [&](int n, const DrawRecord& record, CurrentDigits& digits) {
        const int first = kRowsPerDrawing * (n - 1) + 1;
        // The label and the pair's mark are one text: a date that is not a number has no label,
        // and its rows keep column 0 empty.
        const std::string label = DrawingLabel(record);
        for (int i = 0; i < kRowsPerDrawing; ++i) {
            const int r = first + i;
            if (!label.empty())
                sheet.SetText(
                    r, 0, label + std::string(kPositionPairs[static_cast<std::size_t>(i)].label));
            for (int p = 0; p < 3; ++p)
                sheet.SetNumber(r, kFirstDigitCol + p, digits[static_cast<std::size_t>(p)]);
        }
    });

    // Each row's sum and difference from its own stores, then both charted from those cells. A
    // row needs nothing but itself, so one walk down the sheet does all three passes.
    const int lastBlockRow = sheet.Rows() - 5;
    for (int r = 1; r <= lastBlockRow; r += kRowsPerDrawing) {
        for (int i = 0; i < kRowsPerDrawing; ++i) {
            const int row = r + i;
            const auto [x, y] = PairOnRow(sheet, row, kPositionPairs[static_cast<std::size_t>(i)]);
            sheet.SetNumber(row, kSumCol, x + y);
            sheet.SetNumber(row, kDifferenceCol, std::abs(x - y));
            sheet.SetBackColor(row, kFirstSumChartCol + sheet.CellNumber(row, kSumCol),
                               kChartColour);
            sheet.SetBackColor(row,
                               kFirstDifferenceChartCol + sheet.CellNumber(row, kDifferenceCol),
                               kChartColour);
        }
    }
    sheet.SetTopRow(sheet.Rows() - 1);
}

}  // namespace sums

// --- Units of product of two digits ---------------------------------------------------------

namespace products {

constexpr int kCols = 15;
constexpr int kFirstUnitsCol = 5;  // the units 0 to 9 of a product
constexpr Rgb kPairColour = MakeRgb(189, 157, 165);

void SetWidths(ReportSheet& sheet) {
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(4, 60);
    for (int u = 0; u <= 9; ++u)
        sheet.SetColWidth(kFirstUnitsCol + u, 840);
}

void WriteHeader(ReportSheet& sheet) {
    HeadDigitColumns(sheet);
    for (int u = 0; u <= 9; ++u)
        sheet.SetNumber(0, kFirstUnitsCol + u, u);
}

// Each pair goes into the column of the units of its product, as "74;", behind the pairs of
// earlier positions that fell there too.
void PlacePairs(ReportSheet& sheet, int r, const CurrentDigits& digits) {
    std::array<std::string, 10> pairsByUnits;
    for (const PositionPair& pair : kPositionPairs) {
        const int x = digits[static_cast<std::size_t>(pair.first)];
        const int y = digits[static_cast<std::size_t>(pair.second)];
        std::string& pairs = pairsByUnits[static_cast<std::size_t>(std::abs(x * y) % 10)];
        pairs += std::to_string(x);
        pairs += std::to_string(y);
        pairs += ';';
    }
    for (int u = 0; u <= 9; ++u) {
        const std::string& pairs = pairsByUnits[static_cast<std::size_t>(u)];
        if (pairs.empty()) continue;
        const int col = kFirstUnitsCol + u;
        sheet.SetText(r, col, pairs);
        sheet.SetBackColor(r, col, kPairColour);
    }
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    SetWidths(sheet);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    FillSheet(sheet, drawings,
              [&sheet](int r, CurrentDigits& digits) { PlacePairs(sheet, r, digits); });
    WriteHeader(sheet);
    FinishLoad(sheet);
}

}  // namespace products

}  // namespace

// Two reports on the three ordered pairs of positions of a drawing, H with T, H with U, T with U.
// + or - of Pairs gives each pair a row of its own and charts its sum and difference; Units of
// product of two digits shows, on one row per drawing, in which column by the units of its
// product each pair falls. Neither recommends anything.
std::span<const ReportDefinition> PositionPairOperationReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmliangmahecha",
         .title = "+ or - of Pairs",
         .build = sums::Build,
         .loadOrder = LoadOrder::DesignedCaption},
        {.object = "frmliangmajiwei",
         .title = "Units of product of two digits ",
         .build = products::Build},
    };
    return kReports;
}

}  // namespace numarel
