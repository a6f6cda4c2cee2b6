#include "data/results_import.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <unordered_map>

#include "data/basic_text.h"

namespace numarel {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Strip(std::string_view s) {
    while (!s.empty() && (IsBlank(s.front()) || s.front() == '\r' || s.front() == '\n'))
        s.remove_prefix(1);
    while (!s.empty() && (IsBlank(s.back()) || s.back() == '\r' || s.back() == '\n'))
        s.remove_suffix(1);
    return s;
}

// A Date field that is a whole positive number of at most nine digits; 0 otherwise.
int WholeDate(std::string_view text) {
    text = Strip(text);
    if (text.empty() || text.size() > 9) return 0;
    int value = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return ec == std::errc() && end == text.data() + text.size() && value > 0 ? value : 0;
}

// A digit field of the file as the reports read it; -1 when it is no digit.
int FileDigit(const std::string& field) {
    double v = LeadingValue(field);
    return v >= 0 && v <= 9 && v == static_cast<int>(v) ? static_cast<int>(v) : -1;
}

bool SameDigits(const DrawRecord& record, const SourceDrawing& drawing) {
    return FileDigit(record.h) == drawing.digits[0] - '0' &&
           FileDigit(record.t) == drawing.digits[1] - '0' &&
           FileDigit(record.u) == drawing.digits[2] - '0';
}

std::string RecordDigits(const DrawRecord& record) {
    std::string text;
    for (const std::string* f : {&record.h, &record.t, &record.u})
        text += std::string(Strip(*f));
    return text;
}

std::string Disagreement(const DrawRecord& record, const SourceDrawing& drawing,
                         const SourceLayout& layout) {
    return "the file has " + RecordDigits(record) + " for " + std::string(Strip(record.date)) +
           ", the source " + drawing.DigitsText() + " for " +
           DescribeSourceDrawing(drawing, layout) + " (line " + std::to_string(drawing.line) + ")";
}

// For each position of `text`, the length of the longest prefix of `pattern` that starts there
// (the Z-function of pattern, sentinel, text).
std::vector<int> PrefixMatches(const std::vector<int>& pattern, const std::vector<int>& text) {
    std::vector<int> s;
    s.reserve(pattern.size() + 1 + text.size());
    s.insert(s.end(), pattern.begin(), pattern.end());
    s.push_back(-1);  // matches nothing: the file's own unreadable digits are below -1
    s.insert(s.end(), text.begin(), text.end());
    const int n = static_cast<int>(s.size());
    std::vector<int> z(static_cast<std::size_t>(n), 0);
    for (int i = 1, l = 0, r = 0; i < n; ++i) {
        int& zi = z[static_cast<std::size_t>(i)];
        if (i < r) zi = std::min(r - i, z[static_cast<std::size_t>(i - l)]);
        while (i + zi < n && s[static_cast<std::size_t>(zi)] == s[static_cast<std::size_t>(i + zi)])
            ++zi;
        if (i + zi > r) {
            l = i;
            r = i + zi;
        }
    }
    return {z.begin() + static_cast<std::ptrdiff_t>(pattern.size() + 1), z.end()};
}

// How many of the file's newest drawings, of those the source holds too, must agree with it:
// they tell where the file ends and so what is new. A disagreement further back (a result
// corrected since, a day the source gives twice) is listed and left as the file has it.
constexpr std::size_t kEndOverlap = 10;

// Whether two drawings of the source are versions of one drawing: the same date, draw number and
// drawing of the day.
bool SameDrawing(const SourceDrawing& a, const SourceDrawing& b) {
    return a.date == b.date && a.drawNumber == b.drawNumber && a.slot == b.slot;
}

// A drawing of the file and the drawing the source gives for it, in all its versions: a source
// may give one drawing twice with different digits, and the file agrees when it has either.
struct Match {
    std::size_t record = 0;  // index in the file
    std::size_t first = 0;   // index of the first version in the source
    std::size_t versions = 1;
};

// Where the source's drawings meet the file's: what is new, or why that cannot be told.
struct Lineup {
    std::vector<std::size_t> news;  // indices of the source drawings to add
    int already = 0;
    std::string disagreement;        // among the file's newest drawings: refuses the import
    std::vector<std::string> older;  // further back: listed only
    std::string refusal;             // the source cannot be lined up with the file
    bool overlap = false;            // whether a drawing of the file was found in the source
    int run = 0;                     // lining up by the run: its length

