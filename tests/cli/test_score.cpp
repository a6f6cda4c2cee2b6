#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>

#include "cli/cli_run.h"
#include "reports/scoreboard/payout_table.h"
#include "support/case_file.h"

namespace numarel {
namespace {

using testing::CliRun;
using testing::Lines;
using testing::RunCliWith;
using testing::TempDir;

// A history of `count` drawings from a fixed sequence, as a drawings file.
std::string HistoryFile(int count) {
    return testing::HistoryText(count, 17);
}

TEST(ScoreCommand, JsonFollowsTheContract) {
    TempDir dir;
    const auto data = dir.Write("Daily.txt", HistoryFile(500));
    CliRun run = RunCliWith({"score", "--data", data.string(), "--format", "json", "--last", "50"},
                            dir.path());
    ASSERT_EQ(run.code, 0) << run.err;
    const auto doc = nlohmann::json::parse(run.out);
    EXPECT_EQ(doc.size(), 3u);
    EXPECT_EQ(doc["lottery"], "Daily");
    EXPECT_EQ(doc["drawings"], 500);
    const auto names = testing::Words(
        "report method kind stretch judged hits expected sd z p q longestMiss expectedLongestMiss "
        "usesLaterDrawings cost returned expectedReturn");
    const std::set<std::string> keys(names.begin(), names.end());
    std::set<std::string> stretches;
    double lastP = 0;
    bool nullSeen = false;
    int lists = 0;
    for (const auto& method : doc["methods"]) {
        std::set<std::string> seen;
        for (const auto& [key, value] : method.items())
            seen.insert(key);
        ASSERT_EQ(seen, keys) << method;
        stretches.insert(method["stretch"].dump());
        // By p-value, the rows without one last.
        if (method["p"].is_null()) {
            nullSeen = true;
        } else {
            EXPECT_FALSE(nullSeen) << method;
            EXPECT_GE(method["p"].get<double>(), lastP);
            lastP = method["p"].get<double>();
        }
        const bool list = method["kind"] == "list" || method["report"] == "frmbaishi32zu" ||
                          method["report"] == "frmrenwenleng";
        EXPECT_EQ(!method["cost"].is_null(), list) << method;
        EXPECT_EQ(!method["expectedReturn"].is_null(), list) << method;
        lists += list ? 1 : 0;
        if (method["usesLaterDrawings"].get<bool>()) {
            EXPECT_TRUE(method["q"].is_null());
        }
    }
    EXPECT_GT(lists, 0);
    EXPECT_EQ(stretches, (std::set<std::string>{"50", "100", "365", "1000", "\"all\""}));
}

TEST(ScoreCommand, PayoutTableBesideTheSelectionOtherFormatsAndRefusals) {
    TempDir dir;
    const auto data = dir.Write("Daily.txt", HistoryFile(400));
    std::filesystem::create_directories(dir.path() / "Numarel");
    const auto returned320 = [&] {
        CliRun run = RunCliWith({"score", "--data", data.string(), "--format", "json"}, dir.path());
        EXPECT_EQ(run.code, 0) << run.err;
        const auto doc = nlohmann::json::parse(run.out);
        for (const auto& method : doc["methods"])
            if (method["report"] == "frmbaishi32zu" && method["stretch"] == "all")
                return std::make_pair(method["returned"].get<double>(),
                                      method["hits"].get<double>());
        return std::make_pair(-1.0, -1.0);
    };
    const auto [defaultReturn, hits] = returned320();
    EXPECT_DOUBLE_EQ(defaultReturn, 500 * hits);
    dir.Write("Numarel/payouts.txt", "# ours\r\nStraight = 900\r\n6-way box: 70\r\n");
    EXPECT_DOUBLE_EQ(returned320().first, 900 * hits);
    // A line that cannot be read is named; the rest of the table stands.
    dir.Write("Numarel/payouts.txt", "Straight 600\nJackpot = 9\n3-way Box = lots\n");
    CliRun warned = RunCliWith({"score", "--data", data.string()}, dir.path());
    EXPECT_EQ(warned.code, 0);
    EXPECT_NE(warned.err.find("line 2"), std::string::npos) << warned.err;
    EXPECT_NE(warned.err.find("line 3"), std::string::npos) << warned.err;
    EXPECT_NE(warned.out.find("frmtongsha1ma"), std::string::npos);
    EXPECT_NE(warned.out.find("Expected longest miss"), std::string::npos);

    CliRun csv = RunCliWith({"score", "--data", data.string(), "--format", "csv"}, dir.path());
    EXPECT_EQ(csv.code, 0);
    EXPECT_EQ(csv.out.rfind("Report,Method,Kind,Stretch", 0), 0u) << csv.out.substr(0, 80);
    CliRun html = RunCliWith({"score", "--data", data.string(), "--format", "html"}, dir.path());
    EXPECT_EQ(html.code, 0);
    EXPECT_NE(html.out.find("<html"), std::string::npos);
    EXPECT_EQ(html.out.find("scrollTop"), std::string::npos);  // opens at the smallest p
    EXPECT_NE(html.out.find("</body></html>"), std::string::npos);

    // Refusals are one line; the drawings file is never the output.
    CliRun missing =
        RunCliWith({"score", "--data", (dir.path() / "none.txt").string()}, dir.path());
    EXPECT_NE(missing.code, 0);
    EXPECT_EQ(Lines(missing.err), 1) << missing.err;
    CliRun badLast = RunCliWith({"score", "--last", "0"}, dir.path());
    EXPECT_NE(badLast.code, 0);
    CliRun output =
        RunCliWith({"score", "--data", data.string(), "--output", data.string()}, dir.path());
    EXPECT_NE(output.code, 0);
    EXPECT_EQ(testing::ReadAll(data), HistoryFile(400));
}

TEST(PayoutTable, ReadsWhatPeopleWrite) {
    std::vector<std::string> problems;
    const PayoutTable table = ParsePayoutTable(
        "Straight=450\r\n  6 WAY BOX   75 # the shop's\r\n3-way_box : 150\r\n\r\n", &problems);
    EXPECT_TRUE(problems.empty());
    EXPECT_DOUBLE_EQ(table.straight, 450);
    EXPECT_DOUBLE_EQ(table.sixWayBox, 75);
    EXPECT_DOUBLE_EQ(table.threeWayBox, 150);
    const PayoutTable again = ParsePayoutTable(PayoutTableText(table));
    EXPECT_DOUBLE_EQ(again.straight, 450);
    EXPECT_DOUBLE_EQ(again.threeWayBox, 150);
    EXPECT_DOUBLE_EQ(ReadPayoutTable("/nonexistent/payouts.txt").straight, 500);
    ParsePayoutTable("Straight -5\n", &problems);
    EXPECT_EQ(problems.size(), 1u);
}

}  // namespace
}  // namespace numarel
