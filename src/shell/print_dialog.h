#pragma once

#include <QDialog>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "export/page_layout.h"
#include "frame/report_sheet.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPainter;
class QPrintPreviewWidget;
class QPrinter;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace numarel {

class FileDialogs;
class MessageBoxes;

// Draws the pages of the shared page layout with a QPainter on a printer, a PDF or a preview.
// Coordinates arrive in points and are turned into the device's units.
class PainterCanvas final : public PageCanvas {
public:
    PainterCanvas(QPainter& painter, double dotsPerPoint);
    void FillRect(double x, double y, double w, double h, Rgb colour) override;
    void Line(double x1, double y1, double x2, double y2, Rgb colour, double width) override;
    void Text(double x, double y, double w, double h, std::string_view utf8, Rgb colour,
              double points, bool bold, Align align) override;
    double TextWidth(std::string_view utf8, double points, bool bold) override;

private:
    QPainter& painter_;
    double k_;
};

// The page setup of a printer: its paper in points, landscape A4 unless the user chose another.
PageSetup PrinterPageSetup(const QPrinter& printer, bool fitToWidth);

// Prints `rows` of `sheet` on `printer` as the shared page layout cuts them (only the printer's
// page range when it has one); false when the printer cannot be painted on.
bool PrintSheet(const ReportSheet& sheet, const std::vector<int>& rows, bool fitToWidth,
                const std::string& lottery, QPrinter& printer);

// Print and Print preview of a report: which rows (the newest N drawings, by default what fills
// one page; a range of dates; all), whether the columns are scaled to the page width, and from
// there Print..., Save as PDF... and, with the preview shown, the pages as they will come out.
class ReportPrintDialog : public QDialog {
    Q_OBJECT
public:
    enum class Rows { Newest, Dates, All };

    ReportPrintDialog(const ReportSheet& sheet, std::string lottery, FileDialogs& files,
                      MessageBoxes& messages, bool preview, QWidget* parent = nullptr);
    ~ReportPrintDialog() override;

    // The rows chosen now, in order.
    std::vector<int> ChosenRows() const;
    bool FitToWidth() const;
    // The pages the choice gives on the dialog's printer.
    int PageCount() const;

    // Asks for a file and writes the pages there as a PDF; false when cancelled or failed (the
    // failure said in a message).
    bool SaveAsPdf();
    // Writes the pages to `path` as a PDF.
    bool WritePdf(const QString& path);
    // The system's print dialog, then the pages on the chosen printer.
    void PrintWithDialog();

    QRadioButton* NewestButton() const { return newest_; }
    QRadioButton* DatesButton() const { return dates_; }
    QRadioButton* AllButton() const { return all_; }
    QSpinBox* DrawingsBox() const { return drawings_; }
    QLineEdit* FromBox() const { return from_; }
    QLineEdit* ToBox() const { return to_; }
    QCheckBox* FitBox() const { return fit_; }
    QPrintPreviewWidget* Preview() const { return preview_; }
    QPushButton* PrintButton() const { return printButton_; }
    QPushButton* PdfButton() const { return pdfButton_; }

private:
    void BuildControls(bool preview);
    void Refresh();

    const ReportSheet& sheet_;
    std::string lottery_;
    FileDialogs& files_;
    MessageBoxes& messages_;
    std::unique_ptr<QPrinter> printer_;
    QRadioButton* newest_ = nullptr;
    QRadioButton* dates_ = nullptr;
    QRadioButton* all_ = nullptr;
    QSpinBox* drawings_ = nullptr;
    QLineEdit* from_ = nullptr;
    QLineEdit* to_ = nullptr;
    QCheckBox* fit_ = nullptr;
    QLabel* pages_ = nullptr;
    QPrintPreviewWidget* preview_ = nullptr;
    QPushButton* printButton_ = nullptr;
    QPushButton* pdfButton_ = nullptr;
};

}  // namespace numarel
