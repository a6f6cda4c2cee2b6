#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <cerrno>

#include "data/file_io.h"
#include "shell/drawings_editor.h"
#include "shell/import_dialog.h"
#include "shell/shell_fixture.h"
#include "support/case_file.h"

namespace numarel {
namespace {

// The demo lottery holds 2020001 113, 2020002 456, 2020003 779.
class EditorTest : public testing::ShellTest {
protected:
    // An editor open on the lottery, its file first written with `bytes` unless they are null.
    std::unique_ptr<DrawingsEditor> Make(const char* bytes = nullptr) {
        if (bytes) WriteFile(session->drawingsPath, bytes);
        auto editor = std::make_unique<DrawingsEditor>(*session);
        editor->show();
        QCoreApplication::processEvents();
        return editor;
    }
    static void Click(QWidget& w, const char* control) {
        w.findChild<QPushButton*>(QLatin1String(control))->click();
    }
    static void ImportResults(DrawingsEditor& e) {
        e.findChild<QAction*>(QStringLiteral("caiImportResults"))->trigger();
    }
    // Types `text` into a cell and leaves it for the next one.
    static void Edit(DrawingsEditor& e, int row, int col, const QString& text) {
        Go(e, row, col);
        Type(e, text);
        Go(e, row, col + 1);
    }
    static void Go(DrawingsEditor& e, int row, int col) {
        e.Table()->setCurrentIndex(e.Model().index(row, col));
    }
    static void Type(DrawingsEditor& e, const QString& text) {
        for (QChar c : text) {
            testing::Key(e.CellBox()->hasFocus() ? static_cast<QWidget*>(e.CellBox()) : e.Table(),
                         0, Qt::NoModifier, QString(c));
        }
    }
    static std::vector<QString> Column(DrawingsEditor& e, int col) {
        std::vector<QString> cells;
        for (int row = 0; row < e.Model().rowCount(); ++row)
            cells.push_back(e.Model().index(row, col).data().toString());
        return cells;
    }
    // Each row of a table as its cells joined by blanks (empty cells left out).
    static std::vector<std::string> Rows(const QAbstractItemModel& model, int cols) {
        std::vector<std::string> rows;
        for (int r = 0; r < model.rowCount(); ++r) {
            std::string row;
            for (int c = 0; c < cols; ++c) {
                std::string cell = model.index(r, c).data().toString().toStdString();
                if (cell.empty()) continue;
                row += (row.empty() ? "" : " ") + cell;
            }
            rows.push_back(row);
        }
        return rows;
    }
    std::string File() { return testing::ReadAll(session->drawingsPath); }
};

TEST_F(EditorTest, LoadShowsEveryRecordAndOpensAtTheEmptyLastRow) {
    auto e = Make("2020001 1 2 3\r\n0 0 0 0\r\n2020003 7 8 9\r\n");
    EXPECT_EQ(Column(*e, 0), (std::vector<QString>{"2020001", "0", "2020003", ""}));
    EXPECT_EQ(e->Model().headerData(0, Qt::Horizontal).toString(), "---- Date ----");
    EXPECT_EQ(e->Table()->currentIndex(), e->Model().index(3, 0));
    EXPECT_EQ(e->findChild<QLabel*>("Label6")->text(), "Lottery:Demo.");
    EXPECT_EQ(e->findChild<QLabel*>("Label6")->textFormat(), Qt::PlainText);
    EXPECT_TRUE(e->CellBox()->isVisible());
    EXPECT_TRUE(scripted.shown.empty());

    std::filesystem::remove(session->drawingsPath);  // a missing file says so
    EXPECT_EQ(Make()->Model().rowCount(), 1);
    ASSERT_EQ(scripted.Said().size(), 1u);
    EXPECT_EQ(scripted.shown[0].title, "Error:");

    session->drawingsPath.clear();  // without a lottery, loading and saving say how to make one
    scripted.shown.clear();
    Click(*Make(), "Command13");
    const std::string says = "Error: There is no lottery yet. Make one with New Lottery.";
    EXPECT_EQ(scripted.Said(), (std::vector<std::string>{says, says}));
}

TEST_F(EditorTest, EnterAndTabMoveOnSoThatADrawingIsTypedInOneGo) {
    auto e = Make("2020001 1 2 3\r\n");
    Go(*e, 1, 0);
    for (const char* field : {"2020002", "4", "5", "6"}) {
        Type(*e, field);
        testing::Key(e->CellBox(), Qt::Key_Return);
    }
    EXPECT_TRUE(e->isVisible());  // Enter never reaches a button or closes the editor
    Click(*e, "Command13");
    EXPECT_EQ(File(), "2020001 1 2 3\r\n2020002 4 5 6\r\n");

    // Tab moves on as Enter does, also from the table itself, and Shift+Tab goes back; neither
    // moves the focus to a button.
    e = Make("2020001 1 2 3\r\n");
    Go(*e, 0, 3);
    testing::Key(e->Table(), Qt::Key_Tab);
    EXPECT_EQ(e->Table()->currentIndex(), e->Model().index(1, 0));  // the next row's Date
    EXPECT_TRUE(e->CellBox()->hasFocus());
    Type(*e, "2020002");
    testing::Key(e->CellBox(), Qt::Key_Tab);
    Type(*e, "4");
    testing::Key(e->CellBox(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(e->Table()->currentIndex(), e->Model().index(1, 0));
    EXPECT_EQ(Column(*e, 0)[1], "2020002");
    EXPECT_EQ(Column(*e, 1)[1], "4");
    EXPECT_TRUE(e->CellBox()->hasFocus());
}

TEST_F(EditorTest, TheBoxTakesTextIntoTheCellThatIsLeftAndSaveWritesEveryRow) {
    auto e = Make("2020001 1 2 3\r\n");
    Go(*e, 0, 3);
    EXPECT_EQ(e->CellBox()->text(), "");  // the old text is not shown
    Type(*e, "12");
    EXPECT_EQ(Column(*e, 3)[0], "3");  // not yet: the cell is still current
    Go(*e, 0, 2);
    EXPECT_EQ(Column(*e, 3)[0], "12");
    Go(*e, 0, 1);   // left without typing: keeps its value
    Type(*e, "9");  // typed, but the cell is never left: not saved
    std::vector<QString> titles;
    scripted.onShown = [&] { titles.push_back(e->windowTitle()); };
    Click(*e, "Command13");
    EXPECT_EQ(File(), "2020001 1 2 0\r\n0 0 0 0\r\n");
    EXPECT_EQ(scripted.Said(), (std::vector<std::string>{"Friendship Tip: OK!"}));
    EXPECT_EQ(titles, (std::vector<QString>{"OK!"}));
    EXPECT_EQ(e->windowTitle(), "Drawings");
}

TEST_F(EditorTest, TheBoxHoldsOneLineAndRefusesWhatACellCannotTake) {
    auto e = Make("2020001 1 2 3\r\n");
    QLineEdit* box = e->CellBox();
    const QString full(DrawingsTable::kMaxCellText, QLatin1Char('7'));
    const struct {
        QString pasted;
        QString boxHolds;  // what the box shows after the paste
        bool refused;
    } cases[] = {
        {"2020\n002\r\n", "2020 002  ", false},
        {"\t4\x01", " 4 ", false},
        {QString(1 << 20, QLatin1Char('8')), "", true},  // never cut to fit
    };
    for (const auto& c : cases) {
        Go(*e, 0, 0);
        scripted.shown.clear();
        QGuiApplication::clipboard()->setText(c.pasted);
        box->paste();
        testing::Drain();
        EXPECT_EQ(box->text(), c.boxHolds);
        EXPECT_EQ(scripted.Said().size(), c.refused ? 1u : 0u);
        Go(*e, 1, 0);
    }
    // Typing past a full box is refused the same way.
    Go(*e, 0, 1);
    box->setText(full);
    scripted.shown.clear();
    Type(*e, "9");
    testing::Drain();
    EXPECT_EQ(box->text(), full);
    EXPECT_EQ(scripted.Said().size(), 1u);
}

TEST_F(EditorTest, AFailedSaveOrImportLeavesTheFileAsItWasAndSaysWhy) {
    const std::string before = "2020001 1 2 3\r\n";
    auto e = Make(before.c_str());
    const auto source = dir.path() / "in.txt";
    WriteFile(source, "2021001 4 4 4\r\n");
    for (const char* button : {"Command13", "Command17"}) {
        Edit(*e, 0, 1, "9");
        scripted.shown.clear();
        scripted.answers = {true};
        scripted.chosen = {QString::fromStdString(source.string())};
        {
            ScopedWriteFault fault(WriteStep::Write, ENOSPC);
            Click(*e, button);
        }
        EXPECT_EQ(File(), before) << button;
        ASSERT_FALSE(scripted.shown.empty());
        EXPECT_EQ(scripted.Said().back(), "Error: Cannot write \"" +
                                              session->drawingsPath.string() +
                                              "\": the disk is full. The file was left as it was.");
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.DataDir()), {}), 1);
}

// A scheduled import writes the file while the editor is open: Save asks before it replaces
// that, and writes nothing on No.
TEST_F(EditorTest, SaveAsksBeforeReplacingWhatAnotherProgramWrote) {
    auto e = Make("2020001 1 2 3\r\n");
    const std::string imported = "2020001 1 2 3\r\n2020002 4 5 6\r\n";
    WriteFile(session->drawingsPath, imported);
    Edit(*e, 0, 1, "9");
    scripted.answers = {false};
    Click(*e, "Command13");
    ASSERT_EQ(scripted.shown.size(), 1u);
    EXPECT_EQ(scripted.shown[0].title, "Query:");
    EXPECT_NE(scripted.Said()[0].find("was changed by another program"), std::string::npos);
    EXPECT_EQ(File(), imported);
    EXPECT_EQ(e->windowTitle(), "Drawings");

    scripted.shown.clear();
    scripted.answers = {true};
    Click(*e, "Command13");
    EXPECT_EQ(File(), "2020001 9 2 3\r\n0 0 0 0\r\n");
    EXPECT_EQ(scripted.Said().back(), "Friendship Tip: OK!");
}

TEST_F(EditorTest, RowButtonsWorkOnTheCurrentRowAndNeverDeleteTheLastRow) {
    for (const testing::Case& c : testing::ReadCases("shell/row_buttons.txt")) {
        auto e = Make("2020001 1 2 3\r\n2020002 4 5 6\r\n");
        Go(*e, c.Int(0), 0);
        for (const std::string& button : c.Words(1))
            Click(*e, button.c_str());
        EXPECT_EQ(e->Table()->currentIndex().row(), c.Int(2)) << c.where;
        Click(*e, "Command13");
        std::string saved;
        for (const std::string& line : c.Words(3))
            saved += line + "\r\n";
        EXPECT_EQ(File(), saved) << c.where;
    }
}

// Rows selected with Shift go at once after one question; No keeps them; one row goes at once.
TEST_F(EditorTest, SeveralSelectedRowsAreDeletedAfterOneQuestion) {
    auto e = Make("2020001 1 2 3\r\n2020002 4 5 6\r\n2020003 7 8 9\r\n2020004 1 1 1\r\n");
    Go(*e, 1, 2);
    testing::Key(e->Table(), Qt::Key_Down, Qt::ShiftModifier);
    testing::Key(e->Table(), Qt::Key_Down, Qt::ShiftModifier);
    scripted.answers = {false, true};
    Click(*e, "Command12");
    EXPECT_EQ(e->Model().rowCount(), 5);  // No: nothing deleted
    Click(*e, "Command12");
    ASSERT_EQ(scripted.Said().size(), 2u);
    EXPECT_EQ(scripted.Said()[1], "Query: Delete the 3 selected rows?");
    EXPECT_EQ(Column(*e, 0), (std::vector<QString>{"2020001", ""}));
    EXPECT_EQ(e->Table()->currentIndex(), e->Model().index(1, 2));
    Click(*e, "Command12");  // one row: at once, as ever
    EXPECT_EQ(Column(*e, 0), (std::vector<QString>{"2020001"}));
    EXPECT_EQ(scripted.Said().size(), 2u);
}

TEST_F(EditorTest, ExportCopiesTheFileOnDiskAndImportAsksThenReloads) {
    auto e = Make("2020001 1 2 3\r\n");
    Go(*e, 0, 0);
    Type(*e, "999");
    Go(*e, 0, 1);  // edited, not saved: not in the copy
    const auto target = dir.path() / "copy.txt";
    scripted.chosen = {QString(), QString::fromStdString(target.string())};
    Click(*e, "Command16");  // cancelled: nothing
    Click(*e, "Command16");
    EXPECT_TRUE(scripted.saveDialogs[0]);
    EXPECT_EQ(scripted.dialogs[0].presetName, "Demo");
    EXPECT_EQ(testing::ReadAll(target), "2020001 1 2 3\r\n");
    ASSERT_EQ(scripted.shown.size(), 1u);

    WriteFile(target, "2021001 4 4 4\r\n2021002 5 5 5\r\n");
    scripted.shown.clear();
    scripted.answers = {false, true, true};
    scripted.chosen = {QString(), QString::fromStdString(target.string())};
    Click(*e, "Command17");  // No
    Click(*e, "Command17");  // Yes, dialog cancelled
    EXPECT_EQ(File(), "2020001 1 2 3\r\n");
    Click(*e, "Command17");
    EXPECT_EQ(File(), "2021001 4 4 4\r\n2021002 5 5 5\r\n");
    EXPECT_EQ(Column(*e, 0), (std::vector<QString>{"2021001", "2021002", ""}));
    EXPECT_EQ(e->Model().headerData(0, Qt::Horizontal).toString(), "-- Date --");
    EXPECT_EQ(e->Table()->currentIndex(), e->Model().index(2, 0));
    EXPECT_EQ(scripted.shown.size(), 4u);  // three questions, then "imported"
    EXPECT_EQ(scripted.shown[0].icon, MessageIcon::Warning);
}

TEST_F(EditorTest, DownloadAndExitAskFirstAndHelpOpensItsPage) {
    auto e = Make("");
    scripted.answers = {false, true, false, true};
    Click(*e, "Command14");
    EXPECT_TRUE(scripted.opened.empty());
    Click(*e, "Command14");
    Click(*e, "Command18");
    Click(*e, "Command15");  // its page is not in help\: nothing
    ASSERT_EQ(scripted.opened.size(), 2u);
    EXPECT_EQ(scripted.opened[0].path(), "/dtdl.htm");
    EXPECT_TRUE(scripted.opened[1].toLocalFile().endsWith("help/Edit_Drawings.htm"));
    Click(*e, "Command10");
    EXPECT_TRUE(e->isVisible());
    Click(*e, "Command10");
    EXPECT_FALSE(e->isVisible());
    EXPECT_EQ(e->result(), QDialog::Accepted);
}

class ImportResultsTest : public EditorTest {
protected:
    // Ends with the file's last drawing (779) so that the rest follows it.
    const QString results = QString::fromStdString(testing::ReadAll(
        std::filesystem::path(NUMAREL_TESTS_DIR) / "shell" / "import_results.csv"));
    // The texts named `name` in import_expected.txt.
    static std::vector<std::string> Expected(const std::string& name) {
        for (const testing::Case& c : testing::ReadCases("shell/import_expected.txt"))
            if (c.Text(0) == name) return c.Words(1);
        ADD_FAILURE() << "no " << name << " in import_expected.txt";
        return {""};
    }
};

// The table's menu (Ctrl+I) opens the preview; a cancelled one changes nothing.
TEST_F(ImportResultsTest, PastedResultsArePreviewedAndGoIntoTheTableUnsaved) {
    auto e = Make("2020001 1 1 3\r\n2020002 4 5 6\r\n2020003 7 7 9\r\n0 0 0 0\r\n");
    auto* action = e->findChild<QAction*>(QStringLiteral("caiImportResults"));
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->text(), "Import results...");
    EXPECT_EQ(action->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_I));
    scripted.dialogRuns.push_back([](QDialog&) { return false; });
    action->trigger();
    EXPECT_EQ(Rows(e->Model(), 4).size(), 5u);
    scripted.clipboard.push_back(results);
    scripted.dialogRuns.push_back([&](QDialog& d) {
        auto& dialog = static_cast<ImportDialog&>(d);
        EXPECT_EQ(dialog.windowTitle(), "Import results");
        EXPECT_FALSE(dialog.findChild<QPushButton*>("import")->isEnabled());
        Click(dialog, "paste");
        EXPECT_EQ(Rows(*dialog.Preview()->model(), 5), Expected("preview"));
        // The reasons are pinned with the import; the conflict stands out.
        const QTableWidget& preview = *dialog.Preview();
        EXPECT_TRUE(preview.item(1, 5)->text().startsWith("conflict: "));
        EXPECT_NE(preview.item(1, 0)->background(), preview.item(0, 0)->background());
        EXPECT_EQ(dialog.findChild<QLabel*>("summary")->text().toStdString(),
                  Expected("summary")[0]);
        dialog.findChild<QCheckBox*>("strict")->setChecked(true);
        EXPECT_FALSE(dialog.findChild<QPushButton*>("import")->isEnabled());
        EXPECT_EQ(dialog.Preview()->rowCount(), 1);  // only the unused line is left to show
        dialog.findChild<QCheckBox*>("strict")->setChecked(false);
        EXPECT_TRUE(dialog.findChild<QPushButton*>("import")->isEnabled());
        return true;
    });
    action->trigger();
    // Current on the last new row.
    EXPECT_EQ(Rows(e->Model(), 4), Expected("added"));
    EXPECT_EQ(e->Table()->currentIndex(), e->Model().index(5, 0));
    ASSERT_FALSE(scripted.shown.empty());
    EXPECT_EQ(scripted.shown.back().text.toStdString(), Expected("added-message")[0]);
    EXPECT_EQ(File(), "2020001 1 1 3\r\n2020002 4 5 6\r\n2020003 7 7 9\r\n0 0 0 0\r\n");
    Click(*e, "Command13");
    std::string saved;
    for (const std::string& line : Expected("added-saved"))
        saved += line + "\r\n";
    EXPECT_EQ(File(), saved);
}

