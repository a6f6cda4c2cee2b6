#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "data/drawings_file.h"
#include "reports/report_registry.h"
#include "reports/report_rows.h"
#include "reports/scoreboard/chance_stats.h"
#include "reports/scoreboard/method_claims.h"
#include "reports/scoreboard/scoreboard.h"
#include "support/test_support.h"

namespace numarel {
namespace {

TEST(ChanceShares, WorkedByHand) {
    const std::map<std::string, ClaimShape> shapes = {
        {"AnyDigit", ClaimShape::AnyDigit},
        {"BoxTicketsWhole", ClaimShape::BoxTicketsWhole},
        {"StraightPairs", ClaimShape::StraightPairs},
        {"Sums", ClaimShape::Sums},
        {"PositionMasks", ClaimShape::PositionMasks},
        {"BoxTicketsSharedDigits", ClaimShape::BoxTicketsSharedDigits},
        {"DigitSetSixWay", ClaimShape::DigitSetSixWay},
        {"DigitSetBox", ClaimShape::DigitSetBox},
        {"Pairs", ClaimShape::Pairs},
        {"HotWarmColdPattern", ClaimShape::HotWarmColdPattern}};
    for (const testing::Case& c : testing::ReadCases("reports/scoreboard/shares.txt")) {
        ASSERT_EQ(shapes.count(c.Text(0)), 1u) << c.where;
        const ScoredMethod method{.shape = shapes.at(c.Text(0)), .pattern = c.Text(2)};
        EXPECT_EQ(ClaimHits(method, c.Text(1)).count(), static_cast<std::size_t>(c.Int(3)))
            << c.where;
        if (c.fields.size() < 5) continue;
        EXPECT_EQ(CanonicalClaim(method, c.Text(1)), c.Text(4)) << c.where;
        EXPECT_EQ(ClaimHits(method, c.Text(4)).count(), static_cast<std::size_t>(c.Int(3)))
            << c.where;
    }
}

TEST(ChanceShares, BoxTicketsCountEveryArrangement) {
    // Two 3 Way Box tickets (3 arrangements each) and one 6 Way Box ticket (6).
    const ScoredMethod whole{.shape = ClaimShape::BoxTicketsWhole};
    const HitNumbers hits = ClaimHits(whole, "055,166,037");
    EXPECT_TRUE(hits.test(505));
    EXPECT_TRUE(hits.test(730));
    EXPECT_FALSE(hits.test(555));
    EXPECT_EQ(TicketCount(hits, false), 3);
    EXPECT_EQ(HitsByShape(hits), (std::array<int, 3>{6, 6, 0}));
    // On average: 6 of 1000 pay the 6 Way prize, 6 the 3 Way prize.
    const ClaimFigures figures{.hitsByShape = HitsByShape(hits)};
    EXPECT_DOUBLE_EQ(figures.ExpectedReturn(false, PayoutTable{}), (6 * 80 + 6 * 160) / 1000.0);
    // 320 Straight tickets cost 320 and return on average 320 of 1000 times 500.
    const ScoredMethod straight{.shape = ClaimShape::StraightPairs};
    const HitNumbers pairs = ClaimHits(straight, "05,07");
    EXPECT_EQ(TicketCount(pairs, true), 20);
    const ClaimFigures pairFigures{.hitsByShape = HitsByShape(pairs)};
    EXPECT_DOUBLE_EQ(pairFigures.ExpectedReturn(true, PayoutTable{}), 20 * 500 / 1000.0);
}

TEST(ChanceShares, AHotWarmColdPatternIsTicketsOfBoxNumbers) {
    const std::string ranks = "1,4,7,0,2,5,9,3,6,8";
    const HitNumbers cold =
        ClaimHits({.shape = ClaimShape::HotWarmColdPattern, .pattern = "003"}, ranks);
    EXPECT_EQ(TicketCount(cold, false), 10);  // the ten Box Numbers of the list "003:"
}

TEST(ChanceStatistics, WorkedByHand) {
    const std::vector<double> chances = {0.5, 0.5, 0.25, 0.25};
    const ChanceSum sum = SumOfChances(chances);
    EXPECT_DOUBLE_EQ(sum.expected, 1.5);
    EXPECT_NEAR(sum.sd, std::sqrt(0.875), 1e-12);
    EXPECT_NEAR(ZScore(3, 1.5, sum.sd), 1.5 / 0.9354143, 1e-6);
    EXPECT_NEAR(TwoSidedP(1.959964), 0.05, 1e-6);
    EXPECT_DOUBLE_EQ(TwoSidedP(0), 1);
    EXPECT_DOUBLE_EQ(ZScore(3, 1, 0), 0);

    // p 0.01, 0.04, 0.03, 0.2 of 4: 0.01 * 4, then 0.03 * 4 / 2 = 0.06 and 0.04 * 4 / 3 = 0.0533,
    // the smaller of which stands for both, and 0.2.
    const std::vector<double> q = BenjaminiHochbergQ(std::vector<double>{0.01, 0.04, 0.03, 0.2});
    EXPECT_NEAR(q[0], 0.04, 1e-12);
    EXPECT_NEAR(q[1], 0.16 / 3, 1e-12);
    EXPECT_NEAR(q[2], 0.16 / 3, 1e-12);
    EXPECT_NEAR(q[3], 0.2, 1e-12);

    EXPECT_EQ(LongestMiss(std::vector<unsigned char>{1, 0, 0, 1, 0}), 2);
    EXPECT_EQ(LongestMiss(std::vector<unsigned char>{0, 0, 0}), 3);

    // Longest runs of misses:
    // Three fair trials: 5 of the 8 outcomes have no two misses in a row, 1 has no miss.
    const std::vector<double> fair(3, 0.5);
    EXPECT_NEAR(ChanceNoMissRun(fair, 2), 5.0 / 8, 1e-12);
    EXPECT_NEAR(ChanceNoMissRun(fair, 1), 1.0 / 8, 1e-12);
    EXPECT_NEAR(ChanceNoMissRun(fair, 3), 7.0 / 8, 1e-12);
    // Longest run 0 in 1 outcome, 1 in 4, 2 in 2, 3 in 1: (4 + 4 + 3) / 8.
    EXPECT_NEAR(ExpectedLongestMiss(fair), 11.0 / 8, 1e-9);
    // Unequal chances: two misses in a row need both, 0.8 * 0.5; a sure hit breaks every run.
    EXPECT_NEAR(ChanceNoMissRun(std::vector<double>{0.2, 0.5}, 2), 0.6, 1e-12);
    EXPECT_NEAR(ChanceNoMissRun(std::vector<double>{0.5, 1.0, 0.5}, 2), 1.0, 1e-12);
    // 0.2 then 0.5: longest 0 with 0.1, 2 with 0.4, else 1: 0.5 + 0.8.
    EXPECT_NEAR(ExpectedLongestMiss(std::vector<double>{0.2, 0.5}), 1.3, 1e-9);
    // Feller's formula, used for long stretches, against the exact chance.
    for (double p : {0.024, 0.271}) {
        const std::vector<double> same(1500, p);
        for (int length : {5, 20, 60, 200})
            EXPECT_NEAR(ChanceNoMissRunFeller(1500, p, length), ChanceNoMissRun(same, length), 1e-6)
                << p << " " << length;
    }
    // A long stretch: near the well-known log(n p) / -log(1 - p) + 0.5772 / -log(1 - p) - 1/2.
    const std::vector<double> many(5000, 0.1);
    EXPECT_NEAR(ExpectedLongestMiss(many),
                std::log(5000 * 0.1) / -std::log(0.9) + 0.5772 / -std::log(0.9) - 0.5, 1.0);
}

// A history of `count` made-up drawings dated from 2021002, the same for the same seed.
std::vector<DrawRecord> History(int count, std::uint32_t seed) {
    return ParseDrawings(testing::HistoryText(count, seed, 2021002));
}

// A made-up history whose dates jump and whose fields are written as people write them (" 6",
// "04", "x", " 2021010").
std::vector<DrawRecord> OddHistory(const char* name) {
    std::vector<DrawRecord> drawings = ParseDrawings(testing::ReadAll(
        std::filesystem::path(NUMAREL_TESTS_DIR) / "reports" / "scoreboard" / name));
    EXPECT_GE(drawings.size(), 70u) << "reports/scoreboard/" << name;  // a history, not nothing
    return drawings;
}

std::vector<DrawRecord> CaseFile(const std::string& name) {
    std::vector<DrawRecord> drawings;
    const Status s =
        ReadHistory(std::filesystem::path(NUMAREL_TESTS_DIR) / "cases" / name, drawings);
    EXPECT_TRUE(s.ok()) << name;
    return drawings;
}

// Every method's hit, row by row, is the report's own judgement of its claim.
void ExpectHitsAreTheReports(const std::vector<DrawRecord>& drawings, const std::string& what,
                             int* judgedRows = nullptr) {
    for (const ScoredMethod* method : AllScoredMethods()) {
        const ReportSheet sheet = testing::Build(method->object, drawings);
        for (const MethodColumn& column : ExpandMethod(*method, sheet)) {
            for (int r = 1; r <= sheet.DrawCount(); ++r) {
                const std::string claim = ClaimText(column, sheet, r);
                const std::optional<int> number = DrawnNumber(sheet, r, method->digitCol);
                if (claim.empty() || !number) continue;
                const bool judged = JudgedHit(column, sheet, r);
                if (r < method->firstJudgedRow) {
                    EXPECT_FALSE(judged) << what << " " << method->object << " " << column.name
                                         << " row " << r << " is not judged";
                    continue;
                }
                EXPECT_EQ(judged, ClaimHits(*method, claim).test(static_cast<std::size_t>(*number)))
                    << what << " " << method->object << " " << column.name << " row " << r
                    << " claim " << claim << " drawing " << *number;
                if (judgedRows) ++*judgedRows;
            }
        }
    }
}

TEST(ScoredMethods, HitsAreTheReportsOwnOnEveryCaseFile) {
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(NUMAREL_TESTS_DIR) / "cases"))
        ExpectHitsAreTheReports(CaseFile(entry.path().filename().string()),
                                entry.path().filename().string());
    int judged = 0;
    ExpectHitsAreTheReports(OddHistory("odd_history_7.txt"), "odd history", &judged);
    ExpectHitsAreTheReports(History(150, 99), "plain history", &judged);
    EXPECT_GT(judged, 20000);
}

