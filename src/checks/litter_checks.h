// The births of each dam: litters too large, of two fathers or on two dates, and births too close to each other.
#pragma once

#include <vector>

#include "checks/check_limits.h"
#include "checks/date_conflicts.h"
#include "checks/findings.h"
#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// Looks at the full dates only, of animals that are no imports. Births that cannot both be right are conflicts.
void check_litters(const PedigreeColumns& animals, const CheckLimits& limits, Findings& findings,
                   std::vector<DateConflict>& conflicts);

}  // namespace pedigreewatch
