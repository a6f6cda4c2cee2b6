#include "shell/scoreboard_window.h"

#include <QAreaSeries>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineSeries>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>
#include <cmath>
#include <vector>

#include "reports/scoreboard/payout_table.h"

namespace numarel {
namespace {

QString Number(double value, int decimals) {
    return QString::number(value, 'f', decimals);
}

QString PText(double p) {
    return p < 0.0001 ? QString::number(p, 'e', 1) : QString::number(p, 'f', 4);
}

QString KindText(MethodKind kind) {
    switch (kind) {
        case MethodKind::Forecast:
            return QStringLiteral("forecast");
        case MethodKind::List:
            return QStringLiteral("list");
        case MethodKind::Set:
            return QStringLiteral("set");
    }
    return {};
}

// The stretches the chooser offers, by their index in the table.
QString StretchCaption(int stretch) {
    return stretch > 0 ? QStringLiteral("Last %1 drawings").arg(stretch)
                       : QStringLiteral("All drawings");
}

// At most this many points a line: a long history is thinned evenly, its last point kept.
constexpr std::size_t kChartPoints = 3000;

}  // namespace

void ScoreTableModel::SetTable(const ScoreTable* table, int stretchIndex) {
    beginResetModel();
    table_ = table;
    stretchIndex_ = stretchIndex;
    endResetModel();
}

int ScoreTableModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !table_) return 0;
    return static_cast<int>(table_->tracks.size());
}

int ScoreTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant ScoreTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    static const char* const kHeaders[] = {
        "Report", "Method",   "Kind",           "Judged",
        "Hits",   "Rate",     "Expected",       "z",
        "p",      "q",        "Longest miss",   "Expected longest miss",
        "Cost",   "Returned", "Expected return"};
    static const char* const kTips[] = {
        "The report that makes the claim",
        "The claim as the report's window names it",
        "A forecast made from the drawings before, a fixed list of tickets, or a fixed digit set",
        "Drawings the report judged the method on",
        "Judged drawings the method hit, as the report marks them",
        "Hits per judged drawing",
        "The hits chance gives: the shares of the 1000 numbers each claim counts as a hit, added "
        "up",
        "Hits minus expected hits, in standard deviations",
        "The chance of straying this far from the expected hits, either way, in a fair drawing",
        "The p-value corrected for the many methods of the table (Benjamini-Hochberg)",
        "The longest run of judged drawings without a hit",
        "The longest run of misses chance gives on average",
        "Playing the list, 1 unit a ticket, on every judged drawing",
        "What the hits of the list would have paid",
        "What chance pays the list on average"};
    if (section < 0 || section >= kColumnCount) return {};
    if (role == Qt::DisplayRole) return QString::fromLatin1(kHeaders[section]);
    if (role == Qt::ToolTipRole) return QString::fromLatin1(kTips[section]);
    return {};
}

QVariant ScoreTableModel::data(const QModelIndex& index, int role) const {
    if (!table_ || !index.isValid()) return {};
    const auto t = static_cast<std::size_t>(index.row());
    const MethodTrack& track = table_->tracks[t];
    const StretchScore& s = table_->scores[t][static_cast<std::size_t>(stretchIndex_)];
    const int column = index.column();
    const bool sort = role == kSortRole;
    if (role == Qt::TextAlignmentRole)
        return column <= kKind ? QVariant(Qt::AlignLeft | Qt::AlignVCenter)
                               : QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::ToolTipRole && column == kReport) return ToQString(track.report);
    if (role == Qt::ToolTipRole && column == kZ && s.tooFew)
        return QStringLiteral("Fewer than %1 judged drawings: no figure").arg(kMinJudged);
    if (role == Qt::BackgroundRole && column == kZ && !s.tooFew && std::fabs(s.z) >= 2)
        return QColor(255, 223, 157);
    if (role != Qt::DisplayRole && !sort) return {};
    // A missing figure sorts after every figure.
    const QVariant none = sort ? QVariant(1e300) : QVariant(QString());
    switch (column) {
        case kReport:
            return ToQString(track.title);
        case kMethod:
            return ToQString(track.column.name);
        case kKind:
            return KindText(track.column.method->kind);
        case kJudged:
            return sort ? QVariant(s.judged) : QVariant(QString::number(s.judged));
        case kHits:
            return sort ? QVariant(s.hits) : QVariant(QString::number(s.hits));
        case kRate: {
            if (s.judged == 0) return none;
            const double rate = 100.0 * s.hits / s.judged;
            return sort ? QVariant(rate) : QVariant(Number(rate, 1) + QLatin1Char('%'));
        }
        case kExpected:
            return sort ? QVariant(s.expected) : QVariant(Number(s.expected, 1));
        case kZ:
            if (s.tooFew) return sort ? none : QVariant(QStringLiteral("too few drawings"));
            return sort ? QVariant(s.z) : QVariant(Number(s.z, 2));
        case kP:
            if (s.tooFew) return none;
            return sort ? QVariant(s.p) : QVariant(PText(s.p));
        case kQ:
            if (track.usesLaterDrawings())
                return sort ? QVariant(2e300) : QVariant(QStringLiteral("uses later drawings"));
            if (!s.q) return none;
            return sort ? QVariant(*s.q) : QVariant(PText(*s.q));
        case kLongestMiss:
            return sort ? QVariant(s.longestMiss) : QVariant(QString::number(s.longestMiss));
        case kExpectedLongestMiss:
            return sort ? QVariant(s.expectedLongestMiss)
                        : QVariant(Number(s.expectedLongestMiss, 1));
        case kCost:
            if (!s.cost) return none;
            return sort ? QVariant(*s.cost) : QVariant(Number(*s.cost, 0));
        case kReturned:
            if (!s.returned) return none;
            return sort ? QVariant(*s.returned) : QVariant(Number(*s.returned, 0));
        case kExpectedReturn:
            if (!s.expectedReturn) return none;
            return sort ? QVariant(*s.expectedReturn) : QVariant(Number(*s.expectedReturn, 0));
        default:
            return {};
    }
}

