#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 46;
constexpr int kTypeTextCol = 1;
constexpr int kFirstTypeCol = 2;     // H, T, U of the 012 Types
constexpr int kFirstPatternCol = 5;  // the ten sorted type patterns
constexpr int kPatternCount = 10;
constexpr int kFirstStoreCol = 43;         // H, T, U as drawn, hidden
constexpr int kFirstCountTraceOffset = 4;  // from a block's count column to its first trace
constexpr int kCountTraces = 4;

constexpr Rgb kFirstClass = MakeRgb(42, 219, 167);   // type "0", and E, B, P
constexpr Rgb kSecondClass = MakeRgb(249, 182, 85);  // type "1", and O, S, C
constexpr Rgb kTrace = MakeRgb(127, 176, 206);
constexpr Rgb kMark = MakeRgb(43, 145, 255);

constexpr std::string_view kPatterns[kPatternCount] = {"000", "111", "222", "012", "001",
                                                       "002", "011", "112", "022", "122"};

// A block of one class pair: the count column, H T U letters, then the count as a trace whose
// headers name the count first ("0E", "3E", "2E", "1E").
struct CountBlock {
    int countCol;
    std::string_view header;
    ClassPair pair;
    char countedLetter;  // the letter that is counted and coloured as the first class
    std::array<std::string_view, kCountTraces> traces;
};

constexpr std::array<CountBlock, 3> kBlocks = {{
    {16, "Even", ClassPair::OddEven, 'E', {"0E", "3E", "2E", "1E"}},
    {25, "Big", ClassPair::BigSmall, 'B', {"0B", "3B", "2B", "1B"}},
    {34, "Prime", ClassPair::PrimeComposite, 'P', {"0P", "3P", "2P", "1P"}},
}};

constexpr std::string_view kPositions[3] = {"H", "T", "U"};

void SetWidthsAndHeaders(ReportSheet& sheet) {
    sheet.SetColWidth(0, 1204);
    sheet.SetColWidth(kTypeTextCol, 860);
    sheet.SetText(0, kTypeTextCol, "012Type");
    for (int p = 0; p < 3; ++p) {
        sheet.SetColWidth(kFirstTypeCol + p, 255);
        sheet.SetText(0, kFirstTypeCol + p, kPositions[p]);
    }
    for (int i = 0; i < kPatternCount; ++i) {
        sheet.SetColWidth(kFirstPatternCol + i, 420);
        sheet.SetText(0, kFirstPatternCol + i, kPatterns[i]);
    }
    for (const CountBlock& block : kBlocks) {
        sheet.SetColWidth(block.countCol - 1, 80);  // divider before the block
        sheet.SetColWidth(block.countCol, 860);
        sheet.SetText(0, block.countCol, block.header);
        for (int p = 0; p < 3; ++p) {
            sheet.SetColWidth(block.countCol + 1 + p, 255);
            sheet.SetText(0, block.countCol + 1 + p, kPositions[p]);
        }
        for (int i = 0; i < kCountTraces; ++i) {
            const int col = block.countCol + kFirstCountTraceOffset + i;
            sheet.SetColWidth(col, 588);
            sheet.SetText(0, col, block.traces[static_cast<std::size_t>(i)]);
        }
    }
    sheet.SetColWidth(kFirstStoreCol - 1, 80);  // divider before the store
    for (int p = 0; p < 3; ++p)
        sheet.SetColWidth(kFirstStoreCol + p, 2);
}

