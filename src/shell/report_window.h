#pragma once

#include <QPointer>
#include <QWidget>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "data/status.h"
#include "frame/report_sheet.h"
#include "reports/command_table.h"
#include "reports/report_registry.h"
#include "shell/session.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace numarel {

class GridView;

// The window of one report: its sheet in a GridView, Exit, Help where the report has a page, the
// report's own button if it has one, and the texts some reports show under the sheet. The sheet
// is computed once, when the window opens, and freed with the window.
class ReportWindow : public QWidget {
    Q_OBJECT
public:
    // Designed client size; the window opens centred at this size and then maximised.
    static constexpr int kDesignWidth = 11625;
    static constexpr int kDesignHeight = 6720;
    // What the layout leaves free around the sheet, on the client area of the designed window
    // (its outer margins, 210 and 1200 twips, less a frame of 120 by 465).
    static constexpr int kMarginRight = 90;
    static constexpr int kMarginBelow = 735;
    static constexpr int kButtonWidth = 1215;
    static constexpr int kButtonHeight = 375;
    static constexpr int kButtonGap = 100;
    static constexpr int kTextBoxWidth = 8055;
    static constexpr int kTextBoxHeight = 5175;

    // `command` may be nullptr for a report that no menu opens (then there is no help page).
    ReportWindow(const ReportDefinition& definition, const CommandEntry* command, Session& session);
    ~ReportWindow() override;

    // Reads the current lottery and computes the sheet. On failure the window must not be shown.
    Status Load();
    // Centred at the designed size, then maximised.
    void ShowMaximizedCentred();

    const ReportDefinition& Definition() const { return definition_; }
    ReportSheet& Sheet() { return sheet_; }
    GridView* Grid() const { return grid_; }
    QPushButton* ExitButton() const { return exitButton_; }
    QPushButton* HelpButton() const { return helpButton_; }    // nullptr when there is none
    QPushButton* ExtraButton() const { return extraButton_; }  // nullptr when there is none
    QPlainTextEdit* TextBox() const { return textBox_; }       // nullptr when there is none
    const std::vector<QLabel*>& Labels() const { return labels_; }
    // The line beside the buttons that says what the last copy, save or zoom did.
    QLabel* StatusLine() const { return status_; }
    void SayInStatus(const QString& text);

    // Places the sheet, the buttons and the labels for the window's size. A window too small for
    // the margins keeps its old layout.
    virtual void LayoutWindow();

protected:
    // The client size the window opens at, in twips, before it is maximised.
    virtual QSize DesignSizeTwips() const { return {kDesignWidth, kDesignHeight}; }
    Session& WindowSession() const { return session_; }
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildControls();
    void OnCellPressed(int row, int col);
    void OnCellDoubleClicked(int row, int col);
    void OnExtraButton();
    // Ctrl+C: the selected block as text and as an HTML table.
    void CopySelection(bool withHeaders);
    void OnZoomChanged(int percent);
    // The settings key of this report's zoom.
    QString ZoomKey() const;
    // The whole sheet into a file the user chooses, as the command line writes it.
    void SaveSheetAs(bool html);
    // Print... and Print preview: the rows, the fit to the page width, Print and Save as PDF.
    void OpenPrintDialog(bool preview);
    void ShowError(const QString& text);

    const ReportDefinition& definition_;
    const CommandEntry* command_;
    Session& session_;
    ReportSheet sheet_;
    GridView* grid_;
    QPushButton* exitButton_;
    QPushButton* helpButton_ = nullptr;
    QPushButton* extraButton_ = nullptr;
    QPlainTextEdit* textBox_ = nullptr;
    std::vector<QLabel*> labels_;
    QLabel* status_;
};

// A new window for `definition`, of the kind the report asks for; not loaded yet.
ReportWindow* NewReportWindow(const ReportDefinition& definition, const CommandEntry* command,
                              Session& session);

// Reads the drawings of `drawingsPath` and builds `definition` into `sheet`.
Status LoadReport(const ReportDefinition& definition, const std::filesystem::path& drawingsPath,
                  ReportSheet& sheet);

// Opens report windows by their window object, one window per report: opening a report that is
// already open brings its window forward and computes nothing.
class ReportWindows {
public:
    using Lookup = const ReportDefinition* (*)(std::string_view object);

    explicit ReportWindows(Session& session, Lookup lookup = &FindReport)
        : session_(session), lookup_(lookup) {}

    // True when the report can be opened at all.
    bool IsBuilt(std::string_view object) const { return lookup_(object) != nullptr; }
    // The open window of `object`, if any.
    ReportWindow* Find(std::string_view object) const;
    // Opens `object` or brings its window forward. When the report cannot be shown, tells the user
    // why (with `messageParent` as the owner of the message) and returns nullptr.
    ReportWindow* Open(std::string_view object, QWidget* messageParent);

private:
    Session& session_;
    Lookup lookup_;
    std::map<std::string, QPointer<ReportWindow>, std::less<>> windows_;
};

}  // namespace numarel
