#include "reports/scoreboard/scoreboard.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <map>
#include <thread>
#include <tuple>
#include <unordered_map>

#include "reports/scoreboard/chance_stats.h"

namespace numarel {

std::span<const MethodFamily> MethodFamilies() {
    static constexpr MethodFamily kFamilies[] = {
        TicketsFollowMethods,
        DigitSetMethods,
        ColdWarmHotMethods,
        Recommend320StraightMethods,
        RecommendTundredTenUnitsMethods,
        RecommendThreeDigitsMethods,
        RecommendTwoDigitsMethods,
        FormulaDigitGroupsMethods,
        RecommendOneDigitMethods,
        RecommendPairsMethods,
        RecommendNumberSumMethods,
    };
    return kFamilies;
}

std::vector<const ScoredMethod*> AllScoredMethods() {
    std::vector<const ScoredMethod*> methods;
    for (MethodFamily family : MethodFamilies())
        for (const ScoredMethod& method : family())
            methods.push_back(&method);
    return methods;
}

double ClaimFigures::ExpectedReturn(bool straight, const PayoutTable& payouts) const {
    const int all = hitsByShape[0] + hitsByShape[1] + hitsByShape[2];
    if (straight) return all * payouts.straight / 1000;
    return (hitsByShape[0] * payouts.sixWayBox + hitsByShape[1] * payouts.threeWayBox +
            hitsByShape[2] * payouts.straight) /
           1000;
}

double MethodTrack::returnedOn(std::size_t i, const PayoutTable& payouts) const {
    if (!hits[i]) return 0;
    return ReturnOfHit(numbers[i], IsStraightList(column.method->shape), payouts);
}

std::vector<MethodTrack> TrackMethods(std::span<const ScoredMethod* const> methods,
                                      const ReportSheet& sheet) {
    std::vector<MethodTrack> tracks;
    const int drawCount = sheet.DrawCount();
    // The drawing of each row (-1: unreadable), read once for each place the digits stand.
    std::map<int, std::vector<int>> drawnAt;
    const auto drawnNumbers = [&](int digitCol) -> const std::vector<int>& {
        auto& numbers = drawnAt[digitCol];
        if (numbers.empty()) {
            numbers.assign(static_cast<std::size_t>(drawCount) + 1, -1);
            for (int r = 1; r <= drawCount; ++r)
                numbers[static_cast<std::size_t>(r)] = DrawnNumber(sheet, r, digitCol).value_or(-1);
        }
        return numbers;
    };
    // The claims of a run of cells, row by row, as indices into their texts: read once for all
    // the methods whose claims stand in the same cells (the nine lists of Cold Warm Hot).
    struct RowClaims {
        std::vector<int> ofRow;  // -1: the row holds no claim
        std::vector<std::string> texts;
    };
    std::map<std::tuple<int, int, bool>, RowClaims> claimsAt;
    const auto rowClaims = [&](const MethodColumn& column) -> const RowClaims& {
        const ScoredMethod& m = *column.method;
        const std::tuple<int, int, bool> key{column.ClaimCol(), m.eachColumn > 1 ? 1 : m.claimCount,
                                             m.shape == ClaimShape::PositionMasks};
        const auto found = claimsAt.find(key);
        if (found != claimsAt.end()) return found->second;
        RowClaims& claims = claimsAt[key];
        claims.ofRow.assign(static_cast<std::size_t>(drawCount) + 1, -1);
        std::unordered_map<std::string, int> ids;
        for (int r = 1; r <= drawCount; ++r) {
            std::string text = ClaimText(column, sheet, r);
            if (text.empty()) continue;
            const auto [it, added] = ids.try_emplace(text, static_cast<int>(claims.texts.size()));
            if (added) claims.texts.push_back(std::move(text));
            claims.ofRow[static_cast<std::size_t>(r)] = it->second;
        }
        return claims;
    };
    for (const ScoredMethod* method : methods) {
        const bool ticketList = IsTicketList(method->shape);
        const bool straight = IsStraightList(method->shape);
        for (MethodColumn& column : ExpandMethod(*method, sheet)) {
            MethodTrack track;
            track.report = std::string(method->object);
            const ReportDefinition* report = FindReport(method->object);
            track.title = report ? std::string(report->title) : std::string(method->object);
            track.drawCount = drawCount;
            // Claims met before, by their text: most methods make a handful of different claims.
            std::unordered_map<std::string, std::uint16_t> known;
            const auto figuresOf = [&](const std::string& claim) -> std::uint16_t {
                const auto found = known.find(claim);
                if (found != known.end()) return found->second;
                const std::string canonical = CanonicalClaim(*method, claim);
                const auto same = known.find(canonical);
                if (same != known.end()) {
                    known.emplace(claim, same->second);
                    return same->second;
                }
                const HitNumbers hits = ClaimHits(*method, canonical);
                ClaimFigures figures{static_cast<double>(hits.count()) / 1000};
                if (ticketList) {
                    figures.tickets = TicketCount(hits, straight);
                    figures.hitsByShape = HitsByShape(hits);
                }
                const auto index = static_cast<std::uint16_t>(track.claims.size());
                track.claims.push_back(figures);
                known.emplace(claim, index);
                known.emplace(canonical, index);
                return index;
            };
            // A claim in the header row is the same on every row.
            const std::string fixed =
                method->claimInHeader ? ClaimText(column, sheet, 0) : std::string();
            const std::uint16_t fixedIndex = fixed.empty() ? 0 : figuresOf(fixed);
            const std::vector<int>& drawn = drawnNumbers(method->digitCol);
            const RowClaims* claims = fixed.empty() ? &rowClaims(column) : nullptr;
            std::vector<int> figuresOfText(claims ? claims->texts.size() : 0, -1);
            for (int r = std::max(1, method->firstJudgedRow); r <= drawCount; ++r) {
                const int number = drawn[static_cast<std::size_t>(r)];
                if (number < 0) continue;
                std::uint16_t index = fixedIndex;
                if (claims) {
                    const int text = claims->ofRow[static_cast<std::size_t>(r)];
                    if (text < 0) continue;
                    int& figures = figuresOfText[static_cast<std::size_t>(text)];
                    if (figures < 0)
                        figures = figuresOf(claims->texts[static_cast<std::size_t>(text)]);
                    index = static_cast<std::uint16_t>(figures);
                }
                track.rows.push_back(r);
                track.hits.push_back(JudgedHit(column, sheet, r) ? 1 : 0);
                track.numbers.push_back(static_cast<std::uint16_t>(number));
                track.claimOf.push_back(index);
            }
            track.nextClaim = ClaimText(column, sheet, drawCount + 1);
            track.column = std::move(column);
            tracks.push_back(std::move(track));
        }
    }
    return tracks;
}

double LongestMissCache::Expected(std::span<const double> chances) {
    if (chances.empty()) return 0;
    const bool equal =
        std::all_of(chances.begin(), chances.end(), [&](double p) { return p == chances.front(); });
    if (!equal) return ExpectedLongestMiss(chances);
    const std::pair<std::size_t, double> key{chances.size(), chances.front()};
    for (const auto& [k, value] : equal_)
        if (k == key) return value;
    const double value = ExpectedLongestMiss(chances);
    equal_.push_back({key, value});
    return value;
}

StretchScore ScoreStretch(const MethodTrack& track, int stretch, const PayoutTable& payouts,
                          LongestMissCache& cache) {
    StretchScore score;
    score.stretch = stretch;
    const int firstRow = stretch > 0 ? track.drawCount - stretch + 1 : 1;
    const auto begin = static_cast<std::size_t>(
        std::lower_bound(track.rows.begin(), track.rows.end(), firstRow) - track.rows.begin());
    const std::size_t end = track.rows.size();
    std::vector<double> chances;
    chances.reserve(end - begin);
    double cost = 0;
    double returned = 0;
    double expectedReturn = 0;
    for (std::size_t i = begin; i < end; ++i) {
        const ClaimFigures& figures = track.claims[track.claimOf[i]];
        chances.push_back(figures.chance);
        score.hits += track.hits[i];
        if (track.isTicketList()) {
            cost += figures.tickets;
            returned += track.returnedOn(i, payouts);
            expectedReturn +=
                figures.ExpectedReturn(IsStraightList(track.column.method->shape), payouts);
        }
    }
    score.judged = static_cast<int>(chances.size());
    const ChanceSum sum = SumOfChances(chances);
    score.expected = sum.expected;
    score.sd = sum.sd;
    score.tooFew = score.judged < kMinJudged || sum.sd <= 0;
    if (!score.tooFew) {
        score.z = ZScore(score.hits, sum.expected, sum.sd);
        score.p = TwoSidedP(score.z);
    }
    score.longestMiss = LongestMiss(std::span(track.hits).subspan(begin));
    score.expectedLongestMiss = cache.Expected(chances);
    if (track.isTicketList()) {
        score.cost = cost;
        score.returned = returned;
        score.expectedReturn = expectedReturn;
    }
    return score;
}

namespace {

// Runs `work(i)` for i in [0, count) on `threads` threads.
template <class Work>
void RunOnThreads(int count, int threads, Work&& work) {
    std::atomic<int> next{0};
    const auto worker = [&] {
        for (int i = next++; i < count; i = next++)
            work(i);
    };
    const int extra = std::max(0, std::min(threads, count) - 1);
    std::vector<std::thread> pool;
    for (int t = 0; t < extra; ++t)
        pool.emplace_back(worker);
    worker();
    for (std::thread& thread : pool)
        thread.join();
}

}  // namespace

ScoreTable BuildScoreboard(std::span<const DrawRecord> drawings, const ScoreOptions& options) {
    ScoreTable table;
    table.lottery = options.lottery;
    table.drawings = static_cast<int>(ReportDrawCount(drawings));
    table.stretches = options.stretches;
    table.payouts = options.payouts;

    // The reports in the order their methods are declared, each with its methods.
    std::vector<std::string_view> objects;
    std::map<std::string_view, std::vector<const ScoredMethod*>> methodsOf;
    for (const ScoredMethod* method : AllScoredMethods()) {
        if (!FindReport(method->object)) continue;
        auto& list = methodsOf[method->object];
        if (list.empty()) objects.push_back(method->object);
        list.push_back(method);
    }
    const std::span<const DrawRecord> seen =
        drawings.first(static_cast<std::size_t>(table.drawings));
    std::vector<std::vector<MethodTrack>> perReport(objects.size());
    RunOnThreads(static_cast<int>(objects.size()), options.threads, [&](int i) {
        const std::string_view object = objects[static_cast<std::size_t>(i)];
        ReportSheet sheet;
        BuildReport(*FindReport(object), seen, sheet);
        perReport[static_cast<std::size_t>(i)] = TrackMethods(methodsOf[object], sheet);
    });
    for (auto& tracks : perReport)
        for (MethodTrack& track : tracks)
            table.tracks.push_back(std::move(track));

    table.scores.assign(table.tracks.size(), {});
    RunOnThreads(static_cast<int>(table.tracks.size()), options.threads, [&](int i) {
        thread_local LongestMissCache cache;
        auto& scores = table.scores[static_cast<std::size_t>(i)];
        for (int stretch : table.stretches)
            scores.push_back(ScoreStretch(table.tracks[static_cast<std::size_t>(i)], stretch,
                                          table.payouts, cache));
    });

    // q-values over the methods of each stretch that show a p-value and use no later drawings.
    for (std::size_t s = 0; s < table.stretches.size(); ++s) {
        std::vector<double> ps;
        std::vector<std::size_t> which;
        for (std::size_t t = 0; t < table.tracks.size(); ++t) {
            const StretchScore& score = table.scores[t][s];
            if (score.tooFew || table.tracks[t].usesLaterDrawings()) continue;
            ps.push_back(score.p);
            which.push_back(t);
        }
        const std::vector<double> qs = BenjaminiHochbergQ(ps);
        for (std::size_t k = 0; k < which.size(); ++k)
            table.scores[which[k]][s].q = qs[k];
    }
    return table;
}

std::vector<std::pair<int, int>> RowsByP(const ScoreTable& table, int stretchIndex) {
    std::vector<std::pair<int, int>> rows;
    for (std::size_t t = 0; t < table.tracks.size(); ++t)
        for (std::size_t s = 0; s < table.stretches.size(); ++s)
            if (stretchIndex < 0 || static_cast<int>(s) == stretchIndex)
                rows.emplace_back(static_cast<int>(t), static_cast<int>(s));
    std::stable_sort(rows.begin(), rows.end(), [&](const auto& a, const auto& b) {
        const StretchScore& x =
            table.scores[static_cast<std::size_t>(a.first)][static_cast<std::size_t>(a.second)];
        const StretchScore& y =
            table.scores[static_cast<std::size_t>(b.first)][static_cast<std::size_t>(b.second)];
        if (x.tooFew != y.tooFew) return !x.tooFew;
        return x.p < y.p;
    });
    return rows;
}

std::string StretchName(int stretch) {
    return stretch > 0 ? std::to_string(stretch) : "all";
}

std::vector<ExcessPoint> CumulativeExcess(const MethodTrack& track, int stretch) {
    const int firstRow = stretch > 0 ? track.drawCount - stretch + 1 : 1;
    std::vector<ExcessPoint> points;
    double excess = 0;
    double variance = 0;
    for (std::size_t i = 0; i < track.rows.size(); ++i) {
        if (track.rows[i] < firstRow) continue;
        const double p = track.claims[track.claimOf[i]].chance;
        excess += track.hits[i] - p;
        variance += p * (1 - p);
        points.push_back({track.rows[i], excess, 2 * std::sqrt(variance)});
    }
    return points;
}

namespace {

std::string Fixed(double value, int decimals) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    return buffer;
}

std::string PValue(double p) {
    char buffer[64];
    if (p < 0.0001)
        std::snprintf(buffer, sizeof buffer, "%.1e", p);
    else
        std::snprintf(buffer, sizeof buffer, "%.4f", p);
    return buffer;
}

}  // namespace

