// Nearly every record has an id like those of the others and is an animal; only the rest is looked at closely.

#include "intake/animal_lines.h"

#include <algorithm>
#include <array>

#include "intake/column_recognition.h"
#include "intake/date_shapes.h"
#include "intake/heading_lines.h"
#include "intake/value_words.h"
#include "text/folded_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

bool is_blank(const ExportRecord& record) {
  return std::all_of(record.fields.begin(), record.fields.end(),
                     [](std::string_view field) { return trimmed(field).empty(); });
}

std::ptrdiff_t count_filled(const ExportRecord& record) {
  return std::count_if(record.fields.begin(), record.fields.end(),
                       [](std::string_view field) { return !trimmed(field).empty(); });
}

/// Whether all fields that make an animal are empty, or hold signs only, as a line of hyphens does.
bool tells_of_no_animal(const ExportRecord& record, const ColumnChoice& columns) {
  constexpr auto fields =
      std::to_array({id_column, name_column, sex_column, birthdate_column, sire_column, dam_column});
  return std::all_of(fields.begin(), fields.end(),
                     [&](FieldCode code) { return !says_something(field_of(record, columns, code)); });
}

bool is_same_heading(std::string_view field, std::string_view heading) {
  if (field.size() != heading.size() || field.empty() || (field.front() | 0x20) != (heading.front() | 0x20)) {
    return false;
  }
  return field == heading || folded(field) == folded(heading);
}

/// Whether two fields or more, and most of those that are filled, hold the heading of their own column.
bool repeats_headings(const ExportRecord& record, const ColumnChoice& columns) {
  int same = 0, filled = 0;
  for (const FieldCode code : pedigree_fields) {
    const auto& place = columns.place[code];
    if (!place || *place >= record.fields.size()) continue;
    const std::string_view field = trimmed(record.fields[*place]);
    filled += field.empty() ? 0 : 1;
    same += is_same_heading(field, columns.headings[*place]) ? 1 : 0;
  }
  return same >= 2 && same * 2 > filled;
}

/// Whether three fields or more, and most of those that are filled, hold a heading of what their column holds, in
/// whatever words. Nearly every date has a digit, and is looked at no further.
bool holds_other_headings(const ExportRecord& record, const ColumnChoice& columns) {
  constexpr int fewest_headings = 3;
  const std::string_view date = trimmed(field_of(record, columns, birthdate_column));
  if (date.empty() || date.find_first_of("0123456789") != std::string_view::npos || means_unknown(date)) return false;
  if (meaning_of(date).code != birthdate_column) return false;
  int headings = 0, filled = 0;
  for (const FieldCode code : pedigree_fields) {
    const std::string_view field = trimmed(field_of(record, columns, code));
    filled += field.empty() ? 0 : 1;
    headings += !field.empty() && meaning_of(field).code == code ? 1 : 0;
  }
  return headings >= fewest_headings && headings * 2 > filled;
}

/// A number alone on its line that is no identification: how many animals there are.
bool is_lone_number(const ExportRecord& record, const ColumnChoice& columns) {
  const std::string_view id = trimmed(field_of(record, columns, id_column));
  return is_unlike_number(columns.id_style, id) && count_filled(record) == 1;
}

/// "Total" in the place of an id unlike all others, with a number somewhere behind it: one parent at most, and few
/// fields.
bool is_total(const ExportRecord& record, const ColumnChoice& columns) {
  constexpr std::ptrdiff_t most_fields_of_a_total = 5;
  if (!has_remark_word(trimmed(field_of(record, columns, id_column)))) return false;
  const bool has_both_parents = !trimmed(field_of(record, columns, sire_column)).empty() &&
                                !trimmed(field_of(record, columns, dam_column)).empty();
  const bool has_number = std::any_of(record.fields.begin(), record.fields.end(),
                                      [](std::string_view field) { return is_plain_number(trimmed(field)); });
  return has_number && !has_both_parents && count_filled(record) <= most_fields_of_a_total;
}

/// "Total: 8", "8 dieren": a word of totals beside something else. Told where there are too few ids to know how they
/// are written.
bool is_like_total(std::string_view text) {
  return text.find_first_of(" :=") != std::string_view::npos && has_remark_word(text);
}

/// Whether a field tells nothing about an animal: no known sex, no date, no identification.
bool says_nothing(std::string_view field, FieldCode code, const TextStyle& ids) {
  if (field.empty()) return true;
  if (code == sex_column) return !is_sex_letter(field) && sex_named(field) == SexMeaning::unknown;
  if (code == id_column && !ids.is_known) return is_like_total(field);
  if (code != birthdate_column) return is_unlike(ids, field);
  const DateShape shape = cut_date(field).shape;
  return shape == DateShape::empty || shape == DateShape::unreadable;
}

