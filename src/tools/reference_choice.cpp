// A list of identifications that does not fit the data stops the tool: figures of another population than the one that
// was meant look just as good.

#include "tools/reference_choice.h"

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

#include "checks/readable_text.h"
#include "core/line_reader.h"
#include "tools/folder_analysis.h"

namespace pedigreewatch {
namespace {

constexpr Wording not_opened = {"{1}: the file of --ids could not be opened",
                                "{1}: het bestand van --ids kon niet geopend worden"};
constexpr Wording not_read = {"{1}: the file of --ids could not be read to its end",
                              "{1}: het bestand van --ids kon niet tot het einde gelezen worden"};
constexpr Wording unknown_id = {"{1}, line {2}: {3}: no animal of {4} has this identification",
                                "{1}, regel {2}: {3}: geen dier van {4} heeft deze identificatie"};
constexpr Wording more_unknown = {
    "and {1} more lines; one identification a line was expected, written as in the data "
    "file",
    "en nog {1} regels; verwacht werd een identificatie per regel, geschreven als in het "
    "databestand"};
constexpr Wording no_text = {
    "{1}: one identification a line was expected, in UTF-8 or Windows-1252; this file is neither (UTF-16?)",
    "{1}: per regel werd een identificatie verwacht, in UTF-8 of Windows-1252; dit bestand is dat niet (UTF-16?)"};
constexpr Wording nobody_listed = {"{1}: the file of --ids names no animal",
                                   "{1}: het bestand van --ids noemt geen dier"};
constexpr Wording nobody_born = {"--years {1}-{2}: no animal of {3} was born in these years",
                                 "--years {1}-{2}: in deze jaren is geen dier van {3} geboren"};

void say(ToolStreams& streams, std::string_view text) {
  append(streams.messages, text);
  end_line(streams.messages);
}

bool take_year(std::string_view& text, std::int32_t& year) {
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), year);
  text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
  return error == std::errc() && year > 0;
}

std::optional<YearSpan> read_years(std::string_view text) {
  YearSpan years;
  if (!take_year(text, years.first) || !text.starts_with('-')) return std::nullopt;
  text.remove_prefix(1);
  if (!take_year(text, years.last) || !text.empty() || years.last < years.first) return std::nullopt;
  return years;
}

std::vector<std::string> read_list(LineReader& reader) {
  std::vector<std::string> lines;
  std::string_view line;
  while (read_line(reader, line)) lines.emplace_back(line);
  return lines;
}

void say_unknown(const std::vector<UnusedId>& unknown, const std::string& list, const AnalysedPopulation& population,
                 ToolStreams& streams) {
  constexpr std::size_t most_shown = 10;
  const ToolLanguage language = language_of(population.settings);
  const std::string data_file = shown(population.settings.data_file_name.trimmed());
  for (std::size_t u = 0; u < std::min(unknown.size(), most_shown); ++u) {
    say(streams, phrase(unknown_id, language,
                        {shown(list), std::to_string(unknown[u].line), in_quotes(readable(unknown[u].id)), data_file}));
  }
  if (unknown.size() > most_shown) {
    say(streams, phrase(more_unknown, language, {std::to_string(unknown.size() - most_shown)}));
  }
}

std::optional<ReferencePopulation> read_reference(const AnalysedPopulation& population, const std::string& name,
                                                  ToolStreams& streams) {
  const ToolLanguage language = language_of(population.settings);
  LineReader reader;
  if (!open_for_reading(reader, name)) {
    say(streams, phrase(not_opened, language, {shown(name)}));
    return std::nullopt;
  }
  const std::vector<std::string> ids = read_list(reader);
  const auto has_zero = [](const std::string& id) { return id.find('\0') != std::string::npos; };
  if (std::any_of(ids.begin(), ids.end(), has_zero)) {
    say(streams, phrase(no_text, language, {shown(name)}));
    return std::nullopt;
  }
  std::vector<UnusedId> unknown;
  ReferencePopulation reference = listed_animals(population.store, ids, unknown);
  if (reader.error != 0) {
    say(streams, phrase(not_read, language, {shown(name)}));
  } else if (!unknown.empty()) {
    say_unknown(unknown, name, population, streams);
  } else if (reference.positions.empty()) {
    say(streams, phrase(nobody_listed, language, {shown(name)}));
  } else {
    return reference;
  }
  return std::nullopt;
}

}  // namespace

std::string take_reference_option(std::string_view name, std::string_view value, ReferenceOptions& options) {
  if (name == "--years") {
    options.years = read_years(value);
    if (!options.years) {
      return "--years " + in_quotes(value) + ": two years were expected, the earlier one first, such as 2001-2010";
    }
  }
  if (name == "--ids") {
    options.ids_file = value;
    if (value.empty()) return "--ids \"\": the name of a file with one identification a line was expected";
  }
  if (options.years && !options.ids_file.empty()) return "--years and --ids: only one of them can be given";
  return {};
}

std::optional<ReferencePopulation> choose_reference(const AnalysedPopulation& population,
                                                    const ReferenceOptions& options, ToolStreams& streams) {
  if (!options.ids_file.empty()) return read_reference(population, options.ids_file, streams);
  if (!options.years) return youngest_animals(population.store);
  ReferencePopulation reference = animals_born(population.store, options.years->first, options.years->last);
  if (!reference.positions.empty()) return reference;
  say(streams, phrase(nobody_born, language_of(population.settings),
                      {std::to_string(options.years->first), std::to_string(options.years->last),
                       shown(population.settings.data_file_name.trimmed())}));
  return std::nullopt;
}

}  // namespace pedigreewatch