ScoreboardWindow::ScoreboardWindow(Session& session, ReportWindows& reports)
    : QWidget(nullptr, Qt::Window), session_(session), reports_(reports) {
    setObjectName(QStringLiteral("ScoreboardWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Scoreboard"));

    stretch_ = new QComboBox(this);
    stretch_->setObjectName(QStringLiteral("StretchChooser"));
    summary_ = new QLabel(this);
    auto* help = new QPushButton(QStringLiteral("Help"), this);
    help->setObjectName(QStringLiteral("HelpButton"));
    auto* exit = new QPushButton(QStringLiteral("Exit"), this);
    exit->setObjectName(QStringLiteral("ExitButton"));
    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Stretch:"), this));
    top->addWidget(stretch_);
    top->addSpacing(12);
    top->addWidget(summary_, 1);
    top->addWidget(help);
    top->addWidget(exit);

    model_ = new ScoreTableModel(this);
    proxy_ = new QSortFilterProxyModel(this);
    proxy_->setSourceModel(model_);
    proxy_->setSortRole(ScoreTableModel::kSortRole);
    view_ = new QTableView(this);
    view_->setObjectName(QStringLiteral("ScoreTable"));
    view_->setModel(proxy_);
    view_->setSortingEnabled(true);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setAlternatingRowColors(true);
    view_->verticalHeader()->setVisible(false);
    view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() + 4);
    view_->horizontalHeader()->setHighlightSections(false);

    chart_ = new QChart;
    chart_->setMargins(QMargins(4, 4, 4, 4));
    chart_->legend()->setAlignment(Qt::AlignBottom);
    excess_ = new QLineSeries(chart_);
    excess_->setName(QStringLiteral("Hits minus the hits chance gives"));
    upper_ = new QLineSeries(chart_);
    lower_ = new QLineSeries(chart_);
    band_ = new QAreaSeries(upper_, lower_);
    band_->setName(QStringLiteral("Two standard deviations"));
    band_->setColor(QColor(43, 145, 255, 50));
    band_->setBorderColor(QColor(43, 145, 255, 120));
    chart_->addSeries(band_);
    chart_->addSeries(excess_);
    QPen pen(QColor(200, 0, 0));
    pen.setWidthF(1.5);
    excess_->setPen(pen);
    auto* xAxis = new QValueAxis(chart_);
    xAxis->setTitleText(QStringLiteral("Drawing"));
    xAxis->setLabelFormat(QStringLiteral("%d"));
    auto* yAxis = new QValueAxis(chart_);
    yAxis->setTitleText(QStringLiteral("Hits - expected"));
    chart_->addAxis(xAxis, Qt::AlignBottom);
    chart_->addAxis(yAxis, Qt::AlignLeft);
    for (QAbstractSeries* series :
         {static_cast<QAbstractSeries*>(band_), static_cast<QAbstractSeries*>(excess_)}) {
        series->attachAxis(xAxis);
        series->attachAxis(yAxis);
    }
    chartView_ = new QChartView(chart_, this);
    chartView_->setObjectName(QStringLiteral("ExcessChart"));
    chartView_->setRenderHint(QPainter::Antialiasing);
    methodLabel_ = new QLabel(this);
    methodLabel_->setObjectName(QStringLiteral("MethodLabel"));

    auto* chartBox = new QWidget(this);
    auto* chartLayout = new QVBoxLayout(chartBox);
    chartLayout->setContentsMargins(0, 0, 0, 0);
    chartLayout->addWidget(methodLabel_);
    chartLayout->addWidget(chartView_, 1);
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(view_);
    splitter->addWidget(chartBox);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(splitter, 1);

    connect(exit, &QPushButton::clicked, this, &QWidget::close);
    connect(help, &QPushButton::clicked, this,
            [this] { OpenHelpPage(session_.platform.launcher, session_.folder, "Scoreboard"); });
    connect(stretch_, &QComboBox::currentIndexChanged, this, &ScoreboardWindow::ChooseStretch);
    connect(view_, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { OpenReportOfRow(index.row()); });
    connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { ShowChart(TrackOfRow(current.row())); });
    resize(1400, 900);
}

