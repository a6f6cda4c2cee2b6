#include "data/drawings_table.h"

#include <algorithm>

namespace numarel {
namespace {

// DrawRecord or const DrawRecord.
template <class Record>
auto Field(Record& r, int col) -> decltype(&r.date) {
    switch (col) {
        case 0:
            return &r.date;
        case 1:
            return &r.h;
        case 2:
            return &r.t;
        case 3:
            return &r.u;
        default:
            return nullptr;
    }
}

}  // namespace

Status DrawingsTable::Load(const std::filesystem::path& path) {
    std::vector<DrawRecord> records;
    Status s = ReadAllRecords(path, records);
    if (!s.ok()) records.clear();
    rows_ = std::move(records);
    rows_.emplace_back();
    return s;
}

void DrawingsTable::Clear() {
    rows_.assign(1, DrawRecord{});
}

const std::string& DrawingsTable::Cell(int row, int col) const {
    static const std::string kEmpty;
    if (row < 0 || row >= RowCount()) return kEmpty;
    const std::string* field = Field(rows_[row], col);
    return field ? *field : kEmpty;
}

void DrawingsTable::SetCell(int row, int col, std::string text) {
    if (row < 0 || row >= RowCount()) return;
    if (std::string* field = Field(rows_[row], col)) *field = std::move(text);
}

void DrawingsTable::AddAtEnd() {
    rows_.emplace_back();
}

void DrawingsTable::InsertBefore(int row) {
    row = std::clamp(row, 0, RowCount());
    rows_.insert(rows_.begin() + row, DrawRecord{});
}

bool DrawingsTable::DeleteRow(int row) {
    if (row < 0 || row >= RowCount() || RowCount() <= 1) return false;
    rows_.erase(rows_.begin() + row);
    return true;
}

std::span<const DrawRecord> DrawingsTable::Drawings() const {
    return std::span<const DrawRecord>(rows_).first(ReportDrawCount(rows_));
}

int DrawingsTable::InsertDrawings(std::span<const DrawRecord> records) {
    const std::size_t at = ReportDrawCount(rows_);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(at), records.begin(), records.end());
    return static_cast<int>(at);
}

void DrawingsTable::ReplaceWith(std::span<const DrawRecord> records) {
    rows_.assign(records.begin(), records.end());
    rows_.emplace_back();
}

Status DrawingsTable::Save(const std::filesystem::path& path) const {
    return WriteFileSafely(path, SaveBytes());
}

std::string ExportPresetName(std::string_view lotteryLabel) {
    constexpr std::string_view kPrefix = "Lottery:";
    if (lotteryLabel.starts_with(kPrefix)) lotteryLabel.remove_prefix(kPrefix.size());
    if (!lotteryLabel.empty()) lotteryLabel.remove_suffix(1);
    return std::string(lotteryLabel);
}

Status CopyDrawingsFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::string bytes;
    Status s = ReadFileBytes(from, bytes);
    if (!s.ok()) return s;
    return WriteFileSafely(to, bytes);
}

}  // namespace numarel
