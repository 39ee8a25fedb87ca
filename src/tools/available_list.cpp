#include "tools/available_list.h"

#include <algorithm>
#include <limits>
#include <string>

#include "checks/readable_text.h"
#include "core/new_files.h"
#include "matings/candidates.h"
#include "pedigree/id_list.h"
#include "text/system_reasons.h"
#include "tools/folder_analysis.h"

namespace pedigreewatch {
namespace {

constexpr Wording are_taken = {
    "{1}: {2} of {3} animals are still there; the others are left out where no list names them (--all-animals: all)",
    "{1}: {2} van {3} dieren zijn er nog; de andere vallen weg waar geen lijst ze noemt (--all-animals: alle)"};
constexpr Wording unknown_ids = {
    "{1}: {2} of its identifications are of no animal; if it is of an earlier export, prepare the export anew",
    "{1}: {2} van de identificaties zijn van geen dier; als het bij een eerdere export hoort, maak die dan opnieuw klaar met prepare"};
constexpr Wording not_read = {"{1}: this list of the animals that are still there cannot be read: {2}",
                              "{1}: deze lijst van de dieren die er nog zijn, is niet te lezen: {2}"};
constexpr Wording no_text = {"this is no text in UTF-8 or Windows-1252", "dit is geen tekst in UTF-8 of Windows-1252"};
constexpr Wording names_nobody = {
    "{1}: no animal of the data file stands in this list; prepare the export anew, or say --all-animals",
    "{1}: geen dier van het databestand staat in deze lijst; maak de export opnieuw klaar met prepare, of zeg --all-animals"};
constexpr Wording taken_all_the_same = {
    "{1}: {2} of its animals are no longer there by the list of available ones, such as {3}; they are taken because you name them",
    "{1}: {2} van de dieren zijn er niet meer volgens de lijst van beschikbare, zoals {3}; ze tellen mee omdat u ze noemt"};

std::string name_of_list(const FolderRun& run) {
  return name_beside_report(run.population.settings, "_available.txt");
}

}  // namespace

std::optional<ToolRefusal> read_available(const FolderRun& run, AvailableAnimals& available) {
  const std::string name = name_of_list(run);
  if (!is_taken(name)) return std::nullopt;
  const IdList list = read_id_list(name, std::numeric_limits<std::int32_t>::max());
  if (list.fault != IdListFault::none) {
    const std::string reason = list.error != 0 ? reason_text(list.error, run.language) : run.words(no_text);
    return ToolRefusal{run.words(not_read, {shown(name), reason})};
  }
  available = available_listed(run.population.store, list.ids);
  if (available.count == 0) return ToolRefusal{run.words(names_nobody, {shown(name)})};
  say(run.streams.console, run.words(are_taken, {shown(name), std::to_string(available.count),
                                                 std::to_string(run.population.store.animal_count)}));
  if (available.unknown_ids > 0) {
    say(run.streams.messages, run.words(unknown_ids, {shown(name), std::to_string(available.unknown_ids)}));
  }
  return std::nullopt;
}

void say_unavailable(const FolderRun& run, const AvailableAnimals& available, std::span<const std::int32_t> positions,
                     std::string_view list) {
  const auto has_gone = [&](std::int32_t position) { return !available.has(position); };
  const auto first = std::find_if(positions.begin(), positions.end(), has_gone);
  if (first == positions.end()) return;
  const auto count = std::count_if(first, positions.end(), has_gone);
  say(run.streams.messages, run.words(taken_all_the_same, {shown(list), std::to_string(count),
                                                           shown(readable(run.population.store.id(*first)))}));
}

}  // namespace pedigreewatch
