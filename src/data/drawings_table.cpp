#include "data/drawings_table.h"

#include <algorithm>
#include <functional>
#include <string>

#include "data/file_io.h"

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
    std::string bytes;
    Status s = ReadFileBytes(path, bytes, "drawings file");
    if (s.ok()) s = CheckReadableText(bytes, "drawings file", path);
    seen_ = s.ok() ? Seen(bytes) : SeenOnDisk(path);
    rows_ = s.ok() ? ParseDrawings(WithoutUtf8Mark(bytes)) : std::vector<DrawRecord>();
    rows_.emplace_back();
    return s;
}

DrawingsTable::FileSeen DrawingsTable::Seen(std::string_view bytes) {
    return {true, true, std::hash<std::string_view>{}(bytes), bytes.size()};
}

DrawingsTable::FileSeen DrawingsTable::SeenOnDisk(const std::filesystem::path& path) {
    std::string bytes;
    Status s = ReadFileBytes(path, bytes);
    if (s.ok()) return Seen(bytes);
    if (s.code() == Status::Code::NotFound) return {true, false, 0, 0};
    return {};
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

Status DrawingsTable::Save(const std::filesystem::path& path, bool replaceChanges) const {
    DrawingsFileLock lock;
    if (Status s = lock.Acquire(path); !s.ok()) return s;
    if (!replaceChanges && seen_.known) {
        const FileSeen now = SeenOnDisk(path);
        if (now.known && now != seen_)
            return Status::Changed(
                "\"" + path.filename().string() +
                "\" was changed by another program (an import, perhaps) after the table was read; "
                "saving would replace those changes with the table.");
    }
    const std::string bytes = SaveBytes();
    Status s = WriteFileSafely(path, bytes);
    if (s.ok()) seen_ = Seen(bytes);
    return s;
}

std::string ExportPresetName(std::string_view lotteryLabel) {
    constexpr std::string_view kPrefix = "Lottery:";
    if (lotteryLabel.starts_with(kPrefix)) lotteryLabel.remove_prefix(kPrefix.size());
    if (!lotteryLabel.empty()) lotteryLabel.remove_suffix(1);
    return std::string(lotteryLabel);
}

Status CopyDrawingsFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::string bytes;
    Status s = ReadFileBytes(from, bytes, "drawings file");
    if (!s.ok()) return s;
    return WriteFileSafely(to, bytes);
}

Status ImportDrawingsFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    DrawingsFileLock lock;
    if (Status s = lock.Acquire(to); !s.ok()) return s;
    return CopyDrawingsFile(from, to);
}

}  // namespace numarel
