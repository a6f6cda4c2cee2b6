#include "export/sheet_format.h"

#include "export/html_page.h"
#include "export/pdf_writer.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <ostream>
#include <sstream>
#include <vector>

namespace numarel {
namespace {

constexpr int kDividerWidth = 100;

bool IsVisibleColumn(const ReportSheet& sheet, int col) {
    int w = sheet.ColWidth(col);
    return w < 0 || w >= kDividerWidth;
}

// The length of the UTF-8 sequence that starts at `text[i]`, or 0 when it is not one.
std::size_t Utf8SequenceAt(std::string_view text, std::size_t i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t length = lead < 0x80                    ? 1
                               : lead >= 0xC2 && lead <= 0xDF ? 2
                               : lead >= 0xE0 && lead <= 0xEF ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    if (length == 0 || i + length > text.size()) return 0;
    for (std::size_t k = 1; k < length; ++k)
        if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) return 0;
    return length;
}

// The reports write UTF-8 (arrows, the plus-minus sign); bytes that are not UTF-8 come from a
// drawings file and are taken one character a byte.
bool IsUtf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = Utf8SequenceAt(text, i);
        if (length == 0) return false;
        i += length;
    }
    return true;
}

// A number a spreadsheet reads as a number and nothing else: an optional minus, digits, and an
// optional fraction.
bool IsPlainNumber(std::string_view text) {
    std::size_t i = !text.empty() && text[0] == '-' ? 1 : 0;
    const std::size_t intStart = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9')
        ++i;
    if (i == intStart) return false;
    if (i < text.size() && text[i] == '.') {
        const std::size_t fracStart = ++i;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9')
            ++i;
        if (i == fracStart) return false;
    }
    return i == text.size();
}

// True when a spreadsheet would take the cell for a formula: it starts with "=", "+", "@", a tab
// or a carriage return, or with "-" and is not a plain number. Such a cell is written after a
// single quote, which spreadsheets read as "this is text".
bool NeedsFormulaGuard(std::string_view text) {
    if (text.empty()) return false;
    switch (text.front()) {
        case '=':
        case '+':
        case '@':
        case '\t':
        case '\r':
            return true;
        case '-':
            return !IsPlainNumber(text);
        default:
            return false;
    }
}

// A text for a terminal: control characters (C0, DEL and the C1 range of UTF-8) become "?", so
// that a drawings file cannot move the cursor or change colours when a sheet is printed.
std::string VisibleText(std::string utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        if (c < 0x20 || c == 0x7F) {
            out += '?';
        } else if (c == 0xC2 && i + 1 < utf8.size() &&
                   static_cast<unsigned char>(utf8[i + 1]) >= 0x80 &&
                   static_cast<unsigned char>(utf8[i + 1]) <= 0x9F) {
            out += '?';
            ++i;
        } else {
            out += utf8[i];
        }
    }
    return out;
}

// Collects output in a block and hands it to the stream a block at a time, so that a sheet of
// millions of cells is written without building the whole document first.
class Sink {
public:
    explicit Sink(std::ostream& out) : out_(out), buffer_(new char[kBlock]) {}
    ~Sink() { Flush(); }
    Sink(const Sink&) = delete;
    Sink& operator=(const Sink&) = delete;

