#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

// Builders of a header row and a width list, run by run.
Texts Blanks(int n) {
    return Texts(static_cast<std::size_t>(n));
}
Texts Numbers(int from, int to) {
    Texts out;
    for (int v = from; v <= to; ++v)
        out.push_back(std::to_string(v));
    return out;
}
Texts Join(std::initializer_list<Texts> runs) {
    Texts out;
    for (const Texts& run : runs)
        out.insert(out.end(), run.begin(), run.end());
    return out;
}
std::vector<int> Widths(std::initializer_list<std::pair<int, int>> runs) {  // {twips, count}
    std::vector<int> out;
    for (auto [twips, count] : runs)
        out.insert(out.end(), static_cast<std::size_t>(count), twips);
    return out;
}

std::vector<int> ColumnWidths(const ReportSheet& sheet) {
    std::vector<int> out;
    for (int c = 0; c < sheet.Cols(); ++c)
        out.push_back(sheet.ColWidth(c));
    return out;
}

TEST(PairReportLayouts, HeaderWidthsTitleAndSizeOfEachReport) {
    const struct {
        const char* object;
        std::string title;
        Texts header;
        std::vector<int> widths;
        int rowsForThreeDrawings;
        Rgb gridColour;
        Rgb markColour;
        bool designedCaption;  // second load order: no current cell moved to the next row
    } cases[] = {
        {"frmdaimaduizi", "Five Regions Pairs[05 16 27 38 49]",
         Join({{"", "H", "T", "U", "W", "S"},
               Blanks(5),
               {"05", "16", "27", "38", "49", ""},
               Numbers(0, 9),
               {""}}),
         Widths({{1290, 1}, {300, 5}, {2, 4}, {300, 6}, {540, 1}, {300, 10}, {540, 1}}), 5,
         kDefaultColour, MakeRgb(43, 218, 255), false},
        {"frmliangmahecha", "+ or - of Pairs",
         Join({{"", "+"}, Numbers(0, 18), {"", "-"}, Numbers(0, 9), Blanks(3)}),
         Widths({{1978, 1}, {258, 20}, {60, 1}, {228, 11}, {2, 3}}), 12, MakeRgb(0, 192, 0),
         kDefaultColour, true},
        {"frmliangmajiwei", "Units of product of two digits ",
         Join({{"", "H", "T", "U", ""}, Numbers(0, 9)}),
         Widths({{1290, 1}, {300, 3}, {60, 1}, {840, 10}}), 5, kDefaultColour, kDefaultColour,
         false},
        {"frmrenwenlengTlm", "Recommend \"Pairs\"", Join({{""}, Numbers(0, 9), Blanks(30)}),
         Widths({{1204, 1}, {2, 10}, {80, 1}, {2, 10}, {400, 12}, {2, 6}, {560, 1}}), 6,
         MakeRgb(128, 128, 0), kDefaultColour, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.object);
        const ReportSheet sheet = Build(c.object, Drawings({"123", "456", "789"}));
        EXPECT_EQ(sheet.Title(), c.title);
        ASSERT_EQ(sheet.Cols(), static_cast<int>(c.header.size()));
        EXPECT_EQ(RowTexts(sheet, 0, 0, sheet.Cols() - 1), c.header);
        EXPECT_EQ(ColumnWidths(sheet), c.widths);
        EXPECT_EQ(sheet.Rows(), c.rowsForThreeDrawings);
        EXPECT_EQ(sheet.TopRow(), sheet.Rows() - 1);
        EXPECT_EQ(sheet.GridColour(), c.gridColour);
        EXPECT_EQ(sheet.CurrentRow() == 4, !c.designedCaption);
        const ReportDefinition* definition = FindReport(c.object);
        ASSERT_NE(definition, nullptr);
        EXPECT_EQ(definition->markColour, c.markColour);
        EXPECT_EQ(definition->loadOrder == LoadOrder::DesignedCaption, c.designedCaption);
    }
}

}  // namespace
}  // namespace numarel