    bool ok() const { return disagreement.empty() && refusal.empty(); }
};

class Planner {
public:
    Planner(std::span<const DrawRecord> existing, const ImportOptions& options, ImportPlan& plan)
        : file_(existing), options_(options), plan_(plan), source_(plan.source) {}

    void Run();

private:
    bool Refuse(std::string message) {
        plan_.status = Status::InvalidArgument(std::move(message));
        return false;
    }
    DateField ResolveDates() const;
    void Judge(const std::vector<Match>& matches, Lineup& l) const;
    Lineup ByDrawNumber() const;
    Lineup ByDate() const;
    Lineup ByRun() const;
    void Align();
    bool WriteDates();
    int YearOf(const SourceDrawing& d) const {
        return d.date ? d.date / 10000 : ParseDrawNumber(std::to_string(d.drawNumber)) / 1000;
    }

    std::span<const DrawRecord> file_;
    const ImportOptions& options_;
    ImportPlan& plan_;
    const ResultsSource& source_;
    std::vector<std::size_t> news_;
};

DateField Planner::ResolveDates() const {
    // The source's draw numbers, unless the file numbers the same drawings otherwise.
    const bool draws = source_.layout.DrawNumberPerDrawing() && plan_.alignment != Alignment::Run;
    if (options_.dates != DateField::Auto) return options_.dates;
    std::string_view last = file_.empty() ? Strip(options_.numberedLike) : Strip(file_.back().date);
    if (last.empty()) return draws ? DateField::DrawNumber : DateField::YearRunning;
    if (source_.HasDates() && ParseResultDate(last, DateFormat::Compact) && last.size() == 8)
        return DateField::YearMonthDay;
    if (ParseDrawNumber(last)) return draws ? DateField::DrawNumber : DateField::YearRunning;
    if (WholeDate(last) && last.size() <= 6) return DateField::Number;
    return draws ? DateField::DrawNumber : DateField::YearRunning;
}

// The last kEndOverlap matches decide: the first disagreement among them refuses. Those before
// them are only listed.
void Planner::Judge(const std::vector<Match>& matches, Lineup& l) const {
    const auto& s = source_.drawings;
    l.overlap = !matches.empty();
    const std::size_t deciding = matches.size() - std::min(matches.size(), kEndOverlap);
    for (std::size_t m = 0; m < matches.size(); ++m) {
        const Match& match = matches[m];
        const DrawRecord& record = file_[match.record];
        bool agrees = false;
        for (std::size_t v = 0; v < match.versions && !agrees; ++v)
            agrees = SameDigits(record, s[match.first + v]);
        if (agrees) continue;
        std::string why = Disagreement(record, s[match.first], source_.layout);
        if (m < deciding) {
            l.older.push_back(std::move(why));
        } else {
            l.disagreement = std::move(why);
            return;
        }
    }
}

Lineup Planner::ByDrawNumber() const {
    Lineup l;
    const auto& s = source_.drawings;
    // The versions of a drawing stand together in the source; a number given again elsewhere
    // (with another date) is not one of them.
    std::unordered_map<int, Match> byNumber;
    for (std::size_t i = 0; i < s.size(); ++i) {
        auto [it, fresh] = byNumber.try_emplace(s[i].drawNumber, Match{0, i, 1});
        Match& m = it->second;
        if (!fresh && m.first + m.versions == i) ++m.versions;
    }
    std::vector<Match> matches;
    for (std::size_t r = 0; r < file_.size(); ++r) {
        auto found = byNumber.find(WholeDate(file_[r].date));
        if (found == byNumber.end()) continue;
        matches.push_back(found->second);
        matches.back().record = r;
    }
    Judge(matches, l);
    if (!l.disagreement.empty()) return l;
    const int last = WholeDate(file_.back().date);
    for (std::size_t i = 0; i < s.size(); ++i)
        if (s[i].drawNumber > last)
            l.news.push_back(i);
        else
            ++l.already;
    return l;
}

Lineup Planner::ByDate() const {
    Lineup l;
    const auto& s = source_.drawings;
    // Per date, the day's drawings in order, each with its versions; and for each source drawing
    // which drawing of its day it is.
    std::map<int, std::vector<Match>> days;
    std::vector<std::size_t> ofDay(s.size(), 0);
    for (std::size_t i = 0; i < s.size(); ++i) {
        std::vector<Match>& day = days[s[i].date];
        if (i > 0 && SameDrawing(s[i - 1], s[i]))
            ++day.back().versions;
        else
            day.push_back({0, i, 1});
        ofDay[i] = day.size() - 1;
    }
    std::map<int, std::size_t> seen;  // the file's drawings per date so far
    std::vector<Match> matches;
    for (std::size_t r = 0; r < file_.size(); ++r) {
        int date = ParseResultDate(Strip(file_[r].date), DateFormat::Compact);
        if (!date) continue;
        std::size_t k = seen[date]++;
        auto day = days.find(date);
        if (day == days.end() || k >= day->second.size()) continue;
        matches.push_back(day->second[k]);
        matches.back().record = r;
    }
    Judge(matches, l);
    if (!l.disagreement.empty()) return l;
    const int last = ParseResultDate(Strip(file_.back().date), DateFormat::Compact);
    const std::size_t onLastDay = seen[last];
    for (std::size_t i = 0; i < s.size(); ++i) {
        bool fresh = s[i].date > last || (s[i].date == last && ofDay[i] >= onLastDay);
        if (fresh)
            l.news.push_back(i);
        else
            ++l.already;
    }
    return l;
}

// The file's last drawings looked for in the source by their digits: the longest run of them
// that the source repeats marks where the file ends. The run must be the only one of its length;
// where it stops short of both the file's start and the source's start, file and source disagree
// just before it.
Lineup Planner::ByRun() const {
    Lineup l;
    const auto& s = source_.drawings;
    std::vector<int> pattern, text;
    pattern.reserve(file_.size());
    for (std::size_t i = file_.size(); i-- > 0;) {
        const DrawRecord& r = file_[i];
        int h = FileDigit(r.h), t = FileDigit(r.t), u = FileDigit(r.u);
        pattern.push_back(h < 0 || t < 0 || u < 0 ? -2 - static_cast<int>(i)
                                                  : h * 100 + t * 10 + u);
    }
    text.reserve(s.size());
    for (std::size_t i = s.size(); i-- > 0;) {
        const auto& d = s[i].digits;
        text.push_back((d[0] - '0') * 100 + (d[1] - '0') * 10 + (d[2] - '0'));
    }
    std::vector<int> runs = PrefixMatches(pattern, text);
    std::size_t places = 0, end = 0;  // end: the source index of the run's last drawing
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (runs[i] > l.run) {
            l.run = runs[i];
            places = 0;
        }
        if (runs[i] == l.run && l.run > 0) {
            ++places;
            end = s.size() - 1 - i;
        }
    }
    if (l.run == 0) {
        l.refusal = "The file's last drawing (" + std::string(Strip(file_.back().date)) + ", " +
                    RecordDigits(file_.back()) +
                    ") is not in the source, so it cannot be told which drawings are new.";
        return l;
    }
    if (places > 1) {
        l.refusal = "The file's last " +
                    (l.run > 1 ? std::to_string(l.run) + " drawings stand" : "drawing stands") +
                    " in the source " + std::to_string(places) +
                    " times, so it cannot be told which drawings are new.";
        return l;
    }
    l.overlap = true;
    const std::size_t run = static_cast<std::size_t>(l.run);
    // Where the run starts at a drawing the source gives twice, the file has the later version and
    // the run stops at the other: no disagreement of the file's.
    if (run < file_.size() && end + 1 > run && !SameDrawing(s[end - run], s[end - run + 1])) {
        std::string why = Disagreement(file_[file_.size() - 1 - run], s[end - run], source_.layout);
        if (run < kEndOverlap) {
            l.disagreement = std::move(why);
            return l;
        }
        l.older.push_back(std::move(why));
    }
    for (std::size_t i = 0; i < s.size(); ++i)
        if (i > end)
            l.news.push_back(i);
        else
            ++l.already;
    return l;
}

