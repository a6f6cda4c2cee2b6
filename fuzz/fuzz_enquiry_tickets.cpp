// Any bytes as the text typed or pasted into a Number enquiry window: the first byte picks the
// window and the history, the rest is the text. A refused text leaves the sheet as it was; an
// accepted one gives one column per ticket and "Gather" after the history's columns, however often
// Enquire is pressed.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "data/drawings_file.h"
#include "reports/enquiry_other/number_enquiry.h"
#include "reports/report_registry.h"

namespace {

const std::vector<numarel::DrawRecord>& History(int which) {
    static const std::vector<numarel::DrawRecord> histories[] = {
        {},
        numarel::ParseDrawings("2021001 1 2 3\r\n2021002 3 2 1\r\n2021003 4 4 0\r\n"),
        [] {
            std::string bytes;
            for (int i = 0; i < 400; ++i)
                bytes += std::to_string(2021001 + i) + ' ' + char('0' + i * 7 % 10) + ' ' +
                         char('0' + i * 3 % 10) + ' ' + char('0' + i * i % 10) + "\r\n";
            return numarel::ParseDrawings(bytes);
        }(),
    };
    return histories[which % 3];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace numarel;
    if (size == 0) return 0;
    const NumberEnquiry& enquiry =
        *FindNumberEnquiry(data[0] % 2 ? "frmzuxuanhaocx" : "frmzhixuanhaocx");
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);

    ReportSheet sheet;
    BuildReport(*FindReport(enquiry.object), History(data[0] / 2), sheet);
    const int historyCols = sheet.Cols();
    const int rows = sheet.Rows();
    const bool refused = TicketRefusal(enquiry, text).has_value();
    // Twice: the second enquiry must replace the first's columns, not add to them.
    for (int pass = 0; pass < 2; ++pass) {
        if (Enquire(enquiry, text, sheet).has_value() != refused) std::abort();
        const int tickets = static_cast<int>(TicketDigits(text).size() / 3);
        if (refused ? sheet.Cols() != historyCols : sheet.Cols() != historyCols + tickets + 1)
            std::abort();
        if (refused && sheet.Rows() != rows) std::abort();
    }
    return 0;
}
