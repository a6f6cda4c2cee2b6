#include "reports/command_table.h"

#include <algorithm>

namespace numarel {
namespace {

constexpr GroupButton kGroups[] = {
    {"Command3", "Box Pairs", "cailiangmayg", "两码有关"},
    {"Command4", "Sum&Width", "caihezhikuadu", "和值跨度"},
    {"Command5", "Box", "caizuxuanyouguan", "组选有关"},
    {"Command6", "Straight", "cai3dgongjux", "3D工具箱"},
    {"Command7", "3 Way Box", "ruanjianji", "3d软件集"},
    {"Command8", "Winning number from", "caigaopin7ma", "高频七码"},
    {"Command2", "Digit", "danmayouguan", "胆码有关"},
    {"Command9", "Others", "caiqitayouguan", "其它有关"},
};

// Menu order within each group; an entry with no control is a separator. The help page of
// "+ or - of Pairs" really ends in a blank.
constexpr CommandEntry kCommands[] = {
    {"cailiangmayg", "cai3dliangma", "Pairs", "frm3dliangma", "", false},
    {"cailiangmayg", "cai3dshouwei", "Box Number:Large-Small;Large+Small", "frm3dshouwei",
     "Large_Small", false},
    {"cailiangmayg", "cai3ddazhong", "Box Number:Large-Middle;Large+Middle", "frm3ddazhong",
     "Large_Middle", false},
    {"cailiangmayg", "cai3dzhongxiao", "Box Number:Middle-Small;Middle+Small", "frm3dzhongxiao",
     "Middle_Small", false},
    {"cailiangmayg", "cailinglu2m", "0 Type Pairs", "frm0luliangma", "", false},
    {"cailiangmayg", "caishunzi2m", "Serial Pairs", "frmshunziliangma", "", false},
    {"cailiangmayg", "cailuoliangm", "Inherit 2 Digits", "frmchong2ge", "Inherit_2_Digits", true},
    {"cailiangmayg", "caidaima_duizi", "Five Regions Pairs", "frmdaimaduizi", "", false},
    {"cailiangmayg", "cailiangma_hecha", "+ or - of Pairs", "frmliangmahecha",
     "Sum_or_difference_of_Pairs ", true},
    {"cailiangmayg", "cailiangmajiwei", "Units of product of two digits", "frmliangmajiwei",
     "Units_of_product_of_two_digits", false},
    {"cailiangmayg", "", "", "", "", false},
    {"cailiangmayg", "cailiangmayc", "Recommend \"Pairs\"", "frmrenwenlengTlm", "", true},
    {"caihezhikuadu", "caixingtai3dhe", "Sum-Sum Units", "frmxingtai3dhe", "", false},
    {"caihezhikuadu", "caihekua_ll", "Sum 012 Type&Width 012 Type", "frmhekualu",
     "Sum_012_Type-Width_012_Type", true},
    {"caihezhikuadu", "caihekuazh", "Sum Units Four Regions&Width Four Regions", "frmhekuazonghe",
     "Sum_Units_Four_Region-Width_Four_Region", true},
    {"caihezhikuadu", "", "", "", "", false},
    {"caihezhikuadu", "caihezhiyc", "Recommend Number Sum", "frmhezhi4", "", true},
    {"caizuxuanyouguan", "caizuxuan_xt", "Box Number Shape", "frmzuxuan012lu", "", true},
    {"caizuxuanyouguan", "cai3dzxxzd", "Box Number-Small/Middle/Large", "frm3dzxxzd",
     "Box_Number-Small_Middle_Large", false},
    {"caizuxuanyouguan", "caixingtai1", "Four Models", "frmxingtai1", "Four_Models", false},
    {"caizuxuanyouguan", "caizuliutongji", "6 Way Box Statistical", "frmzuliu120", "", true},
    {"caizuxuanyouguan", "", "", "", "", false},
    {"caizuxuanyouguan", "cai16zhu", "16 Tickets follow", "frmqita1", "N_Tickets_follow", false},
    {"caizuxuanyouguan", "cai27zhu", "27 Tickets follow", "frmqita3", "N_Tickets_follow", false},
    {"caizuxuanyouguan", "cai30zhuzuxuan", "30 Tickets follow A", "frmqita2a", "N_Tickets_follow",
     true},
    {"caizuxuanyouguan", "cai30zhuzuxuanb", "30 Tickets follow B", "frmqita2", "N_Tickets_follow",
     true},
    {"caizuxuanyouguan", "cai50zhuzuxuan", "50 Tickets follow AB", "frmqita450", "N_Tickets_follow",
     true},
    {"caizuxuanyouguan", "cai54zhuzuxuan", "18 Tickets follow ABC", "frmqita354",
     "N_Tickets_follow", true},
    {"caizuxuanyouguan", "cai70zhuzuxuan", "70 Tickets follow", "frmzuliu70", "N_Tickets_follow",
     true},
    {"caizuxuanyouguan", "", "", "", "", false},
    {"caizuxuanyouguan", "caichu5yuhe",
     "Sum of returns the remainder after each digital divide by 5", "frm3shu5luhe",
     "Sum_remainder_after_divide_by_5", true},
    {"caizuxuanyouguan", "caijiachengzuhe", "Addition Box Number&Multiplication Box Number",
     "frmjiachengzh", "Addition-Multiplication", true},
    {"cai3dgongjux", "cai3weizoushi", "Tundred Ten Units Trend", "frm3weizoushi", "", false},
    {"cai3dgongjux", "", "", "", "", false},
    {"cai3dgongjux", "caiwhzs", "Units of H+T H+U T+U", "frmweihe", "Units_of_H_T_H_U_T_U", false},
    {"cai3dgongjux", "caiwczs", "absolute value of H-T H-U T-U", "frmweicha",
     "Absolute_value_of_H-T_H-U_T-U", false},
    {"cai3dgongjux", "caiwjzs", "Units of H*T H*U T*U", "frmweiji", "Units_of_HmT_HmU_TmU", false},
    {"cai3dgongjux", "caituao_xt", "Rise-Down shape", "frmxingxiang", "Rise-Down_shape", true},
    {"cai3dgongjux", "caizhixuan_xt", "Straight Number shape", "frmjibenxingtai", "", true},
    {"cai3dgongjux", "", "", "", "", false},
    {"cai3dgongjux", "cai320danxuan", "Recommend 320 Straight Numbers", "frmbaishi32zu",
     "Recommend_320_Straight_Numbers", true},
    {"cai3dgongjux", "caitalovening", "Recommend Tundred Ten Units", "frmzhixuantaloven", "", true},
    {"ruanjianji", "caizu31", "3 Way Box Chance[1]", "Form1zu3", "3_Way_Box_Chance", true},
    {"ruanjianji", "caizu32", "3 Way Box Chance[2]", "Form1tlj", "3_Way_Box_Chance", true},
    {"ruanjianji", "caizu33", "3 Way Box Chance[3]", "Form1zu3bai10", "3_Way_Box_Chance", true},
    {"ruanjianji", "", "", "", "", false},
    {"ruanjianji", "caizusanleixing2", "3 Way Box Type", "frmzu3leixing2", "", false},
    {"ruanjianji", "caizu3zoushi", "3 Way Box Trend", "Form1zu3zh", "", true},
    {"ruanjianji", "caizu3tongji", "3 Way Box Statistical", "frmzusan90", "", true},
    {"caigaopin7ma", "caigaopin6ma6", "6 Way Box winning number from this \"6 digits\"",
     "frmgaopin6ma", "", true},
    {"caigaopin7ma", "caigaopin6ma36", "Box winning number from this \"6 digits\"",
     "frmgaopin6ma36", "", true},
    {"caigaopin7ma", "caigaopin7ma6", "6 Way Box winning number from this \"7 digits\"",
     "frmgaopin7ma", "", true},
    {"caigaopin7ma", "caigaopin7ma36", "Box winning number from this \"7 digits\"",
     "frmgaopin7ma36", "", true},
    {"caigaopin7ma", "", "", "", "", false},
    {"caigaopin7ma", "caiwan4", "6 Way Box winning number from these \"4 digits\"", "frmzuxuan4",
     "", false},
    {"caigaopin7ma", "caiwanneng5ma", "6 Way Box winning number from these \"5 digits\"",
     "frmzuxuan1", "", true},
    {"caigaopin7ma", "caiwan6", "6 Way Box winning number from these \"6 digits\"", "frmzuxuan6",
     "", false},
    {"caigaopin7ma", "caiwan7", "6 Way Box winning number from these \"7 digits\"", "frmzuxuan7",
     "", false},
    {"caigaopin7ma", "", "", "", "", false},
    {"caigaopin7ma", "caihuang6", "Box winning number from these \"N digits\"", "frmzuxuanqt", "",
     false},
    {"caigaopin7ma", "cai6lianhao", "6 Way Box winning number from these \"6 digits\"",
     "frm6lianhao", "", false},
    {"caigaopin7ma", "cailingleizu6", "6 Way Box winning number from these \"N digits\"",
     "frmlingleizu6", "", false},
    {"caigaopin7ma", "", "", "", "", false},
    {"caigaopin7ma", "cailengwenre", "Cold Warm Hot", "frmrenwenleng", "Cold_Warm_Hot", true},
    {"caigaopin7ma", "caisanqufenge", "Three Regions Small Middle Large", "frmxzd",
     "Three_Regions_of_Small_Middle_Large", true},
    {"caigaopin7ma", "cai1234daima", "Four Regions-1234", "frm4qufenge", "Four_Regions-1234", true},
    {"danmayouguan", "dingsandana", "Recommend 3 digits-A", "frmdingdanshh", "Recommend_3_digits-A",
     true},
    {"danmayouguan", "dingsandanb", "Recommend 3 digits-BC", "frmtongsha3ma",
     "Recommend_3_digits-BC", true},
    {"danmayouguan", "caijinyindan", "Recommend 2 digits", "frmtongshahao", "Recommend_2_digits",
     true},
    {"danmayouguan", "caigongshidan", "Other recommend digits-[formula]", "frmdanma2",
     "Other_recommend_digits-formula", true},
    {"danmayouguan", "caiz3b2", "Other recommend digits-[2/3 formula]", "frmz3b2",
     "Other_recommend_digits-23_formula", false},
    {"danmayouguan", "cailiandan", "Other recommend digits-[Serial]", "frmdanma3",
     "Other_recommend_digits-Serial", false},
    {"danmayouguan", "caitiedan", "Recommend 1 digit[1]", "frmzonghe", "Recommend_1_digit", true},
    {"danmayouguan", "caitiedan2", "Recommend 1 digit[2]", "frmtongsha1ma", "Recommend_1_digit",
     true},
    {"danmayouguan", "", "", "", "", false},
    {"danmayouguan", "cai3m2", "2 digits from 3 digits", "frmdanma3c2", "2_digits_from_3_digits",
     true},
    {"danmayouguan", "cai4ma2", "2 digits from 4 digits", "frmdanma4", "2_digits_from_4_digits",
     true},
    {"danmayouguan", "cai3m0", "0 digits from 3 digits", "frmdanma30", "0_digits_from_3_digits",
     true},
    {"danmayouguan", "cai4m0", "0 digits from 4 digits", "frmdanma40", "0_digits_from_4_digits",
     true},
    {"danmayouguan", "cai2m12", "1-2 digits from 2 digits", "frmdanma212",
     "1-2_digits_from_2_digits", true},
    {"danmayouguan", "cai3m13", "1-3 digits from 3 digits", "frmdanma313",
     "1-3_digits_from_3_digits", true},
    {"caiqitayouguan", "caibjishuhe", "Sum of Odd-Sum of Even", "frmbjiouhe",
     "Sum_of_Odd-Sum_of_Even", false},
    {"caiqitayouguan", "caibxiaoshuhe", "Sum of Small-Sum of Big", "frmbxiaodahe",
     "Sum_of_Small-Sum_of_Big", false},
    {"caiqitayouguan", "caibzhishuhe", "Sum of Prime-Sum of Composite", "frmbzhihehe",
     "Sum_of_Prime-Sum_of_Composite", false},
    {"caiqitayouguan", "caizuxuanhaocx", "Box Number Enquire", "frmzuxuanhaocx",
     "Box_Number_Enquire", true},
    {"caiqitayouguan", "caizhixuanhaocx", "Straight Number Enquire", "frmzhixuanhaocx",
     "Straight_Number_Enquire", true},
};

}  // namespace

std::span<const GroupButton> GroupButtons() {
    return kGroups;
}

std::span<const CommandEntry> CommandTable() {
    return kCommands;
}

std::span<const CommandEntry> MenuEntries(std::string_view menu) {
    std::span<const CommandEntry> all = CommandTable();
    auto first =
        std::find_if(all.begin(), all.end(), [&](const CommandEntry& e) { return e.menu == menu; });
    auto last =
        std::find_if(first, all.end(), [&](const CommandEntry& e) { return e.menu != menu; });
    return {first, last};
}

const CommandEntry* FindCommand(std::string_view report) {
    for (const CommandEntry& e : CommandTable())
        if (!e.IsSeparator() && e.report == report) return &e;
    return nullptr;
}

const GroupButton* FindGroup(std::string_view menu) {
    for (const GroupButton& g : GroupButtons())
        if (g.menu == menu) return &g;
    return nullptr;
}

}  // namespace numarel
