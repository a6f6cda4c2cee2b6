#pragma once

#include <QAbstractTableModel>
#include <QDialog>
#include <array>
#include <string_view>
#include <vector>

#include "data/drawings_table.h"
#include "frame/report_sheet.h"
#include "shell/session.h"

class QAction;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace numarel {

// The editor's table as Qt's views see it: the rows of a DrawingsTable under one header row.
class DrawingsTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit DrawingsTableModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    DrawingsTable& Table() { return table_; }
    // Replaces the whole table and its headers.
    Status Load(const std::filesystem::path& path,
                const std::array<std::string_view, DrawingsTable::kCols>& headers);
    void SetCell(int row, int col, const QString& text);
    void AddAtEnd();
    void InsertBefore(int row);
    bool DeleteRow(int row);
    // Drawings after the table's last drawing; returns the row of the first.
    int InsertDrawings(std::span<const DrawRecord> records);
    void ReplaceWith(std::span<const DrawRecord> records);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    DrawingsTable table_;
    std::array<std::string_view, DrawingsTable::kCols> headers_ = DrawingsTable::kLoadHeaders;
};

// The drawings editor, opened modal: the whole drawings file in a table, edited cell by cell
// through a box laid over the current cell, saved back whole, copied out and in.
class DrawingsEditor : public QDialog {
    Q_OBJECT
public:
    static constexpr int kClientWidth = 9855;
    static constexpr int kClientHeight = 6855;
    static constexpr Rgb kCellBoxBack = MakeRgb(255, 224, 192);

    DrawingsEditor(Session& session, QWidget* parent = nullptr);

    DrawingsTableModel& Model() { return model_; }
    QTableView* Table() const { return table_; }
    // The cell editing box.
    QLineEdit* CellBox() const { return cellBox_; }

    // The commands of the buttons. Delete removes the current row at once; where Shift + click or
    // Shift + arrows selected several rows, it asks once and removes them all.
    void DeleteCurrentRow();
    void AddAtEnd();
    void AddBeforeCurrentRow();
    void Export();
    void Import();
    void Save();
    void Download();
    void AskAndExit();
    // The table's right-click menu entry: published results, previewed, into the table.
    void ImportResults();

    // Scales the table's font, column widths and row heights together, 50 to 400; 100 is the
    // designed size. Ctrl + wheel and Ctrl + "+", "-", "0" on the table do the same.
    void SetZoom(int percent);
    int Zoom() const { return zoom_; }

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPushButton* AddButton(const char* control, const char* caption, int left, int top);
    // Fills the table from the file: the hourglass meanwhile, the last row current at the end.
    void Reload(const std::array<std::string_view, DrawingsTable::kCols>& headers);
    void EnterCell(const QModelIndex& index);
    void LeaveCell(const QModelIndex& index);
    void PlaceCellBox();
    // The rows with a selected cell, in order.
    std::vector<int> SelectedRows() const;
    void DeleteRows(const std::vector<int>& rows);
    // Enter and Tab (+1), Shift+Tab (-1): the next or previous cell along the rows.
    void MoveToNeighbourCell(int step);
    // Puts what was typed into the box into its cell, as leaving the cell would.
    void CommitCellBox();
    void ShowError(const Status& status);
    // Tells the user that the cell box refused a text longer than a cell takes.
    void RefuseLongText();

    Session& session_;
    DrawingsTableModel model_;
    QTableView* table_;
    QLineEdit* cellBox_;
    QLabel* lotteryLabel_;
    QAction* importResults_;
    Status loadStatus_;
    int zoom_ = 100;
    bool refusalPending_ = false;
};

}  // namespace numarel
