// Walks through the desktop program's windows under a display and photographs each with
// ImageMagick's `import`: the welcome window, the main window with a group menu open, reports
// (zoomed at the newest rows, all selected and copied with headers, a cut header read in its
// tooltip, columns fitted), the Scoreboard and the drawings editor. Used by scripts/screenshots.sh;
// takes the folder for the pictures and, optionally, the program folder to read data\,
// Numarel\ and help\ from (the executable's own by default).
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QToolTip>
#include <cstdio>
#include <memory>

#include "platform/grid_view.h"
#include "platform/platform.h"
#include "platform/twips.h"
#include "shell/drawings_editor.h"
#include "shell/enquiry_window.h"
#include "shell/main_window.h"
#include "shell/print_dialog.h"
#include "shell/report_window.h"
#include "shell/scoreboard_window.h"
#include "shell/welcome_window.h"

namespace {

// Lets the windows map and paint.
void Settle(int ms = 700) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < ms) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        QThread::msleep(20);
    }
}

// Xvfb has no window manager, so windows have no title bar: the window's caption is drawn as a
// strip above the picture instead.
bool Photograph(const QDir& folder, const QString& name, QRect area, const QString& caption) {
    area = area.intersected(QGuiApplication::primaryScreen()->geometry());
    QString crop = QStringLiteral("%1x%2+%3+%4")
                       .arg(area.width())
                       .arg(area.height())
                       .arg(area.x())
                       .arg(area.y());
    QString file = folder.filePath(name);
    int rc = QProcess::execute(QStringLiteral("import"),
                               {QStringLiteral("-window"), QStringLiteral("root"),
                                QStringLiteral("-crop"), crop, QStringLiteral("+repage"), file});
    if (rc == 0)
        rc = QProcess::execute(
            QStringLiteral("convert"),
            {file, QStringLiteral("-background"), QStringLiteral("#3c5a8c"),
             QStringLiteral("-gravity"), QStringLiteral("north"), QStringLiteral("-splice"),
             QStringLiteral("0x24"), QStringLiteral("-fill"), QStringLiteral("white"),
             QStringLiteral("-font"), QStringLiteral("Liberation-Sans-Bold"),
             QStringLiteral("-pointsize"), QStringLiteral("13"), QStringLiteral("-gravity"),
             QStringLiteral("northwest"), QStringLiteral("-annotate"), QStringLiteral("+8+4"),
             caption, file});
    std::printf("%s %s\n", rc == 0 ? "saved" : "FAILED", qPrintable(file));
    std::fflush(stdout);
    return rc == 0;
}

void Key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(widget, &press);
}

