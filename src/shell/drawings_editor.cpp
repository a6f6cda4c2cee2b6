#include "shell/drawings_editor.h"

#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <QValidator>
#include <QWheelEvent>
#include <algorithm>

#include "platform/grid_view.h"
#include "platform/sheet_model.h"
#include "platform/twips.h"
#include "shell/import_dialog.h"
#include "shell/publisher.h"

namespace numarel {
namespace {

constexpr const char* kCaption = "Drawings";
constexpr const char* kLoadingCaption = "Loading......";
constexpr int kButtonLeft = 7440;
constexpr int kButtonWidth = 2175;
constexpr int kButtonHeight = 375;
// Date, H, T, U: the four columns fill the table's width beside its scroll bar.
constexpr int kColumnTwips[DrawingsTable::kCols] = {2160, 1190, 1190, 1190};

// The cell box holds one line: line breaks and other control characters, typed or pasted,
// become blanks, and a text longer than a cell takes is refused whole rather than cut.
class CellBoxValidator final : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int& /*pos*/) const override {
        if (input.size() > DrawingsTable::kMaxCellText) return Invalid;
        for (QChar& c : input)
            if (c.category() == QChar::Other_Control) c = QLatin1Char(' ');
        return Acceptable;
    }
};

}  // namespace

// --- DrawingsTableModel -----------------------------------------------------------------------

Status DrawingsTableModel::Load(const std::filesystem::path& path,
                                const std::array<std::string_view, DrawingsTable::kCols>& headers) {
    beginResetModel();
    headers_ = headers;
    Status s = table_.Load(path);
    endResetModel();
    return s;
}

void DrawingsTableModel::SetCell(int row, int col, const QString& text) {
    table_.SetCell(row, col, text.toStdString());
    QModelIndex i = index(row, col);
    emit dataChanged(i, i);
}

void DrawingsTableModel::AddAtEnd() {
    beginInsertRows({}, table_.RowCount(), table_.RowCount());
    table_.AddAtEnd();
    endInsertRows();
}

void DrawingsTableModel::InsertBefore(int row) {
    row = std::clamp(row, 0, table_.RowCount());
    beginInsertRows({}, row, row);
    table_.InsertBefore(row);
    endInsertRows();
}

int DrawingsTableModel::InsertDrawings(std::span<const DrawRecord> records) {
    const int at = static_cast<int>(table_.Drawings().size());
    if (records.empty()) return at;
    beginInsertRows({}, at, at + static_cast<int>(records.size()) - 1);
    table_.InsertDrawings(records);
    endInsertRows();
    return at;
}

void DrawingsTableModel::ReplaceWith(std::span<const DrawRecord> records) {
    beginResetModel();
    table_.ReplaceWith(records);
    endResetModel();
}

bool DrawingsTableModel::DeleteRow(int row) {
    if (row < 0 || row >= table_.RowCount() || table_.RowCount() <= 1) return false;
    beginRemoveRows({}, row, row);
    table_.DeleteRow(row);
    endRemoveRows();
    return true;
}

int DrawingsTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : table_.RowCount();
}

int DrawingsTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : DrawingsTable::kCols;
}

QVariant DrawingsTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) return {};
    return QString::fromStdString(table_.Cell(index.row(), index.column()));
}

QVariant DrawingsTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= DrawingsTable::kCols)
        return {};
    return ToQString(headers_[static_cast<std::size_t>(section)]);
}

// --- DrawingsEditor ---------------------------------------------------------------------------

