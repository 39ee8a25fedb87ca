// Breeds of which the truth is known: made by a scheme of breeding whose effective size follows from theory.
#pragma once

#include <cstdint>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch::test {

/// Sires have young at the ages of 2 and 3, dams at 2 to 5, all of one sex and age alike unless said otherwise; those
/// that enter are chosen at random from the young. The generation interval is 3 years.
struct BreedScheme {
  std::int32_t sires_a_year = 3, dams_a_year = 15;  ///< that enter; Ne = 12 s d / (s + d) (Hill, 1972)
  std::int32_t years = 36;
  double unknown_parents = 0.0;    ///< share of the parents that are not recorded, at random
  double imported = 0.0;           ///< share of those that enter
  bool has_popular_sires = false;  ///< a fifth of the sires is used four times as much
  bool has_rule = false;
  std::int32_t rule_year = 0;    ///< with a rule, from this year on (counted from 0) young have twice as many parents
  std::int32_t litter = 1;       ///< young of each mating
  double wrong_parents = 0.0;    ///< share of the animals recorded with another sire, any older male
  std::int32_t book_begins = 0;  ///< animals born before this year (from 0) have no line, and are no parents in others
  double wrong_years = 0.0;      ///< share of the animals recorded with another year of birth, up to ten years off
};

/// The year that is 0 in a scheme.
inline constexpr std::int32_t first_year_of_breeds = 1980;

/// Schemes like this one for effective sizes of 14.4, 30, 60, 120 and 300; with a rule those are the sizes before it.
/// Popular sires, whose use varies with a squared coefficient of variation of 9/16, are more to the same end.
std::vector<BreedScheme> breeds_of_known_size(const BreedScheme& kind);

/// The effective size that a scheme leads to, after its rule.
double effective_size_of(const BreedScheme& scheme);

/// The breed as a run leaves a store: sorted, with completeness and F of every animal.
PopulationStore simulate_breed(const BreedScheme& scheme, std::uint64_t seed);

}  // namespace pedigreewatch::test
