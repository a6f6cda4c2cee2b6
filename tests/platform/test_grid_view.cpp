#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <filesystem>
#include <fstream>

#include "platform/grid_view.h"
#include "platform/platform.h"
#include "platform/twips.h"
#include "shell/qt_test_support.h"
#include "support/case_file.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::App;
using testing::Key;

constexpr Rgb kRed = MakeRgb(255, 0, 0);
constexpr Rgb kBlue = MakeRgb(0, 0, 255);

// A small report-like sheet: header row, label column, a few coloured cells.
ReportSheet SmallSheet() {
    const int rows = 6, cols = 5;
    ReportSheet sheet(rows, cols);
    sheet.SetText(0, 0, "corner");
    for (int c = 1; c < cols; ++c)
        sheet.SetText(0, c, "C" + std::to_string(c));
    for (int r = 1; r < rows; ++r) {
        sheet.SetText(r, 0, " 202000" + std::to_string(r) + ":123");
        for (int c = 1; c < cols; ++c)
            sheet.SetNumber(r, c, r * 10 + c);
    }
    sheet.SetBackColor(2, 3, kRed);
    sheet.SetForeColor(2, 3, kBlue);
    sheet.SetBackColor(0, 2, kBlue);
    return sheet;
}

// Shows `view` on `sheet` at the given size, laid out and painted.
void Show(GridView& view, ReportSheet& sheet, int width = 400, int height = 300) {
    view.resize(width, height);
    view.SetSheet(&sheet);
    view.show();
    QCoreApplication::processEvents();
}

QPoint Centre(GridView& view, int row, int col) {
    return view.visualRect(view.Model().IndexOf(row, col)).center();
}

TEST(SheetModel, CellsStartAfterTheFixedRowAndColumnAndChangesReachTheRightSignal) {
    App();
    ReportSheet sheet = SmallSheet();
    SheetModel model;
    model.SetSheet(&sheet);
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(model.columnCount(), 4);
    QModelIndex cell = model.IndexOf(2, 3);
    EXPECT_EQ(cell.data().toString(), "23");
    EXPECT_EQ(cell.data(Qt::BackgroundRole).value<QColor>(), QColor(255, 0, 0));
    EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QColor>(), QColor(0, 0, 255));
    // Colour 0 is the view's default, not black.
    EXPECT_FALSE(model.IndexOf(1, 1).data(Qt::BackgroundRole).isValid());
    EXPECT_EQ(model.headerData(2, Qt::Horizontal).toString(), "C3");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::BackgroundRole).value<QColor>(),
              QColor(0, 0, 255));
    EXPECT_EQ(model.headerData(0, Qt::Vertical).toString(), " 2020001:123");

    // Changed cells reach the right signal.
    std::vector<QModelIndex> cells;
    std::vector<std::pair<Qt::Orientation, int>> headers;
    QObject::connect(&model, &QAbstractItemModel::dataChanged,
                     [&](const QModelIndex& from, const QModelIndex&) { cells.push_back(from); });
    QObject::connect(&model, &QAbstractItemModel::headerDataChanged,
                     [&](Qt::Orientation o, int first, int) { headers.emplace_back(o, first); });
    model.CellChanged(3, 2);
    model.CellChanged(0, 4);
    model.CellChanged(5, 0);
    model.CellChanged(99, 1);  // outside: nothing
    ASSERT_EQ(cells.size(), 1u);
    EXPECT_EQ(cells[0], model.IndexOf(3, 2));
    EXPECT_EQ(headers, (std::vector<std::pair<Qt::Orientation, int>>{{Qt::Horizontal, 3},
                                                                     {Qt::Vertical, 4}}));

    ReportSheet empty;
    model.SetSheet(&empty);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 0);
}