// Rests the pointer on the first cell in view whose text is cut, as a person would to read it,
// so that its tooltip shows; false when every text in view fits.
bool ShowACutText(numarel::GridView* grid) {
    QHeaderView* header = grid->horizontalHeader();
    for (int section = 0; section < header->count(); ++section) {
        const int at = header->sectionViewportPosition(section);
        if (at < 0 || at > header->viewport()->width() || header->sectionSize(section) == 0)
            continue;
        const QString text = grid->Model().headerData(section, Qt::Horizontal).toString();
        if (!numarel::TextIsCut(header->fontMetrics(), text, header->sectionSize(section)))
            continue;
        const QPoint pos(at + header->sectionSize(section) / 2, header->height() / 2);
        QCursor::setPos(header->viewport()->mapToGlobal(pos));
        QHelpEvent help(QEvent::ToolTip, pos, header->viewport()->mapToGlobal(pos));
        QApplication::sendEvent(header->viewport(), &help);
        return true;
    }
    QWidget* viewport = grid->viewport();
    for (int y = 2; y < viewport->height(); y += 4) {
        for (int x = 2; x < viewport->width(); x += 8) {
            QModelIndex index = grid->indexAt(QPoint(x, y));
            if (!index.isValid()) continue;
            QRect cell = grid->visualRect(index);
            if (!numarel::TextIsCut(grid->fontMetrics(), index.data().toString(), cell.width()))
                continue;
            QPoint at = cell.center();
            QCursor::setPos(viewport->mapToGlobal(at));
            QHelpEvent help(QEvent::ToolTip, at, viewport->mapToGlobal(at));
            QApplication::sendEvent(viewport, &help);
            return true;
        }
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setFont(numarel::DesignFont(8.25));
    if (argc < 2) {
        std::fprintf(stderr,
                     "usage: numarel_screenshot_tour <folder for the pictures> [program folder]\n");
        return 2;
    }
    QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(QStringLiteral("."));
    bool ok = true;

    numarel::Session session{
        numarel::ProgramFolder{argc > 2 ? std::string(argv[2])
                                        : QCoreApplication::applicationDirPath().toStdString()},
        numarel::SystemPlatform(),
        {},
        "Lottery:"};
    numarel::ReportWindows reports(session);
    numarel::MainWindow* main = nullptr;

    auto* welcome = new numarel::WelcomeWindow(session, [&] {
        main = new numarel::MainWindow(session, reports);
        main->move(40, 40);
        main->show();
    });
    welcome->move(40, 40);
    welcome->show();
    Settle();
    ok &= Photograph(folder, QStringLiteral("welcome.png"), welcome->frameGeometry(),
                     welcome->windowTitle());

    welcome->findChild<QPushButton*>(QStringLiteral("Command2"))->click();
    Settle();
    if (!main) return 1;
    QPushButton* others = main->findChild<QPushButton*>(QStringLiteral("Command9"));
    QMenu* menu = main->Menu("caiqitayouguan");
    menu->popup(others->mapToGlobal(QPoint(others->width() / 2, others->height() / 2)));
    Settle();
    ok &= Photograph(folder, QStringLiteral("main-window.png"),
                     main->frameGeometry().united(menu->geometry()), main->windowTitle());
    menu->hide();

    QPushButton* box = main->findChild<QPushButton*>(QStringLiteral("Command5"));
    QMenu* boxMenu = main->Menu("caizuxuanyouguan");
    boxMenu->popup(box->mapToGlobal(QPoint(box->width() / 2, box->height() / 2)));
    Settle();
    ok &= Photograph(folder, QStringLiteral("main-window-box-menu.png"),
                     main->frameGeometry().united(boxMenu->geometry()), main->windowTitle());
    boxMenu->hide();

    // Without a window manager nothing maximises a window: give each report the screen.
    auto photographReport = [&](const char* object, const QString& file, bool pressExtra) {
        numarel::ReportWindow* report = reports.Open(object, main);
        if (!report) return false;
        report->setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        report->showNormal();
        Settle(1200);
        if (pressExtra && report->ExtraButton()) {
            report->ExtraButton()->click();
            Settle(300);
        }
        bool taken = Photograph(folder, file, report->frameGeometry(), report->windowTitle());
        report->close();
        Settle(200);
        return taken;
    };
    ok &= photographReport("frmbjiouhe", QStringLiteral("report.png"), false);
    ok &= photographReport("frmzu3leixing2", QStringLiteral("report-3-way-box-type.png"), false);
    ok &= photographReport("frmrenwenleng", QStringLiteral("report-cold-warm-hot.png"), true);
    ok &= photographReport("frmliangmahecha", QStringLiteral("report-pairs-sums.png"), false);

    // Zoomed in twice at the newest rows: the row of the next drawing stays where it was.
    if (numarel::ReportWindow* report = reports.Open("frmrenwenleng", main)) {
        report->setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        report->showNormal();
        Settle(1000);
        numarel::GridView* grid = report->Grid();
        ok &= Photograph(folder, QStringLiteral("zoom-before.png"), report->frameGeometry(),
                         report->windowTitle() + QStringLiteral(" (100 %%)"));
        Key(grid, Qt::Key_Plus, Qt::ControlModifier);
        Key(grid, Qt::Key_Plus, Qt::ControlModifier);
        Key(grid, Qt::Key_Plus, Qt::ControlModifier);
        Settle(500);
        ok &= Photograph(folder, QStringLiteral("zoom-newest-rows.png"), report->frameGeometry(),
                         report->windowTitle() + QStringLiteral(" (Ctrl++ three times)"));
        Key(grid, Qt::Key_0, Qt::ControlModifier);  // the next opening at 100 % again

        // Ctrl+A, then Copy with headers from the right-click menu.
        Key(grid, Qt::Key_A, Qt::ControlModifier);
        Settle(300);
        std::unique_ptr<QMenu> sheetMenu(grid->BuildContextMenu(nullptr));
        for (QAction* action : sheetMenu->actions())
            if (action->text() == QStringLiteral("Copy with headers")) action->trigger();
        sheetMenu->popup(grid->viewport()->mapToGlobal(QPoint(300, 200)));
        Settle(500);
        ok &= Photograph(folder, QStringLiteral("select-all-copy-with-headers.png"),
                         report->frameGeometry(),
                         report->windowTitle() + QStringLiteral(" (Ctrl+A, Copy with headers)"));
        sheetMenu->hide();
        report->close();
        Settle(200);
    } else {
        ok = false;
    }

    // A text cut by its column, read in its tooltip.
    if (numarel::ReportWindow* report = reports.Open("frmjiachengzh", main)) {
        report->setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        report->showNormal();
        Settle(1000);
        if (ShowACutText(report->Grid())) {
            Settle(300);
            ok &= Photograph(folder, QStringLiteral("tooltip-cut-text.png"),
                             report->frameGeometry(), report->windowTitle());
            // A double click on the header edges fits the columns to their texts.
            QToolTip::hideText();
            for (int col = 0; col < report->Grid()->Model().columnCount(); ++col)
                report->Grid()->resizeColumnToContents(col);
            Settle(500);
            ok &= Photograph(
                folder, QStringLiteral("columns-fitted.png"), report->frameGeometry(),
                report->windowTitle() + QStringLiteral(" (header edges double-clicked)"));
        } else {
            std::printf("no cut text in view\n");
        }
        report->close();
        Settle(200);
    }

    // Print preview of a report: the rows and the fit to the width beside the first page.
    if (numarel::ReportWindow* report = reports.Open("frm3weizoushi", main)) {
        report->setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        report->showNormal();
        Settle(600);
        {  // closed before its report window, which owns it
            numarel::ReportPrintDialog preview(
                report->Sheet(), session.drawingsPath.stem().string(), session.platform.files,
                session.platform.messages, true, report);
            preview.resize(1180, 720);
            preview.move(50, 30);
            preview.show();
            Settle(1200);
            ok &= Photograph(folder, QStringLiteral("print-preview.png"), preview.frameGeometry(),
                             preview.windowTitle());
            preview.close();
        }
        report->close();
        Settle(200);
    } else {
        ok = false;
    }

    // The Straight Number enquiry after Enquire with a few tickets typed in.
    if (auto* enquiry =
            dynamic_cast<numarel::EnquiryWindow*>(reports.Open("frmzhixuanhaocx", main))) {
        enquiry->setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        enquiry->showNormal();
        Settle(1200);
        enquiry->TicketBox()->setPlainText(QStringLiteral("123 456,789\n012 345"));
        enquiry->EnquireButton()->click();
        Settle(600);
        ok &= Photograph(folder, QStringLiteral("report-enquiry.png"), enquiry->frameGeometry(),
                         enquiry->windowTitle());
        // A four-digit Miss cut by its column, read in its tooltip.
        if (ShowACutText(enquiry->Grid())) {
            Settle(300);
            ok &= Photograph(folder, QStringLiteral("enquiry-miss-tooltip.png"),
                             enquiry->frameGeometry(), enquiry->windowTitle());
            QToolTip::hideText();
        }
        enquiry->close();
        Settle(200);
    } else {
        ok = false;
    }

    // The Scoreboard on the sample's whole history, its first method charted.
    main->findChild<QPushButton*>(QStringLiteral("CommandScoreboard"))->click();
    Settle(300);
    if (numarel::ScoreboardWindow* scoreboard = main->Scoreboard()) {
        scoreboard->setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        scoreboard->showNormal();
        Settle(1200);
        ok &= Photograph(folder, QStringLiteral("scoreboard.png"), scoreboard->frameGeometry(),
                         scoreboard->windowTitle());
        scoreboard->close();
        Settle(200);
    } else {
        ok = false;
    }

    {
        numarel::DrawingsEditor editor(session, main);
        editor.move(60, 60);
        QTimer::singleShot(900, &editor, [&] {
            ok &= Photograph(folder, QStringLiteral("editor.png"), editor.frameGeometry(),
                             editor.windowTitle());
            editor.reject();
        });
        editor.exec();
    }
    main->close();
    Settle(200);
    return ok ? 0 : 1;
}
