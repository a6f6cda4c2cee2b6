#include "reports/scoreboard/method_claims.h"

#include <algorithm>
#include <array>
#include <bit>

#include "data/basic_text.h"

namespace numarel {
namespace {

struct Digits {
    int h, t, u;
};
Digits DigitsOf(int number) {
    return {number / 100, number / 10 % 10, number % 10};
}

// The parts of a claim text, split at ",".
std::vector<std::string_view> Parts(std::string_view claim) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    while (start <= claim.size()) {
        const std::size_t comma = std::min(claim.find(',', start), claim.size());
        parts.push_back(claim.substr(start, comma - start));
        start = comma + 1;
    }
    return parts;
}

std::string SortedText(Digits d) {
    std::array<int, 3> s = {d.h, d.t, d.u};
    std::sort(s.begin(), s.end());
    return {static_cast<char>('0' + s[0]), static_cast<char>('0' + s[1]),
            static_cast<char>('0' + s[2])};
}

std::string DistinctText(Digits d) {
    std::string sorted = SortedText(d);
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    return sorted;
}

int DigitBit(char c) {
    return c >= '0' && c <= '9' ? 1 << (c - '0') : 0;
}

// A claim made ready for the 1000 numbers: each rule reduced to small tables.
class CompiledClaim {
public:
    CompiledClaim(const ScoredMethod& method, const std::vector<std::string_view>& parts)
        : method_(method) {
        switch (method.shape) {
            case ClaimShape::AnyDigit:
                for (std::string_view part : parts)
                    for (char c : part)
                        digits_ |= DigitBit(c);
                break;
            case ClaimShape::Pairs:
            case ClaimShape::StraightPairs:
                for (std::string_view part : parts)
                    if (part.size() == 2 && DigitBit(part[0]) && DigitBit(part[1]))
                        table_.set(static_cast<std::size_t>((part[0] - '0') * 10 + part[1] - '0'));
                break;
            case ClaimShape::PositionMasks:
                // The stars before the digit give its position; the digit is compared as text,
                // so a carried field of two characters never hits.
                for (std::string_view part : parts) {
                    const std::size_t position = part.find_first_not_of('*');
                    if (position > 2) continue;
                    const std::string_view digit =
                        part.substr(position, part.find('*', position) - position);
                    if (digit.size() == 1) positions_[position] |= DigitBit(digit[0]);
                }
                break;
            case ClaimShape::Sums:
                for (std::string_view part : parts)
                    for (int sum = 0; sum <= 27; ++sum)
                        if (part == std::to_string(sum)) table_.set(static_cast<std::size_t>(sum));
                break;
            case ClaimShape::BoxTicketsSharedDigits:
                // The report counts the ticket's characters found among the drawing's digits.
                for (std::string_view part : parts) {
                    int bits = 0;
                    int found = 0;
                    for (char c : part) {
                        bits |= DigitBit(c);
                        found += DigitBit(c) ? 1 : 0;
                    }
                    if (found == 3 && std::popcount(static_cast<unsigned>(bits)) == 3)
                        sixWayTickets_.push_back(bits);
                }
                break;
            case ClaimShape::BoxTicketsWhole:
                for (std::string_view part : parts)
                    if (part.size() == 3 && DigitBit(part[0]) && DigitBit(part[1]) &&
                        DigitBit(part[2]))
                        table_.set(static_cast<std::size_t>((part[0] - '0') * 100 +
                                                            (part[1] - '0') * 10 + part[2] - '0'));
                break;
            case ClaimShape::DigitSetSixWay:
            case ClaimShape::DigitSetBox:
                if (!parts.empty())
                    for (char c : parts.front())
                        digits_ |= DigitBit(c);
                break;
            case ClaimShape::HotWarmColdPattern:
                // Ten digit cells: three Hot, four Warm, three Cold.
                classOf_.fill(-1);
                if (parts.size() == 10 && method.pattern.size() == 3)
                    for (std::size_t i = 0; i < parts.size(); ++i)
                        if (parts[i].size() == 1 && DigitBit(parts[i][0]))
                            classOf_[static_cast<std::size_t>(parts[i][0] - '0')] = i < 3   ? 0
                                                                                    : i < 7 ? 1
                                                                                            : 2;
                break;
        }
    }