    Sink& operator<<(std::string_view text) {
        if (text.size() > kBlock - used_) {
            Flush();
            if (text.size() > kBlock) {
                out_.write(text.data(), static_cast<std::streamsize>(text.size()));
                return *this;
            }
        }
        std::memcpy(buffer_.get() + used_, text.data(), text.size());
        used_ += text.size();
        return *this;
    }
    Sink& operator<<(char c) {
        if (used_ == kBlock) Flush();
        buffer_[used_++] = c;
        return *this;
    }
    Sink& operator<<(long value) {
        char digits[24];
        auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        return *this << std::string_view(digits, static_cast<std::size_t>(end - digits));
    }
    Sink& operator<<(int value) { return *this << static_cast<long>(value); }
    // "#rrggbb"
    Sink& Hex(Rgb colour) {
        static constexpr char kDigits[] = "0123456789abcdef";
        char text[7] = {'#'};
        for (int i = 0; i < 6; ++i)
            text[1 + i] = kDigits[(colour >> (20 - 4 * i)) & 0xF];
        return *this << std::string_view(text, 7);
    }
    // A sheet text as UTF-8 (see SheetTextToUtf8), each byte below 0x80 passed through `escape`
    // first.
    template <typename Escape>
    Sink& Text(std::string_view text, Escape escape) {
        const bool utf8 = IsUtf8(text);
        for (char ch : text) {
            auto c = static_cast<unsigned char>(ch);
            if (c < 0x80) {
                escape(*this, ch);
            } else if (utf8) {
                *this << ch;
            } else {
                *this << static_cast<char>(0xC0 | (c >> 6));
                *this << static_cast<char>(0x80 | (c & 0x3F));
            }
        }
        return *this;
    }
    Sink& Text(std::string_view text) {
        // Nearly every text is plain ASCII, which goes through as it is.
        if (std::all_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
            return *this << text;
        return Text(text, [](Sink& s, char c) { s << c; });
    }
    void Flush() {
        out_.write(buffer_.get(), static_cast<std::streamsize>(used_));
        used_ = 0;
    }

private:
    static constexpr std::size_t kBlock = 1 << 16;
    std::ostream& out_;
    std::unique_ptr<char[]> buffer_;
    std::size_t used_ = 0;
};

// The style attribute of an HTML cell that has colours of its own; nothing for the defaults.
void CellStyle(Sink& sink, const ReportSheet& sheet, int r, int c) {
    const Rgb back = sheet.BackColor(r, c);
    const Rgb fore = sheet.ForeColor(r, c);
    if (back == kDefaultColour && fore == kDefaultColour) return;
    sink << " style=\"";
    if (back != kDefaultColour) {
        sink << "background:";
        sink.Hex(back) << ';';
    }
    if (fore != kDefaultColour) {
        sink << "color:";
        sink.Hex(fore) << ';';
    }
    sink << '"';
}

void HtmlChar(Sink& s, char c) {
    switch (c) {
        case '&':
            s << "&amp;";
            break;
        case '<':
            s << "&lt;";
            break;
        case '>':
            s << "&gt;";
            break;
        case '"':
            s << "&quot;";
            break;
        default:
            s << c;
    }
}

inline void JsonChar(Sink& s, char c) {
    if (static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\') {
        s << c;
        return;
    }
    switch (c) {
        case '"':
            s << "\\\"";
            break;
        case '\\':
            s << "\\\\";
            break;
        case '\b':
            s << "\\b";
            break;
        case '\f':
            s << "\\f";
            break;
        case '\n':
            s << "\\n";
            break;
        case '\r':
            s << "\\r";
            break;
        case '\t':
            s << "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                static constexpr char kDigits[] = "0123456789abcdef";
                char text[6] = {'\\', 'u', '0', '0', kDigits[(c >> 4) & 0xF], kDigits[c & 0xF]};
                s << std::string_view(text, 6);
            } else {
                s << c;
            }
    }
}

// Compact JSON written as it goes: the commas between members and elements are its business,
// the order of the keys is the caller's.
class JsonWriter {
public:
    explicit JsonWriter(Sink& sink) : sink_(sink) {}

