#include "platform/grid_view.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include "platform/twips.h"

namespace numarel {
namespace {

constexpr int kTextMargin = 2;

QString ToQStringOf(const ReportSheet& sheet, int row, int col) {
    return sheet.IsEmpty(row, col) ? QString() : QString::fromStdString(sheet.Text(row, col));
}

QColor ColourOr(const QVariant& value, const QColor& fallback) {
    return value.isValid() ? value.value<QColor>() : fallback;
}

// The colours of fixed cells come from the system, not from the widget's own palette, which
// paints the grey area behind the cells.
QColor ButtonFace() {
    return QApplication::palette().color(QPalette::Button);
}
QColor ButtonText() {
    return QApplication::palette().color(QPalette::ButtonText);
}

constexpr int kZoomSteps[] = {50, 67, 75, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400};

class SheetDelegate final : public QStyledItemDelegate {
public:
    explicit SheetDelegate(GridView* view) : QStyledItemDelegate(view), view_(view) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        static const QColor kBack = ToQColor(GridView::kCellBack);
        const Rgb line = static_cast<const SheetModel*>(index.model())->GridColour();
        painter->save();
        painter->setFont(option.font);
        PaintSheetCell(painter, option.rect, index.data(Qt::DisplayRole).toString(),
                       ColourOr(index.data(Qt::BackgroundRole), kBack),
                       ColourOr(index.data(Qt::ForegroundRole), Qt::black),
                       ToQColor(line == kDefaultColour ? GridView::kGridLine : line), false);
        if (option.state & QStyle::State_HasFocus) {
            QPen pen(Qt::black, 1, Qt::DotLine);
            painter->setPen(pen);
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option.rect.adjusted(1, 1, -3, -3));
        }
        // A block of more than one cell is shaded; a single cell shows only its focus frame.
        QRect selection = view_->Selection();
        if (selection.width() * selection.height() > 1 &&
            selection.contains(SheetModel::SheetCol(index), SheetModel::SheetRow(index)))
            painter->fillRect(option.rect, QColor(0, 90, 200, 70));
        painter->restore();
    }

private:
    GridView* view_;
};

}  // namespace

int NextZoomStep(int percent, int direction) {
    if (direction > 0) {
        for (int step : kZoomSteps)
            if (step > percent) return step;
        return GridView::kMaxZoom;
    }
    for (auto it = std::rbegin(kZoomSteps); it != std::rend(kZoomSteps); ++it)
        if (*it < percent) return *it;
    return GridView::kMinZoom;
}

int ZoomForKey(int percent, const QKeyEvent& event) {
    if (!(event.modifiers() & Qt::ControlModifier)) return percent;
    switch (event.key()) {
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return NextZoomStep(percent, +1);
        case Qt::Key_Minus:
            return NextZoomStep(percent, -1);
        case Qt::Key_0:
            return 100;
        default:
            return percent;
    }
}

bool TextIsCut(const QFontMetrics& metrics, const QString& text, int width) {
    return !text.isEmpty() && metrics.horizontalAdvance(text) > width - 2 * kTextMargin - 1;
}

namespace {

// Shows the whole of a cut text at `pos` (global), or hides a tooltip shown before.
bool ShowCutText(QWidget* widget, const QPoint& global, const QString& text, const QRect& cell) {
    if (TextIsCut(widget->fontMetrics(), text, cell.width())) {
        QToolTip::showText(global, text, widget, cell);
    } else {
        QToolTip::hideText();
    }
    return true;
}

}  // namespace

