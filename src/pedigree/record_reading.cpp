// Each line is cut at the delimiter, column by column, and every column with a field code is stored. Nothing here
// ends the run on bad data but a date piece that is no number.

#include "pedigree/record_reading.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "core/bit_pattern.h"
#include "core/line_writer.h"
#include "core/progress.h"
#include "core/wording.h"
#include "pedigree/data_columns.h"
#include "pedigree/header_words.h"

namespace pedigreewatch {
namespace {

/// The warning for a text that is too long: the first line, the record number and `than`; then the second line.
struct LengthWarning {
  Wording length_of, than, ignored;
};

// The limit of `id` is 30, whatever its warning says.
constexpr LengthWarning id_warning = {
    {"Warning: length of id_number of animal ", "Waarschuwing: lengte van id_nummer van dier "},
    {" larger than 20", " is langer dan 20"},
    {"characters after position 30 are ignored", "tekens na positie 30 worden genegeerd"}};
constexpr LengthWarning sire_warning = {
    {"Warning: length of id of father ", "Waarschuwing: lengte van id_nummer van vader "},
    {" larger than 30", " is langer dan 30"},
    {"characters after position 30 are ignored", "tekens na positie 30 worden genegeerd"}};
constexpr LengthWarning dam_warning = {
    {"Warning: length of id of mother ", "Waarschuwing: lengte van id_nummer van moeder "},
    {" larger than 30", " is langer dan 30"},
    {"characters after position 30 are ignored", "tekens na positie 30 worden genegeerd"}};
constexpr LengthWarning name_warning = {
    {"Warning: length of name of animal ", "Waarschuwing: lengte van naam van dier "},
    {" larger than 50", " is langer dan 50"},
    {"characters after position 50 are ignored", "tekens na positie 50 worden genegeerd"}};
constexpr LengthWarning colour_warning = {
    {"Warning: length of colour of animal ", "Waarschuwing: lengte van kleur van dier "},
    {" larger than 40", " is langer dan 40"},
    {"characters after position 40 are ignored", "tekens na positie 40 worden genegeerd"}};
constexpr LengthWarning breeder_warning = {
    {"Warning: length of breeders name of animal ", "Waarschuwing: lengte van fokker van dier "},
    {" larger than 20", " is langer dan 20"},
    {"characters after position 20 are ignored", "tekens na positie 20 worden genegeerd"}};
constexpr LengthWarning subpopulation_warning = {
    {"Warning: length of subpopulation/variety of animal ",
     "Waarschuwing: lengte van subpopulatie/var\xEB"
     "teit van dier "},
    {" larger than 20", " is langer dan 20"},
    {"characters after position 20 are ignored", "tekens na positie 20 worden genegeerd"}};

constexpr Wording animal_is = {"animal: ", "dier: "};
constexpr Wording number_is = {" no.: ", " nr: "};
constexpr Wording unknown_subpopulation = {"of unknown subpopulation: ", "Van een onbekende subpopulatie: "};
// Console and report name it differently in Dutch.
constexpr Wording unknown_subpopulation_in_report = {"of unknown subpopulation: ", "Van een andere subpopulatie: "};

constexpr Wording record_no = {"record no. ", "record nr. "};
constexpr Wording read = {"read", "gelezen"};
constexpr Wording end_of_records = {"endrecord at animal = ", "eindrecord bij dier = "};
constexpr Wording all_records_read = {"all records read", "alle records gelezen"};

/// How long a text may be.
template <typename Text>
constexpr std::size_t width_of = Text{}.bytes.size();

std::string_view cut_to_width(std::string_view trimmed, std::size_t width, const LengthWarning& warning,
                              std::int32_t record_number, TextOutput& console) {
  if (trimmed.size() <= width) return trimmed;
  write_free_line(console, {warning.length_of, record_number, warning.than});
  write_free_line(console, {warning.ignored});
  return without_trailing_blanks(trimmed.substr(0, width));
}

bool stands_for_unknown(std::string_view trimmed) {
  return trimmed.empty() || trimmed == "unknown" || trimmed == "Unknown";
}

void report_unknown_subpopulation(const LineRecord& record, const Wording& second_line, TextOutput& output) {
  const AnimalName name(record.name);
  const AnimalId id(record.id);
  const SubpopulationName subpopulation(record.subpopulation);
  write_free_line(output, {"ERROR: "});
  write_free_line(output, {animal_is, name, number_is, id});
  write_free_line(output, {second_line, subpopulation});
}

/// A blank one is no mistake: the animal belongs to none.
void check_subpopulation(const LineRecord& record, const DataFileLayout& layout, RunStreams& streams) {
  if (record.subpopulation.empty() || layout.subpopulations.number_of(record.subpopulation) != 0) return;
  report_unknown_subpopulation(record, unknown_subpopulation, streams.console);
  report_unknown_subpopulation(record, unknown_subpopulation_in_report, streams.report);
}

/// The word above a field, as far as it was looked at; empty without a header line.
std::string_view heading_of(std::string_view header_line, std::int64_t field, char delimiter) {
  for (; field > 1; --field) {
    const std::size_t end = header_line.find(delimiter);
    if (end == std::string_view::npos) return {};
    header_line.remove_prefix(end + 1);
  }
  constexpr std::size_t word_length = 16;
  const std::string_view word = without_leading_blanks(header_line.substr(0, header_line.find(delimiter)));
  return without_trailing_blanks(word.substr(0, word_length));
}

void store_birth_date(std::string_view field, const DataFileLayout& layout, const FieldPlace& place, LineRecord& record,
                      RunStreams& streams) {
  BirthDate date;
  if (!read_birth_date(field, layout.dates, date)) {
    const std::string expected =
        "a date of birth in the layout " + std::string(layout.date_layout.trimmed()) + " was expected";
    stop_on_input(streams, {.file = place.file,
                            .line = place.line,
                            .column = place.column,
                            .text = without_trailing_blanks(field),
                            .expected = expected,
                            .field = place.field,
                            .heading = heading_of(place.header_line, place.field, layout.delimiter)});
  }
  record.birth_year = date.year;
  record.birth_month = date.month;
  record.birth_day = date.day;
}

bool is_male(std::string_view field, const std::array<char, 2>& male_letters) {
  const char letter = field.empty() ? ' ' : field.front();
  return letter != ' ' && (letter == male_letters[0] || letter == male_letters[1]);
}

/// Not texts of which nobody would say that they mean a female.
bool tells_female(std::string_view text) {
  constexpr std::string_view signs = " ?-";
  const bool is_unknown =
      text.empty() || signs.find(text.front()) != std::string_view::npos || text == "unknown" || text == "Unknown";
  return !is_unknown;
}

void dump_record(const LineRecord& record, std::int32_t record_number, const PopulationStore& store,
                 TextOutput& console) {
  const auto write_text = [&](std::string_view label, const auto& text) { write_free_line(console, {label, text}); };
  write_free_line(console, {record_no, record_number, read});
  write_text("id            = ", AnimalId(record.id));
  if (store.has_name) write_text("name          = ", AnimalName(record.name));
  write_text("sire          = ", AnimalId(record.sire_id));
  write_text("dam           = ", AnimalId(record.dam_id));
  write_free_line(console, {"birthdate     = ", record.birth_day, "-", record.birth_month, "-", record.birth_year});
  write_free_line(console, {"sex           = ", record.sex});
  if (store.has_colour) write_text("colour        = ", ColourName(record.colour));
  if (store.has_breeder) write_text("breeder       = ", BreederName(record.breeder));
  if (store.has_subpopulation) write_text("subpopulation = ", SubpopulationName(record.subpopulation));
  if (store.has_import) write_free_line(console, {"Import = ", record.is_import ? " T" : " F"});
}

/// A line, kept until its record is added.
struct KeptLine {
  std::array<char, kept_line_length> bytes;
  LineRecord record;  ///< its texts lie in `bytes`
  RecordIds ids;
};

/// Records that have been read and not been added yet. What the look-up of their identifications touches is on its way
/// from memory meanwhile.
struct RecordBatch {
  std::array<KeptLine, 16> lines;
  std::size_t count = 0;
};

/// Keeps a copy of the line: the reader's own is gone with the next one.
std::string_view keep_line(KeptLine& kept, std::string_view line) {
  std::copy(line.begin(), line.end(), kept.bytes.begin());
  return {kept.bytes.data(), line.size()};
}

void append_batch(PopulationStore& store, const DataFileLayout& layout, RecordBatch& batch) {
  const std::span<const KeptLine> lines = std::span(batch.lines).first(batch.count);
  for (const KeptLine& line : lines) fetch_texts_early(store.index, store.kept.ids, line.ids);
  for (const KeptLine& line : lines) {
    append_record(store, line.record, line.ids, layout.colours.number_of(line.record.colour));
  }
  batch.count = 0;
}

/// A file that ends before its lines are all there leaves the other records as they stand before reading.
void append_unread_records(PopulationStore& store, std::int32_t count) {
  const LineRecord unread;
  for (std::int32_t i = 0; i < count; ++i) append_record(store, unread, ids_of(unread), store.kept.blank_colour);
}

/// The place of the first delimiter at or behind `from`; the line's length when there is none. Fields are short: eight
/// bytes at a time, in a register, are quicker than a search that is made for long texts.
std::size_t find_delimiter(std::string_view line, std::size_t from, char delimiter) {
  constexpr std::uint64_t ones = 0x0101010101010101ULL, highest_bits = 0x8080808080808080ULL;
  if constexpr (std::endian::native == std::endian::little) {
    const std::uint64_t pattern = ones * static_cast<unsigned char>(delimiter);
    for (std::uint64_t word = 0; from + sizeof word <= line.size(); from += sizeof word) {
      std::memcpy(&word, line.data() + from, sizeof word);
      word ^= pattern;
      // The lowest bit that is set belongs to the first byte that is 0 now.
      const std::uint64_t zero_bytes = (word - ones) & ~word & highest_bits;
      if (zero_bytes != 0) return from + lowest_bit(zero_bytes) / 8;
    }
  }
  while (from < line.size() && line[from] != delimiter) ++from;
  return from;
}

/// The columns up to the last one that has a code.
std::span<const std::int32_t> columns_that_count(const ColumnMap& columns) {
  std::size_t count = columns.size();
  while (count > 0 && columns[count - 1] == unused_column) --count;
  return {columns.data(), count};
}

}  // namespace

void store_field(std::string_view field, std::int32_t field_code, const DataFileLayout& layout, const FieldPlace& place,
                 LineRecord& record, RunStreams& streams) {
  const std::string_view text = without_trailing_blanks(field);
  const auto cut = [&](std::string_view trimmed, std::size_t width, const LengthWarning& warning) {
    return cut_to_width(trimmed, width, warning, place.record_number, streams.console);
  };
  const auto parent = [&] { return stands_for_unknown(text) ? unknown_parent_id : text; };
  switch (field_code) {
    case id_column: record.id = cut(text, width_of<AnimalId>, id_warning); return;
    case sire_column: record.sire_id = cut(parent(), width_of<AnimalId>, sire_warning); return;
    case dam_column: record.dam_id = cut(parent(), width_of<AnimalId>, dam_warning); return;
    case name_column: record.name = cut(text, width_of<AnimalName>, name_warning); return;
    case sex_column:
      record.sex = is_male(field, layout.male_letters) ? male : female;
      record.is_sex_told = record.sex == male || tells_female(text);
      return;
    case birthdate_column: return store_birth_date(field, layout, place, record, streams);
    case colour_column: record.colour = cut(text, width_of<ColourName>, colour_warning); return;
    case breeder_column: record.breeder = cut(text, width_of<BreederName>, breeder_warning); return;
    case subpopulation_column:
      record.subpopulation = cut(text, width_of<SubpopulationName>, subpopulation_warning);
      return check_subpopulation(record, layout, streams);
    case import_column: {
      constexpr std::size_t width = 20;
      record.is_import = !without_trailing_blanks(text.substr(0, width)).empty();
      return;
    }
    default: return;
  }
}

void store_line(std::string_view line, std::span<const std::int32_t> columns, const DataFileLayout& layout,
                const FieldPlace& start, LineRecord& record, RunStreams& streams) {
  // Where blanks delimit, those behind the end of a short line do so too.
  const std::size_t length = layout.delimiter == ' ' ? kept_line_length : line.size();
  FieldPlace place = start;
  std::size_t next = 0;  // where the field at hand begins
  for (const std::int32_t code : columns) {
    ++place.field;
    const std::size_t begin = std::min(next, length);
    const std::size_t end = begin < line.size() ? find_delimiter(line, begin, layout.delimiter) : begin;
    const bool is_left_out = end == begin && begin < length;  // the delimiter stands where the field begins
    if (code != unused_column && !(is_left_out && layout.merge_delimiters)) {
      place.column = static_cast<std::int64_t>(begin) + 1;
      const std::string_view field = begin < line.size() ? line.substr(begin, end - begin) : std::string_view();
      store_field(field, code, layout, place, record, streams);
    }
    next = end + 1;
  }
}

PopulationStore read_population(LineReader& data, std::int32_t line_count, const DataFileLayout& layout,
                                RunStreams& streams) {
  PopulationStore store;
  read_data_file(data, line_count - 1, layout, store, streams);
  store.birth_years = birth_years_of(store);
  return store;
}

void read_data_file(LineReader& data, std::int32_t record_count, const DataFileLayout& layout, PopulationStore& store,
                    RunStreams& streams) {
  const DataColumns data_columns = read_columns(data, layout, store, streams);
  const std::span<const std::int32_t> columns = columns_that_count(data_columns.codes);
  prepare_store(store, record_count, {layout.subpopulations, layout.colours});
  store.kept.lines_before_records = static_cast<std::int32_t>(data.line_number);
  const std::int32_t interval = record_interval(record_count);
  std::int32_t counter = 1;
  std::string_view line;
  RecordBatch batch;
  for (std::int32_t r = 1; r <= record_count; ++r) {
    if (!read_line(data, line)) {
      write_free_line(streams.console, {end_of_records, r});
      append_batch(store, layout, batch);
      append_unread_records(store, record_count - r + 1);
      break;
    }
    KeptLine& kept = batch.lines[batch.count++];
    kept.record = {};
    const FieldPlace start = {data.name, data.line_number, 0, r, 0, data_columns.header_line};
    store_line(keep_line(kept, line), columns, layout, start, kept.record, streams);
    kept.ids = ids_of(kept.record);
    fetch_slots_early(store.index, kept.ids);
    if (++counter == interval) {
      dump_record(kept.record, r, store, streams.console);
      counter = -1;
    }
    if (batch.count == batch.lines.size()) append_batch(store, layout, batch);
  }
  append_batch(store, layout, batch);
  stop_if_unreadable(data, streams);
  write_free_line(streams.console, {all_records_read});
}

}  // namespace pedigreewatch
