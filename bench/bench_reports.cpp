// Times the reader and every built report on the largest history the reports can hold.
#include <benchmark/benchmark.h>

#include <charconv>
#include <chrono>
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

// What a report's final sheet holds, cell by cell, for writing it again into a fresh sheet: the
// floor under any report of that size, since every report has to write at least that much.
struct SheetFloor {
    struct Cell {
        int row;
        int col;
        bool isNumber;
        long number;
        std::string text;
        Rgb back;
        Rgb fore;
    };
    int rows = 0;
    int cols = 0;
    std::vector<Cell> cells;

    explicit SheetFloor(const ReportSheet& sheet) : rows(sheet.Rows()), cols(sheet.Cols()) {
        const ReportSheet blank(1, 1);
        const Rgb back = blank.BackColor(0, 0);
        const Rgb fore = blank.ForeColor(0, 0);
        for (int r = 0; r < rows; ++r)
            for (int c = 0; c < cols; ++c) {
                Cell cell{
                    r, c, false, 0, sheet.Text(r, c), sheet.BackColor(r, c), sheet.ForeColor(r, c)};
                if (cell.text.empty() && cell.back == back && cell.fore == fore) continue;
                // A plain decimal text is what SetNumber writes; anything else is a text.
                const char* end = cell.text.data() + cell.text.size();
                auto [ptr, ec] = std::from_chars(cell.text.data(), end, cell.number);
                cell.isNumber = !cell.text.empty() && ec == std::errc() && ptr == end &&
                                std::to_string(cell.number) == cell.text;
                cells.push_back(std::move(cell));
            }
    }

    // Writes every cell once, as the report's sheet has it.
    void Write(ReportSheet& sheet, Rgb back, Rgb fore) const {
        sheet.Resize(rows, cols);
        for (const Cell& cell : cells) {
            if (cell.isNumber)
                sheet.SetNumber(cell.row, cell.col, cell.number);
            else if (!cell.text.empty())
                sheet.SetText(cell.row, cell.col, cell.text);
            if (cell.back != back) sheet.SetBackColor(cell.row, cell.col, cell.back);
            if (cell.fore != fore) sheet.SetForeColor(cell.row, cell.col, cell.fore);
        }
    }
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
    const SheetFloor floor = [&] {
        ReportSheet sheet;
        BuildReport(*definition, drawings, sheet);
        return SheetFloor(sheet);
    }();
    const ReportSheet blank(1, 1);
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
            floor.Write(sheet, blank.BackColor(0, 0), blank.ForeColor(0, 0));
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
