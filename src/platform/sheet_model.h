#pragma once

#include <QAbstractTableModel>
#include <QColor>

#include "frame/report_sheet.h"

namespace numarel {

inline QColor ToQColor(Rgb rgb) {
    return QColor::fromRgb((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

// A ReportSheet seen by Qt's views. Cells are read from the sheet on demand, so a sheet of any
// size costs the view nothing up front. Row 0 and column 0 of the sheet are the fixed header row
// and label column: they are the horizontal and vertical header data, and the model's cells start
// at sheet cell (1, 1). Colour 0 gives no colour role, so the view paints its defaults.
class SheetModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit SheetModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    // The sheet stays owned by the caller and must outlive its use here; nullptr shows nothing.
    void SetSheet(ReportSheet* sheet);
    ReportSheet* Sheet() const { return sheet_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    // Sheet cell of a model index, and back.
    static int SheetRow(const QModelIndex& index) { return index.row() + 1; }
    static int SheetCol(const QModelIndex& index) { return index.column() + 1; }
    QModelIndex IndexOf(int sheetRow, int sheetCol) const {
        return index(sheetRow - 1, sheetCol - 1);
    }

    // The colour of the lines between the cells; 0 for the view's default.
    Rgb GridColour() const { return sheet_ ? sheet_->GridColour() : kDefaultColour; }

    // Tells the views that a sheet cell changed (any cell, fixed ones included).
    void CellChanged(int sheetRow, int sheetCol);

private:
    QVariant CellData(int row, int col, int role) const;

    ReportSheet* sheet_ = nullptr;
};

}  // namespace numarel
