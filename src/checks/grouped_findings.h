// One finding for what is said of several animals alike.
#pragma once

#include <cstdint>
#include <span>

#include "checks/findings.h"
#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// Adds one finding for these animals, which are in order, with their number and their lines; of a single one it says
/// the identification. Nothing is added for none.
void add_for_animals(Finding finding, std::span<const std::int32_t> found, const PedigreeColumns& animals,
                     Findings& findings);

/// Makes one finding of those that give the same date or year to be mended: a placeholder, a year of two digits, a text
/// that is no date.
void group_alike(Findings& findings);

}  // namespace pedigreewatch