Status ScoreboardWindow::Load() {
    std::vector<DrawRecord> drawings;
    Status s = ReadHistory(session_.drawingsPath, drawings);
    if (!s.ok()) return s;
    WaitCursor hourglass;
    ScoreOptions options;
    options.lottery = session_.drawingsPath.stem().string();
    options.payouts = ReadPayoutTable(session_.folder.SelectionFile().parent_path() /
                                      std::string(kPayoutFileName));
    table_ = BuildScoreboard(drawings, options);

    QSignalBlocker block(stretch_);
    stretch_->clear();
    for (int stretch : table_.stretches)
        stretch_->addItem(StretchCaption(stretch));
    const int all = static_cast<int>(table_.stretches.size()) - 1;
    stretch_->setCurrentIndex(all);
    summary_->setText(
        QStringLiteral("%1: %2 drawings, %3 methods. Hits against the hits chance gives; "
                       "a q below 0.05 stands out from the whole table.")
            .arg(ToQString(table_.lottery))
            .arg(table_.drawings)
            .arg(table_.tracks.size()));
    ChooseStretch(all);
    view_->sortByColumn(ScoreTableModel::kP, Qt::AscendingOrder);
    view_->resizeColumnsToContents();
    SelectRow(0);
    return Status::Ok();
}

int ScoreboardWindow::TrackOfRow(int viewRow) const {
    const QModelIndex index = proxy_->mapToSource(proxy_->index(viewRow, 0));
    return index.isValid() ? index.row() : -1;
}

void ScoreboardWindow::SelectRow(int viewRow) {
    if (viewRow < 0 || viewRow >= proxy_->rowCount()) return;
    view_->selectRow(viewRow);
    view_->setCurrentIndex(proxy_->index(viewRow, 0));
    ShowChart(TrackOfRow(viewRow));
}

void ScoreboardWindow::OpenReportOfRow(int viewRow) {
    const int track = TrackOfRow(viewRow);
    if (track < 0) return;
    reports_.Open(table_.tracks[static_cast<std::size_t>(track)].report, this);
}

void ScoreboardWindow::ChooseStretch(int index) {
    if (index < 0 || index >= static_cast<int>(table_.stretches.size())) return;
    const int track = chartedTrack_;
    model_->SetTable(&table_, index);
    // The method charted stays selected.
    if (track >= 0) {
        const QModelIndex row = proxy_->mapFromSource(model_->index(track, 0));
        view_->selectRow(row.row());
        view_->setCurrentIndex(row);
    }
    ShowChart(track);
}

void ScoreboardWindow::ShowChart(int track) {
    chartedTrack_ = track;
    QList<QPointF> excess;
    QList<QPointF> upper;
    QList<QPointF> lower;
    if (track < 0 || table_.tracks.empty()) {
        excess_->clear();
        upper_->clear();
        lower_->clear();
        methodLabel_->clear();
        return;
    }
    const int stretchIndex = model_->StretchIndex();
    const MethodTrack& method = table_.tracks[static_cast<std::size_t>(track)];
    const StretchScore& score =
        table_.scores[static_cast<std::size_t>(track)][static_cast<std::size_t>(stretchIndex)];
    const std::vector<ExcessPoint> points =
        CumulativeExcess(method, table_.stretches[static_cast<std::size_t>(stretchIndex)]);
    const std::size_t step =
        std::max<std::size_t>(1, (points.size() + kChartPoints - 1) / kChartPoints);
    double low = -1;
    double high = 1;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const ExcessPoint& p = points[i];
        low = std::min({low, p.excess, -p.band});
        high = std::max({high, p.excess, p.band});
        if (i % step != 0 && i + 1 != points.size()) continue;
        excess.append(QPointF(p.row, p.excess));
        upper.append(QPointF(p.row, p.band));
        lower.append(QPointF(p.row, -p.band));
    }
    excess_->replace(excess);
    upper_->replace(upper);
    lower_->replace(lower);
    const auto axes = chart_->axes();
    for (QAbstractAxis* axis : axes) {
        auto* value = qobject_cast<QValueAxis*>(axis);
        if (!value) continue;
        if (axis->alignment() == Qt::AlignBottom) {
            if (points.empty())
                value->setRange(0, 1);
            else
                value->setRange(points.front().row,
                                std::max(points.back().row, points.front().row + 1));
        } else {
            const double margin = (high - low) * 0.05;
            value->setRange(low - margin, high + margin);
            value->applyNiceNumbers();
        }
    }
    QString text = ToQString(method.title) + QStringLiteral(", ") + ToQString(method.column.name) +
                   QStringLiteral(": %1 hits in %2 drawings, %3 expected")
                       .arg(score.hits)
                       .arg(score.judged)
                       .arg(Number(score.expected, 1));
    if (!score.tooFew)
        text += QStringLiteral(", z %1, p %2").arg(Number(score.z, 2), PText(score.p));
    if (!method.nextClaim.empty())
        text += QStringLiteral(". For the next drawing: %1").arg(ToQString(method.nextClaim));
    methodLabel_->setText(text);
}

}  // namespace numarel