DrawingsEditor::DrawingsEditor(Session& session, QWidget* parent)
    : QDialog(parent), session_(session) {
    setObjectName(QStringLiteral("Form1gxghzhu"));
    setWindowTitle(QString::fromLatin1(kCaption));
    setModal(true);
    // A fixed size: the controls stand where they were designed.
    setFixedSize(TwipsToPixelsX(this, kClientWidth), TwipsToPixelsY(this, kClientHeight));

    auto* methods = new QLabel(QStringLiteral("Please select one of the following methods"), this);
    methods->setObjectName(QStringLiteral("Label3"));
    QFont bold = methods->font();
    bold.setBold(true);
    methods->setFont(bold);
    methods->adjustSize();
    methods->move(TwipsToPixelsX(this, 1080), TwipsToPixelsY(this, 120));

    auto* editHint =
        new QLabel(QStringLiteral("1:Edit Drawings(You can edit after click on a cell)"), this);
    editHint->setObjectName(QStringLiteral("Label4"));
    editHint->adjustSize();
    editHint->move(TwipsToPixelsX(this, 1080), TwipsToPixelsY(this, 600));

    table_ = new QTableView(this);
    table_->setObjectName(QStringLiteral("MSFlexGrid1"));
    table_->setModel(&model_);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->horizontalHeader()->setSectionsClickable(false);
    table_->horizontalHeader()->setStretchLastSection(true);
    // Whole rows at the top, as the table scrolls by rows.
    table_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    // Shift + click or Shift + arrows select a block of rows for Delete.
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    PlaceAt(table_, 1080, 840, 6045, 2685);
    table_->installEventFilter(this);

    cellBox_ = new QLineEdit(table_->viewport());
    cellBox_->setObjectName(QStringLiteral("Text1"));
    cellBox_->setFrame(false);
    QPalette boxPalette = cellBox_->palette();
    boxPalette.setColor(QPalette::Base, ToQColor(kCellBoxBack));
    cellBox_->setPalette(boxPalette);
    cellBox_->hide();
    cellBox_->installEventFilter(this);
    zoom_ = 0;
    SetZoom(100);
    table_->viewport()->installEventFilter(this);
    cellBox_->setValidator(new CellBoxValidator(cellBox_));
    // One character more than a cell takes, so that a longer paste reaches the validator and is
    // refused with a message instead of being cut to fit.
    cellBox_->setMaxLength(DrawingsTable::kMaxCellText + 1);
    connect(cellBox_, &QLineEdit::inputRejected, this, &DrawingsEditor::RefuseLongText);

    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current, const QModelIndex& previous) {
                LeaveCell(previous);
                EnterCell(current);
            });
    connect(table_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &DrawingsEditor::PlaceCellBox);
    connect(table_->horizontalScrollBar(), &QScrollBar::valueChanged, this,
            &DrawingsEditor::PlaceCellBox);

    int top = 915;
    for (auto [control, caption, handler] :
         {std::tuple{"Command12", "Delete current row ", &DrawingsEditor::DeleteCurrentRow},
          std::tuple{"Command3", "Add at the end ", &DrawingsEditor::AddAtEnd},
          std::tuple{"Command11", "Add before current row ",
                     &DrawingsEditor::AddBeforeCurrentRow}}) {
        connect(AddButton(control, caption, kButtonLeft, top), &QPushButton::clicked, this,
                handler);
        top += 420;
    }
    connect(AddButton("Command16", "Export", kButtonLeft, 2280), &QPushButton::clicked, this,
            &DrawingsEditor::Export);
    connect(AddButton("Command17", "Import", kButtonLeft, 2680), &QPushButton::clicked, this,
            &DrawingsEditor::Import);
    connect(AddButton("Command13", "Save", kButtonLeft, 3100), &QPushButton::clicked, this,
            &DrawingsEditor::Save);
    connect(AddButton("Command18", "Edit Drawings Help", kButtonLeft, 3623), &QPushButton::clicked,
            this,
            [this] { OpenHelpPage(session_.platform.launcher, session_.folder, "Edit_Drawings"); });
    connect(AddButton("Command14", "Download", kButtonLeft, 4440), &QPushButton::clicked, this,
            &DrawingsEditor::Download);
    connect(AddButton("Command15", "Data Download Help", kButtonLeft, 4860), &QPushButton::clicked,
            this, [this] {
                OpenHelpPage(session_.platform.launcher, session_.folder,
                             "Data_Download-Data_Import");
            });
    connect(AddButton("Command10", "Exit", kButtonLeft, 6240), &QPushButton::clicked, this,
            &DrawingsEditor::AskAndExit);

    // Published results come in through the table's own menu, beside the designed buttons.
    importResults_ = new QAction(QStringLiteral("Import results..."), this);
    importResults_->setObjectName(QStringLiteral("caiImportResults"));
    importResults_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_I));
    importResults_->setShortcutContext(Qt::WindowShortcut);
    addAction(importResults_);
    connect(importResults_, &QAction::triggered, this, &DrawingsEditor::ImportResults);
    auto* tableMenu = new QMenu(this);
    tableMenu->setObjectName(QStringLiteral("caiTable"));
    tableMenu->addAction(importResults_);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(table_, &QWidget::customContextMenuRequested, this,
            [this, tableMenu](const QPoint& pos) {
                tableMenu->popup(table_->viewport()->mapToGlobal(pos));
            });

    lotteryLabel_ = new QLabel(this);
    lotteryLabel_->setObjectName(QStringLiteral("Label6"));
    SetPlainText(lotteryLabel_, ToQString(session_.lotteryLabel));
    lotteryLabel_->move(TwipsToPixelsX(this, 1080), TwipsToPixelsY(this, 3720));

    auto* downloadHint = new QLabel(
        QStringLiteral(
            "2:Data Download (Note:You must be connected to the internet to download data.)"),
        this);
    downloadHint->setObjectName(QStringLiteral("Label5"));
    downloadHint->setWordWrap(true);
    PlaceAt(downloadHint, 1080, 4680, 6120, 480);
    downloadHint->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    Reload(DrawingsTable::kLoadHeaders);
}

