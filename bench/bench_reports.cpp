// Times the reader and every built report on the largest history the reports can hold.
#include <benchmark/benchmark.h>

#include <charconv>
#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "bench_history.h"
#include "data/drawings_file.h"
#include "reports/command_table.h"
#include "reports/enquiry_other/number_enquiry.h"
#include "reports/report_registry.h"

namespace {

using namespace numarel;

using bench::LargestFile;
using bench::LargestHistory;

void BM_ReadDrawings(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<DrawRecord> records = ParseDrawings(LargestFile());
        benchmark::DoNotOptimize(records.data());
    }
    state.counters["drawings"] = static_cast<double>(kMaxDrawings);
}
BENCHMARK(BM_ReadDrawings)->Unit(benchmark::kMillisecond);

// The floor under a report: a fresh sheet of its final size with every cell it fills written once,
// the row labels (first column) as their texts and every other cell as a number (its own number,
// or 1 for a marker). No report can deliver its cells for less. Kept as compact as the sheet
// itself, so that reading it costs the floor little.
class SheetFloor {
public:
    explicit SheetFloor(const ReportSheet& sheet) : rows_(sheet.Rows()), cols_(sheet.Cols()) {
        kinds_.assign(static_cast<std::size_t>(rows_) * cols_, Kind::Empty);
        values_.assign(kinds_.size(), 0);
        std::map<std::string, int> textIndex;
        for (int r = 0, i = 0; r < rows_; ++r)
            for (int c = 0; c < cols_; ++c, ++i) {
                const std::string text = sheet.Text(r, c);
                if (!text.empty() && c == 0) {
                    auto [it, added] = textIndex.emplace(text, static_cast<int>(texts_.size()));
                    if (added) texts_.push_back(text);
                    kinds_[i] = Kind::Text;
                    values_[i] = it->second;
                } else if (!text.empty()) {
                    // A plain decimal text is what SetNumber writes; anything else is a text.
                    long number = 0;
                    auto [end, ec] =
                        std::from_chars(text.data(), text.data() + text.size(), number);
                    const bool plain = ec == std::errc() && end == text.data() + text.size() &&
                                       std::to_string(number) == text;
                    kinds_[i] = Kind::Number;
                    values_[i] = plain ? number : 1;
                }
            }
    }

    // Writes every cell once, as the report's sheet has it.
    void Write(ReportSheet& sheet) const {
        sheet.Resize(rows_, cols_);
        for (int r = 0, i = 0; r < rows_; ++r)
            for (int c = 0; c < cols_; ++c, ++i) {
                if (kinds_[i] == Kind::Number)
                    sheet.SetNumber(r, c, values_[i]);
                else if (kinds_[i] == Kind::Text)
                    sheet.SetText(r, c, texts_[values_[i]]);
            }
    }

private:
    enum class Kind : std::uint8_t { Empty, Number, Text };
    int rows_;
    int cols_;
    std::vector<Kind> kinds_;
    std::vector<long> values_;  // the number, or the index of the label
    std::vector<std::string> texts_;
};

double Milliseconds(std::chrono::steady_clock::duration d) {
    return std::chrono::duration<double, std::milli>(d).count();
}

// Each step builds the report (timed) and then, outside the benchmark's time, writes its final
// sheet again into a fresh sheet: `floor_ms` is that floor and `ratio` the report's time over it,
// both measured in the same run, so that the ratio holds on a machine busy with other work.
void BM_Report(benchmark::State& state, const ReportDefinition* definition) {
    using Clock = std::chrono::steady_clock;
    const auto& drawings = LargestHistory();
    // Worked out once: the benchmark calls this function several times while it settles.
    static std::map<const ReportDefinition*, SheetFloor> floors;
    auto found = floors.find(definition);
    if (found == floors.end()) {
        ReportSheet sheet;
        BuildReport(*definition, drawings, sheet);
        found = floors.emplace(definition, SheetFloor(sheet)).first;
    }
    const SheetFloor& floor = found->second;
    double bytesPerCell = 0;
    double reportMs = 0;
    double floorMs = 0;
    for (auto _ : state) {
        Clock::time_point start = Clock::now();
        {
            ReportSheet sheet;
            BuildReport(*definition, drawings, sheet);
            benchmark::DoNotOptimize(sheet.Rows());
            reportMs += Milliseconds(Clock::now() - start);
            state.PauseTiming();
            bytesPerCell = static_cast<double>(sheet.MemoryBytes()) /
                           (static_cast<double>(sheet.Rows()) * sheet.Cols());
        }
        {
            start = Clock::now();
            ReportSheet sheet;
            floor.Write(sheet);
            benchmark::DoNotOptimize(sheet.Rows());
            floorMs += Milliseconds(Clock::now() - start);
        }
        state.ResumeTiming();
    }
    const double steps = static_cast<double>(state.iterations());
    state.counters["bytes_per_cell"] = bytesPerCell;
    state.counters["floor_ms"] = floorMs / steps;
    state.counters["ratio"] = floorMs > 0 ? reportMs / floorMs : 0;
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
