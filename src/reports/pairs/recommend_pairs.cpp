#include <array>
#include <span>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/digit_straight/seven_drawing_ranking.h"
#include "reports/pairs/pair_text.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

constexpr int kCols = 41;
constexpr int kSeparatorCol = 11;
constexpr int kFirstPairCol = 22;
constexpr int kLastPairCol = 33;
constexpr int kFirstDrawnPairCol = 37;  // 37, 38, 39: the drawing's pairs
constexpr int kLastDrawnPairCol = 39;
constexpr int kHitCol = 40;
// Pairs need a ranking in their row and three rows more; the rows before have none.
constexpr int kFirstPairRow = 11;
constexpr int kCollapsedRows = 24;

constexpr std::string_view kHitMarker = "-Y-";
constexpr Rgb kHitMarkerColour = MakeRgb(43, 145, 255);
constexpr Rgb kGridColour = MakeRgb(128, 128, 0);

// The two rank columns each pair column is made from: all pairs of ranks 1 to 4, then all pairs
// of ranks 7 to 10. Ranks 5 and 6 never stand in a pair.
struct RankPair {
    int first;
    int second;
};
constexpr std::array<RankPair, kLastPairCol - kFirstPairCol + 1> kRankPairs{{
    {12, 13},
    {12, 14},
    {12, 15},
    {13, 14},
    {13, 15},
    {14, 15},
    {18, 19},
    {18, 20},
    {18, 21},
    {19, 20},
    {19, 21},
    {20, 21},
}};

void LayOut(ReportSheet& sheet) {
    sheet.SetColWidth(0, 1204);
    for (int d = 0; d <= 9; ++d) {
        sheet.SetColWidth(ranking_cols::kFirstCount + d, 2);
        sheet.SetNumber(0, ranking_cols::kFirstCount + d, d);
    }
    sheet.SetColWidth(kSeparatorCol, 80);
    for (int c = ranking_cols::kFirstRank; c <= ranking_cols::kLastRank; ++c)
        sheet.SetColWidth(c, 2);
    for (int c = kFirstPairCol; c <= kLastPairCol; ++c)
        sheet.SetColWidth(c, 400);
    for (int c = ranking_cols::kFirstDigit; c <= kLastDrawnPairCol; ++c)
        sheet.SetColWidth(c, 2);
    sheet.SetColWidth(kHitCol, 560);
}

// The pair columns of a row from the digits of their rank columns, read back from the row.
void WriteRecommendedPairs(ReportSheet& sheet, int r) {
    using ranking_cols::kFirstRank;
    std::array<short, ranking_cols::kLastRank - kFirstRank + 1> ranked{};
    for (std::size_t i = 0; i < ranked.size(); ++i)
        ranked[i] = sheet.CellNumber(r, kFirstRank + static_cast<int>(i));
    for (std::size_t i = 0; i < kRankPairs.size(); ++i) {
        SetPairText(sheet, r, kFirstPairCol + static_cast<int>(i),
                    ranked[static_cast<std::size_t>(kRankPairs[i].first - kFirstRank)],
                    ranked[static_cast<std::size_t>(kRankPairs[i].second - kFirstRank)]);
    }
}

// Each pair of the drawing against each recommended pair of its row: a match is red, and the
// row is marked once however many match.
void JudgePairs(ReportSheet& sheet, int r) {
    const int hits = ColourCellsHolding(sheet, r, {kFirstPairCol, kLastPairCol},
                                        {kFirstDrawnPairCol, kLastDrawnPairCol}, colours::kHit);
    if (hits == 0) return;
    sheet.SetBackColor(r, kHitCol, kHitMarkerColour);
    sheet.SetText(r, kHitCol, kHitMarker);
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.Resize(1, kCols);  // the header row is written before the drawings are counted
    sheet.SetGridColour(kGridColour);
    LayOut(sheet);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 3, -1);
    SevenDrawingRanking ranking;
    // A row's ranking rests on the rows above it only, so each row is worked whole while it is at
    // hand: its ranking, its recommended pairs and, for a drawing, their judgement.
    auto recommend = [&](int r) {
        ranking.Rank(sheet, r);
        ShadeMiddleRanks(sheet, r);
        if (r >= kFirstPairRow) WriteRecommendedPairs(sheet, r);
    };
    FillSheet(
        sheet, drawings,
        [&](int r, CurrentDigits& digits) {
            SortDigits(digits);
            const auto [a, b, c] = digits;
            SetPairText(sheet, r, kFirstDrawnPairCol, a, b);
            SetPairText(sheet, r, kFirstDrawnPairCol + 1, a, c);
            SetPairText(sheet, r, kLastDrawnPairCol, b, c);
            recommend(r);
            if (r >= kFirstPairRow) JudgePairs(sheet, r);
        },
        DigitColumns{ranking_cols::kFirstDigit, ranking_cols::kFirstDigit + 1,
                     ranking_cols::kFirstDigit + 2});
    // The next drawing's row is recommended for and never judged; the last row is only banded.
    recommend(drawCount + 1);
    ShadeMiddleRanks(sheet, drawCount + 2);

    for (int r = 1; r <= kCollapsedRows && r < sheet.Rows(); ++r)
        sheet.SetRowHeight(r, 2);
    sheet.SetTopRow(sheet.Rows() - 1);
}

}  // namespace

// Recommend "Pairs": twelve pairs for each drawing from the ranking of the seven drawings before
// it, every pair among the four most frequent digits and every pair among the four least
// frequent. A drawing holding one of them, in any order and at any position, is a hit. The pairs
// of the next drawing's row are the recommendation; the rows above are their track record.
std::span<const ReportDefinition> RecommendPairsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmrenwenlengTlm",
         .title = "Recommend \"Pairs\"",
         .build = Build,
         .loadOrder = LoadOrder::DesignedCaption},
    };
    return kReports;
}

// The claims the scoreboard follows, each judged as the report judges it.
std::span<const ScoredMethod> RecommendPairsMethods() {
    static constexpr ScoredMethod kMethods[] = {
        {.object = "frmrenwenlengTlm",
         .name = "12 pairs",
         .shape = ClaimShape::Pairs,
         .firstClaimCol = kFirstPairCol,
         .claimCount = kLastPairCol - kFirstPairCol + 1,
         .judgeCol = kHitCol,
         .firstJudgedRow = kFirstPairRow,
         .digitCol = ranking_cols::kFirstDigit},
    };
    return kMethods;
}

}  // namespace numarel
