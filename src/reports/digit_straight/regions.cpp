#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/header_columns.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr Rgb kPatternColour = MakeRgb(127, 182, 200);
constexpr Rgb kSumColour = MakeRgb(255, 0, 0);

// A region's digits stand in consecutive columns of every drawing's row, under its name.
struct RegionBlock {
    std::string_view name;
    int firstCol;
    std::string_view digits;
};

struct WidthRun {
    int firstCol;
    int lastCol;
    int twips;
};

// A run of columns whose headers are the texts a drawing's value is looked up by.
struct HeaderRun {
    int firstCol;
    std::span<const std::string_view> headers;
};

// How a drawing's region pattern is found.
enum class PatternRule {
    RegionCounts,  // how many drawn digits each region holds, in region order
    SortedCodes,   // the region codes of H, T, U sorted ascending, with their sum and type
};

struct RegionsChart {
    int cols;
    std::span<const WidthRun> widths;  // in the order they are set: dividers and stores last
    std::span<const RegionBlock> regions;
    HeaderRun patterns;
    PatternRule rule;
    // SortedCodes only:
    int firstCodeCol = -1;  // region codes of H, T, U; the sorted codes follow
    HeaderRun sums{};       // sum of the sorted codes
    HeaderRun types{};      // three regions, two, one
};

constexpr WidthRun kThreeRegionWidths[] = {{0, 0, 1290}, {1, 16, 300}, {18, 27, 420}, {17, 17, 20}};
constexpr RegionBlock kThreeRegionBlocks[] = {{"S", 5, "012"}, {"M", 9, "3456"}, {"L", 14, "789"}};
constexpr std::string_view kThreeRegionPatterns[] = {"003", "012", "021", "030", "102",
                                                     "111", "120", "201", "210", "300"};

constexpr WidthRun kFourRegionWidths[] = {{0, 0, 1290},  {1, 17, 275}, {19, 38, 406}, {40, 49, 305},
                                          {51, 53, 840}, {4, 4, 20},   {18, 18, 20},  {39, 39, 20},
                                          {50, 50, 20},  {54, 59, 2}};
constexpr RegionBlock kFourRegionBlocks[] = {
    {"1", 5, "13"}, {"2", 8, "024"}, {"3", 12, "579"}, {"4", 16, "68"}};
constexpr std::string_view kFourRegionPatterns[] = {"111", "112", "113", "114", "122", "123", "124",
                                                    "133", "134", "144", "222", "223", "224", "233",
                                                    "234", "244", "333", "334", "344", "444"};
constexpr std::string_view kFourRegionSums[] = {"3", "4", "5",  "6",  "7",
                                                "8", "9", "10", "11", "12"};
constexpr std::string_view kFourRegionTypes[] = {"Type-1", "Type-2", "Type-3"};

constexpr RegionsChart kThreeRegions{
    28,
    kThreeRegionWidths,
    kThreeRegionBlocks,
    {18, kThreeRegionPatterns},
    PatternRule::RegionCounts,
};

constexpr RegionsChart kFourRegions{
    60,
    kFourRegionWidths,
    kFourRegionBlocks,
    {19, kFourRegionPatterns},
    PatternRule::SortedCodes,
    54,
    {40, kFourRegionSums},
    {51, kFourRegionTypes},
};

// A header run as read back from row 0 once. A drawing's value is shown by writing, in the
// column headed by the value, the header's own text.
class HeadedColumns {
public:
    HeadedColumns(const ReportSheet& sheet, const HeaderRun& run)
        : firstCol_(run.firstCol),
          columns_(sheet, run.firstCol, run.firstCol + static_cast<int>(run.headers.size()) - 1,
                   /*trim=*/false) {}
    // Marks the first column headed `value`; nothing when no column has that header.
    void Mark(ReportSheet& sheet, int r, std::string_view value, Rgb colour) const {
        if (const int col = columns_.Find(value); col >= 0) MarkColumn(sheet, r, col, colour);
    }
    // Marks the run's column `index`, counted from 0.
    void MarkAt(ReportSheet& sheet, int r, int index, Rgb colour) const {
        MarkColumn(sheet, r, firstCol_ + index, colour);
    }

private:
    void MarkColumn(ReportSheet& sheet, int r, int col, Rgb colour) const {
        sheet.SetText(r, col, columns_.Header(col));
        sheet.SetBackColor(r, col, colour);
    }

    int firstCol_;
    HeaderColumns columns_;
};

// The header runs a drawing is marked under.
struct ChartColumns {
    ChartColumns(const ReportSheet& sheet, const RegionsChart& chart)
        : patterns(sheet, chart.patterns), sums(sheet, chart.sums), types(sheet, chart.types) {}
    HeadedColumns patterns;
    HeadedColumns sums;   // sorted codes only
    HeadedColumns types;  // sorted codes only
};

void WriteHeaders(ReportSheet& sheet, const HeaderRun& run) {
    for (int i = 0; i < static_cast<int>(run.headers.size()); ++i)
        sheet.SetText(0, run.firstCol + i, run.headers[static_cast<std::size_t>(i)]);
}

// The region digits are written into every drawing's row, so each mark stands on its own text.
void WriteRegionDigits(ReportSheet& sheet, const RegionsChart& chart, int r) {
    for (const RegionBlock& region : chart.regions)
        for (int i = 0; i < static_cast<int>(region.digits.size()); ++i)
            sheet.SetNumber(r, region.firstCol + i,
                            region.digits[static_cast<std::size_t>(i)] - '0');
}

