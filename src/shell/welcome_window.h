#pragma once

#include <QWidget>
#include <functional>

#include "shell/session.h"

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

private:
    Session& session_;
    std::function<void()> start_;
};

}  // namespace numarel
