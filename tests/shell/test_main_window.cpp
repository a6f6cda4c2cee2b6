#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTextBrowser>

#include "shell/main_window.h"
#include "shell/shell_fixture.h"
#include "shell/welcome_window.h"

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
    session->drawingsPath.clear();
    MainWindow* w = Make();
    testing::Drain();
    EXPECT_EQ(session->drawingsPath, folder.DataDir() / "Demo.txt");
    EXPECT_EQ(Label(w), "Lottery:Demo.");
    EXPECT_TRUE(w->WebView()->source().toLocalFile().endsWith("help/Numarel.htm"));
    EXPECT_NE(w->WebView()->toPlainText().indexOf("Start page"), -1);
    EXPECT_TRUE(scripted.shown.empty());

    WriteSelection(folder.SelectionFile(), "Gone.txt");
    MainWindow* replaced = Make();
    testing::Drain();
    EXPECT_EQ(Label(replaced), "Lottery:Demo.");
    ASSERT_EQ(scripted.shown.size(), 1u);
    EXPECT_EQ(scripted.shown[0].title, "Friendship Tip:");
    EXPECT_NE(scripted.shown[0].text.indexOf("Gone.txt"), -1);
    replaced->hide();
    replaced->show();
    testing::Drain();
    EXPECT_EQ(scripted.shown.size(), 1u);
}

TEST_F(MainWindowTest, WaitEntriesShowTheHourglassAndCaptionWhileTheReportLoads) {
    MainWindow* w = Make();
    FakeReports::watched = w;
    Action(w, "caihezhikuadu", "caihekua_ll")->trigger();  // Wait: yes
    EXPECT_EQ(FakeReports::captionDuringBuild, "Loading......Please wait......");
    EXPECT_TRUE(FakeReports::hourglassDuringBuild);
    EXPECT_EQ(w->windowTitle(), "Numarel");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    ASSERT_NE(reports->Find("frmhekualu"), nullptr);
    EXPECT_EQ(reports->Find("frmhekualu")->windowTitle(), "Fake report");

    Action(w, "ruanjianji", "caizusanleixing2")->trigger();  // Wait: no
    EXPECT_EQ(FakeReports::captionDuringBuild, "Numarel");
    EXPECT_EQ(FakeReports::builds, 2);
}

TEST_F(MainWindowTest, ChoosingAnOpenReportBringsItForward) {
    MainWindow* w = Make();
    QAction* open = Action(w, "caihezhikuadu", "caihekua_ll");
    open->trigger();
    ReportWindow* report = reports->Find("frmhekualu");
    ASSERT_NE(report, nullptr);
    report->showMinimized();
    FakeReports::watched = w;
    open->trigger();
    EXPECT_EQ(reports->Find("frmhekualu"), report);
    EXPECT_EQ(FakeReports::builds, 1);
    EXPECT_FALSE(report->isMinimized());
}

TEST_F(MainWindowTest, AfterSelectLotteryOpenReportsKeepTheOldData) {
    WriteFile(folder.DataDir() / "Other.txt", "2021001 9 9 9\r\n");
    MainWindow* w = Make();
    Action(w, "caihezhikuadu", "caihekua_ll")->trigger();
    scripted.answers = {true};
    scripted.chosen = {QString::fromStdString((folder.DataDir() / "Other.txt").string())};
    w->SelectLottery();
    EXPECT_EQ(reports->Find("frmhekualu")->Sheet().DrawCount(), 3);
    Action(w, "ruanjianji", "caizusanleixing2")->trigger();
    EXPECT_EQ(reports->Find("frmzu3leixing2")->Sheet().DrawCount(), 1);
}

// The name rules and their messages are pinned with the lottery commands; here the prompt, the
// messages in order and the label, which shows a name as it stands.
TEST_F(MainWindowTest, NewLotteryPromptsSaysWhatHappenedAndShowsTheNameAsItStands) {
    MainWindow* w = Make();
    scripted.prompts = {"", "<h1>Big", "<h1>Big"};
    QAction* create = Action(w, "caixinjian", "caixinjiancaipiao");
    for (int i = 0; i < 3; ++i)
        create->trigger();
    const std::string prompt = "New Lottery: Please enter a valid file name.";
    EXPECT_EQ(scripted.Said(),
              (std::vector<std::string>{
                  prompt, "Friendship Tip: You have not entered a name.", prompt,
                  "Friendship Tip: Lottery have been created and selected.Next, you can click "
                  "Drawings button to edit it.",
                  prompt, "Friendship Tip: This lottery already exists.Please rename."}));
    EXPECT_EQ(w->LotteryLabel()->textFormat(), Qt::PlainText);
    EXPECT_EQ(Label(w), "Lottery:<h1>Big.");
    EXPECT_EQ(session->drawingsPath, folder.DataDir() / "<h1>Big.txt");
    EXPECT_EQ(testing::ReadAll(folder.SelectionFile()), "\"<h1>Big.txt\"\r\n");
}

