#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>

#include "shell/drawings_editor.h"
#include "shell/import_dialog.h"
#include "shell/shell_fixture.h"

namespace numarel {
namespace {

// The demo lottery holds 2020001 113, 2020002 456, 2020003 779.
class ImportResultsTest : public testing::ShellTest {
protected:
    std::unique_ptr<DrawingsEditor> Editor() {
        auto editor = std::make_unique<DrawingsEditor>(*session);
        editor->show();
        QCoreApplication::processEvents();
        return editor;
    }
    static void Click(QWidget& w, const char* name) {
        w.findChild<QPushButton*>(QLatin1String(name))->click();
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

    // Ends with the file's last drawing (779) so that the rest follows it.
    const QString results = QStringLiteral(
        "Draw,Date,Midday,Evening\n"
        "2020004,01/04/2020,12,\n"
        "2020003,01/03/2020,779,\n"
        "2020005,01/05/2020,\"1,2,3\",\n"
        "2020005,01/05/2020,124,\n"
        "2020006,01/06/2020,x,\n");
};

TEST_F(ImportResultsTest, TheTablesMenuAndShortcutOpenThePreview) {
    auto e = Editor();
    auto* action = e->findChild<QAction*>(QStringLiteral("caiImportResults"));
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->text(), "Import results...");
    EXPECT_EQ(action->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_I));
    bool opened = false;
    scripted.dialogRuns.push_back([&](QDialog& d) {
        opened = d.windowTitle() == "Import results";
        return false;  // cancelled: nothing changes
    });
    action->trigger();
    EXPECT_TRUE(opened);
    EXPECT_EQ(Rows(e->Model(), 4),
              (std::vector<std::string>{"2020001 1 1 3", "2020002 4 5 6", "2020003 7 7 9", ""}));
}

TEST_F(ImportResultsTest, PastedResultsArePreviewedAndGoIntoTheTableUnsaved) {
    WriteFile(session->drawingsPath,
              "2020001 1 1 3\r\n2020002 4 5 6\r\n2020003 7 7 9\r\n0 0 0 0\r\n");
    auto e = Editor();
    scripted.clipboard.push_back(results);
    scripted.dialogRuns.push_back([&](QDialog& d) {
        auto& dialog = static_cast<ImportDialog&>(d);
        EXPECT_FALSE(dialog.findChild<QPushButton*>("import")->isEnabled());
        Click(dialog, "paste");
        // The new drawings with the conflict marked, then the line that gave nothing.
        EXPECT_EQ(Rows(*dialog.Preview()->model(), 5),
                  (std::vector<std::string>{"2020004 0 1 2 2", "2020005 1 2 3 4", "2020005 1 2 4 5",
                                            "6"}));
        // The reasons are pinned with the import; the conflict stands out.
        const QTableWidget& preview = *dialog.Preview();
        EXPECT_TRUE(preview.item(1, 5)->text().startsWith("conflict: "));
        EXPECT_NE(preview.item(1, 0)->background(), preview.item(0, 0)->background());
        EXPECT_EQ(dialog.findChild<QLabel*>("summary")->text(),
                  "4 drawings found, 3 to add, 1 already in the table, 1 conflicts, 1 lines not "
                  "used.");
        dialog.findChild<QCheckBox*>("strict")->setChecked(true);
        EXPECT_FALSE(dialog.findChild<QPushButton*>("import")->isEnabled());
        EXPECT_EQ(dialog.Preview()->rowCount(), 1);  // only the unused line is left to show
        dialog.findChild<QCheckBox*>("strict")->setChecked(false);
        EXPECT_TRUE(dialog.findChild<QPushButton*>("import")->isEnabled());
        return true;
    });
    e->findChild<QAction*>(QStringLiteral("caiImportResults"))->trigger();
    // After the last drawing, before the end marker; current on the last new row.
    EXPECT_EQ(Rows(e->Model(), 4),
              (std::vector<std::string>{"2020001 1 1 3", "2020002 4 5 6", "2020003 7 7 9",
                                        "2020004 0 1 2", "2020005 1 2 3", "2020005 1 2 4",
                                        "0 0 0 0", ""}));
    EXPECT_EQ(e->Table()->currentIndex(), e->Model().index(5, 0));
    EXPECT_EQ(File(), "2020001 1 1 3\r\n2020002 4 5 6\r\n2020003 7 7 9\r\n0 0 0 0\r\n");
    e->findChild<QPushButton*>("Command13")->click();
    EXPECT_EQ(File(),
              "2020001 1 1 3\r\n2020002 4 5 6\r\n2020003 7 7 9\r\n2020004 0 1 2\r\n"
              "2020005 1 2 3\r\n2020005 1 2 4\r\n0 0 0 0\r\n0 0 0 0\r\n");
}

TEST_F(ImportResultsTest, AFileCanReplaceTheTableWithTheOptionsGiven) {
    auto e = Editor();
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
    e->findChild<QAction*>(QStringLiteral("caiImportResults"))->trigger();
    EXPECT_EQ(Rows(e->Model(), 4),
              (std::vector<std::string>{"20210601 2 2 2", "20210601 1 1 1", "20210602 6 6 6",
                                        "20210602 5 5 5", ""}));
    ASSERT_EQ(scripted.opened.size(), 1u);
    EXPECT_TRUE(scripted.opened[0].toLocalFile().endsWith("help/Import_results.htm"));
}

}  // namespace
}  // namespace numarel
