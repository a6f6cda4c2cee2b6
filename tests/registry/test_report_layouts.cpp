// Every built report's header row (its ticket lists, digit sets, pairs and headers), all its
// column widths, its title and its help page, written out by hand from the reports' own
// descriptions of their layout: the one place where these are checked. A
// report's constants live in row 0 and its passes read them back from there, so a ticket or a
// width copied wrongly into a family's table changes what the report computes; this table shows
// it. Where a layout follows a rule (every 6 Way Box number in ascending order), the rule is
// written out here rather than the list.
#include <gtest/gtest.h>

#include <cstdlib>
#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "reports/command_table.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;
using Texts = std::vector<std::string>;
using Widths = std::vector<int>;

constexpr int kDefaultWidth = -1;  // a width the report leaves at the sheet's default

// Widths in runs: "1218 300x3 30" is 1218, three columns of 300, then 30; "d" is a column left
// at the sheet's default.
Widths Runs(std::string_view runs) {
    Widths out;
    std::istringstream in{std::string(runs)};
    for (std::string run; in >> run;) {
        const std::size_t x = run.find('x');
        const std::string width = run.substr(0, x);
        const int times = x == std::string::npos ? 1 : std::atoi(run.c_str() + x + 1);
        out.insert(out.end(), times, width == "d" ? kDefaultWidth : std::atoi(width.c_str()));
    }
    return out;
}

// Row 0 in words: "_ H T U" is an empty cell, then "H", "T" and "U"; "_x3" is three empty cells
// and "Hx3" three cells "H". A text with blanks in it goes in as a list of its own.
Texts Words(std::string_view words) {
    Texts out;
    std::istringstream in{std::string(words)};
    for (std::string word; in >> word;) {
        const std::size_t x = word.rfind('x');
        int times = 1;
        if (x != std::string::npos && x > 0 && x + 1 < word.size() &&
            word.find_first_not_of("0123456789", x + 1) == std::string::npos) {
            times = std::atoi(word.c_str() + x + 1);
            word.resize(x);
        }
        out.insert(out.end(), times, word == "_" ? std::string() : word);
    }
    return out;
}

Texts Join(std::initializer_list<Texts> parts) {
    Texts out;
    for (const Texts& part : parts)
        out.insert(out.end(), part.begin(), part.end());
    return out;
}

// "first", ..., "last".
Texts Numbers(int first, int last) {
    Texts out;
    for (int n = first; n <= last; ++n)
        out.push_back(std::to_string(n));
    return out;
}

Texts Repeated(const Texts& texts, int times) {
    Texts out;
    for (int i = 0; i < times; ++i)
        out.insert(out.end(), texts.begin(), texts.end());
    return out;
}

std::string DigitText(std::initializer_list<int> digits) {
    std::string out;
    for (int d : digits)
        out += static_cast<char>('0' + d);
    return out;
}

// The 90 3 Way Box numbers: per smaller digit i, first every i i j, then every i j j.
Texts ThreeWayBoxNumbers() {
    Texts out;
    for (int i = 0; i <= 8; ++i) {
        for (int j = i + 1; j <= 9; ++j)
            out.push_back(DigitText({i, i, j}));
        for (int j = i + 1; j <= 9; ++j)
            out.push_back(DigitText({i, j, j}));
    }
    return out;
}

// The 120 6 Way Box numbers, ascending.
Texts SixWayBoxNumbers() {
    Texts out;
    for (int i = 0; i <= 7; ++i)
        for (int j = i + 1; j <= 8; ++j)
            for (int k = j + 1; k <= 9; ++k)
                out.push_back(DigitText({i, j, k}));
    return out;
}

// Every set of `size` distinct digits, each ascending, in ascending order.
Texts DigitSets(int size, int smallest = 0) {
    if (size == 0) return {""};
    Texts out;
    for (int d = smallest; d <= 10 - size; ++d)
        for (const std::string& rest : DigitSets(size - 1, d + 1))
            out.push_back(static_cast<char>('0' + d) + rest);
    return out;
}

// The ten runs of six consecutive digits, wrapping from 9 to 0.
Texts WrappingRunsOfSix() {
    Texts out;
    for (int first = 0; first <= 9; ++first) {
        std::string run;
        for (int i = 0; i < 6; ++i)
            run += static_cast<char>('0' + (first + i) % 10);
        out.push_back(run);
    }
    return out;
}

