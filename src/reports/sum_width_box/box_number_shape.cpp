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

// A run of trace columns as their headers read: each header's number, and its text made ready
// to be written.
class TraceHeaders {
public:
    TraceHeaders(ReportSheet& sheet, int first, int count) : firstCol_(first) {
        byValue_.fill(-1);
        for (int c = first; c < first + count; ++c) {
            const int value = sheet.CellNumber(0, c);
            const auto i = values_.size();
            values_.push_back(value);
            texts_.push_back(sheet.Text(0, c));
            // The first header of a value is the one marked.
            if (value >= 0 && value < static_cast<int>(byValue_.size()) &&
                byValue_[static_cast<std::size_t>(value)] < 0)
                byValue_[static_cast<std::size_t>(value)] = static_cast<int>(i);
        }
        // Made ready once the texts stand still: the keys view them.
        for (const std::string& text : texts_)
            keys_.push_back(sheet.Prepare(text));
    }
    TraceHeaders(const TraceHeaders&) = delete;
    TraceHeaders& operator=(const TraceHeaders&) = delete;

    // Under the first header that reads as `value`, its text and the trace colour.
    void Mark(ReportSheet& sheet, int row, int value) const {
        const int i = Find(value);
        if (i < 0) return;
        const int col = firstCol_ + i;
        sheet.SetText(row, col, keys_[static_cast<std::size_t>(i)]);
        sheet.SetBackColor(row, col, kTrace);
    }

private:
    int Find(int value) const {
        if (value >= 0 && value < static_cast<int>(byValue_.size()))
            return byValue_[static_cast<std::size_t>(value)];
        for (std::size_t i = 0; i < values_.size(); ++i)
            if (values_[i] == value) return static_cast<int>(i);
        return -1;
    }

    int firstCol_;
    std::vector<int> values_;
    std::vector<std::string> texts_;
    std::vector<ReportSheet::TextKey> keys_;
    std::array<int, 256> byValue_;  // the index of the first header of a small value; -1 none
};

// The texts a row writes, made ready once: the class letters, and the type texts "000" to
// "222" by the value of their three types as digits in base 3.
class RowTexts {
public:
    explicit RowTexts(ReportSheet& sheet) {
        for (std::size_t b = 0; b < kBlocks.size(); ++b) {
            const auto& words = PatternStrings(kBlocks[b].pair);
            letters_[b] = {sheet.Prepare(words.front().substr(0, 1)),
                           sheet.Prepare(words.back().substr(0, 1))};
        }
        static constexpr auto kTypeTexts = [] {
            std::array<std::array<char, 3>, 27> texts{};
            for (std::size_t i = 0; i < texts.size(); ++i)
                texts[i] = {static_cast<char>('0' + i / 9), static_cast<char>('0' + i / 3 % 3),
                            static_cast<char>('0' + i % 3)};
            return texts;
        }();
        for (std::size_t i = 0; i < kTypeTexts.size(); ++i)
            types_[i] = sheet.Prepare(std::string_view(kTypeTexts[i].data(), 3));
    }

    // The key of `letter` of block b; null when the letter is not one of its pair.
    const ReportSheet::TextKey* Letter(std::size_t b, char letter) const {
        const auto& keys = letters_[b];
        return letter == keys[1].text[0]   ? &keys[1]
               : letter == keys[0].text[0] ? &keys[0]
                                           : nullptr;
    }
    const ReportSheet::TextKey& Types(std::size_t index) const { return types_[index]; }

private:
    std::array<std::array<ReportSheet::TextKey, 2>, kBlocks.size()> letters_;
    std::array<ReportSheet::TextKey, 27> types_;
};

