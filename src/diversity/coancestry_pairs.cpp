// Only the animals that are paired and their ancestors matter: they get a pedigree of their own. A block of animals is
// carried through it as lanes side by side, their genes up to the founders and their relationships down again to the
// youngest of the block (Colleau, 2002); so each pair is met once, at its younger animal.

#include "diversity/coancestry_pairs.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/memory_hints.h"
#include "core/processor_clones.h"

namespace pedigreewatch {
namespace {

/// Random numbers that are the same on every machine (splitmix64).
struct SampleNumbers {
  std::uint64_t state = 0x50656469677265ULL;  // any number will do, as long as it stays

  std::uint64_t below(std::uint64_t limit) {
    state += 0x9E3779B97F4A7C15ULL;
    std::uint64_t value = state;
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ULL;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBULL;
    return (value ^ (value >> 31)) % limit;
  }
};

constexpr std::size_t block_size = 8;

/// One number for each animal of a block.
// NOLINTNEXTLINE(modernize-use-using): a using cannot carry the attribute in g++
typedef double BlockVector __attribute__((vector_size(64)));

struct alignas(64) BlockLanes {
  BlockVector each;
};

/// The animals that are paired, by place.
struct PairedAnimals {
  ReferencePedigree pedigree;  ///< theirs; they are its members
  std::vector<double> equivalents;
};

PairedAnimals choose_animals(const PopulationStore& store, std::span<const std::int32_t> positions,
                             std::span<const double> equivalents, std::size_t most_animals) {
  PairedAnimals animals;
  std::vector<std::int32_t> chosen;
  for (const std::size_t place : draw_places(positions.size(), most_animals)) {
    chosen.push_back(positions[place]);
    animals.equivalents.push_back(equivalents[place]);
  }
  animals.pedigree = make_reference_pedigree(store, chosen);
  return animals;
}

/// Fills the relationships of the animals `block` with all of the pedigree up to the last of them.
PEDIGREEWATCH_PROCESSOR_CLONES
void relate_block(const ReferencePedigree& pedigree, std::span<const std::int32_t> block, ByNumber<BlockLanes>& lanes) {
  const std::int32_t last = block.back();
  constexpr std::int32_t ahead = static_cast<std::int32_t>(look_ahead);
  std::fill_n(lanes.values.begin(), last + 1, BlockLanes{});
  std::size_t lane = 0;
  for (const std::int32_t number : block) lanes[number].each[lane++] = 1.0;
  for (std::int32_t j = last; j > pedigree.unknown_parents; --j) {
    if (j > ahead) {
      fetch_early(&lanes[pedigree.sire[j - ahead]]);
      fetch_early(&lanes[pedigree.dam[j - ahead]]);
    }
    const BlockVector half = lanes[j].each * 0.5;
    lanes[pedigree.sire[j]].each += half;
    lanes[pedigree.dam[j]].each += half;
  }
  lanes[0] = BlockLanes{};
  for (std::int32_t j = pedigree.unknown_parents + 1; j <= last; ++j) {
    if (last - j >= ahead) {
      fetch_early(&lanes[pedigree.sire[j + ahead]]);
      fetch_early(&lanes[pedigree.dam[j + ahead]]);
    }
    const BlockVector of_parents = (lanes[pedigree.sire[j]].each + lanes[pedigree.dam[j]].each) * 0.5;
    lanes[j].each = of_parents + lanes[j].each * pedigree.own_variance[j];
  }
}

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
  ByNumber<BlockLanes> lanes;
  reserve_large(lanes.values, animals.pedigree.position.values.size());
  lanes.values.resize(animals.pedigree.position.values.size());
  for (std::size_t first = 0; first < members.size(); first += block_size) {
    const std::span<const std::int32_t> block = members.subspan(first, std::min(block_size, members.size() - first));
    relate_block(animals.pedigree, block, lanes);
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
  if (means.size() < 3) return std::nullopt;  // the two animals of a single pair have the same mean
  return 2.0 * *standard_deviation(means) / std::sqrt(static_cast<double>(means.size()));
}

}  // namespace

std::vector<std::size_t> draw_places(std::size_t count, std::size_t wanted) {
  std::vector<std::size_t> places;
  SampleNumbers random;
  std::size_t left = std::min(count, wanted);
  for (std::size_t place = 0; place < count && left > 0; ++place) {
    if (random.below(count - place) >= left) continue;
    places.push_back(place);
    --left;
  }
  return places;
}

EffectiveSizeEstimate estimate_by_coancestry(const PopulationStore& store, std::span<const std::int32_t> positions,
                                             std::span<const double> equivalents, std::size_t most_animals) {
  EffectiveSizeEstimate estimate;
  estimate.is_sample = positions.size() > most_animals;
  const std::vector<AnimalPairs> pairs = sum_pairs(choose_animals(store, positions, equivalents, most_animals));
  double sum = 0.0;
  std::int64_t ends = 0;  // each pair has two
  for (const AnimalPairs& animal : pairs) {
    sum += animal.increase;
    ends += animal.count;
  }
  estimate.count = ends / 2;
  if (ends == 0) return estimate;
  estimate.mean_increase = sum / static_cast<double>(ends);
  complete_estimate(estimate, error_of_mean(pairs));
  return estimate;
}

}  // namespace pedigreewatch
