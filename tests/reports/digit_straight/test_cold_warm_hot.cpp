#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;

// The text of "Next Box numbers" for a finished sheet.
std::string NextBoxNumbersText(const ReportSheet& sheet) {
    return FindReport("frmrenwenleng")->extraButton.text(sheet);
}
using testing::ColumnsColoured;
using testing::Drawings;
using testing::RowTexts;
using Texts = std::vector<std::string>;

constexpr Rgb kHotHit = MakeRgb(255, 0, 200);
constexpr Rgb kWarmHit = MakeRgb(225, 0, 0);
constexpr Rgb kColdHit = MakeRgb(42, 140, 167);
constexpr Rgb kWarmBand = MakeRgb(249, 212, 194);
constexpr Rgb kPattern = MakeRgb(42, 219, 167);

// Ranked Hot 7 4 1, Warm 9 5 2 0, Cold 3 6 8: rank order and digit order differ in Hot and Warm.
const auto kSeven = Drawings({"777", "777", "444", "441", "111", "999", "552"});

TEST(ColdWarmHot, ListsCountsAndPatternsOfTheDrawingsAfterTheFirstSeven) {
    auto drawings = kSeven;
    for (const auto& d : Drawings({"730", "444"}))
        drawings.push_back(d);
    const ReportSheet sheet = Build("frmrenwenleng", drawings);

    ASSERT_EQ(sheet.Rows(), 12);
    EXPECT_EQ(RowTexts(sheet, 7, 1, 32), Texts(32));  // nothing before seven drawings are counted

    // Row 8 counts rows 1 to 7.
    EXPECT_EQ(RowTexts(sheet, 8, 1, 10), (Texts{"0", "4", "1", "0", "5", "2", "0", "6", "0", "3"}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, MakeRgb(255, 0, 0)), (std::vector<int>{2, 5, 8, 10}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, MakeRgb(255, 243, 42)), (std::vector<int>{6}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, MakeRgb(1, 188, 243)), (std::vector<int>{1, 3, 4, 7, 9}));
    EXPECT_EQ(RowTexts(sheet, 8, 12, 21),
              (Texts{"7", "4", "1", "9", "5", "2", "0", "3", "6", "8"}));
    // 730: one of each class; each hit list cell painted in its class colour.
    EXPECT_EQ(ColumnsColoured(sheet, 8, kHotHit), (std::vector<int>{12}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, kWarmHit), (std::vector<int>{18}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, kColdHit), (std::vector<int>{19}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, kWarmBand), (std::vector<int>{15, 16, 17}));
    EXPECT_EQ(ColumnsColoured(sheet, 8, kPattern), (std::vector<int>{32}));
    EXPECT_EQ(sheet.Text(8, 32), "111");

    // Row 9 ranks rows 2 to 8: 4 first, then 1 and 7 tied on four. 444 counts three Hot digits
    // though it paints a single list cell.
    EXPECT_EQ(RowTexts(sheet, 9, 12, 21),
              (Texts{"4", "1", "7", "9", "5", "0", "2", "3", "6", "8"}));
    EXPECT_EQ(ColumnsColoured(sheet, 9, kHotHit), (std::vector<int>{12}));
    EXPECT_EQ(ColumnsColoured(sheet, 9, kPattern), (std::vector<int>{25}));
    EXPECT_EQ(sheet.Text(9, 25), "300");

    // The next drawing's row has lists and no pattern; rows 1 to 24 are collapsed as far as the
    // sheet has them.
    EXPECT_EQ(RowTexts(sheet, 10, 12, 21),
              (Texts{"4", "1", "9", "5", "0", "2", "3", "7", "6", "8"}));
    EXPECT_EQ(RowTexts(sheet, 10, 23, 36), Texts(14));
    EXPECT_EQ(sheet.RowHeight(11), 2);
}

// One group of the text: its header line, its items each followed by a blank, an empty line.
std::string Group(const std::string& header, const std::string& items) {
    return header + "\r\n" + items + " \r\n\r\n";
}

TEST(ColdWarmHot, NextBoxNumbersFollowTheListsInTheirOrder) {
    // Exactly seven drawings: the lists of the next drawing's row give the text.
    const ReportSheet sheet = Build("frmrenwenleng", kSeven);

    const std::string expected =
        Group("003:", "368 336 338 366 668 388 688 333 666 888") +
        Group("030:",
              "025 029 059 259 002 005 009 022 225 229 055 255 559 099 299 599 000 222 555 999") +
        Group("300:", "147 114 117 144 447 177 477 111 444 777") +
        Group("012:",
              "369 356 236 036 389 358 238 038 689 568 268 068 "
              "339 335 233 033 669 566 266 066 889 588 288 088") +
        Group("021:",
              "359 239 235 039 035 023 569 269 256 069 056 026 589 289 258 089 058 028 "
              "399 355 223 003 699 556 226 006 899 558 228 008") +
        Group("102:", "367 378 678 346 348 468 136 138 168 337 667 788 334 466 488 133 166 188") +
        Group("120:",
              "579 279 257 079 057 027 459 249 245 049 045 024 159 129 125 019 015 012 "
              "799 557 227 007 499 455 224 004 199 155 122 001") +
        Group("210:",
              "479 179 149 457 157 145 247 127 124 047 017 014 "
              "779 449 119 577 445 115 277 244 112 077 044 011") +
        Group("111:",
              "379 679 789 357 567 578 237 267 278 037 067 078 "
              "349 469 489 345 456 458 234 246 248 034 046 048 "
              "139 169 189 135 156 158 123 126 128 013 016 018");
    EXPECT_EQ(NextBoxNumbersText(sheet), expected);
}

TEST(ColdWarmHot, WithoutSevenDrawingsTheTextSaysSoInsteadOfEmptyGroups) {
    for (const auto& drawings :
         {Drawings({}), Drawings({"123", "456", "789", "012", "345", "678"})}) {
        const ReportSheet sheet = Build("frmrenwenleng", drawings);
        EXPECT_EQ(sheet.Rows(), static_cast<int>(drawings.size()) + 3);
        const std::string text = NextBoxNumbersText(sheet);
        EXPECT_EQ(text.find("003:"), std::string::npos) << text;
        EXPECT_EQ(text.find("111:"), std::string::npos) << text;
        EXPECT_NE(text.find("at least 7 drawings"), std::string::npos) << text;
    }
}

}  // namespace
}  // namespace numarel
