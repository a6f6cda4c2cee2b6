#include "shell/main_window.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTextBrowser>
#include <QTimer>

#include "data/lottery_commands.h"
#include "platform/twips.h"
#include "shell/drawings_editor.h"
#include "shell/publisher.h"

namespace numarel {
namespace {

// Captions are shown as they stand; "&" is not a shortcut mark here.
QString Caption(std::string_view text) {
    return ToQString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

constexpr int kGroupLeft = 240;
constexpr int kGroupTop = 960;
constexpr int kButtonPitch = 360;
constexpr int kButtonWidth = 2055;
constexpr int kButtonHeight = 255;
constexpr int kLabelLeft = 360;
constexpr int kWebViewLeft = 4800;

}  // namespace

MainWindow::MainWindow(Session& session, ReportWindows& reports)
    : QWidget(nullptr, Qt::Window), session_(session), reports_(reports) {
    setObjectName(QStringLiteral("Form1xingc"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QString::fromLatin1(kCaption));
    setFixedSize(TwipsToPixelsX(this, kClientWidth), TwipsToPixelsY(this, kClientHeight));

    CurrentLottery current = ResolveCurrentLottery(session_.folder);
    session_.drawingsPath = current.drawingsPath;
    startNotice_ = current.notice;
    // The lottery chosen in place of the selection is kept, so that the next start is quiet.
    if (current.fallback) {
        Status kept = WriteSelection(session_.folder.SelectionFile(), current.fileName);
        if (!kept.ok()) startNotice_ += "\n" + kept.message();
    }

    lotteryLabel_ = new QLabel(this);
    lotteryLabel_->setObjectName(QStringLiteral("Label2"));
    lotteryLabel_->setFont(DesignFont(9, true));
    lotteryLabel_->move(TwipsToPixelsX(this, kLabelLeft), TwipsToPixelsY(this, 360));
    SetLotteryLabel(current.label);

    BuildGroupButtons();
    BuildCommandButtons();
    BuildWebView();

    auto* version = new QLabel(QStringLiteral("v15.1"), this);
    version->setObjectName(QStringLiteral("Label1"));
    version->setFont(DesignFont(9, true, true));
    QPalette palette = version->palette();
    palette.setColor(QPalette::WindowText, QColor(128, 0, 0));
    version->setPalette(palette);
    version->adjustSize();
    version->move(TwipsToPixelsX(this, 9400), TwipsToPixelsY(this, 2880));
}

QMenu* MainWindow::Menu(std::string_view menu) const {
    return findChild<QMenu*>(ToQString(menu), Qt::FindDirectChildrenOnly);
}

QPoint MenuPosition(const QWidget& button, QPoint pointer) {
    // Clicked with the mouse: at the pointer. Pressed with Space from the keyboard, the pointer
    // may be anywhere: under the button.
    if (button.rect().contains(button.mapFromGlobal(pointer))) return pointer;
    return button.mapToGlobal(QPoint(0, button.height()));
}

void MainWindow::BuildGroupButtons() {
    int top = kGroupTop;
    for (const GroupButton& group : GroupButtons()) {
        auto* button = new QPushButton(Caption(group.caption), this);
        button->setObjectName(ToQString(group.control));
        PlaceAt(button, kGroupLeft, top, kButtonWidth, kButtonHeight);
        top += kButtonPitch;

        // A hidden top-level menu: its caption is never on screen.
        auto* menu = new QMenu(ToQString(group.menuCaption), this);
        menu->setObjectName(ToQString(group.menu));
        for (const CommandEntry& entry : MenuEntries(group.menu)) {
            if (entry.IsSeparator()) {
                menu->addSeparator();
                continue;
            }
            QAction* action = menu->addAction(Caption(entry.caption));
            action->setObjectName(ToQString(entry.control));
            action->setEnabled(reports_.IsBuilt(entry.report));
            const CommandEntry* command = &entry;
            connect(action, &QAction::triggered, this, [this, command] { OpenReport(*command); });
        }
        connect(button, &QPushButton::clicked, this,
                [menu, button] { menu->popup(MenuPosition(*button, QCursor::pos())); });
    }
}

void MainWindow::BuildCommandButtons() {
    struct ButtonPlace {
        const char* control;
        const char* caption;
        int left, top, width, height;
    };
    static constexpr ButtonPlace kButtons[] = {
        {"Command11", "Help", 2400, 2040, kButtonWidth, kButtonHeight},
        {"Command12", "New Lottery", 2400, 2400, kButtonWidth, kButtonHeight},
        {"Command13", "Select Lottery", 2400, 2760, kButtonWidth, kButtonHeight},
        {"Command14", "Drawings", 2400, 3120, kButtonWidth, kButtonHeight},
        {"Command15", "Exit", 2400, 3480, kButtonWidth, kButtonHeight},
        {"Command16", "New", 9360, 3240, 605, 495},
        {"Command1", "Exit", 9360, 3840, 605, 495},
    };
    auto button = [this](const char* control) {
        return findChild<QPushButton*>(QLatin1String(control), Qt::FindDirectChildrenOnly);
    };
    for (const ButtonPlace& place : kButtons) {
        auto* b = new QPushButton(QString::fromLatin1(place.caption), this);
        b->setObjectName(QLatin1String(place.control));
        PlaceAt(b, place.left, place.top, place.width, place.height);
    }
    // Beside the designed buttons: every track record of the reports weighed against chance.
    auto* scoreboard = new QPushButton(QStringLiteral("Scoreboard"), this);
    scoreboard->setObjectName(QStringLiteral("CommandScoreboard"));
    scoreboard->setToolTip(
        QStringLiteral("Which forecast, ticket list or digit set did better than chance"));
    PlaceAt(scoreboard, 2400, 1680, kButtonWidth, kButtonHeight);
    connect(scoreboard, &QPushButton::clicked, this, &MainWindow::OpenScoreboard);

    connect(button("Command11"), &QPushButton::clicked, this,
            [this] { OpenHelpPage(session_.platform.launcher, session_.folder, "Numarelbook"); });

    auto* newMenu = new QMenu(QStringLiteral("New Lottery"), this);
    newMenu->setObjectName(QStringLiteral("caixinjian"));
    QAction* create = newMenu->addAction(QStringLiteral("New Lottery"));
    create->setObjectName(QStringLiteral("caixinjiancaipiao"));
    connect(create, &QAction::triggered, this, &MainWindow::NewLottery);
    QAction* help = newMenu->addAction(QStringLiteral("New Lottery Help"));
    help->setObjectName(QStringLiteral("caixinjiancaipiaobzh"));
    connect(help, &QAction::triggered, this,
            [this] { OpenHelpPage(session_.platform.launcher, session_.folder, "New_Lottery"); });
    QPushButton* newLottery = button("Command12");
    connect(newLottery, &QPushButton::clicked, this,
            [newMenu, newLottery] { newMenu->popup(MenuPosition(*newLottery, QCursor::pos())); });

    connect(button("Command13"), &QPushButton::clicked, this, &MainWindow::SelectLottery);
    connect(button("Command14"), &QPushButton::clicked, this, &MainWindow::OpenDrawings);
    connect(button("Command15"), &QPushButton::clicked, this, &QWidget::close);
    connect(button("Command1"), &QPushButton::clicked, this, &QWidget::close);
    QPushButton* news = button("Command16");
    news->setToolTip(
        QStringLiteral("Click here,You may get the newest information about this software."));
    connect(news, &QPushButton::clicked, this, &MainWindow::ShowNews);
}

void MainWindow::BuildWebView() {
    webView_ = new QTextBrowser(this);
    webView_->setObjectName(QStringLiteral("WebBrowser1"));
    PlaceAt(webView_, kWebViewLeft, 240, 4455, 4095);
    // Local pages are shown here; pages of the web go to the system's browser.
    webView_->setOpenLinks(false);
    connect(webView_, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
        QUrl target = webView_->source().resolved(url);
        if (target.isLocalFile() && QFile::exists(target.toLocalFile()))
            webView_->setSource(target);
        else if (!target.isLocalFile())
            session_.platform.launcher.Open(target);
    });
    std::filesystem::path start = session_.folder.HelpDir() / "Numarel.htm";
    QString startPage = QString::fromStdString(start.string());
    if (QFile::exists(startPage)) webView_->setSource(QUrl::fromLocalFile(startPage));
}

void MainWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (startNotice_.empty()) return;
    // Said once, after the window stands.
    std::string notice = std::move(startNotice_);
    startNotice_.clear();
    QTimer::singleShot(0, this, [this, notice] {
        ShowMessage(session_.platform.messages, this, {kFriendshipTip, notice});
    });
}

void MainWindow::SetLotteryLabel(const std::string& label) {
    session_.lotteryLabel = label;
    // The label ends where the web view begins; a longer name is elided and shown whole as the
    // tooltip.
    const int room = TwipsToPixelsX(this, kWebViewLeft - kLabelLeft - 60);
    QString text = ToQString(label);
    QString shown = lotteryLabel_->fontMetrics().elidedText(text, Qt::ElideRight, room);
    SetPlainText(lotteryLabel_, shown);
    lotteryLabel_->setToolTip(shown == text ? QString() : text);
}

void MainWindow::OpenReport(const CommandEntry& entry) {
    if (reports_.Find(entry.report)) {
        reports_.Open(entry.report, this);
        return;
    }
    if (!entry.wait) {
        reports_.Open(entry.report, this);
        return;
    }
    setWindowTitle(QString::fromLatin1(kWaitCaption));
    {
        WaitCursor hourglass;
        // Let the caption and the closed menu reach the screen before the load blocks.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        reports_.Open(entry.report, this);
    }
    setWindowTitle(QString::fromLatin1(kCaption));
}

void MainWindow::ApplyLotteryChange(const LotteryChange& change) {
    if (change.changed) {
        session_.drawingsPath = change.drawingsPath;
        SetLotteryLabel(change.label);
    }
    ShowMessage(session_.platform.messages, this, change.message);
}

void MainWindow::NewLottery() {
    QString answer = session_.platform.prompt.Ask(
        this, QString::fromLatin1(lottery_texts::kNewLotteryPromptTitle),
        QString::fromLatin1(lottery_texts::kNewLotteryPromptText));
    ApplyLotteryChange(numarel::NewLottery(session_.folder, answer.toStdString()));
}

void MainWindow::SelectLottery() {
    if (!session_.platform.messages.AskYesNo(this, QString::fromLatin1(kFriendshipTip),
                                             QString::fromLatin1(lottery_texts::kSelectQuestion),
                                             MessageIcon::Warning))
        return;
    FileDialogRequest request;
    request.title = QString::fromLatin1(lottery_texts::kSelectDialogTitle);
    request.filter = QString::fromLatin1(lottery_texts::kSelectDialogFilter);
    request.folder = QString::fromStdString(session_.folder.DataDir().string());
    QString chosen = session_.platform.files.OpenFile(this, request);
    if (chosen.isEmpty()) return;
    ApplyLotteryChange(
        numarel::SelectLottery(session_.folder, QDir::toNativeSeparators(chosen).toStdString()));
}

void MainWindow::OpenDrawings() {
    DrawingsEditor editor(session_, this);
    editor.exec();
}

void MainWindow::OpenScoreboard() {
    if (scoreboard_) {
        scoreboard_->showNormal();
        scoreboard_->raise();
        scoreboard_->activateWindow();
        return;
    }
    auto* window = new ScoreboardWindow(session_, reports_);
    Status s = window->Load();
    if (!s.ok()) {
        delete window;
        ShowMessage(session_.platform.messages, this, {kFriendshipTip, s.message()});
        return;
    }
    scoreboard_ = window;
    window->show();
}

void MainWindow::ShowNews() {
    session_.platform.launcher.Open(QUrl(QString::fromLatin1(publisher::kNewsPage)));
}

}  // namespace numarel
