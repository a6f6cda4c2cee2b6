#pragma once
// Made-up drawings files, the same on every run: the histories of the tests and of the benchmark.
#include <cstdint>
#include <string>

namespace numarel::testing {

// A drawings file of `count` made-up drawings dated `firstDate`, `firstDate` + 1, ..., the same
// for the same `seed` on every run.
inline std::string HistoryText(int count, std::uint32_t seed, long firstDate = 2021001) {
    std::string bytes;
    std::uint32_t state = seed;
    for (int i = 0; i < count; ++i) {
        bytes += std::to_string(firstDate + i);
        for (int k = 0; k < 3; ++k) {
            state = state * 1664525u + 1013904223u;
            bytes += ' ';
            bytes += static_cast<char>('0' + (state >> 16) % 10);
        }
        bytes += "\r\n";
    }
    return bytes;
}

}  // namespace numarel::testing
