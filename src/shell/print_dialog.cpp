#include "shell/print_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontMetricsF>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "export/sheet_format.h"
#include "export/sheet_view.h"
#include "platform/platform.h"
#include "platform/sheet_model.h"
#include "platform/twips.h"

namespace numarel {

// --- PainterCanvas ------------------------------------------------------------------------------

PainterCanvas::PainterCanvas(QPainter& painter, double dotsPerPoint)
    : painter_(painter), k_(dotsPerPoint) {}

void PainterCanvas::FillRect(double x, double y, double w, double h, Rgb colour) {
    painter_.fillRect(QRectF(x * k_, y * k_, w * k_, h * k_), ToQColor(colour));
}

void PainterCanvas::Line(double x1, double y1, double x2, double y2, Rgb colour, double width) {
    painter_.setPen(QPen(ToQColor(colour), width * k_));
    painter_.drawLine(QPointF(x1 * k_, y1 * k_), QPointF(x2 * k_, y2 * k_));
}

void PainterCanvas::Text(double x, double y, double w, double h, std::string_view utf8, Rgb colour,
                         double points, bool bold, Align align) {
    if (utf8.empty() || w <= 0 || h <= 0) return;
    const QRectF box(x * k_, y * k_, w * k_, h * k_);
    painter_.save();
    painter_.setClipRect(box);
    painter_.setFont(DesignFont(points, bold));
    painter_.setPen(ToQColor(colour));
    const Qt::Alignment horizontal = align == Align::Left     ? Qt::AlignLeft
                                     : align == Align::Centre ? Qt::AlignHCenter
                                                              : Qt::AlignRight;
    painter_.drawText(box, static_cast<int>(horizontal | Qt::AlignVCenter | Qt::TextSingleLine),
                      ToQString(utf8));
    painter_.restore();
}

double PainterCanvas::TextWidth(std::string_view utf8, double points, bool bold) {
    const QFontMetricsF metrics(DesignFont(points, bold), painter_.device());
    return metrics.horizontalAdvance(ToQString(utf8)) / k_;
}

// --- printing
// -------------------------------------------------------------------------------------

PageSetup PrinterPageSetup(const QPrinter& printer, bool fitToWidth) {
    PageSetup setup;
    const QRectF paper = printer.pageLayout().fullRect(QPageLayout::Point);
    if (paper.width() > 0 && paper.height() > 0) {
        setup.width = paper.width();
        setup.height = paper.height();
    }
    setup.fitToWidth = fitToWidth;
    return setup;
}

bool PrintSheet(const ReportSheet& sheet, const std::vector<int>& rows, bool fitToWidth,
                const std::string& lottery, QPrinter& printer) {
    printer.setFullPage(true);
    const PageLayout layout = LayOutPages(sheet, rows, PrinterPageSetup(printer, fitToWidth));
    const int pages = static_cast<int>(layout.pages.size());
    int first = 1, last = pages;
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
        first = std::max(1, printer.fromPage());
        last = std::min(pages, printer.toPage() > 0 ? printer.toPage() : pages);
    }
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    PainterCanvas canvas(painter, printer.resolution() / 72.0);
    for (int page = first; page <= last; ++page) {
        if (page > first) printer.newPage();
        DrawSheetPage(sheet, layout, static_cast<std::size_t>(page - 1), lottery, canvas);
    }
    return painter.end();
}

// --- ReportPrintDialog ------------------------------------------------------------------------

ReportPrintDialog::ReportPrintDialog(const ReportSheet& sheet, std::string lottery,
                                     FileDialogs& files, MessageBoxes& messages, bool preview,
                                     QWidget* parent)
    : QDialog(parent),
      sheet_(sheet),
      lottery_(std::move(lottery)),
      files_(files),
      messages_(messages),
      printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
    setWindowTitle(preview ? QStringLiteral("Print preview") : QStringLiteral("Print"));
    printer_->setPageSize(QPageSize(QPageSize::A4));
    printer_->setPageOrientation(QPageLayout::Landscape);
    printer_->setDocName(ToQString(SheetTextToUtf8(sheet_.Title())));
    BuildControls(preview);
    Refresh();
}

ReportPrintDialog::~ReportPrintDialog() = default;

