#include "cli/report_export.h"

#include <exception>
#include <fstream>
#include <functional>
#include <ostream>
#include <set>
#include <system_error>

#include "cli/report_names.h"
#include "reports/command_table.h"
#include "reports/report_registry.h"

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
    }
    return ".txt";
}

std::string HtmlText(std::string_view text) {
    std::string out = Latin1ToUtf8(text);
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

// Writes through `write` into `path`, replacing it only when everything was written.
bool WriteFileWhole(const std::filesystem::path& path,
                    const std::function<void(std::ostream&)>& write) {
    std::filesystem::path part = path;
    part += ".part";
    {
        std::ofstream file(part, std::ios::binary | std::ios::trunc);
        if (file) write(file);
        file.flush();
        if (!file) {
            file.close();
            std::error_code ignored;
            std::filesystem::remove(part, ignored);
            return false;
        }
    }
    std::error_code ec;
    std::filesystem::rename(part, path, ec);
    if (!ec) return true;
    std::error_code ignored;
    std::filesystem::remove(part, ignored);
    return false;
}

// The contents page of an export: the groups of the main window with their menus.
std::string IndexPage(const std::filesystem::path& drawings,
                      const std::set<std::string_view>& written) {
    std::string lottery = HtmlText(drawings.stem().string());
    std::string page =
        "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\">\n<title>" + lottery +
        "</title>\n<style>body{font-family:Arial,'Liberation Sans',sans-serif;margin:8px 16px}"
        "h2{font-size:12pt;margin:12px 0 4px}ul{margin:0;padding-left:20px}"
        "li.sep{list-style:none;border-top:1px solid #c0c0c0;margin:3px 0;width:240px}"
        "</style></head><body>\n<h1>" +
        lottery + "</h1>\n";
    auto item = [&](std::string_view caption, std::string_view report) {
        if (written.contains(report))
            return "<li><a href=\"" + HtmlText(report) + ".html\">" + HtmlText(caption) +
                   "</a></li>\n";
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
    for (std::string_view report : written)
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

int DeliverSheet(const ReportSheet& sheet, SheetFormat format, std::string_view object, int tail,
                 const std::string& outputFile, std::ostream& out, std::ostream& err) {
    auto write = [&](std::ostream& os) { WriteSheet(sheet, format, object, tail, os); };
    if (outputFile.empty()) {
        write(out);
        return 0;
    }
    if (!WriteFileWhole(outputFile, write)) {
        err << "numarel-cli: cannot write \"" << outputFile << "\"\n";
        return 1;
    }
    return 0;
}

int ExportAllReports(const std::filesystem::path& drawings, SheetFormat format,
                     const std::filesystem::path& folder, std::ostream& err) {
    if (folder.empty()) {
        err << "numarel-cli: --all writes into the folder given by --output\n";
        return 1;
    }
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    if (!std::filesystem::is_directory(folder)) {
        err << "numarel-cli: cannot make the folder \"" << folder.string() << "\"\n";
        return 1;
    }
    std::set<std::string_view> written;
    int failures = 0;
    for (ReportFamily family : ReportFamilies()) {
        for (const ReportDefinition& def : family()) {
            std::filesystem::path file = folder / def.object;
            file += Extension(format);
            std::string problem;
            try {
                ReportSheet sheet;
                Status s = RunReport(def.object, drawings, sheet);
                if (!s.ok())
                    problem = s.message();
                else if (!WriteFileWhole(file, [&](std::ostream& os) {
                             WriteSheet(sheet, format, def.object, 30, os);
                         }))
                    problem = "cannot write \"" + file.string() + "\"";
            } catch (const std::exception& e) {
                problem = e.what();
            }
            if (problem.empty()) {
                written.insert(def.object);
            } else {
                ++failures;
                err << "numarel-cli: " << def.object << ": " << problem << '\n';
            }
        }
    }
    if (format == SheetFormat::Html) {
        std::filesystem::path index = folder / "index.html";
        std::string page = IndexPage(drawings, written);
        if (!WriteFileWhole(index, [&](std::ostream& os) { os << page; })) {
            ++failures;
            err << "numarel-cli: cannot write \"" << index.string() << "\"\n";
        }
    }
    return failures == 0 ? 0 : 1;
}

}  // namespace numarel