// By draw number or by date where the file numbers its drawings as the source does, else by the
// run of the file's last drawings. Numbers of the same form may still count differently (a file
// numbered by an earlier import, a source with the lottery's own numbers): where they find no
// drawing of the file or disagree, a long enough run found by the digits wins.
void Planner::Align() {
    std::string_view last = Strip(file_.back().date);
    Lineup key;
    if (source_.layout.DrawNumberPerDrawing() && WholeDate(last) &&
        (ParseDrawNumber(last) || !options_.hints.drawColumn.empty())) {
        plan_.alignment = Alignment::DrawNumber;
        key = ByDrawNumber();
    } else if (source_.HasDates() && last.size() == 8 &&
               ParseResultDate(last, DateFormat::Compact)) {
        plan_.alignment = Alignment::Date;
        key = ByDate();
    } else {
        plan_.alignment = Alignment::Run;
    }
    Lineup chosen;
    if (plan_.alignment == Alignment::Run) {
        chosen = ByRun();
    } else if (key.ok() && key.overlap) {
        chosen = std::move(key);
    } else {
        constexpr std::size_t kConvincingRun = 5;
        Lineup run = ByRun();
        if (run.ok() &&
            static_cast<std::size_t>(run.run) >= std::min(file_.size(), kConvincingRun)) {
            chosen = std::move(run);
            plan_.alignment = Alignment::Run;
        } else {
            chosen = std::move(key);
        }
    }
    news_ = std::move(chosen.news);
    plan_.alreadyPresent = chosen.already;
    plan_.disagreement = chosen.disagreement;
    plan_.olderDisagreements = std::move(chosen.older);
    if (!chosen.refusal.empty())
        Refuse(chosen.refusal);
    else if (!chosen.disagreement.empty())
        Refuse("The source disagrees with the file: " + chosen.disagreement +
               ". Nothing was imported.");
}

