// First the columns that the user names, then those of the header. Every field that stays open becomes a question with
// the option that answers it.

#include "intake/column_choice.h"

#include <algorithm>
#include <charconv>

#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::array<Wording, field_count> descriptions = {{
    {"not used", "niet gebruikt"},
    {"id of the animal", "id van het dier"},
    {"id of the father", "id van de vader"},
    {"id of the mother", "id van de moeder"},
    {"name of the animal", "naam van het dier"},
    {"name of the father", "naam van de vader"},
    {"name of the mother", "naam van de moeder"},
    {"sex", "geslacht"},
    {"date of birth", "geboortedatum"},
    {"colour", "kleur"},
    {"breeder", "fokker"},
    {"subpopulation", "subpopulatie"},
    {"import", "import"},
}};

constexpr std::array<FieldCode, 10> written_order = {
    id_column,  name_column,   sex_column,     birthdate_column,     sire_column,
    dam_column, colour_column, breeder_column, subpopulation_column, import_column};

constexpr Wording column_missing = {
    "No column was recognised for the {1}. Name it: --column {2}=\"HEADING\" (or the number of the column).",
    "Er is geen kolom herkend voor: {1}. Noem de kolom: --column {2}=\"KOP\" (of het nummer van de kolom)."};
constexpr Wording columns_alike = {"Several columns could hold the {1}: {2}. Choose one: --column {3}=NUMBER{4}.",
                                   "Meer kolommen kunnen dit zijn: {1}: {2}. Kies er een: --column {3}=NUMMER{4}."};
constexpr Wording or_none = {" (or --column {1}=none)", " (of --column {1}=none)"};
constexpr Wording no_such_column = {
    "--column {1}=\"{2}\": there is no column of that heading or number (there are {3} columns).",
    "--column {1}=\"{2}\": er is geen kolom met die kop of dat nummer (er zijn {3} kolommen)."};
constexpr Wording several_such_columns = {
    "--column {1}=\"{2}\": several columns have that heading: {3}. Give the number of the column.",
    "--column {1}=\"{2}\": meer kolommen hebben die kop: {3}. Geef het nummer van de kolom."};
constexpr Wording header_unclear = {
    "The first line holds no heading that is known, so that all lines count as animals. If it is a header, say "
    "--header yes. Lines above the header, such as a title, have to be removed from the export.",
    "De eerste regel bevat geen bekende kop, zodat alle regels als dieren tellen. Als het een kopregel is: --header "
    "yes. Regels boven de kopregel, zoals een titel, moeten uit de export worden verwijderd."};

std::size_t index_of(FieldCode code) {
  return static_cast<std::size_t>(code);
}

/// "Father (column 7), Sire (column 9)".
std::string listed(const std::vector<std::size_t>& places, const ColumnChoice& choice, ToolLanguage language) {
  constexpr Wording entry = {"\"{1}\" (column {2})", "\"{1}\" (kolom {2})"};
  std::string result;
  for (const std::size_t place : places) {
    if (!result.empty()) result += ", ";
    result += phrase(entry, language, {shown(choice.headings[place]), std::to_string(place + 1)});
  }
  return result;
}

/// The columns with this heading: exactly, else in folded form; a number names a column where no heading is like it.
std::vector<std::size_t> find_columns(const std::string& wish, const ColumnChoice& choice) {
  std::vector<std::size_t> found;
  const auto collect = [&](auto&& is_meant) {
    for (std::size_t i = 0; i < choice.headings.size() && choice.has_header; ++i) {
      if (is_meant(choice.headings[i])) found.push_back(i);
    }
  };
  collect([&](const std::string& heading) { return heading == wish; });
  const std::string word = folded(wish);
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(wish.data(), wish.data() + wish.size(), number);
  const bool is_number = error == std::errc() && end == wish.data() + wish.size();
  if (found.empty() && is_number && number >= 1 && number <= choice.headings.size()) found.push_back(number - 1);
  if (found.empty() && !is_number && !word.empty()) {
    collect([&](const std::string& heading) { return folded(heading) == word; });
  }
  return found;
}

void obey(const ColumnWish& wish, ToolLanguage language, ColumnChoice& choice) {
  const std::vector<std::size_t> found = find_columns(wish.column, choice);
  const std::string_view name = option_name_of(wish.code);
  if (found.size() == 1) {
    choice.place[index_of(wish.code)] = found.front();
  } else if (found.empty()) {
    choice.questions.push_back(
        phrase(no_such_column, language, {name, shown(wish.column), std::to_string(choice.headings.size())}));
  } else {
    choice.questions.push_back(
        phrase(several_such_columns, language, {name, shown(wish.column), listed(found, choice, language)}));
  }
}

void ask_which(FieldCode code, const std::vector<std::size_t>& places, ToolLanguage language, ColumnChoice& choice) {
  const std::string_view name = option_name_of(code);
  const std::string none = is_required(code) ? std::string() : phrase(or_none, language, {name});
  choice.questions.push_back(
      phrase(columns_alike, language, {description_of(code, language), listed(places, choice, language), name, none}));
}

bool is_wished(FieldCode code, const PrepareOptions& options) {
  return std::any_of(options.columns.begin(), options.columns.end(),
                     [&](const ColumnWish& wish) { return wish.code == code; });
}

/// Fills the fields that the user says nothing about with the columns of the header.
void follow_header(const PrepareOptions& options, ColumnChoice& choice) {
  ColumnPlaces best;
  if (choice.has_header) best = recognise_columns(choice.headings, choice.further);
  const auto is_taken = [&](std::size_t column) {
    return std::find(choice.place.begin(), choice.place.end(), column) != choice.place.end();
  };
  for (const FieldCode code : written_order) {
    if (is_wished(code, options)) continue;
    std::vector<std::size_t>& places = best[index_of(code)];
    std::erase_if(places, is_taken);
    if (places.size() == 1) choice.place[index_of(code)] = places.front();
    if (places.size() > 1) ask_which(code, places, options.language, choice);
    if (places.empty() && is_required(code)) {
      choice.questions.push_back(
          phrase(column_missing, options.language, {description_of(code, options.language), option_name_of(code)}));
    }
  }
}

/// A column that the user names by its heading makes the first record a header.
bool names_headings(std::span<const std::string> first_record, const PrepareOptions& options) {
  return std::any_of(options.columns.begin(), options.columns.end(), [&](const ColumnWish& wish) {
    return std::find(first_record.begin(), first_record.end(), wish.column) != first_record.end();
  });
}

}  // namespace

std::string_view description_of(FieldCode code, ToolLanguage language) {
  return words_of(descriptions[index_of(code)], language);
}

std::span<const FieldCode> written_fields() {
  return written_order;
}

bool is_required(FieldCode code) {
  return code == id_column || code == sire_column || code == dam_column || code == sex_column ||
         code == birthdate_column;
}

ColumnChoice choose_columns(std::span<const std::string> first_record, const PrepareOptions& options) {
  ColumnChoice choice;
  choice.has_header = options.has_header.value_or(is_header(first_record) || names_headings(first_record, options));
  choice.headings.assign(first_record.begin(), first_record.end());
  for (const ColumnWish& wish : options.columns) {
    if (wish.column != "none") obey(wish, options.language, choice);
  }
  follow_header(options, choice);
  if (!choice.has_header && !options.has_header && !choice.questions.empty()) {
    choice.questions.insert(choice.questions.begin(), phrase(header_unclear, options.language));
  }
  return choice;
}

}  // namespace pedigreewatch
