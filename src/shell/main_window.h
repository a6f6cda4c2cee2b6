#pragma once

#include <QPointer>
#include <QWidget>
#include <string>
#include <string_view>

#include "data/lottery_commands.h"
#include "reports/command_table.h"
#include "shell/report_window.h"
#include "shell/scoreboard_window.h"
#include "shell/session.h"

class QLabel;
class QMenu;
class QTextBrowser;

namespace numarel {

// The hub of the program: the current lottery, the eight group buttons whose popup menus open
// every report, the lottery commands, the drawings editor and a view of the start page.
class MainWindow : public QWidget {
    Q_OBJECT
public:
    static constexpr int kClientWidth = 10035;
    static constexpr int kClientHeight = 4620;
    static constexpr const char* kCaption = "Numarel";
    static constexpr const char* kWaitCaption = "Loading......Please wait......";

    // Reads the current lottery into `session` and loads the start page.
    MainWindow(Session& session, ReportWindows& reports);

    // The popup menu of a group, by its menu name ("cailiangmayg"), or of New Lottery
    // ("caixinjian").
    QMenu* Menu(std::string_view menu) const;
    QLabel* LotteryLabel() const { return lotteryLabel_; }
    QTextBrowser* WebView() const { return webView_; }

    // The commands of the buttons and menus.
    void OpenReport(const CommandEntry& entry);
    void NewLottery();
    void SelectLottery();
    void OpenDrawings();
    void ShowNews();
    // Opens the Scoreboard of the current lottery, or brings it forward when it is open.
    void OpenScoreboard();
    ScoreboardWindow* Scoreboard() const { return scoreboard_; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void BuildGroupButtons();
    void BuildCommandButtons();
    void BuildWebView();
    void ApplyLotteryChange(const LotteryChange& change);
    void SetLotteryLabel(const std::string& label);

    Session& session_;
    ReportWindows& reports_;
    QLabel* lotteryLabel_ = nullptr;
    QTextBrowser* webView_ = nullptr;
    std::string startNotice_;
    QPointer<ScoreboardWindow> scoreboard_;
};

// Where a group button's menu pops up: at the pointer when the button was clicked with the mouse,
// under the button when it was pressed from the keyboard and the pointer is elsewhere.
QPoint MenuPosition(const QWidget& button, QPoint pointer);

}  // namespace numarel
