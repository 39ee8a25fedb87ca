// The lines of the steer file in their order: names, delimiter, date layout, species, male letter, language, header
// or column list, subpopulations, colours. What follows a value on its line is ignored; what is missing at the end
// of the file stays blank or zero.

#include "control/steer_file.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <string>

#include "control/missing_file.h"
#include "control/species.h"
#include "core/line_writer.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording header_present = {
    "Data file contains header, content of columns will be determined by first line",
    "Data file heeft koppen boven de kolommen, Inhoud van een kolom wordt bepaald aan de hand van de eerste regel"};
constexpr Wording columns_counted = {" columns in data file", " kolommen in datafile"};
constexpr Wording colours_heading = {"Colours to be analysed in datafile", "Kleuren te analyseren"};
constexpr Wording data_for = {"Data for ", "Gegevens voor "};
constexpr Wording read_from = {" will be read from ", " worden gelezen uit "};
constexpr Wording written_to = {"and written to ", "en weggeschreven naar "};
constexpr Wording subpopulations_allowed = {"subpopulations allowed", "toegestane subpopulaties "};
constexpr Wording colours_allowed = {"colour/variety codes allowed ", "toegestane kleurcodes "};

constexpr MissingFileMessages missing_steer_file = {
    .english_error = "ERROR cannot find steer file pedigreewatch.ini",
    .english_reason = "this file is essential for the running of the program",
    .dutch_error = "ERROR kan de sturingsfile pedigreewatch.ini niet vinden",
    .dutch_error_end = "",
    .dutch_reason = "deze file is noodzakelijk om het programma te kunnen draaien",
};

// Far more than any report could show; they keep a slip of the pen from asking for all memory.
constexpr std::int64_t subpopulation_limit = 5000;
constexpr std::int64_t colour_limit = 100000;

/// The next line, or an empty one behind the end of the file.
std::string_view next_line(LineReader& reader) {
  std::string_view line;
  return read_line(reader, line) ? line : std::string_view();
}

char first_character(std::string_view line) {
  return line.empty() ? ' ' : line.front();
}

bool says_yes(std::string_view line) {
  return first_character(line) == 'y' || first_character(line) == 'Y';
}

/// Takes an integer with an optional sign off the start of `text`; false, and nothing taken, where there is none.
/// A number outside 32 bits keeps its sign and is as large as the type allows.
bool take_integer(std::string_view& text, std::int64_t& value) {
  std::string_view digits = text;
  const bool is_negative = digits.starts_with('-');
  if (is_negative || digits.starts_with('+')) digits.remove_prefix(1);
  if (digits.empty() || digits.front() < '0' || digits.front() > '9') return false;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc()) value = INT64_MAX;
  if (is_negative) value = -value;
  text = digits.substr(static_cast<std::size_t>(end - digits.data()));
  return true;
}

/// The number at the start of a count line; 0 when there is none or when it is negative.
std::int64_t count_on(std::string_view line) {
  std::string_view rest = without_leading_blanks(line);
  std::int64_t count = 0;
  return take_integer(rest, count) && count > 0 ? count : 0;
}

/// A count of lines to follow.
std::int32_t read_count(LineReader& reader, RunStreams& streams, std::int64_t limit, std::string_view expected) {
  const std::string_view line = next_line(reader);
  const std::int64_t count = count_on(line);
  if (count > limit) {
    stop_on_input(streams, {reader.name, reader.line_number, 1, without_trailing_blanks(line), expected});
  }
  return static_cast<std::int32_t>(count);
}

constexpr std::string_view separators = " ,";

std::string_view behind_separators(std::string_view list) {
  return list.substr(std::min(list.find_first_not_of(separators), list.size()));
}

/// Takes the next number off a list in which blanks or commas stand between the numbers. False where the list ends: at
/// the end of the line, or at a text that is not wholly a number.
bool take_listed_number(std::string_view& list, std::int64_t& value) {
  list = behind_separators(list);
  std::string_view token = list.substr(0, list.find_first_of(separators));
  list.remove_prefix(token.size());
  return take_integer(token, value) && token.empty();
}

/// Whether a number can be read at all; a larger one counts as none.
bool fits_32_bits(std::int64_t number) {
  return number >= INT32_MIN && number <= INT32_MAX;
}

/// Reads "count code code ..." into `codes` and yields how many of them the line asked for, at most all 25.
std::size_t read_column_list(std::string_view line, ColumnMap& codes) {
  std::int64_t count = 0;
  if (!take_listed_number(line, count) || !fits_32_bits(count)) count = 0;
  const std::size_t kept = static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, column_limit));
  for (std::size_t i = 0; i < kept; ++i) {
    std::int64_t code = 0;
    if (!take_listed_number(line, code) || !fits_32_bits(code)) break;
    codes[i] = static_cast<std::int32_t>(code);
  }
  return kept;
}

