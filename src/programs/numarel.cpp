#include <QApplication>

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

    numarel::Session session{
        numarel::ProgramFolder{QCoreApplication::applicationDirPath().toStdString()},
        numarel::SystemPlatform(),
        {},
        "Lottery:"};
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
