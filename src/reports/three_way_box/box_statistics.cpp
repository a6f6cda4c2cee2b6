#include "frame/followed_numbers.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

std::string Digits(int a, int b, int c) {
    return {static_cast<char>('0' + a), static_cast<char>('0' + b), static_cast<char>('0' + c)};
}

// i i j for every j above i, then i j j, for each i in turn.
std::vector<std::string> AllThreeWayBoxes() {
    std::vector<std::string> out;
    for (int i = 0; i <= 8; ++i) {
        for (int j = i + 1; j <= 9; ++j)
            out.push_back(Digits(i, i, j));
        for (int j = i + 1; j <= 9; ++j)
            out.push_back(Digits(i, j, j));
    }
    return out;
}

std::vector<std::string> AllSixWayBoxes() {
    std::vector<std::string> out;
    for (int i = 0; i <= 7; ++i)
        for (int j = i + 1; j <= 8; ++j)
            for (int k = j + 1; k <= 9; ++k)
                out.push_back(Digits(i, j, k));
    return out;
}

const FollowedNumbers kThreeWayBoxes = {.numbers = AllThreeWayBoxes};
const FollowedNumbers kSixWayBoxes = {.numbers = AllSixWayBoxes};

}  // namespace

std::span<const ReportDefinition> BoxStatisticsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmzusan90",
         .title = "3 Way Box Statistical",
         .build = BuildMember<BuildFollowedNumbers, kThreeWayBoxes>,
         .help = HelpButton::Inert},
        {.object = "frmzuliu120",
         .title = "6 Way Box Statistical",
         .build = BuildMember<BuildFollowedNumbers, kSixWayBoxes>,
         .help = HelpButton::Inert},
    };
    return kReports;
}

}  // namespace numarel
