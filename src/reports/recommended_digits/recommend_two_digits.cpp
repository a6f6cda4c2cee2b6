// Recommend 2 digits: six formulas, each giving two digits for the next drawing from a drawing's
// number, Sum, Width or date, side by side with their track record.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/basic_text.h"
#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/recommended_digits/digit_forecasts.h"
#include "reports/recommended_digits/formula_digits.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scored_method.h"

namespace numarel {
namespace {

constexpr int kSumCol = 4;
constexpr int kWidthCol = 5;
constexpr int kDateForecastCol = 26;

// What a formula reads of a drawing: its number N, its Sum S and Width W as the sheet holds them,
// and its trimmed drawing label.
struct DrawingValues {
    double n;
    int s;
    int w;
    std::string_view label;
};

// X1 and X2; nullopt where the formula fails on the drawing and writes nothing.
using DigitPair = std::optional<std::array<long, 2>>;
// The value whose decimal text X1 and X2 are read out of; nullopt where it cannot be computed.
using FormulaValue = std::optional<double>;

// The last character of a whole number's text, as a digit.
int LastDigit(long value) {
    return static_cast<int>(std::labs(value) % 10);
}

// The first character of a positive whole number's text, as a digit.
int FirstDigit(long value) {
    value = std::labs(value);
    while (value >= 10)
        value /= 10;
    return static_cast<int>(value);
}

// 9 - W, and 9 less the units of S with its two digits added; never twice the same digit.
DigitPair FormulaA(const DrawingValues& v) {
    const int x = v.s <= 9 ? v.s : FirstDigit(v.s) + LastDigit(v.s);
    const long a1 = 9 - v.w;
    long a2 = 9 - LastDigit(x);
    if (a2 == a1) a2 = LastDigit(a2 + 1);
    return std::array{a1, a2};
}

FormulaValue FormulaB(const DrawingValues& v) {
    if (v.s + 7 == 0) return std::nullopt;  // the division fails
    return v.n / (v.s + 7);
}

FormulaValue FormulaC(const DrawingValues& v) {
    return v.n / 32;
}

FormulaValue FormulaD(const DrawingValues& v) {
    return v.n * 0.1975;
}

// The neighbours of the units of S, 1 and 9 around a 0.
DigitPair FormulaE(const DrawingValues& v) {
    const long units = LastDigit(v.s);
    if (units == 0) return std::array{1L, 9L};
    return std::array{units - 1, static_cast<long>(LastDigit(units + 1))};
}

// The pair for the last character of a date.
DigitPair PairForDateDigit(char k) {
    static constexpr std::array<std::array<long, 2>, 10> kByDateDigit = {{
        {3, 4},
        {6, 7},
        {9, 0},
        {2, 3},
        {5, 6},
        {8, 9},
        {1, 2},
        {4, 5},
        {7, 8},
        {0, 1},
    }};
    if (k < '0' || k > '9') return std::nullopt;  // no line of the table
    return kByDateDigit[static_cast<std::size_t>(k - '0')];
}

// By the last character of the drawing's date, the fifth from the end of its label.
DigitPair FormulaF(const DrawingValues& v) {
    if (v.label.size() < 5) return std::nullopt;
    return PairForDateDigit(v.label[v.label.size() - 5]);
}

struct TwoDigitForecast {
    int firstCol;  // X1; X2 stands beside it, the marker after X2
    // One of the two: the pair itself, or the value whose first two distinct digits are X1, X2.
    DigitPair (*pair)(const DrawingValues&) = nullptr;
    FormulaValue (*value)(const DrawingValues&) = nullptr;
    int rowOffset = 1;  // 1: written on the next drawing's row; 0: on the drawing's own row
};

constexpr TwoDigitForecast kForecasts[] = {
    {.firstCol = 6, .pair = FormulaA},
    {.firstCol = 10, .value = FormulaB},
    {.firstCol = 14, .value = FormulaC},
    {.firstCol = 18, .value = FormulaD},
    {.firstCol = 22, .pair = FormulaE},
    {.firstCol = kDateForecastCol, .pair = FormulaF, .rowOffset = 0},
};

constexpr SheetColumn kColumns[] = {
    {1290}, {300, "H"}, {300, "T"},  {300, "U"},  {300, "S"}, {300, "W"}, {300, "A1"}, {300, "A2"},
    {300},  {300},      {300, "B1"}, {300, "B2"}, {300},      {300},      {300, "C1"}, {300, "C2"},
    {300},  {300},      {300, "D1"}, {300, "D2"}, {300},      {300},      {300, "E1"}, {300, "E2"},
    {300},  {300},      {300, "F1"}, {300, "F2"}, {300},
};

ForecastBlock BlockOf(const TwoDigitForecast& forecast) {
    return {.firstCol = forecast.firstCol,
            .lastCol = forecast.firstCol + 1,
            .markerCol = forecast.firstCol + 2,
            .firstJudgedRow = 2,
            .hitColour = colours::kFoundDigit,
            .pairColour = colours::kHit,
            .firstPairRow = 2};
}

void WritePair(ReportSheet& sheet, int row, int col, const DigitPair& pair) {
    if (!pair) return;
    sheet.SetNumber(row, col, (*pair)[0]);
    sheet.SetNumber(row, col + 1, (*pair)[1]);
}

void WriteCharacter(ReportSheet& sheet, int row, int col, char c) {
    if (c >= '0' && c <= '9')
        sheet.SetNumber(row, col, c - '0');
    else
        sheet.SetText(row, col, std::string_view(&c, 1));
}

// The date digit of the drawing to come: the first seven characters of the last drawing's label
// read as a number, plus 1, and the last character of that. An empty file reads 0.
char NextDateDigit(const ReportSheet& sheet) {
    const std::string label = sheet.Text(sheet.DrawCount(), 0);
    const std::string next = NumberToText(LeadingValue(Trim(label).substr(0, 7)) + 1);
    return next.back();
}

// X1 and X2 of the value forecasts for a drawn number N and Sum S, worked out once: the drawings
// of a long history have the numbers 000 to 999 and the Sums 0 to 27 over and over.
class ValueForecastDigits {
public:
    ValueForecastDigits() : known_(kNumbers * kSums * std::size(kForecasts)) {}