TEST_F(MainWindowTest, ASelectionOutsideTheDataFolderIsNeverOpenedAndIsReplacedOnce) {
    const std::string outside = "2031001 9 8 7\r\n";
    WriteFile(dir.path() / "outside.txt", outside);
    // Every form such a name can take is pinned with the lottery names; one is enough here.
    for (const std::string& selection : {std::string("\"../../outside.txt\"\r\n")}) {
        WriteFile(folder.SelectionFile(), selection);
        session->drawingsPath.clear();
        scripted.shown.clear();
        MainWindow* w = Make();
        testing::Drain();
        EXPECT_EQ(session->drawingsPath, folder.DataDir() / "Demo.txt");
        EXPECT_EQ(Label(w), "Lottery:Demo.");
        ASSERT_EQ(scripted.shown.size(), 1u);
        EXPECT_NE(scripted.shown[0].text.indexOf("outside.txt"), -1);
        EXPECT_NE(scripted.shown[0].text.indexOf("not a lottery name"), -1);
        // The lottery used instead is kept for the next start.
        EXPECT_EQ(testing::ReadAll(folder.SelectionFile()), "\"Demo.txt\"\r\n");
        w->close();
    }
    EXPECT_EQ(testing::ReadAll(dir.path() / "outside.txt"), outside);
}

TEST_F(MainWindowTest, WithoutAnyLotteryMessagesSayHowToMakeOne) {
    std::filesystem::remove(folder.DataDir() / "Demo.txt");
    std::filesystem::remove(folder.SelectionFile());
    MainWindow* w = Make();
    testing::Drain();
    EXPECT_TRUE(session->drawingsPath.empty());
    EXPECT_EQ(Label(w), "Lottery:");
    Action(w, "caihezhikuadu", "caihekua_ll")->trigger();
    ASSERT_EQ(scripted.shown.size(), 2u);
    EXPECT_NE(scripted.shown[0].text.indexOf("Make one with New Lottery."), -1);
    EXPECT_EQ(scripted.shown[1].text, "There is no lottery yet. Make one with New Lottery.");
    EXPECT_FALSE(std::filesystem::exists(folder.SelectionFile()));
}

TEST_F(MainWindowTest, SelectLotteryGoesThroughEveryBranch) {
    WriteFile(folder.DataDir() / "Night.txt", "");
    WriteFile(dir.path() / "elsewhere" / "Night.txt", "");
    MainWindow* w = Make();
    const std::string question = "Friendship Tip: Are you sure you want to select lottery?";
    struct Step {
        bool yes;
        std::filesystem::path chosen;  // empty: the dialog is cancelled
        std::vector<std::string> said;
        std::string label;
    };
    const Step steps[] = {
        {false, {}, {question}, "Lottery:Demo."},
        {true, {}, {question}, "Lottery:Demo."},
        {true,
         dir.path() / "elsewhere" / "Night.txt",
         {question, "Error: You must select lottery of the " + folder.DataDir().string() +
                        "/\nPlease select again!"},
         "Lottery:Demo."},
        {true,
         folder.DataDir() / "Night.txt",
         {question, "OK: You have selected Night.txt"},
         "Lottery:Night."},
    };
    for (const Step& step : steps) {
        scripted.shown.clear();
        scripted.answers = {step.yes};
        if (step.yes) scripted.chosen = {QString::fromStdString(step.chosen.string())};
        Button(w, "Command13")->click();
        ASSERT_EQ(scripted.Said(), step.said);
        EXPECT_EQ(scripted.shown[0].icon, MessageIcon::Warning);
        EXPECT_EQ(Label(w), step.label);
    }
    ASSERT_EQ(scripted.dialogs.size(), 3u);  // none after No
    EXPECT_EQ(scripted.dialogs[0].title, "Select Lottery");
    EXPECT_EQ(scripted.dialogs[0].filter, "Lottery file|*.txt");
    EXPECT_EQ(scripted.dialogs[0].folder, QString::fromStdString(folder.DataDir().string()));
    EXPECT_FALSE(scripted.saveDialogs[0]);
    EXPECT_EQ(session->drawingsPath, folder.DataDir() / "Night.txt");
    EXPECT_EQ(testing::ReadAll(folder.SelectionFile()), "\"Night.txt\"\r\n");
}

