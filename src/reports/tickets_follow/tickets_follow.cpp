#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "frame/followed_numbers.h"
#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

constexpr int kBoxCol = 4;  // store of the drawing's digits for the hit pass
constexpr int kFirstTicketCol = 5;
constexpr int kDigitWidth = 300;
constexpr int kLetterWidth = 300;

// How a drawing is matched against a ticket.
enum class HitTest {
    // Column 4 holds the drawing's distinct digits; the ticket hits when all three of its
    // digits are among them, so only a 6 Way Box drawing can hit.
    SharedDigits,
    // Column 4 holds the three sorted digits with repeats; the ticket hits when it is that very
    // text, so 3 Way Box tickets can hit too.
    WholeBoxNumber,
};

struct TicketList {
    std::string_view letter;  // empty: the list has no letter column
    std::span<const std::string_view> tickets;
};

// What sets one list report apart; the defaults are what most of them share.
struct TicketsFollow {
    int cols;
    std::span<const TicketList> lists;
    int fontDecipoints = 75;  // 68: the 6.75 pt grid font, to the nearest tenth
    HitTest hitTest = HitTest::SharedDigits;
    std::string_view hitMarker = "***";
    int ticketWidth = 372;
    std::string_view groupHeader = "Gather";
    int groupWidth = 620;
    // The group column gets Miss numbers and statistic rows like a ticket.
    bool groupFollowed = true;
    AverageRule average = AverageRule::DrawCountWhenNoHit;
};

constexpr std::string_view kSixteen[] = {"026", "045", "126", "145", "236", "245", "246", "256",
                                         "267", "268", "269", "345", "456", "457", "458", "459"};

constexpr std::string_view kTwentySeven[] = {"038", "047", "058", "067", "078", "129", "138",
                                             "146", "167", "168", "169", "189", "236", "238",
                                             "256", "259", "267", "269", "279", "346", "356",
                                             "358", "367", "368", "378", "459", "467"};

constexpr std::string_view kThirtyA[] = {"015", "025", "035", "045", "126", "037", "136", "056",
                                         "038", "047", "057", "138", "156", "058", "067", "238",
                                         "059", "167", "239", "249", "348", "259", "349", "358",
                                         "269", "368", "378", "459", "389", "479"};

constexpr std::string_view kThirtyB[] = {"018", "028", "035", "036", "038", "057", "058", "059",
                                         "127", "134", "139", "149", "156", "158", "159", "169",
                                         "179", "237", "238", "248", "259", "268", "289", "347",
                                         "357", "369", "378", "456", "458", "459"};

constexpr std::string_view kFiftyA[] = {
    "036", "037", "038", "045", "047", "056", "057", "058", "067", "126", "136", "138", "146",
    "149", "156", "167", "168", "169", "235", "236", "237", "238", "239", "249", "256", "259",
    "267", "269", "345", "346", "347", "348", "349", "356", "358", "367", "368", "369", "378",
    "456", "459", "467", "469", "055", "166", "336", "338", "366", "388", "449"};

constexpr std::string_view kFiftyB[] = {
    "035", "017", "134", "125", "037", "145", "019", "046", "028", "245", "029", "137", "128",
    "146", "067", "148", "157", "139", "256", "049", "346", "357", "348", "258", "249", "267",
    "078", "457", "349", "268", "178", "259", "189", "279", "378", "008", "044", "116", "055",
    "118", "226", "119", "155", "166", "177", "366", "088", "466", "556", "099"};

// Sums 10, 12 and 14.
constexpr std::string_view kEighteenA[] = {"037", "055", "127", "136", "145", "057",
                                           "129", "138", "156", "345", "077", "158",
                                           "167", "239", "338", "347", "356", "455"};
// Sums 9, 11, 16 and 18.
constexpr std::string_view kEighteenB[] = {"027", "045", "126", "038", "047", "056",
                                           "128", "236", "245", "178", "259", "349",
                                           "358", "367", "457", "279", "378", "459"};
