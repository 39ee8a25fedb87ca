// One pass over the records, and within each over the columns in use. Most texts are short and plain; only others are
// written in Windows-1252 to see what becomes of them.

#include "intake/export_survey.h"

#include <algorithm>

#include "intake/parent_names.h"
#include "intake/value_words.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {
namespace {

/// What a record of the program has room for.
template <typename Text>
constexpr std::size_t width_of_text = Text().full().size();

/// Notes the bytes of a text; yields whether some are no visible ASCII.
bool note_bytes(std::array<bool, 256>& occurs, std::string_view text) {
  bool needs_care = false;
  for (const char byte : text) {
    const auto value = static_cast<unsigned char>(byte);
    occurs[value] = true;
    needs_care = needs_care || value < 0x20 || value >= 0x7F;
  }
  return needs_care;
}

bool is_id(FieldCode code) {
  return code == id_column || code == sire_column || code == dam_column;
}

void survey_writing(ExportSurvey& survey, FieldCode code, std::string_view text, std::int64_t line) {
  std::string written;
  LetterCounts of_sex;  // m, f or a question mark is written there, whatever letters it has
  const bool is_complete = append_windows_1252(written, text, code == sex_column ? of_sex : survey.letters);
  survey.letters.invisible += of_sex.invisible;
  const std::size_t width = width_of(code);
  const bool is_too_long = width > 0 && written.size() > width;
  if (is_too_long) note_text(survey.too_long[code], line, text);
  if (!is_id(code) || (is_complete && !is_too_long)) return;
  LetterCounts ignored;
  written.clear();
  append_field_text(written, text, code, ignored);
  survey.changed_ids.emplace(std::move(written), text);
}

/// Where a field is surveyed.
struct SurveyPlace {
  std::int64_t line = 0;
  std::span<const std::string> unknown = {};  ///< what the user says of unknown parents
  const TextStyle* id_style = nullptr;
  bool is_of_one_line = true;  ///< else two lines were joined, and a text may be of both
};

void survey_parent(ExportSurvey& survey, std::string_view text, LinkRole role, const SurveyPlace& place) {
  const bool is_wished = std::find(place.unknown.begin(), place.unknown.end(), text) != place.unknown.end();
  if (is_wished || means_unknown_parent(text)) {
    count_text(survey.unknown_parents, text, place.line);
  } else {
    note_parent(survey.links, text, role, place.line);
    NumberForms& numbers = survey.numbers[role == sire_role ? sire_column : dam_column];
    if (place.is_of_one_line) note_number(numbers, text, place.line);
    count_parent(survey.parent_texts, text, role, survey.animal_count, *place.id_style);
  }
}

void survey_id(ExportSurvey& survey, std::string_view text, const SurveyPlace& place) {
  const std::int64_t line = place.line;
  if (text.empty()) return note_text(survey.without_id, line, text);
  if (means_unknown_parent(text)) count_text(survey.unknown_ids, text, line);
  note_role(survey.links, text, animal_role);
  if (place.is_of_one_line) note_number(survey.numbers[id_column], text, line);
}

void survey_meaning(ExportSurvey& survey, FieldCode code, std::string_view text, const SurveyPlace& place) {
  const std::int64_t line = place.line;
  switch (code) {
    case id_column: return survey_id(survey, text, place);
    case sire_column: return survey_parent(survey, text, sire_role, place);
    case dam_column: return survey_parent(survey, text, dam_role, place);
    case sex_column: return count_text(survey.sexes, text, line);
    case birthdate_column: {
      const std::int64_t unknown_before = survey.dates.empty;
      survey_date(survey.dates, text, line);
      if (survey.dates.empty > unknown_before) count_text(survey.date_words, text, line);
      return;
    }
    case colour_column: return text.empty() ? void() : count_text(survey.colours, text, line);
    case subpopulation_column: return text.empty() ? void() : count_text(survey.subpopulations, text, line);
    case import_column: return count_text(survey.imports, text, line);
    default: return;
  }
}

void survey_field(ExportSurvey& survey, FieldCode code, std::string_view field, const SurveyPlace& place) {
  const std::string_view text = trimmed(field);
  survey.filled[code] += text.empty() ? 0 : 1;
  survey.leading_blanks += !text.empty() && text.data() != field.data() ? 1 : 0;
  const bool needs_care = note_bytes(survey.occurs, text);
  const std::size_t width = width_of(code);
  if (needs_care || (width > 0 && text.size() > width)) survey_writing(survey, code, text, place.line);
  survey_meaning(survey, code, text, place);
}

void survey_form(ExportSurvey& survey, const ExportRecord& record, std::size_t column_count) {
  survey.quoted_records += record.has_quotes ? 1 : 0;
  survey.sheet_marks += record.has_sheet_marks ? 1 : 0;
  if (record.has_bad_quotes) note_text(survey.bad_quotes, record.line, "");
  if (runs_away(record) && survey.runaway_line == 0) survey.runaway_line = record.line;
  if (record.is_unterminated && survey.unterminated_line == 0) {
    survey.unterminated_line = survey.runaway_line > 0 ? survey.runaway_line : record.line;
  }
  const std::size_t count = record.fields.size();
  if (count == column_count) return;
  note_text(survey.other_field_counts, record.line,
            count > most_fields ? "> " + std::to_string(most_fields) : std::to_string(count), most_told_lines);
}

/// Whether a user sees something in a field.
bool is_filled(std::string_view field) {
  if (field.empty()) return false;
  const bool is_plain = field.front() > ' ' && field.front() < 0x7F;
  return is_plain || !trimmed(field).empty();
}

void count_column_texts(ExportSurvey& survey, const ExportRecord& record) {
  const std::size_t count = std::min(record.fields.size(), survey.column_texts.size());
  for (std::size_t k = 0; k < count; ++k) survey.column_texts[k] += is_filled(record.fields[k]) ? 1 : 0;
}

/// Notes the young of a line that were born dead, and are no animals.
void survey_stillborn(ExportSurvey& survey, const RecordReader& reader, const ExportRecord& record) {
  if (record.is_further) return;
  for (const LineAnimal& animal : reader.animals) {
    const std::size_t id = animal.front().from;
    const std::string_view text = id < reader.line_fields.size() ? trimmed(reader.line_fields[id]) : std::string_view();
    if (means_stillborn(text)) note_text(survey.stillborn, record.line, text, most_told_lines);
  }
}

/// Whether a text in quotation marks holds as many delimiters as the lines that end in it, or a whole line: two stray
/// quotation marks have made one text of what stands between them.
bool holds_lines(std::string_view text, char delimiter, std::int64_t delimiters_of_line) {
  const char line_end = text.find('\n') == std::string_view::npos ? '\r' : '\n';
  std::int64_t line_ends = 0, delimiters = 0, before_line = 0;
  for (const char byte : text) {
    delimiters += byte == delimiter ? 1 : 0;
    if (byte != line_end) continue;
    if (line_ends > 0 && delimiters - before_line >= delimiters_of_line) return true;
    ++line_ends;
    before_line = delimiters;
  }
  return line_ends > 0 && delimiters >= line_ends * delimiters_of_line;
}

/// Notes where quotation marks have swallowed lines.
void survey_swallowed_lines(ExportSurvey& survey, const ExportRecord& record, char delimiter,
                            std::size_t column_count) {
  if (record.line_count == 1 || record.is_further || record.is_unterminated || column_count < 2) return;
  const auto delimiters = static_cast<std::int64_t>(column_count) - 1;
  const bool are_swallowed = std::any_of(record.fields.begin(), record.fields.end(), [&](std::string_view field) {
    return holds_lines(field, delimiter, delimiters);
  });
  if (are_swallowed && survey.swallowed_line == 0) survey.swallowed_line = record.line;
}

/// Whether a record has the fields of two lines whose line end was lost; the one between them is of both.
bool holds_two_lines(const ExportRecord& record, std::size_t column_count) {
  return column_count > 1 && record.fields.size() >= 2 * column_count - 1;
}

/// Notes of an animal how its sex is written, for comparing it with the parents.
void survey_sex_of_animal(ExportSurvey& survey, const ExportRecord& record, const ColumnChoice& columns) {
  if (!columns.place[sex_column]) return;
  const std::string_view id = trimmed(field_of(record, columns, id_column));
  const std::size_t sex = find_counted(survey.sexes, trimmed(field_of(record, columns, sex_column)));
  if (!id.empty() && sex != std::string_view::npos) note_sex(survey.links, id, sex);
}

/// What a line says.
std::string text_of_line(const ExportRecord& record) {
  std::string text;
  for (const std::string_view field : record.fields) {
    if (trimmed(field).empty()) continue;
    if (!text.empty()) text += ' ';
    text += trimmed(field);
  }
  return text;
}

/// Notes an animal that may be none: a place with a date below the last animal, the heading of a litter.
void survey_odd_animal(ExportSurvey& survey, const ExportRecord& record, const ColumnChoice& columns) {
  const std::string_view id = trimmed(field_of(record, columns, id_column));
  if (id.empty() || record.is_further || !columns.place[sex_column]) return;
  if (!means_unknown(trimmed(field_of(record, columns, sex_column))) || !is_unlike(columns.id_style, id)) return;
  note_text(survey.odd_ids, record.line, text_of_line(record), most_told_lines);
}

/// Notes the parents of an animal of which only the name is known.
void survey_parent_names(ExportSurvey& survey, const ExportRecord& record, const ColumnChoice& columns,
                         const std::array<std::optional<std::size_t>, 2>& places) {
  for (std::size_t parent = 0; parent < places.size(); ++parent) {
    if (!places[parent]) continue;
    const std::string_view name = name_without_id(record, columns, places, parent);
    if (!name.empty()) note_text(survey.names_without_id[parent], record.line, name);
  }
}

void note_line_without_animal(ExportSurvey& survey, RecordKind kind, const ExportRecord& record) {
  if (kind == RecordKind::blank) ++survey.blank_lines;
  if (kind == RecordKind::header_again) note_text(survey.headers_again, record.line, {}, most_told_lines);
  if (kind == RecordKind::remark) note_text(survey.remark_lines, record.line, text_of_line(record), most_told_lines);
}

bool is_known(const std::vector<IdClash>& clashes, std::string_view id) {
  return std::any_of(clashes.begin(), clashes.end(), [&](const IdClash& clash) { return clash.id == id; });
}

}  // namespace

