// Every cell of every report, guarded: each report's CSV and JSON on a fixed set of drawings files
// is compared with the digests kept in tests/golden/expected. A change to any cell, colour, width
// or header of any report turns this red and names the report. When a change is intended,
// scripts/update_golden.sh writes the digests anew and lists the reports whose output changed, so
// that the change is one reviewed commit.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "data/drawings_file.h"
#include "export/sheet_format.h"
#include "reports/enquiry_other/number_enquiry.h"
#include "reports/report_registry.h"
#include "support/test_support.h"

namespace numarel {
namespace {

namespace fs = std::filesystem;

const fs::path kTests = NUMAREL_TESTS_DIR;

// What a report gave: its output's length and a 64-bit FNV-1a digest of its bytes.
std::string Digest(const std::string& bytes) {
    std::uint64_t h = 1469598103934665603ull;
    for (unsigned char c : bytes) {
        h ^= c;
        h *= 1099511628211ull;
    }
    char out[48];
    std::snprintf(out, sizeof out, "%zu %016llx", bytes.size(), static_cast<unsigned long long>(h));
    return out;
}

// A made-up history of a few thousand drawings with seven-digit dates, the same on every run.
std::vector<DrawRecord> GeneratedHistory() {
    std::vector<DrawRecord> drawings;
    std::uint32_t state = 20240601;
    auto digit = [&state] {
        state = state * 1664525u + 1013904223u;
        return std::string(1, static_cast<char>('0' + (state >> 16) % 10));
    };
    for (int i = 0; i < 4000; ++i) {
        const std::string date = std::to_string(2010001 + i);
        std::string h = digit(), t = digit();
        drawings.push_back({date, h, t, digit()});
    }
    return drawings;
}

struct Case {
    std::string name;
    std::vector<DrawRecord> drawings;
};

std::vector<Case> Cases() {
    std::vector<Case> cases;
    for (const char* name :
         {"empty", "end-marker-only", "end-marker-middle", "odd", "odd-fields", "ten"}) {
        std::vector<DrawRecord> records =
            ParseDrawings(testing::ReadAll(kTests / "cases" / (std::string(name) + ".txt")));
        records.resize(ReportDrawCount(records));
        cases.push_back({name, std::move(records)});
    }
    std::vector<DrawRecord> sample;
    EXPECT_TRUE(
        ReadHistory(kTests / ".." / "resources" / "data" / "Synthetic-Demo.txt", sample).ok());
    cases.push_back({"sample", std::move(sample)});
    cases.push_back({"generated", GeneratedHistory()});
    return cases;
}

// "<object> <format>" to its digest, for every built report on `drawings`.
std::map<std::string, std::string> Outputs(const std::vector<DrawRecord>& drawings) {
    std::map<std::string, std::string> out;
    for (ReportFamily family : ReportFamilies()) {
        for (const ReportDefinition& report : family()) {
            ReportSheet sheet;
            BuildReport(report, drawings, sheet);
            std::ostringstream csv, json;
            WriteSheetCsv(sheet, csv);
            WriteSheetJson(sheet, report.object, json);
            const std::string object(report.object);
            out[object + " csv"] = Digest(csv.str());
            out[object + " json"] = Digest(json.str());
            // An enquiry window also after Enquire: tickets of every shape, a repeat among them.
            if (const NumberEnquiry* enquiry = FindNumberEnquiry(report.object)) {
                if (Enquire(*enquiry, "123 321 112 000 909 456 123 780", sheet)) continue;
                std::ostringstream enquired;
                WriteSheetCsv(sheet, enquired);
                out[object + "+enquire csv"] = Digest(enquired.str());
            }
        }
    }
    return out;
}

fs::path ExpectedFile(const std::string& caseName) {
    return kTests / "golden" / "expected" / (caseName + ".txt");
}

std::map<std::string, std::string> ReadExpected(const fs::path& file) {
    std::map<std::string, std::string> expected;
    std::ifstream in(file);
    std::string object, format, size, digest;
    while (in >> object >> format >> size >> digest)
        expected[object + " " + format] = size + " " + digest;
    return expected;
}

void WriteExpected(const fs::path& file, const std::map<std::string, std::string>& outputs) {
    std::ofstream out(file, std::ios::binary);
    for (const auto& [key, digest] : outputs)
        out << key << ' ' << digest << '\n';
}

bool Updating() {
    const char* update = std::getenv("NUMAREL_UPDATE_GOLDEN");
    return update && std::string(update) == "1";
}

TEST(Golden, EveryReportGivesTheCellsItGaveBefore) {
    for (const Case& c : Cases()) {
        const std::map<std::string, std::string> actual = Outputs(c.drawings);
        const fs::path file = ExpectedFile(c.name);
        const std::map<std::string, std::string> expected = ReadExpected(file);
        std::vector<std::string> changed;
        for (const auto& [key, digest] : actual) {
            auto it = expected.find(key);
            if (it == expected.end() || it->second != digest) changed.push_back(key);
        }
        for (const auto& [key, digest] : expected)
            if (!actual.count(key)) changed.push_back(key + " (no longer built)");
        if (Updating()) {
            WriteExpected(file, actual);
            for (const std::string& key : changed)
                std::printf("changed: %s on %s\n", key.c_str(), c.name.c_str());
            continue;
        }
        ASSERT_FALSE(expected.empty()) << file << " is missing: run scripts/update_golden.sh";
        for (const std::string& key : changed)
            ADD_FAILURE() << key << " differs on the drawings of \"" << c.name
                          << "\" (scripts/update_golden.sh lists and records intended changes)";
    }
}

}  // namespace
}  // namespace numarel