// Region codes of H, T, U, then the same codes sorted ascending.
void WriteRegionCodes(ReportSheet& sheet, int firstCodeCol, int r) {
    for (int p = 0; p < 3; ++p)
        sheet.SetNumber(r, firstCodeCol + p, FourRegion1234(sheet.CellNumber(r, 1 + p)) - '0');
    CurrentDigits codes{sheet.CellNumber(r, firstCodeCol), sheet.CellNumber(r, firstCodeCol + 1),
                        sheet.CellNumber(r, firstCodeCol + 2)};
    SortDigits(codes);
    for (int p = 0; p < 3; ++p)
        sheet.SetNumber(r, firstCodeCol + 3 + p, codes[static_cast<std::size_t>(p)]);
}

// The drawing's digits as read back from columns 1 to 3.
std::array<short, 3> DrawnDigits(const ReportSheet& sheet, int r) {
    return {sheet.CellNumber(r, 1), sheet.CellNumber(r, 2), sheet.CellNumber(r, 3)};
}

int LastCol(const RegionBlock& region) {
    return region.firstCol + static_cast<int>(region.digits.size()) - 1;
}

// Colours the region digits of row r that the drawing holds, and gives how many drawn digits
// each region holds: a digit drawn twice counts twice in its region.
std::array<int, 4> MarkDrawnDigits(ReportSheet& sheet, const RegionsChart& chart, int r) {
    const auto drawn = DrawnDigits(sheet, r);
    std::array<int, 4> counts{};
    for (std::size_t k = 0; k < chart.regions.size(); ++k) {
        const RegionBlock& region = chart.regions[k];
        for (int c = region.firstCol; c <= LastCol(region); ++c) {
            const int times =
                static_cast<int>(std::count(drawn.begin(), drawn.end(), sheet.CellNumber(r, c)));
            counts[k] += times;
            if (times > 0) sheet.SetBackColor(r, c, colours::kFoundDigit);
        }
    }
    return counts;
}

// The counts of the regions, in region order, are the pattern.
void MarkRegionCounts(ReportSheet& sheet, const RegionsChart& chart, const ChartColumns& columns,
                      const std::array<int, 4>& counts, int r) {
    DigitsText pattern;
    for (std::size_t k = 0; k < chart.regions.size(); ++k)
        pattern.Append(static_cast<short>(counts[k]));
    columns.patterns.Mark(sheet, r, pattern, kPatternColour);
}

// The sorted codes a <= b <= c joined are the pattern; their sum picks a sum column; the type
// says whether the digits lie in three regions, two or one.
void MarkSortedCodes(ReportSheet& sheet, const RegionsChart& chart, const ChartColumns& columns,
                     int r) {
    const int sorted = chart.firstCodeCol + 3;
    const short a = sheet.CellNumber(r, sorted);
    const short b = sheet.CellNumber(r, sorted + 1);
    const short c = sheet.CellNumber(r, sorted + 2);
    DigitsText codes;
    for (short code : {a, b, c})
        codes.Append(code);
    columns.patterns.Mark(sheet, r, codes, kPatternColour);
    char sum[16];
    const auto end = std::to_chars(std::begin(sum), std::end(sum), a + b + c).ptr;
    columns.sums.Mark(sheet, r, std::string_view(sum, static_cast<std::size_t>(end - sum)),
                      kSumColour);
    const int type = c == a ? 2 : (b == a || c == b) ? 1 : 0;
    columns.types.MarkAt(sheet, r, type, kPatternColour);
}

void WriteAllHeaders(ReportSheet& sheet, const RegionsChart& chart) {
    HeadDigitColumns(sheet);
    for (const RegionBlock& region : chart.regions)
        for (int i = 0; i < static_cast<int>(region.digits.size()); ++i)
            sheet.SetText(0, region.firstCol + i, region.name);
    WriteHeaders(sheet, chart.patterns);
    if (chart.rule == PatternRule::SortedCodes) {
        WriteHeaders(sheet, chart.sums);
        WriteHeaders(sheet, chart.types);
    }
}

void Build(const RegionsChart& chart, std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(chart.cols);
    for (const WidthRun& run : chart.widths)
        for (int c = run.firstCol; c <= run.lastCol; ++c)
            sheet.SetColWidth(c, run.twips);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    // The headers come first, so that every pass of a row can run while the row is at hand: no
    // pass reads another row than its own.
    WriteAllHeaders(sheet, chart);
    const ChartColumns columns(sheet, chart);
    if (chart.rule == PatternRule::RegionCounts) {
        FillSheet(sheet, drawings, [&](int r, CurrentDigits&) {
            WriteRegionDigits(sheet, chart, r);
            const auto counts = MarkDrawnDigits(sheet, chart, r);
            MarkRegionCounts(sheet, chart, columns, counts, r);
        });
    } else {
        FillSheet(sheet, drawings, [&](int r, CurrentDigits&) {
            WriteRegionDigits(sheet, chart, r);
            WriteRegionCodes(sheet, chart.firstCodeCol, r);
            MarkDrawnDigits(sheet, chart, r);
            MarkSortedCodes(sheet, chart, columns, r);
        });
    }
    FinishLoad(sheet);
}

}  // namespace

// Charts of the fixed digit regions: per drawing, which region digits came up and the region
// pattern of the drawing. They recommend nothing; the next drawing's row stays empty. Three
// Regions: Small 0-2, Middle 3-6, Large 7-9, and how many digits fell in each. Four Regions-1234:
// odd and even within small and big, with the sorted region triple, its sum and whether the
// digits lie in one, two or three regions.
std::span<const ReportDefinition> RegionReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmxzd",
         .title = "Three Regions Small Middle Large",
         .build = BuildMember<Build, kThreeRegions>},
        {.object = "frm4qufenge",
         .title = "Four Regions-1234",
         .build = BuildMember<Build, kFourRegions>},
    };
    return kReports;
}

}  // namespace numarel
