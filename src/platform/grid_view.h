#pragma once

#include <QHeaderView>
#include <QRect>
#include <QTableView>
#include <map>
#include <vector>

#include "frame/report_sheet.h"
#include "platform/sheet_model.h"

class QKeyEvent;
class QMenu;

namespace numarel {

// Paints one fixed row or column of a sheet: the sheet's own colours where it set them, else the
// system's button face, with black lines around the cells.
class SheetHeader : public QHeaderView {
    Q_OBJECT
public:
    SheetHeader(Qt::Orientation orientation, QWidget* parent);
    // The thickness of the fixed row (height) or column (width), in pixels.
    void SetThickness(int pixels);
    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
    // A header text cut by its cell shows whole as a tooltip.
    bool viewportEvent(QEvent* event) override;

private:
    int thickness_ = 20;
};

// The zoom steps of a grid, in percent: the step after `percent` in `direction` (+1 or -1),
// between 50 and 400. Ctrl + wheel and Ctrl + "+" and "-" move between them, Ctrl + "0" returns to
// 100, the designed geometry.
int NextZoomStep(int percent, int direction);

// Whether a key press is one of the zoom keys, and the zoom it asks for from `percent`; the
// grid and the drawings editor share them. Returns `percent` for any other key.
int ZoomForKey(int percent, const QKeyEvent& event);

// The on-screen table behind a report sheet: a fixed header row and label column, per-cell back
// and fore colours, the lines between the cells in the sheet's grid colour, column widths and row
// heights from the sheet's twips, the sheet's font, the current cell and the first row shown. Cells
// are painted straight from the sheet through SheetModel, so the largest sheets open at once.
class GridView : public QTableView {
    Q_OBJECT
public:
    // Sizes the sheet leaves at -1.
    static constexpr int kDefaultColWidthTwips = 960;
    static constexpr int kDefaultRowHeightTwips = 240;
    // The colours a new sheet is drawn in.
    static constexpr Rgb kCellBack = MakeRgb(255, 255, 255);
    static constexpr Rgb kEmptyArea = MakeRgb(128, 128, 128);
    static constexpr Rgb kGridLine = MakeRgb(192, 192, 192);  // where the sheet sets none

    explicit GridView(QWidget* parent = nullptr);

    // Shows `sheet` (owned by the caller, kept alive while shown): its sizes, font, current cell
    // and first row shown.
    void SetSheet(ReportSheet* sheet);
    ReportSheet* Sheet() const { return model_->Sheet(); }
    SheetModel& Model() { return *model_; }

    // Moves the current cell; rows and columns count as in the sheet. The fixed row and column
    // cannot be current.
    void SetCurrentCell(int row, int col);
    // Scrolls so that sheet row `row` is the first scrollable row shown, as far as the end of the
    // sheet allows. Kept while the window settles its size, until the user scrolls.
    void SetTopRow(int row);
    // The first scrollable sheet row shown.
    int TopRow() const;
    // Repaints one cell after the sheet changed it.
    void RefreshCell(int row, int col) { model_->CellChanged(row, col); }

    // Widths the user gave columns by dragging a header edge or double-clicking it (fitted to
    // the texts), in twips at 100 %, by sheet column. They hold at every zoom while the sheet is
    // shown; the sheet's own widths stay the default of the next opening.
    const std::map<int, int>& UserWidths() const { return userWidths_; }

    // Pixel sizes of sheet columns and rows as shown.
    int ColumnPixels(int col) const;
    int RowPixels(int row) const;

    // Scales font, column widths and row heights together; 100 is the designed geometry.
    static constexpr int kMinZoom = 50;
    static constexpr int kMaxZoom = 400;
    int Zoom() const { return zoom_; }
    // Zooms keeping the current cell where it is on the screen (before the view is shown: the
    // first row shown stays the first).
    void SetZoom(int percent);
    // Zooms keeping the point `at` of the viewport over the same spot of the same cell, as
    // Ctrl + wheel does under the pointer.
    void ZoomAt(int percent, QPoint at);

    // The block of cells from the anchor (where the last plain click or move left the current
    // cell) to the current cell, which Shift + click and Shift + arrows extend. x is the sheet
    // column, y the sheet row.
    QRect Selection() const;
    // Ctrl+A: the selection becomes every scrollable cell of the sheet; the current cell stays.
    // Any move or click starts a new selection.
    void SelectWholeSheet();
    // The sheet columns from `left` to `right` that are shown: a column the sheet hides (2 twips
    // or less) or one the user dragged shut is left out.
    std::vector<int> ShownColumns(int left, int right) const;

    // The right-click menu: Copy, Save as CSV..., Save as HTML... and the zoom steps. The caller
    // shows and deletes it.
    QMenu* BuildContextMenu(QWidget* parent);

signals:
    // Ctrl+C or the menu's Copy: the selection is wanted on the clipboard.
    void CopyRequested();
    // The menu's Copy with headers: the same with the header row and the label column.
    void CopyWithHeadersRequested();
    // The menu's Save as CSV... and Save as HTML...
    void SaveCsvRequested();
    void SaveHtmlRequested();
    // Print... (also Ctrl+P) and Print preview of the context menu.
    void PrintRequested();
    void PrintPreviewRequested();
    // A mouse button went down on a cell; the current cell is already that cell. Sheet coordinates.
    void CellPressed(int row, int col);
    // A double click on a cell or on a header cell of the fixed row. Sheet coordinates.
    void CellDoubleClicked(int row, int col);
    // The zoom changed, in percent.
    void ZoomChanged(int percent);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    int sizeHintForColumn(int column) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void ApplySheetLayout();
    void ApplyTopRow();
    // Lays the sheet out at `percent`, keeping the cell `anchor` under the viewport point `at`.
    void ZoomKeeping(int percent, const QModelIndex& anchor, QPoint at);
    void StopFollowingTopRow() { followTopRow_ = false; }
    void PaintCorner(QWidget* corner);

    SheetModel* model_;
    SheetHeader* columns_;
    SheetHeader* rows_;
    QWidget* corner_ = nullptr;
    int topRow_ = 1;
    bool followTopRow_ = false;
    int zoom_ = 100;
    QPoint anchor_{1, 1};      // sheet column, row
    bool extending_ = false;   // the current cell moves with Shift: the anchor stays
    bool wholeSheet_ = false;  // Ctrl+A
    std::map<int, int> userWidths_;
};

// Whether `text` is cut when painted in a cell `width` pixels wide with `metrics`.
bool TextIsCut(const QFontMetrics& metrics, const QString& text, int width);

// Fills one cell of a sheet: its colours, its text centred (left-aligned where it does not fit),
// the grid lines on its right and bottom edges.
void PaintSheetCell(QPainter* painter, const QRect& rect, const QString& text, const QColor& back,
                    const QColor& fore, const QColor& line, bool leftAligned);

}  // namespace numarel
