#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/method_claims.h"

namespace numarel {

// What one claim of a method is worth, the same on every row that makes it.
struct ClaimFigures {
    double chance = 0;  // the share of the 1000 numbers it counts as a hit
    int tickets = 0;    // a ticket list: the tickets played, 1 unit each; else 0
    // The numbers it hits by their shape: 6 Way Box, 3 Way Box, triple.
    std::array<int, 3> hitsByShape = {0, 0, 0};
    // What the list returns on average in one drawing of the 1000 equally likely numbers.
    double ExpectedReturn(bool straight, const PayoutTable& payouts) const;
};

// One method followed through a report's finished sheet: every judged row, its hit as the
// window shows it and the chance of that hit.
struct MethodTrack {
    MethodColumn column;
    std::string report;  // the window object
    std::string title;   // the window title
    int drawCount = 0;
    std::vector<int> rows;               // judged rows, ascending
    std::vector<unsigned char> hits;     // 1 where the report judged a hit
    std::vector<std::uint16_t> numbers;  // the drawing of each judged row, 0 to 999
    std::vector<std::uint16_t> claimOf;  // index into claims
    std::vector<ClaimFigures> claims;    // one per distinct claim
    std::string nextClaim;               // the claim for the next drawing; empty: none
    double returnedOn(std::size_t i, const PayoutTable& payouts) const;
    bool usesLaterDrawings() const { return column.method->usesLaterDrawings; }
    bool isTicketList() const { return IsTicketList(column.method->shape); }
};

// Follows every method of `methods` that belongs to the report on its finished sheet.
std::vector<MethodTrack> TrackMethods(std::span<const ScoredMethod* const> methods,
                                      const ReportSheet& sheet);

// A stretch with fewer judged drawings than this shows no z, p or q.
inline constexpr int kMinJudged = 30;

// A method's figures over the last `stretch` drawings (0: all of them).
struct StretchScore {
    int stretch = 0;
    int judged = 0;
    int hits = 0;
    double expected = 0;
    double sd = 0;
    bool tooFew = true;  // fewer than kMinJudged judged drawings, or no spread at all
    double z = 0;
    double p = 1;
    std::optional<double> q;  // none where too few, or where the method uses later drawings
    int longestMiss = 0;
    double expectedLongestMiss = 0;
    // Ticket lists only: what playing the list on every judged drawing cost and returned, and
    // what chance returns.
    std::optional<double> cost;
    std::optional<double> returned;
    std::optional<double> expectedReturn;
};

// Keeps the expected longest misses already worked out for a run of equal chances.
class LongestMissCache {
public:
    double Expected(std::span<const double> chances);

private:
    std::vector<std::pair<std::pair<std::size_t, double>, double>> equal_;
};

StretchScore ScoreStretch(const MethodTrack& track, int stretch, const PayoutTable& payouts,
                          LongestMissCache& cache);

struct ScoreOptions {
    std::string lottery = {};
    std::vector<int> stretches = {100, 365, 1000, 0};
    PayoutTable payouts = {};
    int threads = 2;
};

// Every method of every report scored over each stretch.
struct ScoreTable {
    std::string lottery = {};
    int drawings = 0;
    std::vector<int> stretches;
    PayoutTable payouts = {};
    std::vector<MethodTrack> tracks;
    std::vector<std::vector<StretchScore>> scores;  // [track][stretch index]
};

// Builds every report that has scored methods (on `options.threads` threads), follows the
// methods and scores them; q-values are Benjamini-Hochberg over the methods of each stretch.
ScoreTable BuildScoreboard(std::span<const DrawRecord> drawings, const ScoreOptions& options);

// Every scored method, in family order.
std::vector<const ScoredMethod*> AllScoredMethods();

// The table's rows (track, stretch index) with the stretch `stretchIndex` only, or every stretch
// with -1, by p-value: the rows that show one first, smallest first.
std::vector<std::pair<int, int>> RowsByP(const ScoreTable& table, int stretchIndex = -1);

// The name of a stretch: "all" or its number of drawings.
std::string StretchName(int stretch);

// A point of a method's chart: after judged row `row`, its hits so far minus the hits chance
// gives, and two standard deviations of that difference.
struct ExcessPoint {
    int row = 0;
    double excess = 0;
    double band = 0;
};
std::vector<ExcessPoint> CumulativeExcess(const MethodTrack& track, int stretch);

// The table as a sheet, one row per method and stretch in the order of RowsByP, for the sheet
// writers.
ReportSheet ScoreboardSheet(const ScoreTable& table, int stretchIndex = -1);

}  // namespace numarel
