// The records of a delimited text: one an animal, cut into fields. A line that holds several animals is handed out once
// for each. A field in quotation marks may hold delimiters, line ends and doubled quotation marks (RFC 4180). Records
// are handed out one at a time; nothing is copied but the fields with doubled quotation marks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch {

inline constexpr std::size_t most_fields = 1000;  ///< of a record; further ones are counted as one more

/// A column whose text stands in the place of another column's.
struct FieldMove {
  std::size_t from = 0, to = 0;
};

/// What one of several animals on a line has for itself: its id first, then its sex, its name, ...
using LineAnimal = std::vector<FieldMove>;

struct ExportRecord {
  std::vector<std::string_view> fields;  ///< valid until the next record is read
  std::int64_t line = 0;                 ///< the line on which it begins, counted from 1
  std::int64_t line_count = 1;           ///< more than 1 where line ends stand inside quotation marks
  bool has_quotes = false;               ///< some field stands in quotation marks
  bool has_bad_quotes = false;           ///< text stands behind a closing quotation mark
  bool has_sheet_marks = false;          ///< a spreadsheet has marked a field as text: ="001" or '001
  bool is_unterminated = false;          ///< a quotation mark is never closed; the record reaches to the end
  bool is_further = false;               ///< an animal behind the first one of its line
};

/// Whether a quotation mark runs on into other lines, and ends at one that opens a text there.
inline bool runs_away(const ExportRecord& record) {
  return record.has_bad_quotes && record.line_count > 1;
}

struct RecordReader {
  std::string_view text = {};
  char delimiter = ';';
  char line_end = '\n';                     ///< '\r' where lines end in lone carriage returns
  std::size_t next = 0;                     ///< the first byte not read yet
  std::int64_t next_line = 1;               ///< its line
  std::string unquoted = {};                ///< the fields of the record at hand that had to be rewritten
  std::vector<std::size_t> rewritten = {};  ///< for each field where it begins in `unquoted`; npos: it stands in `text`
  std::span<const LineAnimal> animals = {};  ///< of each line; none: a line is one animal
  std::vector<std::size_t> waiting = {};     ///< those of the line at hand that are still to come, the last one first
  std::vector<std::string_view> line_fields = {};  ///< of that line
};

/// A reader at the start of `text`. Lines end in a line feed, with or without a carriage return before it, or in lone
/// carriage returns where outside of quotation marks there are more of those than line feeds.
RecordReader read_records(std::string_view text, char delimiter);

/// Yields the next record; false at the end. Of a line with several animals each that is there is a record, with its
/// own texts in the places of the first one's; a line without any is one record with an empty id.
bool next_record(RecordReader& reader, ExportRecord& record);

/// Yields the next record that is no blank line; false at the end.
bool next_filled_record(RecordReader& reader, ExportRecord& record);

/// What a user sees of a field: without blanks, tabs, control characters, no-break spaces at both ends.
std::string_view trimmed(std::string_view field);

}  // namespace pedigreewatch