    // The digits of `forecast` for the drawing; empty where its formula fails.
    std::string_view operator()(const TwoDigitForecast& forecast, const DrawingValues& values) {
        const bool common = values.n >= 0 && values.n < kNumbers &&
                            values.n == std::floor(values.n) && values.s >= 0 && values.s < kSums;
        if (!common) return Work(forecast, values);
        const auto index =
            (static_cast<std::size_t>(values.n) * kSums + static_cast<std::size_t>(values.s)) *
                std::size(kForecasts) +
            static_cast<std::size_t>(&forecast - kForecasts);
        Known& known = known_[index];
        if (!known.worked) {
            const std::string_view digits = Work(forecast, values);
            known.worked = true;
            known.size = static_cast<char>(digits.size());
            std::copy(digits.begin(), digits.end(), known.digits.begin());
        }
        return {known.digits.data(), static_cast<std::size_t>(known.size)};
    }

private:
    static constexpr int kNumbers = 1000;
    static constexpr int kSums = 28;
    // X1 is the first of the value's leading digits, X2 the last: the same one where there is
    // one.
    std::string_view Work(const TwoDigitForecast& forecast, const DrawingValues& values) {
        const FormulaValue value = forecast.value(values);
        if (!value) return {};
        const std::string& digits = leadingTwo_(*value);
        pair_ = {digits.front(), digits.back()};
        return {pair_.data(), pair_.size()};
    }
    struct Known {
        bool worked = false;
        char size = 0;
        std::array<char, 2> digits{};
    };
    LeadingDigitsMemo leadingTwo_{2};
    std::vector<Known> known_;
    std::array<char, 2> pair_{};
};

// The forecasts that the drawing of row `row` gives: on the next row, F on its own.
void WriteForecasts(ReportSheet& sheet, int row, ValueForecastDigits& valueDigits) {
    ReportSheet::NumberDigits labelDigits;
    const std::string_view label = sheet.TextView(row, 0, labelDigits);
    const DrawingValues values{
        .n = DrawnNumber(label),
        .s = sheet.CellNumber(row, kSumCol),
        .w = sheet.CellNumber(row, kWidthCol),
        .label = Trim(label),
    };
    for (const TwoDigitForecast& forecast : kForecasts) {
        const int forecastRow = row + forecast.rowOffset;
        if (forecast.pair) {
            WritePair(sheet, forecastRow, forecast.firstCol, forecast.pair(values));
        } else if (const std::string_view digits = valueDigits(forecast, values); !digits.empty()) {
            WriteCharacter(sheet, forecastRow, forecast.firstCol, digits.front());
            WriteCharacter(sheet, forecastRow, forecast.firstCol + 1, digits.back());
        }
    }
}

// Each drawing's row is worked while it is at hand: its Sum and Width, the forecasts it gives,
// then the judgement of the forecasts that stand on it.
void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
    SetColumns(sheet, kColumns);
    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2, 6);

    std::array<ForecastBlock, std::size(kForecasts)> blocks;
    for (std::size_t i = 0; i < blocks.size(); ++i)
        blocks[i] = BlockOf(kForecasts[i]);
    ForecastJudge judge(sheet, blocks);
    ValueForecastDigits valueDigits;
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        sheet.SetNumber(row, kSumCol, SumOf(digits));
        sheet.SetBackColor(row, kSumCol, colours::kSumWidth);
        SortDigits(digits);
        sheet.SetNumber(row, kWidthCol, WidthOf(digits));
        sheet.SetBackColor(row, kWidthCol, colours::kSumWidth);
        WriteForecasts(sheet, row, valueDigits);
        judge.JudgeRow(row);
    });
    WritePair(sheet, drawCount + 1, kDateForecastCol, PairForDateDigit(NextDateDigit(sheet)));

    WriteHeaders(sheet, kColumns);
    FinishLoad(sheet);
}

}  // namespace

std::span<const ReportDefinition> RecommendTwoDigitsReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = "frmtongshahao", .title = "Recommend 2 digits", .build = Build},
    };
    return kReports;
}

// The claims the scoreboard follows, each judged as the report judges it: every forecast of the
// table, named by its letter, its marker after its two digits. A forecast written on the drawing's
// own row (F, from the date of the drawing it forecasts) uses a later drawing.
std::span<const ScoredMethod> RecommendTwoDigitsMethods() {
    static const std::vector<ScoredMethod> kMethods = [] {
        constexpr std::string_view kLetters = "ABCDEF";
        static_assert(kLetters.size() == std::size(kForecasts));
        std::vector<ScoredMethod> methods;
        for (std::size_t i = 0; i < std::size(kForecasts); ++i) {
            const ForecastBlock block = BlockOf(kForecasts[i]);
            methods.push_back({.object = "frmtongshahao",
                               .name = kLetters.substr(i, 1),
                               .firstClaimCol = block.firstCol,
                               .claimCount = block.lastCol - block.firstCol + 1,
                               .judgeCol = block.markerCol,
                               .usesLaterDrawings = kForecasts[i].rowOffset == 0});
        }
        return methods;
    }();
    return kMethods;
}

}  // namespace numarel