TEST(GridView, MouseDownMovesTheCurrentCellFirst) {
    App();
    ReportSheet sheet = SmallSheet();
    GridView view;
    Show(view, sheet);
    std::vector<int> pressed;  // row, column and the current cell at that moment
    QObject::connect(&view, &GridView::CellPressed, [&](int row, int col) {
        pressed = {row, col, sheet.CurrentRow() * 100 + sheet.CurrentCol()};
    });
    testing::MousePress(view.viewport(), Centre(view, 3, 2));
    EXPECT_EQ(pressed, (std::vector<int>{3, 2, 302}));

    std::vector<std::pair<int, int>> doubles;
    QObject::connect(&view, &GridView::CellDoubleClicked,
                     [&](int row, int col) { doubles.emplace_back(row, col); });
    testing::MouseDoubleClick(view.viewport(), Centre(view, 4, 3));
    QHeaderView* header = view.horizontalHeader();
    // In the header cell (its edges fit the column instead).
    testing::MouseDoubleClick(
        header->viewport(),
        QPoint(header->sectionViewportPosition(1) + header->sectionSize(1) / 2, 3));
    EXPECT_EQ(doubles, (std::vector<std::pair<int, int>>{{4, 3}, {0, 2}}));
}

// A text wider than its cell shows whole in a tooltip, in the cells and in the header row and
// label column; a column is widened by dragging its header edge, fitted by a double click on the
// edge, and keeps that width through the zoom; the sheet's own widths are untouched.
TEST(GridView, CutTextsShowInATooltipAndColumnsCanBeWidenedAndFitted) {
    App();
    ReportSheet sheet(5, 4);
    sheet.SetColWidth(0, 300);
    for (int c = 1; c < 4; ++c)
        sheet.SetColWidth(c, 200);
    sheet.SetText(0, 2, "Addition Box");
    sheet.SetText(2, 2, "1974");
    sheet.SetText(3, 2, "7");
    sheet.SetText(2, 0, " 20200101:123");
    GridView view;
    Show(view, sheet, 600);
    auto tipAt = [](QWidget* viewport, QPoint pos) {
        QToolTip::hideText();  // goes after a short delay
        QElapsedTimer waited;
        waited.start();
        while (QToolTip::isVisible() && waited.elapsed() < 2000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QHelpEvent help(QEvent::ToolTip, pos, viewport->mapToGlobal(pos));
        QApplication::sendEvent(viewport, &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    QHeaderView* header = view.horizontalHeader();
    EXPECT_EQ(tipAt(view.viewport(), Centre(view, 2, 2)), "1974");
    EXPECT_EQ(tipAt(view.viewport(), Centre(view, 3, 2)), "");  // fits: no tooltip
    EXPECT_EQ(tipAt(header->viewport(), QPoint(header->sectionViewportPosition(1) + 3, 4)),
              "Addition Box");
    QHeaderView* labels = view.verticalHeader();
    EXPECT_EQ(tipAt(labels->viewport(), QPoint(4, labels->sectionViewportPosition(1) + 3)),
              " 20200101:123");

    // Dragging the edge of column 1 (section 0) to the right.
    const int edge = header->sectionViewportPosition(0) + header->sectionSize(0) - 1;
    const int y = header->height() / 2;
    testing::MouseEvents(header->viewport(), QPoint(edge, y), {QEvent::MouseButtonPress});
    QMouseEvent move(QEvent::MouseMove, QPointF(edge + 40, y),
                     header->viewport()->mapToGlobal(QPointF(edge + 40, y)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(header->viewport(), &move);
    testing::MouseEvents(header->viewport(), QPoint(edge + 40, y), {QEvent::MouseButtonRelease});
    const int widened = view.ColumnPixels(1);
    EXPECT_NEAR(widened, TwipsToPixelsX(&view, 200) + 40, 1);
    EXPECT_EQ(sheet.ColWidth(1), 200);

    // A double click on the edge of column 2 fits it to "Addition Box", its widest text.
    const int edge2 = header->sectionViewportPosition(1) + header->sectionSize(1) - 1;
    testing::MouseDoubleClick(header->viewport(), QPoint(edge2, y));
    EXPECT_GE(view.ColumnPixels(2), view.fontMetrics().horizontalAdvance("Addition Box"));
    EXPECT_EQ(tipAt(view.viewport(), Centre(view, 2, 2)), "");
    EXPECT_EQ(view.UserWidths().size(), 2u);

    view.SetZoom(200);
    EXPECT_NEAR(view.ColumnPixels(1), widened * 2, 3);
    view.SetSheet(&sheet);  // a sheet shown afresh takes its own widths
    EXPECT_EQ(view.ColumnPixels(2), TwipsToPixelsX(&view, 400));
}

TEST(GridView, TheLargestSheetOpensAtItsNewestRowsAndKeepsThemInSight) {
    App();
    // 215 columns by 32769 rows: what a view that made items per cell could not open at once.
    ReportSheet sheet(32769, 215);
    for (int r = 1; r < sheet.Rows(); r += 97)
        sheet.SetNumber(r, r % 215, r);
    const int last = sheet.Rows() - 1;
    sheet.SetCurrentCell(last, 1);
    sheet.SetTopRow(last);
    GridView view;
    Show(view, sheet, 800);
    QScrollBar* bar = view.verticalScrollBar();
    EXPECT_EQ(view.Model().rowCount(), 32768);
    EXPECT_EQ(bar->value(), bar->maximum());
    EXPECT_EQ(view.currentIndex(), view.Model().IndexOf(last, 1));
    // The window growing after it opened (as maximising does) keeps the newest rows in sight.
    view.resize(800, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar->value(), bar->maximum());
    view.SetCurrentCell(5, 4);
    view.SetCurrentCell(0, 2);  // fixed cells are never current
    EXPECT_EQ(sheet.CurrentRow() * 100 + sheet.CurrentCol(), 504);
}

// --- the platform's small helpers --------------------------------------------------------------

class RecordingLauncher final : public Launcher {
public:
    void Open(const QUrl& url) override { opened.push_back(url); }
    std::vector<QUrl> opened;
};

TEST(Platform, HelpPagesOpenOnlyWhenTheyExist) {
    App();
    testing::TempDir dir;
    ProgramFolder folder{dir.path()};
    std::filesystem::create_directories(folder.HelpDir());
    std::ofstream(folder.HelpPage("Sum_or_difference_of_Pairs ")) << "<html></html>";
    RecordingLauncher launcher;
    OpenHelpPage(launcher, folder, "Missing_Page");
    EXPECT_TRUE(launcher.opened.empty());
    // The name is used exactly, a blank before ".htm" included.
    OpenHelpPage(launcher, folder, "Sum_or_difference_of_Pairs ");
    ASSERT_EQ(launcher.opened.size(), 1u);
    EXPECT_TRUE(launcher.opened[0].toLocalFile().endsWith("help/Sum_or_difference_of_Pairs .htm"));
}

TEST(Platform, FiltersAreWrittenAsQtExpects) {
    for (const testing::Case& c : testing::ReadCases("platform/name_filters.txt"))
        EXPECT_EQ(QtNameFilter(QString::fromStdString(c.Text(0))),
                  QString::fromStdString(c.Text(1)))
            << c.where;
}

TEST(Platform, TextsFromUsersAndFilesAreShownAsPlainText) {
    App();
    const QString markup = QStringLiteral("Lottery:<h1>Big</h1> & <b>bold</b>.");
    QLabel label;
    SetPlainText(&label, markup);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.text(), markup);
    for (bool yesNo : {false, true}) {
        auto box = MakeMessageBox(nullptr, "Error:", markup, MessageIcon::Warning, yesNo);
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->text(), markup);
        EXPECT_EQ(box->windowTitle(), "Error:");
        EXPECT_EQ(box->buttons().size(), yesNo ? 2 : 1);
    }
}

// Counts the emissions of one signal.
struct Count {
    int count = 0;
    template <typename Signal>
    Count(GridView* grid, Signal signal) {
        QObject::connect(grid, signal, grid, [this] { ++count; });
    }
};

ReportSheet Sheet() {
    ReportSheet sheet(8, 6);
    for (int r = 0; r < 8; ++r)
        for (int c = 0; c < 6; ++c)
            sheet.SetNumber(r, c, r * 10 + c);
    sheet.SetColWidth(0, 1290);
    sheet.SetColWidth(2, 450);
    sheet.SetColWidth(4, 0);  // hidden at every zoom
    sheet.SetRowHeight(3, 600);
    return sheet;
}

TEST(GridZoom, StepsStayBetweenFiftyAndFourHundred) {
    for (const testing::Case& c : testing::ReadCases("platform/zoom_steps.txt"))
        EXPECT_EQ(NextZoomStep(c.Int(0), c.Int(1)), c.Int(2)) << c.where;
}

TEST(GridZoom, SizesComeFromTwipsAndDecipointsAndScaleTogetherAndBackExactly) {
    App();
    ReportSheet sheet = Sheet();
    sheet.SetColWidth(5, 2);  // a hidden store
    sheet.SetRowHeight(5, 2);
    GridView grid;
    grid.resize(600, 400);
    grid.SetSheet(&sheet);
    auto sizes = [&](auto pixels, int count) {
        std::vector<int> out;
        for (int i = 0; i < count; ++i)
            out.push_back((grid.*pixels)(i));
        return out;
    };
    const std::vector<int> cols = sizes(&GridView::ColumnPixels, 6),
                           rows = sizes(&GridView::RowPixels, 8);
    const double points = grid.font().pointSizeF();
    // The designed geometry at 100: twips and decipoints; 0 or 2 twips hide, unset is the default.
    EXPECT_EQ(cols[2], TwipsToPixelsX(&grid, 450));
    EXPECT_EQ(cols[4], 0);
    EXPECT_EQ(cols[5], 0);
    EXPECT_GT(cols[1], 0);
    EXPECT_EQ(rows[3], TwipsToPixelsY(&grid, 600));
    EXPECT_EQ(rows[5], 0);
    EXPECT_DOUBLE_EQ(points, 7.5);

    for (int zoom : {50, 200, 400}) {
        grid.SetZoom(zoom);
        EXPECT_DOUBLE_EQ(grid.font().pointSizeF(), points * zoom / 100) << zoom;
        for (int c = 0; c < 6; ++c)
            EXPECT_NEAR(grid.ColumnPixels(c), cols[c] * zoom / 100.0, 1.0) << zoom << " col " << c;
        for (int r = 0; r < 8; ++r)
            EXPECT_NEAR(grid.RowPixels(r), rows[r] * zoom / 100.0, 1.0) << zoom << " row " << r;
    }
    grid.SetZoom(100);  // back exactly, not by rounding each step
    EXPECT_EQ(grid.font().pointSizeF(), points);
    EXPECT_EQ(sizes(&GridView::ColumnPixels, 6), cols);
    EXPECT_EQ(sizes(&GridView::RowPixels, 8), rows);
    sheet.SetFontDecipoints(90);
    grid.SetSheet(&sheet);
    EXPECT_DOUBLE_EQ(grid.font().pointSizeF(), 9.0);
}

// Zooming keeps the current cell (keys, menu) or the cell under the pointer (Ctrl + wheel) where
// it was on the screen, also at the newest rows, where the view is scrolled to its end.
TEST(GridZoom, KeepsTheCurrentCellOrThePointersCellInPlace) {
    App();
    ReportSheet sheet(400, 30);
    for (int r = 1; r < sheet.Rows(); ++r)
        for (int c = 1; c < sheet.Cols(); ++c)
            sheet.SetNumber(r, c, r + c);
    const int last = sheet.Rows() - 1;
    sheet.SetCurrentCell(last - 3, 6);
    sheet.SetTopRow(last);
    GridView grid;
    Show(grid, sheet, 700, 400);
    const QModelIndex current = grid.currentIndex();
    ASSERT_TRUE(grid.viewport()->rect().contains(grid.visualRect(current).center()));
    for (int zoom : {150, 400, 200}) {
        const QPoint before = grid.visualRect(current).center();
        grid.SetZoom(zoom);
        EXPECT_NEAR(grid.visualRect(current).center().y(), before.y(), 2) << zoom;
        EXPECT_NEAR(grid.visualRect(current).center().x(), before.x(), 2) << zoom;
    }
    // Smaller than the view can scroll to: the cell moves, but stays in sight.
    grid.SetZoom(50);
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.visualRect(current)));
    grid.SetZoom(100);
    // Ctrl + wheel: the cell under the pointer, not the current one, stays.
    const QModelIndex pointed = grid.indexAt(QPoint(150, 120));
    ASSERT_NE(pointed.row(), current.row());
    const QPoint at = grid.visualRect(pointed).center() + QPoint(3, 2);
    QWheelEvent wheel(at, grid.viewport()->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(grid.viewport(), &wheel);
    EXPECT_EQ(grid.Zoom(), 110);
    EXPECT_EQ(grid.indexAt(at), pointed);
    EXPECT_EQ(grid.currentIndex(), current);
}

TEST(GridSelection, ShiftExtendsFromTheAnchorAndAPlainPressStartsAgain) {
    App();
    ReportSheet sheet = Sheet();
    GridView grid;
    Show(grid, sheet, 600, 400);
    Count pressed(&grid, &GridView::CellPressed);
    testing::MousePress(grid.viewport(), Centre(grid, 2, 2));
    EXPECT_EQ(pressed.count, 1);
    EXPECT_EQ(grid.Selection(), QRect(QPoint(2, 2), QPoint(2, 2)));

    // Shift + click: the block grows, no press is reported (no mark).
    QMouseEvent shiftClick(QEvent::MouseButtonPress, Centre(grid, 4, 3),
                           grid.viewport()->mapToGlobal(Centre(grid, 4, 3)), Qt::LeftButton,
                           Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(grid.viewport(), &shiftClick);
    EXPECT_EQ(pressed.count, 1);
    EXPECT_EQ(grid.Selection(), QRect(QPoint(2, 2), QPoint(3, 4)));

    Key(&grid, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(grid.Selection(), QRect(QPoint(2, 2), QPoint(5, 4)));  // over the hidden column
    for (int i = 0; i < 3; ++i)
        Key(&grid, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(grid.Selection(), QRect(QPoint(2, 1), QPoint(5, 2)));  // past the anchor

    Key(&grid, Qt::Key_Down, Qt::NoModifier);  // a plain move starts again
    EXPECT_EQ(grid.Selection().size(), QSize(1, 1));
}

TEST(GridSelection, CtrlASelectsTheWholeSheetUntilTheNextMoveAndHiddenColumnsAreNotShown) {
    App();
    ReportSheet sheet = Sheet();
    GridView grid;
    Show(grid, sheet, 600, 400);
    grid.SetCurrentCell(3, 2);
    Key(&grid, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(grid.Selection(), QRect(QPoint(1, 1), QPoint(5, 7)));
    EXPECT_EQ(sheet.CurrentRow() * 10 + sheet.CurrentCol(), 32);  // the current cell stays
    Key(&grid, Qt::Key_Down, Qt::NoModifier);
    EXPECT_EQ(grid.Selection(), QRect(QPoint(2, 4), QPoint(2, 4)));
    Key(&grid, Qt::Key_A, Qt::ControlModifier);
    testing::MousePress(grid.viewport(), grid.visualRect(grid.currentIndex()).center());
    EXPECT_EQ(grid.Selection().size(), QSize(1, 1));  // a click on the current cell ends it too
    // Column 4 is 0 twips wide; one 2 twips wide is as good as hidden; one dragged shut as well.
    EXPECT_EQ(grid.ShownColumns(0, 5), (std::vector<int>{0, 1, 2, 3, 5}));
    sheet.SetColWidth(3, 2);
    grid.horizontalHeader()->resizeSection(0, 0);
    EXPECT_EQ(grid.ShownColumns(1, 9), (std::vector<int>{2, 5}));

    // A report whose current cell is a fixed one has none in the grid: Ctrl+A still works.
    ReportSheet fixed = Sheet();
    fixed.SetCurrentCell(0, 0);
    GridView other;
    other.show();
    other.SetSheet(&fixed);
    ASSERT_FALSE(other.currentIndex().isValid());
    Key(&other, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(other.Selection(), QRect(QPoint(1, 1), QPoint(5, 7)));
}

// Save as CSV, Save as HTML and Copy with headers are run through a report window's menu.
TEST(GridMenu, OffersCopyAndTheZoomSteps) {
    App();
    ReportSheet sheet = Sheet();
    GridView grid;
    grid.SetSheet(&sheet);
    Count copy(&grid, &GridView::CopyRequested);
    std::unique_ptr<QMenu> menu(grid.BuildContextMenu(nullptr));
    auto trigger = [&](const QString& starts) {
        for (QAction* a : menu->actions())
            if (a->text().startsWith(starts)) {
                if (a->isEnabled()) a->trigger();
                return a->isEnabled();
            }
        ADD_FAILURE() << starts.toStdString();
        return false;
    };
    EXPECT_FALSE(trigger("Actual size"));  // already at 100
    EXPECT_FALSE(trigger("Zoom: 100 %"));  // the zoom level, shown and not a command
    EXPECT_TRUE(trigger("Copy"));
    EXPECT_TRUE(trigger("Zoom in"));
    EXPECT_EQ(copy.count, 1);
    EXPECT_EQ(grid.Zoom(), 110);
}

}  // namespace
}  // namespace numarel
