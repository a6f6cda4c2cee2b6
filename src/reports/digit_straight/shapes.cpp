#include <array>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

// Both charts keep their designed caption, hold one empty row after the next drawing's row and
// keep H, T and U in columns of their own, from which the passes read them back.
// `work(row, digits)` runs on each drawing's row once its digits are written.
template <class Work = NoRowWork>
void StartSecondLoadOrder(std::span<const DrawRecord> drawings, ReportSheet& sheet,
                          DigitColumns digitColumns, Work&& work = {}) {
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 3, -1);
    FillSheet(sheet, drawings, work, digitColumns);
}

// --- Rise-Down shape ---------------------------------------------------------------------------

constexpr Rgb kSixWayShape = MakeRgb(42, 194, 91);
constexpr Rgb kTripleShape = MakeRgb(255, 0, 0);
constexpr Rgb kThreeWayShape = MakeRgb(102, 164, 244);

// A shape: "." marks the lowest digit, ":" the middle one, "|" the highest; equal digits share
// a sign. The table's order is the order of the columns, from column 1.
struct Shape {
    std::string_view signs;
    Rgb colour;
    bool (*holds)(int h, int t, int u);
};

constexpr std::array<Shape, 13> kShapes = {{
    {".:|", kSixWayShape, [](int h, int t, int u) { return h < t && t < u; }},
    {".|:", kSixWayShape, [](int h, int t, int u) { return h < u && u < t; }},
    {":.|", kSixWayShape, [](int h, int t, int u) { return t < h && h < u; }},
    {":|.", kSixWayShape, [](int h, int t, int u) { return u < h && h < t; }},
    {"|.:", kSixWayShape, [](int h, int t, int u) { return t < u && u < h; }},
    {"|:.", kSixWayShape, [](int h, int t, int u) { return u < t && t < h; }},
    {":::", kTripleShape, [](int h, int t, int u) { return h == t && t == u; }},
    {"..|", kThreeWayShape, [](int h, int t, int u) { return h == t && t < u; }},
    {".|.", kThreeWayShape, [](int h, int t, int u) { return h == u && u < t; }},
    {"|..", kThreeWayShape, [](int h, int t, int u) { return t == u && u < h; }},
    {".||", kThreeWayShape, [](int h, int t, int u) { return h < t && t == u; }},
    {"|.|", kThreeWayShape, [](int h, int t, int u) { return t < h && h == u; }},
    {"||.", kThreeWayShape, [](int h, int t, int u) { return u < h && h == t; }},
}};
constexpr int kRiseDownDigitCol = 14;

// --- Straight Number shape -----------------------------------------------------------------

// One block per class pair: the word column, the three letter columns, then the eight words.
struct WordBlock {
    int wordCol;
    std::string_view header;
    ClassPair pair;
    char markedLetter;  // the letter whose cells are coloured
    Rgb letterColour;
    Rgb wordColour;
};

constexpr std::array<WordBlock, 3> kWordBlocks = {{
    {1, "{OE}", ClassPair::OddEven, 'E', MakeRgb(42, 219, 167), MakeRgb(212, 219, 225)},
    {14, "{BS}", ClassPair::BigSmall, 'B', MakeRgb(127, 176, 237), MakeRgb(243, 140, 0)},
    {27, "{PC}", ClassPair::PrimeComposite, 'P', MakeRgb(236, 217, 136), MakeRgb(40, 203, 0)},
}};
constexpr int kFirstWordOffset = 4;
constexpr int kWordCount = 8;
constexpr int kStoreCol = 40;

void BuildRiseDownShape(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    // The header is written before the drawings are counted: the sheet starts as its header row.
    sheet.Resize(1, 17);
    sheet.SetColWidth(0, 1204);
    for (int c = 1; c <= 16; ++c)
        sheet.SetColWidth(c, 440);
    for (std::size_t i = 0; i < kShapes.size(); ++i)
        sheet.SetText(0, static_cast<int>(i) + 1, kShapes[i].signs);
    sheet.SetText(0, kRiseDownDigitCol, "H");
    sheet.SetText(0, kRiseDownDigitCol + 1, "T");
    sheet.SetText(0, kRiseDownDigitCol + 2, "U");

    StartSecondLoadOrder(drawings, sheet,
                         {kRiseDownDigitCol, kRiseDownDigitCol + 1, kRiseDownDigitCol + 2});

    for (int r = 1; r <= sheet.Rows() - 3; ++r) {
        const int h = sheet.CellNumber(r, kRiseDownDigitCol);
        const int t = sheet.CellNumber(r, kRiseDownDigitCol + 1);
        const int u = sheet.CellNumber(r, kRiseDownDigitCol + 2);
        for (std::size_t i = 0; i < kShapes.size(); ++i) {
            if (!kShapes[i].holds(h, t, u)) continue;
            const int col = static_cast<int>(i) + 1;
            sheet.SetText(r, col, kShapes[i].signs);
            sheet.SetBackColor(r, col, kShapes[i].colour);
            break;
        }
    }
    sheet.SetTopRow(sheet.Rows() - 1);
}

