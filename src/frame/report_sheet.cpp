#include "frame/report_sheet.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#ifdef __linux__
#include <sys/mman.h>
#endif
#include <charconv>
#include <climits>

#include "data/basic_text.h"

namespace numarel {
namespace {

constexpr std::uint32_t kNumberTag = ReportSheet::kNumberTag;
constexpr long kNumberBias = ReportSheet::kNumberBias;

bool IsInlineNumber(std::uint32_t h) {
    return (h & kNumberTag) != 0;
}

// Plain decimal text with no leading zeros or blanks, the form SetNumber writes.
bool ParsePlainNumber(std::string_view text, long& value) {
    if (text.empty() || text.size() > 11) return false;
    std::size_t i = text[0] == '-' ? 1 : 0;
    if (i == text.size()) return false;
    if (text[i] == '0' && (text.size() > i + 1 || i == 1)) return false;  // "07", "-0"
    for (std::size_t k = i; k < text.size(); ++k)
        if (text[k] < '0' || text[k] > '9') return false;
    auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return ec == std::errc() && ptr == text.data() + text.size() && value >= -kNumberBias &&
           value < kNumberBias;
}

}  // namespace

#ifdef __linux__
namespace {

// Sheets of this size or more take their cells straight from the system.
constexpr std::size_t kMapThreshold = std::size_t{1} << 20;
// The most a thread keeps for its next sheet once a sheet lets its cells go.
constexpr std::size_t kSpareLimit = std::size_t{64} << 20;

// The cells of the last large sheet a thread let go, kept for the next one: a report window
// opened after another, or the command line building report after report, then finds its memory
// ready and only clears it, instead of having the system fault in and clear fresh pages.
class SpareCells {
public:
    ~SpareCells() {
        if (data_) munmap(data_, bytes_);
        data_ = nullptr;
        closed_ = true;  // a sheet that outlives its thread's spare lets its cells go itself
    }
    // The kept memory when it holds at least `bytes`, else nullptr; `mapped` gets its size.
    void* Take(std::size_t bytes, std::size_t& mapped) {
        if (!data_ || bytes_ < bytes) return nullptr;
        void* out = std::exchange(data_, nullptr);
        mapped = bytes_;
        return out;
    }
    // Keeps the larger of what is kept and `data`, up to the limit; lets the other go.
    void Give(void* data, std::size_t bytes) {
        if (closed_ || bytes > kSpareLimit || (data_ && bytes_ >= bytes)) {
            munmap(data, bytes);
            return;
        }
        if (data_) munmap(data_, bytes_);
        data_ = data;
        bytes_ = bytes;
    }

private:
    void* data_ = nullptr;
    std::size_t bytes_ = 0;
    bool closed_ = false;
};

thread_local SpareCells spareCells;

}  // namespace
#endif

ReportSheet::CellBuffer::CellBuffer(std::size_t count) : capacity_(count) {
    if (count == 0) return;
    const std::size_t bytes = count * sizeof(Cell);
#ifdef __linux__
    if (bytes >= kMapThreshold) {
        if (void* kept = spareCells.Take(bytes, mappedBytes_)) {
            std::memset(kept, 0, bytes);
            data_ = static_cast<Cell*>(kept);
            return;
        }
        void* p = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (p != MAP_FAILED) {
            madvise(p, bytes, MADV_HUGEPAGE);
            data_ = static_cast<Cell*>(p);
            mappedBytes_ = bytes;
            return;
        }
    }
#endif
    data_ = static_cast<Cell*>(std::calloc(count, sizeof(Cell)));
    if (!data_) throw std::bad_alloc();
}

ReportSheet::CellBuffer::~CellBuffer() {
    if (!data_) return;
#ifdef __linux__
    if (mappedBytes_ != 0) {
        spareCells.Give(data_, mappedBytes_);
        return;
    }
#endif
    std::free(data_);
}

void ReportSheet::Resize(int rows, int cols) {
    rows = std::max(rows, 0);
    cols = std::max(cols, 0);
    const std::size_t used = static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols_);
    const std::size_t count = static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols);
    if (cols == cols_ && count <= cells_.capacity()) {
        // Same width: rows come and go at the end. Dropped cells are cleared, so that rows added
        // again later start empty.
        if (count < used) std::fill(cells_.data() + count, cells_.data() + used, Cell{});
    } else {
        CellBuffer next(count);
        const int keepRows = std::min(rows, rows_);
        const int keepCols = std::min(cols, cols_);
        // A sheet without cells has no buffer to copy from.
        if (keepRows > 0 && keepCols > 0) {
            if (cols == cols_) {
                std::memcpy(next.data(), cells_.data(),
                            static_cast<std::size_t>(keepRows) * static_cast<std::size_t>(cols) *
                                sizeof(Cell));
            } else {
                for (int r = 0; r < keepRows; ++r)
                    std::memcpy(
                        next.data() + static_cast<std::size_t>(r) * static_cast<std::size_t>(cols),
                        cells_.data() + Index(r, 0),
                        static_cast<std::size_t>(keepCols) * sizeof(Cell));
            }
        }
        cells_ = std::move(next);
    }
    rows_ = rows;
    cols_ = cols;
    colWidths_.resize(static_cast<std::size_t>(cols), -1);
    // Most sheets keep the default height everywhere: their heights take no room at all.
    if (!rowHeights_.empty()) rowHeights_.resize(static_cast<std::size_t>(rows), -1);
}

