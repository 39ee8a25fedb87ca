#include "desk/mending_desk.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <utility>
#include <vector>

#include "checks/calendar.h"
#include "checks/finding_kinds.h"
#include "checks/readable_text.h"
#include "corrections/correction_list.h"
#include "desk/check_desk.h"
#include "desk/export_desk.h"
#include "desk/json_text.h"
#include "intake/correction_words.h"
#include "intake/export_records.h"
#include "tables/animal_table.h"

namespace pedigreewatch {
namespace {

constexpr Wording name_of_list = {"list of corrections", "lijst met correcties"};
constexpr Wording given_up = {"unknown for now: {1}", "voorlopig onbekend: {1}"};

using Code = FindingCode;

/// Records of the export by the line on which they begin.
using RecordsByLine = std::map<std::int64_t, std::vector<std::string>>;

RecordsByLine records_at(const Desk& desk, const std::set<std::int64_t>& lines) {
  RecordsByLine records;
  RecordReader reader = read_records(desk.preparation.text, desk.preparation.reading.delimiter);
  ExportRecord record;
  while (records.size() < lines.size() && next_record(reader, record)) {
    if (lines.count(record.line) == 0) continue;
    std::vector<std::string>& cells = records[record.line];
    for (const std::string_view field : record.fields) cells.emplace_back(correction_cell(trimmed(field)));
  }
  return records;
}

std::optional<std::size_t> place_of(const Desk& desk, FieldCode field) {
  return desk.preparation.columns.place[static_cast<std::size_t>(field)];
}

std::string cell_of(const Desk& desk, const std::vector<std::string>& cells, FieldCode field) {
  const std::optional<std::size_t> place = place_of(desk, field);
  return place && *place < cells.size() ? cells[*place] : std::string();
}

std::string today_text(const Desk& desk) {
  return iso_date(desk.today.year, desk.today.month, desk.today.day);
}

/// The correction that a line of a list would be, without its animal; none for a field that there is not.
std::optional<Correction> correction_of_field(std::string_view field) {
  const CorrectionList read = read_corrections("x\t" + std::string(field) + "\t\t\n");
  if (read.corrections.empty()) return std::nullopt;
  return read.corrections.front();
}

std::string joined(const std::vector<std::string>& cells) {
  std::string text;
  for (std::size_t k = 0; k < cells.size(); ++k) text += (k == 0 ? "" : " | ") + cells[k];
  return correction_cell(text);
}

/// Adds the correction of one animal, unless its line has no identification or says it already.
void add_for(const Desk& desk, const std::vector<std::string>& cells, Correction correction,
             std::vector<Correction>& corrections) {
  correction.id = cell_of(desk, cells, id_column);
  if (correction.id.empty()) return;
  if (correction.kind == CorrectionKind::value) {
    correction.was = cell_of(desk, cells, correction.field);
    if (correction.was == correction.becomes) return;
  } else if (correction.kind == CorrectionKind::leave_out) {
    correction.was = joined(cells);
  }
  correction.when = today_text(desk);
  add_correction(corrections, std::move(correction));
}

std::string list_answer(const std::vector<Correction>& corrections, std::size_t before) {
  JsonText json;
  begin_object(json);
  add_text(json, "list", corrections_text(corrections));
  add_integer(json, "count", std::ssize(corrections) - static_cast<std::int64_t>(before));
  end_object(json);
  return std::move(json.text);
}

std::string_view fate_name(CorrectionFate fate) {
  constexpr auto names = std::to_array<std::string_view>({"applied", "alreadySo", "differs", "noAnimal", "noColumn"});
  return names[static_cast<std::size_t>(fate)];
}

void add_row(JsonText& json, const Desk& desk, const Correction& correction, const CorrectionOutcome& outcome) {
  begin_object(json);
  add_text(json, "id", correction.id);
  add_text(json, "field", field_name(correction));
  add_text(json, "was", correction.was);
  add_text(json, "becomes", correction.becomes);
  add_text(json, "why", correction.why);
  add_text(json, "when", correction.when);
  add_text(json, "fate", fate_name(outcome.fate));
  add_text(json, "said", outcome_sentence(correction, outcome, desk.language));
  end_object(json);
}

/// The column of the data file that a finding means, as a field.
FieldCode field_of_finding(const Desk& desk, const Finding& finding) {
  if (finding.role == ParentRole::sire) return sire_column;
  if (finding.role == ParentRole::dam) return dam_column;
  // Some are about the dates of several animals and name no column.
  if (finding.column == 0 && ways_on(finding.code).dates) return birthdate_column;
  std::int32_t column = 0;
  for (const FieldCode field : written_fields()) {
    if (!desk.preparation.plan.columns.place[static_cast<std::size_t>(field)]) continue;
    if (++column == finding.column) return field;
  }
  return unused_column;
}

/// What a finding proposes in place of the text at hand: an identification as the other line of the export writes it.
std::string proposal_of(const Desk& desk, const Finding& finding, const RecordsByLine& records) {
  switch (finding.code) {
    case Code::parent_spelling:
    case Code::parent_one_letter:
      if (const auto other = records.find(finding.other_line); other != records.end()) {
        return cell_of(desk, other->second, id_column);
      }
      [[fallthrough]];
    case Code::subpopulation_spelling:
    case Code::subpopulation_near:
    case Code::colour_spelling:
    case Code::colour_near:
    case Code::breeder_spelling: return readable(desk.check->findings.texts.at(finding.other_text));
    default: return {};
  }
}

/// How many records say the same in this column as the record at hand.
std::int64_t count_same(const Desk& desk, std::size_t place, const std::string& text) {
  if (text.empty()) return 0;
  std::int64_t count = 0;
  RecordReader reader = read_records(desk.preparation.text, desk.preparation.reading.delimiter);
  ExportRecord record;
  while (next_record(reader, record)) {
    if (place < record.fields.size() && trimmed(record.fields[place]) == text) ++count;
  }
  return count;
}

void add_headings(JsonText& json, const Desk& desk) {
  const ColumnChoice& columns = desk.preparation.columns;
  begin_list(json, "headings");
  for (const std::string& heading : columns.headings) add_text(json, heading);
  end_list(json);
  begin_list(json, "fields");
  for (std::size_t place = 0; place < columns.headings.size(); ++place) {
    Correction named;
    for (const FieldCode field : written_fields()) {
      if (place_of(desk, field) == place) named.field = field;
    }
    add_text(json, named.field == unused_column ? std::string_view() : field_name(named));
  }
  end_list(json);
}

void add_line(JsonText& json, std::int64_t line, const std::vector<std::string>& cells) {
  begin_object(json);
  add_integer(json, "line", line);
  begin_list(json, "cells");
  for (const std::string& cell : cells) add_text(json, cell);
  end_list(json);
  end_object(json);
}

/// The line of the finding itself first.
void add_lines_of(JsonText& json, const RecordsByLine& records, std::int64_t own_line) {
  begin_list(json, "rows");
  if (const auto own = records.find(own_line); own != records.end()) add_line(json, own_line, own->second);
  for (const auto& [line, cells] : records) {
    if (line != own_line) add_line(json, line, cells);
  }
  end_list(json);
}

bool can_mend(const Desk& desk) {
  return desk.has_export && desk.files && desk.files->is_made;
}

/// The lines of the export that a finding is about.
std::set<std::int64_t> all_lines(const Desk& desk, const Finding& finding) {
  const std::span<const std::int32_t> several = lines_of(desk.check->findings, finding);
  std::set<std::int64_t> lines(several.begin(), several.end());
  if (finding.line > 0) lines.insert(finding.line);
  return lines;
}

/// Those whose dates or parents are given up. Relatives that contradict a date keep theirs.
std::set<std::int64_t> faulty_lines(const Desk& desk, const Finding& finding) {
  if (finding.code == Code::date_contradicted) return {finding.line};
  return all_lines(desk, finding);
}

/// Those that are shown to be mended: the first ones, and the line of the other animal.
std::set<std::int64_t> shown_lines(const Desk& desk, const Finding& finding) {
  constexpr std::size_t most_lines = 20;
  std::set<std::int64_t> lines = all_lines(desk, finding);
  while (lines.size() > most_lines) lines.erase(std::prev(lines.end()));
  if (finding.other_line > 0) lines.insert(finding.other_line);
  return lines;
}

}  // namespace

WaysOn ways_on(FindingCode code) {
  switch (code) {
    case Code::date_unreadable:
    case Code::date_impossible:
    case Code::year_placeholder:
    case Code::year_future:
    case Code::year_far_out:
    case Code::year_lone:
    case Code::year_two_digits:
    case Code::date_contradicted: return {true, false};
    case Code::born_before_parent:
    case Code::parent_too_young:
    case Code::age_figures: return {true, true};
    case Code::loop:
    case Code::same_parents:
    case Code::both_roles:
    case Code::parent_sex:
    case Code::parent_name:
    case Code::unknown_word:
    case Code::unknown_perhaps: return {false, true};
    default: return {};
  }
}

std::string set_corrections(Desk& desk, std::string_view list) {
  CorrectionList read = read_corrections(list);
  std::vector<std::string> messages =
      fault_sentences(read.faults, std::string(words_of(name_of_list, desk.language)), desk.language);
  const bool is_applied = desk.has_export && read.corrections == desk.corrections;
  desk.corrections = std::move(read.corrections);
  if (!is_applied) {
    for (std::string& refusal : apply_desk_corrections(desk)) messages.push_back(std::move(refusal));
  }
  const std::vector<CorrectionOutcome>& outcomes = desk.preparation.corrections;
  JsonText json;
  begin_object(json);
  add_texts(json, "messages", messages);
  add_text(json, "list", desk.corrections.empty() ? std::string() : corrections_text(desk.corrections));
  add_text(json, "sentence", corrections_sentence(outcomes, desk.language));
  begin_list(json, "rows");
  for (std::size_t k = 0; k < std::min(desk.corrections.size(), outcomes.size()); ++k) {
    add_row(json, desk, desk.corrections[k], outcomes[k]);
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

std::string propose_correction(const Desk& desk, const NewCorrection& wanted) {
  std::vector<Correction> corrections = desk.corrections;
  std::optional<Correction> correction = correction_of_field(wanted.field);
  if (!desk.has_export || !correction) return list_answer(corrections, corrections.size());
  correction->becomes = correction_cell(wanted.becomes);
  correction->why = correction_cell(wanted.why);
  const RecordsByLine records = records_at(desk, {wanted.line});
  if (records.empty()) return list_answer(corrections, corrections.size());
  const std::vector<std::string>& own = records.begin()->second;
  if (!wanted.is_everywhere || correction->kind != CorrectionKind::value) {
    add_for(desk, own, *correction, corrections);
    return list_answer(corrections, desk.corrections.size());
  }
  const std::string was = cell_of(desk, own, correction->field);
  RecordReader reader = read_records(desk.preparation.text, desk.preparation.reading.delimiter);
  ExportRecord record;
  while (next_record(reader, record)) {
    std::vector<std::string> cells;
    for (const std::string_view field : record.fields) cells.emplace_back(correction_cell(trimmed(field)));
    if (cell_of(desk, cells, correction->field) == was) add_for(desk, cells, *correction, corrections);
  }
  return list_answer(corrections, desk.corrections.size());
}

std::string propose_going_on(const Desk& desk, std::string_view kind, std::string_view what) {
  std::vector<Correction> corrections = desk.corrections;
  if (!can_mend(desk) || !desk.check) return list_answer(corrections, corrections.size());
  std::map<std::int64_t, std::string_view> lines;  // and the kind of the finding
  for (const Finding& finding : desk.check->findings.list) {
    const FindingKind& own = kind_of(finding.code);
    const WaysOn ways = ways_on(finding.code);
    const bool is_wanted = kind.empty() ? own.severity == Severity::stops : own.name == kind;
    if (!is_wanted || finding.line == 0 || !(what == "dates" ? ways.dates : ways.parents)) continue;
    for (const std::int64_t line : faulty_lines(desk, finding)) {
      lines.emplace(line, words_of(own.title, desk.language));
    }
  }
  std::set<std::int64_t> wanted;
  for (const auto& [line, title] : lines) wanted.insert(line);
  for (const auto& [line, cells] : records_at(desk, wanted)) {
    Correction correction;
    correction.why = phrase(given_up, desk.language, {lines.at(line)});
    for (const FieldCode field : {birthdate_column, sire_column, dam_column}) {
      if ((field == birthdate_column) != (what == "dates")) continue;
      correction.field = field;
      add_for(desk, cells, correction, corrections);
    }
  }
  return list_answer(corrections, desk.corrections.size());
}

std::string finding_lines(const Desk& desk, std::size_t place) {
  JsonText json;
  begin_object(json);
  if (can_mend(desk) && desk.check && place < desk.chosen_findings.size()) {
    const Finding& finding = desk.check->findings.list[desk.chosen_findings[place]];
    const RecordsByLine records = records_at(desk, shown_lines(desk, finding));
    const std::optional<std::size_t> column = place_of(desk, field_of_finding(desk, finding));
    const auto own = records.find(finding.line);
    const bool has_cell = column && own != records.end() && *column < own->second.size();
    add_headings(json, desk);
    add_integer(json, "column", column ? static_cast<std::int64_t>(*column) : -1);
    add_text(json, "cell", has_cell ? own->second[*column] : std::string());
    add_text(json, "proposal", column ? proposal_of(desk, finding, records) : std::string());
    add_integer(json, "number", has_cell ? count_same(desk, *column, own->second[*column]) : 0);
    add_logical(json, "mayBeOne", finding.code == Code::same_animal);
    add_lines_of(json, records, finding.line);
  }
  end_object(json);
  return std::move(json.text);
}

}  // namespace pedigreewatch
