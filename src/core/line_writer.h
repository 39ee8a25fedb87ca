// The two kinds of output line, for console and report alike.
//
// A format line follows a field list and has no leading blank:
// clang-format off
//   I8      integer, right-justified in 8 columns          I3.3    the same, filled up with leading zeros
//   F8.2    real, rounded to 2 decimals, in 8 columns      A20     text right-justified in 20 columns, or cut there
//   A       text at its own length                         3X      three blanks
//   5I10    five fields I10                                (I8)    brackets and blanks are allowed around a list
// clang-format on
// A number too wide for its field prints as asterisks; a real that is no number as "NaN", "Infinity" or "-Infinity".
//
// A free-form line is a sequence of texts and integers. It begins with a blank, unless its first item is an integer;
// an integer takes 12 columns; a text that follows an integer is preceded by one blank; no line holds more than 80
// columns, so that what does not fit stands on lines of its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "core/fixed_text.h"
#include "core/text_output.h"
#include "core/wording.h"

namespace pedigreewatch {

/// The value of an integer field that has none, an integer divided by 0: it prints as asterisks.
struct UndefinedInteger {};

/// One item of a line. Texts are looked at, not copied: they must live until the line is written.
struct LineItem {
  enum class Kind { text, wording, integer, undefined_integer, real };

  Kind kind;
  std::string_view text = {};
  const Wording* wording = nullptr;
  std::int64_t integer = 0;
  double real = 0.0;

  LineItem(const char* value) : kind(Kind::text), text(value) {}
  LineItem(const Wording& value) : kind(Kind::wording), wording(&value) {}
  LineItem(std::string_view value) : kind(Kind::text), text(value) {}
  LineItem(const std::string& value) : kind(Kind::text), text(value) {}
  template <std::size_t Width>
  LineItem(const FixedText<Width>& value) : kind(Kind::text), text(value.full()) {}
  LineItem(std::int32_t value) : kind(Kind::integer), integer(value) {}
  LineItem(std::int64_t value) : kind(Kind::integer), integer(value) {}
  LineItem(UndefinedInteger /*value*/) : kind(Kind::undefined_integer) {}
  LineItem(float value) : kind(Kind::real), real(static_cast<double>(value)) {}
};

/// Writes one format line. Fields beyond the last item are not written; items beyond the last field neither.
/// Throws std::invalid_argument on a field list that is not in the notation above, or whose field does not suit its
/// item (a text for `I8`): a mistake of the caller, never of the data.
void write_format_line(TextOutput& output, std::string_view field_list, std::span<const LineItem> items);
void write_format_line(TextOutput& output, std::string_view field_list, std::initializer_list<LineItem> items);
/// The same with a field list for each language.
void write_format_line(TextOutput& output, const Wording& field_list, std::initializer_list<LineItem> items);

/// The field list of a row whose number of columns is known at run time only, behind a field for its year or label:
/// ("A8", 12, "I8") gives "A8,12I8". A negative count counts as 0.
std::string row_fields(std::string_view first, std::int64_t count, std::string_view column);

/// Writes one free-form line, on as many lines of 80 columns as it takes. Items are texts and integers only; a real
/// throws std::invalid_argument.
void write_free_line(TextOutput& output, std::span<const LineItem> items);
void write_free_line(TextOutput& output, std::initializer_list<LineItem> items);

}  // namespace pedigreewatch
