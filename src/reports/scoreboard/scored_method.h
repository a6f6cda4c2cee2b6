#pragma once

#include <span>
#include <string_view>

namespace numarel {

// What a scored method is, as the scoreboard lists it.
enum class MethodKind {
    Forecast,  // a claim derived from the drawings before, written on the row it forecasts
    List,      // a fixed list of tickets
    Set,       // a fixed set of digits
};

// How a claim is read from its cells and what the report counts as a hit. Each is the report's
// own judgement rule, stated once for the scoreboard.
enum class ClaimShape {
    // Every character of the claim cells is a digit; a hit when the drawing holds any of them.
    AnyDigit,
    // The claim cells hold pair texts (smaller digit first); a hit when one of the drawing's
    // three pairs of sorted digits is among them.
    Pairs,
    // Each claim cell is a position mask such as "2**" or "*5*" (a hit note behind it left out);
    // a hit when the drawing has the digit at the mask's position, for any mask.
    PositionMasks,
    // The claim cells hold Sums; a hit when the drawing's Sum is one of them.
    Sums,
    // The claim cells hold H-T pairs; a hit when the drawing's H and T, in order, are one of them.
    // Each pair stands for the ten Straight Numbers it makes with any U.
    StraightPairs,
    // The claim cells hold 6 Way Box tickets; a hit when the drawing has all three digits of one.
    BoxTicketsSharedDigits,
    // The claim cells hold Box Number tickets; a hit when the drawing's sorted digits are one.
    BoxTicketsWhole,
    // One claim cell holds a digit set; a hit when the drawing's distinct digits are three and
    // all in the set.
    DigitSetSixWay,
    // As DigitSetSixWay, and a 3 Way Box whose two digits lie in the set hits too.
    DigitSetBox,
    // The claim cells hold the three Hot, four Warm and three Cold digits; a hit when the
    // drawing's count of Hot, Warm and Cold digits is the method's pattern ("003", "111", ...).
    // The Box Numbers of that pattern are the method's ticket list.
    HotWarmColdPattern,
};

// One method of one report: which cells hold its claim, where the report shows its judgement,
// and what there marks a hit. A report's methods are declared beside its registry row.
struct ScoredMethod {
    std::string_view object = {};  // the report's window object
    // The method's name as the window shows it; empty: the header text of the claim column
    // (with eachColumn).
    std::string_view name = {};
    MethodKind kind = MethodKind::Forecast;
    ClaimShape shape = ClaimShape::AnyDigit;
    // The claim's cells: `claimCount` columns from `firstClaimCol`, on the judged row itself,
    // or in the header row for a fixed list or set.
    int firstClaimCol = 5;
    int claimCount = 1;
    bool claimInHeader = false;
    // The report's judgement: a hit when the cell of `judgeCol` on the row is `hitText`, or, with
    // `hitUnless`, when it holds any text other than `hitText`.
    int judgeCol = 8;
    std::string_view hitText = "-Y-";
    bool hitUnless = false;
    // The first row the report judges; rows before it, and rows without a claim, are not judged.
    int firstJudgedRow = 2;
    // The column of the drawing's H (T and U follow it).
    int digitCol = 1;
    // With `eachColumn` > 1: that many methods, one per column, the claim column and the judgement
    // column moving on together (a table of fixed sets).
    int eachColumn = 1;
    // The pattern of HotWarmColdPattern.
    std::string_view pattern = {};
    // The claim on a row depends on that row's own fields (a date not known in advance): such a
    // method is shown, but kept out of the q-values. The look-ahead test holds this true exactly
    // for the methods whose next-drawing claim differs from the one the full history shows.
    bool usesLaterDrawings = false;
};

// The scored methods of one family, declared beside the family's registry rows.
using MethodFamily = std::span<const ScoredMethod> (*)();

// Every family's methods, in the order of the report families.
std::span<const MethodFamily> MethodFamilies();

// --- the families ---------------------------------------------------------------------------
std::span<const ScoredMethod> TicketsFollowMethods();
std::span<const ScoredMethod> DigitSetMethods();
std::span<const ScoredMethod> ColdWarmHotMethods();
std::span<const ScoredMethod> Recommend320StraightMethods();
std::span<const ScoredMethod> RecommendTundredTenUnitsMethods();
std::span<const ScoredMethod> RecommendThreeDigitsMethods();
std::span<const ScoredMethod> RecommendTwoDigitsMethods();
std::span<const ScoredMethod> FormulaDigitGroupsMethods();
std::span<const ScoredMethod> RecommendOneDigitMethods();
std::span<const ScoredMethod> RecommendPairsMethods();
std::span<const ScoredMethod> RecommendNumberSumMethods();

}  // namespace numarel
