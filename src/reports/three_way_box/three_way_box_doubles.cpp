#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/label_forms.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

// Working texts of the sorted digits a <= b <= c, carried from FillSheet to the classifying pass.
constexpr int kLowPairCol = 4;    // "ab"
constexpr int kHighPairCol = 5;   // "bc"
constexpr int kOuterPairCol = 6;  // "ac"
constexpr int kBoxMarkCol = 7;
constexpr int kFirstDoubleCol = 8;
constexpr int kLastDoubleCol = 17;
constexpr int kFirstClassCol = 18;

constexpr Rgb kClassBack = MakeRgb(158, 140, 255);
constexpr Rgb kMissFore = MakeRgb(188, 194, 182);
constexpr Rgb kLabelFore = MakeRgb(0, 0, 255);
constexpr Rgb kLabelBack = MakeRgb(192, 192, 0);

enum class Column0 { DateAndDigits, DateAlone };

// Writes the class found for a drawing with double `d` (0, 11, ..., 99) on row `row`.
using Classify = void (*)(ReportSheet& sheet, int row, int d);

// What sets the two reports apart.
struct DoublesReport {
    int cols;
    Column0 column0;
    int col0Width;
    int digitWidth;
    int boxMarkWidth;
    int doubleWidth;
    // Columns from kFirstClassCol on, in order; an empty header is a separator.
    std::span<const std::string_view> classHeaders;
    int classWidth;
    int separatorWidth;
    Classify classify;
    std::span<const std::string_view> labels;
};

// Marks a class cell: it holds its column's header text, on the back colour `back`.
void MarkClass(ReportSheet& sheet, int row, int col, Rgb back) {
    sheet.SetText(row, col, sheet.Text(0, col));
    sheet.SetBackColor(row, col, back);
}

bool IsPrimeDouble(int d) {
    return IsPrime(d / 11);
}

// The double against the third digit: by size, parity and primeness.
void ClassifyWithThirdDigit(ReportSheet& sheet, int row, int d) {
    const short outer = sheet.CellNumber(row, kOuterPairCol);
    const int a = outer / 10;
    const int c = outer % 10;
    int sizeCol = -1;
    if (d < 55 && c > 4)
        sizeCol = 19;  // 2S1B
    else if (d > 44 && a < 5)
        sizeCol = 20;  // 2B1S
    else if (d < 55 && c < 5)
        sizeCol = 21;  // 3S
    else if (d > 44 && a > 4)
        sizeCol = 22;  // 3B
    if (sizeCol >= 0) MarkClass(sheet, row, sizeCol, colours::kHit);

    // Parity and primeness look at the digits as drawn.
    bool anyOdd = false;
    bool anyEven = false;
    bool anyPrime = false;
    bool anyComposite = false;
    for (int col = 1; col <= 3; ++col) {
        const short digit = sheet.CellNumber(row, col);
        (IsOdd(digit) ? anyOdd : anyEven) = true;
        (IsPrime(digit) ? anyPrime : anyComposite) = true;
    }
    const bool evenDouble = d % 2 == 0;
    int parityCol = -1;
    if (anyOdd && evenDouble)
        parityCol = 24;  // 2E1O
    else if (anyEven && !evenDouble)
        parityCol = 25;  // 2O1E
    else if (!anyOdd && evenDouble)
        parityCol = 26;  // 3E
    else if (!anyEven && !evenDouble)
        parityCol = 27;  // 3O
    if (parityCol >= 0) MarkClass(sheet, row, parityCol, kClassBack);

    const bool primeDouble = IsPrimeDouble(d);
    if (!primeDouble && anyPrime) {
        MarkClass(sheet, row, 30, colours::kHit);  // 2C1P
    } else if (primeDouble && anyComposite) {
        MarkClass(sheet, row, 29, colours::kHit);  // 2P1C
    }
    if (primeDouble && !anyComposite) {
        MarkClass(sheet, row, 31, colours::kHit);  // 3P
    } else if (!primeDouble && !anyPrime) {
        MarkClass(sheet, row, 32, colours::kHit);  // 3C
    }
}