QPushButton* DrawingsEditor::AddButton(const char* control, const char* caption, int left,
                                       int top) {
    auto* button = new QPushButton(QString::fromLatin1(caption), this);
    button->setObjectName(QLatin1String(control));
    // Enter belongs to the table and the box, never to a button.
    button->setAutoDefault(false);
    button->setDefault(false);
    PlaceAt(button, left, top, kButtonWidth, kButtonHeight);
    return button;
}

void DrawingsEditor::Reload(const std::array<std::string_view, DrawingsTable::kCols>& headers) {
    table_->hide();
    cellBox_->hide();
    cellBox_->clear();
    setWindowTitle(QString::fromLatin1(kLoadingCaption));
    {
        WaitCursor hourglass;
        loadStatus_ = model_.Load(session_.drawingsPath, headers);
    }
    table_->show();
    setWindowTitle(QString::fromLatin1(kCaption));
    QModelIndex last = model_.index(model_.rowCount() - 1, 0);
    table_->setCurrentIndex(last);
    table_->scrollTo(last);
    EnterCell(last);
}

void DrawingsEditor::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    PlaceCellBox();
    if (!loadStatus_.ok()) {
        Status failed = loadStatus_;
        loadStatus_ = Status::Ok();
        ShowError(failed);
    }
}

void DrawingsEditor::EnterCell(const QModelIndex& index) {
    cellBox_->clear();
    if (!index.isValid()) {
        cellBox_->hide();
        return;
    }
    PlaceCellBox();
    cellBox_->show();
}

void DrawingsEditor::LeaveCell(const QModelIndex& index) {
    if (index.isValid() && !cellBox_->text().isEmpty())
        model_.SetCell(index.row(), index.column(), cellBox_->text());
    // The focus goes back to the table, not on to the next button.
    if (cellBox_->hasFocus()) table_->setFocus();
    cellBox_->hide();
}

void DrawingsEditor::CommitCellBox() {
    QModelIndex current = table_->currentIndex();
    LeaveCell(current);
    EnterCell(current);
}