void read_columns_part(LineReader& reader, RunStreams& streams, SteerSettings& settings) {
  if (says_yes(next_line(reader))) {
    write_free_line(streams.console, {header_present});
    return;
  }
  next_line(reader);  // a comment
  const std::int64_t counted = count_on(behind_separators(next_line(reader)));
  const std::int64_t column_count = fits_32_bits(counted) ? counted : 0;
  write_free_line(streams.console, {column_count, columns_counted});
  next_line(reader);  // a comment
  ColumnMap& codes = settings.layout.column_codes;
  const std::size_t kept = read_column_list(next_line(reader), codes);
  const std::vector<LineItem> echo(codes.begin(), std::next(codes.begin(), static_cast<std::ptrdiff_t>(kept)));
  write_free_line(streams.console, echo);
}

void read_subpopulations(LineReader& reader, RunStreams& streams, SteerSettings& settings) {
  const std::int32_t count =
      read_count(reader, streams, subpopulation_limit, "the number of subpopulations was expected, at most 5000");
  write_free_line(streams.console, {"number of subpopulations", count});
  for (std::int32_t k = 1; k <= count; ++k) settings.layout.subpopulations.add(SubpopulationName(next_line(reader)));
}

/// The last name of the report's list stands for all colours that are not counted.
void read_colours(LineReader& reader, RunStreams& streams, SteerSettings& settings) {
  const std::int32_t count =
      read_count(reader, streams, colour_limit, "the number of colours was expected, at most 100000");
  write_free_line(streams.console, {"number of colours", count});
  Colours& counted = settings.layout.colours;
  for (std::int32_t k = 1; k <= count; ++k) counted.add(ColourName(next_line(reader)));
  counted.add(ColourName("Onbekend"));
  settings.colour_names = counted.names.entries;
  settings.colour_names.emplace_back("niet erkend");
}

void read_names_and_layout(LineReader& reader, RunStreams& streams, SteerSettings& settings) {
  settings.population_name.assign(next_line(reader));
  settings.data_file_name.assign(next_line(reader));
  DataFileLayout& layout = settings.layout;
  layout.delimiter = first_character(next_line(reader));
  layout.merge_delimiters = says_yes(next_line(reader));
  // The language is not known yet: these two lines are English in either one.
  write_free_line(streams.console, {layout.merge_delimiters ? "consecutive delimiters will be considered as one"
                                                            : "consecutive delimiters indicate empty column"});
  layout.date_layout.assign(next_line(reader));
  layout.dates = date_layout_of(layout.date_layout.full());
  const SpeciesWord species_word(next_line(reader));
  const char male_letter = first_character(next_line(reader));
  layout.male_letters = {male_letter, other_case(male_letter)};
  const FixedText<2> language(next_line(reader));
  settings.english = language.full() == "en" || language.full() == "En";
  streams.console.is_english = streams.report.is_english = settings.english;
  settings.species_index = species_index_of(species_word, settings.english);
  settings.nouns = species_row(settings.species_index);
}

void echo_settings(const SteerSettings& settings, TextOutput& console) {
  const std::vector<LineItem> colours(settings.colour_names.begin(), settings.colour_names.end());
  write_free_line(console, {colours_heading});
  write_free_line(console, colours);
  write_free_line(console, {data_for, settings.population_name, read_from, settings.data_file_name});
  write_free_line(console, {written_to, settings.report_file_name});
  write_free_line(console, {subpopulations_allowed});
  for (const SubpopulationName& name : settings.layout.subpopulations.names.entries) write_free_line(console, {name});
  write_free_line(console, {colours_allowed});
  for (const ColourName& name : settings.colour_names) write_free_line(console, {name});
}

}  // namespace

char other_case(char letter) {
  constexpr char distance = 'a' - 'A';
  if (letter >= 'A' && letter <= 'Z') return static_cast<char>(letter + distance);
  if (letter >= 'a' && letter <= 'z') return static_cast<char>(letter - distance);
  return letter;
}

FixedText<30> derive_report_file_name(const FixedText<30>& data_file_name) {
  const std::string_view name = data_file_name.trimmed();
  const std::string stem(name.substr(0, name.size() > 3 ? name.size() - 3 : 0));
  return FixedText<30>(without_leading_blanks(stem + "out"));
}

std::string name_beside_report(const SteerSettings& settings, std::string_view ending) {
  const std::filesystem::path report{std::string(settings.report_file_name.trimmed())};
  return (report.parent_path() / report.stem()).string() + std::string(ending);
}

SteerSettings read_steer_lines(LineReader& reader, RunStreams& streams) {
  SteerSettings settings;
  read_names_and_layout(reader, streams, settings);
  read_columns_part(reader, streams, settings);
  read_subpopulations(reader, streams, settings);
  read_colours(reader, streams, settings);
  settings.report_file_name = derive_report_file_name(settings.data_file_name);
  echo_settings(settings, streams.console);
  return settings;
}

SteerSettings read_steer_file(RunStreams& streams) {
  LineReader reader;
  if (!open_for_reading(reader, steer_file_name)) stop_on_missing_file(streams, missing_steer_file, {}, reader);
  SteerSettings settings = read_steer_lines(reader, streams);
  stop_if_changed(reader, streams);
  return settings;
}

}  // namespace pedigreewatch
