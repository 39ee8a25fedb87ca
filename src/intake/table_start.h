// Where the table of an export begins: behind titles, blank lines and the line "sep=;" that spreadsheets write.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "intake/date_layout_recognition.h"

namespace pedigreewatch {

struct TableStart {
  std::size_t begin = 0;  ///< the byte where the header stands, or the first animal
  std::int64_t line = 1;  ///< its line
  NotedTexts above;       ///< the lines above it that are not blank
};

/// The character that a first line such as "sep=;" names as the delimiter.
std::optional<char> delimiter_told(std::string_view text);

/// So many lines may stand above the header; what lies deeper is no longer looked for.
inline constexpr int most_lines_above = 30;

/// Finds the start among the first lines. What stands above fills three fields at most, or half of those of the header,
/// and one or two where no heading is known; or it numbers the columns. Where the user says that there is no header,
/// only lines of fewer columns stand above.
TableStart find_table_start(std::string_view text, char delimiter, std::optional<bool> has_header = std::nullopt);

/// What the first record of a table is, as far as its texts tell: those of a header are written unlike those below.
enum class FirstRecord { header, animal, unclear };

/// Compares the first record with those below it, column by column: dates, numbers, and the few texts of a column of
/// sexes.
FirstRecord look_at_first_record(std::string_view text, char delimiter, const TableStart& start);

}  // namespace pedigreewatch