ReportSheet ScoreboardSheet(const ScoreTable& table, int stretchIndex) {
    static constexpr const char* kHeaders[] = {"Report",
                                               "Method",
                                               "Kind",
                                               "Stretch",
                                               "Judged",
                                               "Hits",
                                               "Rate",
                                               "Expected",
                                               "SD",
                                               "z",
                                               "p",
                                               "q",
                                               "Longest miss",
                                               "Expected longest miss",
                                               "Cost",
                                               "Returned",
                                               "Expected return"};
    constexpr int kCols = static_cast<int>(std::size(kHeaders));
    const std::vector<std::pair<int, int>> rows = RowsByP(table, stretchIndex);
    ReportSheet sheet(static_cast<int>(rows.size()) + 1, kCols);
    for (int c = 0; c < kCols; ++c)
        sheet.SetText(0, c, kHeaders[c]);
    sheet.SetColWidth(0, 1600);
    sheet.SetColWidth(1, 1200);
    for (int c = 2; c < kCols; ++c)
        sheet.SetColWidth(c, c >= 12 ? 1300 : 800);
    int r = 1;
    for (const auto& [t, s] : rows) {
        const MethodTrack& track = table.tracks[static_cast<std::size_t>(t)];
        const StretchScore& score =
            table.scores[static_cast<std::size_t>(t)][static_cast<std::size_t>(s)];
        const MethodKind kind = track.column.method->kind;
        sheet.SetText(r, 0, track.report);
        sheet.SetText(r, 1, track.column.name);
        sheet.SetText(r, 2,
                      kind == MethodKind::Forecast ? "forecast"
                      : kind == MethodKind::List   ? "list"
                                                   : "set");
        sheet.SetText(r, 3, StretchName(score.stretch));
        sheet.SetNumber(r, 4, score.judged);
        sheet.SetNumber(r, 5, score.hits);
        if (score.judged > 0)
            sheet.SetText(r, 6, Fixed(100.0 * score.hits / score.judged, 1) + "%");
        sheet.SetText(r, 7, Fixed(score.expected, 1));
        sheet.SetText(r, 8, Fixed(score.sd, 2));
        if (score.tooFew) {
            sheet.SetText(r, 9, "too few drawings");
        } else {
            sheet.SetText(r, 9, Fixed(score.z, 2));
            sheet.SetText(r, 10, PValue(score.p));
        }
        if (track.usesLaterDrawings())
            sheet.SetText(r, 11, "uses later drawings");
        else if (score.q)
            sheet.SetText(r, 11, PValue(*score.q));
        sheet.SetNumber(r, 12, score.longestMiss);
        sheet.SetText(r, 13, Fixed(score.expectedLongestMiss, 1));
        if (score.cost) {
            sheet.SetText(r, 14, Fixed(*score.cost, 0));
            sheet.SetText(r, 15, Fixed(*score.returned, 0));
            sheet.SetText(r, 16, Fixed(*score.expectedReturn, 0));
        }
        if (!score.tooFew && std::fabs(score.z) >= 2)
            sheet.SetBackColor(r, 9, MakeRgb(255, 223, 157));
        ++r;
    }
    sheet.SetDrawCount(0);
    sheet.SetTitle("Scoreboard" + (table.lottery.empty() ? std::string() : " - " + table.lottery));
    return sheet;
}

}  // namespace numarel
