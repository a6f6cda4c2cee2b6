#include "frame/followed_numbers.h"

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/label_forms.h"
#include "frame/number_classes.h"

namespace numarel {
namespace {

constexpr int kSortedCol = 4;
constexpr int kFollowedMarkCol = 5;
constexpr int kFirstNumberCol = 6;
constexpr std::string_view kHitMarker = "****";
constexpr Rgb kStripe = MakeRgb(170, 210, 176);

constexpr std::array<std::string_view, 6> kBands = {"0-100",   "101-200", "201-300",
                                                    "301-400", "401-500", ">500"};

int DigitSum(std::string_view number) {
    int sum = 0;
    for (char c : number)
        sum += c - '0';
    return sum;
}

// The band column (1 for "0-100" to 6 for ">500") a distance falls in.
int BandOf(int distance) {
    if (distance <= 100) return 1;
    if (distance > 500) return 6;
    return (distance - 1) / 100 + 1;
}

}  // namespace

void BuildFollowedNumbers(const FollowedNumbers& report, std::span<const DrawRecord> drawings,
                          ReportSheet& sheet) {
    const std::vector<std::string> numbers = report.numbers();
    const int lastNumberCol = kFirstNumberCol + static_cast<int>(numbers.size()) - 1;
    const int missCol = lastNumberCol + 1;  // "Winning Number Miss"

    sheet.SetCols(missCol + 1 + static_cast<int>(kBands.size()));
    sheet.SetColWidth(0, 1032);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(kFollowedMarkCol, 300);
    for (int c = kFirstNumberCol; c <= lastNumberCol; ++c)
        sheet.SetColWidth(c, 420);
    sheet.SetColWidth(missCol, 1548);
    sheet.SetColWidth(kSortedCol, 2);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 5);
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        sheet.SetText(row, 0, CompactLabel(sheet.Text(row, 0), '|'));
        SortDigits(digits);
        sheet.SetText(row, kSortedCol, JoinedDigits(digits));
    });

    if (report.stripeEvenSums) {
        std::vector<int> striped;
        for (int c = kFirstNumberCol; c <= lastNumberCol; ++c)
            if (DigitSum(numbers[static_cast<std::size_t>(c - kFirstNumberCol)]) % 2 == 0)
                striped.push_back(c);
        for (int r = 1; r <= drawCount; ++r)
            sheet.SetBackColor(r, striped, kStripe);
    }

    HeadDigitColumns(sheet);
    for (int c = kFirstNumberCol; c <= lastNumberCol; ++c)
        sheet.SetText(0, c, numbers[static_cast<std::size_t>(c - kFirstNumberCol)]);
    sheet.SetText(0, missCol, "Winning Number Miss");
    for (std::size_t i = 0; i < kBands.size(); ++i)
        sheet.SetText(0, missCol + 1 + static_cast<int>(i), kBands[i]);
    sheet.SetCurrentCell(drawCount + 1, 1);

    // Hits: the sorted digits and the header compare as numbers, so "012" is 12.
    std::vector<short> headerValues(static_cast<std::size_t>(missCol));
    for (int c = kFirstNumberCol; c <= lastNumberCol; ++c)
        headerValues[static_cast<std::size_t>(c)] = sheet.CellNumber(0, c);
    // The columns of each header number, in ascending order, so that a row goes straight to
    // its hits.
    std::unordered_map<short, std::vector<int>> columnsOf;
    for (int c = kFirstNumberCol; c <= lastNumberCol; ++c)
        columnsOf[headerValues[static_cast<std::size_t>(c)]].push_back(c);
    // No two headers share a number, so a row has one hit at most: the column of each row's hit
    // (0 for none) tells the distance pass where to look.
    std::vector<int> hitCol(static_cast<std::size_t>(drawCount) + 1, 0);
    for (int r = 1; r <= drawCount; ++r) {
        const auto found = columnsOf.find(sheet.CellNumber(r, kSortedCol));
        if (found == columnsOf.end()) continue;
        for (int c : found->second) {
            sheet.SetText(r, c, kHitMarker);
            sheet.SetBackColor(r, c, colours::kHit);
            sheet.SetText(r, kFollowedMarkCol, "-Y-");
            hitCol[static_cast<std::size_t>(r)] = c;
        }
    }

    FillMissCounters(sheet, kFirstNumberCol, lastNumberCol);

    // The distance of a hit is read off the Miss number just above it; a direct repeat is 0.
    for (int r = 2; r <= drawCount; ++r) {
        const int c = hitCol[static_cast<std::size_t>(r)];
        if (c == 0 || !sheet.TextIs(r, c, kHitMarker)) continue;
        const int distance =
            sheet.TextIs(r - 1, c, kHitMarker) ? 0 : sheet.CellNumber(r - 1, c) + 1;
        sheet.SetNumber(r, missCol, distance);
        sheet.SetText(r, missCol + BandOf(distance), "*");
    }

    FinishLoad(sheet);
}

}  // namespace numarel
