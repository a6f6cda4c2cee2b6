#include "frame/report_sheet.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>
#include <utility>

#include <charconv>
#include <climits>

#include "data/basic_text.h"

#include <link.h>

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

// The loaded segment that holds the program's own string constants: read-only, so that a text in
// it never changes. Where it cannot be found, the range stays empty and no text is taken for a
// constant.
constexpr char kProbe[] = "a constant text";

struct Segment {
    std::uintptr_t begin = 0;
    std::uintptr_t size = 0;
};

int FindConstants(dl_phdr_info* info, std::size_t, void* found) {
    auto& range = *static_cast<Segment*>(found);
    const auto probe = reinterpret_cast<std::uintptr_t>(kProbe);
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const auto& segment = info->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W)) continue;
        const std::uintptr_t begin = info->dlpi_addr + segment.p_vaddr;
        if (probe - begin < segment.p_memsz) {
            range = {begin, segment.p_memsz};
            return 1;
        }
    }
    return 0;
}

Segment ProgramConstants() {
    Segment range;
    dl_iterate_phdr(FindConstants, &range);
    return range;
}

}  // namespace

const std::array<std::uint32_t, kDigitTextCount> ReportSheet::kNumberTexts = [] {
    std::array<std::uint32_t, kDigitTextCount> handles{};
    for (unsigned first = 0; first < 10; ++first) {
        handles[DigitTextPlace(1, first, first, first)] = NumberHandle(first);
        for (unsigned middle = 0; middle < 10; ++middle)
            for (unsigned last = 0; last < 10; ++last) {
                if (first == 0) continue;  // "05", "012": texts, not numbers
                handles[DigitTextPlace(2, first, last, last)] = NumberHandle(first * 10 + last);
                handles[DigitTextPlace(3, first, middle, last)] =
                    NumberHandle(first * 100 + middle * 10 + last);
            }
    }
    return handles;
}();

const ReportSheet::AddressRange ReportSheet::kProgramConstants = [] {
    const Segment range = ProgramConstants();
    return AddressRange{range.begin, range.size};
}();

void ReportSheet::Resize(int rows, int cols) {
    rows = std::max(rows, 0);
    cols = std::max(cols, 0);
    const std::size_t used = static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols_);
    const std::size_t count = static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols);
    if (cols == cols_ && count <= CellCapacity()) {
        // Same width: rows come and go at the end. Dropped cells are cleared, so that rows added
        // again later start empty.
        if (count < used) std::fill(CellData() + count, CellData() + used, Cell{});
    } else {
        CellMemory next(count * sizeof(Cell));
        Cell* to = static_cast<Cell*>(next.data());
        const int keepRows = std::min(rows, rows_);
        const int keepCols = std::min(cols, cols_);
        // A sheet without cells has no buffer to copy from.
        if (keepRows > 0 && keepCols > 0) {
            if (cols == cols_) {
                std::memcpy(to, CellData(),
                            static_cast<std::size_t>(keepRows) * static_cast<std::size_t>(cols) *
                                sizeof(Cell));
            } else {
                for (int r = 0; r < keepRows; ++r)
                    std::memcpy(to + static_cast<std::size_t>(r) * static_cast<std::size_t>(cols),
                                CellData() + Index(r, 0),
                                static_cast<std::size_t>(keepCols) * sizeof(Cell));
            }
        }
        memory_ = std::move(next);
    }
    rows_ = rows;
    cols_ = cols;
    colWidths_.resize(static_cast<std::size_t>(cols), -1);
    // Most sheets keep the default height everywhere: their heights take no room at all.
    if (!rowHeights_.empty()) rowHeights_.resize(static_cast<std::size_t>(rows), -1);
}

std::uint32_t ReportSheet::NewTextHandle(std::string_view text) {
    long value = 0;
    if (text.empty()) return 0;
    const std::uint32_t handle =
        ParsePlainNumber(text, value) ? NumberHandle(value) : pool_.Intern(text);
    if (text.size() > 8 || IsProgramConstant(text.data()))
        recentTexts_[RecentTextSlot(text)] = {text.data(), static_cast<std::uint32_t>(text.size()),
                                              handle};
    if (const int place = DigitTextPlace(text); place >= 0 && !IsInlineNumber(handle))
        digitTexts_[static_cast<std::size_t>(place)] = handle;
    if (text.size() <= 8) {
        const std::uint64_t chars = Packed(text);
        ShortTextSet& known = shortTexts_[ShortTextSlot(chars, text.size())];
        known.ways[1] = known.ways[0];
        known.ways[0] = {chars, static_cast<std::uint32_t>(text.size()), handle};
    }
    return handle;
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

void ReportSheet::SetTextSlowly(int row, int col, std::string_view text) {
    if (!Contains(row, col)) return;
    std::uint32_t& cell = CellData()[Index(row, col)].text;
    if (col == 0 && row > 0) return SetLabel(cell, text);
    const std::uint32_t handle = TextHandle(text);
    // A text written over another may leave that one unused: counted for DropUnusedTexts.
    if (cell != handle && cell != 0 && !IsInlineNumber(cell)) ++replacedTexts_;
    cell = handle;
}

void ReportSheet::SetDigitPairSlowly(int row, int col, unsigned first, unsigned second) {
    if (first > 9 || second > 9) throw std::invalid_argument("a digit pair takes digits 0 to 9");
    const char text[2] = {static_cast<char>('0' + first), static_cast<char>('0' + second)};
    SetText(row, col, std::string_view(text, 2));
}

void ReportSheet::SetText(int row, std::span<const int> cols, std::string_view text) {
    if (row < 0 || row >= rows_ || cols.empty()) return;
    const std::uint32_t handle = TextHandle(text);
    for (int col : cols) {
        if (col == 0 && row > 0)
            SetLabel(CellData()[Index(row, col)].text, text);
        else if (col >= 0 && col < cols_)
            CellData()[Index(row, col)].text = handle;
    }
}

void ReportSheet::SetBackColor(int row, std::span<const int> cols, Rgb colour) {
    if (row < 0 || row >= rows_ || cols.empty()) return;
    const std::uint16_t index = PaletteIndex(colour);
    Cell* cells = CellData() + Index(row, 0);
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
    return pool_.Counter(h);
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
        const std::uint32_t h = CellData()[i].text;
        if (h != 0 && !(h & kNumberTag) && remap[h] == 0) {
            remap[h] = 1;
            ++used;
        }
    }
    if (used * 4 > texts * 3) return;  // less than a quarter unused: keep the pool as it is
    pool_.KeepOnly(remap);
    std::fill(recentTexts_.begin(), recentTexts_.end(), RecentText{});  // the handles are new
    std::fill(shortTexts_.begin(), shortTexts_.end(), ShortTextSet{});
    std::copy(kNumberTexts.begin(), kNumberTexts.end(), digitTexts_.begin());
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t& h = CellData()[i].text;
        if (h != 0 && !(h & kNumberTag)) h = remap[h];
    }
}

std::size_t ReportSheet::MemoryBytes() const {
    std::size_t bytes = memory_.size();
    bytes += palette_.capacity() * sizeof(Rgb);
    bytes += (colWidths_.capacity() + rowHeights_.capacity()) * sizeof(int);
    return bytes + pool_.MemoryBytes();
}

}  // namespace numarel
