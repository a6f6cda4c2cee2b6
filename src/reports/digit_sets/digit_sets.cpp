#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

constexpr int kDistinctCol = 4;  // store of the drawing's distinct digits for the scoring pass
constexpr int kFirstSetCol = 5;

// What sets one report of the family apart; the defaults are what most of them share. The scan
// of a set runs over the digits its header holds.
struct DigitSetReport {
    std::span<const std::string_view> sets;
    int setWidth = 620;
    std::string_view hitMarker = "*****";
    // A 3 Way Box whose two digits lie in the set is a hit too, shown in red.
    bool threeWayBoxHits = false;
    int fontDecipoints = 68;  // the 6.75 pt grid font, to the nearest tenth
    int lastBlankCol = 6;     // of the next drawing's row
};

constexpr std::string_view kSixDigits[] = {"145789"};
constexpr std::string_view kSevenDigits[] = {"0124589"};

constexpr std::string_view kFourDigitSets[] = {
    "0126", "0134", "0159", "0178", "0239", "0247", "0258", "0357", "0368", "0456",
    "0489", "0679", "1237", "1245", "1289", "1358", "1369", "1468", "1479", "1567",
    "2348", "2356", "2469", "2579", "2678", "3459", "3467", "3789", "4578", "5689"};

constexpr std::string_view kFiveDigitSets[] = {"01249", "01268", "01346", "01467", "01569", "02357",
                                               "02458", "03789", "12359", "12378", "12589", "13478",
                                               "14579", "23456", "24679", "34689", "34678"};

constexpr std::string_view kSixDigitSets[] = {"012346", "012359", "012489", "013789", "026789",
                                              "045678", "123457", "156789", "234568", "345679"};

constexpr std::string_view kSevenDigitSets[] = {"0123489", "0156789", "0245678",
                                                "0345679", "1234567", "2356789"};

// Six consecutive digits, wrapping from 9 to 0.
constexpr std::string_view kSixDigitRuns[] = {"012345", "123456", "234567", "345678", "456789",
                                              "567890", "678901", "789012", "890123", "901234"};

// The digits of one 012 Type class with one more digit.
constexpr std::string_view k012TypeSets[] = {
    "1470", "1473", "1476", "1479", "1472",  "1475",  "1478",  "2580",  "2583",  "2586",
    "2589", "2581", "2584", "2587", "03691", "03694", "03697", "03692", "03695", "03698"};

constexpr std::string_view kMixedSets[] = {"036925", "147258", "1458"};

// A row's hits are gathered a bit per set.
static_assert(std::max({std::size(kSixDigits), std::size(kSevenDigits), std::size(kFourDigitSets),
                        std::size(kFiveDigitSets), std::size(kSixDigitSets),
                        std::size(kSevenDigitSets), std::size(kSixDigitRuns),
                        std::size(k012TypeSets), std::size(kMixedSets)}) <= 32);

constexpr DigitSetReport kSixWayThisSix = {
    .sets = kSixDigits, .setWidth = 806, .fontDecipoints = 75, .lastBlankCol = 5};
constexpr DigitSetReport kBoxThisSix = {.sets = kSixDigits,
                                        .setWidth = 806,
                                        .threeWayBoxHits = true,
                                        .fontDecipoints = 75,
                                        .lastBlankCol = 5};
constexpr DigitSetReport kSixWayThisSeven = {
    .sets = kSevenDigits, .setWidth = 806, .fontDecipoints = 75, .lastBlankCol = 5};
constexpr DigitSetReport kBoxThisSeven = {.sets = kSevenDigits,
                                          .setWidth = 806,
                                          .threeWayBoxHits = true,
                                          .fontDecipoints = 75,
                                          .lastBlankCol = 5};
constexpr DigitSetReport kSixWayTheseFour = {
    .sets = kFourDigitSets, .setWidth = 434, .hitMarker = "****"};
constexpr DigitSetReport kSixWayTheseFive = {.sets = kFiveDigitSets, .setWidth = 496};
constexpr DigitSetReport kSixWayTheseSix = {.sets = kSixDigitSets};
constexpr DigitSetReport kSixWayTheseSeven = {.sets = kSevenDigitSets, .setWidth = 682};
constexpr DigitSetReport kSixWayRuns = {.sets = kSixDigitRuns};
constexpr DigitSetReport kSixWay012Types = {
    .sets = k012TypeSets, .setWidth = 496, .hitMarker = "****"};
