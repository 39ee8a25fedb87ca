// Most texts are plain identifications: those are recognised byte by byte and copied; all others are decoded.

#include "tables/table_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "checks/readable_text.h"
#include "core/bit_pattern.h"
#include "core/real_text.h"
#include "corrections/contained_corrections.h"
#include "text/spreadsheet_cell.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t piece_size = 1'000'000;
constexpr std::int64_t rows_at_once = 4096;
constexpr std::int32_t most_parts = 8;  // of rows that are in memory at once

/// A writer of such a table whose bytes stay in its text.
TableWriter part_of_table(const TableWriter& writer) {
  return {.form = writer.form,
          .text = {},
          .is_plain = writer.is_plain,
          .corrections = writer.corrections,
          .has_heading = writer.has_heading};
}

void begin_cell(TableWriter& writer) {
  if (writer.is_in_row) writer.text += separator_of(writer.form);
  writer.is_in_row = true;
}

/// Bytes that stand in a cell as they are, unless they are the separator.
constexpr std::array<bool, 256> plain_bytes = [] {
  std::array<bool, 256> is_plain = {};
  for (std::size_t byte = ' '; byte <= '~'; ++byte) is_plain[byte] = byte != '"';
  return is_plain;
}();

void append_quoted(std::string& text, std::string_view cell) {
  text += '"';
  for (const char byte : cell) {
    if (byte == '"') text += '"';
    text += byte;
  }
  text += '"';
}

constexpr int kept_bits = 14;

/// As `append_shortest` writes it; valid until the next one.
std::string_view text_of(RealTexts& texts, float value) {
  if (texts.entries.empty()) texts.entries.resize(std::size_t{1} << kept_bits);
  const std::uint32_t bits = bits_as<std::uint32_t>(value);
  constexpr std::uint32_t spread = 2654435761U;
  RealTexts::Entry& entry = texts.entries[(bits * spread) >> (32 - kept_bits)];
  if (entry.length == 0 || entry.bits != bits) {
    texts.found.clear();
    append_shortest(texts.found, value);
    entry.bits = bits;
    entry.length = static_cast<std::uint8_t>(std::min(texts.found.size(), entry.text.size()));
    std::copy_n(texts.found.begin(), entry.length, entry.text.begin());
  }
  return {entry.text.data(), entry.length};
}

}  // namespace

void add_nothing(TableWriter& writer) {
  if (writer.workbook != nullptr) return skip_cell(*writer.workbook);
  begin_cell(writer);
}

void add_text(TableWriter& writer, std::string_view bytes) {
  if (writer.workbook != nullptr) return add_text_cell(*writer.workbook, with_controls_named(bytes));
  begin_cell(writer);
  const char separator = separator_of(writer.form);
  const auto is_plain = [&](char byte) { return plain_bytes[static_cast<unsigned char>(byte)] && byte != separator; };
  const bool is_guarded = !writer.is_plain && begins_a_formula(bytes);
  if (!is_guarded && std::all_of(bytes.begin(), bytes.end(), is_plain)) {
    writer.text += bytes;
    return;
  }
  const std::string readable = with_controls_named(bytes);
  const std::string cell = is_guarded ? as_text_cell(readable) : readable;
  if (cell.find_first_of(std::string{'"', separator}) == std::string::npos) {
    writer.text += cell;
  } else {
    append_quoted(writer.text, cell);
  }
}

void add_plain(TableWriter& writer, std::string_view text) {
  if (writer.workbook != nullptr) return add_text_cell(*writer.workbook, text);
  begin_cell(writer);
  writer.text += text;
}

void add_number(TableWriter& writer, std::string_view digits) {
  if (writer.workbook != nullptr) return add_number_cell(*writer.workbook, digits);
  add_plain(writer, digits);
}

void add_day(TableWriter& writer, std::string_view day) {
  if (writer.workbook != nullptr) return add_date_cell(*writer.workbook, day);
  add_plain(writer, day);
}

void add_integer(TableWriter& writer, std::int64_t value) {
  std::array<char, 24> digits;
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  add_number(writer, {digits.data(), static_cast<std::size_t>(end - digits.data())});
}

void add_real(TableWriter& writer, float value) {
  add_number(writer, std::isfinite(value) ? text_of(writer.real_texts, value) : std::string_view());
}

void add_real(TableWriter& writer, double value) {
  std::string digits;
  if (std::isfinite(value)) append_shortest(digits, value);
  add_number(writer, digits);
}

void add_cell(TableWriter& writer, const Cell& cell) {
  if (const auto* const integer = std::get_if<std::int64_t>(&cell)) return add_integer(writer, *integer);
  if (const auto* const single = std::get_if<float>(&cell)) return add_real(writer, *single);
  if (const auto* const twofold = std::get_if<double>(&cell)) return add_real(writer, *twofold);
  if (const auto* const text = std::get_if<std::string>(&cell)) return add_text(writer, *text);
  add_nothing(writer);
}

void begin_table_sheet(TableWriter& writer, std::string_view name) {
  begin_sheet(*writer.workbook, name);
  writer.has_heading = false;
}

void end_row(TableWriter& writer) {
  if (writer.corrections > 0) {
    if (writer.has_heading) {
      add_integer(writer, writer.corrections);
    } else {
      add_plain(writer, corrections_column);
    }
  }
  writer.has_heading = true;
  if (writer.workbook != nullptr) return end_sheet_row(*writer.workbook);
  writer.text += '\n';
  writer.is_in_row = false;
  if (writer.text.size() >= piece_size) flush(writer);
}

void flush(TableWriter& writer) {
  if (writer.file == nullptr) return;
  write_bytes(*writer.file, writer.text);
  writer.text.clear();
}

void write_many_rows(TableWriter& writer, WorkPart rows, const RowsWriter& write) {
  const std::int64_t parts = std::clamp(writer.threads, 1, most_parts);
  if (parts == 1 || writer.workbook != nullptr) return write(writer, rows);
  std::vector<TableWriter> made, done;
  for (std::vector<TableWriter>* const each : {&made, &done})
    each->resize(static_cast<std::size_t>(parts), part_of_table(writer));
  const auto hand_over = [&] {
    for (TableWriter& part : done) {
      writer.text += part.text;
      part.text.clear();
      if (writer.text.size() >= piece_size) flush(writer);
    }
  };
  for (std::int64_t first = rows.begin; first < rows.end; first += parts * rows_at_once) {
    std::vector<Task> tasks = {hand_over};
    for (std::int64_t part = 0; part < parts; ++part) {
      const std::int64_t begin = std::min(first + part * rows_at_once, rows.end);
      const WorkPart own = {begin, std::min(begin + rows_at_once, rows.end)};
      tasks.emplace_back([&write, own, &to = made[static_cast<std::size_t>(part)]] { write(to, own); });
    }
    do_side_by_side(tasks, writer.threads);
    std::swap(made, done);
  }
  hand_over();
}

}  // namespace pedigreewatch
