// A list of identifications that does not fit the data stops the tool: figures of another population than the one that
// was meant look just as good.

#include "tools/reference_choice.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <vector>

#include "checks/readable_text.h"
#include "pedigree/id_list.h"
#include "text/system_reasons.h"

namespace pedigreewatch {
namespace {

constexpr Wording not_opened = {"{1}: the file of --ids could not be opened: {2}",
                                "{1}: het bestand van --ids kon niet geopend worden: {2}"};
constexpr Wording not_read = {"{1}: the file of --ids could not be read to its end: {2}",
                              "{1}: het bestand van --ids kon niet tot het einde gelezen worden: {2}"};
constexpr Wording unknown_id = {"{1}, line {2}: {3}: no animal of {4} has this identification",
                                "{1}, regel {2}: {3}: geen dier van {4} heeft deze identificatie"};
constexpr Wording more_unknown = {
    "and {1} more lines; one identification a line was expected, written as in the data file",
    "en nog {1} regels; verwacht werd een identificatie per regel, geschreven als in het databestand"};
constexpr Wording no_text = {
    "{1}: one identification a line was expected, in UTF-8 or Windows-1252; this file is neither (UTF-16?)",
    "{1}: per regel werd een identificatie verwacht, in UTF-8 of Windows-1252; dit bestand is dat niet (UTF-16?)"};
constexpr Wording nobody_listed = {"{1}: the file of --ids names no animal",
                                   "{1}: het bestand van --ids noemt geen dier"};
constexpr Wording nobody_born = {"--years {1}-{2}: no animal of {3} was born in these years",
                                 "--years {1}-{2}: in deze jaren is geen dier van {3} geboren"};

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

std::string list_unknown(const std::vector<ListedId>& unknown, const std::string& list, const FolderRun& run) {
  constexpr std::size_t most_shown = 10;
  const std::string data_file = shown(run.population.settings.data_file_name.trimmed());
  std::string text;
  for (std::size_t u = 0; u < std::min(unknown.size(), most_shown); ++u) {
    if (u > 0) text += '\n';
    text += run.words(unknown_id,
                      {shown(list), std::to_string(unknown[u].line), in_quotes(readable(unknown[u].id)), data_file});
  }
  if (unknown.size() <= most_shown) return text;
  return text + "\n" + run.words(more_unknown, {std::to_string(unknown.size() - most_shown)});
}

std::optional<ToolRefusal> read_reference(const FolderRun& run, const std::string& name,
                                          ReferencePopulation& reference) {
  constexpr std::size_t any_number = std::numeric_limits<std::size_t>::max();
  const IdList list = read_id_list(name, any_number);
  if (list.fault == IdListFault::not_opened)
    return ToolRefusal{run.words(not_opened, {shown(name), reason_text(list.error, run.language)})};
  if (list.fault == IdListFault::no_text) return ToolRefusal{run.words(no_text, {shown(name)})};
  if (list.fault == IdListFault::not_read)
    return ToolRefusal{run.words(not_read, {shown(name), reason_text(list.error, run.language)})};
  std::vector<ListedId> unknown;
  reference = listed_animals(run.population.store, list.ids, unknown);
  if (!unknown.empty()) return ToolRefusal{list_unknown(unknown, name, run)};
  if (reference.positions.empty()) return ToolRefusal{run.words(nobody_listed, {shown(name)})};
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

std::optional<ToolRefusal> choose_reference(const FolderRun& run, const ReferenceOptions& options,
                                            ReferencePopulation& reference) {
  if (!options.ids_file.empty()) return read_reference(run, options.ids_file, reference);
  const PopulationStore& store = run.population.store;
  reference = options.years ? animals_born(store, options.years->first, options.years->last) : youngest_animals(store);
  if (!options.years || !reference.positions.empty()) return std::nullopt;
  return ToolRefusal{run.words(nobody_born, {std::to_string(options.years->first), std::to_string(options.years->last),
                                             shown(run.population.settings.data_file_name.trimmed())})};
}

}  // namespace pedigreewatch
