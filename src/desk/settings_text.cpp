#include "desk/settings_text.h"

#include <charconv>
#include <cstddef>
#include <functional>
#include <string>

#include "intake/column_recognition.h"
#include "intake/delimiter_recognition.h"
#include "intake/name_choice.h"

namespace pedigreewatch {
namespace {

/// The pieces of a list with a divider between them, without blanks around them.
void for_each_piece(std::string_view list, char divider, const std::function<void(std::string_view)>& take) {
  while (!list.empty()) {
    const std::size_t end = list.find(divider);
    const std::string_view piece = trimmed(list.substr(0, end));
    if (!piece.empty()) take(piece);
    if (end == std::string_view::npos) return;
    list.remove_prefix(end + 1);
  }
}

NameWish names_from(std::string_view value, const TextCounts& counts) {
  NameWish wish;
  wish.is_given = true;
  if (value == "all") return wish;
  wish.leaves_out = value == "none";
  if (const std::optional<std::int64_t> least = least_animals_named(value)) {
    wish.least_animals = *least;
    return wish;
  }
  // A file of answers has names with semicolons between them instead of places.
  if (value.find(';') != std::string_view::npos) {
    for_each_piece(value, ';', [&](std::string_view piece) { wish.names.emplace_back(piece); });
    return wish;
  }
  for_each_piece(value, ',', [&](std::string_view piece) {
    std::size_t place = 0;
    const auto [end, error] = std::from_chars(piece.data(), piece.data() + piece.size(), place);
    const bool is_place = error == std::errc() && end == piece.data() + piece.size() && place < counts.texts.size();
    if (is_place) wish.names.push_back(counts.texts[place].text);
  });
  if (wish.names.empty()) wish.leaves_out = true;
  return wish;
}

/// Columns by heading or number, with semicolons between them, or commas where there is no semicolon.
NameWish columns_from(std::string_view value) {
  NameWish wish = {.is_given = true, .leaves_out = value == "none", .names = {}};
  if (wish.leaves_out) return wish;
  const char divider = value.find(';') == std::string_view::npos ? ',' : ';';
  for_each_piece(value, divider, [&](std::string_view piece) { wish.names.emplace_back(piece); });
  return wish;
}

void obey_about_file(std::string_view name, std::string_view value, PrepareOptions& options) {
  if (name == "encoding") options.encoding = encoding_named(value);
  if (name == "sheet") options.sheet = value;
  if (name == "delimiter") options.delimiter = delimiter_named(value);
  if (name == "header") options.has_header = value == "yes";
  if (name == "dates") options.dates = date_order_named(value);
  if (name == "serials") options.serials = date_system_named(value);
  if (name == "ids") options.ids = id_rules_named(value);
  if (name == "century") options.century = century_named(value);
  if (name == "young") options.young = columns_from(value);
  if (name == "availability") options.availability = columns_from(value);
  if (name == "language") options.language = value == "nl" ? ToolLanguage::dutch : ToolLanguage::english;
  constexpr std::string_view column = "column.";
  if (!name.starts_with(column)) return;
  const FieldCode code = field_named(name.substr(column.size()));
  if (code != unused_column) options.columns.push_back({code, std::string(value)});
}

void obey_about_animals(std::string_view name, std::string_view value, const ExportSurvey& survey,
                        PrepareOptions& options) {
  // A text of a sex may hold a comma, but no tab.
  if (name == "male") for_each_piece(value, '\t', [&](std::string_view piece) { options.male.emplace_back(piece); });
  if (name == "female")
    for_each_piece(value, '\t', [&](std::string_view piece) { options.female.emplace_back(piece); });
  if (name == "gone") for_each_piece(value, '\t', [&](std::string_view piece) { options.gone.emplace_back(piece); });
  if (name == "present")
    for_each_piece(value, '\t', [&](std::string_view piece) { options.present.emplace_back(piece); });
  if (name == "species") options.species = value;
  if (name == "name") options.population_name = value;
  const auto add_parents = [&](std::vector<std::string>& parents) {
    const char divider = value.find('\t') == std::string_view::npos ? ',' : '\t';
    for_each_piece(value, divider, [&](std::string_view piece) { parents.emplace_back(piece); });
  };
  if (name == "unknown") add_parents(options.unknown);
  if (name == "known") add_parents(options.known);
  if (name == "subpopulations") options.subpopulations = names_from(value, survey.subpopulations);
  if (name == "colours") options.colours = names_from(value, survey.colours);
}

}  // namespace

PrepareOptions options_from(std::string_view settings, const ExportSurvey& survey) {
  PrepareOptions options;
  while (!settings.empty()) {
    const std::size_t end = settings.find('\n');
    const std::string_view line = settings.substr(0, end);
    const std::size_t equals = line.find('=');
    if (equals != std::string_view::npos && equals + 1 < line.size()) {
      obey_about_file(line.substr(0, equals), line.substr(equals + 1), options);
      obey_about_animals(line.substr(0, equals), line.substr(equals + 1), survey, options);
    }
    if (end == std::string_view::npos) break;
    settings.remove_prefix(end + 1);
  }
  return options;
}

}  // namespace pedigreewatch
