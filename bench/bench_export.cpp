// Times the CSV, HTML and JSON writers on the largest sheet of any report on the largest history,
// with the output counted and thrown away, and says how far each run raised the peak memory.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdint>
#include <ostream>
#include <streambuf>
#include <string>

#include "bench_history.h"
#include "data/drawings_file.h"
#include "export/sheet_format.h"
#include "reports/report_registry.h"

namespace {

using namespace numarel;

// Counts the bytes written and keeps none.
class CountingBuffer : public std::streambuf {
public:
    std::size_t bytes = 0;

protected:
    std::streamsize xsputn(const char*, std::streamsize n) override {
        bytes += static_cast<std::size_t>(n);
        return n;
    }
    int_type overflow(int_type c) override {
        ++bytes;
        return c;
    }
};

double PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;  // kilobytes on Linux
}

struct LargestSheet {
    ReportSheet sheet;
    std::string object;
};

// The report whose JSON export is the longest on 32767 drawings.
const LargestSheet& Largest() {
    static const LargestSheet largest = [] {
        const auto& drawings = bench::LargestHistory();
        LargestSheet best;
        std::size_t bestBytes = 0;
        for (ReportFamily family : ReportFamilies())
            for (const ReportDefinition& def : family()) {
                ReportSheet sheet;
                BuildReport(def, drawings, sheet);
                CountingBuffer counter;
                std::ostream out(&counter);
                WriteSheetJson(sheet, def.object, out);
                if (counter.bytes > bestBytes) {
                    bestBytes = counter.bytes;
                    best.sheet = std::move(sheet);
                    best.object = std::string(def.object);
                }
            }
        return best;
    }();
    return largest;
}

void BM_Export(benchmark::State& state, SheetFormat format) {
    const LargestSheet& largest = Largest();
    const double before = PeakMegabytes();
    CountingBuffer counter;
    for (auto _ : state) {
        counter.bytes = 0;
        std::ostream out(&counter);
        WriteSheet(largest.sheet, format, largest.object, 30, out);
    }
    state.SetLabel(largest.object);
    state.counters["output_MB"] = static_cast<double>(counter.bytes) / 1e6;
    state.counters["cells_M"] =
        static_cast<double>(largest.sheet.Rows()) * largest.sheet.Cols() / 1e6;
    state.counters["peak_growth_MB"] = PeakMegabytes() - before;
}
BENCHMARK_CAPTURE(BM_Export, csv, SheetFormat::Csv)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Export, html, SheetFormat::Html)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Export, json, SheetFormat::Json)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Export, pdf, SheetFormat::Pdf)->Unit(benchmark::kMillisecond);

}  // namespace