    void BeginObject() { Open('{'); }
    void EndObject() { Close('}'); }
    void BeginArray() { Open('['); }
    void EndArray() { Close(']'); }
    void Key(std::string_view key) {
        Separate();
        Quoted(key);
        sink_ << ':';
        afterKey_ = true;
    }
    void Number(long value) {
        Separate();
        sink_ << value;
    }
    void Null() {
        Separate();
        sink_ << "null";
    }
    // A text that is UTF-8 already, such as a window object.
    void String(std::string_view utf8) {
        Separate();
        Quoted(utf8);
    }
    // A cell or title text.
    void SheetText(std::string_view text) {
        Separate();
        sink_ << '"';
        sink_.Text(text, JsonChar);
        sink_ << '"';
    }
    // "#rrggbb", or null for the sheet's default colour.
    void Colour(Rgb colour) {
        if (colour == kDefaultColour) return Null();
        Separate();
        sink_ << '"';
        sink_.Hex(colour) << '"';
    }

private:
    void Open(char bracket) {
        Separate();
        sink_ << bracket;
        first_.push_back(true);
    }
    void Close(char bracket) {
        first_.pop_back();
        sink_ << bracket;
    }
    void Separate() {
        if (afterKey_) {
            afterKey_ = false;
            return;
        }
        if (first_.empty()) return;
        if (!first_.back()) sink_ << ',';
        first_.back() = false;
    }
    void Quoted(std::string_view utf8) {
        sink_ << '"';
        for (char c : utf8)
            JsonChar(sink_, c);
        sink_ << '"';
    }

    Sink& sink_;
    std::vector<bool> first_;  // per open bracket: nothing written inside it yet
    bool afterKey_ = false;
};

template <typename Writer>
std::string ToString(Writer write) {
    std::ostringstream os;
    write(os);
    return std::move(os).str();
}

}  // namespace

bool ParseSheetFormat(std::string_view name, SheetFormat& format) {
    if (name == "text")
        format = SheetFormat::Text;
    else if (name == "csv")
        format = SheetFormat::Csv;
    else if (name == "html")
        format = SheetFormat::Html;
    else if (name == "json")
        format = SheetFormat::Json;
    else if (name == "pdf")
        format = SheetFormat::Pdf;
    else
        return false;
    return true;
}

std::string SheetTextToUtf8(std::string_view text) {
    if (IsUtf8(text)) return std::string(text);
    std::string out;
    out.reserve(text.size());
    for (char ch : text) {
        auto c = static_cast<unsigned char>(ch);
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

std::string FormatSheetText(const ReportSheet& sheet, int tail) {
    const int perDrawing = sheet.RowsPerDrawing();
    const int lastDrawingRow = sheet.DrawCount() * perDrawing;
    std::vector<int> rows{0};
    for (int r = std::max(1, lastDrawingRow - std::max(tail, 0) * perDrawing + 1); r < sheet.Rows();
         ++r)
        rows.push_back(r);

    std::vector<int> cols;
    for (int c = 0; c < sheet.Cols(); ++c)
        if (IsVisibleColumn(sheet, c)) cols.push_back(c);

    // Columns are padded by characters, not bytes, so that a label with a sign such as ± lines up.
    auto characters = [](const std::string& utf8) {
        return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char ch) {
            return (static_cast<unsigned char>(ch) & 0xC0) != 0x80;
        }));
    };
    std::vector<std::vector<std::string>> texts(rows.size(), std::vector<std::string>(cols.size()));
    std::vector<std::size_t> widths(cols.size(), 1);
    for (std::size_t k = 0; k < rows.size(); ++k) {
        for (std::size_t i = 0; i < cols.size(); ++i) {
            texts[k][i] = VisibleText(SheetTextToUtf8(sheet.Text(rows[k], cols[i])));
            widths[i] = std::max(widths[i], characters(texts[k][i]));
        }
    }

    std::string out;
    if (!sheet.Title().empty()) out += VisibleText(SheetTextToUtf8(sheet.Title())) + "\n";
    for (std::size_t k = 0; k < rows.size(); ++k) {
        std::string line;
        for (std::size_t i = 0; i < cols.size(); ++i) {
            const std::string& text = texts[k][i];
            line += text;
            line.append(widths[i] - characters(text), ' ');
            line += i == 0 ? " | " : " ";
        }
        while (!line.empty() && line.back() == ' ')
            line.pop_back();
        out += line + "\n";
    }
    for (const SheetLabel& label : sheet.Labels())
        out += VisibleText(SheetTextToUtf8(label.text)) + "\n";
    return out;
}

