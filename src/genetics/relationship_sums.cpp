// One upward pass carries up to 16 groups as lanes side by side, from the youngest ancestor of any of them to the
// oldest.

#include "genetics/relationship_sums.h"

#include <algorithm>

#include "core/memory_hints.h"

namespace pedigreewatch {
namespace {

/// The within-family variance of an animal; an unknown parent counts as 1 more and has no F.
double variance_of_parents(const PopulationStore& store, const AncestorPedigree& ancestors, ParentNumbers parents) {
  const auto f_of = [&](std::int32_t number) {
    return number == 0 ? 0.0 : double{store.inbreeding[ancestors.position[number]]};
  };
  const int unknown_parents = (parents.sire == 0 ? 1 : 0) + (parents.dam == 0 ? 1 : 0);
  return (2.0 + unknown_parents - f_of(parents.sire) - f_of(parents.dam)) * 0.25;
}

/// Lanes that one pass carries side by side.
constexpr std::int32_t lane_limit = 16;

/// The groups of one pass, by lane.
using PassGroups = std::vector<std::int32_t>;

/// The groups of each upward pass. With many groups a pass carries two blocks of them, so that every two groups meet
/// in one pass.
std::vector<PassGroups> plan_passes(std::int32_t group_count) {
  std::vector<PassGroups> passes;
  const auto add_block = [&](PassGroups& pass, std::int32_t from, std::int32_t size) {
    for (std::int32_t g = from; g < std::min(from + size, group_count); ++g) pass.push_back(g);
  };
  if (group_count <= lane_limit) {
    add_block(passes.emplace_back(), 0, group_count);
    return passes;
  }
  constexpr std::int32_t block = lane_limit / 2;
  for (std::int32_t first = 0; first < group_count; first += block) {
    for (std::int32_t second = first + block; second < group_count; second += block) {
      PassGroups& pass = passes.emplace_back();
      add_block(pass, first, block);
      add_block(pass, second, block);
    }
  }
  return passes;
}

/// The animals with the lanes that their groups have in one pass.
GroupedAnimals animals_of_pass(const GroupedAnimals& animals, const PassGroups& pass) {
  ByNumber<std::int32_t> lane_of_group(static_cast<std::size_t>(animals.group_count), -1);
  std::int32_t lane = 0;
  for (const std::int32_t group : pass) lane_of_group[group] = lane++;
  GroupedAnimals result{animals.positions, {}, lane};
  result.groups.reserve(animals.groups.size());
  for (const std::int32_t group : animals.groups) result.groups.push_back(group < 0 ? -1 : lane_of_group[group]);
  return result;
}

/// Puts the animals' genes onto their lanes: an ancestor's onto itself, another animal's onto its parents. Adds the
/// part that the other animals have in the sums, and yields the highest ancestor that has a weight.
std::int32_t place_weights(RelationshipWork& work, const GroupedAnimals& animals, RelationshipSums& sums) {
  std::int32_t highest = 0;
  const auto add_weight = [&](std::int32_t ancestor, std::int32_t lane, double weight) {
    work.weights.at(ancestor, lane) += weight;
    highest = std::max(highest, ancestor);
  };
  std::size_t place = 0;
  for (const std::int32_t position : animals.positions) {
    const std::int32_t lane = animals.groups[place++];
    if (lane < 0) continue;
    if (const std::int32_t ancestor = work.ancestors.number_of_animal[position]; ancestor > 0) {
      add_weight(ancestor, lane, 1.0);
      continue;
    }
    const ParentNumbers parents = parent_numbers(work.store, work.ancestors, position);
    sums.between(lane, lane) += variance_of_parents(work.store, work.ancestors, parents);
    add_weight(parents.sire, lane, 0.5);
    add_weight(parents.dam, lane, 0.5);
  }
  return highest;
}

/// Adds one ancestor's part to the sums of each two lanes, of which the second is not above the first.
void add_products(std::span<const double> own, double variance, RelationshipSums& sums) {
  double* row = sums.sums.data();
  for (std::size_t g = 0; g < own.size(); ++g, row += own.size()) {
    if (own[g] == 0.0) continue;
    for (std::size_t h = 0; h <= g; ++h) row[h] += own[g] * own[h] * variance;
  }
}

/// Hands half of one ancestor's weights on to each parent; the unknown parent's entry takes what nobody reads.
void hand_on_weights(std::span<double> own, std::span<double> sire, std::span<double> dam) {
  for (std::size_t g = 0; g < own.size(); ++g) {
    sire[g] += 0.5 * own[g];
    dam[g] += 0.5 * own[g];
    own[g] = 0.0;
  }
}

/// Yields the sums within and between the lanes.
RelationshipSums run_upward_pass(RelationshipWork& work, const GroupedAnimals& animals) {
  const AncestorPedigree& ancestors = work.ancestors;
  LaneWeights& weights = work.weights;
  weights.set_size(ancestors.count(), animals.group_count);
  RelationshipSums sums(animals.group_count);
  constexpr std::int32_t ahead = static_cast<std::int32_t>(look_ahead);
  for (std::int32_t j = place_weights(work, animals, sums); j > 0; --j) {
    if (j > ahead) {
      fetch_early(weights.of(ancestors.sire[j - ahead]).data());
      fetch_early(weights.of(ancestors.dam[j - ahead]).data());
    }
    const std::span<double> own = weights.of(j);
    add_products(own, work.within_family_variance[j], sums);
    hand_on_weights(own, weights.of(ancestors.sire[j]), weights.of(ancestors.dam[j]));
  }
  std::ranges::fill(weights.of(0), 0.0);
  for (std::int32_t g = 0; g < sums.group_count; ++g) {
    for (std::int32_t h = 0; h < g; ++h) sums.between(h, g) = sums.between(g, h);
  }
  return sums;
}

}  // namespace

RelationshipWork make_relationship_work(const PopulationStore& store, const AncestorPedigree& ancestors) {
  RelationshipWork work{store, ancestors, {}, {}};
  work.within_family_variance.values.reserve(ancestors.position.values.size());
  for (std::int32_t j = 0; j <= ancestors.count(); ++j) {
    work.within_family_variance.values.push_back(
        variance_of_parents(store, ancestors, {ancestors.sire[j], ancestors.dam[j]}));
  }
  return work;
}

RelationshipSums sum_relationships(RelationshipWork& work, const GroupedAnimals& animals) {
  RelationshipSums result(animals.group_count);
  for (const PassGroups& pass : plan_passes(animals.group_count)) {
    const RelationshipSums sums = run_upward_pass(work, animals_of_pass(animals, pass));
    std::int32_t g = 0;
    for (const std::int32_t group : pass) {
      std::int32_t h = 0;
      for (const std::int32_t other : pass) result.between(group, other) = sums.between(g, h++);
      ++g;
    }
  }
  return result;
}

}  // namespace pedigreewatch
