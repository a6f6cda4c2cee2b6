#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/basic_text.h"
#include "frame/cell_memory.h"
#include "frame/text_pool.h"

namespace numarel {

// A colour as 0xRRGGBB. 0 stands for "the sheet's default" wherever a cell colour is stored.
using Rgb = std::uint32_t;
constexpr Rgb MakeRgb(int r, int g, int b) {
    return (static_cast<Rgb>(r & 0xFF) << 16) | (static_cast<Rgb>(g & 0xFF) << 8) |
           static_cast<Rgb>(b & 0xFF);
}
inline constexpr Rgb kDefaultColour = 0;

// A text shown under a report's sheet, with its colours (0: the window's default).
struct SheetLabel {
    std::string text;
    Rgb fore = 0;
    Rgb back = 0;
};

namespace frame_detail {
class SheetCells;
}

// A report's table: text cells with back and fore colours, column widths and row heights in
// twips, row 0 and column 0 fixed. It is both what a report shows and the report's working
// memory: passes read back with CellNumber what earlier passes wrote.
//
// Every cell costs 8 bytes: texts are interned once per sheet (numbers are kept inline),
// colours are indices into a small per-sheet palette. Column 0 below the header holds each row's
// label, nearly always a text no other cell has: those texts are kept per cell, neither looked up
// nor shared, and a label written again takes the place of the old one. Reads outside the sheet
// give an empty text and colour 0; writes outside the sheet do nothing.
class ReportSheet {
    struct Cell {
        std::uint32_t text = 0;  // 0 empty; high bit set: inline number; else pool index + 1
        std::uint16_t back = 0;  // palette index, 0 = default
        std::uint16_t fore = 0;
    };
    static_assert(sizeof(Cell) == 8);
    // The frame's passes walk rows of cells directly through it (frame/sheet_cells.h).
    friend class frame_detail::SheetCells;

public:
    ReportSheet() = default;
    ReportSheet(int rows, int cols) { Resize(rows, cols); }
    // The text index points into the pool, so a sheet moves but is not copied.
    ReportSheet(const ReportSheet&) = delete;
    ReportSheet& operator=(const ReportSheet&) = delete;
    ReportSheet(ReportSheet&&) = default;
    ReportSheet& operator=(ReportSheet&&) = default;

    // --- size ------------------------------------------------------------------------------
    int Rows() const { return rows_; }
    int Cols() const { return cols_; }
    // Sets the size; cells that still fit keep their contents, new cells are empty.
    void Resize(int rows, int cols);
    void SetRows(int rows) { Resize(rows, cols_); }
    void SetCols(int cols) { Resize(rows_, cols); }
    bool Contains(int row, int col) const {
        // Negative indices wrap to large unsigned ones: one comparison per index.
        return static_cast<unsigned>(row) < static_cast<unsigned>(rows_) &&
               static_cast<unsigned>(col) < static_cast<unsigned>(cols_);
    }