namespace {

// True when a CSV field must be quoted: a separator, a quote or a line break in it, or a blank at
// either end, which readers would drop. One pass over the (short) text, plain ASCII noted too.
bool CsvNeedsQuotes(std::string_view text, bool& ascii) {
    ascii = true;
    bool quotes = text.front() == ' ' || text.back() == ' ';
    for (char ch : text) {
        quotes |= ch == ',' || ch == '"' || ch == '\r' || ch == '\n';
        ascii &= static_cast<unsigned char>(ch) < 0x80;
    }
    return quotes;
}

}  // namespace

void WriteSheetCsv(const ReportSheet& sheet, std::ostream& out) {
    Sink sink(out);
    ReportSheet::NumberDigits digits;
    for (int r = 0; r < sheet.Rows(); ++r) {
        for (int c = 0; c < sheet.Cols(); ++c) {
            if (c > 0) sink << ',';
            const std::string_view text = sheet.TextView(r, c, digits);
            if (text.empty()) continue;
            // Digits and a sign never need quotes.
            bool ascii = true;
            const bool number = sheet.HoldsNumber(r, c);
            const bool guard = !number && NeedsFormulaGuard(text);
            if (number || !CsvNeedsQuotes(text, ascii)) {
                if (guard) sink << '\'';
                if (ascii)
                    sink << text;
                else
                    sink.Text(text);
                continue;
            }
            sink << '"';
            if (guard) sink << '\'';
            sink.Text(text, [](Sink& s, char ch) {
                if (ch == '"') s << '"';
                s << ch;
            });
            sink << '"';
        }
        sink << "\r\n";
    }
}

void WriteSheetHtml(const ReportSheet& sheet, std::string_view report, std::ostream& out) {
    WriteReportPage(sheet, report, {}, out);
}

void WriteSheetJson(const ReportSheet& sheet, std::string_view report, std::ostream& out) {
    ReportSheet::NumberDigits digits;
    Sink sink(out);
    JsonWriter json(sink);
    json.BeginObject();
    json.Key("report");
    json.String(report);
    json.Key("title");
    json.SheetText(sheet.Title());
    json.Key("rows");
    json.Number(sheet.Rows());
    json.Key("cols");
    json.Number(sheet.Cols());
    json.Key("colWidths");
    json.BeginArray();
    for (int c = 0; c < sheet.Cols(); ++c)
        json.Number(sheet.ColWidth(c));
    json.EndArray();
    json.Key("rowHeights");
    json.BeginArray();
    for (auto [row, twips] : sheet.ExplicitRowHeights()) {
        json.BeginArray();
        json.Number(row);
        json.Number(twips);
        json.EndArray();
    }
    json.EndArray();
    // Only a sheet that has grid lines of its own says so; the others keep the default grey.
    if (sheet.GridColour() != kDefaultColour) {
        json.Key("gridColour");
        json.Colour(sheet.GridColour());
    }
    json.Key("cells");
    json.BeginArray();
    for (int r = 0; r < sheet.Rows(); ++r) {
        for (int c = 0; c < sheet.Cols(); ++c) {
            Rgb back = sheet.BackColor(r, c);
            Rgb fore = sheet.ForeColor(r, c);
            bool empty = sheet.IsEmpty(r, c);
            if (empty && back == kDefaultColour && fore == kDefaultColour) continue;
            json.BeginArray();
            json.Number(r);
            json.Number(c);
            json.SheetText(empty ? std::string_view() : sheet.TextView(r, c, digits));
            json.Colour(back);
            json.Colour(fore);
            json.EndArray();
        }
    }
    json.EndArray();
    json.EndObject();
    sink << '\n';
}

