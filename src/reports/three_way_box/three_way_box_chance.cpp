#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kSignalCol = 4;
constexpr int kBoxCol = 5;
// The hidden Width rule of the third report.
constexpr int kWidthPaintCol = 7;
constexpr int kWidthBoxCol = 8;
constexpr int kWidthCol = 9;

constexpr int kSignalStretch = 4;  // rows painted after a signal
constexpr int kRowsToCome = 4;     // rows kept under the drawings for the stretch to reach

enum class Signal {
    HundredsIsOne,  // H is 1, as drawn
    Run,            // sorted digits consecutive, 9 wrapping to 0
    TensIsZero,     // T is 0, as drawn
};

// What sets the three reports apart.
struct ChanceReport {
    Signal signal;
    int cols;
    bool widthRule;
};

constexpr ChanceReport kHundredsIsOne = {Signal::HundredsIsOne, 6, false};
constexpr ChanceReport kRun = {Signal::Run, 6, false};
constexpr ChanceReport kTensIsZero = {Signal::TensIsZero, 10, true};

bool SignalsBeforeSort(Signal signal, const CurrentDigits& d) {
    return (signal == Signal::HundredsIsOne && d[0] == 1) ||
           (signal == Signal::TensIsZero && d[1] == 0);
}

// Tested with plain & and |: whether a drawing is a run is as good as random, and every && would
// be a jump for the processor to guess.
bool IsRun(const CurrentDigits& s) {
    const bool consecutive = (s[1] - s[0] == 1) & (s[2] - s[1] == 1);
    const bool wraps = (s[0] == 0) & (s[2] == 9) & ((s[1] == 8) | (s[1] == 1));
    return consecutive | wraps;
}

// Column 0 cut to the date alone, written over the label FillSheet wrote.
void WriteDateAlone(ReportSheet& sheet, int row) {
    ReportSheet::NumberDigits digits;
    const std::string_view label = sheet.TextView(row, 0, digits);
    // A short walk to the colon: a label is a dozen characters.
    std::size_t dateSize = 0;
    while (dateSize < label.size() && label[dateSize] != ':')
        ++dateSize;
    // A label is only ever shortened in its place, so the view may be written back.
    sheet.SetText(row, 0, label.substr(0, dateSize));
}

void Build(const ChanceReport& report, std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(report.cols);
    sheet.SetColWidth(0, 860);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    if (report.widthRule) {
        for (int c = 6; c <= 8; ++c)
            sheet.SetColWidth(c, 5);
        sheet.SetColWidth(kWidthCol, 40);
    }

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 1 + kRowsToCome);

    // The headers come first, and each row is marked and painted while it is at hand: the
    // stretches are read back from the signal marks, so overlapping ones merge, and the Width
    // rule compares the row with the one before it.
    HeadDigitColumns(sheet);
    sheet.SetText(0, kBoxCol, "3 Way Box");
    if (report.widthRule) sheet.SetText(0, kWidthBoxCol, "3 Way Box");
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        WriteDateAlone(sheet, row);
        if (SignalsBeforeSort(report.signal, digits)) sheet.SetText(row, kSignalCol, "***");
        SortDigits(digits);
        if (report.signal == Signal::Run && IsRun(digits)) sheet.SetText(row, kSignalCol, "***");
        if (IsThreeWayBox(digits)) {
            sheet.SetText(row, kBoxCol, "YES");
            if (report.widthRule) sheet.SetText(row, kWidthBoxCol, "  YES");
        }
        if (!sheet.IsEmpty(row, kSignalCol)) {
            for (int k = 1; k <= kSignalStretch; ++k)
                sheet.SetBackColor(row + k, kSignalCol, colours::kHit);
        }
        if (report.widthRule) {
            sheet.SetNumber(row, kWidthCol, digits[2] - digits[0]);
            // Two drawings in a row with equal Width, the first of them not the oldest.
            if (row >= 3 && sheet.SameText(row - 1, kWidthCol, row, kWidthCol)) {
                for (int k = 1; k <= 3; ++k)
                    sheet.SetBackColor(row + k, kWidthPaintCol, colours::kHit);
            }
        }
    });
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> ThreeWayBoxChanceReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "Form1zu3",
         .title = "3 Way Box Chance[1]",
         .build = BuildMember<Build, kHundredsIsOne>},
        {.object = "Form1tlj", .title = "3 Way Box Chance[2]", .build = BuildMember<Build, kRun>},
        {.object = "Form1zu3bai10",
         .title = "3 Way Box Chance[3]",
         .build = BuildMember<Build, kTensIsZero>},
    };
    return kReports;
}

}  // namespace numarel