// Sums 13, 15 and 17.
constexpr std::string_view kEighteenC[] = {"058", "067", "229", "238", "247", "256",
                                           "346", "445", "078", "249", "267", "348",
                                           "456", "269", "278", "368", "458", "467"};

constexpr TicketList kSixteenLists[] = {{"", kSixteen}};
constexpr TicketList kTwentySevenLists[] = {{"", kTwentySeven}};
constexpr TicketList kThirtyALists[] = {{"", kThirtyA}};
constexpr TicketList kThirtyBLists[] = {{"", kThirtyB}};
constexpr TicketList kFiftyLists[] = {{"A", kFiftyA}, {"B", kFiftyB}};
constexpr TicketList kEighteenLists[] = {{"A", kEighteenA}, {"B", kEighteenB}, {"C", kEighteenC}};

constexpr TicketsFollow kSixteenTickets = {
    .cols = 22,
    .lists = kSixteenLists,
    .fontDecipoints = 68,
    .hitMarker = "*****",
    .ticketWidth = 496,
    .groupHeader = "",
    .groupWidth = 558,
    .average = AverageRule::EmptyWhenNoHit,
};
constexpr TicketsFollow kTwentySevenTickets = {
    .cols = 33,
    .lists = kTwentySevenLists,
    .average = AverageRule::EmptyWhenNoHit,
};
constexpr TicketsFollow kThirtyTicketsA = {
    .cols = 36,
    .lists = kThirtyALists,
};
constexpr TicketsFollow kThirtyTicketsB = {
    .cols = 36,
    .lists = kThirtyBLists,
};
constexpr TicketsFollow kFiftyTickets = {
    .cols = 109,
    .lists = kFiftyLists,
    .hitTest = HitTest::WholeBoxNumber,
    .groupFollowed = false,
};
constexpr TicketsFollow kEighteenTickets = {
    .cols = 63,
    .lists = kEighteenLists,
    .hitTest = HitTest::WholeBoxNumber,
    .groupFollowed = false,
};

// Seventy 6 Way Box tickets, grouped by Sum, 5 to 23; within a group in the order they were
// chosen. They are followed as the Box statistics follow every Box Number, with the groups of
// even Sum striped.
constexpr std::string_view kSeventy[] = {
    "014",                                            // 5
    "024", "015",                                     // 6
    "034", "016",                                     // 7
    "035", "017", "134", "125",                       // 8
    "126", "018", "036", "027",                       // 9
    "037", "145", "019", "046", "028",                // 10
    "245", "029", "137", "128", "146",                // 11
    "057", "138", "147", "156", "237",                // 12
    "067", "148", "157", "139", "256", "049", "346",  // 13
    "167", "149", "239", "248", "257", "356", "158",  // 14
    "357", "348", "258", "249", "267", "078",         // 15
    "457", "349", "268", "178", "259",                // 16
    "467", "089", "458", "278",                       // 17
    "189", "279", "378",                              // 18
    "469", "568", "379",                              // 19
    "479", "569",                                     // 20
    "678", "489",                                     // 21
    "679", "589",                                     // 22
    "689",                                            // 23
};
constexpr FollowedNumbers kSeventyTickets = {
    .numbers = [] { return std::vector<std::string>(std::begin(kSeventy), std::end(kSeventy)); },
    .stripeEvenSums = true,
};

// The first column of each list, and one past the last ticket.
std::vector<int> ListStarts(const TicketsFollow& report) {
    std::vector<int> starts;
    int col = kFirstTicketCol;
    for (const TicketList& list : report.lists) {
        starts.push_back(col);
        col += static_cast<int>(list.tickets.size());
    }
    starts.push_back(col);
    return starts;
}

// How many characters of `ticket` match a character of `digits`. Neither text holds a digit
// twice, so 3 means the drawing is the ticket's Box Number.
int SharedDigitScore(std::string_view ticket, std::string_view digits) {
    int score = 0;
    for (char t : ticket)
        for (char d : digits)
            if (t == d) ++score;
    return score;
}

// Looks texts up by their characters.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
        return std::hash<std::string_view>{}(text);
    }
};

