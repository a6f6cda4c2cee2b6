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
            if (a == b) ++shared;
    return shared;
}

// The sorted digits' different digits, as DistinctDigits writes them. Digits 0 to 9 not starting
// with 0 (or a lone 0) read as a plain number, which the sheet keeps as one: written as one here.
void WriteDistinctDigits(ReportSheet& sheet, int row, const CurrentDigits& sorted) {
    if (sorted[0] < 0 || sorted[2] > 9) {
        sheet.SetText(row, kDistinctCol, DistinctDigits(sorted));
        return;
    }
    char text[3];
    std::size_t size = 0;
    int value = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        if (i > 0 && sorted[i] == sorted[i - 1]) continue;
        text[size++] = static_cast<char>('0' + sorted[i]);
        value = value * 10 + sorted[i];
    }
    if (text[0] != '0' || size == 1)
        sheet.SetNumber(row, kDistinctCol, value);
    else
        sheet.SetText(row, kDistinctCol, std::string_view(text, size));
}

// A copy of one row's different digits, kept while the sheet is written.
class DistinctText {
public:
    void Assign(const ReportSheet& sheet, int row) {
        ReportSheet::NumberDigits digits;
        const std::string_view text = sheet.TextView(row, kDistinctCol, digits);
        long_.clear();
        if (text.size() > chars_.size()) {
            long_ = text;  // not a text of three digits
            size_ = 0;
        } else {
            std::copy(text.begin(), text.end(), chars_.begin());
            size_ = text.size();
        }
    }
    std::string_view View() const {
        return long_.empty() ? std::string_view(chars_.data(), size_) : std::string_view(long_);
    }

private:
    std::array<char, 24> chars_{};
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
    FillSheet(sheet, drawings, [&sheet](int row, CurrentDigits& digits) {
        SortDigits(digits);
        WriteDistinctDigits(sheet, row, digits);
    });

    HeadDigitColumns(sheet);
    sheet.SetText(0, kInheritCol, "Inherit 2 Digits");
    FinishLoad(sheet);

    // Each row's text is taken once, into a buffer of its own; the next row is compared with it.
    std::array<DistinctText, 2> texts;
    texts[1].Assign(sheet, 1);
    for (int r = 1; r < drawCount; ++r) {
        const DistinctText& before = texts[static_cast<std::size_t>(r & 1)];
        DistinctText& after = texts[static_cast<std::size_t>((r + 1) & 1)];
        after.Assign(sheet, r + 1);
        if (SharedCharacters(before.View(), after.View()) == 2)
            sheet.SetText(r + 1, kInheritCol, "YES");
    }
}

}  // namespace

std::span<const ReportDefinition> InheritTwoDigitsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmchong2ge", .title = "Inherit 2 Digits", .build = Build},
    };
    return kReports;
}

}  // namespace numarel
