#pragma once

#include <QString>
#include <QUrl>
#include <memory>
#include <string_view>

#include "data/lottery_catalog.h"
#include "data/user_message.h"

class QDialog;
class QSettings;
class QLabel;
class QMessageBox;
class QWidget;

namespace numarel {

// What the windows ask of the system, each behind a small interface so that tests can answer in
// place of a person. SystemPlatform() gives the real ones.

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    // A message with one OK button.
    virtual void Show(QWidget* parent, const QString& title, const QString& text,
                      MessageIcon icon) = 0;
    // A question with Yes and No; true only for Yes.
    virtual bool AskYesNo(QWidget* parent, const QString& title, const QString& text,
                          MessageIcon icon) = 0;
};

class TextPrompt {
public:
    virtual ~TextPrompt() = default;
    // The text the user entered; empty when the prompt was cancelled.
    virtual QString Ask(QWidget* parent, const QString& title, const QString& text) = 0;
};

// A file dialog as the windows describe it. `filter` is written "description|*.ext".
struct FileDialogRequest {
    QString title;
    QString filter;
    QString folder;      // where the dialog starts
    QString presetName;  // the name offered, save dialogs only
};

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    // The chosen path, empty when the user cancelled.
    virtual QString OpenFile(QWidget* parent, const FileDialogRequest& request) = 0;
    virtual QString SaveFile(QWidget* parent, const FileDialogRequest& request) = 0;
};

class Clipboard {
public:
    virtual ~Clipboard() = default;
    // Replaces whatever the clipboard held with plain text.
    virtual void SetText(const QString& text) = 0;
    // Replaces it with a block of cells: tab-separated text, and the same as an HTML table for
    // programs that keep colours.
    virtual void SetTable(const QString& text, const QString& html) = 0;
    // The clipboard's plain text; empty when it holds none.
    virtual QString Text() = 0;
};

// Runs one of the program's own dialogs modally, as a person would answer it.
class ModalDialogs {
public:
    virtual ~ModalDialogs() = default;
    // True when the dialog was accepted.
    virtual bool Run(QDialog& dialog) = 0;
};

class Launcher {
public:
    virtual ~Launcher() = default;
    // Opens a document or web page with the system's default handler; the result is not looked at.
    virtual void Open(const QUrl& url) = 0;
};

struct Platform {
    MessageBoxes& messages;
    TextPrompt& prompt;
    FileDialogs& files;
    Clipboard& clipboard;
    Launcher& launcher;
    ModalDialogs& dialogs;
};

// The real dialogs, clipboard and default handler.
Platform& SystemPlatform();

// "description|*.ext" as a Qt name filter, "description (*.ext)".
QString QtNameFilter(const QString& filter);

// The message box behind MessageBoxes: OK, or Yes and No. Its text is always shown as plain
// text, since it may hold a lottery name, a path or a file's text.
std::unique_ptr<QMessageBox> MakeMessageBox(QWidget* parent, const QString& title,
                                            const QString& text, MessageIcon icon, bool yesNo);

// Puts `text` into `label` as it stands, never read as markup, and sizes the label to it.
void SetPlainText(QLabel* label, const QString& text);

inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline void ShowMessage(MessageBoxes& boxes, QWidget* parent, const UserMessage& message) {
    boxes.Show(parent, ToQString(message.title), ToQString(message.text), message.icon);
}

// The user's own settings of the program (a report's zoom, the folders last used), kept between
// runs in the user's configuration folder.
std::unique_ptr<QSettings> UserSettings();

// Where the file dialogs of Save as, Export and Import start: the folder of the file last chosen
// in one of them while it still exists, else the user's documents folder (the home folder where
// there is none).
QString StartFolder();
// Keeps the folder of `chosenFile` for the next file dialog.
void RememberFolder(const QString& chosenFile);

// Shows the hourglass for the life of the object.
class WaitCursor {
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

// Opens the help page `page` (".htm" added) from the help folder with the default handler; a
// missing page does nothing.
void OpenHelpPage(Launcher& launcher, const ProgramFolder& folder, std::string_view page);

}  // namespace numarel