TEST(ScoredMethods, EveryReportAndColumnExists) {
    const std::vector<DrawRecord> drawings = History(20, 7);
    std::map<std::string, int> perReport;
    for (const ScoredMethod* method : AllScoredMethods()) {
        const ReportSheet sheet = testing::Build(method->object, drawings);
        for (const MethodColumn& column : ExpandMethod(*method, sheet)) {
            EXPECT_FALSE(column.name.empty()) << method->object;
            EXPECT_LT(column.JudgeCol(), sheet.Cols()) << method->object << " " << column.name;
            EXPECT_FALSE(ClaimText(column, sheet, sheet.DrawCount()).empty())
                << method->object << " " << column.name;
            ++perReport[std::string(method->object)];
        }
    }
    EXPECT_EQ(perReport["frmzuxuan4"], 30);
    EXPECT_EQ(perReport["frmrenwenleng"], 9);
    EXPECT_EQ(perReport["frmtongshahao"], 6);
}

// For every k, the claim a report makes for the next drawing from the first k drawings is the
// claim the whole history shows on row k + 1.
TEST(ScoredMethods, NoMethodLooksAheadButThoseThatSaySo) {
    const std::vector<std::vector<DrawRecord>> histories = {History(70, 3),
                                                            OddHistory("odd_history_11.txt")};
    for (const ScoredMethod* method : AllScoredMethods()) {
        bool same = true;
        std::string where;
        for (const auto& history : histories) {
            const ReportSheet full = testing::Build(method->object, history);
            const std::vector<MethodColumn> columns = ExpandMethod(*method, full);
            for (std::size_t k = 1; k < history.size() && same; ++k) {
                const std::vector<DrawRecord> first(history.begin(),
                                                    history.begin() + static_cast<long>(k));
                const ReportSheet part = testing::Build(method->object, first);
                const int row = static_cast<int>(k) + 1;
                for (const MethodColumn& column : columns) {
                    const std::string next = ClaimText(column, part, row);
                    const std::string shown = ClaimText(column, full, row);
                    if (next != shown) {
                        same = false;
                        where = "k " + std::to_string(k) + ": " + next + " against " + shown;
                        break;
                    }
                }
            }
        }
        EXPECT_EQ(same, !method->usesLaterDrawings)
            << method->object << " " << method->name << " " << where;
    }
}

