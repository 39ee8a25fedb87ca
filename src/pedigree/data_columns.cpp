// 1. The map comes from the steer file, or from the words of the header line.
// 2. Each field is announced with its first column; a field that is required and missing stops the run.

#include "pedigree/data_columns.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/integers.h"
#include "core/line_writer.h"
#include "core/wording.h"
#include "pedigree/header_words.h"

namespace pedigreewatch {
namespace {

constexpr Wording no_name_found = {" No name found for column ", " Geen naam gevonden voor kolom "};
constexpr Wording check_delimiters = {
    " check if correct, i.e. if consecutive delimiters should be treated as indicating empty field",
    " Ga na of dit klopt: misschien moeten opeenvolgende scheidingstekens niet als een leeg veld worden gezien"};
constexpr Wording column = {" Column ", " Kolom "};
constexpr Wording will_be_skipped = {" will be skipped", " zal worden overgeslagen"};
constexpr Wording name_found = {" Name found for column ", " Naam gevonden voor kolom "};
constexpr Wording name = {" Name ", " Naam "};
constexpr Wording found_for_column = {" found for column ", " boven kolom "};
constexpr Wording not_recognised = {" not recognised", " niet herkend"};
constexpr Wording check = {" check if correct", " Ga na of dit klopt"};

constexpr Wording column_number = {"Column number ", "Kolom nummer "};

/// What the console says of each field: when it is found, and when a required one is missing.
struct FieldAnnouncement {
  FieldCode code;
  Wording found;
  std::array<Wording, 2> further = {};  ///< further lines, where there are any
  std::array<Wording, 3> missing = {};  ///< only required fields have these
};

constexpr std::array<FieldAnnouncement, 12> announcements = {{
    {.code = id_column,
     .found = {" is interpreted as id of animals", " wordt beschouwd als Id van dieren"},
     .missing = {{{"No column found with id number of animals", "Geen kolom gevonden met het id nummer van de dieren"},
                  {"program will not run without id numbers of animals",
                   "programma kan niet draaien zonder id nummer van de dieren"},
                  {"Please add a column with \"id\" in header", "AUB kolom toevoegen met \"id\" op de 1ste regel"}}}},
    {.code = sire_column,
     .found = {" is interpreted as id of the fathers of animals",
               " wordt beschouwd als Id van de vaders van de dieren"},
     .missing = {{{"No column found with id number of fathers of the animals",
                   "Geen kolom gevonden met het id nummer van vaders de dieren"},
                  {"program will not run without id of fathers",
                   "programma kan niet draaien zonder id nummer van de vaders"},
                  {"Please add a column with \"id_father\" in header",
                   "AUB kolom toevoegen met \"id_vader\" op de 1ste regel"}}}},
    {.code = dam_column,
     .found = {" is interpreted as id of the mothers of animals",
               " wordt beschouwd als Id van de moeders van de dieren"},
     .missing = {{{"No column found with id number of mothers of the animals",
                   "Geen kolom gevonden met het id nummer van moeders de dieren"},
                  {"program will not run without id of mothers",
                   "programma kan niet draaien zonder id nummer van de moeders"},
                  {"Please add a column with \"id_mother\" in header",
                   "AUB kolom toevoegen met \"id_moeder\" op de 1ste regel"}}}},
    {.code = name_column,
     .found = {" is interpreted as names of the animals", " wordt beschouwd als namen van de dieren"}},
    {.code = sire_name_column,
     .found = {" is interpreted as names of the fathers of animals",
               " wordt beschouwd als namen van de vaders van de dieren"}},
    {.code = dam_name_column,
     .found = {" is interpreted as names of the mothers of animals",
               " wordt beschouwd als namen van de moeders van de dieren"}},
    {.code = sex_column,
     .found = {" is interpreted as sex of animals", " wordt beschouwd als het geslacht van de dieren"},
     .missing =
         {{{"No column found with sex of animals", "Geen kolom gevonden met de sekse van de dieren"},
           {"program will not run without sex of animals", "programma kan niet draaien zonder sekse van de dieren"},
           {"Please add a column with \"sex\" in header", "AUB kolom toevoegen met \"sekse\" op de 1ste regel"}}}},
    {.code = birthdate_column,
     .found = {" is interpreted as date of birth of animals", " wordt beschouwd als geboortedatum van de dieren"},
     .missing = {{{"No column found with birthdate number of animals",
                   "Geen kolom gevonden met de geboortedata van de dieren"},
                  {"program will not run without birthdate of animals",
                   "programma kan niet draaien zonder geboortedata"},
                  {"Please add a column with \"birthdate\" in header",
                   "AUB kolom toevoegen met \"Geboortedatum\" op de 1ste regel"}}}},
    {.code = colour_column,
     .found = {" is interpreted as colour of animals", " wordt beschouwd als de kleurslag van de dieren"}},
    {.code = breeder_column,
     .found = {" is interpreted as breeder of the animals", " wordt beschouwd als de fokker van de dieren"}},
    {.code = subpopulation_column,
     .found = {" is interpreted as the subpopulation to which the animals belong",
               " zal worden gelezen als de subpopulatie waartoe het dier behoort"},
     .further =
         {{{"parameters will be estimated for the whole population and for each subpopulation seperately if more than 1",
            "parameters zullen voor de totale populatie worden geschat, en voor elke subpopulatie apart als er meer dan 1 is"},
           {"  only subpopulations with names provided in input will be analysed",
            "  alleen subpopulaties waarvan de naam in de invoer is gegeven zullen worden geanalyseerd"}}}},
    {.code = import_column,
     .found = {" is interpreted as indicator whether animals have been imported and/or bred outside this population",
               " zal worden gelezen als een aanduiding of het dier is ge\xEF"
               "mporteerd en/of buiten de populatie gefokt"},
     .further = {{{"if text in the column animal is regarded as being outside the population",
                   "Als tekst in de kolom dan wordt het dier buiten de populatie beschouwd"}}}},
}};

constexpr std::int32_t word_length = 16;
using ColumnWord = FixedText<word_length>;

void report_word(std::int32_t column_no, const ColumnWord& word, bool is_known, TextOutput& console) {
  if (is_known) {
    write_free_line(console, {name_found, column_no, word});
    return;
  }
  write_free_line(console, {name, word, found_for_column, column_no, not_recognised});
  write_free_line(console, {check});
  write_free_line(console, {column, column_no, will_be_skipped});
}

void report_empty_word(std::int32_t column_no, TextOutput& console) {
  write_free_line(console, {no_name_found, column_no});
  write_free_line(console, {check_delimiters});
  write_free_line(console, {column, column_no, will_be_skipped});
}

void set_flag(PopulationStore& store, FieldCode code, bool is_found) {
  switch (code) {
    case name_column: store.has_name = is_found; break;
    case colour_column: store.has_colour = is_found; break;
    case breeder_column: store.has_breeder = is_found; break;
    case subpopulation_column: store.has_subpopulation = is_found; break;
    case import_column: store.has_import = is_found; break;
    default: break;
  }
}

void announce(const FieldAnnouncement& field, std::int32_t column_no, TextOutput& console) {
  write_free_line(console, {column_number, column_no, field.found});
  for (const Wording& line : field.further) {
    if (!line.english.empty()) write_free_line(console, {line});
  }
}

void announce_fields(const ColumnMap& columns, PopulationStore& store, TextOutput& console) {
  for (const FieldAnnouncement& field : announcements) {
    const auto* const first = std::find(columns.begin(), columns.end(), static_cast<std::int32_t>(field.code));
    const bool is_found = first != columns.end();
    set_flag(store, field.code, is_found);
    if (is_found) {
      announce(field, static_cast<std::int32_t>(first - columns.begin()) + 1, console);
    } else if (!field.missing.front().english.empty()) {
      for (const Wording& line : field.missing) write_free_line(console, {line});
      stop_run();
    }
  }
}

}  // namespace

ColumnMap read_header_line(std::string_view line, const DataFileLayout& layout, TextOutput& console) {
  constexpr std::size_t line_length = kept_line_length;
  std::string text(line.substr(0, line_length));
  text.resize(line_length, ' ');
  ColumnMap columns = {};
  std::size_t place = 0;  // where the word at hand begins
  for (std::size_t i = 0; i < column_limit; ++i) {
    const std::int32_t column_no = static_cast<std::int32_t>(i) + 1;
    const std::size_t found = text.find(layout.delimiter, place);
    const std::size_t end = found == std::string::npos ? line_length : found;
    if (found == place) {
      // The place stays, so that the same delimiter is met in every further column.
      if (layout.merge_delimiters) continue;
      report_empty_word(column_no, console);
    }
    const ColumnWord word(without_leading_blanks(std::string_view(text).substr(place, end - place)));
    columns[i] = static_cast<std::int32_t>(field_code_of(word.full()));
    report_word(column_no, word, columns[i] != unused_column, console);
    place = end + 1;
    if (place + 1 >= line_length) break;
  }
  return columns;
}

DataColumns read_columns(LineReader& data, const DataFileLayout& layout, PopulationStore& store, RunStreams& streams) {
  DataColumns columns = {layout.column_codes, {}};
  std::int32_t code_sum = 0;
  for (const std::int32_t code : columns.codes) code_sum = wrapped(std::int64_t{code_sum} + code);
  if (code_sum == 0) {
    std::string_view header;
    if (!read_line(data, header)) {
      stop_on_input(streams,
                    {data.name, 0, 0, "", "the file is empty: a line with the names of the columns was expected"});
    }
    columns = {read_header_line(header, layout, streams.console), std::string(header)};
  }
  announce_fields(columns.codes, store, streams.console);
  return columns;
}

}  // namespace pedigreewatch