bool Planner::WriteDates() {
    const auto& s = source_.drawings;
    const DateField form = plan_.dates;
    if (form == DateField::YearMonthDay && !source_.HasDates())
        return Refuse("The source has no dates to write as YYYYMMDD.");
    // Running numbers go on from the file's last drawing; within a year for YYYYNNN.
    const std::string_view last = file_.empty() ? std::string_view() : Strip(file_.back().date);
    int number = file_.empty()     ? 0
                 : WholeDate(last) ? WholeDate(last)
                                   : static_cast<int>(file_.size());
    int prevYear = 0, prevRunning = 0;
    if (int d = ParseDrawNumber(last)) {
        prevYear = d / 1000;
        prevRunning = d % 1000;
    }
    // The running number each source drawing has within its year in the source itself, for a
    // file whose numbering gives nothing to go on.
    std::vector<int> ownRunning(s.size(), 0);
    if (form == DateField::YearRunning) {
        int year = 0, running = 0;
        for (std::size_t i = 0; i < s.size(); ++i) {
            int y = YearOf(s[i]);
            if (y == 0) return Refuse("The source gives no year for its drawings.");
            running = y == year ? running + 1 : 1;
            year = y;
            ownRunning[i] = running;
        }
    }
    plan_.added.reserve(news_.size());
    for (std::size_t i : news_) {
        const SourceDrawing& d = s[i];
        std::string date;
        switch (form) {
            case DateField::DrawNumber:
                if (d.drawNumber == 0)
                    return Refuse("Line " + std::to_string(d.line) +
                                  " of the source has no draw number to write as its date.");
                date = std::to_string(d.drawNumber);
                break;
            case DateField::YearMonthDay:
                date = std::to_string(d.date);
                break;
            case DateField::Number:
                date = std::to_string(++number);
                break;
            case DateField::YearRunning:
            case DateField::Auto: {
                int year = YearOf(d);
                int running = prevYear == 0      ? ownRunning[i]
                              : year == prevYear ? prevRunning + 1
                                                 : 1;
                if (running > 999)
                    return Refuse("The source has more than 999 drawings in " +
                                  std::to_string(year) +
                                  ", too many for dates of the year and a running number; "
                                  "choose dates as YYYYMMDD or as running numbers.");
                prevYear = year;
                prevRunning = running;
                date = std::to_string(year * 1000 + running);
                break;
            }
        }
        plan_.added.push_back({std::move(date), std::string(1, d.digits[0]),
                               std::string(1, d.digits[1]), std::string(1, d.digits[2])});
        plan_.addedFrom.push_back(i);
    }
    return true;
}

void Planner::Run() {
    if (!source_.status.ok()) {
        plan_.status = source_.status;
        return;
    }
    if (options_.strict && !source_.conflicts.empty()) {
        Refuse("The source gives different digits for the same drawing (" +
               std::to_string(source_.conflicts.size()) +
               (source_.conflicts.size() == 1 ? " time" : " times") +
               "), so nothing was imported.");
        return;
    }
    if (file_.empty()) {
        for (std::size_t i = 0; i < source_.drawings.size(); ++i)
            news_.push_back(i);
    } else {
        Align();
        if (!plan_.status.ok()) return;
    }
    if (file_.size() + news_.size() > kMaxDrawings) {
        plan_.status = Status::TooManyDrawings(
            "The file would hold " + std::to_string(file_.size() + news_.size()) +
            " drawings; at most " + std::to_string(kMaxDrawings) + " fit. Nothing was imported.");
        return;
    }
    plan_.dates = ResolveDates();
    WriteDates();
}