std::uint32_t ReportSheet::TextHandle(std::string_view text) {
    long value = 0;
    if (text.empty()) return 0;
    if (ParsePlainNumber(text, value)) return NumberHandle(value);
    return pool_.Intern(text);
}

void ReportSheet::SetLabel(std::uint32_t& cell, std::string_view text) {
    const bool holdsLabel = cell != 0 && !IsInlineNumber(cell) && pool_.IsLoose(cell);
    long value = 0;
    if (!text.empty() && !ParsePlainNumber(text, value)) {
        if (holdsLabel)
            pool_.ReplaceLoose(cell, text);
        else
            cell = pool_.AddLoose(text);
        return;
    }
    if (holdsLabel) ++replacedTexts_;  // its text is left to DropUnusedTexts
    cell = text.empty() ? 0 : NumberHandle(value);
}

bool ReportSheet::SameLabelText(std::uint32_t a, std::uint32_t b) const {
    if (a == 0 || b == 0 || IsInlineNumber(a) || IsInlineNumber(b)) return false;
    return (pool_.IsLoose(a) || pool_.IsLoose(b)) && pool_.View(a) == pool_.View(b);
}

void ReportSheet::SetText(int row, int col, std::string_view text) {
    if (!Contains(row, col)) return;
    std::uint32_t& cell = cells_[Index(row, col)].text;
    if (col == 0 && row > 0) return SetLabel(cell, text);
    const std::uint32_t handle = TextHandle(text);
    // A text written over another may leave that one unused: counted for DropUnusedTexts.
    if (cell != handle && cell != 0 && !IsInlineNumber(cell)) ++replacedTexts_;
    cell = handle;
}

void ReportSheet::SetText(int row, std::span<const int> cols, std::string_view text) {
    if (row < 0 || row >= rows_ || cols.empty()) return;
    const std::uint32_t handle = TextHandle(text);
    for (int col : cols) {
        if (col == 0 && row > 0)
            SetLabel(cells_[Index(row, col)].text, text);
        else if (col >= 0 && col < cols_)
            cells_[Index(row, col)].text = handle;
    }
}

void ReportSheet::SetBackColor(int row, std::span<const int> cols, Rgb colour) {
    if (row < 0 || row >= rows_ || cols.empty()) return;
    const std::uint16_t index = PaletteIndex(colour);
    Cell* cells = cells_.data() + Index(row, 0);
    for (int col : cols)
        if (col >= 0 && col < cols_) cells[col].back = index;
}

