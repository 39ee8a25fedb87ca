// An animal's genes are carried up to the founders. The square of what arrives at an animal, times its own variance, is
// its part of the relationships (Colleau, 2002); the square of what reaches a founder is the founder's part.

#include "diversity/cohort_genes.h"

#include <algorithm>

#include "core/memory_hints.h"
#include "core/processor_clones.h"

namespace pedigreewatch {
namespace {

/// Of the squares of an animal's genes, the part that counts as those of founders: the unknown parent of a half-founder
/// has given half of them.
double founder_part(const ParentNumbers& parents) {
  if (parents.sire == 0 && parents.dam == 0) return 1.0;
  constexpr double square_of_half = 0.25;
  return parents.sire == 0 || parents.dam == 0 ? square_of_half : 0.0;
}

void put(GeneLanes<double>& lanes, std::uint32_t /*groups*/, double genes) {
  lanes.each += genes;
}

void put(GeneLanes<GeneVector>& lanes, std::uint32_t groups, double genes) {
  for (std::size_t g = 0; g < gene_lanes; ++g) {
    if (((groups >> g) & 1U) != 0) lanes.each[g] += genes;
  }
}

bool is_empty(const GeneLanes<double>& lanes) {
  return lanes.each == 0.0;
}

bool is_empty(const GeneLanes<GeneVector>& lanes) {
  bool is_any = false;
  for (std::size_t g = 0; g < gene_lanes; ++g) is_any |= lanes.each[g] != 0.0;
  return !is_any;
}

template <typename Number>
struct PassSums {
  GeneLanes<Number> relationships, founder_squares;
};

/// Places the genes of the cohort: an ancestor's on itself, another animal's on its parents, while what comes from
/// neither goes to the sums. Yields the highest ancestor that has genes.
template <typename Number>
std::int32_t place_genes(const GeneWork& work, std::span<const GroupedAnimal> cohort,
                         ByNumber<GeneLanes<Number>>& lanes, PassSums<Number>& sums) {
  std::int32_t highest = 0;
  for (const GroupedAnimal& animal : cohort) {
    if (const std::int32_t number = work.ancestors.number_of_animal[animal.position]; number > 0) {
      put(lanes[number], animal.groups, 1.0);
      highest = std::max(highest, number);
      continue;
    }
    const ParentNumbers parents = parent_numbers(work.store, work.ancestors, animal.position);
    put(sums.relationships, animal.groups, within_family_variance(work.inbreeding, parents));
    put(sums.founder_squares, animal.groups, founder_part(parents));
    put(lanes[parents.sire], animal.groups, 0.5);
    put(lanes[parents.dam], animal.groups, 0.5);
    highest = std::max({highest, parents.sire, parents.dam});
  }
  return highest;
}

/// Works through the ancestors from `highest` on; the unknown parent's entry takes what nobody reads.
template <typename Number>
void hand_on_genes(const GeneWork& work, std::int32_t highest, ByNumber<GeneLanes<Number>>& lanes,
                   PassSums<Number>& sums) {
  const AncestorPedigree& ancestors = work.ancestors;
  for (std::int32_t j = highest; j > 0; --j) {
    if (j > look_ahead) {
      fetch_early(&lanes[ancestors.sire[j - look_ahead]]);
      fetch_early(&lanes[ancestors.dam[j - look_ahead]]);
    }
    if (is_empty(lanes[j])) continue;
    const Number own = lanes[j].each;
    lanes[j] = {};
    const ParentNumbers parents = {ancestors.sire[j], ancestors.dam[j]};
    sums.relationships.each += own * own * work.own_variance[j];
    sums.founder_squares.each += own * own * founder_part(parents);
    lanes[parents.sire].each += own * 0.5;
    lanes[parents.dam].each += own * 0.5;
  }
  lanes[0] = {};
}

void sum_single(GeneWork& work, std::span<const GroupedAnimal> cohort, PassSums<double>& sums) {
  hand_on_genes(work, place_genes(work, cohort, work.single, sums), work.single, sums);
}

PEDIGREEWATCH_PROCESSOR_CLONES
void sum_eightfold(GeneWork& work, std::span<const GroupedAnimal> cohort, PassSums<GeneVector>& sums) {
  hand_on_genes(work, place_genes(work, cohort, work.eightfold, sums), work.eightfold, sums);
}

}  // namespace

GeneWork make_gene_work(const PopulationStore& store, const AncestorPedigree& ancestors) {
  GeneWork work{store, ancestors, inbreeding_of_ancestors(store, ancestors), within_family_variances(store, ancestors),
                {},    {}};
  work.single = ByNumber<GeneLanes<double>>(ancestors.count());
  return work;
}

std::vector<GroupGenes> sum_genes(GeneWork& work, std::span<const GroupedAnimal> cohort, std::size_t group_count) {
  std::vector<GroupGenes> genes(group_count);
  if (group_count == 1) {
    PassSums<double> sums;
    sum_single(work, cohort, sums);
    genes.front() = {sums.relationships.each, sums.founder_squares.each};
    return genes;
  }
  if (work.eightfold.values.empty()) {
    work.eightfold = ByNumber<GeneLanes<GeneVector>>(work.ancestors.count());
  }
  PassSums<GeneVector> sums;
  sum_eightfold(work, cohort, sums);
  for (std::size_t g = 0; g < group_count; ++g) {
    genes[g] = {sums.relationships.each[g], sums.founder_squares.each[g]};
  }
  return genes;
}

}  // namespace pedigreewatch