// The twenty ways to place three digits in four regions, each as its sorted region codes.
Texts RegionTriples() {
    Texts out;
    for (int a = 1; a <= 4; ++a)
        for (int b = a; b <= 4; ++b)
            for (int c = b; c <= 4; ++c)
                out.push_back(DigitText({a, b, c}));
    return out;
}

// The digit-class sums draw a number line per class: value v of a line starting at `line` is in
// column line + v. A value that the class can never reach has its column narrowed to 2.
constexpr int kFirstSumLine = 7;
constexpr int kSecondSumLine = 36;
constexpr int kUnreachableWidth = 2;

Widths Narrowed(Widths widths, int line, std::initializer_list<int> values) {
    for (int v : values)
        widths.at(line + v) = kUnreachableWidth;
    return widths;
}

struct Layout {
    std::string_view object = {};
    std::string_view title = {};
    std::string_view helpPage = {};  // empty: the report has no page
    Widths widths = {};
    Texts header = {};
};

const Texts kBands =
    Join({{"Winning Number Miss"}, Words("0-100 101-200 201-300 301-400 401-500 >500")});
const Texts kMasks = {"(1)H 1", "(2)H 2", "(3)T 1", "(4)T 2", "(5)U 1", "(6)U 2"};

const std::vector<Layout>& Layouts() {
    static const std::vector<Layout> kLayouts = {
        // 3 Way Box
        {.object = "Form1zu3",
         .title = "3 Way Box Chance[1]",
         .helpPage = "3_Way_Box_Chance",
         .widths = Runs("860 300x3 dx2"),
         .header = Join({Words("_ H T U _"), {"3 Way Box"}})},
        {.object = "Form1tlj",
         .title = "3 Way Box Chance[2]",
         .helpPage = "3_Way_Box_Chance",
         .widths = Runs("860 300x3 dx2"),
         .header = Join({Words("_ H T U _"), {"3 Way Box"}})},
        {.object = "Form1zu3bai10",
         .title = "3 Way Box Chance[3]",
         .helpPage = "3_Way_Box_Chance",
         .widths = Runs("860 300x3 dx2 5 5 5 40"),
         .header = Join({Words("_ H T U _"), {"3 Way Box", "", "", "3 Way Box", ""}})},
        {.object = "frmzu3leixing2",
         .title = "3 Way Box Type",
         .widths = Runs("1118 320x3 2x3 360 360x10 40 660x4 40 660x4 40 660x4"),
         .header = Words("_ H T U _x3 _ 00 11 22 33 44 55 66 77 88 99 _ 2S1B 2B1S 3S 3B"
                         " _ 2E1O 2O1E 3E 3O _ 2P1C 2C1P 3P 3C")},
        {.object = "Form1zu3zh",
         .title = "3 Way Box Trend",
         .widths = Runs("860 400x3 2x3 600 400x10 50 600x2 50 600x3 50 600x2 50 600x2"),
         .header = Words("_ H T U _x3 _ 00 11 22 33 44 55 66 77 88 99 _ Small Big"
                         " _ 0Type 1Type 2Type _ Even Odd _ Composite Prime")},
        {.object = "frmzusan90",
         .title = "3 Way Box Statistical",
         .widths = Runs("1032 300x3 2 300 420x90 1548 dx6"),
         .header = Join({Words("_ H T U _ _"), ThreeWayBoxNumbers(), kBands})},
        {.object = "frmzuliu120",
         .title = "6 Way Box Statistical",
         .widths = Runs("1032 300x3 2 300 420x120 1548 dx6"),
         .header = Join({Words("_ H T U _ _"), SixWayBoxNumbers(), kBands})},

        // Tickets follow
        {.object = "frmqita1",
         .title = "16 Tickets follow",
         .helpPage = "N_Tickets_follow",
         .widths = Runs("1218 300x3 30 496x16 558"),
         .header = Words("_ H T U _ 026 045 126 145 236 245 246 256 267 268 269 345 456 457 458"
                         " 459 _")},
        {.object = "frmqita3",
         .title = "27 Tickets follow",
         .helpPage = "N_Tickets_follow",
         .widths = Runs("1218 300x3 30 372x27 620"),
         .header = Words("_ H T U _ 038 047 058 067 078 129 138 146 167 168 169 189 236 238 256"
                         " 259 267 269 279 346 356 358 367 368 378 459 467 Gather")},
        {.object = "frmqita2a",
         .title = "30 Tickets follow A",
         .helpPage = "N_Tickets_follow",
         .widths = Runs("1218 300x3 30 372x30 620"),
         .header = Words("_ H T U _ 015 025 035 045 126 037 136 056 038 047 057 138 156 058 067"
                         " 238 059 167 239 249 348 259 349 358 269 368 378 459 389 479 Gather")},
        {.object = "frmqita2",
         .title = "30 Tickets follow B",
         .helpPage = "N_Tickets_follow",
         .widths = Runs("1218 300x3 30 372x30 620"),
         .header = Words("_ H T U _ 018 028 035 036 038 057 058 059 127 134 139 149 156 158 159"
                         " 169 179 237 238 248 259 268 289 347 357 369 378 456 458 459 Gather")},
        {.object = "frmqita450",
         .title = "50 Tickets follow AB",
         .helpPage = "N_Tickets_follow",
         .widths = Runs("1218 300x3 30 372x100 620 300x3"),
         .header = Words("_ H T U _"
                         // list A
                         " 036 037 038 045 047 056 057 058 067 126 136 138 146 149 156 167 168"
                         " 169 235 236 237 238 239 249 256 259 267 269 345 346 347 348 349 356"
                         " 358 367 368 369 378 456 459 467 469 055 166 336 338 366 388 449"
                         // list B
                         " 035 017 134 125 037 145 019 046 028 245 029 137 128 146 067 148 157"
                         " 139 256 049 346 357 348 258 249 267 078 457 349 268 178 259 189 279"
                         " 378 008 044 116 055 118 226 119 155 166 177 366 088 466 556 099"
                         " Gather _x3")},
        {.object = "frmqita354",
         .title = "18 Tickets follow ABC",
         .helpPage = "N_Tickets_follow",
         .widths = Runs("1218 300x3 30 372x54 620 300x3"),
         .header = Words("_ H T U _"
                         // list A
                         " 037 055 127 136 145 057 129 138 156 345 077 158 167 239 338 347 356"
                         " 455"
                         // list B
                         " 027 045 126 038 047 056 128 236 245 178 259 349 358 367 457 279 378"
                         " 459"
                         // list C
                         " 058 067 229 238 247 256 346 445 078 249 267 348 456 269 278 368 458"
                         " 467"
                         " Gather _x3")},
        {.object = "frmzuliu70",
         .title = "70 Tickets follow",
         .helpPage = "N_Tickets_follow",
         .widths = Runs("1032 300x3 2 300 420x70 1548 dx6"),
         .header = Join({Words("_ H T U _ _"
                               // by Sum, 5 to 23
                               " 014"
                               " 024 015"
                               " 034 016"
                               " 035 017 134 125"
                               " 126 018 036 027"
                               " 037 145 019 046 028"
                               " 245 029 137 128 146"
                               " 057 138 147 156 237"
                               " 067 148 157 139 256 049 346"
                               " 167 149 239 248 257 356 158"
                               " 357 348 258 249 267 078"
                               " 457 349 268 178 259"
                               " 467 089 458 278"
                               " 189 279 378"
                               " 469 568 379"
                               " 479 569"
                               " 678 489"
                               " 679 589"
                               " 689"),
                         kBands})},

        // Winning number from a digit set
        {.object = "frmgaopin6ma",
         .title = "6 Way Box winning number from this 6 digits",
         .widths = Runs("1218 300x3 30 806"),
         .header = Words("_ H T U _ 145789")},
        {.object = "frmgaopin6ma36",
         .title = "Box winning number from this 6 digits",
         .widths = Runs("1218 300x3 30 806"),
         .header = Words("_ H T U _ 145789")},
        {.object = "frmgaopin7ma",
         .title = "6 Way Box winning number from this 7 digits",
         .widths = Runs("1218 300x3 30 806"),
         .header = Words("_ H T U _ 0124589")},
        {.object = "frmgaopin7ma36",
         .title = "Box winning number from this 7 digits",
         .widths = Runs("1218 300x3 30 806"),
         .header = Words("_ H T U _ 0124589")},
        {.object = "frmzuxuan4",
         .title = "6 Way Box winning number from these 4 digits",
         .widths = Runs("1218 300x3 30 434x30"),
         .header = Words("_ H T U _ 0126 0134 0159 0178 0239 0247 0258 0357 0368 0456 0489 0679"
                         " 1237 1245 1289 1358 1369 1468 1479 1567 2348 2356 2469 2579 2678"
                         " 3459 3467 3789 4578 5689")},
        {.object = "frmzuxuan1",
         .title = "6 Way Box winning number from these 5 digits",
         .widths = Runs("1218 300x3 30 496x17"),
         .header = Words("_ H T U _ 01249 01268 01346 01467 01569 02357 02458 03789 12359 12378"
                         " 12589 13478 14579 23456 24679 34689 34678")},
        {.object = "frmzuxuan6",
         .title = "6 Way Box winning number from these 6 digits",
         .widths = Runs("1218 300x3 30 620x10"),
         .header = Words("_ H T U _ 012346 012359 012489 013789 026789 045678 123457 156789"
                         " 234568 345679")},
        {.object = "frmzuxuan7",
         .title = "6 Way Box winning number from these 7 digits",
         .widths = Runs("1218 300x3 30 682x6"),
         .header = Words("_ H T U _ 0123489 0156789 0245678 0345679 1234567 2356789")},
        {.object = "frm6lianhao",
         .title = "6 Way Box winning number from these 6 digits",
         .widths = Runs("1218 300x3 30 620x10"),
         .header = Join({Words("_ H T U _"), WrappingRunsOfSix()})},
        {.object = "frmlingleizu6",
         .title = "6 Way Box winning number from these N digits",
         .widths = Runs("1218 300x3 30 496x20"),
         .header = Words("_ H T U _ 1470 1473 1476 1479 1472 1475 1478 2580 2583 2586 2589 2581"
                         " 2584 2587 03691 03694 03697 03692 03695 03698")},
        {.object = "frmzuxuanqt",
         .title = "Box winning number from these N digits",
         .widths = Runs("1218 300x3 30 620x3"),
         .header = Words("_ H T U _ 036925 147258 1458")},

        // Digit and Straight
        {.object = "frmrenwenleng",
         .title = "Cold Warm Hot",
         .helpPage = "Cold_Warm_Hot",
         .widths = Runs("1204 2x10 80 258x10 80 400x10 80 2x3"),
         .header = Join({{""},
                         Numbers(0, 9),
                         Words("_ Hx3 Wx4 Cx3 _ 003 030 300 012 021 102 120 201 210 111 _x4")})},
        {.object = "frmxzd",
         .title = "Three Regions Small Middle Large",
         .helpPage = "Three_Regions_of_Small_Middle_Large",
         .widths = Runs("1290 300x16 20 420x10"),
         .header = Words("_ H T U _ Sx3 _ Mx4 _ Lx3 _ 003 012 021 030 102 111 120 201 210 300")},
        {.object = "frm4qufenge",
         .title = "Four Regions-1234",
         .helpPage = "Four_Regions-1234",
         .widths = Runs("1290 275x3 20 275x13 20 406x20 20 305x10 20 840x3 2x6"),
         .header = Join({Words("_ H T U _ 1 1 _ 2 2 2 _ 3 3 3 _ 4 4 _"),
                         RegionTriples(),
                         {""},
                         Numbers(3, 12),
                         Words("_ Type-1 Type-2 Type-3 _x6")})},
        {.object = "frm3weizoushi",
         .title = "Tundred Ten Units Trend",
         .widths = Runs("1131 240x64"),
         .header = Join({Words("_x5"), Repeated(Numbers(0, 9), 6)})},
        {.object = "frmweihe",
         .title = "Units of H+T H+U T+U",
         .helpPage = "Units_of_H_T_H_U_T_U",
         .widths = Runs("1290 300x14 30 300x10 30 300x10"),
         .header =
             Join({Words("_ H T U S"), Numbers(0, 9), {""}, Numbers(0, 9), {""}, Numbers(0, 9)})},
        {.object = "frmweicha",
         .title = "absolute value of H-T H-U T-U",
         .helpPage = "Absolute_value_of_H-T_H-U_T-U",
         .widths = Runs("1290 300x14 30 300x10 30 300x10"),
         .header =
             Join({Words("_ H T U S"), Numbers(0, 9), {""}, Numbers(0, 9), {""}, Numbers(0, 9)})},
        {.object = "frmweiji",
         .title = "Units of H*T H*U T*U",
         .helpPage = "Units_of_HmT_HmU_TmU",
         .widths = Runs("1290 300x14 30 300x10 30 300x10"),
         .header =
             Join({Words("_ H T U S"), Numbers(0, 9), {""}, Numbers(0, 9), {""}, Numbers(0, 9)})},
        {.object = "frmxingxiang",
         .title = "Rise-Down shape",
         .helpPage = "Rise-Down_shape",
         .widths = Runs("1204 440x16"),
         .header = Words("_ .:| .|: :.| :|. |.: |:. ::: ..| .|. |.. .|| |.| ||. H T U")},
        {.object = "frmjibenxingtai",
         .title = "Straight Number shape",
         .widths = Runs("1204 420 255x3 420x8 80 420 255x3 420x8 80 420 255x3 420x8 80 2x3"),
         .header = Words("_ {OE} H T U OOO OOE OEO OEE EOO EOE EEO EEE"
                         " _ {BS} H T U BBB BBS BSB BSS SBB SBS SSB SSS"
                         " _ {PC} H T U PPP PPC PCP PCC CPP CPC CCP CCC _x4")},
        {.object = "frmbaishi32zu",
         .title = "Recommend 320 Straight Numbers",
         .helpPage = "Recommend_320_Straight_Numbers",
         .widths = Runs("1290 300x3 20 300x32 d"),
         .header = Words("_ H T U _ 05 07 13 14 15 16 17 20 21 27 30 31 32 36 39 40 41 46 51 55"
                         " 59 66 73 79 80 83 84 85 93 96 98 99 _")},
        {.object = "frmzhixuantaloven",
         .title = "Recommend Tundred Ten Units",
         .widths = Runs("860 300x3 dx6 1204x3"),
         .header = Join({Words("_ H T U"), kMasks, Words("_x3")})},

        // Sums of one digit class
        {.object = "frmbjiouhe",
         .title = "Sum of Odd-Sum of Even",
         .helpPage = "Sum_of_Odd-Sum_of_Even",
         .widths = Narrowed(
             Narrowed(Runs("1290 300x3 20x3 300x28 300 300x25"), kFirstSumLine, {20, 22, 24, 26}),
             kSecondSumLine, {1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23}),
         .header = Join({Words("_ H T U _x3"), Numbers(0, 27), {""}, Numbers(0, 24)})},
        {.object = "frmbxiaodahe",
         .title = "Sum of Small-Sum of Big",
         .helpPage = "Sum_of_Small-Sum_of_Big",
         .widths = Narrowed(Narrowed(Runs("1290 300x3 20x3 300x28 300 300x28"), kFirstSumLine,
                                     {13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27}),
                            kSecondSumLine, {1, 2, 3, 4}),
         .header = Join({Words("_ H T U _x3"), Numbers(0, 27), {""}, Numbers(0, 27)})},
        {.object = "frmbzhihehe",
         .title = "Sum of Prime-Sum of Composite",
         .helpPage = "Sum_of_Prime-Sum_of_Composite",
         .widths = Narrowed(Narrowed(Runs("1290 300x3 20 2x2 300x28 20 300x28"), kFirstSumLine,
                                     {18, 20, 22, 23, 24, 25, 26, 27}),
                            kSecondSumLine, {1, 2, 3, 5, 7, 11}),
         .header = Join({Words("_ H T U _x3"), Numbers(0, 27), {""}, Numbers(0, 27)})},
        {.object = "frm3shu5luhe",
         .title = "Sum of returns the remainder after each digital divide by 5",
         .helpPage = "Sum_remainder_after_divide_by_5",
         .widths = Runs("1290 300x3 20 300 20 300x13"),
         .header = Join({Words("_ H T U _x3"), Numbers(0, 12)})},

        // Sums and widths
        {.object = "frmxingtai3dhe",
         .title = "Sum-Sum Units",
         .widths = Runs("1290 300x3 480 60 300x28 60 480 60 300x10"),
         .header = Join({Words("_ H T U Sum _"), Numbers(0, 27), {"", "S U", ""}, Numbers(0, 9)})},
        {.object = "frmhekualu",
         .title = "Sum 012 Type&Width 012 Type",
         .helpPage = "Sum_012_Type-Width_012_Type",
         .widths = Runs("1204 300x2 860 40 300x9 2x3"),
         .header = Words("_ S W SW012Type _ 00 11 22 01 02 10 12 20 21 _x3")},
        {.object = "frmhekuazonghe",
         .title = "Sum Units Four Regions&Width Four Regions",
         .helpPage = "Sum_Units_Four_Region-Width_Four_Region",
         .widths = Runs("1290 300x5 60 480x16"),
         .header = Words("_ H T U S W _ 11 12 13 14 21 22 23 24 31 32 33 34 41 42 43 44")},
        {.object = "frmhezhi4",
         .title = "Recommend Number Sum-[Following 7 fixed sums]+[Following 4 fixed sums]",
         .widths = Runs("1290 300x11 688x2 300x4 688"),
         .header = Words("_ H T U S 8 10 11 13 15 16 18 Y/N _ 12 13 14 15 Y/N")},
        {.object = "frmzuxuan012lu",
         .title = "Box Number Shape",
         .widths = Runs("1204 860 255x3 420x10 80 860 255x3 588x4 80 860 255x3 588x4 80 860"
                        " 255x3 588x4 80 2x3"),
         .header = Words("_ 012Type H T U 000 111 222 012 001 002 011 112 022 122 _ Even H T U"
                         " 0E 3E 2E 1E _ Big H T U 0B 3B 2B 1B _ Prime H T U 0P 3P 2P 1P _x4")},
        {.object = "frm3dzxxzd",
         .title = "Box Number-Small/Middle/Large",
         .helpPage = "Box_Number-Small_Middle_Large",
         .widths = Runs("1290 300x3 60 300x10 60 300x10 60 300x10 60"),
         .header = Join({Words("_ H T U _"), Repeated(Join({Numbers(0, 9), {""}}), 3)})},
        {.object = "frmxingtai1",
         .title = "Four Models",
         .helpPage = "Four_Models",
         .widths = Runs("1218 300x3 30 1178x4"),
         .header = Words("_ H T U _ 2B1S;2O1E 2B1S;2E1O 2S1B;2O1E 2S1B;2E1O")},
        {.object = "frmjiachengzh",
         .title = "Addition Box Number&Multiplication Box Number",
         .helpPage = "Addition-Multiplication",
         .widths = Runs("1290 300x5 860x2"),
         .header = Join({Words("_ H T U S W"),
                         {"Addition Box Number", "Multiplication Box Number"}})},

        // Pairs
        {.object = "frm3dliangma",
         .title = "Pairs",
         .widths = Runs("1032 300x3 60x2 300x45"),
         .header = Join({Words("_ H T U _x2"), DigitSets(2)})},
        {.object = "frm3dshouwei",
         .title = "Box Number:Large-Small;Large+Small",
         .helpPage = "Large_Small",
         .widths = Runs("1290 300x3 60 300x11 60 300x19 60"),
         .header = Join({Words("_ H T U _ -"), Numbers(0, 9), Words("_ +"), Numbers(1, 18), {""}})},
        {.object = "frm3ddazhong",
         .title = "Box Number:Large-Middle;Large+Middle",
         .helpPage = "Large_Middle",
         .widths = Runs("1290 300x3 60 300x11 60 300x19 60"),
         .header = Join({Words("_ H T U _ -"), Numbers(0, 9), Words("_ +"), Numbers(1, 18), {""}})},
        {.object = "frm3dzhongxiao",
         .title = "Box Number:Middle-Small;Middle+Small",
         .helpPage = "Middle_Small",
         .widths = Runs("1290 300x3 60 300x11 60 300x19 60"),
         .header = Join({Words("_ H T U _ -"), Numbers(0, 9), Words("_ +"), Numbers(1, 18), {""}})},
        {.object = "frm0luliangma",
         .title = "0 Type Pairs",
         .widths = Runs("1290 300x8 20 300x10"),
         .header = Words("_ H T U S W _x4 00 33 66 99 03 06 09 36 39 69")},
        {.object = "frmshunziliangma",
         .title = "Serial Pairs",
         .widths = Runs("1290 300x8 20 300x10"),
         .header = Words("_ H T U S W _x4 01 12 23 34 45 56 67 78 89 09")},
        {.object = "frmchong2ge",
         .title = "Inherit 2 Digits",
         .helpPage = "Inherit_2_Digits",
         .widths = Runs("1290 300x3 20 1032"),
         .header = Join({Words("_ H T U _"), {"Inherit 2 Digits"}})},
        {.object = "frmdaimaduizi",
         .title = "Five Regions Pairs[05 16 27 38 49]",
         .widths = Runs("1290 300x5 2x4 300x6 540 300x10 540"),
         .header = Join({Words("_ H T U W S _x5 05 16 27 38 49 _"), Numbers(0, 9), {""}})},
        {.object = "frmliangmahecha",
         .title = "+ or - of Pairs",
         .helpPage = "Sum_or_difference_of_Pairs ",
         .widths = Runs("1978 258x20 60 228x11 2x3"),
         .header = Join({Words("_ +"), Numbers(0, 18), Words("_ -"), Numbers(0, 9), Words("_x3")})},
        {.object = "frmliangmajiwei",
         .title = "Units of product of two digits ",
         .helpPage = "Units_of_product_of_two_digits",
         .widths = Runs("1290 300x3 60 840x10"),
         .header = Join({Words("_ H T U _"), Numbers(0, 9)})},
        {.object = "frmrenwenlengTlm",
         .title = "Recommend \"Pairs\"",
         .widths = Runs("1204 2x10 80 2x10 400x12 2x6 560"),
         .header = Join({{""}, Numbers(0, 9), Words("_x30")})},

        // Recommended digits
        {.object = "frmzonghe",
         .title = "Recommend 1 digit[1]",
         .helpPage = "Recommend_1_digit",
         .widths = Runs("1290 300x3 20 860 430"),
         .header = Join({Words("_ H T U _"), {"1 digit", "Y/N"}})},
        {.object = "frmtongsha1ma",
         .title = "Recommend 1 digit[2]",
         .helpPage = "Recommend_1_digit",
         .widths = Runs("1290 300x3 20 860 430"),
         .header = Join({Words("_ H T U _"), {"1 digit", "Y/N"}})},
        {.object = "frmtongshahao",
         .title = "Recommend 2 digits",
         .helpPage = "Recommend_2_digits",
         .widths = Runs("1290 300x28"),
         .header = Words("_ H T U S W A1 A2 _x2 B1 B2 _x2 C1 C2 _x2 D1 D2 _x2 E1 E2 _x2 F1 F2 _")},
        {.object = "frmdingdanshh",
         .title = "Recommend 3 digits-A",
         .helpPage = "Recommend_3_digits-A",
         .widths = Runs("1290 300x3 20 300x3 430 20 d 20"),
         .header = Words("_ H T U _x4 Y/N _ Note _")},
        {.object = "frmtongsha3ma",
         .title = "Recommend 3 digits-BC",
         .helpPage = "Recommend_3_digits-BC",
         .widths = Runs("1290 300x3 20 300x3 430 150 2x10 300x3 430"),
         .header = Join({Words("_ H T U _ B1 B2 B3 Y/N _"), Numbers(0, 9), Words("C1 C2 C3 Y/N")})},
        {.object = "frmdanma2",
         .title = "Other recommend digits-[formula]",
         .helpPage = "Other_recommend_digits-formula",
         .widths = Runs("1290 300x3 20 860x2 200 860x2 200 860x2"),
         .header = {"", "H", "T", "U", "", "digits-1", "  Y/N", "", "digits-2", "  Y/N", "",
                    "digits-3", "  Y/N"}},
        {.object = "frmz3b2",
         .title = "Other recommend digits-[2/3 formula]",
         .helpPage = "Other_recommend_digits-23_formula",
         .widths = Runs("1290 300x3 30 420x8 d"),
         .header = Words("_ H T U _ 126 158 258 349 379 039 047 568 Y/N")},
        {.object = "frmdanma3",
         .title = "Other recommend digits-[Serial]",
         .helpPage = "Other_recommend_digits-Serial",
         .widths = Runs("1290 300x3 30 420x10 30 480 420x2"),
         .header = Words("_ H T U _ 012 123 234 345 456 567 678 789 890 901 _ 0369 147 258")},
        {.object = "frmdanma3c2",
         .title = "2 digits from 3 digits",
         .helpPage = "2_digits_from_3_digits",
         .widths = Runs("1290 300x3 30 420x120"),
         .header = Join({Words("_ H T U _"), DigitSets(3)})},
        {.object = "frmdanma4",
         .title = "2 digits from 4 digits",
         .helpPage = "2_digits_from_4_digits",
         .widths = Runs("1290 300x3 30 480x210"),
         .header = Join({Words("_ H T U _"), DigitSets(4)})},
        {.object = "frmdanma30",
         .title = "0 digits from 3 digits",
         .helpPage = "0_digits_from_3_digits",
         .widths = Runs("1290 300x3 30 420x120"),
         .header = Join({Words("_ H T U _"), DigitSets(3)})},
        {.object = "frmdanma40",
         .title = "0 digits from 4 digits",
         .helpPage = "0_digits_from_4_digits",
         .widths = Runs("1290 300x3 30 480x210"),
         .header = Join({Words("_ H T U _"), DigitSets(4)})},
        {.object = "frmdanma212",
         .title = "1-2 digits from 2 digits",
         .helpPage = "1-2_digits_from_2_digits",
         .widths = Runs("1290 300x3 30 300x45"),
         .header = Join({Words("_ H T U _"), DigitSets(2)})},
        {.object = "frmdanma313",
         .title = "1-3 digits from 3 digits",
         .helpPage = "1-3_digits_from_3_digits",
         .widths = Runs("1290 300x3 30 420x120"),
         .header = Join({Words("_ H T U _"), DigitSets(3)})},

        // Number enquiry, before any tickets are entered
        {.object = "frmzhixuanhaocx",
         .title = "Straight Number Enquire",
         .helpPage = "Straight_Number_Enquire",
         .widths = Runs("1218 300x3 600"),
         .header = Words("_ H T U _")},
        {.object = "frmzuxuanhaocx",
         .title = "Box Number Enquire",
         .helpPage = "Box_Number_Enquire",
         .widths = Runs("1218 300x3 600"),
         .header = Words("_ H T U _")},
    };
    return kLayouts;
}

