#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"
#include "support/made_up_history.h"

namespace numarel::testing {

// Drawings from short lines such as {"123", "450"}: each is H T U, dated 2020001, 2020002, ...
std::vector<DrawRecord> Drawings(std::initializer_list<std::string_view> digits);

// Builds a report by its window object on `drawings`; fails the test when it is not built.
ReportSheet Build(std::string_view object, const std::vector<DrawRecord>& drawings);

// The cells of one row from `firstCol` to `lastCol`, as texts.
std::vector<std::string> RowTexts(const ReportSheet& sheet, int row, int firstCol, int lastCol);

// The columns of `row` (from `firstCol` on) whose back colour is `colour`.
std::vector<int> ColumnsColoured(const ReportSheet& sheet, int row, Rgb colour, int firstCol = 0);

// A folder of its own under the system's temporary folder, removed with the object.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& path() const { return path_; }
    // Writes `bytes` to a file in the folder and returns its path.
    std::filesystem::path Write(std::string_view name, std::string_view bytes) const;

private:
    std::filesystem::path path_;
};

// The whole content of a file.
std::string ReadAll(const std::filesystem::path& path);

// Whether `text` holds `part`; how many lines `text` has.
bool Has(std::string_view text, std::string_view part);
int Lines(std::string_view text);

}  // namespace numarel::testing
