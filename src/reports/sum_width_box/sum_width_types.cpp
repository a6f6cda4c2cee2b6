// Sum 012 Type & Width 012 Type: each drawing's Sum, Width and the pair of their remainders by
// 3, traced across the nine possible pairs.
#include <algorithm>
#include <charconv>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/basic_text.h"
#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 17;
constexpr int kSumCol = 1;
constexpr int kWidthCol = 2;
constexpr int kTypeCol = 3;
constexpr int kDividerCol = 4;
constexpr int kFirstTraceCol = 5;
constexpr int kStoreCol = 14;  // H, T and U, read back by the passes

// The trace's column order.
constexpr std::string_view kTypes[] = {"00", "11", "22", "01", "02", "10", "12", "20", "21"};

// The grid font is 8.25 pt; the sheet keeps tenths of a point, so it is rounded half up to 8.3,
// as the other reports round 6.75 to 6.8.
constexpr int kFontDecipoints = 83;
constexpr Rgb kTrace = MakeRgb(176, 188, 79);
constexpr Rgb kMark = MakeRgb(43, 145, 255);

// The report keeps its designed caption, so nothing is shown while it loads: the header row is
// written before the drawings are counted, and the sheet keeps one empty row after the next
// drawing's row.
void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetFontDecipoints(kFontDecipoints);
    sheet.Resize(1, kCols);
    sheet.SetColWidth(0, 1204);
    sheet.SetColWidth(kSumCol, 300);
    sheet.SetColWidth(kWidthCol, 300);
    sheet.SetColWidth(kTypeCol, 860);
    sheet.SetColWidth(kDividerCol, 40);
    for (std::size_t i = 0; i < std::size(kTypes); ++i)
        sheet.SetColWidth(kFirstTraceCol + static_cast<int>(i), 300);
    for (int c = kStoreCol; c < kStoreCol + 3; ++c)
        sheet.SetColWidth(c, 2);

    sheet.SetText(0, kSumCol, "S");
    sheet.SetText(0, kWidthCol, "W");
    sheet.SetText(0, kTypeCol, "SW012Type");
    for (std::size_t i = 0; i < std::size(kTypes); ++i)
        sheet.SetText(0, kFirstTraceCol + static_cast<int>(i), kTypes[i]);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 3, -1);
    FillSheet(sheet, drawings, {}, {kStoreCol, kStoreCol + 1, kStoreCol + 2});

    auto storedDigits = [&](int r) {
        return CurrentDigits{sheet.CellNumber(r, kStoreCol), sheet.CellNumber(r, kStoreCol + 1),
                             sheet.CellNumber(r, kStoreCol + 2)};
    };
    // Sum, Width, then the two remainders written one after the other; for the digits 0 to 9
    // each is one digit. Each row needs nothing but itself.
    for (int r = 1; r <= drawCount; ++r) {
        const CurrentDigits digits = storedDigits(r);
        sheet.SetNumber(r, kSumCol, digits[0] + digits[1] + digits[2]);
        CurrentDigits sorted = storedDigits(r);
        SortDigits(sorted);
        sheet.SetNumber(r, kWidthCol, sorted[2] - sorted[0]);
        const int sumType = sheet.CellNumber(r, kSumCol) % 3;
        const int widthType = sheet.CellNumber(r, kWidthCol) % 3;
        if (sumType > 0 && widthType >= 0) {  // a plain number, which the sheet keeps as one
            sheet.SetNumber(r, kTypeCol, sumType * 10 + widthType);
            continue;
        }
        char text[16];
        char* end = std::to_chars(text, text + 8, sumType).ptr;
        end = std::to_chars(end, text + 16, widthType).ptr;
        sheet.SetText(r, kTypeCol, std::string_view(text, static_cast<std::size_t>(end - text)));
    }

    // The pairs are whatever the header row says; blanks around either text do not count.
    std::vector<std::string> headers;
    std::vector<std::string> trimmedHeaders;
    for (std::size_t i = 0; i < std::size(kTypes); ++i) {
        headers.push_back(sheet.Text(0, kFirstTraceCol + static_cast<int>(i)));
        trimmedHeaders.emplace_back(Trim(headers.back()));
    }
    // A header that is a plain number is kept as that number, and written as one.
    std::vector<char> numberHeaders;
    std::vector<short> headerValues;
    for (std::size_t i = 0; i < headers.size(); ++i) {
        const int col = kFirstTraceCol + static_cast<int>(i);
        const bool number = sheet.HoldsNumber(0, col);
        headerValues.push_back(number ? sheet.CellNumber(0, col) : short{0});
        numberHeaders.push_back(number && headerValues.back() > -32768 &&
                                headerValues.back() < 32767);
    }
    for (int r = 1; r <= drawCount; ++r) {
        ReportSheet::NumberDigits digits;
        const std::string_view type = Trim(sheet.TextView(r, kTypeCol, digits));
        for (std::size_t i = 0; i < headers.size(); ++i) {
            const std::string& header = trimmedHeaders[i];
            if (header.size() != type.size() ||
                !std::equal(type.begin(), type.end(), header.begin()))
                continue;
            const int col = kFirstTraceCol + static_cast<int>(i);
            if (numberHeaders[i])
                sheet.SetNumber(r, col, headerValues[i]);
            else
                sheet.SetText(r, col, headers[i]);
            sheet.SetBackColor(r, col, kTrace);
        }
    }
    sheet.SetTopRow(sheet.Rows() - 1);
}

}  // namespace

std::span<const ReportDefinition> SumWidthTypeReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmhekualu",
         .title = "Sum 012 Type&Width 012 Type",
         .build = Build,
         .loadOrder = LoadOrder::DesignedCaption,
         .markColour = kMark},
    };
    return kReports;
}

}  // namespace numarel
