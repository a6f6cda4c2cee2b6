#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "data/results_import.h"
#include "shell/session.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace numarel {

// The preview of an import of published results into the drawings editor's table: the source
// (a file, or text from the clipboard), the columns found in it, the options that say what the
// guesses cannot, and the drawings that would be added, with conflicts and unused lines marked.
// Accepting leaves the plan for the editor to apply.
class ImportDialog : public QDialog {
    Q_OBJECT
public:
    // `tableDrawings`: the drawings the editor's table holds now, which the import goes on from.
    ImportDialog(Session& session, std::vector<DrawRecord> tableDrawings,
                 QWidget* parent = nullptr);

    // The sources: a file chosen in the open dialog, or the clipboard's text.
    void OpenFile();
    void PasteText();
    // Reads the source again with the options as they stand.
    void Refresh();

    const ImportPlan& Plan() const { return plan_; }
    // Whether the new drawings replace the table instead of following its last drawing.
    bool ReplaceTable() const;
    QTableWidget* Preview() const { return preview_; }

private:
    void SetSource(std::string bytes, const QString& description);
    ImportOptions Options() const;
    void ShowPlan();

    Session& session_;
    std::vector<DrawRecord> tableDrawings_;
    std::string source_;
    bool hasSource_ = false;
    ImportPlan plan_;

    QLabel* sourceLabel_;
    QLabel* columns_;
    QLineEdit* dateColumn_;
    QLineEdit* drawColumn_;
    QLineEdit* digitsColumns_;
    QComboBox* dateFormat_;
    QComboBox* dates_;
    QCheckBox* strict_;
    QCheckBox* replace_;
    QTableWidget* preview_;
    QLabel* summary_;
    QPushButton* import_;
};

}  // namespace numarel
