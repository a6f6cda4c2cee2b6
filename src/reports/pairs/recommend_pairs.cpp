#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/digit_straight/seven_drawing_ranking.h"
#include "reports/pairs/pair_text.h"
#include "reports/report_registry.h"

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

// The pair columns of a row from the digits of their rank columns, read back from the row once.
void WriteRecommendedPairs(ReportSheet& sheet, PairTextWriter& pairs, int r) {
    using ranking_cols::kFirstRank;
    using ranking_cols::kLastRank;
    const ReportSheet::RowRun ranks = sheet.Run(r, kFirstRank, kLastRank);
    std::array<short, kLastRank - kFirstRank + 1> digits{};
    for (int i = 0; i < ranks.Count(); ++i)
        digits[static_cast<std::size_t>(i)] = ranks.CellNumber(i);
    for (std::size_t i = 0; i < kRankPairs.size(); ++i) {
        pairs.Set(r, kFirstPairCol + static_cast<int>(i),
                  digits[static_cast<std::size_t>(kRankPairs[i].first - kFirstRank)],
                  digits[static_cast<std::size_t>(kRankPairs[i].second - kFirstRank)]);
    }
}

// A pair cell of a row as the judgement compares it, as one number that is alike for two cells
// exactly when they hold the same text. A pair of two digits from 1 up is kept as a number and
// keyed by its value, which tells numbers apart away from the counter's ends; a pair with a 0 is
// a text and keyed by its characters, with the top bit set, as a number cell and a text cell never
// hold the same text. A cell of neither kind gets a key of its own and is left to the sheet.
constexpr std::uint64_t kTextKey = std::uint64_t{1} << 63;
constexpr std::uint64_t kOtherKey = std::uint64_t{1} << 62;

constexpr int kJudgedCount = kLastDrawnPairCol - kFirstPairCol + 1;  // the run 22 to 39
constexpr auto kFirstDrawn = static_cast<std::size_t>(kFirstDrawnPairCol - kFirstPairCol);
// The cells of the run that are judged: the recommended pairs and the drawing's pairs.
constexpr unsigned kJudgedCells =
    ((1u << (kLastPairCol - kFirstPairCol + 1)) - 1) | (7u << kFirstDrawn);

// The keys of the judged cells of row r, and the cells left to the sheet as bits. Which pairs
// hold a 0 is anybody's guess, so the cells are sorted by kind first, without a branch, and each
// kind is then read by a loop of its own.
struct PairKeys {
    std::array<std::uint64_t, kJudgedCount> keys;  // of the judged cells only
    unsigned others = 0;
};

PairKeys ReadPairKeys(const ReportSheet& sheet, const ReportSheet::RowRun& cells, int r) {
    PairKeys read;
    unsigned numbers = 0;
    for (int i = 0; i < kJudgedCount; ++i)
        numbers |= (cells.HoldsNumber(i) ? 1u : 0u) << i;
    numbers &= kJudgedCells;
    for (unsigned m = numbers; m != 0; m &= m - 1) {
        const int i = std::countr_zero(m);
        const short value = cells.CellNumber(i);
        auto& key = read.keys[static_cast<std::size_t>(i)];
        if (value > -32768 && value < 32767) {
            key = static_cast<std::uint64_t>(value + 32768);
        } else {
            key = kOtherKey + static_cast<std::uint64_t>(i);
            read.others |= 1u << i;
        }
    }
    for (unsigned m = ~numbers & kJudgedCells; m != 0; m &= m - 1) {
        const int i = std::countr_zero(m);
        ReportSheet::NumberDigits digits;
        const std::string_view text = sheet.TextView(r, kFirstPairCol + i, digits);
        auto& key = read.keys[static_cast<std::size_t>(i)];
        if (text.size() < 8) {
            key = kTextKey | text.size();
            for (std::size_t k = 0; k < text.size(); ++k)
                key |= static_cast<std::uint64_t>(static_cast<unsigned char>(text[k]))
                       << (8 * k + 8);
        } else {
            key = kOtherKey + static_cast<std::uint64_t>(i);
            read.others |= 1u << i;
        }
    }
    return read;
}

