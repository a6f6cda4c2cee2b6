// The command table (captions, help pages, Wait) and the report families' registry rows (builders,
// titles, buttons) are joined only by the window object: these tests hold the two together.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "reports/command_table.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

// Reports whose title is their menu caption without its double quotes.
constexpr std::string_view kTitlesWithoutQuotes[] = {
    "frmgaopin6ma", "frmgaopin6ma36", "frmgaopin7ma", "frmgaopin7ma36", "frmzuxuan4",  "frmzuxuan1",
    "frmzuxuan6",   "frmzuxuan7",     "frm6lianhao",  "frmlingleizu6",  "frmzuxuanqt",
};

// Reports whose title says more than their menu caption, which it begins with.
constexpr std::string_view kTitlesLongerThanCaption[] = {"frmhezhi4", "frmdaimaduizi",
                                                         "frmliangmajiwei"};

std::string WithoutQuotes(std::string_view text) {
    std::string out(text);
    out.erase(std::remove(out.begin(), out.end(), '"'), out.end());
    return out;
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

TEST(Registry, TitlesAreTheMenuCaptionsSaveTheListedOnes) {
    for (ReportFamily family : ReportFamilies()) {
        for (const ReportDefinition& def : family()) {
            SCOPED_TRACE(std::string(def.object));
            const CommandEntry* command = FindCommand(def.object);
            ASSERT_NE(command, nullptr);
            if (std::find(std::begin(kTitlesLongerThanCaption), std::end(kTitlesLongerThanCaption),
                          def.object) != std::end(kTitlesLongerThanCaption)) {
                EXPECT_TRUE(def.title.starts_with(command->caption));
                EXPECT_GT(def.title.size(), command->caption.size());
                continue;
            }
            const bool quotesDropped =
                std::find(std::begin(kTitlesWithoutQuotes), std::end(kTitlesWithoutQuotes),
                          def.object) != std::end(kTitlesWithoutQuotes);
            EXPECT_EQ(def.title, quotesDropped ? WithoutQuotes(command->caption)
                                               : std::string(command->caption));
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
