#include "diversity/figures.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/side_by_side.h"
#include "diversity/recent_inbreeding.h"
#include "genetics/ancestor_pedigree.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {
namespace {

/// Whole years, one at least; 0 where no interval is known.
std::int32_t whole_years(const std::optional<double>& interval) {
  constexpr double most_years = 1000.0;
  if (!interval) return 0;
  return static_cast<std::int32_t>(std::lround(std::clamp(*interval, 1.0, most_years)));
}

}  // namespace

double completeness_index(const PopulationStore& store, const AnimalFigures& figures, std::int32_t position) {
  const KnownParents parents = known_parents(store, position);
  return completeness_index(figures.lines[parents.sire], figures.lines[parents.dam]);
}

PopulationFigures compute_figures(const PopulationStore& store, const Diversity& diversity,
                                  const AvailableAnimals& available, bool wants_ancestors, std::int32_t threads) {
  const std::vector<std::int32_t>& reference = diversity.reference.positions;
  PopulationFigures figures;  // of which each step fills fields of its own
  AnimalFigures& animals = figures.animals;
  const auto describe_years = [&] {
    animals.lines = count_known_lines(store);
    if (store.has_import) animals.import_shares = import_shares(store);
    const YearGroups years = group_by_year(store);
    figures.cohorts = describe_cohorts({store, years, animals.lines, animals.import_shares,
                                        whole_years(diversity.families.generation_interval), wants_ancestors, threads});
  };
  const auto list_animals = [&] {
    animals.mean_kinship = mean_kinship_of_all(store, reference);
    figures.lists = make_action_lists(store, reference, animals.mean_kinship, available);
  };
  const auto follow_recent = [&] {
    animals.recent_3 = recent_inbreeding(store, fewer_recent_generations);
    animals.recent_5 = recent_inbreeding(store, more_recent_generations);
  };
  const auto follow_all = [&] {
    animals.ancestral = ancestral_inbreeding(store);
    animals.breeding_offspring = count_breeding_offspring(store);
  };
  const std::array<Task, 4> steps = {describe_years, list_animals, follow_recent, follow_all};
  do_side_by_side(steps, threads);
  return figures;
}

}  // namespace pedigreewatch