void WriteSheet(const ReportSheet& sheet, SheetFormat format, std::string_view report, int tail,
                std::ostream& out) {
    switch (format) {
        case SheetFormat::Text:
            out << FormatSheetText(sheet, tail);
            break;
        case SheetFormat::Csv:
            WriteSheetCsv(sheet, out);
            break;
        case SheetFormat::Html:
            WriteSheetHtml(sheet, report, out);
            break;
        case SheetFormat::Json:
            WriteSheetJson(sheet, report, out);
            break;
        case SheetFormat::Pdf:
            WriteSheetPdf(sheet, {}, PdfChoice{}, out);
            break;
    }
}

namespace {

std::vector<int> Span(int from, int to) {
    std::vector<int> span;
    for (int i = std::max(from, 0); i <= to; ++i)
        span.push_back(i);
    return span;
}

std::vector<int> Inside(const std::vector<int>& indices, int count) {
    std::vector<int> inside;
    for (int i : indices)
        if (i >= 0 && i < count) inside.push_back(i);
    return inside;
}

}  // namespace

std::string FormatRangeTsv(const ReportSheet& sheet, int top, int left, int bottom, int right) {
    return FormatCellsTsv(sheet, Span(top, std::min(bottom, sheet.Rows() - 1)),
                          Span(left, std::min(right, sheet.Cols() - 1)));
}

std::string FormatRangeHtml(const ReportSheet& sheet, int top, int left, int bottom, int right) {
    return FormatCellsHtml(sheet, Span(top, std::min(bottom, sheet.Rows() - 1)),
                           Span(left, std::min(right, sheet.Cols() - 1)));
}

std::string FormatCellsTsv(const ReportSheet& sheet, const std::vector<int>& rowList,
                           const std::vector<int>& colList) {
    const std::vector<int> rows = Inside(rowList, sheet.Rows());
    const std::vector<int> cols = Inside(colList, sheet.Cols());
    std::ostringstream os;
    {
        Sink sink(os);
        for (int r : rows) {
            bool first = true;
            for (int c : cols) {
                if (!first) sink << '\t';
                first = false;
                const std::string text = sheet.Text(r, c);
                if (NeedsFormulaGuard(text)) sink << '\'';
                // A tab or line break inside a cell would split it.
                sink.Text(text, [](Sink& s, char ch) {
                    s << (ch == '\t' || ch == '\n' || ch == '\r' ? ' ' : ch);
                });
            }
            sink << '\n';
        }
    }
    return std::move(os).str();
}

std::string FormatCellsHtml(const ReportSheet& sheet, const std::vector<int>& rowList,
                            const std::vector<int>& colList) {
    const std::vector<int> rows = Inside(rowList, sheet.Rows());
    const std::vector<int> cols = Inside(colList, sheet.Cols());
    std::ostringstream os;
    {
        Sink sink(os);
        sink << "<table style=\"border-collapse:collapse\">\n";
        for (int r : rows) {
            sink << "<tr>";
            for (int c : cols) {
                sink << "<td";
                CellStyle(sink, sheet, r, c);
                sink << '>';
                sink.Text(sheet.Text(r, c), HtmlChar);
                sink << "</td>";
            }
            sink << "</tr>\n";
        }
        sink << "</table>\n";
    }
    return std::move(os).str();
}

std::string FormatSheetCsv(const ReportSheet& sheet) {
    return ToString([&](std::ostream& os) { WriteSheetCsv(sheet, os); });
}

std::string FormatSheetHtml(const ReportSheet& sheet, std::string_view report) {
    return ToString([&](std::ostream& os) { WriteSheetHtml(sheet, report, os); });
}

std::string FormatSheetJson(const ReportSheet& sheet, std::string_view report) {
    return ToString([&](std::ostream& os) { WriteSheetJson(sheet, report, os); });
}

}  // namespace numarel
