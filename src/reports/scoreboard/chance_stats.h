#pragma once

#include <span>
#include <vector>

namespace numarel {

// Plain statistics of hits against chance. Each judged drawing is one trial whose chance of a hit
// is known exactly (the share of the 1000 numbers the claim would count as a hit), so the number
// of hits is a sum of independent trials of unequal chances.

// Hits chance gives and their spread: the sum of the chances, and the square root of the sum of
// p (1 - p).
struct ChanceSum {
    double expected = 0;
    double sd = 0;
};
ChanceSum SumOfChances(std::span<const double> chances);

// How far `hits` lies from `expected`, in standard deviations; 0 where sd is 0.
double ZScore(double hits, double expected, double sd);

// The two-sided p-value of a z under the normal curve: the chance of a distance at least |z|.
double TwoSidedP(double z);

// Benjamini-Hochberg q-values of `pValues`, in the same order: for the i-th smallest of m
// p-values, the smallest p(j) m / j over j >= i, at most 1.
std::vector<double> BenjaminiHochbergQ(std::span<const double> pValues);

// The longest run of misses in `hits`.
int LongestMiss(std::span<const unsigned char> hits);

// The chance that trials with hit chances `chances` have no run of `length` or more misses in a
// row. Exact: the chance of staying below the length, lowered at each trial by the chance that a
// run of exactly `length` misses ends there after a hit (or the start) while no such run came
// before.
double ChanceNoMissRun(std::span<const double> chances, int length);

// The same for `trials` trials of one chance, by Feller's formula (An Introduction to
// Probability Theory and Its Applications, vol. 1, XIII.7): (1 - q x) / ((L + 1 - L x) p) /
// x^(n+1), x the root of 1 - x + p q^L x^(L+1) near 1, where p is the hit chance and q = 1 - p. Its
// error falls fast as the trials grow; over thousands of trials it is far below what is shown.
double ChanceNoMissRunFeller(int trials, double chance, int length);

// Up to this many trials the expected longest miss is worked out exactly.
inline constexpr int kExactLongestMissTrials = 2000;

// The expected longest run of misses in trials with hit chances `chances`: the sum over lengths L
// of the chance of a run of L or more. Up to kExactLongestMissTrials trials each chance is worked
// out exactly by ChanceNoMissRun; beyond, by Feller's formula for trials of one chance, the
// geometric mean of the miss chances. Lengths whose chance is within 1e-13 of 1, or below
// 1e-13, count as 1 and 0.
double ExpectedLongestMiss(std::span<const double> chances);

}  // namespace numarel
