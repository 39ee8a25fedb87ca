// Sums of the relationships within and between groups of animals, without a relationship matrix (Colleau, 2002, Genet.
// Sel. Evol. 34: 409-421): with w the genes that a group has from each animal, found in one upward pass through the
// pedigree, the sum of all relationships between two groups is the sum of w1 w2 d over all animals, d being the
// within-family variance.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "core/memory_hints.h"
#include "genetics/ancestor_pedigree.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Weights by ancestor number, a lane for each group. A pass may use fewer ancestors and lanes than there is room for.
struct LaneWeights {
  std::vector<double> weights;
  std::size_t width = 0;  ///< lanes of the pass at hand, used or not

  /// One ancestor's weights.
  std::span<double> of(std::int32_t ancestor) {
    return std::span(weights).subspan(static_cast<std::size_t>(ancestor) * width, width);
  }
  double& at(std::int32_t ancestor, std::int32_t lane) { return of(ancestor)[static_cast<std::size_t>(lane)]; }
  /// Makes room for the ancestors 0 to `last`. All weights must be 0.
  void set_size(std::int32_t last, std::int32_t lanes) {
    width = static_cast<std::size_t>(lanes);
    const std::size_t size = (static_cast<std::size_t>(last) + 1) * width;
    reserve_large(weights, size);
    weights.resize(std::max(weights.size(), size), 0.0);
  }
};

/// What the upward passes look at, and what they work on from year to year. F of all animals must be final.
struct RelationshipWork {
  const PopulationStore& store;
  const AncestorPedigree& ancestors;
  ByNumber<double> within_family_variance;  ///< by ancestor number
  LaneWeights weights;                      ///< all 0 between two passes
};

RelationshipWork make_relationship_work(const PopulationStore& store, const AncestorPedigree& ancestors);

/// Animals by position, each with its group, counted from 0; -1 for an animal of none.
struct GroupedAnimals {
  std::span<const std::int32_t> positions;
  std::vector<std::int32_t> groups;
  std::int32_t group_count = 0;
};

/// Entry (g, h) of a square matrix: the sum of the relationships between the groups g and h, each animal with itself
/// included; in double precision.
struct RelationshipSums {
  std::int32_t group_count = 0;
  std::vector<double> sums;

  explicit RelationshipSums(std::int32_t groups)
      : group_count(groups), sums(static_cast<std::size_t>(std::int64_t{groups} * groups), 0.0) {}
  double& between(std::int32_t g, std::int32_t h) { return sums[place(g, h)]; }
  double between(std::int32_t g, std::int32_t h) const { return sums[place(g, h)]; }

 private:
  std::size_t place(std::int32_t g, std::int32_t h) const {
    return static_cast<std::size_t>(std::int64_t{g} * group_count + h);
  }
};

/// The groups do not overlap. They are carried as lanes side by side.
RelationshipSums sum_relationships(RelationshipWork& work, const GroupedAnimals& animals);

/// The same for two ways to group animals, in one pass where there are lanes enough.
struct SumsOfBoth {
  RelationshipSums first, second;
};
SumsOfBoth sum_relationships_of_both(RelationshipWork& work, const GroupedAnimals& first, const GroupedAnimals& second);

}  // namespace pedigreewatch