TEST(Scoreboard, AMethodThatAlwaysHitsComesFirst) {
    // Recommend 1 digit[2] names a digit by the H of the drawing before; every drawing holds it.
    constexpr int kTable[] = {0, 8, 6, 4, 7, 9, 1, 2, 4, 6};
    std::vector<DrawRecord> drawings = History(300, 5);
    for (std::size_t i = 1; i < drawings.size(); ++i)
        drawings[i].u = std::to_string(kTable[std::stoi(drawings[i - 1].h)]);
    const ScoreTable table = BuildScoreboard(drawings, {.lottery = "made up"});
    const auto rows = RowsByP(table, 3);  // all drawings
    ASSERT_FALSE(rows.empty());
    const MethodTrack& first = table.tracks[static_cast<std::size_t>(rows.front().first)];
    const StretchScore& score = table.scores[static_cast<std::size_t>(rows.front().first)][3];
    EXPECT_EQ(first.report, "frmtongsha1ma");
    EXPECT_EQ(score.judged, 299);
    EXPECT_EQ(score.hits, 299);
    EXPECT_NEAR(score.expected, 299 * 0.271, 1e-9);
    ASSERT_TRUE(score.q);
    EXPECT_LT(*score.q, 0.01);
    EXPECT_EQ(score.longestMiss, 0);
}

