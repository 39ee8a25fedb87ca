// What can be seen in a line as it stands, before its fields are looked at.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "checks/reading_plan.h"

namespace pedigreewatch {

/// The fields of a line by their field code; those without a column are empty.
struct LineFields {
  std::array<std::string_view, field_count> text;
  std::size_t column_count = 0;         ///< fields of the line
  bool has_text_beyond_header = false;  ///< a field behind the columns of the header is not empty
};

/// Cuts a line as the program does.
LineFields cut_line(std::string_view line, const ReadingPlan& plan);

/// The kinds of bytes in a line, one bit each.
enum ByteKind : std::uint8_t { byte_plain = 0, byte_control = 1, byte_quote = 2, byte_high = 4 };
using ByteKinds = std::array<std::uint8_t, 256>;

/// The kinds of all bytes; a tab that divides the columns is plain.
ByteKinds byte_kinds(char delimiter);

/// The kinds that occur in `text`.
std::uint8_t kinds_in(std::string_view text, const ByteKinds& kinds);

/// Whether a text begins or ends with a quotation mark that belongs to an export and not to a name.
bool is_quoted(std::string_view field);

/// A line that is no animal: blank, hyphens, units below the headings, the end mark of old files, a total, the header
/// again.
enum class LineKind : std::uint8_t { animal, no_animal, header_again };
LineKind kind_of_line(std::string_view line, const LineFields& fields, const ReadingPlan& plan);

}  // namespace pedigreewatch
