#pragma once

#include <QApplication>
#include <QWidget>
#include <span>
#include <string>
#include <string_view>

#include "frame/frame_passes.h"
#include "reports/report_registry.h"

namespace numarel::testing {

// Report definitions that exercise every feature a report window offers, under window objects of
// the command table so that captions, help pages and Wait come from the real table.
//   frmhekualu      marks cells in RGB(43,145,255); has a help page; Wait
//   frmzu3leixing2  two labels, a text box button, a double-click text; no help page; its own
//                   title from the start and no hourglass
//   frmbaishi32zu   an export button writing Numarel/daochu320.txt; has a help page; Wait
//   frmzusan90      an inert Help button
//   frmbjiouhe      the real report
//   frmzhixuanhaocx and frmzuxuanhaocx, the real enquiry windows
// Everything else is "not built".
struct FakeReports {
    static inline int builds = 0;
    static inline int textBuilds = 0;
    // The main window's caption and whether the hourglass was up while a report was built.
    static inline QWidget* watched = nullptr;
    static inline QString captionDuringBuild;
    static inline bool hourglassDuringBuild = false;
    // The caption of the report window being loaded (not yet shown) while it was built.
    static inline QString reportCaptionDuringBuild;

    static void Reset() {
        builds = textBuilds = 0;
        watched = nullptr;
        captionDuringBuild.clear();
        hourglassDuringBuild = false;
        reportCaptionDuringBuild.clear();
    }

    static void Build(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
        ++builds;
        if (watched) captionDuringBuild = watched->windowTitle();
        hourglassDuringBuild = QApplication::overrideCursor() != nullptr;
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->inherits("numarel::ReportWindow") && !top->isVisible())
                reportCaptionDuringBuild = top->windowTitle();
        const int count = CountDrawings(drawings);
        ResetSheet(sheet, count, count + 2);
        sheet.SetCols(6);
        FillSheet(sheet, drawings, [&](int row, CurrentDigits& d) {
            sheet.SetNumber(row, 4, d[0] + d[1] + d[2]);
            if (d[0] == d[1]) sheet.SetBackColor(row, 5, colours::kHit);
        });
        sheet.SetText(0, 1, "H");
        sheet.SetText(0, 2, "T");
        sheet.SetText(0, 3, "U");
        sheet.SetText(0, 4, "Sum");
        FinishLoad(sheet);
    }
    static void BuildWithLabels(std::span<const DrawRecord> drawings, ReportSheet& sheet) {
        Build(drawings, sheet);
        sheet.SetLabels({{"First label", MakeRgb(255, 0, 0), 0},
                         {"Second label", MakeRgb(0, 0, 255), MakeRgb(255, 255, 0)}});
    }
    static std::string SumsOfColumn(const ReportSheet& sheet, int col) {
        std::string text;
        for (int row = 1; row <= sheet.DrawCount(); ++row)
            text += sheet.Text(row, col) + "\r\n";
        return text;
    }
    static std::string BoxText(const ReportSheet& sheet) {
        ++textBuilds;
        return "Box text " + std::to_string(textBuilds) + " of " +
               std::to_string(sheet.DrawCount());
    }

    static const ReportDefinition* Find(std::string_view object) {
        static const ReportDefinition kReports[] = {
            {.object = "frmhekualu",
             .title = "Fake report",
             .build = &Build,
             .markColour = MakeRgb(43, 145, 255)},
            {.object = "frmzu3leixing2",
             .title = "Fake report",
             .build = &BuildWithLabels,
             .loadOrder = LoadOrder::DesignedCaption,
             .doubleClickText = &SumsOfColumn,
             .extraButton = {.kind = ExtraButton::Kind::ToggleTextBox,
                             .caption = "Next Box numbers",
                             .shownCaption = "Hide",
                             .text = &BoxText}},
            {.object = "frmbaishi32zu",
             .title = "Fake report",
             .build = &Build,
             .extraButton = {.kind = ExtraButton::Kind::ExportFile,
                             .caption = "Export",
                             .exportFile = "Numarel/daochu320.txt",
                             .text = &BoxText}},
            {.object = "frmzusan90",
             .title = "Fake report",
             .build = &Build,
             .help = HelpButton::Inert},
        };
        for (const ReportDefinition& def : kReports)
            if (def.object == object) return &def;
        if (object == "frmbjiouhe" || object == "frmzhixuanhaocx" || object == "frmzuxuanhaocx")
            return FindReport(object);
        return nullptr;
    }
};

}  // namespace numarel::testing