// Where each record of a drawings file starts, by the reader's rules (fields separated by blanks,
// commas and line ends; four fields a record; a quoted field may hold anything but a quote).
struct RecordStarts {
    std::vector<std::size_t> starts;
    std::size_t fields = 0;
};

RecordStarts FindRecordStarts(std::string_view s) {
    RecordStarts found;
    auto separator = [](char c) { return IsBlank(c) || c == '\r' || c == '\n' || c == ','; };
    std::size_t p = 0;
    while (true) {
        while (p < s.size() && (IsBlank(s[p]) || s[p] == '\r' || s[p] == '\n'))
            ++p;
        if (p >= s.size()) break;
        if (found.fields % 4 == 0) found.starts.push_back(p);
        ++found.fields;
        if (s[p] == '"') {
            std::size_t close = s.find('"', p + 1);
            p = close == std::string_view::npos ? s.size() : close + 1;
            while (p < s.size() && !separator(s[p]))
                ++p;
        } else if (s[p] != ',') {
            while (p < s.size() && !separator(s[p]))
                ++p;
        }
        std::size_t q = p;
        while (q < s.size() && IsBlank(s[q]))
            ++q;
        if (q < s.size() && s[q] == ',') p = q + 1;
    }
    return found;
}

std::string SeparatorName(char separator) {
    switch (separator) {
        case ',':
            return "commas";
        case ';':
            return "semicolons";
        case '\t':
            return "tabs";
        case '|':
            return "bars";
        default:
            return "blanks";
    }
}

std::string Quoted(const SourceLayout& layout, int column) {
    return "\"" + layout.columnNames[static_cast<std::size_t>(column)] + "\"";
}

}  // namespace

bool ParseDateFieldName(std::string_view name, DateField& field) {
    static constexpr std::pair<std::string_view, DateField> kNames[] = {
        {"", DateField::Auto},
        {"auto", DateField::Auto},
        {"yyyynnn", DateField::YearRunning},
        {"ymd", DateField::YearMonthDay},
        {"number", DateField::Number}};
    for (auto [text, value] : kNames)
        if (Strip(name) == text) {
            field = value;
            return true;
        }
    return false;
}

ImportPlan PlanImport(std::string_view sourceBytes, std::span<const DrawRecord> existing,
                      const ImportOptions& options) {
    ImportPlan plan;
    plan.source = ReadResultsSource(sourceBytes, options.hints);
    Planner(existing, options, plan).Run();
    return plan;
}

Status AppendDrawingLines(std::string_view fileBytes, std::span<const DrawRecord> added,
                          std::string& out) {
    std::vector<DrawRecord> records = ParseDrawings(fileBytes);
    const std::size_t drawings = ReportDrawCount(records);
    RecordStarts found = FindRecordStarts(fileBytes);
    if (found.starts.size() != records.size())
        return Status::IoError("The drawings file could not be followed record by record.");
    std::size_t pos = fileBytes.size();
    if (drawings < records.size()) {
        pos = found.starts[drawings];
        std::size_t q = pos;
        while (q > 0 && IsBlank(fileBytes[q - 1]))
            --q;
        if (q == 0 || fileBytes[q - 1] == '\n' || fileBytes[q - 1] == '\r') pos = q;
    } else if (found.fields % 4 != 0) {
        return Status::InvalidArgument(
            "The drawings file ends in the middle of a drawing; a new line would join it.");
    }
    out.clear();
    out.reserve(fileBytes.size() + added.size() * 16 + 2);
    out.append(fileBytes.substr(0, pos));
    if (!out.empty() && out.back() != '\n' && out.back() != '\r') out += "\r\n";
    out += FormatDrawingsTable(added);
    out.append(fileBytes.substr(pos));
    return Status::Ok();
}

