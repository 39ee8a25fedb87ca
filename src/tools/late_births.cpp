#include "tools/late_births.h"

#include <string>

#include "checks/readable_text.h"
#include "control/population_standing.h"
#include "core/memory_return.h"
#include "tools/population_check.h"

namespace pedigreewatch {
namespace {

constexpr Wording late_births_found = {
    "{1}: born after today, or alone after years without births; the last year of birth, {2}, the reference population and all that is said of the last years are worked out with them; mend these dates first",
    "{1}: geboren na vandaag, of alleen na jaren zonder geboorten; het laatste geboortejaar, {2}, de referentiepopulatie en alles over de laatste jaren zijn mede met hen berekend; herstel eerst deze datums"};
constexpr Wording one_birth = {"{1} (line {2}, {3})", "{1} (regel {2}, {3})"};
constexpr Wording more_births = {" and {1} more", " en nog {1}"};

}  // namespace

LateBirths find_late_births(const SteerSettings& settings, ToolStreams& streams) {
  LateBirths births;
  if (const std::optional<CheckResult> check = check_population(settings, streams, CheckScope::years)) {
    births = find_late_births(*check);
  }
  give_memory_back();
  return births;
}

void say_late_births(const FolderRun& run, const LateBirths& births) {
  if (births.count == 0) return;
  std::string list;
  for (const LateBirth& birth : births.first) {
    list += (list.empty() ? "" : ", ") +
            run.words(one_birth, {shown(readable(birth.id)), std::to_string(birth.line), birth.date});
  }
  const std::int64_t more = births.count - std::ssize(births.first);
  if (more > 0) list += run.words(more_births, {std::to_string(more)});
  say(run.streams.console, run.words(late_births_found, {list, std::to_string(run.population.store.birth_years.last)}));
}

int run_with_late_births(std::string_view subcommand, std::string_view problem, ToolStreams& streams,
                         const FolderStep& step) {
  LateBirths births;
  const FolderStep with_births = [&](FolderRun& run) {
    say_late_births(run, births);
    return step(run);
  };
  return run_in_folder(subcommand, problem, streams, with_births, FolderUse::animals,
                       [&](const SteerSettings& settings) { births = find_late_births(settings, streams); });
}

}  // namespace pedigreewatch