void PaintSheetCell(QPainter* painter, const QRect& rect, const QString& text, const QColor& back,
                    const QColor& fore, const QColor& line, bool leftAligned) {
    if (rect.width() <= 0 || rect.height() <= 0) return;
    painter->fillRect(rect, back);
    if (!text.isEmpty()) {
        QRect textRect = rect.adjusted(kTextMargin, 0, -kTextMargin - 1, -1);
        bool fits = painter->fontMetrics().horizontalAdvance(text) <= textRect.width();
        int align = (leftAligned || !fits ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter;
        painter->setPen(fore);
        painter->drawText(textRect, align | Qt::TextSingleLine, text);
    }
    painter->setPen(line);
    painter->drawLine(rect.topRight(), rect.bottomRight());
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
}

// --- SheetHeader ------------------------------------------------------------------------------

SheetHeader::SheetHeader(Qt::Orientation orientation, QWidget* parent)
    : QHeaderView(orientation, parent) {
    setMinimumSectionSize(0);
    setSectionResizeMode(QHeaderView::Fixed);
    setHighlightSections(false);
    setSectionsClickable(false);
    setDefaultAlignment(orientation == Qt::Horizontal ? Qt::AlignCenter
                                                      : Qt::AlignLeft | Qt::AlignVCenter);
}

void SheetHeader::SetThickness(int pixels) {
    thickness_ = pixels;
    updateGeometry();
}

QSize SheetHeader::sizeHint() const {
    // The length along the header is whatever the view gives it; only the thickness counts.
    return orientation() == Qt::Horizontal ? QSize(100, thickness_) : QSize(thickness_, 100);
}

void SheetHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    if (!model()) return;
    Qt::Orientation o = orientation();
    painter->save();
    painter->setFont(font());
    PaintSheetCell(painter, rect, model()->headerData(logicalIndex, o, Qt::DisplayRole).toString(),
                   ColourOr(model()->headerData(logicalIndex, o, Qt::BackgroundRole), ButtonFace()),
                   ColourOr(model()->headerData(logicalIndex, o, Qt::ForegroundRole), ButtonText()),
                   Qt::black, o == Qt::Vertical);
    painter->restore();
}

bool SheetHeader::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !model()) return QHeaderView::viewportEvent(event);
    auto* help = static_cast<QHelpEvent*>(event);
    const int section = logicalIndexAt(help->pos());
    if (section < 0) {
        QToolTip::hideText();
        return true;
    }
    const QString text = model()->headerData(section, orientation()).toString();
    const int at = sectionViewportPosition(section);
    const QRect cell = orientation() == Qt::Horizontal
                           ? QRect(at, 0, sectionSize(section), viewport()->height())
                           : QRect(0, at, viewport()->width(), sectionSize(section));
    return ShowCutText(viewport(), help->globalPos(), text, cell);
}

// --- GridView ---------------------------------------------------------------------------------

GridView::GridView(QWidget* parent)
    : QTableView(parent),
      model_(new SheetModel(this)),
      columns_(new SheetHeader(Qt::Horizontal, this)),
      rows_(new SheetHeader(Qt::Vertical, this)) {
    setHorizontalHeader(columns_);
    setVerticalHeader(rows_);
    setModel(model_);
    setItemDelegate(new SheetDelegate(this));
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setAutoScroll(false);

    QPalette grey = palette();
    grey.setColor(QPalette::Base, ToQColor(kEmptyArea));
    grey.setColor(QPalette::Window, ToQColor(kEmptyArea));
    setPalette(grey);
    for (QHeaderView* header :
         {static_cast<QHeaderView*>(columns_), static_cast<QHeaderView*>(rows_)}) {
        header->setPalette(grey);
        header->viewport()->setAutoFillBackground(true);
        header->viewport()->setBackgroundRole(QPalette::Base);
    }
    corner_ = findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    if (corner_) corner_->installEventFilter(this);

    connect(this, &QAbstractItemView::pressed, this, [this](const QModelIndex& index) {
        StopFollowingTopRow();
        emit CellPressed(SheetModel::SheetRow(index), SheetModel::SheetCol(index));
    });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        emit CellDoubleClicked(SheetModel::SheetRow(index), SheetModel::SheetCol(index));
    });
    connect(columns_, &QHeaderView::sectionDoubleClicked, this, [this](int section) {
        if (section >= 0) emit CellDoubleClicked(0, section + 1);
    });
    connect(verticalScrollBar(), &QAbstractSlider::actionTriggered, this,
            [this] { StopFollowingTopRow(); });
    // A column is widened by dragging its header edge and fitted by double-clicking the edge.
    columns_->setSectionResizeMode(QHeaderView::Interactive);
    connect(columns_, &QHeaderView::sectionResized, this, [this](int section, int, int size) {
        userWidths_[section + 1] = PixelsToTwipsX(this, size) * 100 / zoom_;
    });
}