Status ImportIntoFile(std::string_view sourceBytes, const std::filesystem::path& file,
                      const ImportOptions& options, bool dryRun, ImportPlan& plan) {
    std::error_code ec;
    auto refuse = [&plan](Status why) {
        plan = {};
        plan.status = why;
        plan.source.status = why;  // nothing was read from the source either
        return why;
    };
    if (std::filesystem::is_directory(file, ec))
        return refuse(
            Status::IoError("\"" + file.string() + "\" is a folder, not a drawings file."));
    // The file is read and written under its lock, so that another import (or the editor's Save)
    // running at the same moment either comes before or after this one, never in between.
    DrawingsFileLock lock;
    if (!dryRun) {
        Status locked = lock.Acquire(file);
        if (!locked.ok()) return refuse(locked);
    }
    std::string bytes;
    if (std::filesystem::exists(std::filesystem::symlink_status(file, ec))) {
        Status read = ReadFileBytes(file, bytes, "drawings file");
        if (read.ok()) read = CheckReadableText(bytes, "drawings file", file);
        if (!read.ok()) return refuse(read);
    }
    std::vector<DrawRecord> records = ParseDrawings(WithoutUtf8Mark(bytes));
    records.resize(ReportDrawCount(records));
    plan = PlanImport(sourceBytes, records, options);
    if (!plan.status.ok() || plan.added.empty()) return plan.status;
    std::string out;
    Status s = AppendDrawingLines(bytes, plan.added, out);
    if (s.ok() && !dryRun) s = WriteFileSafely(file, out);
    // Nothing was added after all: the summary must not say otherwise.
    if (!s.ok()) plan.status = s;
    return s;
}

std::string DescribeLayout(const SourceLayout& layout) {
    std::string text = "separated by " + SeparatorName(layout.separator);
    if (layout.headerLine > 0) {
        text += ", header on line " + std::to_string(layout.headerLine);
        if (layout.repeatedHeaders > 0)
            text += layout.repeatedHeaders == 1
                        ? std::string(" (repeated once further down)")
                        : " (repeated " + std::to_string(layout.repeatedHeaders) +
                              " times further down)";
    } else {
        text += ", no header";
    }
    if (layout.drawColumn >= 0) text += "; draw numbers in " + Quoted(layout, layout.drawColumn);
    if (layout.dateColumn >= 0)
        text += "; dates in " + Quoted(layout, layout.dateColumn) + " (" +
                std::string(DateFormatName(layout.dateFormat)) + ")";
    if (layout.dayPartColumn >= 0)
        text += "; the day's drawings named in " + Quoted(layout, layout.dayPartColumn);
    for (std::size_t slot = 0; slot < layout.digitsColumns.size(); ++slot) {
        text += slot == 0 ? "; digits in " : ", then ";
        const std::vector<int>& cols = layout.digitsColumns[slot];
        for (std::size_t i = 0; i < cols.size(); ++i)
            text += (i ? "+" : "") + Quoted(layout, cols[i]);
    }
    return text;
}

std::string FormatImportSummary(const ImportPlan& plan) {
    const ResultsSource& source = plan.source;
    std::string text;
    auto line = [&](const std::string& s) { text += s + "\n"; };
    if (!source.layout.digitsColumns.empty()) line("Columns: " + DescribeLayout(source.layout));
    std::string found = "Drawings found: " + std::to_string(source.drawings.size());
    if (source.duplicates > 0)
        found += " (" + std::to_string(source.duplicates) + " more given twice, kept once)";
    line(found);
    std::string added = "Added: " + std::to_string(plan.added.size());
    if (!plan.added.empty())
        added += ", dated " + plan.added.front().date +
                 (plan.added.size() > 1 ? " to " + plan.added.back().date : std::string());
    if (!plan.status.ok()) added = "Added: none";
    line(added);
    line("Already present: " + std::to_string(plan.alreadyPresent));
    line("Conflicts: " + std::to_string(source.conflicts.size()));
    for (const SourceConflict& c : source.conflicts) {
        std::string versions;
        for (const SourceDrawing& d : c.kept)
            versions += (versions.empty() ? "" : ", ") + d.DigitsText() + " (line " +
                        std::to_string(d.line) + ")";
        line("  " + c.where + ": " + versions);
    }
    if (!plan.disagreement.empty()) line("First disagreement: " + plan.disagreement);
    if (!plan.olderDisagreements.empty()) {
        line("Older disagreements, left as the file has them: " +
             std::to_string(plan.olderDisagreements.size()));
        for (const std::string& d : plan.olderDisagreements)
            line("  " + d);
    }
    line("Lines not used: " + std::to_string(source.rejected.size()));
    for (const RejectedLine& r : source.rejected)
        line("  line " + std::to_string(r.line) + ": " + r.reason);
    return text;
}

}  // namespace numarel