TEST(Scoreboard, StretchesCostsAndFewDrawings) {
    const std::vector<DrawRecord> drawings = History(400, 21);
    const ScoreTable table =
        BuildScoreboard(drawings, {.stretches = {20, 100, 0}, .payouts = {.straight = 900}});
    ASSERT_EQ(table.drawings, 400);
    bool seen320 = false;
    bool seenF = false;
    for (std::size_t t = 0; t < table.tracks.size(); ++t) {
        const MethodTrack& track = table.tracks[t];
        const auto& scores = table.scores[t];
        EXPECT_TRUE(scores[0].tooFew);  // 20 drawings
        EXPECT_FALSE(scores[0].q);
        EXPECT_LE(scores[1].judged, 100);
        EXPECT_EQ(scores[2].cost.has_value(), track.isTicketList()) << track.report;
        if (track.report == "frmbaishi32zu") {
            seen320 = true;
            const StretchScore& all = scores[2];
            EXPECT_EQ(all.judged, 400);
            EXPECT_DOUBLE_EQ(*all.cost, 320.0 * 400);
            EXPECT_DOUBLE_EQ(*all.returned, 900.0 * all.hits);
            EXPECT_NEAR(*all.expectedReturn, 0.32 * 900 * 400, 1e-6);
            EXPECT_NEAR(all.expected, 0.32 * 400, 1e-9);
        }
        if (track.usesLaterDrawings()) {
            seenF = true;
            EXPECT_FALSE(scores[2].q);
        } else {
            EXPECT_TRUE(scores[2].q) << track.report << " " << track.column.name;
        }
    }
    EXPECT_TRUE(seen320);
    EXPECT_TRUE(seenF);
}

TEST(Scoreboard, AnEmptyHistoryScoresNothing) {
    const ScoreTable table = BuildScoreboard({}, {});
    EXPECT_EQ(table.drawings, 0);
    for (const auto& scores : table.scores)
        for (const StretchScore& score : scores) {
            EXPECT_EQ(score.judged, 0);
            EXPECT_TRUE(score.tooFew);
        }
    const ReportSheet sheet = ScoreboardSheet(table, 3);
    EXPECT_EQ(sheet.Rows(), static_cast<int>(table.tracks.size()) + 1);
}

}  // namespace
}  // namespace numarel