int GridView::sizeHintForColumn(int column) const {
    // Fitted to the widest text among the header and the rows in view and around them.
    const ReportSheet* sheet = model_->Sheet();
    if (!sheet || column < 0) return -1;
    const QFontMetrics metrics(font());
    const int col = column + 1;
    int widest = metrics.horizontalAdvance(ToQStringOf(*sheet, 0, col));
    const int first = std::max(1, rows_->logicalIndexAt(0));
    const int last = std::min(sheet->Rows() - 1, first + 1000);
    for (int row = std::max(1, first - 1000); row <= last; ++row)
        widest = std::max(widest, metrics.horizontalAdvance(ToQStringOf(*sheet, row, col)));
    return widest + 2 * kTextMargin + 4;
}

bool GridView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    if (!index.isValid()) {
        QToolTip::hideText();
        return true;
    }
    return ShowCutText(viewport(), help->globalPos(), index.data().toString(), visualRect(index));
}

void GridView::SetSheet(ReportSheet* sheet) {
    userWidths_.clear();
    model_->SetSheet(sheet);
    if (!sheet) return;
    ApplySheetLayout();
    SetCurrentCell(sheet->CurrentRow(), sheet->CurrentCol());
    SetTopRow(sheet->TopRow());
}

void GridView::ApplySheetLayout() {
    const ReportSheet& sheet = *model_->Sheet();
    QFont font = DesignFont(sheet.FontDecipoints() * zoom_ / 1000.0);
    setFont(font);
    columns_->setFont(font);
    rows_->setFont(font);

    auto zoomed = [this](int twips) { return (twips * zoom_ + 50) / 100; };
    auto widthPx = [&](int twips) {
        return TwipsToPixelsX(this, zoomed(twips < 0 ? kDefaultColWidthTwips : twips));
    };
    auto heightPx = [&](int twips) {
        return TwipsToPixelsY(this, zoomed(twips < 0 ? kDefaultRowHeightTwips : twips));
    };
    // Sized in bulk without a relayout per section; the view is laid out once at the end.
    QSignalBlocker blockColumns(columns_);
    QSignalBlocker blockRows(rows_);
    columns_->setDefaultSectionSize(widthPx(-1));
    rows_->setDefaultSectionSize(heightPx(-1));
    rows_->SetThickness(widthPx(sheet.ColWidth(0)));
    columns_->SetThickness(heightPx(sheet.RowHeight(0)));
    for (int col = 1; col < sheet.Cols(); ++col) {
        auto user = userWidths_.find(col);
        int twips = user != userWidths_.end() ? user->second : sheet.ColWidth(col);
        if (twips < 0) continue;
        int px = widthPx(twips);
        if (px == 0)
            columns_->hideSection(col - 1);
        else
            columns_->resizeSection(col - 1, px);
    }
    for (auto [row, twips] : sheet.ExplicitRowHeights()) {
        if (row < 1 || row >= sheet.Rows()) continue;
        int px = heightPx(twips);
        if (px == 0)
            rows_->hideSection(row - 1);
        else
            rows_->resizeSection(row - 1, px);
    }
    updateGeometries();
    viewport()->update();
}

