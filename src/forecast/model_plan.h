// A year of a model herd whose matings are planned: those that a plan would choose for the animals that there are.
#pragma once

#include <cstdint>
#include <vector>

#include "forecast/model_herd.h"

namespace pedigreewatch {

/// More animals than these to choose from in a year take too long, in every year of every replicate.
inline constexpr double most_planned_candidates = 10000.0;

/// How many animals a plan could choose from in a year with `litters` times the present litters, imports of the rules
/// not counted.
double planned_candidates(const BasePeriod& base, double litters);

/// What a group has in a planned year.
struct PlannedGroup {
  std::int32_t litters = 0;
  BySex<std::int32_t> imports;  ///< of the rules
};

/// Makes the matings of a year as a plan would: shares of least mean kinship (Meuwissen, 1997), whole numbers, and the
/// pairs of least F. Every animal of known parents counts that is as old as parents are, a female for one litter, a
/// male for as many as the rules allow; all groups are one. Animals of unknown parents would look like the best of all.
/// The families are added to the herd, their numbers of young not.
void plan_matings(ModelHerd& herd, const std::vector<PlannedGroup>& groups, std::int32_t year);

}  // namespace pedigreewatch
