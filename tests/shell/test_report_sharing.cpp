#include <QKeyEvent>
#include <QMenu>

#include "cli/sheet_format.h"
#include "platform/grid_view.h"
#include "shell/shell_fixture.h"

namespace numarel {
namespace {

class ReportSharingTest : public testing::ShellTest {
protected:
    static void Key(QWidget* w, int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(w, &press);
    }
    static void Trigger(QMenu& menu, const QString& starts) {
        for (QAction* a : menu.actions())
            if (a->text().startsWith(starts)) return a->trigger();
        ADD_FAILURE() << starts.toStdString();
    }
};

TEST_F(ReportSharingTest, CtrlCCopiesTheBlockAsTextAndAsAColouredTable) {
    ReportWindow* w = Open("frmhekualu");
    ASSERT_NE(w, nullptr);
    ReportSheet& sheet = w->Sheet();
    sheet.SetText(1, 1, "a");
    sheet.SetText(1, 2, "b");
    sheet.SetText(2, 1, "c");
    sheet.SetText(2, 2, "d\xe9");
    sheet.SetBackColor(2, 2, MakeRgb(255, 0, 0));
    GridView* grid = w->Grid();
    grid->SetCurrentCell(1, 1);
    Key(grid, Qt::Key_Right, Qt::ShiftModifier);
    Key(grid, Qt::Key_Down, Qt::ShiftModifier);
    Key(grid, Qt::Key_C, Qt::ControlModifier);
    ASSERT_EQ(scripted.clipboard.size(), 1u);
    EXPECT_EQ(scripted.clipboard[0], QString::fromUtf8("a\tb\nc\td\xc3\xa9\n"));
    EXPECT_TRUE(scripted.clipboardHtml.contains("<td style=\"background:#ff0000;\">d"))
        << scripted.clipboardHtml.toStdString();
    EXPECT_EQ(scripted.clipboardHtml.count("<tr>"), 2);
    // Copying moved nothing and marked nothing.
    EXPECT_EQ(sheet.BackColor(1, 1), kDefaultColour);
}

TEST_F(ReportSharingTest, SaveWritesTheWholeSheetAsTheCommandLineDoes) {
    ReportWindow* w = Open("frmbjiouhe");
    ASSERT_NE(w, nullptr);
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
        // Cancelled: nothing written.
        std::filesystem::remove(path);
        scripted.chosen.push_back(QString());
        Trigger(*menu, c.action);
        EXPECT_FALSE(std::filesystem::exists(path));
    }
    EXPECT_TRUE(scripted.shown.empty());
}

}  // namespace
}  // namespace numarel