/// What a record is before anybody knows which column holds the ids: a remark fills one field or two of many.
RecordKind kind_without_columns(const ExportRecord& record, const ColumnChoice& columns) {
  constexpr std::ptrdiff_t most_fields = 2;
  constexpr std::size_t fewest_columns = 5;
  const std::ptrdiff_t filled = count_filled(record);
  if (filled == 0) return RecordKind::blank;
  return filled <= most_fields && columns.headings.size() >= fewest_columns ? RecordKind::remark : RecordKind::animal;
}

bool is_remark(const ExportRecord& record, const ColumnChoice& columns) {
  constexpr std::ptrdiff_t most_fields_of_a_remark = 3;
  const auto says_nothing_in = [&](FieldCode code) {
    return says_nothing(trimmed(field_of(record, columns, code)), code, columns.id_style);
  };
  if (!std::all_of(pedigree_fields.begin(), pedigree_fields.end(), says_nothing_in)) return false;
  return count_filled(record) <= most_fields_of_a_remark;
}

}  // namespace

RecordReader read_animals(std::string_view text, char delimiter, const ColumnChoice& columns) {
  RecordReader reader = read_records(text, delimiter);
  reader.next = columns.table.begin;
  reader.next_line = columns.table.line;
  ExportRecord header;
  if (columns.has_header) next_filled_record(reader, header);
  reader.animals = columns.animals_of_line;
  return reader;
}

RecordKind kind_of_record(const ExportRecord& record, const ColumnChoice& columns) {
  if (record.is_unterminated) return RecordKind::animal;  // it is refused, with its line
  if (!columns.place[id_column]) return kind_without_columns(record, columns);
  if (tells_of_no_animal(record, columns)) return is_blank(record) ? RecordKind::blank : RecordKind::remark;
  if (columns.has_header && (repeats_headings(record, columns) || holds_other_headings(record, columns))) {
    return RecordKind::header_again;
  }
  if (is_heading_line(record, columns)) return RecordKind::remark;
  const std::string_view id = trimmed(field_of(record, columns, id_column));
  const bool has_no_young = !columns.animals_of_line.empty() && id.empty();
  const bool tells_count = columns.count_line > 0 && record.line == columns.count_line;
  if (has_no_young || tells_count || is_lone_number(record, columns)) return RecordKind::remark;
  if (columns.id_style.is_known && !id.empty()) {
    if (!is_unlike(columns.id_style, id)) return RecordKind::animal;  // nearly all
    if (is_total(record, columns)) return RecordKind::remark;
  }
  return is_remark(record, columns) ? RecordKind::remark : RecordKind::animal;
}

bool next_animal(RecordReader& reader, ExportRecord& record, const ColumnChoice& columns) {
  while (next_record(reader, record)) {
    if (kind_of_record(record, columns) == RecordKind::animal) return true;
  }
  return false;
}

TextStyle find_id_style(std::string_view text, char delimiter, const ColumnChoice& columns) {
  constexpr int most_records = 2000;
  StyleCounts counts;
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  for (int i = 0; i < most_records && next_record(reader, record); ++i) {
    const std::string_view id = trimmed(field_of(record, columns, id_column));
    const bool has_sex = !trimmed(field_of(record, columns, sex_column)).empty();
    const bool is_whole = record.fields.size() == columns.headings.size();
    const std::string_view date = field_of(record, columns, birthdate_column);
    const bool has_date = date.find_first_of("0123456789") != std::string_view::npos;
    if (!id.empty() && is_whole && has_sex && has_date && !has_remark_word(id)) count_signs(counts, id);
  }
  return style_of(counts);
}

std::int64_t find_count_line(std::string_view text, char delimiter, const ColumnChoice& columns) {
  constexpr std::string_view blanks = " \t\r\n;,|\"";
  const std::size_t last = text.find_last_not_of(blanks);
  if (last == std::string_view::npos || text[last] < '0' || text[last] > '9') return 0;
  const std::size_t start = text.find_last_of("\r\n", last);
  if (start == std::string_view::npos) return 0;
  const std::string_view line_text = text.substr(start + 1, last - start);
  const std::string_view number = line_text.substr(line_text.find_first_not_of(blanks));
  if (!is_plain_number(number)) return 0;
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  std::int64_t animals = 0, line = 0;
  bool is_alone = false;
  while (next_animal(reader, record, columns)) {
    ++animals;
    line = record.line;
    is_alone = count_filled(record) == 1 && trimmed(field_of(record, columns, id_column)) == number;
  }
  return is_alone && number == std::to_string(animals - 1) ? line : 0;
}

std::string_view field_of(const ExportRecord& record, const ColumnChoice& columns, FieldCode code) {
  const auto& place = columns.place[code];
  return place && *place < record.fields.size() ? record.fields[*place] : std::string_view();
}

}  // namespace pedigreewatch
