#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>

#include "export/sheet_format.h"
#include "platform/grid_view.h"
#include "reports/command_table.h"
#include "reports/report_registry.h"
#include "shell/print_dialog.h"
#include "shell/shell_fixture.h"

namespace numarel {
namespace {

using testing::FakeReports;
using testing::Key;

class ReportWindowTest : public testing::ShellTest {
protected:
    static QPoint CellCentre(ReportWindow* w, int row, int col) {
        return w->Grid()->visualRect(w->Grid()->Model().IndexOf(row, col)).center();
    }
    static void Trigger(QMenu& menu, const QString& starts) {
        for (QAction* a : menu.actions())
            if (a->text().startsWith(starts)) return a->trigger();
        ADD_FAILURE() << starts.toStdString();
    }
};
using ReportSharingTest = ReportWindowTest;

TEST_F(ReportWindowTest, OpensMaximisedAndTheLoadOrderDecidesWhatItShowsWhileItComputes) {
    ReportWindow* real = Open("frmbjiouhe");
    EXPECT_TRUE(real->isMaximized());
    EXPECT_EQ(real->windowTitle(), "Sum of Odd-Sum of Even");
    EXPECT_EQ(real->Sheet().DrawCount(), 3);
    // First load order: "Loading......" and the hourglass, then the title.
    ReportWindow* first = Open("frmhekualu");
    EXPECT_EQ(FakeReports::reportCaptionDuringBuild, "Loading......");
    EXPECT_TRUE(FakeReports::hourglassDuringBuild);
    EXPECT_EQ(first->windowTitle(), "Fake report");
    // Second load order: the title from the start and no hourglass.
    Open("frmzu3leixing2");
    EXPECT_EQ(FakeReports::reportCaptionDuringBuild, "Fake report");
    EXPECT_FALSE(FakeReports::hourglassDuringBuild);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

// Every entry of the menus opens its own report's window, with the title of its registry row,
// and closes again.
TEST_F(ReportWindowTest, EveryMenuEntryOpensItsReport) {
    WriteFile(session->drawingsPath,
              "2020001 1 2 3\r\n2020002 4 4 0\r\n2020003 9 9 9\r\n2020004 0 1 2\r\n");
    ReportWindows real(*session, &FindReport);
    int opened = 0;
    for (const CommandEntry& e : CommandTable()) {
        if (e.IsSeparator()) continue;
        ReportWindow* window = real.Open(e.report, nullptr);
        ASSERT_NE(window, nullptr) << e.report;
        EXPECT_EQ(window->windowTitle().toStdString(), FindReport(e.report)->title) << e.report;
        EXPECT_EQ(window->Sheet().DrawCount(), 4) << e.report;
        window->ExitButton()->click();
        testing::Drain();
        ++opened;
    }
    EXPECT_EQ(opened, 75);
}

// Bringing an open report forward is pinned through the main window's menus; the texts of the
// reasons for an empty lottery with the drawings reader.
TEST_F(ReportWindowTest, AnEmptyLotteryShowsAHintAndAfterExitTheNextOpeningReadsTheFileAgain) {
    WriteFile(session->drawingsPath, "");
    QPointer<ReportWindow> first = Open("frmhekualu");
    EXPECT_TRUE(first->StatusLine()->text().contains("no drawings yet"));
    EXPECT_TRUE(first->StatusLine()->text().contains("Drawings"));
    WriteFile(session->drawingsPath, "2020001 1 2 3\r\n");
    first->ExitButton()->click();
    EXPECT_EQ(reports->Find("frmhekualu"), nullptr);
    testing::Drain();
    EXPECT_TRUE(first.isNull());
    ReportWindow* second = Open("frmhekualu");
    EXPECT_EQ(FakeReports::builds, 2);
    EXPECT_EQ(second->Sheet().DrawCount(), 1);
    EXPECT_TRUE(second->StatusLine()->text().isEmpty());
}

TEST_F(ReportWindowTest, AReportThatCannotLoadSaysWhyAndStaysClosed) {
    std::filesystem::remove(session->drawingsPath);
    for (bool folderInTheWay : {false, true}) {
        if (folderInTheWay) std::filesystem::create_directory(session->drawingsPath);
        scripted.shown.clear();
        EXPECT_EQ(reports->Open("frmhekualu", nullptr), nullptr);
        EXPECT_EQ(reports->Find("frmhekualu"), nullptr);
        ASSERT_EQ(scripted.shown.size(), 1u);
        EXPECT_EQ(scripted.shown[0].title, "Error:");
        EXPECT_NE(scripted.shown[0].text.indexOf(folderInTheWay ? "is a folder" : "does not exist"),
                  -1);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ReportWindowTest, MouseDownTogglesTheMarkAndLosesTheReportColour) {
    ReportWindow* w = Open("frmhekualu");
    const Rgb mark = MakeRgb(43, 145, 255);
    // Row 1 (1 1 3) has a report colour in column 5; row 2 has none.
    ASSERT_EQ(w->Sheet().BackColor(1, 5), colours::kHit);
    for (auto [row, col] : {std::pair{1, 5}, std::pair{2, 2}}) {
        testing::MousePress(w->Grid()->viewport(), CellCentre(w, row, col));
        EXPECT_EQ(w->Sheet().BackColor(row, col), mark);
        EXPECT_EQ(w->Grid()->Model().IndexOf(row, col).data(Qt::BackgroundRole).value<QColor>(),
                  QColor(43, 145, 255));
        testing::MousePress(w->Grid()->viewport(), CellCentre(w, row, col),
                            Qt::RightButton);  // any button
        EXPECT_EQ(w->Sheet().BackColor(row, col), kDefaultColour);
    }

    ReportWindow* unmarked = Open("frmzusan90");  // a report without marks
    testing::MousePress(unmarked->Grid()->viewport(), CellCentre(unmarked, 2, 2));
    EXPECT_EQ(unmarked->Sheet().BackColor(2, 2), kDefaultColour);
    EXPECT_EQ(unmarked->Sheet().CurrentRow(), 2);
}

TEST_F(ReportWindowTest, DoubleClickPutsTheColumnsTextOnTheClipboard) {
    ReportWindow* w = Open("frmzu3leixing2");
    testing::MouseDoubleClick(w->Grid()->viewport(), CellCentre(w, 2, 4));
    ASSERT_EQ(scripted.clipboard.size(), 1u);
    EXPECT_EQ(scripted.clipboard[0], "5\r\n15\r\n23\r\n");
    EXPECT_TRUE(w->StatusLine()->text().startsWith("Copied 3 Miss lengths of column"))
        << w->StatusLine()->text().toStdString();

    ReportWindow* plain = Open("frmhekualu");
    testing::MouseDoubleClick(plain->Grid()->viewport(), CellCentre(plain, 2, 4));
    EXPECT_EQ(scripted.clipboard.size(), 1u);
}

TEST_F(ReportWindowTest, HelpOpensThePageOfTheCommandTableOrNothing) {
    Open("frmhekualu")->HelpButton()->click();
    ASSERT_EQ(scripted.opened.size(), 1u);
    EXPECT_TRUE(scripted.opened[0].toLocalFile().endsWith("help/Sum_012_Type-Width_012_Type.htm"));
    // A page missing from help\, and an inert button, open nothing.
    Open("frmbaishi32zu")->HelpButton()->click();
    Open("frmzusan90")->HelpButton()->click();
    EXPECT_EQ(scripted.opened.size(), 1u);
    EXPECT_EQ(Open("frmzu3leixing2")->HelpButton(), nullptr);
    EXPECT_TRUE(scripted.shown.empty());
}

TEST_F(ReportWindowTest, TheTextBoxButtonShowsFreshTextAndTheLabelsTheirColours) {
    ReportWindow* w = Open("frmzu3leixing2");
    QPushButton* button = w->ExtraButton();
    ASSERT_NE(button, nullptr);
    ASSERT_NE(w->TextBox(), nullptr);
    EXPECT_EQ(button->text(), "Next Box numbers");
    EXPECT_FALSE(w->TextBox()->isVisible());
    button->click();
    EXPECT_TRUE(w->TextBox()->isVisible());
    EXPECT_TRUE(w->TextBox()->isReadOnly());
    EXPECT_EQ(w->TextBox()->toPlainText(), "Box text 1 of 3");
    EXPECT_EQ(button->text(), "Hide");
    button->click();
    EXPECT_FALSE(w->TextBox()->isVisible());
    EXPECT_EQ(button->text(), "Next Box numbers");
    button->click();
    EXPECT_EQ(w->TextBox()->toPlainText(), "Box text 2 of 3");

    ASSERT_EQ(w->Labels().size(), 2u);
    EXPECT_EQ(w->Labels()[0]->text(), "First label");
    EXPECT_FALSE(w->Labels()[0]->autoFillBackground());  // back colour 0: none of its own
    EXPECT_EQ(w->Labels()[1]->palette().color(QPalette::Window), QColor(255, 255, 0));
}

TEST_F(ReportWindowTest, TheExportButtonWritesBesideTheProgramAndOpensTheFile) {
    ReportWindow* w = Open("frmbaishi32zu");
    ASSERT_NE(w->ExtraButton(), nullptr);
    const auto file = folder.root / "Numarel" / "daochu320.txt";
    std::filesystem::create_directories(file);  // a folder in the way: said, nothing opened
    w->ExtraButton()->click();
    EXPECT_TRUE(scripted.opened.empty());
    ASSERT_EQ(scripted.shown.size(), 1u);
    EXPECT_EQ(scripted.shown[0].title, "Error:");

    std::filesystem::remove(file);
    w->ExtraButton()->click();
    EXPECT_EQ(testing::ReadAll(file), "Box text 2 of 3");
    EXPECT_EQ(w->StatusLine()->text(),
              "Wrote " + QDir::toNativeSeparators(QString::fromStdString(file.string())));
    EXPECT_EQ(scripted.opened,
              std::vector<QUrl>{QUrl::fromLocalFile(QString::fromStdString(file.string()))});
    EXPECT_EQ(scripted.shown.size(), 1u);
}

// Ctrl+C copies the block as text and as a coloured table, leaving out the columns the window
// hides; Copy with headers puts the header row and the label column in front; the status line
// says what was copied.
TEST_F(ReportSharingTest, CopyLeavesOutHiddenColumnsKeepsColoursAndSaysWhatItCopied) {
    ReportWindow* w = Open("frmhekualu");
    ReportSheet& sheet = w->Sheet();
    ASSERT_GE(sheet.Cols(), 4);
    for (int c = 0; c < 4; ++c) {
        sheet.SetText(0, c, "h" + std::to_string(c));
        for (int r = 1; r <= 2; ++r)
            sheet.SetText(r, c, std::to_string(r) + std::to_string(c));
    }
    sheet.SetText(2, 3, "2\xe9");
    sheet.SetBackColor(2, 3, MakeRgb(255, 0, 0));
    sheet.SetColWidth(2, 2);
    GridView* grid = w->Grid();
    grid->SetSheet(&sheet);
    grid->SetCurrentCell(1, 1);
    Key(grid, Qt::Key_Right, Qt::ShiftModifier);  // over the hidden column
    Key(grid, Qt::Key_Down, Qt::ShiftModifier);
    Key(grid, Qt::Key_C, Qt::ControlModifier);
    ASSERT_EQ(scripted.clipboard.size(), 1u);
    EXPECT_EQ(scripted.clipboard[0], QString::fromUtf8("11\t13\n21\t2\xc3\xa9\n"));
    EXPECT_TRUE(scripted.clipboardHtml.contains("<td style=\"background:#ff0000;\">2"))
        << scripted.clipboardHtml.toStdString();
    EXPECT_EQ(scripted.clipboardHtml.count("<tr>"), 2);
    EXPECT_EQ(sheet.BackColor(1, 1), kDefaultColour);  // copying marked nothing
    EXPECT_EQ(w->StatusLine()->text(), "Copied 2 x 2 cells");
    std::unique_ptr<QMenu> menu(grid->BuildContextMenu(nullptr));
    Trigger(*menu, "Copy with headers");
    EXPECT_EQ(scripted.clipboard.back(),
              QString::fromUtf8("h0\th1\th3\n10\t11\t13\n20\t21\t2\xc3\xa9\n"));
    EXPECT_EQ(scripted.clipboardHtml.count("<td"), 9);
    EXPECT_EQ(w->StatusLine()->text(), "Copied 3 x 3 cells with headers");
    EXPECT_TRUE(w->StatusLine()->isVisible());
}

// A report opens at the zoom it was left at, and the status line shows the zoom.
TEST_F(ReportSharingTest, AReportRemembersItsZoomForTheNextOpening) {
    UserSettings()->remove(QStringLiteral("zoom"));
    ReportWindow* w = Open("frmhekualu");
    EXPECT_EQ(w->Grid()->Zoom(), 100);
    Key(w->Grid(), Qt::Key_Plus, Qt::ControlModifier);
    Key(w->Grid(), Qt::Key_Minus, Qt::ControlModifier);
    Key(w->Grid(), Qt::Key_Plus, Qt::NoModifier);  // without Ctrl, not a zoom
    EXPECT_EQ(w->Grid()->Zoom(), 100);
    Key(w->Grid(), Qt::Key_Plus, Qt::ControlModifier);
    Key(w->Grid(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(w->StatusLine()->text(), "Zoom 125 %");
    w->close();
    testing::Drain();
    w = Open("frmhekualu");
    EXPECT_EQ(w->Grid()->Zoom(), 125);
    EXPECT_EQ(w->StatusLine()->text(), "Zoom 125 %");
    ReportWindow* other = Open("frmzu3leixing2");  // each report its own
    EXPECT_EQ(other->Grid()->Zoom(), 100);
    UserSettings()->remove(QStringLiteral("zoom"));
}

TEST_F(ReportSharingTest, SaveWritesTheWholeSheetAsTheCommandLineDoes) {
    UserSettings()->remove(QStringLiteral("folders"));
    ReportWindow* w = Open("frmbjiouhe");
    struct Case {
        const char* action;
        std::string file;
        std::string expected;
    } cases[] = {
        {"Save as CSV", "sheet.csv", FormatSheetCsv(w->Sheet())},
        {"Save as HTML", "sheet.html", FormatSheetHtml(w->Sheet(), "frmbjiouhe")},
    };
    for (const Case& c : cases) {
        auto path = dir.path() / c.file;
        scripted.chosen.push_back(QString::fromStdString(path.string()));
        std::unique_ptr<QMenu> menu(w->Grid()->BuildContextMenu(nullptr));
        Trigger(*menu, c.action);
        EXPECT_TRUE(scripted.saveDialogs.back()) << c.action;
        EXPECT_EQ(testing::ReadAll(path), c.expected) << c.action;
        EXPECT_TRUE(w->StatusLine()->text().startsWith("Saved ")) << c.action;
        EXPECT_TRUE(w->StatusLine()->text().endsWith(QString::fromStdString(c.file)));
        // Cancelled: nothing written.
        std::filesystem::remove(path);
        scripted.chosen.push_back(QString());
        Trigger(*menu, c.action);
        EXPECT_FALSE(std::filesystem::exists(path));
    }
    EXPECT_TRUE(scripted.shown.empty());
    // The first dialog starts in the user's documents folder, the next ones where the last file
    // went; never in the program's data folder.
    ASSERT_EQ(scripted.dialogs.size(), 4u);
    EXPECT_FALSE(
        scripted.dialogs[0].folder.startsWith(QString::fromStdString(folder.root.string())));
    EXPECT_TRUE(QFileInfo(scripted.dialogs[0].folder).isDir());
    const QString chosenFolder =
        QFileInfo(QString::fromStdString(dir.path().string())).absoluteFilePath();
    EXPECT_EQ(scripted.dialogs[1].folder, chosenFolder);
    EXPECT_EQ(scripted.dialogs[3].folder, chosenFolder);
    UserSettings()->remove(QStringLiteral("folders"));
}

// Ctrl+P and the context menu open the print dialog on the window's sheet: the newest drawings
// that fill a page by default, a range of dates, or all; Save as PDF writes those pages.
TEST_F(ReportSharingTest, PrintChoosesTheRowsAndSavesThePagesAsPdf) {
    std::string drawings;
    for (int i = 1; i <= 200; ++i)
        drawings += std::to_string(2020000 + i) + " " + std::to_string(i % 10) + " 5 7\r\n";
    WriteFile(session->drawingsPath, drawings);
    ReportWindow* w = Open("frmbjiouhe");
    const ReportSheet& sheet = w->Sheet();
    ASSERT_EQ(sheet.DrawCount(), 200);

    const auto pdf = dir.path() / "print.pdf";
    int runs = 0;
    scripted.dialogRuns.push_back([&](QDialog& d) {
        ++runs;
        auto* dialog = dynamic_cast<ReportPrintDialog*>(&d);
        if (!dialog) return false;
        EXPECT_EQ(dialog->windowTitle(), "Print");
        EXPECT_EQ(dialog->Preview(), nullptr);
        const int onePage = DrawingsFillingOnePage(sheet, A4Landscape());
        EXPECT_TRUE(dialog->NewestButton()->isChecked());
        EXPECT_EQ(dialog->DrawingsBox()->value(), onePage);
        EXPECT_EQ(dialog->ChosenRows(), NewestDrawingRows(sheet, onePage));
        EXPECT_EQ(dialog->PageCount(), 1);

        dialog->DatesButton()->setChecked(true);
        EXPECT_EQ(dialog->FromBox()->text(), "2020001");
        EXPECT_EQ(dialog->ToBox()->text(), "2020200");
        dialog->FromBox()->setText("2020010");
        dialog->ToBox()->setText("2020012");
        EXPECT_EQ(dialog->ChosenRows(), (std::vector<int>{10, 11, 12}));
        dialog->AllButton()->setChecked(true);
        EXPECT_EQ(dialog->ChosenRows(), AllBodyRows(sheet));
        EXPECT_GT(dialog->PageCount(), 3);
        dialog->FitBox()->setChecked(true);
        EXPECT_TRUE(dialog->FitToWidth());

        dialog->NewestButton()->setChecked(true);
        dialog->DrawingsBox()->setValue(onePage * 2);
        scripted.chosen.push_back(QString::fromStdString(pdf.string()));
        dialog->PdfButton()->click();
        return false;
    });
    Key(w->Grid(), Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(runs, 1);
    ASSERT_TRUE(scripted.saveDialogs.back());
    EXPECT_EQ(scripted.dialogs.back().presetName, "Sum of Odd-Sum of Even.pdf");
    const std::string bytes = testing::ReadAll(pdf);
    EXPECT_EQ(bytes.rfind("%PDF-", 0), 0u);
    std::size_t pages = 0;
    for (std::size_t at = bytes.find("/Type /Page\n"); at != std::string::npos;
         at = bytes.find("/Type /Page\n", at + 1))
        ++pages;
    EXPECT_EQ(pages, 2u);
    EXPECT_TRUE(scripted.shown.empty());

    // Print preview: the same choices beside the pages.
    scripted.dialogRuns.push_back([&](QDialog& d) {
        ++runs;
        EXPECT_EQ(d.windowTitle(), "Print preview");
        EXPECT_NE(dynamic_cast<ReportPrintDialog&>(d).Preview(), nullptr);
        return false;
    });
    std::unique_ptr<QMenu> menu(w->Grid()->BuildContextMenu(nullptr));
    Trigger(*menu, "Print preview");
    EXPECT_EQ(runs, 2);
    const auto actions = menu->actions();
    EXPECT_TRUE(std::any_of(actions.begin(), actions.end(),
                            [](QAction* a) { return a->text() == "Print...\tCtrl+P"; }));
}

}  // namespace
}  // namespace numarel