    // --- text ------------------------------------------------------------------------------
    void SetText(int row, int col, std::string_view text) {
        // A text written before is a store (RecentHandle).
        if (Contains(row, col) && col != 0) {
            const std::uint32_t handle = RecentHandle(text);
            std::uint32_t& cell = CellData()[Index(row, col)].text;
            if (handle != 0 && (cell == 0 || cell == handle || (cell & kNumberTag))) {
                cell = handle;
                return;
            }
        }
        SetTextSlowly(row, col, text);
    }
    // Writes one text into several cells of a row; wide reports repeat a few markers per row.
    void SetText(int row, std::span<const int> cols, std::string_view text);
    // Writes a number as plain decimal text.
    void SetNumber(int row, int col, long value) {
        if (!Contains(row, col)) return;
        if (value >= -kNumberBias && value < kNumberBias)
            CellData()[Index(row, col)].text = NumberHandle(value);
        else
            SetText(row, col, std::to_string(value));
    }
    // Writes two digits 0 to 9 one after the other as one text, "05" or "57", as SetText writes
    // those characters.
    void SetDigitPair(int row, int col, unsigned first, unsigned second) {
        if (Contains(row, col) && col != 0 && first < 10 && second < 10) {
            // The text's handle is known by its place once it was written, a number's always.
            const std::uint32_t handle = digitTexts_[DigitTextPlace(2, first, second, second)];
            std::uint32_t& cell = CellData()[Index(row, col)].text;
            if (handle != 0 && (cell == 0 || cell == handle || (cell & kNumberTag))) {
                cell = handle;
                return;
            }
        }
        SetDigitPairSlowly(row, col, first, second);
    }
    std::string Text(int row, int col) const;
    // The cell's text without a copy, for writers that walk every cell: a view of the sheet's
    // own text, or of a number's digits, from a table of the program's or written into `digits`.
    // Valid while the sheet and `digits` are unchanged.
    using NumberDigits = std::array<char, 24>;
    [[gnu::always_inline]] std::string_view TextView(int row, int col, NumberDigits& digits) const {
        const std::uint32_t h = Handle(row, col);
        if (h == 0) return {};
        if (!(h & kNumberTag)) return pool_.View(h);
        // Most numbers of a sheet are Miss numbers, digits or drawn numbers, under 1000: their
        // digits are read from a table of all of them.
        const long v = InlineValue(h);
        if (v < 0 || v >= 1000) return NumberView(v, digits);
        const std::size_t at = static_cast<std::size_t>(v) * 3;
        if (v >= 100) return {&kThreeDigits[at], 3u};
        if (v >= 10) return {&kThreeDigits[at + 1], 2u};
        return {&kThreeDigits[at + 2], 1u};
    }
    // True when the cell holds a number as SetNumber writes it.
    bool HoldsNumber(int row, int col) const { return (Handle(row, col) & kNumberTag) != 0; }
    // Lets go of the texts no cell holds any more, when they are many (a report that rewrites
    // its labels leaves the first ones behind).
    void DropUnusedTexts();
    bool IsEmpty(int row, int col) const { return Handle(row, col) == 0; }
    // True when the cell's text is exactly `text`.
    bool TextIs(int row, int col, std::string_view text) const {
        return HandleIs(Handle(row, col), text);
    }
    // True when two cells hold the same text: a number cell and a text cell never do, as a text
    // that is a plain number is always kept as a number.
    bool SameText(int row, int col, int otherRow, int otherCol) const {
        const std::uint32_t a = Handle(row, col);
        const std::uint32_t b = Handle(otherRow, otherCol);
        if (a == b) return true;
        // Every text but a label is kept once: only a label's may stand under two handles.
        const bool label = (col == 0 && row > 0) || (otherCol == 0 && otherRow > 0);
        return label && SameLabelText(a, b);
    }
    // The number at the start of the cell's text, blanks ignored; 0 for an empty or non-numeric
    // text.
    double CellValue(int row, int col) const;
    // CellValue as a 16-bit counter: rounded half to even, clamped.
    short CellNumber(int row, int col) const { return HandleNumber(Handle(row, col)); }

    // --- colours ---------------------------------------------------------------------------
    void SetBackColor(int row, int col, Rgb colour) {
        if (Contains(row, col)) CellData()[Index(row, col)].back = PaletteIndex(colour);
    }
    // Colours several cells of a row; wide reports stripe many columns of every row.
    void SetBackColor(int row, std::span<const int> cols, Rgb colour);
    void SetForeColor(int row, int col, Rgb colour) {
        if (Contains(row, col)) CellData()[Index(row, col)].fore = PaletteIndex(colour);
    }
    Rgb BackColor(int row, int col) const {
        return Contains(row, col) ? palette_[CellData()[Index(row, col)].back] : kDefaultColour;
    }
    Rgb ForeColor(int row, int col) const {
        return Contains(row, col) ? palette_[CellData()[Index(row, col)].fore] : kDefaultColour;
    }

