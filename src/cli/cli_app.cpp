#include "cli/cli_app.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <functional>
#include <iostream>
#include <ostream>
#include <sstream>

#include "cli/import_command.h"
#include "cli/report_export.h"
#include "cli/score_command.h"
#include "data/file_io.h"
#include "data/lottery_catalog.h"
#include "export/html_page.h"
#include "export/pdf_writer.h"
#include "export/sheet_format.h"
#include "reports/command_table.h"
#include "reports/enquiry_other/number_enquiry.h"
#include "reports/report_registry.h"
#include "reports/scoreboard/payout_table.h"
#include "reports/scoreboard/scoreboard.h"

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

    // Streams what `write` makes, so that a large sheet is never one string in memory.
    int Deliver(const std::function<void(std::ostream&)>& write, std::ostream& out,
                std::ostream& err) const {
        if (outputFile.empty() || outputFile == "-") {
            errno = 0;
            write(out);
            out.flush();
            if (out) return 0;
            err << StandardOutputFailure(errno) << '\n';
            return 1;
        }
        Status s = WriteFileSafely(outputFile, write);
        if (!s.ok()) {
            err << "numarel-cli: " << s.message() << '\n';
            return 1;
        }
        return 0;
    }
    int Deliver(std::string_view text, std::ostream& out, std::ostream& err) const {
        return Deliver([text](std::ostream& os) { os << text; }, out, err);
    }
    int Deliver(const ReportSheet& sheet, SheetFormat format, std::string_view object, int tail,
                std::ostream& out, std::ostream& err) const {
        return Deliver([&](std::ostream& os) { WriteSheet(sheet, format, object, tail, os); }, out,
                       err);
    }
};

// True when `path` lies directly in `folder`, by whatever path either is given.
bool DirectlyIn(const std::filesystem::path& path, const std::filesystem::path& folder) {
    std::error_code ec;
    std::filesystem::path parent = std::filesystem::absolute(path, ec).parent_path();
    return !ec && SameFile(parent, folder);
}

// --output must never name a file the command reads or the selection, nor a file of the data
// folder, where it would stand as a lottery: refused before any work.
bool OutputIsSafe(const std::string& output, const std::string& data, const ProgramFolder& folder,
                  std::ostream& err) {
    if (output.empty() || output == "-") return true;
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
    if (DirectlyIn(output, folder.DataDir())) {
        err << "numarel-cli: --output \"" << output
            << "\" is in the data folder, where every file stands for a lottery. Choose another "
               "folder.\n";
        return false;
    }
    return true;
}

