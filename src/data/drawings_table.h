#pragma once

#include <array>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/drawings_file.h"
#include "data/status.h"

namespace numarel {

// The drawings editor's table: every record of a drawings file, end markers and what follows them
// included, and one empty row at the end for the next drawing. Rows are counted from 0 below the
// header; columns are Date, H, T, U.
class DrawingsTable {
public:
    static constexpr int kCols = 4;
    // The headers of a table as first loaded, and after an Import.
    static constexpr std::array<std::string_view, kCols> kLoadHeaders = {"---- Date ----", "--H--",
                                                                         "--T--", "--U--"};
    static constexpr std::array<std::string_view, kCols> kImportHeaders = {"-- Date --", "--H--",
                                                                           "--T--", "--U--"};

    // The longest text a cell takes from the editor's cell box.
    static constexpr int kMaxCellText = 255;

    DrawingsTable() { Clear(); }

    // Reads every record of the file. A file that cannot be read leaves only the empty row.
    Status Load(const std::filesystem::path& path);
    // Just the empty row.
    void Clear();

    int RowCount() const { return static_cast<int>(rows_.size()); }
    // Empty outside the table.
    const std::string& Cell(int row, int col) const;
    // Does nothing outside the table.
    void SetCell(int row, int col, std::string text);

    void AddAtEnd();
    // An empty row before `row`; at the end when `row` is past it.
    void InsertBefore(int row);
    // Removes `row`. The last row standing is never removed: false then.
    bool DeleteRow(int row);

    std::span<const DrawRecord> Rows() const { return rows_; }
    // The rows a report would see as drawings: those before the first end marker (an empty row
    // is one).
    std::span<const DrawRecord> Drawings() const;
    // Puts `records` after the last drawing, so that an end marker and what follows it stay
    // last. Returns the row of the first one.
    int InsertDrawings(std::span<const DrawRecord> records);
    // Every row replaced by `records`, and the empty row after them.
    void ReplaceWith(std::span<const DrawRecord> records);
    // What Save writes: every row, the empty ones as end markers.
    std::string SaveBytes() const { return FormatDrawingsTable(rows_); }
    // Rewrites the file whole; the old file stays as it was when the new one cannot be written.
    // The file's lock is held from the check to the rename. Unless `replaceChanges`, a file that
    // another program changed since this table read or wrote it (an import run meanwhile) is not
    // written over: the status is Changed and says so, and the caller may ask the user.
    Status Save(const std::filesystem::path& path, bool replaceChanges = false) const;

private:
    // What the drawings file held when the table last read or wrote it.
    struct FileSeen {
        bool known = false;  // false: never read, or unreadable; no check then
        bool exists = false;
        std::size_t hash = 0;
        std::size_t size = 0;
        bool operator==(const FileSeen&) const = default;
    };
    static FileSeen SeenOnDisk(const std::filesystem::path& path);
    static FileSeen Seen(std::string_view bytes);

    std::vector<DrawRecord> rows_;
    mutable FileSeen seen_;
};

// The file name Export offers: the lottery label without "Lottery:" and without its last
// character (the full stop).
std::string ExportPresetName(std::string_view lotteryLabel);

// Export and Import: a plain copy of `from` over `to`. `to` is replaced only once the copy is
// complete, so a failed copy leaves it as it was. Only a plain file is copied.
Status CopyDrawingsFile(const std::filesystem::path& from, const std::filesystem::path& to);

// Import: the same copy over the drawings file `to`, under that file's lock.
Status ImportDrawingsFile(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace numarel
