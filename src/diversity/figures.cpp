#include "diversity/figures.h"

#include <algorithm>
#include <cmath>

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
                                  const AvailableAnimals& available, bool wants_ancestors) {
  const std::vector<std::int32_t>& reference = diversity.reference.positions;
  PopulationFigures figures;
  AnimalFigures& animals = figures.animals;
  animals.lines = count_known_lines(store);
  animals.recent_3 = recent_inbreeding(store, fewer_recent_generations);
  animals.recent_5 = recent_inbreeding(store, more_recent_generations);
  animals.ancestral = ancestral_inbreeding(store);
  animals.mean_kinship = mean_kinship_of_all(store, reference);
  if (store.has_import) animals.import_shares = import_shares(store);
  animals.breeding_offspring = count_breeding_offspring(store);
  const YearGroups years = group_by_year(store);
  figures.cohorts = describe_cohorts({store, years, animals.lines, animals.import_shares,
                                      whole_years(diversity.families.generation_interval), wants_ancestors});
  figures.lists = make_action_lists(store, reference, animals.mean_kinship, available);
  return figures;
}

}  // namespace pedigreewatch
