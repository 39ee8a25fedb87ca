#include "checks/line_checks.h"

#include <algorithm>

#include "checks/readable_text.h"
#include "core/fixed_text.h"
#include "text/folded_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

std::string_view without_quotes(std::string_view field) {
  const std::string_view text = without_trailing_blanks(field);
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') return field;
  return text.substr(1, text.size() - 2);
}

/// The number of fields and whether one behind the header's columns holds text, from the field at `begin` on.
void count_further_fields(std::string_view line, std::size_t begin, const ReadingPlan& plan, LineFields& fields) {
  while (begin <= line.size()) {
    const std::size_t end = std::min(line.find(plan.layout.delimiter, begin), line.size());
    const bool is_empty = without_trailing_blanks(line.substr(begin, end - begin)).empty();
    if (fields.column_count++ >= plan.header_columns && !is_empty) fields.has_text_beyond_header = true;
    begin = end + 1;
  }
}

/// Whether a text is a heading of this field.
bool is_heading_of(std::string_view text, FieldCode code) {
  const std::string_view word = without_trailing_blanks(text);
  return !word.empty() && meaning_of(readable(word)).code == code;
}

/// Whether headings stand in the line, not always the very ones of the first line: no parent has a digit, and two
/// fields or more are called as headings of theirs are, one of the parents among them.
bool are_headings(const LineFields& fields) {
  constexpr std::string_view digits = "0123456789";
  constexpr std::size_t fewest = 2;
  const std::string_view sire = fields.text[sire_column], dam = fields.text[dam_column];
  if (sire.empty() || dam.empty() || sire.find_first_of(digits) != std::string_view::npos) return false;
  if (dam.find_first_of(digits) != std::string_view::npos) return false;
  std::size_t parents = 0, all = 0;
  for (const FieldCode code : all_fields) {
    const bool is_heading = is_heading_of(fields.text[code], code);
    all += is_heading ? 1 : 0;
    parents += is_heading && (code == sire_column || code == dam_column) ? 1 : 0;
    if (code == dam_column && parents == 0) return false;
  }
  return all >= fewest;
}

bool is_total_word(std::string_view id) {
  constexpr auto words = std::to_array<std::string_view>({"total", "totaal", "subtotal", "subtotaal", "sum", "som",
                                                          "count", "aantal", "totals", "gesamt", "summe", "eof"});
  constexpr std::size_t longest = 24;
  if (id.empty() || id.size() > longest) return false;
  const char first = static_cast<char>(id.front() | 0x20);
  if (first != 't' && first != 's' && first != 'c' && first != 'a' && first != 'g' && first != 'e') return false;
  std::string word = folded(id);
  while (!word.empty() && word.back() >= '0' && word.back() <= '9') word.pop_back();
  return is_among(word, words);
}

/// "(no.)" in place of the animal and of both its parents, and a date without a digit: units below the headings, or the
/// kinds of the fields.
bool tells_units(const LineFields& fields) {
  const auto text = [&](FieldCode code) { return without_trailing_blanks(fields.text[code]); };
  const std::string_view id = text(id_column), date = text(birthdate_column);
  if (id.empty() || text(sire_column) != id || text(dam_column) != id) return false;
  return !date.empty() && date.find_first_of("0123456789") == std::string_view::npos;
}

}  // namespace

LineFields cut_line(std::string_view line, const ReadingPlan& plan) {
  LineFields fields;
  const std::string_view counted = plan.layout.delimiter == ' ' ? without_trailing_blanks(line) : line;
  std::size_t begin = 0;
  for (std::size_t c = 0; c < plan.counted_columns && begin <= counted.size(); ++c) {
    const std::size_t end = std::min(counted.find(plan.layout.delimiter, begin), counted.size());
    const FieldCode code = field_of_column(plan, c);
    const bool is_left_out = plan.layout.merge_delimiters && end == begin && end < counted.size();
    if (code != unused_column && !is_left_out) {
      const std::string_view field = counted.substr(begin, end - begin);
      fields.text[code] = plan.strips_quotes ? without_quotes(field) : field;
    }
    ++fields.column_count;
    begin = end + 1;
  }
  count_further_fields(counted, begin, plan, fields);
  return fields;
}

ByteKinds byte_kinds(char delimiter) {
  ByteKinds kinds = {};
  for (std::size_t byte = 0; byte < kinds.size(); ++byte) {
    const bool is_control = byte < 0x20 || byte == 0x7F;
    kinds[byte] = is_control ? byte_control : byte == '"' ? byte_quote : byte >= 0x80 ? byte_high : byte_plain;
  }
  kinds[static_cast<unsigned char>(delimiter)] = byte_plain;
  return kinds;
}

std::uint8_t kinds_in(std::string_view text, const ByteKinds& kinds) {
  std::uint8_t found = byte_plain;
  for (const char byte : text) found = static_cast<std::uint8_t>(found | kinds[static_cast<unsigned char>(byte)]);
  return found;
}

bool is_quoted(std::string_view field) {
  const std::string_view text = without_trailing_blanks(field);
  return !text.empty() && (text.front() == '"' || (text.back() == '"' && text.find('"') == text.size() - 1));
}

LineKind kind_of_line(std::string_view line, const LineFields& fields, const ReadingPlan& plan) {
  if (!plan.header_line.empty() && (line == plan.header_line || are_headings(fields))) return LineKind::header_again;
  // A line without letters and digits is blank, or divides pages.
  if (line.empty() || line.front() == '\x1A' || !says_something(line)) return LineKind::no_animal;
  if (tells_units(fields)) return LineKind::no_animal;
  const auto is_empty = [&](FieldCode code) { return without_trailing_blanks(fields.text[code]).empty(); };
  const bool has_no_parents = is_empty(sire_column) && is_empty(dam_column);
  const bool is_total = has_no_parents && is_empty(birthdate_column) && is_total_word(fields.text[id_column]);
  return is_total ? LineKind::no_animal : LineKind::animal;
}

}  // namespace pedigreewatch
