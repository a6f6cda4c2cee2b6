#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kFirstBlockCol = 7;
constexpr int kSecondBlockCol = 36;
constexpr int kValueWidth = 300;
constexpr int kNarrowWidth = 2;

enum class Split { OddEven, SmallBig, PrimeComposite, RemainderBy5 };

// A set of values 0..31 as a bit mask.
constexpr std::uint32_t Values(std::initializer_list<int> values) {
    std::uint32_t mask = 0;
    for (int v : values)
        mask |= 1u << v;
    return mask;
}

// A number line: its values 0..lastValue stand in columns firstCol.., each headed with its value;
// the columns of values the class can never reach are narrowed, and no drawing marks them.
struct NumberLine {
    int firstCol;
    int lastValue;
    std::uint32_t unreachable;
};

// What sets the four reports apart.
struct DigitClassSums {
    Split split;
    int cols;
    int col5Width;
    int col6Width;
    int col35Width;
    NumberLine first;
    NumberLine second;  // lastValue < 0: no second block
};

const DigitClassSums kOddEven = {
    Split::OddEven,
    61,
    20,
    20,
    300,
    {kFirstBlockCol, 27, Values({20, 22, 24, 26})},
    {kSecondBlockCol, 24, Values({1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23})},
};

const DigitClassSums kSmallBig = {
    Split::SmallBig,
    64,
    20,
    20,
    300,
    {kFirstBlockCol, 27, Values({13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27})},
    {kSecondBlockCol, 27, Values({1, 2, 3, 4})},
};

const DigitClassSums kPrimeComposite = {
    Split::PrimeComposite,
    64,
    2,
    2,
    20,
    {kFirstBlockCol, 27, Values({18, 20, 22, 23, 24, 25, 26, 27})},
    {kSecondBlockCol, 27, Values({1, 2, 3, 5, 7, 11})},
};

const DigitClassSums kRemainderBy5 = {
    Split::RemainderBy5,
    20,
    300,
    20,
    300,
    {kFirstBlockCol, 12, Values({})},
    {kSecondBlockCol, -1, Values({})},
};

void LayOutNumberLine(ReportSheet& sheet, const NumberLine& line) {
    for (int v = 0; v <= line.lastValue; ++v) {
        int col = line.firstCol + v;
        sheet.SetColWidth(col, line.unreachable & (1u << v) ? kNarrowWidth : kValueWidth);
        sheet.SetNumber(0, col, v);
    }
}

// True when a digit adds to the first sum rather than the second.
bool InFirstClass(Split split, int digit) {
    switch (split) {
        case Split::OddEven:
            return IsOdd(digit);
        case Split::SmallBig:
            return IsSmall(digit);
        case Split::PrimeComposite:
            return IsPrime(digit);
        case Split::RemainderBy5:
            break;
    }
    return true;
}

void Build(const DigitClassSums& report, std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(report.cols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, kValueWidth);
    sheet.SetColWidth(4, 20);
    sheet.SetColWidth(5, report.col5Width);
    sheet.SetColWidth(6, report.col6Width);
    if (report.second.lastValue >= 0) sheet.SetColWidth(35, report.col35Width);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2);
    FillSheet(sheet, drawings);

    HeadDigitColumns(sheet);
    LayOutNumberLine(sheet, report.first);
    if (report.second.lastValue >= 0) LayOutNumberLine(sheet, report.second);
    FinishLoad(sheet);

    // The sums are made from the digits read back from the sheet.
    for (int r = 1; r <= drawCount; ++r) {
        short first = 0;
        short second = 0;
        for (int c = 1; c <= 3; ++c) {
            short digit = sheet.CellNumber(r, c);
            if (report.split == Split::RemainderBy5)
                first = static_cast<short>(first + digit % 5);
            else if (InFirstClass(report.split, digit))
                first = static_cast<short>(first + digit);
            else
                second = static_cast<short>(second + digit);
        }
        if (report.split == Split::RemainderBy5) sheet.SetNumber(r, 5, first);
        sheet.SetNumber(r, report.first.firstCol + first, first);
        sheet.SetBackColor(r, report.first.firstCol + first, colours::kFirstTrace);
        if (report.split != Split::RemainderBy5) {
            sheet.SetNumber(r, report.second.firstCol + second, second);
            sheet.SetBackColor(r, report.second.firstCol + second, colours::kHit);
        }
    }
}

}  // namespace

// Trend charts of the sums of a drawing's digits split into two classes: the sum of each class
// is written on its number line, so the rows form a moving trace. The last one has a single line:
// the sum of each digit's remainder by 5.
std::span<const ReportDefinition> DigitClassSumReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmbjiouhe",
         .title = "Sum of Odd-Sum of Even",
         .build = BuildMember<Build, kOddEven>},
        {.object = "frmbxiaodahe",
         .title = "Sum of Small-Sum of Big",
         .build = BuildMember<Build, kSmallBig>},
        {.object = "frmbzhihehe",
         .title = "Sum of Prime-Sum of Composite",
         .build = BuildMember<Build, kPrimeComposite>},
        {.object = "frm3shu5luhe",
         .title = "Sum of returns the remainder after each digital divide by 5",
         .build = BuildMember<Build, kRemainderBy5>},
    };
    return kReports;
}

}  // namespace numarel
