#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QMenu>
#include <QWheelEvent>

#include "platform/grid_view.h"
#include "platform/twips.h"
#include "shell/qt_test_support.h"

namespace numarel {
namespace {

using testing::App;

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

void Key(QWidget* w, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(w, &press);
}

void CtrlWheel(QWidget* w, int dy) {
    QWheelEvent wheel(QPointF(5, 5), w->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, dy),
                      Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(w, &wheel);
}

TEST(GridZoom, StepsStayBetweenFiftyAndFourHundred) {
    struct Case {
        int from, direction, to;
    } cases[] = {{100, +1, 110}, {100, -1, 90}, {60, +1, 67},  {60, -1, 50},
                 {400, +1, 400}, {50, -1, 50},  {300, +1, 400}};
    for (const Case& c : cases)
        EXPECT_EQ(NextZoomStep(c.from, c.direction), c.to) << c.from << " " << c.direction;
}

TEST(GridZoom, FontWidthsAndHeightsScaleTogetherAndComeBackExactly) {
    App();
    ReportSheet sheet = Sheet();
    GridView grid;
    grid.resize(600, 400);
    grid.SetSheet(&sheet);
    std::vector<int> cols, rows;
    for (int c = 0; c < 6; ++c)
        cols.push_back(grid.ColumnPixels(c));
    for (int r = 0; r < 8; ++r)
        rows.push_back(grid.RowPixels(r));
    const double points = grid.font().pointSizeF();
    EXPECT_EQ(cols[2], TwipsToPixelsX(&grid, 450));  // the designed geometry at 100

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
    for (int c = 0; c < 6; ++c)
        EXPECT_EQ(grid.ColumnPixels(c), cols[c]);
    for (int r = 0; r < 8; ++r)
        EXPECT_EQ(grid.RowPixels(r), rows[r]);
}

TEST(GridZoom, CtrlWheelAndCtrlKeys) {
    App();
    ReportSheet sheet = Sheet();
    GridView grid;
    grid.SetSheet(&sheet);
    CtrlWheel(grid.viewport(), 120);
    EXPECT_EQ(grid.Zoom(), 110);
    CtrlWheel(grid.viewport(), -120);
    CtrlWheel(grid.viewport(), -120);
    EXPECT_EQ(grid.Zoom(), 90);
    Key(&grid, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(grid.Zoom(), 100);
    Key(&grid, Qt::Key_Minus, Qt::ControlModifier);
    Key(&grid, Qt::Key_0, Qt::ControlModifier);
    Key(&grid, Qt::Key_Plus, Qt::NoModifier);  // without Ctrl, not a zoom
    EXPECT_EQ(grid.Zoom(), 100);
}

TEST(GridSelection, ShiftExtendsFromTheAnchorAndAPlainPressStartsAgain) {
    App();
    ReportSheet sheet = Sheet();
    GridView grid;
    grid.resize(600, 400);
    grid.show();
    grid.SetSheet(&sheet);
    Count pressed(&grid, &GridView::CellPressed);
    auto centre = [&](int row, int col) {
        return grid.visualRect(grid.Model().IndexOf(row, col)).center();
    };
    testing::MousePress(grid.viewport(), centre(2, 2));
    EXPECT_EQ(pressed.count, 1);
    EXPECT_EQ(grid.Selection(), QRect(QPoint(2, 2), QPoint(2, 2)));

    // Shift + click: the block grows, no press is reported (no mark).
    QMouseEvent shiftClick(QEvent::MouseButtonPress, centre(4, 3),
                           grid.viewport()->mapToGlobal(centre(4, 3)), Qt::LeftButton,
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

    Count copy(&grid, &GridView::CopyRequested);
    Key(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copy.count, 1);
}

TEST(GridMenu, OffersCopySaveAndTheZoomSteps) {
    App();
    ReportSheet sheet = Sheet();
    GridView grid;
    grid.SetSheet(&sheet);
    Count copy(&grid, &GridView::CopyRequested);
    Count csv(&grid, &GridView::SaveCsvRequested);
    Count html(&grid, &GridView::SaveHtmlRequested);
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
    EXPECT_TRUE(trigger("Copy"));
    EXPECT_TRUE(trigger("Save as CSV"));
    EXPECT_TRUE(trigger("Save as HTML"));
    EXPECT_TRUE(trigger("Zoom in"));
    EXPECT_EQ(copy.count + csv.count + html.count, 3);
    EXPECT_EQ(grid.Zoom(), 110);
}

}  // namespace
}  // namespace numarel
