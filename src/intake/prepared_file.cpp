// Record by record the columns in use, in one order, with one delimiter and without quotation marks.

#include "intake/prepared_file.h"

#include <algorithm>
#include <array>
#include <utility>

#include "intake/parent_names.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t piece_size = std::size_t{1} << 20;

// The headings of the data file: words that the program knows.
constexpr std::array<Wording, field_count> headings = {{{"", ""},
                                                        {"id", "id"},
                                                        {"sire", "vader"},
                                                        {"dam", "moeder"},
                                                        {"name", "naam"},
                                                        {"", ""},
                                                        {"", ""},
                                                        {"sex", "sekse"},
                                                        {"birthdate", "geboortedatum"},
                                                        {"colour", "kleur"},
                                                        {"breeder", "fokker"},
                                                        {"subpopulation", "subpopulatie"},
                                                        {"Import", "Import"}}};

bool is_written(const PreparePlan& plan, FieldCode code) {
  if (code == sex_column && plan.concluded_sexes.are_needed) return true;
  return plan.columns.place[code].has_value();
}

/// The letter of a sex; nothing for an unknown one.
void append_sex_letter(std::string& bytes, SexMeaning meaning, const PreparePlan& plan) {
  if (meaning == SexMeaning::male) bytes.push_back('m');
  if (meaning == SexMeaning::female) bytes.push_back(female_letter(plan.language));
}

void append_sex(std::string& bytes, std::string_view text, const PreparePlan& plan, const TextCounts& sexes) {
  const std::size_t place = find_counted(sexes, text);
  append_sex_letter(bytes, place < plan.sexes.size() ? plan.sexes[place] : SexMeaning::unknown, plan);
}

/// One that is not listed by itself gets the name of all others.
void append_subpopulation(std::string& bytes, std::string_view text, const PreparePlan& plan) {
  LetterCounts ignored;
  const std::size_t start = bytes.size();
  append_field_text(bytes, text, subpopulation_column, ignored);
  if (plan.joined_subpopulation.empty() || bytes.size() == start) return;
  if (plan.own_subpopulations.contains(bytes.substr(start))) return;
  bytes.resize(start);
  bytes += plan.joined_subpopulation;
}

void append_field(std::string& bytes, FieldCode code, std::string_view text, const PreparePlan& plan,
                  const TextCounts& sexes) {
  constexpr std::size_t import_width = 20;
  LetterCounts ignored;
  std::string rewritten;
  const std::size_t start = bytes.size();
  switch (code) {
    case sex_column: return append_sex(bytes, text, plan, sexes);
    case birthdate_column: return append_date(bytes, text, plan.dates);
    case import_column:
      if (means_no_import(text)) return;
      append_windows_1252(bytes, text, ignored);
      bytes.resize(std::min(bytes.size(), start + import_width));
      return;
    case sire_column:
    case dam_column:
      if (is_unknown_parent(plan, text)) return;
      text = planned_id(plan, text, rewritten);
      break;
    case subpopulation_column: return append_subpopulation(bytes, text, plan);
    case id_column:
      if (plan.leaves_out_thousands_signs) text = planned_id(plan, text, rewritten);
      break;
    default: break;
  }
  append_field_text(bytes, text, code, ignored);
}

/// Whether the fields in use are all there and nothing stands behind the last heading.
bool has_fitting_fields(const ExportRecord& record, const ColumnChoice& columns) {
  const std::size_t count = record.fields.size(), expected = columns.headings.size();
  if (count == expected) return true;
  const auto is_there = [&](const std::optional<std::size_t>& place) { return !place || *place < count; };
  const auto is_empty = [](std::string_view field) { return trimmed(field).empty(); };
  return std::all_of(columns.place.begin(), columns.place.end(), is_there) &&
         std::all_of(record.fields.begin() + static_cast<std::ptrdiff_t>(std::min(expected, count)),
                     record.fields.end(), is_empty);
}

/// Notes where the animal stands in the export and what of it is lost.
void note_record(const ExportRecord& record, const PreparePlan& plan, const LostTexts& lost, std::int64_t data_line,
                 ExportLines& lines) {
  note_shift(lines.shifts, record.line, data_line);
  const auto note_lost = [&](ExportNoteKind kind, FieldCode code) {
    const std::string_view text = trimmed(field_of(record, plan.columns, code));
    if (!means_unknown(text)) note_export_text(lines, kind, data_line, text);
  };
  if (lost.sex) note_lost(ExportNoteKind::sex, sex_column);
  if (lost.date) note_lost(ExportNoteKind::date, birthdate_column);
  if (!has_fitting_fields(record, plan.columns)) {
    note_export_text(lines, ExportNoteKind::fields, data_line, std::to_string(record.fields.size()));
  }
}

/// Notes names of parents that are those of other animals.
void note_parent_names(const ExportRecord& record, const PreparePlan& plan, const ParentNames& names,
                       std::int64_t data_line, ExportLines& lines) {
  const std::string_view sire = contradicting_name(names, record, plan.columns, 0),
                         dam = contradicting_name(names, record, plan.columns, 1);
  if (!sire.empty()) note_export_text(lines, ExportNoteKind::sire_name, data_line, sire);
  if (!dam.empty()) note_export_text(lines, ExportNoteKind::dam_name, data_line, dam);
}

/// The fields of a record with the character that divides them, without the empty ones at the end.
std::string text_of_record(const ExportRecord& record, char delimiter) {
  std::string text;
  for (const std::string_view field : record.fields) text.append(trimmed(field)).push_back(delimiter);
  while (text.ends_with(delimiter)) text.pop_back();
  return text;
}

