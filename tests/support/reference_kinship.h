// Relationships by the plainest possible way, the yardstick for the upward passes: a full matrix for each cohort.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch::test {

/// Relationships of animal x with the animals up to x, by position; entry 0 stays 0. F of all animals must be final.
std::vector<double> plain_relationship_row(const PopulationStore& store, std::int32_t x);

/// The animals of one birth year and the relationships of each with each.
struct PlainCohort {
  const PopulationStore& store;
  std::vector<std::int32_t> animals;       ///< positions
  std::vector<std::vector<float>> matrix;  ///< by place in `animals`, counted from 0

  AnimalRecord at(std::size_t place) const { return store.at(animals[place]); }
};

PlainCohort plain_cohort(const PopulationStore& store, std::int32_t year);

/// Places in a cohort, counted from 0.
using PlainGroup = std::vector<std::size_t>;

template <typename Wanted>
PlainGroup group_where(const PlainCohort& cohort, Wanted&& wanted) {
  PlainGroup group;
  for (std::size_t k = 0; k < cohort.animals.size(); ++k) {
    if (wanted(cohort.at(k))) group.push_back(k);
  }
  return group;
}

float plain_inbreeding_mean(const PlainCohort& cohort, const PlainGroup& group);

/// The sum of the relationships between the animals of two groups, each animal with itself included.
float plain_sum_between(const PlainCohort& cohort, const PlainGroup& rows, const PlainGroup& columns);

enum class TakenFirst { inbreeding, count };

/// Mean kinship of different animals: the diagonal is taken away in the order asked for.
float plain_kinship_without_self(const PlainCohort& cohort, const PlainGroup& group, TakenFirst first);

/// Whether all of `got` are what `want` has, up to the rounding of single precision.
void expect_close(const std::vector<float>& got, const std::vector<float>& want, std::int32_t year);

}  // namespace pedigreewatch::test