// The double on its own; the third digit is not looked at.
void ClassifyDoubleAlone(ReportSheet& sheet, int row, int d) {
    MarkClass(sheet, row, d < 55 ? 19 : 20, colours::kHit);  // Small, Big
    const int digit = d / 11;
    int typeCol = 24;  // 2Type
    if (d % 3 == 0)
        typeCol = 22;  // 0Type
    else if (digit % 3 == 1)
        typeCol = 23;  // 1Type
    MarkClass(sheet, row, typeCol, kClassBack);
    MarkClass(sheet, row, d % 2 == 0 ? 26 : 27, colours::kHit);     // Even, Odd
    MarkClass(sheet, row, IsPrimeDouble(d) ? 30 : 29, kClassBack);  // Prime, Composite
}

constexpr std::string_view kTypeHeaders[] = {
    "", "2S1B", "2B1S", "3S", "3B", "", "2E1O", "2O1E", "3E", "3O", "", "2P1C", "2C1P", "3P", "3C",
};
constexpr std::string_view kTypeLabels[] = {
    "[S:Small],[B:Big],[E:Even],[O:Odd],[P:Prime],[C:Composite].",
};
constexpr std::string_view kTrendHeaders[] = {
    "", "Small", "Big", "", "0Type", "1Type", "2Type", "", "Even", "Odd", "", "Composite", "Prime",
};
constexpr std::string_view kTrendLabels[] = {
    "Small:00,11,22,33,44;Big:55,66,77,88,99;Composite:00,44,66,88,99;Prime:11,22,33,55,77.",
    "0Type:00,33,66,99;1Type:11,44,77;2Type:22,55,88.",
};

constexpr DoublesReport kType = {
    .cols = 33,
    .column0 = Column0::DateAndDigits,
    .col0Width = 1118,
    .digitWidth = 320,
    .boxMarkWidth = 360,
    .doubleWidth = 360,
    .classHeaders = kTypeHeaders,
    .classWidth = 660,
    .separatorWidth = 40,
    .classify = ClassifyWithThirdDigit,
    .labels = kTypeLabels,
};
constexpr DoublesReport kTrend = {
    .cols = 31,
    .column0 = Column0::DateAlone,
    .col0Width = 860,
    .digitWidth = 400,
    .boxMarkWidth = 600,
    .doubleWidth = 400,
    .classHeaders = kTrendHeaders,
    .classWidth = 600,
    .separatorWidth = 50,
    .classify = ClassifyDoubleAlone,
    .labels = kTrendLabels,
};

// Two digits side by side, such as "07" or "38".
void SetDigitPair(ReportSheet& sheet, int row, int col, int first, int second) {
    if (first >= 1 && first <= 9 && second >= 0 && second <= 9) {
        sheet.SetNumber(row, col, first * 10 + second);  // as the sheet keeps such a text
        return;
    }
    char text[16];
    char* end = std::to_chars(text, text + sizeof text, first).ptr;
    end = std::to_chars(end, text + sizeof text, second).ptr;
    sheet.SetText(row, col, std::string_view(text, static_cast<std::size_t>(end - text)));
}

// Column 0 in the report's own form, written over the label FillSheet wrote.
void RewriteLabel(ReportSheet& sheet, int row, Column0 form) {
    ReportSheet::NumberDigits digits;
    const std::string_view label = sheet.TextView(row, 0, digits);
    char text[64];
    std::size_t size = 0;
    if (label.size() > sizeof text) {  // no drawing's label is this long
        const std::string copy(label);
        sheet.SetText(row, 0,
                      form == Column0::DateAlone ? DateOfLabel(copy) : CompactLabel(copy, ':'));
        return;
    }
    if (form == Column0::DateAlone) {
        size = std::min(label.find(':'), label.size());
        std::copy_n(label.data(), size, text);
    } else {
        for (char c : label)
            if (c != ' ') text[size++] = c;
    }
    sheet.SetText(row, 0, std::string_view(text, size));
}

