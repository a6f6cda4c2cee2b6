#include "cli/score_command.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ostream>
#include <sstream>
#include <vector>

namespace numarel {
namespace {

std::string JsonString(std::string_view text) {
    const std::string utf8 = SheetTextToUtf8(text);
    std::string out = "\"";
    for (char c : utf8) {
        const auto u = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (u < 0x20) {
            char buffer[8];
            std::snprintf(buffer, sizeof buffer, "\\u%04x", u);
            out += buffer;
        } else {
            out += c;
        }
    }
    return out + '"';
}

std::string JsonNumber(double value) {
    if (!std::isfinite(value)) return "null";
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.10g", value);
    return buffer;
}

std::string JsonNumber(const std::optional<double>& value) {
    return value ? JsonNumber(*value) : "null";
}

std::string_view KindName(MethodKind kind) {
    switch (kind) {
        case MethodKind::Forecast:
            return "forecast";
        case MethodKind::List:
            return "list";
        case MethodKind::Set:
            return "set";
    }
    return "forecast";
}

// The scoreboard's sheet as aligned columns, the numbers to the right.
void WriteAligned(const ReportSheet& sheet, std::ostream& out) {
    std::vector<std::size_t> widths(static_cast<std::size_t>(sheet.Cols()), 0);
    for (int r = 0; r < sheet.Rows(); ++r)
        for (int c = 0; c < sheet.Cols(); ++c)
            widths[static_cast<std::size_t>(c)] =
                std::max(widths[static_cast<std::size_t>(c)], sheet.Text(r, c).size());
    for (int r = 0; r < sheet.Rows(); ++r) {
        std::string line;
        for (int c = 0; c < sheet.Cols(); ++c) {
            const std::string text = sheet.Text(r, c);
            const std::size_t pad = widths[static_cast<std::size_t>(c)] - text.size();
            if (c > 0) line += "  ";
            if (c < 4)
                line += text + std::string(pad, ' ');
            else
                line += std::string(pad, ' ') + text;
        }
        while (!line.empty() && line.back() == ' ')
            line.pop_back();
        out << SheetTextToUtf8(line) << '\n';
    }
}

}  // namespace

std::string ScoreboardHtml(const ScoreTable& table) {
    std::ostringstream page;
    WriteSheetHtml(ScoreboardSheet(table), "scoreboard", page);
    // A report's page opens at its newest drawings; the scoreboard's at its top.
    std::string html = page.str();
    const std::size_t script = html.rfind("<script>");
    const std::size_t end = html.find("</script>\n", script);
    if (script != std::string::npos && end != std::string::npos)
        html.erase(script, end + 10 - script);
    return html;
}

std::string ScoreboardJson(const ScoreTable& table) {
    std::string json = "{\"lottery\": " + JsonString(table.lottery) +
                       ", \"drawings\": " + std::to_string(table.drawings) + ", \"methods\": [";
    const char* separator = "\n  ";
    for (const auto& [t, s] : RowsByP(table)) {
        const MethodTrack& track = table.tracks[static_cast<std::size_t>(t)];
        const StretchScore& score =
            table.scores[static_cast<std::size_t>(t)][static_cast<std::size_t>(s)];
        json += separator;
        separator = ",\n  ";
        json += "{\"report\": " + JsonString(track.report);
        json += ", \"method\": " + JsonString(track.column.name);
        json += ", \"kind\": \"" + std::string(KindName(track.column.method->kind)) + "\"";
        json += ", \"stretch\": " +
                (score.stretch > 0 ? std::to_string(score.stretch) : std::string("\"all\""));
        json += ", \"judged\": " + std::to_string(score.judged);
        json += ", \"hits\": " + std::to_string(score.hits);
        json += ", \"expected\": " + JsonNumber(score.expected);
        json += ", \"sd\": " + JsonNumber(score.sd);
        json += ", \"z\": " + (score.tooFew ? std::string("null") : JsonNumber(score.z));
        json += ", \"p\": " + (score.tooFew ? std::string("null") : JsonNumber(score.p));
        json += ", \"q\": " + JsonNumber(score.q);
        json += ", \"longestMiss\": " + std::to_string(score.longestMiss);
        json += ", \"expectedLongestMiss\": " + JsonNumber(score.expectedLongestMiss);
        json += std::string(", \"usesLaterDrawings\": ") +
                (track.usesLaterDrawings() ? "true" : "false");
        json += ", \"cost\": " + JsonNumber(score.cost);
        json += ", \"returned\": " + JsonNumber(score.returned);
        json += ", \"expectedReturn\": " + JsonNumber(score.expectedReturn);
        json += "}";
    }
    json += table.tracks.empty() ? "]}\n" : "\n]}\n";
    return json;
}

void WriteScoreboard(const ScoreTable& table, SheetFormat format, std::ostream& out) {
    switch (format) {
        case SheetFormat::Json:
            out << ScoreboardJson(table);
            return;
        case SheetFormat::Text:
            out << "Scoreboard of " << SheetTextToUtf8(table.lottery) << ", " << table.drawings
                << " drawings: hits against the hits chance gives, by p-value\n\n";
            WriteAligned(ScoreboardSheet(table), out);
            return;
        case SheetFormat::Csv:
            WriteSheetCsv(ScoreboardSheet(table), out);
            return;
        case SheetFormat::Html:
            out << ScoreboardHtml(table);
            return;
        case SheetFormat::Pdf:  // the score command does not offer it
            WriteSheetCsv(ScoreboardSheet(table), out);
            return;
    }
}

}  // namespace numarel
