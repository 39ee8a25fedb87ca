#include "planning/planned_matings.h"

#include <algorithm>
#include <array>

#include "matings/mating_work.h"

namespace pedigreewatch {
namespace {

/// F of the offspring, a walk for each sixteen pairs.
void work_out_f(const MatingWork& work, std::vector<MatingPair>& pairs) {
  AncestorWalk walk = make_mating_walk(work);
  const auto& number_of = work.ancestors.number_of_animal;
  for (std::size_t first = 0; first < pairs.size(); first += lane_count) {
    std::array<Mating, lane_count> batch;
    std::array<float, lane_count> results = {};
    const std::size_t count = std::min(lane_count, pairs.size() - first);
    for (std::size_t lane = 0; lane < count; ++lane) {
      batch[lane] = {number_of[pairs[first + lane].male], number_of[pairs[first + lane].female]};
    }
    walk_ancestors(walk, std::span(batch).first(count), results);
    for (std::size_t lane = 0; lane < count; ++lane) pairs[first + lane].f = results[lane];
  }
}

}  // namespace

PlannedMatings describe_plan(const PopulationStore& store, std::span<const std::int32_t> candidates,
                             std::span<const PlannedPair> pairs, const PlanWatch& watch) {
  PlannedMatings matings;
  std::vector<std::int32_t> parents;
  for (const PlannedPair& pair : pairs) {
    matings.pairs.push_back({candidates[pair.female], candidates[pair.male], 0.0F});
    parents.push_back(candidates[pair.female]);
    parents.push_back(candidates[pair.male]);
  }
  if (pairs.empty()) return matings;
  const MatingWork work = make_mating_work(store, parents);
  work_out_f(work, matings.pairs);
  matings.parts = describe_matings(work, matings.pairs, {watch.progress, watch.stop_request});
  return matings;
}

}  // namespace pedigreewatch
