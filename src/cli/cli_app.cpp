#include "cli/cli_app.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <ostream>
#include <sstream>

#include "cli/sheet_format.h"
#include "data/file_io.h"
#include "data/lottery_catalog.h"
#include "reports/report_registry.h"
#include "shell/command_table.h"

namespace numarel {
namespace {

// Why standard output failed, from the error the system left.
std::string StandardOutputFailure(int error) {
    return "numarel-cli: cannot write to standard output: " +
           (error ? FileErrorReason(error) : std::string("the output was refused")) + ".";
}

// Where a command's result goes: standard output, or a file written safely and only when all
// went well. A failed write is one line on standard error and a non-zero exit.
struct Destination {
    std::string outputFile;

    int Deliver(const std::string& text, std::ostream& out, std::ostream& err) const {
        if (outputFile.empty()) {
            errno = 0;
            out << text;
            out.flush();
            if (out) return 0;
            err << StandardOutputFailure(errno) << '\n';
            return 1;
        }
        Status s = WriteFileSafely(outputFile, text);
        if (!s.ok()) {
            err << "numarel-cli: " << s.message() << '\n';
            return 1;
        }
        return 0;
    }
};

// --output must never name a file the command reads or the selection: refused before any work.
bool OutputIsSafe(const std::string& output, const std::string& data, const ProgramFolder& folder,
                  std::ostream& err) {
    if (output.empty()) return true;
    std::filesystem::path current = ResolveCurrentLottery(folder).drawingsPath;
    const std::pair<std::filesystem::path, std::string_view> kept[] = {
        {data, "the drawings file given by --data"},
        {current, "the drawings file of the current lottery"},
        {folder.SelectionFile(), "the selection file"},
    };
    for (const auto& [path, what] : kept) {
        if (!SameFile(output, path)) continue;
        err << "numarel-cli: --output \"" << output << "\" is " << what
            << "; it is never written over. Choose another file.\n";
        return false;
    }
    return true;
}

std::string ListCommands() {
    std::ostringstream os;
    os << "Group\tCaption\tReport\tHelp page\tBuilt\n";
    for (const CommandEntry& e : CommandTable()) {
        const GroupButton* group = FindGroup(e.menu);
        std::string_view groupCaption = group ? group->caption : e.menu;
        if (e.IsSeparator()) {
            os << groupCaption << "\t(separator)\t\t\t\n";
            continue;
        }
        os << groupCaption << '\t' << e.caption << '\t' << e.report << '\t' << e.helpPage << '\t'
           << (FindReport(e.report) ? "yes" : "no") << '\n';
    }
    return os.str();
}

// The drawings file named by --data, or the current lottery of the selection file.
bool ResolveDataFile(const std::string& data, const ProgramFolder& folder,
                     std::filesystem::path& path, std::ostream& err) {
    if (!data.empty()) {
        path = data;
        return true;
    }
    // Only the desktop program changes the selection; here a selection that cannot be used is an
    // error.
    CurrentLottery current = ResolveCurrentLottery(folder);
    if (!current.problem.empty()) {
        err << "numarel-cli: " << current.problem
            << "; give a drawings file with --data or select a lottery in the desktop program.\n";
        return false;
    }
    path = current.drawingsPath;
    return true;
}

// Builds `object` on the drawings of --data or the current lottery; false after saying why.
bool BuildSheet(const std::string& object, const std::string& data, const ProgramFolder& folder,
                ReportSheet& sheet, std::ostream& err) {
    std::filesystem::path path;
    if (!ResolveDataFile(data, folder, path, err)) return false;
    Status s = RunReport(object, path, sheet);
    if (!s.ok()) {
        err << "numarel-cli: " << s.message() << '\n';
        return false;
    }
    return true;
}

int RunCommand(int argc, const char* const* argv, const std::filesystem::path& programFolder,
               std::ostream& out, std::ostream& err) {
    CLI::App app{"Numarel reports without a window.", "numarel-cli"};
    app.require_subcommand(1);
    ProgramFolder folder{programFolder};

    CLI::App* list = app.add_subcommand("list", "Print the command table of the main window");

    std::string object;
    std::string data;
    std::string formatName = "text";
    std::string output;
    int tail = 30;
    CLI::App* report = app.add_subcommand("report", "Print the sheet of one report");
    report->add_option("object", object, "The report's window object, such as frmbjiouhe")
        ->required();
    report->add_option("--data", data, "A drawings file instead of the current lottery");
    report->add_option("--format", formatName, "text, csv, html or json")
        ->check(CLI::IsMember({"text", "csv", "html", "json"}));
    report->add_option("--output", output, "Write to this file instead of standard output");
    report->add_option("--tail", tail, "Drawings shown by the text format")
        ->check(CLI::NonNegativeNumber);

    int column = 0;
    CLI::App* missLengths = app.add_subcommand(
        "miss-lengths", "Print the closed Miss lengths of a column, as a double click copies them");
    missLengths->add_option("object", object, "Form1zu3zh or frmzu3leixing2")->required();
    missLengths->add_option("column", column, "The column, counted from 0")->required();
    missLengths->add_option("--data", data, "A drawings file instead of the current lottery");
    missLengths->add_option("--output", output, "Write to this file instead of standard output");

    CLI::App* nextBox = app.add_subcommand(
        "next-box-numbers", "Print the Box Numbers for the next drawing of Cold Warm Hot");
    nextBox->add_option("--data", data, "A drawings file instead of the current lottery");
    nextBox->add_option("--output", output, "Write to this file instead of standard output");

    CLI::App* export320 =
        app.add_subcommand("export320", "Print the export of Recommend 320 Straight Numbers");
    export320->add_option("--data", data, "A drawings file instead of the current lottery");
    export320->add_option("--output", output, "Write to this file instead of standard output");

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return Destination{}.Deliver(app.help(), out, err);
    } catch (const CLI::CallForAllHelp&) {
        return Destination{}.Deliver(app.help("", CLI::AppFormatMode::All), out, err);
    } catch (const CLI::ParseError& e) {
        err << "numarel-cli: " << e.what() << '\n';
        return 2;
    }

