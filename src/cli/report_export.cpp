#include "cli/report_export.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <ostream>
#include <set>
#include <system_error>
#include <thread>

#include "cli/report_names.h"
#include "cli/score_command.h"
#include "data/file_io.h"
#include "export/html_page.h"
#include "export/pdf_writer.h"
#include "reports/command_table.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/scoreboard.h"

namespace numarel {
namespace {

std::string_view Extension(SheetFormat format) {
    switch (format) {
        case SheetFormat::Text:
            return ".txt";
        case SheetFormat::Csv:
            return ".csv";
        case SheetFormat::Html:
            return ".html";
        case SheetFormat::Json:
            return ".json";
        case SheetFormat::Pdf:
            return ".pdf";
    }
    return ".txt";
}

std::string HtmlText(std::string_view text) {
    std::string out = SheetTextToUtf8(text);
    std::string escaped;
    for (char c : out) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else if (c == '"')
            escaped += "&quot;";
        else
            escaped += c;
    }
    return escaped;
}

// "12.3 MB", "456 KB" or "789 bytes".
std::string SizeText(std::uintmax_t bytes) {
    char text[32];
    if (bytes >= 1000 * 1000)
        std::snprintf(text, sizeof text, "%.1f MB", static_cast<double>(bytes) / 1e6);
    else if (bytes >= 1000)
        std::snprintf(text, sizeof text, "%ju KB", (bytes + 500) / 1000);
    else
        std::snprintf(text, sizeof text, "%ju bytes", bytes);
    return text;
}

// The contents page of an export: the lottery with its drawings, then the groups of the main
// window with their menus, each written report linked with the size of its page.
std::string IndexPage(const std::filesystem::path& drawings, const std::vector<DrawRecord>& records,
                      const std::map<std::string_view, std::uintmax_t>& written, bool scoreboard) {
    std::string lottery = HtmlText(drawings.stem().string());
    std::string page =
        "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n<title>" + lottery +
        "</title>\n<style>body{font-family:Arial,'Liberation Sans',sans-serif;margin:8px 16px}"
        "h1{margin:4px 0}p.lottery{margin:0 0 8px}"
        "h2{font-size:12pt;margin:12px 0 4px}ul{margin:0;padding-left:20px}"
        "li.sep{list-style:none;border-top:1px solid #c0c0c0;margin:3px 0;width:240px}"
        "span.size{color:#606060;font-size:9pt;margin-left:6px}"
        "</style></head><body>\n<h1>" +
        lottery + "</h1>\n<p class=\"lottery\">" + std::to_string(records.size()) +
        (records.size() == 1 ? " drawing" : " drawings");
    if (!records.empty()) {
        page += ", " + HtmlText(records.front().date);
        if (records.size() > 1) page += " to " + HtmlText(records.back().date);
    }
    page += "</p>\n";
    if (scoreboard)
        page +=
            "<p><a href=\"scoreboard.html\">Scoreboard</a>: which forecast, ticket list and "
            "digit set did better than chance</p>\n";
    auto item = [&](std::string_view caption, std::string_view report) {
        auto it = written.find(report);
        if (it != written.end())
            return "<li><a href=\"" + HtmlText(report) + ".html\">" + HtmlText(caption) +
                   "</a><span class=\"size\">" + SizeText(it->second) + "</span></li>\n";
        return "<li>" + HtmlText(caption) + "</li>\n";
    };
    std::set<std::string_view> listed;
    for (const GroupButton& group : GroupButtons()) {
        page += "<h2>" + HtmlText(group.caption) + "</h2>\n<ul>\n";
        for (const CommandEntry& e : MenuEntries(group.menu)) {
            if (e.IsSeparator()) {
                page += "<li class=\"sep\"></li>\n";
                continue;
            }
            page += item(e.caption, e.report);
            listed.insert(e.report);
        }
        page += "</ul>\n";
    }
    std::string others;
    for (const auto& [report, size] : written)
        if (!listed.contains(report)) others += item(FindReport(report)->title, report);
    if (!others.empty()) page += "<h2>Other reports</h2>\n<ul>\n" + others + "</ul>\n";
    page += "</body></html>\n";
    return page;
}

}  // namespace

std::string_view ProgramVersion() {
    return NUMAREL_VERSION;
}

bool ResolveReportArgument(std::string& name, std::ostream& err) {
    if (name.empty()) {
        err << "numarel-cli: name a report, or give --all\n";
        return false;
    }
    std::string_view object = FindReportByName(name);
    if (!object.empty()) {
        name = std::string(object);
        return true;
    }
    err << "numarel-cli: no report is named \"" << name << "\"; the closest:";
    const char* separator = " ";
    for (std::string_view caption : ClosestCaptions(name)) {
        err << separator << '"' << caption << '"';
        separator = ", ";
    }
    err << '\n';
    return false;
}