TEST_F(ImportResultsTest, AFileCanReplaceTheTableWithTheOptionsGiven) {
    auto e = Make();
    const auto source = dir.path() / "week.txt";
    WriteFile(source, "When;Day;Night\n2021-06-02;5-5-5;6-6-6\n2021-06-01;1-1-1;2-2-2\n");
    WriteFile(folder.HelpPage("Import_results"), "<html></html>");
    scripted.chosen = {QString(), QString::fromStdString(source.string())};
    scripted.dialogRuns.push_back([&](QDialog& d) {
        auto& dialog = static_cast<ImportDialog&>(d);
        Click(dialog, "openFile");  // cancelled
        EXPECT_EQ(dialog.Preview()->rowCount(), 0);
        Click(dialog, "openFile");
        dialog.findChild<QCheckBox*>("replace")->setChecked(true);
        dialog.findChild<QComboBox*>("dates")->setCurrentIndex(2);  // YYYYMMDD
        auto* digits = dialog.findChild<QLineEdit*>("digitsColumns");
        digits->setText("Night, Day");
        emit digits->editingFinished();
        Click(dialog, "help");
        return true;
    });
    ImportResults(*e);
    EXPECT_EQ(Rows(e->Model(), 4), Expected("replaced-from-a-file"));
    ASSERT_EQ(scripted.opened.size(), 1u);
    EXPECT_TRUE(scripted.opened[0].toLocalFile().endsWith("help/Import_results.htm"));
}

// "As the table numbers its drawings" with Replace the table: a table dated YYYYMMDD gets
// YYYYMMDD dates.
TEST_F(ImportResultsTest, ReplacingATableKeepsTheFormOfItsDates) {
    auto e = Make("20210530 1 2 3\r\n20210531 4 5 6\r\n");
    scripted.clipboard.push_back(QStringLiteral("Date,Midday\n06/01/2021,777\n06/02/2021,888\n"));
    scripted.dialogRuns.push_back([&](QDialog& d) {
        auto& dialog = static_cast<ImportDialog&>(d);
        Click(dialog, "paste");
        dialog.findChild<QCheckBox*>("replace")->setChecked(true);
        return true;
    });
    ImportResults(*e);
    EXPECT_EQ(Rows(e->Model(), 4), Expected("replaced-keeping-YYYYMMDD"));
    ASSERT_FALSE(scripted.shown.empty());
    EXPECT_EQ(scripted.shown.back().text.toStdString(), Expected("replaced-message")[0]);
}

}  // namespace
}  // namespace numarel
