// Any bytes as a drawings file: the reader, the end marker, the conversions every report makes of
// the fields, and what Save writes back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "data/basic_text.h"
#include "data/drawings_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace numarel;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::vector<DrawRecord> records = ParseDrawings(bytes);
    if (ReportDrawCount(records) > records.size()) std::abort();
    for (const DrawRecord& r : records) {
        IsEndMarker(r);
        NumberToText(LeadingValue(r.date));
        for (const std::string* digit : {&r.h, &r.t, &r.u}) {
            ToInt16(*digit);
            RoundToInt16(LeadingValue(*digit));
        }
    }
    // Save writes one line per row, whatever the cells hold.
    const std::string saved = FormatDrawingsTable(records);
    std::size_t lines = 0;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (saved[i] == '\n' && (i == 0 || saved[i - 1] != '\r')) std::abort();
        if (saved[i] == '\r' && (i + 1 == saved.size() || saved[i + 1] != '\n')) std::abort();
        lines += saved[i] == '\n';
    }
    if (lines != records.size()) std::abort();
    return 0;
}
