// Coverage-guided fuzzing of the results import: any bytes as a source, into a new file, a file
// numbered by draw number and one numbered by date. The import never crashes, and what it adds
// reads back after the file's drawings exactly as planned.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "data/results_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace numarel;
    static const std::string kFiles[] = {"", "2021001 1 2 3\r\n0 0 0 0\r\n", "20210901 0 0 7\r\n"};
    const std::string_view source(reinterpret_cast<const char*>(data), size);
    const std::string& file = kFiles[size % 3];
    std::vector<DrawRecord> records = ParseDrawings(file);
    records.resize(ReportDrawCount(records));
    ImportOptions options;
    options.dates = size % 5 == 0 ? DateField::Number : DateField::Auto;
    ImportPlan plan = PlanImport(source, records, options);
    FormatImportSummary(plan);
    if (!plan.status.ok()) return 0;
    std::string out;
    if (!AppendDrawingLines(file, plan.added, out).ok()) std::abort();
    std::vector<DrawRecord> expected = records;
    expected.insert(expected.end(), plan.added.begin(), plan.added.end());
    std::vector<DrawRecord> back = ParseDrawings(out);
    back.resize(ReportDrawCount(back));
    if (back != expected) std::abort();
    return 0;
}
