// Looks at the first records only.

#include "intake/table_start.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "intake/column_recognition.h"
#include "intake/date_shapes.h"
#include "intake/export_records.h"
#include "intake/heading_lines.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t most_fields_of_a_title = 2;
constexpr std::size_t fewest_fields_of_a_table = 5;  // id, father, mother, sex, date of birth
constexpr int most_records_compared = 500;

std::size_t count_filled(const ExportRecord& record) {
  return static_cast<std::size_t>(std::count_if(record.fields.begin(), record.fields.end(),
                                                [](std::string_view field) { return !trimmed(field).empty(); }));
}

/// One of the first records.
struct TopRecord {
  std::size_t begin = 0;
  std::int64_t line = 0;
  std::size_t field_count = 0, filled = 0, known_words = 0;
  bool numbers_columns = false;
  std::string text;
};

std::vector<TopRecord> read_top(std::string_view text, char delimiter) {
  std::vector<TopRecord> top;
  RecordReader reader = read_records(text, delimiter);
  ExportRecord record;
  for (int i = 0; i <= most_lines_above; ++i) {
    const std::size_t begin = reader.next;
    if (!next_record(reader, record)) break;
    const std::size_t filled = count_filled(record);
    const std::size_t end = std::min(reader.next, text.size());
    if (filled == 0) continue;
    std::vector<std::string> fields;
    for (const std::string_view field : record.fields) fields.emplace_back(trimmed(field));
    top.push_back({begin, record.line, record.fields.size(), filled, count_known_words(record.fields),
                   number_columns(fields), std::string(trimmed(text.substr(begin, end - begin)))});
  }
  return top;
}

/// The place of the first animal where there is no header: behind the lines of fewer columns than follow.
std::size_t place_without_header(const std::vector<TopRecord>& top) {
  std::size_t most_columns = 0;
  for (const TopRecord& record : top) most_columns = std::max(most_columns, record.field_count);
  std::size_t place = 0;
  while (place < top.size() && top[place].filled <= most_fields_of_a_title && top[place].field_count < most_columns) {
    ++place;
  }
  return place < top.size() ? place : 0;
}

/// The place of the header, below the numbers or letters of the columns if they stand above it: the first record in
/// which two headings or more are known, if no record above it fills as many fields. The place behind the titles where
/// no heading is known.
std::size_t place_of_start(const std::vector<TopRecord>& top) {
  constexpr std::size_t most_fields_above = 3, times_those_above = 2;
  std::size_t widest = 0;
  for (std::size_t i = 0; i < top.size(); ++i) {
    // A line that fills as many fields as an animal is none of the titles.
    const bool is_above = widest <= most_fields_above || top[i].filled >= widest * times_those_above;
    if (top[i].known_words >= 2 && top[i].filled > widest && is_above) return i;
    if (!top[i].numbers_columns) widest = std::max(widest, top[i].filled);
  }
  std::size_t place = 0;
  while (place < top.size() && top[place].filled <= most_fields_of_a_title) ++place;
  const bool has_table = place < top.size() && top[place].filled >= fewest_fields_of_a_table - 1 &&
                         top[place].field_count >= fewest_fields_of_a_table;
  return has_table ? place : 0;
}

/// What the texts of a column below the first record are.
struct ColumnTexts {
  std::int64_t filled = 0, dates = 0, with_digit = 0;
  std::set<std::string, std::less<>> different;
};

constexpr std::size_t most_words_of_a_sex = 8;

bool is_full_date(std::string_view text) {
  const DateShape shape = cut_date(text).shape;
  return shape == DateShape::year_first || shape == DateShape::year_last || shape == DateShape::named ||
         shape == DateShape::short_year;
}

void add_text(ColumnTexts& column, std::string_view text) {
  if (text.empty()) return;
  ++column.filled;
  column.dates += is_full_date(text) ? 1 : 0;
  column.with_digit += has_digit(text) ? 1 : 0;
  if (column.different.size() <= most_words_of_a_sex) column.different.emplace(text);
}

/// Whether the text of the first record is like those below it (1), unlike them (-1), or tells nothing (0).
int likeness(const ColumnTexts& column, std::string_view text) {
  constexpr std::int64_t fewest_texts = 5;
  const auto are_nearly_all = [&](std::int64_t count) { return count * 10 >= column.filled * 9; };
  if (text.empty() || column.filled < fewest_texts) return 0;
  if (are_nearly_all(column.dates)) return is_full_date(text) ? 1 : -1;
  const bool has_few_words =
      column.different.size() <= most_words_of_a_sex && std::ssize(column.different) * 3 <= column.filled;
  if (has_few_words) return column.different.contains(text) ? 1 : -1;
  // A heading may hold a number too: "Index 1".
  return are_nearly_all(column.with_digit) && !has_digit(text) ? -1 : 0;
}

}  // namespace

std::optional<char> delimiter_told(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.starts_with(mark)) text.remove_prefix(mark.size());
  if (text.starts_with('"')) text.remove_prefix(1);
  constexpr std::string_view word = "sep=";
  if (text.size() <= word.size()) return std::nullopt;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if ((text[i] | 0x20) != (word[i] | 0x20)) return std::nullopt;
  }
  const std::string_view behind = text.substr(word.size() + 1, text.find_first_of("\r\n") - word.size() - 1);
  const char told = text[word.size()];
  const bool is_alone = trimmed(behind).empty() || behind == "\"";
  return is_alone && told != '\r' && told != '\n' && told != '"' ? std::optional(told) : std::nullopt;
}

TableStart find_table_start(std::string_view text, char delimiter, std::optional<bool> has_header) {
  TableStart start;
  std::vector<TopRecord> top = read_top(text, delimiter);
  if (top.empty()) return start;
  const bool has_told_delimiter = delimiter_told(text).has_value();
  std::size_t first = 0;
  if (has_told_delimiter) {
    note_text(start.above, top.front().line, top.front().text);
    top.erase(top.begin());
  }
  first = has_header == false ? place_without_header(top) : place_of_start(top);
  for (std::size_t i = 0; i < first; ++i) note_text(start.above, top[i].line, top[i].text);
  if (top.empty()) return start;
  start.begin = top[first].begin;
  start.line = top[first].line;
  return start;
}

FirstRecord look_at_first_record(std::string_view text, char delimiter, const TableStart& start) {
  RecordReader reader = read_records(text, delimiter);
  reader.next = start.begin;
  ExportRecord record;
  if (!next_filled_record(reader, record)) return FirstRecord::unclear;
  std::vector<std::string> first;
  for (const std::string_view field : record.fields) first.emplace_back(trimmed(field));
  std::vector<ColumnTexts> columns(first.size());
  for (int i = 0; i < most_records_compared && next_record(reader, record); ++i) {
    for (std::size_t k = 0; k < std::min(columns.size(), record.fields.size()); ++k) {
      add_text(columns[k], trimmed(record.fields[k]));
    }
  }
  int like = 0, unlike = 0;
  for (std::size_t k = 0; k < columns.size(); ++k) {
    const int is = likeness(columns[k], first[k]);
    like += is > 0 ? 1 : 0;
    unlike += is < 0 ? 1 : 0;
  }
  if (unlike >= 2 && like == 0) return FirstRecord::header;
  return like >= 2 && unlike == 0 ? FirstRecord::animal : FirstRecord::unclear;
}

}  // namespace pedigreewatch
