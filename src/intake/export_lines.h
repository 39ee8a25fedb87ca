// What a data file does not tell of the export that it was made of: on which line of it each animal stands, and the
// texts there that could not be taken over. It is kept beside the data file as NAME.lines, so that a check speaks of
// the file that people mend.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch {

/// From this line of the export on, lines have another number in the data file.
struct LineShift {
  std::int64_t export_line = 0, data_line = 0;
};

enum class ExportNoteKind : std::uint8_t {
  sex,        ///< a sex that nobody knows; the text as it stands there
  date,       ///< a date that could not be read; likewise
  fields,     ///< another number of fields than the headings; the text is that number
  sire_name,  ///< the name of the father is that of another animal; the text is the name
  dam_name,   ///< likewise of the mother
};

/// What stands on a line of the export and not in the data file.
struct ExportNote {
  ExportNoteKind kind = ExportNoteKind::sex;
  std::int64_t data_line = 0;
  std::string text;  ///< UTF-8, without tabs and line ends
};

/// A line of the export that is no animal, and so not in the data file: headings again, a total, a remark.
struct LeftOutLine {
  std::int64_t export_line = 0;
  std::string text;  ///< as it stands there, UTF-8, without tabs and line ends
};

/// So many of them are kept; who joined files has fewer of them, and what is no table at all is refused.
inline constexpr std::size_t most_left_out_lines = 1000;

struct ExportLines {
  std::string export_name;       ///< without its folder
  std::int64_t data_bytes = 0;   ///< length of the data file: another one was changed since
  std::int64_t field_count = 0;  ///< of the headings
  std::vector<LineShift> shifts;
  std::vector<ExportNote> notes;           ///< in the order of the lines
  std::vector<LeftOutLine> left_out = {};  ///< likewise; at most `most_left_out_lines`
};

/// The line of the export on which a line of the data file stands.
std::int64_t export_line_of(std::span<const LineShift> shifts, std::int64_t data_line);

/// Notes where a line of the data file stands, unless that is clear from the lines before it.
void note_shift(std::vector<LineShift>& shifts, std::int64_t export_line, std::int64_t data_line);

/// Notes what stands there.
void note_export_text(ExportLines& lines, ExportNoteKind kind, std::int64_t data_line, std::string_view text);

/// Notes a line that is left out, unless there are too many of them already.
void note_left_out(ExportLines& lines, std::int64_t export_line, std::string_view text);

/// The file NAME.lines.
std::string text_of_export_lines(const ExportLines& lines);

/// Reads it; nothing when it is none, or damaged.
std::optional<ExportLines> read_export_lines(std::string_view text);

/// The name of the file beside a data file: "herd.lines" for "herd.txt".
std::string name_of_export_lines(std::string_view data_file);

}  // namespace pedigreewatch
