#pragma once
// The history every benchmark works on: the largest the reports can count, made up the same way
// on every run.
#include <cstdint>
#include <string>
#include <vector>

#include "data/drawings_file.h"
#include "support/made_up_history.h"

namespace numarel::bench {

// A drawings file of `count` drawings with digits from a fixed pseudo-random sequence.
inline std::string SyntheticFile(int count) {
    return testing::HistoryText(count, 12345, 1000001);
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