// Writes the letters of the digits and the word they make into row r, and colours the letters
// marked.
void WriteWord(ReportSheet& sheet, const WordBlock& block, int r,
               const std::array<int, 3>& digits) {
    std::string word;
    for (int p = 0; p < 3; ++p) {
        const char letter = DigitClassLetter(digits[static_cast<std::size_t>(p)], block.pair);
        const int col = block.wordCol + 1 + p;
        sheet.SetText(r, col, std::string_view(&letter, 1));
        if (letter == block.markedLetter) sheet.SetBackColor(r, col, block.letterColour);
        word += letter;
    }
    sheet.SetText(r, block.wordCol, word);
}

// The words of a block's header, as read back from row 0 once.
using WordHeaders = std::array<std::string, kWordCount>;

WordHeaders ReadWordHeaders(const ReportSheet& sheet, const WordBlock& block) {
    WordHeaders headers;
    for (int w = 0; w < kWordCount; ++w)
        headers[static_cast<std::size_t>(w)] = sheet.Text(0, block.wordCol + kFirstWordOffset + w);
    return headers;
}

// Marks the word column whose header equals the word of row r, read back from its cell.
void MarkWord(ReportSheet& sheet, const WordBlock& block, const WordHeaders& headers, int r) {
    ReportSheet::NumberDigits digits;
    const std::string_view word = sheet.TextView(r, block.wordCol, digits);
    for (int w = 0; w < kWordCount; ++w) {
        const std::string& header = headers[static_cast<std::size_t>(w)];
        if (header != word) continue;
        const int col = block.wordCol + kFirstWordOffset + w;
        sheet.SetText(r, col, header);
        sheet.SetBackColor(r, col, block.wordColour);
        return;
    }
}

void BuildStraightNumberShape(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    // The header is written before the drawings are counted: the sheet starts as its header row.
    sheet.Resize(1, 43);
    sheet.SetColWidth(0, 1204);
    for (const WordBlock& block : kWordBlocks) {
        sheet.SetColWidth(block.wordCol, 420);
        sheet.SetText(0, block.wordCol, block.header);
        for (int p = 0; p < 3; ++p) {
            sheet.SetColWidth(block.wordCol + 1 + p, 255);
            sheet.SetText(0, block.wordCol + 1 + p, std::string_view("HTU").substr(p, 1));
        }
        const auto& words = PatternStrings(block.pair);
        for (int w = 0; w < kWordCount; ++w) {
            const int col = block.wordCol + kFirstWordOffset + w;
            sheet.SetColWidth(col, 420);
            sheet.SetText(0, col, words[static_cast<std::size_t>(w)]);
        }
        sheet.SetColWidth(block.wordCol + kFirstWordOffset + kWordCount, 80);
    }
    for (int c = kStoreCol; c < kStoreCol + 3; ++c)
        sheet.SetColWidth(c, 2);

    std::array<WordHeaders, kWordBlocks.size()> headers;
    for (std::size_t b = 0; b < kWordBlocks.size(); ++b)
        headers[b] = ReadWordHeaders(sheet, kWordBlocks[b]);
    // Row by row, while its cells are at hand: the letters and the words from the digits read
    // back, then each word read back and matched.
    StartSecondLoadOrder(drawings, sheet, {kStoreCol, kStoreCol + 1, kStoreCol + 2},
                         [&](int r, CurrentDigits&) {
                             const std::array<int, 3> digits{sheet.CellNumber(r, kStoreCol),
                                                             sheet.CellNumber(r, kStoreCol + 1),
                                                             sheet.CellNumber(r, kStoreCol + 2)};
                             for (const WordBlock& block : kWordBlocks)
                                 WriteWord(sheet, block, r, digits);
                             for (std::size_t b = 0; b < kWordBlocks.size(); ++b)
                                 MarkWord(sheet, kWordBlocks[b], headers[b], r);
                         });
    sheet.SetTopRow(sheet.Rows() - 1);
}

}  // namespace

std::span<const ReportDefinition> ShapeReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmxingxiang",
         .title = "Rise-Down shape",
         .build = BuildRiseDownShape,
         .loadOrder = LoadOrder::DesignedCaption,
         .markColour = MakeRgb(42, 194, 91)},
        {.object = "frmjibenxingtai",
         .title = "Straight Number shape",
         .build = BuildStraightNumberShape,
         .loadOrder = LoadOrder::DesignedCaption,
         .markColour = MakeRgb(43, 145, 255)},
    };
    return kReports;
}

}  // namespace numarel
