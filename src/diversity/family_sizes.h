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

/// Everything that the estimate is made of.
struct FamilySizeEstimate {
  std::int32_t first_year = 0, last_year = 0;  ///< the complete birth years; 0 without any
  std::optional<double> generation_interval;   ///< L, years: the mean of the four paths
  BySex<FamilySizes> of;
  std::optional<double> effective_size;
};

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
/// Offspring bred when they have offspring themselves; a son is one that was used as a sire, as on the four paths. No
/// estimate without a complete year that has two parents of each sex.
FamilySizeEstimate estimate_by_family_sizes(const PopulationStore& store, const GenerationPaths& paths);

/// The formula alone.
std::optional<double> effective_size_of_families(const BySex<FamilySizes>& of, double generation_interval);

}  // namespace pedigreewatch
