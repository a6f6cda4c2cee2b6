#include "data/drawings_file.h"

#include "data/basic_text.h"

namespace numarel {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

// A cursor over the bytes that hands out one field at a time.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes) : s_(bytes) {}

    // End of data: nothing but blanks and line ends remain.
    bool AtEnd() {
        while (pos_ < s_.size() && (IsBlank(s_[pos_]) || IsLineEnd(s_[pos_])))
            ++pos_;
        return pos_ >= s_.size();
    }

    // Reads the next field; false at end of data.
    bool Next(std::string& field) {
        if (AtEnd()) return false;
        field.clear();
        if (s_[pos_] == '"') {
            ++pos_;
            std::size_t close = s_.find('"', pos_);
            if (close == std::string_view::npos) close = s_.size();
            field.assign(s_.substr(pos_, close - pos_));
            pos_ = close < s_.size() ? close + 1 : close;
            // Anything between the closing quote and the next separator is dropped.
            while (pos_ < s_.size() && !IsBlank(s_[pos_]) && !IsLineEnd(s_[pos_]) &&
                   s_[pos_] != ',')
                ++pos_;
        } else if (s_[pos_] != ',') {
            std::size_t start = pos_;
            while (pos_ < s_.size() && !IsBlank(s_[pos_]) && !IsLineEnd(s_[pos_]) &&
                   s_[pos_] != ',')
                ++pos_;
            field.assign(s_.substr(start, pos_ - start));
        }
        // One comma after the field (blanks before it allowed) belongs to this field, so that
        // two commas in a row make an empty field.
        std::size_t p = pos_;
        while (p < s_.size() && IsBlank(s_[p]))
            ++p;
        if (p < s_.size() && s_[p] == ',') pos_ = p + 1;
        return true;
    }

private:
    std::string_view s_;
    std::size_t pos_ = 0;
};

}  // namespace

std::vector<DrawRecord> ParseDrawings(std::string_view bytes) {
    std::vector<DrawRecord> records;
    records.reserve(bytes.size() / 16 + 1);
    FieldReader reader(bytes);
    DrawRecord current;
    while (!reader.AtEnd()) {
        std::string* fields[4] = {&current.date, &current.h, &current.t, &current.u};
        for (std::string* field : fields) {
            std::string value;
            if (!reader.Next(value)) break;  // a short last record keeps the earlier values
            *field = std::move(value);
        }
        records.push_back(current);
    }
    return records;
}

std::vector<std::string> ParseFields(std::string_view bytes) {
    std::vector<std::string> fields;
    FieldReader reader(bytes);
    std::string field;
    while (reader.Next(field))
        fields.push_back(field);
    return fields;
}

std::string_view WideTextEncoding(std::string_view bytes) {
    // UTF-32 first: its little-endian mark begins with the UTF-16 one.
    if (bytes.starts_with(std::string_view("\xFF\xFE\x00\x00", 4))) return "UTF-32 little-endian";
    if (bytes.starts_with(std::string_view("\x00\x00\xFE\xFF", 4))) return "UTF-32 big-endian";
    if (bytes.starts_with("\xFF\xFE")) return "UTF-16 little-endian";
    if (bytes.starts_with("\xFE\xFF")) return "UTF-16 big-endian";
    return {};
}

std::string_view WithoutUtf8Mark(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    return bytes;
}

Status CheckReadableText(std::string_view bytes, std::string_view what,
                         const std::filesystem::path& path) {
    const std::string_view encoding = WideTextEncoding(bytes);
    if (encoding.empty()) return Status::Ok();
    const std::string named =
        path.empty() ? std::string(what) : std::string(what) + " \"" + path.string() + "\"";
    return Status::InvalidArgument("The " + named + " is " + std::string(encoding) +
                                   " text, which is not read; save it as plain text (UTF-8 or "
                                   "ANSI) and try again.");
}

bool IsEndMarker(const DrawRecord& record) {
    if (Trim(record.date).empty()) return true;
    auto value = WholeNumber(record.date);
    return value && *value == 0;
}

std::size_t ReportDrawCount(std::span<const DrawRecord> records) {
    std::size_t n = 0;
    while (n < records.size() && !IsEndMarker(records[n]))
        ++n;
    return n;
}

Status ReadAllRecords(const std::filesystem::path& path, std::vector<DrawRecord>& records) {
    std::string bytes;
    Status s = ReadFileBytes(path, bytes, "drawings file");
    if (s.ok()) s = CheckReadableText(bytes, "drawings file", path);
    if (!s.ok()) {
        records.clear();
        return s;
    }
    records = ParseDrawings(WithoutUtf8Mark(bytes));
    return Status::Ok();
}

Status ReadHistory(const std::filesystem::path& path, std::vector<DrawRecord>& drawings) {
    Status s = ReadAllRecords(path, drawings);
    if (!s.ok()) return s;
    drawings.resize(ReportDrawCount(drawings));
    if (drawings.size() > kMaxDrawings) {
        std::size_t n = drawings.size();
        drawings.clear();
        return Status::TooManyDrawings("The file \"" + path.filename().string() + "\" holds " +
                                       std::to_string(n) + " drawings; at most " +
                                       std::to_string(kMaxDrawings) + " can be shown.");
    }
    return Status::Ok();
}

std::string FormatDrawingsTable(std::span<const DrawRecord> rows) {
    auto digit = [](const std::string& cell) -> std::string {
        if (Trim(cell).empty()) return "0";
        double v = LeadingValue(cell);
        if (v < 1 || v > 9) return "0";
        return cell;
    };
    // A quoted field read from a file can hold line breaks; written raw they would split the row.
    auto put = [](std::string& out, const std::string& cell) {
        for (char c : cell)
            out += IsControlCharacter(c) ? ' ' : c;
    };
    std::string out;
    out.reserve(rows.size() * 16);
    for (const DrawRecord& row : rows) {
        put(out, Trim(row.date).empty() ? std::string("0") : row.date);
        for (const std::string* cell : {&row.h, &row.t, &row.u}) {
            out += ' ';
            put(out, digit(*cell));
        }
        out += "\r\n";
    }
    return out;
}

}  // namespace numarel
