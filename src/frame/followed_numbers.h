#pragma once

#include <span>
#include <string>
#include <vector>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// What sets apart the reports that follow a list of Box Numbers at once (the Box statistics and
// the 70 tickets).
struct FollowedNumbers {
    std::vector<std::string> (*numbers)();  // the headers of the number columns, in order
    bool stripeEvenSums = false;            // columns of an even digit sum are striped
};

// Follows every number of the list at once, one column each: the hits, the Miss of every
// number, and on each hit how long that number had stayed away, sorted into bands.
void BuildFollowedNumbers(const FollowedNumbers& report, std::span<const DrawRecord> drawings,
                          ReportSheet& sheet);

}  // namespace numarel