std::string ReportSheet::Text(int row, int col) const {
    std::uint32_t h = Handle(row, col);
    if (h == 0) return {};
    if (IsInlineNumber(h)) return std::to_string(InlineValue(h));
    return std::string(pool_.View(h));
}

std::string_view ReportSheet::NumberView(long value, NumberDigits& digits) {
    auto [end, ec] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), static_cast<std::size_t>(end - digits.data())};
}

bool ReportSheet::NumberIs(std::uint32_t h, std::string_view text) {
    long value = 0;
    return ParsePlainNumber(text, value) && value == InlineValue(h);
}

double ReportSheet::CellValue(int row, int col) const {
    std::uint32_t h = Handle(row, col);
    if (h == 0) return 0;
    if (IsInlineNumber(h)) return static_cast<double>(InlineValue(h));
    return pool_.Value(h);
}

short ReportSheet::RoundedValue(std::uint32_t h) const {
    if (h == 0) return 0;
    if (IsInlineNumber(h)) return RoundToInt16(static_cast<double>(InlineValue(h)));
    return RoundToInt16(pool_.Value(h));
}

ReportSheet::TextKey ReportSheet::KeyOf(std::string_view text) const {
    // A text the pool lacks is in no cell but a label: its key matches no handle at all.
    constexpr std::uint32_t kNoCell = ~kNumberTag;
    long value = 0;
    if (text.empty()) return {0, text};
    if (ParsePlainNumber(text, value)) return {NumberHandle(value), text};
    const std::uint32_t handle = pool_.Find(text);
    return {handle != 0 ? handle : kNoCell, text};
}

void ReportSheet::TallyColumns(int firstRow, int lastRow, int firstCol, const TextKey& key,
                               std::span<short> matches, std::span<short> maxOthers) const {
    firstRow = std::max(firstRow, 0);
    lastRow = std::min(lastRow, rows_ - 1);
    if (firstCol < 0) return;
    const int count = std::min(
        {cols_ - firstCol, static_cast<int>(matches.size()), static_cast<int>(maxOthers.size())});
    if (count <= 0 || firstRow > lastRow) return;
    // Inline numbers order as their handles do, so the largest is kept as a handle and turned
    // into a counter once, at the end; only texts other than the key are read as numbers.
    std::vector<std::uint32_t> largest(static_cast<std::size_t>(count), NumberHandle(0));
    for (int r = firstRow; r <= lastRow; ++r) {
        const Cell* row = cells_.data() + Index(r, firstCol);
        for (int i = 0; i < count; ++i) {
            const std::uint32_t h = row[i].text;
            const auto k = static_cast<std::size_t>(i);
            if (h == key.handle) {
                ++matches[k];
            } else if (h & kNumberTag) {
                largest[k] = std::max(largest[k], h);
            } else if (h != 0) {
                if (firstCol + i == 0 && r > 0 && HandleIs(h, key.text))  // a label
                    ++matches[k];
                else
                    maxOthers[k] = std::max(maxOthers[k], RoundedValue(h));
            }
        }
    }
    for (int i = 0; i < count; ++i) {
        const auto k = static_cast<std::size_t>(i);
        maxOthers[k] = std::max(maxOthers[k], HandleNumber(largest[k]));
    }
}