void Build(const DoublesReport& report, std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(report.cols);
    sheet.SetColWidth(0, report.col0Width);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, report.digitWidth);
    sheet.SetColWidth(kBoxMarkCol, report.boxMarkWidth);
    for (int c = kFirstDoubleCol; c <= kLastDoubleCol; ++c)
        sheet.SetColWidth(c, report.doubleWidth);
    for (std::size_t i = 0; i < report.classHeaders.size(); ++i)
        sheet.SetColWidth(kFirstClassCol + static_cast<int>(i), report.classHeaders[i].empty()
                                                                    ? report.separatorWidth
                                                                    : report.classWidth);
    for (int c = kLowPairCol; c <= kOuterPairCol; ++c)
        sheet.SetColWidth(c, 2);

    const int drawCount = CountDrawings(drawings);
    const int maxMissRow = drawCount + 4;
    ResetSheet(sheet, drawCount, drawCount + 5);

    // The headers come first, so that each drawing is classed while its row is at hand.
    HeadDigitColumns(sheet);
    for (int c = kFirstDoubleCol; c <= kLastDoubleCol; ++c)
        SetDigitPair(sheet, 0, c, c - kFirstDoubleCol, c - kFirstDoubleCol);
    for (std::size_t i = 0; i < report.classHeaders.size(); ++i)
        sheet.SetText(0, kFirstClassCol + static_cast<int>(i), report.classHeaders[i]);
    std::array<short, kLastDoubleCol + 1> doubles{};
    for (int c = kFirstDoubleCol; c <= kLastDoubleCol; ++c)
        doubles[c] = sheet.CellNumber(0, c);

    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        RewriteLabel(sheet, row, report.column0);
        SortDigits(digits);
        SetDigitPair(sheet, row, kLowPairCol, digits[0], digits[1]);
        SetDigitPair(sheet, row, kHighPairCol, digits[1], digits[2]);
        SetDigitPair(sheet, row, kOuterPairCol, digits[0], digits[2]);

        // Classifying: the double is found by number among the working pairs just written; a
        // triple's outer pair is a multiple of 11 too, which is how it is told apart.
        if (sheet.CellNumber(row, kOuterPairCol) % 11 == 0) return;
        const short low = sheet.CellNumber(row, kLowPairCol);
        const short high = sheet.CellNumber(row, kHighPairCol);
        for (int c = kFirstDoubleCol; c <= kLastDoubleCol; ++c) {
            const int d = doubles[c];
            if (low != d && high != d) continue;
            MarkClass(sheet, row, c, colours::kHit);
            sheet.SetText(row, kBoxMarkCol, "-Y-");
            report.classify(sheet, row, d);
        }
    });

    FillMissCounters(sheet, kFirstDoubleCol, kLastDoubleCol);

    // Non-hit cells are greyed. A run counts only once it is closed, which the back colours
    // tell: a non-hit row whose colour differs from the row after it.
    sheet.SetText(maxMissRow, 0, "Max Miss");
    std::array<short, kLastDoubleCol + 1> maxMiss{};
    for (int r = 1; r <= drawCount; ++r)
        for (int c = kFirstDoubleCol; c <= kLastDoubleCol; ++c) {
            const Rgb back = sheet.BackColor(r, c);
            if (back == colours::kHit) continue;
            sheet.SetForeColor(r, c, kMissFore);
            if (r == drawCount || back == sheet.BackColor(r + 1, c)) continue;
            maxMiss[c] = std::max(maxMiss[c], sheet.CellNumber(r, c));
        }
    for (int c = kFirstDoubleCol; c <= kLastDoubleCol; ++c) {
        sheet.SetNumber(maxMissRow, c, maxMiss[c]);
        sheet.SetForeColor(maxMissRow, c, kMissFore);
    }

    std::vector<SheetLabel> labels;
    for (std::string_view text : report.labels)
        labels.push_back({std::string(text), kLabelFore, kLabelBack});
    sheet.SetLabels(std::move(labels));
    FinishLoad(sheet);
}

// What a double click on a column copies: for every hit that follows a non-hit row, the text of
// that row, each line ended by CR LF. In a double column these are the closed Miss lengths in
// file order.
std::string ClosedMissLengths(const ReportSheet& sheet, int col) {
    std::string text;
    for (int r = 2; r <= sheet.DrawCount(); ++r) {
        if (sheet.BackColor(r, col) != colours::kHit ||
            sheet.BackColor(r - 1, col) == colours::kHit)
            continue;
        text += sheet.Text(r - 1, col);
        text += "\r\n";
    }
    return text;
}

}  // namespace

// The 3 Way Box drawings by their double (00 to 99), with the Miss of every double and its
// longest closed Miss. Type classes the double together with the third digit; Trend classes the
// double alone.
std::span<const ReportDefinition> ThreeWayBoxDoublesReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmzu3leixing2",
         .title = "3 Way Box Type",
         .build = BuildMember<Build, kType>,
         .doubleClickText = ClosedMissLengths},
        {.object = "Form1zu3zh",
         .title = "3 Way Box Trend",
         .build = BuildMember<Build, kTrend>,
         .doubleClickText = ClosedMissLengths},
    };
    return kReports;
}

}  // namespace numarel