// The folder of report --all must not be one of the program folder's own: the data folder (each
// file would stand as a lottery), the selection's folder, the help pages or the program folder
// itself.
bool ExportFolderIsSafe(const std::string& output, const ProgramFolder& folder, std::ostream& err) {
    const std::pair<std::filesystem::path, std::string_view> own[] = {
        {folder.DataDir(), "the data folder, where every file stands for a lottery"},
        {folder.SelectionFile().parent_path(), "the folder of the selection file"},
        {folder.HelpDir(), "the folder of the help pages"},
        {folder.root, "the program folder"},
    };
    for (const auto& [path, what] : own) {
        if (!SameFile(output, path)) continue;
        err << "numarel-cli: --output \"" << output << "\" is " << what
            << "; report --all never writes there. Choose another folder.\n";
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

// The payout table beside the selection file; its lines that cannot be read are named on
// standard error, and the defaults stand for them.
PayoutTable PayoutsOf(const ProgramFolder& folder, std::ostream& err) {
    const std::filesystem::path file = folder.SelectionFile().parent_path() / kPayoutFileName;
    std::vector<std::string> problems;
    PayoutTable table = ReadPayoutTable(file, &problems);
    for (const std::string& problem : problems)
        err << "numarel-cli: " << file.string() << ", " << problem << "; the default is used\n";
    return table;
}

// The options every command that prints a sheet takes.
CLI::Option* AddSheetOptions(CLI::App* command, std::string& data, std::string& formatName,
                             std::string& output, int& tail) {
    command->add_option("--data", data, "A drawings file instead of the current lottery");
    command->add_option("--format", formatName, "text, csv, html, json or pdf")
        ->check(CLI::IsMember({"text", "csv", "html", "json", "pdf"}));
    command->add_option("--output", output,
                        "Write to this file instead of standard output (- for standard output)");
    return command
        ->add_option("--tail", tail,
                     "Drawings shown by the text format (30) and printed in a PDF "
                     "(those that fill one page)")
        ->check(CLI::NonNegativeNumber);
}

int RunCommand(int argc, const char* const* argv, const ProgramFolder& folder, std::ostream& out,
               std::ostream& err) {
    CLI::App app{"Numarel reports without a window.", "numarel-cli"};
    app.require_subcommand(1);
    app.set_version_flag("--version", "numarel-cli " + std::string(ProgramVersion()));

    CLI::App* where = app.add_subcommand(
        "where", "Print the program folder: where the lotteries and the selection are kept");

    CLI::App* list = app.add_subcommand("list", "Print the command table of the main window");

    std::string object;
    std::string data;
    std::string formatName = "text";
    std::string output;
    int tail = 30;
    CLI::App* report = app.add_subcommand("report", "Print the sheet of one report");
    bool all = false;
    report->add_option("object", object,
                       "The report's window object or menu caption, such as frmbjiouhe or "
                       "\"cold warm hot\"");
    report->add_flag("--all", all, "Every report, into the folder given by --output");
    CLI::Option* reportTail = AddSheetOptions(report, data, formatName, output, tail);
    bool fitWidth = false;
    report->add_flag("--fit-width", fitWidth,
                     "PDF: scale the columns to the page width instead of printing the columns "
                     "that do not fit on following pages");

    std::string kind;
    std::vector<std::string> tickets;
    CLI::App* enquire = app.add_subcommand(
        "enquire", "Print the enquiry window's sheet after Enquire with these tickets");
    enquire->add_option("kind", kind, "straight or box")
        ->required()
        ->check(CLI::IsMember({"straight", "box"}));
    enquire->add_option("text", tickets,
                        "The tickets, read as the text box reads them: only the digits count");
    CLI::Option* enquireTail = AddSheetOptions(enquire, data, formatName, output, tail);

    int column = 0;
    CLI::App* missLengths = app.add_subcommand(
        "miss-lengths", "Print the closed Miss lengths of a column, as a double click copies them");
    missLengths->add_option("object", object, "Form1zu3zh or frmzu3leixing2")->required();
    missLengths->add_option("column", column, "The column, counted from 0")->required();
    missLengths->add_option("--data", data, "A drawings file instead of the current lottery");
    missLengths->add_option(
        "--output", output,
        "Write to this file instead of standard output (- for standard output)");

    CLI::App* nextBox = app.add_subcommand(
        "next-box-numbers", "Print the Box Numbers for the next drawing of Cold Warm Hot");
    nextBox->add_option("--data", data, "A drawings file instead of the current lottery");
    nextBox->add_option("--output", output,
                        "Write to this file instead of standard output (- for standard output)");

    CLI::App* export320 =
        app.add_subcommand("export320", "Print the export of Recommend 320 Straight Numbers");
    export320->add_option("--data", data, "A drawings file instead of the current lottery");
    export320->add_option("--output", output,
                          "Write to this file instead of standard output (- for standard output)");

    int last = 0;
    CLI::App* score = app.add_subcommand(
        "score", "Print how every forecast, ticket list and digit set fared against chance");
    score->add_option("--data", data, "A drawings file instead of the current lottery");
    score->add_option("--last", last, "Add a stretch of the last N drawings")
        ->check(CLI::PositiveNumber);
    score->add_option("--format", formatName, "text, csv, html or json")
        ->check(CLI::IsMember({"text", "csv", "html", "json"}));
    score->add_option("--output", output, "Write to this file instead of standard output");

    ImportCommand import;
    AddImportCommand(app, import);

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return Destination{}.Deliver(app.help(), out, err);
    } catch (const CLI::CallForVersion& e) {
        return Destination{}.Deliver(std::string(e.what()) + '\n', out, err);
    } catch (const CLI::CallForAllHelp&) {
        return Destination{}.Deliver(app.help("", CLI::AppFormatMode::All), out, err);
    } catch (const CLI::ParseError& e) {
        err << "numarel-cli: " << e.what() << '\n';
        return 2;
    }

    // An empty --output is a mistake, not a wish for standard output, which is "-" or no --output.
    for (CLI::App* command : app.get_subcommands()) {
        const CLI::Option* given = command->get_option_no_throw("--output");
        if (given && given->count() > 0 && output.empty()) {
            err << "numarel-cli: --output needs a file name (- for standard output)\n";
            return 2;
        }
    }
    if (!OutputIsSafe(output, data, folder, err)) return 1;

    if (*import.command) return RunImportCommand(import, folder, std::cin, out, err);
    if (*where) return Destination{}.Deliver(folder.root.string() + '\n', out, err);
    if (*list) return Destination{}.Deliver(ListCommands(), out, err);

    if (*report) {
        if (!all && !ResolveReportArgument(object, err)) return 1;
        std::filesystem::path path;
        if (!ResolveDataFile(data, folder, path, err)) return 1;
        SheetFormat format = SheetFormat::Text;
        ParseSheetFormat(formatName, format);
        PdfChoice pdf;
        if (reportTail->count() > 0) pdf.drawings = tail;
        pdf.fitToWidth = fitWidth;
        if (all) {
            if (output == "-") {
                err << "numarel-cli: --all writes files into a folder, not to standard output\n";
                return 2;
            }
            if (!output.empty() && !ExportFolderIsSafe(output, folder, err)) return 1;
            for (const std::filesystem::path& file : ExportedFiles(format, output))
                if (!OutputIsSafe(file.string(), data, folder, err)) return 1;
            return ExportAllReports(path, format, output, err, PayoutsOf(folder, err), pdf);
        }
        ReportSheet sheet;
        Status s = RunReport(object, path, sheet);
        if (!s.ok()) {
            err << "numarel-cli: " << s.message() << '\n';
            return 1;
        }
        if (format == SheetFormat::Pdf) {
            const std::string lottery = path.stem().string();
            return Destination{output}.Deliver(
                [&](std::ostream& os) { WriteSheetPdf(sheet, lottery, pdf, os); }, out, err);
        }
        if (format == SheetFormat::Html) {
            const std::string lottery = path.stem().string();
            return Destination{output}.Deliver(
                [&](std::ostream& os) { WriteReportPage(sheet, object, lottery, os); }, out, err);
        }
        return Destination{output}.Deliver(sheet, format, object, tail, out, err);
    }
    if (*score) {
        std::filesystem::path path;
        if (!ResolveDataFile(data, folder, path, err)) return 1;
        std::vector<DrawRecord> drawings;
        if (Status s = ReadHistory(path, drawings); !s.ok()) {
            err << "numarel-cli: " << s.message() << '\n';
            return 1;
        }
        ScoreOptions options{.lottery = path.stem().string(), .payouts = PayoutsOf(folder, err)};
        if (last > 0 && std::find(options.stretches.begin(), options.stretches.end(), last) ==
                            options.stretches.end())
            options.stretches.insert(options.stretches.end() - 1, last);
        SheetFormat format = SheetFormat::Text;
        ParseSheetFormat(formatName, format);
        const ScoreTable table = BuildScoreboard(drawings, options);
        return Destination{output}.Deliver(
            [&](std::ostream& os) { WriteScoreboard(table, format, os); }, out, err);
    }
    if (*enquire) {
        const NumberEnquiry& enquiry =
            *FindNumberEnquiry(kind == "box" ? "frmzuxuanhaocx" : "frmzhixuanhaocx");
        std::string text;
        for (const std::string& t : tickets)
            (text += t) += ' ';
        ReportSheet sheet;
        if (!BuildSheet(std::string(enquiry.object), data, folder, sheet, err)) return 1;
        if (auto refusal = Enquire(enquiry, text, sheet)) {
            err << "numarel-cli: " << *refusal << '\n';
            return 1;
        }
        SheetFormat format = SheetFormat::Text;
        ParseSheetFormat(formatName, format);
        if (format == SheetFormat::Pdf) {
            PdfChoice pdf;
            if (enquireTail->count() > 0) pdf.drawings = tail;
            std::filesystem::path path;
            if (!ResolveDataFile(data, folder, path, err)) return 1;
            const std::string lottery = path.stem().string();
            return Destination{output}.Deliver(
                [&](std::ostream& os) { WriteSheetPdf(sheet, lottery, pdf, os); }, out, err);
        }
        return Destination{output}.Deliver(sheet, format, enquiry.object, tail, out, err);
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

int RunCli(int argc, const char* const* argv, const ProgramFolder& folder, std::ostream& out,
           std::ostream& err) {
    int code = RunCommand(argc, argv, folder, out, err);
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

int RunCli(int argc, const char* const* argv, const std::filesystem::path& programFolder,
           std::ostream& out, std::ostream& err) {
    return RunCli(argc, argv, ProgramFolder{programFolder}, out, err);
}

}  // namespace numarel