void DrawingsEditor::PlaceCellBox() {
    QRect rect = table_->visualRect(table_->currentIndex());
    if (rect.isValid()) cellBox_->setGeometry(rect.adjusted(0, 0, -1, -1));
}

std::vector<int> DrawingsEditor::SelectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : table_->selectionModel()->selectedIndexes())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void DrawingsEditor::DeleteCurrentRow() {
    QModelIndex current = table_->currentIndex();
    if (!current.isValid()) return;
    const std::vector<int> rows = SelectedRows();
    if (rows.size() > 1) {
        DeleteRows(rows);
        return;
    }
    CommitCellBox();
    cellBox_->clear();
    int row = current.row();
    int col = current.column();
    if (!model_.DeleteRow(row)) return;
    QModelIndex next = model_.index(std::min(row, model_.rowCount() - 1), col);
    table_->setCurrentIndex(next);
    EnterCell(next);
}

void DrawingsEditor::DeleteRows(const std::vector<int>& rows) {
    const QString question = QStringLiteral("Delete the %1 selected rows?").arg(rows.size());
    if (!session_.platform.messages.AskYesNo(this, QStringLiteral("Query:"), question,
                                             MessageIcon::Question))
        return;
    CommitCellBox();
    cellBox_->clear();
    const int col = std::max(0, table_->currentIndex().column());
    // From the bottom up, so that the rows above keep their numbers; the table keeps one row.
    for (auto it = rows.rbegin(); it != rows.rend(); ++it)
        model_.DeleteRow(*it);
    table_->clearSelection();
    QModelIndex next = model_.index(std::min(rows.front(), model_.rowCount() - 1), col);
    table_->setCurrentIndex(next);
    EnterCell(next);
}

void DrawingsEditor::AddAtEnd() {
    CommitCellBox();
    model_.AddAtEnd();
    table_->scrollToBottom();
    PlaceCellBox();
}

void DrawingsEditor::AddBeforeCurrentRow() {
    QModelIndex current = table_->currentIndex();
    if (!current.isValid()) return;
    CommitCellBox();
    int row = current.row();
    int col = current.column();
    model_.InsertBefore(row);
    // The new empty row takes the current row's place, ready to be typed into.
    QModelIndex fresh = model_.index(row, col);
    table_->setCurrentIndex(fresh);
    EnterCell(fresh);
}

void DrawingsEditor::Save() {
    setWindowTitle(QStringLiteral("Saving,Please wait......"));
    Status s;
    {
        WaitCursor hourglass;
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        s = model_.Table().Save(session_.drawingsPath);
    }
    // Another program wrote the file since it was read here: the user decides.
    if (s.code() == Status::Code::Changed &&
        session_.platform.messages.AskYesNo(
            this, QStringLiteral("Query:"),
            QString::fromStdString(s.message()) +
                QStringLiteral("\nSave anyway, and replace those changes with the table?"),
            MessageIcon::Warning)) {
        WaitCursor hourglass;
        s = model_.Table().Save(session_.drawingsPath, true);
    } else if (s.code() == Status::Code::Changed) {
        setWindowTitle(QString::fromLatin1(kCaption));
        return;
    }
    if (!s.ok()) {
        setWindowTitle(QString::fromLatin1(kCaption));
        ShowError(s);
        return;
    }
    setWindowTitle(QStringLiteral("OK!"));
    session_.platform.messages.Show(this, QString::fromLatin1(kFriendshipTip),
                                    QStringLiteral("OK!"), MessageIcon::Information);
    setWindowTitle(QString::fromLatin1(kCaption));
}

