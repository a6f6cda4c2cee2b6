#pragma once

#include <QWidget>
#include <functional>

#include "shell/session.h"

class QPushButton;

namespace numarel {

// The first window of a run: the lottery type, the publisher's home page and Start, which opens
// the main window and closes this one.
class WelcomeWindow : public QWidget {
    Q_OBJECT
public:
    static constexpr int kClientWidth = 4200;
    static constexpr int kClientHeight = 1680;

    // `start` creates and shows the main window.
    WelcomeWindow(Session& session, std::function<void()> start);

protected:
    void paintEvent(QPaintEvent* event) override;
    // Return presses Start, as in a dialog.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPushButton* startButton_ = nullptr;
    Session& session_;
    std::function<void()> start_;
};

}  // namespace numarel
