// The delimiter of an export, by the counts of fields that each one gives.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace pedigreewatch {

/// What a delimiter makes of the first records.
struct DelimiterEvidence {
  char delimiter = ';';
  std::size_t field_count = 0;         ///< fields that most records have
  std::int64_t record_count = 0;       ///< records looked at
  std::int64_t agreeing_count = 0;     ///< those with that many fields
  std::int64_t unterminated_line = 0;  ///< where a quotation mark stands that is never closed; 0: there is none
  std::size_t known_words = 0;         ///< fields that the words of the first record name
};

struct DelimiterChoice {
  std::optional<char> delimiter;  ///< nothing: several fit, or none
  std::array<DelimiterEvidence, 4> evidence = {};
};

/// Tries semicolon, comma, tab and bar on the first 1000 records. One fits when nearly all records have the same number
/// of fields, two at least. Known header words in the first record decide, also against torn records.
DelimiterChoice recognise_delimiter(std::string_view text);

/// The delimiter that a user names: the character itself, or comma, semicolon, tab, bar, blank.
std::optional<char> delimiter_named(std::string_view name);

/// Whether the records agree well enough for it to be the delimiter.
bool fits(const DelimiterEvidence& evidence);

}  // namespace pedigreewatch