void ReportPrintDialog::BuildControls(bool preview) {
    auto* rowsBox = new QGroupBox(QStringLiteral("Rows"), this);
    auto* rowsLayout = new QGridLayout(rowsBox);
    newest_ = new QRadioButton(QStringLiteral("Newest drawings:"), rowsBox);
    drawings_ = new QSpinBox(rowsBox);
    drawings_->setRange(sheet_.DrawCount() > 0 ? 1 : 0, std::max(sheet_.DrawCount(), 0));
    drawings_->setValue(DrawingsFillingOnePage(sheet_, PrinterPageSetup(*printer_, false)));
    dates_ = new QRadioButton(QStringLiteral("Dates from:"), rowsBox);
    from_ = new QLineEdit(ToQString(DrawingDate(sheet_, 1)), rowsBox);
    to_ = new QLineEdit(
        ToQString(DrawingDate(sheet_, (sheet_.DrawCount() - 1) * sheet_.RowsPerDrawing() + 1)),
        rowsBox);
    all_ = new QRadioButton(QStringLiteral("All drawings (%1)").arg(sheet_.DrawCount()), rowsBox);
    newest_->setChecked(true);
    auto* group = new QButtonGroup(this);
    for (QRadioButton* button : {newest_, dates_, all_})
        group->addButton(button);
    rowsLayout->addWidget(newest_, 0, 0);
    rowsLayout->addWidget(drawings_, 0, 1, 1, 3);
    rowsLayout->addWidget(dates_, 1, 0);
    rowsLayout->addWidget(from_, 1, 1);
    rowsLayout->addWidget(new QLabel(QStringLiteral("to"), rowsBox), 1, 2);
    rowsLayout->addWidget(to_, 1, 3);
    rowsLayout->addWidget(all_, 2, 0, 1, 4);

    fit_ = new QCheckBox(QStringLiteral("Fit the columns to the page width"), this);
    pages_ = new QLabel(this);

    printButton_ = new QPushButton(QStringLiteral("Print..."), this);
    pdfButton_ = new QPushButton(QStringLiteral("Save as PDF..."), this);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(printButton_, QDialogButtonBox::AcceptRole);
    buttons->addButton(pdfButton_, QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Close);
    printButton_->setDefault(true);
    connect(printButton_, &QPushButton::clicked, this, &ReportPrintDialog::PrintWithDialog);
    connect(pdfButton_, &QPushButton::clicked, this, &ReportPrintDialog::SaveAsPdf);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* options = new QVBoxLayout;
    options->addWidget(rowsBox);
    options->addWidget(fit_);
    options->addWidget(pages_);
    options->addStretch(1);
    options->addWidget(buttons);

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(options);
    if (preview) {
        preview_ = new QPrintPreviewWidget(printer_.get(), this);
        preview_->setMinimumSize(720, 520);
        preview_->setZoomMode(QPrintPreviewWidget::FitInView);
        connect(preview_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) {
            PrintSheet(sheet_, ChosenRows(), FitToWidth(), lottery_, *printer);
        });
        layout->addWidget(preview_, 1);
    }

    auto refresh = [this] { Refresh(); };
    for (QRadioButton* button : {newest_, dates_, all_})
        connect(button, &QRadioButton::toggled, this, refresh);
    connect(drawings_, &QSpinBox::valueChanged, this, refresh);
    connect(from_, &QLineEdit::editingFinished, this, refresh);
    connect(to_, &QLineEdit::editingFinished, this, refresh);
    connect(fit_, &QCheckBox::toggled, this, refresh);
}

std::vector<int> ReportPrintDialog::ChosenRows() const {
    if (all_->isChecked()) return AllBodyRows(sheet_);
    if (dates_->isChecked())
        return DrawingRowsDated(sheet_, from_->text().trimmed().toStdString(),
                                to_->text().trimmed().toStdString());
    return NewestDrawingRows(sheet_, drawings_->value());
}

bool ReportPrintDialog::FitToWidth() const {
    return fit_->isChecked();
}

int ReportPrintDialog::PageCount() const {
    return static_cast<int>(
        LayOutPages(sheet_, ChosenRows(), PrinterPageSetup(*printer_, FitToWidth())).pages.size());
}

void ReportPrintDialog::Refresh() {
    drawings_->setEnabled(newest_->isChecked());
    from_->setEnabled(dates_->isChecked());
    to_->setEnabled(dates_->isChecked());
    const int pages = PageCount();
    pages_->setText(pages == 1 ? QStringLiteral("1 page") : QStringLiteral("%1 pages").arg(pages));
    if (preview_) preview_->updatePreview();
}

bool ReportPrintDialog::WritePdf(const QString& path) {
    QPrinter pdf(QPrinter::HighResolution);
    pdf.setOutputFormat(QPrinter::PdfFormat);
    pdf.setOutputFileName(path);
    pdf.setPageLayout(printer_->pageLayout());
    pdf.setDocName(printer_->docName());
    pdf.setCreator(QStringLiteral("Numarel"));
    return PrintSheet(sheet_, ChosenRows(), FitToWidth(), lottery_, pdf);
}

bool ReportPrintDialog::SaveAsPdf() {
    FileDialogRequest request;
    request.title = QStringLiteral("Save as PDF");
    request.filter = QStringLiteral("PDF document|*.pdf");
    request.presetName = ToQString(SheetTextToUtf8(sheet_.Title())) + QStringLiteral(".pdf");
    request.folder = StartFolder();
    const QString path = files_.SaveFile(this, request);
    if (path.isEmpty()) return false;
    RememberFolder(path);
    if (WritePdf(path)) return true;
    messages_.Show(this, QStringLiteral("Error:"),
                   QStringLiteral("The PDF could not be written to \"%1\".").arg(path),
                   MessageIcon::Warning);
    return false;
}

void ReportPrintDialog::PrintWithDialog() {
    QPrintDialog dialog(printer_.get(), this);
    dialog.setWindowTitle(QStringLiteral("Print"));
    dialog.setMinMax(1, std::max(1, PageCount()));
    if (dialog.exec() != QDialog::Accepted) return;
    if (!PrintSheet(sheet_, ChosenRows(), FitToWidth(), lottery_, *printer_))
        messages_.Show(this, QStringLiteral("Error:"),
                       QStringLiteral("The printer refused the pages."), MessageIcon::Warning);
    if (preview_) preview_->updatePreview();
}

}  // namespace numarel
