#pragma once

#include <gtest/gtest.h>
#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace numarel::testing {

// One QApplication for the whole test program, offscreen unless told otherwise.
inline QApplication& App() {
    static int argc = 1;
    static char name[] = "numarel-test";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: Qt's own globals are gone by the time statics are torn down at exit.
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

// Stands in for the person at the screen: answers questions, prompts and file dialogs from
// scripts, and records every message, clipboard text and opened page.
class ScriptedPlatform final : public MessageBoxes,
                               public TextPrompt,
                               public FileDialogs,
                               public Clipboard,
                               public Launcher {
public:
    struct Shown {
        bool question = false;
        QString title;
        QString text;
        MessageIcon icon = MessageIcon::Information;
    };

    std::vector<Shown> shown;
    std::deque<bool> answers;     // Yes (true) or No for each question, in order
    std::deque<QString> prompts;  // the text typed into each prompt; empty: cancelled
    std::deque<QString> chosen;   // the path chosen in each file dialog; empty: cancelled
    std::vector<FileDialogRequest> dialogs;
    std::vector<bool> saveDialogs;  // per dialog: a save dialog
    std::vector<QString> clipboard;
    std::vector<QUrl> opened;
    // Runs when a message is shown, for checks of the windows' state at that moment.
    std::function<void(const Shown&)> onShown;

    Platform platform{*this, *this, *this, *this, *this};

    void Show(QWidget*, const QString& title, const QString& text, MessageIcon icon) override {
        shown.push_back({false, title, text, icon});
        if (onShown) onShown(shown.back());
    }
    bool AskYesNo(QWidget*, const QString& title, const QString& text, MessageIcon icon) override {
        shown.push_back({true, title, text, icon});
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected question: " << text.toStdString();
            return false;
        }
        bool yes = answers.front();
        answers.pop_front();
        return yes;
    }
    QString Ask(QWidget*, const QString& title, const QString& text) override {
        shown.push_back({true, title, text, MessageIcon::Question});
        return Next(prompts, "prompt");
    }
    QString OpenFile(QWidget*, const FileDialogRequest& request) override {
        dialogs.push_back(request);
        saveDialogs.push_back(false);
        return Next(chosen, "open dialog");
    }
    QString SaveFile(QWidget*, const FileDialogRequest& request) override {
        dialogs.push_back(request);
        saveDialogs.push_back(true);
        return Next(chosen, "save dialog");
    }
    void SetText(const QString& text) override { clipboard.push_back(text); }
    void Open(const QUrl& url) override { opened.push_back(url); }

    // The texts of the messages and questions shown so far.
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Shown& s : shown)
            texts.push_back(s.text.toStdString());
        return texts;
    }

private:
    static QString Next(std::deque<QString>& script, const char* what) {
        if (script.empty()) {
            ADD_FAILURE() << "unexpected " << what;
            return {};
        }
        QString next = script.front();
        script.pop_front();
        return next;
    }
};

// Mouse events as a person's hand gives them, delivered straight to a widget.
inline void MousePress(QWidget* widget, QPoint pos, Qt::MouseButton button = Qt::LeftButton) {
    QMouseEvent press(QEvent::MouseButtonPress, pos, widget->mapToGlobal(pos), button, button,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, pos, widget->mapToGlobal(pos), button,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &release);
}

inline void MouseDoubleClick(QWidget* widget, QPoint pos) {
    MousePress(widget, pos);
    QMouseEvent twice(QEvent::MouseButtonDblClick, pos, widget->mapToGlobal(pos), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &twice);
    QMouseEvent release(QEvent::MouseButtonRelease, pos, widget->mapToGlobal(pos), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &release);
}

// Lets deleteLater and queued work run.
inline void Drain() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

}  // namespace numarel::testing
