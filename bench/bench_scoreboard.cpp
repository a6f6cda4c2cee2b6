// Times the whole scoreboard on the largest history: every report with scored methods built on
// both cores, every method followed and scored over the four stretches.
#include <benchmark/benchmark.h>

#include "bench_history.h"
#include "reports/scoreboard/scoreboard.h"

namespace {

using namespace numarel;

void BM_Scoreboard(benchmark::State& state) {
    const int threads = static_cast<int>(state.range(0));
    std::size_t methods = 0;
    for (auto _ : state) {
        ScoreTable table = BuildScoreboard(bench::LargestHistory(), {.threads = threads});
        methods = table.tracks.size();
        benchmark::DoNotOptimize(table.scores.data());
    }
    state.counters["methods"] = static_cast<double>(methods);
}
BENCHMARK(BM_Scoreboard)->Arg(2)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
