// Times an import of a published results file: a CSV of two drawings a day into an empty file.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "data/results_import.h"

namespace {

using namespace numarel;

// `days` rows of an open-data style export, newest first: the date, the midday and evening
// numbers with their leading zeros dropped, and a four-digit game beside them.
std::string ResultsCsv(int days) {
    std::string csv = "Draw Date,Midday Daily,Evening Daily,Midday Win 4\r\n";
    std::uint32_t state = 2024;
    auto next = [&state](std::uint32_t range) {
        state = state * 1664525u + 1013904223u;
        return (state >> 8) % range;
    };
    for (int day = days - 1; day >= 0; --day) {
        // 28 days a month keep the dates valid without a calendar.
        int month = 1 + day / 28 % 12, dom = 1 + day % 28, year = 1960 + day / 336;
        csv += std::to_string(month) + '/' + std::to_string(dom) + '/' + std::to_string(year) +
               ',' + std::to_string(next(1000)) + ',' + std::to_string(next(1000)) + ',' +
               std::to_string(next(10000)) + "\r\n";
    }
    return csv;
}

// Reading, ordering and numbering every drawing, and the file's new bytes.
void BM_Import(benchmark::State& state) {
    const std::string csv = ResultsCsv(static_cast<int>(state.range(0)));
    std::size_t added = 0;
    for (auto _ : state) {
        ImportPlan plan = PlanImport(csv, {}, {});
        std::string bytes;
        if (plan.status.ok()) AppendDrawingLines("", plan.added, bytes);
        added = plan.added.size();
        benchmark::DoNotOptimize(bytes.data());
    }
    state.counters["drawings"] = static_cast<double>(2 * state.range(0));
    state.counters["added"] = static_cast<double>(added);
}
// 20000 rows give 40000 drawings, more than a drawings file holds: the import reads all of them
// and refuses. 16383 rows give the largest history that fits.
BENCHMARK(BM_Import)->Arg(20000)->Arg(16383)->Unit(benchmark::kMillisecond);

}  // namespace