namespace {
std::filesystem::path ExportedFile(const std::filesystem::path& folder, std::string_view object,
                                   SheetFormat format) {
    std::filesystem::path file = folder / object;
    file += Extension(format);
    return file;
}
}  // namespace

std::vector<std::filesystem::path> ExportedFiles(SheetFormat format,
                                                 const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (ReportFamily family : ReportFamilies())
        for (const ReportDefinition& def : family())
            files.push_back(ExportedFile(folder, def.object, format));
    if (format == SheetFormat::Html) {
        files.push_back(folder / "index.html");
        files.push_back(folder / "scoreboard.html");
    }
    return files;
}

int ExportAllReports(const std::filesystem::path& drawings, SheetFormat format,
                     const std::filesystem::path& folder, std::ostream& err,
                     const PayoutTable& payouts, const PdfChoice& pdf) {
    if (folder.empty()) {
        err << "numarel-cli: --all writes into the folder given by --output\n";
        return 1;
    }
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    std::error_code statError;
    const std::filesystem::file_status status = std::filesystem::status(folder, statError);
    if (!std::filesystem::is_directory(status)) {
        std::string reason;
        if (std::filesystem::exists(status))
            reason = "it is a file, not a folder";
        else if (ec.value() == ENOTDIR || statError.value() == ENOTDIR)
            reason = NotAFolderReason(folder / "x");
        else
            reason = FileErrorReason(ec ? ec.value() : statError.value());
        err << "numarel-cli: cannot make the folder \"" << folder.string() << "\": " << reason
            << "\n";
        return 1;
    }
    std::vector<DrawRecord> records;
    if (Status s = ReadHistory(drawings, records); !s.ok()) {
        err << "numarel-cli: " << s.message() << '\n';
        return 1;
    }
    std::vector<const ReportDefinition*> reports;
    for (ReportFamily family : ReportFamilies())
        for (const ReportDefinition& def : family())
            reports.push_back(&def);

    // Each core takes the next report not yet taken; what went wrong is said afterwards in the
    // order of the menus, so the output does not depend on which core was quicker.
    std::vector<std::string> problems(reports.size());
    std::atomic<std::size_t> next{0};
    const std::string lottery = drawings.stem().string();
    auto work = [&] {
        for (std::size_t i = next++; i < reports.size(); i = next++) {
            const ReportDefinition& def = *reports[i];
            try {
                ReportSheet sheet;
                BuildReport(def, records, sheet);
                auto write = [&](std::ostream& os) {
                    if (format == SheetFormat::Html)
                        WriteReportPage(sheet, def.object, lottery, os);
                    else if (format == SheetFormat::Pdf)
                        WriteSheetPdf(sheet, lottery, pdf, os);
                    else
                        WriteSheet(sheet, format, def.object, 30, os);
                };
                Status s = WriteFileSafely(ExportedFile(folder, def.object, format), write);
                if (!s.ok()) problems[i] = s.message();
            } catch (const std::exception& e) {
                problems[i] = e.what();
            }
        }
    };
    const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
    std::vector<std::thread> helpers;
    for (unsigned k = 1; k < std::min<std::size_t>(cores, reports.size()); ++k)
        helpers.emplace_back(work);
    work();
    for (std::thread& t : helpers)
        t.join();

    std::map<std::string_view, std::uintmax_t> written;
    int failures = 0;
    for (std::size_t i = 0; i < reports.size(); ++i) {
        if (problems[i].empty()) {
            written[reports[i]->object] =
                std::filesystem::file_size(ExportedFile(folder, reports[i]->object, format), ec);
        } else {
            ++failures;
            err << "numarel-cli: " << reports[i]->object << ": " << problems[i] << '\n';
        }
    }
    if (format == SheetFormat::Html) {
        bool scoreboard = false;
        try {
            const ScoreTable table =
                BuildScoreboard(records, {.lottery = drawings.stem().string(), .payouts = payouts});
            Status s = WriteFileSafely(folder / "scoreboard.html", ScoreboardHtml(table));
            scoreboard = s.ok();
            if (!s.ok()) {
                ++failures;
                err << "numarel-cli: " << s.message() << '\n';
            }
        } catch (const std::exception& e) {
            ++failures;
            err << "numarel-cli: scoreboard: " << e.what() << '\n';
        }
        std::filesystem::path index = folder / "index.html";
        std::string page = IndexPage(drawings, records, written, scoreboard);
        Status s = WriteFileSafely(index, page);
        if (!s.ok()) {
            ++failures;
            err << "numarel-cli: " << s.message() << '\n';
        }
    }
    return failures == 0 ? 0 : 1;
}

}  // namespace numarel
