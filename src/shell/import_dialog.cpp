#include "shell/import_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>
#include <set>
#include <tuple>

#include "platform/platform.h"

namespace numarel {
namespace {

enum PreviewColumn { kDate, kH, kT, kU, kLine, kNote, kPreviewColumns };

const QColor kConflictBack(255, 210, 210);
const QColor kUnusedText(128, 128, 128);

// The choices of the Date field, in the order of the list.
constexpr std::pair<const char*, DateField> kDateFields[] = {
    {"As the table numbers its drawings", DateField::Auto},
    {"Year and running number (YYYYNNN)", DateField::YearRunning},
    {"Year, month and day (YYYYMMDD)", DateField::YearMonthDay},
    {"Running number", DateField::Number},
};

constexpr DateFormat kDateFormats[] = {
    DateFormat::Guess,        DateFormat::MonthDayYear,    DateFormat::DayMonthYearSlash,
    DateFormat::YearMonthDay, DateFormat::DayMonthYearDot, DateFormat::Compact};

QTableWidgetItem* Item(const QString& text) {
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled);
    return item;
}

}  // namespace

ImportDialog::ImportDialog(Session& session, std::vector<DrawRecord> tableDrawings, QWidget* parent)
    : QDialog(parent), session_(session), tableDrawings_(std::move(tableDrawings)) {
    setObjectName(QStringLiteral("ImportResults"));
    setWindowTitle(QStringLiteral("Import results"));
    setModal(true);

    auto* layout = new QVBoxLayout(this);

    auto* sourceRow = new QHBoxLayout;
    sourceLabel_ = new QLabel(QStringLiteral("Open a results file or paste the results."), this);
    sourceLabel_->setObjectName(QStringLiteral("source"));
    sourceLabel_->setTextFormat(Qt::PlainText);
    auto* open = new QPushButton(QStringLiteral("Open file..."), this);
    open->setObjectName(QStringLiteral("openFile"));
    auto* paste = new QPushButton(QStringLiteral("Paste"), this);
    paste->setObjectName(QStringLiteral("paste"));
    paste->setToolTip(QStringLiteral("Take the results from the clipboard"));
    for (QPushButton* b : {open, paste})
        b->setAutoDefault(false);
    sourceRow->addWidget(sourceLabel_, 1);
    sourceRow->addWidget(open);
    sourceRow->addWidget(paste);
    layout->addLayout(sourceRow);
    connect(open, &QPushButton::clicked, this, &ImportDialog::OpenFile);
    connect(paste, &QPushButton::clicked, this, &ImportDialog::PasteText);
    auto* pasteKey = new QShortcut(QKeySequence::Paste, this);
    connect(pasteKey, &QShortcut::activated, this, &ImportDialog::PasteText);

    columns_ = new QLabel(this);
    columns_->setObjectName(QStringLiteral("columns"));
    columns_->setTextFormat(Qt::PlainText);
    columns_->setWordWrap(true);
    layout->addWidget(columns_);

    auto* form = new QFormLayout;
    auto lineEdit = [this](const char* name, const char* hint) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(QLatin1String(name));
        edit->setPlaceholderText(QLatin1String(hint));
        connect(edit, &QLineEdit::editingFinished, this, &ImportDialog::Refresh);
        return edit;
    };
    dateColumn_ = lineEdit("dateColumn", "found from the header and the values");
    drawColumn_ = lineEdit("drawColumn", "found from the header and the values");
    digitsColumns_ = lineEdit("digitsColumns",
                              "found; or say them in the day's order: Midday, Evening or 3+4+5");
    form->addRow(QStringLiteral("Date column:"), dateColumn_);
    form->addRow(QStringLiteral("Draw number column:"), drawColumn_);
    form->addRow(QStringLiteral("Digits columns:"), digitsColumns_);

    dateFormat_ = new QComboBox(this);
    dateFormat_->setObjectName(QStringLiteral("dateFormat"));
    for (DateFormat f : kDateFormats)
        dateFormat_->addItem(f == DateFormat::Guess ? QStringLiteral("Found from the values")
                                                    : ToQString(DateFormatName(f)));
    form->addRow(QStringLiteral("Date format:"), dateFormat_);
    dates_ = new QComboBox(this);
    dates_->setObjectName(QStringLiteral("dates"));
    for (auto [caption, field] : kDateFields)
        dates_->addItem(QString::fromLatin1(caption));
    form->addRow(QStringLiteral("Date field written:"), dates_);
    for (QComboBox* box : {dateFormat_, dates_})
        connect(box, &QComboBox::currentIndexChanged, this, &ImportDialog::Refresh);

    strict_ =
        new QCheckBox(QStringLiteral("Refuse a source that gives two versions of a drawing"), this);
    strict_->setObjectName(QStringLiteral("strict"));
    replace_ = new QCheckBox(QStringLiteral("Replace the table instead of adding to it"), this);
    replace_->setObjectName(QStringLiteral("replace"));
    for (QCheckBox* box : {strict_, replace_}) {
        form->addRow(QString(), box);
        connect(box, &QCheckBox::toggled, this, &ImportDialog::Refresh);
    }
    layout->addLayout(form);

    preview_ = new QTableWidget(0, kPreviewColumns, this);
    preview_->setObjectName(QStringLiteral("preview"));
    preview_->setHorizontalHeaderLabels({QStringLiteral("Date"), QStringLiteral("H"),
                                         QStringLiteral("T"), QStringLiteral("U"),
                                         QStringLiteral("Line"), QStringLiteral("Note")});
    preview_->verticalHeader()->hide();
    preview_->setSelectionMode(QAbstractItemView::NoSelection);
    preview_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    preview_->horizontalHeader()->setStretchLastSection(true);
    for (int col : {kH, kT, kU})
        preview_->setColumnWidth(col, 36);
    layout->addWidget(preview_, 1);

    summary_ = new QLabel(this);
    summary_->setObjectName(QStringLiteral("summary"));
    summary_->setTextFormat(Qt::PlainText);
    summary_->setWordWrap(true);
    layout->addWidget(summary_);

    auto* buttons = new QDialogButtonBox(this);
    import_ = buttons->addButton(QStringLiteral("Import"), QDialogButtonBox::AcceptRole);
    import_->setObjectName(QStringLiteral("import"));
    QPushButton* cancel = buttons->addButton(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("cancel"));
    QPushButton* help = buttons->addButton(QDialogButtonBox::Help);
    help->setObjectName(QStringLiteral("help"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(help, &QPushButton::clicked, this, [this] {
        OpenHelpPage(session_.platform.launcher, session_.folder, "Import_results");
    });
    layout->addWidget(buttons);

    resize(760, 560);
    ShowPlan();
}

void ImportDialog::OpenFile() {
    FileDialogRequest request;
    request.title = QStringLiteral("Open a results file");
    request.filter = QStringLiteral("Results|*.csv;*.txt;*.tsv|All files|*");
    request.folder = StartFolder();
    QString chosen = session_.platform.files.OpenFile(this, request);
    if (chosen.isEmpty()) return;
    RememberFolder(chosen);
    std::string bytes;
    Status s = ReadFileBytes(chosen.toStdString(), bytes, "results file");
    if (s.ok()) s = CheckReadableText(bytes, "results file", chosen.toStdString());
    if (!s.ok()) {
        session_.platform.messages.Show(this, QStringLiteral("Error:"), ToQString(s.message()),
                                        MessageIcon::Warning);
        return;
    }
    SetSource(std::move(bytes), chosen);
}

void ImportDialog::PasteText() {
    QString text = session_.platform.clipboard.Text();
    SetSource(text.toStdString(),
              QStringLiteral("Text from the clipboard, %1 lines")
                  .arg(text.count(QLatin1Char('\n')) + (text.endsWith(QLatin1Char('\n')) ? 0 : 1)));
}

void ImportDialog::SetSource(std::string bytes, const QString& description) {
    source_ = std::move(bytes);
    hasSource_ = true;
    sourceLabel_->setText(QStringLiteral("Source: ") + description);
    Refresh();
}

bool ImportDialog::ReplaceTable() const {
    return replace_->isChecked();
}

ImportOptions ImportDialog::Options() const {
    ImportOptions options;
    options.hints.dateColumn = dateColumn_->text().trimmed().toStdString();
    options.hints.drawColumn = drawColumn_->text().trimmed().toStdString();
    for (const QString& part : digitsColumns_->text().split(QLatin1Char(','), Qt::SkipEmptyParts))
        if (!part.trimmed().isEmpty())
            options.hints.digitsColumns.push_back(part.trimmed().toStdString());
    options.hints.dateFormat = kDateFormats[std::max(0, dateFormat_->currentIndex())];
    options.dates = kDateFields[std::max(0, dates_->currentIndex())].second;
    options.strict = strict_->isChecked();
    // The new drawings replacing the table are numbered as the table numbers its own.
    if (ReplaceTable() && !tableDrawings_.empty())
        options.numberedLike = tableDrawings_.back().date;
    return options;
}

void ImportDialog::Refresh() {
    if (!hasSource_) return;
    WaitCursor hourglass;
    plan_ = PlanImport(source_, ReplaceTable() ? std::span<const DrawRecord>() : tableDrawings_,
                       Options());
    ShowPlan();
}

void ImportDialog::ShowPlan() {
    const ResultsSource& source = plan_.source;
    columns_->setText(!hasSource_ || source.layout.digitsColumns.empty()
                          ? QString()
                          : QStringLiteral("Columns: ") + ToQString(DescribeLayout(source.layout)));

    // Drawings given in more than one version, by date, draw number and drawing of the day.
    std::set<std::tuple<int, int, int>> conflicting;
    for (const SourceConflict& c : source.conflicts)
        for (const SourceDrawing& d : c.kept)
            conflicting.insert({d.date, d.drawNumber, d.slot});

    preview_->setRowCount(0);
    preview_->setRowCount(static_cast<int>(plan_.added.size() + source.rejected.size()));
    int row = 0;
    for (std::size_t i = 0; i < plan_.added.size(); ++i, ++row) {
        const DrawRecord& r = plan_.added[i];
        const SourceDrawing& d = source.drawings[plan_.addedFrom[i]];
        const bool conflict = conflicting.count({d.date, d.drawNumber, d.slot}) > 0;
        const std::string* cells[] = {&r.date, &r.h, &r.t, &r.u};
        for (int col = kDate; col <= kU; ++col)
            preview_->setItem(row, col, Item(ToQString(*cells[col])));
        preview_->setItem(row, kLine, Item(QString::number(d.line)));
        preview_->setItem(row, kNote,
                          Item(conflict ? QStringLiteral("conflict: ") +
                                              ToQString(DescribeSourceDrawing(d, source.layout)) +
                                              QStringLiteral(" is given with other digits too")
                                        : QString()));
        if (conflict)
            for (int col = 0; col < kPreviewColumns; ++col)
                preview_->item(row, col)->setBackground(kConflictBack);
    }
    for (const RejectedLine& r : source.rejected) {
        for (int col = kDate; col <= kU; ++col)
            preview_->setItem(row, col, Item(QString()));
        preview_->setItem(row, kLine, Item(QString::number(r.line)));
        preview_->setItem(row, kNote, Item(QStringLiteral("not used: ") + ToQString(r.reason)));
        for (int col = 0; col < kPreviewColumns; ++col)
            preview_->item(row, col)->setForeground(kUnusedText);
        ++row;
    }

    QString summary;
    if (!hasSource_) {
        summary = QStringLiteral("Nothing to import yet.");
    } else if (!plan_.status.ok()) {
        summary = ToQString(plan_.status.message());
    } else {
        summary = QStringLiteral(
                      "%1 drawings found, %2 to add, %3 already in the table, "
                      "%4 conflicts, %5 lines not used.")
                      .arg(source.drawings.size())
                      .arg(plan_.added.size())
                      .arg(plan_.alreadyPresent)
                      .arg(source.conflicts.size())
                      .arg(source.rejected.size());
        const std::size_t older = plan_.olderDisagreements.size();
        if (older == 1)
            summary += QStringLiteral(
                " 1 older drawing of the table differs from the source and is left as it is.");
        else if (older > 1)
            summary += QStringLiteral(
                           " %1 older drawings of the table differ from the source and are left "
                           "as they are.")
                           .arg(older);
    }
    summary_->setText(summary);
    import_->setEnabled(hasSource_ && plan_.status.ok() && !plan_.added.empty());
}

}  // namespace numarel
