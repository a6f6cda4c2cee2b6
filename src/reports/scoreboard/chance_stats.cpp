#include "reports/scoreboard/chance_stats.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace numarel {

ChanceSum SumOfChances(std::span<const double> chances) {
    double expected = 0;
    double variance = 0;
    for (double p : chances) {
        expected += p;
        variance += p * (1 - p);
    }
    return {expected, std::sqrt(variance)};
}

double ZScore(double hits, double expected, double sd) {
    return sd > 0 ? (hits - expected) / sd : 0;
}

double TwoSidedP(double z) {
    return std::erfc(std::fabs(z) / std::sqrt(2.0));
}

std::vector<double> BenjaminiHochbergQ(std::span<const double> pValues) {
    const std::size_t m = pValues.size();
    std::vector<std::size_t> order(m);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return pValues[a] < pValues[b]; });
    std::vector<double> q(m);
    double running = 1;
    for (std::size_t k = m; k-- > 0;) {
        const std::size_t i = order[k];
        running =
            std::min(running, pValues[i] * static_cast<double>(m) / static_cast<double>(k + 1));
        q[i] = running;
    }
    return q;
}

int LongestMiss(std::span<const unsigned char> hits) {
    int longest = 0;
    int run = 0;
    for (unsigned char hit : hits) {
        run = hit ? 0 : run + 1;
        longest = std::max(longest, run);
    }
    return longest;
}

double ChanceNoMissRun(std::span<const double> chances, int length) {
    const std::size_t n = chances.size();
    const auto len = static_cast<std::size_t>(length);
    if (length <= 0) return 0;
    if (len > n) return 1;
    // alive[i]: no run of `length` misses among the first i trials. started[i]: alive after i
    // trials with trial i a hit (i = 0: the start), where a run may begin.
    std::vector<double> alive(n + 1, 1.0);
    std::vector<double> started(n + 1, 0.0);
    started[0] = 1;
    // The chance that the `length` trials ending at trial i all miss, kept by a sliding product;
    // a sure hit (chance 1) in the window makes it 0, counted apart so that nothing is divided by
    // 0.
    double product = 1;
    int sureHits = 0;
    for (std::size_t i = 1; i <= n; ++i) {
        const double miss = 1 - chances[i - 1];
        if (miss == 0)
            ++sureHits;
        else
            product *= miss;
        if (i > len) {
            const double leaving = 1 - chances[i - len - 1];
            if (leaving == 0)
                --sureHits;
            else
                product /= leaving;
        }
        double a = alive[i - 1];
        if (i >= len && sureHits == 0) a -= started[i - len] * product;
        alive[i] = a;
        started[i] = alive[i - 1] * chances[i - 1];
    }
    return std::clamp(alive[n], 0.0, 1.0);
}

namespace {

// Sums the chance of a run of L or more over L, where `atLeast(L)` gives it and falls as L grows:
// lengths whose chance is within 1e-13 of 1, or below 1e-13, count as 1 and 0.
template <class AtLeast>
double SumOverLengths(int n, AtLeast&& atLeast) {
    constexpr double kTail = 1e-13;
    int lo = 0;  // the last L with atLeast(L) > 1 - kTail
    int top = n + 1;
    while (top - lo > 1) {
        const int mid = lo + (top - lo) / 2;
        if (atLeast(mid) > 1 - kTail)
            lo = mid;
        else
            top = mid;
    }
    const int sure = lo;
    top = n + 1;  // the first L with atLeast(L) < kTail
    while (top - lo > 1) {
        const int mid = lo + (top - lo) / 2;
        if (atLeast(mid) < kTail)
            top = mid;
        else
            lo = mid;
    }
    double expected = sure;
    for (int length = sure + 1; length < top; ++length)
        expected += atLeast(length);
    return expected;
}

}  // namespace

double ChanceNoMissRunFeller(int trials, double chance, int length) {
    if (length <= 0) return 0;
    if (length > trials) return 1;
    if (chance <= 0) return 0;
    if (chance >= 1) return 1;
    const double q = 1 - chance;
    // The root of 1 - x + p q^L x^(L+1) between 1 and 1 / q, by Newton's steps from 1 (the
    // function is convex there, so the steps climb to it without passing it).
    const double a = chance * std::pow(q, length);
    const double L = length;
    double x = 1;
    for (int i = 0; i < 200; ++i) {
        const double power = std::pow(x, L);
        const double f = 1 - x + a * power * x;
        const double slope = -1 + a * (L + 1) * power;
        if (slope >= 0) return 0;  // no root below 1 / q: a run of this length is all but sure
        const double step = f / -slope;
        x += step;
        if (step < 1e-15 * x) break;
    }
    if (x >= 1 / q) return 0;
    const double value =
        (1 - q * x) / ((L + 1 - L * x) * chance) * std::exp(-(trials + 1.0) * std::log(x));
    return std::clamp(value, 0.0, 1.0);
}

double ExpectedLongestMiss(std::span<const double> chances) {
    const int n = static_cast<int>(chances.size());
    if (n == 0) return 0;
    if (n <= kExactLongestMissTrials)
        return SumOverLengths(n, [&](int length) { return 1 - ChanceNoMissRun(chances, length); });
    // A long stretch: trials of one chance whose miss chance is the geometric mean of theirs, so
    // that a run of misses is, over the stretch, as likely as among the trials themselves.
    double logMiss = 0;
    for (double p : chances) {
        if (p >= 1)
            return SumOverLengths(n,
                                  [&](int length) { return 1 - ChanceNoMissRun(chances, length); });
        logMiss += std::log1p(-p);
    }
    const double chance = -std::expm1(logMiss / n);
    return SumOverLengths(n,
                          [&](int length) { return 1 - ChanceNoMissRunFeller(n, chance, length); });
}

}  // namespace numarel
