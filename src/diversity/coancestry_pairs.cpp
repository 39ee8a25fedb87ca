// Every pair is met once, at its younger animal: its relationships are worked out up to itself.

#include "diversity/coancestry_pairs.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "core/shares.h"
#include "diversity/coancestry_of_many.h"

namespace pedigreewatch {
namespace {

/// What the pairs of one animal add up to.
struct AnimalPairs {
  double increase = 0.0;
  std::int64_t count = 0;
};

/// Adds the pairs of the animal at `place` with those before it; `lane` has its relationships.
void add_pairs(const PairedAnimals& animals, const ByNumber<BlockLanes>& lanes, std::size_t place, std::size_t lane,
               std::vector<AnimalPairs>& pairs) {
  AnimalPairs& own = pairs[place];
  for (std::size_t other = 0; other < place; ++other) {
    const double generations = 0.5 * (animals.equivalents[place] + animals.equivalents[other]);
    if (generations <= 0.0) continue;
    const double kinship = 0.5 * lanes[animals.pedigree.members[other]].each[lane];
    const double increase = increase_per_generation(kinship, generations);
    own.increase += increase;
    ++own.count;
    pairs[other].increase += increase;
    ++pairs[other].count;
  }
}

std::vector<AnimalPairs> sum_pairs(const PairedAnimals& animals) {
  const std::span<const std::int32_t> members(animals.pedigree.members);
  std::vector<AnimalPairs> pairs(members.size());
  ByNumber<BlockLanes> lanes = make_lanes(animals.pedigree);
  for (std::size_t first = 0; first < members.size(); first += coancestry_block) {
    const std::span<const std::int32_t> block =
        members.subspan(first, std::min(coancestry_block, members.size() - first));
    relate_block(animals.pedigree, block, block.back(), lanes);
    for (std::size_t lane = 0; lane < block.size(); ++lane) add_pairs(animals, lanes, first + lane, lane, pairs);
  }
  return pairs;
}

/// The standard error of the mean over all pairs.
std::optional<double> error_of_mean(std::span<const AnimalPairs> pairs) {
  std::vector<double> means;
  for (const AnimalPairs& animal : pairs) {
    if (animal.count > 0) means.push_back(animal.increase / static_cast<double>(animal.count));
  }
  constexpr std::size_t fewest_means = 3;
  if (means.size() < fewest_means) return std::nullopt;  // the two animals of a single pair have the same mean
  return 2.0 * *standard_deviation(means) / std::sqrt(static_cast<double>(means.size()));
}

EffectiveSizeEstimate estimate_from_all_pairs(const PairedAnimals& animals) {
  EffectiveSizeEstimate estimate;
  const std::vector<AnimalPairs> pairs = sum_pairs(animals);
  double sum = 0.0;
  std::int64_t ends = 0;  // each pair has two
  for (const AnimalPairs& animal : pairs) {
    sum += animal.increase;
    ends += animal.count;
  }
  estimate.count = ends / 2;
  if (ends == 0) return estimate;
  estimate.mean_increase = mean_over(sum, ends);
  complete_estimate(estimate, error_of_mean(pairs));
  return estimate;
}

}  // namespace

EffectiveSizeEstimate estimate_by_coancestry(const PopulationStore& store, const ReferencePedigree& pedigree,
                                             std::span<const double> equivalents, std::size_t most_animals) {
  const PairedAnimals animals{pedigree, equivalents};
  const bool are_few = pedigree.members.size() <= most_animals;
  return are_few ? estimate_from_all_pairs(animals) : estimate_from_many(store, animals);
}

}  // namespace pedigreewatch
