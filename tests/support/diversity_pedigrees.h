// Small populations for the figures of diversity, and those figures by the plainest possible ways.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "diversity/reference_pedigree.h"
#include "pedigree/population_store.h"

namespace pedigreewatch::test {

/// Fills F and completeness of all animals, as a run does.
PopulationStore with_inbreeding(PopulationStore store);

/// A random pedigree (see random_pedigree) with F and completeness.
PopulationStore random_population(std::uint64_t seed, std::int32_t count);

/// The positions of the animals with these ids, ascending.
std::vector<std::int32_t> positions_of(const PopulationStore& store, std::initializer_list<std::string_view> ids);

/// The last `count` positions, of which every third is left out.
std::vector<std::int32_t> young_positions(const PopulationStore& store, std::int32_t count);

/// Kinships of these animals with each other, themselves included, from the table of all relationships.
std::vector<std::vector<double>> plain_kinships(const PopulationStore& store,
                                                const std::vector<std::int32_t>& positions);

/// What an ancestor explains; its position is below 0 for the unknown parent of that animal.
struct PlainAncestor {
  std::int32_t position = 0;
  double contribution = 0.0;
};

/// The ancestors in the order of their choice, all sums made anew over the whole pedigree for each of them, until
/// nothing is left.
std::vector<PlainAncestor> plain_ancestors(const PopulationStore& store, const std::vector<std::int32_t>& positions);

}  // namespace pedigreewatch::test
