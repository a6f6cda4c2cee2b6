#pragma once

#include <QAbstractTableModel>
#include <QWidget>
#include <memory>

#include "data/status.h"
#include "reports/scoreboard/scoreboard.h"
#include "shell/report_window.h"
#include "shell/session.h"

class QChart;
class QChartView;
class QComboBox;
class QLabel;
class QLineSeries;
class QAreaSeries;
class QPushButton;
class QSortFilterProxyModel;
class QTableView;

namespace numarel {

// The scoreboard's rows for one stretch: one per method, each column sortable by its value.
class ScoreTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column {
        kReport,
        kMethod,
        kKind,
        kJudged,
        kHits,
        kRate,
        kExpected,
        kZ,
        kP,
        kQ,
        kLongestMiss,
        kExpectedLongestMiss,
        kCost,
        kReturned,
        kExpectedReturn,
        kColumnCount
    };
    // The role that holds a cell's value for sorting: a number, or the text.
    static constexpr int kSortRole = Qt::UserRole;

    explicit ScoreTableModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}
    void SetTable(const ScoreTable* table, int stretchIndex);
    int StretchIndex() const { return stretchIndex_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const ScoreTable* table_ = nullptr;
    int stretchIndex_ = 0;
};

// Every forecast, ticket list and digit set of the reports against chance, for the current
// lottery: the table for the chosen stretch, and for the selected method a chart of its hits so
// far minus the hits chance gives, with the band of two standard deviations. A double click opens
// the method's report.
class ScoreboardWindow : public QWidget {
    Q_OBJECT
public:
    ScoreboardWindow(Session& session, ReportWindows& reports);

    // Reads the current lottery and scores every method. On failure the window must not be shown.
    Status Load();

    const ScoreTable& Table() const { return table_; }
    QTableView* View() const { return view_; }
    QSortFilterProxyModel* Proxy() const { return proxy_; }
    QComboBox* StretchChooser() const { return stretch_; }
    QChart* Chart() const { return chart_; }
    QLineSeries* ExcessSeries() const { return excess_; }
    QLabel* MethodLabel() const { return methodLabel_; }
    // The track of a row of the view (after sorting); -1 for none.
    int TrackOfRow(int viewRow) const;
    // Selects the view's row `viewRow` and charts its method.
    void SelectRow(int viewRow);
    // Opens the report of the view's row, as a double click does.
    void OpenReportOfRow(int viewRow);

private:
    void ChooseStretch(int index);
    void ShowChart(int track);

    Session& session_;
    ReportWindows& reports_;
    ScoreTable table_;
    ScoreTableModel* model_ = nullptr;
    QSortFilterProxyModel* proxy_ = nullptr;
    QTableView* view_ = nullptr;
    QComboBox* stretch_ = nullptr;
    QLabel* summary_ = nullptr;
    QLabel* methodLabel_ = nullptr;
    QChartView* chartView_ = nullptr;
    QChart* chart_ = nullptr;
    QLineSeries* excess_ = nullptr;
    QLineSeries* upper_ = nullptr;
    QLineSeries* lower_ = nullptr;
    QAreaSeries* band_ = nullptr;
    int chartedTrack_ = -1;
};

}  // namespace numarel
