#include "cli/sheet_format.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <vector>

namespace numarel {
namespace {

constexpr int kDividerWidth = 100;
constexpr Rgb kDefaultGridLine = MakeRgb(192, 192, 192);

std::string HexColour(Rgb colour) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "#%06x", static_cast<unsigned>(colour & 0xFFFFFF));
    return buf;
}

bool IsVisibleColumn(const ReportSheet& sheet, int col) {
    int w = sheet.ColWidth(col);
    return w < 0 || w >= kDividerWidth;
}

std::string HtmlEscape(std::string_view text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += c;
        }
    }
    return out;
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

bool IsUtf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = Utf8SequenceAt(text, i);
        if (length == 0) return false;
        i += length;
    }
    return true;
}

// Pixels at 96 dots to the inch; a twip is 1/1440 inch.
int TwipsToPixels(int twips) {
    return (twips * 96 + 720) / 1440;
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
    else
        return false;
    return true;
}

std::string SheetTextToUtf8(std::string_view text) {
    // The reports write UTF-8 (arrows, the plus-minus sign); bytes that are not UTF-8 come from a
    // drawings file and are taken one character a byte.
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
            texts[k][i] = SheetTextToUtf8(sheet.Text(rows[k], cols[i]));
            widths[i] = std::max(widths[i], characters(texts[k][i]));
        }
    }

    std::string out;
    if (!sheet.Title().empty()) out += SheetTextToUtf8(sheet.Title()) + "\n";
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
        out += SheetTextToUtf8(label.text) + "\n";
    return out;
}

std::string FormatSheetCsv(const ReportSheet& sheet) {
    std::string out;
    for (int r = 0; r < sheet.Rows(); ++r) {
        for (int c = 0; c < sheet.Cols(); ++c) {
            if (c > 0) out += ',';
            std::string text = SheetTextToUtf8(sheet.Text(r, c));
            if (text.find_first_of(",\"\r\n") != std::string::npos || text.starts_with(' ') ||
                text.ends_with(' ')) {
                std::string quoted = "\"";
                for (char ch : text) {
                    if (ch == '"') quoted += '"';
                    quoted += ch;
                }
                quoted += '"';
                text = quoted;
            }
            out += text;
        }
        out += "\r\n";
    }
    return out;
}

std::string FormatSheetHtml(const ReportSheet& sheet, std::string_view report) {
    std::string title = HtmlEscape(SheetTextToUtf8(sheet.Title()));
    const std::string gridLine =
        HexColour(sheet.GridColour() == kDefaultColour ? kDefaultGridLine : sheet.GridColour());
    std::string out;
    out += "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\">\n<title>" + title +
           "</title>\n<style>\n"
           "body{margin:0;font-family:Arial,'Liberation Sans',sans-serif;background:#808080}\n"
           "h1{font-size:11pt;margin:0;padding:4px 8px;background:#f0f0f0}\n"
           ".wrap{overflow:auto;height:calc(100vh - 28px)}\n"
           "table{border-collapse:separate;border-spacing:0;table-layout:fixed;"
           "font-size:" +
           std::to_string(sheet.FontDecipoints() / 10) + "." +
           std::to_string(sheet.FontDecipoints() % 10) +
           "pt;background:#ffffff}\n"
           "td{border-right:1px solid " +
           gridLine + ";border-bottom:1px solid " + gridLine +
           ";overflow:hidden;"
           "white-space:pre;padding:0;height:16px}\n"
           "tr.h td{position:sticky;top:0;background:#f0f0f0;border-bottom:1px solid #000;"
           "z-index:1}\n"
           "td.l{position:sticky;left:0;background:#f0f0f0;border-right:1px solid #000}\n"
           "tr.h td.l{z-index:2}\n"
           "</style></head><body>\n<h1>" +
           title + " <small>(" + HtmlEscape(report) + ")</small></h1>\n<div class=\"wrap\">" +
           "<table>\n<colgroup>";
    for (int c = 0; c < sheet.Cols(); ++c) {
        int w = sheet.ColWidth(c);
        out += "<col style=\"width:" + std::to_string(w < 0 ? 64 : TwipsToPixels(w)) + "px\">";
    }
    out += "</colgroup>\n";
    for (int r = 0; r < sheet.Rows(); ++r) {
        out += r == 0 ? "<tr class=\"h\"" : "<tr";
        int h = sheet.RowHeight(r);
        if (h >= 0) out += " style=\"height:" + std::to_string(TwipsToPixels(h)) + "px\"";
        out += ">";
        for (int c = 0; c < sheet.Cols(); ++c) {
            out += c == 0 ? "<td class=\"l\"" : "<td";
            Rgb back = sheet.BackColor(r, c);
            Rgb fore = sheet.ForeColor(r, c);
            if (back != kDefaultColour || fore != kDefaultColour) {
                out += " style=\"";
                if (back != kDefaultColour) out += "background:" + HexColour(back) + ";";
                if (fore != kDefaultColour) out += "color:" + HexColour(fore) + ";";
                out += "\"";
            }
            out += ">" + HtmlEscape(SheetTextToUtf8(sheet.Text(r, c))) + "</td>";
        }
        out += "</tr>\n";
    }
    out += "</table></div>\n";
    for (const SheetLabel& label : sheet.Labels()) {
        out += "<p style=\"margin:4px 0;padding:2px 4px;background:" +
               (label.back ? HexColour(label.back) : std::string("#f0f0f0")) +
               (label.fore ? ";color:" + HexColour(label.fore) : std::string()) + "\">" +
               HtmlEscape(SheetTextToUtf8(label.text)) + "</p>\n";
    }
    out +=
        "<script>var w=document.querySelector('.wrap');"
        "w.scrollTop=w.scrollHeight;</script>\n</body></html>\n";
    return out;
}

std::string FormatSheetJson(const ReportSheet& sheet, std::string_view report) {
    using nlohmann::ordered_json;
    ordered_json doc;
    doc["report"] = std::string(report);
    doc["title"] = SheetTextToUtf8(sheet.Title());
    doc["rows"] = sheet.Rows();
    doc["cols"] = sheet.Cols();
    ordered_json widths = ordered_json::array();
    for (int c = 0; c < sheet.Cols(); ++c)
        widths.push_back(sheet.ColWidth(c));
    doc["colWidths"] = std::move(widths);
    ordered_json heights = ordered_json::array();
    for (auto [row, twips] : sheet.ExplicitRowHeights())
        heights.push_back({row, twips});
    doc["rowHeights"] = std::move(heights);
    // Only a sheet that has grid lines of its own says so; the others keep the default grey.
    if (sheet.GridColour() != kDefaultColour) doc["gridColour"] = HexColour(sheet.GridColour());
    ordered_json cells = ordered_json::array();
    auto colour = [](Rgb c) -> ordered_json {
        if (c == kDefaultColour) return nullptr;
        return HexColour(c);
    };
    for (int r = 0; r < sheet.Rows(); ++r) {
        for (int c = 0; c < sheet.Cols(); ++c) {
            Rgb back = sheet.BackColor(r, c);
            Rgb fore = sheet.ForeColor(r, c);
            if (sheet.IsEmpty(r, c) && back == kDefaultColour && fore == kDefaultColour) continue;
            cells.push_back({r, c, SheetTextToUtf8(sheet.Text(r, c)), colour(back), colour(fore)});
        }
    }
    doc["cells"] = std::move(cells);
    return doc.dump() + "\n";
}

}  // namespace numarel