void DrawingsEditor::Export() {
    FileDialogRequest request;
    request.title = QStringLiteral("Please specify a folder.");
    request.filter = QStringLiteral("data file|*.txt");
    request.folder = StartFolder();
    request.presetName = ToQString(ExportPresetName(session_.lotteryLabel));
    QString chosen = session_.platform.files.SaveFile(this, request);
    if (chosen.isEmpty()) return;
    RememberFolder(chosen);
    Status s = CopyDrawingsFile(session_.drawingsPath, chosen.toStdString());
    if (!s.ok()) {
        ShowError(s);
        return;
    }
    session_.platform.messages.Show(
        this, QString::fromLatin1(kFriendshipTip),
        QStringLiteral("The program has been exported.The store path:") + chosen + QLatin1Char('.'),
        MessageIcon::Information);
}

void DrawingsEditor::Import() {
    if (!session_.platform.messages.AskYesNo(
            this, QString::fromLatin1(kFriendshipTip),
            QStringLiteral("The program overwrites the contents of the table with the imported "
                           "data.\nAre you sure you want to import?"),
            MessageIcon::Warning))
        return;
    FileDialogRequest request;
    request.title = QStringLiteral("Please locate the valid data file.");
    request.filter = QStringLiteral("data file|*.txt");
    request.folder = StartFolder();
    QString chosen = session_.platform.files.OpenFile(this, request);
    if (chosen.isEmpty()) return;
    RememberFolder(chosen);
    Status s = ImportDrawingsFile(chosen.toStdString(), session_.drawingsPath);
    if (!s.ok()) {
        ShowError(s);
        return;
    }
    Reload(DrawingsTable::kImportHeaders);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (!loadStatus_.ok()) {
        Status failed = loadStatus_;
        loadStatus_ = Status::Ok();
        ShowError(failed);
        return;
    }
    session_.platform.messages.Show(this, QString::fromLatin1(kFriendshipTip),
                                    QStringLiteral("The program has been imported."),
                                    MessageIcon::Information);
}

void DrawingsEditor::ImportResults() {
    CommitCellBox();
    std::span<const DrawRecord> drawings = model_.Table().Drawings();
    ImportDialog dialog(session_, {drawings.begin(), drawings.end()}, this);
    if (!session_.platform.dialogs.Run(dialog)) return;
    const std::vector<DrawRecord>& added = dialog.Plan().added;
    if (added.empty()) return;
    int first = 0;
    if (dialog.ReplaceTable())
        model_.ReplaceWith(added);
    else
        first = model_.InsertDrawings(added);
    // The last new drawing current, ready to be checked; Save writes them as always.
    QModelIndex last = model_.index(first + static_cast<int>(added.size()) - 1, 0);
    table_->setCurrentIndex(last);
    table_->scrollTo(last);
    EnterCell(last);
    // They are in the table only: the file changes with Save.
    const QString count = added.size() == 1 ? QStringLiteral("1 drawing was")
                                            : QStringLiteral("%1 drawings were").arg(added.size());
    session_.platform.messages.Show(
        this, QString::fromLatin1(kFriendshipTip),
        count +
            (dialog.ReplaceTable() ? QStringLiteral(" put in place of the table's drawings.")
                                   : QStringLiteral(" added to the table.")) +
            QStringLiteral(" Save keeps them; Exit without Save leaves the file as it was."),
        MessageIcon::Information);
}

void DrawingsEditor::Download() {
    if (!session_.platform.messages.AskYesNo(
            this, QString::fromLatin1(kFriendshipTip),
            QStringLiteral("Before starting the download, make sure you have connected to the "
                           "Internet. \nAre you sure you want to download?"),
            MessageIcon::Warning))
        return;
    session_.platform.launcher.Open(QUrl(QString::fromLatin1(publisher::kDataPage)));
}

void DrawingsEditor::AskAndExit() {
    if (session_.platform.messages.AskYesNo(
            this, QStringLiteral("Query:"),
            QStringLiteral("If you have edited the data,make sure you have saved,Are you sure you "
                           "want to quit?"),
            MessageIcon::Question))
        accept();
}

