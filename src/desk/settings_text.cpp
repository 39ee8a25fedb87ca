#include "desk/settings_text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "desk/json_text.h"
#include "intake/answers_file.h"
#include "intake/column_recognition.h"
#include "intake/delimiter_recognition.h"
#include "intake/export_options.h"
#include "intake/name_choice.h"
#include "text/plain_letters.h"

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

/// As the page offers it: "utf-8-twice".
std::string word_of_encoding(Encoding encoding) {
  if (encoding == Encoding::utf_16_le) return "utf-16";
  std::string word = small_letters(std::string(name_of(encoding)));
  std::replace(word.begin(), word.end(), ' ', '-');
  return word;
}

/// Likewise. A tab or a blank would be lost at the end of a line.
std::string word_of_delimiter(char delimiter) {
  for (const char* const word : {"semicolon", "comma", "tab", "bar", "blank"}) {
    if (delimiter_named(word) == delimiter) return word;
  }
  return {delimiter};
}

/// Each text with a tab behind it.
std::string text_of_list(std::span<const std::string> texts) {
  std::string list;
  for (const std::string& text : texts) list += text + "\t";
  return list;
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

std::vector<std::pair<std::string, std::string>> settings_of(const PrepareOptions& options, ToolLanguage language) {
  std::vector<std::pair<std::string, std::string>> settings;
  const auto say = [&](std::string_view name, std::string value) {
    if (!value.empty()) settings.emplace_back(name, std::move(value));
  };
  const auto say_names = [&](std::string_view name, const NameWish& wish) {
    if (wish.is_given) say(name, text_of_names(wish));
  };
  say("sheet", options.sheet);
  if (options.encoding) say("encoding", word_of_encoding(*options.encoding));
  if (options.delimiter) say("delimiter", word_of_delimiter(*options.delimiter));
  if (options.has_header) say("header", *options.has_header ? "yes" : "no");
  for (const ColumnWish& wish : options.columns) {
    say("column." + std::string(option_name_of(wish.code)), wish.column);
  }
  if (options.dates) say("dates", layout_text(*options.dates, language == ToolLanguage::dutch));
  if (options.serials) say("serials", *options.serials == DateSystem::since_1900 ? "serial-1900" : "serial-1904");
  if (options.century) say("century", std::to_string(*options.century));
  if (options.ids) say("ids", name_of_rules(*options.ids));
  say_names("young", options.young);
  say_names("availability", options.availability);
  say("gone", text_of_list(options.gone));
  say("present", text_of_list(options.present));
  say("male", text_of_list(options.male));
  say("female", text_of_list(options.female));
  say("unknown", text_of_list(options.unknown));
  say("known", text_of_list(options.known));
  say_names("subpopulations", options.subpopulations);
  say_names("colours", options.colours);
  say("species", options.species);
  say("name", options.population_name);
  return settings;
}

std::string settings_of_answers(std::string_view text, ToolLanguage language) {
  const SavedAnswers answers = read_answers(text);
  PrepareOptions options;
  for (const AnswerLine& line : answers.lines) read_export_option(line.option, line.value, options);
  JsonText json;
  begin_object(json);
  begin_list(json, "messages");
  end_list(json);
  begin_list(json, "settings");
  for (const auto& [name, value] : settings_of(options, language)) {
    begin_list(json);
    add_text(json, name);
    add_text(json, value);
    end_list(json);
  }
  end_list(json);
  begin_list(json, "unread");
  for (const AnswerLine& line : answers.unfit) {
    begin_object(json);
    add_integer(json, "line", line.line);
    add_text(json, "text", line.value.empty() ? line.option : line.option + " " + line.value);
    end_object(json);
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

}  // namespace pedigreewatch
