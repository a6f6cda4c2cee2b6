#include "platform/sheet_model.h"

namespace numarel {

void SheetModel::SetSheet(ReportSheet* sheet) {
    beginResetModel();
    sheet_ = sheet;
    endResetModel();
}

int SheetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !sheet_ ? 0 : std::max(0, sheet_->Rows() - 1);
}

int SheetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !sheet_ ? 0 : std::max(0, sheet_->Cols() - 1);
}

QVariant SheetModel::CellData(int row, int col, int role) const {
    switch (role) {
        case Qt::DisplayRole: {
            if (sheet_->IsEmpty(row, col)) return QString();
            return QString::fromStdString(sheet_->Text(row, col));
        }
        case Qt::BackgroundRole: {
            Rgb back = sheet_->BackColor(row, col);
            return back == kDefaultColour ? QVariant() : QVariant(ToQColor(back));
        }
        case Qt::ForegroundRole: {
            Rgb fore = sheet_->ForeColor(row, col);
            return fore == kDefaultColour ? QVariant() : QVariant(ToQColor(fore));
        }
        default:
            return {};
    }
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
    if (!sheet_ || !index.isValid()) return {};
    return CellData(SheetRow(index), SheetCol(index), role);
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (!sheet_ || section < 0) return {};
    if (orientation == Qt::Horizontal) return CellData(0, section + 1, role);
    return CellData(section + 1, 0, role);
}

void SheetModel::CellChanged(int sheetRow, int sheetCol) {
    if (!sheet_ || !sheet_->Contains(sheetRow, sheetCol)) return;
    if (sheetRow == 0 && sheetCol > 0) {
        emit headerDataChanged(Qt::Horizontal, sheetCol - 1, sheetCol - 1);
    } else if (sheetCol == 0 && sheetRow > 0) {
        emit headerDataChanged(Qt::Vertical, sheetRow - 1, sheetRow - 1);
    } else if (sheetRow > 0 && sheetCol > 0) {
        QModelIndex i = IndexOf(sheetRow, sheetCol);
        emit dataChanged(i, i);
    }
}

}  // namespace numarel
