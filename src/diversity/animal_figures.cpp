#include "diversity/animal_figures.h"

#include <algorithm>

#include "diversity/effective_sizes.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

/// The mean of the known shares of a parent's line over as many generations as the index has. The shares are parts of
/// 1, 2, 4, 8 and 16 animals: their sum is one of sixteenths.
double line_completeness(const KnownLine& parent) {
  constexpr int index_generations = 5;
  constexpr double sixteen = 16.0;
  int sixteenths = 0;
  for (int g = 0; g < index_generations; ++g) {
    sixteenths += parent.known[static_cast<std::size_t>(g)] << (index_generations - 1 - g);
  }
  return sixteenths / sixteen / index_generations;
}

}  // namespace

ByNumber<KnownLine> count_known_lines(const PopulationStore& store) {
  ByNumber<KnownLine> lines(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    fetch_later_parents(store, i, lines);
    const KnownParents parents = known_parents(store, i);
    const KnownLine &sire = lines[parents.sire], &dam = lines[parents.dam];
    KnownLine& own = lines[i];
    own.known[0] = 1;
    for (std::size_t g = 1; g < line_generations; ++g) {
      own.known[g] = static_cast<std::uint8_t>(sire.known[g - 1] + dam.known[g - 1]);
    }
  }
  return lines;
}

double completeness_index(const KnownLine& sire, const KnownLine& dam) {
  const double of_sire = line_completeness(sire), of_dam = line_completeness(dam);
  const double product = of_sire * of_dam;
  return product > 0.0 ? 2.0 * product / (of_sire + of_dam) : 0.0;
}

std::optional<double> individual_increase(float inbreeding, double equivalent_generations) {
  const double generations = equivalent_generations - 1.0;
  if (generations <= 0.0) return std::nullopt;
  return increase_per_generation(double{inbreeding}, generations);
}

ByNumber<float> ancestral_inbreeding(const PopulationStore& store) {
  ByNumber<float> ancestral(store.size());
  const auto handed_on_by = [&](std::int32_t parent) {
    const double own = double{ancestral[parent]};
    return parent == 0 ? 0.0 : own + (1.0 - own) * std::max(0.0, double{store.inbreeding[parent]});
  };
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    fetch_later_parents(store, i, ancestral);
    const KnownParents parents = known_parents(store, i);
    ancestral[i] = static_cast<float>(0.5 * (handed_on_by(parents.sire) + handed_on_by(parents.dam)));
  }
  return ancestral;
}

ByNumber<float> import_shares(const PopulationStore& store) {
  ByNumber<float> shares(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    fetch_later_parents(store, i, shares);
    const KnownParents parents = known_parents(store, i);
    shares[i] = store.is_import[i] != 0 ? 1.0F : 0.5F * (shares[parents.sire] + shares[parents.dam]);
  }
  return shares;
}

ByNumber<std::int32_t> count_breeding_offspring(const PopulationStore& store) {
  ByNumber<std::int32_t> count(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (store.is_parent[i] == 0) continue;
    ++count[store.sire_no[i]];
    ++count[store.dam_no[i]];
  }
  count[0] = 0;
  return count;
}

ByNumber<float> mean_kinship_of_all(const PopulationStore& store, std::span<const std::int32_t> group) {
  ByNumber<float> means;
  if (group.empty()) return means;
  ByNumber<double> sums(store.size());
  for (const std::int32_t position : group) sums[position] = 1.0;
  for (std::int32_t i = store.animal_count; i > 0; --i) {  // the genes that the group has from each animal
    if (sums[i] == 0.0) continue;
    const KnownParents parents = known_parents(store, i);
    sums[parents.sire] += 0.5 * sums[i];
    sums[parents.dam] += 0.5 * sums[i];
  }
  sums[0] = 0.0;
  means = ByNumber<float>(store.size());
  const double factor = 0.5 / static_cast<double>(group.size());  // kinships are halves of relationships
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {        // its relationship with the group
    fetch_later_parents(store, i, sums);
    const KnownParents parents = known_parents(store, i);
    double variance = 1.0;
    for (const std::int32_t parent : {parents.sire, parents.dam}) {
      if (parent != 0) variance -= 0.25 * (1.0 + double{store.inbreeding[parent]});
    }
    sums[i] = sums[i] * variance + 0.5 * (sums[parents.sire] + sums[parents.dam]);
    means[i] = static_cast<float>(factor * sums[i]);
  }
  return means;
}

}  // namespace pedigreewatch
