// The findings are put in the order of lines for the table, then in that of kinds for the console.

#include "checks/check_report.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "checks/finding_kinds.h"
#include "checks/readable_text.h"
#include "intake/said_values.h"
#include "text/counted.h"
#include "text/spreadsheet_cell.h"

namespace pedigreewatch {
namespace {

constexpr Wording father = {"father", "vader"}, mother = {"mother", "moeder"};
constexpr Wording father_first = {"Father", "Vader"}, mother_first = {"Mother", "Moeder"};
constexpr Wording female_word = {"female", "vrouwelijk"}, male_word = {"male", "mannelijk"};
constexpr Counted counted_animals = {{"1 animal", "1 dier"}, {"{1} animals", "{1} dieren"}};
constexpr Counted counted_days = {{"1 day", "1 dag"}, {"{1} days", "{1} dagen"}};
constexpr Counted counted_young = {{"1 young", "1 jong"}, {"{1} young", "{1} jongen"}};
constexpr Counted counted_columns = {{"1 column", "1 kolom"}, {"{1} columns", "{1} kolommen"}};
constexpr Wording on_lines = {": lines {1}", ": regels {1}"};
constexpr Wording at_line = {", line {1}", ", regel {1}"};
constexpr Wording at_column = {", column {1}", ", kolom {1}"};
constexpr Wording title = {"{1}: {2} checked", "{1}: {2} gecontroleerd"};
constexpr Wording title_of_export = {"{1}: {2} checked; lines are those of {3}",
                                     "{1}: {2} gecontroleerd; regels zijn die van {3}"};
constexpr Wording not_read = {"{1}: the animals could not be read; mend this first and check again",
                              "{1}: de dieren konden niet gelezen worden; verbeter dit eerst en controleer opnieuw"};
constexpr Wording nothing_found = {"Nothing was found.", "Er is niets gevonden."};
constexpr Wording summary_line = {"  {1} {2}  {3}", "  {1} {2}  {3}"};
constexpr Wording falsified = {"Wrong figures in: {1}", "Foute cijfers in: {1}"};
constexpr Wording kind_title = {"{1} ({2})", "{1} ({2})"};
constexpr Wording further = {"  and {1} more: pedigreewatch-tools check --code {2}, or {3}",
                             "  en nog {1}: pedigreewatch-tools check --code {2}, of {3}"};
constexpr Wording all_in = {"All findings, with their lines: {1}", "Alle bevindingen, met hun regels: {1}"};
constexpr Wording none_of_kind = {"{1}: none", "{1}: geen"};
constexpr Wording sheet_name = {"findings", "bevindingen"};
constexpr Wording table_heading = {"line\tcolumn\tid\tcode\tseverity\ttext\tlines\n",
                                   "regel\tkolom\tid\tcode\ternst\ttekst\tregels\n"};

/// Kinds whose text is made of several of the data and is not cut.
bool has_long_text(FindingCode code) {
  return code == FindingCode::loop || code == FindingCode::subpopulation_list || code == FindingCode::colour_list;
}

std::string shown_text(const Finding& finding, std::int32_t text, const CheckResult& result) {
  const std::string decoded = readable(result.findings.texts.at(text));
  return has_long_text(finding.code) ? shown_whole(decoded) : shown(decoded);
}

std::string id_of(const Finding& finding, const CheckResult& result) {
  return shown_whole(readable(result.animals.ids.at(finding.id)));
}

/// What stands for one of the `finding_places`.
std::string value_of_place(std::string_view place, const Finding& finding, const CheckResult& result,
                           ToolLanguage language) {
  const bool is_sire = finding.role == ParentRole::sire;
  if (place == "text") return shown_text(finding, finding.text, result);
  if (place == "other_text") return shown_text(finding, finding.other_text, result);
  if (place == "line") return std::to_string(finding.other_line);
  if (place == "number") return std::to_string(finding.number);
  if (place == "other_number") return std::to_string(finding.other_number);
  if (place == "parent") return phrase(is_sire ? father : mother, language);
  if (place == "Parent") return phrase(is_sire ? father_first : mother_first, language);
  if (place == "wrong_sex") return phrase(is_sire ? female_word : male_word, language);
  if (place == "days") return counted(counted_days, finding.number, language);
  if (place == "young") return counted(counted_young, finding.number, language);
  if (place == "other_young") return counted(counted_young, finding.other_number, language);
  if (place == "columns") return counted(counted_columns, finding.number, language);
  return counted(counted_animals, finding.number, language);
}

/// "dogs.txt, line 812, column 4, HS12: ".
std::string place_of(const Finding& finding, const CheckResult& result, const CheckReport& report) {
  std::string place = shown(finding.line > 0 && !report.export_name.empty() ? report.export_name : report.data_file);
  if (finding.line > 0) place += phrase(at_line, report.language, {std::to_string(finding.line)});
  if (finding.line <= 1 && finding.column > 0) {
    place += phrase(at_column, report.language, {std::to_string(finding.column)});
  }
  const std::string id = id_of(finding, result);
  return place + (id.empty() ? "" : ", " + id) + ": ";
}

std::string right_justified(std::int64_t number) {
  const std::string digits = std::to_string(number);
  constexpr std::size_t width = 8;
  return std::string(digits.size() < width ? width - digits.size() : 0, ' ') + digits;
}

std::string left_justified(std::string_view text) {
  constexpr std::size_t width = 19;
  return std::string(text) + std::string(text.size() < width ? width - text.size() : 0, ' ');
}

/// The kinds that were found with their counts, and the parts of the report that are wrong.
void show_summary(const KindCounts& counts, const CheckReport& report, TextOutput& console) {
  const ToolLanguage language = report.language;
  std::uint32_t wrong_parts = no_part;
  std::optional<Severity> severity;
  for (std::size_t k = 0; k < counts.size(); ++k) {
    if (counts[k] == 0) continue;
    const FindingKind& kind = kind_of(static_cast<FindingCode>(k));
    if (severity != kind.severity) {
      severity = kind.severity;
      append(console, "\n" + heading_of(kind.severity, language));
      end_line(console);
    }
    const bool is_wrong = kind.severity == Severity::falsifies;
    if (is_wrong) wrong_parts |= kind.parts;
    const std::string parts = is_wrong ? list_parts(kind.parts, language) : std::string();
    std::string line = phrase(summary_line, language, {right_justified(counts[k]), left_justified(kind.name), parts});
    line.erase(line.find_last_not_of(' ') + 1);
    append(console, line);
    end_line(console);
  }
  if (wrong_parts == no_part) return;
  end_line(console);
  say(console, falsified, language, {list_parts(wrong_parts, language)});
}

/// The findings of one kind, which stand together.
void show_kind(const CheckResult& result, std::size_t first, std::int64_t count, const CheckReport& report,
               TextOutput& console) {
  constexpr std::int64_t most_shown = 50;
  const FindingKind& kind = kind_of(result.findings.list[first].code);
  const std::int64_t shown_count = report.wanted ? count : std::min(count, most_shown);
  end_line(console);
  say(console, kind_title, report.language, {kind.name, heading_of(kind.severity, report.language)});
  for (std::int64_t k = 0; k < shown_count; ++k) {
    const Finding& finding = result.findings.list[first + static_cast<std::size_t>(k)];
    append(console, "  " + place_of(finding, result, report) +
                        message_of(finding, result, report.language, report.wanted ? all_places : few_places));
    end_line(console);
  }
  if (shown_count == count) return;
  say(console, further, report.language, {std::to_string(count - shown_count), kind.name, shown(report.table_file)});
}

}  // namespace

std::string message_of(const Finding& finding, const CheckResult& result, ToolLanguage language,
                       std::size_t most_places) {
  std::string_view rest = words_of(kind_of(finding.code).message, language);
  std::string message;
  for (std::size_t brace = rest.find('{'); brace != std::string_view::npos; brace = rest.find('{')) {
    message += rest.substr(0, brace);
    const std::size_t end = rest.find('}', brace);
    message += value_of_place(rest.substr(brace + 1, end - brace - 1), finding, result, language);
    rest.remove_prefix(end + 1);
  }
  message.append(rest);
  if (finding.line_count == 0) return message;
  return message + phrase(on_lines, language, {list_lines(lines_of(result.findings, finding), most_places, language)});
}

std::string_view table_heading_of(ToolLanguage language) {
  return words_of(table_heading, language);
}

std::vector<FindingCell> table_cells(const Finding& finding, const CheckResult& result, ToolLanguage language) {
  const auto number_or_nothing = [](std::int64_t number) { return number > 0 ? std::to_string(number) : ""; };
  const FindingKind& kind = kind_of(finding.code);
  return {{number_or_nothing(finding.line), true},
          {number_or_nothing(finding.column), true},
          {id_of(finding, result)},
          {std::string(kind.name)},
          {std::string(letter_of(kind.severity))},
          {message_of(finding, result, language)},
          {list_lines(lines_of(result.findings, finding), all_places, language)}};
}

std::string table_row(const Finding& finding, const CheckResult& result, ToolLanguage language, bool is_plain) {
  std::string row;
  for (const FindingCell& cell : table_cells(finding, result, language)) {
    row += (is_plain ? cell.text : as_text_cell(cell.text)) + "\t";
  }
  row.pop_back();
  return row;
}

void sort_by_line(Findings& findings) {
  std::stable_sort(findings.list.begin(), findings.list.end(), [](const Finding& a, const Finding& b) {
    return std::tie(a.line, a.code, a.column) < std::tie(b.line, b.code, b.column);
  });
}

void write_findings_sheet(const CheckResult& result, ToolLanguage language, WorkbookWriter& workbook) {
  begin_sheet(workbook, words_of(sheet_name, language));
  std::string_view heading = table_heading_of(language);
  while (!heading.empty()) {
    const std::size_t end = heading.find_first_of("\t\n");
    add_text_cell(workbook, heading.substr(0, end));
    heading.remove_prefix(end + 1);
  }
  end_sheet_row(workbook);
  for (const Finding& finding : result.findings.list) {
    for (const FindingCell& cell : table_cells(finding, result, language)) {
      if (cell.is_number) {
        add_number_cell(workbook, cell.text);
      } else {
        add_text_cell(workbook, cell.text);
      }
    }
    end_sheet_row(workbook);
  }
  end_sheet(workbook);
}

bool write_table(CheckResult& result, const CheckReport& report, FileProblem& problem) {
  sort_by_line(result.findings);
  NewFile file;
  if (!begin_file(file, report.table_file, problem)) return false;
  write_bytes(file, table_heading_of(report.language));
  for (const Finding& finding : result.findings.list) {
    write_bytes(file, table_row(finding, result, report.language, report.is_plain) + "\n");
  }
  return finish_file(file, problem);
}

void show_findings(CheckResult& result, const CheckReport& report, TextOutput& console) {
  std::vector<Finding>& list = result.findings.list;
  sort_by_line(result.findings);
  std::stable_sort(list.begin(), list.end(), [](const Finding& a, const Finding& b) { return a.code < b.code; });
  const KindCounts counts = count_kinds(result.findings);
  if (report.wanted && counts[static_cast<std::size_t>(*report.wanted)] == 0) {
    return say(console, none_of_kind, report.language, {kind_of(*report.wanted).name});
  }
  if (!report.wanted) {
    const Wording& first = !result.has_read_animals ? not_read : report.export_name.empty() ? title : title_of_export;
    say(console, first, report.language,
        {shown(report.data_file), counted(counted_animals, result.animals.count(), report.language),
         shown(report.export_name)});
    if (list.empty()) return say(console, nothing_found, report.language);
    show_summary(counts, report, console);
  }
  std::size_t first = 0;
  for (std::size_t k = 0; k < counts.size(); ++k) {
    const bool is_shown = counts[k] > 0 && (!report.wanted || static_cast<std::size_t>(*report.wanted) == k);
    if (is_shown) show_kind(result, first, counts[k], report, console);
    first += static_cast<std::size_t>(counts[k]);
  }
  if (report.wanted) return;
  end_line(console);
  say(console, all_in, report.language, {shown(report.table_file)});
}

bool has_serious_findings(const Findings& findings) {
  return std::any_of(findings.list.begin(), findings.list.end(),
                     [](const Finding& finding) { return kind_of(finding.code).severity != Severity::look; });
}

}  // namespace pedigreewatch
