// Each line is cut at the delimiter, column by column, and every column with a field code is stored. Nothing here
// ends the run on bad data but a date piece that is no number.

#include "pedigree/record_reading.h"

#include <algorithm>
#include <array>

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

template <std::size_t Width>
void store_text(std::string_view trimmed, const LengthWarning& warning, std::int32_t record_number,
                FixedText<Width>& target, TextOutput& console) {
  target.assign(trimmed);
  if (trimmed.size() <= Width) return;
  write_free_line(console, {warning.length_of, record_number, warning.than});
  write_free_line(console, {warning.ignored});
}

bool stands_for_unknown(std::string_view trimmed) {
  return trimmed.empty() || trimmed == "unknown" || trimmed == "Unknown";
}

void report_unknown_subpopulation(const AnimalRecord& record, const Wording& second_line, TextOutput& output) {
  write_free_line(output, {"ERROR: "});
  write_free_line(output, {animal_is, record.name, number_is, record.id});
  write_free_line(output, {second_line, record.subpopulation});
}

/// A blank one is no mistake: the animal belongs to none.
void check_subpopulation(const AnimalRecord& record, const DataFileLayout& layout, RunStreams& streams) {
  if (record.subpopulation.is_blank() || layout.subpopulations.number_of(record.subpopulation) != 0) return;
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

void store_birth_date(std::string_view field, const DataFileLayout& layout, const FieldPlace& place,
                      AnimalRecord& record, RunStreams& streams) {
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

void dump_record(const AnimalRecord& record, std::int32_t record_number, const PopulationStore& store,
                 TextOutput& console) {
  write_free_line(console, {record_no, record_number, read});
  write_free_line(console, {"id            = ", record.id});
  if (store.has_name) write_free_line(console, {"name          = ", record.name});
  write_free_line(console, {"sire          = ", record.sire_id});
  write_free_line(console, {"dam           = ", record.dam_id});
  write_free_line(console, {"birthdate     = ", record.birth_day, "-", record.birth_month, "-", record.birth_year});
  write_free_line(console, {"sex           = ", record.sex});
  if (store.has_colour) write_free_line(console, {"colour        = ", record.colour});
  if (store.has_breeder) write_free_line(console, {"breeder       = ", record.breeder});
  if (store.has_subpopulation) write_free_line(console, {"subpopulation = ", record.subpopulation});
  if (store.has_import) write_free_line(console, {"Import = ", record.is_import ? " T" : " F"});
}

/// Records that have been read and not been added yet. What the look-up of their identifications touches is on its way
/// from memory meanwhile.
struct RecordBatch {
  std::array<AnimalRecord, 16> records;
  std::size_t count = 0;
};

void append_batch(PopulationStore& store, const DataFileLayout& layout, RecordBatch& batch) {
  const std::span<const AnimalRecord> records = std::span(batch.records).first(batch.count);
  for (const AnimalRecord& record : records) {
    fetch_texts_early(store.index, store.ids, record.sire_id.trimmed(), record.dam_id.trimmed());
  }
  for (const AnimalRecord& record : records) append_record(store, record, layout.colours.number_of(record.colour));
  batch.count = 0;
}

/// A file that ends before its lines are all there leaves the other records as they stand before reading.
void append_unread_records(PopulationStore& store, std::int32_t count) {
  for (std::int32_t i = 0; i < count; ++i) append_record(store, unread_record(), store.blank_colour);
}

/// The columns up to the last one that has a code.
std::span<const std::int32_t> columns_that_count(const ColumnMap& columns) {
  std::size_t count = columns.size();
  while (count > 0 && columns[count - 1] == unused_column) --count;
  return {columns.data(), count};
}

}  // namespace

void store_field(std::string_view field, std::int32_t field_code, const DataFileLayout& layout, const FieldPlace& place,
                 AnimalRecord& record, RunStreams& streams) {
  const std::int32_t r = place.record_number;
  const std::string_view text = without_trailing_blanks(field);
  const std::string_view parent = stands_for_unknown(text) ? unknown_parent_id : text;
  TextOutput& console = streams.console;
  switch (field_code) {
    case id_column: return store_text(text, id_warning, r, record.id, console);
    case sire_column: return store_text(parent, sire_warning, r, record.sire_id, console);
    case dam_column: return store_text(parent, dam_warning, r, record.dam_id, console);
    case name_column: return store_text(text, name_warning, r, record.name, console);
    case sex_column: record.sex = is_male(field, layout.male_letters) ? male : female; return;
    case birthdate_column: return store_birth_date(field, layout, place, record, streams);
    case colour_column: return store_text(text, colour_warning, r, record.colour, console);
    case breeder_column: return store_text(text, breeder_warning, r, record.breeder, console);
    case subpopulation_column:
      store_text(text, subpopulation_warning, r, record.subpopulation, console);
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
                const FieldPlace& start, AnimalRecord& record, RunStreams& streams) {
  std::string padded;
  if (layout.delimiter == ' ') {  // the blanks behind the end of a short line are delimiters then
    padded.assign(line);
    padded.resize(kept_line_length, ' ');
    line = padded;
  }
  FieldPlace place = start;
  std::size_t next = 0;  // where the field at hand begins
  for (const std::int32_t code : columns) {
    ++place.field;
    const std::size_t begin = std::min(next, line.size());
    const std::size_t end = std::min(line.find(layout.delimiter, begin), line.size());
    const bool is_left_out = end == begin && begin < line.size();  // the delimiter stands where the field begins
    if (code != unused_column && !(is_left_out && layout.merge_delimiters)) {
      place.column = static_cast<std::int64_t>(begin) + 1;
      store_field(line.substr(begin, end - begin), code, layout, place, record, streams);
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
  store.lines_before_records = static_cast<std::int32_t>(data.line_number);
  const AnimalRecord unread = unread_record();
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
    AnimalRecord& record = batch.records[batch.count++] = unread;
    const FieldPlace start = {data.name, data.line_number, 0, r, 0, data_columns.header_line};
    store_line(line, columns, layout, start, record, streams);
    fetch_slots_early(store.index, record.id.trimmed(), record.sire_id.trimmed(), record.dam_id.trimmed());
    if (++counter == interval) {
      dump_record(record, r, store, streams.console);
      counter = -1;
    }
    if (batch.count == batch.records.size()) append_batch(store, layout, batch);
  }
  append_batch(store, layout, batch);
  stop_if_unreadable(data, streams);
  write_free_line(streams.console, {all_records_read});
}

}  // namespace pedigreewatch