// Per position: the 012 Type and the three class letters, coloured by class; then the type text
// and the three counts.
void DescribeDrawing(ReportSheet& sheet, const RowTexts& texts, int r) {
    // Which class a cell is in is anybody's guess: each cell goes to the end of both colour lists
    // and only the list of its class keeps it, with no branch.
    std::array<int, 12> firstClass;
    std::array<int, 12> secondClass;
    std::size_t firstCount = 0;
    std::size_t secondCount = 0;
    auto list = [&](int col, bool first, bool second) {
        firstClass[firstCount] = secondClass[secondCount] = col;
        firstCount += first ? 1 : 0;
        secondCount += second ? 1 : 0;
    };
    char typeText[3];
    std::size_t typeIndex = 0;
    bool typesMadeReady = true;  // all three types 0 to 2
    std::array<int, kBlocks.size()> counts{};
    for (int p = 0; p < 3; ++p) {
        const int digit = sheet.CellNumber(r, kFirstStoreCol + p);
        const int type = Type012(digit);
        sheet.SetNumber(r, kFirstTypeCol + p, type);
        list(kFirstTypeCol + p, type == 0, type == 1);
        typeText[p] = static_cast<char>('0' + type);
        typesMadeReady = typesMadeReady && type >= 0 && type <= 2;
        typeIndex = typeIndex * 3 + static_cast<std::size_t>(type);
        for (std::size_t b = 0; b < kBlocks.size(); ++b) {
            const char letter = DigitClassLetter(digit, kBlocks[b].pair);
            const int col = kBlocks[b].countCol + 1 + p;
            if (const ReportSheet::TextKey* key = texts.Letter(b, letter))
                sheet.SetText(r, col, *key);
            else
                sheet.SetText(r, col, std::string_view(&letter, 1));
            const bool counted = letter == kBlocks[b].countedLetter;
            list(col, counted, !counted);
            counts[b] += counted ? 1 : 0;
        }
    }
    sheet.SetBackColor(r, std::span<const int>(firstClass.data(), firstCount), kFirstClass);
    sheet.SetBackColor(r, std::span<const int>(secondClass.data(), secondCount), kSecondClass);
    if (typesMadeReady)
        sheet.SetText(r, kTypeTextCol, texts.Types(typeIndex));
    else
        sheet.SetText(r, kTypeTextCol, std::string_view(typeText, 3));
    for (std::size_t b = 0; b < kBlocks.size(); ++b)
        sheet.SetNumber(r, kBlocks[b].countCol, counts[b]);
}

// The header runs of the traces, read back from row 0.
struct TraceColumns {
    explicit TraceColumns(ReportSheet& sheet)
        : patterns(sheet, kFirstPatternCol, kPatternCount),
          counts{{{sheet, kBlocks[0].countCol + kFirstCountTraceOffset, kCountTraces},
                  {sheet, kBlocks[1].countCol + kFirstCountTraceOffset, kCountTraces},
                  {sheet, kBlocks[2].countCol + kFirstCountTraceOffset, kCountTraces}}} {}
    TraceHeaders patterns;
    std::array<TraceHeaders, kBlocks.size()> counts;
};

// The sorted type pattern and the three counts, each as a cell under the header that reads as
// its number ("012" reads as 12, "2E" as 2).
void TraceDrawing(ReportSheet& sheet, const TraceColumns& columns, int r) {
    CurrentDigits types;
    for (int p = 0; p < 3; ++p)
        types[static_cast<std::size_t>(p)] = sheet.CellNumber(r, kFirstTypeCol + p);
    SortDigits(types);
    columns.patterns.Mark(sheet, r, types[0] * 100 + types[1] * 10 + types[2]);
    for (std::size_t b = 0; b < kBlocks.size(); ++b)
        columns.counts[b].Mark(sheet, r, sheet.CellNumber(r, kBlocks[b].countCol));
}

// Keeps its designed caption: widths and header first, one empty row after the next drawing's.
void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.Resize(1, kCols);
    SetWidthsAndHeaders(sheet);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 3, -1);
    // The header is written, so each row is described and traced while it is at hand.
    const RowTexts texts(sheet);
    const TraceColumns traces(sheet);
    FillSheet(sheet, drawings,
              [&](int r, CurrentDigits&) {
                  DescribeDrawing(sheet, texts, r);
                  TraceDrawing(sheet, traces, r);
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
