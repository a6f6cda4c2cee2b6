// Matrices of drawings against fixed digit sets: a column per set, and in each cell a marker for
// how many of the drawing's distinct digits lie in that set.
#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kDistinctCol = 4;  // store: the drawing's distinct digits, read back per set
constexpr int kFirstSetCol = 5;

// The texts a cell gets when k of the drawing's distinct digits lie in the column's set.
struct Markers {
    std::string_view none;  // k = 0
    std::string_view one;   // k = 1
    std::string_view more;  // k = 2 or more
};

struct ColumnWidth {
    int col;
    int twips;
};

// What sets one matrix apart.
struct DigitSetMatrix {
    // The sets in column order from column 5; an empty text is a divider column. No sets: every
    // set of `setSize` distinct digits, in ascending order of their texts.
    std::span<const std::string_view> sets = {};
    int setSize = 0;
    int setWidth = 420;
    std::span<const ColumnWidth> otherWidths = {};
    Markers markers;
    // A column after the sets whose cell gets `noteMarker` when some set of the row got
    // `markers.more`; no header: the report has no such column.
    std::string_view noteHeader = {};
    std::string_view noteMarker = {};
};

constexpr std::string_view kTwoOfThreeSets[] = {"126", "158", "258", "349",
                                                "379", "039", "047", "568"};

// The ten runs of three digits, wrapping from 9 to 0, a divider, and the three classes of the
// remainder by 3.
constexpr std::string_view kSerialSets[] = {"012", "123", "234", "345", "456",  "567", "678",
                                            "789", "890", "901", "",    "0369", "147", "258"};
constexpr ColumnWidth kSerialWidths[] = {{.col = 15, .twips = 30}, {.col = 16, .twips = 480}};

constexpr Markers kOneOrMore = {.none = "", .one = " *", .more = "$"};
constexpr Markers kTwoOrMore = {.none = "", .one = "", .more = "$"};
constexpr Markers kNone = {.none = " 0", .one = "", .more = ""};
constexpr Markers kAny = {.none = "", .one = "$", .more = "$"};

constexpr DigitSetMatrix kTwoOfThreeFormula = {
    .sets = kTwoOfThreeSets,
    .markers = kOneOrMore,
    .noteHeader = "Y/N",
    .noteMarker = "   -Y-",
};
constexpr DigitSetMatrix kSerial = {
    .sets = kSerialSets,
    .otherWidths = kSerialWidths,
    .markers = kOneOrMore,
};
constexpr DigitSetMatrix kTwoFromThree = {
    .setSize = 3,
    .markers = kTwoOrMore,
};
constexpr DigitSetMatrix kTwoFromFour = {
    .setSize = 4,
    .setWidth = 480,
    .markers = kTwoOrMore,
};
constexpr DigitSetMatrix kNoneFromThree = {
    .setSize = 3,
    .markers = kNone,
};
constexpr DigitSetMatrix kNoneFromFour = {
    .setSize = 4,
    .setWidth = 480,
    .markers = kNone,
};
constexpr DigitSetMatrix kOneTwoFromTwo = {
    .setSize = 2,
    .setWidth = 300,
    .markers = kOneOrMore,
};
constexpr DigitSetMatrix kAnyFromThree = {
    .setSize = 3,
    .markers = kAny,
};

// Every set of `size` distinct digits as ascending text, the sets in ascending order: each digit
// starts one above the digit before it.
std::vector<std::string> AllSets(int size) {
    std::vector<std::string> sets;
    std::string set;
    auto extend = [&](auto& self, int from) -> void {
        if (static_cast<int>(set.size()) == size) {
            sets.push_back(set);
            return;
        }
        for (int d = from; d <= 9; ++d) {
            set.push_back(static_cast<char>('0' + d));
            self(self, d + 1);
            set.pop_back();
        }
    };
    extend(extend, 0);
    return sets;
}

// The digit characters of a text: a bit per digit, and how often each occurs.
struct DigitTally {
    std::uint16_t mask = 0;
    bool repeats = false;
    std::array<std::uint8_t, 10> counts{};
};

DigitTally Tally(std::string_view text) {
    DigitTally tally;
    for (char ch : text) {
        if (ch < '0' || ch > '9') continue;
        const int d = ch - '0';
        const auto bit = static_cast<std::uint16_t>(1u << d);
        if (tally.mask & bit) tally.repeats = true;
        tally.mask |= bit;
        ++tally.counts[static_cast<std::size_t>(d)];
    }
    return tally;
}

// The number of pairs of equal characters, one from each text, as a scan of every character of
// one text against every character of the other counts them. Texts of distinct digits, the
// normal case, share exactly the digits of both masks.
int MatchingCharacters(const DigitTally& set, const DigitTally& drawn) {
    if (!set.repeats && !drawn.repeats)
        return std::popcount(static_cast<unsigned>(set.mask & drawn.mask));
    int k = 0;
    for (std::size_t d = 0; d < 10; ++d)
        k += set.counts[d] * drawn.counts[d];
    return k;
}