    bool Hit(Digits d) const {
        const int bits = (1 << d.h) | (1 << d.t) | (1 << d.u);
        const int distinct = std::popcount(static_cast<unsigned>(bits));
        switch (method_.shape) {
            case ClaimShape::AnyDigit:
                return (digits_ & bits) != 0;
            case ClaimShape::Pairs: {
                std::array<int, 3> s = {d.h, d.t, d.u};
                std::sort(s.begin(), s.end());
                return table_.test(static_cast<std::size_t>(s[0] * 10 + s[1])) ||
                       table_.test(static_cast<std::size_t>(s[0] * 10 + s[2])) ||
                       table_.test(static_cast<std::size_t>(s[1] * 10 + s[2]));
            }
            case ClaimShape::PositionMasks:
                return (positions_[0] >> d.h & 1) || (positions_[1] >> d.t & 1) ||
                       (positions_[2] >> d.u & 1);
            case ClaimShape::Sums:
                return table_.test(static_cast<std::size_t>(d.h + d.t + d.u));
            case ClaimShape::StraightPairs:
                return table_.test(static_cast<std::size_t>(d.h * 10 + d.t));
            case ClaimShape::BoxTicketsSharedDigits:
                return distinct == 3 && std::find(sixWayTickets_.begin(), sixWayTickets_.end(),
                                                  bits) != sixWayTickets_.end();
            case ClaimShape::BoxTicketsWhole: {
                std::array<int, 3> s = {d.h, d.t, d.u};
                std::sort(s.begin(), s.end());
                return table_.test(static_cast<std::size_t>(s[0] * 100 + s[1] * 10 + s[2]));
            }
            case ClaimShape::DigitSetSixWay:
            case ClaimShape::DigitSetBox: {
                const int score = std::popcount(static_cast<unsigned>(digits_ & bits));
                if (score == 3) return true;
                return method_.shape == ClaimShape::DigitSetBox && score == 2 && distinct == 2;
            }
            case ClaimShape::HotWarmColdPattern: {
                int counts[3] = {0, 0, 0};
                for (int digit : {d.h, d.t, d.u}) {
                    const int c = classOf_[static_cast<std::size_t>(digit)];
                    if (c < 0) return false;
                    ++counts[c];
                }
                for (int k = 0; k < 3; ++k)
                    if (counts[k] != method_.pattern[static_cast<std::size_t>(k)] - '0')
                        return false;
                return true;
            }
        }
        return false;
    }

private:
    const ScoredMethod& method_;
    int digits_ = 0;
    std::bitset<1000> table_;
    std::array<int, 3> positions_ = {0, 0, 0};
    std::vector<int> sixWayTickets_;
    std::array<int, 10> classOf_{};
};

}  // namespace

std::vector<MethodColumn> ExpandMethod(const ScoredMethod& method, const ReportSheet& sheet) {
    std::vector<MethodColumn> columns;
    for (int i = 0; i < std::max(1, method.eachColumn); ++i) {
        MethodColumn column{&method, i, std::string(method.name)};
        if (column.name.empty()) column.name = std::string(Trim(sheet.Text(0, column.ClaimCol())));
        columns.push_back(std::move(column));
    }
    return columns;
}

std::string ClaimText(const MethodColumn& method, const ReportSheet& sheet, int row) {
    const ScoredMethod& m = *method.method;
    const int claimRow = m.claimInHeader ? 0 : row;
    const int first = method.ClaimCol();
    const int count = m.eachColumn > 1 ? 1 : m.claimCount;
    std::string claim;
    bool any = false;
    ReportSheet::NumberDigits buffer;
    for (int c = first; c < first + count; ++c) {
        std::string_view text = Trim(sheet.TextView(claimRow, c, buffer));
        // A mask that hit carries a note behind it.
        if (m.shape == ClaimShape::PositionMasks && text.ends_with("(YES)")) text.remove_suffix(5);
        if (!text.empty()) any = true;
        if (c > first) claim += ',';
        claim += text;
    }
    return any ? claim : std::string();
}

