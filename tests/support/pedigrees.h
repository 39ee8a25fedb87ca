// Small populations for tests, and the slow obvious calculations that the fast ones are compared with.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "control/steer_settings.h"
#include "pedigree/population_store.h"
#include "support/store_builder.h"

namespace pedigreewatch::test {

/// A store from lines of blank-separated words: id, sire, dam, sex (m or f), year of birth, and where wanted the
/// subpopulation, and "import". A "-" stands for a blank subpopulation. Nothing is linked yet.
PopulationStore animals_from_text(std::string_view text, const LookedUpNames& names = {});

/// The records of such lines, for tests that set more than the lines can say; store_of makes the store.
std::vector<AnimalRecord> records_from_text(std::string_view text);

/// The same with missing parents appended, parents linked and the store sorted.
PopulationStore pedigree_from_text(std::string_view text, const LookedUpNames& names = {});

/// A random pedigree: `count` animals in `years` birth years from 2000 on, parents of any earlier line, about a tenth
/// of them unknown, full and half sibs, now and then parent-offspring matings and selfing; in two sexes. Linked and
/// sorted. The same for the same seed on every machine.
PopulationStore random_pedigree(std::uint64_t seed, std::int32_t count, std::int32_t years,
                                const LookedUpNames& names = {});

/// The animal with this id; the test fails when there is none.
AnimalRecord animal_named(const PopulationStore& store, std::string_view id);

/// The numerator relationship matrix by the tabular method, in double precision: entry (i, j) counted from 0.
std::vector<std::vector<double>> tabular_relationships(const PopulationStore& store);

/// Small deterministic random numbers (splitmix64).
struct RandomNumbers {
  std::uint64_t state;
  std::uint64_t next();
  /// From 0 to `limit` - 1.
  std::int32_t below(std::int32_t limit);
};

}  // namespace pedigreewatch::test
