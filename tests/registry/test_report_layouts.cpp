// Every built report's header row (its ticket lists, digit sets, pairs and headers), all its
// column widths, its title and its help page, written out by hand from the reports' own
// descriptions of their layout: the one place where these are checked. A report's constants live
// in row 0 and its passes read them back from there, so a ticket or a width copied wrongly into a
// family's table changes what the report computes; this table shows it. Where a layout follows a
// rule (every 6 Way Box number in ascending order), the rule is written out here rather than the
// list.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
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
constexpr int kUnreachableWidth = 2;

// `text` with a count such as "x3" cut off its end; 1 when it has none.
int CutCount(std::string& text) {
    const std::size_t x = text.rfind('x');
    if (x == std::string::npos || x == 0 || x + 1 == text.size() ||
        text.find_first_not_of("0123456789", x + 1) != std::string::npos)
        return 1;
    const int times = std::atoi(text.c_str() + x + 1);
    text.resize(x);
    return times;
}

// Widths in runs: "1218 300x3 30" is 1218, three columns of 300, then 30; "d" is a column left at
// the sheet's default. The digit-class sums draw a number line per class, value v of the line
// starting at column `line` in column line + v, and narrow the values the class can never reach:
// "| 7: 20 22" narrows values 20 and 22 of the line at column 7.
Widths Runs(std::string_view runs) {
    Widths out;
    std::istringstream in{std::string(runs)};
    int line = -1;
    for (std::string run; in >> run;) {
        if (run == "|") {
            in >> run;
            line = std::atoi(run.c_str());
        } else if (line >= 0) {
            out.at(static_cast<std::size_t>(line + std::atoi(run.c_str()))) = kUnreachableWidth;
        } else {
            const int times = CutCount(run);
            out.insert(out.end(), times, run == "d" ? kDefaultWidth : std::atoi(run.c_str()));
        }
    }
    return out;
}