bool Hits(HitTest test, std::string_view ticket, std::string_view box) {
    if (test == HitTest::SharedDigits) return SharedDigitScore(ticket, box) == 3;
    return ticket == box;
}

// The ticket columns each box text hits, worked out when the text is first met: drawings of one
// Box Number hit the same columns.
class TicketHits {
public:
    TicketHits(HitTest test, std::vector<std::string> tickets)
        : test_(test), tickets_(std::move(tickets)) {}

    const std::vector<int>& Of(std::string_view box) {
        auto it = byText_.find(box);
        if (it == byText_.end()) it = byText_.emplace(std::string(box), Columns(box)).first;
        return it->second;
    }

private:
    std::vector<int> Columns(std::string_view box) const {
        std::vector<int> columns;
        for (std::size_t i = 0; i < tickets_.size(); ++i)
            if (Hits(test_, tickets_[i], box))
                columns.push_back(kFirstTicketCol + static_cast<int>(i));
        return columns;
    }

    HitTest test_;
    std::vector<std::string> tickets_;
    std::unordered_map<std::string, std::vector<int>, TextHash, std::equal_to<>> byText_;
};

void Build(const TicketsFollow& report, std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    const std::vector<int> starts = ListStarts(report);
    const int lastTicketCol = starts.back() - 1;
    const int groupCol = starts.back();
    const int firstLetterCol = groupCol + 1;

    sheet.SetFontDecipoints(report.fontDecipoints);
    sheet.SetCols(report.cols);
    sheet.SetColWidth(0, 1218);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, kDigitWidth);
    for (int c = kFirstTicketCol; c <= lastTicketCol; ++c)
        sheet.SetColWidth(c, report.ticketWidth);
    sheet.SetColWidth(groupCol, report.groupWidth);
    for (int c = firstLetterCol; c < report.cols; ++c)
        sheet.SetColWidth(c, kLetterWidth);
    sheet.SetColWidth(kBoxCol, 30);

    const int drawCount = CountDrawings(drawings);
    // Room for the statistic rows from the start, so that adding them does not move the
    // whole sheet.
    sheet.SetRows(drawCount + 6);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);

    // The headers come first, so that each drawing is matched while its row is at hand.
    HeadDigitColumns(sheet);
    for (std::size_t i = 0; i < report.lists.size(); ++i) {
        const auto& tickets = report.lists[i].tickets;
        for (std::size_t k = 0; k < tickets.size(); ++k)
            sheet.SetText(0, starts[i] + static_cast<int>(k), tickets[k]);
    }
    sheet.SetText(0, groupCol, report.groupHeader);

    // The tickets are whatever the header row says; a drawing's box text is matched as its cell
    // holds it.
    std::vector<std::string> tickets;
    for (int c = kFirstTicketCol; c <= lastTicketCol; ++c)
        tickets.push_back(sheet.Text(0, c));
    TicketHits ticketHits(report.hitTest, std::move(tickets));
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        SortDigits(digits);
        sheet.SetText(row, kBoxCol,
                      report.hitTest == HitTest::SharedDigits ? DistinctDigits(digits)
                                                              : JoinedDigits(digits));
        ReportSheet::NumberDigits boxDigits;
        const std::vector<int>& hits = ticketHits.Of(sheet.TextView(row, kBoxCol, boxDigits));
        for (int c : hits)
            sheet.SetText(row, c, report.hitMarker);
        if (!hits.empty()) sheet.SetText(row, groupCol, report.hitMarker);
    });
    FinishLoad(sheet);

    const int lastFollowedCol = report.groupFollowed ? groupCol : lastTicketCol;
    FillMissCountersAndStatisticRows(sheet, lastFollowedCol, report.hitMarker, report.average,
                                     kFirstTicketCol);

    // After the Miss numbers are in, a list's letter marks a drawing that one of its tickets hit.
    // Every hit also marked the group column, so a row without the marker there has none.
    for (int r = 1; r <= drawCount; ++r) {
        if (!sheet.TextIs(r, groupCol, report.hitMarker)) continue;
        for (std::size_t i = 0; i < report.lists.size(); ++i) {
            if (report.lists[i].letter.empty()) continue;
            for (int c = starts[i]; c < starts[i + 1]; ++c) {
                if (sheet.TextIs(r, c, report.hitMarker)) {
                    sheet.SetText(r, firstLetterCol + static_cast<int>(i), report.lists[i].letter);
                    break;
                }
            }
        }
    }
}

}  // namespace