void GridView::SetCurrentCell(int row, int col) {
    QModelIndex index = model_->IndexOf(row, col);
    if (!index.isValid()) return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void GridView::SetTopRow(int row) {
    topRow_ = row;
    followTopRow_ = true;
    ApplyTopRow();
}

void GridView::ApplyTopRow() {
    int count = model_->rowCount();
    if (count == 0) return;
    updateGeometries();
    int section = std::clamp(topRow_ - 1, 0, count - 1);
    verticalScrollBar()->setValue(rows_->sectionPosition(section));
}

int GridView::TopRow() const {
    int section = rows_->logicalIndexAt(0);
    return section < 0 ? 0 : section + 1;
}

int GridView::ColumnPixels(int col) const {
    if (col == 0) return rows_->sizeHint().width();
    return columns_->isSectionHidden(col - 1) ? 0 : columns_->sectionSize(col - 1);
}

int GridView::RowPixels(int row) const {
    if (row == 0) return columns_->sizeHint().height();
    return rows_->isSectionHidden(row - 1) ? 0 : rows_->sectionSize(row - 1);
}

void GridView::SetZoom(int percent) {
    QModelIndex current = currentIndex();
    QPoint at = current.isValid() ? visualRect(current).center() : QPoint();
    ZoomKeeping(percent, current, at);
}

void GridView::ZoomAt(int percent, QPoint at) {
    QModelIndex under = indexAt(at);
    ZoomKeeping(percent, under.isValid() ? under : currentIndex(),
                under.isValid() ? at : visualRect(currentIndex()).center());
}

void GridView::ZoomKeeping(int percent, const QModelIndex& anchor, QPoint at) {
    percent = std::clamp(percent, kMinZoom, kMaxZoom);
    if (percent == zoom_) return;
    zoom_ = percent;
    if (!model_->Sheet()) return;
    // Before the window is shown (a remembered zoom), the first row shown is what counts.
    const bool keepCell = isVisible() && anchor.isValid() && viewport()->rect().contains(at);
    if (!keepCell) {
        int top = followTopRow_ ? topRow_ : TopRow();
        ApplySheetLayout();
        if (followTopRow_)
            ApplyTopRow();
        else if (top > 0)
            verticalScrollBar()->setValue(rows_->sectionPosition(top - 1));
        emit ZoomChanged(zoom_);
        return;
    }
    StopFollowingTopRow();
    // Where `at` falls inside the anchor cell, as a fraction, is kept across the new sizes.
    const QRect before = visualRect(anchor);
    const double fx = before.width() > 0 ? double(at.x() - before.x()) / before.width() : 0.5;
    const double fy = before.height() > 0 ? double(at.y() - before.y()) / before.height() : 0.5;
    ApplySheetLayout();
    const int row = anchor.row(), col = anchor.column();
    const int y = rows_->sectionPosition(row) + int(fy * rows_->sectionSize(row)) - at.y();
    const int x = columns_->sectionPosition(col) + int(fx * columns_->sectionSize(col)) - at.x();
    verticalScrollBar()->setValue(y);
    horizontalScrollBar()->setValue(x);
    emit ZoomChanged(zoom_);
}

QRect GridView::Selection() const {
    if (wholeSheet_) return QRect(1, 1, model_->columnCount(), model_->rowCount());
    QModelIndex current = currentIndex();
    if (!current.isValid()) return {};
    int col = SheetModel::SheetCol(current), row = SheetModel::SheetRow(current);
    return QRect(QPoint(std::min(col, anchor_.x()), std::min(row, anchor_.y())),
                 QPoint(std::max(col, anchor_.x()), std::max(row, anchor_.y())));
}

void GridView::SelectWholeSheet() {
    if (model_->rowCount() == 0 || model_->columnCount() == 0) return;
    wholeSheet_ = true;
    viewport()->update();
}

std::vector<int> GridView::ShownColumns(int left, int right) const {
    std::vector<int> shown;
    const ReportSheet* sheet = model_->Sheet();
    if (!sheet) return shown;
    for (int col = std::max(left, 0); col <= right && col < sheet->Cols(); ++col) {
        const int twips = sheet->ColWidth(col);
        if (twips >= 0 && twips <= 2) continue;
        if (col > 0 && (columns_->isSectionHidden(col - 1) || columns_->sectionSize(col - 1) == 0))
            continue;
        shown.push_back(col);
    }
    return shown;
}

QMenu* GridView::BuildContextMenu(QWidget* parent) {
    auto* menu = new QMenu(parent);
    menu->addAction(QStringLiteral("Copy\tCtrl+C"), this, &GridView::CopyRequested);
    menu->addAction(QStringLiteral("Copy with headers"), this, &GridView::CopyWithHeadersRequested);
    menu->addAction(QStringLiteral("Select all\tCtrl+A"), this, &GridView::SelectWholeSheet);
    menu->addAction(QStringLiteral("Save as CSV..."), this, &GridView::SaveCsvRequested);
    menu->addAction(QStringLiteral("Save as HTML..."), this, &GridView::SaveHtmlRequested);
    menu->addSeparator();
    menu->addAction(QStringLiteral("Print...\tCtrl+P"), this, &GridView::PrintRequested);
    menu->addAction(QStringLiteral("Print preview..."), this, &GridView::PrintPreviewRequested);
    menu->addSeparator();
    menu->addAction(QStringLiteral("Zoom: %1 %").arg(zoom_))->setEnabled(false);
    menu->addAction(QStringLiteral("Zoom in\tCtrl++"), this,
                    [this] { SetZoom(NextZoomStep(zoom_, +1)); })
        ->setEnabled(zoom_ < kMaxZoom);
    menu->addAction(QStringLiteral("Zoom out\tCtrl+-"), this,
                    [this] { SetZoom(NextZoomStep(zoom_, -1)); })
        ->setEnabled(zoom_ > kMinZoom);
    menu->addAction(QStringLiteral("Actual size (100 %)\tCtrl+0"), this, [this] { SetZoom(100); })
        ->setEnabled(zoom_ != 100);
    return menu;
}

void GridView::mousePressEvent(QMouseEvent* event) {
    // Shift + click extends the selection; it neither marks a cell nor counts as a press.
    if (event->button() == Qt::LeftButton && (event->modifiers() & Qt::ShiftModifier)) {
        QModelIndex index = indexAt(event->position().toPoint());
        if (index.isValid()) {
            StopFollowingTopRow();
            extending_ = true;
            selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
            extending_ = false;
            viewport()->update();
        }
        event->accept();
        return;
    }
    if (event->button() == Qt::LeftButton && wholeSheet_) {
        wholeSheet_ = false;
        viewport()->update();
    }
    QTableView::mousePressEvent(event);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = BuildContextMenu(this);
    menu->exec(event->globalPos());
    delete menu;
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (current.isValid() && !extending_) {
        bool wasBlock = Selection().width() * Selection().height() > 1;
        wholeSheet_ = false;
        anchor_ = QPoint(SheetModel::SheetCol(current), SheetModel::SheetRow(current));
        if (wasBlock) viewport()->update();
    } else if (extending_) {
        if (wholeSheet_) anchor_ = QPoint(1, 1);
        wholeSheet_ = false;
        viewport()->update();
    }
    if (ReportSheet* sheet = model_->Sheet(); sheet && current.isValid())
        sheet->SetCurrentCell(SheetModel::SheetRow(current), SheetModel::SheetCol(current));
}

void GridView::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (followTopRow_) ApplyTopRow();
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    if (followTopRow_) ApplyTopRow();
}