TEST_F(MainWindowTest, HelpNewsAndLotteryHelpOpenTheirPages) {
    MainWindow* w = Make();
    Button(w, "Command11")->click();
    Action(w, "caixinjian", "caixinjiancaipiaobzh")->trigger();
    Button(w, "Command16")->click();
    ASSERT_EQ(scripted.opened.size(), 3u);
    EXPECT_TRUE(scripted.opened[0].toLocalFile().endsWith("help/Numarelbook.htm"));
    EXPECT_TRUE(scripted.opened[1].toLocalFile().endsWith("help/New_Lottery.htm"));
    EXPECT_EQ(scripted.opened[2].path(), "/new.htm");
    EXPECT_FALSE(scripted.opened[2].isLocalFile());
    EXPECT_TRUE(scripted.shown.empty());
}

TEST_F(MainWindowTest, ExitClosesAtOnceWithoutAQuestionAndReportsStayOpen) {
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

TEST_F(MainWindowTest, StartOpensTheMainWindowAndClosesTheWelcome) {
    QPointer<MainWindow> main;
    QPointer<WelcomeWindow> welcome = new WelcomeWindow(*session, [&] {
        main = new MainWindow(*session, *reports);
        main->show();
    });
    welcome->show();
    EXPECT_EQ(welcome->windowTitle(), "Welcome to use this software.");
    Button(welcome, "Command1")->click();  // Home Page: the welcome window stays
    ASSERT_EQ(scripted.opened.size(), 1u);
    EXPECT_FALSE(scripted.opened[0].isLocalFile());
    EXPECT_TRUE(welcome->isVisible());
    Button(welcome, "Command2")->click();
    testing::Drain();
    EXPECT_TRUE(welcome.isNull());
    ASSERT_FALSE(main.isNull());
    EXPECT_TRUE(main->isVisible());
}

TEST_F(MainWindowTest, TheLotteryTypeStaysSelectedAndReturnStarts) {
    int started = 0;
    QPointer<WelcomeWindow> welcome = new WelcomeWindow(*session, [&] { ++started; });
    welcome->show();
    auto* type = welcome->findChild<QRadioButton*>(QStringLiteral("Option1"));
    ASSERT_NE(type, nullptr);
    type->click();
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QKeyEvent spaceUp(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QApplication::sendEvent(type, &space);
    QApplication::sendEvent(type, &spaceUp);
    EXPECT_TRUE(type->isChecked());
    EXPECT_EQ(started, 0);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(type, &enter);
    testing::Drain();
    EXPECT_EQ(started, 1);
    EXPECT_TRUE(welcome.isNull());
}

TEST_F(MainWindowTest, ALongLotteryNameIsElidedBeforeTheWebViewAndShownWholeAsATip) {
    const std::string name(60, 'W');
    WriteFile(folder.DataDir() / (name + ".txt"), "2020001 1 2 3\r\n");
    WriteSelection(folder.SelectionFile(), name + ".txt");
    MainWindow* w = Make();
    QLabel* label = w->LotteryLabel();
    auto* web = w->findChild<QTextBrowser*>();
    ASSERT_NE(web, nullptr);
    EXPECT_LE(label->geometry().right(), web->geometry().left());
    EXPECT_TRUE(label->text().endsWith(QChar(0x2026))) << label->text().toStdString();
    EXPECT_EQ(label->toolTip().toStdString(), "Lottery:" + name + ".");
    // A short name is shown whole, without a tip.
    MainWindow* shortName = nullptr;
    WriteSelection(folder.SelectionFile(), "Demo.txt");
    shortName = Make();
    EXPECT_EQ(Label(shortName), "Lottery:Demo.");
    EXPECT_TRUE(shortName->LotteryLabel()->toolTip().isEmpty());
}

}  // namespace
}  // namespace numarel
