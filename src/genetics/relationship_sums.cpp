// One upward pass carries up to 16 groups as lanes side by side, from the youngest ancestor of any of them to the
// oldest. An ancestor's lanes are as many doubles as fill whole registers.

#include "genetics/relationship_sums.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/memory_hints.h"
#include "core/processor_clones.h"

namespace pedigreewatch {
namespace {

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
  ByNumber<std::int32_t> lane_of_group(animals.group_count, -1);
  std::int32_t lane = 0;
  for (const std::int32_t group : pass) lane_of_group[group] = lane++;
  GroupedAnimals result{animals.positions, {}, lane};
  result.groups.reserve(animals.groups.size());
  for (const std::int32_t group : animals.groups) result.groups.push_back(group < 0 ? -1 : lane_of_group[group]);
  return result;
}

/// Groups that a pass carries, in the lanes from `first_lane` on, and the sums within and between them.
struct PassPart {
  const GroupedAnimals& animals;
  std::size_t first_lane = 0;
  RelationshipSums sums = RelationshipSums(animals.group_count);
};

/// Puts the animals' genes onto their lanes: an ancestor's onto itself, another animal's onto its parents. Adds the
/// part that the other animals have in the sums, and yields the highest ancestor that has a weight.
std::int32_t place_weights(RelationshipWork& work, PassPart& part) {
  std::int32_t highest = 0;
  const auto add_weight = [&](std::int32_t ancestor, std::int32_t lane, double weight) {
    work.weights.at(ancestor, lane + static_cast<std::int32_t>(part.first_lane)) += weight;
    highest = std::max(highest, ancestor);
  };
  std::size_t place = 0;
  for (const std::int32_t position : part.animals.positions) {
    const std::int32_t lane = part.animals.groups[place++];
    if (lane < 0) continue;
    if (const std::int32_t ancestor = work.ancestors.number_of_animal[position]; ancestor > 0) {
      add_weight(ancestor, lane, 1.0);
      continue;
    }
    const ParentNumbers parents = parent_numbers(work.store, work.ancestors, position);
    part.sums.between(lane, lane) += within_family_variance(work.store, work.ancestors, parents);
    add_weight(parents.sire, lane, 0.5);
    add_weight(parents.dam, lane, 0.5);
  }
  return highest;
}

/// Adds one ancestor's part to the sums of each two lanes, of which the second is not above the first.
void add_products(const double* own, double variance, RelationshipSums& sums) {
  const std::size_t count = static_cast<std::size_t>(sums.group_count);
  double* row = sums.sums.data();
  for (std::size_t g = 0; g < count; ++g, row += count) {
    if (own[g] == 0.0) continue;
    for (std::size_t h = 0; h <= g; ++h) row[h] += own[g] * own[h] * variance;
  }
}

template <std::size_t Width>
using Lanes = std::array<double, Width>;

/// Works through the ancestors from `highest` on. One without a weight has nothing to hand on; the unknown parent's
/// entry takes what nobody reads.
template <std::size_t Width>
void hand_on_weights(RelationshipWork& work, std::int32_t highest, std::span<PassPart> parts) {
  const AncestorPedigree& ancestors = work.ancestors;
  double* const weights = work.weights.weights.data();
  const auto lanes_of = [&](std::int32_t j) { return weights + static_cast<std::size_t>(j) * Width; };
  for (std::int32_t j = highest; j > 0; --j) {
    if (j > look_ahead) {
      fetch_early(lanes_of(ancestors.sire[j - look_ahead]));
      fetch_early(lanes_of(ancestors.dam[j - look_ahead]));
    }
    double* const place = lanes_of(j);
    Lanes<Width> own;
    std::copy_n(place, Width, own.begin());
    if (own == Lanes<Width>{}) continue;
    std::fill_n(place, Width, 0.0);
    for (PassPart& part : parts) add_products(&own[part.first_lane], work.within_family_variance[j], part.sums);
    double* const sire = lanes_of(ancestors.sire[j]);
    for (std::size_t g = 0; g < Width; ++g) sire[g] += 0.5 * own[g];
    double* const dam = lanes_of(ancestors.dam[j]);
    for (std::size_t g = 0; g < Width; ++g) dam[g] += 0.5 * own[g];
  }
}

/// Fills the sums of all parts, which have at most `lane_limit` lanes together.
PEDIGREEWATCH_PROCESSOR_CLONES
void run_upward_pass(RelationshipWork& work, std::span<PassPart> parts) {
  std::int32_t lanes = 0;
  for (const PassPart& part : parts) lanes += part.animals.group_count;
  const std::int32_t width = lanes <= 4 ? 4 : lanes <= 8 ? 8 : lane_limit;
  work.weights.set_size(work.ancestors.count(), width);
  std::int32_t highest = 0;
  for (PassPart& part : parts) highest = std::max(highest, place_weights(work, part));
  if (width == 4) hand_on_weights<4>(work, highest, parts);
  if (width == 8) hand_on_weights<8>(work, highest, parts);
  if (width == lane_limit) hand_on_weights<lane_limit>(work, highest, parts);
  const std::span<double> unknown = work.weights.of(0);
  std::fill(unknown.begin(), unknown.end(), 0.0);
  for (PassPart& part : parts) {
    RelationshipSums& sums = part.sums;
    for (std::int32_t g = 0; g < sums.group_count; ++g) {
      for (std::int32_t h = 0; h < g; ++h) sums.between(h, g) = sums.between(g, h);
    }
  }
}

}  // namespace

RelationshipWork make_relationship_work(const PopulationStore& store, const AncestorPedigree& ancestors) {
  return {store, ancestors, within_family_variances(store, ancestors), {}};
}

RelationshipSums sum_relationships(RelationshipWork& work, const GroupedAnimals& animals) {
  RelationshipSums result(animals.group_count);
  for (const PassGroups& pass : plan_passes(animals.group_count)) {
    const GroupedAnimals animals_of_lanes = animals_of_pass(animals, pass);
    PassPart part = {animals_of_lanes};
    run_upward_pass(work, {&part, 1});
    const RelationshipSums& sums = part.sums;
    std::int32_t g = 0;
    for (const std::int32_t group : pass) {
      std::int32_t h = 0;
      for (const std::int32_t other : pass) result.between(group, other) = sums.between(g, h++);
      ++g;
    }
  }
  return result;
}

SumsOfBoth sum_relationships_of_both(RelationshipWork& work, const GroupedAnimals& first,
                                     const GroupedAnimals& second) {
  if (first.group_count + second.group_count > lane_limit) {
    return {sum_relationships(work, first), sum_relationships(work, second)};
  }
  std::array<PassPart, 2> parts = {PassPart{first}, PassPart{second, static_cast<std::size_t>(first.group_count)}};
  run_upward_pass(work, parts);
  return {std::move(parts[0].sums), std::move(parts[1].sums)};
}

}  // namespace pedigreewatch
