// The births of each dam: litters too large, of two fathers or on two dates, and births too close to each other.
#pragma once

#include "checks/check_limits.h"
#include "checks/findings.h"
#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// Looks at the full dates only, of animals that are no imports.
void check_litters(const PedigreeColumns& animals, const CheckLimits& limits, Findings& findings);

}  // namespace pedigreewatch