    // --- geometry, in twips ----------------------------------------------------------------
    // -1 means the report left the width or height at the default.
    void SetColWidth(int col, int twips);
    int ColWidth(int col) const;
    void SetRowHeight(int row, int twips);
    int RowHeight(int row) const;
    // The rows whose height a report set, ascending, with their heights.
    std::vector<std::pair<int, int>> ExplicitRowHeights() const;

    // --- view state --------------------------------------------------------------------------
    int CurrentRow() const { return row_; }
    int CurrentCol() const { return col_; }
    void SetCurrentCell(int row, int col) {
        row_ = row;
        col_ = col;
    }
    int TopRow() const { return topRow_; }
    void SetTopRow(int row) { topRow_ = row; }

    // --- report attributes -------------------------------------------------------------------
    const std::string& Title() const { return title_; }
    void SetTitle(std::string title) { title_ = std::move(title); }
    // The number of drawings the sheet was filled with; row DrawCount + 1 is the next drawing.
    int DrawCount() const { return drawCount_; }
    void SetDrawCount(int count) { drawCount_ = count; }
    // The rows each drawing takes: 1 in most reports, more where a drawing is spread over several
    // rows; drawing n then starts at row (n - 1) * RowsPerDrawing() + 1.
    int RowsPerDrawing() const { return rowsPerDrawing_; }
    void SetRowsPerDrawing(int rows) { rowsPerDrawing_ = rows < 1 ? 1 : rows; }
    // The colour of the lines between the cells; 0 is the sheet's default grey.
    Rgb GridColour() const { return gridColour_; }
    void SetGridColour(Rgb colour) { gridColour_ = colour; }
    // Font size in tenths of a point (75 = 7.5 pt).
    int FontDecipoints() const { return fontDecipoints_; }
    void SetFontDecipoints(int decipoints) { fontDecipoints_ = decipoints; }

    // Texts shown under the sheet, in order (most reports have none).
    const std::vector<SheetLabel>& Labels() const { return labels_; }
    void SetLabels(std::vector<SheetLabel> labels) { labels_ = std::move(labels); }

    // Bytes held by the cells, palette and text pool.
    std::size_t MemoryBytes() const;

    // "000" to "999", one after the other.
    static constexpr std::array<char, 3000> kThreeDigits = [] {
        std::array<char, 3000> digits{};
        for (std::size_t v = 0; v < 1000; ++v) {
            digits[3 * v] = static_cast<char>('0' + v / 100);
            digits[3 * v + 1] = static_cast<char>('0' + v / 10 % 10);
            digits[3 * v + 2] = static_cast<char>('0' + v % 10);
        }
        return digits;
    }();

    // A cell's text handle: 0 empty; with the high bit set, a number kept inline; else a handle
    // of the text pool.
    static constexpr std::uint32_t kNumberTag = 0x80000000u;
    static constexpr long kNumberBias = 1L << 30;  // numbers in [-2^30, 2^30) are kept inline

private:
    // A text looked up once for a walk that compares many cells with it: the handle that every
    // cell holding exactly that text has, but a label.
    struct TextKey {
        std::uint32_t handle = 0;
        std::string_view text;
    };
    TextKey KeyOf(std::string_view text) const;

