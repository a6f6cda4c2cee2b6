#include <QCursor>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTextBrowser>

#include "shell/main_window.h"
#include "shell/shell_fixture.h"
#include "shell/welcome_window.h"
#include "support/case_file.h"

namespace numarel {
namespace {

using testing::FakeReports;

class MainWindowTest : public testing::ShellTest {
protected:
    MainWindow* Make() {
        auto* w = new MainWindow(*session, *reports);
        w->show();
        QCoreApplication::processEvents();
        return w;
    }
    static QAction* Action(MainWindow* w, std::string_view menu, const char* control) {
        return w->Menu(menu)->findChild<QAction*>(QLatin1String(control));
    }
    static QPushButton* Button(QWidget* w, const char* control) {
        return w->findChild<QPushButton*>(QLatin1String(control));
    }
    std::string Label(MainWindow* w) { return w->LotteryLabel()->text().toStdString(); }
};

TEST_F(MainWindowTest, MenusFollowTheCommandTable) {
    MainWindow* w = Make();
    for (const GroupButton& group : GroupButtons()) {
        QPushButton* button = w->findChild<QPushButton*>(ToQString(group.control));
        ASSERT_NE(button, nullptr) << group.control;
        // "&" is shown as it stands, not taken as a shortcut mark.
        EXPECT_EQ(button->text().replace("&&", "&"), ToQString(group.caption));
        QMenu* menu = w->Menu(group.menu);
        ASSERT_NE(menu, nullptr) << group.menu;
        std::span<const CommandEntry> entries = MenuEntries(group.menu);
        QList<QAction*> actions = menu->actions();
        ASSERT_EQ(actions.size(), static_cast<qsizetype>(entries.size())) << group.menu;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            const CommandEntry& entry = entries[i];
            QAction* action = actions[static_cast<qsizetype>(i)];
            EXPECT_EQ(action->isSeparator(), entry.IsSeparator()) << entry.control;
            if (entry.IsSeparator()) continue;
            EXPECT_EQ(action->text().replace("&&", "&"), ToQString(entry.caption));
            EXPECT_EQ(action->objectName(), ToQString(entry.control));
            EXPECT_EQ(action->isEnabled(), FakeReports::Find(entry.report) != nullptr)
                << entry.control;
        }
    }
}

TEST_F(MainWindowTest, StartUpReadsTheSelectionOrSaysOnceWhatReplacedIt) {
    WriteFile(folder.HelpDir() / "Numarel.htm", "<html><body>Start page</body></html>");
    WriteFile(dir.path() / "outside.txt", "2031001 9 8 7\r\n");
    session->drawingsPath.clear();
    MainWindow* w = Make();
    testing::Drain();
    EXPECT_EQ(session->drawingsPath, folder.DataDir() / "Demo.txt");
    EXPECT_EQ(Label(w), "Lottery:Demo.");
    EXPECT_NE(w->WebView()->toPlainText().indexOf("Start page"), -1);
    EXPECT_TRUE(scripted.shown.empty());

    // The forms a name can take are pinned with the lottery names; here one that is gone and one
    // outside the data folder: each said once, the sample used and kept for the next start.
    for (const char* selection : {"Gone.txt", "../../outside.txt"}) {
        WriteFile(folder.SelectionFile(), std::string("\"") + selection + "\"\r\n");
        scripted.shown.clear();
        MainWindow* replaced = Make();
        testing::Drain();
        EXPECT_EQ(Label(replaced), "Lottery:Demo.");
        replaced->hide();
        replaced->show();
        testing::Drain();
        ASSERT_EQ(scripted.shown.size(), 1u) << selection;
        EXPECT_EQ(scripted.shown[0].title, "Friendship Tip:");
        EXPECT_NE(scripted.shown[0].text.indexOf(QString(selection).section('/', -1)), -1);
        replaced->close();
    }
    EXPECT_EQ(testing::ReadAll(folder.SelectionFile()), "\"Demo.txt\"\r\n");
    EXPECT_EQ(testing::ReadAll(dir.path() / "outside.txt"), "2031001 9 8 7\r\n");
}

TEST_F(MainWindowTest, WaitEntriesShowTheHourglassAndAnOpenReportIsBroughtForward) {
    MainWindow* w = Make();
    FakeReports::watched = w;
    QAction* open = Action(w, "caihezhikuadu", "caihekua_ll");  // Wait: yes
    open->trigger();
    EXPECT_EQ(FakeReports::captionDuringBuild, "Loading......Please wait......");
    EXPECT_TRUE(FakeReports::hourglassDuringBuild);
    EXPECT_EQ(w->windowTitle(), "Numarel");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    ReportWindow* report = reports->Find("frmhekualu");
    ASSERT_NE(report, nullptr);

    Action(w, "ruanjianji", "caizusanleixing2")->trigger();  // Wait: no
    EXPECT_EQ(FakeReports::captionDuringBuild, "Numarel");
    report->showMinimized();
    open->trigger();
    EXPECT_EQ(reports->Find("frmhekualu"), report);
    EXPECT_EQ(FakeReports::builds, 2);
    EXPECT_FALSE(report->isMinimized());
}

// The name rules and the texts of the messages are pinned with the lottery commands; here the
// prompt, the label, which shows a name as it stands, and open reports keeping their data.
TEST_F(MainWindowTest, NewAndSelectLotteryChangeTheLabelAndLeaveOpenReportsAlone) {
    MainWindow* w = Make();
    Action(w, "caihezhikuadu", "caihekua_ll")->trigger();
    scripted.prompts = {"Big &amp; Small"};
    Action(w, "caixinjian", "caixinjiancaipiao")->trigger();
    ASSERT_EQ(scripted.shown.size(), 2u);
    EXPECT_EQ(scripted.shown[0].title, "New Lottery:");
    EXPECT_EQ(w->LotteryLabel()->textFormat(), Qt::PlainText);
    EXPECT_EQ(Label(w), "Lottery:Big &amp; Small.");
    EXPECT_EQ(session->drawingsPath, folder.DataDir() / "Big &amp; Small.txt");

    WriteFile(folder.DataDir() / "Night.txt", "2021001 9 9 9\r\n");
    for (const testing::Case& step : testing::ReadCases("shell/select_lottery.txt")) {
        SCOPED_TRACE(step.where);
        const bool yes = step.Text(0) == "yes";
        scripted.shown.clear();
        scripted.answers = {yes};
        if (yes)
            scripted.chosen = {
                step.Text(1).empty()
                    ? QString()
                    : QString::fromStdString((folder.DataDir() / step.Text(1)).string())};
        Button(w, "Command13")->click();
        EXPECT_EQ(scripted.shown[0].icon, MessageIcon::Warning);
        EXPECT_EQ(scripted.shown.size(), step.Text(1).empty() ? 1u : 2u);
        EXPECT_EQ(Label(w), step.Text(2));
    }
    ASSERT_EQ(scripted.dialogs.size(), 2u);  // none after No
    EXPECT_EQ(scripted.dialogs[0].title, "Select Lottery");
    EXPECT_EQ(scripted.dialogs[0].filter, "Lottery file|*.txt");
    EXPECT_EQ(scripted.dialogs[0].folder, QString::fromStdString(folder.DataDir().string()));
    EXPECT_EQ(testing::ReadAll(folder.SelectionFile()), "\"Night.txt\"\r\n");
    EXPECT_EQ(reports->Find("frmhekualu")->Sheet().DrawCount(), 3);
    Action(w, "ruanjianji", "caizusanleixing2")->trigger();
    EXPECT_EQ(reports->Find("frmzu3leixing2")->Sheet().DrawCount(), 1);
}

TEST_F(MainWindowTest, WithoutAnyLotteryMessagesSayHowToMakeOne) {
    std::filesystem::remove(folder.DataDir() / "Demo.txt");
    std::filesystem::remove(folder.SelectionFile());
    MainWindow* w = Make();
    testing::Drain();
    EXPECT_EQ(Label(w), "Lottery:");
    Action(w, "caihezhikuadu", "caihekua_ll")->trigger();
    ASSERT_EQ(scripted.shown.size(), 2u);
    EXPECT_EQ(scripted.shown[1].text, "There is no lottery yet. Make one with New Lottery.");
    EXPECT_FALSE(std::filesystem::exists(folder.SelectionFile()));
}

TEST_F(MainWindowTest, HelpPagesOpenAndExitClosesAtOnceLeavingReportsOpen) {
    MainWindow* help = Make();
    Button(help, "Command11")->click();
    Action(help, "caixinjian", "caixinjiancaipiaobzh")->trigger();
    Button(help, "Command16")->click();
    ASSERT_EQ(scripted.opened.size(), 3u);
    EXPECT_TRUE(scripted.opened[0].toLocalFile().endsWith("help/Numarelbook.htm"));
    EXPECT_TRUE(scripted.opened[1].toLocalFile().endsWith("help/New_Lottery.htm"));
    EXPECT_EQ(scripted.opened[2].path(), "/new.htm");
    help->close();
    for (const char* exit : {"Command15", "Command1"}) {
        QPointer<MainWindow> w = Make();
        Action(w, "caihezhikuadu", "caihekua_ll")->trigger();
        QPointer<ReportWindow> report = reports->Find("frmhekualu");
        Button(w, exit)->click();
        testing::Drain();
        EXPECT_TRUE(w.isNull()) << exit;
        ASSERT_FALSE(report.isNull());
        EXPECT_TRUE(report->isVisible());
    }
    EXPECT_TRUE(scripted.shown.empty());
}

TEST_F(MainWindowTest, TheWelcomeStartsOnClickOrReturnAndTheTypeStaysSelected) {
    int started = 0;
    QPointer<WelcomeWindow> welcome = new WelcomeWindow(*session, [&] { ++started; });
    welcome->show();
    Button(welcome, "Command1")->click();  // Home Page: the welcome window stays
    ASSERT_EQ(scripted.opened.size(), 1u);
    EXPECT_FALSE(scripted.opened[0].isLocalFile());
    auto* type = welcome->findChild<QRadioButton*>(QStringLiteral("Option1"));
    ASSERT_NE(type, nullptr);
    type->click();
    testing::Key(type, Qt::Key_Space, Qt::NoModifier, " ", true);
    EXPECT_TRUE(type->isChecked());
    EXPECT_EQ(started, 0);
    testing::Key(type, Qt::Key_Return);
    testing::Drain();
    EXPECT_EQ(started, 1);
    EXPECT_TRUE(welcome.isNull());

    QPointer<WelcomeWindow> clicked = new WelcomeWindow(*session, [&] { ++started; });
    clicked->show();
    Button(clicked, "Command2")->click();
    testing::Drain();
    EXPECT_EQ(started, 2);
    EXPECT_TRUE(clicked.isNull());
}

// A menu opened with the mouse stands at the pointer; opened from the keyboard, at its button.
TEST_F(MainWindowTest, GroupMenusOpenedFromTheKeyboardStandAtTheirButton) {
    MainWindow* w = Make();
    const GroupButton& group = GroupButtons().front();
    QPushButton* button = Button(w, std::string(group.control).c_str());
    ASSERT_NE(button, nullptr);
    const QPoint inside = button->mapToGlobal(QPoint(5, 4));
    const QPoint below = button->mapToGlobal(QPoint(0, button->height()));
    EXPECT_EQ(MenuPosition(*button, inside), inside);
    EXPECT_EQ(MenuPosition(*button, inside + QPoint(0, 2000)), below);

    QCursor::setPos(below + QPoint(900, 700));
    button->setFocus();
    testing::Key(button, Qt::Key_Space, Qt::NoModifier, " ", true);
    QMenu* menu = w->Menu(group.menu);
    ASSERT_TRUE(menu->isVisible());
    EXPECT_LE((menu->pos() - below).manhattanLength(), 2);
    menu->close();
}

}  // namespace
}  // namespace numarel
