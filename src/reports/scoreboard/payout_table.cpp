#include "reports/scoreboard/payout_table.h"

#include <cctype>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "data/basic_text.h"

namespace numarel {
namespace {

// A prize's name with case, blanks and hyphens left out: "6-way Box" is "6waybox".
std::string Folded(std::string_view name) {
    std::string folded;
    for (char c : name)
        if (c != ' ' && c != '-' && c != '\t' && c != '_')
            folded += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return folded;
}

// A text in double quotes, for a message.
std::string Quoted(std::string_view text) {
    std::string quoted(1, '"');
    quoted += text;
    quoted += '"';
    return quoted;
}

}  // namespace

PayoutTable ParsePayoutTable(std::string_view bytes, std::vector<std::string>* problems) {
    PayoutTable table;
    int lineNumber = 0;
    std::size_t start = 0;
    while (start < bytes.size()) {
        std::size_t end = bytes.find('\n', start);
        if (end == std::string_view::npos) end = bytes.size();
        std::string_view line = bytes.substr(start, end - start);
        start = end + 1;
        ++lineNumber;
        if (const std::size_t hash = line.find('#'); hash != std::string_view::npos)
            line = line.substr(0, hash);
        line = Trim(line);
        if (!line.empty() && line.back() == '\r') line = Trim(line.substr(0, line.size() - 1));
        if (line.empty()) continue;
        // The value is the last field; the name is what stands before it, "=" or ":" aside.
        const std::size_t split = line.find_last_of(" \t=:");
        const auto complain = [&](const std::string& why) {
            if (problems) problems->push_back("line " + std::to_string(lineNumber) + ": " + why);
        };
        if (split == std::string_view::npos) {
            complain(Quoted(line) + " has no prize");
            continue;
        }
        std::string_view name = Trim(line.substr(0, split));
        while (!name.empty() && (name.back() == '=' || name.back() == ':'))
            name = Trim(name.substr(0, name.size() - 1));
        const std::string_view valueText = Trim(line.substr(split + 1));
        double value = 0;
        const auto [end2, error] =
            std::from_chars(valueText.data(), valueText.data() + valueText.size(), value);
        if (error != std::errc() || end2 != valueText.data() + valueText.size() || value < 0) {
            complain(Quoted(valueText) + " is not a prize");
            continue;
        }
        const std::string key = Folded(name);
        if (key == "straight")
            table.straight = value;
        else if (key == "6waybox")
            table.sixWayBox = value;
        else if (key == "3waybox")
            table.threeWayBox = value;
        else
            complain(Quoted(name) + " is no prize of the table (Straight, 6-way Box, 3-way Box)");
    }
    return table;
}

PayoutTable ReadPayoutTable(const std::filesystem::path& path, std::vector<std::string>* problems) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return {};
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return ParsePayoutTable(bytes.str(), problems);
}

std::string PayoutTableText(const PayoutTable& table) {
    const auto number = [](double value) {
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%g", value);
        return std::string(buffer);
    };
    return "# What a 1-unit ticket returns when it hits, for the scoreboard\r\n"
           "Straight = " +
           number(table.straight) + "\r\n6-way Box = " + number(table.sixWayBox) +
           "\r\n3-way Box = " + number(table.threeWayBox) + "\r\n";
}

}  // namespace numarel
