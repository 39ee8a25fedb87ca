#include "desk/check_desk.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "checks/check_report.h"
#include "checks/finding_kinds.h"
#include "checks/mending_advice.h"
#include "checks/readable_text.h"
#include "control/check_setup.h"
#include "core/line_reader.h"
#include "desk/accused_cells.h"
#include "desk/board_desk.h"
#include "desk/json_text.h"
#include "intake/column_recognition.h"
#include "text/folded_words.h"
#include "text/search_text.h"
#include "text/system_reasons.h"

namespace pedigreewatch {
namespace {

constexpr Wording unreadable = {"The data file cannot be read: {1}", "Het databestand is niet te lezen: {1}"};
constexpr Wording too_many_lines = {"The file has 100000000 lines or more.",
                                    "Het bestand heeft 100000000 regels of meer."};

/// Whether findings name lines of the export.
bool has_export_lines(const Desk& desk) {
  return desk.has_export && desk.files && desk.files->is_made;
}

/// Yields what stands in the way; empty: nothing.
std::string run_check(Desk& desk) {
  CheckSettings settings = make_check_settings(*desk.steer, lines_of_steer_file(desk.files->steer_file), desk.today);
  LineReader data;
  if (!open_for_reading(data, desk.files->data_file)) {
    return phrase(unreadable, desk.language, {in_quotes(desk.files->data_file)});
  }
  // A file that was brought along may be called otherwise than the steer file says: it is never written over here.
  settings.report_overwrites_data = settings.report_overwrites_data && !desk.files->is_made;
  settings.language = desk.language;
  if (has_export_lines(desk)) settings.export_lines = desk.files->export_lines;
  ProgressLine unseen;
  tell(desk.watch, "checking");
  desk.check = check_data(data, settings, unseen);
  judge_results(desk);  // what was found may forbid a verdict
  if (data.error != 0) return phrase(unreadable, desk.language, {reason_text(data.error, desk.language)});
  if (desk.check->has_too_many_lines) return std::string(words_of(too_many_lines, desk.language));
  sort_by_line(desk.check->findings);
  return {};
}

/// What can be given up of each kind: of some finding of it at least.
std::array<WaysOn, finding_code_count> ways_of_kinds(const Desk& desk) {
  std::array<WaysOn, finding_code_count> ways = {};
  if (!has_export_lines(desk)) return ways;
  for (const Finding& finding : desk.check->findings.list) {
    WaysOn& of_kind = ways[static_cast<std::size_t>(finding.code)];
    const WaysOn own = ways_on(finding);
    of_kind = {of_kind.dates || own.dates, of_kind.parents || own.parents};
  }
  return ways;
}

/// What is mended first: what stops the run, then what falsifies all figures, inbreeding, the effective size, others,
/// and at last what is only worth a look.
int place_in_mending(FindingCode code) {
  const FindingKind& kind = kind_of(code);
  if (kind.severity == Severity::stops) return 0;
  if (kind.severity == Severity::look) return 6;
  if (kind.parts == every_part) return 1;
  if ((kind.parts & part_inbreeding) != 0) return 2;
  if ((kind.parts & part_effective_size) != 0) return 3;
  return kind.parts != no_part ? 4 : 5;
}

/// The kinds that were found, in the order in which they are mended.
std::vector<FindingCode> kinds_in_order(std::span<const std::int64_t> counts) {
  std::vector<FindingCode> codes;
  for (std::size_t k = 0; k < counts.size(); ++k) {
    if (counts[k] > 0) codes.push_back(static_cast<FindingCode>(k));
  }
  std::stable_sort(codes.begin(), codes.end(),
                   [](FindingCode a, FindingCode b) { return place_in_mending(a) < place_in_mending(b); });
  return codes;
}

void add_kinds(JsonText& json, const Desk& desk) {
  const auto counts = count_kinds(desk.check->findings);
  const auto ways_of = ways_of_kinds(desk);
  begin_list(json, "kinds");
  for (const FindingCode code : kinds_in_order(counts)) {
    const std::size_t k = static_cast<std::size_t>(code);
    const FindingKind& kind = kind_of(code);
    begin_object(json);
    add_text(json, "name", kind.name);
    add_text(json, "title", words_of(kind.title, desk.language));
    add_text(json, "severity", letter_of(kind.severity));
    add_text(json, "severityText", heading_of(kind.severity, desk.language));
    add_text(json, "parts", kind.severity == Severity::falsifies ? list_parts(kind.parts, desk.language) : "");
    add_text(json, "advice", words_of(mending_advice(kind.code), desk.language));
    add_integer(json, "count", counts[k]);
    const WaysOn& ways = ways_of[k];
    add_logical(json, "canDropDates", ways.dates);
    add_logical(json, "canDropParents", ways.parents);
    end_object(json);
  }
  end_list(json);
}

/// `filter` is folded.
bool fits(const Finding& finding, const std::string& filter, const Desk& desk) {
  if (filter.empty()) return true;
  const auto has = [&](std::string_view text) {
    std::string folded;
    fold_for_search(folded, text);
    return folded.find(filter) != std::string::npos;
  };
  return has(readable(desk.check->animals.ids.at(finding.id))) || has(message_of(finding, *desk.check, desk.language));
}

// --- The lines themselves ---

/// The wanted lines of a text, counted from 1.
using LinesByNumber = std::map<std::int64_t, std::string>;

LinesByNumber lines_of_text(std::string_view text, const std::set<std::int64_t>& wanted) {
  const char line_end =
      std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(text.size(), 100'000)),
                 '\n') == 0
          ? '\r'
          : '\n';
  LinesByNumber lines;
  std::int64_t number = 1;
  for (const std::int64_t line : wanted) {
    for (; number < line && !text.empty(); ++number) {
      const std::size_t end = text.find(line_end);
      text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    if (text.empty()) break;
    lines[line] = trimmed(text.substr(0, std::min(text.find(line_end), kept_line_length)));
  }
  return lines;
}

LinesByNumber lines_of_data_file(const std::string& name, const std::set<std::int64_t>& wanted) {
  LinesByNumber lines;
  LineReader reader;
  if (!open_for_reading(reader, name)) return lines;
  std::int64_t number = 1;
  std::string_view text;
  for (const std::int64_t line : wanted) {
    for (; number < line && skip_line(reader); ++number) {
    }
    if (number < line || !read_line(reader, text)) break;
    ++number;
    lines[line] = readable(text);
  }
  return lines;
}

void add_finding(JsonText& json, const Finding& finding, const LinesByNumber& lines, const Desk& desk) {
  const FindingKind& kind = kind_of(finding.code);
  const auto found = lines.find(finding.line);
  begin_object(json);
  add_integer(json, "line", finding.line);
  add_integer(json, "column", finding.column);
  add_text(json, "id", shown(readable(desk.check->animals.ids.at(finding.id))));
  add_text(json, "kind", words_of(kind.title, desk.language));
  add_text(json, "severity", letter_of(kind.severity));
  add_text(json, "text", message_of(finding, *desk.check, desk.language));
  add_text(json, "original", found == lines.end() ? std::string_view() : std::string_view(found->second));
  end_object(json);
}

}  // namespace

std::string check_files(Desk& desk) {
  std::string problem;
  if (!desk.check && desk.files) problem = run_check(desk);
  JsonText json;
  begin_object(json);
  add_lines(json, "messages", problem);
  if (desk.check && problem.empty()) {
    const std::vector<Finding>& list = desk.check->findings.list;
    const bool stops = std::any_of(list.begin(), list.end(), [](const Finding& finding) {
      return kind_of(finding.code).severity == Severity::stops;
    });
    add_integer(json, "animals", desk.check->animals.count());
    add_logical(json, "canRun", !stops);
    add_logical(json, "isFromExport", has_export_lines(desk));
    add_integer(json, "count", std::ssize(list));
    add_kinds(json, desk);
  }
  end_object(json);
  return std::move(json.text);
}

std::string choose_findings(Desk& desk, std::string_view kind, std::string_view filter) {
  desk.chosen_findings.clear();
  std::string folded;
  fold_for_search(folded, filter);
  const std::optional<FindingCode> wanted = finding_code_named(kind);
  const std::size_t count = desk.check ? desk.check->findings.list.size() : 0;
  for (std::size_t k = 0; k < count; ++k) {
    const Finding& finding = desk.check->findings.list[k];
    if (!kind.empty() && wanted != finding.code) continue;
    if (fits(finding, folded, desk)) desk.chosen_findings.push_back(static_cast<std::uint32_t>(k));
  }
  const auto place_at = [&](std::uint32_t k) { return place_in_mending(desk.check->findings.list[k].code); };
  std::stable_sort(desk.chosen_findings.begin(), desk.chosen_findings.end(),
                   [&](std::uint32_t a, std::uint32_t b) { return place_at(a) < place_at(b); });
  JsonText json;
  begin_object(json);
  add_integer(json, "count", std::ssize(desk.chosen_findings));
  end_object(json);
  return std::move(json.text);
}

std::string list_findings(const Desk& desk, std::size_t first, std::size_t count) {
  const std::size_t begin = std::min(first, desk.chosen_findings.size());
  const auto places =
      std::span(desk.chosen_findings).subspan(begin, std::min(count, desk.chosen_findings.size() - begin));
  std::set<std::int64_t> wanted;
  for (const std::uint32_t place : places) wanted.insert(desk.check->findings.list[place].line);
  wanted.erase(0);
  const LinesByNumber lines = has_export_lines(desk)
                                  ? lines_of_text(desk.preparation.text, wanted)
                                  : lines_of_data_file(desk.files ? desk.files->data_file : "", wanted);
  JsonText json;
  begin_object(json);
  begin_list(json, "rows");
  for (const std::uint32_t place : places) add_finding(json, desk.check->findings.list[place], lines, desk);
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

std::string findings_table(const Desk& desk) {
  std::string table;
  if (!desk.check) return table;
  table += table_heading_of(desk.language);
  for (const Finding& finding : desk.check->findings.list) {
    table += table_row(finding, *desk.check, desk.language) + "\n";
  }
  return table;
}

std::string findings_workbook(const Desk& desk) {
  if (!desk.check) return {};
  WorkbookWriter workbook;
  write_findings_sheet(*desk.check, desk.language, workbook);
  return finish_workbook(workbook) ? std::move(workbook.zip.bytes) : std::string();
}

}  // namespace pedigreewatch
