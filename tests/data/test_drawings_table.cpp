#include <gtest/gtest.h>

#include "data/drawings_table.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::ReadAll;
using testing::TempDir;

std::vector<std::string> Column(const DrawingsTable& table, int col) {
    std::vector<std::string> cells;
    for (int row = 0; row < table.RowCount(); ++row)
        cells.push_back(table.Cell(row, col));
    return cells;
}

TEST(DrawingsTable, SaveWritesTheEmptyLastRowAsAnEndMarker) {
    TempDir dir;
    auto file = dir.Write("d.txt", "2020001 1 2 3\r\n2020002 4 5 6\r\n");
    DrawingsTable table;
    ASSERT_TRUE(table.Load(file).ok());
    ASSERT_TRUE(table.Save(file).ok());
    EXPECT_EQ(ReadAll(file), "2020001 1 2 3\r\n2020002 4 5 6\r\n0 0 0 0\r\n");

    // Reopened: the marker row, then a new empty row; a drawing typed there lands behind it.
    ASSERT_TRUE(table.Load(file).ok());
    ASSERT_EQ(table.RowCount(), 4);
    const char* typed[] = {"2020003", "7", "8", "9"};
    for (int col = 0; col < 4; ++col)
        table.SetCell(3, col, typed[col]);
    ASSERT_TRUE(table.Save(file).ok());
    EXPECT_EQ(ReadAll(file), "2020001 1 2 3\r\n2020002 4 5 6\r\n0 0 0 0\r\n2020003 7 8 9\r\n");
    std::vector<DrawRecord> seen;
    ASSERT_TRUE(ReadHistory(file, seen).ok());
    EXPECT_EQ(seen.size(), 2u);
}

// The row buttons are pinned through the editor; rows it never offers are ignored here.
TEST(DrawingsTable, RowsOutsideTheTableAreIgnored) {
    DrawingsTable table;
    table.SetCell(0, 0, "A");
    table.InsertBefore(99);  // past the end: appended
    EXPECT_FALSE(table.DeleteRow(9));
    EXPECT_EQ(Column(table, 0), (std::vector<std::string>{"A", ""}));
    table.SetCell(5, 0, "x");
    table.SetCell(0, 4, "x");
    EXPECT_EQ(table.Cell(5, 0), "");
    EXPECT_EQ(table.Cell(0, 4), "");
}

TEST(DrawingsTable, ExportOffersTheLotteryNameWithoutItsFullStop) {
    EXPECT_EQ(ExportPresetName("Lottery:Synthetic-Demo."), "Synthetic-Demo");
    EXPECT_EQ(ExportPresetName("Lottery:a.b."), "a.b");
    EXPECT_EQ(ExportPresetName("Lottery:"), "");
}

TEST(DrawingsTable, CopyReplacesTheTargetOnlyWhenTheSourceIsRead) {
    TempDir dir;
    auto from = dir.Write("from.txt", "2020001 1 2 3\r\n");
    auto to = dir.Write("to.txt", "old\r\n");
    EXPECT_FALSE(CopyDrawingsFile(dir.path() / "missing.txt", to).ok());
    EXPECT_EQ(ReadAll(to), "old\r\n");
    ASSERT_TRUE(CopyDrawingsFile(from, to).ok());
    EXPECT_EQ(ReadAll(to), "2020001 1 2 3\r\n");
    ASSERT_TRUE(CopyDrawingsFile(to, to).ok());  // a file copied onto itself stays whole
    EXPECT_EQ(ReadAll(to), "2020001 1 2 3\r\n");
}

}  // namespace
}  // namespace numarel
