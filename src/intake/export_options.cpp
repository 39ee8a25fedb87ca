// A table of the options, each with a reader of its own.

#include "intake/export_options.h"

#include <algorithm>
#include <array>

#include "intake/column_recognition.h"
#include "intake/delimiter_recognition.h"
#include "intake/export_records.h"
#include "intake/name_choice.h"
#include "intake/said_values.h"
#include "intake/species_choice.h"

namespace pedigreewatch {
namespace {

/// Yields what was expected instead of the value; empty: nothing.
using ReadValue = std::string (*)(std::string_view value, PrepareOptions& options);

/// A text of the command line in UTF-8: Windows hands it over in Windows-1252.
std::string text_of(std::string_view value) {
  return decode(std::string(value), Encoding::utf_8).text;
}

std::string expected_unless(bool is_read, std::string_view what) {
  return is_read ? std::string() : std::string(what);
}

std::string read_delimiter(std::string_view value, PrepareOptions& options) {
  options.delimiter = delimiter_named(value);
  return expected_unless(options.delimiter.has_value(), "one character, or semicolon, comma, tab, bar, blank");
}

std::string read_encoding(std::string_view value, PrepareOptions& options) {
  options.encoding = encoding_named(value);
  return expected_unless(
      options.encoding.has_value(),
      "utf-8, utf-16, windows-1252, windows-1250, iso-8859-15, macroman, cp850, cp437 or utf-8-twice");
}

std::string read_dates(std::string_view value, PrepareOptions& options) {
  if (const std::optional<DateSystem> system = date_system_named(value)) {
    options.serials = system;
    return {};
  }
  options.dates = date_order_named(value);
  return expected_unless(options.dates.has_value(),
                         "a layout of the letters d, m and y such as dd-mm-yyyy, or serial-1900, serial-1904,");
}

std::string read_century(std::string_view value, PrepareOptions& options) {
  options.century = century_named(value);
  return expected_unless(options.century.has_value(), "the first year of the hundred, such as 1925,");
}

std::string read_ids(std::string_view value, PrepareOptions& options) {
  options.ids = id_rules_named(value);
  return expected_unless(options.ids.has_value(),
                         "separators, capitals, zeros, look-alikes, marks, prefix, country, check-digit, several of "
                         "them with + between, or keep");
}

std::string read_column(std::string_view value, PrepareOptions& options) {
  const std::size_t sign = value.find('=');
  const FieldCode code = field_named(value.substr(0, sign));
  if (sign == std::string_view::npos || code == unused_column) {
    return "FIELD=COLUMN, such as id=\"Reg. no\" or sire=7,";
  }
  options.columns.push_back({code, text_of(trimmed(value.substr(sign + 1)))});
  return {};
}

std::string read_header(std::string_view value, PrepareOptions& options) {
  options.has_header = value == "yes" || value == "ja";
  return expected_unless(*options.has_header || value == "no" || value == "nee", "yes or no");
}

std::string read_language(std::string_view value, PrepareOptions& options) {
  options.language = value == "nl" ? ToolLanguage::dutch : ToolLanguage::english;
  options.is_language_said = true;
  return expected_unless(value == "nl" || value == "en", "en or nl");
}

std::string read_species(std::string_view value, PrepareOptions& options) {
  options.species = text_of(value);
  const bool is_known = !species_named(options.species, ToolLanguage::english).empty();
  const Value all = WordList{list_species(ToolLanguage::english)};
  return expected_unless(is_known, is_known ? "" : "one of " + text_of(all, ToolLanguage::english));
}

/// Names with semicolons between them, or commas where there is no semicolon.
NameWish read_names(std::string_view value) {
  NameWish wish = {.is_given = true, .leaves_out = value == "none", .names = {}, .least_animals = 0};
  if (wish.leaves_out || value == "all") return wish;
  const char divider = value.find(';') == std::string_view::npos ? ',' : ';';
  for (std::size_t begin = 0; begin <= value.size();) {
    const std::size_t end = std::min(value.find(divider, begin), value.size());
    const std::string_view name = trimmed(value.substr(begin, end - begin));
    if (!name.empty()) wish.names.emplace_back(name);
    begin = end + 1;
  }
  wish.leaves_out = wish.names.empty();
  return wish;
}

bool says_columns(const NameWish& wish) {
  return wish.leaves_out || !wish.names.empty();
}

std::string read_young(std::string_view value, PrepareOptions& options) {
  options.young = read_names(text_of(value));
  return expected_unless(says_columns(options.young), "columns by heading or number, such as 6,7,8, or none");
}

std::string read_availability_columns(std::string_view value, PrepareOptions& options) {
  options.availability = read_names(text_of(value));
  return expected_unless(says_columns(options.availability), "columns by heading or number, such as 6,7, or none");
}

/// Names, or the fewest animals of those that are not put together.
std::string read_subpopulations(std::string_view value, PrepareOptions& options) {
  const std::string text = text_of(value);
  const std::optional<std::int64_t> least = least_animals_named(text);
  if (!least && means_least_animals(text)) {
    return "at-least-N with a whole number N from 1 on, such as at-least-50,";
  }
  options.subpopulations =
      least ? NameWish{.is_given = true, .leaves_out = false, .names = {}, .least_animals = *least} : read_names(text);
  return {};
}

std::string read_colours(std::string_view value, PrepareOptions& options) {
  options.colours = read_names(text_of(value));
  return {};
}

template <std::string PrepareOptions::*text>
std::string read_text(std::string_view value, PrepareOptions& options) {
  options.*text = text_of(value);
  return {};
}

/// One more text of a list.
template <std::vector<std::string> PrepareOptions::*list>
std::string read_one_more(std::string_view value, PrepareOptions& options) {
  (options.*list).emplace_back(trimmed(text_of(value)));
  return {};
}

struct ExportOption {
  std::string_view name;
  ReadValue read;
};

constexpr auto export_options = std::to_array<ExportOption>({{"--sheet", read_text<&PrepareOptions::sheet>},
                                                             {"--encoding", read_encoding},
                                                             {"--delimiter", read_delimiter},
                                                             {"--header", read_header},
                                                             {"--column", read_column},
                                                             {"--dates", read_dates},
                                                             {"--century", read_century},
                                                             {"--ids", read_ids},
                                                             {"--young", read_young},
                                                             {"--availability", read_availability_columns},
                                                             {"--gone", read_one_more<&PrepareOptions::gone>},
                                                             {"--present", read_one_more<&PrepareOptions::present>},
                                                             {"--male", read_one_more<&PrepareOptions::male>},
                                                             {"--female", read_one_more<&PrepareOptions::female>},
                                                             {"--unknown", read_one_more<&PrepareOptions::unknown>},
                                                             {"--known", read_one_more<&PrepareOptions::known>},
                                                             {"--subpopulations", read_subpopulations},
                                                             {"--colours", read_colours},
                                                             {"--species", read_species},
                                                             {"--language", read_language},
                                                             {"--name", read_text<&PrepareOptions::population_name>}});

const ExportOption* find_option(std::string_view name) {
  for (const ExportOption& option : export_options) {
    if (option.name == name) return &option;
  }
  return nullptr;
}

}  // namespace

bool is_about_export(std::string_view option) {
  return find_option(option) != nullptr;
}

std::string read_export_option(std::string_view option, std::string_view value, PrepareOptions& options) {
  const ExportOption* const known = find_option(option);
  const std::string what = known == nullptr ? "an option about an export" : known->read(value, options);
  return what.empty() ? what : std::string(option) + " " + in_quotes(value) + ": " + what + " was expected";
}

std::string text_of_names(const NameWish& wish) {
  if (wish.leaves_out) return "none";
  if (wish.least_animals > 0) return answer_for_least(wish.least_animals);
  std::string list;
  for (const std::string& name : wish.names) list += (list.empty() ? "" : ";") + name;
  if (list.empty()) return "all";
  return wish.names.size() == 1 ? list + ";" : list;
}

}  // namespace pedigreewatch