// Per position: the 012 Type and the three class letters, coloured by class; then the type text
// and the three counts.
void DescribeDrawing(ReportSheet& sheet, int r) {
    std::string typeText;
    std::array<int, kBlocks.size()> counts{};
    for (int p = 0; p < 3; ++p) {
        const int digit = sheet.CellNumber(r, kFirstStoreCol + p);
        const int type = Type012(digit);
        sheet.SetNumber(r, kFirstTypeCol + p, type);
        if (type == 0) sheet.SetBackColor(r, kFirstTypeCol + p, kFirstClass);
        if (type == 1) sheet.SetBackColor(r, kFirstTypeCol + p, kSecondClass);
        typeText += static_cast<char>('0' + type);
        for (std::size_t b = 0; b < kBlocks.size(); ++b) {
            const char letter = DigitClassLetter(digit, kBlocks[b].pair);
            const int col = kBlocks[b].countCol + 1 + p;
            sheet.SetText(r, col, std::string_view(&letter, 1));
            if (letter == kBlocks[b].countedLetter) {
                sheet.SetBackColor(r, col, kFirstClass);
                ++counts[b];
            } else {
                sheet.SetBackColor(r, col, kSecondClass);
            }
        }
    }
    sheet.SetText(r, kTypeTextCol, typeText);
    for (std::size_t b = 0; b < kBlocks.size(); ++b)
        sheet.SetNumber(r, kBlocks[b].countCol, counts[b]);
}

// A run of trace columns with their headers, as read back from row 0 once.
class TraceColumns {
public:
    TraceColumns(const ReportSheet& sheet, int firstCol, int count) : firstCol_(firstCol) {
        for (int c = firstCol; c < firstCol + count; ++c) {
            values_.push_back(sheet.CellNumber(0, c));
            texts_.push_back(sheet.Text(0, c));
        }
    }
    // Under the first header that reads as `value`: the header's text and the trace colour.
    void Mark(ReportSheet& sheet, int r, int value) const {
        for (std::size_t i = 0; i < values_.size(); ++i) {
            if (values_[i] != value) continue;
            const int col = firstCol_ + static_cast<int>(i);
            sheet.SetText(r, col, texts_[i]);
            sheet.SetBackColor(r, col, kTrace);
            return;
        }
    }

private:
    int firstCol_;
    std::vector<short> values_;
    std::vector<std::string> texts_;
};

// The sorted type pattern and the three counts, each as a cell under the header that reads as
// its number ("012" reads as 12, "2E" as 2).
struct Traces {
    explicit Traces(const ReportSheet& sheet)
        : patterns(sheet, kFirstPatternCol, kPatternCount),
          counts{{{sheet, kBlocks[0].countCol + kFirstCountTraceOffset, kCountTraces},
                  {sheet, kBlocks[1].countCol + kFirstCountTraceOffset, kCountTraces},
                  {sheet, kBlocks[2].countCol + kFirstCountTraceOffset, kCountTraces}}} {}

    void Mark(ReportSheet& sheet, int r) const {
        CurrentDigits types;
        for (int p = 0; p < 3; ++p)
            types[static_cast<std::size_t>(p)] = sheet.CellNumber(r, kFirstTypeCol + p);
        SortDigits(types);
        patterns.Mark(sheet, r, types[0] * 100 + types[1] * 10 + types[2]);
        for (std::size_t b = 0; b < kBlocks.size(); ++b)
            counts[b].Mark(sheet, r, sheet.CellNumber(r, kBlocks[b].countCol));
    }

    TraceColumns patterns;
    std::array<TraceColumns, kBlocks.size()> counts;
};

// Keeps its designed caption: widths and header first, one empty row after the next drawing's.
void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.Resize(1, kCols);
    SetWidthsAndHeaders(sheet);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 3, -1);
    // The header is written, so each row is described and traced while it is at hand.
    const Traces traces(sheet);
    FillSheet(sheet, drawings,
              [&](int r, CurrentDigits&) {
                  DescribeDrawing(sheet, r);
                  traces.Mark(sheet, r);
              },
              {kFirstStoreCol, kFirstStoreCol + 1, kFirstStoreCol + 2});
    sheet.SetRowHeight(0, 300);
    sheet.SetTopRow(sheet.Rows() - 1);
}

}  // namespace

std::span<const ReportDefinition> BoxNumberShapeReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmzuxuan012lu",
         .title = "Box Number Shape",
         .build = Build,
         .loadOrder = LoadOrder::DesignedCaption,
         .help = HelpButton::Hidden,
         .markColour = kMark},
    };
    return kReports;
}

}  // namespace numarel
