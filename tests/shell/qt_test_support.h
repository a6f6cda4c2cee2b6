#pragma once

#include <gtest/gtest.h>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStandardPaths>
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
    // Settings the windows keep (a report's zoom, the folders last used) go to a test folder,
    // never to the user's own.
    QStandardPaths::setTestModeEnabled(true);
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
                               public Launcher,
                               public ModalDialogs {
public:
    struct Shown {
        QString title;
        QString text;
        MessageIcon icon = MessageIcon::Information;
    };

    std::vector<Shown> shown;
    std::deque<bool> answers;     // Yes (true) or No for each question, in order
    std::deque<QString> prompts;  // the text typed into each prompt; empty: cancelled
    std::deque<QString> chosen;   // the path chosen in each file dialog; empty: cancelled
    std::vector<FileDialogRequest> dialogs;
    std::vector<bool> saveDialogs;   // per dialog: a save dialog
    std::vector<QString> clipboard;  // every text set; the last one is what Text() reads
    QString clipboardHtml;           // the HTML of the last table put on the clipboard
    std::vector<QUrl> opened;
    // What the person does in each dialog of the program's own, in order; the result is whether
    // the dialog was accepted.
    std::deque<std::function<bool(QDialog&)>> dialogRuns;
    // Runs when a message is shown, for checks of the windows' state at that moment.
    std::function<void()> onShown;

    Platform platform{*this, *this, *this, *this, *this, *this};

    void Show(QWidget*, const QString& title, const QString& text, MessageIcon icon) override {
        shown.push_back({title, text, icon});
        if (onShown) onShown();
    }
    bool AskYesNo(QWidget*, const QString& title, const QString& text, MessageIcon icon) override {
        shown.push_back({title, text, icon});
        return Next(answers, "question");
    }
    QString Ask(QWidget*, const QString& title, const QString& text) override {
        shown.push_back({title, text, MessageIcon::Question});
        return Next(prompts, "prompt");
    }
    QString OpenFile(QWidget*, const FileDialogRequest& request) override {
        return Dialog(request, false);
    }
    QString SaveFile(QWidget*, const FileDialogRequest& request) override {
        return Dialog(request, true);
    }
    void SetText(const QString& text) override { clipboard.push_back(text); }
    QString Text() override { return clipboard.empty() ? QString() : clipboard.back(); }
    bool Run(QDialog& dialog) override {
        auto run = Next(dialogRuns, "dialog");
        return run && run(dialog);
    }
    void SetTable(const QString& text, const QString& html) override {
        clipboard.push_back(text);
        clipboardHtml = html;
    }
    void Open(const QUrl& url) override { opened.push_back(url); }

    // The messages and questions shown so far, each as its title, a blank and its text.
    std::vector<std::string> Said() const {
        std::vector<std::string> said;
        for (const Shown& s : shown)
            said.push_back((s.title + " " + s.text).toStdString());
        return said;
    }

private:
    QString Dialog(const FileDialogRequest& request, bool save) {
        dialogs.push_back(request);
        saveDialogs.push_back(save);
        return Next(chosen, "file dialog");
    }
    template <class T>
    static T Next(std::deque<T>& script, const char* what) {
        if (script.empty()) {
            ADD_FAILURE() << "unexpected " << what;
            return {};
        }
        T next = script.front();
        script.pop_front();
        return next;
    }
};

// Mouse events as a person's hand gives them, delivered straight to a widget.
inline void MouseEvents(QWidget* widget, QPoint pos, std::initializer_list<QEvent::Type> types,
                        Qt::MouseButton button = Qt::LeftButton) {
    for (QEvent::Type type : types) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
        QMouseEvent event(type, pos, widget->mapToGlobal(pos), button, held, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
}
inline void MousePress(QWidget* widget, QPoint pos, Qt::MouseButton button = Qt::LeftButton) {
    MouseEvents(widget, pos, {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}, button);
}
inline void MouseDoubleClick(QWidget* widget, QPoint pos) {
    MouseEvents(widget, pos,
                {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                 QEvent::MouseButtonRelease});
}

// A key pressed on a widget, and released again when `release` is set.
inline void Key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                const QString& text = {}, bool release = false) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &press);
    if (!release) return;
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &up);
}

// Lets deleteLater and queued work run.
inline void Drain() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

}  // namespace numarel::testing
