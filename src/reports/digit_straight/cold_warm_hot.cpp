#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/header_columns.h"
#include "frame/number_classes.h"
#include "reports/digit_straight/seven_drawing_ranking.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

constexpr int kCols = 37;
constexpr int kFirstPatternCol = 23;
constexpr int kLastPatternCol = 32;
constexpr int kCollapsedRows = 24;  // the first rows have no lists or too young a ranking

constexpr Rgb kPatternColour = MakeRgb(42, 219, 167);

// The three lists as they stand in a row, in rank order.
struct DigitClass {
    char letter;  // header of its columns
    int firstCol;
    int size;
    Rgb hitColour;  // a list cell holding a digit of the drawing
};
constexpr DigitClass kHot{'H', 12, 3, MakeRgb(255, 0, 200)};
constexpr DigitClass kWarm{'W', 15, 4, MakeRgb(225, 0, 0)};
constexpr DigitClass kCold{'C', 19, 3, MakeRgb(42, 140, 167)};
constexpr std::array<DigitClass, 3> kClasses{kHot, kWarm, kCold};

// Pattern headers: the numbers of Hot, Warm and Cold digits of a drawing.
constexpr std::array<std::string_view, 10> kPatterns{"003", "030", "300", "012", "021",
                                                     "102", "120", "201", "210", "111"};

void LayOut(ReportSheet& sheet) {
    sheet.SetColWidth(0, 1204);
    for (int d = 0; d <= 9; ++d) {
        sheet.SetColWidth(ranking_cols::kFirstCount + d, 2);
        sheet.SetNumber(0, ranking_cols::kFirstCount + d, d);
    }
    sheet.SetColWidth(11, 80);
    for (const DigitClass& cls : kClasses) {
        for (int c = cls.firstCol; c < cls.firstCol + cls.size; ++c) {
            sheet.SetColWidth(c, 258);
            sheet.SetText(0, c, std::string_view(&cls.letter, 1));
        }
    }
    sheet.SetColWidth(22, 80);
    for (int i = 0; i < static_cast<int>(kPatterns.size()); ++i) {
        sheet.SetColWidth(kFirstPatternCol + i, 400);
        sheet.SetText(0, kFirstPatternCol + i, kPatterns[static_cast<std::size_t>(i)]);
    }
    sheet.SetColWidth(33, 80);
    for (int c = ranking_cols::kFirstDigit; c < ranking_cols::kFirstDigit + 3; ++c)
        sheet.SetColWidth(c, 2);
}

// Compares a drawing from row 8 on with the lists of its own row, which rest on the seven
// drawings before it: paints the list cells its digits hit and marks its pattern, the column whose
// header is the numbers of Hot, Warm and Cold digits. A digit drawn twice counts twice; its list
// cell is painted once. A list cell no digit hit keeps its colour, but for the band of the middle
// ranks.
void MarkPattern(ReportSheet& sheet, const HeaderColumns& patternColumns, int r) {
    std::array<short, 3> digits{};
    for (int i = 0; i < 3; ++i)
        digits[static_cast<std::size_t>(i)] = sheet.CellNumber(r, ranking_cols::kFirstDigit + i);
    DigitsText pattern;
    for (const DigitClass& cls : kClasses) {
        int count = 0;
        for (int c = cls.firstCol; c < cls.firstCol + cls.size; ++c) {
            const int hits =
                static_cast<int>(std::count(digits.begin(), digits.end(), sheet.CellNumber(r, c)));
            count += hits;
            if (hits > 0)
                sheet.SetBackColor(r, c, cls.hitColour);
            else if (c >= ranking_cols::kFirstMiddleRank && c <= ranking_cols::kLastMiddleRank)
                sheet.SetBackColor(r, c, ranking_colours::kMiddleRanks);
        }
        pattern.Append(static_cast<short>(count));
    }
    if (const int c = patternColumns.Find(pattern); c >= 0) {
        sheet.SetText(r, c, pattern);
        sheet.SetBackColor(r, c, kPatternColour);
    }
}

// --- Next Box numbers ----------------------------------------------------------------------

// Items of a group drawn from one list, as positions in its ascending digits: "aab" is the
// smallest digit twice with the middle one.
constexpr std::array<std::string_view, 10> kThreeDigitItems{"abc", "aab", "aac", "abb", "bbc",
                                                            "acc", "bcc", "aaa", "bbb", "ccc"};
constexpr std::array<std::string_view, 20> kFourDigitItems{
    "abc", "abd", "acd", "bcd", "aab", "aac", "aad", "abb", "bbc", "bbd",
    "acc", "bcc", "ccd", "add", "bdd", "cdd", "aaa", "bbb", "ccc", "ddd"};

