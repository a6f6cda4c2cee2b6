// Times the desktop grid view offscreen on the largest sheets of the system: the widest report,
// 215 columns by 32769 rows; the Straight Number enquiry of 400 tickets, 406 columns by 32773
// rows; and the tallest, + or - of Pairs with three rows a drawing. Opening a sheet (model,
// sizes, first paint at the newest rows) and scrolling it page by page, each step painted.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QScrollBar>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "bench_history.h"
#include "data/drawings_file.h"
#include "frame/frame_passes.h"
#include "frame/report_sheet.h"
#include "platform/grid_view.h"
#include "reports/enquiry_other/number_enquiry.h"
#include "reports/report_registry.h"

namespace {

using namespace numarel;

QApplication& App() {
    static int argc = 1;
    static char name[] = "numarel_bench_grid";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: Qt's own globals are gone by the time statics are torn down at exit.
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

// A sheet shaped like the widest report: a label column, digits, many narrow chart columns with a
// coloured hit per row, hidden stores and statistic rows, scrolled to the end.
const ReportSheet& LargestSheet() {
    static const ReportSheet sheet = [] {
        constexpr int kRows = 32769;
        constexpr int kCols = 215;
        ReportSheet s(kRows, kCols);
        s.SetColWidth(0, 1290);
        for (int c = 1; c < kCols; ++c)
            s.SetColWidth(c, c % 20 == 0 ? 2 : 300);
        for (int c = 1; c < kCols; ++c)
            s.SetText(0, c, std::to_string(c % 10));
        std::uint32_t state = 12345;
        for (int r = 1; r < kRows; ++r) {
            s.SetText(r, 0, " " + std::to_string(1000000 + r) + ":123");
            for (int c = 1; c < kCols; ++c) {
                state = state * 1664525u + 1013904223u;
                int v = static_cast<int>((state >> 16) % 40);
                if (v == 0) {
                    s.SetText(r, c, "*");
                    s.SetBackColor(r, c, colours::kHit);
                } else {
                    s.SetNumber(r, c, v);
                }
            }
        }
        s.SetCurrentCell(kRows - 1, 1);
        s.SetTopRow(kRows - 1);
        return s;
    }();
    return sheet;
}

using numarel::bench::LargestHistory;

// The Straight Number enquiry window after Enquire with 400 tickets on 32767 drawings.
const ReportSheet& EnquirySheet() {
    static const ReportSheet sheet = [] {
        std::string tickets;
        for (int i = 0; i < 400; ++i)
            tickets += std::to_string(100 + i * 2) + ' ';
        ReportSheet s;
        BuildReport(*FindReport("frmzhixuanhaocx"), LargestHistory(), s);
        Enquire(*FindNumberEnquiry("frmzhixuanhaocx"), tickets, s);
        return s;
    }();
    return sheet;
}

// + or - of Pairs on 32767 drawings: 98307 rows, three a drawing.
const ReportSheet& TallestSheet() {
    static const ReportSheet sheet = [] {
        ReportSheet s;
        BuildReport(*FindReport("frmliangmahecha"), LargestHistory(), s);
        return s;
    }();
    return sheet;
}

using SheetSource = const ReportSheet& (*)();

void BM_GridOpen(benchmark::State& state, SheetSource source) {
    App();
    // The view only reads the sheet; the model's pointer is non-const for marks.
    auto* sheet = const_cast<ReportSheet*>(&source());
    for (auto _ : state) {
        auto view = std::make_unique<GridView>();
        view->resize(1280, 900);
        view->SetSheet(sheet);
        view->show();
        QCoreApplication::processEvents();
        view->viewport()->repaint();
        benchmark::DoNotOptimize(view->TopRow());
        state.PauseTiming();
        view.reset();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["rows"] = sheet->Rows();
    state.counters["cols"] = sheet->Cols();
}
BENCHMARK_CAPTURE(BM_GridOpen, LargestSheet, &LargestSheet)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_GridOpen, EnquirySheet, &EnquirySheet)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_GridOpen, TallestSheet, &TallestSheet)->Unit(benchmark::kMillisecond);

// One step: a page down (wrapping to the top at the end) or a screen to the right, painted.
void BM_GridScroll(benchmark::State& state, SheetSource source) {
    App();
    auto* sheet = const_cast<ReportSheet*>(&source());
    GridView view;
    view.resize(1280, 900);
    view.SetSheet(sheet);
    view.show();
    QCoreApplication::processEvents();
    QScrollBar* down = view.verticalScrollBar();
    QScrollBar* across = view.horizontalScrollBar();
    down->setValue(0);
    std::int64_t steps = 0;
    for (auto _ : state) {
        if (++steps % 8 == 0) {
            int next = across->value() + across->pageStep();
            across->setValue(next > across->maximum() ? 0 : next);
        } else {
            int next = down->value() + down->pageStep();
            down->setValue(next > down->maximum() ? 0 : next);
        }
        view.viewport()->repaint();
    }
    state.counters["pages/s"] =
        benchmark::Counter(static_cast<double>(steps), benchmark::Counter::kIsRate);
}
BENCHMARK_CAPTURE(BM_GridScroll, LargestSheet, &LargestSheet)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_GridScroll, EnquirySheet, &EnquirySheet)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
