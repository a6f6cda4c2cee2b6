#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/drawings_file.h"
#include "data/results_source.h"
#include "data/status.h"

namespace numarel {

// Bringing a results file into a drawings file: only the drawings after the file's last one are
// added, numbered as the file numbers its drawings.

// The form of the Date field written for the new drawings.
enum class DateField {
    Auto,          // the source's draw numbers, or the file's own form; YearRunning for a new file
    YearRunning,   // the year and the drawing's running number within it: 2020225
    YearMonthDay,  // 20200812
    Number,        // a running number from 1, going on from the file's last one
    DrawNumber,    // the source's draw number (chosen by Auto only)
};

// "auto" (or empty), "yyyynnn", "ymd", "number"; false for anything else.
bool ParseDateFieldName(std::string_view name, DateField& field);

struct ImportOptions {
    SourceHints hints;
    DateField dates = DateField::Auto;
    bool strict = false;  // conflicting drawings in the source refuse the import
    // Where the new drawings replace a table: the Date of its last drawing, so that Auto numbers
    // them in the table's form (YYYYMMDD stays YYYYMMDD). Not used when adding to drawings.
    std::string numberedLike = {};
};

// How the source was lined up with the drawings already there.
enum class Alignment {
    None,        // there were none
    DrawNumber,  // by the draw numbers
    Date,        // by the dates (YYYYMMDD) and the order of each day's drawings
    Run,         // by the longest run of the file's last drawings that the source repeats
};

struct ImportPlan {
    Status status;  // not ok: nothing may be written, and the message says why
    ResultsSource source;
    DateField dates = DateField::Auto;  // the form actually written
    Alignment alignment = Alignment::None;
    // The new drawings as they are written, and for each the index of its source drawing.
    std::vector<DrawRecord> added;
    std::vector<std::size_t> addedFrom;
    int alreadyPresent = 0;  // source drawings at or before the file's last drawing
    // The first place among the file's newest drawings where source and file differ: it tells
    // where the file ends, so nothing is imported.
    std::string disagreement;
    // Places further back where they differ: listed, and the file keeps its own digits there.
    std::vector<std::string> olderDisagreements;
};

// Works out what an import of `sourceBytes` adds to `existing`, the drawings a report sees (the
// records before the first end marker).
ImportPlan PlanImport(std::string_view sourceBytes, std::span<const DrawRecord> existing,
                      const ImportOptions& options);

// The bytes of a drawings file with `added` written after its last drawing, one "date h t u"
// CR LF line each: an end marker and what follows it stay at the end, the other bytes stay as
// they were. Fails when the file ends inside a drawing, where a new line would join it.
Status AppendDrawingLines(std::string_view fileBytes, std::span<const DrawRecord> added,
                          std::string& out);

// Imports into the drawings file `file` (created when missing) unless `dryRun`. The file is
// written only when there is something to add, through the safe write; on any refusal it stays
// as it was. `plan` tells what was found, also on a refusal.
Status ImportIntoFile(std::string_view sourceBytes, const std::filesystem::path& file,
                      const ImportOptions& options, bool dryRun, ImportPlan& plan);

// The columns used, as one line: "dates in ... (MM/DD/YYYY); digits in ..., then ...".
std::string DescribeLayout(const SourceLayout& layout);

// What an import found and did, a few lines for the user: the columns used, the drawings found,
// added, already present, the conflicts and every line that could not be used, with why.
std::string FormatImportSummary(const ImportPlan& plan);

}  // namespace numarel