    static std::uint32_t NumberHandle(long value) {
        return kNumberTag | static_cast<std::uint32_t>(value + kNumberBias);
    }
    static std::string_view NumberView(long value, NumberDigits& digits);
    static long InlineValue(std::uint32_t h) {
        return static_cast<long>(h & ~kNumberTag) - kNumberBias;
    }
    // What TextIs and CellNumber say of a cell's text handle.
    bool HandleIs(std::uint32_t h, std::string_view text) const {
        if (h == 0) return text.empty();
        if (h & kNumberTag) {
            // Most probes of a number cell are markers such as "***": no need to parse them.
            if (text.empty() || (text[0] != '-' && (text[0] < '0' || text[0] > '9'))) return false;
            return NumberIs(h, text);
        }
        return pool_.View(h) == text;
    }
    short HandleNumber(std::uint32_t h) const {
        if (h & kNumberTag) {  // a whole number already: only the clamp applies
            long v = InlineValue(h);
            return static_cast<short>(v < -32768 ? -32768 : v > 32767 ? 32767 : v);
        }
        return RoundedValue(h);
    }
    short RoundedValue(std::uint32_t h) const;
    void SetTextSlowly(int row, int col, std::string_view text);
    void SetDigitPairSlowly(int row, int col, unsigned first, unsigned second);
    // The handle a cell holding `text` gets: inline for a plain number, interned otherwise.
    std::uint32_t TextHandle(std::string_view text) {
        const std::uint32_t handle = RecentHandle(text);
        return handle != 0 ? handle : NewTextHandle(text);
    }
    std::uint32_t NewTextHandle(std::string_view text);
    // The handle of `text` when it was written before; 0 when it is not at hand. A text of the
    // program's own constants (a marker, a table's text) never changes: it is found by where it is
    // alone. Any other short text is found by its characters, a longer one by where they are, and
    // checked.
    std::uint32_t RecentHandle(std::string_view text) {
        if (IsProgramConstant(text.data())) {
            RecentText& recent = recentTexts_[RecentTextSlot(text)];
            if (recent.data == text.data() && recent.size == text.size() && recent.handle != 0)
                return recent.handle;
            const std::uint32_t handle = HandleByCharacters(text);
            if (handle != 0)
                recent = {text.data(), static_cast<std::uint32_t>(text.size()), handle};
            return handle;
        }
        return HandleByCharacters(text);
    }
    std::uint32_t HandleByCharacters(std::string_view text) const {
        if (text.size() - 1 < 3) {
            // One to three digits, a number or a text such as "05" or "012": found by their
            // place among all such texts. The first, middle and last characters are all of them.
            const auto* p = reinterpret_cast<const unsigned char*>(text.data());
            const std::size_t n = text.size();
            const unsigned first = p[0] - unsigned{'0'};
            const unsigned last = p[n - 1] - unsigned{'0'};
            const unsigned middle = p[n / 2] - unsigned{'0'};
            if (first < 10 && last < 10 && middle < 10)
                return digitTexts_[DigitTextPlace(n, first, middle, last)];
        }
        if (text.size() <= 8) {
            const std::uint64_t chars = Packed(text);
            const ShortTextSet& known = shortTexts_[ShortTextSlot(chars, text.size())];
            for (const ShortText& way : known.ways)
                if (way.chars == chars && way.size == text.size()) return way.handle;
            return 0;
        }
        const RecentText& recent = recentTexts_[RecentTextSlot(text)];
        if (recent.data != text.data() || recent.size != text.size() || recent.handle == 0 ||
            (recent.handle & kNumberTag))
            return 0;
        return pool_.View(recent.handle) == text ? recent.handle : 0;
    }
    // The handles of the texts of one to three digits before any is written: those that are
    // plain numbers have their number's handle, the others ("05", "012") none yet.
    static const std::array<std::uint32_t, kDigitTextCount> kNumberTexts;
    // Reports write a few markers and table texts over and over: each is found again without
    // parsing or interning it.
    static std::size_t ShortTextSlot(std::uint64_t chars, std::size_t size) {
        return static_cast<std::size_t>(((chars + size) * 0x9E3779B97F4A7C15ull) >> 54);
    }
    static std::size_t RecentTextSlot(std::string_view text) {
        const auto at = reinterpret_cast<std::uintptr_t>(text.data());
        return static_cast<std::uint32_t>((at ^ (at >> 7) ^ text.size()) * 0x9E3779B1u) >> 22;
    }
    // Up to eight characters as one number, the same for the same characters. Read in at most two
    // loads that may overlap, never past the text.
    static std::uint64_t Packed(std::string_view text) {
        const auto* p = reinterpret_cast<const unsigned char*>(text.data());
        const std::size_t n = text.size();
        if (n >= 4) {
            std::uint32_t first, last;
            std::memcpy(&first, p, 4);
            std::memcpy(&last, p + n - 4, 4);
            return first | (static_cast<std::uint64_t>(last) << (8 * (n - 4)));
        }
        if (n == 0) return 0;
        return p[0] | (static_cast<std::uint64_t>(p[n / 2]) << (8 * (n / 2))) |
               (static_cast<std::uint64_t>(p[n - 1]) << (8 * (n - 1)));
    }
    // Writes `text` into a label cell (column 0 below the header).
    void SetLabel(std::uint32_t& cell, std::string_view text);
    // True when two different handles, one of them a label's, name the same text.
    bool SameLabelText(std::uint32_t a, std::uint32_t b) const;
    // True when the inline number `h` is written as `text`.
    static bool NumberIs(std::uint32_t h, std::string_view text);