void ReportSheet::CountMisses(int row, int firstCol, const TextKey& key, bool closedRuns,
                              std::span<short> counters, std::span<short> matches,
                              std::span<short> maxMisses) {
    if (row < 0 || row >= rows_ || firstCol < 0) return;
    const int count =
        std::min({cols_ - firstCol, static_cast<int>(counters.size()),
                  static_cast<int>(matches.size()), static_cast<int>(maxMisses.size())});
    Cell* cells = cells_.data() + Index(row, firstCol);
    for (int i = 0; i < count; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const std::uint32_t h = cells[i].text;
        // Whether a cell is a hit is as good as random: the common cells, empty ones and
        // matches, are counted without a jump.
        const bool empty = h == 0;
        const bool match = !empty && h == key.handle;
        if (!empty && !match) [[unlikely]] {  // another text, or a label that reads as the key
            counters[k] = 1;
            if (firstCol + i == 0 && row > 0 && HandleIs(h, key.text))
                ++matches[k];
            else if (closedRuns)
                maxMisses[k] = std::max(maxMisses[k], RoundedValue(h));
            continue;
        }
        cells[i].text = empty ? NumberHandle(counters[k]) : h;
        // The Miss number is read back from the cell: a counter always fits its inline number.
        const short miss = empty ? static_cast<short>(InlineValue(cells[i].text)) : 0;
        counters[k] = empty ? static_cast<short>(counters[k] + 1) : 1;
        matches[k] = static_cast<short>(matches[k] + (match ? 1 : 0));
        maxMisses[k] = closedRuns ? std::max(maxMisses[k], miss) : maxMisses[k];
    }
}

std::uint16_t ReportSheet::FindPaletteIndex(Rgb colour) {
    std::uint16_t index = 0;
    if (colour != kDefaultColour) {
        std::size_t i = 1;
        while (i < palette_.size() && palette_[i] != colour)
            ++i;
        if (i == palette_.size()) {
            if (palette_.size() >= 0xFFFF) return 0;  // a sheet never needs this many colours
            palette_.push_back(colour);
        }
        index = static_cast<std::uint16_t>(i);
    }
    recentColours_[RecentSlot(colour)] = {colour, index};
    return index;
}

void ReportSheet::SetColWidth(int col, int twips) {
    if (col >= 0 && col < cols_) colWidths_[static_cast<std::size_t>(col)] = twips;
}

int ReportSheet::ColWidth(int col) const {
    return col >= 0 && col < cols_ ? colWidths_[static_cast<std::size_t>(col)] : -1;
}

void ReportSheet::SetRowHeight(int row, int twips) {
    if (row < 0 || row >= rows_) return;
    if (rowHeights_.empty()) rowHeights_.assign(static_cast<std::size_t>(rows_), -1);
    rowHeights_[static_cast<std::size_t>(row)] = twips;
}

int ReportSheet::RowHeight(int row) const {
    return row >= 0 && row < rows_ && !rowHeights_.empty()
               ? rowHeights_[static_cast<std::size_t>(row)]
               : -1;
}

std::vector<std::pair<int, int>> ReportSheet::ExplicitRowHeights() const {
    std::vector<std::pair<int, int>> out;
    for (int r = 0; r < static_cast<int>(rowHeights_.size()); ++r)
        if (rowHeights_[static_cast<std::size_t>(r)] >= 0)
            out.emplace_back(r, rowHeights_[static_cast<std::size_t>(r)]);
    return out;
}

void ReportSheet::DropUnusedTexts() {
    // Unless many texts were written over, nearly every text is still in use and the walk over
    // the cells is not worth it.
    const std::size_t texts = pool_.Size();
    if (texts < 4096 || replacedTexts_ * 4 < texts) return;
    replacedTexts_ = 0;
    const std::size_t count = static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols_);
    std::vector<std::uint32_t> remap(texts + 1, 0);
    std::size_t used = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t h = cells_[i].text;
        if (h != 0 && !(h & kNumberTag) && remap[h] == 0) {
            remap[h] = 1;
            ++used;
        }
    }
    if (used * 4 > texts * 3) return;  // less than a quarter unused: keep the pool as it is
    pool_.KeepOnly(remap);
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t& h = cells_[i].text;
        if (h != 0 && !(h & kNumberTag)) h = remap[h];
    }
}

std::size_t ReportSheet::MemoryBytes() const {
    std::size_t bytes = cells_.capacity() * sizeof(Cell);
    bytes += palette_.capacity() * sizeof(Rgb);
    bytes += (colWidths_.capacity() + rowHeights_.capacity()) * sizeof(int);
    return bytes + pool_.MemoryBytes();
}

}  // namespace numarel
