// Where the genes of groups of animals come from: what their mean kinship and their effective number of founders are
// made of, for many cohorts one after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "genetics/ancestor_pedigree.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Sums over the genes of one group, each animal counting as 1.
struct GroupGenes {
  double relationships = 0.0;    ///< of each animal with each, itself included
  double founder_squares = 0.0;  ///< of what each founder has given, unknown parents of half-founders among them
};

/// Groups that are carried side by side.
inline constexpr std::size_t gene_lanes = 8;

/// What the passes work on from cohort to cohort; a lane for each group. All 0 between two passes.
template <typename Number>
struct alignas(Number) GeneLanes {
  Number each = {};
};

// NOLINTNEXTLINE(modernize-use-using): a using cannot carry the attribute in g++
typedef double GeneVector __attribute__((vector_size(64)));

struct GeneWork {
  const PopulationStore& store;
  const AncestorPedigree& ancestors;
  ByNumber<float> inbreeding;                 ///< by ancestor number
  ByNumber<double> own_variance;              ///< likewise
  ByNumber<GeneLanes<double>> single;         ///< for one group
  ByNumber<GeneLanes<GeneVector>> eightfold;  ///< for up to eight; empty until they are wanted
};

/// F of all animals must be final; `store` and `ancestors` (those with offspring) stay where they are.
GeneWork make_gene_work(const PopulationStore& store, const AncestorPedigree& ancestors);

/// An animal with the groups that it belongs to, a bit each.
struct GroupedAnimal {
  std::int32_t position = 0;
  std::uint32_t groups = 1;
};

/// The sums of at most `gene_lanes` groups, in one pass from the youngest ancestor of any of them to the oldest.
std::vector<GroupGenes> sum_genes(GeneWork& work, std::span<const GroupedAnimal> cohort, std::size_t group_count);

}  // namespace pedigreewatch
