#include "core/line_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

#include "core/real_digits.h"

namespace pedigreewatch {
namespace {

// ---- format lines ----------------------------------------------------------------------------------------------

/// One entry of a field list: `repeat` fields of `letter`, each `width` columns (0: as wide as the text).
struct FieldEntry {
  char letter = 0;
  std::size_t repeat = 1;
  std::size_t width = 0;
  std::size_t digits = 0;  ///< decimals of an F field, least number of digits of an I field
};

[[noreturn]] void refuse(std::string_view field_list, std::string_view why) {
  throw std::invalid_argument("field list \"" + std::string(field_list) + "\": " + std::string(why));
}

/// Takes the digits at the start of `rest` off it; `none` where there are none.
std::size_t take_number(std::string_view& rest, std::string_view field_list, std::size_t none) {
  std::size_t value = none;
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
  if (error == std::errc::result_out_of_range) refuse(field_list, "a number is too large");
  rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
  return value;
}

std::string_view without_brackets(std::string_view field_list) {
  std::string_view inner = without_trailing_blanks(field_list);
  if (inner.size() >= 2 && inner.front() == '(' && inner.back() == ')') inner = inner.substr(1, inner.size() - 2);
  return inner;
}

/// The widest field that a line may ask for; it keeps a mistyped field list from asking for gigabytes.
constexpr std::size_t widest_field = 10000;

FieldEntry take_entry(std::string_view& rest, std::string_view field_list) {
  FieldEntry entry;
  entry.repeat = take_number(rest, field_list, 1);
  if (rest.empty()) refuse(field_list, "a field letter is missing");
  entry.letter = rest.front();
  rest.remove_prefix(1);
  if (entry.letter == 'I' || entry.letter == 'F' || entry.letter == 'A') {
    entry.width = take_number(rest, field_list, 0);
    if (entry.width == 0 && entry.letter != 'A') refuse(field_list, "a number needs a width");
    const bool has_digits = entry.letter != 'A' && !rest.empty() && rest.front() == '.';
    if (has_digits) {
      rest.remove_prefix(1);
      entry.digits = take_number(rest, field_list, 0);
    } else if (entry.letter == 'F') {
      refuse(field_list, "a real needs its number of decimals");
    }
  } else if (entry.letter != 'X') {
    refuse(field_list, "an unknown field letter");
  }
  if (entry.width > widest_field || entry.digits > widest_field) refuse(field_list, "a field is too wide");
  if (entry.letter == 'X' && entry.repeat > widest_field) refuse(field_list, "a field is too wide");
  if (!rest.empty() && rest.front() != ',') refuse(field_list, "a comma was expected");
  if (!rest.empty()) rest.remove_prefix(1);
  return entry;
}

void append_justified(TextOutput& output, std::string_view text, std::size_t width) {
  if (text.size() < width) output.pending.append(width - text.size(), ' ');
  output.pending.append(text);
}

void append_asterisks(TextOutput& output, std::size_t width) {
  output.pending.append(width, '*');
}

void append_integer(TextOutput& output, std::int64_t value, std::size_t width, std::size_t least_digits) {
  std::array<char, 24> buffer{};
  const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::string_view sign = value < 0 ? digits.substr(0, 1) : std::string_view();
  digits.remove_prefix(sign.size());
  const std::size_t zeros = least_digits > digits.size() ? least_digits - digits.size() : 0;
  const std::size_t length = sign.size() + zeros + digits.size();
  if (length > width) return append_asterisks(output, width);
  output.pending.append(width - length, ' ');
  output.pending.append(sign);
  output.pending.append(zeros, '0');
  output.pending.append(digits);
}

/// Rounds the exact binary value, ties to even; the sign stays on a negative value that rounds to zero.
void append_real(TextOutput& output, double value, std::size_t width, std::size_t decimals) {
  if (!std::isfinite(value)) {
    const std::string_view word = std::isnan(value) ? "NaN" : (value > 0 ? "Infinity" : "-Infinity");
    return word.size() > width ? append_asterisks(output, width) : append_justified(output, word, width);
  }
  std::string digits = fixed_digits(value, decimals);
  if (decimals == 0) digits.push_back('.');
  if (digits.size() == width + 1 && decimals > 0) {  // the digit before the point gives way to a tight field
    const std::size_t first = digits.front() == '-' ? 1 : 0;
    if (digits[first] == '0' && digits[first + 1] == '.') digits.erase(first, 1);
  }
  if (digits.size() > width) return append_asterisks(output, width);
  append_justified(output, digits, width);
}

/// An item with its text in the language of the output.
LineItem in_language_of(const TextOutput& output, const LineItem& item) {
  return item.kind == LineItem::Kind::wording ? LineItem(item.wording->in(output.is_english)) : item;
}

void append_field(TextOutput& output, const FieldEntry& entry, const LineItem& any_item, std::string_view field_list) {
  const LineItem item = in_language_of(output, any_item);
  switch (entry.letter) {
    case 'A':
      if (item.kind != LineItem::Kind::text) refuse(field_list, "a text was expected");
      if (entry.width == 0) {
        output.pending.append(item.text);
      } else {
        append_justified(output, item.text.substr(0, entry.width), entry.width);
      }
      return;
    case 'I':
      if (item.kind == LineItem::Kind::undefined_integer) return append_asterisks(output, entry.width);
      if (item.kind != LineItem::Kind::integer) refuse(field_list, "an integer was expected");
      return append_integer(output, item.integer, entry.width, entry.digits);
    default:
      if (item.kind != LineItem::Kind::real) refuse(field_list, "a real was expected");
      return append_real(output, item.real, entry.width, entry.digits);
  }
}

// ---- free-form lines -------------------------------------------------------------------------------------------

constexpr std::size_t line_width = 80;
constexpr std::size_t integer_width = 12;

/// The line being made: how many columns it holds, and what stands last on it.
struct FreeLine {
  TextOutput& output;
  std::size_t used = 0;
  bool follows_integer = false;
};

void begin_next_line(FreeLine& line) {
  end_line(line.output);
  line.used = 0;
  line.follows_integer = false;
}

void add_integer(FreeLine& line, const LineItem& item) {
  if (line.used + integer_width > line_width) begin_next_line(line);
  if (item.kind == LineItem::Kind::integer) {
    append_integer(line.output, item.integer, integer_width, 0);
  } else {
    append_asterisks(line.output, integer_width);
  }
  line.used += integer_width;
  line.follows_integer = true;
}

void add_piece(FreeLine& line, std::string_view piece) {
  append(line.output, piece);
  line.used += piece.size();
}

/// Writes a text behind the blank at the start of a line, and cuts it there if it is longer than the line.
void add_text_at_start(FreeLine& line, std::string_view text) {
  constexpr std::size_t room = line_width - 1;
  if (text.size() != line_width) {  // exactly 80 characters do not break: that line has 81 columns
    for (; text.size() > room; text.remove_prefix(room)) {
      add_piece(line, text.substr(0, room));
      begin_next_line(line);
      add_piece(line, " ");
    }
  }
  add_piece(line, text);
}

void add_text(FreeLine& line, std::string_view text) {
  const bool stands_at_start = line.used <= 1;  // nothing yet, or the line's one blank
  const std::size_t needed = text.size() + (line.follows_integer ? 1 : 0);
  if (!stands_at_start && line.used + needed > line_width) begin_next_line(line);
  if (line.follows_integer || line.used == 0) add_piece(line, " ");
  line.follows_integer = false;
  if (line.used == 1) {
    add_text_at_start(line, text);
  } else {
    add_piece(line, text);
  }
}

}  // namespace

void write_format_line(TextOutput& output, std::string_view field_list, std::span<const LineItem> items) {
  std::string_view rest = without_brackets(field_list);
  std::size_t next = 0;
  while (!rest.empty()) {
    const FieldEntry entry = take_entry(rest, field_list);
    if (entry.letter == 'X') {
      output.pending.append(entry.repeat, ' ');
      continue;
    }
    const std::size_t last = next + std::min(entry.repeat, items.size() - next);
    for (; next < last; ++next) append_field(output, entry, items[next], field_list);
  }
  end_line(output);
}

void write_format_line(TextOutput& output, std::string_view field_list, std::initializer_list<LineItem> items) {
  write_format_line(output, field_list, std::span<const LineItem>(items.begin(), items.size()));
}

void write_format_line(TextOutput& output, const Wording& field_list, std::initializer_list<LineItem> items) {
  write_format_line(output, field_list.in(output.is_english), items);
}

std::string row_fields(std::string_view first, std::int64_t count, std::string_view column) {
  std::string fields(first);
  fields.append(",").append(std::to_string(std::max<std::int64_t>(count, 0))).append(column);
  return fields;
}

void write_free_line(TextOutput& output, std::span<const LineItem> items) {
  FreeLine line{output};
  for (const LineItem& any_item : items) {
    const LineItem item = in_language_of(output, any_item);
    if (item.kind == LineItem::Kind::real) throw std::invalid_argument("a free-form line holds no reals");
    if (item.kind == LineItem::Kind::text) {
      add_text(line, item.text);
    } else {
      add_integer(line, item);
    }
  }
  end_line(output);
}

void write_free_line(TextOutput& output, std::initializer_list<LineItem> items) {
  write_free_line(output, std::span<const LineItem>(items.begin(), items.size()));
}

}  // namespace pedigreewatch