    // The cells, rows_ * cols_ of them in use; cells beyond them are always empty.
    Cell* CellData() const { return static_cast<Cell*>(memory_.data()); }
    std::size_t CellCapacity() const { return memory_.size() / sizeof(Cell); }

    std::uint32_t Handle(int row, int col) const {
        return Contains(row, col) ? CellData()[Index(row, col)].text : 0;
    }
    std::size_t Index(int row, int col) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(col);
    }
    std::uint32_t Intern(std::string_view text);
    // Reports set a handful of colours many times over, often alternating cell by cell: each is
    // found again by a few bits of the colour, without a search.
    static std::size_t RecentSlot(Rgb colour) {
        return static_cast<std::uint32_t>(colour * 0x9E3779B1u) >> 26;
    }
    std::uint16_t PaletteIndex(Rgb colour) {
        const RecentColour& recent = recentColours_[RecentSlot(colour)];
        return recent.colour == colour ? recent.index : FindPaletteIndex(colour);
    }
    std::uint16_t FindPaletteIndex(Rgb colour);

    int rows_ = 0;
    int cols_ = 0;
    CellMemory memory_;
    TextPool pool_;
    std::size_t replacedTexts_ = 0;  // texts written over by other texts since the last drop
    std::vector<Rgb> palette_{kDefaultColour};
    // Colours used before, by RecentSlot.
    struct RecentColour {
        Rgb colour = kDefaultColour;
        std::uint16_t index = 0;
    };
    std::array<RecentColour, 64> recentColours_{};
    // Texts of up to eight characters written before, by ShortTextSlot (a handle of 0: none); two
    // texts share a slot, the one written last first, so that two hundred texts that come again
    // and again (the distinct digits of every drawing) seldom push each other out.
    struct ShortText {
        std::uint64_t chars = 0;
        std::uint32_t size = 0;
        std::uint32_t handle = 0;
    };
    struct alignas(32) ShortTextSet {
        std::array<ShortText, 2> ways;
    };
    std::vector<ShortTextSet> shortTexts_ = std::vector<ShortTextSet>(1024);
    // The handle of every text of one to three digits, by DigitTextPlace; 0: not written yet.
    std::vector<std::uint32_t> digitTexts_{kNumberTexts.begin(), kNumberTexts.end()};
    // Where the program's read-only data lies (found when the program starts; empty before).
    struct AddressRange {
        std::uintptr_t begin = 0;
        std::uintptr_t size = 0;
    };
    static const AddressRange kProgramConstants;
    static bool IsProgramConstant(const char* data) {
        return reinterpret_cast<std::uintptr_t>(data) - kProgramConstants.begin <
               kProgramConstants.size;
    }
    // Longer texts and the program's constant texts written before, by RecentTextSlot; enough
    // slots that the hundred or so constant texts of a report's table seldom push each other out.
    struct RecentText {
        const char* data = nullptr;
        std::uint32_t size = 0;  // a text too long for it is never found
        std::uint32_t handle = 0;
    };
    std::vector<RecentText> recentTexts_ = std::vector<RecentText>(1024);
    std::vector<int> colWidths_;
    std::vector<int> rowHeights_;
    int row_ = 0;
    int col_ = 0;
    int topRow_ = 0;
    std::string title_;
    int drawCount_ = 0;
    int rowsPerDrawing_ = 1;
    Rgb gridColour_ = kDefaultColour;
    int fontDecipoints_ = 75;
    std::vector<SheetLabel> labels_;
};

}  // namespace numarel