std::optional<int> DrawnNumber(const ReportSheet& sheet, int row, int digitCol) {
    int number = 0;
    ReportSheet::NumberDigits buffer;
    for (int c = digitCol; c < digitCol + 3; ++c) {
        const std::string_view text = sheet.TextView(row, c, buffer);
        if (text.size() != 1 || text[0] < '0' || text[0] > '9') return std::nullopt;
        number = number * 10 + (text[0] - '0');
    }
    return number;
}

bool JudgedHit(const MethodColumn& method, const ReportSheet& sheet, int row) {
    const ScoredMethod& m = *method.method;
    const int col = method.JudgeCol();
    if (m.hitUnless) return !sheet.IsEmpty(row, col) && !sheet.TextIs(row, col, m.hitText);
    return sheet.TextIs(row, col, m.hitText);
}

HitNumbers ClaimHits(const ScoredMethod& method, std::string_view claim) {
    HitNumbers hits;
    if (claim.empty()) return hits;
    const CompiledClaim compiled(method, Parts(claim));
    for (int n = 0; n < 1000; ++n)
        if (compiled.Hit(DigitsOf(n))) hits.set(static_cast<std::size_t>(n));
    return hits;
}

std::string CanonicalClaim(const ScoredMethod& method, std::string_view claim) {
    switch (method.shape) {
        case ClaimShape::Sums:
        case ClaimShape::StraightPairs:
        case ClaimShape::BoxTicketsWhole:
            return std::string(claim);  // a digit's value or place in a ticket counts
        default:
            break;
    }
    std::array<char, 10> name{};
    char next = '0';
    std::string canonical(claim);
    for (char& c : canonical) {
        if (c < '0' || c > '9') continue;
        char& renamed = name[static_cast<std::size_t>(c - '0')];
        if (!renamed) renamed = next++;
        c = renamed;
    }
    if (method.shape == ClaimShape::Pairs)
        for (std::size_t i = 0; i + 1 < canonical.size(); ++i)
            if ((i == 0 || canonical[i - 1] == ',') && canonical[i + 1] != ',' &&
                canonical[i] > canonical[i + 1])
                std::swap(canonical[i], canonical[i + 1]);
    return canonical;
}

bool IsTicketList(ClaimShape shape) {
    return shape == ClaimShape::StraightPairs || shape == ClaimShape::BoxTicketsSharedDigits ||
           shape == ClaimShape::BoxTicketsWhole || shape == ClaimShape::HotWarmColdPattern;
}

bool IsStraightList(ClaimShape shape) {
    return shape == ClaimShape::StraightPairs;
}

int TicketCount(const HitNumbers& hits, bool straight) {
    if (straight) return static_cast<int>(hits.count());
    std::bitset<1000> boxes;
    for (int n = 0; n < 1000; ++n) {
        if (!hits.test(static_cast<std::size_t>(n))) continue;
        const std::string sorted = SortedText(DigitsOf(n));
        boxes.set(static_cast<std::size_t>(std::stoi(sorted)));
    }
    return static_cast<int>(boxes.count());
}

double ReturnOfHit(int number, bool straight, const PayoutTable& payouts) {
    if (straight) return payouts.straight;
    const std::size_t distinct = DistinctText(DigitsOf(number)).size();
    if (distinct == 3) return payouts.sixWayBox;
    if (distinct == 2) return payouts.threeWayBox;
    return payouts.straight;
}

std::array<int, 3> HitsByShape(const HitNumbers& hits) {
    std::array<int, 3> counts = {0, 0, 0};
    for (int n = 0; n < 1000; ++n)
        if (hits.test(static_cast<std::size_t>(n))) ++counts[3 - DistinctText(DigitsOf(n)).size()];
    return counts;
}

}  // namespace numarel
