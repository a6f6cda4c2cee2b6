#pragma once
// The history every benchmark works on: the largest the reports can count, made up the same way
// on every run.
#include <cstdint>
#include <string>
#include <vector>

#include "data/drawings_file.h"

namespace numarel::bench {

// A drawings file of `count` drawings with digits from a fixed pseudo-random sequence.
inline std::string SyntheticFile(int count) {
    std::string bytes;
    std::uint32_t state = 12345;
    for (int i = 0; i < count; ++i) {
        bytes += std::to_string(1000001 + i);
        for (int k = 0; k < 3; ++k) {
            state = state * 1664525u + 1013904223u;
            bytes += ' ';
            bytes += static_cast<char>('0' + (state >> 16) % 10);
        }
        bytes += "\r\n";
    }
    return bytes;
}

// That file for 32767 drawings, and its drawings.
inline const std::string& LargestFile() {
    static const std::string bytes = SyntheticFile(static_cast<int>(kMaxDrawings));
    return bytes;
}
inline const std::vector<DrawRecord>& LargestHistory() {
    static const std::vector<DrawRecord> drawings = ParseDrawings(LargestFile());
    return drawings;
}

}  // namespace numarel::bench