// Each pair of the drawing against each recommended pair of its row: a match is red, and the
// row is marked once however many match.
void JudgePairs(ReportSheet& sheet, const ReportSheet::TextKey& hitMarker, int r) {
    const ReportSheet::RowRun cells = sheet.Run(r, kFirstPairCol, kLastDrawnPairCol);
    if (cells.Count() < kJudgedCount) return;
    const PairKeys read = ReadPairKeys(sheet, cells, r);
    const auto& keys = read.keys;
    std::array<int, kLastPairCol - kFirstPairCol + 1> hitCols;
    std::size_t hitCount = 0;
    for (int c = kFirstPairCol; c <= kLastPairCol; ++c) {
        const int i = c - kFirstPairCol;
        const std::uint64_t recommended = keys[static_cast<std::size_t>(i)];
        bool same = (recommended == keys[kFirstDrawn]) | (recommended == keys[kFirstDrawn + 1]) |
                    (recommended == keys[kFirstDrawn + 2]);
        if ((read.others >> i) & 1u) {
            for (int p = kFirstDrawnPairCol; p <= kLastDrawnPairCol; ++p)
                if ((read.others >> (p - kFirstPairCol)) & 1u) same |= sheet.SameText(r, p, r, c);
        }
        // Each column takes the next place of the list, which only a match keeps.
        hitCols[hitCount] = c;
        hitCount += same ? 1 : 0;
    }
    if (hitCount == 0) return;
    sheet.SetBackColor(r, std::span<const int>(hitCols.data(), hitCount), colours::kHit);
    sheet.SetBackColor(r, kHitCol, kHitMarkerColour);
    sheet.SetText(r, kHitCol, hitMarker);
}

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.Resize(1, kCols);  // the header row is written before the drawings are counted
    sheet.SetGridColour(kGridColour);
    LayOut(sheet);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 3, -1);
    PairTextWriter pairs(sheet);
    const ReportSheet::TextKey hitMarker = sheet.Prepare(kHitMarker);
    SevenDrawingRanking ranking;
    // The band of the middle ranks, written a batch of rows at a time.
    ColourBatch<1> band({ranking_colours::kMiddleRanks});
    auto shade = [&](int r) {
        static constexpr std::array<std::uint8_t, 4> kBand{0, 0, 0, 0};
        band.Add(sheet, r, ranking_cols::kFirstMiddleRank, kBand);
    };
    // A row's ranking rests on the rows above it only, so each row is worked whole while it is at
    // hand: its ranking, its recommended pairs and, for a drawing, their judgement.
    auto recommend = [&](int r) {
        ranking.Rank(sheet, r);
        shade(r);
        if (r >= kFirstPairRow) WriteRecommendedPairs(sheet, pairs, r);
    };
    FillSheet(
        sheet, drawings,
        [&](int r, CurrentDigits& digits) {
            SortDigits(digits);
            const auto [a, b, c] = digits;
            pairs.Set(r, kFirstDrawnPairCol, a, b);
            pairs.Set(r, kFirstDrawnPairCol + 1, a, c);
            pairs.Set(r, kLastDrawnPairCol, b, c);
            recommend(r);
            if (r >= kFirstPairRow) JudgePairs(sheet, hitMarker, r);
        },
        DigitColumns{ranking_cols::kFirstDigit, ranking_cols::kFirstDigit + 1,
                     ranking_cols::kFirstDigit + 2});
    // The next drawing's row is recommended for and never judged; the last row is only banded.
    recommend(drawCount + 1);
    shade(drawCount + 2);
    ranking.Finish(sheet);
    band.Flush(sheet);

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

}  // namespace numarel
