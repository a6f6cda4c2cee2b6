#include "support/test_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <random>
#include <sstream>

#include "reports/report_registry.h"

namespace numarel::testing {

std::vector<DrawRecord> Drawings(std::initializer_list<std::string_view> digits) {
    std::vector<DrawRecord> out;
    int date = 2020001;
    for (std::string_view d : digits) {
        DrawRecord r;
        r.date = std::to_string(date++);
        r.h = std::string(1, d.at(0));
        r.t = std::string(1, d.at(1));
        r.u = std::string(1, d.at(2));
        out.push_back(r);
    }
    return out;
}

ReportSheet Build(std::string_view object, const std::vector<DrawRecord>& drawings) {
    ReportSheet sheet;
    const ReportDefinition* definition = FindReport(object);
    EXPECT_TRUE(definition) << object << " is not built";
    if (definition) BuildReport(*definition, drawings, sheet);
    return sheet;
}

std::vector<std::string> RowTexts(const ReportSheet& sheet, int row, int firstCol, int lastCol) {
    std::vector<std::string> out;
    for (int c = firstCol; c <= lastCol; ++c)
        out.push_back(sheet.Text(row, c));
    return out;
}

std::vector<int> ColumnsColoured(const ReportSheet& sheet, int row, Rgb colour, int firstCol) {
    std::vector<int> out;
    for (int c = firstCol; c < sheet.Cols(); ++c)
        if (sheet.BackColor(row, c) == colour) out.push_back(c);
    return out;
}

TempDir::TempDir() {
    static std::atomic<int> counter{0};
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() /
            ("numarel-test-" + std::to_string(rd()) + "-" + std::to_string(counter++));
    std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::filesystem::path TempDir::Write(std::string_view name, std::string_view bytes) const {
    std::filesystem::path p = path_ / name;
    std::filesystem::create_directories(p.parent_path());
    std::ofstream out(p, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return p;
}

std::string ReadAll(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream os;
    os << in.rdbuf();
    return os.str();
}

bool Has(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

int Lines(std::string_view text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace numarel::testing
