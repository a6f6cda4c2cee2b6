// Any bytes as the drawings of any built report: the first byte picks the report of the command
// table and the way its sheet is written out, the rest is the drawings file.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "data/drawings_file.h"
#include "export/sheet_format.h"
#include "reports/command_table.h"
#include "reports/report_registry.h"

namespace {

const std::vector<const numarel::ReportDefinition*>& BuiltReports() {
    static const auto reports = [] {
        std::vector<const numarel::ReportDefinition*> built;
        for (const numarel::CommandEntry& e : numarel::CommandTable())
            if (!e.IsSeparator())
                if (const numarel::ReportDefinition* def = numarel::FindReport(e.report))
                    built.push_back(def);
        return built;
    }();
    return reports;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace numarel;
    const auto& reports = BuiltReports();
    if (size == 0 || reports.empty()) return 0;
    const ReportDefinition& def = *reports[data[0] % reports.size()];
    const int format = data[0] / reports.size() % 4;
    std::vector<DrawRecord> drawings =
        ParseDrawings(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));
    drawings.resize(ReportDrawCount(drawings));
    if (drawings.size() > kMaxDrawings) return 0;

    ReportSheet sheet;
    BuildReport(def, drawings, sheet);
    if (def.doubleClickText)
        for (int col = 0; col < sheet.Cols(); ++col)
            def.doubleClickText(sheet, col);
    if (def.extraButton.text) def.extraButton.text(sheet);
    switch (format) {
        case 0:
            FormatSheetText(sheet, 30);
            break;
        case 1:
            FormatSheetCsv(sheet);
            break;
        case 2:
            FormatSheetHtml(sheet, def.object);
            break;
        default:
            FormatSheetJson(sheet, def.object);
            break;
    }
    return 0;
}