void DrawingsEditor::SetZoom(int percent) {
    percent = std::clamp(percent, GridView::kMinZoom, GridView::kMaxZoom);
    if (percent == zoom_) return;
    zoom_ = percent;
    auto zoomed = [this](int twips) { return (twips * zoom_ + 50) / 100; };
    QFont font = DesignFont(8.25 * zoom_ / 100.0);
    table_->setFont(font);
    table_->horizontalHeader()->setFont(font);
    cellBox_->setFont(font);
    table_->verticalHeader()->setDefaultSectionSize(TwipsToPixelsY(this, zoomed(255)));
    for (int col = 0; col < DrawingsTable::kCols; ++col)
        table_->setColumnWidth(col, TwipsToPixelsX(this, zoomed(kColumnTwips[col])));
    PlaceCellBox();
}

void DrawingsEditor::RefuseLongText() {
    // Said once for a paste however often the box rejects it, after the box is done with it.
    if (refusalPending_) return;
    refusalPending_ = true;
    QTimer::singleShot(0, this, [this] {
        refusalPending_ = false;
        session_.platform.messages.Show(this, QString::fromLatin1(kFriendshipTip),
                                        QStringLiteral("A cell takes at most %1 characters; the "
                                                       "text was not taken.")
                                            .arg(DrawingsTable::kMaxCellText),
                                        MessageIcon::Warning);
    });
}

void DrawingsEditor::ShowError(const Status& status) {
    session_.platform.messages.Show(this, QStringLiteral("Error:"), ToQString(status.message()),
                                    MessageIcon::Warning);
}

void DrawingsEditor::MoveToNeighbourCell(int step) {
    QModelIndex current = table_->currentIndex();
    if (!current.isValid()) return;
    // Cells count along the rows: after U comes the Date of the next row.
    const int cols = DrawingsTable::kCols;
    const int cell =
        std::clamp(current.row() * cols + current.column() + step, 0, model_.rowCount() * cols - 1);
    QModelIndex next = model_.index(cell / cols, cell % cols);
    if (next != current) {
        table_->setCurrentIndex(next);
        table_->scrollTo(next);
    } else {
        CommitCellBox();
    }
    cellBox_->setFocus();
}

void DrawingsEditor::keyPressEvent(QKeyEvent* event) {
    // Escape would close the editor past the question about unsaved edits.
    if (event->key() == Qt::Key_Escape) return;
    QDialog::keyPressEvent(event);
}

bool DrawingsEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_->viewport() && event->type() == QEvent::Wheel) {
        auto* wheel = static_cast<QWheelEvent*>(event);
        if (!(wheel->modifiers() & Qt::ControlModifier) || wheel->angleDelta().y() == 0)
            return QDialog::eventFilter(watched, event);
        SetZoom(NextZoomStep(zoom_, wheel->angleDelta().y() > 0 ? +1 : -1));
        return true;
    }
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if ((watched == table_ || watched == cellBox_) && ZoomForKey(zoom_, *key) != zoom_) {
        SetZoom(ZoomForKey(zoom_, *key));
        return true;
    }
    if (watched == table_ && cellBox_->isVisible() && !key->text().isEmpty() &&
        key->text().at(0).isPrint() && !(key->modifiers() & Qt::ControlModifier)) {
        // Typing on the table goes into the box over the current cell.
        cellBox_->setFocus();
        QCoreApplication::sendEvent(cellBox_, event);
        return true;
    }
    const bool tab = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
    if ((watched == cellBox_ && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) ||
        ((watched == cellBox_ || watched == table_) && tab)) {
        // Enter and Tab leave the cell for the next one, which is what puts the text into the
        // table; Shift+Tab goes back one cell.
        const bool back = key->key() == Qt::Key_Backtab || (key->modifiers() & Qt::ShiftModifier);
        MoveToNeighbourCell(tab && back ? -1 : +1);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace numarel
