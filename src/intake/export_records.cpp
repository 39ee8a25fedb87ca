// Cuts a text into records. A line without a quotation mark, nearly every one, is cut by searching for delimiters; only
// others are looked at field by field.

#include "intake/export_records.h"

#include <algorithm>
#include <cstring>

#include "intake/value_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t nowhere = std::string_view::npos;
constexpr char quote = '"';

/// Where `byte` stands from `from` on and before `end`; `end` when it does not.
std::size_t find_before(std::string_view text, char byte, std::size_t from, std::size_t end) {
  if (from >= end) return end;
  const void* const found = std::memchr(text.data() + from, byte, end - from);
  return found == nullptr ? end : static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

/// Adds a field; those beyond the limit share one place.
void add_field(ExportRecord& record, std::string_view field) {
  if (record.fields.size() <= most_fields) record.fields.push_back(field);
}

void cut_plain_line(RecordReader& reader, std::size_t end, ExportRecord& record) {
  for (std::size_t begin = reader.next;;) {
    const std::size_t found = find_before(reader.text, reader.delimiter, begin, end);
    add_field(record, reader.text.substr(begin, found - begin));
    if (found == end) return;
    begin = found + 1;
  }
}

/// Whether the record ends at `place`; yields in `after` where the next one begins.
bool ends_at(const RecordReader& reader, std::size_t place, std::size_t& after) {
  if (place >= reader.text.size()) {
    after = reader.text.size();
    return true;
  }
  after = place + 1;
  if (reader.text[place] == reader.line_end) return true;
  const bool is_return = reader.line_end == '\n' && reader.text[place] == '\r';
  if (!is_return || (after < reader.text.size() && reader.text[after] != '\n')) return false;
  after = std::min(after + 1, reader.text.size());
  return true;
}

/// The end of a field without quotation marks that begins at `begin`.
std::size_t plain_field_end(const RecordReader& reader, std::size_t begin) {
  std::size_t place = begin, ignored = 0;
  while (place < reader.text.size() && reader.text[place] != reader.delimiter && !ends_at(reader, place, ignored)) {
    ++place;
  }
  return place;
}

/// A field whose opening quotation mark stands at `begin`; yields where it ends.
std::size_t take_quoted_field(RecordReader& reader, std::size_t begin, ExportRecord& record) {
  const std::string_view text = reader.text;
  const std::size_t rewritten = reader.unquoted.size();
  bool is_rewritten = false;
  std::size_t from = begin + 1, close = text.find(quote, from);
  while (close != nowhere && close + 1 < text.size() && text[close + 1] == quote) {
    reader.unquoted.append(text.substr(from, close + 1 - from));
    is_rewritten = true;
    from = close + 2;
    close = text.find(quote, from);
  }
  record.has_quotes = true;
  record.is_unterminated = close == nowhere;
  const std::size_t last = std::min(close, text.size());
  const std::size_t end = record.is_unterminated ? last : plain_field_end(reader, close + 1);
  const std::string_view behind = record.is_unterminated ? std::string_view() : text.substr(close + 1, end - close - 1);
  const bool has_text_behind = !trimmed(behind).empty();
  record.has_bad_quotes = record.has_bad_quotes || has_text_behind;
  if (is_rewritten || has_text_behind) {
    reader.unquoted.append(text.substr(from, last - from));
    if (has_text_behind) reader.unquoted.append(behind);
    if (record.fields.size() <= most_fields) reader.rewritten.resize(record.fields.size(), nowhere);
    if (record.fields.size() <= most_fields) reader.rewritten.push_back(rewritten);
    add_field(record, text.substr(0, reader.unquoted.size() - rewritten));  // its length; it gets its place at the end
  } else {
    add_field(record, text.substr(from, last - from));
  }
  return end;
}

/// The rewritten fields get their place once their texts do not move any more.
void place_rewritten_fields(RecordReader& reader, ExportRecord& record) {
  for (std::size_t i = 0; i < reader.rewritten.size(); ++i) {
    if (reader.rewritten[i] == nowhere) continue;
    record.fields[i] = std::string_view(reader.unquoted).substr(reader.rewritten[i], record.fields[i].size());
  }
}

std::size_t cut_quoted_record(RecordReader& reader, ExportRecord& record) {
  reader.unquoted.clear();
  reader.rewritten.clear();
  std::size_t place = reader.next, after = place;
  for (;;) {
    const bool is_quoted = place < reader.text.size() && reader.text[place] == quote;
    const std::size_t end = is_quoted ? take_quoted_field(reader, place, record) : plain_field_end(reader, place);
    if (!is_quoted) add_field(record, reader.text.substr(place, end - place));
    if (ends_at(reader, end, after)) break;
    place = end + 1;
  }
  place_rewritten_fields(reader, record);
  const std::string_view whole = reader.text.substr(reader.next, after - reader.next);
  const std::int64_t line_ends = std::count(whole.begin(), whole.end(), reader.line_end);
  record.line_count = line_ends + (whole.ends_with(reader.line_end) ? 0 : 1);
  return after;
}

/// The byte that ends lines, counted outside of quotation marks.
char line_end_of(std::string_view text) {
  std::size_t place = text.find('\r');
  while (place != nowhere && place + 1 < text.size() && text[place + 1] == '\n') place = text.find('\r', place + 2);
  if (place == nowhere) return '\n';
  std::int64_t returns = 0, feeds = 0;
  bool is_inside = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == quote) is_inside = !is_inside;
    if (is_inside) continue;
    feeds += text[i] == '\n' ? 1 : 0;
    returns += text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n') ? 1 : 0;
  }
  return returns > feeds ? '\r' : '\n';
}