std::size_t width_of(FieldCode code) {
  switch (code) {
    case id_column:
    case sire_column:
    case dam_column: return width_of_text<AnimalId>;
    case name_column: return width_of_text<AnimalName>;
    case colour_column: return width_of_text<ColourName>;
    case breeder_column: return width_of_text<BreederName>;
    case subpopulation_column: return width_of_text<SubpopulationName>;
    default: return 0;
  }
}

bool append_field_text(std::string& bytes, std::string_view text, FieldCode code, LetterCounts& letters) {
  const std::size_t start = bytes.size();
  bool is_complete = append_windows_1252(bytes, text, letters);
  const std::size_t width = width_of(code);
  if (width > 0 && bytes.size() - start > width) {
    bytes.resize(start + width);
    is_complete = false;
  }
  while (bytes.size() > start && bytes.back() == ' ') bytes.pop_back();
  return is_complete;
}

ExportSurvey survey_export(std::string_view text, char delimiter, const ColumnChoice& columns,
                           std::span<const std::string> unknown, ProgressLine& progress) {
  ExportSurvey survey;
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  survey.header_line = columns.has_header ? columns.table.line : 0;
  survey.column_texts.resize(columns.headings.size());
  const auto name_places = parent_name_places(columns);
  std::int64_t data_line = columns.has_header ? 1 : 0;
  while (next_record(reader, record)) {
    count_progress(progress, record.line);
    survey_stillborn(survey, reader, record);
    survey_swallowed_lines(survey, record, delimiter, columns.headings.size());
    if (const RecordKind kind = kind_of_record(record, columns); kind != RecordKind::animal) {
      if (!record.is_further) note_line_without_animal(survey, kind, record);
      continue;
    }
    if (!record.is_further) survey_form(survey, record, columns.headings.size());
    if (!record.is_further) count_column_texts(survey, record);
    survey.lines_with_animals += record.is_further ? 0 : 1;
    note_shift(survey.shifts, record.line, ++data_line);
    ++survey.animal_count;
    const SurveyPlace place = {record.line, unknown, &columns.id_style,
                               !holds_two_lines(record, columns.headings.size())};
    for (const FieldCode code : written_fields()) {
      if (columns.place[code]) survey_field(survey, code, field_of(record, columns, code), place);
    }
    survey_sex_of_animal(survey, record, columns);
    survey_odd_animal(survey, record, columns);
    survey_parent_names(survey, record, columns, name_places);
  }
  survey.last_line = reader.next_line - 1;
  return survey;
}

std::vector<IdClash> find_id_clashes(std::string_view text, char delimiter, const ColumnChoice& columns,
                                     const ChangedIds& changed) {
  constexpr std::size_t most_clashes = 20;
  std::vector<IdClash> clashes;
  if (changed.empty()) return clashes;
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  std::string written;
  LetterCounts ignored;
  while (clashes.size() < most_clashes && next_animal(reader, record, columns)) {
    for (const FieldCode code : {id_column, sire_column, dam_column}) {
      const std::string_view id = trimmed(field_of(record, columns, code));
      written.clear();
      append_field_text(written, id, code, ignored);
      const auto found = changed.find(written);
      if (found == changed.end() || found->second == id || is_known(clashes, id)) continue;
      clashes.push_back({record.line, std::string(id), found->second, written});
    }
  }
  return clashes;
}

}  // namespace pedigreewatch