// Marks the rows of a matrix: the sets are read back from the header row once, each row's
// drawn digits from its store cell.
class RowMarker {
public:
    RowMarker(const DigitSetMatrix& report, ReportSheet& sheet, int lastSetCol, int noteCol)
        : sheet_(sheet),
          markers_{report.markers.none, report.markers.one, report.markers.more},
          noteCol_(noteCol),
          noteMarker_(report.noteMarker) {
        // A column with an empty header is a divider.
        for (int c = kFirstSetCol; c <= lastSetCol; ++c)
            if (!sheet.IsEmpty(0, c)) columns_.push_back({c, Tally(sheet.Text(0, c))});
        scored_.fill(-1);
    }

    void Mark(int row) {
        ReportSheet::NumberDigits digits;
        const DigitTally drawn = Tally(sheet_.TextView(row, kDistinctCol, digits));
        RowMarks unusual;
        const RowMarks* marks = &unusual;
        if (drawn.repeats) {
            unusual = Score(drawn);
        } else {
            int& index = scored_[drawn.mask];
            if (index < 0) {
                index = static_cast<int>(rowMarks_.size());
                rowMarks_.push_back(Score(drawn));
            }
            marks = &rowMarks_[static_cast<std::size_t>(index)];
        }
        for (std::size_t k = 0; k < 3; ++k)
            if (!markers_[k].empty()) sheet_.SetText(row, marks->cols[k], markers_[k]);
        if (marks->note) sheet_.SetText(row, noteCol_, noteMarker_);
    }

private:
    struct SetColumn {
        int col;
        DigitTally digits;
    };
    struct RowMarks {
        std::array<std::vector<int>, 3> cols;  // the set columns where k is 0, 1, 2 or more
        bool note = false;
    };

    RowMarks Score(const DigitTally& drawn) const {
        RowMarks marks;
        for (const SetColumn& set : columns_) {
            const int k = MatchingCharacters(set.digits, drawn);
            marks.cols[static_cast<std::size_t>(std::min(k, 2))].push_back(set.col);
            marks.note = marks.note || k >= 2;
        }
        return marks;
    }

    ReportSheet& sheet_;
    std::array<std::string_view, 3> markers_;
    int noteCol_;
    std::string_view noteMarker_;
    std::vector<SetColumn> columns_;
    // A row's markers depend only on its drawn digits, so each set of digits is scored once, by
    // its mask; malformed texts that repeat a digit are scored where they occur.
    std::array<int, 1024> scored_;  // index into rowMarks_, -1: not scored yet
    std::vector<RowMarks> rowMarks_;
};

void Build(const DigitSetMatrix& report, std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    const std::vector<std::string> generated =
        report.sets.empty() ? AllSets(report.setSize) : std::vector<std::string>{};
    std::vector<std::string_view> sets(report.sets.begin(), report.sets.end());
    sets.insert(sets.end(), generated.begin(), generated.end());
    const int lastSetCol = kFirstSetCol + static_cast<int>(sets.size()) - 1;
    const int noteCol = report.noteHeader.empty() ? -1 : lastSetCol + 1;

    sheet.SetCols(report.noteHeader.empty() ? lastSetCol + 1 : noteCol + 1);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    for (int c = kFirstSetCol; c <= lastSetCol; ++c)
        sheet.SetColWidth(c, report.setWidth);
    for (const ColumnWidth& w : report.otherWidths)
        sheet.SetColWidth(w.col, w.twips);
    sheet.SetColWidth(kDistinctCol, 30);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    HeadDigitColumns(sheet);
    for (std::size_t i = 0; i < sets.size(); ++i)
        sheet.SetText(0, kFirstSetCol + static_cast<int>(i), sets[i]);
    sheet.SetText(0, noteCol, report.noteHeader);

    // A row's markers depend on nothing but the header and the row's own digits, so each row is
    // marked as soon as its digits are in, while its cells are still at hand: on the widest
    // sheets a second walk over the rows would fetch every row from memory again.
    RowMarker marker(report, sheet, lastSetCol, noteCol);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        SortDigits(digits);
        sheet.SetText(row, kDistinctCol, DistinctDigits(digits));
        marker.Mark(row);
    });
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> DigitFormulaReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmz3b2",
         .title = "Other recommend digits-[2/3 formula]",
         .build = BuildMember<Build, kTwoOfThreeFormula>},
        {.object = "frmdanma3",
         .title = "Other recommend digits-[Serial]",
         .build = BuildMember<Build, kSerial>},
        {.object = "frmdanma3c2",
         .title = "2 digits from 3 digits",
         .build = BuildMember<Build, kTwoFromThree>},
        {.object = "frmdanma4",
         .title = "2 digits from 4 digits",
         .build = BuildMember<Build, kTwoFromFour>},
        {.object = "frmdanma30",
         .title = "0 digits from 3 digits",
         .build = BuildMember<Build, kNoneFromThree>},
        {.object = "frmdanma40",
         .title = "0 digits from 4 digits",
         .build = BuildMember<Build, kNoneFromFour>},
        {.object = "frmdanma212",
         .title = "1-2 digits from 2 digits",
         .build = BuildMember<Build, kOneTwoFromTwo>},
        {.object = "frmdanma313",
         .title = "1-3 digits from 3 digits",
         .build = BuildMember<Build, kAnyFromThree>},
    };
    return kReports;
}

}  // namespace numarel
