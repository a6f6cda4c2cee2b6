#include "shell/report_window.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSettings>
#include <vector>

#include "export/sheet_format.h"
#include "frame/frame_passes.h"
#include "platform/grid_view.h"
#include "platform/twips.h"
#include "reports/enquiry_other/number_enquiry.h"
#include "shell/enquiry_window.h"
#include "shell/print_dialog.h"

namespace numarel {
namespace {

constexpr const char* kLoadingCaption = "Loading......";

void ShowWithArrow(MessageBoxes& boxes, QWidget* parent, const QString& title,
                   const QString& text) {
    // A message shown while a caller still shows the hourglass gets the normal pointer.
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    boxes.Show(parent, title, text, MessageIcon::Warning);
    QApplication::restoreOverrideCursor();
}

QString Escaped(std::string_view caption) {
    return ToQString(caption).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

// --- ReportWindow -----------------------------------------------------------------------------

ReportWindow::ReportWindow(const ReportDefinition& definition, const CommandEntry* command,
                           Session& session)
    : QWidget(nullptr, Qt::Window),
      definition_(definition),
      command_(command),
      session_(session),
      grid_(new GridView(this)),
      exitButton_(new QPushButton(QStringLiteral("Exit"), this)),
      status_(new QLabel(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(ToQString(definition.object));
    // The first load order shows "Loading......" until the report is computed; the second shows
    // the report's own title from the start.
    setWindowTitle(definition.loadOrder == LoadOrder::ShowsLoading
                       ? QString::fromLatin1(kLoadingCaption)
                       : ToQString(definition.title));
    BuildControls();
}

ReportWindow::~ReportWindow() = default;

void ReportWindow::BuildControls() {
    connect(exitButton_, &QPushButton::clicked, this, &QWidget::close);

    const HelpButtonState help =
        HelpButtonOf(definition_, command_ ? command_->helpPage : std::string_view());
    if (help.shown) {
        helpButton_ = new QPushButton(QStringLiteral("Help"), this);
        if (!help.page.empty()) {
            std::string page(help.page);
            connect(helpButton_, &QPushButton::clicked, this, [this, page] {
                OpenHelpPage(session_.platform.launcher, session_.folder, page);
            });
        }
    }

    const numarel::ExtraButton& extra = definition_.extraButton;
    if (extra.kind != numarel::ExtraButton::Kind::None) {
        extraButton_ = new QPushButton(Escaped(extra.caption), this);
        connect(extraButton_, &QPushButton::clicked, this, &ReportWindow::OnExtraButton);
        if (extra.kind == numarel::ExtraButton::Kind::ToggleTextBox) {
            textBox_ = new QPlainTextEdit(this);
            textBox_->setReadOnly(true);
            textBox_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
            textBox_->setFont(DesignFont(9));
            textBox_->hide();
            PlaceAt(textBox_, 0, 0, kTextBoxWidth, kTextBoxHeight);
        }
    }

    connect(grid_, &GridView::CellPressed, this, &ReportWindow::OnCellPressed);
    connect(grid_, &GridView::CellDoubleClicked, this, &ReportWindow::OnCellDoubleClicked);
    connect(grid_, &GridView::CopyRequested, this, [this] { CopySelection(false); });
    connect(grid_, &GridView::CopyWithHeadersRequested, this, [this] { CopySelection(true); });
    connect(grid_, &GridView::ZoomChanged, this, &ReportWindow::OnZoomChanged);
    status_->setFont(DesignFont(9));
    status_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    status_->setTextFormat(Qt::PlainText);
    connect(grid_, &GridView::SaveCsvRequested, this, [this] { SaveSheetAs(false); });
    connect(grid_, &GridView::SaveHtmlRequested, this, [this] { SaveSheetAs(true); });
    connect(grid_, &GridView::PrintRequested, this, [this] { OpenPrintDialog(false); });
    connect(grid_, &GridView::PrintPreviewRequested, this, [this] { OpenPrintDialog(true); });
}

void ReportWindow::OpenPrintDialog(bool preview) {
    ReportPrintDialog dialog(sheet_, session_.drawingsPath.stem().string(), session_.platform.files,
                             session_.platform.messages, preview, this);
    session_.platform.dialogs.Run(dialog);
}

void ReportWindow::CopySelection(bool withHeaders) {
    QRect block = grid_->Selection();
    if (block.isEmpty()) return;
    std::vector<int> rows, cols = grid_->ShownColumns(block.left(), block.right());
    if (withHeaders) {
        rows.push_back(0);
        cols.insert(cols.begin(), 0);
    }
    for (int row = block.top(); row <= block.bottom(); ++row)
        rows.push_back(row);
    session_.platform.clipboard.SetTable(
        QString::fromStdString(FormatCellsTsv(sheet_, rows, cols)),
        QString::fromStdString(FormatCellsHtml(sheet_, rows, cols)));
    SayInStatus(QStringLiteral("Copied %1 x %2 cells%3")
                    .arg(rows.size())
                    .arg(cols.size())
                    .arg(withHeaders ? QStringLiteral(" with headers") : QString()));
}

void ReportWindow::SaveSheetAs(bool html) {
    FileDialogRequest request;
    request.title = html ? QStringLiteral("Save as HTML") : QStringLiteral("Save as CSV");
    request.filter = html ? QStringLiteral("HTML page|*.html") : QStringLiteral("CSV file|*.csv");
    request.presetName = ToQString(definition_.title) + (html ? ".html" : ".csv");
    request.folder = StartFolder();
    QString path = session_.platform.files.SaveFile(this, request);
    if (path.isEmpty()) return;
    RememberFolder(path);
    std::string text = html ? FormatSheetHtml(sheet_, definition_.object) : FormatSheetCsv(sheet_);
    Status s = WriteFileSafely(path.toStdString(), text);
    if (!s.ok()) {
        ShowError(ToQString(s.message()));
        return;
    }
    SayInStatus(QStringLiteral("Saved %1 x %2 cells to %3")
                    .arg(sheet_.Rows())
                    .arg(sheet_.Cols())
                    .arg(QDir::toNativeSeparators(path)));
}

void ReportWindow::SayInStatus(const QString& text) {
    status_->setText(text);
    status_->setToolTip(text);
    LayoutWindow();
}

QString ReportWindow::ZoomKey() const {
    return QStringLiteral("zoom/") + ToQString(definition_.object);
}

void ReportWindow::OnZoomChanged(int percent) {
    UserSettings()->setValue(ZoomKey(), percent);
    SayInStatus(QStringLiteral("Zoom %1 %").arg(percent));
}

Status ReportWindow::Load() {
    Status s;
    if (definition_.loadOrder == LoadOrder::ShowsLoading) {
        WaitCursor hourglass;
        s = RunReport(definition_, session_.drawingsPath, sheet_);
    } else {
        s = RunReport(definition_, session_.drawingsPath, sheet_);
    }
    if (!s.ok()) return s;
    setWindowTitle(ToQString(definition_.title));

    for (const SheetLabel& text : sheet_.Labels()) {
        auto* label = new QLabel(this);
        label->setFont(DesignFont(9));
        SetPlainText(label, ToQString(text.text));
        QPalette palette = label->palette();
        if (text.fore != kDefaultColour)
            palette.setColor(QPalette::WindowText, ToQColor(text.fore));
        if (text.back != kDefaultColour) {
            palette.setColor(QPalette::Window, ToQColor(text.back));
            label->setAutoFillBackground(true);
        }
        label->setPalette(palette);
        label->adjustSize();
        labels_.push_back(label);
    }
    grid_->SetSheet(&sheet_);
    // The zoom the user left this report at, the last time it was open.
    if (int zoom = UserSettings()->value(ZoomKey(), 100).toInt(); zoom != 100) {
        QSignalBlocker quiet(grid_);
        grid_->SetZoom(zoom);
        status_->setText(QStringLiteral("Zoom %1 %").arg(grid_->Zoom()));
    }
    if (textBox_) textBox_->raise();
    if (sheet_.DrawCount() == 0)
        SayInStatus(
            QStringLiteral("This lottery has no drawings yet: Drawings in the main window "
                           "opens the editor, where you type or import them."));
    const QSize design = DesignSizeTwips();
    resize(TwipsToPixelsX(this, design.width()), TwipsToPixelsY(this, design.height()));
    LayoutWindow();
    return Status::Ok();
}

void ReportWindow::ShowMaximizedCentred() {
    if (QScreen* screen = this->screen()) {
        QRect free = screen->availableGeometry();
        move(free.center() - rect().center());
    }
    showMaximized();
}

void ReportWindow::LayoutWindow() {
    const int clientWidth = PixelsToTwipsX(this, width());
    const int clientHeight = PixelsToTwipsY(this, height());
    const int sheetWidth = clientWidth - kMarginRight;
    const int sheetHeight = clientHeight - kMarginBelow;
    if (sheetWidth <= 0 || sheetHeight <= 0) return;

    PlaceAt(grid_, 0, 0, sheetWidth, sheetHeight);
    const int buttonTop = sheetHeight + 225;
    int right = sheetWidth;
    auto placeLeftOf = [&](QPushButton* button, int width) {
        PlaceAt(button, right - width, buttonTop, width, kButtonHeight);
        right -= width + kButtonGap;
    };
    placeLeftOf(exitButton_, kButtonWidth);
    if (extraButton_) {
        // The report's own button is as wide as its longer caption needs.
        const numarel::ExtraButton& extra = definition_.extraButton;
        QFontMetrics metrics(extraButton_->font());
        int textPx = std::max(metrics.horizontalAdvance(Escaped(extra.caption)),
                              metrics.horizontalAdvance(Escaped(extra.shownCaption)));
        placeLeftOf(extraButton_, std::max(kButtonWidth, PixelsToTwipsX(this, textPx) + 360));
    }
    if (helpButton_) placeLeftOf(helpButton_, kButtonWidth);
    // The status line fills what the buttons leave on their row.
    const int statusLeft = std::max(20, right - 7000);
    if (right - statusLeft > 0)
        PlaceAt(status_, statusLeft, buttonTop, right - statusLeft, kButtonHeight);

    int labelTop = sheetHeight + 120;
    for (QLabel* label : labels_) {
        QSize hint = label->sizeHint();
        label->setGeometry(TwipsToPixelsX(this, 20), TwipsToPixelsY(this, labelTop), hint.width(),
                           hint.height());
        labelTop += PixelsToTwipsY(this, hint.height()) + 40;
    }
}

void ReportWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    LayoutWindow();
}

void ReportWindow::OnCellPressed(int row, int col) {
    if (definition_.markColour == kDefaultColour) return;
    ToggleCellMark(sheet_, row, col, definition_.markColour);
    grid_->RefreshCell(row, col);
}

void ReportWindow::OnCellDoubleClicked(int /*row*/, int col) {
    if (!definition_.doubleClickText) return;
    const QString text = QString::fromStdString(definition_.doubleClickText(sheet_, col));
    session_.platform.clipboard.SetText(text);
    const int lines =
        text.isEmpty() ? 0 : int(text.count(QLatin1Char('\n'))) + !text.endsWith('\n');
    SayInStatus(QStringLiteral("Copied %1 Miss length%2 of column \"%3\"")
                    .arg(lines)
                    .arg(lines == 1 ? "" : "s")
                    .arg(ToQString(sheet_.Text(0, col)).trimmed()));
}

void ReportWindow::OnExtraButton() {
    const numarel::ExtraButton& extra = definition_.extraButton;
    if (extra.kind == numarel::ExtraButton::Kind::ToggleTextBox && textBox_) {
        if (textBox_->isVisible()) {
            textBox_->hide();
            extraButton_->setText(Escaped(extra.caption));
            return;
        }
        textBox_->setPlainText(extra.text ? QString::fromStdString(extra.text(sheet_)) : QString());
        textBox_->raise();
        textBox_->show();
        extraButton_->setText(Escaped(extra.shownCaption));
        return;
    }
    if (extra.kind == numarel::ExtraButton::Kind::ExportFile) {
        std::filesystem::path file = session_.folder.root / std::filesystem::path(extra.exportFile);
        std::error_code ec;
        std::filesystem::create_directories(file.parent_path(), ec);
        Status s = WriteFileSafely(file, extra.text ? extra.text(sheet_) : std::string());
        if (!s.ok()) {
            ShowError(ToQString(s.message()));
            return;
        }
        const QString written = QString::fromStdString(file.string());
        SayInStatus(QStringLiteral("Wrote %1").arg(QDir::toNativeSeparators(written)));
        session_.platform.launcher.Open(QUrl::fromLocalFile(written));
    }
}

void ReportWindow::ShowError(const QString& text) {
    ShowWithArrow(session_.platform.messages, this, QStringLiteral("Error:"), text);
}

ReportWindow* NewReportWindow(const ReportDefinition& definition, const CommandEntry* command,
                              Session& session) {
    if (definition.window == WindowKind::Enquiry)
        if (const NumberEnquiry* enquiry = FindNumberEnquiry(definition.object))
            return new EnquiryWindow(definition, *enquiry, command, session);
    return new ReportWindow(definition, command, session);
}

// --- ReportWindows ----------------------------------------------------------------------------

ReportWindow* ReportWindows::Find(std::string_view object) const {
    auto it = windows_.find(object);
    if (it == windows_.end() || !it->second) return nullptr;
    // A window closed by Exit is hidden at once but deleted only when the event loop comes round.
    ReportWindow* window = it->second.data();
    return window->isVisible() ? window : nullptr;
}

ReportWindow* ReportWindows::Open(std::string_view object, QWidget* messageParent) {
    if (ReportWindow* open = Find(object)) {
        if (open->isMinimized()) open->showMaximized();
        open->raise();
        open->activateWindow();
        return open;
    }
    const ReportDefinition* definition = lookup_(object);
    if (!definition) {
        ReportSheet unused;
        Status s = RunReport(object, session_.drawingsPath, unused);
        ShowWithArrow(session_.platform.messages, messageParent, QStringLiteral("Error:"),
                      ToQString(s.message()));
        return nullptr;
    }
    ReportWindow* window = NewReportWindow(*definition, FindCommand(object), session_);
    Status s = window->Load();
    if (!s.ok()) {
        delete window;
        ShowWithArrow(session_.platform.messages, messageParent, QStringLiteral("Error:"),
                      ToQString(s.message()));
        return nullptr;
    }
    windows_[std::string(object)] = window;
    window->ShowMaximizedCentred();
    return window;
}

}  // namespace numarel
