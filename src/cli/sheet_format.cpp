#include "cli/sheet_format.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <vector>

namespace numarel {
namespace {

constexpr int kDividerWidth = 100;

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

std::string Latin1ToUtf8(std::string_view text) {
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
    const int n = sheet.DrawCount();
    std::vector<int> rows{0};
    for (int r = std::max(1, n - std::max(tail, 0) + 1); r <= n; ++r)
        rows.push_back(r);
    for (int r = n + 1; r < sheet.Rows(); ++r)
        rows.push_back(r);

    std::vector<int> cols;
    for (int c = 0; c < sheet.Cols(); ++c)
        if (IsVisibleColumn(sheet, c)) cols.push_back(c);

    std::vector<std::size_t> widths(cols.size(), 1);
    for (int r : rows)
        for (std::size_t i = 0; i < cols.size(); ++i)
            widths[i] = std::max(widths[i], sheet.Text(r, cols[i]).size());

    std::string out;
    if (!sheet.Title().empty()) out += Latin1ToUtf8(sheet.Title()) + "\n";
    for (int r : rows) {
        std::string line;
        for (std::size_t i = 0; i < cols.size(); ++i) {
            std::string text = sheet.Text(r, cols[i]);
            text.resize(widths[i], ' ');
            line += text;
            line += i == 0 ? " | " : " ";
        }
        while (!line.empty() && line.back() == ' ')
            line.pop_back();
        out += Latin1ToUtf8(line) + "\n";
    }
    for (const SheetLabel& label : sheet.Labels())
        out += Latin1ToUtf8(label.text) + "\n";
    return out;
}

std::string FormatSheetCsv(const ReportSheet& sheet) {
    std::string out;
    for (int r = 0; r < sheet.Rows(); ++r) {
        for (int c = 0; c < sheet.Cols(); ++c) {
            if (c > 0) out += ',';
            std::string text = Latin1ToUtf8(sheet.Text(r, c));
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
    std::string title = HtmlEscape(Latin1ToUtf8(sheet.Title()));
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
           "td{border-right:1px solid #c0c0c0;border-bottom:1px solid #c0c0c0;overflow:hidden;"
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
            out += ">" + HtmlEscape(Latin1ToUtf8(sheet.Text(r, c))) + "</td>";
        }
        out += "</tr>\n";
    }
    out += "</table></div>\n";
    for (const SheetLabel& label : sheet.Labels()) {
        out += "<p style=\"margin:4px 0;padding:2px 4px;background:" +
               (label.back ? HexColour(label.back) : std::string("#f0f0f0")) +
               (label.fore ? ";color:" + HexColour(label.fore) : std::string()) + "\">" +
               HtmlEscape(Latin1ToUtf8(label.text)) + "</p>\n";
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
    doc["title"] = Latin1ToUtf8(sheet.Title());
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
            cells.push_back({r, c, Latin1ToUtf8(sheet.Text(r, c)), colour(back), colour(fore)});
        }
    }
    doc["cells"] = std::move(cells);
    return doc.dump() + "\n";
}

}  // namespace numarel
