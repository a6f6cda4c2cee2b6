#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kCols = 6;
constexpr int kDistinctCol = 4;  // work column: the drawing's different digits
constexpr int kInheritCol = 5;

// How many characters of one text match a character of the other, every pair compared. Texts of
// different digits hold no character twice, so this is the number of digits they share.
int SharedCharacters(std::string_view one, std::string_view other) {
    int shared = 0;
    for (char a : one)
        for (char b : other)
            shared += a == b ? 1 : 0;  // no branch: which digits repeat is anybody's guess
    return shared;
}

// The texts of different digits that start with 0 and are no plain number, made ready once:
// "0b" and "0bc" (b < c), by the value b * 10 + c, with c = 0 for "0b".
class LeadingZeroTexts {
public:
    explicit LeadingZeroTexts(ReportSheet& sheet) {
        static constexpr auto kTexts = [] {
            std::array<std::array<char, 3>, 100> texts{};
            for (std::size_t i = 0; i < texts.size(); ++i)
                texts[i] = {'0', static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
            return texts;
        }();
        for (std::size_t b = 1; b <= 9; ++b) {
            keys_[b * 10] = sheet.Prepare(std::string_view(kTexts[b * 10].data(), 2));
            for (std::size_t c = b + 1; c <= 9; ++c)
                keys_[b * 10 + c] = sheet.Prepare(std::string_view(kTexts[b * 10 + c].data(), 3));
        }
    }
    const ReportSheet::TextKey& operator[](int index) const {
        return keys_[static_cast<std::size_t>(index)];
    }

private:
    std::array<ReportSheet::TextKey, 100> keys_;
};

// The sorted digits' different digits, as DistinctDigits writes them. Digits 0 to 9 not starting
// with 0 (or a lone 0) read as a plain number, which the sheet keeps as one: written as one here.
void WriteDistinctDigits(ReportSheet& sheet, int row, const CurrentDigits& sorted,
                         const LeadingZeroTexts& leadingZero) {
    if (sorted[0] < 0 || sorted[2] > 9) {
        sheet.SetText(row, kDistinctCol, DistinctDigits(sorted));
        return;
    }
    // Without a branch, as which digits repeat is anybody's guess: a digit like the one before
    // is written and then not counted, so the next takes its place.
    char first = '0';
    int size = 0;
    int value = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const bool different = i == 0 || sorted[i] != sorted[i - 1];
        first = i == 0 ? static_cast<char>('0' + sorted[i]) : first;
        value = different ? value * 10 + sorted[i] : value;
        size += different ? 1 : 0;
    }
    if (first != '0' || size == 1)
        sheet.SetNumber(row, kDistinctCol, value);
    else
        sheet.SetText(row, kDistinctCol, leadingZero[size == 2 ? value * 10 : value]);
}

// A copy of one row's different digits, kept while the sheet is written: up to three characters
// in place, a longer text aside.
class DistinctText {
public:
    void Assign(const ReportSheet& sheet, int row) {
        // Mostly a number of up to three digits: its digits are taken from its value here,
        // without a branch on how many there are.
        const bool number = sheet.HoldsNumber(row, kDistinctCol);
        const short value = number ? sheet.CellNumber(row, kDistinctCol) : short{-1};
        if (value >= 0 && value < 1000) {
            const std::array<char, 3> all{static_cast<char>('0' + value / 100),
                                          static_cast<char>('0' + value / 10 % 10),
                                          static_cast<char>('0' + value % 10)};
            size_ = 1 + (value >= 10 ? 1 : 0) + (value >= 100 ? 1 : 0);
            for (std::size_t i = 0; i < chars_.size(); ++i)
                chars_[i] = all[std::min(i + all.size() - size_, all.size() - 1)];
            long_.clear();
            return;
        }
        ReportSheet::NumberDigits digits;
        const std::string_view text = sheet.TextView(row, kDistinctCol, digits);
        long_.clear();
        if (text.size() > chars_.size()) {
            long_ = text;
            size_ = 0;
        } else {
            // A character at a time: the texts are a few digits, too short to be worth a call.
            for (std::size_t i = 0; i < text.size(); ++i)
                chars_[i] = text[i];
            size_ = text.size();
        }
    }
    std::string_view View() const {
        return long_.empty() ? std::string_view(chars_.data(), size_) : std::string_view(long_);
    }

    // SharedCharacters of two texts, without a branch for short ones.
    friend int SharedCharacters(const DistinctText& one, const DistinctText& other) {
        if (!one.long_.empty() || !other.long_.empty())
            return SharedCharacters(one.View(), other.View());
        int shared = 0;
        for (std::size_t i = 0; i < one.chars_.size(); ++i)
            for (std::size_t j = 0; j < other.chars_.size(); ++j)
                shared += static_cast<int>((i < one.size_) & (j < other.size_) &
                                           (one.chars_[i] == other.chars_[j]));
        return shared;
    }

private:
    std::array<char, 3> chars_{};
    std::size_t size_ = 0;
    std::string long_;
};

void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    sheet.SetCols(kCols);
    sheet.SetColWidth(0, 1290);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(kDistinctCol, 20);
    sheet.SetColWidth(kInheritCol, 1032);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);
    const ReportSheet::TextKey inherits = sheet.Prepare("YES");
    const LeadingZeroTexts leadingZero(sheet);
    // Each row's different digits are written, taken back from their cell into a buffer of
    // their own, and compared with those of the row before, still held in the other buffer.
    std::array<DistinctText, 2> texts;
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        SortDigits(digits);
        WriteDistinctDigits(sheet, row, digits, leadingZero);
        DistinctText& after = texts[static_cast<std::size_t>(row & 1)];
        after.Assign(sheet, row);
        if (row == 1) return;
        const DistinctText& before = texts[static_cast<std::size_t>((row - 1) & 1)];
        if (SharedCharacters(before, after) == 2) sheet.SetText(row, kInheritCol, inherits);
    });

    HeadDigitColumns(sheet);
    sheet.SetText(0, kInheritCol, "Inherit 2 Digits");
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> InheritTwoDigitsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmchong2ge", .title = "Inherit 2 Digits", .build = Build},
    };
    return kReports;
}

}  // namespace numarel