// How a group combines the lists.
enum class Combination {
    OneList,      // all three digits from `first`
    ColumnPairs,  // one digit of `first`, a pair of `second` taken by column
    DigitPairs,   // one digit of `first`, a pair of `second` taken by digit
    OneOfEach,    // a Hot, a Warm and a Cold digit
};

struct BoxGroup {
    std::string_view header;
    Combination combination;
    DigitClass first;
    DigitClass second;
};

constexpr std::array<BoxGroup, 9> kBoxGroups{{
    {"003:", Combination::OneList, kCold, kCold},
    {"030:", Combination::OneList, kWarm, kWarm},
    {"300:", Combination::OneList, kHot, kHot},
    {"012:", Combination::ColumnPairs, kWarm, kCold},
    {"021:", Combination::DigitPairs, kCold, kWarm},
    {"102:", Combination::DigitPairs, kHot, kCold},
    {"120:", Combination::DigitPairs, kHot, kWarm},
    {"210:", Combination::DigitPairs, kWarm, kHot},
    {"111:", Combination::OneOfEach, kHot, kHot},
}};

class BoxText {
public:
    BoxText(const ReportSheet& sheet, int row) : sheet_(sheet), row_(row) {}

    void Group(const BoxGroup& group) {
        text_ += group.header;
        text_ += "\r\n";
        switch (group.combination) {
            case Combination::OneList:
                OneList(group.first);
                break;
            case Combination::ColumnPairs:
                ColumnPairs(group.first, group.second);
                break;
            case Combination::DigitPairs:
                DigitPairs(group.first, group.second);
                break;
            case Combination::OneOfEach:
                OneOfEach();
                break;
        }
        text_ += "\r\n\r\n";
    }

    std::string Take() { return std::move(text_); }

private:
    short At(int col) const { return sheet_.CellNumber(row_, col); }

    // One Box Number, its digits in ascending order, and the blank behind it.
    void Item(short x, short y, short z) {
        CurrentDigits digits{x, y, z};
        SortDigits(digits);
        for (short d : digits)
            text_ += std::to_string(d);
        text_ += ' ';
    }

    void OneList(const DigitClass& cls) {
        std::vector<short> digits;
        for (int c = cls.firstCol; c < cls.firstCol + cls.size; ++c)
            digits.push_back(At(c));
        std::sort(digits.begin(), digits.end());
        auto pick = [&](char letter) { return digits[static_cast<std::size_t>(letter - 'a')]; };
        auto emit = [&](std::span<const std::string_view> items) {
            for (std::string_view item : items)
                Item(pick(item[0]), pick(item[1]), pick(item[2]));
        };
        if (cls.size == 4)
            emit(kFourDigitItems);
        else
            emit(kThreeDigitItems);
    }

    // The pairs by their columns in rank order: the different columns first, then each column
    // doubled; the single digit varies fastest.
    void ColumnPairs(const DigitClass& single, const DigitClass& pair) {
        const int p = pair.firstCol;
        std::vector<std::array<int, 2>> pairs;
        for (int j = p; j < p + pair.size; ++j)
            for (int k = j + 1; k < p + pair.size; ++k)
                pairs.push_back({j, k});
        for (int j = p; j < p + pair.size; ++j)
            pairs.push_back({j, j});
        for (auto [j, k] : pairs)
            for (int s = single.firstCol; s < single.firstCol + single.size; ++s)
                Item(At(s), At(j), At(k));
    }

    // Each unordered pair of different digits once (taken where the later column holds the
    // greater digit), then each digit doubled; the outer digit varies slowest.
    void DigitPairs(const DigitClass& outer, const DigitClass& pair) {
        for (bool doubled : {false, true}) {
            for (int o = outer.firstCol; o < outer.firstCol + outer.size; ++o)
                for (int j = pair.firstCol; j < pair.firstCol + pair.size; ++j)
                    for (int k = pair.firstCol; k < pair.firstCol + pair.size; ++k)
                        if (doubled ? At(k) == At(j) : At(k) > At(j)) Item(At(o), At(j), At(k));
        }
    }

    void OneOfEach() {
        for (int h = kHot.firstCol; h < kHot.firstCol + kHot.size; ++h)
            for (int w = kWarm.firstCol; w < kWarm.firstCol + kWarm.size; ++w)
                for (int c = kCold.firstCol; c < kCold.firstCol + kCold.size; ++c)
                    Item(At(h), At(w), At(c));
    }

