#include "platform/platform.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QStandardPaths>
#include <filesystem>

namespace numarel {
namespace {

QMessageBox::Icon ToQt(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Warning:
            return QMessageBox::Warning;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Information:
            break;
    }
    return QMessageBox::Information;
}

class SystemMessageBoxes final : public MessageBoxes {
public:
    void Show(QWidget* parent, const QString& title, const QString& text,
              MessageIcon icon) override {
        MakeMessageBox(parent, title, text, icon, false)->exec();
    }
    bool AskYesNo(QWidget* parent, const QString& title, const QString& text,
                  MessageIcon icon) override {
        return MakeMessageBox(parent, title, text, icon, true)->exec() == QMessageBox::Yes;
    }
};

class SystemTextPrompt final : public TextPrompt {
public:
    QString Ask(QWidget* parent, const QString& title, const QString& text) override {
        bool ok = false;
        QString answer = QInputDialog::getText(parent, title, text, QLineEdit::Normal, {}, &ok);
        return ok ? answer : QString();
    }
};

class SystemFileDialogs final : public FileDialogs {
public:
    QString OpenFile(QWidget* parent, const FileDialogRequest& r) override {
        return QFileDialog::getOpenFileName(parent, r.title, r.folder, QtNameFilter(r.filter));
    }
    QString SaveFile(QWidget* parent, const FileDialogRequest& r) override {
        QFileDialog dialog(parent, r.title, r.folder, QtNameFilter(r.filter));
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        // A name typed without an extension gets the filter's, as "name" -> "name.txt".
        const qsizetype dot = r.filter.lastIndexOf(QLatin1String("*."));
        if (dot >= 0)
            dialog.setDefaultSuffix(r.filter.mid(dot + 2).section(QLatin1Char(';'), 0, 0));
        if (!r.presetName.isEmpty()) dialog.selectFile(r.presetName);
        // The replace question is the dialog's own: Export replaces what is there.
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
        return dialog.selectedFiles().constFirst();
    }
};

class SystemClipboard final : public Clipboard {
public:
    void SetText(const QString& text) override {
        QClipboard* clipboard = QGuiApplication::clipboard();
        clipboard->clear();
        clipboard->setText(text);
    }
    void SetTable(const QString& text, const QString& html) override {
        auto* data = new QMimeData;
        data->setText(text);
        data->setHtml(html);
        QGuiApplication::clipboard()->setMimeData(data);
    }
    QString Text() override { return QGuiApplication::clipboard()->text(); }
};

class SystemModalDialogs final : public ModalDialogs {
public:
    bool Run(QDialog& dialog) override { return dialog.exec() == QDialog::Accepted; }
};

class SystemLauncher final : public Launcher {
public:
    void Open(const QUrl& url) override { QDesktopServices::openUrl(url); }
};

}  // namespace

std::unique_ptr<QMessageBox> MakeMessageBox(QWidget* parent, const QString& title,
                                            const QString& text, MessageIcon icon, bool yesNo) {
    auto box = std::make_unique<QMessageBox>(
        ToQt(icon), title, QString(), yesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok,
        parent);
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    if (yesNo) box->setDefaultButton(QMessageBox::Yes);
    return box;
}

void SetPlainText(QLabel* label, const QString& text) {
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->adjustSize();
}

Platform& SystemPlatform() {
    static SystemMessageBoxes messages;
    static SystemTextPrompt prompt;
    static SystemFileDialogs files;
    static SystemClipboard clipboard;
    static SystemLauncher launcher;
    static SystemModalDialogs dialogs;
    static Platform platform{messages, prompt, files, clipboard, launcher, dialogs};
    return platform;
}

QString QtNameFilter(const QString& filter) {
    QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters << parts[i] + QStringLiteral(" (") +
                       parts[i + 1].replace(QLatin1Char(';'), QLatin1Char(' ')) + QLatin1Char(')');
    return filters.isEmpty() ? filter : filters.join(QStringLiteral(";;"));
}

void OpenHelpPage(Launcher& launcher, const ProgramFolder& folder, std::string_view page) {
    std::filesystem::path file = folder.HelpPage(page);
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) return;
    launcher.Open(QUrl::fromLocalFile(QString::fromStdString(file.string())));
}

WaitCursor::WaitCursor() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitCursor::~WaitCursor() {
    QApplication::restoreOverrideCursor();
}

std::unique_ptr<QSettings> UserSettings() {
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                       QStringLiteral("Numarel"), QStringLiteral("Numarel"));
}

namespace {
const QString kLastFolderKey = QStringLiteral("folders/last");
}  // namespace

QString StartFolder() {
    const QString last = UserSettings()->value(kLastFolderKey).toString();
    if (!last.isEmpty() && QFileInfo(last).isDir()) return last;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!documents.isEmpty() && QFileInfo(documents).isDir()) return documents;
    return QDir::homePath();
}

void RememberFolder(const QString& chosenFile) {
    if (chosenFile.isEmpty()) return;
    UserSettings()->setValue(kLastFolderKey, QFileInfo(chosenFile).absolutePath());
}

}  // namespace numarel