std::string DigitText(std::initializer_list<int> digits) {
    std::string out;
    for (int d : digits)
        out += static_cast<char>('0' + d);
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

// A list written by a rule, named in a header as "<name>".
Texts Rule(const std::string& name) {
    Texts out;
    if (name ==
        "<3way>") {  // the 90 3 Way Box numbers: per smaller digit i, every i i j, every i j j
        for (int i = 0; i <= 8; ++i) {
            for (int j = i + 1; j <= 9; ++j)
                out.push_back(DigitText({i, i, j}));
            for (int j = i + 1; j <= 9; ++j)
                out.push_back(DigitText({i, j, j}));
        }
    } else if (name == "<6way>") {  // the 120 6 Way Box numbers, ascending
        out = DigitSets(3);
    } else if (name == "<sets2>" || name == "<sets4>") {
        out = DigitSets(name[5] - '0');
    } else if (name == "<runs6>") {  // the ten runs of six consecutive digits, wrapping from 9
        for (int first = 0; first <= 9; ++first) {
            std::string run;
            for (int i = 0; i < 6; ++i)
                run += static_cast<char>('0' + (first + i) % 10);
            out.push_back(run);
        }
    } else if (name == "<regions>") {  // three digits in four regions, as sorted region codes
        for (int a = 1; a <= 4; ++a)
            for (int b = a; b <= 4; ++b)
                for (int c = b; c <= 4; ++c)
                    out.push_back(DigitText({a, b, c}));
    } else if (name == "<bands>") {
        out = {"Winning Number Miss", "0-100", "101-200", "201-300", "301-400", "401-500", ">500"};
    } else {
        ADD_FAILURE() << "no rule " << name;
    }
    return out;
}

// Row 0 in words: "_ H T U" is an empty cell, then "H", "T" and "U"; "'3 Way Box'" is one text
// with blanks in it; "0..9" the numbers 0 to 9; "<6way>" a list written by a rule; a count such
// as "x3" at the end of a word repeats it.
Texts Words(std::string_view words) {
    Texts out;
    std::size_t at = 0;
    while ((at = words.find_first_not_of(' ', at)) != std::string_view::npos) {
        std::string word;
        if (words[at] == '\'') {
            const std::size_t close = words.find('\'', at + 1);
            word = std::string(words.substr(at + 1, close - at - 1));
            at = close + 1;
            out.push_back(word);
            continue;
        }
        const std::size_t end = std::min(words.find(' ', at), words.size());
        word = std::string(words.substr(at, end - at));
        at = end;
        const int times = CutCount(word);
        Texts once;
        const std::size_t dots = word.find("..");
        if (word.front() == '<') {
            once = Rule(word);
        } else if (dots != std::string::npos && dots > 0 && std::isdigit(word.back())) {
            for (int n = std::atoi(word.c_str()); n <= std::atoi(word.c_str() + dots + 2); ++n)
                once.push_back(std::to_string(n));
        } else {
            once = {word == "_" ? std::string() : word};
        }
        for (int i = 0; i < times; ++i)
            out.insert(out.end(), once.begin(), once.end());
    }
    return out;
}

struct Layout {
    std::string_view object;
    std::string_view title;
    std::string_view helpPage;  // empty: the report has no page
    std::string_view widths;    // in runs
    std::string_view header;    // in words
};

const Layout kLayouts[] = {
    // 3 Way Box
    {"Form1zu3", "3 Way Box Chance[1]", "3_Way_Box_Chance", "860 300x3 dx2",
     "_ H T U _ '3 Way Box'"},
    {"Form1tlj", "3 Way Box Chance[2]", "3_Way_Box_Chance", "860 300x3 dx2",
     "_ H T U _ '3 Way Box'"},
    {"Form1zu3bai10", "3 Way Box Chance[3]", "3_Way_Box_Chance", "860 300x3 dx2 5x3 40",
     "_ H T U _ '3 Way Box' _x2 '3 Way Box' _"},
    {"frmzu3leixing2", "3 Way Box Type", "", "1118 320x3 2x3 360x11 40 660x4 40 660x4 40 660x4",
     "_ H T U _x4 00 11 22 33 44 55 66 77 88 99 _ 2S1B 2B1S 3S 3B _ 2E1O 2O1E 3E 3O _ 2P1C "
     "2C1P 3P 3C"},
    {"Form1zu3zh", "3 Way Box Trend", "",
     "860 400x3 2x3 600 400x10 50 600x2 50 600x3 50 600x2 50 600x2",
     "_ H T U _x4 00 11 22 33 44 55 66 77 88 99 _ Small Big _ 0Type 1Type 2Type _ Even Odd "
     "_ Composite Prime"},
    {"frmzusan90", "3 Way Box Statistical", "", "1032 300x3 2 300 420x90 1548 dx6",
     "_ H T U _x2 <3way> <bands>"},
    {"frmzuliu120", "6 Way Box Statistical", "", "1032 300x3 2 300 420x120 1548 dx6",
     "_ H T U _x2 <6way> <bands>"},

    // Tickets follow
    {"frmqita1", "16 Tickets follow", "N_Tickets_follow", "1218 300x3 30 496x16 558",
     "_ H T U _ 026 045 126 145 236 245 246 256 267 268 269 345 456 457 458 459 _"},
    {"frmqita3", "27 Tickets follow", "N_Tickets_follow", "1218 300x3 30 372x27 620",
     "_ H T U _ 038 047 058 067 078 129 138 146 167 168 169 189 236 238 256 259 267 269 "
     "279 346 356 358 367 368 378 459 467 Gather"},
    {"frmqita2a", "30 Tickets follow A", "N_Tickets_follow", "1218 300x3 30 372x30 620",
     "_ H T U _ 015 025 035 045 126 037 136 056 038 047 057 138 156 058 067 238 059 167 "
     "239 249 348 259 349 358 269 368 378 459 389 479 Gather"},
    {"frmqita2", "30 Tickets follow B", "N_Tickets_follow", "1218 300x3 30 372x30 620",
     "_ H T U _ 018 028 035 036 038 057 058 059 127 134 139 149 156 158 159 169 179 237 "
     "238 248 259 268 289 347 357 369 378 456 458 459 Gather"},
    // List A, then list B.
    {"frmqita450", "50 Tickets follow AB", "N_Tickets_follow", "1218 300x3 30 372x100 620 300x3",
     "_ H T U _"
     " 036 037 038 045 047 056 057 058 067 126 136 138 146 149 156 167 168 169 235 236 237 "
     "238 239 249 256 259 267 269 345 346 347 348 349 356 358 367 368 369 378 456 459 467 "
     "469 055 166 336 338 366 388 449"
     " 035 017 134 125 037 145 019 046 028 245 029 137 128 146 067 148 157 139 256 049 346 "
     "357 348 258 249 267 078 457 349 268 178 259 189 279 378 008 044 116 055 118 226 119 "
     "155 166 177 366 088 466 556 099"
     " Gather _x3"},
    // List A, then list B, then list C.
    {"frmqita354", "18 Tickets follow ABC", "N_Tickets_follow", "1218 300x3 30 372x54 620 300x3",
     "_ H T U _"
     " 037 055 127 136 145 057 129 138 156 345 077 158 167 239 338 347 356 455"
     " 027 045 126 038 047 056 128 236 245 178 259 349 358 367 457 279 378 459"
     " 058 067 229 238 247 256 346 445 078 249 267 348 456 269 278 368 458 467"
     " Gather _x3"},
    // The 70 tickets go by Sum, 5 to 23, a line of the header string per Sum.
    {"frmzuliu70", "70 Tickets follow", "N_Tickets_follow", "1032 300x3 2 300 420x70 1548 dx6",
     "_ H T U _x2"
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
     " 689"
     " <bands>"},

    // Winning number from a digit set
    {"frmgaopin6ma", "6 Way Box winning number from this 6 digits", "", "1218 300x3 30 806",
     "_ H T U _ 145789"},
    {"frmgaopin6ma36", "Box winning number from this 6 digits", "", "1218 300x3 30 806",
     "_ H T U _ 145789"},
    {"frmgaopin7ma", "6 Way Box winning number from this 7 digits", "", "1218 300x3 30 806",
     "_ H T U _ 0124589"},
    {"frmgaopin7ma36", "Box winning number from this 7 digits", "", "1218 300x3 30 806",
     "_ H T U _ 0124589"},
    {"frmzuxuan4", "6 Way Box winning number from these 4 digits", "", "1218 300x3 30 434x30",
     "_ H T U _ 0126 0134 0159 0178 0239 0247 0258 0357 0368 0456 0489 0679 1237 1245 1289 "
     "1358 1369 1468 1479 1567 2348 2356 2469 2579 2678 3459 3467 3789 4578 5689"},
    {"frmzuxuan1", "6 Way Box winning number from these 5 digits", "", "1218 300x3 30 496x17",
     "_ H T U _ 01249 01268 01346 01467 01569 02357 02458 03789 12359 12378 12589 13478 "
     "14579 23456 24679 34689 34678"},
    {"frmzuxuan6", "6 Way Box winning number from these 6 digits", "", "1218 300x3 30 620x10",
     "_ H T U _ 012346 012359 012489 013789 026789 045678 123457 156789 234568 345679"},
    {"frmzuxuan7", "6 Way Box winning number from these 7 digits", "", "1218 300x3 30 682x6",
     "_ H T U _ 0123489 0156789 0245678 0345679 1234567 2356789"},
    {"frm6lianhao", "6 Way Box winning number from these 6 digits", "", "1218 300x3 30 620x10",
     "_ H T U _ <runs6>"},
    {"frmlingleizu6", "6 Way Box winning number from these N digits", "", "1218 300x3 30 496x20",
     "_ H T U _ 1470 1473 1476 1479 1472 1475 1478 2580 2583 2586 2589 2581 2584 2587 "
     "03691 03694 03697 03692 03695 03698"},
    {"frmzuxuanqt", "Box winning number from these N digits", "", "1218 300x3 30 620x3",
     "_ H T U _ 036925 147258 1458"},

    // Digit and Straight
    {"frmrenwenleng", "Cold Warm Hot", "Cold_Warm_Hot", "1204 2x10 80 258x10 80 400x10 80 2x3",
     "_ 0..9 _ Hx3 Wx4 Cx3 _ 003 030 300 012 021 102 120 201 210 111 _x4"},
    {"frmxzd", "Three Regions Small Middle Large", "Three_Regions_of_Small_Middle_Large",
     "1290 300x16 20 420x10",
     "_ H T U _ Sx3 _ Mx4 _ Lx3 _ 003 012 021 030 102 111 120 201 210 300"},
    {"frm4qufenge", "Four Regions-1234", "Four_Regions-1234",
     "1290 275x3 20 275x13 20 406x20 20 305x10 20 840x3 2x6",
     "_ H T U _ 1x2 _ 2x3 _ 3x3 _ 4x2 _ <regions> _ 3..12 _ Type-1 Type-2 Type-3 _x6"},
    {"frm3weizoushi", "Tundred Ten Units Trend", "", "1131 240x64", "_x5 0..9x6"},
    {"frmweihe", "Units of H+T H+U T+U", "Units_of_H_T_H_U_T_U", "1290 300x14 30 300x10 30 300x10",
     "_ H T U S 0..9 _ 0..9 _ 0..9"},
    {"frmweicha", "absolute value of H-T H-U T-U", "Absolute_value_of_H-T_H-U_T-U",
     "1290 300x14 30 300x10 30 300x10", "_ H T U S 0..9 _ 0..9 _ 0..9"},
    {"frmweiji", "Units of H*T H*U T*U", "Units_of_HmT_HmU_TmU", "1290 300x14 30 300x10 30 300x10",
     "_ H T U S 0..9 _ 0..9 _ 0..9"},
    {"frmxingxiang", "Rise-Down shape", "Rise-Down_shape", "1204 440x16",
     "_ .:| .|: :.| :|. |.: |:. ::: ..| .|. |.. .|| |.| ||. H T U"},
    {"frmjibenxingtai", "Straight Number shape", "",
     "1204 420 255x3 420x8 80 420 255x3 420x8 80 420 255x3 420x8 80 2x3",
     "_ {OE} H T U OOO OOE OEO OEE EOO EOE EEO EEE _ {BS} H T U BBB BBS BSB BSS SBB SBS "
     "SSB SSS _ {PC} H T U PPP PPC PCP PCC CPP CPC CCP CCC _x4"},
    {"frmbaishi32zu", "Recommend 320 Straight Numbers", "Recommend_320_Straight_Numbers",
     "1290 300x3 20 300x32 d",
     "_ H T U _ 05 07 13 14 15 16 17 20 21 27 30 31 32 36 39 40 41 46 51 55 59 66 73 79 80 "
     "83 84 85 93 96 98 99 _"},
    {"frmzhixuantaloven", "Recommend Tundred Ten Units", "", "860 300x3 dx6 1204x3",
     "_ H T U '(1)H 1' '(2)H 2' '(3)T 1' '(4)T 2' '(5)U 1' '(6)U 2' _x3"},

    // Recommended digits
    {"frmdingdanshh", "Recommend 3 digits-A", "Recommend_3_digits-A",
     "1290 300x3 20 300x3 430 20 d 20", "_ H T U _x4 Y/N _ Note _"},
    {"frmtongsha3ma", "Recommend 3 digits-BC", "Recommend_3_digits-BC",
     "1290 300x3 20 300x3 430 150 2x10 300x3 430", "_ H T U _ B1 B2 B3 Y/N _ 0..9 C1 C2 C3 Y/N"},
    {"frmtongshahao", "Recommend 2 digits", "Recommend_2_digits", "1290 300x28",
     "_ H T U S W A1 A2 _x2 B1 B2 _x2 C1 C2 _x2 D1 D2 _x2 E1 E2 _x2 F1 F2 _"},
    {"frmdanma2", "Other recommend digits-[formula]", "Other_recommend_digits-formula",
     "1290 300x3 20 860x2 200 860x2 200 860x2",
     "_ H T U _ digits-1 '  Y/N' _ digits-2 '  Y/N' _ digits-3 '  Y/N'"},
    {"frmz3b2", "Other recommend digits-[2/3 formula]", "Other_recommend_digits-23_formula",
     "1290 300x3 30 420x8 d", "_ H T U _ 126 158 258 349 379 039 047 568 Y/N"},
    {"frmdanma3", "Other recommend digits-[Serial]", "Other_recommend_digits-Serial",
     "1290 300x3 30 420x10 30 480 420x2",
     "_ H T U _ 012 123 234 345 456 567 678 789 890 901 _ 0369 147 258"},
    {"frmdanma3c2", "2 digits from 3 digits", "2_digits_from_3_digits", "1290 300x3 30 420x120",
     "_ H T U _ <6way>"},
    {"frmdanma4", "2 digits from 4 digits", "2_digits_from_4_digits", "1290 300x3 30 480x210",
     "_ H T U _ <sets4>"},
    {"frmdanma30", "0 digits from 3 digits", "0_digits_from_3_digits", "1290 300x3 30 420x120",
     "_ H T U _ <6way>"},
    {"frmdanma40", "0 digits from 4 digits", "0_digits_from_4_digits", "1290 300x3 30 480x210",
     "_ H T U _ <sets4>"},
    {"frmdanma212", "1-2 digits from 2 digits", "1-2_digits_from_2_digits", "1290 300x3 30 300x45",
     "_ H T U _ <sets2>"},
    {"frmdanma313", "1-3 digits from 3 digits", "1-3_digits_from_3_digits", "1290 300x3 30 420x120",
     "_ H T U _ <6way>"},
    {"frmzonghe", "Recommend 1 digit[1]", "Recommend_1_digit", "1290 300x3 20 860 430",
     "_ H T U _ '1 digit' Y/N"},
    {"frmtongsha1ma", "Recommend 1 digit[2]", "Recommend_1_digit", "1290 300x3 20 860 430",
     "_ H T U _ '1 digit' Y/N"},

    // Pairs
    {"frm3dliangma", "Pairs", "", "1032 300x3 60x2 300x45", "_ H T U _x2 <sets2>"},
    {"frm3dshouwei", "Box Number:Large-Small;Large+Small", "Large_Small",
     "1290 300x3 60 300x11 60 300x19 60", "_ H T U _ - 0..9 _ + 1..18 _"},
    {"frm3ddazhong", "Box Number:Large-Middle;Large+Middle", "Large_Middle",
     "1290 300x3 60 300x11 60 300x19 60", "_ H T U _ - 0..9 _ + 1..18 _"},
    {"frm3dzhongxiao", "Box Number:Middle-Small;Middle+Small", "Middle_Small",
     "1290 300x3 60 300x11 60 300x19 60", "_ H T U _ - 0..9 _ + 1..18 _"},
    {"frm0luliangma", "0 Type Pairs", "", "1290 300x8 20 300x10",
     "_ H T U S W _x4 00 33 66 99 03 06 09 36 39 69"},
    {"frmshunziliangma", "Serial Pairs", "", "1290 300x8 20 300x10",
     "_ H T U S W _x4 01 12 23 34 45 56 67 78 89 09"},
    {"frmchong2ge", "Inherit 2 Digits", "Inherit_2_Digits", "1290 300x3 20 1032",
     "_ H T U _ 'Inherit 2 Digits'"},
    {"frmdaimaduizi", "Five Regions Pairs[05 16 27 38 49]", "",
     "1290 300x5 2x4 300x6 540 300x10 540", "_ H T U W S _x5 05 16 27 38 49 _ 0..9 _"},
    {"frmliangmahecha", "+ or - of Pairs", "Sum_or_difference_of_Pairs ",
     "1978 258x20 60 228x11 2x3", "_ + 0..18 _ - 0..9 _x3"},
    {"frmliangmajiwei", "Units of product of two digits ", "Units_of_product_of_two_digits",
     "1290 300x3 60 840x10", "_ H T U _ 0..9"},
    {"frmrenwenlengTlm", "Recommend \"Pairs\"", "", "1204 2x10 80 2x10 400x12 2x6 560",
     "_ 0..9 _x30"},

    // Sums, widths and box shapes
    {"frmxingtai3dhe", "Sum-Sum Units", "", "1290 300x3 480 60 300x28 60 480 60 300x10",
     "_ H T U Sum _ 0..27 _ 'S U' _ 0..9"},
    {"frmhekualu", "Sum 012 Type&Width 012 Type", "Sum_012_Type-Width_012_Type",
     "1204 300x2 860 40 300x9 2x3", "_ S W SW012Type _ 00 11 22 01 02 10 12 20 21 _x3"},
    {"frmhekuazonghe", "Sum Units Four Regions&Width Four Regions",
     "Sum_Units_Four_Region-Width_Four_Region", "1290 300x5 60 480x16",
     "_ H T U S W _ 11..14 21..24 31 32 33 34 41 42 43 44"},
    {"frmhezhi4", "Recommend Number Sum-[Following 7 fixed sums]+[Following 4 fixed sums]", "",
     "1290 300x11 688x2 300x4 688", "_ H T U S 8 10 11 13 15 16 18 Y/N _ 12..15 Y/N"},
    {"frmzuxuan012lu", "Box Number Shape", "",
     "1204 860 255x3 420x10 80 860 255x3 588x4 80 860 255x3 588x4 80 860 255x3 588x4 80 2x3",
     "_ 012Type H T U 000 111 222 012 001 002 011 112 022 122 _ Even H T U 0E 3E 2E 1E _ "
     "Big H T U 0B 3B 2B 1B _ Prime H T U 0P 3P 2P 1P _x4"},
    {"frm3dzxxzd", "Box Number-Small/Middle/Large", "Box_Number-Small_Middle_Large",
     "1290 300x3 60 300x10 60 300x10 60 300x10 60", "_ H T U _ 0..9 _ 0..9 _ 0..9 _"},
    {"frmxingtai1", "Four Models", "Four_Models", "1218 300x3 30 1178x4",
     "_ H T U _ 2B1S;2O1E 2B1S;2E1O 2S1B;2O1E 2S1B;2E1O"},
    {"frmjiachengzh", "Addition Box Number&Multiplication Box Number", "Addition-Multiplication",
     "1290 300x5 860x2", "_ H T U S W 'Addition Box Number' 'Multiplication Box Number'"},

    // Sums of one digit class
    {"frmbjiouhe", "Sum of Odd-Sum of Even", "Sum_of_Odd-Sum_of_Even",
     "1290 300x3 20x3 300x28 300 300x25 | 7: 20 22 24 26 | 36: 1 3 5 7 9 11 13 15 17 19 21 23",
     "_ H T U _x3 0..27 _ 0..24"},
    {"frmbxiaodahe", "Sum of Small-Sum of Big", "Sum_of_Small-Sum_of_Big",
     "1290 300x3 20x3 300x28 300 300x28 | 7: 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 | 36: 1 "
     "2 3 4",
     "_ H T U _x3 0..27 _ 0..27"},
    {"frmbzhihehe", "Sum of Prime-Sum of Composite", "Sum_of_Prime-Sum_of_Composite",
     "1290 300x3 20 2x2 300x28 20 300x28 | 7: 18 20 22 23 24 25 26 27 | 36: 1 2 3 5 7 11",
     "_ H T U _x3 0..27 _ 0..27"},
    {"frm3shu5luhe", "Sum of returns the remainder after each digital divide by 5",
     "Sum_remainder_after_divide_by_5", "1290 300x3 20 300 20 300x13", "_ H T U _x3 0..12"},

    // Number enquiry, before any tickets are entered
    {"frmzhixuanhaocx", "Straight Number Enquire", "Straight_Number_Enquire", "1218 300x3 600",
     "_ H T U _"},
    {"frmzuxuanhaocx", "Box Number Enquire", "Box_Number_Enquire", "1218 300x3 600", "_ H T U _"},
};

// The cells of row 0 and the widths that differ from the layout, one line each.
std::string Differences(const ReportSheet& sheet, const Texts& header, const Widths& widths) {
    std::ostringstream out;
    for (int c = 0; c < sheet.Cols(); ++c) {
        if (c < static_cast<int>(header.size()) && sheet.Text(0, c) != header[c])
            out << "\n  column " << c << " is headed \"" << sheet.Text(0, c) << "\", not \""
                << header[c] << "\"";
        if (c < static_cast<int>(widths.size()) && sheet.ColWidth(c) != widths[c])
            out << "\n  column " << c << " is " << sheet.ColWidth(c) << " wide, not " << widths[c];
    }
    return out.str();
}

TEST(Layout, EveryBuiltReportHasOneRowWithOneWidthPerHeader) {
    std::size_t built = 0;
    for (ReportFamily family : ReportFamilies())
        built += family().size();
    EXPECT_EQ(std::size(kLayouts), built);
    for (const Layout& layout : kLayouts) {
        SCOPED_TRACE(std::string(layout.object));
        EXPECT_NE(FindReport(layout.object), nullptr);
        EXPECT_EQ(Runs(layout.widths).size(), Words(layout.header).size());
    }
}

TEST(Layout, HeaderRowsColumnWidthsTitlesAndHelpPagesAreTheReportsOwn) {
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
    for (const Layout& layout : kLayouts) {
        SCOPED_TRACE(std::string(layout.object));
        const Texts header = Words(layout.header);
        const Widths widths = Runs(layout.widths);
        for (const auto& history : histories) {
            SCOPED_TRACE(history.name);
            const ReportSheet sheet = Build(layout.object, history.drawings);
            EXPECT_EQ(sheet.Cols(), static_cast<int>(header.size()));
            const std::string differences = Differences(sheet, header, widths);
            EXPECT_TRUE(differences.empty()) << differences;
            EXPECT_EQ(sheet.Title(), layout.title);
        }
        const CommandEntry* command = FindCommand(layout.object);
        ASSERT_NE(command, nullptr);
        EXPECT_EQ(command->helpPage, layout.helpPage);
    }
}

std::map<std::string_view, int> CommandCounts() {
    std::map<std::string_view, int> counts;
    for (const CommandEntry& e : CommandTable())
        if (!e.IsSeparator()) ++counts[e.report];
    return counts;
}

TEST(Registry, EveryRegisteredReportHasOneMenuEntryAndOneRegistration) {
    const std::map<std::string_view, int> commands = CommandCounts();
    std::set<std::string_view> registered;
    for (ReportFamily family : ReportFamilies()) {
        for (const ReportDefinition& def : family()) {
            SCOPED_TRACE(std::string(def.object));
            EXPECT_TRUE(registered.insert(def.object).second) << "registered twice";
            auto it = commands.find(def.object);
            ASSERT_NE(it, commands.end()) << "no menu entry opens it";
            EXPECT_EQ(it->second, 1) << "more than one menu entry opens it";
            EXPECT_NE(def.build, nullptr);
            EXPECT_EQ(FindReport(def.object), &def);
        }
    }
}

// What each kind of Help button does is pinned through the report window; these are the reports
// that show one without a page.
TEST(Registry, TheInertHelpButtons) {
    for (std::string_view object : {"frmzusan90", "frmzuliu120", "frmzhixuantaloven"}) {
        const ReportDefinition* def = FindReport(object);
        ASSERT_NE(def, nullptr) << object;
        EXPECT_EQ(def->help, HelpButton::Inert) << object;
        EXPECT_TRUE(FindCommand(object)->helpPage.empty()) << object;
    }
}

}  // namespace
}  // namespace numarel