constexpr DigitSetReport kBoxTheseN = {
    .sets = kMixedSets, .hitMarker = "******", .threeWayBoxHits = true};

// How often each character stands in a set: a drawing's score is then the sum of these counts
// over its distinct digits, each matching place counted.
using SetCounts = std::array<std::uint8_t, 256>;

SetCounts CountsOf(std::string_view set) {
    SetCounts counts{};
    for (char c : set)
        ++counts[static_cast<unsigned char>(c)];
    return counts;
}

// The sets a drawing hits, a bit per set column (bit 0 for the first), and which of these hits are
// red.
struct SetHits {
    std::uint32_t all = 0;
    std::uint32_t red = 0;
};

// The sets each distinct-digit text hits, worked out when the text first comes: such texts are
// few, and every drawing has one.
class SetScorer {
public:
    SetScorer(std::vector<SetCounts> sets, bool threeWayBoxHits)
        : sets_(std::move(sets)), threeWayBoxHits_(threeWayBoxHits) {}

    SetHits HitsOf(std::string_view distinct) {
        const int place = PlaceOf(distinct);
        if (place < 0) return Score(distinct);
        Scored& scored = byPlace_[static_cast<std::size_t>(place)];
        if (!scored.known) scored = {Score(distinct), true};
        return scored.hits;
    }

private:
    // A place for each text of up to three digits: each character counts as 1 to 10 in base 11,
    // so that no two such texts share a place; -1 for any other text.
    static int PlaceOf(std::string_view text) {
        if (text.size() > 3) return -1;
        int place = 0;
        for (char c : text) {
            if (c < '0' || c > '9') return -1;
            place = place * 11 + (c - '0' + 1);
        }
        return place;
    }

    // The score of a set is the number of the text's characters that the set holds, each
    // matching place counted.
    SetHits Score(std::string_view distinct) const {
        SetHits hits;
        for (std::size_t i = 0; i < sets_.size(); ++i) {
            int score = 0;
            for (char d : distinct)
                score += sets_[i][static_cast<unsigned char>(d)];
            const bool red = threeWayBoxHits_ && score == 2 && distinct.size() == 2;
            if (score == 3 || red) hits.all |= 1u << i;
            if (red) hits.red |= 1u << i;
        }
        return hits;
    }

    struct Scored {
        SetHits hits;
        bool known = false;
    };
    std::vector<SetCounts> sets_;
    bool threeWayBoxHits_;
    std::array<Scored, 11 * 11 * 11> byPlace_{};
};

void Build(const DigitSetReport& report, std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    const int lastSetCol = kFirstSetCol + static_cast<int>(report.sets.size()) - 1;

    sheet.SetFontDecipoints(report.fontDecipoints);
    sheet.SetCols(lastSetCol + 1);
    sheet.SetColWidth(0, 1218);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    for (int c = kFirstSetCol; c <= lastSetCol; ++c)
        sheet.SetColWidth(c, report.setWidth);
    sheet.SetColWidth(kDistinctCol, 30);

    const int drawCount = CountDrawings(drawings);
    // Room for the statistic rows from the start, so that adding them does not move the
    // whole sheet.
    sheet.SetRows(drawCount + 6);
    ResetSheet(sheet, drawCount, drawCount + 2, report.lastBlankCol);

    // The headers come first, so that each drawing is scored while its row is at hand.
    HeadDigitColumns(sheet);
    for (std::size_t i = 0; i < report.sets.size(); ++i)
        sheet.SetText(0, kFirstSetCol + static_cast<int>(i), report.sets[i]);

    // The sets are whatever the header row says.
    std::vector<SetCounts> sets;
    for (int c = kFirstSetCol; c <= lastSetCol; ++c) {
        sets.push_back(CountsOf(sheet.Text(0, c)));
    }
    SetScorer scorer(std::move(sets), report.threeWayBoxHits);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        // The digits stay sorted: a field of the next drawing that cannot be read keeps its
        // sorted digit.
        SortDigits(digits);
        sheet.SetText(row, kDistinctCol, DistinctDigits(digits));
        ReportSheet::NumberDigits buffer;
        const SetHits hits = scorer.HitsOf(sheet.TextView(row, kDistinctCol, buffer));
        for (std::uint32_t rest = hits.all; rest != 0; rest &= rest - 1) {
            const int i = std::countr_zero(rest);
            sheet.SetText(row, kFirstSetCol + i, report.hitMarker);
            if (hits.red & (1u << i)) sheet.SetBackColor(row, kFirstSetCol + i, colours::kHit);
        }
    });
    FinishLoad(sheet);

    FillMissCountersAndStatisticRows(sheet, lastSetCol, report.hitMarker,
                                     AverageRule::EmptyWhenNoHit, kFirstSetCol);
}

}  // namespace