    const ReportSheet& sheet_;
    int row_;
    std::string text_;
};

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.Resize(1, kCols);  // the header row is written before the drawings are counted
    LayOut(sheet);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 3, -1);
    SevenDrawingRanking ranking;
    const HeaderColumns patternColumns(sheet, kFirstPatternCol, kLastPatternCol, /*trim=*/false);
    // A row's lists rest on the rows above it only, so each row is worked whole while it is at
    // hand: its lists, the Warm band, and for a drawing with lists its pattern.
    FillSheet(
        sheet, drawings,
        [&](int r, CurrentDigits&) {
            ranking.Rank(sheet, r);
            // The Warm digits are banded; a row with a pattern bands them with its hits.
            if (r > kRankingDrawings)
                MarkPattern(sheet, patternColumns, r);
            else
                ShadeMiddleRanks(sheet, r);
        },
        DigitColumns{ranking_cols::kFirstDigit, ranking_cols::kFirstDigit + 1,
                     ranking_cols::kFirstDigit + 2});
    // The next drawing's row gets lists and no pattern; the last row is only banded.
    ranking.Rank(sheet, drawCount + 1);
    ShadeMiddleRanks(sheet, drawCount + 1);
    ShadeMiddleRanks(sheet, drawCount + 2);

    for (int r = 1; r <= kCollapsedRows && r < sheet.Rows(); ++r)
        sheet.SetRowHeight(r, 2);
    sheet.SetTopRow(sheet.Rows() - 1);
}

std::string NextBoxNumbersText(const ReportSheet& sheet) {
    const int row = sheet.Rows() - 2;  // the next drawing's row
    for (int c = ranking_cols::kFirstRank; c <= ranking_cols::kLastRank; ++c) {
        if (sheet.IsEmpty(row, c)) {
            return "No Box numbers yet: the Hot, Warm and Cold lists need at least " +
                   std::to_string(kRankingDrawings) + " drawings, and there are " +
                   std::to_string(std::max(sheet.DrawCount(), 0)) + ".\r\n";
        }
    }
    BoxText text(sheet, row);
    for (const BoxGroup& group : kBoxGroups)
        text.Group(group);
    return text.Take();
}

}  // namespace

// Cold Warm Hot: per drawing, the ten digits ranked over the seven drawings before it and split
// into three Hot, four Warm and three Cold digits, and the pattern of Hot, Warm and Cold digits
// the drawing fell into. The row after the last drawing holds the lists for the next drawing,
// and "Next Box numbers" shows the Box Numbers made from them.
std::span<const ReportDefinition> ColdWarmHotReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmrenwenleng",
         .title = "Cold Warm Hot",
         .build = Build,
         .loadOrder = LoadOrder::DesignedCaption,
         .markColour = MakeRgb(43, 145, 255),
         .extraButton = {.kind = ExtraButton::Kind::ToggleTextBox,
                         .caption = "Next Box numbers",
                         .shownCaption = "Hide Box numbers",
                         .text = NextBoxNumbersText}},
    };
    return kReports;
}

// The claims the scoreboard follows, each judged as the report judges it.
std::span<const ScoredMethod> ColdWarmHotMethods() {
    static constexpr ScoredMethod kMethods[] = {
    // The Box Number lists of "Next Box numbers", one per pattern: a drawing is in a list
    // when its pattern column holds the list's pattern. The lists rest on the Hot, Warm and
    // Cold digits of the row.
#define NUMAREL_HOT_WARM_COLD(text, col)      \
    {.object = "frmrenwenleng",               \
     .name = text,                            \
     .shape = ClaimShape::HotWarmColdPattern, \
     .firstClaimCol = 12,                     \
     .claimCount = 10,                        \
     .judgeCol = col,                         \
     .hitText = text,                         \
     .firstJudgedRow = 8,                     \
     .digitCol = 34,                          \
     .pattern = text}
        NUMAREL_HOT_WARM_COLD("003", 23), NUMAREL_HOT_WARM_COLD("030", 24),
        NUMAREL_HOT_WARM_COLD("300", 25), NUMAREL_HOT_WARM_COLD("012", 26),
        NUMAREL_HOT_WARM_COLD("021", 27), NUMAREL_HOT_WARM_COLD("102", 28),
        NUMAREL_HOT_WARM_COLD("120", 29), NUMAREL_HOT_WARM_COLD("210", 31),
        NUMAREL_HOT_WARM_COLD("111", 32),
#undef NUMAREL_HOT_WARM_COLD
    };
    return kMethods;
}

}  // namespace numarel
