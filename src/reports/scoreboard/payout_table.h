#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "reports/scoreboard/method_claims.h"

namespace numarel {

// The payout table: a plain text file beside the selection file, one prize a line, such as
//     Straight = 500
//     6-way Box = 80
//     3-way Box = 160
// Names are read in any case, with or without blanks and hyphens; "#" starts a comment. A prize
// the file does not give keeps its default.
inline constexpr std::string_view kPayoutFileName = "payouts.txt";

// The table in `bytes`; each line that cannot be read is named in `problems`, and skipped.
PayoutTable ParsePayoutTable(std::string_view bytes, std::vector<std::string>* problems = nullptr);

// The table of `path`; the defaults when the file is missing or cannot be read.
PayoutTable ReadPayoutTable(const std::filesystem::path& path,
                            std::vector<std::string>* problems = nullptr);

// The text of a table, as the file holds it.
std::string PayoutTableText(const PayoutTable& table);

}  // namespace numarel
