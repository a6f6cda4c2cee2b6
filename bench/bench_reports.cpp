// Times the reader and every built report on the largest history the reports can hold.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "data/drawings_file.h"
#include "reports/command_table.h"
#include "reports/enquiry_other/number_enquiry.h"
#include "reports/report_registry.h"

namespace {

using namespace numarel;

// A deterministic synthetic history of `count` drawings, as a drawings file's bytes.
std::string SyntheticFile(int count) {
    std::string bytes;
    std::uint32_t state = 12345;
    for (int i = 0; i < count; ++i) {
        bytes += std::to_string(1000001 + i);
        for (int k = 0; k < 3; ++k) {
            state = state * 1664525u + 1013904223u;
            bytes += ' ';
            bytes += static_cast<char>('0' + (state >> 16) % 10);
        }
        bytes += "\r\n";
    }
    return bytes;
}

const std::string& LargestFile() {
    static const std::string bytes = SyntheticFile(static_cast<int>(kMaxDrawings));
    return bytes;
}

const std::vector<DrawRecord>& LargestHistory() {
    static const std::vector<DrawRecord> drawings = ParseDrawings(LargestFile());
    return drawings;
}

void BM_ReadDrawings(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<DrawRecord> records = ParseDrawings(LargestFile());
        benchmark::DoNotOptimize(records.data());
    }
    state.counters["drawings"] = static_cast<double>(kMaxDrawings);
}
BENCHMARK(BM_ReadDrawings)->Unit(benchmark::kMillisecond);

void BM_Report(benchmark::State& state, const ReportDefinition* definition) {
    const auto& drawings = LargestHistory();
    double bytesPerCell = 0;
    for (auto _ : state) {
        ReportSheet sheet;
        BuildReport(*definition, drawings, sheet);
        state.PauseTiming();
        bytesPerCell = static_cast<double>(sheet.MemoryBytes()) /
                       (static_cast<double>(sheet.Rows()) * sheet.Cols());
        state.ResumeTiming();
    }
    state.counters["bytes_per_cell"] = bytesPerCell;
}

// Enquire with the most tickets a window takes, on the history sheet as the window opens; the
// history is built outside the timing.
void BM_Enquire(benchmark::State& state, std::string_view object) {
    const NumberEnquiry& enquiry = *FindNumberEnquiry(object);
    std::string text;
    std::uint32_t seed = 777;
    for (int i = 0; i < enquiry.ticketLimit; ++i) {
        seed = seed * 1664525u + 1013904223u;
        text += std::to_string(100 + (seed >> 16) % 900) + ' ';
    }
    double bytesPerCell = 0;
    for (auto _ : state) {
        state.PauseTiming();
        ReportSheet sheet;
        BuildReport(*FindReport(object), LargestHistory(), sheet);
        state.ResumeTiming();
        Enquire(enquiry, text, sheet);
        state.PauseTiming();
        bytesPerCell = static_cast<double>(sheet.MemoryBytes()) /
                       (static_cast<double>(sheet.Rows()) * sheet.Cols());
        sheet = ReportSheet();
        state.ResumeTiming();
    }
    state.counters["bytes_per_cell"] = bytesPerCell;
    state.counters["tickets"] = enquiry.ticketLimit;
}
BENCHMARK_CAPTURE(BM_Enquire, frmzhixuanhaocx, "frmzhixuanhaocx")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Enquire, frmzuxuanhaocx, "frmzuxuanhaocx")->Unit(benchmark::kMillisecond);

// Registers one benchmark per built report of the command table.
const int kRegistered = [] {
    for (const CommandEntry& e : CommandTable()) {
        const ReportDefinition* definition = e.IsSeparator() ? nullptr : FindReport(e.report);
        if (!definition) continue;
        std::string name = "BM_Report/" + std::string(e.report);
        benchmark::RegisterBenchmark(name.c_str(), BM_Report, definition)
            ->Unit(benchmark::kMillisecond);
    }
    return 0;
}();

}  // namespace

BENCHMARK_MAIN();
