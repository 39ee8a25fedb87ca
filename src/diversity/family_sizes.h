// The effective size from how unevenly animals leave offspring that breed. It needs parents and birth years, but no
// deep pedigree.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "diversity/generation_paths.h"
#include "pedigree/population_store.h"
#include "pedigree/sex.h"

namespace pedigreewatch {

/// The numbers of offspring that bred of the parents of one sex, over all of them.
struct FamilySizes {
  std::int64_t parents = 0;  ///< born in the complete years
  double per_year = 0.0;     ///< of them entering the breeding of a birth year: M or F
  double mean_sons = 0.0, mean_daughters = 0.0;
  double variance_of_sons = 0.0, variance_of_daughters = 0.0, covariance = 0.0;  ///< with n - 1
};

/// Why nothing is said of Ne.
enum class FamilySizeObstacle : std::uint8_t {
  none,
  no_years,         ///< no birth year is complete, or no generation interval is known
  few_parents,      ///< of one sex: their variance would be chance
  unknown_parents,  ///< of one sex, or their birth years: families look smaller and parents fewer than they are
};

/// Everything that the estimate is made of.
struct FamilySizeEstimate {
  std::int32_t first_year = 0, last_year = 0;  ///< the complete birth years; 0 without any
  std::optional<double> generation_interval;   ///< L, years: the mean of the four paths
  BySex<FamilySizes> of;
  std::int64_t bred_offspring = 0;             ///< animals that bred and can be young of the complete years
  BySex<std::optional<double>> known_parents;  ///< which part of these has a sire, a dam of known birth year
  FamilySizeObstacle obstacle = FamilySizeObstacle::no_years;
  std::optional<double> effective_size;
};

/// Fewer sires or dams than these in all complete years make no estimate: among ten the standard error of a variance is
/// half of it.
inline constexpr std::int64_t fewest_family_parents = 10;

/// Nor does a sex that is unknown, or without a birth year, of more than one in ten of the offspring. Where offspring
/// lack a parent by chance, a part p known leaves p^2 of the variance of uneven families: Ne comes out up to 1 / 0.9^2,
/// a quarter too high.
inline constexpr double least_known_parents = 0.9;

/// An animal whose parent was older than that at its birth is one in twenty: a birth year is complete when its animals
/// have had this age, and their young of that age as well, by the last birth year.
inline constexpr double late_share = 0.05;

/// At most so many complete birth years are taken, the last ones.
inline constexpr std::int32_t most_complete_years = 10;

/// Ne of overlapping generations (Hill, 1979, Genetics 92: 317-322), with M sires and F dams entering the breeding each
/// year, L the generation interval, and variances V and covariances C of the lifetime numbers of offspring that bred
/// (sons of sires mm, daughters of sires mf, sons of dams fm, daughters of dams ff), of complete birth years only:
///   1/Ne = [2 + V(mm) + 2 (M/F) C(mm,mf) + (M/F)^2 V(mf)] / (16 M L)
///        + [2 + (F/M)^2 V(fm) + 2 (F/M) C(fm,ff) + V(ff)] / (16 F L)
/// Offspring bred when they have offspring themselves; a son is one that was used as a sire, as on the four paths. The
/// offspring whose parents are counted as known or not are the animals that bred, are no imports, and were born while
/// animals of the complete years were parents: from the first of these years and the age that all but one in twenty
/// parents have, up to the last one and the age above.
FamilySizeEstimate estimate_by_family_sizes(const PopulationStore& store, const GenerationPaths& paths);

/// The formula alone.
std::optional<double> effective_size_of_families(const BySex<FamilySizes>& of, double generation_interval);

}  // namespace pedigreewatch
