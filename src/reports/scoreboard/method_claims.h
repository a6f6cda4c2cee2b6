#pragma once

#include <array>
#include <bitset>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/report_sheet.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {

// One method of a finished sheet: a declared row, and for a row with `eachColumn` the column it
// stands for.
struct MethodColumn {
    const ScoredMethod* method = nullptr;
    int offset = 0;  // 0 to eachColumn - 1
    std::string name;
    int ClaimCol() const { return method->firstClaimCol + offset; }
    int JudgeCol() const { return method->judgeCol + offset; }
};

// The methods a declared row stands for on a finished sheet, named as the window shows them.
std::vector<MethodColumn> ExpandMethod(const ScoredMethod& method, const ReportSheet& sheet);

// The claim of `method` for the drawing of `row`, as one text: its cells' texts, trimmed (a
// position mask without its hit note), joined by ","; empty when the row holds no claim. A fixed
// list or set gives its header whatever the row.
std::string ClaimText(const MethodColumn& method, const ReportSheet& sheet, int row);

// The drawing of `row` as the number 0 to 999, read from the method's digit columns; nothing
// when a digit cell does not hold one digit.
std::optional<int> DrawnNumber(const ReportSheet& sheet, int row, int digitCol);

// True when the report's judgement cell of `row` marks a hit.
bool JudgedHit(const MethodColumn& method, const ReportSheet& sheet, int row);

// The numbers 000 to 999 that `claim` (a ClaimText) counts as a hit under the method's rule.
using HitNumbers = std::bitset<1000>;
HitNumbers ClaimHits(const ScoredMethod& method, std::string_view claim);

// A claim with the same figures as `claim` (chance, tickets, shapes of the numbers it hits): for
// a rule that treats all digits alike, the digits renamed 0, 1, 2, ... in the order they first
// appear (a pair's two digits then put in order). Claims that rank the same digits differently
// share one text, so their figures are worked out once.
std::string CanonicalClaim(const ScoredMethod& method, std::string_view claim);

// True when the claim is a list of tickets to play: Box Number or Straight tickets.
bool IsTicketList(ClaimShape shape);
// True when the tickets of a list are Straight tickets (else Box Number tickets).
bool IsStraightList(ClaimShape shape);

// What a ticket list costs and pays for one drawing, in units.
struct PayoutTable {
    double straight = 500;     // a 1-unit Straight ticket that hits
    double sixWayBox = 80;     // a 1-unit 6 Way Box ticket that hits
    double threeWayBox = 160;  // a 1-unit 3 Way Box ticket that hits
};

// The tickets of a list: Straight tickets are the numbers it hits; Box tickets the Box Numbers
// among them.
int TicketCount(const HitNumbers& hits, bool straight);

// What a hit on `number` returns: a Straight ticket pays the Straight prize; a Box ticket pays by
// the drawing's shape, a triple being one arrangement, paid as a Straight ticket.
double ReturnOfHit(int number, bool straight, const PayoutTable& payouts);

// How many of the numbers a claim hits are 6 Way Box numbers, 3 Way Box numbers and triples.
std::array<int, 3> HitsByShape(const HitNumbers& hits);

}  // namespace numarel
