#include "cli/import_command.h"

#include <istream>
#include <ostream>

#include "data/file_io.h"
#include "data/results_import.h"

namespace numarel {
namespace {

// The drawings file of the lottery `name` in data\, ".txt" added unless the name ends in it.
std::filesystem::path LotteryFile(const ProgramFolder& folder, std::string name) {
    if (!name.ends_with(".txt")) name += ".txt";
    return folder.DataDir() / name;
}

}  // namespace

void AddImportCommand(CLI::App& app, ImportCommand& c) {
    c.command = app.add_subcommand(
        "import", "Add the drawings of a results file that are newer than a drawings file's last");
    c.command->add_option("source", c.source, "The results file; - for standard input")->required();
    CLI::Option* into =
        c.command->add_option("--into", c.into, "The drawings file (created when missing)");
    CLI::Option* lottery =
        c.command->add_option("--lottery", c.lottery, "The lottery of that name in data/");
    into->excludes(lottery);
    c.command->add_flag("--dry-run", c.dryRun, "Print the summary and write nothing");
    c.command->add_flag("--strict", c.strict,
                        "Refuse a source that gives different digits for the same drawing");
    c.command->add_option("--date-column", c.dateColumn, "The column of dates (name or number)");
    c.command->add_option("--draw-column", c.drawColumn,
                          "The column of draw numbers (name or number)");
    c.command->add_option("--digits-column", c.digitsColumns,
                          "A column of three digits, or three columns joined by +; repeated for "
                          "each drawing of the day, in order");
    c.command->add_option("--date-format", c.dateFormat,
                          "MM/DD/YYYY, DD/MM/YYYY, YYYY-MM-DD, DD.MM.YYYY or YYYYMMDD");
    c.command->add_option("--dates", c.dates, "The Date field written: auto, yyyynnn, ymd, number")
        ->check(CLI::IsMember({"auto", "yyyynnn", "ymd", "number"}));
}

int RunImportCommand(const ImportCommand& c, const ProgramFolder& folder, std::istream& in,
                     std::ostream& out, std::ostream& err) {
    auto fail = [&](const std::string& message, int code) {
        err << "numarel-cli: " << message << '\n';
        return code;
    };
    ImportOptions options;
    options.strict = c.strict;
    options.hints.dateColumn = c.dateColumn;
    options.hints.drawColumn = c.drawColumn;
    options.hints.digitsColumns = c.digitsColumns;
    if (!ParseDateFormatName(c.dateFormat, options.hints.dateFormat))
        return fail("the date format \"" + c.dateFormat + "\" is not one the import knows", 2);
    ParseDateFieldName(c.dates, options.dates);

    std::filesystem::path file = c.into;
    if (c.command ? c.command->count("--lottery") > 0 : !c.lottery.empty()) {
        // The same rule as New Lottery in the desktop program.
        if (std::string problem = LotteryNameProblem(c.lottery); !problem.empty())
            return fail("\"" + ShownName(c.lottery) + "\" is not a lottery name. " + problem, 2);
        file = LotteryFile(folder, c.lottery);
    }
    if (file.empty())
        return fail("say where the drawings go, with --into FILE or --lottery NAME", 2);
    if (SameFile(file, folder.SelectionFile()))
        return fail(
            "--into \"" + file.string() +
                "\" is the selection file; it is never written over. Choose a drawings file.",
            1);

    std::string bytes;
    if (c.source == "-") {
        Status read = ReadStreamBytes(in, "Standard input", bytes);
        if (read.ok()) read = CheckReadableText(bytes, "standard input", {});
        if (!read.ok()) return fail(read.message(), 1);
    } else {
        if (SameFile(c.source, file)) return fail("the source is the drawings file itself", 1);
        Status read = ReadFileBytes(c.source, bytes, "results file");
        if (read.ok()) read = CheckReadableText(bytes, "results file", c.source);
        if (!read.ok()) return fail(read.message(), 1);
    }

    ImportPlan plan;
    Status s = ImportIntoFile(bytes, file, options, c.dryRun, plan);
    // The summary comes once the outcome is known: a write that failed added nothing.
    if (plan.source.status.ok()) out << FormatImportSummary(plan);
    if (!s.ok()) return fail(s.message(), 1);
    if (c.dryRun)
        out << "Dry run: nothing was written.\n";
    else if (plan.added.empty())
        out << "Nothing new: \"" << file.string() << "\" was left as it was.\n";
    else
        out << "Written to \"" << file.string() << "\".\n";
    return 0;
}

}  // namespace numarel