// The cells of row 0 and the widths that differ from the layout, one line each.
std::string Differences(const ReportSheet& sheet, const Layout& layout) {
    std::ostringstream out;
    for (int c = 0; c < sheet.Cols(); ++c) {
        if (c < static_cast<int>(layout.header.size()) && sheet.Text(0, c) != layout.header[c])
            out << "\n  column " << c << " is headed \"" << sheet.Text(0, c) << "\", not \""
                << layout.header[c] << "\"";
        if (c < static_cast<int>(layout.widths.size()) && sheet.ColWidth(c) != layout.widths[c])
            out << "\n  column " << c << " is " << sheet.ColWidth(c) << " wide, not "
                << layout.widths[c];
    }
    return out.str();
}

TEST(Layout, EveryRowIsABuiltReportWithOneWidthPerHeader) {
    EXPECT_EQ(Layouts().size(), 75u);
    for (const Layout& layout : Layouts()) {
        SCOPED_TRACE(std::string(layout.object));
        EXPECT_NE(FindReport(layout.object), nullptr);
        EXPECT_EQ(layout.widths.size(), layout.header.size());
    }
}

TEST(Layout, HeaderRowsAndColumnWidthsAreTheReportsOwn) {
    const struct {
        const char* name;
        std::vector<DrawRecord> drawings;
    } histories[] = {
        {"no drawings", Drawings({})},
        // 3 Way Box numbers, triples, runs, hits of many lists, and enough drawings for the
        // seven-drawing ranking to reach a pattern.
        {"fourteen drawings", Drawings({"123", "213", "450", "112", "789", "026", "357", "055",
                                        "901", "145", "777", "033", "620", "159"})},
    };
    for (const auto& history : histories) {
        for (const Layout& layout : Layouts()) {
            SCOPED_TRACE(std::string(layout.object) + " on " + history.name);
            const ReportSheet sheet = Build(layout.object, history.drawings);
            EXPECT_EQ(sheet.Cols(), static_cast<int>(layout.header.size()));
            const std::string differences = Differences(sheet, layout);
            EXPECT_TRUE(differences.empty()) << differences;
            EXPECT_EQ(sheet.Title(), layout.title);
        }
    }
}

TEST(Layout, HelpPagesAreTheReportsOwn) {
    for (const Layout& layout : Layouts()) {
        SCOPED_TRACE(std::string(layout.object));
        const CommandEntry* command = FindCommand(layout.object);
        ASSERT_NE(command, nullptr);
        EXPECT_EQ(command->helpPage, layout.helpPage);
    }
}

}  // namespace
}  // namespace numarel