/// The next record that is an animal; what is left out before it is noted. False at the end.
bool next_noted_animal(RecordReader& reader, ExportRecord& record, const ColumnChoice& columns, ExportLines& lines) {
  while (next_record(reader, record)) {
    const RecordKind kind = kind_of_record(record, columns);
    if (kind == RecordKind::animal) return true;
    const std::string text = kind == RecordKind::blank ? std::string() : text_of_record(record, reader.delimiter);
    if (!text.empty()) note_left_out(lines, record.line, text);
  }
  return false;
}

/// The first field of the last line, in which the id stands.
std::string id_of_line(std::string_view line, char delimiter) {
  return std::string(line.substr(0, line.find_first_of(std::string{delimiter, '\n'})));
}

void append_line(std::string& bytes, std::string_view text) {
  bytes.append(text).push_back('\n');
}

void append_names(std::string& bytes, const std::vector<std::string>& names) {
  append_line(bytes, std::to_string(names.size()));
  for (const std::string& name : names) append_line(bytes, name);
}

/// Instead of a header the steer file lists the codes of the columns.
void append_column_codes(std::string& bytes, const PreparePlan& plan) {
  std::string codes;
  std::size_t count = 0;
  for (const FieldCode code : written_fields()) {
    if (!is_written(plan, code)) continue;
    codes += " " + std::to_string(code);
    ++count;
  }
  const bool is_dutch = plan.language == ToolLanguage::dutch;
  append_line(bytes, is_dutch ? "aantal kolommen" : "number of columns");
  append_line(bytes, std::to_string(count));
  append_line(bytes, is_dutch ? "kolommen" : "columns");
  append_line(bytes, std::to_string(count) + codes);
}

}  // namespace

void append_header(std::string& bytes, const PreparePlan& plan) {
  if (!plan.columns.has_header) return;
  const std::size_t start = bytes.size();
  for (const FieldCode code : written_fields()) {
    if (!is_written(plan, code)) continue;
    if (bytes.size() > start) bytes.push_back(plan.delimiter);
    bytes.append(words_of(headings[code], plan.language));
  }
  bytes.push_back('\n');
}

LostTexts append_animal(std::string& bytes, const ExportRecord& record, const PreparePlan& plan,
                        const TextCounts& sexes) {
  bool is_first = true;
  LostTexts lost;
  for (const FieldCode code : written_fields()) {
    if (!is_written(plan, code)) continue;
    if (!is_first) bytes.push_back(plan.delimiter);
    is_first = false;
    const std::size_t start = bytes.size();
    const std::string_view text = trimmed(field_of(record, plan.columns, code));
    if (code == sex_column && plan.concluded_sexes.are_needed && lacks_sex(plan.columns, record.is_further)) {
      const std::string_view id = trimmed(field_of(record, plan.columns, id_column));
      append_sex_letter(bytes, concluded_sex(plan.concluded_sexes, id), plan);
      continue;
    }
    append_field(bytes, code, text, plan, sexes);
    if (bytes.size() > start || text.empty()) continue;
    lost.sex = lost.sex || code == sex_column;
    lost.date = lost.date || code == birthdate_column;
  }
  bytes.push_back('\n');
  return lost;
}

std::string steer_text(const PreparePlan& plan) {
  const bool is_dutch = plan.language == ToolLanguage::dutch;
  std::string bytes;
  append_line(bytes, plan.population_name);
  append_line(bytes, plan.stem + ".txt");
  append_line(bytes, std::string(1, plan.delimiter));
  append_line(bytes, "n");
  append_line(bytes, layout_text(plan.dates.written, is_dutch));
  append_line(bytes, plan.species);
  append_line(bytes, "m");
  append_line(bytes, is_dutch ? "nl" : "en");
  append_line(bytes, plan.columns.has_header ? "y" : "n");
  if (!plan.columns.has_header) append_column_codes(bytes, plan);
  append_names(bytes, plan.subpopulations);
  append_names(bytes, plan.colours);
  return bytes;
}

bool make_data_file(std::string_view text, char delimiter, const PreparePlan& plan, const TextCounts& sexes,
                    const DataFileTarget& target) {
  ExportLines lines;
  RecordReader reader = read_animals(text, delimiter, plan.columns);
  ExportRecord record;
  const ParentNames names = target.lines != nullptr ? find_parent_names(text, delimiter, plan.columns) : ParentNames();
  std::string bytes;
  bytes.reserve(piece_size + piece_size / 8);
  append_header(bytes, plan);
  std::int64_t data_line = 0;
  if (plan.columns.has_header) note_shift(lines.shifts, plan.columns.table.line, ++data_line);
  while (next_noted_animal(reader, record, plan.columns, lines)) {
    const std::size_t line_start = bytes.size();
    const LostTexts lost = append_animal(bytes, record, plan, sexes);
    if (target.available != nullptr) {
      std::string id = id_of_line(std::string_view(bytes).substr(line_start), plan.delimiter);
      if (const std::optional<GoneBy> by = gone_by(plan.availability, record, plan.columns)) {
        add_gone(*target.available, std::move(id), *by, plan.columns);
      } else {
        target.available->ids.push_back(std::move(id));
      }
    }
    note_record(record, plan, lost, ++data_line, lines);
    note_parent_names(record, plan, names, data_line, lines);
    if (bytes.size() < piece_size) continue;
    lines.data_bytes += std::ssize(bytes);
    if (!target.take(target.receiver, bytes)) return false;
    bytes.clear();
  }
  // Without a header the program reads one line less than there are.
  if (!plan.columns.has_header) bytes.push_back('\n');
  lines.data_bytes += std::ssize(bytes);
  lines.field_count = std::ssize(plan.columns.headings);
  if (target.lines != nullptr) *target.lines = std::move(lines);
  return target.take(target.receiver, bytes);
}

}  // namespace pedigreewatch
