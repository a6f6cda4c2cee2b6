#include <QAreaSeries>
#include <QChart>
#include <QComboBox>
#include <QLabel>
#include <QLineSeries>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTableView>

#include "shell/main_window.h"
#include "shell/scoreboard_window.h"
#include "shell/shell_fixture.h"

namespace numarel {
namespace {

class ScoreboardWindowTest : public testing::ShellTest {
protected:
    void SetUp() override {
        ShellTest::SetUp();
        WriteFile(folder.DataDir() / "Demo.txt", testing::HistoryText(400, 3, 2020001));
        realReports = std::make_unique<ReportWindows>(*session);
    }
    ScoreboardWindow* Make() {
        auto* w = new ScoreboardWindow(*session, *realReports);
        EXPECT_TRUE(w->Load().ok());
        w->show();
        QCoreApplication::processEvents();
        return w;
    }
    std::unique_ptr<ReportWindows> realReports;
};

TEST_F(ScoreboardWindowTest, OpensSortedByPChartsAMethodAndSortsAndChangesStretch) {
    ScoreboardWindow* w = Make();
    const ScoreTable& table = w->Table();
    EXPECT_EQ(table.drawings, 400);
    EXPECT_EQ(w->StretchChooser()->currentText(), "All drawings");
    QSortFilterProxyModel* proxy = w->Proxy();
    ASSERT_EQ(proxy->rowCount(), static_cast<int>(table.tracks.size()));
    // Sorted by p, smallest first; the rows without a p (too few drawings) last.
    double last = -1;
    for (int r = 0; r < proxy->rowCount(); ++r) {
        const double p =
            proxy->index(r, ScoreTableModel::kP).data(ScoreTableModel::kSortRole).toDouble();
        EXPECT_GE(p, last);
        last = p;
    }
    // The first row's method is charted: one point per judged drawing, inside its band or not.
    const int track = w->TrackOfRow(0);
    const StretchScore& score = table.scores[static_cast<std::size_t>(track)][3];
    EXPECT_EQ(w->ExcessSeries()->count(), score.judged);
    const QPointF end = w->ExcessSeries()->at(w->ExcessSeries()->count() - 1);
    EXPECT_NEAR(end.y(), score.hits - score.expected, 1e-6);
    EXPECT_TRUE(w->MethodLabel()->text().contains(
        ToQString(table.tracks[static_cast<std::size_t>(track)].column.name)));

    // Any column sorts; the stretch changes the figures, not the charted method.
    w->View()->sortByColumn(ScoreTableModel::kHits, Qt::DescendingOrder);
    for (int r = 1; r < proxy->rowCount(); ++r)
        EXPECT_GE(
            proxy->index(r - 1, ScoreTableModel::kHits).data(ScoreTableModel::kSortRole).toInt(),
            proxy->index(r, ScoreTableModel::kHits).data(ScoreTableModel::kSortRole).toInt());

    w->SelectRow(5);
    const int chosen = w->TrackOfRow(5);
    w->StretchChooser()->setCurrentIndex(0);  // the last 100 drawings
    QCoreApplication::processEvents();
    EXPECT_EQ(w->TrackOfRow(w->View()->currentIndex().row()), chosen);
    const StretchScore& last100 = w->Table().scores[static_cast<std::size_t>(chosen)][0];
    EXPECT_LE(last100.judged, 100);
    EXPECT_EQ(w->ExcessSeries()->count(), last100.judged);
    const QModelIndex judged =
        proxy->index(w->View()->currentIndex().row(), ScoreTableModel::kJudged);
    EXPECT_EQ(judged.data().toString(), QString::number(last100.judged));
}

TEST_F(ScoreboardWindowTest, DoubleClickOpensTheReportAndFlagsShowAsWords) {
    ScoreboardWindow* w = Make();
    QSortFilterProxyModel* proxy = w->Proxy();
    int flagged = -1;
    for (int r = 0; r < proxy->rowCount(); ++r)
        if (proxy->index(r, ScoreTableModel::kQ).data().toString() == "uses later drawings")
            flagged = r;
    ASSERT_GE(flagged, 0);
    EXPECT_EQ(w->Table().tracks[static_cast<std::size_t>(w->TrackOfRow(flagged))].report,
              "frmtongshahao");
    w->OpenReportOfRow(flagged);
    QCoreApplication::processEvents();
    ReportWindow* report = realReports->Find("frmtongshahao");
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(report->Sheet().TopRow(), report->Sheet().Rows() - 1);
    report->close();
}

TEST_F(ScoreboardWindowTest, TheMainWindowOpensItOnceAndAMissingFileIsSaid) {
    auto* main = new MainWindow(*session, *realReports);
    main->show();
    QPushButton* button = main->findChild<QPushButton*>(QStringLiteral("CommandScoreboard"));
    ASSERT_NE(button, nullptr);
    button->click();
    ScoreboardWindow* first = main->Scoreboard();
    ASSERT_NE(first, nullptr);
    button->click();
    EXPECT_EQ(main->Scoreboard(), first);
    first->close();
    QCoreApplication::processEvents();

    session->drawingsPath = folder.DataDir() / "Gone.txt";
    button->click();
    EXPECT_EQ(main->Scoreboard(), nullptr);
    ASSERT_FALSE(scripted.shown.empty());
    main->close();
}

}  // namespace
}  // namespace numarel