bool is_blank_byte(char byte) {
  return (byte >= 0 && byte <= ' ') || byte == 0x7F;
}

bool is_capital(char byte) {
  return byte >= 'A' && byte <= 'Z';
}

/// Whether an apostrophe before this text is no part of it, as in 's-Hertogenbosch, 't Hof or 'Rex': a digit follows,
/// or a capital and another one or a digit.
bool is_marked_text(std::string_view text) {
  if (text.empty() || text.back() == '\'') return false;
  if (is_digit(text.front())) return true;
  return text.size() > 1 && is_capital(text[0]) && (is_capital(text[1]) || is_digit(text[1]));
}

/// Leaves of ="001" and '001 the text, which a spreadsheet was kept from taking for a number by that.
void take_sheet_mark(std::string_view& field, ExportRecord& record) {
  constexpr std::string_view formula = "=\"";
  const bool is_formula = field.size() > formula.size() && field.starts_with(formula) && field.ends_with('"');
  const bool is_marked = field.front() == '\'' && is_marked_text(field.substr(1));
  if (is_formula) field = field.substr(formula.size(), field.size() - formula.size() - 1);
  if (is_marked) field.remove_prefix(1);
  record.has_sheet_marks = record.has_sheet_marks || is_formula || is_marked;
}

constexpr std::string_view no_break_space = "\xC2\xA0";
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

/// Puts the texts of the next animal of the line into their places.
void take_waiting_animal(RecordReader& reader, ExportRecord& record) {
  record.fields = reader.line_fields;
  for (const FieldMove& move : reader.animals[reader.waiting.back()]) {
    const bool is_there = move.from < record.fields.size();
    if (move.to < record.fields.size()) record.fields[move.to] = is_there ? reader.line_fields[move.from] : "";
  }
  reader.waiting.pop_back();
}

/// Lists the animals of the line that was read; `record` becomes the first one.
void take_apart(RecordReader& reader, ExportRecord& record) {
  reader.line_fields = record.fields;
  for (std::size_t k = reader.animals.size(); k-- > 0;) {
    const std::size_t id = reader.animals[k].front().from;
    const std::string_view text = id < record.fields.size() ? trimmed(record.fields[id]) : std::string_view();
    if (!means_unknown(text) && !means_stillborn(text)) reader.waiting.push_back(k);
  }
  if (!reader.waiting.empty()) return take_waiting_animal(reader, record);
  const std::size_t id = reader.animals.front().front().to;
  if (id < record.fields.size()) record.fields[id] = {};
}

}  // namespace

RecordReader read_records(std::string_view text, char delimiter) {
  return {.text = text, .delimiter = delimiter, .line_end = line_end_of(text)};
}

bool next_record(RecordReader& reader, ExportRecord& record) {
  if (!reader.waiting.empty()) {
    take_waiting_animal(reader, record);
    record.is_further = true;
    return true;
  }
  if (reader.next >= reader.text.size()) return false;
  record.fields.clear();
  record.line = reader.next_line;
  record.line_count = 1;
  record.has_quotes = record.has_bad_quotes = record.has_sheet_marks = record.is_unterminated = record.is_further =
      false;
  const std::size_t line_end = find_before(reader.text, reader.line_end, reader.next, reader.text.size());
  if (find_before(reader.text, quote, reader.next, line_end) == line_end) {
    const bool has_return = line_end > reader.next && reader.text[line_end - 1] == '\r';
    cut_plain_line(reader, has_return ? line_end - 1 : line_end, record);
    reader.next = std::min(line_end + 1, reader.text.size());
  } else {
    reader.next = cut_quoted_record(reader, record);
  }
  reader.next_line += record.line_count;
  for (std::string_view& field : record.fields) {
    if (!field.empty() && (field.front() == '=' || field.front() == '\'')) take_sheet_mark(field, record);
  }
  if (!reader.animals.empty()) take_apart(reader, record);
  return true;
}

bool next_filled_record(RecordReader& reader, ExportRecord& record) {
  while (next_record(reader, record)) {
    const auto is_empty = [](std::string_view field) { return trimmed(field).empty(); };
    if (!std::all_of(record.fields.begin(), record.fields.end(), is_empty)) return true;
  }
  return false;
}

std::string_view trimmed(std::string_view field) {
  for (;;) {
    const std::size_t length = field.size();
    while (!field.empty() && is_blank_byte(field.front())) field.remove_prefix(1);
    while (!field.empty() && is_blank_byte(field.back())) field.remove_suffix(1);
    for (const std::string_view mark : {no_break_space, byte_order_mark}) {
      if (field.starts_with(mark)) field.remove_prefix(mark.size());
      if (field.ends_with(mark)) field.remove_suffix(mark.size());
    }
    if (field.size() == length) return field;
  }
}

}  // namespace pedigreewatch
