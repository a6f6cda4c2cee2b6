#include "cli/report_names.h"

#include <algorithm>
#include <cctype>

#include "reports/command_table.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

char Lower(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

bool SameIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return Lower(x) == Lower(y); });
}

// Edits (insert, delete, replace) between the two texts, case ignored.
std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            std::size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1,
                               diagonal + (Lower(a[i - 1]) == Lower(b[j - 1]) ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
    if (part.empty() || part.size() > text.size()) return false;
    for (std::size_t i = 0; i + part.size() <= text.size(); ++i)
        if (SameIgnoringCase(text.substr(i, part.size()), part)) return true;
    return false;
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

}  // namespace

std::string_view FindReportByName(std::string_view name) {
    if (FindReport(name)) return FindReport(name)->object;
    for (const CommandEntry& e : CommandTable()) {
        if (e.IsSeparator()) continue;
        // Captions are matched without their outer blanks, which a user cannot see.
        if (SameIgnoringCase(e.report, name) ||
            (!Trimmed(name).empty() && SameIgnoringCase(Trimmed(e.caption), Trimmed(name))))
            return e.report;
    }
    return {};
}

std::vector<std::string_view> ClosestCaptions(std::string_view name, std::size_t count) {
    struct Candidate {
        std::size_t distance;
        std::string_view caption;
    };
    std::vector<Candidate> candidates;
    for (const CommandEntry& e : CommandTable()) {
        if (e.IsSeparator()) continue;
        // A caption holding the name, or held by it, comes before any spelling distance.
        std::size_t d =
            ContainsIgnoringCase(e.caption, name) || ContainsIgnoringCase(name, e.caption)
                ? 0
                : EditDistance(name, e.caption);
        candidates.push_back({d, e.caption});
    }
    std::stable_sort(
        candidates.begin(), candidates.end(),
        [](const Candidate& a, const Candidate& b) { return a.distance < b.distance; });
    std::vector<std::string_view> captions;
    for (const Candidate& c : candidates) {
        if (captions.size() == count) break;
        if (std::find(captions.begin(), captions.end(), c.caption) == captions.end())
            captions.push_back(c.caption);
    }
    return captions;
}

}  // namespace numarel
