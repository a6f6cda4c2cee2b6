#include <QApplication>
#include <QMessageBox>

#include "data/program_home.h"

#include "platform/platform.h"
#include "platform/twips.h"
#include "shell/main_window.h"
#include "shell/report_window.h"
#include "shell/session.h"
#include "shell/welcome_window.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Numarel"));
    QApplication::setFont(numarel::DesignFont(8.25));

    numarel::ProgramFolder folder;
    numarel::Status found =
        numarel::ResolveProgramFolder(QCoreApplication::applicationDirPath().toStdString(),
                                      numarel::HomeEnvironment::FromProcess(), folder);
    if (!found.ok()) {
        QMessageBox box(QMessageBox::Critical, QStringLiteral("Numarel"),
                        QString::fromStdString(found.message()));
        box.setTextFormat(Qt::PlainText);
        box.exec();
        return 1;
    }
    numarel::Session session{folder, numarel::SystemPlatform(), {}, "Lottery:"};
    numarel::ReportWindows reports(session);

    // Report windows have no owner, so they stay open after the main window closes; the run ends
    // with the last window.
    auto* welcome = new numarel::WelcomeWindow(session, [&session, &reports] {
        auto* main = new numarel::MainWindow(session, reports);
        main->show();
    });
    welcome->show();
    return app.exec();
}