void GridView::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier) {
        int dy = event->angleDelta().y();
        if (dy != 0) ZoomAt(NextZoomStep(zoom_, dy > 0 ? +1 : -1), event->position().toPoint());
        event->accept();
        return;
    }
    StopFollowingTopRow();
    QTableView::wheelEvent(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (int zoom = ZoomForKey(zoom_, *event); zoom != zoom_) {
        SetZoom(zoom);
        return;
    }
    if (event->matches(QKeySequence::Copy)) {
        emit CopyRequested();
        return;
    }
    if (event->matches(QKeySequence::SelectAll)) {
        SelectWholeSheet();
        return;
    }
    if (event->matches(QKeySequence::Print)) {
        emit PrintRequested();
        return;
    }
    StopFollowingTopRow();
    // The current cell moves with the keys and the view follows it; with Shift it drags the
    // selection along.
    extending_ = event->modifiers() & Qt::ShiftModifier;
    setAutoScroll(true);
    QTableView::keyPressEvent(event);
    setAutoScroll(false);
    extending_ = false;
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    // The corner cell (0, 0) is Qt's corner button, painted here as a fixed cell.
    if (watched == corner_ && event->type() == QEvent::Paint) {
        PaintCorner(corner_);
        return true;
    }
    return QTableView::eventFilter(watched, event);
}

void GridView::PaintCorner(QWidget* corner) {
    QPainter painter(corner);
    painter.setFont(font());
    const ReportSheet* sheet = model_->Sheet();
    QString text = sheet ? QString::fromStdString(sheet->Text(0, 0)) : QString();
    Rgb back = sheet ? sheet->BackColor(0, 0) : kDefaultColour;
    Rgb fore = sheet ? sheet->ForeColor(0, 0) : kDefaultColour;
    PaintSheetCell(&painter, corner->rect(), text,
                   back == kDefaultColour ? ButtonFace() : ToQColor(back),
                   fore == kDefaultColour ? ButtonText() : ToQColor(fore), Qt::black, true);
}

}  // namespace numarel