std::span<const ReportDefinition> TicketsFollowReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmqita1",
         .title = "16 Tickets follow",
         .build = BuildMember<Build, kSixteenTickets>},
        {.object = "frmqita3",
         .title = "27 Tickets follow",
         .build = BuildMember<Build, kTwentySevenTickets>},
        {.object = "frmqita2a",
         .title = "30 Tickets follow A",
         .build = BuildMember<Build, kThirtyTicketsA>},
        {.object = "frmqita2",
         .title = "30 Tickets follow B",
         .build = BuildMember<Build, kThirtyTicketsB>},
        {.object = "frmqita450",
         .title = "50 Tickets follow AB",
         .build = BuildMember<Build, kFiftyTickets>},
        {.object = "frmqita354",
         .title = "18 Tickets follow ABC",
         .build = BuildMember<Build, kEighteenTickets>},
        {.object = "frmzuliu70",
         .title = "70 Tickets follow",
         .build = BuildMember<BuildFollowedNumbers, kSeventyTickets>},
    };
    return kReports;
}

namespace {

// The lists of a report as the scoreboard follows them: a list with a letter by its letter column,
// a report's one list without a letter by the group column.
void AddListMethods(std::vector<ScoredMethod>& methods, std::string_view object,
                    const TicketsFollow& report) {
    const std::vector<int> starts = ListStarts(report);
    const int groupCol = starts.back();
    for (std::size_t i = 0; i < report.lists.size(); ++i) {
        const TicketList& list = report.lists[i];
        const bool lettered = !list.letter.empty();
        methods.push_back({
            .object = object,
            .name = lettered                     ? list.letter
                    : report.groupHeader.empty() ? std::string_view("All tickets")
                                                 : report.groupHeader,
            .kind = MethodKind::List,
            .shape = report.hitTest == HitTest::SharedDigits ? ClaimShape::BoxTicketsSharedDigits
                                                             : ClaimShape::BoxTicketsWhole,
            .firstClaimCol = starts[i],
            .claimCount = static_cast<int>(list.tickets.size()),
            .claimInHeader = true,
            .judgeCol = lettered ? groupCol + 1 + static_cast<int>(i) : groupCol,
            .hitText = lettered ? list.letter : report.hitMarker,
            .firstJudgedRow = 1,
        });
    }
}

}  // namespace

// The claims the scoreboard follows, each judged as the report judges it.
std::span<const ScoredMethod> TicketsFollowMethods() {
    static const std::vector<ScoredMethod> kMethods = [] {
        std::vector<ScoredMethod> methods;
        AddListMethods(methods, "frmqita1", kSixteenTickets);
        AddListMethods(methods, "frmqita3", kTwentySevenTickets);
        AddListMethods(methods, "frmqita2a", kThirtyTicketsA);
        AddListMethods(methods, "frmqita2", kThirtyTicketsB);
        AddListMethods(methods, "frmqita450", kFiftyTickets);
        AddListMethods(methods, "frmqita354", kEighteenTickets);
        // The 70 tickets as the Box statistics follow them: "-Y-" in the mark column on a hit.
        methods.push_back({.object = "frmzuliu70",
                           .name = "70 tickets",
                           .kind = MethodKind::List,
                           .shape = ClaimShape::BoxTicketsWhole,
                           .firstClaimCol = 6,
                           .claimCount = static_cast<int>(std::size(kSeventy)),
                           .claimInHeader = true,
                           .judgeCol = 5,
                           .firstJudgedRow = 1});
        return methods;
    }();
    return kMethods;
}

}  // namespace numarel
