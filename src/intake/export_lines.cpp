// A line for each thing that is kept: a word and its values, with tabs between them.

#include "intake/export_lines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>

namespace pedigreewatch {
namespace {

constexpr std::string_view first_words = "# lines of the export 1";
constexpr std::string_view export_word = "export", data_word = "data", shift_word = "line", left_out_word = "out";
constexpr std::array<std::string_view, 5> note_words = {"sex", "date", "fields", "sire-name", "dam-name"};

constexpr std::size_t longest_note = 200;  // bytes; what stands behind them helps nobody to find the cell

/// The values of a line; yields false for a number that is none.
struct LineValues {
  std::array<std::string_view, 3> texts;
  std::size_t count = 0;

  bool number_at(std::size_t place, std::int64_t& number) const {
    const std::string_view text = texts[place];
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return place < count && error == std::errc() && end == text.data() + text.size() && number >= 0;
  }
};

LineValues cut_values(std::string_view line) {
  LineValues values;
  while (values.count < values.texts.size()) {
    const std::size_t end = values.count + 1 < values.texts.size() ? line.find('\t') : std::string_view::npos;
    values.texts[values.count++] = line.substr(0, end);
    if (end == std::string_view::npos) break;
    line.remove_prefix(end + 1);
  }
  return values;
}

bool take_shift(const LineValues& values, ExportLines& lines) {
  LineShift shift;
  if (!values.number_at(1, shift.data_line) || !values.number_at(2, shift.export_line)) return false;
  const bool is_behind = lines.shifts.empty() || (shift.data_line > lines.shifts.back().data_line &&
                                                  shift.export_line >= lines.shifts.back().export_line);
  lines.shifts.push_back(shift);
  return is_behind;
}

bool take_note(const LineValues& values, ExportLines& lines) {
  const auto* const word = std::find(note_words.begin(), note_words.end(), values.texts[0]);
  std::int64_t line = 0;
  if (word == note_words.end() || values.count != 3 || !values.number_at(1, line)) return false;
  if (!lines.notes.empty() && line < lines.notes.back().data_line) return false;
  lines.notes.push_back({static_cast<ExportNoteKind>(word - note_words.begin()), line, std::string(values.texts[2])});
  return true;
}

bool take_left_out(const LineValues& values, ExportLines& lines) {
  std::int64_t line = 0;
  if (values.count != 3 || !values.number_at(1, line)) return false;
  if (!lines.left_out.empty() && line < lines.left_out.back().export_line) return false;
  lines.left_out.push_back({line, std::string(values.texts[2])});
  return lines.left_out.size() <= most_left_out_lines;
}

bool take_line(std::string_view line, ExportLines& lines) {
  const LineValues values = cut_values(line);
  if (values.texts[0] == export_word && values.count == 2) {
    lines.export_name = values.texts[1];
    return true;
  }
  if (values.texts[0] == data_word) {
    return values.number_at(1, lines.data_bytes) && values.number_at(2, lines.field_count);
  }
  if (values.texts[0] == left_out_word) return take_left_out(values, lines);
  return values.texts[0] == shift_word ? take_shift(values, lines) : take_note(values, lines);
}

void append_row(std::string& bytes, std::string_view word, std::string_view first, std::string_view second) {
  bytes.append(word).append("\t").append(first);
  if (!second.empty()) bytes.append("\t").append(second);
  bytes.push_back('\n');
}

/// A text in one cell.
std::string cell_of(std::string_view text) {
  std::string cell(text);
  std::replace_if(
      cell.begin(), cell.end(), [](char byte) { return byte == '\t' || byte == '\n' || byte == '\r'; }, ' ');
  return cell;
}

}  // namespace

std::int64_t export_line_of(std::span<const LineShift> shifts, std::int64_t data_line) {
  const auto behind =
      std::upper_bound(shifts.begin(), shifts.end(), data_line,
                       [](std::int64_t line, const LineShift& shift) { return line < shift.data_line; });
  if (behind == shifts.begin()) return data_line;
  const LineShift& shift = *(behind - 1);
  return data_line - shift.data_line + shift.export_line;
}

void note_shift(std::vector<LineShift>& shifts, std::int64_t export_line, std::int64_t data_line) {
  const std::int64_t last_offset = shifts.empty() ? 0 : shifts.back().export_line - shifts.back().data_line;
  if (export_line - data_line != last_offset) shifts.push_back({export_line, data_line});
}

void note_export_text(ExportLines& lines, ExportNoteKind kind, std::int64_t data_line, std::string_view text) {
  lines.notes.push_back({kind, data_line, cell_of(text.substr(0, longest_note))});
}

void note_left_out(ExportLines& lines, std::int64_t export_line, std::string_view text) {
  if (lines.left_out.size() == most_left_out_lines) return;
  lines.left_out.push_back({export_line, cell_of(text.substr(0, longest_note))});
}

std::string text_of_export_lines(const ExportLines& lines) {
  std::string bytes = std::string(first_words) + "\n";
  append_row(bytes, export_word, cell_of(lines.export_name), {});
  append_row(bytes, data_word, std::to_string(lines.data_bytes), std::to_string(lines.field_count));
  for (const LineShift& shift : lines.shifts) {
    append_row(bytes, shift_word, std::to_string(shift.data_line), std::to_string(shift.export_line));
  }
  for (const ExportNote& note : lines.notes) {
    append_row(bytes, note_words[static_cast<std::size_t>(note.kind)], std::to_string(note.data_line), note.text);
  }
  for (const LeftOutLine& line : lines.left_out) {
    append_row(bytes, left_out_word, std::to_string(line.export_line), line.text);
  }
  return bytes;
}

std::optional<ExportLines> read_export_lines(std::string_view text) {
  ExportLines lines;
  bool is_first = true;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (is_first ? line != first_words : !line.empty() && !take_line(line, lines)) return std::nullopt;
    is_first = false;
  }
  if (is_first || lines.export_name.empty()) return std::nullopt;
  return lines;
}

std::string name_of_export_lines(std::string_view data_file) {
  return std::filesystem::path(data_file).replace_extension("lines").string();
}

}  // namespace pedigreewatch