    if (!OutputIsSafe(output, data, folder, err)) return 1;

    if (*list) return Destination{}.Deliver(ListCommands(), out, err);

    if (*report) {
        std::filesystem::path path;
        if (!ResolveDataFile(data, folder, path, err)) return 1;
        ReportSheet sheet;
        Status s = RunReport(object, path, sheet);
        if (!s.ok()) {
            err << "numarel-cli: " << s.message() << '\n';
            return 1;
        }
        SheetFormat format = SheetFormat::Text;
        ParseSheetFormat(formatName, format);
        std::string text;
        switch (format) {
            case SheetFormat::Text:
                text = FormatSheetText(sheet, tail);
                break;
            case SheetFormat::Csv:
                text = FormatSheetCsv(sheet);
                break;
            case SheetFormat::Html:
                text = FormatSheetHtml(sheet, object);
                break;
            case SheetFormat::Json:
                text = FormatSheetJson(sheet, object);
                break;
        }
        return Destination{output}.Deliver(text, out, err);
    }
    if (*missLengths) {
        const ReportDefinition* def = FindReport(object);
        if (def && !def->doubleClickText) {
            err << "numarel-cli: the report \"" << object
                << "\" copies nothing on a double click\n";
            return 1;
        }
        ReportSheet sheet;
        if (!BuildSheet(object, data, folder, sheet, err)) return 1;
        if (column < 0 || column >= sheet.Cols()) {
            err << "numarel-cli: the report has columns 0 to " << sheet.Cols() - 1 << '\n';
            return 1;
        }
        return Destination{output}.Deliver(def->doubleClickText(sheet, column), out, err);
    }

    // The reports whose extra button gives a text.
    struct SheetTextCommand {
        CLI::App* command;
        std::string_view report;
    };
    for (auto [command, report] : {SheetTextCommand{nextBox, "frmrenwenleng"},
                                   SheetTextCommand{export320, "frmbaishi32zu"}}) {
        if (!*command) continue;
        ReportSheet sheet;
        if (!BuildSheet(std::string(report), data, folder, sheet, err)) return 1;
        const ReportDefinition* def = FindReport(report);
        if (!def->extraButton.text) {
            err << "numarel-cli: the report \"" << report << "\" has no such text\n";
            return 1;
        }
        return Destination{output}.Deliver(def->extraButton.text(sheet), out, err);
    }
    return 2;
}

}  // namespace

int RunCli(int argc, const char* const* argv, const std::filesystem::path& programFolder,
           std::ostream& out, std::ostream& err) {
    int code = RunCommand(argc, argv, programFolder, out, err);
    // Whatever went to standard output must have arrived: a full disk or a closed pipe is a
    // failure even for a command that had nothing else to report.
    errno = 0;
    out.flush();
    if (!out && code == 0) {
        err << StandardOutputFailure(errno) << '\n';
        return 1;
    }
    return code;
}

}  // namespace numarel