// How often the whole winning number falls inside fixed digit sets: a column per set with its
// hits and Miss numbers, and the statistic rows under them.
std::span<const ReportDefinition> DigitSetReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmgaopin6ma",
         .title = "6 Way Box winning number from this 6 digits",
         .build = BuildMember<Build, kSixWayThisSix>},
        {.object = "frmgaopin6ma36",
         .title = "Box winning number from this 6 digits",
         .build = BuildMember<Build, kBoxThisSix>},
        {.object = "frmgaopin7ma",
         .title = "6 Way Box winning number from this 7 digits",
         .build = BuildMember<Build, kSixWayThisSeven>},
        {.object = "frmgaopin7ma36",
         .title = "Box winning number from this 7 digits",
         .build = BuildMember<Build, kBoxThisSeven>},
        {.object = "frmzuxuan4",
         .title = "6 Way Box winning number from these 4 digits",
         .build = BuildMember<Build, kSixWayTheseFour>},
        {.object = "frmzuxuan1",
         .title = "6 Way Box winning number from these 5 digits",
         .build = BuildMember<Build, kSixWayTheseFive>},
        {.object = "frmzuxuan6",
         .title = "6 Way Box winning number from these 6 digits",
         .build = BuildMember<Build, kSixWayTheseSix>},
        {.object = "frmzuxuan7",
         .title = "6 Way Box winning number from these 7 digits",
         .build = BuildMember<Build, kSixWayTheseSeven>},
        {.object = "frm6lianhao",
         .title = "6 Way Box winning number from these 6 digits",
         .build = BuildMember<Build, kSixWayRuns>},
        {.object = "frmlingleizu6",
         .title = "6 Way Box winning number from these N digits",
         .build = BuildMember<Build, kSixWay012Types>},
        {.object = "frmzuxuanqt",
         .title = "Box winning number from these N digits",
         .build = BuildMember<Build, kBoxTheseN>},
    };
    return kReports;
}

// The claims the scoreboard follows, each judged as the report judges it.
// A report's sets as the scoreboard follows them: each set column a method, the set in its header
// and the hit marker in its cells.
constexpr ScoredMethod SetMethods(std::string_view object, const DigitSetReport& report) {
    return {.object = object,
            .kind = MethodKind::Set,
            .shape = report.threeWayBoxHits ? ClaimShape::DigitSetBox : ClaimShape::DigitSetSixWay,
            .firstClaimCol = kFirstSetCol,
            .claimInHeader = true,
            .judgeCol = kFirstSetCol,
            .hitText = report.hitMarker,
            .firstJudgedRow = 1,
            .eachColumn = static_cast<int>(report.sets.size())};
}

std::span<const ScoredMethod> DigitSetMethods() {
    static constexpr ScoredMethod kMethods[] = {
        SetMethods("frmgaopin6ma", kSixWayThisSix),   SetMethods("frmgaopin6ma36", kBoxThisSix),
        SetMethods("frmgaopin7ma", kSixWayThisSeven), SetMethods("frmgaopin7ma36", kBoxThisSeven),
        SetMethods("frmzuxuan4", kSixWayTheseFour),   SetMethods("frmzuxuan1", kSixWayTheseFive),
        SetMethods("frmzuxuan6", kSixWayTheseSix),    SetMethods("frmzuxuan7", kSixWayTheseSeven),
        SetMethods("frm6lianhao", kSixWayRuns),       SetMethods("frmlingleizu6", kSixWay012Types),
        SetMethods("frmzuxuanqt", kBoxTheseN),
    };
    return kMethods;
}

}  // namespace numarel
